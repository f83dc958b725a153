// SPDX-License-Identifier: MIT
// Copying files in the browser: by the clipboard and by drops, and how copies are taken back.
#include "app/browse/BrowserController.h"
#include "app/browse/FileController.h"
#include "app/commands/Commands.h"
#include "platform/files/ExclusiveMove.h"
#include "platform/files/FileAddress.h"

namespace brivolant {
namespace {

constexpr const char* kUriList = "text/uri-list";

bool LiesIn(const FolderItem& file, const FolderItem& folder) {
  std::error_code error;
  return std::filesystem::equivalent(file.Parent().Path(), folder.Path(), error) && !error;
}

}  // namespace

void FileController::CopyFiles() {
  const std::vector<FolderItem> files = browser_.SelectedFiles();
  if (files.empty()) return;
  std::string names;
  for (const FolderItem& file : files) {
    if (!names.empty()) names += "\n";
    names += file.DisplayName();
  }
  desk_.Clipboard.Set(names, kUriList, FileAddress::ListOf(files));
}

std::vector<FolderItem> FileController::FilesOnClipboard() const {
  return FileAddress::Files(desk_.Clipboard.Data(kUriList));
}

void FileController::PasteFiles() {
  if (const FolderItem folder = browser_.imageBrowser->CurrentFolder()) {
    CopyFilesInto(FilesOnClipboard(), folder);
  }
}

void FileController::CopyFilesInto(const std::vector<FolderItem>& files, const FolderItem& folder) {
  Copy(files, folder, false);
}

void FileController::DropFilesInto(const std::vector<FolderItem>& files, const FolderItem& folder) {
  Copy(files, folder, true);
}

void FileController::Copy(const std::vector<FolderItem>& files, const FolderItem& folder,
                          bool thoseElsewhere) {
  if (files.empty()) return;
  const auto step = std::make_shared<Step>();
  step->Is = Step::kCopy;
  const auto failed = std::make_shared<FolderItem>();
  const auto work = [files, folder, thoseElsewhere, step, failed](Jobs::Control& control) {
    std::vector<FolderItem> wanted = files;
    if (thoseElsewhere) {
      std::erase_if(wanted, [&](const FolderItem& file) { return LiesIn(file, folder); });
    }
    FileCopier copier([&](double done) { return control.Progress(done); });
    copier.CopyInto(wanted, folder);
    step->copies = copier.Made();
    if (!copier.Failed().empty()) *failed = copier.Failed().front();
  };
  Run(kCopying, step, work, [this, step, folder, failed, select = SelectIfUntouched()] {
    multiViewFileBrowser& rows = *browser_.imageBrowser;
    std::vector<FolderItem> made;
    for (const FileCopier::Copy& copy : step->copies) made.push_back(copy.Item);
    if (!made.empty()) rows.ReloadCurrentView();
    if (!made.empty() && folder == rows.CurrentFolder()) select(made);
    if (*failed) Tell(kNotCopied, *failed);
  });
}

void FileController::TakeBackCopies(const StepPointer& step) {
  struct Outcome {
    std::vector<FolderItem> gone;
    FolderItem changed;
    FolderItem failed;
    std::vector<FileCopier::Copy> left;
  };
  const auto outcome = std::make_shared<Outcome>();
  const auto work = [step, outcome](Jobs::Control&) {
    for (const FileCopier::Copy& copy : step->copies) {
      if (!EntryExists(copy.Item)) continue;
      if (FileCopier::StateOf(copy.Item) != copy.State) {
        outcome->changed = copy.Item;
      } else if (FolderitemExtensions::MoveToTrash(copy.Item)) {
        outcome->gone.push_back(copy.Item);
      } else {
        outcome->failed = copy.Item;
        outcome->left.push_back(copy);
      }
    }
    step->copies = std::move(outcome->left);
  };
  jobs_.Start(
      {kTakingBack.Text(), false, work, [this, step, outcome](Jobs::End, const std::string&) {
         if (!step->copies.empty()) Keep(step);
         FileMoves moves;
         for (const FolderItem& file : outcome->gone) moves.emplace_back(file, FolderItem());
         Moved(moves);
         browser_.imageBrowser->ReloadCurrentView();
         if (outcome->changed) Tell(kCopyChanged, outcome->changed);
         if (outcome->failed) Tell(kNotTrashed, outcome->failed);
       }});
}

}  // namespace brivolant
