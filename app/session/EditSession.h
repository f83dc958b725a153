// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/core/Desk.h"
#include "app/core/Jobs.h"
#include "app/core/UndoHandler.h"
#include "app/core/WorkerServices.h"
#include "app/session/PreviewThread.h"
#include "effects/finishes/EffectModuleOverlay.h"
#include "engine/brivolantProcessorLite.h"
#include "platform/values/Event.h"
#include "platform/values/Text.h"

namespace brivolant {

class BrivolantDocument;
class Recovery;
class RecentItems;
struct CopiedEdits;
struct RecoveredEdits;

/// What happens between opening a photo and leaving it: one document in the processor, one history,
/// and whether there is something to save. It asks and shows nothing; what it has to say comes as
/// events. Long work is a job, and what is asked for meanwhile waits for its turn. Previews are
/// rendered on a thread of their own.
class EditSession {
 public:
  using Pairs = std::vector<std::pair<std::string, Variant>>;

  // What an entry of the history is called.
  static constexpr LocalizedText kUndoRotate{"MainWindow.kUndoRotate", "Rotate"};
  static constexpr LocalizedText kUndoFlip{"MainWindow.kUndoFlip", "Flip"};
  static constexpr LocalizedText kUndoOrientation{"MainWindow.kUndoOrientation",
                                                  "Change Orientation"};
  static constexpr LocalizedText kUndoRewind{"MainWindow.kUndoRewind", "Rewind"};
  static constexpr LocalizedText kUndoBlending{"MainWindow.kUndoBlending", "Blending"};
  static constexpr LocalizedText kUndoClearStyle{"MainWindow.kUndoClearStyle", "Clear Style"};
  static constexpr LocalizedText kUndoPasteStyle{"MainWindow.kUndoPasteStyle", "Paste Style"};
  static constexpr LocalizedText kUndoLastStyle{"MainWindow.kUndoLastStyle", "Last Style"};
  static constexpr LocalizedText kUndoPaste{"MainWindow.kUndoPaste", "Paste"};
  static constexpr LocalizedText kPicturesNotBack{
      "MainWindow.kPicturesNotBack",
      "The pictures that lay over the photo could not be brought back. They are kept for the next "
      "start."};
  static constexpr LocalizedText kLayingOver{"EditSession.kLayingOver",
                                             "Laying the picture over the photo..."};
  static constexpr LocalizedText kOpeningImage{"MainWindow.kOpeningImage",
                                               "Opening Image <filename>..."};
  static constexpr LocalizedText kProgressGeneric{"MainWindow.kProgressGeneric",
                                                  "Processing Image..."};
  static constexpr LocalizedText kNotSaved{"MainWindow.kNotSaved",
                                           "The picture \"<filename>\" was not saved."};
  static constexpr LocalizedText kNoPicture{"EditSession.kNoPicture",
                                            "The picture could not be read."};
  static constexpr LocalizedText kNotShown{
      "EditSession.kNotShown",
      "There is not enough memory to show the photo \"<filename>\" on the whole screen."};
  static constexpr LocalizedText kNotSavedThere{
      "EditSession.kNotSavedThere",
      "The photo \"<filename>\" could not be saved in its own place."};
  static constexpr LocalizedText kPlaceGone{
      "EditSession.kPlaceGone",
      "It is not there any more: the document or its folder was moved or deleted, or its disk is "
      "away. Nothing is lost if you save it elsewhere."};
  static constexpr LocalizedText kSaveElsewhere{"EditSession.kSaveElsewhere", "Save Elsewhere..."};

  /// Everything handed in must outlive the session.
  EditSession(ModuleRegistry registry, const Desk& desk, brivolant::Recovery& recovery,
              RecentItems& recent);
  ~EditSession();
  EditSession(const EditSession&) = delete;
  EditSession& operator=(const EditSession&) = delete;
  /// Fills the stacks; once, when whoever wants to hear of the modules listens.
  void Start();

  brivolantProcessorLite& Processor() { return processor_; }
  UndoHandler& UndoGizmo() { return undo_; }
  /// Null before the first photo.
  BrivolantDocument* Document() { return document_.get(); }
  /// A copy of its handles for work on another thread; what it uses lives as long as it does.
  std::shared_ptr<BrivolantDocument> CopyOfDocument() const;
  /// Another one for each photo that was opened.
  int DocumentNumber() const { return documents_; }
  bool Dirty() const;
  /// The photo is as its document holds it, whatever was done in between.
  bool SameAsSaved() const;

