// SPDX-License-Identifier: MIT
// What the numbers of tags mean.
#include <algorithm>

#include "metadata/TagCatalog.h"

namespace brivolant::TagCatalog {
namespace {

constexpr CatalogValue kExifValues[] = {
    {"8822", 0, "Not Defined"},
    {"8822", 1, "Manual"},
    {"8822", 2, "Normal Program"},
    {"8822", 3, "Aperture priority"},
    {"8822", 4, "Shutter priority"},
    {"8822", 5, "Creative program (biased toward depth of field)"},
    {"8822", 6, "Action program (biased toward fast shutter speed)"},
    {"8822", 7, "Portrait mode (for closeup photos with the background out of focus)"},
    {"8822", 8, "Landscape mode (for landscape photos with the background in focus)"},
    {"9207", 0, "Unknown"},
    {"9207", 1, "Average"},
    {"9207", 2, "Center Weighted Average"},
    {"9207", 3, "Spot"},
    {"9207", 4, "Multi Spot"},
    {"9207", 5, "Pattern"},
    {"9207", 6, "Partial"},
    {"9207", 255, "Other"},
    {"9208", 0, "Unknown"},
    {"9208", 1, "Daylight"},
    {"9208", 2, "Fluorescent"},
    {"9208", 3, "Tungsten (incandescent light)"},
    {"9208", 4, "Flash"},
    {"9208", 9, "Fine Weather"},
    {"9208", 10, "Cloudy Weather"},
    {"9208", 11, "Shade"},
    {"9208", 12, "Daylight Fluorescent (D 5700 - 7100K)"},
    {"9208", 13, "Day white fluorescent (N 4600 - 5400K)"},
    {"9208", 14, "Cool white fluorescent (W 3900 - 4500K)"},
    {"9208", 15, "White fluorescent (WW 3200 – 3700K)"},
    {"9208", 17, "Standard Light A"},
    {"9208", 18, "Standard Light B"},
    {"9208", 19, "Standard Light C"},
    {"9208", 20, "D55"},
    {"9208", 21, "D65"},
    {"9208", 22, "D75"},
    {"9208", 23, "D50"},
    {"9208", 24, "ISO studio tungsten"},
    {"9208", 255, "other light source"},
    {"A001", 1, "sRGB"},
    {"A001", 65535, "Uncalibrated"},
    {"A210", 2, "Inch"},
    {"A217", 1, "Not Defined"},
    {"A217", 2, "One-chip color area sensor"},
    {"A217", 3, "Two-chip color area sensor"},
    {"A217", 4, "Three-chip color area sensor"},
    {"A217", 5, "Color sequential area sensor"},
    {"A217", 7, "Trilinear Sensor"},
    {"A217", 8, "Color sequential linear sensor"},
    {"A401", 0, "Normal Process"},
    {"A401", 1, "Custom process"},
    {"A402", 0, "Auto Exposure"},
    {"A402", 1, "Manual Exposure"},
    {"A402", 2, "Auto bracket"},
    {"A403", 0, "Auto white balance"},
    {"A403", 1, "Manual white balance"},
    {"A406", 0, "Standard"},
    {"A406", 1, "Landscape"},
    {"A406", 2, "Portrait"},
    {"A406", 3, "Night Scene"},
    {"A407", 0, "none"},
    {"A407", 1, "Low gain up"},
    {"A407", 2, "High gain up"},
    {"A407", 3, "Low gain down"},
    {"A407", 4, "High gain down"},
    {"A408", 0, "Normal"},
    {"A408", 1, "Soft"},
    {"A408", 2, "Hard"},
    {"A409", 0, "Normal"},
    {"A409", 1, "Low saturation"},
    {"A409", 2, "High saturation"},
    {"A40A", 0, "Normal"},
    {"A40A", 1, "Soft"},
    {"A40A", 2, "Hard"},
    {"A40C", 0, "unknown"},
    {"A40C", 1, "Macro"},
    {"A40C", 2, "Close View"},
    {"A40C", 3, "Distant View"},
};

constexpr CatalogValue kTiffValues[] = {
    {"0103", 1, "No compression"},
    {"0103", 2, "CCITT Group 3 1-Dimensional Modified Huffman run length encoding."},
    {"0103", 3, "T4-encoding: CCITT T.4 bi-level encoding."},
    {"0103", 4, "T6-encoding: CCITT T.6 bi-level encoding."},
    {"0103", 5, "LZW"},
    {"0103", 6, "JPEG"},
    {"0103", 7, "JPEG"},
    {"0103", 32773, "PackBits compression, a simple byte-oriented run length scheme."},
    {"0112", 1, "Normal (0 deg)"},
    {"0112", 2, "Mirrored"},
    {"0112", 3, "Upsidedown"},
    {"0112", 4, "Upsidedown Mirrored"},
    {"0112", 5, "90 deg CW Mirrored"},
    {"0112", 6, "90 deg CCW"},
    {"0112", 7, "90 deg CCW Mirrored"},
    {"0112", 8, "90 deg CW"},
    {"0152", 0, "Unspecified Data"},
    {"0152", 1, "Associated alpha data (with pre-multiplied color)"},
    {"0152", 2, "Unassociated alpha data"},
    {"010A", 1, "High-order"},
    {"010A", 2, "Low-order"},
    {"0106", 0, "White is Zero"},
    {"0106", 1, "Black is Zero"},
    {"0106", 2, "RGB"},
    {"0106", 3, "RGB Palette Color"},
    {"0106", 4, "Transparency Mask"},
    {"0106", 5, "CMYK"},
    {"0106", 6, "YCbCr"},
    {"0106", 8, "1976 CIE L*a*b*"},
    {"0106", 32803, "CFA (Color Filter Array)."},
    {"0106", 34892, "LinearRaw"},
    {"0122", 1, "Number represents tenths of a unit"},
    {"0122", 2, "Number represents hundreths of a unit"},
    {"0122", 3, "Number represents thousandths of a unit"},
    {"0122", 4, "Number represents ten-thousandths of a unit"},
    {"0122", 5, "Number represents hundred-thousandths of a unit"},
    {"0128", 1, "No absolute unit"},
    {"0128", 2, "Inch"},
    {"0128", 3, "Centimeter"},
    {"00FF", 1, "Full-Resolution Image"},
    {"00FF", 2, "Reduced-resolution Image"},
    {"00FF", 3, "A single page of a multi-page image"},
    {"0107", 1, "No dithering"},
    {"0107", 2, "An Ordered dither or halftone"},
    {"0107", 3, "A randomized process"},
    {"014C", 1, "CMYK"},
    {"014C", 2, "not CMYK"},
    {"0153", 1, "unsigned integer data"},
    {"0153", 2, "two's complement signed integer data"},
    {"0153", 3, "IEEE floating point data (IEEE)"},
    {"0153", 4, "undefined data format"},
    {"0213", 1, "centered"},
    {"0213", 2, "cosited"},
    {"0200", 1, "Baseline sequential process"},
    {"0200", 14, "Lossless process with Huffman coding"},
    {"C617", 1, "Rectangular (or square) layout"},
    {"C617", 2, "Staggered layout A"},
    {"C617", 3, "Staggered layout B"},
    {"C617", 4, "Staggered layout C"},
    {"C617", 5, "Staggered layout D"},
    {"C619", 1, "BlackLevelRepeatCols"},
    {"C635", 1, "Safe"},
    {"00FE", 1, "Low Resolution Version"},
};

}  // namespace

std::span<const CatalogValue> ExifValues() {
  return kExifValues;
}
std::span<const CatalogValue> TiffValues() {
  return kTiffValues;
}

std::string MeaningOf(std::span<const CatalogValue> values, std::string_view tag, int number) {
  const auto found = std::find_if(values.begin(), values.end(), [&](const CatalogValue& row) {
    return row.Tag == tag && row.Number == number;
  });
  return found == values.end() ? std::string() : Shown(found->Text);
}

bool HasMeanings(std::span<const CatalogValue> values, std::string_view tag) {
  return std::any_of(values.begin(), values.end(),
                     [&](const CatalogValue& row) { return row.Tag == tag; });
}

}  // namespace brivolant::TagCatalog
