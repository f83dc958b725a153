// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/core/Desk.h"
#include "app/session/EditSession.h"
#include "platform/values/Event.h"
#include "platform/values/Text.h"

namespace brivolant {

class Commands;
class Panes;
struct DragItem;

/// Opening and saving a photo, with the dialogs and questions that belong to it.
class DocumentController {
 public:
  static constexpr LocalizedText kAskToSaveMessage{
      "MainWindow.kAskToSaveMessage",
      "Do you want to save the changes you made to the photo <filename>?"};
  static constexpr LocalizedText kAskToSaveExplaination{
      "MainWindow.kAskToSaveExplaination",
      "If you choose not to save the changes you have made to the photo, they will be lost."};
  static constexpr LocalizedText kNewFromClipboard{"MainWindow.kNewFromClipboard",
                                                   "New Image from Clipboard"};
  static constexpr LocalizedText kDroppedPicture{"MainWindow.kDroppedPicture", "New Image"};
  static constexpr LocalizedText kOpenTitle{"MainWindow.kOpenTitle", "Open a Photo"};
  static constexpr LocalizedText kSaveTitle{"MainWindow.kSaveTitle", "Save the Photo"};
  static constexpr LocalizedText kSaveCopyTitle{"MainWindow.kSaveCopyTitle",
                                                "Save the Finished Picture"};
  static constexpr LocalizedText kAllPhotos{"MainWindow.kAllPhotos", "Photos and Documents"};
  static constexpr LocalizedText kAllFiles{"MainWindow.kAllFiles", "All Files"};

  DocumentController(const Desk& desk, EditSession& session, Commands& commands, Panes& panes);
  ~DocumentController();
  DocumentController(const DocumentController&) = delete;
  DocumentController& operator=(const DocumentController&) = delete;

  /// Asks what is to become of changes. True if one must not go on now: the user cancelled, or a
  /// save is under way, and `then` follows it if it succeeds.
  bool AskToSave(const std::function<void()>& then);
  /// Saves; asks where to if the photo has no place yet. `then` hears whether it was saved.
  void SaveMethod(std::function<void(bool)> then);
  /// Asks for a place and writes the finished picture there.
  void SaveACopyAs();
  void ChooseAndOpen();
  /// Opens what was dropped on the photo.
  void Drop(const DragItem& item);
  /// Photos that the user chose.
  std::vector<FolderItem> ChoosePhotos(const LocalizedText& title);

  /// More photos were chosen than one can be edited.
  Event<const std::vector<FolderItem>&> OthersChosen;

 private:
  void AddCommands(Commands& commands);
  void NewFromClipboard();
  FolderItem AskWhereToSave();
  /// Nil for a photo that was pasted.
  FolderItem ShownFile() const;
  bool Editing() const { return session_.Document() != nullptr; }

  Desk desk_;
  EditSession& session_;
  Panes& panes_;
};

}  // namespace brivolant
