// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "kit/AccessibleItems.h"
#include "kit/ifkSegmentView.h"
#include "platform/values/Text.h"

namespace brivolant {

/// A path as a row of buttons, with buttons that go back and forward through whole paths.
class ifkPathBar final : public QWidget, public AccessibleItems {
 public:
  using Path = std::vector<SegmentViewPiece>;
  static constexpr LocalizedText kBack{"ifkPathBar.kBack", "Back"};
  static constexpr LocalizedText kForward{"ifkPathBar.kForward", "Forward"};
  /// What selectedID is while a button of the history is held down.
  enum HistoryButton { kNoButton = -1, kBackButton = -1010, kForwardButton = -1011 };

  explicit ifkPathBar(QWidget* parent = nullptr);

  void AddItem(const QString& caption, const QIcon& icon, const Variant& tag);
  void AddItem(const SegmentViewPiece& piece, bool update);
  void Insert(int index, const SegmentViewPiece& piece, bool update);
  void RemoveWholePath() { item_.clear(); }
  /// The last index of the path: -1 without one.
  int Count() const { return static_cast<int>(item_.size()) - 1; }
  const SegmentViewPiece& Item(int index) const {
    return item_.at(static_cast<std::size_t>(index));
  }
  const Path& FullPath() const { return item_; }
  /// The same path again changes nothing. Otherwise the present one joins the history, unless that
  /// is skipped.
  void FullPath(const Path& path, bool skipHistory = false);
  /// The present path joins the history; what lay ahead is gone.
  void AddHistory();
  void Goback();
  void GoForward();
  bool CanGoBack() const { return !history_.empty(); }
  bool CanGoForward() const { return !future_.empty(); }
  /// kBackButton, kForwardButton, an index of the path, or kNoButton. A button of the history that
  /// leads nowhere is none.
  int ButtonAtXY(int x, int y) const;
  QRect ButtonRect(int id) const;
  void Update();

  /// A button of the path was pressed.
  std::function<void(const SegmentViewPiece&)> Action;
  /// The path was taken from the history.
  std::function<void()> NavButtonClicked;

  QSize sizeHint() const override;

  // Back and forward, then the pieces.
  QAccessible::Role AccessibleRole() const override { return QAccessible::ToolBar; }
  int AccessibleCount() const override { return 2 + static_cast<int>(item_.size()); }
  AccessibleItem AccessibleAt(int index) const override;
  void PressAccessible(int index) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void Take(std::vector<Path>& from, std::vector<Path>& to);
  int WidthOf(const SegmentViewPiece& piece) const;
  /// The first piece that is shown: a path that is too long loses its beginning.
  int FirstShown() const;

  Path item_;
  std::vector<Path> history_;
  std::vector<Path> future_;
  int selectedID = kNoButton;
  int hover_ = kNoButton;
  int focused_ = 0;
};

}  // namespace brivolant
