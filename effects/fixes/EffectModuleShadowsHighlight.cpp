// SPDX-License-Identifier: MIT
#include "effects/fixes/EffectModuleShadowsHighlight.h"

#include <algorithm>

#include "engine/pictures/PictureEffects.h"
#include "platform/pictures/kernels/BlendKernels.h"
#include "platform/pictures/kernels/ToneKernels.h"

namespace brivolant {

void EffectModuleShadowsHighlight::ApplyEffect(Picture& picture, double) {
  // The mask of the highlights is the inverse of that of the shadows, so one blur serves both,
  // and both layers go over the picture in one pass.
  Plane mask = Plane::Uninitialized(picture.Width(), picture.Height());
  if (mask.IsNil()) return;
  kernels::BlackAndWhite(picture.View(), mask.Edit());
  mask = GaussianBlur(Blur).ApplyEffect(std::move(mask));
  kernels::LiftAndLower(picture.Edit(), mask.View(), Shadows, Highlights);
}

}  // namespace brivolant
