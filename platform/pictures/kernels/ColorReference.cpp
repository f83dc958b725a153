// SPDX-License-Identifier: MIT
#include "platform/pictures/kernels/ColorKernels.h"

#include <algorithm>
#include <cmath>

#include "platform/pictures/Parallel.h"

namespace brivolant::kernels {
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

/// A shift as the pixels take it: sixths of a turn, a factor, and -1 to 1.
struct Shift {
  float turn = 0;
  float strength = 1;
  float light = 0;

  static Shift Of(const HueShift& shift) {
    return {TurnOf(shift.hue), StrengthOf(shift.saturation), LightOf(shift.lightness)};
  }
};

/// Changes a pixel; `shift(hue)` says how, for a hue in sixths or -1 for a grey.
template <class ShiftOf>
void ShiftPixel(std::uint8_t* p, const ShiftOf& shiftOf) {
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
  }
  const Shift shift = shiftOf(range > 0 ? (h < 0 ? h + 6 : h) : -1.0F);
  if (range > 0) {
    h += shift.turn;
    if (h < 0) h += 6;
    if (h >= 6) h -= 6;
  }
  s = std::min(s * shift.strength, 1.0F);
  l = shift.light < 0 ? l * (1 + shift.light) : l + (1 - l) * shift.light;
  const float high = l < 0.5F ? l * (1 + s) : l + s - l * s;
  const float low = 2 * l - high;
  p[2] = Level(Channel(low, high, h + 2));
  p[1] = Level(Channel(low, high, h));
  p[0] = Level(Channel(low, high, h + 4));
}

}  // namespace

float TurnOf(double hue) {
  if (!std::isfinite(hue)) return 0;
  const auto turn = static_cast<float>(std::fmod(hue / 60 + 12, 6));
  return turn < 0 ? turn + 6 : turn;
}

float StrengthOf(double saturation) {
  if (!std::isfinite(saturation)) return 1;
  constexpr double kMost = 1e6;
  return static_cast<float>(
      std::clamp(saturation < 0 ? 1 + saturation / 200 : 1 + saturation / 100, 0.0, kMost));
}

float LightOf(double lightness) {
  return std::isfinite(lightness) ? static_cast<float>(std::clamp(lightness / 100, -1.0, 1.0)) : 0;
}

double ShareOfRange(int range, double hue) {
  constexpr double kWhole = 15;
  constexpr double kFade = 30;
  const double away = std::abs(std::remainder(hue - 60.0 * range, 360));
  return std::clamp((kWhole + kFade - away) / kFade, 0.0, 1.0);
}

void ShiftByHue(Pixels pixels, const HueShifts& shifts) {
  // Every hue's shift is worked out once; neighbours in the table differ by less than a level.
  constexpr int kStepsASixth = 256;
  constexpr int kSteps = 6 * kStepsASixth;
  constexpr int kGrain = 16;
  std::array<Shift, kSteps + 1> table;
  for (int i = 0; i <= kSteps; ++i) {
    HueShift sum = shifts[0];
    for (int range = 0; range < kHueRanges; ++range) {
      const double share = ShareOfRange(range, 360.0 * i / kSteps);
      const HueShift& own = shifts.at(static_cast<std::size_t>(range) + 1);
      sum.hue += share * own.hue;
      sum.saturation += share * own.saturation;
      sum.lightness += share * own.lightness;
    }
    table.at(static_cast<std::size_t>(i)) = Shift::Of(sum);
  }
  const Shift grey = Shift::Of(shifts[0]);
  ParallelRows(pixels.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      std::uint8_t* p = pixels.Row(y);
      for (int x = 0; x < pixels.width; ++x, p += 4) {
        ShiftPixel(p, [&](float hue) {
          return hue < 0 ? grey : table.at(static_cast<std::size_t>(hue * kStepsASixth));
        });
      }
    }
  });
}

namespace reference {

void ShiftHueSaturationLightness(Pixels pixels, double hue, double saturation, double lightness) {
  if (hue == 0 && saturation == 0 && lightness == 0) return;
  const Shift shift = Shift::Of({hue, saturation, lightness});
  for (int y = 0; y < pixels.height; ++y) {
    std::uint8_t* p = pixels.Row(y);
    for (int x = 0; x < pixels.width; ++x, p += 4) {
      ShiftPixel(p, [&shift](float) { return shift; });
    }
  }
}

}  // namespace reference
}  // namespace brivolant::kernels
