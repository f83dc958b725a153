// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/values/Menu.h"

namespace brivolant {

/// Kinds of control rows; see EffectModuleControl.
enum ControlKind {
  kControlText = 0,
  kControlSlider = 1,
  kControlCheckBox = 2,
  kControlButton = 3,
  kControlColorWell = 4,
  kControlMenu = 5,
};

/// Shows a menu at a position of the screen. Gives the index of the chosen item, or nothing when
/// it was dismissed.
using MenuPresenter = std::function<std::optional<int>(const MenuItem& menu, int x, int y)>;

/// One row of the effect panel.
struct EffectModuleControl {
  /// Label, usually with its trailing colon.
  std::string Caption;
  /// A ControlKind.
  int Type = kControlText;
  /// For kControlMenu: the children are the choices.
  std::optional<MenuItem> Menu;
  /// For kControlSlider: a tick across the track as a fraction of its width; 0 means none.
  float DrawLine = 0;

  /// Lets the user choose. The result is the index of the first checked item afterwards, 0 if none
  /// is, -1 without a menu; so dismissing gives the current choice.
  int ShowMenu(int x, int y, const MenuPresenter& present);
};

}  // namespace brivolant
