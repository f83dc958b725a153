// SPDX-License-Identifier: MIT
#include "effects/geometry/EffectModuleInterlace.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/pictures/kernels/DetailKernels.h"

namespace brivolant {

void EffectModuleInterlace::ApplyEffect(Picture& picture, double scale) {
  constexpr int kBands = 100;
  constexpr double kSoft = 0.5;
  const double band = std::max(picture.Height() / 100.0, scale);
  const double q = band / 4;
  // How dark each row is, 0 to 1: lines end between pixels.
  std::vector<double> dark(static_cast<std::size_t>(picture.Height()));
  const auto fill = [&](double top, double height, double alpha) {
    const int last = std::min(static_cast<int>(std::ceil(top + height)), picture.Height());
    for (int y = static_cast<int>(top); y < last; ++y) {
      const double covered = std::min(top + height, y + 1.0) - std::max(top, 1.0 * y);
      dark[static_cast<std::size_t>(y)] += alpha * covered;
    }
  };
  for (int i = 0; i <= kBands; i += 2) {
    const double y = i * band;
    fill(y, q, kSoft);
    fill(y + q, 2 * q, 1);
    fill(y + 3 * q, q, kSoft);
  }
  std::vector<std::uint8_t> keep(dark.size());
  std::transform(dark.begin(), dark.end(), keep.begin(), [](double share) {
    return static_cast<std::uint8_t>(std::lround(255 * (1 - std::min(share, 1.0))));
  });
  kernels::DarkenRows(picture.Edit(), keep);
}

}  // namespace brivolant
