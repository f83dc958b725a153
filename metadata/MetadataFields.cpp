// SPDX-License-Identifier: MIT
#include "metadata/MetadataFields.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "metadata/ImageMetaData.h"
#include "metadata/MetadataWriter.h"
#include "metadata/PhotoFacts.h"
#include "platform/values/Numbers.h"

namespace brivolant {
namespace {

using enum MetadataField;
using Act = MetadataChange::Act;

/// How a place writes what a field holds.
enum class Form {
  kText,
  kJoined,
  kDay,
  kTime,
  kZone,
  kPercent,
  kPacket,
  kNorth,
  kLatitude,
  kEast,
  kLongitude,
  kPacketLatitude,
  kPacketLongitude,
  /// Of the old place: it goes with it.
  kGone
};

struct Place {
  MetadataField Field;
  MetadataBlock Block;
  const char* Tag;
  /// Written even where it says nothing yet.
  bool Always;
  Form As = Form::kText;
};

/// After the Metadata Working Group's guidance; with them the titles and such of Windows.
constexpr std::array kPlaces{
    Place{kTitle, MetadataBlock::kXmp, "dc:title", true},
    Place{kTitle, MetadataBlock::kIptc, "5", false},
    Place{kTitle, MetadataBlock::kTiff, "010D", false},
    Place{kTitle, MetadataBlock::kTiff, "9C9B", false},
    Place{kDescription, MetadataBlock::kTiff, "010E", true},
    Place{kDescription, MetadataBlock::kXmp, "dc:description", true},
    Place{kDescription, MetadataBlock::kIptc, "120", false},
    Place{kDescription, MetadataBlock::kTiff, "9C9C", false},
    Place{kDescription, MetadataBlock::kXmp, "tiff:ImageDescription", false},
    Place{kCreator, MetadataBlock::kTiff, "013B", true, Form::kJoined},
    Place{kCreator, MetadataBlock::kXmp, "dc:creator", true},
    Place{kCreator, MetadataBlock::kIptc, "80", false},
    Place{kCreator, MetadataBlock::kTiff, "9C9D", false, Form::kJoined},
    Place{kCreator, MetadataBlock::kXmp, "tiff:Artist", false, Form::kJoined},
    Place{kCopyright, MetadataBlock::kTiff, "8298", true},
    Place{kCopyright, MetadataBlock::kXmp, "dc:rights", true},
    Place{kCopyright, MetadataBlock::kIptc, "116", false},
    Place{kCopyright, MetadataBlock::kXmp, "tiff:Copyright", false},
    Place{kKeywords, MetadataBlock::kXmp, "dc:subject", true},
    Place{kKeywords, MetadataBlock::kIptc, "25", false},
    Place{kKeywords, MetadataBlock::kTiff, "9C9E", false, Form::kJoined},
    Place{kRating, MetadataBlock::kXmp, "xmp:Rating", true},
    Place{kRating, MetadataBlock::kTiff, "4746", false},
    Place{kRating, MetadataBlock::kTiff, "4749", false, Form::kPercent},
    Place{kRating, MetadataBlock::kXmp, "MicrosoftPhoto:Rating", false, Form::kPercent},
    Place{kTaken, MetadataBlock::kExif, "9003", true},
    Place{kTaken, MetadataBlock::kXmp, "photoshop:DateCreated", true, Form::kPacket},
    Place{kTaken, MetadataBlock::kIptc, "55", false, Form::kDay},
    Place{kTaken, MetadataBlock::kIptc, "60", false, Form::kTime},
    Place{kTaken, MetadataBlock::kExif, "9011", false, Form::kZone},
    Place{kTaken, MetadataBlock::kXmp, "exif:DateTimeOriginal", false, Form::kPacket},
    Place{kCity, MetadataBlock::kXmp, "photoshop:City", true},
    Place{kCity, MetadataBlock::kIptc, "90", false},
    Place{kState, MetadataBlock::kXmp, "photoshop:State", true},
    Place{kState, MetadataBlock::kIptc, "95", false},
    Place{kCountry, MetadataBlock::kXmp, "photoshop:Country", true},
    Place{kCountry, MetadataBlock::kIptc, "101", false},
    Place{kPosition, MetadataBlock::kGps, "0001", true, Form::kNorth},
    Place{kPosition, MetadataBlock::kGps, "0002", true, Form::kLatitude},
    Place{kPosition, MetadataBlock::kGps, "0003", true, Form::kEast},
    Place{kPosition, MetadataBlock::kGps, "0004", true, Form::kLongitude},
    Place{kPosition, MetadataBlock::kGps, "0005", false, Form::kGone},
    Place{kPosition, MetadataBlock::kGps, "0006", false, Form::kGone},
    Place{kPosition, MetadataBlock::kGps, "0007", false, Form::kGone},
    Place{kPosition, MetadataBlock::kGps, "0013", false, Form::kGone},
    Place{kPosition, MetadataBlock::kGps, "0014", false, Form::kGone},
    Place{kPosition, MetadataBlock::kGps, "0015", false, Form::kGone},
    Place{kPosition, MetadataBlock::kGps, "0016", false, Form::kGone},
    Place{kPosition, MetadataBlock::kGps, "0017", false, Form::kGone},
    Place{kPosition, MetadataBlock::kGps, "0018", false, Form::kGone},
    Place{kPosition, MetadataBlock::kGps, "0019", false, Form::kGone},
    Place{kPosition, MetadataBlock::kGps, "001A", false, Form::kGone},
    Place{kPosition, MetadataBlock::kGps, "001B", false, Form::kGone},
    Place{kPosition, MetadataBlock::kGps, "001C", false, Form::kGone},
    Place{kPosition, MetadataBlock::kGps, "001D", false, Form::kGone},
    Place{kPosition, MetadataBlock::kXmp, "exif:GPSAltitude", false, Form::kGone},
    Place{kPosition, MetadataBlock::kXmp, "exif:GPSAltitudeRef", false, Form::kGone},
    Place{kPosition, MetadataBlock::kXmp, "exif:GPSTimeStamp", false, Form::kGone},
    Place{kPosition, MetadataBlock::kXmp, "exif:GPSAreaInformation", false, Form::kGone},
    Place{kPosition, MetadataBlock::kXmp, "exif:GPSLatitude", false, Form::kPacketLatitude},
    Place{kPosition, MetadataBlock::kXmp, "exif:GPSLongitude", false, Form::kPacketLongitude}};

/// Windows has no blanks between its keywords.
std::string Joined(const std::vector<std::string>& texts, const Place& place) {
  const char* between = place.Field == kCreator ? "; " : ";";
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : between) + text;
  return joined;
}

std::string Digits(int number, int digits) {
  return PaddedNumber(number, digits);
}

/// Degrees and minutes, and of Exif's three numbers the seconds.
std::string Angle(double degrees, bool packet) {
  // In the finest unit first, so that no seconds are rounded to sixty.
  constexpr double kParts = 10000;
  constexpr double kMinute = 60;
  const double parts = std::round(std::abs(degrees) * kMinute * kMinute * kParts);
  const double minute = kMinute * kParts;
  const double whole = std::floor(parts / (minute * kMinute));
  const double rest = parts - whole * minute * kMinute;
  if (packet) return FixedNumber(whole, 0) + "," + FixedNumber(rest / minute, 6);
  const double minutes = std::floor(rest / minute);
  return FixedNumber(whole, 0) + " " + FixedNumber(minutes, 0) + " " +
         FixedNumber((rest - minutes * minute) / kParts, 4);
}

std::string PositionAs(Form form, const Position& position) {
  std::string north = position.Latitude < 0 ? "S" : "N";
  std::string east = position.Longitude < 0 ? "W" : "E";
  switch (form) {
    case Form::kNorth:
      return north;
    case Form::kEast:
      return east;
    case Form::kLatitude:
      return Angle(position.Latitude, false);
    case Form::kLongitude:
      return Angle(position.Longitude, false);
    case Form::kPacketLatitude:
      return Angle(position.Latitude, true) + north;
    default:
      return Angle(position.Longitude, true) + east;
  }
}

/// "+02:00", "-0930" or "Z" at the end of a time, as Exif writes it; empty if there is none.
std::string ZoneOf(std::string_view text) {
  if (text.ends_with('Z')) return "+00:00";
  const std::size_t sign = text.find_last_of("+-");
  if (sign == std::string_view::npos) return {};
  std::string digits;
  for (const char c : text.substr(sign + 1)) {
    if (c != ':') digits += c;
  }
  constexpr std::size_t kDigits = 4;
  const bool plain = digits.size() == kDigits &&
                     std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; });
  if (!plain) return {};
  return text[sign] + digits.substr(0, 2) + ":" + digits.substr(2);
}

