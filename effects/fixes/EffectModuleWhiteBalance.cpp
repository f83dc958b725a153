// SPDX-License-Identifier: MIT
#include "effects/fixes/EffectModuleWhiteBalance.h"

#include <algorithm>

namespace brivolant {

std::optional<ToneTables> EffectModuleWhiteBalance::Tables(const Picture&) {
  // Mired, in which equal steps look equal; 200 mired is 5000 K. Below 1 K there is no light to
  // speak of: the coldest value stands for it.
  const double m = 1000000.0 / std::max<int>(Temperature, 1) - 200;
  const auto channel = [m](double weight) {
    const double factor = m * weight / 100;
    return MakeTable([factor](int i) { return i + i * factor; });
  };
  return ToneTables{channel(-0.2), channel(-0.02), channel(0.25)};
}

}  // namespace brivolant
