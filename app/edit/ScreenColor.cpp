// SPDX-License-Identifier: MIT
#include "app/edit/ScreenColor.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <utility>

#include "engine/ui/EditorDisplay.h"

namespace brivolant {

ScreenColor::ScreenColor(EditorDisplay& display,
                         std::function<void(const std::optional<Color>&)> then)
    : display_(display), then_(std::move(then)) {
  qApp->installEventFilter(this);
  display_.grabMouse(Qt::CrossCursor);
  display_.grabKeyboard();
}

ScreenColor::~ScreenColor() {
  color_.reset();
  then_ = nullptr;
  End();
}

void ScreenColor::Cancel() {
  color_.reset();
  End();
}

void ScreenColor::End() {
  qApp->removeEventFilter(this);
  // The widgets may have been told of the next picker already.
  if (QWidget::mouseGrabber() == &display_) display_.releaseMouse();
  if (QWidget::keyboardGrabber() == &display_) display_.releaseKeyboard();
  if (const auto then = std::exchange(then_, nullptr)) then(color_);
}

bool ScreenColor::eventFilter(QObject*, QEvent* event) {
  if (!then_) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      Take(static_cast<const QMouseEvent*>(event)->globalPosition().toPoint());
      return true;
    case QEvent::MouseButtonRelease:
      if (color_) End();
      return true;
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
      // Nothing else happens until the click.
      event->accept();
      if (static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Escape) Cancel();
      return true;
    default:
      return false;
  }
}

void ScreenColor::Take(const QPoint& at) {
  const QPoint local = display_.mapFromGlobal(at);
  QRgb pixel = 0;
  if (display_.rect().contains(local)) {
    const QPointF device = QPointF(local) * display_.devicePixelRatioF();
    pixel = display_.Buffer().pixel(device.toPoint());
  } else {
    QScreen* screen = QGuiApplication::screenAt(at);
    if (screen == nullptr) return;
    const QPoint onScreen = at - screen->geometry().topLeft();
    const QImage image = screen->grabWindow(0, onScreen.x(), onScreen.y(), 1, 1).toImage();
    if (image.isNull()) return;
    pixel = image.pixel(0, 0);
  }
  color_ = Color{static_cast<std::uint8_t>(qRed(pixel)), static_cast<std::uint8_t>(qGreen(pixel)),
                 static_cast<std::uint8_t>(qBlue(pixel))};
}

}  // namespace brivolant
