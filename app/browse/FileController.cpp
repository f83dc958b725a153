// SPDX-License-Identifier: MIT
#include "app/browse/FileController.h"

#include <utility>

#include "app/browse/BrowserController.h"
#include "app/commands/Commands.h"
#include "app/session/EditSession.h"
#include "browser/SideBarItem.h"
#include "platform/files/ExclusiveMove.h"
#include "platform/files/FileNames.h"

namespace brivolant {
namespace {

using ItemPointer = std::shared_ptr<browserItem>;

}  // namespace

FileController::FileController(const Desk& desk, EditSession& session, Commands& commands,
                               BrowserController& browser)
    : desk_(desk), session_(session), commands_(commands), browser_(browser) {
  multiViewFileBrowser& rows = *browser_.imageBrowser;
  rows.RenameItem = [this](const browserItem& item, const std::string& name) {
    return RenameFile(item, name);
  };
  rows.TrashAction = [this] { FileMoveToTrash(); };
  browser_.TrashFile = [this](const FolderItem& file) { Trash({file}); };
  rows.FilesDropped = [this](const std::vector<FolderItem>& files, const FolderItem& folder) {
    DropFilesInto(files, folder);
  };
  AddCommands(commands);
}

void FileController::Tell(const LocalizedText& text, const FolderItem& file) {
  desk_.Services.Dialogs.Message(
      WithPlaceholders(text.Text(), {{"<filename>", file.DisplayName()}}), {});
}

// The trash, and other names.

void FileController::Run(const LocalizedText& text, const StepPointer& step,
                         std::function<void(Jobs::Control&)> work, std::function<void()> then) {
  steps_.push_back(step);
  commands_.Changed();
  jobs_.Start({text.Text(), true, std::move(work),
               [this, step, then = std::move(then)](Jobs::End, const std::string&) {
                 if (step->trashed.empty() && step->copies.empty()) std::erase(steps_, step);
                 commands_.Changed();
                 then();
               }});
}

void FileController::FileMoveToTrash() {
  std::vector<FolderItem> files;
  multiViewFileBrowser& rows = *browser_.imageBrowser;
  const int choice = rows.Choices();
  for (const BrowserPayload& payload : rows.SelectedItems()) {
    const auto* item = std::get_if<ItemPointer>(&payload);
    if (item == nullptr) continue;
    if (const auto* file = std::get_if<FolderItem>(&(*item)->item)) files.push_back(*file);
  }
  // Whatever is selected while a question is open.
  if (files.empty() || !MayTrash(files)) return;
  // They are gone from sight at once: the next key is meant for the next one.
  if (rows.Choices() == choice) rows.RemoveSelected();
  Trash(files);
}

void FileController::Trash(const std::vector<FolderItem>& files) {
  const auto step = std::make_shared<Step>();
  const auto failed = std::make_shared<FolderItem>();
  Run(
      kTrashing, step,
      [files, step, failed](Jobs::Control& control) {
        for (std::size_t i = 0; i < files.size(); ++i) {
          if (!control.Progress(static_cast<double>(i) / static_cast<double>(files.size()))) return;
          if (auto trashed = FolderitemExtensions::PutInTrash(files[i])) {
            step->trashed.push_back(std::move(*trashed));
          } else if (EntryExists(files[i])) {
            *failed = files[i];
          }
        }
      },
      [this, step, failed] {
        FileMoves moves;
        for (const auto& trashed : step->trashed)
          moves.emplace_back(trashed.Original, FolderItem());
        Moved(moves);
        browser_.imageBrowser->ReloadCurrentView();
        if (*failed) Tell(kNotTrashed, *failed);
      });
}

// Undo.

std::function<void()> FileController::AddStep(const LocalizedText& name,
                                              std::function<void()> takeBack) {
  const auto step = std::make_shared<Step>();
  step->Is = Step::kOther;
  step->takeBack = std::move(takeBack);
  step->name = &name;
  steps_.push_back(step);
  commands_.Changed();
  return [this, step] {
    std::erase(steps_, step);
    commands_.Changed();
  };
}

void FileController::UndoStep() {
  // What is being done is to be done first.
  jobs_.WhenIdle([this] { TakeBack(); });
}

void FileController::Keep(const StepPointer& step) {
  steps_.push_back(step);
  commands_.Changed();
}

std::function<void(const std::vector<FolderItem>&)> FileController::SelectIfUntouched() {
  return [this, before = browser_.imageBrowser->Choices()](const std::vector<FolderItem>& files) {
    if (browser_.imageBrowser->Choices() == before) browser_.imageBrowser->SelectFiles(files);
  };
}

void FileController::TakeBack() {
  if (steps_.empty()) return;
  const StepPointer step = steps_.back();
  std::vector<FolderItem> copies;
  for (const FileCopier::Copy& copy : step->copies) copies.push_back(copy.Item);
  if (!MayTrash(copies)) return;
  std::erase(steps_, step);
  commands_.Changed();
  if (step->Is == Step::kOther) return step->takeBack();
  if (step->Is == Step::kCopy) return TakeBackCopies(step);
  if (step->Is == Step::kTrash) return TakeBack(step);
  MoveFile(step->after, step->before,
           [this, step, select = SelectIfUntouched()](std::error_code error) {
             if (error) Keep(step);
             browser_.imageBrowser->ReloadCurrentView();
             if (!error) select({step->before});
             if (error) Tell(kNotPutBack, step->before);
           });
}

void FileController::TakeBack(const StepPointer& step) {
  const auto back = std::make_shared<std::vector<FolderItem>>();
  const auto failed = std::make_shared<FolderItem>();
  jobs_.Start(
      {kTakingBack.Text(), false,
       [step, back, failed](Jobs::Control&) {
         // The last first, so that each finds things as it left them.
         std::vector<FolderitemExtensions::TrashedFile> left;
         for (auto file = step->trashed.rbegin(); file != step->trashed.rend(); ++file) {
           if (FolderitemExtensions::PutBack(*file)) {
             back->push_back(file->Original);
           } else {
             *failed = file->Original;
             left.insert(left.begin(), *file);
           }
         }
         step->trashed = std::move(left);
       },
       [this, step, back, failed, select = SelectIfUntouched()](Jobs::End, const std::string&) {
         if (!step->trashed.empty()) Keep(step);
         FileMoves moves;
         for (const FolderItem& file : *back) moves.emplace_back(FolderItem(), file);
         Moved(moves);
         browser_.imageBrowser->ReloadCurrentView();
         select(*back);
         if (*failed) Tell(kNotPutBack, *failed);
       }});
}

void FileController::MoveFile(const FolderItem& from, const FolderItem& to,
                              const std::function<void(std::error_code)>& then) {
  const auto error = std::make_shared<std::error_code>();
  // Behind what is being copied or trashed, which would lose its way.
  jobs_.Start({{},
               false,
               [=](Jobs::Control&) { *error = MoveExclusively(from, to); },
               [this, from, to, error, then](Jobs::End, const std::string&) {
                 if (!*error) {
                   // The open document goes on where it now is.
                   session_.Relocate(from, to);
                   Moved({{from, to}});
                 }
                 then(*error);
               }});
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
  const auto step = std::make_shared<Step>();
  step->Is = Step::kRename;
  step->before = *file;
  step->after = file->Parent().Child(name);
  MoveFile(step->before, step->after,
           [this, step, tell, select = SelectIfUntouched()](std::error_code error) {
             if (error) return tell(error == std::errc::file_exists ? kNameTaken : kNotRenamed);
             Keep(step);
             browser_.imageBrowser->ReloadCurrentView();
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
  const auto work = [outcome, folder, files = browser_.SelectedFiles()](Jobs::Control&) {
    for (const FolderItem& file : files) {
      if (FolderitemExtensions::MakeAlias(file, FileCopier::FreeName(folder, file))) {
        outcome->added = true;
      } else {
        outcome->failed = file;
      }
    }
  };
  jobs_.Start({{}, false, work, [this, outcome, folder](Jobs::End, const std::string&) {
                 if (outcome->added) FavoriteAdded(folder);
                 if (outcome->failed) Tell(kNotFavorite, outcome->failed);
               }});
}

void FileController::SetDesktopPicture() {
  const auto failed = std::make_shared<FolderItem>();
  asking_.Start({{},
                 false,
                 [&desktop = desk_.Desktop, failed,
                  files = browser_.SelectedFiles()](Jobs::Control& control) {
                   (void)control.Apart([&desktop, failed, files] {
                     for (const FolderItem& file : files) {
                       if (desktop.SetPicture(file)) continue;
                       *failed = file;
                       return;
                     }
                   });
                 },
                 [this, failed](Jobs::End end, const std::string&) {
                   if (end == Jobs::End::kDone && *failed) Tell(kNoDesktopPicture, *failed);
                 }});
}

}  // namespace brivolant
