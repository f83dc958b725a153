// SPDX-License-Identifier: MIT
// Opening, and edits that are kept until they are saved. Jobs work on documents of their own, which
// are taken over when they are done.
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
  /// Why it is not read is told already.
  bool refused = false;
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
    if (opening->name.empty()) {
      opening->name = EnsureUTF8(FolderitemExtensions::FileNameWithoutExtension(file));
    }
    opening->fresh = true;
    Read(opening, WithPlaceholders(kOpeningImage.Text(), {{"<filename>", file.DisplayName()}}),
         [this](Opening& o) {
           // A disk that is away answers late, or never.
           o.refused = !FolderitemExtensions::Validate(o.file, FolderitemExtensions::kRead, nullptr,
                                                       worker_.All().Dialogs);
           if (o.refused) return false;
           o.isDocument = BrivolantDocument::IsDocument(o.file);
           o.rewindable = o.isDocument;
           BrivolantDocument& document = *o.document;
           if (!o.isDocument) {
             const bool made = document.CreateFromFile(o.file);
             document.Name = o.name;
             return made;
           }
           if (!document.Load(o.file) || document.ImageOriginal().IsNil()) return false;
           // An older form is written anew at once.
           if (document.FileDataVersion < BrivolantDocument::kVersion && o.file.IsWriteable()) {
             document.Save();
           }
           document.HoldFiles();
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
             // A temporary package is still no place for a document to stay.
             if (o.read && !edits.Saved) o.document->tFile = edits.Package;
           }
           if (!o.read && edits.Original.Exists()) {
             o.document = std::move(o.spare);
             o.read = o.document->CreateFromFile(edits.Original);
           }
           if (o.read) o.document->HoldFiles();
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
  // Who works here now: a document takes the names as it is made.
  worker_.Refresh();
  opening->document = std::make_unique<BrivolantDocument>(worker_.All());
  const auto more = [this, opening]() -> std::function<void(Jobs::Control&)> {
    if (!opening->read) return nullptr;
    if (opening->document) Begin(*opening);
    return AwaitPreview();
  };
  jobs_.Start(
      {text, false,
       [opening, read = std::move(read)](Jobs::Control&) { opening->read = read(*opening); },
       [this, opening](Jobs::End end, const std::string& why) {
         if (end == Jobs::End::kDone && opening->read) return Opened();
         if (opening->refused) return TellWorkers();
         const std::string reason =
             why.empty() && opening->document ? opening->document->lastErrorMessage : why;
         FolderitemExtensions::StandardFileErrorDialog(opening->file, FolderitemExtensions::kRead,
                                                       reason, worker_.All().Dialogs);
         TellWorkers();
       },
       more});
}

std::function<void(Jobs::Control&)> EditSession::AwaitPreview() {
  if (preview_.Settled()) return nullptr;
  return [this](Jobs::Control&) { preview_.Wait(); };
}

void EditSession::Open(const Picture& picture, const std::string& name) {
  if (picture.IsNil()) return;
  const auto opening = std::make_shared<Opening>();
  opening->name = name;
  jobs_.WhenIdle([this, opening, picture] {
    Settling();
    // A picture without a file exists nowhere else: its package is written at once.
    Read(opening, WithPlaceholders(kOpeningImage.Text(), {{"<filename>", opening->name}}),
         [this, picture](Opening& o) {
           o.document = std::make_unique<BrivolantDocument>(worker_.All(), picture, o.name);
           // Where there is no place for that it can be edited, but not brought back.
           if (o.document->File.IsNil()) {
             worker_.All().Dialogs.Message(o.document->lastErrorMessage, {});
           }
           return true;
         });
  });
}

void EditSession::Begin(Opening& opening) {
  TellWorkers();
  lastStyle_ = document_ ? processor_.StyleData() : std::string();
  ++documents_;
  preview_.DocumentReplaced();
  pending_ = {};
  undo_.Reset();
  processor_.SelectedEffect(nullptr);
  if (processor_.myEffectEditor != nullptr) processor_.myEffectEditor->selectedEffect(-1);
  processor_.Reset();
  processor_.Document = opening.document.get();
  // The old document goes only after nothing points at it any more.
  const std::unique_ptr<BrivolantDocument> before =
      std::exchange(document_, std::move(opening.document));
  if (before) ForgetEdits();
  givenUp_ = false;
  styleSelection_ = -1;
  savedState_.reset();
  processor_.StyleData(document_->StyleData);
  if (processor_.myEffectEditor != nullptr) processor_.myEffectEditor->Update();
  processor_.ChangeStack(0);
  processor_.nonLiveMode = false;
  Refresh();
  document_->Dirty = false;
  rewindable_ = opening.rewindable;
  Changed();
  if (opening.edits) {
    keeping_.WhenIdle([this, edits = *opening.edits] { recovery_.Adopt(edits); });
  }
  // A picture without a file exists nowhere else.
  if (!opening.fresh) return SetDirty(true);
  savedState_ = State();
  recent_.Add(opening.file);
}

void EditSession::GiveUpChanges() {
  givenUp_ = true;
  ForgetEdits();
}

void EditSession::ForgetEdits() {
  keeping_.WhenIdle([this] { recovery_.Forget(); });
}

void EditSession::KeepEdits() {
  if (keeping_.Busy() || givenUp_ || HalfDone || !Dirty()) return;
  // A copy of the handles, as for every job.
  const auto copy = std::make_shared<BrivolantDocument>(*document_);
  const auto keep = [this, copy, style = processor_.StyleData()](Jobs::Control&) {
    (void)recovery_.Keep(*copy, style);
  };
  keeping_.Start({{}, false, keep, nullptr});
}

void EditSession::KeepEditsNow() {
  keeping_.Finish();
  KeepEdits();
  keeping_.Finish();
}

}  // namespace brivolant
