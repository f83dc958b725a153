// SPDX-License-Identifier: MIT
#include "metadata/DocumentTags.h"

#include <memory>
#include <utility>
#include <vector>

#include "metadata/MetadataParts.h"
#include "metadata/MetadataWriter.h"

namespace brivolant {

bool WriteDocumentTags(const FolderItem& jpeg, const DocumentTags& tags) {
  constexpr auto kFirst = DirectoryEditor::kFirst;
  CarriedData data;
  data.Tiff = std::make_unique<DirectoryEditor>();
  bool done = true;
  const auto set = [&](int tag, int type, const std::vector<TagValue>& values) {
    done = data.Tiff->Set(kFirst, tag, type, DirectoryEditor::Encoded(type, values, false)) && done;
  };
  const auto text = [&](int tag, const std::string& said) {
    if (!said.empty()) set(tag, kAsciiType, {TagValue(said)});
  };
  // What Windows shows is UTF-16, and ends with a zero as its own texts do.
  const auto shown = [&](int tag, const std::string& said) {
    const auto bytes = TagBytesFromText(tag, kByteType, said, false);
    if (!said.empty() && bytes) done = data.Tiff->Set(kFirst, tag, kByteType, *bytes) && done;
  };
  constexpr double kParts = 1000;
  set(0x0100, kLongType, {TagValue(static_cast<std::uint32_t>(tags.Width))});
  set(0x0101, kLongType, {TagValue(static_cast<std::uint32_t>(tags.Height))});
  set(0x011A, kRationalType, {TagValue(Rational(tags.HorizontalResolution * kParts, kParts))});
  set(0x011B, kRationalType, {TagValue(Rational(tags.VerticalResolution * kParts, kParts))});
  text(0x010D, tags.Name);
  text(0x0131, tags.CreatedWith);
  text(0x013B, tags.Creator);
  text(0x8298, tags.Copyright);
  shown(0x9C9B, tags.Name);
  shown(0x9C9D, tags.Creator);
  return done && MetadataWriter::Take(jpeg, std::move(data)).empty();
}

}  // namespace brivolant
