// SPDX-License-Identifier: MIT
#include "effects/fixes/LevelRange.h"

#include <algorithm>

#include "engine/pictures/PictureEffects.h"

namespace brivolant {

LevelRange LevelRange::Of(const std::array<std::uint32_t, 256>& histogram, int pixels) {
  LevelRange range;
  const auto threshold = static_cast<std::uint32_t>(pixels * 0.001);
  for (int i = 255; i >= 1; --i) {
    if (histogram[static_cast<std::size_t>(i)] > threshold) {
      range.max = i;
      break;
    }
  }
  for (int i = 0; i <= 254; ++i) {
    if (histogram[static_cast<std::size_t>(i)] > threshold) {
      range.min = i;
      break;
    }
  }
  return range;
}

ToneTable LevelRange::Stretch() const {
  if (max <= min) return IdentityTable();
  const double gain = 1 / ((max - min) / 255.0);
  return MakeTable([&](int i) { return (i - min) * gain; });
}

Picture HistogramThumbnail(const Picture& picture, int width, int height) {
  return ScaleEffect::BilinearScale(picture, std::max(1, width), std::max(1, height));
}

}  // namespace brivolant
