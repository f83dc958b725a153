// SPDX-License-Identifier: MIT
#include "effects/fixes/EffectModuleShadowsHighlight.h"

#include <algorithm>

#include "engine/pictures/PictureEffects.h"
#include "platform/pictures/kernels/BlendKernels.h"
#include "platform/pictures/kernels/ToneKernels.h"

namespace brivolant {

namespace {

/// The scale of a preview in a window of usual size: there the radius is pixels of what is seen,
/// and elsewhere as much of the photo as there.
constexpr double kSeenAt = 1000.0 / 640;

}  // namespace

void EffectModuleShadowsHighlight::ApplyEffect(Picture& picture, double scale) {
  // The mask of the highlights is the inverse of that of the shadows, so one blur serves both,
  // and both layers go over the picture in one pass.
  Plane mask = Plane::Uninitialized(picture.Width(), picture.Height());
  if (mask.IsNil()) return;
  kernels::BlackAndWhite(picture.View(), mask.Edit());
  mask = GaussianBlur(Blur * scale / kSeenAt).ApplyEffect(std::move(mask));
  kernels::LiftAndLower(picture.Edit(), mask.View(), Shadows, Highlights);
}

}  // namespace brivolant
