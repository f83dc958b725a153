// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <vector>

#include "app/core/Desk.h"
#include "app/session/EditSession.h"
#include "platform/values/Event.h"

namespace brivolant {

class Commands;
class EditorPane;
class OneClickWonder;
class Panes;
class TilesController;
class templateSelector;

/// The bar of 1-Click styles: what is in it, what is lit, and applying one.
class StylesController {
 public:
  StylesController(const Desk& desk, EditSession& session, Commands& commands, Panes& panes,
                   EditorPane& pane, TilesController& tiles);
  StylesController(const StylesController&) = delete;
  StylesController& operator=(const StylesController&) = delete;

  /// Fills the bar with the styles of the current category.
  void updateStylesList();
  /// Makes a style's category the current one.
  void ShowStyle(const OneClickWonder& style);
  void ShowHideStyles(bool visible);
  /// Reads the styles, once.
  void LoadStyles();
  /// What the session knows a tile by, so that no other category takes it for its own.
  int SelectionOf(int index) const;

 private:
  void Wire();
  void ShowSelection();
  bool ApplyOneClick(int index);

  Desk desk_;
  EditSession& session_;
  Panes& panes_;
  EditorPane& pane_;
  TilesController& tiles_;
  templateSelector& bar_;
  QTimer folderTimer_;
  /// Of the tiles in the bar.
  int shownCategory_ = -1;
  std::vector<Listening> listening_;
};

}  // namespace brivolant
