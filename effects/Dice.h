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

}  // namespace brivolant
