// SPDX-License-Identifier: MIT
#include "effects/artistic/EffectModuleLineArt.h"

#include "engine/pictures/ReferenceDetail.h"
#include "platform/pictures/kernels/DetailKernels.h"

namespace brivolant {

namespace {

/// Edges as thin lines, by the gradient over the pixels round each.
Picture ThinLines(const Picture& picture, double scale) {
  // Variance of what a gradient looks at: a pixel to each side, and 1 2 1 across.
  constexpr double kReach = 5 / 12.0;
  // A step from one level to the next but 85 is a black line.
  constexpr double kGain = 0.75;
  const ReferenceDetail detail(picture, scale, kReach);
  Picture lines = Picture::Uninitialized(detail.Soft.Width(), detail.Soft.Height());
  if (lines.IsNil()) return lines;
  // The same edge is as many times longer as the picture is larger, and so much less steep.
  kernels::DrawEdges(detail.Soft.View(), lines.Edit(), static_cast<float>(kGain * detail.Scale));
  return lines;
}

}  // namespace

void EffectModuleLineArt::ApplyEffect(Picture& picture, double scale) {
  TakeEnlarged(picture, Mode == 0 ? PencilDrawing(ReferenceDetail(picture, scale))
                                  : ThinLines(picture, scale));
}

}  // namespace brivolant
