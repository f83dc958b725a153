// SPDX-License-Identifier: MIT
// What a packet says of things that other blocks have tags for.
#include <algorithm>
#include <array>

#include "metadata/ImageMetaData.h"
#include "metadata/XMPEditor.h"

namespace brivolant {
namespace {

struct Row {
  std::string_view Property;
  MetadataBlock Block;
  const char* Tag;
  /// All texts, not the first alone.
  bool List = false;
};

constexpr auto kTiff = MetadataBlock::kTiff;
constexpr auto kIptc = MetadataBlock::kIptc;

constexpr std::array kRows{Row{"dc:title", kTiff, "010D"},
                           Row{"dc:title", kIptc, "5"},
                           Row{"dc:creator", kTiff, "013B"},
                           Row{"dc:creator", kIptc, "80"},
                           Row{"dc:description", kTiff, "010E"},
                           Row{"dc:description", kIptc, "120"},
                           Row{"dc:rights", kTiff, "8298"},
                           Row{"dc:subject", kIptc, "25", true},
                           Row{"xmp:CreatorTool", kTiff, "0131"},
                           Row{"xmpMM:DocumentID", kIptc, "187"},
                           Row{"photoshop:CaptionWriter", kIptc, "122"},
                           Row{"photoshop:AuthorsPosition", kIptc, "85"},
                           Row{"photoshop:Category", kIptc, "15"},
                           Row{"photoshop:City", kIptc, "90"},
                           Row{"photoshop:Country", kIptc, "101"},
                           Row{"photoshop:Credit", kIptc, "110"},
                           Row{"photoshop:DateCreated", kIptc, "55"},
                           Row{"photoshop:Headline", kIptc, "105"},
                           Row{"photoshop:Instructions", kIptc, "40"},
                           Row{"photoshop:Source", kIptc, "115"},
                           Row{"photoshop:State", kIptc, "95"},
                           Row{"photoshop:SupplementalCategories", kIptc, "20", true},
                           Row{"photoshop:TransmissionReference", kIptc, "103"},
                           Row{"photoshop:Urgency", kIptc, "10"}};

/// Beyond what is shown: what records say of a place.
constexpr std::array kFurther{Row{"Iptc4xmpCore:Location", kIptc, "92"},
                              Row{"Iptc4xmpCore:CountryCode", kIptc, "100"}};

/// A day, and the time that goes with it, as packets say them.
std::string MomentOf(const std::string& day, const std::string& time) {
  constexpr std::size_t kDay = 8;
  constexpr std::size_t kTime = 6;
  const auto digits = [](std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
  };
  if (day.size() != kDay || !digits(day)) return {};
  // What is not known to the day is no moment.
  if (day.substr(4, 2) == "00" || day.substr(6) == "00") return {};
  std::string moment = day.substr(0, 4) + "-" + day.substr(4, 2) + "-" + day.substr(6);
  if (time.size() < kTime || !digits(std::string_view(time).substr(0, kTime))) return moment;
  moment += "T" + time.substr(0, 2) + ":" + time.substr(2, 2) + ":" + time.substr(4, 2);
  constexpr std::size_t kZone = 5;
  if (time.size() == kTime + kZone && digits(std::string_view(time).substr(kTime + 1)))
    moment += time.substr(kTime, 3) + ":" + time.substr(kTime + 3);
  return moment;
}

}  // namespace

std::string WithRecords(const std::string& packet, const IPTCDataObject& records) {
  XMPProperties held;
  if (!packet.empty() && !ReadXMP(packet, held, XMPNames::kUsual)) return packet;
  std::string result = packet;
  const auto text = [&](const char* tag, int index) {
    return records.hasKey(tag) ? TextOf(records.Value(tag, index)) : std::string();
  };
  const auto add = [&](const Row& row) {
    const bool known = std::ranges::any_of(
        held, [&](const auto& property) { return property.first == row.Property; });
    if (row.Block != kIptc || known || !records.hasKey(row.Tag)) return;
    std::vector<std::string> texts;
    const int count = row.List || row.Property == "dc:creator" ? records.ValueCount(row.Tag) : 1;
    for (int i = 1; i <= count; ++i) texts.push_back(text(row.Tag, i));
    if (row.Property == "photoshop:DateCreated") texts = {MomentOf(text("55", 1), text("60", 1))};
    std::erase(texts, std::string());
    if (!texts.empty()) (void)XMPEditor::Set(result, row.Property, texts);
  };
  std::ranges::for_each(kRows, add);
  std::ranges::for_each(kFurther, add);
  // What only this record says has no row of its own: rights are XMP's as they are Exif's.
  add({"dc:rights", kIptc, "116"});
  return result;
}

void ImageMetaData::ProcessXMPData(const std::string& data) {
  if (!data.empty()) XMP = data;
  if (XMP.empty()) return;
  XMPProperties properties;
  if (!ReadXMP(XMP, properties, XMPNames::kUsual)) {
    return AppendToStringResult("Failed to decode XML");
  }
  MappedXMP.clear();
  for (const auto& [name, texts] : properties) {
    for (const Row& row : kRows) {
      if (row.Property != name || texts.empty()) continue;
      MappedXMP.push_back(
          {row.Block, row.Tag, row.List ? texts : std::vector<std::string>{texts.front()}});
    }
  }
}

}  // namespace brivolant
