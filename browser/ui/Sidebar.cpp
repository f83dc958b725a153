// SPDX-License-Identifier: MIT
#include "browser/ui/Sidebar.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>

#include "browser/ui/FileIcons.h"
#include "kit/DesktopServices.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkColors.h"

namespace brivolant {
namespace {

constexpr int kRow = 28;
constexpr int kHeader = 28;
constexpr int kGap = 8;
constexpr int kIcon = 16;
constexpr int kTriangle = 22;

}  // namespace

Sidebar::Sidebar(QWidget* parent) : QAbstractScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setMouseTracking(true);
  viewport()->setAcceptDrops(true);
}

Sidebar::~Sidebar() = default;

void Sidebar::updateList() {
  rows_.clear();
  selected_ = mouseOverRow = dropRow_ = -1;
  int top = kGap;
  for (const auto& section : item) {
    if (!section->Visible) continue;
    rows_.push_back({section, nullptr, top, kHeader});
    top += kHeader;
    for (const auto& entry : section->item) {
      if (!section->ItemsVisible) break;
      rows_.push_back({section, entry, top, kRow});
      top += kRow;
    }
    top += kGap;
  }
  verticalScrollBar()->setRange(0, std::max(top - viewport()->height(), 0));
  verticalScrollBar()->setPageStep(viewport()->height());
  verticalScrollBar()->setSingleStep(kRow);
  viewport()->update();
}

void Sidebar::highlightItem(const SideBarItem::Target& value) {
  if (std::holds_alternative<std::monostate>(value) || !CompareItems) return;
  for (int i = 0; i < RowCount(); ++i) {
    const auto entry = ItemAt(i);
    if (!entry || !CompareItems(entry->Tag, value)) continue;
    selected_ = i;
    viewport()->update();
    return;
  }
}

QRect Sidebar::RowRect(int row) const {
  const Row& place = rows_[static_cast<std::size_t>(row)];
  return {0, place.top - verticalScrollBar()->value(), viewport()->width(), place.height};
}

std::shared_ptr<SideBarItem> Sidebar::ItemAt(int row) const {
  return row >= 0 && row < RowCount() ? rows_[static_cast<std::size_t>(row)].item : nullptr;
}

std::shared_ptr<SideBarCollection> Sidebar::Parent(int row) const {
  return row >= 0 && row < RowCount() ? rows_[static_cast<std::size_t>(row)].section : nullptr;
}

int Sidebar::RowAt(const QPoint& at) const {
  for (int i = 0; i < RowCount(); ++i) {
    if (RowRect(i).contains(at)) return i;
  }
  return -1;
}

int Sidebar::EjectLeft() const {
  return viewport()->width() - 28;
}

void Sidebar::scrollContentsBy(int, int) {
  viewport()->update();
}

void Sidebar::resizeEvent(QResizeEvent*) {
  const int selected = selected_;
  updateList();
  selected_ = selected;
}

void Sidebar::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(viewport()->rect(), ifkColors::FillColor());
  for (int i = 0; i < RowCount(); ++i) PaintRow(painter, i);
}

void Sidebar::PaintRow(QPainter& painter, int index) {
  const Row& row = rows_[static_cast<std::size_t>(index)];
  const QRect rect = RowRect(index);
  if (row.item == nullptr) {
    QFont bold = font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 0.85);
    painter.setFont(bold);
    painter.setPen(ifkColors::TextDisabled());
    painter.drawText(rect.adjusted(kTriangle, 0, -8, 0), Qt::AlignVCenter | Qt::AlignLeft,
                     ToQString(row.section->Caption).toUpper());
    const double y = rect.top() + (rect.height() - 8) / 2.0;
    QPainterPath triangle;
    if (row.section->ItemsVisible) {
      triangle.addPolygon(QPolygonF({{10, y + 1.5}, {18, y + 1.5}, {14, y + 6.5}}));
    } else {
      triangle.addPolygon(QPolygonF({{11.5, y}, {16.5, y + 4}, {11.5, y + 8}}));
    }
    triangle.closeSubpath();
    painter.fillPath(triangle, ifkColors::TextDisabled());
    return;
  }
  const bool selected = index == selected_;
  const QRectF place = QRectF(rect).adjusted(6, 1, -6, -1);
  painter.setPen(Qt::NoPen);
  if (selected || index == dropRow_) {
    QColor color = ifkColors::iAppsHighLightColor();
    if (index == dropRow_ && !selected) color.setAlphaF(0.4F);
    painter.setBrush(color);
    painter.drawRoundedRect(place, 6, 6);
  } else if (index == mouseOverRow || index == rightlickrow) {
    painter.setBrush(ifkColors::Hover());
    painter.drawRoundedRect(place, 6, 6);
  }
  if (index == rightlickrow) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ifkColors::Focus(), 2));
    painter.drawRoundedRect(place.adjusted(1, 1, -1, -1), 6, 6);
  }
  const QColor text = selected                     ? ifkColors::TextSelected()
                      : row.item->Tag.index() != 0 ? ifkColors::TextActive()
                                                   : ifkColors::TextDisabled();
  const QRect icon(22, rect.top() + (rect.height() - kIcon) / 2, kIcon, kIcon);
  if (row.item->image.IsNil()) {
    const QString drawing =
        ToQString(row.item->icon.empty() ? std::string("Folder") : row.item->icon);
    painter.drawPixmap(icon.topLeft(), SvgPixmap(drawing, icon.size(), devicePixelRatioF(), text));
  } else {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(icon, ImageFromPicture(row.item->image));
  }
  const bool eject = CanEject && CanEject(*row.item);
  const int right = eject ? EjectLeft() - 4 : rect.right() - 12;
  painter.setFont(font());
  painter.setPen(text);
  const QRect room(46, rect.top(), right - 46, rect.height());
  painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                   painter.fontMetrics().elidedText(ToQString(row.item->Caption), Qt::ElideMiddle,
                                                    room.width()));
  if (!eject) return;
  QPainterPath glyph;
  const double x = EjectLeft() - 1;
  const double y = rect.top() + (rect.height() - 16) / 2.0;
  glyph.addPolygon(QPolygonF({{x + 8, y + 3}, {x + 13, y + 8}, {x + 3, y + 8}}));
  glyph.closeSubpath();
  glyph.addRect(x + 3, y + 10, 10, 2);
  QColor color = text;
  if (!(index == mouseOverRow && overEject_)) color.setAlphaF(0.7F);
  painter.fillPath(glyph, color);
}

