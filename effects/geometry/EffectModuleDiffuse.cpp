// SPDX-License-Identifier: MIT
#include "effects/geometry/EffectModuleDiffuse.h"

#include "engine/pictures/MPImageFilter.h"
#include "platform/values/Whole.h"

namespace brivolant {

void EffectModuleDiffuse::ApplyEffect(Picture& picture, double scale) {
  picture = MPImageFilter::Diffuse(std::move(picture), Whole(Radius * scale), Blur,
                                   MPImageFilter::GrainAt(scale), Seed.Value());
}

}  // namespace brivolant