  // Files; SessionFiles.cpp.

  /// Opens an image file or a document. An empty name stands for the file's own. Opened or Failed
  /// comes; the photo before goes on until the new one is read.
  void Open(const FolderItem& item, std::string name);
  /// Opens a picture that has no file.
  void Open(const Picture& picture, const std::string& name);
  /// The same of one that is made in the job that opens it.
  void Open(PictureSource picture, const std::string& name);
  /// Opens what an unclean end left, not yet saved.
  void Open(const RecoveredEdits& edits);
  /// True while the photo has no place of its own.
  bool NeedsPlace() const;
  /// Saves where the photo lies, or at a place. What stands there goes to the trash. What cannot
  /// be saved where it lies asks for another place. `then` hears whether it was saved.
  void Save(const FolderItem& place, std::function<void(bool saved)> then);
  /// Writes the finished picture; `type` is the identifier of a writable kind, `quality` 0 to 1.
  void SaveCopy(const FolderItem& file, const std::string& type, double quality);
  /// Of the preferences: what copies carry of what the photo tells. 0 all, 1 all but where it was
  /// taken, 2 nothing.
  static constexpr const char* kCopiesCarry = "Copies.metadata";
  /// Renders the photo to be seen in a box of pixels.
  void RenderFor(int width, int height, std::function<void(const Picture&)> then);
  /// True if the document's own package lies in an item, or is it.
  bool LiesIn(const FolderItem& item) const;
  /// What lay at or below `from` was moved to `to`, and the open document with it.
  void Relocate(const FolderItem& from, const FolderItem& to);
  /// The changes are given up: nobody will want them back after a crash.
  void GiveUpChanges();
  /// Writes what is not saved to where a crash leaves it, beside all other work.
  void KeepEdits();
  /// The same, done when the call returns: for an end that comes from outside.
  void KeepEditsNow();

  // Changes. Each records what it changes.

  /// Sets a field of the document, Rotation, Flip or Orientation, or 0 if it is there already.
  void Turn(int BrivolantDocument::*field, int value);
  void Blend(int mode, float alpha);
  void RecordBlending();
  /// Replaces the stacks, as one entry of that name.
  void ApplyStyle(const std::string& data, const std::string& name);
  /// Pictures that the stacks name come along if they were copied here.
  void PasteStyle(const std::string& data);
  /// All edits of the open photo.
  CopiedEdits Edits() const;
  struct Around {
    /// On a job's thread before anything changes.
    std::function<void()> Before;
    /// Once the edits are there, or were refused.
    std::function<void()> After;
  };
  /// The stacks, and crop and turns if they are wanted, as one entry: at once, or in a job if
  /// pictures must be copied or something comes before.
  void PasteEdits(const CopiedEdits& edits, bool crop, bool turns, Around around);
  /// What was copied last, here or in the browser; the clipboard has its stacks.
  std::shared_ptr<const CopiedEdits> Copied;
  void ClearStyle();
  void ApplyLastStyle();
  /// Lays a picture over the photo, above all effects, in a job.
  void PastePicture(PictureSource picture);
  /// Lays a file's picture over the photo, where the overlay stands in the stack, in a job.
  void LayOver(const FolderItem& file);
  void PerformRewind();
  bool Rewindable() const { return rewindable_; }
  void SetDirty(bool dirty);
  /// Brings everything in line with the processor: panel, preview, and who listens to Changed.
  void Refresh();

  // History; SessionHistory.cpp.

  /// Tells, before a change, what it will change; each value under the key that says what it
  /// restores. What turns out to have changed nothing leaves no entry.
  void Record(const Pairs& pairs, const std::string& name);
  /// Of a module of the current stack.
  std::string ModuleKey(const char* kind, const effectModule& module) const;
  void Undo();
  void Redo();
  /// Counts the entries and what was taken back: as long as it stands still, the newest entry is
  /// the one that it was.
  int HistorySteps() const { return historySteps_; }

  /// The style whose tile is lit: a number that the bar of styles gives out, or -1.
  int StyleSelection() const { return styleSelection_; }
  void SelectStyle(int selection);
  /// Of the photo that was open before this one; may be empty.
  const std::string& LastStyle() const { return lastStyle_; }

  /// While one lives nothing replaces the document or its modules: for whoever runs an event loop
  /// of a question, a menu or a dialog.
  class Hold {
   public:
    explicit Hold(EditSession& session) : pause_(session.jobs_) {}

