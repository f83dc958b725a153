// SPDX-License-Identifier: MIT
#include <QHelpEvent>
#include <QToolTip>

#include "browser/ui/BrowserViews.h"
#include "browser/ui/multiViewFileBrowser.h"

namespace brivolant {

BrowserView::BrowserView(multiViewFileBrowser& browser)
    : QAbstractScrollArea(&browser), browser_(browser) {
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setAcceptDrops(true);
  // All of it is painted: nothing need be filled before.
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
}

void BrowserView::scrollContentsBy(int, int) {
  viewport()->update();
}

bool BrowserView::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const int row = RowAtPoint(help->pos());
  // Camera and lens may have to be read first.
  browser_.ShotKnown = [this, row, at = help->globalPos()](const auto& item) {
    const bool still = QToolTip::isVisible() && row >= 0 && row < browser_.Count() &&
                       browser_.Rows().Item(row) == item;
    if (still) QToolTip::showText(at, browser_.TipOf(row), this);
  };
  QToolTip::showText(help->globalPos(), browser_.TipOf(row), this);
  return true;
}

int BrowserView::AccessibleCount() const {
  return browser_.Count();
}

AccessibleItem BrowserView::AccessibleAt(int index) const {
  return browser_.DescribeRow(index, PlaceOf(index).translated(viewport()->pos()));
}

void BrowserView::PressAccessible(int index) {
  browser_.PressRow(index, {});
  ScrollTo(index);
}

int BrowserView::AccessibleIndexAt(const QPoint& at) const {
  return RowAtPoint(at - viewport()->pos());
}

}  // namespace brivolant
