// SPDX-License-Identifier: MIT
#pragma once

#include <system_error>

#include "platform/files/FolderItem.h"

namespace brivolant {

/// The calls of the system that an exclusive move is made of, so that tests can stand for file
/// systems that refuse some. Each gives 0 or the number of its error.
struct MoveCalls {
  /// Renames; EEXIST if there is anything at `to`.
  int (*NoReplace)(const char* from, const char* to);
  /// A second name for a file, or for a link itself; EEXIST if there is anything at `to`.
  int (*Link)(const char* from, const char* to);
  static const MoveCalls& System();
};

/// Renames within one file system and never replaces anything: file_exists if there is an entry of
/// that name already, be it a link to the very file. An entry is the same only if folder and name
/// are, so a change of case alone is a rename also where names differ in more than case.
[[nodiscard]] std::error_code MoveExclusively(const FolderItem& from, const FolderItem& to,
                                              const MoveCalls& calls = MoveCalls::System());

/// There is an entry of that name: a file, a folder or a link, wherever it leads.
bool EntryExists(const FolderItem& place);

}  // namespace brivolant
