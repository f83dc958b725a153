// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "metadata/MetadataDraft.h"
#include "platform/files/FolderItem.h"
#include "platform/services/Services.h"

namespace brivolant {

/// What was entered of files and not saved, on disk, so that an end from outside loses next to
/// nothing of it. It is small, lies in the program's own folder, and only its user reads it.
class UnsavedInfos {
 public:
  struct Entered {
    std::vector<MetadataChange> Changes;
    /// What the places of the changes said in the file.
    std::map<MetadataDraft::Place, std::vector<std::string>> Before;
  };

  /// `folder` is made when it is needed.
  UnsavedInfos(FolderItem folder, Log& log) : folder_(std::move(folder)), log_(log) {}

  /// In place of what was kept of that file; without changes nothing is.
  void Keep(const FolderItem& file, const Entered& entered);
  void Forget(const FolderItem& file) { Keep(file, {}); }
  /// Nothing for a file of which nothing was kept, or nothing that can be read: that goes.
  std::optional<Entered> Of(const FolderItem& file);
  /// The files of which something is kept.
  std::vector<FolderItem> Files() const;
  /// A file or a folder has another place now.
  void Follow(const FolderItem& before, const FolderItem& after);

 private:
  FolderItem Place(const FolderItem& file) const;

  FolderItem folder_;
  Log& log_;
};

}  // namespace brivolant
