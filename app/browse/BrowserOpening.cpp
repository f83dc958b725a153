// SPDX-License-Identifier: MIT
// What opening an item of the browser means, and the path to what is on show.
#include <QApplication>
#include <QDesktopServices>
#include <QUrl>
#include <algorithm>

#include "app/browse/BrowserController.h"
#include "browser/SideBarItem.h"
#include "files/FolderitemExtensions.h"
#include "formats/FileTypes.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkPathBar.h"
#include "platform/values/Captions.h"

namespace brivolant {
namespace {

using ItemPointer = std::shared_ptr<browserItem>;

/// A photo library as a file manager shows it.
constexpr const char* kLibraryPackage = "iPhoto Library";

/// One of the kinds of photos that are read here, by its name.
bool NamesReadable(const FolderItem& file) {
  const std::string extension = LowerCase(FolderitemExtensions::FileExtension(file));
  const std::string all = ReadableExtensions();
  const auto kinds = Split(all, ';');
  return std::find(kinds.begin(), kinds.end(), extension) != kinds.end();
}

/// By the desktop's program for it.
void Launch(const FolderItem& file) {
  // Escaped, since the toolkit's texts lose names that are not UTF-8.
  QDesktopServices::openUrl(QUrl::fromEncoded(QByteArray::fromStdString(file.URLPath())));
}

SegmentViewPiece Piece(const QString& caption, const QString& icon, const Variant& tag) {
  SegmentViewPiece piece;
  piece.Caption = caption;
  piece.icon = SvgIcon(icon);
  piece.Tag = tag;
  return piece;
}

}  // namespace

void BrowserController::OpenItem(const BrowserPayload& payload) {
  if (const auto* item = std::get_if<ItemPointer>(&payload)) {
    const ItemPointer opened = *item;
    if (const auto* file = std::get_if<FolderItem>(&opened->item)) {
      return OpenFile(*file, opened->Facts.value_or(FileFacts()));
    }
    const BrowserContainer inside = ContainerOf(opened->item);
    if (!std::holds_alternative<std::monostate>(inside)) DisplayContainer(inside);
    return;
  }
  if (const auto* folder = std::get_if<std::shared_ptr<browserItemCollection>>(&payload)) {
    return DisplayContainer(*folder);
  }
  if (const auto* roll = std::get_if<std::shared_ptr<iPhotoRoll>>(&payload)) {
    return DisplayContainer(*roll);
  }
  if (const auto* photo = std::get_if<std::shared_ptr<iPhotoItem>>(&payload)) {
    const FolderItem file = (*photo)->File();
    const std::string caption = (*photo)->Caption;
    if (!file) return;
    if (FolderitemExtensions::FileBaseType(file) == "Image" ||
        FolderitemExtensions::HoldsPicture(file)) {
      PhotoChosen(file, caption);
    } else {
      Launch(file);
    }
  }
}

void BrowserController::TellBroken(const FolderItem& alias) {
  const Answer answer = desk_.Services.Dialogs.Ask(
      {WithPlaceholders(kBrokenAliasMessage.Text(), {{"<filename>", alias.DisplayName()}}),
       {},
       kDeleteAlias.Text(),
       Captions::kOK.Text(),
       {}});
  if (answer == Answer::kAction && TrashFile) TrashFile(alias);
}

void BrowserController::OpenFile(const FolderItem& file, const FileFacts& facts) {
  const bool browse = QApplication::keyboardModifiers().testFlag(Qt::AltModifier);
  // What the listing tells is enough for most.
  Seen known{file, facts.Is == FileFacts::kPackage, facts.Is == FileFacts::kFolder, false};
  known.Picture = facts.Is == FileFacts::kPlain && NamesReadable(file);
  if (known.Picture || known.Package || known.Folder || facts.Is == FileFacts::kDocument) {
    return Open(known, browse);
  }
  // Links and files of other names are looked at on another thread: their disk may be away. Who
  // opens another waits for this one no longer.
  looking_.Cancel();
  const auto seen = std::make_shared<std::optional<Seen>>();
  looking_.Start({{},
                  true,
                  [file, seen](Jobs::Control& control) {
                    const auto found = std::make_shared<Seen>();
                    if (control.Apart([file, found] { *found = LookAt(file); })) *seen = *found;
                  },
                  [this, file, browse, seen](Jobs::End, const std::string&) {
                    if (!*seen) return;
                    if ((*seen)->Target.IsNil()) return TellBroken(file);
                    Open(**seen, browse);
                  }});
}

BrowserController::Seen BrowserController::LookAt(const FolderItem& file) {
  Seen seen{file, false, false, false};
  if (file.Alias()) {
    seen.Target = FolderitemExtensions::OriginalFile(file);
    if (seen.Target.Alias()) return {};
  }
  seen.Package = FolderitemExtensions::Package(seen.Target);
  seen.Folder = seen.Target.Directory();
  // Camera raw and newer formats are images too, whatever their first bytes are called.
  seen.Picture = !seen.Folder && (FolderitemExtensions::FileBaseType(seen.Target) == "Image" ||
                                  FolderitemExtensions::HoldsPicture(seen.Target));
  return seen;
}

void BrowserController::Open(const Seen& seen, bool browse) {
  using FolderitemExtensions::isFileType;
  using namespace InternalFileTypes;
  const FolderItem& target = seen.Target;
  if (isFileType(target, &BrivolantPhotosDocument)) return desk_.OpenDocument(target);
  if (seen.Package && !browse) {
    if (target.Name() == kLibraryPackage && ShowLibrary && ShowLibrary()) return;
    return Launch(target);
  }
  if (seen.Folder || seen.Package) return DisplayContainer(target);
  if (seen.Picture || isFileType(target, &BrivolantPhotosOneClickWonder)) {
    return desk_.OpenDocument(target);
  }
  Launch(target);
}

// The path.

Variant BrowserController::TagOf(const BrowserContainer& container) {
  if (const auto* folder = std::get_if<FolderItem>(&container)) return *folder;
  for (std::size_t i = 0; i < pathTargets_.size(); ++i) {
    if (pathTargets_[i] == container) return static_cast<int>(i);
  }
  pathTargets_.push_back(container);
  return static_cast<int>(pathTargets_.size() - 1);
}

BrowserContainer BrowserController::ContainerOf(const Variant& tag) const {
  if (const auto* folder = tag.As<FolderItem>()) return *folder;
  const auto index = static_cast<std::size_t>(tag.ToInt());
  return tag.IsNumber() && index < pathTargets_.size() ? pathTargets_[index] : BrowserContainer();
}

BrowserContainer BrowserController::ContainerOf(const browserItem::Wrapped& wrapped) {
  return std::visit(
      [](const auto& held) -> BrowserContainer {
        if constexpr (std::is_same_v<std::decay_t<decltype(held)>, VolumeItem>) {
          return FolderItem(held);
        } else {
          return held;
        }
      },
      wrapped);
}

void BrowserController::DisplayPath(const BrowserContainer& container, bool skipHistory) {
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
  if (!path.empty()) myPathBar->FullPath(path, skipHistory);
}

}  // namespace brivolant
