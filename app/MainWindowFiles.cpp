// SPDX-License-Identifier: MIT
// What the browser's pane does with files, and its menus.
#include <QAction>
#include <QFile>
#include <QMenu>
#include <QUrl>
#include <algorithm>
#include <filesystem>

#include "app/App.h"
#include "app/MainWindow.h"
#include "app/Menus.h"
#include "app/OwnPreviews.h"
#include "app/QuickLookWindow.h"
#include "app/ToolButtons.h"
#include "browser/SideBarItem.h"
#include "browser/ui/FileIcons.h"
#include "browser/ui/Sidebar.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "formats/BrivolantDocument.h"
#include "kit/DesktopServices.h"
#include "kit/InterfaceKitSupport.h"
#include "platform/files/FileNames.h"

namespace brivolant {
namespace {

using ItemPointer = std::shared_ptr<browserItem>;

constexpr const char* kUriList = "text/uri-list";

/// A name in the folder that is free: "a.jpg", then "a-1.jpg" and so on.
FolderItem FreeName(const FolderItem& folder, const FolderItem& file) {
  FolderItem target = folder.Child(file.Name());
  const std::string base = FolderitemExtensions::FileNameWithoutExtension(file);
  const std::string extension = FolderitemExtensions::FileExtension(file);
  for (int n = 1; target.Exists() || target.Alias(); ++n) {
    target = folder.Child(NumberedName(base, n, extension.empty() ? "" : "." + extension));
  }
  return target;
}

/// Another file is there. A name that differs only in case may be the same file.
bool Taken(const FolderItem& place, const FolderItem& by) {
  if (!place.Exists() && !place.Alias()) return false;
  std::error_code error;
  return !std::filesystem::equivalent(place.Path(), by.Path(), error) || error;
}

std::error_code CopyWhole(const FolderItem& from, const FolderItem& to) {
  std::error_code error;
  std::filesystem::copy(
      from.Path(), to.Path(),
      std::filesystem::copy_options::recursive | std::filesystem::copy_options::copy_symlinks,
      error);
  return error;
}

}  // namespace

// Files.

std::vector<FolderItem> MainWindow::SelectedFiles() const {
  std::vector<FolderItem> files;
  for (const BrowserPayload& payload : imageBrowser->SelectedItems()) {
    FolderItem file;
    if (const auto* item = std::get_if<ItemPointer>(&payload)) file = (*item)->File();
    if (const auto* photo = std::get_if<std::shared_ptr<iPhotoItem>>(&payload)) {
      file = (*photo)->File();
    }
    if (file) files.push_back(file);
  }
  return files;
}

void MainWindow::CopyFiles() {
  std::string list;
  std::string names;
  for (const FolderItem& file : SelectedFiles()) {
    list += file.URLPath() + "\r\n";
    if (!names.empty()) names += "\n";
    names += file.DisplayName();
  }
  if (!list.empty()) app_.Clipboard().Set(names, kUriList, list);
}

std::vector<FolderItem> MainWindow::FilesOnClipboard() const {
  std::vector<FolderItem> files;
  const std::string list = app_.Clipboard().Data(kUriList);
  for (const std::string_view line : Split(list, '\n')) {
    const QUrl url(QString::fromStdString(std::string(Trim(line))));
    if (!url.isLocalFile()) continue;
    const FolderItem file(QFile::encodeName(url.toLocalFile()).toStdString());
    if (file.Exists()) files.push_back(file);
  }
  return files;
}

void MainWindow::NamePastedFile() {
  const std::vector<FolderItem> copied = FilesOnClipboard();
  if (DisplayPane != kBrowserPane || copied.size() != 1) return;
  QString name = ToQString(copied.front().DisplayName());
  name.replace(QLatin1Char('&'), QStringLiteral("&&"));
  menu_->Item("EditPaste")
      .setText(Shown(Menus::kEditPaste) + QStringLiteral(" \"") + name + QLatin1Char('"'));
}

void MainWindow::PasteFiles() {
  if (const FolderItem folder = imageBrowser->CurrentFolder()) {
    CopyFilesInto(FilesOnClipboard(), folder);
  }
}

void MainWindow::CopyFilesInto(const std::vector<FolderItem>& files, const FolderItem& folder) {
  if (busy_ || files.empty()) return;
  std::vector<std::string> made;
  FolderItem failed;
  InBackground([&] {
    for (const FolderItem& file : files) {
      // A folder cannot go into itself.
      const std::string inside = folder.ShellPath() + "/";
      const FolderItem target = FreeName(folder, file);
      if (inside.starts_with(file.ShellPath() + "/") || CopyWhole(file, target)) {
        failed = file;
        break;
      }
      made.push_back(target.DisplayName());
    }
  });
  imageBrowser->ReloadCurrentView();
  if (folder == imageBrowser->CurrentFolder() && !made.empty()) {
    imageBrowser->HighLightItem(made.front(), false);
    for (int i = 0; i < imageBrowser->Count(); ++i) {
      const std::string name = imageBrowser->Rows().Name(i);
      if (std::find(made.begin(), made.end(), name) != made.end()) {
        imageBrowser->isItemSelected(i, true);
      }
    }
  }
  if (failed) {
    app_.Dialogs().Message(
        WithPlaceholders(kNotCopied.Text(), {{"<filename>", failed.DisplayName()}}), {});
  }
}

void MainWindow::FileMoveToTrash() {
  if (busy_) return;
  std::vector<FolderitemExtensions::TrashedFile> moved;
  FolderItem failed;
  const int row = imageBrowser->ListIndex();
  for (const BrowserPayload& payload : imageBrowser->SelectedItems()) {
    const auto* item = std::get_if<ItemPointer>(&payload);
    if (item == nullptr) continue;
    const auto* file = std::get_if<FolderItem>(&(*item)->item);
    if (file == nullptr) continue;
    if (auto trashed = FolderitemExtensions::PutInTrash(*file)) {
      moved.push_back(std::move(*trashed));
    } else {
      failed = *file;
    }
  }
  if (!moved.empty()) {
    browserSteps_.push_back({std::move(moved), {}, {}});
    imageBrowser->ReloadCurrentView();
    const int last = imageBrowser->Count() - 1;
    if (last >= 0) imageBrowser->ListIndex(std::clamp(row, 0, last));
  }
  UpdateCommands();
  if (failed) {
    app_.Dialogs().Message(
        WithPlaceholders(kNotTrashed.Text(), {{"<filename>", failed.DisplayName()}}), {});
  }
}

void MainWindow::UndoBrowserStep() {
  if (browserSteps_.empty()) return;
  const BrowserStep step = std::move(browserSteps_.back());
  browserSteps_.pop_back();
  FolderItem failed;
  for (const auto& file : step.trashed) {
    if (!FolderitemExtensions::PutBack(file)) failed = file.Original;
  }
  if (step.after && !MoveFile(step.after, step.before)) failed = step.before;
  imageBrowser->ReloadCurrentView();
  const FolderItem& shown = step.trashed.empty() ? step.before : step.trashed.front().Original;
  imageBrowser->HighLightItem(shown.DisplayName(), false);
  UpdateCommands();
  if (failed) {
    app_.Dialogs().Message(
        WithPlaceholders(kNotPutBack.Text(), {{"<filename>", failed.DisplayName()}}), {});
  }
}

bool MainWindow::MoveFile(const FolderItem& from, const FolderItem& to) {
  // Never over another file.
  if (Taken(to, from)) return false;
  std::error_code error;
  std::filesystem::rename(from.Path(), to.Path(), error);
  if (error) return false;
  // The open document goes on where it now is.
  if (document_ && document_->File == from) document_->File = to;
  return true;
}

bool MainWindow::RenameFile(const browserItem& item, const std::string& name) {
  const auto* file = std::get_if<FolderItem>(&item.item);
  if (file == nullptr || busy_ || name.empty() || name == item.Name) return false;
  const auto tell = [&](const LocalizedText& text) {
    app_.Dialogs().Message(
        WithPlaceholders(text.Text(), {{"<filename>", item.Name}, {"<name>", name}}), {});
    return false;
  };
  if (!IsPlainName(name)) return tell(kNameNotAllowed);
  const FolderItem target = file->Parent().Child(name);
  if (Taken(target, *file)) return tell(kNameTaken);
  const FolderItem before = *file;
  if (!MoveFile(before, target)) return tell(kNotRenamed);
  browserSteps_.push_back({{}, before, target});
  imageBrowser->ReloadCurrentView();
  imageBrowser->HighLightItem(target.DisplayName(), false);
  UpdateCommands();
  return true;
}

void MainWindow::SortBrowser(int column) {
  const BrowserRows& rows = imageBrowser->Rows();
  const bool descending = column < 0 ? !rows.Descending() : rows.Descending();
  imageBrowser->Sort(column < 0 ? rows.SortColumn() : column, descending);
}

void MainWindow::AddFavoritesMethod() {
  const FolderItem folder = SideBarSources::FavoritesFolder();
  FolderItem failed;
  bool added = false;
  for (const FolderItem& file : SelectedFiles()) {
    if (FolderitemExtensions::MakeAlias(file, FreeName(folder, file))) {
      added = true;
    } else {
      failed = file;
    }
  }
  SideBarCollection& places = *mySideBar->item[kPlacesSection];
  const bool known = std::any_of(places.item.begin(), places.item.end(), [&](const auto& place) {
    return ContainerOf(place->Tag) == BrowserContainer(folder);
  });
  if (added && !known) {
    places.Add(kFavorites.Text(), "Favorites", folder);
    RefreshSideBar();
    SavePlaces();
  }
  if (failed) {
    app_.Dialogs().Message(
        WithPlaceholders(kNotFavorite.Text(), {{"<filename>", failed.DisplayName()}}), {});
  }
}

void MainWindow::SetDesktopPicture() {
  for (const FolderItem& file : SelectedFiles()) {
    if (app_.Desktop().SetPicture(file)) continue;
    app_.Dialogs().Message(
        WithPlaceholders(kNoDesktopPicture.Text(), {{"<filename>", file.DisplayName()}}), {});
    return;
  }
}

void MainWindow::FileAddToSideBar() {
  SideBarCollection& places = *mySideBar->item[kPlacesSection];
  bool added = false;
  for (const FolderItem& file : SelectedFiles()) {
    if (!file.Directory()) continue;
    places.Add(file.DisplayName(), {}, file);
    added = true;
  }
  if (!added) return;
  mySideBar->updateList();
  mySideBar->highlightItem(imageBrowser->CurrentFolder());
  SavePlaces();
}

// Quick look.

std::vector<QuickLookItem> MainWindow::QuickLookItems() const {
  std::vector<QuickLookItem> items;
  for (const BrowserPayload& payload : imageBrowser->SelectedItems()) {
    QuickLookItem shown;
    shown.Title = BrowserRows::NameOf(payload);
    shown.Icon = [payload](int size, double ratio) { return FileIcons::For(payload, size, ratio); };
    if (const auto* item = std::get_if<ItemPointer>(&payload)) {
      const auto* file = std::get_if<FolderItem>(&(*item)->item);
      if (file != nullptr) shown.File = *file;
      shown.Thumbnail = (*item)->image;
    } else if (const auto* photo = std::get_if<std::shared_ptr<iPhotoItem>>(&payload)) {
      shown.File = (*photo)->File();
      shown.Thumbnail = ImageFromPicture((*photo)->DynamicPreview());
      (*photo)->DisposeDynamicPreview();
    }
    items.push_back(std::move(shown));
  }
  return items;
}

void MainWindow::QuickLookMethod() {
  if (busy_ || DisplayPane != kBrowserPane || imageBrowser->SelectedCount() == 0) return;
  if (!quickLook_) {
    quickLook_ = std::make_unique<QuickLookWindow>(NewFilePreviewer(), app_.Preferences());
    quickLook_->Step = [this](int delta) {
      const int target = imageBrowser->ListIndex() + delta;
      if (target < 0 || target >= imageBrowser->Count()) return false;
      imageBrowser->ListIndex(target);
      return true;
    };
    quickLook_->Close = [this] { app_.QuickLookOpen = false; };
    // Where it is shown until it has a place of its own.
    constexpr double kShare = 0.8;
    QRect place(QPoint(), size() * kShare);
    place.moveCenter(geometry().center());
    quickLook_->setGeometry(place);
  } else if (quickLook_->isVisible()) {
    // The same key puts it away.
    quickLook_->close();
    return;
  }
  app_.QuickLookOpen = true;
  quickLook_->DisplayItems(QuickLookItems(), false);
}

void MainWindow::FollowWithQuickLook() {
  if (!quickLook_ || !quickLook_->isVisible() || imageBrowser->SelectedCount() == 0) return;
  std::vector<QuickLookItem> items = QuickLookItems();
  const auto& shown = quickLook_->items();
  // A folder that is listed again is no reason to begin anew.
  const bool same = std::equal(items.begin(), items.end(), shown.begin(), shown.end(),
                               [](const QuickLookItem& a, const QuickLookItem& b) {
                                 return a.File == b.File && a.Title == b.Title;
                               });
  if (!same) quickLook_->Replace(std::move(items));
}

// Menus.

void MainWindow::EnableBrowserItems() {
  MainMenuBar& menu = *menu_;
  const int count = imageBrowser->SelectedCount();
  const int mode = imageBrowser->Mode();
  for (const char* name : {"ViewAsIcons", "ViewAsList", "ViewAsColumns", "ViewShowHiddenFiles",
                           "EditSelectAll", "EditSelectNone"}) {
    menu.Item(name).setEnabled(true);
  }
  menu.Item("ViewAsIcons").setChecked(mode == multiViewFileBrowser::kIconView);
  menu.Item("ViewAsList").setChecked(mode == multiViewFileBrowser::kListView);
  menu.Item("ViewAsColumns").setChecked(mode == multiViewFileBrowser::kColumnView);
  menu.Item("ViewShowHiddenFiles").setChecked(imageBrowser->showInvisibles);
  for (const char* name : {"EditCopy", "FileMoveToTrash", "FileQuickLook"}) {
    menu.Item(name).setEnabled(count > 0);
  }
  QString copy = Shown(Menus::kEditCopy);
  QString quickLook = Shown(Menus::kQuickLook);
  if (count > 1) {
    copy += QStringLiteral(" %1 ").arg(count) + Shown(BrowserRows::kItems);
  } else if (count == 1) {
    const BrowserPayload selected = imageBrowser->SelectedItem(0);
    QString name = ToQString(BrowserRows::NameOf(selected));
    name.replace(QLatin1Char('&'), QStringLiteral("&&"));
    name = QStringLiteral(" \"") + name + QLatin1Char('"');
    copy += name;
    quickLook += name;
    const auto* item = std::get_if<ItemPointer>(&selected);
    const FileFacts facts = item == nullptr ? FileFacts() : (*item)->Facts.value_or(FileFacts());
    menu.Item("FileRename").setEnabled(imageBrowser->CanRename());
    menu.Item("FileShowInFinder").setEnabled(true);
    menu.Item("FileAddToSideBar").setEnabled(item != nullptr && facts.Is == FileFacts::kFolder);
    menu.Item("FileShowOriginal").setEnabled(item != nullptr && facts.Is == FileFacts::kAlias);
  }
  menu.Item("EditCopy").setText(copy);
  menu.Item("FileQuickLook").setText(quickLook);
  menu.Item("EditPaste")
      .setEnabled(imageBrowser->CurrentFolder() && app_.Clipboard().Has(kUriList));
  menu.Item("EditUndo").setEnabled(!browserSteps_.empty());
  if (!browserSteps_.empty()) {
    const bool renamed = browserSteps_.back().trashed.empty();
    menu.Item("EditUndo")
        .setText(Shown(Menus::kEditUndo) + QLatin1Char(' ') +
                 Shown(renamed ? Menus::kFileRename : Menus::kFileMoveToTrash));
  }
  const BrowserRows& rows = imageBrowser->Rows();
  for (const auto& [name, column] : {std::pair{"ViewSortByName", BrowserRows::kNameColumn},
                                     {"ViewSortByKind", BrowserRows::kKindColumn},
                                     {"ViewSortBySize", BrowserRows::kSizeColumn},
                                     {"ViewSortByDate", BrowserRows::kDateColumn}}) {
    menu.Item(name).setEnabled(true);
    menu.Item(name).setChecked(rows.SortColumn() == column);
  }
  menu.Item("ViewSortBy").setEnabled(true);
  menu.Item("ViewSortDescending").setEnabled(true);
  menu.Item("ViewSortDescending").setChecked(rows.Descending());
  // Nobody makes so many the desktop's picture; their kinds are not looked up at every key.
  constexpr int kMostPictures = 16;
  const std::vector<FolderItem> files =
      count <= kMostPictures ? SelectedFiles() : std::vector<FolderItem>();
  const bool pictures =
      !files.empty() && std::all_of(files.begin(), files.end(), [](const auto& f) {
        return FolderitemExtensions::NamesPicture(f.Name());
      });
  menu.Item("FileShareVia").setEnabled(true);
  menu.Item("menuskFileShareSetasDesktopPicture").setEnabled(pictures);
  const bool favorite = count > kMostPictures || !files.empty();
  menu.Item("FileAddToFavorites").setEnabled(favorite);
  ToolButtons::ChangeButtonEnabled(*rbToolBar, ToolButtons::FavoritesAdd().Identifier, favorite);
  ToolButtons::ChangeButtonEnabled(*rbToolBar, ToolButtons::QuickLook().Identifier, count > 0);
}

bool MainWindow::BrowserMenu(QMenu& menu) {
  EnableMenuItems();
  NamePastedFile();
  const int count = imageBrowser->SelectedCount();
  const auto add = [&](const char* name) { menu.addAction(&menu_->Item(name)); };
  if (count == 1) {
    menu.addAction(Shown(kOpen), this, [this] { OpenBrowserItem(imageBrowser->SelectedItem(0)); });
    menu.addSeparator();
    if (menu_->Item("FileShowOriginal").isEnabled()) add("FileShowOriginal");
    if (menu_->Item("FileRename").isEnabled()) add("FileRename");
    add("FileMoveToTrash");
    menu.addSeparator();
    add("FileAddToFavorites");
    add("FileAddToSideBar");
    add("FileQuickLook");
    if (menu_->Item("menuskFileShareSetasDesktopPicture").isEnabled()) {
      add("menuskFileShareSetasDesktopPicture");
    }
    menu.addSeparator();
  } else if (count > 1) {
    add("FileMoveToTrash");
    menu.addSeparator();
  }
  if (count > 0) add("EditCopy");
  if (menu_->Item("EditPaste").isEnabled()) add("EditPaste");
  if (count == 1) {
    menu.addSeparator();
    add("FileShowInFinder");
  }
  if (count == 0) {
    if (!menu.isEmpty()) menu.addSeparator();
    menu.addMenu(menu_->Item("ViewSortBy").menu());
  }
  return !menu.isEmpty();
}

}  // namespace brivolant
