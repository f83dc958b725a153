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

namespace brivolant {

/// A document that is being read.
struct EditSession::Opening {
  /// What reading uses: its own, since a disk may hold it for longer than anybody waits.
  std::shared_ptr<WorkerServices> worker;
  std::unique_ptr<BrivolantDocument> document;
  FolderItem file;
  std::string name;
  bool isDocument = false;
  bool rewindable = true;
  /// In the file stands what is shown.
  bool fresh = false;
  bool read = false;
  /// It is the open document.
  bool begun = false;
  /// Why it is not read is told already.
  bool refused = false;
  /// It is of an older form, and written anew once it is known to be wanted.
  bool older = false;
  /// What is brought back.
  std::optional<RecoveredEdits> edits;
  /// Says that the file could not be read, and why; in the worker's messages.
  void TellWhy(const std::string& why) const {
    FolderitemExtensions::StandardFileErrorDialog(
        file, FolderitemExtensions::kRead,
        why.empty() && document ? document->lastErrorMessage : why, worker->All().Dialogs);
  }
};

void EditSession::TellWorkers() {
  TellOf(*worker_);
}

void EditSession::TellOf(WorkerServices& worker) {
  for (const WorkerServices::Told& told : worker.Take()) Failed(told.Message, told.Explanation);
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
         [](Opening& o) {
           o.refused = !FolderitemExtensions::Validate(o.file, FolderitemExtensions::kRead, nullptr,
                                                       o.worker->All().Dialogs);
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
           o.older = document.FileDataVersion < BrivolantDocument::kVersion && o.file.IsWriteable();
           if (!o.older) document.HoldFiles();
           return true;
         });
  });
}

void EditSession::Open(const RecoveredEdits& edits) {
  auto opening = std::make_shared<Opening>();
  opening->file = edits.Package ? edits.Package : edits.Original;
  opening->name = edits.Name;
  opening->edits = edits;
  jobs_.WhenIdle([this, opening, edits] {
    Settling();
    Read(opening, WithPlaceholders(kOpeningImage.Text(), {{"<filename>", edits.Name}}),
         [edits](Opening& o) {
           bool read = false;
           if (edits.Package.Exists()) {
             read = o.document->Load(edits.Package) && !o.document->ImageOriginal().IsNil();
             // A temporary package is still no place for a document to stay.
             if (read && !edits.Saved) o.document->tFile = edits.Package;
           }
           if (!read && edits.Original.Exists()) {
             o.document = std::make_unique<BrivolantDocument>(o.worker->All());
             read = o.document->CreateFromFile(edits.Original);
           }
           if (read) o.document->HoldFiles();
           if (read && !edits.ApplyTo(*o.document)) {
             // Without its pictures it would be saved as less than it was.
             o.document->lastErrorMessage = kPicturesNotBack.Text();
             return false;
           }
           return read;
         });
  });
}

void EditSession::Read(const std::shared_ptr<Opening>& opening, const std::string& text,
                       std::function<bool(Opening&)> read) {
  const bool ofFile = !opening->file.IsNil();
  // Who works here now: a document takes the names as it is made.
  opening->worker = std::make_shared<WorkerServices>(desk_.Services);
  opening->document = std::make_unique<BrivolantDocument>(opening->worker->All());
  const auto more = [this, opening]() -> std::function<void(Jobs::Control&)> {
    if (!opening->read) return nullptr;
    if (!opening->begun) Begin(*opening);
    // The photo before is gone: there is nothing to go back to.
    jobs_.KeepOn();
    return AwaitPreview();
  };
  jobs_.Start({text, ofFile,
               [opening, ofFile, read = std::move(read)](Jobs::Control& control) {
                 if (!ofFile) {
                   opening->read = read(*opening);
                   return;
                 }
                 // A disk that is away answers late, or never; who waits for it can give it up.
                 const auto done = std::make_shared<bool>(false);
                 const auto apart = [opening, read, done] {
                   *done = read(*opening);
                   // Why, is looked for on the disk too.
                   if (!*done && !opening->refused) opening->TellWhy({});
                 };
                 opening->read = control.Apart(apart) && *done;
                 // Nothing is written of what was given up.
                 if (opening->read && opening->older) {
                   opening->document->Save();
                   opening->document->HoldFiles();
                 }
               },
               [this, opening](Jobs::End end, const std::string& why) {
                 if (opening->begun && end != Jobs::End::kFailed) {
                   Opened();
                   return TellOf(*opening->worker);
                 }
                 // The photo before stays, and with it what is to be kept of it.
                 if (Dirty()) givenUp_ = false;
                 if (end == Jobs::End::kCancelled) return;
                 if (!why.empty()) opening->TellWhy(why);
                 TellOf(*opening->worker);
               },
               more, true});
}

std::function<void(Jobs::Control&)> EditSession::AwaitPreview() {
  if (preview_.Settled()) return nullptr;
  return [this](Jobs::Control&) { preview_.Wait(); };
}

void EditSession::Open(const Picture& picture, const std::string& name) {
  if (!picture.IsNil()) Open([picture] { return picture; }, name);
}

void EditSession::Open(PictureSource source, const std::string& name) {
  if (!source) return;
  const auto opening = std::make_shared<Opening>();
  opening->name = name;
  jobs_.WhenIdle([this, opening, source = std::move(source)] {
    Settling();
    // A picture without a file exists nowhere else: its package is written at once.
    Read(opening, WithPlaceholders(kOpeningImage.Text(), {{"<filename>", opening->name}}),
         [source](Opening& o) {
           const Picture picture = source();
           o.refused = picture.IsNil();
           if (o.refused) {
             o.worker->All().Dialogs.Message(kNoPicture.Text(), {});
             return false;
           }
           o.document = std::make_unique<BrivolantDocument>(o.worker->All(), picture, o.name);
           // Where there is no place for that it can be edited, but not brought back.
           if (o.document->File.IsNil()) {
             o.worker->All().Dialogs.Message(o.document->lastErrorMessage, {});
           }
           return true;
         });
  });
}

void EditSession::Begin(Opening& opening) {
  opening.begun = true;
  // What the old document used goes after it.
  const std::shared_ptr<WorkerServices> former = std::exchange(worker_, opening.worker);
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

std::shared_ptr<BrivolantDocument> EditSession::CopyOfDocument() const {
  return {new BrivolantDocument(*document_),
          [worker = worker_](const BrivolantDocument* copy) { delete copy; }};
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
  const auto copy = CopyOfDocument();
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
