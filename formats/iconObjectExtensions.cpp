// SPDX-License-Identifier: MIT
#include "formats/iconObjectExtensions.h"

#include <algorithm>
#include <array>

#include "files/FolderitemExtensions.h"

namespace brivolant::iconObjectExtensions {
namespace {

/// What is not there, or damaged, shows as another icon: nothing to tell.
class Quiet final : public Log {
 public:
  void Write(std::string_view) override {}
};

Log& NoLog() {
  static Quiet log;
  return log;
}

struct SystemIcon {
  std::string_view name;
  const char* theme;
};
constexpr std::array<SystemIcon, 14> kSystemIcons{{
    {"ToolbarPicturesFolderIcon", "folder-pictures"},
    {"ToolbarDesktopFolderIcon", "user-desktop"},
    {"ToolbarDocumentsFolderIcon", "folder-documents"},
    {"ToolbarDownloadsFolderIcon", "folder-download"},
    {"ToolbarMovieFolderIcon", "folder-videos"},
    {"ToolbarMusicFolderIcon", "folder-music"},
    {"ToolbarFavoritesIcon", "user-bookmarks"},
    {"HomeFolderIcon", "user-home"},
    {"GenericFolderIcon", "folder"},
    {"GenericDocumentIcon", "text-x-generic"},
    {"GenericHardDiskIcon", "drive-harddisk"},
    {"GenericRemovableMediaIcon", "drive-removable-media"},
    {"GenericNetworkIcon", "network-workgroup"},
    {"TrashIcon", "user-trash"},
}};

/// Files in the root of a disk that hold its icon; cards and sticks come with them.
constexpr std::array<const char*, 3> kOwnIcons{".VolumeIcon.icns", ".VolumeIcon.ico",
                                               "VolumeIcon.ico"};

iconObject OwnIconObject(const FolderItem& folder, Log& log) {
  for (const char* name : kOwnIcons) {
    const FolderItem file = folder.Child(name);
    if (!file.Exists()) continue;
    iconObject icon(log, file);
    if (!icon.Error) return icon;
  }
  return iconObject(log);
}

}  // namespace

bool IsIconFile(const FolderItem& file) {
  const std::string extension = FolderitemExtensions::FileExtension(file);
  return EqualIgnoringCase(extension, "icns") || EqualIgnoringCase(extension, "ico");
}

iconObject OpenAsIcon(const FolderItem& file, Log& log) {
  return iconObject(log, file);
}

iconObject Icon(const FolderItem& file, IconSource& icons, Log& log) {
  const bool folder = file.Directory();
  if (folder || IsIconFile(file)) {
    iconObject icon = folder ? OwnIconObject(file, log) : OpenAsIcon(file, log);
    if (!icon.BestIcon(1).IsNil()) return icon;
  }
  iconObject icon(log);
  icon.SetImageFromFile(file, icons);
  return icon;
}

Picture OwnIcon(const FolderItem& folder, int size) {
  if (!folder.Directory()) return {};
  return OwnIconObject(folder, NoLog()).BestIcon(size);
}

Picture Preview(const FolderItem& file, int longest) {
  if (!IsIconFile(file) || file.Directory()) return {};
  return OpenAsIcon(file, NoLog()).BestIcon(longest);
}

Picture ApplicationIcon(int size, IconSource& icons, Log& log) {
  iconObject icon(log);
  icon.SetImageFromNames({"brivolant-photos"}, icons);
  return size == -1 ? icon.AsPicture() : icon.BestIcon(size);
}

iconObject LeopardIcon(const std::string& name, IconSource& icons, Log& log) {
  const auto* known = std::find_if(kSystemIcons.begin(), kSystemIcons.end(),
                                   [&](const SystemIcon& entry) { return entry.name == name; });
  iconObject icon(log);
  icon.SetImageFromNames({known == kSystemIcons.end() ? name : known->theme}, icons);
  return icon;
}

}  // namespace brivolant::iconObjectExtensions
