// SPDX-License-Identifier: MIT
#include "effects/geometry/EffectModuleMotionBlur.h"

#include "engine/pictures/MPImageFilter.h"

namespace brivolant {

void EffectModuleMotionBlur::ApplyEffect(Picture& picture, double scale) {
  picture =
      MPImageFilter::MotionBlur(std::move(picture), static_cast<int>(GaussianRadius * scale),
                                motionAngle, static_cast<int>(motionDistance * scale), blurKind);
}

}  // namespace brivolant
