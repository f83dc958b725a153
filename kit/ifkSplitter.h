// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <vector>

#include "platform/services/Services.h"

namespace brivolant {

/// A bar between two areas. Dragging it moves or resizes the controls tied to it.
class ifkSplitter : public QWidget {
 public:
  /// kVerticalBar is a bar that stands upright and moves in x.
  enum BarDirection { kVerticalBar = 0, kHorizontalBar = 1 };
  /// What a control tied to the bar does when the bar moves.
  enum Rule { kMoves = 0, kLeftEdge = 1, kTopEdge = 2, kRightEdge = 3, kBottomEdge = 4 };

  /// `dialogs` tells of objects that cannot be tied to the bar; it must outlive the splitter.
  ifkSplitter(QWidget* parent, Dialogs& dialogs);

  int Direction = kVerticalBar;
  int Minimum = 0;
  /// 0 means no limit.
  int Maximum = 0;

  /// Left or top of the bar.
  int Position() const;
  /// Moves the bar and all that is tied to it, within the limits.
  void Position(int position);
  /// Ties a control or a window; anything else is told to the user and not added.
  void AddControl(QObject* control, int rule);
  void RemoveControl(QObject* control);

  std::function<void()> Dragging;
  std::function<void()> Dragged;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void enterEvent(QEnterEvent* event) override;

 private:
  struct Tied {
    QPointer<QWidget> control;
    int rule;
  };
  int Limited(int position) const;
  void MoveBar(int position);
  void AdjustControls(int delta);
  int Place(const QPointF& global) const;

  Dialogs& dialogs_;
  std::vector<Tied> myControls;
  int pressOffset_ = 0;
  bool pressed_ = false;
};

}  // namespace brivolant
