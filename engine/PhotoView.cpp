// SPDX-License-Identifier: MIT
#include "engine/PhotoView.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "engine/EditorInterfaces.h"

namespace brivolant {
namespace {

/// Units of the desktop's coordinates.
constexpr int kGap = 20;
constexpr int kSide = 10;
constexpr int kSeam = 4;
constexpr double kBeforeScale = 0.4;
constexpr std::array kUsual{0.0625, 0.125, 0.25, 1.0 / 3, 0.5, 2.0 / 3, 1.0,
                            1.5,    2.0,   3.0,  4.0,     6.0, 8.0};
/// Scales this close together are the same.
constexpr double kSame = 1.001;

/// Where a side of that length begins so that `fraction` of it lies in the middle of the area.
double Begin(double from, double extent, double length, double fraction, double margin) {
  if (length <= extent) return from + (extent - length) / 2;
  return std::clamp(from + extent / 2 - fraction * length, from + extent - margin - length,
                    from + margin);
}

}  // namespace

int PhotoView::Pixels(int units) const {
  return static_cast<int>(std::lround(units * content_.PixelRatio));
}

void PhotoView::Show(const Content& content) {
  if (content.Photo != content_.Photo) {
    scale_.reset();
    middle_ = {0.5, 0.5};
  }
  if (content != content_) anchor_.reset();
  content_ = content;
  photo_ = before_ = {};
  if (content_.Preview.isEmpty() || content_.Photo.isEmpty() || content_.Display.isEmpty()) return;
  // A display that has grown may show all of it by now.
  if (scale_ && FitsAt(*scale_)) scale_.reset();
  if (scale_) {
    LayOutEnlarged();
  } else {
    LayOutFitted();
  }
}

void PhotoView::LayOutFitted() {
  const int w = content_.Display.width();
  const int h = content_.Display.height();
  const int margin = Pixels(kPreviewMargin);
  QSize drawn = content_.Preview;
  double s = 1;
  // A preview made for this size touches the margin in one direction: it is shown pixel by pixel.
  const bool fits = (drawn.width() == w - margin && drawn.height() <= h - margin) ||
                    (drawn.height() == h - margin && drawn.width() <= w - margin);
  if (!fits) {
    s = std::min(1.0 * (w - margin) / drawn.width(), 1.0 * (h - margin) / drawn.height());
    drawn = {std::max(static_cast<int>(std::lround(drawn.width() * s)), 1),
             std::max(static_cast<int>(std::lround(drawn.height() * s)), 1)};
  }
  photo_ = QRect({(w - drawn.width()) / 2, (h - drawn.height()) / 2}, drawn);
  if (!content_.Beside) return;
  const int bw = static_cast<int>(content_.Before.width() * s * kBeforeScale);
  const int bh = static_cast<int>(content_.Before.height() * s * kBeforeScale);
  const int gap = Pixels(kGap);
  const int side = Pixels(kSide);
  photo_.moveLeft(bw + gap < w - drawn.width() ? photo_.left() + bw / 2 + gap
                                               : w - (drawn.width() + side));
  if (bw > 0 && bh > 0) {
    before_ = {std::max(photo_.left() - (bw + gap), side), (h - bh) / 2, bw, bh};
  }
}

void PhotoView::LayOutEnlarged() {
  const QRect area = PhotoArea();
  const double margin = Pixels(kPreviewMargin) / 2.0;
  const double w = std::max(std::round(content_.Photo.width() * *scale_), 1.0);
  const double h = std::max(std::round(content_.Photo.height() * *scale_), 1.0);
  const double x = Begin(area.left(), area.width(), w, middle_.x(), margin);
  const double y = Begin(area.top(), area.height(), h, middle_.y(), margin);
  // What the margins allow is remembered, so that a pan back begins at once.
  middle_ = {(area.left() + area.width() / 2.0 - x) / w,
             (area.top() + area.height() / 2.0 - y) / h};
  photo_ = {static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y)), static_cast<int>(w),
            static_cast<int>(h)};
  if (content_.Beside) before_ = photo_.translated(BeforeArea().topLeft() - area.topLeft());
}

QRect PhotoView::PhotoArea() const {
  QRect area({0, 0}, content_.Display);
  if (content_.Beside && !Fits()) area.setLeft(area.width() - BeforeArea().width());
  return area;
}

QRect PhotoView::BeforeArea() const {
  if (!content_.Beside) return {};
  if (Fits()) return {{0, 0}, content_.Display};
  return {0, 0, (content_.Display.width() - Pixels(kSeam)) / 2, content_.Display.height()};
}

