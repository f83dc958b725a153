// SPDX-License-Identifier: MIT
#include "effects/geometry/EffectModuleDiffuse.h"

#include <algorithm>

#include "engine/pictures/MPImageFilter.h"
#include "platform/values/Whole.h"

namespace brivolant {

void EffectModuleDiffuse::ApplyEffect(Picture& picture, double scale) {
  // Grains of the same share of the picture at every size.
  constexpr double kPixelsAGrain = 1.6;
  const double grain = std::max(1.0, scale / kPixelsAGrain);
  picture =
      MPImageFilter::Diffuse(std::move(picture), Whole(Radius * scale), Blur, grain, Seed.Value());
}

}  // namespace brivolant
