// SPDX-License-Identifier: MIT
#include "effects/looks/EffectModuleColorize.h"

namespace brivolant {

std::optional<ToneTables> EffectModuleColorize::Tables(const Picture&) {
  const bool shift = ShiftInstead;
  const auto table = [shift](int part) {
    return MakeTable([=](int i) { return shift ? 1.0 * (i + part) : i * (part / 255.0); });
  };
  const Color color = useColor;
  return ToneTables{table(color.Red), table(color.Green), table(color.Blue)};
}

}  // namespace brivolant
