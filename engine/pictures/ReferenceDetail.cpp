// SPDX-License-Identifier: MIT
#include "engine/pictures/ReferenceDetail.h"

#include <algorithm>
#include <cmath>

#include "engine/pictures/PictureEffects.h"
#include "platform/pictures/kernels/BlendKernels.h"
#include "platform/pictures/kernels/ScaleKernels.h"

namespace brivolant {
namespace {

/// Variance of the weights with which a picture is reduced, in pixels of the result: of a triangle
/// that is one pixel wide on each side.
constexpr double kPixel = 1 / 6.0;

}  // namespace

ReferenceDetail::ReferenceDetail(const Picture& picture, double scale, double softness)
    : Soft(picture), Scale(scale) {
  Soft.SetMask({});
  if (!(scale > 1) || picture.IsNil()) return;
  // Two pixels of what is left hold one of the reference size.
  const double factor = std::max(std::floor(scale / 2), 1.0);
  const auto reduced = [factor](int length) {
    return std::max(static_cast<int>(std::lround(length / factor)), 1);
  };
  if (factor > 1) {
    const Picture small =
        ScaleEffect::BilinearScale(Soft, reduced(picture.Width()), reduced(picture.Height()));
    if (!small.IsNil()) {
      Soft = small;
      Scale = scale / factor;
    }
  }
  const double variance = (Scale * Scale - 1) * (kPixel + softness);
  // A radius is twice the standard deviation.
  Soft = GaussianBlur(2 * std::sqrt(variance)).ApplyEffect(std::move(Soft));
}

void TakeEnlarged(Picture& picture, const Picture& drawn) {
  if (picture.IsNil() || drawn.IsNil()) return;
  const Picture::Rewriting pixels = picture.Rewrite();
  kernels::Scale(drawn.View(),
                 {0, 0, static_cast<double>(drawn.Width()), static_cast<double>(drawn.Height())},
                 pixels.to);
}

Picture PencilDrawing(const ReferenceDetail& detail) {
  constexpr double kRadius = 7;
  constexpr int kColorDodge = 6;
  constexpr int kFull = 256;
  Picture drawing = detail.Soft;
  if (drawing.IsNil()) return drawing;
  const Picture negative =
      GaussianBlur(kRadius * detail.Scale).ApplyEffect(InvertEffect().Apply(drawing));
  kernels::Blend(drawing.Edit(), negative.View(), kColorDodge, kFull);
  return drawing;
}

}  // namespace brivolant
