// SPDX-License-Identifier: MIT
#include "metadata/MetadataFields.h"

#include <algorithm>
#include <array>
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
enum class Form { kText, kJoined, kDay, kTime, kPacket };

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
    Place{kCreator, MetadataBlock::kTiff, "013B", true},
    Place{kCreator, MetadataBlock::kXmp, "dc:creator", true},
    Place{kCreator, MetadataBlock::kIptc, "80", false},
    Place{kCreator, MetadataBlock::kTiff, "9C9D", false},
    Place{kCopyright, MetadataBlock::kTiff, "8298", true},
    Place{kCopyright, MetadataBlock::kXmp, "dc:rights", true},
    Place{kCopyright, MetadataBlock::kIptc, "116", false},
    Place{kKeywords, MetadataBlock::kXmp, "dc:subject", true},
    Place{kKeywords, MetadataBlock::kIptc, "25", false},
    Place{kKeywords, MetadataBlock::kTiff, "9C9E", false, Form::kJoined},
    Place{kRating, MetadataBlock::kXmp, "xmp:Rating", true},
    Place{kRating, MetadataBlock::kTiff, "4746", false},
    Place{kTaken, MetadataBlock::kExif, "9003", true},
    Place{kTaken, MetadataBlock::kXmp, "photoshop:DateCreated", true, Form::kPacket},
    Place{kTaken, MetadataBlock::kIptc, "55", false, Form::kDay},
    Place{kTaken, MetadataBlock::kIptc, "60", false, Form::kTime},
    Place{kCity, MetadataBlock::kXmp, "photoshop:City", true},
    Place{kCity, MetadataBlock::kIptc, "90", false},
    Place{kState, MetadataBlock::kXmp, "photoshop:State", true},
    Place{kState, MetadataBlock::kIptc, "95", false},
    Place{kCountry, MetadataBlock::kXmp, "photoshop:Country", true},
    Place{kCountry, MetadataBlock::kIptc, "101", false}};

bool Says(const ImageMetaData& held, const Place& place) {
  const TiffDataCoreClass* block = nullptr;
  switch (place.Block) {
    case MetadataBlock::kTiff:
      block = held.TIFFData.get();
      break;
    case MetadataBlock::kExif:
      block = held.ExifData.get();
      break;
    case MetadataBlock::kIptc:
      block = held.IPTCData.get();
      break;
    default:
      return false;
  }
  return block != nullptr && block->hasKey(place.Tag);
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : ";") + text;
  return joined;
}

std::string Digits(int number, int digits) {
  return PaddedNumber(number, digits);
}

/// One field's texts as a place writes them.
std::vector<std::string> Written(const Place& place, const std::vector<std::string>& texts) {
  if (texts.empty()) return {};
  if (place.As == Form::kJoined) return {Joined(texts)};
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
    case Form::kTime:
      return {time("")};
    case Form::kPacket:
      return {day("-") + "T" + time(":")};
    default:
      return {day(":") + " " + time(":")};
  }
}

}  // namespace

std::optional<MetadataField> MetadataFieldNamed(std::string_view name) {
  static constexpr std::array<std::pair<std::string_view, MetadataField>, 10> kNames{
      {{"title", kTitle},
       {"description", kDescription},
       {"creator", kCreator},
       {"copyright", kCopyright},
       {"keywords", kKeywords},
       {"rating", kRating},
       {"taken", kTaken},
       {"city", kCity},
       {"state", kState},
       {"country", kCountry}}};
  for (const auto& [known, field] : kNames) {
    if (known == name) return field;
  }
  return {};
}

std::optional<std::vector<MetadataChange>> ChangesOf(MetadataField field,
                                                     const std::vector<std::string>& texts,
                                                     const ImageMetaData& held) {
  constexpr std::size_t kMoment = 19;
  if (field == kTaken && !texts.empty()) {
    if (texts.front().size() != kMoment || !DateFromExif(texts.front())) return {};
  }
  if (field == kRating && !texts.empty()) {
    const auto rating = NumberFromText(texts.front());
    if (!rating || *rating < -1 || *rating > 5) return {};
  }
  std::vector<MetadataChange> changes;
  for (const Place& place : kPlaces) {
    if (place.Field != field || (!place.Always && !Says(held, place))) continue;
    std::vector<std::string> written = Written(place, texts);
    // Windows knows no rejected photos.
    if (field == kRating && place.Block == MetadataBlock::kTiff && !texts.empty() &&
        texts.front().starts_with('-')) {
      written.clear();
    }
    // A list is emptied first, and then filled in order.
    if (written.size() != 1) changes.push_back({Act::kRemove, place.Block, place.Tag});
    for (const std::string& text : written) {
      changes.push_back(
          {written.size() == 1 ? Act::kSet : Act::kAdd, place.Block, place.Tag, text});
    }
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
