// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>

class QLineEdit;

namespace brivolant {

/// A slider with live or deferred scrolling: deferred, a ghost thumb shows where the value will go
/// at the release. Its value can be followed by a text field.
class ifkSlider : public QWidget {
 public:
  explicit ifkSlider(QWidget* parent = nullptr);

  int Minimum = 0;
  int Maximum = 100;
  bool LiveScroll = true;
  int NumTickMarks = 0;
  /// 2 and 3 are smaller.
  int Size = 0;

  int value() const { return mValue; }
  /// Limits to Minimum and Maximum; a change is told to the connected field and raised.
  void value(int newValue);
  /// A text field that shows the value; null for none.
  void connectedControl(QLineEdit* field);
  /// Where a deferred drag is; only meaningful while the thumb is pressed.
  int ghostValue() const { return ghostValue_; }
  bool ThumbPressed() const { return thumbPressed_; }
  /// The value at a position in the control. The track runs from 0 to Maximum.
  int ValueAt(int x, int y) const;

  /// The owner may take the press.
  std::function<bool(int x, int y)> MouseDown;
  std::function<void()> DraggingStarted;
  std::function<void()> DraggingStopped;
  std::function<void()> ValueChanged;

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  int ThumbWidth() const;
  bool Horizontal() const { return width() > height(); }
  QRectF ThumbAt(int value) const;

  int mValue = 0;
  int prevValue = 0;
  int ghostValue_ = 0;
  bool thumbPressed_ = false;
  bool mouseOver_ = false;
  QPointer<QLineEdit> connected_;
};

}  // namespace brivolant
