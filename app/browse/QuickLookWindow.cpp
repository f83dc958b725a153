// SPDX-License-Identifier: MIT
#include "app/browse/QuickLookWindow.h"

#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QScreen>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "kit/DesktopServices.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"

namespace brivolant {
namespace {

constexpr int kMargin = 40;
/// Below the picture, for the icon.
constexpr int kFoot = 48;
constexpr int kIconSide = 128;
constexpr QSize kEnterIcon{31, 29};
constexpr QSize kExitIcon{42, 40};
constexpr QSize kCloseIcon{33, 33};
constexpr int kExitAbove = 100;
constexpr QSize kPanel{156, 72};
constexpr int kPanelBelow = 16;
constexpr double kCorner = 12;
constexpr double kMostZoom = 32;
constexpr double kZoomStep = 1.25;
constexpr int kPanStep = 60;
/// Asked for when every pixel is wanted.
constexpr int kEverySide = 1 << 16;
/// Milliseconds without the mouse after which icons and pointer go.
constexpr int kRest = 2500;
constexpr QSize kDefaultSize{760, 600};

}  // namespace

QuickLookWindow::QuickLookWindow(std::shared_ptr<const FilePreviewer> previewer,
                                 Preferences& preferences, QuickLookWindow* parent)
    : ifkWindow(nullptr, Qt::Window),
      loader_(std::move(previewer)),
      preferences_(preferences),
      parent_(parent) {
  setAttribute(Qt::WA_TranslucentBackground);
  setMinimumSize(240, 200);
  resize(kDefaultSize);
  loader_.Prepare = [](FilePreview& preview) {
    preview.Image = ImageFromPicture(std::exchange(preview.Shown, {}));
  };
  loader_.Loaded = [this](const FilePreview& preview) { Take(preview); };
  setMouseTracking(true);
  rest_.setSingleShot(true);
  rest_.setInterval(kRest);
  connect(&rest_, &QTimer::timeout, this, [this] {
    resting_ = true;
    setCursor(Qt::BlankCursor);
    update();
  });
}

QuickLookWindow::~QuickLookWindow() = default;

void QuickLookWindow::RemoveAllItems() {
  loader_.Stop();
  items_.clear();
  currentImage_ = -1;
  image_ = {};
  fit_ = {};
  scaled_ = {};
  update();
}

void QuickLookWindow::Replace(std::vector<QuickLookItem> items) {
  items_ = std::move(items);
  currentImage_ = items_.empty() ? -1 : 0;
  ShowCurrent();
}

void QuickLookWindow::DisplayItems(std::vector<QuickLookItem> items, bool fullScreen) {
  if (fullScreen) {
    isFullScreenMode_ = true;
    showFullScreen();
    Wake();
  } else if (!isFullScreenMode_ && !isVisible()) {
    Style(kDarkPanel);
    setContentsMargins(0, 0, 0, 0);
    Dimensions(preferences_.Value(kDimensionsKey, "").ToText());
    show();
  }
  Replace(std::move(items));
  raise();
  activateWindow();
}

void QuickLookWindow::DisplayPicture(const Picture& picture, const std::string& title) {
  DisplayItems({{{}, title, picture, {}, {}}}, true);
}

void QuickLookWindow::FullScreenMode(bool on) {
  if (on == isFullScreenMode_) return;
  if (!on) {
    if (parent_ != nullptr) {
      parent_->items_ = items_;
      parent_->currentImage_ = currentImage_;
      parent_->ShowCurrent();
    }
    close();
    return;
  }
  fullScreen_ = std::make_unique<QuickLookWindow>(loader_.Previewer(), preferences_, this);
  fullScreen_->Step = [this](int delta) {
    if (!Step || !Step(delta)) return false;
    fullScreen_->Replace(items_);
    return true;
  };
  const int current = currentImage_;
  fullScreen_->setScreen(screen());
  fullScreen_->DisplayItems(items_, true);
  fullScreen_->currentImage_ = current;
  fullScreen_->ShowCurrent();
}

void QuickLookWindow::ShowCurrent() {
  loader_.Stop();
  zoom_ = 1;
  pan_ = {};
  image_ = {};
  fit_ = {};
  scaled_ = {};
  loadedSide_ = 0;
  whole_ = true;
  if (currentImage_ < 0) return update();
  const QuickLookItem& item = items_[static_cast<std::size_t>(currentImage_)];
  QString title = ToQString(item.Title);
  if (items_.size() > 1) {
    title +=
        QStringLiteral(" \u2014 ") +
        ToQString(WithPlaceholders(kPosition.Text(), {{"<x>", std::to_string(currentImage_ + 1)},
                                                      {"<t>", std::to_string(items_.size())}}));
  }
  setWindowTitle(title);
  if (!item.Shown.IsNil()) {
    image_ = ImageFromPicture(item.Shown);
    fit_ = image_;
  } else if (!item.File.IsNil()) {
    image_ = item.Thumbnail;
    whole_ = false;
    LoadEnough();
  }
  update();
}

void QuickLookWindow::LoadEnough() {
  if (currentImage_ < 0 || whole_) return;
  const QuickLookItem& item = items_[static_cast<std::size_t>(currentImage_)];
  const QSize pixels = screen()->size() * devicePixelRatioF();
  const int screenSide = std::max(pixels.width(), pixels.height());
  // What the screen can show at once; every pixel only when one looks closer.
  const int side = zoom_ > 1 ? kEverySide : screenSide;
  if (side <= loadedSide_) return;
  loadedSide_ = side;
  loader_.Load(item.File, side, false);
}

void QuickLookWindow::Take(const FilePreview& preview) {
  if (preview.Image.isNull()) {
    // Nothing can be read: a thumbnail that stood for it would promise too much.
    if (loadedSide_ != kEverySide) image_ = {};
    whole_ = true;
  } else {
    image_ = preview.Image;
    if (loadedSide_ != kEverySide || fit_.isNull()) fit_ = image_;
    whole_ = loadedSide_ == kEverySide || std::max(image_.width(), image_.height()) < loadedSide_;
  }
  scaled_ = {};
  update();
}

QSizeF QuickLookWindow::ItemSize() const {
  return HasPicture() ? QSizeF(image_.size()) : QSizeF(kIconSide, kIconSide);
}

QRectF QuickLookWindow::PictureRect() const {
  const int margin = isFullScreenMode_ ? 0 : kMargin;
  const double area = isFullScreenMode_ ? height() : height() - kMargin - kFoot;
  const QSizeF own = ItemSize();
  double scale = (width() - margin) / own.width();
  if (own.height() * scale > area) scale = (area - margin) / own.height();
  scale = std::max(scale, 1e-3) * zoom_;
  const QSizeF size(std::floor(own.width() * scale), std::floor(own.height() * scale));
  return {QPointF((width() - size.width()) / 2, (height() - size.height()) / 2) + pan_, size};
}

QRect QuickLookWindow::iconFullScreenLocation() const {
  if (isFullScreenMode_) return {QPoint(width() / 2 - 53 + 3, height() - kExitAbove), kExitIcon};
  return {QPoint((width() - kEnterIcon.width()) / 2, height() - (kMargin + 9)), kEnterIcon};
}

QRect QuickLookWindow::iconCloseLocation() const {
  if (!isFullScreenMode_) return {};
  return {QPoint(width() / 2 + 5 + 7, iconFullScreenLocation().top() + 4), kCloseIcon};
}

void QuickLookWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  if (isFullScreenMode_) {
    painter.fillRect(rect(), Qt::black);
  } else {
    PaintPanel(painter);
  }
  if (currentImage_ < 0) return;
  PaintPicture(painter);
  PaintIcons(painter);
}

