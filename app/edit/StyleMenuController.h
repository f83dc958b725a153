// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "app/core/Desk.h"
#include "engine/EffectModuleControl.h"
#include "platform/values/Text.h"

class QPoint;

namespace brivolant {

class Commands;
class EditSession;
class EditorPane;
class OneClickWonder;
class Panes;
class StylesController;
class templateSelector;

/// What can be done with a style itself: the menu on its tile, and keeping the stack as one.
class StyleMenuController {
 public:
  static constexpr LocalizedText kLocked1ClickMessage{
      "MainWindow.kLocked1ClickMessage",
      "Editing of <filename> is prohibited because it is eiher locked or stored on a locked "
      "drive/disk, such as a CD-ROM"};
  static constexpr LocalizedText kLocked1ClickExplaination{
      "MainWindow.kLocked1ClickExplaination",
      "In order to edit <filename> it must either be unlocked in the finder or copied to a "
      "writeable drive first, such as your hard drive."};
  static constexpr LocalizedText kShowInFinder{"MainWindow.kShowInFinder", "Show In Finder"};
  static constexpr LocalizedText kCancel{"MainWindow.kCancel", "Cancel"};
  static constexpr LocalizedText kEditStyle{"MainWindow.kEditStyle", "Edit This 1-Click Style"};
  static constexpr LocalizedText kShareStyle{"MainWindow.kShareStyle", "Share via e-mail..."};
  static constexpr LocalizedText kRemove{"MainWindow.kRemove", "&Remove"};
  static constexpr LocalizedText keMail1ClickMessage{
      "MainWindow.keMail1ClickMessage", "Here is a cool Brivolant Photos 1-Click Style"};
  static constexpr LocalizedText kNoMailProgram{"MainWindow.kNoMailProgram",
                                                "There is no mail program that could be started."};
  static constexpr LocalizedText kDelete1ClickMessage{
      "MainWindow.kDelete1ClickMessage", "Are you sure you wish to remove <filename>?"};
  static constexpr LocalizedText kDelete1ClickExplaination{
      "MainWindow.kDelete1ClickExplaination",
      "If you remove this 1-Click Style, the file will be moved to the Trash. Giving you the "
      "opportunity to undo this action, however once you empty your Trash it will be gone "
      "forever."};

  StyleMenuController(const Desk& desk, EditSession& session, Commands& commands, Panes& panes,
                      EditorPane& pane, StylesController& styles);
  StyleMenuController(const StyleMenuController&) = delete;
  StyleMenuController& operator=(const StyleMenuController&) = delete;

  /// How the menu of a tile is shown.
  MenuPresenter PresentMenu;

 private:
  /// Keeps the present stack as a style.
  void SaveStyleAs();
  void StyleMenu(int index, const QPoint& at);
  void TellLocked(const OneClickWonder& style);
  void RemoveStyle(const std::shared_ptr<OneClickWonder>& style);

  Desk desk_;
  EditSession& session_;
  Panes& panes_;
  StylesController& styles_;
  templateSelector& bar_;
};

}  // namespace brivolant
