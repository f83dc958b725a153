// SPDX-License-Identifier: MIT
#include "effects/geometry/EffectModuleSharpen.h"

#include "engine/pictures/ConvolutionEffect.h"

namespace brivolant {

void EffectModuleSharpen::ApplyEffect(Picture& picture, double) {
  picture = ConvolutionEffect().Sharpen(std::move(picture));
}

}  // namespace brivolant
