// SPDX-License-Identifier: MIT
#include "kit/ifkButton.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "kit/DesktopServices.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/ifkColors.h"

namespace brivolant {

ifkButton::ifkButton(QWidget* parent, const QString& caption) : QWidget(parent), caption_(caption) {
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(caption);
}

void ifkButton::Caption(const QString& caption) {
  caption_ = caption;
  setAccessibleName(caption);
  updateGeometry();
  update();
}

void ifkButton::icon(const QIcon& icon) {
  icon_ = icon;
  updateGeometry();
  update();
}

void ifkButton::Value(bool value) {
  mValue = value;
  update();
}

bool ifkButton::Inside(const QPoint& at) const {
  return at.x() > 0 && at.y() > 0 && at.x() < width() && at.y() < height();
}

void ifkButton::Act() {
  if (Type == kToggle) mValue = !mValue;
  if (Type == kSets) mValue = true;
  update();
  if (Action) Action();
}

void ifkButton::Push() {
  if (!isEnabled()) return;
  mouseStatus_ = kPressed;
  repaint();
  if (Action) Action();
  mouseStatus_ = kUp;
  update();
}

QSize ifkButton::sizeHint() const {
  const int text = fontMetrics().horizontalAdvance(caption_);
  const int picture = icon_.isNull() ? 0 : iconSize + (caption_.isEmpty() ? 0 : 4);
  return {text + picture + (caption_.isEmpty() ? 12 : 32), 28};
}

void ifkButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool down = mouseStatus_ == kPressed || mValue;
  QColor face = palette().color(QPalette::Button);
  QColor text =
      palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText);
  if (mouseOver_ && isEnabled()) face = ifkColors::Hover();
  if (down) face = ifkColors::FrameActive();
  if (Default && isEnabled()) {
    face = down ? ifkColors::Focus().darker(115) : ifkColors::Focus();
    text = Qt::white;
  }
  const QRectF frame = QRectF(rect()).adjusted(1, 1, -1, -1);
  painter.setPen(hasFocus() ? QPen(ifkColors::FocusHighlight(), 2)
                            : QPen(ifkColors::FrameActive(), 1));
  painter.setBrush(face);
  painter.drawRoundedRect(frame, 6, 6);
  QFont font = painter.font();
  font.setBold(Bold);
  painter.setFont(font);
  painter.setPen(text);
  InterfaceKitSupport::DrawCaptionAndIcon(painter, rect(), caption_, icon_, iconSize, TextAlignment,
                                          iconPlacement, isEnabled());
}

void ifkButton::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPoint at = event->position().toPoint();
  customControl_ = MouseDown && MouseDown(at.x(), at.y());
  if (customControl_) return;
  mouseStatus_ = kPressed;
  update();
  if (!Menu) return;
  const QPoint corner = mapToGlobal(QPoint(0, height()));
  const std::optional<int> chosen = PopUpMenu(*Menu, corner.x(), corner.y());
  mouseStatus_ = kUp;
  update();
  if (MenuAction) MenuAction(chosen);
}

void ifkButton::mouseMoveEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  if (customControl_) {
    if (MouseDrag) MouseDrag(at.x(), at.y());
    return;
  }
  if (!event->buttons().testFlag(Qt::LeftButton)) return;
  const int status = Inside(at) ? kPressed : kUp;
  if (status != mouseStatus_) {
    mouseStatus_ = status;
    update();
  }
}

void ifkButton::mouseReleaseEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  if (customControl_) {
    customControl_ = false;
    if (MouseUp) MouseUp(at.x(), at.y());
    return;
  }
  if (Menu) return;
  const bool inside = Inside(at) && event->button() == Qt::LeftButton;
  mouseStatus_ = inside ? kReleasedInside : kUp;
  update();
  if (inside) Act();
}

void ifkButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Space) return QWidget::keyPressEvent(event);
  mouseStatus_ = kPressed;
  repaint();
  Act();
  mouseStatus_ = kUp;
  update();
}

void ifkButton::contextMenuEvent(QContextMenuEvent* event) {
  if (ContextualMenu) ContextualMenu(event->pos().x(), event->pos().y());
}

void ifkButton::enterEvent(QEnterEvent*) {
  mouseOver_ = true;
  update();
}

void ifkButton::leaveEvent(QEvent*) {
  mouseOver_ = false;
  update();
}

bool ifkButton::event(QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
  return QWidget::event(event);
}

}  // namespace brivolant
