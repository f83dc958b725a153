// SPDX-License-Identifier: MIT
#include "browser/browserItem.h"

#include <algorithm>

#include "files/FolderitemExtensions.h"

namespace brivolant {

browserItem::browserItem(const FolderItem& file) {
  if (file.IsNil()) return;
  Name = file.DisplayName();
  item = file;
}

FolderItem browserItem::File() const {
  if (const auto* file = std::get_if<FolderItem>(&item)) return *file;
  if (const auto* volume = std::get_if<VolumeItem>(&item)) return *volume;
  return {};
}

bool browserItem::Visible() const {
  if (Facts) return !Facts->Hidden;
  return !File().Name().starts_with('.');
}

void browserItem::GetIconRef() {
  if (!iconRef.empty()) return;
  if (std::holds_alternative<VolumeItem>(item)) {
    iconRef = {"drive-harddisk"};
  } else if (const auto* file = std::get_if<FolderItem>(&item)) {
    const bool folder = Facts && Facts->Is == FileFacts::kFolder;
    // What was listed is known, a link by its name alone: no look at the file or at what it leads
    // to, which may be slow to answer.
    const bool known = Facts.has_value();
    iconRef = folder  ? std::vector<std::string>{"folder"}
              : known ? FolderitemExtensions::IconNamesByName(*file)
                      : FolderitemExtensions::IconNames(*file);
  }
}

void browserItem::ConvertIconRefToPicture(IconSource& icons) {
  constexpr int kSize = 256;
  if (iconRef.empty()) return;
  const Picture icon = icons.Icon(iconRef, kSize);
  if (icon.IsNil()) return;
  QImage drawn = icon.AsImage().convertToFormat(QImage::Format_ARGB32);
  if (const Plane* mask = icon.Mask()) {
    for (int y = 0; y < drawn.height(); ++y) {
      auto* row = reinterpret_cast<QRgb*>(drawn.scanLine(y));
      for (int x = 0; x < drawn.width(); ++x) {
        row[x] = (row[x] & 0xffffffU) | static_cast<QRgb>(255 - mask->At(x, y)) << 24U;
      }
    }
  }
  image = std::move(drawn);
}

void browserItem::CreateIcon(IconSource& icons) {
  GetIconRef();
  ConvertIconRefToPicture(icons);
}

namespace {

/// The file of a row, if it is `folder` or lies in it; else nil.
FolderItem FileWithin(const BrowserPayload& row, const FolderItem& folder) {
  const auto* item = std::get_if<std::shared_ptr<browserItem>>(&row);
  const auto* file = item == nullptr ? nullptr : std::get_if<FolderItem>(&(*item)->item);
  if (file == nullptr) return {};
  const bool within = *file == folder || file->ShellPath().starts_with(folder.ShellPath() + "/");
  return within ? *file : FolderItem();
}

}  // namespace

void browserItemCollection::Follow(const FolderItem& before, const FolderItem& after) {
  if (after.IsNil()) return Forget(before);
  if (before.IsNil()) return Restore(after);
  for (BrowserPayload& row : myItems) {
    const FolderItem file = FileWithin(row, before);
    if (file.IsNil()) continue;
    // A new row: the old one may be in work on other threads.
    auto moved = std::make_shared<browserItem>(*std::get<std::shared_ptr<browserItem>>(row));
    const FolderItem place(after.ShellPath() + file.ShellPath().substr(before.ShellPath().size()));
    moved->Name = place.DisplayName();
    moved->item = place;
    row = std::move(moved);
  }
}

void browserItemCollection::Forget(const FolderItem& file) {
  for (auto index = static_cast<std::ptrdiff_t>(myItems.size()) - 1; index >= 0; --index) {
    const auto row = myItems.begin() + index;
    if (FileWithin(*row, file).IsNil()) continue;
    gone_.push_back({index, std::move(*row)});
    myItems.erase(row);
  }
}

void browserItemCollection::Restore(const FolderItem& file) {
  for (auto gone = static_cast<std::ptrdiff_t>(gone_.size()) - 1; gone >= 0; --gone) {
    const auto entry = gone_.begin() + gone;
    if (FileWithin(entry->row, file).IsNil()) continue;
    const auto index = std::min(entry->index, static_cast<std::ptrdiff_t>(myItems.size()));
    myItems.insert(myItems.begin() + index, std::move(entry->row));
    gone_.erase(entry);
  }
}

std::vector<FolderItem> FilesOf(const BrowserPayload& payload) {
  std::vector<FolderItem> files;
  if (const auto* item = std::get_if<std::shared_ptr<browserItem>>(&payload)) {
    if (const FolderItem file = (*item)->File()) files.push_back(file);
  } else if (const auto* photo = std::get_if<std::shared_ptr<iPhotoItem>>(&payload)) {
    if (const FolderItem file = (*photo)->File()) files.push_back(file);
  } else if (const auto* roll = std::get_if<std::shared_ptr<iPhotoRoll>>(&payload)) {
    for (const auto& entry : (*roll)->item) {
      if (const FolderItem file = entry->File()) files.push_back(file);
    }
  }
  return files;
}

}  // namespace brivolant
