// SPDX-License-Identifier: MIT
#include "app/QuickLookWindow.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "kit/InterfaceKitSupport.h"

namespace brivolant {

QuickLookWindow::QuickLookWindow(QWidget* parent) : ifkWindow(parent, Qt::Window) {
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void QuickLookWindow::ShowFullScreen(const Picture& picture, const std::string& name) {
  picture_ = picture;
  setWindowTitle(ToQString(name));
  showFullScreen();
  raise();
  activateWindow();
}

void QuickLookWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::black);
  if (picture_.IsNil()) return;
  // A picture smaller than the screen is not enlarged beyond its own pixels.
  const double ratio = devicePixelRatioF();
  const QSizeF own(picture_.Width() / ratio, picture_.Height() / ratio);
  QSizeF shown = own;
  if (own.width() > width() || own.height() > height()) {
    shown = own.scaled(QSizeF(size()), Qt::KeepAspectRatio);
  }
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(QRectF((width() - shown.width()) / 2, (height() - shown.height()) / 2,
                           shown.width(), shown.height()),
                    picture_.AsImage());
}

void QuickLookWindow::keyPressEvent(QKeyEvent* event) {
  for (const int key : {Qt::Key_Escape, Qt::Key_Space, Qt::Key_F11, Qt::Key_Return}) {
    if (event->key() == key) {
      close();
      return;
    }
  }
  ifkWindow::keyPressEvent(event);
}

void QuickLookWindow::mouseReleaseEvent(QMouseEvent*) {
  close();
}

}  // namespace brivolant
