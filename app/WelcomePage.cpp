// SPDX-License-Identifier: MIT
#include "app/WelcomePage.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <QThreadPool>
#include <algorithm>
#include <atomic>
#include <cmath>

#include "app/core/RecentItems.h"
#include "formats/BrivolantDocument.h"
#include "formats/ImageFile.h"
#include "kit/DesktopServices.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkButton.h"
#include "kit/ifkColors.h"
#include "platform/codecs/ImageCodecs.h"

namespace brivolant {
namespace {

constexpr int kMargin = 32;
constexpr int kZoneHeight = 208;
constexpr int kTile = 160;
constexpr int kTileHeight = 152;
constexpr int kGap = 16;
constexpr int kPicture = 112;
constexpr int kHeading = 40;

/// The picture of a file, by the cheapest way there is; nil if it has none.
Picture PreviewOf(const std::string& path, int longest) {
  const FolderItem file(path);
  std::string ignored;
  if (file.Directory()) {
    return ImageIO::OpenAsPictureUsingImageIO(file.Child(BrivolantDocument::kThumbnailName),
                                              ignored);
  }
  auto source = ImageSource::Open(file);
  if (!source) return {};
  auto picture = (*source.value)->Thumbnail(longest);
  return picture ? std::move(*picture) : Picture();
}

}  // namespace

struct WelcomePage::Previews {
  std::atomic<int> generation = 0;
  QThreadPool pool;
};

WelcomePage::WelcomePage(QWidget* parent)
    : QWidget(parent),
      open_(new ifkButton(this, Shown(kOpen))),
      previews_(std::make_shared<Previews>()) {
  setAcceptDrops(true);
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  previews_->pool.setMaxThreadCount(1);
  open_->Default = true;
  open_->icon({});
  open_->Action = [this] {
    if (Open) Open();
  };
}

WelcomePage::~WelcomePage() {
  ++previews_->generation;
  previews_->pool.clear();
  previews_->pool.waitForDone();
}

void WelcomePage::Show(const std::vector<std::string>& paths) {
  const int generation = ++previews_->generation;
  previews_->pool.clear();
  std::vector<Item> items;
  items.reserve(paths.size());
  for (const std::string& path : paths) {
    items.push_back({path, ToQString(RecentItems::TextFor(path)), {}, false});
  }
  items_ = std::move(items);
  hover_ = -1;
  PlaceButton();
  const int longest = static_cast<int>(std::lround(kTile * devicePixelRatioF()));
  for (std::size_t i = 0; i < items_.size(); ++i) {
    previews_->pool.start([shared = previews_, page = QPointer<WelcomePage>(this), generation, i,
                           path = items_[i].path, longest] {
      if (shared->generation != generation) return;
      const QImage image = ImageFromPicture(PreviewOf(path, longest));
      if (image.isNull() || page.isNull()) return;
      QMetaObject::invokeMethod(
          page.data(),
          [shared, page, generation, i, image] {
            if (page.isNull() || shared->generation != generation) return;
            page->items_[i].preview = image;
            page->update();
          },
          Qt::QueuedConnection);
    });
  }
  update();
}

int WelcomePage::PreviewsShown() const {
  return static_cast<int>(std::count_if(items_.begin(), items_.end(),
                                        [](const Item& item) { return !item.preview.isNull(); }));
}

QRect WelcomePage::DropZone() const {
  const int width = std::min(this->width() - 2 * kMargin, 640);
  const int top = items_.empty() ? (height() - kZoneHeight) / 3 : kMargin;
  return {(this->width() - width) / 2, std::max(top, kMargin), width, kZoneHeight};
}

int WelcomePage::Columns() const {
  return std::max((width() - 2 * kMargin + kGap) / (kTile + kGap), 1);
}

QRect WelcomePage::ItemRect(int index) const {
  const int columns = std::min(Columns(), std::max(static_cast<int>(items_.size()), 1));
  const int total = columns * kTile + (columns - 1) * kGap;
  const int left = (width() - total) / 2;
  const int top = DropZone().bottom() + kHeading + 16;
  const QRect rect(left + index % columns * (kTile + kGap),
                   top + index / columns * (kTileHeight + kGap), kTile, kTileHeight);
  return rect.bottom() > height() - 8 ? QRect() : rect;
}

int WelcomePage::ItemAt(const QPoint& position) const {
  for (int i = 0; i < static_cast<int>(items_.size()); ++i) {
    if (ItemRect(i).contains(position)) return i;
  }
  return -1;
}

void WelcomePage::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.fillRect(rect(), ifkColors::FillColor());
  const QRect zone = DropZone();
  QPen dashes(dropping_ ? ifkColors::Focus() : ifkColors::FrameActive(), 2, Qt::DashLine);
  painter.setPen(dashes);
  painter.setBrush(dropping_ ? ifkColors::SecondaryHighlightColor() : ifkColors::listRowColorOdd());
  painter.drawRoundedRect(QRectF(zone).adjusted(1, 1, -1, -1), 12, 12);
  const int icon = 64;
  painter.drawPixmap(zone.center().x() - icon / 2, zone.top() + 24,
                     SvgPixmap(QStringLiteral("DropPhoto"), QSize(icon, icon), devicePixelRatioF(),
                               ifkColors::TextDisabled()));
  painter.setPen(ifkColors::TextDisabled());
  painter.drawText(QRect(zone.left(), zone.bottom() - 48, zone.width(), 32), Qt::AlignCenter,
                   Shown(kDrop));
  if (items_.empty() || ItemRect(0).isEmpty()) return;
  QFont bold = font();
  bold.setBold(true);
  painter.setFont(bold);
  painter.setPen(ifkColors::TextActive());
  painter.drawText(QRect(ItemRect(0).left(), zone.bottom() + 16, width(), kHeading - 8),
                   Qt::AlignLeft | Qt::AlignVCenter, Shown(kRecent));
  painter.setFont(font());
  for (int i = 0; i < static_cast<int>(items_.size()); ++i) {
    const QRect place = ItemRect(i);
    if (place.isEmpty()) break;
    const Item& item = items_[static_cast<std::size_t>(i)];
    const bool focused = hasFocus() && i == focused_;
    if (i == hover_ || focused) {
      painter.setPen(focused ? QPen(ifkColors::Focus(), 2) : QPen(Qt::NoPen));
      painter.setBrush(ifkColors::Hover());
      painter.drawRoundedRect(QRectF(place).adjusted(1, 1, -1, -1), 8, 8);
    }
    const QRect frame(place.left() + 8, place.top() + 8, place.width() - 16, kPicture);
    if (item.preview.isNull()) {
      painter.drawPixmap(frame.center().x() - 24, frame.center().y() - 24,
                         SvgPixmap(QStringLiteral("BrivolantPhotosDocument"), QSize(48, 48),
                                   devicePixelRatioF(), ifkColors::TextDisabled()));
    } else {
      QSizeF size = QSizeF(item.preview.size()).scaled(frame.size(), Qt::KeepAspectRatio);
      const QRectF target(frame.center().x() - size.width() / 2,
                          frame.center().y() - size.height() / 2, size.width(), size.height());
      QPainterPath clip;
      clip.addRoundedRect(target, 4, 4);
      painter.save();
      painter.setClipPath(clip);
      painter.drawImage(target, item.preview);
      painter.restore();
    }
    painter.setPen(ifkColors::TextActive());
    painter.drawText(QRect(place.left() + 8, frame.bottom() + 4, place.width() - 16, 24),
                     Qt::AlignCenter,
                     fontMetrics().elidedText(item.name, Qt::ElideMiddle, place.width() - 16));
  }
}

