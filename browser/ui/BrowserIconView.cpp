// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QWheelEvent>
#include <array>

#include "browser/ui/BrowserViews.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/ifkColors.h"

namespace brivolant {
namespace {

constexpr int kCorner = 6;
/// Units that the pointer moves before a press becomes a drag.
constexpr int kDragDistance = 5;

/// More are not kept: a screen holds far fewer.
constexpr std::size_t kMostLabels = 4000;

/// A label in at most two lines: words as long as they fit; a word that is wider than the cell is
/// cut where it is estimated to end.
std::array<QString, 2> LinesOf(const QString& text, const QFontMetrics& metrics, int cell) {
  const int room = cell - 8;
  if (metrics.horizontalAdvance(text) <= room) return {text, {}};
  std::array<QString, 2> lines;
  int line = 0;
  int running = 0;
  const int blank = metrics.horizontalAdvance(QLatin1Char(' '));
  for (const QString& word : text.split(QLatin1Char(' '))) {
    const int width = metrics.horizontalAdvance(word);
    if (running + width <= room) {
      if (!lines[line].isEmpty()) lines[line] += QLatin1Char(' ');
      lines[line] += word;
      running += width + blank;
    } else if (width <= room) {
      if (line == 1) break;
      line = 1;
      lines[1] = word;
      running = width + blank;
    } else {
      const auto fit =
          static_cast<qsizetype>(static_cast<double>(room) /
                                 (static_cast<double>(width) / static_cast<double>(word.size())));
      if (lines[0].isEmpty()) {
        lines[0] = word.left(fit);
        lines[1] = word.mid(fit);
        if (metrics.horizontalAdvance(lines[1]) > cell) lines[1] = lines[1].left(fit);
      } else if (line == 0) {
        lines[1] = word.left(fit);
      }
      break;
    }
  }
  return lines;
}

}  // namespace

BrowserIconView::BrowserIconView(multiViewFileBrowser& browser) : BrowserView(browser) {}

QFont BrowserIconView::TextFont() const {
  // The desktop's font is the middle size.
  const int size = browser_.IconSize();
  constexpr double kLarge = 1.0;
  constexpr double kMiddle = 11.0 / 13;
  constexpr double kSmall = 9.0 / 13;
  QFont text = font();
  text.setPointSizeF(text.pointSizeF() * (size > 64 ? kLarge : size > 20 ? kMiddle : kSmall));
  return text;
}

IconGrid BrowserIconView::Grid() const {
  IconGrid grid;
  grid.Width = viewport()->width();
  grid.Height = viewport()->height();
  grid.Count = browser_.Count();
  grid.IconSize = browser_.IconSize();
  grid.TextHeight = QFontMetrics(TextFont()).height();
  grid.Scroll = verticalScrollBar()->value();
  grid.Centered = browser_.hAlignColumns();
  return grid;
}

QRect BrowserIconView::CellRect(int row) const {
  const IconGrid grid = Grid();
  const IconGrid::Cell cell = grid.At(row);
  return {cell.x, cell.y, grid.CellWidth(), grid.CellHeight()};
}

QRect BrowserIconView::LabelRect(int row) const {
  const IconGrid grid = Grid();
  const IconGrid::Cell cell = grid.At(row);
  return {cell.x, cell.y + grid.IconSize + 8, grid.CellWidth(), grid.TextHeight};
}

void BrowserIconView::UpdateScrollBar() {
  const IconGrid grid = Grid();
  QScrollBar& bar = *verticalScrollBar();
  bar.setRange(0, grid.Maximum());
  bar.setSingleStep(grid.CellHeight() / 2);
  bar.setPageStep(grid.Height);
}

int BrowserIconView::RowsPerPage() const {
  const IconGrid grid = Grid();
  return std::max(grid.Height / grid.CellHeight(), 1);
}

void BrowserIconView::ScrollTo(int row) {
  UpdateScrollBar();
  verticalScrollBar()->setValue(Grid().ScrollTo(row));
}

void BrowserIconView::resizeEvent(QResizeEvent*) {
  UpdateScrollBar();
}

QRect BrowserIconView::DragRect() const {
  return QRect(DragSelStart, DragSelEnd).normalized();
}

void BrowserIconView::UpdateSelectionFromRect(const QRect& rect) {
  IconGrid grid = Grid();
  grid.Scroll = 0;
  for (int i = 0; i < grid.Count; ++i) {
    browser_.Rows().Select(
        i, grid.Meets(i, rect.left(), rect.top(), rect.right() + 1, rect.bottom() + 1));
  }
}

void BrowserIconView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(viewport()->rect(), ifkColors::DocumentWindowBackground());
  const IconGrid grid = Grid();
  if (grid.Count == 0 && !browser_.Listing()) {
    painter.setPen(ifkColors::TextDisabled());
    painter.drawText(viewport()->rect(), Qt::AlignCenter, ToQString(browser_.TextOfNothing()));
  }
  painter.setRenderHint(QPainter::Antialiasing);
  const QRect band = DragRect().translated(0, -grid.Scroll);
  if (iconViewDragMode == kRubberBand) painter.fillRect(band, ifkColors::SecondaryHighlightColor());
  const QFont text = TextFont();
  if (text != labelFont_ || grid.CellWidth() != labelCell_ || labels_.size() > kMostLabels) {
    labels_.clear();
    labelFont_ = text;
    labelCell_ = grid.CellWidth();
  }
  painter.setFont(text);
  for (int i = grid.FirstInView(); i < grid.EndInView(); ++i) {
    if (event->region().intersects(CellRect(i))) PaintCell(painter, i);
  }
  if (iconViewDragMode == kRubberBand) {
    painter.setPen(ifkColors::Focus());
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(band);
  }
  browser_.RowsInView(grid.FirstInView(), grid.EndInView());
}

