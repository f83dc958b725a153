// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <string>
#include <vector>

#include "app/core/Desk.h"
#include "app/session/EditSession.h"
#include "platform/values/Event.h"
#include "platform/values/Text.h"

namespace brivolant {

class Commands;
class DocumentController;
class EditorPane;
class Panes;

/// The editor's pane over the session: panel, layers, title and display.
class EditorController {
 public:
  static constexpr LocalizedText kImageInfo{"MainWindow.kImageInfo",
                                            "<width> x <height> (<megapixel>, Ratio: <ratio>)"};

  EditorController(const Desk& desk, EditSession& session, Commands& commands, Panes& panes,
                   EditorPane& pane, DocumentController& documents);
  ~EditorController();
  EditorController(const EditorController&) = delete;
  EditorController& operator=(const EditorController&) = delete;

  void ShowHideEffects(bool visible);
  /// Size, megapixels and proportions of the document's image; empty without one.
  std::string getSimpleImageInfo() const;

  /// The title's button for the whole screen was pressed.
  Event<> FullScreenWanted;
  /// The title's button for the bar of styles was pressed.
  Event<bool> StylesToggled;

  QTimer ResizedUpdateTimer;

 private:
  void WireModules();
  void WirePanel();
  void WireDisplay();
  void Show();
  void ShowTitle();
  bool Editing() const;

  Desk desk_;
  EditSession& session_;
  Commands& commands_;
  Panes& panes_;
  EditorPane& pane_;
  DocumentController& documents_;
  /// Controls are being set from the session.
  bool updating_ = false;
  std::vector<Listening> listening_;
};

}  // namespace brivolant
