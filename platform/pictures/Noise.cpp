// SPDX-License-Identifier: MIT
#include "platform/pictures/Noise.h"

#include <cmath>
#include <numbers>

namespace brivolant {
namespace {

std::uint32_t Wrapped(int i, int count) {
  const int rest = i % count;
  return static_cast<std::uint32_t>(rest < 0 ? rest + count : rest);
}

double Faded(double t) {
  return t * t * t * (t * (t * 6 - 15) + 10);
}

double Mixed(double a, double b, double t) {
  return a + (b - a) * t;
}

}  // namespace

double GradientNoise(double u, double v, int across, int down, std::uint32_t seed) {
  // Brings the noise of unit slopes near the range of -1 to 1.
  constexpr double kStrength = 1.5;
  const int iu = static_cast<int>(std::floor(u));
  const int iv = static_cast<int>(std::floor(v));
  const double fu = u - iu;
  const double fv = v - iv;
  const auto slope = [&](int du, int dv) {
    const std::uint32_t chance = HashOf(Wrapped(iu + du, across), Wrapped(iv + dv, down), seed);
    const double angle = 2 * std::numbers::pi * chance / 4294967296.0;
    return std::cos(angle) * (fu - du) + std::sin(angle) * (fv - dv);
  };
  const double tu = Faded(fu);
  return kStrength *
         Mixed(Mixed(slope(0, 0), slope(1, 0), tu), Mixed(slope(0, 1), slope(1, 1), tu), Faded(fv));
}

}  // namespace brivolant
