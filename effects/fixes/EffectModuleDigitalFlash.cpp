// SPDX-License-Identifier: MIT
#include "effects/fixes/EffectModuleDigitalFlash.h"

#include "platform/pictures/kernels/BlendKernels.h"

namespace brivolant {

ToneTable EffectModuleDigitalFlash::Brightened() const {
  return MakeTable([this](int i) {
    const double l = i / 2.55 * Strength;
    const double c = l * (5 - l / (3 + 0.22 * l)) * 2.55;
    return ((c / 255 - 0.5) * 1.1449 + 0.5) * 255;
  });
}

void EffectModuleDigitalFlash::ApplyEffect(Picture& picture, double) {
  kernels::BlendTableByDarkness(picture.Edit(), Brightened());
}

}  // namespace brivolant
