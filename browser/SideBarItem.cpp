// SPDX-License-Identifier: MIT
#include "browser/SideBarItem.h"

#include <QFile>
#include <QStandardPaths>
#include <algorithm>
#include <array>

#include "formats/BinaryDictionary.h"
#include "formats/FileTypes.h"
#include "formats/PictureStrings.h"
#include "formats/iconObjectExtensions.h"
#include "platform/files/MountTable.h"
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
  const auto standard = [](QStandardPaths::StandardLocation location) {
    return FolderItem(QFile::encodeName(QStandardPaths::writableLocation(location)).toStdString());
  };
  const FolderItem home = standard(QStandardPaths::HomeLocation);
  const auto add = [&](const FolderItem& folder, const char* icon) {
    const bool known = std::any_of(places.item.begin(), places.item.end(), [&](const auto& place) {
      const auto* held = std::get_if<FolderItem>(&place->Tag);
      return held != nullptr && *held == folder;
    });
    if (!known && folder.Directory()) places.AddItem(PlaceOf(folder, icon));
  };
  const FolderItem pictures = standard(QStandardPaths::PicturesLocation);
  add(pictures, "Pictures");
  add(standard(QStandardPaths::DesktopLocation), "Desktop");
  add(standard(QStandardPaths::DocumentsLocation), "Documents");
  // What everyone of this machine sees. Where there is none, the desktop names the home.
  const FolderItem shared = standard(QStandardPaths::PublicShareLocation);
  if (shared != home) add(shared, "Share");
  add(standard(QStandardPaths::DownloadLocation), "Downloads");
  // Where programs that take pictures with the computer's own camera put them.
  add(pictures.Child("Photo Booth"), "Pictures");
  add(pictures.Child("Webcam"), "Pictures");
  add(home, "Home");
  add(documents, "brivolant-photos");
  add(home.Child("Library").Child("Mail Downloads"), "Downloads");
  places.AddItem(PlaceOf(FavoritesFolder(), "Favorites"));
  places.item.back()->Caption = kFavorites.Text();
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
  return MountTable::Now().OfUser();
}

}  // namespace brivolant::SideBarSources
