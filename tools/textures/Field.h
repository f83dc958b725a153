// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace brivolant::textures {

/// Side of a texture in pixels; a power of two.
inline constexpr int kSide = 1024;

/// A square of numbers without borders: what leaves it on one side comes in on the other.
class Field {
 public:
  explicit Field(float value = 0) : values_(std::size_t{kSide} * kSide, value) {}

  float& At(int x, int y) { return values_[Index(x, y)]; }
  float At(int x, int y) const { return values_[Index(x, y)]; }
  /// Bilinear.
  float Sample(double x, double y) const;
  /// Every value from its place.
  void Fill(const std::function<double(int x, int y)>& value);
  /// Box blurs, `passes` of them, of 2 * radius + 1 values along an axis.
  void BlurAlong(bool horizontal, int radius, int passes);
  void Blur(int radius, int passes);
  /// Moves and scales the values to the mean 0 and the deviation 1.
  void Normalize();
  /// Draws a soft line through `points` in pixels: the largest of what was there and `level`.
  void Stroke(const std::vector<std::pair<double, double>>& points, double width, double level);

 private:
  static std::size_t Index(int x, int y) {
    return static_cast<std::size_t>(y & (kSide - 1)) * kSide +
           static_cast<std::size_t>(x & (kSide - 1));
  }
  std::vector<float> values_;
};

/// A number from 0 to 1 that depends on all bits of its arguments.
double Hash(std::uint32_t x, std::uint32_t y, std::uint32_t seed);

/// GradientNoise of `across` by `down` cells over the side.
double Noise(double x, double y, int across, int down, std::uint32_t seed);
/// Octaves of it, each twice as fine and `gain` as strong.
double Octaves(double x, double y, int across, int down, int octaves, double gain,
               std::uint32_t seed);

/// Distances, in cells, to the nearest and to the second nearest of points strewn one a cell (S.
/// Worley, "A Cellular Texture Basis Function", 1996), and a number of the nearest.
struct Cell {
  double first;
  double second;
  double id;
};
Cell Cells(double x, double y, int across, int down, std::uint32_t seed);

/// Numbers in a row from a seed.
class Chance {
 public:
  explicit Chance(std::uint32_t seed) : seed_(seed) {}
  double Next() { return Hash(count_++, 77, seed_); }
  double Between(double low, double high) { return low + (high - low) * Next(); }

 private:
  std::uint32_t seed_;
  std::uint32_t count_ = 0;
};

}  // namespace brivolant::textures
