// SPDX-License-Identifier: MIT
#include "kit/ifkSlider.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "kit/ifkColors.h"

namespace brivolant {
namespace {

constexpr int kThumb = 16;
constexpr int kSmallThumb = 14;
constexpr int kMiniThumb = 12;
constexpr double kGroove = 4;

}  // namespace

ifkSlider::ifkSlider(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
}

void ifkSlider::value(int newValue) {
  mValue = std::clamp(newValue, Minimum, std::max(Minimum, Maximum));
  if (mValue == prevValue) return;
  if (connected_) connected_->setText(QString::number(mValue));
  prevValue = mValue;
  update();
  if (ValueChanged) ValueChanged();
}

void ifkSlider::connectedControl(QLineEdit* field) {
  connected_ = field;
  if (field != nullptr) field->setText(QString::number(mValue));
}

int ifkSlider::ThumbWidth() const {
  if (Size == 2) return kSmallThumb;
  return Size == 3 ? kMiniThumb : kThumb;
}

int ifkSlider::ValueAt(int x, int y) const {
  const double thumb = ThumbWidth();
  const double length = (Horizontal() ? width() : height()) - thumb;
  const double at = (Horizontal() ? x : y) - thumb / 2;
  if (length <= 0) return std::max(0, Minimum);
  return std::clamp(static_cast<int>(std::lround(Maximum / length * at)), 0, Maximum);
}

QRectF ifkSlider::ThumbAt(int value) const {
  const double thumb = ThumbWidth();
  const double length = (Horizontal() ? width() : height()) - thumb;
  const double at = Maximum == 0 ? 0 : length * value / Maximum;
  return Horizontal() ? QRectF(at, (height() - thumb) / 2, thumb, thumb)
                      : QRectF((width() - thumb) / 2, at, thumb, thumb);
}

QSize ifkSlider::sizeHint() const {
  return {140, 24};
}

void ifkSlider::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (!isEnabled()) painter.setOpacity(0.4);
  const double thumb = ThumbWidth();
  const QRectF groove = Horizontal()
                            ? QRectF(thumb / 2, (height() - kGroove) / 2, width() - thumb, kGroove)
                            : QRectF((width() - kGroove) / 2, thumb / 2, kGroove, height() - thumb);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ifkColors::FrameActive());
  painter.drawRoundedRect(groove, kGroove / 2, kGroove / 2);
  const QRectF place = ThumbAt(mValue);
  QRectF filled = groove;
  if (Horizontal()) {
    filled.setRight(place.center().x());
  } else {
    filled.setBottom(place.center().y());
  }
  painter.setBrush(ifkColors::Focus());
  painter.drawRoundedRect(filled, kGroove / 2, kGroove / 2);
  painter.setPen(QPen(ifkColors::FrameActive(), 1));
  for (int i = 0; i < NumTickMarks; ++i) {
    const double at = thumb / 2 + (groove.width() * i) / std::max(NumTickMarks - 1, 1);
    if (Horizontal()) painter.drawLine(QPointF(at, height() - 3), QPointF(at, height()));
  }
  const auto draw = [&](const QRectF& rect, double opacity) {
    painter.setOpacity(opacity * (isEnabled() ? 1 : 0.4));
    painter.setPen(QPen(thumbPressed_ || hasFocus() ? ifkColors::Focus() : ifkColors::FrameActive(),
                        hasFocus() ? 2 : 1));
    painter.setBrush(ifkColors::Thumb(thumbPressed_ || mouseOver_));
    painter.drawEllipse(rect.adjusted(1, 1, -1, -1));
  };
  draw(place, 1);
  if (thumbPressed_ && !LiveScroll) draw(ThumbAt(ghostValue_), 0.5);
}

void ifkSlider::mousePressEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  if (MouseDown && MouseDown(at.x(), at.y())) return;
  if (event->button() != Qt::LeftButton) return;
  if (DraggingStarted) DraggingStarted();
  prevValue = mValue;
  thumbPressed_ = true;
  if (LiveScroll) {
    value(ValueAt(at.x(), at.y()));
  } else {
    ghostValue_ = ValueAt(at.x(), at.y());
  }
  update();
}

void ifkSlider::mouseMoveEvent(QMouseEvent* event) {
  if (!thumbPressed_) return;
  const QPoint at = event->position().toPoint();
  if (LiveScroll) {
    value(ValueAt(at.x(), at.y()));
  } else {
    ghostValue_ = ValueAt(at.x(), at.y());
    update();
  }
}

void ifkSlider::mouseReleaseEvent(QMouseEvent* event) {
  if (!thumbPressed_) return;
  thumbPressed_ = false;
  const QPoint at = event->position().toPoint();
  if (!LiveScroll) value(ValueAt(at.x(), at.y()));
  if (DraggingStopped) DraggingStopped();
  update();
}

void ifkSlider::keyPressEvent(QKeyEvent* event) {
  const int step = std::max(1, (Maximum - Minimum) / std::max(NumTickMarks, 1));
  const int by = event->modifiers().testFlag(Qt::ShiftModifier) || NumTickMarks == 0 ? 1 : step;
  int wanted = mValue;
  switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_End:
      wanted = Maximum;
      break;
    case Qt::Key_Down:
    case Qt::Key_Home:
      wanted = Minimum;
      break;
    case Qt::Key_Left:
      wanted -= by;
      break;
    case Qt::Key_Right:
      wanted += by;
      break;
    default:
      return QWidget::keyPressEvent(event);
  }
  if (DraggingStarted) DraggingStarted();
  value(wanted);
  if (DraggingStopped) DraggingStopped();
}

void ifkSlider::enterEvent(QEnterEvent*) {
  mouseOver_ = true;
  update();
}

void ifkSlider::leaveEvent(QEvent*) {
  mouseOver_ = false;
  update();
}

void ifkSlider::focusInEvent(QFocusEvent*) {
  update();
}

void ifkSlider::focusOutEvent(QFocusEvent*) {
  update();
}

}  // namespace brivolant
