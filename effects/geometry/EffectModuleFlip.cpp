// SPDX-License-Identifier: MIT
#include "effects/geometry/EffectModuleFlip.h"

#include "engine/pictures/PictureEffects.h"

namespace brivolant {

void EffectModuleFlip::ApplyEffect(Picture& picture, double) {
  const FlipEffect flip;
  if (Direction == 0) flip.ApplyInPlaceHorizontal(picture);
  if (Direction == 1) flip.ApplyInPlaceVertical(picture);
  if (Direction == 2) flip.ApplyInPlaceBoth(picture);
}

}  // namespace brivolant
