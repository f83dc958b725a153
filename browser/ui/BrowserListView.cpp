// SPDX-License-Identifier: MIT
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStandardItemModel>

#include "browser/ui/BrowserViews.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/ifkColors.h"

namespace brivolant {
namespace {

constexpr int kRow = 24;
constexpr int kTallRow = 40;
constexpr int kDragDistance = 5;

/// Flat headings whose words stand above those of the rows.
class Headings final : public QHeaderView {
 public:
  explicit Headings(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int column) const override {
    painter->fillRect(rect, ifkColors::FillColor());
    painter->setPen(ifkColors::FrameActive());
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());
    painter->drawLine(rect.topRight() + QPoint(0, 6), rect.bottomRight() - QPoint(0, 6));
    const bool sorted = sortIndicatorSection() == column;
    QRect room = rect.adjusted(kPadding, 0, -kPadding, 0);
    if (sorted) {
      painter->save();
      painter->setRenderHint(QPainter::Antialiasing);
      painter->setPen(QPen(ifkColors::TextActive(), 1.4, Qt::SolidLine, Qt::RoundCap));
      const QPointF tip(room.right() - 4, rect.center().y() + 0.5);
      const double up = sortIndicatorOrder() == Qt::AscendingOrder ? 2 : -2;
      painter->drawLine(tip + QPointF(-4, up), tip - QPointF(0, up));
      painter->drawLine(tip + QPointF(4, up), tip - QPointF(0, up));
      painter->restore();
      room.setRight(room.right() - 14);
    }
    painter->setPen(sorted ? ifkColors::TextActive() : ifkColors::TextDisabled());
    const QString text = model()->headerData(column, Qt::Horizontal).toString();
    const bool number = column == BrowserRows::kSizeColumn;
    painter->drawText(room, number ? Qt::AlignRight | Qt::AlignVCenter : defaultAlignment(),
                      painter->fontMetrics().elidedText(text, Qt::ElideRight, room.width()));
  }

 private:
  static constexpr int kPadding = 8;
};

}  // namespace

BrowserListView::BrowserListView(multiViewFileBrowser& browser)
    : BrowserView(browser),
      headings_(new QStandardItemModel(0, 4, this)),
      header_(new Headings(this)) {
  const std::array<const LocalizedText*, 4> texts{&BrowserRows::kName, &BrowserRows::kKind,
                                                  &BrowserRows::kFileSize, &BrowserRows::kModDate};
  for (int i = 0; i < 4; ++i) {
    headings_->setHeaderData(i, Qt::Horizontal,
                             brivolant::Shown(*texts[static_cast<std::size_t>(i)]));
  }
  header_->setModel(headings_);
  header_->setSectionsClickable(true);
  header_->setSortIndicatorShown(true);
  header_->setSortIndicator(0, Qt::AscendingOrder);
  header_->setHighlightSections(false);
  header_->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  header_->setSectionResizeMode(0, QHeaderView::Stretch);
  for (const auto& [column, width] : {std::pair{1, 160}, {2, 96}, {3, 208}}) {
    header_->setSectionResizeMode(column, QHeaderView::Interactive);
    header_->resizeSection(column, width);
  }
  connect(header_, &QHeaderView::sortIndicatorChanged, this,
          [this](int column, Qt::SortOrder order) {
            browser_.Sort(column, order == Qt::DescendingOrder);
          });
  connect(header_, &QHeaderView::sectionResized, viewport(), [this] { viewport()->update(); });
}

BrowserListView::~BrowserListView() = default;

int BrowserListView::RowHeight() const {
  return browser_.Mode() == multiViewFileBrowser::kListView && browser_.IconSize() == 1 ? kTallRow
                                                                                        : kRow;
}

int BrowserListView::RowAt(int y) const {
  const int row = (y + verticalScrollBar()->value()) / RowHeight();
  return y >= 0 && row < browser_.Count() ? row : -1;
}

QRect BrowserListView::RowRect(int row) const {
  return {0, row * RowHeight() - verticalScrollBar()->value(), viewport()->width(), RowHeight()};
}

QRect BrowserListView::NameRect(int row) const {
  const QRect rect = RowRect(row);
  const int left = header_->sectionViewportPosition(0) + rect.height() + 4;
  return {left, rect.top(), std::max(header_->sectionSize(0) - rect.height() - 8, 80),
          rect.height()};
}

void BrowserListView::UpdateScrollBar() {
  QScrollBar& bar = *verticalScrollBar();
  bar.setRange(0, std::max(browser_.Count() * RowHeight() - viewport()->height(), 0));
  bar.setSingleStep(RowHeight());
  bar.setPageStep(viewport()->height());
}

int BrowserListView::RowsPerPage() const {
  return std::max(viewport()->height() / RowHeight(), 1);
}

void BrowserListView::ScrollTo(int row) {
  UpdateScrollBar();
  const QRect rect = RowRect(row);
  QScrollBar& bar = *verticalScrollBar();
  if (rect.top() < 0) {
    bar.setValue(bar.value() + rect.top());
  } else if (rect.bottom() >= viewport()->height()) {
    bar.setValue(bar.value() + rect.bottom() + 1 - viewport()->height());
  }
}

