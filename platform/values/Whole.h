// SPDX-License-Identifier: MIT
#pragma once

namespace brivolant {

/// The integer part of a number, limited to a thousand million to either side, so that two of them
/// can be added; what is not a number gives 0. For positions and lengths that come from files:
/// a plain conversion is undefined where they do not fit.
constexpr int Whole(double value) {
  constexpr double kMost = 1e9;
  if (value >= kMost) return static_cast<int>(kMost);
  if (value <= -kMost) return static_cast<int>(-kMost);
  // What is not a number is neither.
  return value > -kMost ? static_cast<int>(value) : 0;
}

}  // namespace brivolant
