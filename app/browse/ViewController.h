// SPDX-License-Identifier: MIT
#pragma once

#include "app/core/Desk.h"

namespace brivolant {

class BrowserPane;
class Commands;

/// How the browser shows its rows: the view, the sizes and the order, and the commands for them.
class ViewController {
 public:
  ViewController(const Desk& desk, Commands& commands, BrowserPane& pane);
  ViewController(const ViewController&) = delete;
  ViewController& operator=(const ViewController&) = delete;

  /// As they were when the window was last closed.
  void Restore();

 private:
  void Wire();
  void AddViews();
  void AddOrders();
  void ModeChanged();
  void KeepIconSize();
  /// By a column; by that of now the other way round if it is negative.
  void Sort(int column);

  Desk desk_;
  Commands& commands_;
  BrowserPane& pane_;
  /// The slider is being set.
  bool updating_ = false;
};

}  // namespace brivolant
