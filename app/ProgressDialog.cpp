// SPDX-License-Identifier: MIT
#include "app/ProgressDialog.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include "kit/InterfaceKitSupport.h"

namespace brivolant {
namespace {

constexpr int kTextSize = 24;
constexpr double kOpacity = 0.8;

QFont LabelFont() {
  QFont font(QStringLiteral("Lucida Grande"));
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(kTextSize);
  font.setBold(true);
  return font;
}

}  // namespace

ProgressDialog::ProgressDialog(QWidget* parent)
    : ifkWindow(parent, Qt::ToolTip | Qt::FramelessWindowHint) {
  setAttribute(Qt::WA_TranslucentBackground);
  setAttribute(Qt::WA_ShowWithoutActivating);
  Shadow(false);
}

void ProgressDialog::Show(const std::string& text, const QRect& over) {
  statusMessage_ = text;
  const QFontMetrics metrics(LabelFont());
  const int h = metrics.height();
  const int height = 2 * h;
  const int width = metrics.horizontalAdvance(ToQString(text)) + h;
  setGeometry(over.x() + (over.width() - width) / 2, over.y() + (over.height() - height) / 3, width,
              height);
  show();
  repaint();
}

void ProgressDialog::Show(const std::string& text, const QWidget* over) {
  if (over == nullptr) return Show(text, QGuiApplication::primaryScreen()->availableGeometry());
  // Some windowing systems place such a window only beside another.
  winId();
  windowHandle()->setTransientParent(over->window()->windowHandle());
  Show(text, QRect(over->mapToGlobal(QPoint(0, 0)), over->size()));
}

void ProgressDialog::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  QColor background = QColor::fromRgb(0x111111);
  background.setAlphaF(kOpacity);
  painter.setBrush(background);
  painter.drawRoundedRect(rect(), height() / 2.0, height() / 2.0);
  painter.setFont(LabelFont());
  painter.setPen(Qt::white);
  painter.drawText(rect(), Qt::AlignCenter, ToQString(statusMessage_));
}

void ProgressDialog::showEvent(QShowEvent* event) {
  ifkWindow::showEvent(event);
  if (OpenChanged) OpenChanged(true);
}

void ProgressDialog::hideEvent(QHideEvent* event) {
  ifkWindow::hideEvent(event);
  if (OpenChanged) OpenChanged(false);
}

}  // namespace brivolant
