// SPDX-License-Identifier: MIT
#include "engine/pictures/ShapeStamp.h"

#include <algorithm>
#include <cmath>

#include "engine/pictures/AdvancedGraphics.h"
#include "engine/pictures/SoftShadow.h"
#include "platform/pictures/Parallel.h"
#include "platform/pictures/kernels/LookKernels.h"
#include "platform/pictures/kernels/ToneKernels.h"

namespace brivolant {
namespace {

/// What the shape covers of a canvas, drawn with its corner there; nil without memory.
Plane CoverageOf(int width, int height, const ShapeStamp::Drawing& draw, double left, double top) {
  Picture canvas = Picture::Uninitialized(width, height);
  if (canvas.IsNil()) return {};
  kernels::FillPixels(canvas.Edit(), kBlack);
  {
    AdvancedGraphics g(canvas);
    g.SetFillColor(kWhite, 1);
    draw(g, left, top);
  }
  Plane coverage = Plane::Uninitialized(width, height);
  if (!coverage.IsNil()) kernels::Luma(canvas.View(), coverage.Edit());
  return coverage;
}

int MarginFor(const std::optional<ShapeStamp::Shadow>& shadow) {
  if (!shadow) return 1;
  return static_cast<int>(std::ceil(std::max(shadow->down, 0.0))) +
         SoftShadow::Reach(shadow->blur) + 1;
}

}  // namespace

ShapeStamp::ShapeStamp(int width, int height, double opacity, const std::optional<Shadow>& shadow,
                       const Drawing& draw, double dx, double dy)
    : margin_(MarginFor(shadow)) {
  // A shape between pixels needs one more.
  const int w = width + 1 + 2 * margin_;
  const int h = height + 1 + 2 * margin_;
  share_ = CoverageOf(w, h, draw, margin_ + dx, margin_ + dy);
  if (share_.IsNil()) return;
  Plane soft =
      shadow ? CoverageOf(w, h, draw, margin_ + dx, margin_ + dy + shadow->down) : Plane(w, h, 0);
  if (soft.IsNil()) return;
  if (shadow) SoftShadow::Soften(soft, shadow->blur);
  keep_ = share_;
  const Grey share = share_.Edit();
  const Grey keep = keep_.Edit();
  for (int y = 0; y < share.height; ++y) {
    for (int x = 0; x < share.width; ++x) {
      const double shape = share.Row(y)[x] * opacity;
      const double left =
          (255 - soft.At(x, y) * SoftShadow::kDarkness * opacity) * (255 - shape) / 255;
      const auto taken = static_cast<int>(std::lround(shape));
      share.Row(y)[x] = static_cast<std::uint8_t>(taken);
      keep.Row(y)[x] =
          static_cast<std::uint8_t>(std::min(static_cast<int>(std::lround(left)), 255 - taken));
    }
  }
}

void ShapeStamp::Lay(Pixels target, Color color, int x, int y, int from, int to) const {
  if (keep_.IsNil()) return;
  kernels::LayStamp(target, {keep_.View(), share_.View()}, color, x - margin_, y - margin_, from,
                    to);
}

FineStamps::FineStamps(int width, int height, double opacity,
                       std::optional<ShapeStamp::Shadow> shadow, ShapeStamp::Drawing draw)
    : width_(width),
      height_(height),
      opacity_(opacity),
      shadow_(shadow),
      draw_(std::move(draw)),
      // A step is at most a fiftieth of the shape, or a quarter of a pixel.
      steps_(std::clamp(50 / std::max(std::min(width, height), 1), 0, kMostSteps - 1) + 1) {}

FineStamps::Piece FineStamps::At(double x, double y, Color color) {
  const auto stepsTo = [this](double at) {
    return static_cast<int>(std::floor(at * steps_ + 0.5));
  };
  const int sx = stepsTo(x);
  const int sy = stepsTo(y);
  const auto whole = [this](int step) {
    return static_cast<int>(std::floor(static_cast<double>(step) / steps_));
  };
  const int px = whole(sx);
  const int py = whole(sy);
  const int phaseX = sx - px * steps_;
  const int phaseY = sy - py * steps_;
  auto& stamp =
      stamps_.at(static_cast<std::size_t>(phaseY) * kMostSteps + static_cast<std::size_t>(phaseX));
  if (!stamp) {
    stamp = std::make_unique<ShapeStamp>(width_, height_, opacity_, shadow_, draw_,
                                         1.0 * phaseX / steps_, 1.0 * phaseY / steps_);
  }
  return {stamp.get(), color, px, py};
}

void LayPieces(Picture& picture, const std::vector<FineStamps::Piece>& pieces) {
  constexpr int kGrain = 64;
  const Pixels target = picture.Edit();
  ParallelRows(target.height, kGrain, [&](int from, int to) {
    for (const FineStamps::Piece& piece : pieces) {
      if (piece.stamp->Touches(piece.y, from, to)) {
        piece.stamp->Lay(target, piece.color, piece.x, piece.y, from, to);
      }
    }
  });
}

}  // namespace brivolant
