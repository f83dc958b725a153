// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QWidget>
#include <functional>
#include <optional>

#include "platform/values/Menu.h"

namespace brivolant {

/// A push button, a toggle, or a button that only sets; with a caption, an icon and perhaps a menu.
class ifkButton : public QWidget {
 public:
  enum ButtonType { kPush = 0, kToggle = 1, kSets = 2 };
  enum Status { kUp = 0, kPressed = 1, kReleasedInside = 3 };

  explicit ifkButton(QWidget* parent = nullptr, const QString& caption = {});

  int Type = kPush;
  int TextAlignment = 1;
  int iconPlacement = 0;
  int iconSize = 16;
  bool Bold = false;
  /// The button of the Return key: drawn in the accent colour.
  bool Default = false;
  /// Pops up at a press; its choice goes to MenuAction.
  std::optional<MenuItem> Menu;

  const QString& Caption() const { return caption_; }
  void Caption(const QString& caption);
  void icon(const QIcon& icon);
  bool Value() const { return mValue; }
  void Value(bool value);
  int mouseStatus() const { return mouseStatus_; }
  /// Shows the pressed state, raises Action, and shows the released state.
  void Push();

  /// The owner may take the press; then drag and release are its own too.
  std::function<bool(int x, int y)> MouseDown;
  std::function<void(int x, int y)> MouseDrag;
  std::function<void(int x, int y)> MouseUp;
  std::function<void()> Action;
  /// Index of the chosen item; nothing when the menu was dismissed.
  std::function<void(std::optional<int>)> MenuAction;
  std::function<void(int x, int y)> ContextualMenu;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void Act();
  bool Inside(const QPoint& at) const;

  QString caption_;
  QIcon icon_;
  bool mValue = false;
  int mouseStatus_ = kUp;
  bool customControl_ = false;
  bool mouseOver_ = false;
};

}  // namespace brivolant
