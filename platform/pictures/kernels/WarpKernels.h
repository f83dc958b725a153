// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include "platform/pictures/Views.h"
#include "platform/values/Color.h"

/// Operations that move pixels. Positions are interpolated bilinearly; source and target have one
/// size and are not the same.
namespace brivolant::kernels {

/// Mean of the pixels along a line of `length` pixels through each pixel, `degrees` clockwise from
/// the horizontal: a running sum along digital lines, so the cost does not depend on the length.
/// Beyond the border the outermost pixels go on.
void MotionBlurAlongLine(ConstPixels source, Pixels target, double length, double degrees);

/// The mean of the source and the source mapped about its centre: turned by `degrees` and enlarged
/// by `zoom`. Beyond the border the outermost pixels go on.
void AverageWithTurned(ConstPixels source, Pixels target, double degrees, double zoom);

/// Every pixel is taken from a random place at most `radius` pixels away. The places are the same
/// for the same `seed`; cells of `grain` pixels, 1 or more and not only whole ones, go together.
void Scatter(ConstPixels source, Pixels target, double radius, double grain, std::uint32_t seed);

/// Every pixel becomes the mean colour of the fullest of `levels` + 1 classes of brightness among
/// the pixels at most `radius` rows and columns away. `levels` counts up to 255.
void PaintInOil(ConstPixels source, Pixels target, int radius, int levels);

/// Rows and columns swing like a sine: `waves` periods over the picture, `amplitude` pixels to each
/// side. What comes from outside is `back`.
void Swing(ConstPixels source, Pixels target, double waves, double amplitude, Color back);

/// How a lens bends: a position at the distance r from the centre, as a fraction of half the
/// diagonal, is taken from r * scale * (1 + bend * r * r); the keystones shear lines towards a
/// vanishing point, each -1 to 1.
struct Lens {
  double bend = 0;
  double scale = 1;
  double verticalKeystone = 0;
  double horizontalKeystone = 0;
  /// False takes the nearest pixel.
  bool interpolate = true;
};
/// What comes from outside is `back`.
void Bend(ConstPixels source, Pixels target, const Lens& lens, Color back);

/// A drop of water on the picture, in pixels.
struct Drop {
  double x;
  double y;
  double radius;
};
/// Draws the source as seen through drops: each shows what lies under it small and upside down,
/// with a bright rim and a highlight at the top left. Later drops lie over earlier ones.
void ThroughDrops(ConstPixels source, Pixels target, const std::vector<Drop>& drops);

}  // namespace brivolant::kernels
