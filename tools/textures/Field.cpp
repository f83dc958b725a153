// SPDX-License-Identifier: MIT
#include "tools/textures/Field.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/pictures/Noise.h"

namespace brivolant::textures {
namespace {

int Wrapped(int i, int count) {
  const int rest = i % count;
  return rest < 0 ? rest + count : rest;
}

double Mixed(double a, double b, double t) {
  return a + (b - a) * t;
}

}  // namespace

float Field::Sample(double x, double y) const {
  const double fx = std::floor(x);
  const double fy = std::floor(y);
  const int ix = static_cast<int>(fx);
  const int iy = static_cast<int>(fy);
  const double top = Mixed(At(ix, iy), At(ix + 1, iy), x - fx);
  const double bottom = Mixed(At(ix, iy + 1), At(ix + 1, iy + 1), x - fx);
  return static_cast<float>(Mixed(top, bottom, y - fy));
}

void Field::Fill(const std::function<double(int, int)>& value) {
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) At(x, y) = static_cast<float>(value(x, y));
  }
}

void Field::BlurAlong(bool horizontal, int radius, int passes) {
  std::array<double, kSide> line{};
  const auto at = [&](int i, int k) -> float& { return horizontal ? At(k, i) : At(i, k); };
  for (int pass = 0; pass < passes && radius > 0; ++pass) {
    for (int i = 0; i < kSide; ++i) {
      double sum = 0;
      for (int k = -radius; k <= radius; ++k) sum += at(i, k);
      for (int k = 0; k < kSide; ++k) {
        line.at(static_cast<std::size_t>(k)) = sum / (2 * radius + 1);
        sum += at(i, k + radius + 1) - at(i, k - radius);
      }
      for (int k = 0; k < kSide; ++k) {
        at(i, k) = static_cast<float>(line.at(static_cast<std::size_t>(k)));
      }
    }
  }
}

void Field::Blur(int radius, int passes) {
  BlurAlong(true, radius, passes);
  BlurAlong(false, radius, passes);
}

void Field::Normalize() {
  double sum = 0;
  for (const float value : values_) sum += value;
  const double mean = sum / static_cast<double>(values_.size());
  double squares = 0;
  for (const float value : values_) squares += (value - mean) * (value - mean);
  const double deviation = std::sqrt(squares / static_cast<double>(values_.size()));
  for (float& value : values_)
    value = static_cast<float>((value - mean) / std::max(deviation, 1e-9));
}

void Field::Stroke(const std::vector<std::pair<double, double>>& points, double width,
                   double level) {
  for (std::size_t i = 1; i < points.size(); ++i) {
    const double x0 = points[i - 1].first;
    const double y0 = points[i - 1].second;
    const double dx = points[i].first - x0;
    const double dy = points[i].second - y0;
    const double length2 = std::max(dx * dx + dy * dy, 1e-9);
    const double reach = width + 1;
    const int left = static_cast<int>(std::floor(std::min(x0, x0 + dx) - reach));
    const int right = static_cast<int>(std::ceil(std::max(x0, x0 + dx) + reach));
    const int top = static_cast<int>(std::floor(std::min(y0, y0 + dy) - reach));
    const int bottom = static_cast<int>(std::ceil(std::max(y0, y0 + dy) + reach));
    for (int y = top; y <= bottom; ++y) {
      for (int x = left; x <= right; ++x) {
        const double t = std::clamp(((x - x0) * dx + (y - y0) * dy) / length2, 0.0, 1.0);
        const double distance = std::hypot(x - x0 - t * dx, y - y0 - t * dy);
        const double cover = std::clamp(width / 2 + 0.5 - distance, 0.0, 1.0);
        At(x, y) = std::max(At(x, y), static_cast<float>(level * cover));
      }
    }
  }
}

double Hash(std::uint32_t x, std::uint32_t y, std::uint32_t seed) {
  return HashOf(x, y, seed) / 4294967296.0;
}

double Noise(double x, double y, int across, int down, std::uint32_t seed) {
  return GradientNoise(x * across / kSide, y * down / kSide, across, down, seed);
}

double Octaves(double x, double y, int across, int down, int octaves, double gain,
               std::uint32_t seed) {
  double sum = 0;
  double strength = 1;
  for (int i = 0; i < octaves; ++i) {
    sum += strength * Noise(x, y, across << i, down << i, seed + static_cast<std::uint32_t>(i));
    strength *= gain;
  }
  return sum;
}

Cell Cells(double x, double y, int across, int down, std::uint32_t seed) {
  const double u = x * across / kSide;
  const double v = y * down / kSide;
  const int iu = static_cast<int>(std::floor(u));
  const int iv = static_cast<int>(std::floor(v));
  Cell cell{9, 9, 0};
  for (int dv = -1; dv <= 1; ++dv) {
    for (int du = -1; du <= 1; ++du) {
      const auto cu = static_cast<std::uint32_t>(Wrapped(iu + du, across));
      const auto cv = static_cast<std::uint32_t>(Wrapped(iv + dv, down));
      const double px = iu + du + Hash(cu, cv, seed);
      const double py = iv + dv + Hash(cu, cv, seed + 1);
      const double distance = std::hypot(px - u, py - v);
      if (distance < cell.first) {
        cell.second = cell.first;
        cell.first = distance;
        cell.id = Hash(cu, cv, seed + 2);
      } else {
        cell.second = std::min(cell.second, distance);
      }
    }
  }
  return cell;
}

}  // namespace brivolant::textures
