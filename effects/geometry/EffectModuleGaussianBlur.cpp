// SPDX-License-Identifier: MIT
#include "effects/geometry/EffectModuleGaussianBlur.h"

#include "engine/pictures/PictureEffects.h"
#include "platform/values/Whole.h"

namespace brivolant {

void EffectModuleGaussianBlur::ApplyEffect(Picture& picture, double scale) {
  const Plane* mask = Focus.MaskFor(picture);
  const GaussianBlur blur(Whole(GaussianRadius * scale));
  picture = blur.ApplyEffect(std::move(picture), mask);
}

}  // namespace brivolant
