// SPDX-License-Identifier: MIT
#include "kit/ifkWindow.h"

#include <QAction>
#include <QBitmap>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QToolBar>
#include <QWindow>
#include <algorithm>

#include "kit/ifkColors.h"
#include "platform/values/Text.h"
#include "platform/values/Variant.h"

namespace brivolant {
namespace {

constexpr int kTitleStrip = 19;
constexpr int kTitleHeight = 23;
constexpr int kCorner = 14;
constexpr QRect kCloseBoxRect{5, 3, 13, 13};
constexpr double kAnimation = 0.25;
const QColor kPanel = QColor::fromRgb(0x414141);
const QColor kPanelTitle = QColor::fromRgb(0x111111);

QMenu* windowMenu = nullptr;
int windowCount = 0;

QFont SmallFont(const QWidget& widget) {
  QFont font = widget.font();
  font.setPointSizeF(font.pointSizeF() * 0.85);
  return font;
}

void DrawCloseBox(QPainter& painter, bool pressed) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(pressed ? QColor::fromRgb(0x222222) : QColor::fromRgb(0x8a8a8a));
  painter.drawEllipse(QRectF(kCloseBoxRect));
  painter.setPen(QPen(kPanel, 1.5));
  const QRectF cross = QRectF(kCloseBoxRect).adjusted(4, 4, -4, -4);
  painter.drawLine(cross.topLeft(), cross.bottomRight());
  painter.drawLine(cross.topRight(), cross.bottomLeft());
}

}  // namespace

ifkWindow::ifkWindow(QWidget* parent, Qt::WindowFlags flags) : QMainWindow(parent, flags) {}

ifkWindow::~ifkWindow() {
  RemoveFromWindowMenu();
}

void ifkWindow::Transparency(int percent) {
  setWindowOpacity(std::clamp(percent, 0, 100) / 100.0);
}

int ifkWindow::Transparency() const {
  return qRound(windowOpacity() * 100);
}

void ifkWindow::Style(int style) {
  mCustomShape = style;
  Transparency(style == kPlain ? 100 : 99);
  TitleBar(style == kPlain);
  if (style == kShaped) setAttribute(Qt::WA_TranslucentBackground);
  if (style == kDarkPanel) ChangeToBlack();
  update();
}

void ifkWindow::CustomShapePicture(const QPixmap& shape) {
  mCustomShapePicture = shape;
  setMask(shape.mask());
  update();
}

bool ifkWindow::Shadow() const {
  return !windowFlags().testFlag(Qt::NoDropShadowWindowHint);
}

void ifkWindow::Shadow(bool shadow) {
  setWindowFlag(Qt::NoDropShadowWindowHint, !shadow);
}

bool ifkWindow::TitleBar() const {
  return !windowFlags().testFlag(Qt::FramelessWindowHint);
}

void ifkWindow::TitleBar(bool visible) {
  setWindowFlag(Qt::FramelessWindowHint, !visible);
}

bool ifkWindow::ToolbarVisible() const {
  return toolBar_ != nullptr && !toolBar_->isHidden();
}

void ifkWindow::ToolbarVisible(bool visible) {
  if (toolBar_ != nullptr) toolBar_->setVisible(visible);
}

void ifkWindow::DeactivateToolBar() {
  PreeviousToolBarStates.clear();
  if (toolBar_ == nullptr) return;
  for (QAction* action : toolBar_->actions()) {
    PreeviousToolBarStates.push_back(action->isEnabled());
    action->setEnabled(false);
  }
}

void ifkWindow::ActivateToolBar() {
  if (toolBar_ == nullptr) return;
  const QList<QAction*> actions = toolBar_->actions();
  for (int i = 0; i < actions.size(); ++i) {
    const auto index = static_cast<std::size_t>(i);
    if (index < PreeviousToolBarStates.size()) {
      actions[i]->setEnabled(PreeviousToolBarStates[index]);
    }
  }
  PreeviousToolBarStates.clear();
}

std::string ifkWindow::Dimensions() const {
  const QRect rect = geometry();
  return std::to_string(rect.left()) + ' ' + std::to_string(rect.top()) + ' ' +
         std::to_string(rect.width()) + ' ' + std::to_string(rect.height());
}

void ifkWindow::Dimensions(const std::string& text) {
  const std::string_view trimmed = Trim(text);
  if (trimmed.empty()) return;
  const auto fields = Split(trimmed, ' ');
  const auto field = [&](std::size_t index) {
    return index < fields.size() ? Variant(fields[index]).ToInt() : 0;
  };
  QRect rect = geometry();
  if (field(2) > minimumWidth() && field(2) < maximumWidth()) rect.setWidth(field(2));
  if (field(3) > minimumHeight() && field(3) < maximumHeight()) rect.setHeight(field(3));
  rect.moveTo(field(0), field(1));
  setGeometry(rect);
  EnsureIsOnScreen(isOnScreen());
}

