// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractScrollArea>
#include <QPoint>
#include <QWidget>

#include "browser/IconGrid.h"
#include "kit/AccessibleItems.h"

class QHeaderView;
class QScrollBar;
class QStandardItemModel;

namespace brivolant {

class multiViewFileBrowser;

/// The grid of icons.
class BrowserIconView final : public QAbstractScrollArea, public AccessibleItems {
 public:
  explicit BrowserIconView(multiViewFileBrowser& browser);
  IconGrid Grid() const;
  /// The row at a position of the viewport, or -1.
  int itemInIconViewAtXY(int x, int y) const { return Grid().IndexAt(x, y); }
  QRect CellRect(int row) const;
  /// Where the first line of the name is.
  QRect LabelRect(int row) const;
  void ScrollTo(int row);
  void UpdateScrollBar();
  int RowsPerPage() const;
  int IconsPerRow() const { return Grid().IconsPerRow(); }

  int AccessibleCount() const override;
  AccessibleItem AccessibleAt(int index) const override;
  void PressAccessible(int index) override;
  int AccessibleIndexAt(const QPoint& at) const override;

 protected:
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  enum DragMode { kNoDrag = 0, kRubberBand = 1, kItemPressed = 2, kEmptyPressed = 3 };
  QFont TextFont() const;
  QRect DragRect() const;
  void UpdateSelectionFromRect(const QRect& rect);
  void PaintCell(QPainter& painter, int row);

  multiViewFileBrowser& browser_;
  int iconViewDragMode = kNoDrag;
  QPoint LastMousePos;
  /// In the coordinates of all cells, so that the band grows while the view scrolls.
  QPoint DragSelStart;
  QPoint DragSelEnd;
  int dropRow_ = -1;
};

/// The sortable list.
class BrowserListView final : public QAbstractScrollArea, public AccessibleItems {
 public:
  explicit BrowserListView(multiViewFileBrowser& browser);
  ~BrowserListView() override;
  int RowAt(int y) const;
  QRect RowRect(int row) const;
  /// Where the name is.
  QRect NameRect(int row) const;
  void ScrollTo(int row);
  void UpdateScrollBar();
  void ShowOrder(int column, bool descending);
  int RowsPerPage() const;
  int RowHeight() const;
  QHeaderView& Header() { return *header_; }

  int AccessibleCount() const override;
  AccessibleItem AccessibleAt(int index) const override;
  void PressAccessible(int index) override;
  int AccessibleIndexAt(const QPoint& at) const override;

 protected:
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  void PaintRow(QPainter& painter, int row);
  void PlaceHeader();

  multiViewFileBrowser& browser_;
  QStandardItemModel* headings_;
  QHeaderView* header_;
  QPoint pressed_;
  bool mayDrag_ = false;
};

}  // namespace brivolant
