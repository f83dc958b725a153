// SPDX-License-Identifier: MIT
#include "effects/geometry/EffectModuleWave.h"

#include "engine/pictures/MPImageFilter.h"

namespace brivolant {

void EffectModuleWave::ApplyEffect(Picture& picture, double) {
  picture = MPImageFilter::Wave(std::move(picture), Waves, backColor);
}

}  // namespace brivolant
