// SPDX-License-Identifier: MIT
#include "effects/geometry/EffectModuleMotionBlur.h"

#include "engine/pictures/MPImageFilter.h"
#include "platform/values/Whole.h"

namespace brivolant {

void EffectModuleMotionBlur::ApplyEffect(Picture& picture, double scale) {
  picture = MPImageFilter::MotionBlur(std::move(picture), Whole(GaussianRadius * scale),
                                      motionAngle, Whole(motionDistance * scale), blurKind);
}

}  // namespace brivolant
