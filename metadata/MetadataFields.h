// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "metadata/MetadataChange.h"
#include "platform/files/FolderItem.h"

namespace brivolant {

class ImageMetaData;

/// What stands in several places of a file, and is one thing to its owner.
enum class MetadataField {
  kTitle,
  kDescription,
  kCreator,
  kCopyright,
  kKeywords,
  kRating,
  kTaken,
  kCity,
  kState,
  kCountry
};

/// By its name in lower case, such as "title".
std::optional<MetadataField> MetadataFieldNamed(std::string_view name);

/// The changes that let all places of a file say the same: those that say something already, the
/// one that belongs to the field first of all, and the packet's property. Several texts are of
/// keywords; none takes the field out. A moment is "YYYY-MM-DD HH:MM:SS". Nothing for a text that
/// is no moment, or no rating from -1 to 5.
std::optional<std::vector<MetadataChange>> ChangesOf(MetadataField field,
                                                     const std::vector<std::string>& texts,
                                                     const ImageMetaData& held);

/// Stamps a picture that was made for others with its maker. What is empty leaves what stands.
/// Empty if it is done, or else one sentence that names the file, which is then as it was.
[[nodiscard]] std::string StampImage(const FolderItem& file, const std::string& creator,
                                     const std::string& copyright, const std::string& software);

}  // namespace brivolant
