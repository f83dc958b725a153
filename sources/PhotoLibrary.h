// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/files/FolderItem.h"
#include "platform/pictures/Picture.h"
#include "platform/values/Date.h"
#include "platform/values/Text.h"

namespace brivolant {

/// One photo of a photo library. The files stay where the library has them.
class iPhotoItem {
 public:
  std::string Key;
  std::string MediaType;
  std::string Caption;
  std::string GUID;
  /// Seconds since the start of 2001.
  double DateAsTimerInterval = 0;
  std::string ImagePath;
  std::string ThumbPath;

  /// Nil if the library names none.
  FolderItem File() const { return ProcessFolderitem(ImagePath); }
  FolderItem ThumbNailFile() const { return ProcessFolderitem(ThumbPath); }
  Date DateTime() const;
  /// The library's small picture; nil if it cannot be read. Kept until it is disposed of.
  Picture DynamicPreview();
  void DisposeDynamicPreview() { iDynamic = {}; }
  static FolderItem ProcessFolderitem(const std::string& path);

 private:
  Picture iDynamic;
};

/// Photos that belong together: an event, or a film.
class iPhotoRoll {
 public:
  static constexpr LocalizedText kTypeAsString{"iPhotoRoll.kTypeAsString", "iPhoto Event"};

  std::string Name;
  std::string ID;
  std::vector<std::shared_ptr<iPhotoItem>> item;
  /// Name of the drawing that stands for it.
  std::string Icon;
  std::shared_ptr<iPhotoItem> KeyPhoto;

  int Count() const { return static_cast<int>(item.size()); }
  /// Null if the roll is empty.
  std::shared_ptr<iPhotoItem> FirstItem() const { return item.empty() ? nullptr : item.front(); }
};

/// A list of photos, or of rolls.
class iPhotoAlbum {
 public:
  static constexpr LocalizedText kTypeAsString{"iPhotoAlbum.kTypeAsString", "iPhoto Album"};
  using Entry = std::variant<std::shared_ptr<iPhotoItem>, std::shared_ptr<iPhotoRoll>>;

  std::string Name;
  std::vector<Entry> item;
  bool Master = false;
  std::string GUID;
  std::string AlbumId;
  std::string AlbumType;
  std::string Icon;

  int Count() const { return static_cast<int>(item.size()); }
};

}  // namespace brivolant
