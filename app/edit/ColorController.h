// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/core/Desk.h"
#include "app/session/EditSession.h"
#include "kit/ColorPanelBridge.h"
#include "platform/values/Event.h"

namespace brivolant {

class Commands;
class EditorPane;
class ScreenColor;

/// Colours of the selected effect: its wells and the desktop's colour panel, and a colour that is
/// picked from the screen.
class ColorController {
 public:
  ColorController(const Desk& desk, EditSession& session, Commands& commands, EditorPane& pane);
  ~ColorController();
  ColorController(const ColorController&) = delete;
  ColorController& operator=(const ColorController&) = delete;

  MyColorPanelHelper& Panel() { return panel_; }

 private:
  void ColorWellClicked(int index);
  void ColorChanged(const RGBAColor& color);
  void SelectedEffectChanged();
  /// Index of the first well of the selected effect, or -1.
  int FirstWell() const;
  void ShowColors();
  void PickFor(effectModule& module);

  Desk desk_;
  EditSession& session_;
  EditorPane& pane_;
  MyColorPanelHelper panel_;
  /// While the newest entry of the history is that of the colour in work, a movement of the pointer
  /// in the panel is no new one.
  int recorded_ = -1;
  std::unique_ptr<ScreenColor> picker_;
  std::vector<Listening> listening_;
};

}  // namespace brivolant
