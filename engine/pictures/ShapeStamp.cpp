// SPDX-License-Identifier: MIT
#include "engine/pictures/ShapeStamp.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "engine/pictures/AdvancedGraphics.h"
#include "platform/pictures/kernels/BlurKernels.h"
#include "platform/pictures/kernels/LookKernels.h"
#include "platform/pictures/kernels/ToneKernels.h"

namespace brivolant {
namespace {

constexpr double kDarkness = 0.4;

/// The coverage moved down and blurred.
Plane ShadowOf(const Plane& coverage, const ShapeStamp::Shadow& shadow) {
  Plane soft(coverage.Width(), coverage.Height(), 0);
  if (soft.IsNil()) return soft;
  const Grey rows = soft.Edit();
  for (int y = std::max(shadow.down, 0); y < rows.height; ++y) {
    std::memcpy(rows.Row(y), coverage.View().Row(y - shadow.down),
                static_cast<std::size_t>(rows.width));
  }
  if (shadow.blur > 0) kernels::GaussianBlur(rows, kernels::GaussianPlan(shadow.blur / 2.0));
  return soft;
}

}  // namespace

ShapeStamp::ShapeStamp(int width, int height, double opacity, const std::optional<Shadow>& shadow,
                       const std::function<void(AdvancedGraphics&, int, int)>& draw)
    : margin_(shadow ? std::max(shadow->down, 0) + 2 * shadow->blur + 1 : 1) {
  Picture canvas = Picture::Uninitialized(width + 2 * margin_, height + 2 * margin_);
  if (canvas.IsNil()) return;
  kernels::FillPixels(canvas.Edit(), kBlack);
  {
    AdvancedGraphics g(canvas);
    g.SetFillColor(kWhite, 1);
    draw(g, margin_, margin_);
  }
  share_ = Plane::Uninitialized(canvas.Width(), canvas.Height());
  keep_ = share_;
  if (share_.IsNil()) return;
  kernels::Luma(canvas.View(), share_.Edit());
  const Plane soft = shadow ? ShadowOf(share_, *shadow) : Plane(share_.Width(), share_.Height(), 0);
  if (soft.IsNil()) return;
  const Grey share = share_.Edit();
  const Grey keep = keep_.Edit();
  for (int y = 0; y < share.height; ++y) {
    for (int x = 0; x < share.width; ++x) {
      const double shape = share.Row(y)[x] * opacity;
      const double left = (255 - soft.At(x, y) * kDarkness * opacity) * (255 - shape) / 255;
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

}  // namespace brivolant
