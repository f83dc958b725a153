// SPDX-License-Identifier: MIT
#include "kit/Appearance.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QPalette>
#include <QStyleFactory>

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

/// Flat bars and buttons on the 8-pixel grid; everything else is the toolkit's Fusion style.
QString Sheet(const Tones& t) {
  const auto name = [](QRgb color) { return QColor::fromRgb(color).name(); };
  return QString::fromLatin1(
             "QToolBar { background: %1; border: none; border-bottom: 1px solid %2; padding: 4px; "
             "spacing: 4px; }"
             "QToolBar QToolButton { border: none; border-radius: 6px; padding: 4px 8px; }"
             "QToolBar QToolButton:hover { background: %3; }"
             "QToolBar QToolButton:pressed, QToolBar QToolButton:checked { background: %2; }"
             "QToolBar QToolButton:focus { border: 1px solid %4; padding: 3px 7px; }"
             "QToolBar QToolButton::menu-indicator { image: none; }"
             "QToolBar QToolButton::menu-button { border: none; width: 16px; }"
             "QMenuBar { background: %1; border: none; }"
             "QToolTip { background: %5; color: %6; border: 1px solid %2; padding: 4px; }")
      .arg(name(t.window), name(t.border), name(t.hover), name(t.accent), name(t.button),
           name(t.text));
}

}  // namespace

void Apply(QApplication& application, Scheme scheme) {
  inForce = scheme == kFollowDesktop ? DesktopPreference() : scheme;
  application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  application.setPalette(PaletteOf(Current()));
  application.setStyleSheet(Sheet(Current()));
}

Scheme InForce() {
  return inForce;
}

bool IsDark() {
  return inForce == kDark;
}

QColor Accent() {
  return QColor::fromRgb(Current().accent);
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
