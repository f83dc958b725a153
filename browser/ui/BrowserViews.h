// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractScrollArea>
#include <QPoint>
#include <QStaticText>
#include <QWidget>
#include <array>
#include <string>
#include <unordered_map>

#include "browser/IconGrid.h"
#include "kit/AccessibleItems.h"

class QHeaderView;
class QScrollBar;
class QStandardItemModel;

namespace brivolant {

class multiViewFileBrowser;

/// What both views of the rows have in common.
class BrowserView : public QAbstractScrollArea, public AccessibleItems {
 public:
  explicit BrowserView(multiViewFileBrowser& browser);
  /// The row at a position of the viewport, or -1.
  virtual int RowAtPoint(const QPoint& at) const = 0;
  /// Where a row is, in the viewport.
  virtual QRect PlaceOf(int row) const = 0;
  virtual void ScrollTo(int row) = 0;

  int AccessibleCount() const override;
  AccessibleItem AccessibleAt(int index) const override;
  void PressAccessible(int index) override;
  int AccessibleIndexAt(const QPoint& at) const override;

 protected:
  bool viewportEvent(QEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

  multiViewFileBrowser& browser_;
};

/// The grid of icons.
class BrowserIconView final : public BrowserView {
 public:
  explicit BrowserIconView(multiViewFileBrowser& browser);
  IconGrid Grid() const;
  /// The row at a position of the viewport, or -1.
  int itemInIconViewAtXY(int x, int y) const { return Grid().IndexAt(x, y); }
  QRect CellRect(int row) const;
  int RowAtPoint(const QPoint& at) const override { return itemInIconViewAtXY(at.x(), at.y()); }
  QRect PlaceOf(int row) const override { return CellRect(row); }
  /// Where the first line of the name is.
  QRect LabelRect(int row) const;
  void ScrollTo(int row) override;
  void UpdateScrollBar();
  int RowsPerPage() const;
  int IconsPerRow() const { return Grid().IconsPerRow(); }

 protected:
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

 private:
  enum DragMode { kNoDrag = 0, kRubberBand = 1, kItemPressed = 2, kEmptyPressed = 3 };
  QFont TextFont() const;
  QRect DragRect() const;
  void UpdateSelectionFromRect(const QRect& rect);
  void PaintCell(QPainter& painter, int row);
  /// A name in its lines, shaped once: hundreds of them are painted in a frame.
  struct Label {
    std::array<QStaticText, 2> Lines;
    std::array<int, 2> Widths{};
    int Count = 0;
  };
  const Label& LabelOf(int row, const QFontMetrics& metrics, int cell);

  std::unordered_map<std::string, Label> labels_;
  /// Of which the labels are made.
  QFont labelFont_;
  int labelCell_ = 0;
  int iconViewDragMode = kNoDrag;
  QPoint LastMousePos;
  /// In the coordinates of all cells, so that the band grows while the view scrolls.
  QPoint DragSelStart;
  QPoint DragSelEnd;
  int dropRow_ = -1;
};

/// The sortable list.
class BrowserListView final : public BrowserView {
 public:
  explicit BrowserListView(multiViewFileBrowser& browser);
  ~BrowserListView() override;
  int RowAt(int y) const;
  QRect RowRect(int row) const;
  int RowAtPoint(const QPoint& at) const override { return RowAt(at.y()); }
  QRect PlaceOf(int row) const override { return RowRect(row); }
  /// Where the name is.
  QRect NameRect(int row) const;
  void ScrollTo(int row) override;
  void UpdateScrollBar();
  void ShowOrder(int column, bool descending);
  int RowsPerPage() const;
  int RowHeight() const;
  QHeaderView& Header() { return *header_; }

 protected:
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

 private:
  void PaintRow(QPainter& painter, int row);
  void PlaceHeader();

  QStandardItemModel* headings_;
  QHeaderView* header_;
  QPoint pressed_;
  bool mayDrag_ = false;
};

}  // namespace brivolant
