// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractScrollArea>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "browser/SideBarItem.h"
#include "kit/AccessibleItems.h"

class QMenu;

namespace brivolant {

/// The list of sources at the left of the browser, in sections that can be folded.
class Sidebar final : public QAbstractScrollArea, public AccessibleItems {
 public:
  explicit Sidebar(QWidget* parent = nullptr);
  ~Sidebar() override;

  /// The sections in display order.
  std::vector<std::shared_ptr<SideBarCollection>> item;

  /// Rebuilds the rows of the sections; the selection is gone until highlightItem.
  void updateList();
  /// Selects the first row that CompareItems takes for the value; without one nothing changes.
  void highlightItem(const SideBarItem::Target& value);
  int RowCount() const { return static_cast<int>(rows_.size()); }
  QRect RowRect(int row) const;
  /// Null for a header or a blank row.
  std::shared_ptr<SideBarItem> ItemAt(int row) const;
  std::shared_ptr<SideBarCollection> Parent(int row) const;
  int ListIndex() const { return selected_; }

  int AccessibleCount() const override { return RowCount(); }
  AccessibleItem AccessibleAt(int index) const override;
  void PressAccessible(int index) override;

  /// A row was chosen, or its eject button.
  std::function<void(const SideBarItem& item, bool eject)> itemSelected;
  std::function<bool(const SideBarItem& item)> CanEject;
  std::function<bool(const SideBarItem::Target& a, const SideBarItem::Target& b)> CompareItems;
  /// Whether a drop there does something.
  std::function<bool(const std::shared_ptr<SideBarItem>& item, SideBarCollection& section)>
      TakesFiles;
  /// Lives while a menu of the bar is open.
  std::function<std::shared_ptr<void>()> Holding;
  /// A section was folded or unfolded.
  std::function<void(SideBarCollection& section)> Folded;
  std::function<bool(QMenu& menu, const std::shared_ptr<SideBarItem>& item,
                     SideBarCollection& section)>
      RightClick;
  /// Backspace or Delete on a row.
  std::function<void(const std::shared_ptr<SideBarItem>& item, SideBarCollection& section)> Removed;
  /// Files were dropped on an item, or folders between the items of a section (item is null).
  std::function<void(const std::vector<FolderItem>& files, const std::shared_ptr<SideBarItem>& item,
                     SideBarCollection& section)>
      FilesDropped;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;

 private:
  bool Takes(int row) const;
  struct Row {
    std::shared_ptr<SideBarCollection> section;
    /// Null for the section's header.
    std::shared_ptr<SideBarItem> item;
    int top = 0;
    int height = 0;
  };
  int RowAt(const QPoint& at) const;
  int EjectLeft() const;
  void Choose(int row);
  void Fold(SideBarCollection& section);
  void PaintRow(QPainter& painter, int index);

  std::vector<Row> rows_;
  int selected_ = -1;
  int mouseOverRow = -1;
  bool overEject_ = false;
  int rightlickrow = -1;
  int dropRow_ = -1;
};

}  // namespace brivolant
