// SPDX-License-Identifier: MIT
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "engine/brivolantProcessorLite.h"
#include "engine/ui/EffectStackEditor.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkColors.h"

namespace brivolant {
namespace {

constexpr int kNameLeft = 24;
constexpr int kCheckBox = 12;
constexpr int kIcon = 16;

int Baseline(const QPainter& painter, int top) {
  const QFontMetrics metrics = painter.fontMetrics();
  return top + (EffectStackEditor::kRow - metrics.height()) / 2 + metrics.ascent();
}

void SetBold(QPainter& painter, bool bold) {
  QFont font = painter.font();
  font.setBold(bold);
  painter.setFont(font);
}

}  // namespace

void EffectStackEditor::paintEvent(QPaintEvent* event) {
  const QSize size = this->size() * devicePixelRatioF();
  if (Buffer.size() != size) {
    Buffer = QImage(size, QImage::Format_RGB32);
    Buffer.setDevicePixelRatio(devicePixelRatioF());
    Buffer.fill(ifkColors::DocumentWindowBackground());
  }
  if (Buffer.isNull()) return;
  {
    QPainter painter(&Buffer);
    painter.setClipRegion(event->region());
    painter.setFont(font());
    painter.setRenderHint(QPainter::Antialiasing);
    DrawAll(painter);
  }
  QPainter painter(this);
  painter.setClipRegion(event->region());
  painter.drawImage(0, 0, Buffer);
}

void EffectStackEditor::DrawAll(QPainter& painter) {
  painter.fillRect(rect(), ifkColors::DocumentWindowBackground());
  if (myProcessor != nullptr) {
    // A step of a slider paints one row of many.
    const QRect painted = painter.clipBoundingRect().toAlignedRect();
    const bool dragging = mouseStatus_ == kDraggingRow;
    const int dragTarget = dragging ? rowAtXY(0, lastY_) : -1;
    int y = -Offset();
    for (int row = 0; row <= myProcessor->Count(); ++row) {
      if (row == dragTarget) y += kRow;
      const bool apart = row == selected_ && !IsDivider(row);
      if (apart && dragging) {
        selRowTop_ = lastY_ - kRow / 2;
        selRowHeight_ = kRow;
        continue;
      }
      if (apart) {
        selRowTop_ = y;
        selRowHeight_ = HeightOf(row);
      } else if (painted.intersects(QRect(0, y, width(), kRow))) {
        DrawRow(painter, row, y);
      }
      y += apart ? selRowHeight_ : kRow;
      painter.fillRect(QRect(0, y - 1, width(), 1), ifkColors::FrameInactive());
    }
    if (Selected() != nullptr && !IsDivider(selected_)) DrawSelected(painter);
  }
  painter.fillRect(QRect(0, 0, 1, height()), ifkColors::FrameActive());
}

void EffectStackEditor::DrawRow(QPainter& painter, int row, int top) {
  const effectModule* const drawn = At(row);
  if (drawn == nullptr) return;
  const effectModule& module = *drawn;
  if (const auto* divider = dynamic_cast<const EffectModuleDivider*>(&module)) {
    painter.fillRect(QRect(0, top, width(), kRow), ifkColors::listRowColorOdd());
    const QString icon = ToQString(divider->Icon).section(QLatin1Char('.'), 0, 0);
    const QColor color = isEnabled() ? ifkColors::TextActive() : ifkColors::TextDisabled();
    painter.drawPixmap(5, top + 2,
                       SvgPixmap(icon, QSize(kIcon, kIcon), devicePixelRatioF(), color));
    SetBold(painter, true);
    painter.setPen(color);
    painter.drawText(kNameLeft, Baseline(painter, top), ToQString(module.Name()));
    SetBold(painter, false);
    if (row == selected_ && hasFocus()) {
      painter.setPen(QPen(ifkColors::FocusHighlight(), 2));
      painter.setBrush(Qt::NoBrush);
      painter.drawRect(QRect(2, top + 1, width() - 4, kRow - 3));
    }
    return;
  }
  const bool usable = isEnabled() && module.Complete();
  if (row == hoverRow_ && usable) {
    painter.fillRect(QRect(0, top, width(), kRow), ifkColors::Hover());
  }
  painter.setPen(usable ? ifkColors::TextActive() : ifkColors::TextDisabled());
  painter.drawText(kNameLeft, Baseline(painter, top), ToQString(module.Name()));
  if (module.Complete()) {
    drawCheckBox(painter, {8, top + 4, kCheckBox, kCheckBox}, module.Enabled(), false);
  }
}

void EffectStackEditor::DrawSelected(QPainter& painter) {
  const effectModule& module = *Selected();
  const int top = selRowTop_;
  painter.fillRect(QRect(0, top, width(), selRowHeight_), ifkColors::FillColor());
  const QColor accent = ifkColors::iAppsHighLightColor();
  // The colour of what is at rest cannot be read on the accent.
  if (isEnabled()) {
    InterfaceKitSupport::DrawGradient(painter, QRect(0, top, width(), kRow), accent.lighter(106),
                                      accent, InterfaceKitSupport::kGradientDown);
  }
  painter.fillRect(QRect(0, top - 1, width(), 1), ifkColors::FrameActive());
  painter.fillRect(QRect(0, top + selRowHeight_, width(), 1), ifkColors::FrameActive());
  int nameRight = width() - 8;
  if (selRowHeight_ != kRow) {
    nameRight = ResetButtonLeft() - 4;
    drawWhiteButton(painter, {ResetButtonLeft(), top + 1, 50, 18}, Shown(kReset),
                    mouseStatus_ == kOnReset);
  }
  SetBold(painter, true);
  const QString name =
      InterfaceKitSupport::ClipString(painter, ToQString(module.Name()), nameRight - kNameLeft);
  if (isEnabled()) {
    painter.setPen(accent.darker(130));
    painter.drawText(kNameLeft, Baseline(painter, top) + 1, name);
  }
  painter.setPen(isEnabled() ? ifkColors::TextSelected() : ifkColors::TextDisabled());
  painter.drawText(kNameLeft, Baseline(painter, top), name);
  SetBold(painter, false);
  if (module.Complete()) {
    drawCheckBox(painter, {8, top + 4, kCheckBox, kCheckBox}, module.Enabled(), false);
  }
  if (hasFocus() && focusedControl_ < 0) {
    painter.setPen(QPen(QColor(255, 255, 255, 160), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(2.5, top + 1.5, width() - 5, kRow - 4));
  }
  if (mouseStatus_ == kDraggingRow) return;
  for (int control = 0; control < ControlsOf(selected_); ++control) {
    DrawControl(painter, control, top + kRow * (control + 1));
  }
}

void EffectStackEditor::DrawControl(QPainter& painter, int control, int top) {
  effectModule& module = *Selected();
  const EffectModuleControl& row = module.Control(control);
  const Variant value = module.ControlValue(control);
  const bool pressed = mouseStatus_ == kOnControl && control == selectedControl_;
  const bool focused = hasFocus() && control == focusedControl_;
  const int left = ControlLeft();
  const QColor text = isEnabled() ? ifkColors::TextActive() : ifkColors::TextDisabled();
  painter.setPen(text);
  const QString caption = ToQString(row.Caption);
  if (row.Type == kControlCheckBox) {
    painter.drawText(left + 20, Baseline(painter, top), caption);
  } else {
    const int captionRight = left - 10;
    const QString cut = InterfaceKitSupport::ClipString(painter, caption, CaptionWidth());
    painter.drawText(captionRight - painter.fontMetrics().horizontalAdvance(cut),
                     Baseline(painter, top), cut);
  }
  switch (row.Type) {
    case kControlText:
      painter.drawText(left, Baseline(painter, top), ToQString(value.ToText()));
      break;
    case kControlSlider:
      drawSlider(painter, {left, top, ControlWidth(), kRow}, value.ToDouble(), row.DrawLine,
                 pressed, focused);
      break;
    case kControlCheckBox:
      drawCheckBox(painter, {left + 4, top + 4, kCheckBox, kCheckBox}, value.ToBool(), pressed);
      break;
    case kControlButton:
      drawWhiteButton(painter, {left, top + 1, ControlWidth(), 18}, ToQString(value.ToText()),
                      pressed);
      break;
    case kControlColorWell: {
      if (value.IsNil()) break;
      const Color color = value.ToColor();
      const bool bound = SelectedColorWell && SelectedColorWell(control);
      drawColorWell(painter, {left, top + 1, 60, 18}, QColor(color.Red, color.Green, color.Blue),
                    bound);
      break;
    }
    case kControlMenu: {
      const int chosen = value.ToInt();
      const bool known =
          row.Menu && chosen >= 0 && chosen < static_cast<int>(row.Menu->Children.size());
      // Of a menu that the module shows itself the value is the text.
      const QString shown =
          known ? ToQString(row.Menu->Children[static_cast<std::size_t>(chosen)].Text)
                : (row.Menu ? QString() : ToQString(value.ToText()));
      drawMenu(painter, {left, top + 1, ControlWidth(), 18}, shown, pressed);
      break;
    }
    default:
      break;
  }
  if (focused && row.Type != kControlSlider) {
    painter.setPen(QPen(ifkColors::FocusHighlight(), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(left - 1, top, ControlWidth() + 2, kRow), 4, 4);
  }
}

void EffectStackEditor::drawSlider(QPainter& painter, const QRect& rect, double value, double mark,
                                   bool pressed, bool focused) const {
  constexpr double kThumb = 12;
  const double middle = rect.top() + rect.height() / 2.0;
  if (mark > 0) {
    painter.fillRect(
        QRectF(rect.left() + rect.width() * mark - 0.5, rect.top() + 2, 1, rect.height() - 4),
        ifkColors::FrameActive());
  }
  const QRectF track(rect.left(), middle - 1.5, rect.width(), 3);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ifkColors::FrameActive());
  painter.drawRoundedRect(track, 1.5, 1.5);
  const double x = rect.left() + rect.width() * std::clamp(value, 0.0, 100.0) / 100;
  // The coloured part begins at the mark, where the effect does nothing.
  const double from = rect.left() + rect.width() * std::max(mark, 0.0);
  painter.setBrush(isEnabled() ? ifkColors::Focus() : ifkColors::FrameActive());
  painter.drawRoundedRect(QRectF(std::min(from, x), middle - 1.5, std::abs(x - from), 3), 1.5, 1.5);
  painter.setPen(
      QPen(pressed || focused ? ifkColors::Focus() : ifkColors::TextDisabled(), focused ? 2 : 1));
  painter.setBrush(pressed ? ifkColors::Focus() : ifkColors::Thumb(false));
  painter.drawEllipse(QPointF(x, middle), kThumb / 2, kThumb / 2);
}

void EffectStackEditor::drawCheckBox(QPainter& painter, const QRect& rect, bool value,
                                     bool pressed) const {
  const QRectF box = QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5);
  const bool on = value && isEnabled();
  painter.setPen(QPen(on ? ifkColors::Focus().darker(125) : ifkColors::TextDisabled(), 1));
  painter.setBrush(pressed ? ifkColors::FrameActive()
                   : on    ? ifkColors::Focus()
                           : palette().color(QPalette::Base));
  painter.drawRoundedRect(box, 3, 3);
  if (!value) return;
  painter.setPen(QPen(on ? QColor(Qt::white) : ifkColors::TextDisabled(), 1.6, Qt::SolidLine,
                      Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  QPainterPath tick;
  tick.moveTo(box.left() + box.width() * 0.22, box.top() + box.height() * 0.52);
  tick.lineTo(box.left() + box.width() * 0.43, box.top() + box.height() * 0.73);
  tick.lineTo(box.left() + box.width() * 0.78, box.top() + box.height() * 0.28);
  painter.drawPath(tick);
}

void EffectStackEditor::drawColorWell(QPainter& painter, const QRect& rect, const QColor& color,
                                      bool selected) const {
  painter.setPen(QPen(selected ? ifkColors::Focus() : ifkColors::FrameActive(), selected ? 2 : 1));
  painter.setBrush(palette().color(QPalette::Button));
  painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
  const QRectF inner(rect.x() + 3, rect.y() + 3, rect.width() - 6, rect.height() - 6);
  painter.fillRect(inner, color);
  float h = 0;
  float s = 0;
  float v = 0;
  color.getHsvF(&h, &s, &v);
  painter.setPen(QColor::fromHsvF(std::max(h, 0.0F), s, std::max(v - 0.33F, 0.0F)));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(inner.adjusted(0.5, 0.5, -0.5, -0.5));
}

void EffectStackEditor::drawMenu(QPainter& painter, const QRect& rect, const QString& text,
                                 bool pressed) const {
  drawWhiteButton(painter, rect, text, pressed);
  painter.setPen(QPen(ifkColors::TextActive(), 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const QPointF center(rect.right() - 9, rect.center().y() + 1);
  painter.drawPolyline(
      QPolygonF({center + QPointF(-3, -1.5), center + QPointF(0, 1.5), center + QPointF(3, -1.5)}));
}

void EffectStackEditor::drawWhiteButton(QPainter& painter, const QRect& rect, const QString& text,
                                        bool pressed) const {
  painter.setPen(ifkColors::FrameActive());
  painter.setBrush(pressed ? ifkColors::FrameActive() : palette().color(QPalette::Button));
  painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
  painter.setPen(isEnabled() ? ifkColors::TextActive() : ifkColors::TextDisabled());
  const QString cut = InterfaceKitSupport::ClipString(painter, text, rect.width() - 12);
  painter.drawText(rect.x() + 8, Baseline(painter, rect.y() - 1), cut);
}

}  // namespace brivolant
