// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "metadata/MetadataChange.h"
#include "platform/files/FolderItem.h"
#include "platform/services/Services.h"

namespace brivolant {

/// What was entered of files and not saved, on disk, so that an end from outside loses next to
/// nothing of it. It is small, and lies in the program's own folder.
class UnsavedInfos {
 public:
  /// `folder` is made when it is needed.
  UnsavedInfos(FolderItem folder, Log& log) : folder_(std::move(folder)), log_(log) {}

  /// In place of what was kept of that file; without changes nothing is.
  void Keep(const FolderItem& file, const std::vector<MetadataChange>& changes);
  void Forget(const FolderItem& file) { Keep(file, {}); }
  /// None for a file of which nothing was kept.
  std::vector<MetadataChange> Of(const FolderItem& file) const;
  /// The files of which something is kept.
  std::vector<FolderItem> Files() const;

 private:
  FolderItem Place(const FolderItem& file) const;

  FolderItem folder_;
  Log& log_;
};

}  // namespace brivolant
