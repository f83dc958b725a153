// SPDX-License-Identifier: MIT
#include "browser/ui/ColumnPreview.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "kit/DesktopServices.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkColors.h"

namespace brivolant {
namespace {

constexpr int kMargin = 20;
constexpr int kToggleLeft = 16;
constexpr int kToggleIcon = 16;
constexpr int kToggleText = 36;
constexpr int kToggleFont = 11;
/// What the lines need below the picture, as a factor of its height.
constexpr double kRoomForLines = 1.3;
constexpr double kRoomWithoutLines = 1.05;
constexpr double kTitleShare = 30;
constexpr double kLinesToTitle = 0.66;
constexpr int kSmallestLoad = 512;
/// Milliseconds of quiet after which a larger panel gets a larger picture.
constexpr int kResized = 150;

QFont Bold(const QFont& base, int pixels) {
  QFont font = base;
  font.setBold(true);
  font.setPixelSize(std::max(pixels, 8));
  return font;
}

}  // namespace

ColumnPreview::ColumnPreview(std::shared_ptr<const FilePreviewer> previewer, QWidget* parent)
    : QWidget(parent), loader_(std::move(previewer)) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::TabFocus);
  setAccessibleName(brivolant::Shown(kPreview));
  loader_.Loaded = [this](FilePreview preview) { Take(std::move(preview)); };
  resized_.setSingleShot(true);
  resized_.setInterval(kResized);
  connect(&resized_, &QTimer::timeout, this, [this] {
    if (!file_.IsNil() && NeededSide() > loadedSide_) Load();
  });
}

int ColumnPreview::NeededSide() const {
  const double wanted = std::max(width(), height()) * devicePixelRatioF();
  int side = kSmallestLoad;
  while (side < wanted) side *= 2;
  return side;
}

void ColumnPreview::Display(const FolderItem& file, std::int64_t stamp, const QString& title,
                            const QImage& image) {
  if (file == file_ && stamp == stamp_) return;
  file_ = file;
  stamp_ = stamp;
  image_ = image;
  scaled_ = {};
  lines_ = {title.toStdString()};
  Load();
  update();
}

void ColumnPreview::Clear() {
  loader_.Stop();
  file_ = {};
  image_ = {};
  scaled_ = {};
  lines_.clear();
  setAccessibleDescription({});
  update();
}

void ColumnPreview::Load() {
  loadedSide_ = NeededSide();
  loader_.Load(file_, loadedSide_, true);
}

void ColumnPreview::Take(FilePreview preview) {
  if (!preview.Shown.IsNil()) {
    image_ = ImageFromPicture(preview.Shown);
    scaled_ = {};
  }
  lines_ = std::move(preview.Lines);
  QStringList spoken;
  for (const std::string& line : lines_) spoken << ToQString(line);
  setAccessibleDescription(spoken.join(QStringLiteral(". ")));
  update();
}

void ColumnPreview::PreviewDisplayMetaData(bool display) {
  previewDisplayMetaData_ = display;
  scaled_ = {};
  update();
}

QRect ColumnPreview::InformationRect() const {
  const int text =
      QFontMetrics(Bold(font(), kToggleFont)).horizontalAdvance(brivolant::Shown(kInformationShow));
  return {kToggleLeft, height() - 2 * kToggleIcon, 2 * kToggleIcon + text + 4, kToggleIcon};
}

void ColumnPreview::Switch() {
  PreviewDisplayMetaData(!previewDisplayMetaData_);
  if (InformationSwitched) InformationSwitched();
}

void ColumnPreview::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  InterfaceKitSupport::DrawGradient(painter, rect(), QColor(0x03, 0x03, 0x03),
                                    QColor(0x50, 0x51, 0x60), InterfaceKitSupport::kGradientDown);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  if (!image_.isNull()) {
    const double reserve = previewDisplayMetaData_ ? kRoomForLines : kRoomWithoutLines;
    const QSizeF own = image_.size();
    const double scale = std::max(std::min((width() - 2 * kMargin) / own.width(),
                                           (height() - 2 * kMargin) / (own.height() * reserve)),
                                  0.0);
    const int w = std::max(static_cast<int>(own.width() * scale), 1);
    const int h = std::max(static_cast<int>(own.height() * scale), 1);
    const int x = (width() - w) / 2;
    const int y = static_cast<int>((height() - h * reserve) / 2);
    const QRect place(x, y, w, h);
    if (!image_.hasAlphaChannel()) InterfaceKitSupport::DrawDropShadow(painter, place, 0, 5, 5);
    const QSize pixels = place.size() * devicePixelRatioF();
    if (scaled_.size() != pixels) {
      scaled_ = image_.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    painter.drawImage(place, scaled_);
    if (previewDisplayMetaData_) PaintLines(painter, y + h);
  }
  if (hasFocus()) {
    painter.setPen(QPen(ifkColors::Focus(), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(InformationRect()).adjusted(-4, -4, 0, 4), 4, 4);
  }
  const QString name =
      previewDisplayMetaData_ ? QStringLiteral("InfoHide") : QStringLiteral("info");
  painter.drawPixmap(
      kToggleLeft, height() - 2 * kToggleIcon,
      SvgPixmap(name, QSize(kToggleIcon, kToggleIcon), devicePixelRatioF(), Qt::white));
  painter.setFont(Bold(font(), kToggleFont));
  painter.setPen(Qt::white);
  painter.drawText(QRect(kToggleText, height() - 2 * kToggleIcon, width(), kToggleIcon),
                   Qt::AlignLeft | Qt::AlignVCenter,
                   brivolant::Shown(previewDisplayMetaData_ ? kInformationHide : kInformationShow));
}

void ColumnPreview::PaintLines(QPainter& painter, int top) {
  const int room = width() - 2 * kMargin;
  if (room < 1) return;
  const auto title =
      static_cast<int>(std::sqrt(static_cast<double>(width()) * height()) / kTitleShare);
  painter.setFont(Bold(font(), title));
  painter.setPen(Qt::white);
  // The lines stay clear of the switch below them.
  const int bottom = height() - 2 * kToggleIcon;
  int y = top + painter.fontMetrics().height() / 2;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const QString text = ToQString(lines_[i]);
    const int flags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextWrapAnywhere | Qt::TextWordWrap;
    const QRect needed =
        painter.fontMetrics().boundingRect(QRect(0, 0, room, height()), flags, text);
    if (y + painter.fontMetrics().height() > bottom) break;
    painter.drawText(QRect(kMargin, y, room, bottom - y), flags, text);
    y += std::max(needed.height(), painter.fontMetrics().height());
    if (i == 0) painter.setFont(Bold(font(), static_cast<int>(title * kLinesToTitle)));
  }
}

void ColumnPreview::resizeEvent(QResizeEvent*) {
  scaled_ = {};
  if (!file_.IsNil() && NeededSide() > loadedSide_) resized_.start();
}

void ColumnPreview::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && InformationRect().contains(event->position().toPoint()))
    Switch();
}

void ColumnPreview::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  if (InformationRect().contains(event->position().toPoint())) return Switch();
  if (DoubleClicked) DoubleClicked();
}

void ColumnPreview::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return ||
      event->key() == Qt::Key_Enter) {
    return Switch();
  }
  QWidget::keyPressEvent(event);
}

}  // namespace brivolant
