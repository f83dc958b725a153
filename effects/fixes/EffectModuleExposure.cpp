// SPDX-License-Identifier: MIT
#include "effects/fixes/EffectModuleExposure.h"

#include "engine/pictures/SharedPictureEffects.h"

namespace brivolant {

std::optional<ToneTables> EffectModuleExposure::Tables(const Picture&) {
  return ToneTables::All(SharedPictureEffects::ExposureTable(Power));
}

}  // namespace brivolant
