// SPDX-License-Identifier: MIT
#include "app/browse/OpeningController.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QMenu>
#include <QUrl>
#include <algorithm>

#include "app/browse/BrowserController.h"
#include "app/browse/BrowserPane.h"
#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "files/FolderitemExtensions.h"
#include "formats/FileTypes.h"
#include "kit/InterfaceKitSupport.h"
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

}  // namespace

OpeningController::OpeningController(const Desk& desk, Commands& commands, BrowserPane& pane,
                                     BrowserController& browser)
    : desk_(desk), commands_(commands), pane_(pane), browser_(browser) {
  pane_.imageBrowser->OpenItem = [this](const BrowserPayload& payload) { OpenItem(payload); };
  pane_.imageBrowser->ConstructContextualMenu = [this](QMenu& menu) { return FillMenu(menu); };
}

void OpeningController::OpenItem(const BrowserPayload& payload) {
  if (const auto* item = std::get_if<ItemPointer>(&payload)) {
    const ItemPointer opened = *item;
    if (const auto* file = std::get_if<FolderItem>(&opened->item)) {
      return OpenFile(*file, opened->Facts.value_or(FileFacts()));
    }
    const BrowserContainer inside = BrowserController::ContainerOf(opened->item);
    if (!std::holds_alternative<std::monostate>(inside)) browser_.DisplayContainer(inside);
    return;
  }
  if (const auto* folder = std::get_if<std::shared_ptr<browserItemCollection>>(&payload)) {
    return browser_.DisplayContainer(*folder);
  }
  if (const auto* roll = std::get_if<std::shared_ptr<iPhotoRoll>>(&payload)) {
    return browser_.DisplayContainer(*roll);
  }
  if (const auto* photo = std::get_if<std::shared_ptr<iPhotoItem>>(&payload)) {
    const FolderItem file = (*photo)->File();
    const std::string caption = (*photo)->Caption;
    if (!file) return;
    if (NamesReadable(file)) return PhotoChosen(file, caption);
    Look(file, [this, file, caption](const Seen& seen) {
      seen.Picture ? PhotoChosen(file, caption) : Launch(file);
    });
  }
}

void OpeningController::TellBroken(const FolderItem& alias) {
  const Answer answer = desk_.Services.Dialogs.Ask(
      {WithPlaceholders(kBrokenAliasMessage.Text(), {{"<filename>", alias.DisplayName()}}),
       {},
       kDeleteAlias.Text(),
       Captions::kOK.Text(),
       {}});
  if (answer == Answer::kAction && TrashFile) TrashFile(alias);
}

void OpeningController::OpenFile(const FolderItem& file, const FileFacts& facts) {
  const bool browse = QApplication::keyboardModifiers().testFlag(Qt::AltModifier);
  // What the listing tells is enough for most.
  Seen known{file, facts.Is == FileFacts::kPackage, facts.Is == FileFacts::kFolder, false};
  known.Picture = facts.Is == FileFacts::kPlain && NamesReadable(file);
  if (known.Picture || known.Package || known.Folder || facts.Is == FileFacts::kDocument) {
    return Open(known, browse);
  }
  // Links and files of other names are looked at on another thread: their disk may be away.
  Look(file, [this, file, browse](const Seen& seen) {
    seen.Target.IsNil() ? TellBroken(file) : Open(seen, browse);
  });
}

void OpeningController::Look(const FolderItem& file, std::function<void(const Seen&)> then) {
  // Who opens another waits for this one no longer.
  looking_.Cancel();
  const auto seen = std::make_shared<std::optional<Seen>>();
  looking_.Start({{},
                  true,
                  [file, seen](Jobs::Control& control) {
                    const auto found = std::make_shared<Seen>();
                    if (control.Apart([file, found] { *found = LookAt(file); })) *seen = *found;
                  },
                  [seen, then = std::move(then)](Jobs::End, const std::string&) {
                    if (*seen) then(**seen);
                  }});
}

OpeningController::Seen OpeningController::LookAt(const FolderItem& file) {
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

void OpeningController::Open(const Seen& seen, bool browse) {
  using FolderitemExtensions::isFileType;
  using namespace InternalFileTypes;
  const FolderItem& target = seen.Target;
  if (isFileType(target, &BrivolantPhotosDocument)) return desk_.OpenDocument(target);
  if (seen.Package && !browse) {
    if (target.Name() == kLibraryPackage && ShowLibrary && ShowLibrary()) return;
    return Launch(target);
  }
  if (seen.Folder || seen.Package) return browser_.DisplayContainer(target);
  if (seen.Picture || isFileType(target, &BrivolantPhotosOneClickWonder)) {
    return desk_.OpenDocument(target);
  }
  Launch(target);
}

bool OpeningController::FillMenu(QMenu& menu) {
  commands_.RefreshForMenu();
  const auto add = [&](const char* name, bool always = true) {
    QAction& action = commands_.Action(name);
    if (always || action.isEnabled()) menu.addAction(&action);
  };
  constexpr bool kIfEnabled = false;
  const int count = pane_.imageBrowser->SelectedCount();
  if (count == 1) {
    QObject::connect(menu.addAction(Shown(BrowserController::kOpen)), &QAction::triggered,
                     pane_.imageBrowser, [this] { OpenItem(pane_.imageBrowser->SelectedItem(0)); });
    menu.addSeparator();
    add("FileShowOriginal", kIfEnabled);
    add("FileRename", kIfEnabled);
    add("FileMoveToTrash");
    menu.addSeparator();
    add("FileGetInfo");
    add("FileEditInfo");
    add("FileAddToFavorites");
    add("FileAddToSideBar");
    add("FileQuickLook");
    add("menuskFileShareSetasDesktopPicture", kIfEnabled);
    menu.addSeparator();
  } else if (count > 1) {
    add("FileMoveToTrash");
    menu.addSeparator();
    add("FileGetInfo");
    add("FileEditInfo");
    menu.addSeparator();
  } else {
    add("FileGetInfo");
    menu.addSeparator();
  }
  if (count > 0) add("EditCopy");
  add("EditPaste", kIfEnabled);
  if (count > 0 && MoreRows) MoreRows(menu);
  if (count == 1) {
    menu.addSeparator();
    add("FileShowInFinder");
  }
  if (count == 0) {
    if (!menu.isEmpty()) menu.addSeparator();
    QMenu* sort = menu.addMenu(Shown(Menus::kViewSortBy));
    for (const char* name : {"ViewSortByName", "ViewSortByKind", "ViewSortBySize", "ViewSortByDate",
                             "ViewSortByTaken"}) {
      sort->addAction(&commands_.Action(name));
    }
    sort->addSeparator();
    sort->addAction(&commands_.Action("ViewSortDescending"));
  }
  return !menu.isEmpty();
}

}  // namespace brivolant
