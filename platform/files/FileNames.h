// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Names of files, made in one place from what users type.
#include "platform/files/FolderItem.h"

namespace brivolant {

/// Bytes that a name may have on the file systems people use.
inline constexpr std::size_t kLongestName = 255;

/// True if `name` is the name of one entry of a folder: not empty, not "." or "..", without "/" and
/// without the byte 0.
bool IsPlainName(std::string_view name);

/// The first `most` bytes of a UTF-8 text, or fewer so that no character is cut.
std::string_view CutAtCharacter(std::string_view text, std::size_t most);

/// A visible name for a new file, from any text: what separates folders, controls something, or is
/// kept for other meanings on other systems becomes "-"; dots and blanks at the ends go; what is
/// left of nothing is "Untitled"; with `ending`, such as ".jpg", it fits kLongestName.
std::string SafeFileName(std::string_view text, std::string_view ending = {});

/// `stem`, "-", `number` and `ending`, or without a number for 0. A long stem is cut, so that the
/// name fits kLongestName less `reserved` bytes.
std::string NumberedName(std::string_view stem, int number, std::string_view ending,
                         std::size_t reserved = 0);

/// Where something lies after a file or a folder has got another place; nil for what did not move.
FolderItem PlaceAfter(const FolderItem& item, const FolderItem& before, const FolderItem& after);

}  // namespace brivolant
