// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <string>

#include "kit/ifkWindow.h"
#include "platform/pictures/Picture.h"

namespace brivolant {

/// Shows one picture on the whole screen. Escape, Space, F11 or a click closes it.
class QuickLookWindow final : public ifkWindow {
 public:
  explicit QuickLookWindow(QWidget* parent = nullptr);
  void ShowFullScreen(const Picture& picture, const std::string& name);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  Picture picture_;
};

}  // namespace brivolant
