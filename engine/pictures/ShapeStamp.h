// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/pictures/Picture.h"

namespace brivolant {

class AdvancedGraphics;

/// A shape that is drawn once and then laid many times in any colour, with its shadow, at whole
/// pixels: for pictures made of thousands of equal pieces.
class ShapeStamp {
 public:
  /// Of the shadow: pixels below the shape, and its blur.
  struct Shadow {
    double down = 0;
    double blur = 0;
  };
  /// Paints the shape, with the colour that is set, in a rectangle from (left, top) of its canvas.
  using Drawing = std::function<void(AdvancedGraphics&, double left, double top)>;

  /// `draw` fills a rectangle of the given size; (dx, dy), 0 to 1, is how far the shape lies beyond
  /// a whole pixel. `opacity` from 0 to 1 is that of shape and shadow.
  ShapeStamp(int width, int height, double opacity, const std::optional<Shadow>& shadow,
             const Drawing& draw, double dx = 0, double dy = 0);

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

/// The stamps of one shape for places between pixels, each made when it is first needed. The
/// smaller the shape, the finer the places; of large ones a pixel does not show.
class FineStamps {
 public:
  FineStamps(int width, int height, double opacity, std::optional<ShapeStamp::Shadow> shadow,
             ShapeStamp::Drawing draw);

  /// One piece, ready to be laid. The stamps must outlive it.
  struct Piece {
    const ShapeStamp* stamp;
    Color color;
    int x;
    int y;
  };
  Piece At(double x, double y, Color color);

 private:
  static constexpr int kMostSteps = 4;
  int width_;
  int height_;
  double opacity_;
  std::optional<ShapeStamp::Shadow> shadow_;
  ShapeStamp::Drawing draw_;
  int steps_;
  std::array<std::unique_ptr<ShapeStamp>, std::size_t{kMostSteps} * kMostSteps> stamps_;
};

/// Lays pieces over each other in their order, on all cores.
void LayPieces(Picture& picture, const std::vector<FineStamps::Piece>& pieces);

}  // namespace brivolant