void Sidebar::Fold(SideBarCollection& section) {
  section.ItemsVisible = !section.ItemsVisible;
  const auto selected = ItemAt(selected_);
  updateList();
  for (int i = 0; selected && i < RowCount(); ++i) {
    if (ItemAt(i) == selected) selected_ = i;
  }
  if (Folded) Folded(section);
}

void Sidebar::Choose(int row) {
  const auto chosen = ItemAt(row);
  if (!chosen) return;
  selected_ = row;
  viewport()->update();
  TellAccessibleFocus(*this, row);
  if (std::holds_alternative<std::monostate>(chosen->Tag)) return;
  if (itemSelected) itemSelected(*chosen, false);
}

void Sidebar::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QPoint at = event->position().toPoint();
  const int row = RowAt(at);
  if (row < 0) return;
  setFocus();
  const auto chosen = ItemAt(row);
  if (!chosen) {
    const auto section = Parent(row);
    if (at.x() < kTriangle) Fold(*section);
    return;
  }
  if (at.x() >= EjectLeft() - 4 && CanEject && CanEject(*chosen)) {
    if (itemSelected) itemSelected(*chosen, true);
    return;
  }
  Choose(row);
}

void Sidebar::mouseMoveEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  mouseOverRow = RowAt(at);
  overEject_ = at.x() >= EjectLeft() - 4;
  viewport()->update();
}

void Sidebar::leaveEvent(QEvent*) {
  mouseOverRow = -1;
  viewport()->update();
}

void Sidebar::contextMenuEvent(QContextMenuEvent* event) {
  const int row = RowAt(event->pos());
  const auto clicked = ItemAt(row);
  if (!clicked || !RightClick) return;
  QMenu menu;
  const auto section = Parent(row);
  if (!RightClick(menu, clicked, *section)) return;
  rightlickrow = row;
  viewport()->repaint();
  const std::shared_ptr<void> hold = Holding ? Holding() : nullptr;
  menu.exec(event->globalPos());
  rightlickrow = -1;
  viewport()->update();
}

void Sidebar::keyPressEvent(QKeyEvent* event) {
  const auto go = [this](int by) {
    for (int row = selected_ + by; row >= 0 && row < RowCount(); row += by) {
      if (ItemAt(row)) return Choose(row);
    }
  };
  const auto chosen = ItemAt(selected_);
  const auto section = Parent(selected_);
  switch (event->key()) {
    case Qt::Key_Up:
      return go(-1);
    case Qt::Key_Down:
      return go(1);
    case Qt::Key_Left:
    case Qt::Key_Right:
      if (section && section->ItemsVisible == (event->key() == Qt::Key_Left)) Fold(*section);
      return;
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
      if (chosen && Removed) Removed(chosen, *section);
      return;
    default:
      QAbstractScrollArea::keyPressEvent(event);
  }
}

bool Sidebar::Takes(int row) const {
  const auto section = Parent(row);
  return section && (!TakesFiles || TakesFiles(ItemAt(row), *section));
}

void Sidebar::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls() && FilesDropped) AcceptAsCopy(*event);
}

void Sidebar::dragMoveEvent(QDragMoveEvent* event) {
  const int row = RowAt(event->position().toPoint());
  dropRow_ = Takes(row) ? row : -1;
  viewport()->update();
  AcceptAsCopy(*event);
  event->setAccepted(dropRow_ >= 0);
}

void Sidebar::dragLeaveEvent(QDragLeaveEvent*) {
  dropRow_ = -1;
  viewport()->update();
}

void Sidebar::dropEvent(QDropEvent* event) {
  const int row = RowAt(event->position().toPoint());
  dropRow_ = -1;
  viewport()->update();
  const auto section = Parent(row);
  const DragItem dropped = TakeDrag(*event->mimeData());
  if (dropped.Files.empty() || !FilesDropped || !Takes(row)) return event->ignore();
  AcceptAsCopy(*event);
  const auto target = ItemAt(row);
  FilesDropped(dropped.Files, target, *section);
}

AccessibleItem Sidebar::AccessibleAt(int index) const {
  const Row& row = rows_[static_cast<std::size_t>(index)];
  AccessibleItem item;
  item.Place = RowRect(index).translated(viewport()->pos());
  item.Name = ToQString(row.item ? row.item->Caption : row.section->Caption);
  item.Selected = index == selected_;
  if (row.item) return item;
  item.Role = QAccessible::Heading;
  item.Selectable = false;
  item.Checkable = true;
  item.Checked = row.section->ItemsVisible;
  return item;
}

void Sidebar::PressAccessible(int index) {
  if (ItemAt(index)) return Choose(index);
  Fold(*Parent(index));
}

}  // namespace brivolant