const BrowserIconView::Label& BrowserIconView::LabelOf(int row, const QFontMetrics& metrics,
                                                       int cell) {
  const std::string name = browser_.Rows().Name(row);
  const auto [at, fresh] = labels_.try_emplace(name);
  Label& label = at->second;
  if (!fresh) return label;
  for (QString line : LinesOf(ToQString(name), metrics, cell)) {
    // Where a word ends was estimated; nothing reaches into the cell beside.
    while (metrics.horizontalAdvance(line) > cell) line.chop(1);
    if (line.isEmpty()) continue;
    QStaticText& text = label.Lines.at(static_cast<std::size_t>(label.Count));
    text = QStaticText(line);
    text.setTextFormat(Qt::PlainText);
    text.prepare({}, labelFont_);
    label.Widths.at(static_cast<std::size_t>(label.Count)) = metrics.horizontalAdvance(line);
    ++label.Count;
  }
  return label;
}

void BrowserIconView::PaintCell(QPainter& painter, int row) {
  const IconGrid grid = Grid();
  const auto [x, y] = grid.At(row);
  const int side = grid.IconSize;
  const bool selected = browser_.isItemSelected(row);
  const bool active = hasFocus();
  const QColor highlight =
      active ? ifkColors::iAppsHighLightColor() : ifkColors::SecondaryHighlightColor();
  const QRectF place(x + IconGrid::kInset - 4, y + 2, side + 8, side + 4);
  if (selected || row == dropRow_) {
    QColor behind = ifkColors::IconLabelBackgroundSelected();
    behind.setAlphaF(row == dropRow_ ? 0.45F : 0.22F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(behind);
    painter.drawRoundedRect(place, kCorner, kCorner);
  }
  const QPixmap picture = browser_.CellPicture(row, side);
  if (!picture.isNull()) {
    const QSize size = (QSizeF(picture.size()) / picture.devicePixelRatio()).toSize();
    const auto item = browser_.Rows().Item(row);
    const bool shown = item == nullptr || item->Visible();
    painter.setOpacity(shown ? 1 : 0.5);
    painter.drawPixmap(x + IconGrid::kInset + (side - size.width()) / 2,
                       y + 4 + (side - size.height()) / 2, picture);
    painter.setOpacity(1);
  }
  const QFontMetrics metrics = painter.fontMetrics();
  const int cell = grid.CellWidth();
  const Label& label = LabelOf(row, metrics, cell);
  const int widest = std::max(label.Widths[0], label.Widths[1]);
  const int top = y + side + 8;
  const int height = grid.TextHeight * std::max(label.Count, 1);
  if (selected) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(highlight);
    const int wide = std::min(widest + 8, cell);
    painter.drawRoundedRect(QRectF(x + (cell - wide) / 2.0, top, wide, height), kCorner, kCorner);
  }
  const auto item = browser_.Rows().Item(row);
  painter.setPen(item != nullptr && !item->Visible() ? ifkColors::TextDisabled()
                 : selected && active                ? ifkColors::TextSelected()
                                                     : ifkColors::TextActive());
  for (int i = 0; i < label.Count; ++i) {
    const auto line = static_cast<std::size_t>(i);
    painter.drawStaticText(x + (cell - label.Widths.at(line)) / 2, top + i * grid.TextHeight,
                           label.Lines.at(line));
  }
  if (active && row == browser_.ListIndex() && !selected) {
    painter.setPen(ifkColors::FocusHighlight());
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(place, kCorner, kCorner);
  }
}

