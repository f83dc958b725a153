// SPDX-License-Identifier: MIT
#pragma once

namespace brivolant {

/// Two numbers that belong together: a size, an offset, a mode and an opacity.
struct Pair {
  double Left = 0;
  double Right = 0;
  friend constexpr bool operator==(const Pair&, const Pair&) = default;
};

/// A position or a size in pixels.
struct Point {
  double x = 0;
  double y = 0;
  friend constexpr bool operator==(const Point&, const Point&) = default;
};

}  // namespace brivolant
