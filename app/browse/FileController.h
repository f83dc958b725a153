// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/core/Desk.h"
#include "app/core/Jobs.h"
#include "browser/browserItem.h"
#include "files/FileCopier.h"
#include "files/FolderitemExtensions.h"
#include "platform/values/Event.h"
#include "platform/values/Text.h"

namespace brivolant {

class BrowserController;
class Commands;
class EditSession;
class browserItem;

/// What the browser's pane does with files: copy, paste, drop, rename, trash, favourites, the
/// desktop's picture, and the undo of these.
class FileController {
 public:
  static constexpr LocalizedText kNotTrashed{
      "MainWindow.kNotTrashed", "The file \"<filename>\" could not be moved to the trash."};
  static constexpr LocalizedText kNotCopied{"MainWindow.kNotCopied",
                                            "The file \"<filename>\" could not be copied here."};
  static constexpr LocalizedText kNotRenamed{
      "MainWindow.kNotRenamed", "The file \"<filename>\" could not be renamed to \"<name>\"."};
  static constexpr LocalizedText kNameTaken{
      "MainWindow.kNameTaken",
      "The name \"<name>\" is taken by another file. Please choose a different name."};
  static constexpr LocalizedText kNameNotAllowed{
      "MainWindow.kNameNotAllowed", "The name \"<name>\" cannot be used: names hold no \"/\"."};
  static constexpr LocalizedText kNotFavorite{
      "MainWindow.kNotFavorite", "The file \"<filename>\" could not be added to the favorites."};
  static constexpr LocalizedText kNoDesktopPicture{
      "MainWindow.kNoDesktopPicture", "This desktop did not take the picture \"<filename>\"."};
  static constexpr LocalizedText kNotPutBack{
      "MainWindow.kNotPutBack",
      "The file \"<filename>\" could not be taken out of the trash: its old place is not free."};
  static constexpr LocalizedText kTrashOpen{"FileController.kTrashOpen",
                                            "The document \"<filename>\" is open in the editor."};
  static constexpr LocalizedText kTrashOpenExplanation{
      "FileController.kTrashOpenExplanation",
      "If it goes to the trash, the editor keeps the photo, and saving it will ask for another "
      "place."};
  static constexpr LocalizedText kCopying{"FileController.kCopying", "Copying files..."};
  static constexpr LocalizedText kTrashing{"FileController.kTrashing",
                                           "Moving files to the trash..."};
  static constexpr LocalizedText kTakingBack{"FileController.kTakingBack", "Taking back..."};
  static constexpr LocalizedText kCopyChanged{
      "FileController.kCopyChanged",
      "The copy \"<filename>\" stays: it was changed since it was made."};

  FileController(const Desk& desk, EditSession& session, Commands& commands,
                 BrowserController& browser);
  FileController(const FileController&) = delete;
  FileController& operator=(const FileController&) = delete;

  /// Copies files into a folder under free names, as a job, then selects them.
  void CopyFilesInto(const std::vector<FolderItem>& files, const FolderItem& folder);
  /// The same of those that lie elsewhere: what is dropped where it lies stays one.
  void DropFilesInto(const std::vector<FolderItem>& files, const FolderItem& folder);
  void FileMoveToTrash();
  /// Moves these to the trash, unasked, in a job that can be taken back.
  void Trash(const std::vector<FolderItem>& files);
  /// Links to what is selected, in the user's folder of favourites.
  void AddFavoritesMethod();
  Jobs& Work() { return jobs_; }
  /// A step of the history that somebody else takes back. What is given back forgets it: nothing of
  /// it was done.
  std::function<void()> AddStep(const LocalizedText& name, std::function<void()> takeBack);

  /// The same files are selected as when something was begun: what came of it may be selected in
  /// their place.
  std::function<void(const std::vector<FolderItem>&)> SelectIfUntouched();

  /// Something was added to the folder of favourites.
  Event<const FolderItem& /*folder*/> FavoriteAdded;
  /// Files or folders have other places now.
  Event<const FileMoves&> Moved;

 private:
  /// What undo takes back: files that went to the trash, a rename, or copies. Known from the start
  /// of a job, which fills it in.
  struct Step {
    enum Kind { kTrash, kRename, kCopy, kOther } Is = kTrash;
    std::vector<FolderitemExtensions::TrashedFile> trashed;
    FolderItem before;
    FolderItem after;
    std::vector<FileCopier::Copy> copies;
    /// Of somebody else's; else null.
    std::function<void()> takeBack;
    const LocalizedText* name = nullptr;
  };
  using StepPointer = std::shared_ptr<Step>;
  void AddCommands(Commands& commands);
  void CopyFiles();
  void PasteFiles();
  void Copy(const std::vector<FolderItem>& files, const FolderItem& folder, bool thoseElsewhere);
  /// Does a step in a job; the step goes if nothing of it was done.
  void Run(const LocalizedText& text, const StepPointer& step,
           std::function<void(Jobs::Control&)> work, std::function<void()> then);
  /// The user is asked about the open document, should it be among them.
  bool MayTrash(const std::vector<FolderItem>& files);
  void UndoStep();
  void TakeBack();
  void TakeBack(const StepPointer& step);
  void TakeBackCopies(const StepPointer& step);
  /// Gives a file another place or name in a job, and tells why it could not be done.
  void MoveFile(const FolderItem& from, const FolderItem& to,
                const std::function<void(std::error_code)>& then);
  /// What was not taken back can be tried again.
  void Keep(const StepPointer& step);
  bool RenameFile(const browserItem& item, const std::string& name);
  void SetDesktopPicture();
  std::vector<FolderItem> FilesOnClipboard() const;
  std::string CopyCaption() const;
  std::string PasteCaption() const;
  std::string UndoCaption() const;
  bool PicturesSelected() const;
  void Tell(const LocalizedText& text, const FolderItem& file);

  Desk desk_;
  EditSession& session_;
  Commands& commands_;
  BrowserController& browser_;
  std::vector<StepPointer> steps_;
  Jobs jobs_;
  /// What the desktop is asked for; it may answer late.
  Jobs asking_;
};

}  // namespace brivolant