int ifkWindow::isOnScreen() const {
  const QList<QScreen*> screens = QGuiApplication::screens();
  int best = 0;
  int largest = -1;
  for (int i = 0; i < screens.size(); ++i) {
    const QRect part = screens[i]->geometry().intersected(geometry());
    const int area = part.isEmpty() ? 0 : part.width() * part.height();
    if (area > largest) {
      largest = area;
      best = i;
    }
  }
  return best;
}

void ifkWindow::EnsureIsOnScreen(int screen) {
  if (isFullScreen()) return;
  const QList<QScreen*> screens = QGuiApplication::screens();
  const int index = screen < 0 ? isOnScreen() : screen;
  if (index >= screens.size()) return;
  const QRect available = screens[index]->availableGeometry();
  const QRect frame = geometry();
  // The middle of the title bar, which stands above the window's own top, must be within reach of
  // the pointer.
  const int y = frame.top() - kTitleHeight;
  const int x = frame.left() + frame.width() / 2;
  const bool lost = y < available.top() || y > available.top() + available.height() ||
                    x < available.left() || x > available.left() + available.width();
  if (!lost) return;
  const int left = (available.width() - frame.width()) / 2 + available.left();
  const int top = (available.height() - (frame.height() + kTitleHeight)) / 3 + available.top();
  const int newTop = std::max(top + kTitleHeight, available.top());
  if (isVisible() && AnimationCore::Period() > 0) {
    AnimationCore::Animate(*this, {left, newTop, frame.width(), frame.height()}, kAnimation);
  } else {
    setGeometry(left, newTop, frame.width(), frame.height());
  }
}

AnimationCore::AnimationRect ifkWindow::ResizedFrame(int width, int height, int anchor) const {
  const QRect rect = geometry();
  const int dw = width - rect.width();
  const int dh = height - rect.height();
  int left = rect.left();
  int top = rect.top();
  switch (anchor) {
    case kTopRight:
      left -= dw;
      break;
    case kBottomLeft:
      top -= dh;
      break;
    case kBottomRight:
      left -= dw;
      top -= dh;
      break;
    case kTopCenter:
      left -= dw / 2;
      break;
    case kLeftCenter:
      top -= dh / 2;
      break;
    case kBottomCenter:
      left -= dw / 2;
      top -= dh;
      break;
    case kRightCenter:
      left -= dw;
      top -= dh / 2;
      break;
    case kCenter: {
      constexpr int kRoomForTitle = 30;
      const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
      left = std::max(left - dw / 2, available.left());
      top = std::max(top - dh / 2, available.top() + kRoomForTitle);
      break;
    }
    default:
      break;
  }
  return {left, top, width, height};
}

void ifkWindow::SmoothResize(int width, int height, int anchor) {
  const AnimationCore::AnimationRect frame = ResizedFrame(width, height, anchor);
  if (isVisible() && AnimationCore::Period() > 0) {
    AnimationCore::Animate(*this, frame, kAnimation);
  } else {
    AnimationCore::Bounds(*this, frame);
  }
  update();
}

void ifkWindow::WindowMenu(QMenu* menu) {
  windowMenu = menu;
}

int ifkWindow::windowMenuItemCount() {
  return windowCount;
}

void ifkWindow::AddToWindowMenu() {
  const bool ofOthers = windowType() != Qt::Window;
  if (windowMenu == nullptr || myWindowMenuItem_ != nullptr || ofOthers) return;
  myWindowMenuItem_ = windowMenu->addAction(windowTitle().remove(QStringLiteral("[*]")));
  myWindowMenuItem_->setCheckable(true);
  connect(myWindowMenuItem_, &QAction::triggered, this, [this] {
    show();
    raise();
    activateWindow();
  });
  ++windowCount;
}

void ifkWindow::RemoveFromWindowMenu() {
  if (myWindowMenuItem_ == nullptr) return;
  delete myWindowMenuItem_;
  myWindowMenuItem_ = nullptr;
  --windowCount;
}

void ifkWindow::ChangeToBlack() {
  for (QWidget* child : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
    child->move(child->x(), child->y() + kTitleStrip);
  }
  QPalette palette = this->palette();
  palette.setColor(QPalette::Window, kPanel);
  palette.setColor(QPalette::WindowText, Qt::white);
  setPalette(palette);
  for (QLabel* label : findChildren<QLabel*>()) {
    label->setFont(SmallFont(*this));
    label->setPalette(palette);
  }
  for (QLineEdit* field : findChildren<QLineEdit*>()) {
    field->setFont(SmallFont(*this));
    field->setFrame(false);
    QPalette own = palette;
    own.setColor(QPalette::Base, kPanel);
    own.setColor(QPalette::Text, Qt::white);
    field->setPalette(own);
  }
  setContentsMargins(0, kTitleStrip, 0, 0);
}

