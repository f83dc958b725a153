// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/files/FolderItem.h"

namespace brivolant {

class Preferences;

/// The files opened last, newest first, kept in the settings.
class RecentItems {
 public:
  /// Reads the list. `preferences` must outlive the object.
  explicit RecentItems(Preferences& preferences);

  /// Shell paths.
  const std::vector<std::string>& RecentItem() const { return paths_; }
  /// Puts a file at the top; the list is cut at one more than the limit of the settings.
  void Add(const FolderItem& item);
  void Clear();
  /// What the menu shows for a path: the file's name without its extension.
  static std::string TextFor(const std::string& path);

  /// The list has changed.
  std::function<void()> UpdateRecentMenu;

 private:
  void Store();

  Preferences& preferences_;
  std::vector<std::string> paths_;
};

}  // namespace brivolant
