// SPDX-License-Identifier: MIT
#include "effects/looks/EffectModulePosterize.h"

#include <algorithm>

namespace brivolant {

std::optional<ToneTables> EffectModulePosterize::Tables(const Picture&) {
  // Without any level one tone is left; a stored style may hold any number.
  if (Levels <= 0) return ToneTables::All(ToneTable{});
  const int step = std::max(1, static_cast<int>(255 / (Levels / 8.5)));
  return ToneTables::All(MakeTable([step](int i) { return i / step * step; }));
}

}  // namespace brivolant
