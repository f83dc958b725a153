// SPDX-License-Identifier: MIT
#include "effects/looks/EffectModuleInverse.h"

#include "engine/pictures/PictureEffects.h"
#include "platform/pictures/kernels/LookKernels.h"

namespace brivolant {

void EffectModuleInverse::ApplyEffect(Picture& picture, double) {
  if (OnlyLight) {
    kernels::InvertValue(picture.Edit());
  } else {
    InvertEffect().ApplyInPlace(picture);
  }
}

}  // namespace brivolant
