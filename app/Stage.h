// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <vector>

namespace brivolant {

/// The area of the window in which one pane is in view. The panes lie side by side: what is further
/// right comes in from there and goes there again.
class Stage final : public QWidget {
 public:
  /// A pane's widget, a child of the stage, and where it lies on a stage of a size.
  struct Pane {
    QWidget* Widget = nullptr;
    std::function<QRect(QSize)> Place;
  };

  explicit Stage(QWidget* parent);

  /// The panes from left to right, by whose numbers they are shown; the first is in view. Once.
  void Take(std::vector<Pane> panes);
  /// Puts what does not slide just now into its place.
  void PlacePanes();
  /// Brings a pane into view, at once if nothing slides in this program or it is there already.
  void Show(int pane);

 protected:
  void resizeEvent(QResizeEvent*) override { PlacePanes(); }

 private:
  void Settle();

  std::vector<Pane> panes_;
  int inView_ = 0;
  QTimer settle_;
};

}  // namespace brivolant
