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

void Stage::Panes(std::vector<Pane> panes) {
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
  using AnimationCore::Animate;
  using AnimationCore::kKeep;
  const int old = std::exchange(inView_, pane);
  if (old == pane) return Settle();
  const bool toTheRight = pane > old;
  const Pane& next = panes_.at(static_cast<std::size_t>(pane));
  const QRect place = next.Place(size());
  next.Widget->setGeometry(place.translated(toTheRight ? width() + 2 : -width(), 0));
  next.Widget->show();
  next.Widget->raise();
  Animate(*next.Widget, {place.x(), place.y(), place.width(), place.height()}, kSlide);
  Animate(*panes_.at(static_cast<std::size_t>(old)).Widget, kSlide,
          toTheRight ? -width() : width() + 2, kKeep, kKeep, kKeep);
  if (AnimationCore::Period() == 0) {
    Settle();
  } else {
    settle_.start();
  }
}

}  // namespace brivolant
