// SPDX-License-Identifier: MIT
// The pictures of the browser's rows: which are needed, how large, and how they are drawn.
#include <algorithm>
#include <cmath>

#include "browser/ui/BrowserViews.h"
#include "browser/ui/FileIcons.h"
#include "browser/ui/multiViewFileBrowser.h"

namespace brivolant {
namespace {

constexpr std::size_t kScaledKept = 600;

const void* IdOf(const BrowserPayload& payload) {
  return std::visit(
      [](const auto& held) -> const void* {
        if constexpr (std::is_same_v<std::decay_t<decltype(held)>, std::monostate>) {
          return nullptr;
        } else {
          return held.get();
        }
      },
      payload);
}

/// The photo of a library whose preview stands for a payload; null for any other payload.
std::shared_ptr<iPhotoItem> PhotoOf(const BrowserPayload& payload) {
  if (const auto* photo = std::get_if<std::shared_ptr<iPhotoItem>>(&payload)) return *photo;
  const auto* roll = std::get_if<std::shared_ptr<iPhotoRoll>>(&payload);
  return roll == nullptr ? nullptr : (*roll)->FirstItem();
}

/// The image within a square of `side` units; small ones are not blown up beyond their pixels.
QPixmap Fitted(const QImage& image, int side, double ratio) {
  if (image.isNull()) return {};
  const QSize fitted = image.size().scaled(QSize(side, side) * ratio, Qt::KeepAspectRatio);
  QPixmap pixmap = QPixmap::fromImage(
      fitted.width() >= image.width()
          ? image
          : image.scaled(fitted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  pixmap.setDevicePixelRatio(ratio);
  return pixmap;
}

}  // namespace

void multiViewFileBrowser::RunGetter() {
  getter_.Side(NeededSide());
  for (int i = 0; i < rows_.Count(); ++i) {
    const auto item = EntryOf(this->item(i));
    if (item && item->image.isNull() && !item->HasNoThumbnail) getter_.item.push_back(item);
  }
  getter_.Run();
}

void multiViewFileBrowser::RowsInView(int first, int end) {
  inViewFirst_ = first;
  inViewEnd_ = end;
  std::vector<std::shared_ptr<browserItem>> items;
  for (int i = first; i < end; ++i) {
    if (auto entry = EntryOf(item(i))) items.push_back(std::move(entry));
  }
  constexpr std::size_t kScreens = 2;
  scaledMost_ = std::max(kScaledKept, kScreens * items.size());
  getter_.Side(NeededSide());
  getter_.InView(items);
}

QPixmap multiViewFileBrowser::CellPicture(int row, int side) {
  const BrowserPayload& payload = item(row);
  const double ratio = devicePixelRatioF();
  const auto entry = EntryOf(payload);
  if (!entry || entry->image.isNull()) return FileIcons::For(payload, side, ratio);
  const qint64 stamp = entry->image.cacheKey();
  const void* id = IdOf(payload);
  const auto known = scaledAt_.find(id);
  if (known != scaledAt_.end()) {
    const Scaled& scaled = known->second->second;
    if (scaled.of == stamp && scaled.side == side && scaled.ratio == ratio) {
      scaled_.splice(scaled_.end(), scaled_, known->second);
      return scaled.pixmap;
    }
    scaled_.erase(known->second);
    scaledAt_.erase(known);
  }
  QPixmap pixmap = Fitted(entry->image, side, ratio);
  scaled_.emplace_back(id, Scaled{stamp, side, ratio, pixmap});
  scaledAt_[id] = std::prev(scaled_.end());
  while (scaled_.size() > scaledMost_) {
    scaledAt_.erase(scaled_.front().first);
    scaled_.pop_front();
  }
  return pixmap;
}

int multiViewFileBrowser::NeededSide() const {
  const int side = intMode == kListView ? list_->RowHeight() : iconViewSize;
  return static_cast<int>(std::ceil(side * devicePixelRatioF()));
}

std::shared_ptr<browserItem> multiViewFileBrowser::EntryOf(const BrowserPayload& payload) {
  if (const auto* item = std::get_if<std::shared_ptr<browserItem>>(&payload)) return *item;
  const std::shared_ptr<iPhotoItem> photo = PhotoOf(payload);
  if (!photo) return nullptr;
  // The library's own small picture, read as any file's: not while the window waits.
  std::shared_ptr<browserItem>& entry = photos_[photo];
  if (!entry) {
    const FolderItem small = photo->ThumbNailFile();
    entry = std::make_shared<browserItem>(small ? small : photo->File());
  }
  return entry;
}

QImage multiViewFileBrowser::Thumbnail(const BrowserPayload& payload) {
  const auto entry = EntryOf(payload);
  return entry ? entry->image : QImage();
}

}  // namespace brivolant
