// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "kit/AccessibleItems.h"

class QScrollBar;

namespace brivolant {

/// One tile of the bar.
struct TemplateSelectorItem {
  /// Fits into a tile; in pixels of the screen where its ratio says so.
  QImage Preview;
  std::string Name;
  std::string Caption;
  /// The tool tip.
  std::string Information;
  /// What the owner knows the tile by.
  std::string Tag;
  bool DropShadow = true;
};

/// A bar of pictures with captions, one of which may be selected, behind a column of categories.
class templateSelector final : public QWidget, public AccessibleItems {
 public:
  static constexpr int kHeight = 123;
  static constexpr int kCell = 128;
  /// Where a tile's name stands, in units of the control; empty without one. That of the selected
  /// tile is whole, and may lie over its neighbours.
  QRect CaptionRect(int index) const;
  static constexpr int kPicture = 100;
  static constexpr int kTop = 9;
  static constexpr int kRow = 17;
  static constexpr int kColumn = 165;

  explicit templateSelector(QWidget* parent = nullptr);

  std::vector<std::string> Catergory;
  int selectedCategory = 0;
  /// -1 for none.
  int SelectedItem = -1;
  /// Scrolls the tiles; set by the window.
  QScrollBar* myScrollBar = nullptr;

  void Add(const std::string& caption, const QImage& picture, const std::string& name,
           const std::string& tag, bool dropShadow, const std::string& information = {});
  void Remove(int index);
  void RemoveAllItems();
  int Count() const { return static_cast<int>(items_.size()); }
  const TemplateSelectorItem& Item(int index) const {
    return items_.at(static_cast<std::size_t>(index));
  }
  /// Another picture for a tile; an index out of range is ignored.
  void Preview(int index, const QImage& picture);
  bool hasCategories() const { return !Catergory.empty(); }
  int categoryWidth() const { return hasCategories() ? kColumn : 0; }
  void updateScrollBar();
  int tileOffset() const { return tileOffset_; }
  void tileOffset(int offset);
  /// First and last tile that can be seen; (0, -1) without any.
  std::pair<int, int> Visible() const;
  /// Where a tile is.
  QRect TileRect(int index) const;
  /// Acts as a click at a point does.
  void MouseClick(int x, int y);
  /// Brings a tile into view.
  void ScrollTo(int index);

  // The categories, then the tiles.
  int AccessibleCount() const override { return static_cast<int>(Catergory.size()) + Count(); }
  AccessibleItem AccessibleAt(int index) const override;
  void PressAccessible(int index) override;

  /// A tile was clicked; true keeps SelectedItem as it was.
  std::function<bool(int index)> ItemSelected;
  std::function<void(int category)> ChangedCategory;
  /// The menu of a tile was asked for, at a place of the screen.
  std::function<void(int index, const QPoint& at)> ContextMenu;
  /// The pointer has rested on a tile for a while; -1 when it has left.
  std::function<void(int index)> Hovered;
  /// Other tiles can be seen now.
  std::function<void()> Scrolled;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  int FirstX() const;
  int TileAt(int x) const;
  void Choose(int index);
  void ChooseCategory(int category);
  void HoverOver(int index);
  void DrawTile(QPainter& painter, int index) const;
  void DrawCaption(QPainter& painter, int index, int baseline) const;
  void DrawColumn(QPainter& painter) const;

  std::vector<TemplateSelectorItem> items_;
  QTimer hover_;
  int tileOffset_ = 0;
  int focused_ = -1;
  int under_ = -1;
  int hovered_ = -1;
};

}  // namespace brivolant