void QuickLookWindow::PaintPanel(QPainter& painter) {
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  painter.fillRect(rect(), Qt::transparent);
  painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  painter.setPen(QColor(255, 255, 255, 40));
  painter.setBrush(QColor(26, 26, 28, 235));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
  painter.drawPixmap(5, 3,
                     SvgPixmap(QStringLiteral("QuickLookClose"), QSize(15, 15), devicePixelRatioF(),
                               QColor(255, 255, 255, 190)));
  painter.setPen(QColor(255, 255, 255, isActiveWindow() ? 230 : 140));
  const QRect title(kMargin, 2, width() - 2 * kMargin, 18);
  painter.drawText(title, Qt::AlignCenter,
                   painter.fontMetrics().elidedText(windowTitle(), Qt::ElideMiddle, title.width()));
}

void QuickLookWindow::PaintPicture(QPainter& painter) {
  const QRectF place = PictureRect();
  if (!HasPicture()) {
    const QuickLookItem& item = items_[static_cast<std::size_t>(currentImage_)];
    if (!item.Icon) return;
    // Drawn at the size it is shown, so that it is sharp.
    const QPixmap icon = item.Icon(static_cast<int>(place.width()), devicePixelRatioF());
    painter.drawPixmap(place, icon, QRectF(icon.rect()));
    return;
  }
  painter.save();
  if (!isFullScreenMode_) painter.setClipRect(rect().adjusted(1, 20, -1, -kFoot));
  const QSize pixels = (place.size() * devicePixelRatioF()).toSize();
  // Every pixel was loaded to look closer; for the whole what fits the screen is enough.
  const QImage& whole = fit_.width() >= pixels.width() ? fit_ : image_;
  if (pixels.width() < image_.width() && zoom_ <= 1) {
    // Once, and well, rather than at every repaint.
    if (scaled_.size() != pixels) {
      scaled_ = whole.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    painter.drawImage(place, scaled_);
  } else {
    // Far in, pixels are to be seen as pixels.
    constexpr double kSeparate = 4;
    painter.setRenderHint(QPainter::SmoothPixmapTransform,
                          pixels.width() < kSeparate * image_.width());
    painter.drawImage(place, image_);
  }
  painter.restore();
}

void QuickLookWindow::Wake() {
  if (!isFullScreenMode_) return;
  rest_.start();
  if (!std::exchange(resting_, false)) return;
  unsetCursor();
  update();
}

void QuickLookWindow::PaintIcons(QPainter& painter) {
  if (resting_) return;
  const auto draw = [&](const char* name, const QRect& place) {
    painter.drawPixmap(place.topLeft(), SvgPixmap(QString::fromLatin1(name), place.size(),
                                                  devicePixelRatioF(), QColor(255, 255, 255, 230)));
  };
  if (!isFullScreenMode_) return draw("QuickLookFullScreen", iconFullScreenLocation());
  const QRect exit = iconFullScreenLocation();
  const QRectF panel((width() - kPanel.width()) / 2.0,
                     exit.bottom() + 1 + kPanelBelow - kPanel.height(), kPanel.width(),
                     kPanel.height());
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0, 0, 0, 153));
  painter.drawRoundedRect(panel, kCorner, kCorner);
  draw("QuickLookExitFullScreen", exit);
  draw("QuickLookClose", iconCloseLocation());
}

