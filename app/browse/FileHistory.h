// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "app/core/Desk.h"
#include "app/core/Jobs.h"
#include "browser/browserItem.h"
#include "files/FileCopier.h"
#include "files/FolderitemExtensions.h"
#include "platform/values/Event.h"
#include "platform/values/Text.h"

namespace brivolant {

class BrowserPane;
class Commands;
class EditSession;

/// What was done with files in the browser, one thing after the other in jobs, and how the last of
/// it is taken back.
class FileHistory {
 public:
  static constexpr LocalizedText kNotTrashed{
      "MainWindow.kNotTrashed", "The file \"<filename>\" could not be moved to the trash."};
  static constexpr LocalizedText kNotPutBack{
      "MainWindow.kNotPutBack",
      "The file \"<filename>\" could not be taken out of the trash: its old place is not free."};
  static constexpr LocalizedText kTrashOpen{"FileController.kTrashOpen",
                                            "The document \"<filename>\" is open in the editor."};
  static constexpr LocalizedText kTrashOpenExplanation{
      "FileController.kTrashOpenExplanation",
      "If it goes to the trash, the editor keeps the photo, and saving it will ask for another "
      "place."};
  static constexpr LocalizedText kTakingBack{"FileController.kTakingBack", "Taking back..."};
  static constexpr LocalizedText kCopyChanged{
      "FileController.kCopyChanged",
      "The copy \"<filename>\" stays: it was changed since it was made."};

  /// What undo takes back: files that went to the trash, a rename, or copies. Known from the start
  /// of a job, which fills it in.
  struct Step {
    enum Kind { kTrash, kRename, kCopy, kOther } Is = kTrash;
    struct Trashed {
      FolderitemExtensions::TrashedFile File;
      /// What was kept beside it.
      std::optional<FolderitemExtensions::TrashedFile> Sidecar{};
    };
    std::vector<Trashed> trashed;
    FolderItem before;
    FolderItem after;
    std::vector<FileCopier::Copy> copies;
    /// Of somebody else's; else null.
    std::function<void()> takeBack;
    const LocalizedText* name = nullptr;
  };
  using StepPointer = std::shared_ptr<Step>;

  FileHistory(const Desk& desk, EditSession& session, Commands& commands, BrowserPane& pane);
  FileHistory(const FileHistory&) = delete;
  FileHistory& operator=(const FileHistory&) = delete;

  /// Does a step in a job; the step goes if nothing of it was done.
  void Run(const LocalizedText& text, const StepPointer& step,
           std::function<void(Jobs::Control&)> work, std::function<void()> then);
  /// A step that was done already, or that was not taken back and can be tried again.
  void Keep(const StepPointer& step);
  /// A step that somebody else takes back. What is given back forgets it: nothing of it was done.
  std::function<void()> AddStep(const LocalizedText& name, std::function<void()> takeBack);
  /// Gives a file another place or name in a job, and tells why it could not be done.
  void MoveFile(const FolderItem& from, const FolderItem& to,
                const std::function<void(std::error_code)>& then);
  /// The user is asked about the open document, should it be among them.
  bool MayTrash(const std::vector<FolderItem>& files);
  /// The same files are selected as when something was begun: what came of it may be selected in
  /// their place.
  std::function<void(const std::vector<FolderItem>&)> SelectIfUntouched();
  /// Names the file in a message.
  void Tell(const LocalizedText& text, const FolderItem& file);
  Jobs& Work() { return jobs_; }

  /// Files or folders have other places now.
  Event<const FileMoves&> Moved;

 private:
  void TakeBack();
  void PutBack(const StepPointer& step);
  void TakeBackCopies(const StepPointer& step);
  std::string UndoCaption() const;

  Desk desk_;
  EditSession& session_;
  Commands& commands_;
  BrowserPane& pane_;
  std::vector<StepPointer> steps_;
  Jobs jobs_;
};

}  // namespace brivolant
