// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "platform/pictures/Picture.h"

namespace brivolant {

/// Filters that move or mix pixels. They work on colour and keep the source's mask; a mask that may
/// be null limits the effect, none where it is 255. Nil in, nil out.
namespace MPImageFilter {

enum BlurType { kLinear = 0, kRadial = 1, kZoom = 2 };

/// Blur by a movement. The path is `repetitions` and `distance` pixels long together: along a line
/// that rises by `angle` units of 1.8 degrees (100 are half a turn), or at the corners when the
/// camera turned (radial) or came nearer (zoom).
Picture MotionBlur(Picture source, int repetitions, double angle, int distance, int blurType,
                   const Plane* mask = nullptr);

/// The size of Diffuse's grains that is the same share of the picture at every size, in pixels.
double GrainAt(double scale);

/// Every pixel comes from a random place within `radius`; `blur` softens the grains. `grain` is
/// their size in pixels, and `seed` makes the picture repeatable.
Picture Diffuse(Picture source, int radius, bool blur, double grain, std::uint32_t seed,
                const Plane* mask = nullptr);

/// The picture as seen through water drops: `density` of them, the largest `largestDropSize` pixels
/// in radius. Their places are fractions of the picture and depend on `seed` alone.
Picture WaterDrops(Picture source, int largestDropSize, int density, std::uint32_t seed,
                   const Plane* mask = nullptr);

/// Every pixel takes the mean of the most frequent of `smoothness` + 1 levels of brightness, at
/// most 256, among its neighbours within `brushSize` pixels (the classic oil filter of G.
/// Holzmann's "Beyond Photography").
Picture OilPaintFilter(Picture source, int brushSize, int smoothness, const Plane* mask = nullptr);

/// Swings by `waves` periods over the picture; beyond its border lies `backColor`.
Picture Wave(Picture source, double waves, Color backColor, const Plane* mask = nullptr);

}  // namespace MPImageFilter

/// Lens and keystone distortion. Source of the formula: D. C. Brown's radial model, with its first
/// term alone.
class BarrelDistortion {
 public:
  /// -1 pincushion to 1 barrel.
  double Distortion = 0;
  /// Beyond the border, where a keystone shows it.
  Color BackColor = kWhite;
  /// False takes the nearest pixel instead of a mean of four.
  bool Interpolate = true;
  double VerticalKeystone = 0;
  double HorizontalKeystone = 0;

  void Reset() { *this = BarrelDistortion(); }
  Picture ApplyEffect(Picture source) const;
};

}  // namespace brivolant
