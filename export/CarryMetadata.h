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

/// Writes into a finished picture what the photo that it was made of tells of itself, with a small
/// picture of its own. A nil photo tells nothing; `packet` is what its owner says of it. `file` is
/// of the type with that identifier; types that do not take it stay as they are. False, and the
/// file is as it was, if it cannot be done.
[[nodiscard]] bool CarryMetadata(const FolderItem& photo, const FolderItem& file,
                                 std::string_view type, MetadataCopy::Rule rule,
                                 const Picture& picture, const std::string& software,
                                 const std::string& packet = {});

}  // namespace brivolant