void BrowserListView::ShowOrder(int column, bool descending) {
  const QSignalBlocker quiet(header_);
  header_->setSortIndicator(column, descending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void BrowserListView::PlaceHeader() {
  constexpr int kSmallestHeader = 28;
  const int height = std::max(header_->sizeHint().height(), kSmallestHeader);
  setViewportMargins(0, height, 0, 0);
  header_->setGeometry(0, 0, viewport()->width(), height);
}

void BrowserListView::resizeEvent(QResizeEvent*) {
  PlaceHeader();
  UpdateScrollBar();
}

void BrowserListView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  const int height = RowHeight();
  const int first = verticalScrollBar()->value() / height;
  const int end = first + viewport()->height() / height + 2;
  for (int row = first; row < end; ++row) {
    const QRect rect = RowRect(row);
    if (!event->region().intersects(rect)) continue;
    painter.fillRect(rect,
                     row % 2 == 0 ? ifkColors::listRowColorEven() : ifkColors::listRowColorOdd());
    if (row < browser_.Count()) PaintRow(painter, row);
  }
  if (browser_.Count() == 0 && !browser_.Listing()) {
    painter.setPen(ifkColors::TextDisabled());
    painter.drawText(viewport()->rect(), Qt::AlignCenter, ToQString(browser_.TextOfNothing()));
  }
  browser_.RowsInView(first, std::min(end, browser_.Count()));
}

void BrowserListView::PaintRow(QPainter& painter, int row) {
  const QRect rect = RowRect(row);
  const bool selected = browser_.isItemSelected(row);
  if (selected) {
    painter.fillRect(
        rect, hasFocus() ? ifkColors::iAppsHighLightColor() : ifkColors::SecondaryHighlightColor());
  }
  const auto item = browser_.Rows().Item(row);
  const bool hidden = item != nullptr && !item->Visible();
  const int side = RowHeight() - 4;
  const int name = header_->sectionViewportPosition(0);
  const QPixmap picture = browser_.CellPicture(row, side);
  const QSize size = (QSizeF(picture.size()) / picture.devicePixelRatio()).toSize();
  painter.setOpacity(hidden ? 0.5 : 1);
  painter.drawPixmap(name + 8 + (side - size.width()) / 2,
                     rect.top() + 2 + (side - size.height()) / 2, picture);
  painter.setOpacity(1);
  const QColor text = hidden                   ? ifkColors::TextDisabled()
                      : selected && hasFocus() ? ifkColors::TextSelected()
                                               : ifkColors::TextActive();
  for (int column = 0; column < 4; ++column) {
    const int inset = column == 0 ? RowHeight() + 12 : 8;
    const QRect cell(header_->sectionViewportPosition(column) + inset, rect.top(),
                     header_->sectionSize(column) - inset - 5, rect.height());
    painter.setPen(column == 0 || selected ? text : ifkColors::TextDisabled());
    const Qt::Alignment edge = column == BrowserRows::kSizeColumn ? Qt::AlignRight : Qt::AlignLeft;
    const QString shown = ToQString(browser_.Rows().ShownText(row, column));
    painter.drawText(cell, static_cast<int>(edge | Qt::AlignVCenter),
                     painter.fontMetrics().elidedText(shown, Qt::ElideMiddle, cell.width()));
  }
  if (hasFocus() && row == browser_.ListIndex() && !selected) {
    painter.setPen(ifkColors::FocusHighlight());
    painter.drawRect(rect.adjusted(0, 0, -1, -1));
  }
}

void BrowserListView::mousePressEvent(QMouseEvent* event) {
  if (browser_.HandleSideButton(event->button())) return;
  const int row = RowAt(event->position().toPoint().y());
  setFocus();
  pressed_ = event->position().toPoint();
  mayDrag_ = event->button() == Qt::LeftButton && row >= 0;
  if (event->button() == Qt::RightButton && row >= 0 && browser_.isItemSelected(row)) return;
  browser_.PressRow(row, event->modifiers());
}

void BrowserListView::mouseMoveEvent(QMouseEvent* event) {
  if (!mayDrag_ || (event->position().toPoint() - pressed_).manhattanLength() <= kDragDistance) {
    return;
  }
  mayDrag_ = false;
  browser_.StartDrag();
}

void BrowserListView::mouseDoubleClickEvent(QMouseEvent* event) {
  const int row = RowAt(event->position().toPoint().y());
  mayDrag_ = false;
  const bool selects =
      (event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != Qt::NoModifier;
  if (row < 0 || event->button() != Qt::LeftButton || selects) return;
  const BrowserPayload payload = browser_.item(row);
  if (browser_.OpenItem) browser_.OpenItem(payload);
}

void BrowserListView::contextMenuEvent(QContextMenuEvent* event) {
  browser_.ShowMenu(event->globalPos());
}

void BrowserListView::keyPressEvent(QKeyEvent* event) {
  if (!browser_.HandleKey(*event, RowsPerPage(), 1)) event->ignore();
}

void BrowserListView::dragEnterEvent(QDragEnterEvent* event) {
  browser_.DragEnter(*event);
}

void BrowserListView::dragMoveEvent(QDragMoveEvent* event) {
  browser_.DragOver(*event, RowAt(event->position().toPoint().y()));
}

void BrowserListView::dropEvent(QDropEvent* event) {
  browser_.Drop(*event, RowAt(event->position().toPoint().y()));
}

}  // namespace brivolant
