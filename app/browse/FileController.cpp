// SPDX-License-Identifier: MIT
#include "app/browse/FileController.h"

#include <QFile>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <filesystem>

#include "app/browse/BrowserController.h"
#include "app/commands/Commands.h"
#include "app/session/EditSession.h"
#include "browser/SideBarItem.h"
#include "formats/BrivolantDocument.h"
#include "platform/files/FileNames.h"

namespace brivolant {
namespace {

using ItemPointer = std::shared_ptr<browserItem>;
namespace fs = std::filesystem;

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
  return !fs::equivalent(place.Path(), by.Path(), error) || error;
}

/// Copies a file, a link or a folder with all it holds; what was begun and not finished is taken
/// away again. False if it failed or was cancelled.
bool CopyWhole(const fs::path& from, const fs::path& to, const Jobs::Control& control) {
  std::error_code error;
  const fs::file_status status = fs::symlink_status(from, error);
  if (!error && fs::is_directory(status)) {
    fs::create_directory(to, from, error);
    fs::directory_iterator entries;
    if (!error) entries = fs::directory_iterator(from, error);
    while (!error && entries != fs::directory_iterator()) {
      if (!CopyWhole(entries->path(), to / entries->path().filename(), control)) {
        error = std::make_error_code(std::errc::operation_canceled);
        break;
      }
      entries.increment(error);
    }
  } else if (!error) {
    fs::copy(from, to, fs::copy_options::copy_symlinks, error);
  }
  if (!error && !control.Cancelled()) return true;
  std::error_code ignored;
  fs::remove_all(to, ignored);
  return false;
}

}  // namespace

FileController::FileController(const Desk& desk, EditSession& session, Commands& commands,
                               BrowserController& browser)
    : desk_(desk), session_(session), commands_(commands), browser_(browser) {
  multiViewFileBrowser& rows = *browser_.imageBrowser;
  rows.RenameItem = [this](const browserItem& item, const std::string& name) {
    return RenameFile(item, name);
  };
  rows.TrashAction = [this] { FileMoveToTrash(); };
  rows.FilesDropped = [this](const std::vector<FolderItem>& files, const FolderItem& folder) {
    // The drag's source waits for the drop to return.
    QTimer::singleShot(0, browser_.imageBrowser,
                       [this, files, folder] { CopyFilesInto(files, folder); });
  };
  AddCommands(commands);
}

void FileController::Tell(const LocalizedText& text, const FolderItem& file) {
  desk_.Services.Dialogs.Message(
      WithPlaceholders(text.Text(), {{"<filename>", file.DisplayName()}}), {});
}

// Copying.

void FileController::CopyFiles() {
  std::string list;
  std::string names;
  for (const FolderItem& file : browser_.SelectedFiles()) {
    list += file.URLPath() + "\r\n";
    if (!names.empty()) names += "\n";
    names += file.DisplayName();
  }
  if (!list.empty()) desk_.Clipboard.Set(names, kUriList, list);
}

std::vector<FolderItem> FileController::FilesOnClipboard() const {
  std::vector<FolderItem> files;
  const std::string list = desk_.Clipboard.Data(kUriList);
  for (const std::string_view line : Split(list, '\n')) {
    const QUrl url(QString::fromStdString(std::string(Trim(line))));
    if (!url.isLocalFile()) continue;
    const FolderItem file(QFile::encodeName(url.toLocalFile()).toStdString());
    if (file.Exists()) files.push_back(file);
  }
  return files;
}

void FileController::PasteFiles() {
  if (const FolderItem folder = browser_.imageBrowser->CurrentFolder()) {
    CopyFilesInto(FilesOnClipboard(), folder);
  }
}

void FileController::CopyFilesInto(const std::vector<FolderItem>& files, const FolderItem& folder) {
  if (files.empty()) return;
  struct Outcome {
    std::vector<std::string> made;
    FolderItem failed;
  };
  const auto outcome = std::make_shared<Outcome>();
  const auto work = [files, folder, outcome](Jobs::Control& control) {
    for (std::size_t i = 0; i < files.size(); ++i) {
      const FolderItem& file = files[i];
      if (!control.Progress(static_cast<double>(i) / static_cast<double>(files.size()))) return;
      // A folder cannot go into itself.
      const std::string inside = folder.ShellPath() + "/";
      const FolderItem target = FreeName(folder, file);
      if (inside.starts_with(file.ShellPath() + "/") ||
          !CopyWhole(file.Path(), target.Path(), control)) {
        if (!control.Cancelled()) outcome->failed = file;
        return;
      }
      outcome->made.push_back(target.DisplayName());
    }
  };
  jobs_.Start(
      {kCopying.Text(), true, work, [this, folder, outcome](Jobs::End end, const std::string&) {
         Copied(folder, outcome->made);
         if (end != Jobs::End::kCancelled && outcome->failed) {
           Tell(kNotCopied, outcome->failed);
         }
       }});
}

