// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files/FolderItem.h"

namespace brivolant {

/// "file:" addresses (RFC 8089), by which programs hand files to each other. They hold the very
/// bytes of a path, so that names in any encoding, or in none, come back as they were.
namespace FileAddress {

/// Every byte but letters, digits and "-_.~!$&'()*+,;=:@/" as "%" and two hexadecimal digits: the
/// form that the desktop's programs agree on, so that shared thumbnails are found by it.
std::string PercentEncoded(std::string_view bytes);
/// The bytes behind such a text; a "%" without two digits stands for itself.
std::string Decoded(std::string_view text);
std::string Of(const FolderItem& file);
/// Nil if it is not the address of a file of this machine.
FolderItem File(std::string_view address);

/// A list as "text/uri-list": an address on each line, comments behind "#".
std::string ListOf(const std::vector<FolderItem>& files);
/// The files of a list; what else it names is left out.
std::vector<FolderItem> Files(std::string_view list);

}  // namespace FileAddress
}  // namespace brivolant
