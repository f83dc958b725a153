// SPDX-License-Identifier: MIT
#include "app/browse/PathController.h"

#include "app/browse/BrowserPane.h"
#include "browser/SideBarItem.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkPathBar.h"

namespace brivolant {
namespace {

SegmentViewPiece Piece(const QString& caption, const QString& icon, const Variant& tag) {
  SegmentViewPiece piece;
  piece.Caption = caption;
  piece.icon = SvgIcon(icon);
  piece.Tag = tag;
  return piece;
}

}  // namespace

PathController::PathController(BrowserPane& pane, BrowserController& browser)
    : pane_(pane), browser_(browser) {
  listening_ = browser_.ListChanged.Listen([this] {
    if (!browser_.InPlace()) DisplayPath(pane_.imageBrowser->currentView(), false);
  });
  pane_.myPathBar->Action = [this](const SegmentViewPiece& piece) {
    browser_.DisplayContainer(ContainerOf(piece.Tag));
  };
  pane_.myPathBar->NavButtonClicked = [this] {
    const int last = pane_.myPathBar->Count();
    if (last >= 0) browser_.DisplayAlongPath(ContainerOf(pane_.myPathBar->Item(last).Tag));
  };
}

Variant PathController::TagOf(const BrowserContainer& container) {
  if (const auto* folder = std::get_if<FolderItem>(&container)) return *folder;
  for (std::size_t i = 0; i < pathTargets_.size(); ++i) {
    if (pathTargets_[i] == container) return static_cast<int>(i);
  }
  pathTargets_.push_back(container);
  return static_cast<int>(pathTargets_.size() - 1);
}

BrowserContainer PathController::ContainerOf(const Variant& tag) const {
  if (const auto* folder = tag.As<FolderItem>()) return *folder;
  const auto index = static_cast<std::size_t>(tag.ToInt());
  return tag.IsNumber() && index < pathTargets_.size() ? pathTargets_[index] : BrowserContainer();
}

void PathController::DisplayPath(const BrowserContainer& container, bool skipHistory) {
  ifkPathBar::Path path;
  const auto add = [&](const auto& shown) {
    path.push_back(Piece(ToQString(shown->Name), ToQString(shown->Icon), TagOf(shown)));
  };
  if (const auto* folder = std::get_if<FolderItem>(&container)) {
    for (FolderItem at = *folder; at; at = at.Parent()) {
      const bool root = at.Parent().IsNil();
      path.insert(
          path.begin(),
          Piece(ToQString(root ? SideBarSources::CaptionOf(VolumeItem(at)) : at.DisplayName()),
                root ? QStringLiteral("Volume") : QStringLiteral("Folder"), at));
    }
  } else if (const auto* c = std::get_if<std::shared_ptr<browserItemCollection>>(&container)) {
    add(*c);
  } else if (const auto* album = std::get_if<std::shared_ptr<iPhotoAlbum>>(&container)) {
    add(*album);
  } else if (const auto* roll = std::get_if<std::shared_ptr<iPhotoRoll>>(&container)) {
    if (const auto events = Events ? Events() : nullptr) add(events);
    add(*roll);
  }
  if (!path.empty()) pane_.myPathBar->FullPath(path, skipHistory);
}

}  // namespace brivolant