/// The zone of the moment at which a photo was taken, where some place says it.
std::string ZoneIn(const SaidFirst& said) {
  struct Zone {
    MetadataBlock Block;
    const char* Tag;
    /// What stands before the zone.
    std::size_t Before;
  };
  // Hyphens stand in days too.
  static constexpr std::array kZones{
      Zone{MetadataBlock::kExif, "9011", 0}, Zone{MetadataBlock::kXmp, "photoshop:DateCreated", 11},
      Zone{MetadataBlock::kXmp, "exif:DateTimeOriginal", 11}, Zone{MetadataBlock::kIptc, "60", 6},
      Zone{MetadataBlock::kExif, "9010", 0}};
  for (const Zone& zone : kZones) {
    const std::string text = said(zone.Block, zone.Tag);
    if (text.size() <= zone.Before) continue;
    if (std::string found = ZoneOf(Trim(std::string_view(text).substr(zone.Before)));
        !found.empty()) {
      return found;
    }
  }
  return {};
}

/// One field's texts as a place writes them.
std::vector<std::string> Written(const Place& place, const std::vector<std::string>& texts,
                                 const std::string& zone) {
  if (texts.empty() || place.As == Form::kGone) return {};
  if (place.As == Form::kJoined) return {Joined(texts, place)};
  if (place.Field == kPosition) {
    return {PositionAs(place.As, PositionFromText(texts.front()).value_or(Position()))};
  }
  if (place.As == Form::kPercent) {
    // What Windows shows as so many stars.
    static constexpr std::array kPercents{"0", "1", "25", "50", "75", "99"};
    const double stars = NumberFromText(texts.front()).value_or(0);
    return {kPercents.at(static_cast<std::size_t>(std::clamp(stars, 0.0, 5.0)))};
  }
  if (place.Field != kTaken) return texts;
  const Date date = DateFromExif(texts.front()).value_or(Date());
  const auto day = [&](const char* between) {
    return Digits(date.Year, 4) + between + Digits(date.Month, 2) + between + Digits(date.Day, 2);
  };
  const auto time = [&](const char* between) {
    return Digits(date.Hour, 2) + between + Digits(date.Minute, 2) + between +
           Digits(date.Second, 2);
  };
  switch (place.As) {
    case Form::kDay:
      return {day("")};
    case Form::kTime: {
      std::string plain = zone;
      std::erase(plain, ':');
      return {time("") + plain};
    }
    case Form::kZone:
      return {zone};
    case Form::kPacket:
      return {day("-") + "T" + time(":") + zone};
    default:
      return {day(":") + " " + time(":")};
  }
}

}  // namespace

