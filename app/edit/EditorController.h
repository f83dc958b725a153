// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "app/core/Desk.h"
#include "app/session/EditSession.h"
#include "platform/values/Event.h"
#include "platform/values/Text.h"

namespace brivolant {

class Commands;
class EditorPane;
class Panes;
struct DragItem;

/// The editor's pane: panel, layers, title and display over the session, opening and saving with
/// their questions, and the commands on the photo.
class EditorController {
 public:
  static constexpr LocalizedText kImageInfo{"MainWindow.kImageInfo",
                                            "<width> x <height> (<megapixel>, Ratio: <ratio>)"};
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

  EditorController(const Desk& desk, EditSession& session, Commands& commands, Panes& panes,
                   EditorPane& pane);
  ~EditorController();
  EditorController(const EditorController&) = delete;
  EditorController& operator=(const EditorController&) = delete;

  /// Asks what is to become of changes. True if one must not go on now: the user cancelled, or a
  /// save is under way, and `then` follows it if it succeeds.
  bool AskToSave(const std::function<void()>& then);
  /// Saves; asks where to if the photo has no place yet. `then` hears whether it was saved.
  void SaveMethod(std::function<void(bool)> then);
  /// Asks for a place and writes the finished picture there.
  void SaveACopyAs();
  /// Shows the photo on the whole screen.
  void FullScreenMethod();
  void ChooseAndOpen();
  void ShowHideEffects(bool visible);
  /// Size, megapixels and proportions of the document's image; empty without one.
  std::string getSimpleImageInfo() const;

  /// A picture for the whole screen is ready.
  Event<const Picture&, const std::string& /*title*/> FullScreenReady;
  /// The title's button for the bar of styles was pressed.
  Event<bool> StylesToggled;
  /// More photos were chosen than one can be edited.
  Event<const std::vector<FolderItem>&> OthersChosen;

  QTimer ResizedUpdateTimer;

 private:
  void AddCommands();
  void AddTurns();
  void WireModules();
  void WirePanel();
  void WireDisplay();
  void Show();
  void ShowTitle();
  void Drop(const DragItem& item);
  void NewFromClipboard();
  FolderItem AskWhereToSave();
  /// Photos that the user chose.
  std::vector<FolderItem> ChoosePhotos(const LocalizedText& title);
  bool Editing() const;

  Desk desk_;
  EditSession& session_;
  Commands& commands_;
  Panes& panes_;
  EditorPane& pane_;
  /// Controls are being set from the session.
  bool updating_ = false;
  std::vector<Listening> listening_;
};

}  // namespace brivolant
