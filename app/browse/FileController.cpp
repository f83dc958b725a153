// SPDX-License-Identifier: MIT
#include "app/browse/FileController.h"

#include <algorithm>
#include <utility>

#include "app/browse/BrowserPane.h"
#include "app/browse/FileHistory.h"
#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "app/session/EditSession.h"
#include "browser/SideBarItem.h"
#include "metadata/Sidecar.h"
#include "platform/files/ExclusiveMove.h"
#include "platform/files/FileNames.h"

namespace brivolant {
namespace {

using ItemPointer = std::shared_ptr<browserItem>;

/// Nobody makes more files the desktop's picture; their kinds are not looked up at every key.
constexpr int kMostPictures = 16;

}  // namespace

FileController::FileController(const Desk& desk, EditSession& session, Commands& commands,
                               BrowserPane& pane, FileHistory& history)
    : desk_(desk), session_(session), pane_(pane), history_(history) {
  multiViewFileBrowser& rows = *pane_.imageBrowser;
  rows.RenameItem = [this](const browserItem& item, const std::string& name) {
    return RenameFile(item, name);
  };
  rows.TrashAction = [this] { FileMoveToTrash(); };
  AddCommands(commands);
}

void FileController::AddCommands(Commands& commands) {
  using namespace Menus;
  multiViewFileBrowser& rows = *pane_.imageBrowser;
  commands.Add({
      {"FileMoveToTrash", &kFileMoveToTrash, "Ctrl+Backspace", kInBrowser,
       [this] { FileMoveToTrash(); }, [&rows] { return rows.SelectedCount() > 0; }},
      {"FileRename", &kFileRename, "F2", kInBrowser, [&rows] { rows.BeginRename(); },
       [&rows] { return rows.SelectedCount() == 1 && rows.CanRename(); }},
      {"FileAddToFavorites", &kFileAddToFavorites, "", kInBrowser, [this] { AddFavoritesMethod(); },
       [this, &rows] {
         return rows.SelectedCount() > kMostPictures || !pane_.SelectedFiles().empty();
       }},
      {"FileShowOriginal", &kFileShowOriginal, "", kInBrowser, [this] { Reveal(true); },
       [this] { return AliasSelected(); }},
      {"FileShowInFinder", &kFileShowInFinder, "", kInBrowser, [this] { Reveal(false); },
       [&rows] { return rows.SelectedCount() == 1; }},
      {"FileShareVia", &kFileShare, "", kInBrowser},
      // A heading.
      {"menuskFileShareDevice", &kFileShareDevice, "", kInBrowser, nullptr, [] { return false; }},
      {"menuskFileShareSetasDesktopPicture", &kFileShareDesktop, "", kInBrowser,
       [this] { SetDesktopPicture(); }, [this] { return PicturesSelected(); }},
  });
}

void FileController::FileMoveToTrash() {
  std::vector<FolderItem> files;
  multiViewFileBrowser& rows = *pane_.imageBrowser;
  const int choice = rows.Choices();
  for (const BrowserPayload& payload : rows.SelectedItems()) {
    const auto* item = std::get_if<ItemPointer>(&payload);
    if (item == nullptr) continue;
    if (const auto* file = std::get_if<FolderItem>(&(*item)->item)) files.push_back(*file);
  }
  // Whatever is selected while a question is open.
  if (files.empty() || !history_.MayTrash(files)) return;
  // They are gone from sight at once: the next key is meant for the next one.
  if (rows.Choices() == choice) rows.RemoveSelected();
  Trash(files);
}

void FileController::Trash(const std::vector<FolderItem>& files) {
  const auto step = std::make_shared<FileHistory::Step>();
  const auto failed = std::make_shared<FolderItem>();
  history_.Run(
      kTrashing, step,
      [files, step, failed](Jobs::Control& control) {
        for (std::size_t i = 0; i < files.size(); ++i) {
          if (!control.Progress(static_cast<double>(i) / static_cast<double>(files.size()))) return;
          const FolderItem sidecar = Sidecar::Following(files[i]);
          const bool along = sidecar && !Sidecar::Shared(sidecar, files[i]);
          if (auto trashed = FolderitemExtensions::PutInTrash(files[i])) {
            step->trashed.push_back({std::move(*trashed)});
            if (!along) continue;
            step->trashed.back().Sidecar = FolderitemExtensions::PutInTrash(sidecar);
            if (!step->trashed.back().Sidecar) *failed = sidecar;
          } else if (EntryExists(files[i])) {
            *failed = files[i];
          }
        }
      },
      [this, step, failed] {
        FileMoves moves;
        for (const auto& trashed : step->trashed)
          moves.emplace_back(trashed.File.Original, FolderItem());
        history_.Moved(moves);
        pane_.imageBrowser->ReloadCurrentView();
        if (*failed) history_.Tell(FileHistory::kNotTrashed, *failed);
      });
}

bool FileController::RenameFile(const browserItem& item, const std::string& name) {
  const auto* file = std::get_if<FolderItem>(&item.item);
  if (file == nullptr || session_.Busy() || name.empty() || name == item.Name) return false;
  const auto tell = [this, shown = item.Name, name](const LocalizedText& text) {
    desk_.Services.Dialogs.Message(
        WithPlaceholders(text.Text(), {{"<filename>", shown}, {"<name>", name}}), {});
  };
  if (!IsPlainName(name)) {
    tell(kNameNotAllowed);
    return false;
  }
  const auto step = std::make_shared<FileHistory::Step>();
  step->Is = FileHistory::Step::kRename;
  step->before = *file;
  step->after = file->Parent().Child(name);
  history_.MoveFile(
      step->before, step->after,
      [this, step, tell, select = history_.SelectIfUntouched()](std::error_code error) {
        if (error) return tell(error == std::errc::file_exists ? kNameTaken : kNotRenamed);
        history_.Keep(step);
        pane_.imageBrowser->ReloadCurrentView();
        select({step->after});
      });
  return true;
}

void FileController::AddFavoritesMethod() {
  struct Outcome {
    bool added = false;
    FolderItem failed;
  };
  const auto outcome = std::make_shared<Outcome>();
  const FolderItem folder = SideBarSources::FavoritesFolder();
  const auto work = [outcome, folder, files = pane_.SelectedFiles()](Jobs::Control&) {
    for (const FolderItem& file : files) {
      if (FolderitemExtensions::MakeAlias(file, FileCopier::FreeName(folder, file))) {
        outcome->added = true;
      } else {
        outcome->failed = file;
      }
    }
  };
  history_.Work().Start({{}, false, work, [this, outcome, folder](Jobs::End, const std::string&) {
                           if (outcome->added) FavoriteAdded(folder);
                           if (outcome->failed) history_.Tell(kNotFavorite, outcome->failed);
                         }});
}

void FileController::SetDesktopPicture() {
  const auto failed = std::make_shared<FolderItem>();
  asking_.Start(
      {{},
       false,
       [&desktop = desk_.Desktop, failed, files = pane_.SelectedFiles()](Jobs::Control& control) {
         (void)control.Apart([&desktop, failed, files] {
           for (const FolderItem& file : files) {
             if (desktop.SetPicture(file)) continue;
             *failed = file;
             return;
           }
         });
       },
       [this, failed](Jobs::End end, const std::string&) {
         if (end == Jobs::End::kDone && *failed) history_.Tell(kNoDesktopPicture, *failed);
       }});
}

void FileController::Reveal(bool original) {
  asking_.Start(
      {{},
       false,
       [&desktop = desk_.Desktop, original, files = pane_.SelectedFiles()](Jobs::Control& control) {
         // Where a link leads a disk may be away, and nobody's end waits for it.
         (void)control.Apart([&desktop, original, files] {
           for (const FolderItem& file : files) {
             desktop.Reveal(original ? FolderitemExtensions::OriginalFile(file) : file);
           }
         });
       },
       [](Jobs::End, const std::string&) {}});
}

bool FileController::AliasSelected() const {
  const multiViewFileBrowser& rows = *pane_.imageBrowser;
  if (rows.SelectedCount() != 1) return false;
  const BrowserPayload selected = rows.SelectedItem(0);
  const auto* item = std::get_if<std::shared_ptr<browserItem>>(&selected);
  return item != nullptr && (*item)->Facts.value_or(FileFacts()).Is == FileFacts::kAlias;
}

bool FileController::PicturesSelected() const {
  if (pane_.imageBrowser->SelectedCount() > kMostPictures) return false;
  const std::vector<FolderItem> files = pane_.SelectedFiles();
  return !files.empty() && std::all_of(files.begin(), files.end(), [](const FolderItem& file) {
    return FolderitemExtensions::NamesPicture(file.Name());
  });
}

}  // namespace brivolant