void FileController::Copied(const FolderItem& folder, const std::vector<std::string>& made) {
  multiViewFileBrowser& rows = *browser_.imageBrowser;
  rows.ReloadCurrentView();
  if (!(folder == rows.CurrentFolder()) || made.empty()) return;
  rows.HighLightItem(made.front(), false);
  for (int i = 0; i < rows.Count(); ++i) {
    if (std::find(made.begin(), made.end(), rows.Rows().Name(i)) != made.end()) {
      rows.isItemSelected(i, true);
    }
  }
}

// The trash, and other names.

void FileController::FileMoveToTrash() {
  std::vector<FolderitemExtensions::TrashedFile> moved;
  FolderItem failed;
  multiViewFileBrowser& rows = *browser_.imageBrowser;
  const int row = rows.ListIndex();
  for (const BrowserPayload& payload : rows.SelectedItems()) {
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
    steps_.push_back({std::move(moved), {}, {}});
    rows.ReloadCurrentView();
    const int last = rows.Count() - 1;
    if (last >= 0) rows.ListIndex(std::clamp(row, 0, last));
  }
  commands_.Changed();
  if (failed) Tell(kNotTrashed, failed);
}

void FileController::UndoStep() {
  if (steps_.empty()) return;
  const Step step = std::move(steps_.back());
  steps_.pop_back();
  FolderItem failed;
  for (const auto& file : step.trashed) {
    if (!FolderitemExtensions::PutBack(file)) failed = file.Original;
  }
  if (step.after && !MoveFile(step.after, step.before)) failed = step.before;
  browser_.imageBrowser->ReloadCurrentView();
  const FolderItem& shown = step.trashed.empty() ? step.before : step.trashed.front().Original;
  browser_.imageBrowser->HighLightItem(shown.DisplayName(), false);
  if (failed) Tell(kNotPutBack, failed);
}

bool FileController::MoveFile(const FolderItem& from, const FolderItem& to) {
  // Never over another file.
  if (Taken(to, from)) return false;
  std::error_code error;
  fs::rename(from.Path(), to.Path(), error);
  if (error) return false;
  // The open document goes on where it now is.
  BrivolantDocument* document = session_.Document();
  if (document != nullptr && document->File == from) document->File = to;
  return true;
}

bool FileController::RenameFile(const browserItem& item, const std::string& name) {
  const auto* file = std::get_if<FolderItem>(&item.item);
  if (file == nullptr || session_.Busy() || name.empty() || name == item.Name) return false;
  const auto tell = [&](const LocalizedText& text) {
    desk_.Services.Dialogs.Message(
        WithPlaceholders(text.Text(), {{"<filename>", item.Name}, {"<name>", name}}), {});
    return false;
  };
  if (!IsPlainName(name)) return tell(kNameNotAllowed);
  const FolderItem target = file->Parent().Child(name);
  if (Taken(target, *file)) return tell(kNameTaken);
  const FolderItem before = *file;
  if (!MoveFile(before, target)) return tell(kNotRenamed);
  steps_.push_back({{}, before, target});
  browser_.imageBrowser->ReloadCurrentView();
  browser_.imageBrowser->HighLightItem(target.DisplayName(), false);
  commands_.Changed();
  return true;
}

void FileController::AddFavoritesMethod() {
  const FolderItem folder = SideBarSources::FavoritesFolder();
  FolderItem failed;
  bool added = false;
  for (const FolderItem& file : browser_.SelectedFiles()) {
    if (FolderitemExtensions::MakeAlias(file, FreeName(folder, file))) {
      added = true;
    } else {
      failed = file;
    }
  }
  if (added) FavoriteAdded(folder);
  if (failed) Tell(kNotFavorite, failed);
}

void FileController::SetDesktopPicture() {
  for (const FolderItem& file : browser_.SelectedFiles()) {
    if (desk_.Desktop.SetPicture(file)) continue;
    return Tell(kNoDesktopPicture, file);
  }
}

}  // namespace brivolant
