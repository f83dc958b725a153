// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <random>

namespace brivolant {

/// The numbers that a module's render draws: the same for the same seed, so that a preview and the
/// full picture fall alike.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : generator_(seed) {}
  /// At least 0, below 1.
  double Rnd() {
    return static_cast<double>(generator_()) / (static_cast<double>(std::mt19937::max()) + 1);
  }
  /// 0 to `count` - 1.
  int Below(int count) { return static_cast<int>(Rnd() * count); }

 private:
  std::mt19937 generator_;
};

/// The numbers that one of many pieces draws: they depend on the seed and the piece's place in its
/// grid alone, not on how many pieces draw before it.
class TileDice {
 public:
  TileDice(std::uint32_t seed, int column, int row)
      : state_(Mixed(Mixed(seed + kStep) ^ static_cast<std::uint32_t>(row)) ^
               static_cast<std::uint32_t>(column)) {}
  /// At least 0, below 1.
  double Rnd() {
    constexpr int kBits = 53;
    state_ += kStep;
    return static_cast<double>(Mixed(state_) >> (64 - kBits)) /
           static_cast<double>(std::uint64_t{1} << kBits);
  }
  /// 0 to `count` - 1.
  int Below(int count) { return static_cast<int>(Rnd() * count); }

 private:
  /// An odd number with its bits spread well: the golden ratio's.
  static constexpr std::uint64_t kStep = 0x9E3779B97F4A7C15U;
  /// Every bit of the result depends on every bit of the number.
  static constexpr std::uint64_t Mixed(std::uint64_t x) {
    for (int round = 0; round < 3; ++round) {
      x ^= x >> 32U;
      x *= 0xD6E8FEB86659FD93U;
    }
    return x ^ x >> 32U;
  }

  std::uint64_t state_;
};

}  // namespace brivolant
