// SPDX-License-Identifier: MIT
#include "effects/fixes/EffectModuleHueSaturation.h"

namespace brivolant {

void EffectModuleHueSaturation::ApplyEffect(Picture& picture, double) {
  if (Hue == 1 && Saturation == 1 && Lightness == 1) return;
  HueSaturation(Hue, Saturation, Lightness).ApplyInPlace(picture);
}

}  // namespace brivolant
