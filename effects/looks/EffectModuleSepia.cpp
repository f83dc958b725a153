// SPDX-License-Identifier: MIT
#include "effects/looks/EffectModuleSepia.h"

#include "engine/pictures/BlendEffect.h"
#include "engine/pictures/ColorEffects.h"

namespace brivolant {

void EffectModuleSepia::ApplyEffect(Picture& picture, double) {
  constexpr int kTone = 50;
  if (Strength >= 1) return SepiaEffect().ApplyInPlace(picture, kTone);
  const Picture toned = SepiaEffect().Apply(picture, kTone);
  picture = BlendEffect().Apply(std::move(picture), toned, Strength);
}

}  // namespace brivolant
