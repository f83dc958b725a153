// SPDX-License-Identifier: MIT
#include "platform/pictures/kernels/ColorKernels.h"

#include <algorithm>
#include <cmath>

namespace brivolant::kernels::reference {
namespace {

/// One channel of an HSL colour (A. Smith's hexcone, in the form of CSS Color 4): `sector` is the
/// hue in sixths of a turn plus the channel's offset, 0 to 6.
float Channel(float low, float high, float sector) {
  if (sector >= 6) sector -= 6;
  // Up within a sixth, level for two, down within a sixth.
  return low + (high - low) * std::clamp(std::min(sector, 4 - sector), 0.0F, 1.0F);
}

std::uint8_t Level(float value) {
  return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0F, 1.0F) * 255));
}

}  // namespace

void ShiftHueSaturationLightness(Pixels pixels, double hue, double saturation, double lightness) {
  if (hue == 0 && saturation == 0 && lightness == 0) return;
  const auto turn = static_cast<float>(std::fmod(hue / 60 + 12, 6));
  const auto strength = static_cast<float>(
      std::max(0.0, saturation < 0 ? 1 + saturation / 200 : 1 + saturation / 100));
  const auto light = static_cast<float>(std::clamp(lightness / 100, -1.0, 1.0));
  for (int y = 0; y < pixels.height; ++y) {
    std::uint8_t* p = pixels.Row(y);
    for (int x = 0; x < pixels.width; ++x, p += 4) {
      const int largest = std::max({p[0], p[1], p[2]});
      const int smallest = std::min({p[0], p[1], p[2]});
      const auto range = static_cast<float>(largest - smallest);
      float l = static_cast<float>(largest + smallest) * (0.5F / 255);
      float s = 0;
      float h = 0;
      if (range > 0) {
        s = range / 255 / (1 - std::abs(2 * l - 1));
        if (largest == p[2]) {
          h = static_cast<float>(p[1] - p[0]) / range;
        } else if (largest == p[1]) {
          h = static_cast<float>(p[0] - p[2]) / range + 2;
        } else {
          h = static_cast<float>(p[2] - p[1]) / range + 4;
        }
        h += turn;
        if (h < 0) h += 6;
        if (h >= 6) h -= 6;
      }
      s = std::min(s * strength, 1.0F);
      l = light < 0 ? l * (1 + light) : l + (1 - l) * light;
      const float high = l < 0.5F ? l * (1 + s) : l + s - l * s;
      const float low = 2 * l - high;
      p[2] = Level(Channel(low, high, h + 2));
      p[1] = Level(Channel(low, high, h));
      p[0] = Level(Channel(low, high, h + 4));
    }
  }
}

}  // namespace brivolant::kernels::reference
