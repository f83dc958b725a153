// SPDX-License-Identifier: MIT
#include "effects/fixes/EffectModuleBrightnessContrast.h"

#include <algorithm>
#include <cmath>

namespace brivolant {

std::optional<ToneTables> EffectModuleBrightnessContrast::Tables(const Picture&) {
  if (Brightness == 1.0 && Contrast == 1.0) return std::nullopt;
  const double offset = std::trunc(std::clamp(255 * Brightness - 255, -255.0, 255.0));
  return ToneTables::All(MakeTable([&](int i) -> double {
    const int level = ClampedLevel(i + offset);
    return Contrast == 1.0 ? level : ((level / 255.0 - 0.5) * Contrast + 0.5) * 255;
  }));
}

}  // namespace brivolant
