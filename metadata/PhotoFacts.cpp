// SPDX-License-Identifier: MIT
#include "metadata/PhotoFacts.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "metadata/ImageMetaData.h"
#include "metadata/Sidecar.h"
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

std::optional<double> Angle(const TiffDataCoreClass& gps, const char* reference, const char* tag,
                            double most) {
  if (!gps.hasKey(tag)) return {};
  double degrees = 0;
  double unit = 1;
  for (int i = 1; i <= std::min(gps.ValueCount(tag), 3); ++i) {
    degrees += NumberOf(gps.Value(tag, i)) * unit;
    unit /= 60;
  }
  if (!std::isfinite(degrees) || degrees < 0 || degrees > most) return {};
  const std::string letter = TextIn(&gps, reference);
  return letter.starts_with('S') || letter.starts_with('W') ? -degrees : degrees;
}

std::optional<Position> PositionIn(const TiffDataCoreClass* gps) {
  if (gps == nullptr) return {};
  const auto north = Angle(*gps, "0001", "0002", 90);
  const auto east = Angle(*gps, "0003", "0004", 180);
  if (!north || !east) return {};
  return Position{*north, *east};
}

/// "51,30.44N" or "51,30,26N", as packets say it.
std::optional<double> AngleFromText(std::string text, double most) {
  if (text.empty()) return {};
  const char letter = static_cast<char>(text.back() & ~0x20);
  if (std::string_view("NSEW").find(letter) == std::string_view::npos) return {};
  text.pop_back();
  double degrees = 0;
  double unit = 1;
  for (const std::string_view part : Split(text, ',')) {
    const auto number = NumberFromText(part);
    if (!number) return {};
    degrees += *number * unit;
    unit /= 60;
  }
  if (!std::isfinite(degrees) || degrees < 0 || degrees > most) return {};
  return letter == 'S' || letter == 'W' ? -degrees : degrees;
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
  // A zone may stand in their place.
  const bool seconds = text.size() > 16 && text[16] == ':';
  const Date date{number(0, 4),  number(5, 2),  number(8, 2),
                  number(11, 2), number(14, 2), seconds ? number(17, 2) : 0};
  if (!whole || date.Year == 0 || date.Normalized() != date) return {};
  return date;
}

PhotoFacts PhotoFacts::Of(const ImageMetaData& data) {
  PhotoFacts facts;
  XMPProperties xmp;
  if (!data.XMP.empty()) (void)ReadXMP(data.XMP, xmp, XMPNames::kUsual);
  const TIFFDataObject* tiff = data.TIFFData.get();
  const EXIFDataObject* exif = data.ExifData.get();
  const IPTCDataObject* iptc = data.IPTCData.get();
  // What an owner has said beside the file is newer than what the file says.
  const auto first = [&](std::initializer_list<std::string> held, const char* property) {
    std::string said = TextIn(xmp, property);
    if (data.SaidBeside.contains(property)) return said;
    std::string told = First(held);
    return told.empty() ? said : told;
  };
  facts.Title = first({TextIn(iptc, "5")}, "dc:title");
  if (facts.Title.empty() && !data.SaidBeside.contains("dc:title"))
    facts.Title = TextIn(tiff, "010D");
  facts.Caption = first({TextIn(tiff, "010E"), TextIn(iptc, "120")}, "dc:description");
  facts.Creator = first({TextIn(tiff, "013B"), TextIn(iptc, "80")}, "dc:creator");
  facts.Copyright = first({TextIn(iptc, "116"), TextIn(tiff, "8298")}, "dc:rights");
  std::vector<std::string> words;
  for (const auto& [name, texts] : xmp) {
    if (name == "dc:subject") words = texts;
  }
  const bool saidWords = data.SaidBeside.contains("dc:subject");
  std::erase_if(words, [](const std::string& word) { return Trim(word).empty(); });
  if (iptc != nullptr && !saidWords) {
    std::vector<std::string> held;
    for (int i = 1; i <= iptc->ValueCount("25"); ++i) held.push_back(TextOf(iptc->Value("25", i)));
    if (!held.empty()) words = std::move(held);
  }
  facts.Keywords = std::move(words);
  facts.Camera = CameraOf(TextIn(tiff, "010F"), TextIn(tiff, "0110"));
  facts.Lens =
      First({TextIn(exif, "A434"), TextIn(xmp, "aux:Lens"), TextIn(xmp, "exifEX:LensModel")});
  facts.Exposure = ExposureOf(exif);
  const std::string created = TextIn(xmp, "photoshop:DateCreated");
  // A day alone says less than a moment.
  constexpr std::size_t kMoment = 19;
  const std::string original = TextIn(xmp, "exif:DateTimeOriginal");
  std::string said;
  for (const auto& [property, text] : {std::pair("photoshop:DateCreated", &created),
                                       std::pair("exif:DateTimeOriginal", &original)}) {
    const bool moment = data.SaidBeside.contains(property) && text->size() >= kMoment;
    if (moment && said.empty()) said = *text;
  }
  for (const auto& text : {said, TextIn(exif, "9003"), TextIn(exif, "9004"), original, created,
                           TextIn(xmp, "xmp:CreateDate"), TextIn(tiff, "0132")}) {
    if (!facts.Taken) facts.Taken = DateFromExif(text);
  }
  facts.Where = PositionIn(data.GPSData.get());
  const bool saidPlace = data.SaidBeside.contains("exif:GPSLatitude");
  if (saidPlace) facts.Where.reset();
  if (!facts.Where) {
    const auto north = AngleFromText(TextIn(xmp, "exif:GPSLatitude"), 90);
    const auto east = AngleFromText(TextIn(xmp, "exif:GPSLongitude"), 180);
    if (north && east) facts.Where = Position{*north, *east};
  }
  const auto stars = NumberFromText(TextIn(xmp, "xmp:Rating"));
  const double rating = stars ? *stars : NumberIn(tiff, "4746");
  if (rating >= -1 && rating <= 5) facts.Rating = static_cast<int>(rating);
  return facts;
}

PhotoFacts PhotoFacts::Of(const FolderItem& file) {
  ImageMetaData data;
  data.ReadFile(file);
  Sidecar::ReadInto(data);
  return Of(data);
}

}  // namespace brivolant
