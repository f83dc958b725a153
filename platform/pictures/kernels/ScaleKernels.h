// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

#include "platform/pictures/Views.h"

namespace brivolant::kernels {

/// A rectangle in pixels; the parts of a source that are scaled need not be whole pixels.
struct SourceArea {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
};

/// The contributions of source pixels to each pixel along one axis: a triangle that is one source
/// pixel wide on each side when enlarging (bilinear interpolation), and one target pixel wide
/// when shrinking, so that shrinking averages every source pixel. Weights in 1/16384.
class ScalePlan {
 public:
  /// Maps `from` .. `from + extent` of `sourceSize` pixels to `targetSize` pixels. Beyond the
  /// source's border its outermost pixel goes on.
  ScalePlan(int sourceSize, double from, double extent, int targetSize);

  int First(int target) const { return first_[static_cast<std::size_t>(target)]; }
  int Taps() const { return taps_; }
  const std::int32_t* Weights(int target) const {
    return weights_.data() + static_cast<std::size_t>(target) * static_cast<std::size_t>(taps_);
  }

 private:
  std::vector<int> first_;
  std::vector<std::int32_t> weights_;
  int taps_ = 0;
};

/// Scales `area` of the source to the whole target.
void Scale(ConstPixels source, const SourceArea& area, Pixels target);
void Scale(ConstGrey source, const SourceArea& area, Grey target);

/// Enlarges `area` of the source to the whole target so that its pixels stay squares: each target
/// pixel is the source pixel in which its middle lies.
void Magnify(ConstPixels source, const SourceArea& area, Pixels target);

namespace reference {
void Magnify(ConstPixels source, const SourceArea& area, Pixels target);
void Scale(ConstGrey source, const SourceArea& area, Grey target);
}  // namespace reference

}  // namespace brivolant::kernels
