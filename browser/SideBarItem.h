// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "browser/browserItem.h"
#include "platform/services/Services.h"

namespace brivolant {

class SideBarCollection;

/// One source of photos in the sidebar.
class SideBarItem {
 public:
  using Target = std::variant<std::monostate, FolderItem, VolumeItem, std::shared_ptr<iPhotoAlbum>,
                              std::shared_ptr<iPhotoRoll>, std::shared_ptr<browserItemCollection>>;
  virtual ~SideBarItem() = default;
  std::string Caption;
  /// Name of the drawing; empty for that of the folder.
  std::string icon;
  /// Shown instead of a drawing, if the place brought a picture of its own.
  Picture image;
  /// What opens when it is chosen; nothing if it has gone.
  Target Tag;
  /// A volume that this user can take out; known beforehand, since painting asks no disk.
  bool Ejectable = false;
  /// Looks for the icon of the folder that it stands for.
  void TakeOwnIcon();
};

/// A section of the sidebar.
class SideBarCollection final : public SideBarItem {
 public:
  bool ItemsVisible = true;
  bool Visible = true;
  std::vector<std::shared_ptr<SideBarItem>> item;

  int Count() const { return static_cast<int>(item.size()); }
  std::shared_ptr<SideBarItem> FirstItem() const { return item.empty() ? nullptr : item.front(); }
  void RemoveAllItems() { item.clear(); }
  void AddItem(std::shared_ptr<SideBarItem> added) { item.push_back(std::move(added)); }
  void Add(std::string caption, std::string drawing, Target tag) {
    auto added = std::make_shared<SideBarItem>();
    added->Caption = std::move(caption);
    added->icon = std::move(drawing);
    added->Tag = std::move(tag);
    if (added->icon.empty()) added->TakeOwnIcon();
    AddItem(std::move(added));
  }
  void RemoveItem(const std::shared_ptr<SideBarItem>& removed) { std::erase(item, removed); }
};

/// The user's places and the computer's volumes.
namespace SideBarSources {

inline constexpr LocalizedText kLibrary{"Sidebar.IPHOTO", "Photo Library"};
inline constexpr LocalizedText kDevices{"Sidebar.kDevices", "Devices"};
inline constexpr LocalizedText kPlaces{"Sidebar.kPlaces", "Places"};
inline constexpr LocalizedText kComputer{"Sidebar.kComputer", "Computer"};

/// The places of a stored file in their order. A place whose folder has gone keeps its caption and
/// opens nothing. False if the file cannot be understood.
bool Load(const FolderItem& file, SideBarCollection& places);
/// `png` gives the picture of a place as a PNG file, for other readers.
[[nodiscard]] bool Save(const FolderItem& file, const SideBarCollection& places,
                        const std::function<std::string(const SideBarItem&)>& png = nullptr);
/// Where the user's favourites are, as links; created if missing.
FolderItem FavoritesFolder();
inline constexpr LocalizedText kFavorites{"MainWindow.kFavorites", "Favorites"};
/// What a new user finds: those of the desktop's folders that are there, and the favourites.
void AddDefaults(SideBarCollection& places, const FolderItem& documents);
inline constexpr LocalizedText kFileSystem{"Sidebar.kFileSystem", "File System"};
/// A volume's name for the user.
std::string CaptionOf(const VolumeItem& volume);
/// The roots of the mounted disks that a user knows of; reads the kernel's table alone, so that no
/// sleeping or unreachable disk is touched.
std::vector<FolderItem> MountedVolumes();

}  // namespace SideBarSources
}  // namespace brivolant
