// SPDX-License-Identifier: MIT
#include "kit/templateSelector.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>

#include "kit/InterfaceKitSupport.h"
#include "kit/ifkColors.h"

namespace brivolant {
namespace {

constexpr int kRests = 300;
constexpr int kCaptionWidth = 118;
constexpr int kTileHeight = 105;
constexpr int kTileCorner = 12;
constexpr int kTextLeft = 14;
constexpr double kSmall = 0.88;
constexpr int kNotch = 120;

QFont SmallBold(const QFont& font) {
  QFont small = font;
  small.setPointSizeF(small.pointSizeF() * kSmall);
  small.setBold(true);
  return small;
}

QSize SizeOf(const QImage& picture) {
  return (QSizeF(picture.size()) / picture.devicePixelRatio()).toSize();
}

/// No side longer than a tile has room for.
QImage Fitted(const QImage& picture, double ratio) {
  const int side = static_cast<int>(templateSelector::kPicture * ratio);
  QImage image = picture;
  if (image.width() > side || image.height() > side) {
    image = image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    image.setDevicePixelRatio(ratio);
  }
  return image;
}

}  // namespace

templateSelector::templateSelector(QWidget* parent) : QWidget(parent) {
  setFixedHeight(kHeight);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  hover_.setSingleShot(true);
  hover_.setInterval(kRests);
  connect(&hover_, &QTimer::timeout, this, [this] {
    hovered_ = under_;
    if (hovered_ >= 0 && Hovered) Hovered(hovered_);
  });
}

void templateSelector::Add(const std::string& caption, const QImage& picture,
                           const std::string& name, const std::string& tag, bool dropShadow,
                           const std::string& information) {
  items_.push_back(
      {Fitted(picture, devicePixelRatioF()), name, caption, information, tag, dropShadow});
}

void templateSelector::Remove(int index) {
  if (index < 0 || index >= Count()) return;
  items_.erase(items_.begin() + index);
  if (SelectedItem == index) SelectedItem = -1;
  if (SelectedItem > index) --SelectedItem;
  HoverOver(-1);
  updateScrollBar();
  update();
}

void templateSelector::RemoveAllItems() {
  items_.clear();
  focused_ = -1;
  HoverOver(-1);
  update();
}

void templateSelector::Preview(int index, const QImage& picture) {
  if (index < 0 || index >= Count()) return;
  items_[static_cast<std::size_t>(index)].Preview = Fitted(picture, devicePixelRatioF());
  update(TileRect(index));
}

void templateSelector::updateScrollBar() {
  if (myScrollBar == nullptr) return;
  const int excess = std::max(Count() * kCell + categoryWidth() - width(), 0);
  myScrollBar->setPageStep(std::max(width() - categoryWidth(), 1));
  myScrollBar->setSingleStep(kCell / 2);
  myScrollBar->setMaximum(excess);
  if (excess == 0) myScrollBar->setValue(0);
}

void templateSelector::tileOffset(int offset) {
  tileOffset_ = std::max(offset, 0);
  update();
  if (Scrolled) Scrolled();
}

int templateSelector::FirstX() const {
  const bool fits = Count() * kCell + categoryWidth() <= width();
  return categoryWidth() - (fits ? 0 : tileOffset_);
}

QRect templateSelector::TileRect(int index) const {
  return {FirstX() + index * kCell, 0, kCell, kHeight};
}

std::pair<int, int> templateSelector::Visible() const {
  const int first = std::max((categoryWidth() - FirstX()) / kCell, 0);
  const int last = std::min((width() - 1 - FirstX()) / kCell, Count() - 1);
  return {std::min(first, last + 1), last};
}

int templateSelector::TileAt(int x) const {
  if (x <= categoryWidth()) return -1;
  for (int i = 0; i < Count(); ++i) {
    const int left = FirstX() + i * kCell;
    // The pixel that two tiles share is the left one's.
    if (x >= left && x <= left + kCell) return i;
  }
  return -1;
}

void templateSelector::ScrollTo(int index) {
  if (myScrollBar == nullptr || index < 0 || index >= Count()) return;
  const int left = index * kCell;
  const int room = width() - categoryWidth();
  if (left < tileOffset_) myScrollBar->setValue(left);
  if (left + kCell > tileOffset_ + room) myScrollBar->setValue(left + kCell - room);
}

void templateSelector::Choose(int index) {
  focused_ = index;
  if (!ItemSelected || !ItemSelected(index)) SelectedItem = index;
  update();
}

void templateSelector::ChooseCategory(int category) {
  selectedCategory = category;
  focused_ = -1;
  if (ChangedCategory) ChangedCategory(category);
  if (myScrollBar != nullptr) myScrollBar->setValue(0);
  updateScrollBar();
  update();
  if (Scrolled) Scrolled();
}

void templateSelector::MouseClick(int x, int y) {
  if (x > categoryWidth()) {
    const int index = TileAt(x);
    if (index >= 0) Choose(index);
    return;
  }
  for (int i = 0; i < static_cast<int>(Catergory.size()); ++i) {
    const int top = kTop + kRow * i;
    if (y >= top && y <= top + kRow) return ChooseCategory(i);
  }
}

void templateSelector::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  HoverOver(-1);
  MouseClick(event->position().toPoint().x(), event->position().toPoint().y());
}