std::optional<MetadataField> MetadataFieldNamed(std::string_view name) {
  static constexpr std::array<std::pair<std::string_view, MetadataField>, 11> kNames{
      {{"title", kTitle},
       {"description", kDescription},
       {"creator", kCreator},
       {"copyright", kCopyright},
       {"keywords", kKeywords},
       {"rating", kRating},
       {"taken", kTaken},
       {"city", kCity},
       {"state", kState},
       {"country", kCountry},
       {"position", kPosition}}};
  for (const auto& [known, field] : kNames) {
    if (known == name) return field;
  }
  return {};
}

std::optional<MetadataField> FieldOf(MetadataBlock block, std::string_view tag) {
  for (const Place& place : kPlaces) {
    if (place.Block != block || place.Tag != tag || place.Field == kPosition) continue;
    const bool part = place.As == Form::kDay || place.As == Form::kTime ||
                      place.As == Form::kZone || place.As == Form::kPercent ||
                      (place.As == Form::kJoined && place.Field == kKeywords);
    if (!part) return place.Field;
  }
  return {};
}

namespace {

const Place* PlaceAt(MetadataBlock block, std::string_view tag) {
  const auto* const found = std::ranges::find_if(
      kPlaces, [&](const Place& place) { return place.Block == block && place.Tag == tag; });
  return found == kPlaces.end() ? nullptr : found;
}

}  // namespace

