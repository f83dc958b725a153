// SPDX-License-Identifier: MIT
#include "sources/ThreadediPhotoReader.h"

#include <array>

#include "platform/values/Numbers.h"
#include "platform/values/SharedComponents.h"

namespace brivolant {
namespace {

constexpr std::string_view kAlbums = R"(plist\List of Albums\\)";
constexpr std::string_view kRolls = R"(plist\List of Rolls\\)";
constexpr std::string_view kMasterImages = R"(plist\Master Image List\)";

struct AlbumIcon {
  std::string_view type;
  const char* icon;
};
constexpr std::array<AlbumIcon, 5> kAlbumIcons{{{"Selected Event Album", "LibraryLastEvent"},
                                                {"Special Roll", "LibraryRoll"},
                                                {"Shelf", "LibraryFlagged"},
                                                {"Smart", "LibrarySmartAlbum"},
                                                {"Published", "LibraryWebGallery"}}};

/// Keys are spelled with changing case, but hardly ever.
const Variant& ValueOf(const Dictionary& dictionary, const char* key) {
  if (dictionary.HasKey(key)) return dictionary.Value(key);
  for (int i = 0; i < dictionary.Count(); ++i) {
    if (EqualIgnoringCase(dictionary.Key(i).ToText(), key)) return dictionary.ValueAt(i);
  }
  return dictionary.Value(key);
}

std::string Text(const Dictionary& dictionary, const char* key) {
  return ValueOf(dictionary, key).ToText();
}

std::string NameOf(std::string name, int count) {
  constexpr std::string_view kEscaped = "&amp;";
  for (std::size_t at = name.find(kEscaped); at != std::string::npos;
       at = name.find(kEscaped, at + 1)) {
    name.replace(at, kEscaped.size(), "&");
  }
  return EnsureUTF8(name) + " (" + std::to_string(count) + ")";
}

}  // namespace

std::string ThreadediPhotoReader::IconFor(const iPhotoAlbum& album) {
  for (const AlbumIcon& known : kAlbumIcons) {
    if (EqualIgnoringCase(album.AlbumType, known.type)) return known.icon;
  }
  return album.Master ? "Library" : "LibraryAlbum";
}

void ThreadediPhotoReader::Started() {
  Library.clear();
  Status = kStarted;
}

bool ThreadediPhotoReader::NodeAdded(const std::string& path, const Variant& value) {
  const auto* dictionary = value.As<Dictionary>();
  if (dictionary == nullptr) return false;
  if (EqualIgnoringCase(path, kAlbums)) {
    tempiPhotoAlbums.push_back(*dictionary);
    return true;
  }
  if (EqualIgnoringCase(path, kRolls)) {
    tempiPhotoRolls.push_back(*dictionary);
    return true;
  }
  if (EqualIgnoringCase(path, kMasterImages)) {
    TakeMasterImages(*dictionary);
    return true;
  }
  return false;
}

void ThreadediPhotoReader::TakeMasterImages(const Dictionary& images) {
  tempiPhotoMasterImageList.clear();
  tempiPhotoMasterImageList.reserve(static_cast<std::size_t>(images.Count()));
  for (int i = 0; i < images.Count(); ++i) {
    const auto* image = images.ValueAt(i).As<Dictionary>();
    if (image == nullptr) continue;
    std::string media = Text(*image, "MediaType");
    if (!Filter.empty() && !EqualIgnoringCase(Filter, media)) continue;
    auto item = std::make_shared<iPhotoItem>();
    item->Key = images.Key(i).ToText();
    item->MediaType = std::move(media);
    item->Caption = Text(*image, "Caption");
    item->GUID = Text(*image, "GUID");
    // Numbers are texts here; one that is none counts as 0.
    item->DateAsTimerInterval = LeadingNumber(Text(*image, "DateAsTimerInterval"));
    item->ImagePath = EnsureUTF8(Text(*image, "ImagePath"));
    item->ThumbPath = EnsureUTF8(Text(*image, "ThumbPath"));
    tempiPhotoMasterImageList[item->Key] = std::move(item);
  }
}

std::vector<std::shared_ptr<iPhotoItem>> ThreadediPhotoReader::PhotosOf(
    const Dictionary& list) const {
  std::vector<std::shared_ptr<iPhotoItem>> photos;
  const auto* keys = ValueOf(list, "KeyList").As<Collection>();
  for (int i = 0; keys != nullptr && i < keys->Count(); ++i) {
    const auto found = tempiPhotoMasterImageList.find(keys->Item(i).ToText());
    if (found != tempiPhotoMasterImageList.end()) photos.push_back(found->second);
  }
  return photos;
}

std::shared_ptr<iPhotoAlbum> ThreadediPhotoReader::Events() {
  auto events = std::make_shared<iPhotoAlbum>();
  const auto either = [](const Dictionary& roll, const char* first, const char* second) {
    std::string text = Text(roll, first);
    return text.empty() ? Text(roll, second) : text;
  };
  for (const Dictionary& stored : tempiPhotoRolls) {
    auto roll = std::make_shared<iPhotoRoll>();
    roll->ID = either(stored, "RollID", "AlbumId");
    if (roll->ID.empty()) roll->ID = otherSharedComponents::NewGUID(random_);
    roll->item = PhotosOf(stored);
    roll->Name = NameOf(either(stored, "RollName", "AlbumName"), roll->Count());
    roll->Icon = "LibraryRoll";
    events->item.emplace_back(std::move(roll));
  }
  events->Icon = "LibraryEvents";
  events->Name = kEvents.Text() + " (" + std::to_string(events->Count()) + ")";
  return events;
}

void ThreadediPhotoReader::Completed() {
  Library.push_back(Events());
  for (const Dictionary& stored : tempiPhotoAlbums) {
    auto album = std::make_shared<iPhotoAlbum>();
    album->AlbumId = Text(stored, "AlbumID");
    album->Master = ValueOf(stored, "Master").ToBool();
    album->AlbumType = Text(stored, "Album Type");
    album->Icon = IconFor(*album);
    for (auto& photo : PhotosOf(stored)) album->item.emplace_back(std::move(photo));
    album->Name = NameOf(Text(stored, "AlbumName"), album->Count());
    Library.push_back(std::move(album));
  }
  tempiPhotoAlbums.clear();
  tempiPhotoRolls.clear();
  tempiPhotoMasterImageList.clear();
  MyDictionary = {};
  Status = kFinished;
}

void ThreadediPhotoReader::ErrorOccured() {
  constexpr std::array kLines{"iPhoto Library is invalid", "iPhoto Library doesn't exist",
                              "iPhoto Library is unreadable", "iPhoto Library failed to open",
                              "iPhoto Library is empty"};
  Status = kFailed;
  log_.Write(kLines.at(static_cast<std::size_t>(Error)));
}

FolderItem DefaultPhotoLibrary(const FolderItem& pictures) {
  const FolderItem file = pictures.Child("iPhoto Library").Child("AlbumData.xml");
  return file.Exists() ? file : FolderItem();
}

}  // namespace brivolant
