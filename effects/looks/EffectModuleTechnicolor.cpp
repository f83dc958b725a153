// SPDX-License-Identifier: MIT
#include "effects/looks/EffectModuleTechnicolor.h"

#include "platform/pictures/kernels/LookKernels.h"

namespace brivolant {

void EffectModuleTechnicolor::ApplyEffect(Picture& picture, double) {
  static const kernels::ChannelMix mix =
      kernels::MakeChannelMix({{{1, 0, 0}, {0, 1, 0}, {0, 1, 0}}});
  const Picture::Rewriting pixels = picture.Rewrite();
  kernels::MixChannels(pixels.from, pixels.to, mix);
}

}  // namespace brivolant