void BrowserIconView::mousePressEvent(QMouseEvent* event) {
  if (browser_.HandleSideButton(event->button())) return;
  const QPoint at = event->position().toPoint();
  const int row = itemInIconViewAtXY(at.x(), at.y());
  setFocus();
  if (event->button() == Qt::RightButton) {
    if (row < 0 || !browser_.isItemSelected(row)) browser_.PressRow(row, {});
    return;
  }
  if (event->button() != Qt::LeftButton) return;
  browser_.PressRow(row, event->modifiers());
  iconViewDragMode = row < 0 && browser_.AllowMultiSelect ? kEmptyPressed : kItemPressed;
  DragSelStart = DragSelEnd = at + QPoint(0, verticalScrollBar()->value());
  LastMousePos = at;
}

void BrowserIconView::mouseMoveEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  const QPoint moved = at - LastMousePos;
  const bool far = std::abs(moved.x()) > kDragDistance || std::abs(moved.y()) > kDragDistance;
  if (iconViewDragMode == kItemPressed && far) {
    iconViewDragMode = kNoDrag;
    browser_.StartDrag();
    return;
  }
  if (iconViewDragMode == kEmptyPressed && far) iconViewDragMode = kRubberBand;
  if (iconViewDragMode != kRubberBand) return;
  QScrollBar& bar = *verticalScrollBar();
  if (at.y() < 0) bar.setValue(bar.value() + at.y());
  if (at.y() > viewport()->height()) bar.setValue(bar.value() + at.y() - viewport()->height());
  DragSelEnd = at + QPoint(0, bar.value());
  UpdateSelectionFromRect(DragRect());
  viewport()->update();
}

void BrowserIconView::mouseReleaseEvent(QMouseEvent*) {
  const bool band = iconViewDragMode == kRubberBand;
  iconViewDragMode = kNoDrag;
  if (!band) return;
  viewport()->update();
  browser_.RaiseSelectionChanged();
}

void BrowserIconView::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  const int row = itemInIconViewAtXY(at.x(), at.y());
  iconViewDragMode = kNoDrag;
  // Alt opens too: a package as the folder that it is. Other keys select.
  const bool selects =
      (event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != Qt::NoModifier;
  if (row < 0 || event->button() != Qt::LeftButton || selects) return;
  const BrowserPayload payload = browser_.item(row);
  if (browser_.OpenItem) browser_.OpenItem(payload);
}

void BrowserIconView::contextMenuEvent(QContextMenuEvent* event) {
  browser_.ShowMenu(event->globalPos());
}

void BrowserIconView::wheelEvent(QWheelEvent* event) {
  if (event->modifiers().testFlag(Qt::ControlModifier)) {
    constexpr int kStep = 16;
    const int delta = event->angleDelta().y() > 0 ? kStep : -kStep;
    browser_.IconSize(
        std::clamp(browser_.IconSize() + delta, browser_.minIconSize(), browser_.maxIconSize()));
    if (browser_.modeChanged) browser_.modeChanged();
    event->accept();
    return;
  }
  QAbstractScrollArea::wheelEvent(event);
}

void BrowserIconView::keyPressEvent(QKeyEvent* event) {
  if (!browser_.HandleKey(*event, RowsPerPage(), IconsPerRow())) event->ignore();
}

void BrowserIconView::dragEnterEvent(QDragEnterEvent* event) {
  browser_.DragEnter(*event);
}

void BrowserIconView::dragMoveEvent(QDragMoveEvent* event) {
  const QPoint at = event->position().toPoint();
  const int row = itemInIconViewAtXY(at.x(), at.y());
  const FolderItem target = browser_.DropTarget(row, event->source());
  const int over = row >= 0 && target && target != browser_.CurrentFolder() ? row : -1;
  if (over != dropRow_) viewport()->update();
  dropRow_ = over;
  browser_.DragOver(*event, row);
}

void BrowserIconView::dragLeaveEvent(QDragLeaveEvent*) {
  dropRow_ = -1;
  viewport()->update();
}

void BrowserIconView::dropEvent(QDropEvent* event) {
  dropRow_ = -1;
  const QPoint at = event->position().toPoint();
  browser_.Drop(*event, itemInIconViewAtXY(at.x(), at.y()));
  viewport()->update();
}

}  // namespace brivolant