void ifkWindow::PaintPanel() {
  QPainter painter(this);
  painter.fillRect(rect(), kPanel);
  painter.setFont(SmallFont(*this));
  const QFontMetrics metrics = painter.fontMetrics();
  const QString title = windowTitle();
  const int x = (width() - metrics.horizontalAdvance(title)) / 2;
  const int baseline = (kTitleStrip - metrics.height()) / 2 + metrics.ascent();
  if (isActiveWindow()) {
    painter.setPen(kPanelTitle);
    painter.drawText(x, baseline, title);
    painter.setPen(Qt::white);
    painter.drawText(x, baseline + 1, title);
  } else {
    painter.setPen(ifkColors::TextDisabled());
    painter.drawText(x, baseline, title);
  }
  if (Resizable()) {
    painter.setPen(QColor::fromRgb(0x8a8a8a));
    for (int i = 4; i <= 12; i += 4) {
      painter.drawLine(width() - 3 - i, height() - 3, width() - 3, height() - 3 - i);
    }
  }
  DrawCloseBox(painter, mouseStatus == kCloseBox);
}

void ifkWindow::showEvent(QShowEvent* event) {
  AddToWindowMenu();
  QMainWindow::showEvent(event);
}

void ifkWindow::closeEvent(QCloseEvent* event) {
  QMainWindow::closeEvent(event);
  if (!event->isAccepted()) return;
  RemoveFromWindowMenu();
  if (Close) Close();
}

void ifkWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::ActivationChange && myWindowMenuItem_ != nullptr) {
    for (QAction* action : windowMenu->actions()) {
      if (action->isCheckable()) action->setChecked(false);
    }
    myWindowMenuItem_->setChecked(isActiveWindow());
  }
  if (event->type() == QEvent::WindowTitleChange && myWindowMenuItem_ != nullptr) {
    myWindowMenuItem_->setText(windowTitle().remove(QStringLiteral("[*]")));
  }
  if (mCustomShape == kDarkPanel) update();
  QMainWindow::changeEvent(event);
}

void ifkWindow::paintEvent(QPaintEvent* event) {
  if (mCustomShape == kDarkPanel && !isFullScreen()) {
    PaintPanel();
  } else if (mCustomShape == kShaped) {
    QPainter(this).drawPixmap(0, 0, mCustomShapePicture);
  } else {
    QMainWindow::paintEvent(event);
  }
}

void ifkWindow::mousePressEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  if (MouseDown && MouseDown(at.x(), at.y())) return;
  if (mCustomShape == kPlain) return QMainWindow::mousePressEvent(event);
  customShapeLastMX = at.x();
  customShapeLastMY = at.y();
  mouseStatus = kMoving;
  if (mCustomShape == kDarkPanel) {
    if (kCloseBoxRect.contains(at)) {
      mouseStatus = kCloseBox;
    } else if (Resizable() && at.x() > width() - kCorner && at.y() > height() - kCorner) {
      mouseStatus = kResizing;
      customShapeLastMX = width() - at.x();
      customShapeLastMY = height() - at.y();
    }
  }
  update();
}

bool ifkWindow::StartSystemMove() {
  return windowHandle() != nullptr && windowHandle()->startSystemMove();
}

bool ifkWindow::StartSystemResize() {
  return windowHandle() != nullptr &&
         windowHandle()->startSystemResize(Qt::BottomEdge | Qt::RightEdge);
}

void ifkWindow::mouseMoveEvent(QMouseEvent* event) {
  const QPoint at = event->globalPosition().toPoint();
  // By the desktop, where it can: some let no program place its windows itself. Only now, so that a
  // click stays one.
  if ((mouseStatus == kMoving && StartSystemMove()) ||
      (mouseStatus == kResizing && StartSystemResize())) {
    mouseStatus = kNone;
    return update();
  }
  if (mouseStatus == kMoving) {
    move(at.x() - customShapeLastMX, at.y() - customShapeLastMY);
  } else if (mouseStatus == kResizing) {
    const QSize wanted(at.x() - x() + customShapeLastMX, at.y() - y() + customShapeLastMY);
    const QSize allowed = wanted.expandedTo(minimumSize()).boundedTo(maximumSize());
    if (allowed != size()) resize(allowed);
  } else {
    QMainWindow::mouseMoveEvent(event);
  }
}

void ifkWindow::mouseReleaseEvent(QMouseEvent* event) {
  const bool closes =
      mouseStatus == kCloseBox && kCloseBoxRect.contains(event->position().toPoint());
  mouseStatus = kNone;
  update();
  if (closes) close();
}

}  // namespace brivolant
