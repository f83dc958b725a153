// SPDX-License-Identifier: MIT
// The session's long work: reading, saving, rendering at full size. Jobs work on documents and
// processors of their own; what they made is taken over when they are done.
#include <algorithm>

#include "app/core/RecentItems.h"
#include "app/core/Recovery.h"
#include "app/session/EditSession.h"
#include "engine/EditorInterfaces.h"
#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "formats/FileTypes.h"

namespace brivolant {

/// A document that is being read.
struct EditSession::Opening {
  std::unique_ptr<BrivolantDocument> document;
  /// Takes the place of one that was filled in part.
  std::unique_ptr<BrivolantDocument> spare;
  FolderItem file;
  std::string name;
  bool isDocument = false;
  bool rewindable = true;
  /// In the file stands what is shown.
  bool fresh = false;
  bool read = false;
  /// What is brought back.
  std::optional<RecoveredEdits> edits;
};

void EditSession::TellWorkers() {
  for (const WorkerServices::Told& told : worker_.Take()) Failed(told.Message, told.Explanation);
}

void EditSession::Open(const FolderItem& item, std::string name) {
  auto opening = std::make_shared<Opening>();
  opening->file = item;
  opening->name = std::move(name);
  jobs_.WhenIdle([this, opening] {
    const FolderItem& file = opening->file;
    Settling();
    const bool may = FolderitemExtensions::Validate(file, FolderitemExtensions::kRead, nullptr,
                                                    worker_.All().Dialogs);
    TellWorkers();
    if (!may) return;
    if (opening->name.empty()) {
      opening->name = EnsureUTF8(FolderitemExtensions::FileNameWithoutExtension(file));
    }
    opening->isDocument =
        FolderitemExtensions::isFileType(file, &InternalFileTypes::BrivolantPhotosDocument);
    opening->rewindable = opening->isDocument;
    opening->fresh = true;
    Read(opening, WithPlaceholders(kOpeningImage.Text(), {{"<filename>", file.DisplayName()}}),
         [](Opening& o) {
           BrivolantDocument& document = *o.document;
           if (!o.isDocument) {
             const bool made = document.CreateFromFile(o.file);
             document.Name = o.name;
             return made;
           }
           if (!document.Load(o.file) || document.ImageOriginal().IsNil()) return false;
           document.HoldPictures();
           // An older form is written anew at once.
           if (document.FileDataVersion < BrivolantDocument::kVersion) document.Save();
           return true;
         });
  });
}

void EditSession::Open(const RecoveredEdits& edits) {
  auto opening = std::make_shared<Opening>();
  opening->file = edits.Package;
  opening->name = edits.Name;
  opening->edits = edits;
  jobs_.WhenIdle([this, opening, edits] {
    Settling();
    opening->spare = std::make_unique<BrivolantDocument>(worker_.All());
    Read(opening, WithPlaceholders(kOpeningImage.Text(), {{"<filename>", edits.Name}}),
         [edits](Opening& o) {
           if (edits.Package.Exists()) {
             o.read = o.document->Load(edits.Package) && !o.document->ImageOriginal().IsNil();
             if (o.read) o.document->HoldPictures();
             // A temporary package is still no place for a document to stay.
             if (o.read && !edits.Saved) o.document->tFile = edits.Package;
           }
           if (!o.read && edits.Original.Exists()) {
             o.document = std::move(o.spare);
             o.read = o.document->CreateFromFile(edits.Original);
           }
           if (o.read && !edits.ApplyTo(*o.document)) {
             // Without its pictures it would be saved as less than it was.
             o.document->lastErrorMessage = kPicturesNotBack.Text();
             return false;
           }
           return o.read;
         });
  });
}

void EditSession::Read(const std::shared_ptr<Opening>& opening, const std::string& text,
                       std::function<bool(Opening&)> read) {
  opening->document = std::make_unique<BrivolantDocument>(worker_.All());
  jobs_.Start(
      {text, false,
       [opening, read = std::move(read)](Jobs::Control&) { opening->read = read(*opening); },
       [this, opening](Jobs::End end, const std::string& why) {
         if (end != Jobs::End::kDone || !opening->read) {
           const std::string reason = why.empty() ? opening->document->lastErrorMessage : why;
           FolderitemExtensions::StandardFileErrorDialog(opening->file, FolderitemExtensions::kRead,
                                                         reason, worker_.All().Dialogs);
           TellWorkers();
           return;
         }
         TellWorkers();
         Begin(std::move(opening->document), opening->rewindable);
         if (opening->edits) recovery_.Adopt(*opening->edits);
         if (opening->fresh) {
           savedState_ = State();
           recent_.Add(opening->file);
         } else {
           SetDirty(true);
         }
         Opened();
       }});
}

void EditSession::Open(const Picture& picture, const std::string& name) {
  if (picture.IsNil()) return;
  jobs_.WhenIdle([this, picture, name] {
    Settling();
    Begin(std::make_unique<BrivolantDocument>(worker_.All(), picture, name), true);
    // A picture without a file exists nowhere else.
    SetDirty(true);
    Opened();
    TellWorkers();
  });
}

void EditSession::Begin(std::unique_ptr<BrivolantDocument> document, bool rewindable) {
  lastStyle_ = document_ ? processor_.StyleData() : std::string();
  ++documents_;
  pending_ = {};
  undo_.Reset();
  processor_.SelectedEffect(nullptr);
  if (processor_.myEffectEditor != nullptr) processor_.myEffectEditor->selectedEffect(-1);
  processor_.Reset();
  processor_.Document = document.get();
  // The old document goes only after nothing points at it any more.
  const std::unique_ptr<BrivolantDocument> before = std::exchange(document_, std::move(document));
  if (before) recovery_.Forget();
  styleSelection_ = -1;
  savedState_.reset();
  processor_.StyleData(document_->StyleData);
  if (processor_.myEffectEditor != nullptr) processor_.myEffectEditor->Update();
  processor_.ChangeStack(0);
  processor_.nonLiveMode = false;
  Refresh();
  document_->Dirty = false;
  rewindable_ = rewindable;
  Changed();
}

bool EditSession::NeedsPlace() const {
  return document_ && (document_->File.IsNil() || !document_->tFile.IsNil());
}

/// A copy of the document that is being saved.
struct EditSession::Saving {
  std::unique_ptr<BrivolantDocument> copy;
  /// What stands there goes to the trash; nil where the document lies already.
  FolderItem place;
  /// Of the session, as it is saved.
  std::string state;
  int of = 0;
  /// What the user has said yes to.
  std::vector<Question> agreed;
  std::function<void(bool)> then;
  bool done = false;
};

void EditSession::Save(const FolderItem& place, std::function<void(bool)> then) {
  SaveWith({}, place, std::move(then));
}

void EditSession::SaveWith(const std::vector<Question>& agreed, const FolderItem& place,
                           std::function<void(bool)> then) {
  jobs_.WhenIdle([this, agreed, place, then = std::move(then)] {
    if (!document_) return then(false);
    // An answer holds for the save that it was given to.
    worker_.Forget();
    for (const Question& question : agreed) worker_.LayReady(question, Answer::kAction);
    Settling();
    StorePending();
    const auto saving = std::make_shared<Saving>();
    saving->copy = std::make_unique<BrivolantDocument>(*document_);
    saving->copy->StyleData = processor_.StyleData();
    saving->place = place;
    saving->state = State();
    saving->of = documents_;
    saving->agreed = agreed;
    saving->then = then;
    if (place) {
      saving->copy->File = place;
      saving->copy->Name = EnsureUTF8(FolderitemExtensions::FileNameWithoutExtension(place));
    }
    const auto work = [this, saving](Jobs::Control&) {
      if (saving->place.Exists() && !FolderitemExtensions::MoveToTrash(saving->place)) {
        worker_.All().Dialogs.Message(
            WithPlaceholders(kCannotReplace.Text(), {{"<filename>", saving->place.DisplayName()}}),
            {});
        return;
      }
      saving->done = saving->copy->Save();
    };
    jobs_.Start({{}, false, work, [this, saving](Jobs::End, const std::string& why) {
                   TakeSaved(*saving, why);
                 }});
  });
}

void EditSession::TakeSaved(Saving& saving, const std::string& why) {
  // Another photo is open by now: this one was saved all the same.
  if (saving.of != documents_) return saving.then(saving.done);
  // What failed changes nothing, so that the next attempt asks again; unless the package has moved
  // already.
  const bool moved = saving.copy->tFile.IsNil() && !document_->tFile.IsNil();
  if (saving.done || moved) document_->TakeOver(*saving.copy);
  if (saving.done) {
    savedState_ = saving.state;
    recent_.Add(document_->File);
    recovery_.Forget();
  }
  SetDirty(!saving.done);
  if (saving.done) Saved();
  if (!why.empty()) {
    Failed(WithPlaceholders(kNotSaved.Text(), {{"<filename>", document_->Name}}), why);
  }
  TellWorkers();
  const std::optional<Question> question = worker_.Unanswered();
  if (question && !saving.done && Ask && Ask(*question) == Answer::kAction) {
    saving.agreed.push_back(*question);
    return SaveWith(saving.agreed, {}, saving.then);
  }
  saving.then(saving.done);
}

void EditSession::GiveUpChanges() {
  recovery_.Forget();
}

void EditSession::KeepEdits() {
  if (Busy() || HalfDone || !Dirty()) return;
  recovery_.Keep(*document_, processor_.StyleData());
}

}  // namespace brivolant
