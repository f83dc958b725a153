// SPDX-License-Identifier: MIT
#include <array>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "engine/pictures/SharedPictureEffects.h"
#include "platform/values/Numbers.h"
#include "platform/values/Text.h"

namespace brivolant::SharedPictureEffects {
namespace {

constexpr LocalizedText kMegaPixel{"SharedPictureEffects.kMegaPixel", "Megapixel"};
constexpr LocalizedText kOr{"SharedPictureEffects.kOr", "or"};

/// Millimetres.
struct Paper {
  std::string_view name;
  int width;
  int height;
};
constexpr std::array<Paper, 26> kPapers{{{"A0", 841, 1189},
                                         {"A1", 594, 841},
                                         {"A2", 420, 594},
                                         {"Super A3", 330, 482},
                                         {"Tabloid Extra", 304, 457},
                                         {"A3", 297, 420},
                                         {"Tabloid", 279, 431},
                                         {"US Letter", 215, 279},
                                         {"US Legal", 215, 355},
                                         {"ROC 16K", 196, 273},
                                         {"A4", 210, 297},
                                         {"A5", 148, 210},
                                         {"A6", 105, 148},
                                         {"A7", 74, 105},
                                         {"A8", 52, 74},
                                         {"A9", 37, 52},
                                         {"A10", 26, 37},
                                         {"JB5", 182, 257},
                                         {"B5", 176, 250},
                                         {"#10 Envelope", 104, 241},
                                         {"DL Envelope", 109, 220},
                                         {"Choukui Envelope", 119, 234},
                                         {"Photo", 76, 127},
                                         {"Photo", 102, 152},
                                         {"Photo", 127, 178},
                                         {"Photo", 203, 254}}};

/// A row of the size menu; "<MP>" is the word for megapixel.
struct ImageSize {
  std::string_view text;
  double width;
  double height;
};
constexpr double kPointsPerMillimetre = 72 / 25.4;
constexpr std::array<ImageSize, 14> kImageSizes{
    {{"QVGA (320 x 240)", 320, 240},
     {"PSP (480 x 272)", 480, 272},
     {"iPhone (480 x 320)", 480, 320},
     {"VGA (640 x 480)", 640, 480},
     {"1 <MP> (1280 x 800)", 1280, 800},
     {"2 <MP> (1600 x 1200)", 1600, 1200},
     {"HDTV 1080 (1920 x 1080)", 1920, 1080},
     {"4 <MP> (2288 x 1712)", 2288, 1712},
     {"A4 (210mm x 297mm)", 210 * kPointsPerMillimetre, 297 * kPointsPerMillimetre},
     {"US Letter (8.5\" x 11\")", 612, 792},
     {"8 <MP> (3264 x 2448)", 3264, 2448},
     {"Super A3 (13\" x 19\")", 936, 1368},
     {"A1 (594mm x 841mm)", 594 * kPointsPerMillimetre, 841 * kPointsPerMillimetre},
     {"14 <MP> (4500 x 3375)", 4500, 3375}}};

std::string OneDecimal(double value) {
  return ReadableNumber(value, 1);
}

std::string InInches(const Paper& paper) {
  return std::string(paper.name) + " (" + OneDecimal(paper.width / 25.4) + "\" x " +
         OneDecimal(paper.height / 25.4) + "\")";
}

}  // namespace

Pair AspectRatioAsPair(int width, int height) {
  if (width == height) return {1, 1};
  const int larger = std::max(width, height);
  const int smaller = std::min(width, height);
  int unit = larger - smaller;
  if (static_cast<double>(smaller) / larger < 0.6) unit /= 7;
  if (unit == 0) unit = 1;
  return {static_cast<double>(width) / unit, static_cast<double>(height) / unit};
}

Pair AspectRatioAsPair(const Pair& size) {
  return AspectRatioAsPair(static_cast<int>(size.Left), static_cast<int>(size.Right));
}

std::string AspectRatio(int width, int height) {
  const Pair ratio = AspectRatioAsPair(width, height);
  return std::to_string(std::lround(ratio.Left)) + " : " + std::to_string(std::lround(ratio.Right));
}

std::string Megapixel(int width, int height) {
  return OneDecimal(static_cast<double>(width) * height / 1e6) + ' ' + kMegaPixel.Text();
}

std::string PrintSize(int width, int height, int, bool, int dpi, bool) {
  const auto millimetres = [dpi](int pixels) {
    return static_cast<int>(static_cast<double>(pixels) / dpi * 25.4);
  };
  const int w = millimetres(width);
  const int h = millimetres(height);
  const Paper* best = nullptr;
  const Paper* second = nullptr;
  int distance = 4500000;
  for (const Paper& paper : kPapers) {
    const int other = std::abs(paper.width - w) + std::abs(paper.height - h);
    if (other >= distance) continue;
    second = best;
    best = &paper;
    distance = other;
  }
  if (best == nullptr) return {};
  if (second == nullptr) return InInches(*best);
  return InInches(*best) + ' ' + kOr.Text() + ' ' + InInches(*second);
}

void PopulateWithDefaultImageSizes(PopupMenu& menu) {
  for (const ImageSize& size : kImageSizes) {
    menu.AddRow(WithPlaceholders(std::string(size.text), {{"<MP>", kMegaPixel.Text()}}),
                Pair{size.width, size.height});
  }
}

}  // namespace brivolant::SharedPictureEffects
