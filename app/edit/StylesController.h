// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QTimer>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/core/Desk.h"
#include "app/session/EditSession.h"
#include "platform/values/Event.h"
#include "platform/values/Menu.h"
#include "platform/values/Text.h"

class QPoint;

namespace brivolant {

class Commands;
class EditorPane;
class OneClickWonder;
class Panes;
class StylePreviews;
class StyleTiles;
class templateSelector;

/// The bar of 1-Click styles: tiles of the open photo, applying, making, sharing, removing.
class StylesController {
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

  StylesController(const Desk& desk, EditSession& session, Commands& commands, Panes& panes,
                   EditorPane& pane);
  ~StylesController();
  StylesController(const StylesController&) = delete;
  StylesController& operator=(const StylesController&) = delete;

  /// Fills the bar with the styles of the current category.
  void updateStylesList();
  /// Makes a style's category the current one.
  void ShowStyle(const OneClickWonder& style);
  void ShowHideStyles(bool visible);
  /// How the menu of a tile is shown.
  MenuPresenter PresentMenu;

 private:
  void Wire();
  void LoadStyles();
  /// What the session knows a tile by, so that no other category takes it for its own.
  int SelectionOf(int index) const;
  void ShowSelection();
  /// Keeps the present stack as a style.
  void SaveStyleAs();
  int TileSide() const;
  static double ScaleOf(BrivolantDocument& document, const Picture& reduced);
  void RefreshTiles();
  void OrderTiles();
  void HoverStyle(int index);
  bool ApplyOneClick(int index);
  void StyleMenu(int index, const QPoint& at);
  void RemoveStyle(const std::shared_ptr<OneClickWonder>& style);

  Desk desk_;
  EditSession& session_;
  Panes& panes_;
  EditorPane& pane_;
  templateSelector& bar_;
  std::unique_ptr<StylePreviews> previews_;
  std::unique_ptr<StyleTiles> tiles_;
  std::unique_ptr<StyleTiles> hoverTile_;
  /// Of which the tiles are, and those that are ready by the styles' IDs.
  Picture tilesOf_;
  PastedFiles tilesPasted_;
  std::map<std::string, QImage> readyTiles_;
  /// The style that the photo is shown in for as long as the pointer rests on it.
  std::string hoverID_;
  QTimer folderTimer_;
  /// Of the tiles in the bar.
  int shownCategory_ = -1;
  std::vector<Listening> listening_;
};

}  // namespace brivolant
