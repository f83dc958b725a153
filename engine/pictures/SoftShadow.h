// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "platform/pictures/Picture.h"

/// The one look of shadows: black, and soft at the edge. Blurs are lengths in pixels, twice the
/// standard deviation, and need not be whole.
namespace brivolant::SoftShadow {

/// How much a shadow of something opaque darkens, 0 to 1.
inline constexpr double kDarkness = 0.4;

/// How far beyond its shape a shadow reaches, in pixels.
int Reach(double blur);
/// Softens the coverage of what throws a shadow. The shape must keep Reach from the plane's border.
void Soften(Plane& coverage, double blur);

/// One side of a rectangle, in pixels.
struct Side {
  double from = 0;
  double to = 0;
};
/// Lays the shadows of a grid of rectangles, each as wide as one of `across` and as high as one of
/// `down`. None of them may overlap.
void LayGrid(Picture& picture, std::span<const Side> across, std::span<const Side> down,
             double blur);

}  // namespace brivolant::SoftShadow
