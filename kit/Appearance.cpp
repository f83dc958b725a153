// SPDX-License-Identifier: MIT
#include "kit/Appearance.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QPalette>
#include <QStyleFactory>

#include "kit/SvgIcon.h"

namespace brivolant::Appearance {
namespace {

Scheme inForce = kLight;

/// The colours of one scheme.
struct Tones {
  QRgb window;
  QRgb base;
  QRgb alternate;
  QRgb button;
  QRgb text;
  QRgb faint;
  QRgb border;
  QRgb hover;
  QRgb accent;
};
constexpr Tones kLightTones{0xfff3f3f5, 0xffffffff, 0xfff7f7f9, 0xffffffff, 0xff1d1d22,
                            0xff8e8e97, 0xffd3d3d9, 0xffe4e4ea, 0xff2f7bd6};
constexpr Tones kDarkTones{0xff232327, 0xff1a1a1d, 0xff27272c, 0xff34343a, 0xffe6e6ea,
                           0xff7d7d86, 0xff3b3b42, 0xff37373e, 0xff4b93ea};

const Tones& Current() {
  return inForce == kDark ? kDarkTones : kLightTones;
}

QPalette PaletteOf(const Tones& t) {
  QPalette palette;
  const QColor text = QColor::fromRgb(t.text);
  const QColor faint = QColor::fromRgb(t.faint);
  palette.setColor(QPalette::Window, QColor::fromRgb(t.window));
  palette.setColor(QPalette::WindowText, text);
  palette.setColor(QPalette::Base, QColor::fromRgb(t.base));
  palette.setColor(QPalette::AlternateBase, QColor::fromRgb(t.alternate));
  palette.setColor(QPalette::Text, text);
  palette.setColor(QPalette::PlaceholderText, faint);
  palette.setColor(QPalette::Button, QColor::fromRgb(t.button));
  palette.setColor(QPalette::ButtonText, text);
  palette.setColor(QPalette::BrightText, Qt::white);
  palette.setColor(QPalette::ToolTipBase, QColor::fromRgb(t.button));
  palette.setColor(QPalette::ToolTipText, text);
  palette.setColor(QPalette::Highlight, QColor::fromRgb(t.accent));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, QColor::fromRgb(t.accent));
  palette.setColor(QPalette::LinkVisited, QColor::fromRgb(t.accent));
  palette.setColor(QPalette::Light, QColor::fromRgb(t.hover));
  palette.setColor(QPalette::Midlight, QColor::fromRgb(t.hover));
  palette.setColor(QPalette::Mid, QColor::fromRgb(t.border));
  palette.setColor(QPalette::Dark, QColor::fromRgb(t.border));
  palette.setColor(QPalette::Shadow, QColor::fromRgb(t.border));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, faint);
  }
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor::fromRgb(t.border));
  palette.setColor(QPalette::Disabled, QPalette::HighlightedText, faint);
  return palette;
}

/// Flat bars, fields and buttons on the 8-pixel grid; everything else is the toolkit's Fusion
/// style.
QString Sheet(const Tones& t) {
  QString sheet = QStringLiteral(
      "QToolBar { background: @window; border: none; border-bottom: 1px solid @border; "
      "padding: 4px; spacing: 4px; }"
      "QToolBar QToolButton { border: none; border-radius: 6px; padding: 4px 8px; }"
      "QToolBar QToolButton:hover { background: @hover; }"
      "QToolBar QToolButton:pressed, QToolBar QToolButton:checked { background: @border; }"
      "QToolBar QToolButton:focus { border: 1px solid @accent; padding: 3px 7px; }"
      "QToolBar QToolButton::menu-indicator { image: none; }"
      "QMenuBar { background: @window; border: none; }"
      "QToolTip { background: @button; color: @text; border: 1px solid @border; padding: 4px; }"
      "QComboBox { background: @button; border: 1px solid @border; border-radius: 6px; "
      "padding: 2px 8px; min-height: 20px; }"
      "QComboBox:hover { background: @hover; }"
      "QComboBox:focus { border: 1px solid @accent; }"
      "QComboBox:disabled { color: @faint; }"
      "QComboBox::drop-down { border: none; width: 22px; }"
      "QComboBox::down-arrow { image: url(@down); width: 12px; height: 12px; }"
      "QLineEdit { background: @base; border: 1px solid @border; border-radius: 6px; "
      "padding: 2px 6px; }"
      "QLineEdit:focus { border: 1px solid @accent; }"
      "QScrollBar:vertical { background: transparent; width: 12px; margin: 0; }"
      "QScrollBar::handle:vertical { background: @faint; border-radius: 3px; min-height: 32px; "
      "margin: 3px; }"
      "QScrollBar::handle:vertical:hover { background: @text; }"
      "QScrollBar::add-line, QScrollBar::sub-line { height: 0; width: 0; border: none; }"
      "QScrollBar::add-page, QScrollBar::sub-page { background: none; }");
  const auto put = [&sheet](const char* name, QRgb color) {
    sheet.replace(QLatin1String(name), QColor::fromRgb(color).name());
  };
  put("@window", t.window);
  put("@border", t.border);
  put("@hover", t.hover);
  put("@accent", t.accent);
  put("@button", t.button);
  put("@base", t.base);
  put("@text", t.text);
  put("@faint", t.faint);
  sheet.replace(QLatin1String("@down"), SvgPath(QStringLiteral("Down")));
  return sheet;
}

}  // namespace

void Apply(QApplication& application, Scheme scheme) {
  inForce = scheme == kFollowDesktop ? DesktopPreference() : scheme;
  application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  application.setPalette(PaletteOf(Current()));
  application.setStyleSheet(Sheet(Current()));
}

bool IsDark() {
  return inForce == kDark;
}

Scheme DesktopPreference() {
  // Nobody waits for a desktop that does not answer.
  constexpr int kPatience = 100;
  constexpr int kPrefersDark = 1;
  if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) return kLight;
  QDBusMessage question = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.portal.Desktop"),
      QStringLiteral("/org/freedesktop/portal/desktop"),
      QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read"));
  question << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("color-scheme");
  const QDBusMessage answer = QDBusConnection::sessionBus().call(question, QDBus::Block, kPatience);
  if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) return kLight;
  QVariant value = answer.arguments().constFirst();
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value.toInt() == kPrefersDark ? kDark : kLight;
}

}  // namespace brivolant::Appearance
