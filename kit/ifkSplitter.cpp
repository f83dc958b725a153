// SPDX-License-Identifier: MIT
#include "kit/ifkSplitter.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "kit/ifkColors.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

constexpr LocalizedText kOnlyControls{
    "ifkSplitter.kOnlyControls", "Sorry but currently the ifkSplitter only accepts RectControl"};

}  // namespace

ifkSplitter::ifkSplitter(QWidget* parent, Dialogs& dialogs) : QWidget(parent), dialogs_(dialogs) {}

int ifkSplitter::Position() const {
  return Direction == kVerticalBar ? x() : y();
}

int ifkSplitter::Limited(int position) const {
  const int extent = Direction == kVerticalBar ? width() : height();
  if (Maximum > 0) position = std::min(position, Maximum - extent);
  return std::max(position, Minimum);
}

void ifkSplitter::MoveBar(int position) {
  const int delta = position - Position();
  if (delta == 0) return;
  if (Direction == kVerticalBar) {
    move(position, y());
  } else {
    move(x(), position);
  }
  AdjustControls(delta);
}

void ifkSplitter::Position(int position) {
  MoveBar(Limited(position));
  if (Dragging) Dragging();
  if (Dragged) Dragged();
}

void ifkSplitter::AddControl(QObject* control, int rule) {
  auto* widget = qobject_cast<QWidget*>(control);
  if (widget == nullptr) {
    dialogs_.Message(kOnlyControls.Text(), {});
    return;
  }
  RemoveControl(control);
  myControls.push_back({widget, rule});
}

void ifkSplitter::RemoveControl(QObject* control) {
  std::erase_if(myControls,
                [control](const Tied& tied) { return !tied.control || tied.control == control; });
}

void ifkSplitter::AdjustControls(int delta) {
  for (const Tied& tied : myControls) {
    if (!tied.control) continue;
    QRect rect = tied.control->geometry();
    switch (tied.rule) {
      case kMoves:
        rect.translate(Direction == kVerticalBar ? delta : 0,
                       Direction == kVerticalBar ? 0 : delta);
        break;
      case kLeftEdge:
        rect.setLeft(rect.left() + delta);
        break;
      case kTopEdge:
        rect.setTop(rect.top() + delta);
        break;
      case kRightEdge:
        rect.setWidth(rect.width() + delta);
        break;
      case kBottomEdge:
        rect.setHeight(rect.height() + delta);
        break;
      default:
        break;
    }
    tied.control->setGeometry(rect);
  }
}

int ifkSplitter::Place(const QPointF& global) const {
  const QPointF at = parentWidget() == nullptr ? global : parentWidget()->mapFromGlobal(global);
  return static_cast<int>(std::lround(Direction == kVerticalBar ? at.x() : at.y()));
}

void ifkSplitter::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), ifkColors::FillColor());
  painter.setPen(ifkColors::FrameActive());
  if (Direction == kVerticalBar) {
    painter.drawLine(width() / 2, 0, width() / 2, height());
  } else {
    painter.drawLine(0, height() / 2, width(), height() / 2);
  }
}

void ifkSplitter::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  pressed_ = true;
  pressOffset_ = Place(event->globalPosition()) - Position();
}

void ifkSplitter::mouseMoveEvent(QMouseEvent* event) {
  if (!pressed_) return;
  const int position = Limited(Place(event->globalPosition()) - pressOffset_);
  if (position == Position()) return;
  MoveBar(position);
  if (Dragging) Dragging();
}

void ifkSplitter::mouseReleaseEvent(QMouseEvent* event) {
  if (!pressed_) return;
  pressed_ = false;
  MoveBar(Limited(Place(event->globalPosition()) - pressOffset_));
  if (Dragged) Dragged();
}

void ifkSplitter::enterEvent(QEnterEvent*) {
  setCursor(Direction == kVerticalBar ? Qt::SplitHCursor : Qt::SplitVCursor);
}

}  // namespace brivolant
