// SPDX-License-Identifier: MIT
#include "effects/looks/EffectModuleGreyScale.h"

#include "engine/pictures/ColorEffects.h"

namespace brivolant {

void EffectModuleGreyScale::ApplyEffect(Picture& picture, double) {
  constexpr int kDesaturate = 4;
  const Plane* mask = Focus.MaskFor(picture);
  if (Type == kDesaturate) {
    DesaturateEffect().ApplyInPlace(picture, mask);
  } else {
    GrayscaleEffect().ApplyInPlace(picture, Type, mask);
  }
}

}  // namespace brivolant
