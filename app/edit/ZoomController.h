// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <string>
#include <utility>
#include <vector>

#include "app/session/EditSession.h"
#include "app/session/FullRender.h"
#include "platform/values/Event.h"
#include "platform/values/Text.h"

namespace brivolant {

class Commands;
class EditorDisplay;
class EditorPane;

/// How close the photo is looked at: the commands, the scale in the title, and the photo at its
/// full size for whoever looks closer than the preview shows.
class ZoomController {
 public:
  static constexpr LocalizedText kPercent{"ZoomController.kPercent", "<percent>%"};

  ZoomController(const Desk& desk, EditSession& session, Commands& commands, EditorPane& pane);
  ~ZoomController();
  ZoomController(const ZoomController&) = delete;
  ZoomController& operator=(const ZoomController&) = delete;

  /// Renders what is shown sharply.
  FullRender& Full() { return full_; }
  /// The full picture of what is set now is there.
  bool Sharp() const { return ready_; }

 private:
  void AddCommands(Commands& commands);
  bool Editing() { return session_.Document() != nullptr; }
  void ShowScale();
  /// Sees to it that what is rendered is what is wanted; `rendered` if another preview is there.
  void Follow(bool rendered);
  /// Breaks off and forgets; the photo before the effects may be the same still.
  void Drop(const Picture& before = {});
  void Render();
  void Take(const FullRender::Result& result);
  /// What the full picture follows from: the image, and what is done with it.
  std::string Image();
  std::string Settings();

  EditSession& session_;
  EditorPane& pane_;
  EditorDisplay& display_;
  FullRender full_;
  /// A change is followed when the changes rest: while a slider moves, the preview needs all cores.
  QTimer rests_;
  // Of the full picture that is there, under way or about to be begun; empty without one.
  std::string image_;
  std::string settings_;
  bool ready_ = false;
  /// The photo before the effects comes with it.
  bool before_ = false;
  FullRender::Result result_;
  /// Fitted, and at 1:1: what the menu marks.
  std::pair<bool, bool> marks_;
  std::vector<Listening> listening_;
};

}  // namespace brivolant
