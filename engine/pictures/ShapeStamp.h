// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>

#include "platform/pictures/Picture.h"

namespace brivolant {

class AdvancedGraphics;

/// A shape that is drawn once and then laid many times in any colour, with its shadow, at whole
/// pixels: for pictures made of thousands of equal pieces.
class ShapeStamp {
 public:
  /// Of the shadow: pixels below the shape, and its blur.
  struct Shadow {
    int down = 0;
    int blur = 0;
  };

  /// `draw` paints the shape, with the colour that is set, in the rectangle from (left, top) of its
  /// canvas, of the given size. `opacity` from 0 to 1 is that of shape and shadow.
  ShapeStamp(int width, int height, double opacity, const std::optional<Shadow>& shadow,
             const std::function<void(AdvancedGraphics&, int left, int top)>& draw);

  /// Lays it with the rectangle's corner at (x, y) of the target, on the rows `from` to `to` alone.
  void Lay(Pixels target, Color color, int x, int y, int from, int to) const;
  /// True if any of it falls on those rows when it is laid at `y`.
  bool Touches(int y, int from, int to) const {
    return y - margin_ < to && y - margin_ + keep_.Height() > from;
  }

 private:
  int margin_ = 0;
  Plane keep_;
  Plane share_;
};

}  // namespace brivolant
