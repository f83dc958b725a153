// SPDX-License-Identifier: MIT
#include "app/core/RecentItems.h"

#include <algorithm>

#include "files/FolderitemExtensions.h"
#include "platform/services/Preferences.h"

namespace brivolant {
namespace {

constexpr const char* kCount = "RecentItemCount";
constexpr const char* kItem = "RecentItem";
constexpr int kDefaultLimit = 10;
/// A damaged settings file may name any number.
constexpr int kMostRead = 1000;

}  // namespace

RecentItems::RecentItems(Preferences& preferences) : preferences_(preferences) {
  const int count = std::clamp(preferences.Value(kCount, 0).ToInt(), 0, kMostRead);
  for (int i = 0; i < count; ++i) {
    std::string path = preferences.Value(kItem + std::to_string(i), "").ToText();
    if (!path.empty()) paths_.push_back(std::move(path));
  }
}

void RecentItems::Add(const FolderItem& item) {
  const std::string path = item.ShellPath();
  std::erase(paths_, path);
  paths_.insert(paths_.begin(), path);
  const int limit = std::max(preferences_.Value("maxRecentLimit", kDefaultLimit).ToInt(), 0);
  const auto most = static_cast<std::size_t>(limit) + 1;
  if (paths_.size() > most) paths_.resize(most);
  Store();
}

void RecentItems::Clear() {
  paths_.clear();
  Store();
}

void RecentItems::Store() {
  preferences_.Assign(kCount, static_cast<int>(paths_.size()));
  for (std::size_t i = 0; i < paths_.size(); ++i) {
    preferences_.Assign(kItem + std::to_string(i), paths_[i]);
  }
  preferences_.SynchronizeSoon();
  if (UpdateRecentMenu) UpdateRecentMenu();
}

std::string RecentItems::TextFor(const std::string& path) {
  std::string name = FolderItem(FolderitemExtensions::fixShellPath(path)).DisplayName();
  if (const std::size_t dot = name.rfind('.'); dot != std::string::npos && dot > 0) {
    name.resize(dot);
  }
  return EnsureUTF8(name);
}

}  // namespace brivolant