double PhotoView::FitScale() const {
  const int margin = Pixels(kPreviewMargin);
  return std::max(std::min(1.0 * (content_.Display.width() - margin) / content_.Photo.width(),
                           1.0 * (content_.Display.height() - margin) / content_.Photo.height()),
                  1e-3);
}

double PhotoView::Scale() const {
  if (photo_.isEmpty()) return 0;
  if (scale_) return *scale_;
  const QSize& whole = content_.Photo;
  return whole.width() > whole.height() ? 1.0 * photo_.width() / whole.width()
                                        : 1.0 * photo_.height() / whole.height();
}

bool PhotoView::FitsAt(double scale) const {
  // A photo smaller than the display is fitted by enlarging it, and smaller scales are of use.
  const double fit = FitScale();
  return fit <= 1 && scale <= fit * kSame;
}

void PhotoView::Fit() {
  anchor_.reset();
  scale_.reset();
  middle_ = {0.5, 0.5};
  Show(content_);
}

void PhotoView::ZoomTo(double scale) {
  anchor_.reset();
  Enlarge(scale);
}

void PhotoView::Enlarge(double scale) {
  if (photo_.isEmpty()) return;
  if (FitsAt(scale)) return Fit();
  const double fit = FitScale();
  scale_ = std::clamp(scale, std::min(fit, 1.0), std::max(kLargest, fit));
  Show(content_);
}

void PhotoView::ZoomTo(double scale, const QPointF& about) {
  if (photo_.isEmpty()) return;
  if (!anchor_ || anchor_->Place != about) {
    const QRect& under = OverBefore(about) ? before_ : photo_;
    anchor_ = {
        about,
        {(about.x() - under.left()) / under.width(), (about.y() - under.top()) / under.height()}};
  }
  const QPointF kept = anchor_->Kept;
  Enlarge(scale);
  if (Fits()) return;
  // Enlarged, both pictures show the same.
  const QRect& now = OverBefore(about) ? before_ : photo_;
  Move({about.x() - (now.left() + kept.x() * now.width()),
        about.y() - (now.top() + kept.y() * now.height())});
}

void PhotoView::ZoomBy(double factor, const QPointF& about) {
  const double now = Scale();
  if (now <= 0) return;
  const double wanted = now * factor;
  const bool passes = (now > kSame && wanted < 1) || (now * kSame < 1 && wanted > 1);
  ZoomTo(passes ? 1 : wanted, about);
}

std::vector<double> PhotoView::Stops() const {
  const double fit = FitScale();
  std::vector<double> stops{fit};
  for (const double scale : kUsual) {
    if (scale >= std::min(fit * kSame, 1.0)) stops.push_back(scale);
  }
  std::sort(stops.begin(), stops.end());
  return stops;
}

void PhotoView::StepIn() {
  const double now = Scale();
  for (const double stop : Stops()) {
    if (now > 0 && stop > now * kSame) return stop == FitScale() ? Fit() : ZoomTo(stop);
  }
}

void PhotoView::StepOut() {
  const double now = Scale();
  const std::vector<double> stops = Stops();
  for (auto stop = stops.rbegin(); stop != stops.rend(); ++stop) {
    if (*stop * kSame < now) return *stop == FitScale() ? Fit() : ZoomTo(*stop);
  }
}

void PhotoView::Pan(const QPointF& by) {
  anchor_.reset();
  Move(by);
}

void PhotoView::Move(const QPointF& by) {
  if (Fits() || photo_.isEmpty()) return;
  middle_ -= QPointF(by.x() / photo_.width(), by.y() / photo_.height());
  Show(content_);
}

bool PhotoView::OverBefore(const QPointF& place) const {
  return !before_.isEmpty() && QRectF(Fits() ? before_ : BeforeArea()).contains(place);
}

QPointF PhotoView::FractionsAt(const QPointF& place) const {
  if (photo_.isEmpty()) return {-1, -1};
  return {(place.x() - photo_.left()) / photo_.width(),
          (place.y() - photo_.top()) / photo_.height()};
}

bool PhotoView::Shows(const QPointF& place) const {
  const QPointF at = FractionsAt(place);
  // Edges included, so that a press on the outermost pixel counts at every rounding.
  return at.x() >= 0 && at.x() <= 1 && at.y() >= 0 && at.y() <= 1 &&
         (Fits() || QRectF(PhotoArea()).contains(place));
}

}  // namespace brivolant
