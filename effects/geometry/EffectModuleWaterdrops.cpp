// SPDX-License-Identifier: MIT
#include "effects/geometry/EffectModuleWaterdrops.h"

#include "engine/pictures/MPImageFilter.h"
#include "platform/values/Whole.h"

namespace brivolant {

void EffectModuleWaterdrops::LimitedSize::Set(const Variant& position) {
  constexpr int kSmallest = 5;
  SliderParameter<int>::Set(position);
  if (Value() < kSmallest) *this = kSmallest;
}

void EffectModuleWaterdrops::ApplyEffect(Picture& picture, double scale) {
  picture = MPImageFilter::WaterDrops(std::move(picture), Whole(DropSize * scale), DropCount,
                                      Seed.Value());
}

}  // namespace brivolant
