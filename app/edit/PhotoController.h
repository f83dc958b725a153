// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "app/core/Desk.h"
#include "platform/values/Event.h"

namespace brivolant {

class Commands;
class EditSession;
class EditorPane;
class Panes;
class Picture;

/// The commands on the photo in the editor: back and forth in its history, copy and paste, turns,
/// and how it is looked at.
class PhotoController {
 public:
  PhotoController(const Desk& desk, EditSession& session, Commands& commands, Panes& panes,
                  EditorPane& pane);
  PhotoController(const PhotoController&) = delete;
  PhotoController& operator=(const PhotoController&) = delete;

  /// Shows the photo on the whole screen.
  void FullScreenMethod();

  /// A picture for the whole screen is ready.
  Event<const Picture&, const std::string& /*title*/> FullScreenReady;

 private:
  void AddHistory(Commands& commands);
  void AddExchange(Commands& commands);
  void AddViews(Commands& commands);
  void AddTurns(Commands& commands);
  void EndGestures();
  void CopyPicture();
  void CopyStyle();
  bool Editing() const;

  Desk desk_;
  EditSession& session_;
  Panes& panes_;
  EditorPane& pane_;
};

}  // namespace brivolant
