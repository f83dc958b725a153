// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "kit/ifkWindow.h"

namespace brivolant {

/// A dark rounded label that says what the program is busy with. There is one.
class ProgressDialog final : public ifkWindow {
 public:
  explicit ProgressDialog(QWidget* parent = nullptr);

  /// Over a rectangle of the screen: a third of the way down.
  void Show(const std::string& text, const QRect& over);
  /// Over a window or a control; null means the main screen.
  void Show(const std::string& text, const QWidget* over);
  const std::string& StatusMessage() const { return statusMessage_; }

  /// Told of every opening and closing.
  std::function<void(bool open)> OpenChanged;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  std::string statusMessage_;
};

}  // namespace brivolant
