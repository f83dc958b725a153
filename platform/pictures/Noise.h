// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace brivolant {

/// A number that depends on all bits of its arguments (the finaliser of MurmurHash3).
inline std::uint32_t HashOf(std::uint32_t x, std::uint32_t y, std::uint32_t seed) {
  std::uint32_t h = x * 0x9E3779B1U ^ (y * 0x85EBCA77U + seed * 0xC2B2AE3DU);
  h ^= h >> 16;
  h *= 0x85EBCA6BU;
  h ^= h >> 13;
  h *= 0xC2B2AE35U;
  return h ^ h >> 16;
}

/// Gradient noise (K. Perlin, "Improving Noise", 2002) at (u, v) cells, about -1 to 1. It repeats
/// after `across` by `down` cells.
double GradientNoise(double u, double v, int across, int down, std::uint32_t seed);

}  // namespace brivolant
