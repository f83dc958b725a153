// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/files/FolderItem.h"

namespace brivolant::cli {

/// What a command reads. Nothing that it writes may take the place of any of it, nor of a part of
/// a document.
class InputFiles {
 public:
  /// Files and packages; what does not exist is left out.
  explicit InputFiles(const std::vector<std::string>& inputs);

  /// Empty if a file may be written there, else the sentence why not.
  std::string WhyNotWriteTo(const FolderItem& output) const;
  /// The same for files that are yet to be named, in a folder that need not exist.
  std::string WhyNotWriteInto(const FolderItem& folder) const;

 private:
  /// A file by whatever path: its device and its number there.
  using Identity = std::pair<dev_t, ino_t>;
  static bool Identify(const std::filesystem::path& path, Identity& identity);
  bool IsOrLiesInPackage(const FolderItem& place) const;

  /// The inputs, and the parts of those that are packages.
  std::set<Identity> files_;
  std::set<Identity> packages_;
};

/// A place in the folder for each input: its name with the extension that `extensionOf` gives, and
/// a number where two inputs would meet, or where an input lies. A number that spares an input
/// leads to a place where nothing is. Ask WhyNotWriteInto before.
std::vector<FolderItem> OutputsIn(
    const FolderItem& folder, const std::vector<std::string>& inputs, const InputFiles& read,
    const std::function<std::string(const FolderItem& input)>& extensionOf);

}  // namespace brivolant::cli
