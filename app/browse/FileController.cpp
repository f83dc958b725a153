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
  if (!MayTrash(browser_.SelectedFiles())) return;
  std::vector<FolderItem> files;
  multiViewFileBrowser& rows = *browser_.imageBrowser;
  for (const BrowserPayload& payload : rows.SelectedItems()) {
    const auto* item = std::get_if<ItemPointer>(&payload);
    if (item == nullptr) continue;
    if (const auto* file = std::get_if<FolderItem>(&(*item)->item)) files.push_back(*file);
  }
  if (files.empty()) return;
  // They are gone from sight at once: the next key is meant for the next one.
  rows.RemoveSelected();
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
        for (const auto& trashed : step->trashed) Moved(trashed.Original, FolderItem());
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

void FileController::TakeBack() {
  if (steps_.empty()) return;
  const StepPointer step = steps_.back();
  steps_.pop_back();
  commands_.Changed();
  if (step->Is == Step::kOther) return step->takeBack();
  if (step->Is == Step::kCopy) return TakeBackCopies(step);
  if (step->Is == Step::kTrash) return TakeBack(step);
  const bool moved = MoveFile(step->after, step->before);
  browser_.imageBrowser->ReloadCurrentView();
  browser_.imageBrowser->SelectFiles({step->before});
  if (!moved) Tell(kNotPutBack, step->before);
}

void FileController::TakeBack(const StepPointer& step) {
  const auto back = std::make_shared<std::vector<FolderItem>>();
  const auto failed = std::make_shared<FolderItem>();
  jobs_.Start({kTakingBack.Text(), false,
               [step, back, failed](Jobs::Control&) {
                 // The last first, so that each finds things as it left them.
                 for (auto file = step->trashed.rbegin(); file != step->trashed.rend(); ++file) {
                   if (FolderitemExtensions::PutBack(*file)) {
                     back->push_back(file->Original);
                   } else {
                     *failed = file->Original;
                   }
                 }
               },
               [this, back, failed](Jobs::End, const std::string&) {
                 for (const FolderItem& file : *back) Moved(FolderItem(), file);
                 browser_.imageBrowser->ReloadCurrentView();
                 browser_.imageBrowser->SelectFiles(*back);
                 if (*failed) Tell(kNotPutBack, *failed);
               }});
}

bool FileController::MoveFile(const FolderItem& from, const FolderItem& to) {
  if (MoveExclusively(from, to)) return false;
  // The open document goes on where it now is.
  session_.Relocate(from, to);
  Moved(from, to);
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
  const FolderItem before = *file;
  if (!MoveFile(before, target)) return tell(EntryExists(target) ? kNameTaken : kNotRenamed);
  const auto step = std::make_shared<Step>();
  step->Is = Step::kRename;
  step->before = before;
  step->after = target;
  steps_.push_back(step);
  browser_.imageBrowser->ReloadCurrentView();
  browser_.imageBrowser->SelectFiles({target});
  commands_.Changed();
  return true;
}

void FileController::AddFavoritesMethod() {
  const FolderItem folder = SideBarSources::FavoritesFolder();
  FolderItem failed;
  bool added = false;
  for (const FolderItem& file : browser_.SelectedFiles()) {
    if (FolderitemExtensions::MakeAlias(file, FileCopier::FreeName(folder, file))) {
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
