// SPDX-License-Identifier: MIT
#include "app/browse/FileHistory.h"

#include <algorithm>
#include <utility>

#include "app/browse/BrowserPane.h"
#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "app/session/EditSession.h"
#include "formats/BrivolantDocument.h"
#include "metadata/Sidecar.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/ExclusiveMove.h"
#include "platform/values/Captions.h"

namespace brivolant {
namespace {

/// With what is kept beside it: both, or neither.
std::error_code MoveWithSidecar(const FolderItem& from, const FolderItem& to) {
  const FolderItem sidecar = Sidecar::Following(from);
  if (!sidecar) return MoveExclusively(from, to);
  const FolderItem place = Sidecar::BesideMoved(sidecar, from, to);
  // Under another extension the photo may keep the name that they share.
  std::error_code unknown;
  if (place == sidecar || std::filesystem::equivalent(place.Path(), sidecar.Path(), unknown)) {
    return MoveExclusively(from, to);
  }
  // What belongs to another photo too stays there, and this one gets a copy. The copy of an earlier
  // time may be there already.
  const bool stays = Sidecar::Shared(sidecar, from);
  const auto there = EntryExists(place) ? ReadFile(place) : std::nullopt;
  const bool same = there && there == ReadFile(sidecar);
  std::error_code error;
  if (same || stays) {
    if (!same && EntryExists(place)) return std::make_error_code(std::errc::file_exists);
    if (!same) error = CopyFileAtomically(sidecar, place);
    if (!error) error = MoveExclusively(from, to);
    if (error && !same) (void)place.Delete();
    if (!error && !stays) (void)sidecar.Delete();
    return error;
  }
  error = MoveExclusively(sidecar, place);
  if (error) return error;
  error = MoveExclusively(from, to);
  if (error) (void)MoveExclusively(place, sidecar);
  return error;
}

/// A copy as it was made, with what follows it: nothing has been said of it since.
bool Untouched(const FileCopier::Copy& copy) {
  if (FileCopier::StateOf(copy.Item) != copy.State) return false;
  // What we keep beside a photo has its whole name; a shorter one may be anybody's.
  if (copy.Companion.IsNil()) {
    const FolderItem sidecar = Sidecar::Following(copy.Item);
    return sidecar.IsNil() || sidecar.Name() != copy.Item.Name() + ".xmp";
  }
  return FileCopier::StateOf(copy.Companion) == copy.CompanionState;
}

}  // namespace

FileHistory::FileHistory(const Desk& desk, EditSession& session, Commands& commands,
                         BrowserPane& pane)
    : desk_(desk), session_(session), commands_(commands), pane_(pane) {
  // What is being done is to be done first.
  commands.Add({{"EditUndo", &Menus::kEditUndo, "", kInBrowser,
                 [this] { jobs_.WhenIdle([this] { TakeBack(); }); },
                 [this] { return !steps_.empty(); }, nullptr, [this] { return UndoCaption(); }}});
}

void FileHistory::Tell(const LocalizedText& text, const FolderItem& file) {
  desk_.Services.Dialogs.Message(
      WithPlaceholders(text.Text(), {{"<filename>", file.DisplayName()}}), {});
}

void FileHistory::Run(const LocalizedText& text, const StepPointer& step,
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

std::function<void()> FileHistory::AddStep(const LocalizedText& name,
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

void FileHistory::Keep(const StepPointer& step) {
  steps_.push_back(step);
  commands_.Changed();
}

std::string FileHistory::UndoCaption() const {
  std::string text = Menus::kEditUndo.Text();
  if (steps_.empty()) return text;
  const Step::Kind kind = steps_.back()->Is;
  std::string done = (kind == Step::kOther    ? *steps_.back()->name
                      : kind == Step::kRename ? Menus::kFileRename
                      : kind == Step::kTrash  ? Menus::kFileMoveToTrash
                                              : Menus::kEditCopy)
                         .Text();
  // One letter of a caption is underlined, not two.
  std::erase(done, '&');
  return text + " " + done;
}

std::function<void(const std::vector<FolderItem>&)> FileHistory::SelectIfUntouched() {
  return [this, before = pane_.imageBrowser->Choices()](const std::vector<FolderItem>& files) {
    if (pane_.imageBrowser->Choices() == before) pane_.imageBrowser->SelectFiles(files);
  };
}

bool FileHistory::MayTrash(const std::vector<FolderItem>& files) {
  const bool open = std::any_of(files.begin(), files.end(),
                                [this](const auto& file) { return session_.LiesIn(file); });
  if (!open) return true;
  std::string trash = Menus::kFileMoveToTrash.Text();
  std::erase(trash, '&');
  const EditSession::Hold hold(session_);
  return desk_.Services.Dialogs.Ask(
             {WithPlaceholders(kTrashOpen.Text(), {{"<filename>", session_.Document()->Name}}),
              kTrashOpenExplanation.Text(),
              trash,
              Captions::kCancel.Text(),
              {}}) == Answer::kAction;
}

void FileHistory::TakeBack() {
  if (steps_.empty()) return;
  const StepPointer step = steps_.back();
  std::vector<FolderItem> copies;
  for (const FileCopier::Copy& copy : step->copies) copies.push_back(copy.Item);
  if (!MayTrash(copies)) return;
  std::erase(steps_, step);
  commands_.Changed();
  if (step->Is == Step::kOther) return step->takeBack();
  if (step->Is == Step::kCopy) return TakeBackCopies(step);
  if (step->Is == Step::kTrash) return PutBack(step);
  MoveFile(step->after, step->before,
           [this, step, select = SelectIfUntouched()](std::error_code error) {
             if (error) Keep(step);
             pane_.imageBrowser->ReloadCurrentView();
             if (!error) select({step->before});
             if (error) Tell(kNotPutBack, step->before);
           });
}

void FileHistory::PutBack(const StepPointer& step) {
  const auto back = std::make_shared<std::vector<FolderItem>>();
  const auto failed = std::make_shared<FolderItem>();
  jobs_.Start(
      {kTakingBack.Text(), false,
       [step, back, failed](Jobs::Control&) {
         // The last first, so that each finds things as it left them. What is kept beside a photo
         // comes back with it, and never beside another that has its name now.
         std::vector<Step::Trashed> left;
         for (auto one = step->trashed.rbegin(); one != step->trashed.rend(); ++one) {
           if (!FolderitemExtensions::PutBack(one->File)) {
             *failed = one->File.Original;
             left.insert(left.begin(), *one);
             continue;
           }
           back->push_back(one->File.Original);
           if (one->Sidecar && !FolderitemExtensions::PutBack(*one->Sidecar)) {
             *failed = one->Sidecar->Original;
           }
         }
         step->trashed = std::move(left);
       },
       [this, step, back, failed, select = SelectIfUntouched()](Jobs::End, const std::string&) {
         if (!step->trashed.empty()) Keep(step);
         FileMoves moves;
         for (const FolderItem& file : *back) moves.emplace_back(FolderItem(), file);
         Moved(moves);
         pane_.imageBrowser->ReloadCurrentView();
         select(*back);
         if (*failed) Tell(kNotPutBack, *failed);
       }});
}

void FileHistory::TakeBackCopies(const StepPointer& step) {
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
      if (!Untouched(copy)) {
        outcome->changed = copy.Item;
      } else if (FolderitemExtensions::MoveToTrash(copy.Item)) {
        outcome->gone.push_back(copy.Item);
        if (copy.Companion) (void)FolderitemExtensions::MoveToTrash(copy.Companion);
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
         pane_.imageBrowser->ReloadCurrentView();
         if (outcome->changed) Tell(kCopyChanged, outcome->changed);
         if (outcome->failed) Tell(kNotTrashed, outcome->failed);
       }});
}

void FileHistory::MoveFile(const FolderItem& from, const FolderItem& to,
                           const std::function<void(std::error_code)>& then) {
  const auto move = [this, from, to, then] {
    const auto error = std::make_shared<std::error_code>();
    // Behind what is being copied or trashed, which would lose its way.
    jobs_.Start({{},
                 false,
                 [=](Jobs::Control&) { *error = MoveWithSidecar(from, to); },
                 [this, from, to, error, then](Jobs::End, const std::string&) {
                   if (!*error) {
                     // The open document goes on where it now is.
                     session_.Relocate(from, to);
                     Moved({{from, to}});
                   }
                   then(*error);
                 }});
  };
  // And behind what is being written into it, which would come back under the old name.
  desk_.WhenInfoIsWritten ? desk_.WhenInfoIsWritten(move) : move();
}

}  // namespace brivolant
