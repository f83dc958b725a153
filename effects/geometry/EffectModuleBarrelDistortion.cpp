// SPDX-License-Identifier: MIT
#include "effects/geometry/EffectModuleBarrelDistortion.h"

#include "engine/pictures/MPImageFilter.h"

namespace brivolant {

void EffectModuleBarrelDistortion::ApplyEffect(Picture& picture, double) {
  BarrelDistortion lens;
  lens.Distortion = Distortion;
  picture = lens.ApplyEffect(std::move(picture));
}

}  // namespace brivolant
