// SPDX-License-Identifier: MIT
#include "effects/geometry/EffectModuleInterlace.h"

#include <algorithm>

#include "engine/pictures/AdvancedGraphics.h"

namespace brivolant {

void EffectModuleInterlace::ApplyEffect(Picture& picture, double) {
  constexpr int kBands = 100;
  constexpr double kSoft = 0.5;
  const auto width = static_cast<float>(picture.Width());
  const double band = std::max(picture.Height() / 100.0, 1.0);
  const auto q = static_cast<float>(band / 4);
  AdvancedGraphics g(picture);
  const auto fill = [&](float y, float height, double alpha) {
    g.SetFillColor(kBlack, alpha);
    g.DrawRect(AdvancedGraphicsModule::MakeCGRect(0, y, width, height), kFill);
  };
  for (int i = 0; i <= kBands; i += 2) {
    const auto y = static_cast<float>(static_cast<int>(i * band));
    fill(y, q, kSoft);
    fill(y + 3 * q, q, kSoft);
    fill(y + q, 2 * q, 1);
  }
}

}  // namespace brivolant
