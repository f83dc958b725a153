// SPDX-License-Identifier: MIT
#include "effects/looks/EffectModuleOverBurn.h"

#include "engine/pictures/SharedPictureEffects.h"

namespace brivolant {

void EffectModuleOverBurn::ApplyEffect(Picture& picture, double) {
  constexpr int kColorDodge = 6;
  constexpr int kColorBurn = 7;
  constexpr int kOverlay = 3;
  for (const int mode : {kColorDodge, kColorBurn, kOverlay}) {
    const Picture fill = picture;
    picture = SharedPictureEffects::Blend(picture, fill, mode, Strength);
  }
}

}  // namespace brivolant