// Zoom and pan.

void QuickLookWindow::Zoom(double zoom, const QPointF& about) {
  if (!HasPicture()) return;
  const double wanted = std::clamp(zoom, 1.0, kMostZoom);
  const QRectF before = PictureRect();
  const QPointF share((about.x() - before.left()) / before.width(),
                      (about.y() - before.top()) / before.height());
  zoom_ = wanted;
  const QRectF after = PictureRect();
  // What is under the pointer stays there.
  Pan(about -
      QPointF(after.left() + share.x() * after.width(), after.top() + share.y() * after.height()));
  LoadEnough();
}

void QuickLookWindow::Pan(const QPointF& by) {
  pan_ += by;
  const QRectF place = PictureRect();
  const double x = std::max((place.width() - width()) / 2, 0.0);
  const double y = std::max((place.height() - height()) / 2, 0.0);
  pan_ = {std::clamp(pan_.x(), -x, x), std::clamp(pan_.y(), -y, y)};
  update();
}

void QuickLookWindow::wheelEvent(QWheelEvent* event) {
  const bool touchpad = !event->pixelDelta().isNull();
  const bool shifted = event->modifiers().testFlag(Qt::ShiftModifier);
  const QPoint turned = touchpad ? event->pixelDelta() : event->angleDelta();
  event->accept();
  if (!event->modifiers().testFlag(Qt::ControlModifier) && zoom_ > 1 && (touchpad || shifted)) {
    return Pan(shifted && turned.x() == 0 ? QPointF(turned.y(), 0) : QPointF(turned));
  }
  constexpr double kNotch = 120;
  Zoom(zoom_ * std::pow(kZoomStep, turned.y() / kNotch), event->position());
}

bool QuickLookWindow::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    QString text;
    if (iconFullScreenLocation().contains(help->pos())) {
      text = Shown(isFullScreenMode_ ? kExitFullScreen : kFullScreen);
    } else if (iconCloseLocation().contains(help->pos())) {
      text = Shown(kClose);
    }
    QToolTip::showText(help->globalPos(), text, this);
    return true;
  }
  if (event->type() == QEvent::NativeGesture) {
    auto* gesture = static_cast<QNativeGestureEvent*>(event);
    if (gesture->gestureType() == Qt::ZoomNativeGesture) {
      Zoom(zoom_ * (1 + gesture->value()), gesture->position());
      return true;
    }
    if (gesture->gestureType() == Qt::PanNativeGesture) {
      Pan(gesture->delta());
      return true;
    }
  }
  return ifkWindow::event(event);
}

