// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pictures/Picture.h"
#include "platform/pictures/kernels/ConvolveKernels.h"

namespace brivolant {

/// Filters of a pixel and its eight neighbours, with the usual fixed weights. As in
/// PictureEffects.h: a mask that may be null limits the effect, none where it is 255; nil in, nil
/// out; the source's mask stays.
class ConvolutionEffect {
 public:
  /// `weight`, 1 or more, is that of the pixel itself; its neighbours have 1 each.
  Picture Smooth(Picture source, int weight, const Plane* mask = nullptr) const;
  /// 0 -2 0, -2 11 -2, 0 -2 0, by 3.
  Picture Sharpen(Picture source, const Plane* mask = nullptr) const;
  /// Horizontal edges, on grey.
  Picture EdgeDetect(Picture source, const Plane* mask = nullptr) const;
  /// The binomial weights 1 2 1, 2 4 2, 1 2 1, by 16.
  Picture Blur(Picture source, const Plane* mask = nullptr) const;
  /// 9 less its neighbours: a stronger sharpening.
  Picture MeanRemoval(Picture source, const Plane* mask = nullptr) const;
  /// Relief from the corners, on grey.
  Picture Emboss(Picture source, const Plane* mask = nullptr) const;
  Picture ApplyMatrix(Picture source, const kernels::Convolution3x3& matrix,
                      const Plane* mask = nullptr) const;
};

}  // namespace brivolant
