// SPDX-License-Identifier: MIT
#include "app/Stage.h"

#include <algorithm>
#include <utility>

#include "kit/AnimationCore.h"

namespace brivolant {
namespace {

constexpr double kSlide = 0.25;
/// Milliseconds after which a slide has ended, whatever the timer did.
constexpr int kSlideEnds = 500;

}  // namespace

Stage::Stage(QWidget* parent) : QWidget(parent) {
  setAutoFillBackground(true);
  settle_.setSingleShot(true);
  settle_.setInterval(kSlideEnds);
  connect(&settle_, &QTimer::timeout, this, [this] { Settle(); });
}

void Stage::Take(std::vector<Pane> panes) {
  panes_ = std::move(panes);
  for (std::size_t i = 1; i < panes_.size(); ++i) panes_[i].Widget->hide();
}

void Stage::PlacePanes() {
  for (const Pane& pane : panes_) {
    if (!AnimationCore::IsAnimated(*pane.Widget)) pane.Widget->setGeometry(pane.Place(size()));
  }
}

void Stage::Settle() {
  if (std::ranges::any_of(
          panes_, [](const Pane& pane) { return AnimationCore::IsAnimated(*pane.Widget); })) {
    settle_.start();
    return;
  }
  for (int i = 0; const Pane& pane : panes_) pane.Widget->setVisible(i++ == inView_);
  PlacePanes();
}

void Stage::Show(int pane) {
  const Pane& next = panes_.at(static_cast<std::size_t>(pane));
  const int old = std::exchange(inView_, pane);
  if (old == pane) return Settle();
  const bool toTheRight = pane > old;
  const auto slide = [](QWidget& widget, const QRect& to) {
    AnimationCore::Animate(widget, {to.x(), to.y(), to.width(), to.height()}, kSlide);
  };
  // A pane may be wider than the stage.
  const auto beside = [this](const QRect& place, bool right) {
    return place.translated(right ? width() + 2 : -(place.x() + place.width()), 0);
  };
  const QRect place = next.Place(size());
  next.Widget->setGeometry(beside(place, toTheRight));
  next.Widget->show();
  next.Widget->raise();
  slide(*next.Widget, place);
  QWidget& last = *panes_.at(static_cast<std::size_t>(old)).Widget;
  slide(last, beside(last.geometry(), !toTheRight));
  if (AnimationCore::Period() == 0) {
    Settle();
  } else {
    settle_.start();
  }
}

}  // namespace brivolant