void QuickLookWindow::resizeEvent(QResizeEvent* event) {
  ifkWindow::resizeEvent(event);
  Pan({});
}

// Events.

void QuickLookWindow::Go(int delta) {
  const int target = currentImage_ + delta;
  if (items_.size() <= 1) {
    if (Step) Step(delta);
    return;
  }
  if (target < 0 || target >= static_cast<int>(items_.size())) return;
  currentImage_ = target;
  ShowCurrent();
}

bool QuickLookWindow::ZoomKey(int key) {
  const QPointF middle(width() / 2.0, height() / 2.0);
  switch (key) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return Zoom(zoom_ * kZoomStep, middle), true;
    case Qt::Key_Minus:
      return Zoom(zoom_ / kZoomStep, middle), true;
    case Qt::Key_0:
      return Zoom(1, middle), true;
    case Qt::Key_1:
      // One pixel of the picture on one of the screen.
      return Zoom(image_.width() / (PictureRect().width() / zoom_ * devicePixelRatioF()), middle),
             true;
    default:
      return false;
  }
}

bool QuickLookWindow::PanKey(int key) {
  switch (key) {
    case Qt::Key_Left:
      return Pan({kPanStep, 0}), true;
    case Qt::Key_Right:
      return Pan({-kPanStep, 0}), true;
    case Qt::Key_Up:
      return Pan({0, kPanStep}), true;
    case Qt::Key_Down:
      return Pan({0, -kPanStep}), true;
    default:
      return false;
  }
}

void QuickLookWindow::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (ZoomKey(key)) return;
  if (event->modifiers().testFlag(Qt::ShiftModifier) && PanKey(key)) return;
  switch (key) {
    case Qt::Key_F:
    case Qt::Key_F11:
      // A picture without a window of its own has nowhere to go back to.
      return FullScreenMode(!isFullScreenMode_);
    case Qt::Key_Escape:
      return isFullScreenMode_ ? FullScreenMode(false) : void(close());
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return CloseAll();
    case Qt::Key_Left:
    case Qt::Key_Up:
    case Qt::Key_PageUp:
      return Go(-1);
    case Qt::Key_Right:
    case Qt::Key_Down:
    case Qt::Key_PageDown:
      return Go(1);
    case Qt::Key_Home:
      return Go(-currentImage_);
    case Qt::Key_End:
      return Go(static_cast<int>(items_.size()) - 1 - currentImage_);
    default:
      ifkWindow::keyPressEvent(event);
  }
}

void QuickLookWindow::CloseAll() {
  QuickLookWindow* below = parent_;
  close();
  if (below != nullptr) below->close();
}

void QuickLookWindow::mousePressEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  if (event->button() != Qt::LeftButton) return;
  if (iconFullScreenLocation().contains(at)) return FullScreenMode(!isFullScreenMode_);
  if (iconCloseLocation().contains(at)) return CloseAll();
  lastDrag_ = event->position();
  panning_ = zoom_ > 1;
  if (!panning_ && !isFullScreenMode_) ifkWindow::mousePressEvent(event);
}

void QuickLookWindow::mouseMoveEvent(QMouseEvent* event) {
  Wake();
  if (panning_) {
    Pan(event->position() - lastDrag_);
    lastDrag_ = event->position();
  } else if (!isFullScreenMode_ && event->buttons() != Qt::NoButton) {
    ifkWindow::mouseMoveEvent(event);
  }
}

void QuickLookWindow::mouseReleaseEvent(QMouseEvent* event) {
  const bool panned = std::exchange(panning_, false);
  if (!panned && !isFullScreenMode_) ifkWindow::mouseReleaseEvent(event);
}

void QuickLookWindow::mouseDoubleClickEvent(QMouseEvent* event) {
  if (!PictureRect().contains(event->position()) || !HasPicture()) return;
  if (zoom_ > 1) return Zoom(1, event->position());
  constexpr double kCloser = 3;
  Zoom(kCloser, event->position());
}

void QuickLookWindow::closeEvent(QCloseEvent* event) {
  if (!isFullScreenMode_) {
    preferences_.Assign(kDimensionsKey, Dimensions());
    preferences_.SynchronizeSoon();
  }
  loader_.Stop();
  if (fullScreen_) fullScreen_->close();
  ifkWindow::closeEvent(event);
}

}  // namespace brivolant
