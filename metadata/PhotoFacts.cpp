// SPDX-License-Identifier: MIT
#include "metadata/PhotoFacts.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "metadata/ImageMetaData.h"
#include "platform/values/Numbers.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

std::string TextIn(const TiffDataCoreClass* block, const char* tag) {
  if (block == nullptr || !block->hasKey(tag)) return {};
  return std::string(Trim(TextOf(block->Value(tag, 1))));
}

double NumberIn(const TiffDataCoreClass* block, const char* tag) {
  if (block == nullptr || !block->hasKey(tag)) return 0;
  const double number = NumberOf(block->Value(tag, 1));
  return std::isfinite(number) && number > 0 ? number : 0;
}

std::string TextIn(const XMPProperties& properties, std::string_view name) {
  for (const auto& [known, texts] : properties) {
    if (known == name && !texts.empty()) return std::string(Trim(EnsureUTF8(texts.front())));
  }
  return {};
}

std::string First(std::initializer_list<std::string> texts) {
  for (const std::string& text : texts) {
    if (!text.empty()) return text;
  }
  return {};
}

/// "NIKON CORPORATION" and "NIKON D70" are one Nikon.
std::string CameraOf(const std::string& make, const std::string& model) {
  const std::string_view brand = std::string_view(make).substr(0, make.find(' '));
  if (model.empty() || brand.empty()) return model.empty() ? make : model;
  if (EqualIgnoringCase(std::string_view(model).substr(0, brand.size()), brand)) return model;
  return make + " " + model;
}

std::string ExposureOf(const EXIFDataObject* exif) {
  std::string text;
  const auto add = [&](const std::string& part) { text += (text.empty() ? "" : ", ") + part; };
  if (const double seconds = NumberIn(exif, "829A"); seconds > 0) {
    // Short times are known by their reciprocals.
    constexpr double kLong = 0.4;
    add((seconds < kLong ? "1/" + FixedNumber(1 / seconds, 0) : Decimals(seconds, 1)) + " s");
  }
  if (const double aperture = NumberIn(exif, "829D"); aperture > 0) {
    add("f/" + FixedNumber(aperture, aperture < 10 ? 1 : 0));
  }
  if (const double speed = NumberIn(exif, "8827"); speed > 0) add("ISO " + FixedNumber(speed, 0));
  if (const double length = NumberIn(exif, "920A"); length > 0) add(FixedNumber(length, 0) + " mm");
  return text;
}

}  // namespace

std::optional<Date> DateFromExif(std::string_view text) {
  constexpr std::size_t kShortest = 10;
  if (text.size() < kShortest) return {};
  bool whole = true;
  const auto number = [&](std::size_t at, std::size_t digits) {
    int value = 0;
    // A moment may end with its day.
    if (at + digits > text.size()) return 0;
    for (std::size_t i = at; i < at + digits; ++i) {
      whole = whole && text[i] >= '0' && text[i] <= '9';
      value = value * 10 + (text[i] - '0');
    }
    return value;
  };
  const Date date{number(0, 4),  number(5, 2),  number(8, 2),
                  number(11, 2), number(14, 2), number(17, 2)};
  if (!whole || date.Year == 0 || date.Normalized() != date) return {};
  return date;
}

PhotoFacts PhotoFacts::Of(const ImageMetaData& data) {
  PhotoFacts facts;
  XMPProperties xmp;
  if (!data.XMP.empty()) (void)ReadXMP(data.XMP, xmp);
  const TIFFDataObject* tiff = data.TIFFData.get();
  const EXIFDataObject* exif = data.ExifData.get();
  const IPTCDataObject* iptc = data.IPTCData.get();
  facts.Title = First({TextIn(iptc, "5"), TextIn(xmp, "dc:title"), TextIn(tiff, "010D")});
  facts.Caption = First({TextIn(tiff, "010E"), TextIn(iptc, "120"), TextIn(xmp, "dc:description")});
  facts.Creator = First({TextIn(tiff, "013B"), TextIn(iptc, "80"), TextIn(xmp, "dc:creator")});
  facts.Copyright = First({TextIn(iptc, "116"), TextIn(tiff, "8298"), TextIn(xmp, "dc:rights")});
  if (iptc != nullptr) {
    for (int i = 1; i <= iptc->ValueCount("25"); ++i) {
      facts.Keywords.push_back(TextOf(iptc->Value("25", i)));
    }
  }
  if (facts.Keywords.empty()) {
    for (const auto& [name, texts] : xmp) {
      if (name == "dc:subject") facts.Keywords = texts;
    }
  }
  facts.Camera = CameraOf(TextIn(tiff, "010F"), TextIn(tiff, "0110"));
  facts.Lens =
      First({TextIn(exif, "A434"), TextIn(xmp, "aux:Lens"), TextIn(xmp, "exifEX:LensModel")});
  facts.Exposure = ExposureOf(exif);
  for (const auto& text :
       {TextIn(exif, "9003"), TextIn(exif, "9004"), TextIn(xmp, "photoshop:DateCreated"),
        TextIn(xmp, "xmp:CreateDate"), TextIn(tiff, "0132")}) {
    if (!facts.Taken) facts.Taken = DateFromExif(text);
  }
  return facts;
}

PhotoFacts PhotoFacts::Of(const FolderItem& file) {
  ImageMetaData data;
  data.ReadFile(file);
  return Of(data);
}

}  // namespace brivolant
