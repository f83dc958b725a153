// SPDX-License-Identifier: MIT
#include "effects/artistic/EffectModuleLineArt.h"

#include "engine/pictures/ConvolutionEffect.h"
#include "engine/pictures/SharedPictureEffects.h"

namespace brivolant {

void EffectModuleLineArt::ApplyEffect(Picture& picture, double) {
  constexpr double kBlur = 7;
  constexpr int kColorDodge = 6;
  using namespace SharedPictureEffects;
  if (Mode == 0) {
    const Picture negative = GaussianBlur(Invert(picture), kBlur);
    picture = Blend(picture, negative, kColorDodge, 1);
  } else {
    picture = Invert(ConvolutionEffect().EdgeDetect(std::move(picture)));
  }
}

}  // namespace brivolant