bool IsJoined(MetadataBlock block, std::string_view tag) {
  const Place* place = PlaceAt(block, tag);
  return place != nullptr && place->As == Form::kJoined;
}

bool IsAlwaysSaid(MetadataBlock block, std::string_view tag) {
  const Place* place = PlaceAt(block, tag);
  return place != nullptr && place->Always;
}

std::vector<std::pair<MetadataBlock, std::string>> PlacesOf(MetadataField field) {
  std::vector<std::pair<MetadataBlock, std::string>> places;
  for (const Place& place : kPlaces) {
    if (place.Field == field) places.emplace_back(place.Block, place.Tag);
  }
  return places;
}

std::optional<Position> PositionFromText(std::string_view text) {
  std::vector<std::string> words;
  std::string word;
  const bool semicolon = text.find(';') != std::string_view::npos;
  const auto close = [&] {
    // What stood behind the first number of two.
    while (!word.empty() && word.back() == ',') word.pop_back();
    const bool letter =
        word.size() == 1 && std::string_view("NSEWnsew").find(word[0]) != std::string_view::npos;
    if (letter && !words.empty()) {
      words.back() += std::exchange(word, {});
      return;
    }
    if (!word.empty()) words.push_back(std::exchange(word, {}));
  };
  for (const char c : text) {
    const bool blank = c == ' ' || c == '\t';
    if (semicolon ? c == ';' : blank) {
      close();
    } else if (!blank) {
      word += c;
    }
  }
  close();
  if (words.size() == 1) {
    // One comma between two numbers with points, or with none.
    const std::string all = words.front();
    const std::size_t comma = all.find(',');
    if (comma == std::string::npos || all.find(',', comma + 1) != std::string::npos) return {};
    words = {all.substr(0, comma), all.substr(comma + 1)};
  }
  constexpr std::size_t kTwo = 2;
  if (words.size() != kTwo) return {};
  Position position;
  for (std::size_t i = 0; i < kTwo; ++i) {
    std::string& number = words[i];
    double sign = 1;
    if (!number.empty() && std::string_view("NSEWnsew").find(number.back()) != std::string::npos) {
      const char letter = static_cast<char>(number.back() & ~0x20);
      if ((i == 0) != (letter == 'N' || letter == 'S')) return {};
      if (letter == 'S' || letter == 'W') sign = -1;
      number.pop_back();
    }
    std::ranges::replace(number, ',', '.');
    const auto degrees = NumberFromText(number);
    const double most = i == 0 ? 90 : 180;
    if (!degrees || !std::isfinite(*degrees) || std::abs(*degrees) > most) return {};
    (i == 0 ? position.Latitude : position.Longitude) = sign * *degrees;
  }
  return position;
}

