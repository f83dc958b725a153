// SPDX-License-Identifier: MIT
#include "browser/SideBarItem.h"

#include <mntent.h>

#include <QFile>
#include <QStandardPaths>
#include <algorithm>
#include <array>
#include <cstdio>

#include "formats/BinaryDictionary.h"
#include "formats/FileTypes.h"
#include "formats/PictureStrings.h"
#include "formats/iconObjectExtensions.h"
#include "platform/services/SharedFolders.h"

namespace brivolant {

void SideBarItem::TakeOwnIcon() {
  constexpr int kSize = 32;
  if (const auto* folder = std::get_if<FolderItem>(&Tag)) {
    image = iconObjectExtensions::OwnIcon(*folder, kSize);
  }
}

}  // namespace brivolant

namespace brivolant::SideBarSources {
namespace {

constexpr const char* kNameKey = "Name";
constexpr const char* kFileKey = "File";
constexpr const char* kIconKey = "icon";
constexpr const char* kDrawingKey = "drawing";

std::shared_ptr<SideBarItem> PlaceOf(const FolderItem& folder, const std::string& icon) {
  auto place = std::make_shared<SideBarItem>();
  place->Caption = folder.DisplayName();
  place->icon = icon;
  place->Tag = folder;
  return place;
}

/// File systems that hold nothing of a user's.
bool OfTheSystem(std::string_view kind, std::string_view place) {
  constexpr std::array<std::string_view, 8> kDisks{"ext2",  "ext3", "ext4",  "xfs",
                                                   "btrfs", "vfat", "exfat", "ntfs"};
  constexpr std::array<std::string_view, 9> kMore{"ntfs3", "fuseblk", "hfsplus", "iso9660", "udf",
                                                  "nfs",   "nfs4",    "cifs",    "smb3"};
  const bool disk = std::find(kDisks.begin(), kDisks.end(), kind) != kDisks.end() ||
                    std::find(kMore.begin(), kMore.end(), kind) != kMore.end();
  if (place == "/") return false;
  return !disk || place.starts_with("/boot") || place.starts_with("/etc") ||
         place.starts_with("/snap") || place.starts_with("/var/lib") || place.starts_with("/proc");
}

/// The drawing's name of a place with a picture of its own.
constexpr const char* kOwnPicture = "picture";

}  // namespace

bool Load(const FolderItem& file, SideBarCollection& places) {
  if (!file.Exists()) return false;
  const auto stored = BinaryDictionary::OpenAsBinaryDictionary(file);
  if (!stored) return false;
  for (int i = 0; i < stored->Count(); ++i) {
    const auto* entry = stored->ValueAt(i).As<Dictionary>();
    if (entry == nullptr) continue;
    auto place = std::make_shared<SideBarItem>();
    place->Caption = EnsureUTF8(entry->Value(kNameKey).ToText());
    place->icon = entry->Value(kDrawingKey).ToText();
    // Other writers know pictures only.
    if (!entry->HasKey(kDrawingKey) || place->icon == kOwnPicture) {
      place->icon.clear();
      place->image = PngImporter::OpenFromString(entry->Value(kIconKey).ToText());
    }
    const std::string path = entry->Value(kFileKey).ToText();
    if (!path.empty()) place->Tag = FolderItem(path);
    places.AddItem(std::move(place));
  }
  return true;
}

bool Save(const FolderItem& file, const SideBarCollection& places,
          const std::function<std::string(const SideBarItem&)>& png) {
  Dictionary stored;
  for (int i = 0; i < places.Count(); ++i) {
    const SideBarItem& place = *places.item[static_cast<std::size_t>(i)];
    const auto* folder = std::get_if<FolderItem>(&place.Tag);
    Dictionary entry;
    entry.Value(kNameKey, place.Caption);
    entry.Value(kFileKey, folder == nullptr ? std::string() : folder->ShellPath());
    const bool own = !place.image.IsNil();
    entry.Value(kIconKey, own   ? PngExporter().SaveToString(place.image)
                          : png ? png(place)
                                : std::string());
    entry.Value(kDrawingKey, own ? std::string(kOwnPicture) : place.icon);
    stored.Value(i, entry);
  }
  return BinaryDictionary::SaveAsBinaryDictionary(file, stored,
                                                  &InternalFileTypes::BrivolantPhotosSidebarItems);
}

void AddDefaults(SideBarCollection& places, const FolderItem& documents) {
  using Standard = QStandardPaths::StandardLocation;
  constexpr std::array<std::pair<Standard, const char*>, 5> kPlaces{
      {{QStandardPaths::PicturesLocation, "Pictures"},
       {QStandardPaths::DesktopLocation, "Desktop"},
       {QStandardPaths::DocumentsLocation, "Documents"},
       {QStandardPaths::DownloadLocation, "Downloads"},
       {QStandardPaths::HomeLocation, "Home"}}};
  for (const auto& [location, icon] : kPlaces) {
    const FolderItem folder(
        QFile::encodeName(QStandardPaths::writableLocation(location)).toStdString());
    if (folder.Directory()) places.AddItem(PlaceOf(folder, icon));
  }
  if (documents.Directory()) places.AddItem(PlaceOf(documents, "brivolant-photos"));
}

FolderItem FavoritesFolder() {
  FolderItem folder = DataFolder().Child("brivolant-photos").Child("Favorites");
  (void)folder.CreateAsFolder();
  return folder;
}

std::string CaptionOf(const VolumeItem& volume) {
  std::string name = volume.Name();
  return name.empty() || name == "/" ? kFileSystem.Text() : name;
}

std::vector<FolderItem> MountedVolumes() {
  std::vector<FolderItem> roots;
  std::FILE* table = setmntent("/proc/self/mounts", "re");
  if (table == nullptr) return roots;
  std::array<char, 8192> buffer{};
  mntent entry{};
  while (getmntent_r(table, &entry, buffer.data(), static_cast<int>(buffer.size())) != nullptr) {
    if (OfTheSystem(entry.mnt_type, entry.mnt_dir)) continue;
    const FolderItem root(entry.mnt_dir);
    if (std::find(roots.begin(), roots.end(), root) == roots.end()) roots.push_back(root);
  }
  endmntent(table);
  return roots;
}

}  // namespace brivolant::SideBarSources