void templateSelector::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  const int index = byKey ? (focused_ >= 0 ? focused_ : SelectedItem) : TileAt(event->pos().x());
  if (index < 0 || index >= Count() || !ContextMenu) return event->ignore();
  HoverOver(-1);
  ContextMenu(index, byKey ? mapToGlobal(TileRect(index).center()) : event->globalPos());
}

void templateSelector::HoverOver(int index) {
  if (index == under_) return;
  const int before = under_;
  under_ = index;
  hover_.stop();
  if (hovered_ >= 0) {
    hovered_ = -1;
    if (Hovered) Hovered(-1);
  }
  if (index >= 0) hover_.start();
  if (before >= 0) update(TileRect(before));
  if (index >= 0) update(TileRect(index));
}

void templateSelector::mouseMoveEvent(QMouseEvent* event) {
  HoverOver(event->buttons() == Qt::NoButton ? TileAt(event->position().toPoint().x()) : -1);
}

void templateSelector::leaveEvent(QEvent*) {
  HoverOver(-1);
}

void templateSelector::wheelEvent(QWheelEvent* event) {
  if (myScrollBar == nullptr) return event->ignore();
  const QPoint delta = event->angleDelta();
  const int way = delta.y() != 0 ? delta.y() : delta.x();
  HoverOver(-1);
  myScrollBar->setValue(myScrollBar->value() - way * 2 * myScrollBar->singleStep() / kNotch);
  event->accept();
}

void templateSelector::keyPressEvent(QKeyEvent* event) {
  const int categories = static_cast<int>(Catergory.size());
  const auto move = [this](int to) {
    if (items_.empty()) return;
    focused_ = std::clamp(to, 0, Count() - 1);
    ScrollTo(focused_);
    update();
  };
  const int from = focused_ >= 0 ? focused_ : SelectedItem;
  switch (event->key()) {
    case Qt::Key_Left:
      return move(from < 0 ? 0 : from - 1);
    case Qt::Key_Right:
      return move(from + 1);
    case Qt::Key_Home:
      return move(0);
    case Qt::Key_End:
      return move(Count() - 1);
    case Qt::Key_Up:
      if (selectedCategory > 0) ChooseCategory(selectedCategory - 1);
      return;
    case Qt::Key_Down:
      if (selectedCategory + 1 < categories) ChooseCategory(selectedCategory + 1);
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (focused_ >= 0 && focused_ < Count()) Choose(focused_);
      return;
    default:
      return QWidget::keyPressEvent(event);
  }
}

void templateSelector::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  if (focused_ < 0) focused_ = SelectedItem;
  update();
}

bool templateSelector::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const int index = TileAt(help->pos().x());
    if (index < 0) {
      QToolTip::hideText();
    } else {
      const TemplateSelectorItem& item = Item(index);
      const QString name = ToQString(item.Name);
      const QString about = ToQString(item.Information);
      QToolTip::showText(help->globalPos(),
                         about.isEmpty() ? name : name + QStringLiteral("\n") + about, this);
    }
    return true;
  }
  return QWidget::event(event);
}

void templateSelector::resizeEvent(QResizeEvent*) {
  updateScrollBar();
  if (Scrolled) Scrolled();
}

void templateSelector::showEvent(QShowEvent*) {
  if (Scrolled) Scrolled();
}

QRect templateSelector::CaptionRect(int index) const {
  const QRect tile = TileRect(index);
  const QFontMetrics metrics(SmallBold(font()));
  const int side = categoryWidth();
  const int room = index == SelectedItem ? std::max(width() - side, kCaptionWidth) : kCaptionWidth;
  const int wide = std::min(metrics.horizontalAdvance(ToQString(Item(index).Caption)), room);
  int left = tile.x() + (kCell - wide) / 2;
  // Over the neighbours, but not out of sight.
  if (wide > kCaptionWidth) left = std::clamp(left, side, std::max(width() - wide, side));
  return {left, 0, wide, metrics.height()};
}

void templateSelector::DrawCaption(QPainter& painter, int index, int baseline) const {
  const bool selected = index == SelectedItem;
  const QFontMetrics metrics(painter.font());
  const QRect place = CaptionRect(index);
  if (selected && place.width() > kCaptionWidth) {
    constexpr int kAround = 5;
    painter.setPen(Qt::NoPen);
    painter.setBrush(ifkColors::iAppsHighLightColor());
    painter.drawRoundedRect(QRectF(place.left() - kAround, baseline - metrics.ascent(),
                                   place.width() + 2 * kAround, metrics.height()),
                            kTileCorner, kTileCorner);
  }
  const QString caption =
      InterfaceKitSupport::ClipString(painter, ToQString(Item(index).Caption), place.width());
  painter.setPen(selected ? ifkColors::TextSelected() : ifkColors::TextActive());
  painter.drawText(place.left() + (place.width() - metrics.horizontalAdvance(caption)) / 2,
                   baseline, caption);
}