void WelcomePage::resizeEvent(QResizeEvent*) {
  PlaceButton();
}

void WelcomePage::PlaceButton() {
  const QSize size = open_->sizeHint() + QSize(16, 8);
  const QRect zone = DropZone();
  open_->setGeometry(zone.center().x() - size.width() / 2, zone.top() + 104, size.width(),
                     size.height());
}

void WelcomePage::mouseMoveEvent(QMouseEvent* event) {
  const int over = ItemAt(event->position().toPoint());
  setCursor(over < 0 ? Qt::ArrowCursor : Qt::PointingHandCursor);
  if (over == hover_) return;
  hover_ = over;
  setToolTip(over < 0 ? QString() : ToQString(items_[static_cast<std::size_t>(over)].path));
  update();
}

void WelcomePage::mouseReleaseEvent(QMouseEvent* event) {
  const int item = ItemAt(event->position().toPoint());
  if (item < 0 || event->button() != Qt::LeftButton || !OpenRecent) return;
  OpenRecent(std::string(items_[static_cast<std::size_t>(item)].path));
}

void WelcomePage::keyPressEvent(QKeyEvent* event) {
  const int last = static_cast<int>(items_.size()) - 1;
  const auto go = [&](int by) {
    focused_ = std::clamp(focused_ + by, 0, std::max(last, 0));
    update();
  };
  switch (event->key()) {
    case Qt::Key_Left:
      return go(-1);
    case Qt::Key_Right:
      return go(1);
    case Qt::Key_Up:
      return go(-Columns());
    case Qt::Key_Down:
      return go(Columns());
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (focused_ <= last && OpenRecent) {
        OpenRecent(std::string(items_[static_cast<std::size_t>(focused_)].path));
      }
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

void WelcomePage::leaveEvent(QEvent*) {
  hover_ = -1;
  update();
}

void WelcomePage::dragEnterEvent(QDragEnterEvent* event) {
  if (!CanTake(*event->mimeData())) return;
  dropping_ = true;
  event->acceptProposedAction();
  update();
}

void WelcomePage::dragLeaveEvent(QDragLeaveEvent*) {
  dropping_ = false;
  update();
}

void WelcomePage::dropEvent(QDropEvent* event) {
  dropping_ = false;
  update();
  const DragItem item = TakeDrag(*event->mimeData());
  if (item.IsEmpty()) return;
  event->acceptProposedAction();
  if (Dropped) Dropped(item);
}

bool WelcomePage::event(QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
  return QWidget::event(event);
}

}  // namespace brivolant
