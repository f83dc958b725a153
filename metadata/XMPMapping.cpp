// SPDX-License-Identifier: MIT
// What a packet says of things that other blocks have tags for.
#include <array>

#include "metadata/ImageMetaData.h"

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

}  // namespace

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