void templateSelector::DrawTile(QPainter& painter, int index) const {
  const TemplateSelectorItem& item = Item(index);
  const QRect tile = TileRect(index);
  const QRectF cell(tile.x() + 1, kTop, kCell - 2, kTileHeight);
  const bool selected = index == SelectedItem;
  painter.setPen(Qt::NoPen);
  if (selected || index == under_) {
    painter.setBrush(selected ? ifkColors::iAppsHighLightColor() : ifkColors::Hover());
    painter.drawRoundedRect(cell, kTileCorner, kTileCorner);
  }
  const QFont font = SmallBold(this->font());
  painter.setFont(font);
  const QFontMetrics metrics(font);
  const QSize size = SizeOf(item.Preview);
  const int x = tile.x() + (kCell - size.width()) / 2;
  const int y = (kHeight - (size.height() + metrics.height())) / 2;
  if (!item.Preview.isNull()) {
    if (item.DropShadow && !selected) {
      InterfaceKitSupport::DrawDropShadow(painter, QRectF(QPoint(x, y), size), 0, 1, 3);
    }
    painter.drawImage(QRect(QPoint(x, y), size), item.Preview);
  }
  DrawCaption(painter, index, y + size.height() + metrics.ascent() + metrics.height() / 4);
  if (hasFocus() && index == focused_) {
    painter.setPen(QPen(ifkColors::FocusHighlight(), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(cell.adjusted(1, 1, -1, -1), kTileCorner, kTileCorner);
  }
}

void templateSelector::DrawColumn(QPainter& painter) const {
  const int side = categoryWidth();
  painter.fillRect(0, 0, side, kHeight, ifkColors::DocumentWindowBackground());
  if (tileOffset_ > 0 && FirstX() < side) {
    painter.fillRect(side - 1, 0, 1, kHeight, ifkColors::FrameActive());
  }
  for (int i = 0; i < static_cast<int>(Catergory.size()); ++i) {
    const QRectF row(6, kTop + kRow * i, side - 12, kRow);
    const bool selected = i == selectedCategory;
    QFont font = this->font();
    font.setPixelSize(kRow - 5);
    font.setBold(selected);
    painter.setFont(font);
    if (selected) {
      painter.setPen(Qt::NoPen);
      painter.setBrush(ifkColors::iAppsHighLightColor());
      painter.drawRoundedRect(row, kRow / 2.0, kRow / 2.0);
    }
    painter.setPen(selected ? ifkColors::TextSelected() : ifkColors::TextActive());
    painter.drawText(row.adjusted(kTextLeft - row.x(), 0, -4, 0), Qt::AlignVCenter | Qt::AlignLeft,
                     ToQString(Catergory[static_cast<std::size_t>(i)]));
  }
}

void templateSelector::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  painter.fillRect(rect(), ifkColors::DocumentWindowBackground());
  painter.fillRect(0, 0, width(), 1, ifkColors::FrameActive());
  constexpr double kDisabled = 0.4;
  if (!isEnabled()) painter.setOpacity(kDisabled);
  const auto [first, last] = Visible();
  for (int i = first; i <= last; ++i) {
    if (i != SelectedItem) DrawTile(painter, i);
  }
  // Last, since its name may be wider than it is.
  if (SelectedItem >= first && SelectedItem <= last) DrawTile(painter, SelectedItem);
  if (hasCategories()) DrawColumn(painter);
}

AccessibleItem templateSelector::AccessibleAt(int index) const {
  AccessibleItem item;
  const auto categories = static_cast<int>(Catergory.size());
  if (index < categories) {
    item.Name = ToQString(Catergory[static_cast<std::size_t>(index)]);
    item.Place = QRect(0, kTop + kRow * index, kColumn, kRow);
    item.Role = QAccessible::RadioButton;
    item.Selectable = false;
    item.Checkable = true;
    item.Checked = index == selectedCategory;
    return item;
  }
  const TemplateSelectorItem& tile = Item(index - categories);
  item.Name = ToQString(tile.Name);
  item.Description = ToQString(tile.Information);
  item.Place = TileRect(index - categories);
  item.Selected = index - categories == SelectedItem;
  return item;
}

void templateSelector::PressAccessible(int index) {
  const auto categories = static_cast<int>(Catergory.size());
  if (index >= categories) ScrollTo(index - categories);
  const QPoint at = AccessibleAt(index).Place.center();
  MouseClick(at.x(), at.y());
}

}  // namespace brivolant