   private:
    Jobs::Pause pause_;
  };
  Jobs& Work() { return jobs_; }
  bool Busy() const { return jobs_.Busy(); }
  /// Waits for the newest preview and shows it, without handling events.
  void FinishPreview() { preview_.Finish(); }
  /// Shows what is ready of what was rendered, as a turn of the event loop does. True if nothing is
  /// left to show.
  bool PreviewSettled() { return preview_.Settled(); }
  /// Calls at once, or when the newest preview is shown.
  void WhenRendered(std::function<void()> then) { preview_.WhenRendered(std::move(then)); }
  /// Waits until no work is under way or waiting, without handling events.
  void Finish();
  /// Something is half done, such as a crop that is being drawn: it is not what one would want back
  /// after a crash.
  bool HalfDone = false;

  /// Comes before open, save and close: what is half done ends.
  Event<> Settling;
  /// Another photo is open and its first preview made.
  Event<> Opened;
  Event<> Saved;
  /// The state of the session, but for what the history holds.
  Event<> Changed;
  Event<> HistoryChanged;
  Event<> RenderStarted;
  Event<> Rendered;
  Event<effectModule&> ModuleCreated;
  /// Asks the user what work could not decide; without it the answer is kCancel.
  std::function<Answer(const Question&)> Ask;
  /// Asks for a place to save at; nil if the user gives none.
  std::function<FolderItem()> AskPlace;
  /// What the user must know, and why.
  Event<const std::string&, const std::string&> Failed;

 private:
  struct Opening;
  struct Saving;
  void Begin(Opening& opening);
  void Read(const std::shared_ptr<Opening>& opening, const std::string& text,
            std::function<bool(Opening&)> read);
  /// Work that waits for the newest preview; nothing if that is shown.
  std::function<void(Jobs::Control&)> AwaitPreview();
  std::function<void(Jobs::Control&)> SaveNow(const std::shared_ptr<Saving>& saving);
  void TakeSaved(Saving& saving, const std::string& why);
  /// Saves; those questions are answered already.
  void SaveWith(const std::vector<Question>& agreed, const FolderItem& place,
                std::function<void(bool)> then);
  bool SaveOtherwise(Saving& saving, const std::string& why);
  /// What is kept of the present document is not wanted any more.
  void ForgetEdits();
  /// Tells what the worker left to tell.
  void TellWorkers();
  void TellOf(WorkerServices& worker);
  void TakeEdits(const CopiedEdits& edits, bool crop, bool turns);
  void Replace(const std::string& style);
  std::string State() const;

  /// Of the stack on show; null without a photo.
  EffectModuleOverlay* Overlay();
  void LayReady(
      std::function<EffectModuleOverlay::Ready(const std::string& name, const FolderItem& copy)>
          make,
      std::function<void(EffectModuleOverlay::Ready)> take);
  void WireHistory();
  void StorePending();
  std::optional<Variant> Present(const std::string& key) const;
  effectModule* ModuleOf(const std::string& key, std::string& kind, int& stack) const;
  bool Restore(const std::string& key, const Variant& value);
  bool RestoreModule(const std::string& key, const Variant& value);
  void CompleteUndo(bool redo);

  Desk desk_;
  brivolant::Recovery& recovery_;
  RecentItems& recent_;
  /// What the open document and work on it use.
  std::shared_ptr<WorkerServices> worker_;
  std::unique_ptr<BrivolantDocument> document_;
  brivolantProcessorLite processor_;
  PreviewThread preview_;
  UndoHandler undo_;
  struct Pending {
    Pairs pairs;
    std::string name;
  };
  Pending pending_;
  int historySteps_ = 0;
  /// Counts the documents, so that what is done late finds its own.
  int documents_ = 0;
  int styleSelection_ = -1;
  int undoneSelection_ = -1;
  std::string lastStyle_;
  /// What the file holds; nothing for what stands in no file yet.
  std::optional<std::string> savedState_;
  /// Where the document lies, and its real path.
  mutable std::pair<FolderItem, std::string> place_;
  bool rewindable_ = false;
  Listening working_;
  /// Nobody wants the changes back, unless more are made.
  bool givenUp_ = false;
  Jobs keeping_;
  // Its end is the first thing that the end of the session waits for.
  Jobs jobs_;
};

}  // namespace brivolant
