// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "effects/styles/OneClickWonder.h"

namespace brivolant {

/// All 1-Click styles: those of the program first, then the user's.
class OneClickWonderStorage {
 public:
  /// The folder's name, among the resources and in the user's elements. It stays in English, so
  /// that styles are found whatever the language.
  static constexpr const char* kFolderName = "1-Click Styles";
  static constexpr LocalizedText kOneClickNameMultiple{
      "OneClickWonderStorage.kOneClickNameMultiple", "1-Click Styles"};
  static constexpr std::array<LocalizedText, 6> CategoryName{
      {{"OneClickWonderStorage.kDefaultCategory1", "Quill Favorites"},
       {"OneClickWonderStorage.kDefaultCategory2", "Artistic"},
       {"OneClickWonderStorage.kDefaultCategory3", "Romantic"},
       {"OneClickWonderStorage.kDefaultCategory4", "Quick Fixes"},
       {"OneClickWonderStorage.kDefaultCategory5", "Vintage Camera"},
       {"OneClickWonderStorage.kDefaultCategoryNameUsers", "My Styles"}}};
  /// What a user's style joins.
  static constexpr int kUsersCategory = 5;

  using Style = std::shared_ptr<OneClickWonder>;

  /// `services` must outlive the store.
  explicit OneClickWonderStorage(const Services& services);

  /// The selected category.
  int currentCategory = 0;

  /// Reads both folders, once. A file that cannot be read is left out, with a line in the log.
  void Load();
  /// Reads the folders anew: styles whose files are gone leave, new ones join, the others keep
  /// their objects. True if anything changed.
  bool Refresh();
  /// All styles of a folder, by the names of their files.
  void AddFolder(const FolderItem& folder);
  /// Null, with a line in the log, if it is no style.
  Style Add(const FolderItem& file);
  /// Saves a style without a file in the user's folder first. Null stays out; false if it could
  /// not be saved.
  bool Add(const Style& style);
  void Remove(const OneClickWonder& style);

  const std::vector<Style>& Wonders() const { return wonders_; }
  /// Of the current category.
  int Count() const;
  /// Of the current category, in the order of Wonders; null past the end.
  Style item(int index) const;
  /// The last index of CategoryName.
  int CategoryCount() const { return static_cast<int>(CategoryName.size()) - 1; }
  /// The first style of that name, in the user's language or in English, without regard to case;
  /// null if there is none.
  Style Named(const std::string& name) const;
  /// The sample on which styles are shown when no photo is open; nil if it is missing.
  static Picture PreviewImage();

  FolderItem DefaultWondersFolder;
  FolderItem usersCustomWondersFolder;

 private:
  void FindFolders();

  const Services* services_;
  std::vector<Style> wonders_;
  bool loaded_ = false;
};

}  // namespace brivolant
