// SPDX-License-Identifier: MIT
#include "engine/pictures/ConvolutionEffect.h"

#include <algorithm>

#include "engine/pictures/MaskedChange.h"

namespace brivolant {

Picture ConvolutionEffect::ApplyMatrix(Picture source, const kernels::Convolution3x3& matrix,
                                       const Plane* mask) const {
  if (source.IsNil()) return source;
  Picture result = Picture::Uninitialized(source.Width(), source.Height(), source.Depth());
  if (result.IsNil()) return source;
  result.HorizontalResolution = source.HorizontalResolution;
  result.VerticalResolution = source.VerticalResolution;
  kernels::Convolve(source.View(), result.Edit(), matrix);
  if (const Plane* own = source.Mask()) result.SetMask(*own);
  Take(source, std::move(result), mask);
  return source;
}

Picture ConvolutionEffect::Smooth(Picture source, int weight, const Plane* mask) const {
  const int own = std::clamp(weight, 1, 1 << 20);
  return ApplyMatrix(std::move(source), {{1, 1, 1, 1, own, 1, 1, 1, 1}, own + 8, 0}, mask);
}

Picture ConvolutionEffect::Sharpen(Picture source, const Plane* mask) const {
  return ApplyMatrix(std::move(source), {{0, -2, 0, -2, 11, -2, 0, -2, 0}, 3, 0}, mask);
}

Picture ConvolutionEffect::EdgeDetect(Picture source, const Plane* mask) const {
  return ApplyMatrix(std::move(source), {{1, 1, 1, 0, 0, 0, -1, -1, -1}, 1, 127}, mask);
}

Picture ConvolutionEffect::Blur(Picture source, const Plane* mask) const {
  return ApplyMatrix(std::move(source), {{1, 2, 1, 2, 4, 2, 1, 2, 1}, 16, 0}, mask);
}

Picture ConvolutionEffect::MeanRemoval(Picture source, const Plane* mask) const {
  return ApplyMatrix(std::move(source), {{-1, -1, -1, -1, 9, -1, -1, -1, -1}, 1, 0}, mask);
}

Picture ConvolutionEffect::Emboss(Picture source, const Plane* mask) const {
  return ApplyMatrix(std::move(source), {{-1, 0, -1, 0, 4, 0, -1, 0, -1}, 1, 127}, mask);
}

}  // namespace brivolant
