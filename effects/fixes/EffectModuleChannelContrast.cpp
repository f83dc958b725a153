// SPDX-License-Identifier: MIT
#include "effects/fixes/EffectModuleChannelContrast.h"

namespace brivolant {

std::optional<ToneTables> EffectModuleChannelContrast::Tables(const Picture&) {
  const auto channel = [](double c) {
    return MakeTable([c](int i) { return ((i / 255.0 - 0.5) * c + 0.5) * 255; });
  };
  return ToneTables{channel(redContrast), channel(greenContrast), channel(blueContrast)};
}

}  // namespace brivolant
