// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "metadata/MetadataCopy.h"
#include "platform/files/FolderItem.h"
#include "platform/pictures/Picture.h"
#include "platform/values/Text.h"

namespace brivolant {

inline constexpr LocalizedText kDataLeftBehind{
    "CarryMetadata.kDataLeftBehind",
    "The copy \"<filename>\" is complete, but what the photo tells of itself could not go along."};
inline constexpr LocalizedText kNoPlaceForData{
    "CarryMetadata.kNoPlaceForData",
    "The copy \"<filename>\" says nothing of the photo: files of its kind have no place for that."};

/// What goes along into a finished picture.
struct Carried {
  /// That the picture was made of; a nil one tells nothing.
  FolderItem Photo{};
  /// What its owner says of it.
  std::string Packet{};
  MetadataCopy::Rule Rule = MetadataCopy::Rule::kAll;
  std::string Software{};
  /// Stamped in place of what the photo says; empty leaves that.
  std::string Creator{};
  std::string Copyright{};
};

/// Writes into a finished picture what the photo that it was made of tells of itself, with a small
/// picture of its own. `file` is of the type with that identifier. Empty if nothing is left behind,
/// else one sentence, in which the file is called `named`, and the file is as it was.
[[nodiscard]] std::string CarryMetadata(const Carried& carried, const Picture& picture,
                                        const FolderItem& file, std::string_view type,
                                        const std::string& named);

}  // namespace brivolant
