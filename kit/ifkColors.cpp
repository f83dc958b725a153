// SPDX-License-Identifier: MIT
#include "kit/ifkColors.h"

#include <QGuiApplication>
#include <QPalette>

namespace brivolant::ifkColors {
namespace {

QColor Of(QPalette::ColorRole role, QPalette::ColorGroup group = QPalette::Active) {
  return QGuiApplication::palette().color(group, role);
}

}  // namespace

QColor listRowColorEven() {
  return Of(QPalette::Base);
}
QColor listRowColorOdd() {
  return Of(QPalette::AlternateBase);
}
QColor FrameActive() {
  return Of(QPalette::Mid);
}
QColor FrameInactive() {
  QColor color = Of(QPalette::Mid);
  color.setAlphaF(0.6F);
  return color;
}
QColor TextActive() {
  return Of(QPalette::WindowText);
}
QColor TextSelected() {
  return Of(QPalette::HighlightedText);
}
QColor TextDisabled() {
  return Of(QPalette::WindowText, QPalette::Disabled);
}
QColor Focus() {
  return Of(QPalette::Highlight);
}
QColor FocusHighlight() {
  QColor color = Of(QPalette::Highlight);
  color.setAlphaF(0.5F);
  return color;
}
QColor IconLabelBackgroundSelected() {
  return Of(QPalette::Highlight);
}
QColor DocumentWindowBackground() {
  return Of(QPalette::Base);
}
QColor iAppsHighLightColor() {
  return Of(QPalette::Highlight);
}
QColor SecondaryHighlightColor() {
  QColor color = Of(QPalette::Highlight);
  color.setAlphaF(0.25F);
  return color;
}
QColor FillColor() {
  return Of(QPalette::Window);
}
QColor Thumb(bool active) {
  const QColor plain = QColor::fromRgb(0xfafafc);
  return active ? plain.darker(106) : plain;
}
QColor Hover() {
  return Of(QPalette::Midlight);
}

}  // namespace brivolant::ifkColors