std::string TextOf(const Position& position) {
  constexpr int kDecimals = 6;
  return FixedNumber(position.Latitude, kDecimals) + ", " +
         FixedNumber(position.Longitude, kDecimals);
}

std::optional<std::vector<MetadataChange>> ChangesOf(MetadataField field,
                                                     const std::vector<std::string>& texts,
                                                     const ImageMetaData& held) {
  XMPProperties packet;
  if (!held.XMP.empty() && !ReadXMP(held.XMP, packet, XMPNames::kUsual)) packet.clear();
  const auto find = [&packet](const std::string& name) {
    return std::ranges::find(packet, name, [](const auto& property) { return property.first; });
  };
  const auto says = [&](MetadataBlock block, const std::string& tag) {
    if (block == MetadataBlock::kXmp) return find(tag) != packet.end();
    const TiffDataCoreClass* data = held.BlockOf(block);
    return data != nullptr && data->hasKey(tag);
  };
  const auto first = [&](MetadataBlock block, const std::string& tag) {
    if (!says(block, tag)) return std::string();
    if (block != MetadataBlock::kXmp) return TextOf(held.BlockOf(block)->Value(tag, 1));
    const std::vector<std::string>& said = find(tag)->second;
    return said.empty() ? std::string() : said.front();
  };
  return ChangesOf(field, texts, says, first);
}

std::optional<std::vector<MetadataChange>> ChangesOf(MetadataField field,
                                                     const std::vector<std::string>& texts,
                                                     const SaysSomething& says,
                                                     const SaidFirst& said) {
  constexpr std::size_t kMoment = 19;
  std::string zone;
  if (field == kTaken && !texts.empty()) {
    const std::string& moment = texts.front();
    if (moment.size() < kMoment || !DateFromExif(moment)) return {};
    const std::string behind = moment.substr(kMoment);
    zone = behind.empty() ? ZoneIn(said) : ZoneOf(behind);
    if (!behind.empty() && zone.empty()) return {};
  }
  if (field == kRating && !texts.empty()) {
    const auto rating = NumberFromText(texts.front());
    if (!rating || *rating < -1 || *rating > 5) return {};
  }
  if (field == kPosition && !texts.empty() && !PositionFromText(texts.front())) return {};
  std::vector<MetadataChange> changes;
  for (const Place& place : kPlaces) {
    // A time without its zone says less than is known.
    const bool told = place.As == Form::kZone && !zone.empty();
    const bool always = place.Always || told;
    if (place.Field != field || (!always && !says(place.Block, place.Tag))) continue;
    std::vector<std::string> written = Written(place, texts, zone);
    // No zone is said that nobody knows.
    if (place.As == Form::kZone && !texts.empty() && zone.empty()) continue;
    // Windows knows no rejected photos.
    if (field == kRating && place.Block == MetadataBlock::kTiff && !texts.empty() &&
        texts.front().starts_with('-')) {
      written.clear();
    }
    AppendChanges(changes, place.Block, place.Tag, written);
  }
  return changes;
}

std::string StampImage(const FolderItem& file, const std::string& creator,
                       const std::string& copyright, const std::string& software) {
  ImageMetaData held;
  held.ReadFile(file);
  std::vector<MetadataChange> all;
  const auto add = [&](MetadataField field, const std::string& text) {
    if (text.empty()) return;
    const auto changes = ChangesOf(field, {text}, held);
    all.insert(all.end(), changes->begin(), changes->end());
  };
  add(kCreator, creator);
  add(kCopyright, copyright);
  // Windows shows its own.
  if (!creator.empty()) all.push_back({Act::kSet, MetadataBlock::kTiff, "9C9D", creator});
  if (!software.empty()) all.push_back({Act::kSet, MetadataBlock::kTiff, "0131", software});
  return all.empty() ? std::string() : MetadataWriter::Write(file, all);
}

}  // namespace brivolant
