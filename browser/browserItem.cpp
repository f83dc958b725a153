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
    // By the name alone: no look at the file or at what a link leads to, which may be slow to
    // answer.
    const bool folder = Facts && Facts->Is == FileFacts::kFolder;
    iconRef =
        folder ? std::vector<std::string>{"folder"} : FolderitemExtensions::IconNamesByName(*file);
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

std::string PathOf(const BrowserPayload& row) {
  const auto* item = std::get_if<std::shared_ptr<browserItem>>(&row);
  const auto* file = item == nullptr ? nullptr : std::get_if<FolderItem>(&(*item)->item);
  return file == nullptr ? std::string() : file->ShellPath();
}

bool Within(const std::string& path, const std::string& folder) {
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

/// The row's file is one of the places, or lies in one.
bool Among(const BrowserPayload& row, const std::set<std::string>& places) {
  std::string path = PathOf(row);
  while (!path.empty()) {
    if (places.contains(path)) return true;
    path.resize(path.find_last_of('/') == std::string::npos ? 0 : path.find_last_of('/'));
  }
  return false;
}

}  // namespace

void browserItemCollection::Follow(const FileMoves& moves) {
  // Many files go or come back together, and a search may have many rows: one look at each.
  for (auto move = moves.begin(); move != moves.end();) {
    const bool goes = move->second.IsNil();
    const bool comes = move->first.IsNil();
    std::set<std::string> places;
    for (; move != moves.end() && move->second.IsNil() == goes && move->first.IsNil() == comes;
         ++move) {
      if (!goes && !comes) {
        Move(move->first, move->second);
      } else {
        places.insert((goes ? move->first : move->second).ShellPath());
      }
    }
    if (goes) Forget(places);
    if (comes) Restore(places);
  }
}

void browserItemCollection::Move(const FolderItem& before, const FolderItem& after) {
  for (BrowserPayload& row : myItems) {
    const std::string path = PathOf(row);
    if (!Within(path, before.ShellPath())) continue;
    // A new row: the old one may be in work on other threads.
    auto moved = std::make_shared<browserItem>(*std::get<std::shared_ptr<browserItem>>(row));
    const FolderItem place(after.ShellPath() + path.substr(before.ShellPath().size()));
    moved->Name = place.DisplayName();
    moved->item = place;
    row = std::move(moved);
  }
}

void browserItemCollection::Forget(const std::set<std::string>& places) {
  std::vector<BrowserPayload> left;
  std::vector<Gone> gone;
  for (std::size_t i = 0; i < myItems.size(); ++i) {
    if (Among(myItems[i], places)) {
      gone.push_back({i, std::move(myItems[i])});
    } else {
      left.push_back(std::move(myItems[i]));
    }
  }
  myItems = std::move(left);
  // The first comes back first, so that the others find their places.
  gone_.insert(gone_.end(), std::make_move_iterator(gone.rbegin()),
               std::make_move_iterator(gone.rend()));
}

void browserItemCollection::Restore(const std::set<std::string>& places) {
  std::vector<Gone> left;
  std::vector<Gone> returning;
  for (Gone& gone : gone_) (Among(gone.row, places) ? returning : left).push_back(std::move(gone));
  gone_ = std::move(left);
  std::reverse(returning.begin(), returning.end());
  for (auto next = returning.begin(); next != returning.end();) {
    // Those that went together come together, in one go through the rows.
    std::vector<BrowserPayload> rows;
    rows.reserve(myItems.size() + returning.size());
    auto old = myItems.begin();
    std::size_t last = 0;
    do {
      last = next->index;
      while (rows.size() < last && old != myItems.end()) rows.push_back(std::move(*old++));
      rows.push_back(std::move((next++)->row));
    } while (next != returning.end() && next->index > last);
    rows.insert(rows.end(), std::make_move_iterator(old), std::make_move_iterator(myItems.end()));
    myItems = std::move(rows);
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
