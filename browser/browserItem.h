// SPDX-License-Identifier: MIT
#pragma once

#include <QCollator>
#include <QImage>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "files/VolumeItem.h"
#include "platform/files/FolderItem.h"
#include "platform/services/IconSource.h"
#include "sources/PhotoLibrary.h"

namespace brivolant {

class browserItem;
class browserItemCollection;

/// What a row of the browser holds.
using BrowserPayload = std::variant<std::monostate, std::shared_ptr<browserItem>,
                                    std::shared_ptr<browserItemCollection>,
                                    std::shared_ptr<iPhotoItem>, std::shared_ptr<iPhotoRoll>>;

/// What a listing knows of a file, so that no row has to look again.
struct FileFacts {
  enum Kind : std::uint8_t { kPlain, kFolder, kPackage, kDocument, kAlias };
  /// Bytes.
  std::uint64_t Size = 0;
  /// Seconds of the Unix epoch; of the link itself for a link.
  std::int64_t Modified = 0;
  Kind Is = kPlain;
  bool Hidden = false;
  friend bool operator==(const FileFacts&, const FileFacts&) = default;
};

/// What a volume tells of itself once it was asked, so that no row has to wait for it.
struct VolumeFacts {
  /// It was asked and has answered.
  bool Known = false;
  bool Ejectable = false;
  std::string Media;
  /// Bytes.
  std::uint64_t Capacity = 0;
  /// Of its root; seconds of the Unix epoch.
  std::int64_t Modified = 0;
};

/// One thing that is shown as a cell: a file, a folder, a volume, or a container of the library.
class browserItem {
 public:
  using Wrapped = std::variant<std::monostate, FolderItem, VolumeItem, std::shared_ptr<iPhotoAlbum>,
                               std::shared_ptr<iPhotoRoll>, std::shared_ptr<browserItemCollection>>;

  /// Without a file, name and item are left to the caller.
  explicit browserItem(const FolderItem& file = {});

  std::string Name;
  Wrapped item;
  /// Known of a file that was listed.
  std::optional<FileFacts> Facts;
  /// When the photo was taken, in seconds of the Unix epoch; 0 if it does not tell, nothing as long
  /// as nobody asked.
  std::optional<std::int64_t> Taken;
  /// Its title and keywords, as far as they are known, for a search.
  std::string Said;
  /// Camera, lens and exposure; nothing as long as nobody asked. Only the main thread writes it.
  std::optional<std::string> Shot;
  /// Of a volume.
  VolumeFacts Volume;
  /// Names of the icon in the desktop's theme; empty while unknown or once there is a thumbnail.
  std::vector<std::string> iconRef;
  /// The thumbnail; null until it is ready, and again after memory had to be given back. Only the
  /// main thread writes it.
  QImage image;
  /// Pixels of the longest side that the thumbnail was made for; 0 for any other picture.
  int imageSide = 0;
  /// The thumbnail was tried and there is none.
  bool HasNoThumbnail = false;

  /// The wrapped file or a volume's root; nil for anything else.
  FolderItem File() const;
  /// False for files that the desktop hides.
  bool Visible() const;
  /// Finds the names of the icon, once.
  void GetIconRef();
  /// Draws the icon at 256 pixels into image; nothing happens without one.
  void ConvertIconRefToPicture(IconSource& icons);
  void CreateIcon(IconSource& icons);
};

/// Files or folders that have another place, in their order: each its place before and after. Nil
/// before it was brought back, or after it went to the trash.
using FileMoves = std::vector<std::pair<FolderItem, FolderItem>>;

/// A folder that exists only here: search results, or the computer's volumes.
class browserItemCollection {
 public:
  std::string Name;
  bool Visible = true;
  bool showItems = true;
  /// Name of the drawing that stands for it.
  std::string Icon;
  std::string Tag;

  int Count() const { return static_cast<int>(myItems.size()); }
  void AddItem(BrowserPayload value) { myItems.push_back(std::move(value)); }
  const BrowserPayload& Item(int index) const {
    return myItems.at(static_cast<std::size_t>(index));
  }
  void Item(int index, BrowserPayload value) {
    myItems.at(static_cast<std::size_t>(index)) = std::move(value);
  }
  void Remove(int index) { myItems.erase(myItems.begin() + index); }
  void RemoveAllItems() {
    myItems.clear();
    gone_.clear();
  }
  /// Rows of what has another place, and of what lies in it, follow; those of what went come back
  /// where they were when it does.
  void Follow(const FileMoves& moves);

 private:
  struct Gone {
    std::size_t index;
    BrowserPayload row;
  };
  void Move(const FolderItem& before, const FolderItem& after);
  void Forget(const std::set<std::string>& places);
  void Restore(const std::set<std::string>& places);

  std::vector<BrowserPayload> myItems;
  std::vector<Gone> gone_;
};

/// The file or files that a payload stands for: none for what exists only here.
std::vector<FolderItem> FilesOf(const BrowserPayload& payload);

}  // namespace brivolant
