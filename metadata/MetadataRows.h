// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "metadata/MetadataChange.h"

namespace brivolant {

class ImageMetaData;

/// A line of what is shown of a file.
struct MetadataRow {
  std::string Label;
  std::string Value;
  /// The tag that the line shows; empty for a line that shows none.
  std::string Tag{};
  /// Which of the tag's values, from 1.
  int Index = 1;
  /// A text that can be changed where the file can be written.
  bool Text = false;
  /// Not of the block, but of the packet, which means the same.
  bool Mapped = false;
  /// What the packet says instead; empty if it says the same, or nothing.
  std::string Differs{};
};

/// The lines of one block.
struct MetadataSection {
  /// Settings of windows know sections by these numbers.
  enum Number : int {
    kPreview = 1,
    kJfif = 2,
    kTiff = 3,
    kExif = 4,
    kIptc = 5,
    kInteroperability = 6,
    kDct = 7,
    kComment = 8,
    kFile = 9,
    kProfile = 10,
    kGps = 11,
    kPhotoshop = 12,
    kSummary = 13,
    kSubIfd = 52,
    kProgram = 54,
    kXmp = 60
  };
  int Is = 0;
  std::string Label;
  /// Where its tags are written; nothing for a block that nobody changes.
  std::optional<MetadataBlock> Block{};
  std::vector<MetadataRow> Rows{};
};

/// All that a file tells, block by block, as people read it. Blocks that it does not hold are left
/// out; tags without a name too, if they are to be hidden.
std::vector<MetadataSection> SectionsOf(const ImageMetaData& data, bool hideUnknown);

/// What is shown of a block as it would be if it were there; for tags that are about to be added.
MetadataSection EmptySection(MetadataBlock block);
/// The name of a tag of a block, by its standard.
std::string NameOfTag(MetadataBlock block, const std::string& tag);
/// True for a property that holds a text or a list of texts, and nothing else.
bool IsPlainProperty(const std::string& name);

}  // namespace brivolant
