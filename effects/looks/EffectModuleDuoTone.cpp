// SPDX-License-Identifier: MIT
#include "effects/looks/EffectModuleDuoTone.h"

#include "engine/pictures/SharedPictureEffects.h"
#include "platform/pictures/kernels/LookKernels.h"

namespace brivolant {

void EffectModuleDuoTone::ApplyEffect(Picture& picture, double) {
  constexpr int kMiddle = 128;
  SharedPictureEffects::Exposure(picture, Threshold);
  kernels::SplitByValue(picture.Edit(), kMiddle, darkTone, lightTone);
}

}  // namespace brivolant
