// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "platform/pictures/Views.h"

namespace brivolant::kernels {

/// How a Gaussian of one standard deviation is computed along a line. Small ones are a sampled
/// kernel with weights in 1/65536; larger ones three box filters in a row, whose cost does not
/// depend on their widths (P. Kovesi, "Fast Almost-Gaussian Filtering", DICTA 2010, with the widths
/// chosen for the closest variance; three boxes are also what the SVG filter standard names, within
/// 3% of the true curve).
struct GaussianPlan {
  /// `sigma` in pixels, above 0 and at most kLargestSigma.
  explicit GaussianPlan(double sigma);

  static constexpr double kLargestSigma = 90;

  /// Odd widths of the boxes; empty when `taps` is used.
  std::array<int, 3> boxes{};
  bool usesBoxes = false;
  /// Weight of the centre and of the following neighbours; the sum over both sides is 65536.
  std::vector<std::uint32_t> taps;

  /// How far the filter reaches on each side, in pixels.
  int Reach() const;
};

/// Blurs in place, each line first along x, then along y, with 8 bits kept between. Beyond the
/// border the outermost pixel goes on.
void GaussianBlur(Pixels pixels, const GaussianPlan& plan);
void GaussianBlur(Grey plane, const GaussianPlan& plan);

namespace reference {
/// The same as a convolution with the plan's whole kernel in double precision.
void GaussianBlur(Grey plane, const GaussianPlan& plan);
/// The kernel from the centre outwards; the sum over both sides is 1.
std::vector<double> Kernel(const GaussianPlan& plan);
}  // namespace reference

}  // namespace brivolant::kernels
