// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "platform/values/Variant.h"

namespace brivolant {

/// One segment of a segmented view.
struct SegmentViewPiece {
  QString Caption;
  QIcon icon;
  Variant Tag;
  bool Selected = false;
  bool Enabled = true;
  bool Visible = true;
  bool Pressed = false;
  bool Unclickable = false;
  bool Bold = false;
  /// -1 means as wide as its content; 0 takes a share of what is left.
  int Width = -1;
  QString ToolTip;
};

/// A row of segments: one of them selected, or each a toggle of its own.
class ifkSegmentView : public QWidget {
 public:
  enum SelectionMode { kOneSelected = 0, kEachToggles = 1 };

  explicit ifkSegmentView(QWidget* parent = nullptr);

  int Mode = kOneSelected;

  /// Pieces keep their address as others are added.
  SegmentViewPiece& AddSegment(const QString& caption, const QIcon& icon, const Variant& tag);
  /// The last index: -1 without segments.
  int Count() const { return static_cast<int>(pieces_.size()) - 1; }
  SegmentViewPiece& Segment(int index) { return *pieces_.at(static_cast<std::size_t>(index)); }
  /// The first selected one, or null.
  SegmentViewPiece* SelectedSegment();
  /// Null if no segment has the tag.
  SegmentViewPiece* SegmentByTag(const Variant& tag);
  /// The segment at `x`, or null for one that cannot be clicked.
  SegmentViewPiece* selectSeg(int x);
  /// Acts as a click on the segment does.
  void Click(SegmentViewPiece& piece);
  /// Where a segment is drawn.
  QRect RectOf(int index) const;

  /// Raised with the clicked segment.
  std::function<void(SegmentViewPiece&)> Action;
  std::function<bool(int x, int y)> MouseDown;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  int NaturalWidth(const SegmentViewPiece& piece) const;
  int IndexAt(int x) const;
  void MovePressed(SegmentViewPiece* piece);

  std::vector<std::unique_ptr<SegmentViewPiece>> pieces_;
  int mValue = 0;
  int mouseOverSeg = -1;
  SegmentViewPiece* previouslySelected = nullptr;
};

}  // namespace brivolant
