// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <string>

#include "platform/files/FolderItem.h"

namespace brivolant {

/// The files of the pictures that were pasted into a document, by the names under which effects
/// know them. A file stays as it is while a name leads to it: another picture gets another name.
using PastedFiles = std::map<std::string, FolderItem, std::less<>>;

}  // namespace brivolant
