// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "app/core/Desk.h"
#include "app/core/Jobs.h"
#include "browser/browserItem.h"
#include "platform/values/Event.h"
#include "platform/values/Text.h"

namespace brivolant {

class BrowserPane;
class Commands;
class EditSession;
class FileHistory;

/// What the browser's pane does with the files that are selected: other names, the trash,
/// favourites, the desktop's picture, and showing where they lie.
class FileController {
 public:
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
  static constexpr LocalizedText kTrashing{"FileController.kTrashing",
                                           "Moving files to the trash..."};

  FileController(const Desk& desk, EditSession& session, Commands& commands, BrowserPane& pane,
                 FileHistory& history);
  FileController(const FileController&) = delete;
  FileController& operator=(const FileController&) = delete;

  void FileMoveToTrash();
  /// Moves these to the trash, unasked, in a job that can be taken back.
  void Trash(const std::vector<FolderItem>& files);
  /// Links to what is selected, in the user's folder of favourites.
  void AddFavoritesMethod();

  /// Something was added to the folder of favourites.
  Event<const FolderItem& /*folder*/> FavoriteAdded;

 private:
  void AddCommands(Commands& commands);
  bool RenameFile(const browserItem& item, const std::string& name);
  void SetDesktopPicture();
  /// Shows where they lie in the desktop's file manager, or where what they link to does.
  void Reveal(bool original);
  bool AliasSelected() const;
  bool PicturesSelected() const;

  Desk desk_;
  EditSession& session_;
  BrowserPane& pane_;
  FileHistory& history_;
  /// What the desktop is asked for; it may answer late.
  Jobs asking_;
};

}  // namespace brivolant
