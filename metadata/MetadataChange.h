// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brivolant {

/// The blocks of a file that can be written.
enum class MetadataBlock { kTiff, kExif, kGps, kInterop, kThumbnail, kIptc, kXmp, kComment };

/// By the name that the command line and the documents use; nothing for what cannot be written.
std::optional<MetadataBlock> MetadataBlockNamed(std::string_view name);

/// A change of one tag of a file. To set no text is to remove the tag.
struct MetadataChange {
  enum class Act { kSet, kAdd, kRemove };
  Act What = Act::kSet;
  MetadataBlock Block = MetadataBlock::kTiff;
  /// Four upper-case hexadecimal digits, the number of a dataset, or "prefix:name".
  std::string Tag;
  /// As a user wrote it: of directories by the type of the tag, numbers and fractions ("1/250",
  /// "0.004") with blanks or commas between them, bytes in hexadecimal, texts as they are. Nothing
  /// to remove.
  std::optional<std::string> Text{};
};

/// Adds the changes that give a tag these texts, or take it out.
void AppendChanges(std::vector<MetadataChange>& changes, MetadataBlock block,
                   const std::string& tag, const std::vector<std::string>& texts);

/// Bytes of a tag of a directory, as its type keeps what a user wrote; nothing if it is none, or
/// not within the type.
std::optional<std::string> TagBytesFromText(int tag, int type, std::string_view text,
                                            bool littleEndian);

}  // namespace brivolant
