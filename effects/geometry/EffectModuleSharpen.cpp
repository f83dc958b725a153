// SPDX-License-Identifier: MIT
#include "effects/geometry/EffectModuleSharpen.h"

#include <algorithm>
#include <cmath>

#include "engine/pictures/PictureEffects.h"
#include "platform/pictures/kernels/DetailKernels.h"

namespace brivolant {

namespace {

/// The picture blurred by that variance, in pixels. A wide blur is made on a smaller copy; reducing
/// and enlarging that blur too.
Picture Blurred(const Picture& picture, double variance) {
  constexpr double kFactorOfSigma = 0.85;
  const double factor = std::floor(kFactorOfSigma * std::sqrt(variance));
  if (factor < 2) return GaussianBlur(2 * std::sqrt(variance)).ApplyEffect(picture);
  const auto reduced = [factor](int length) {
    return std::max(static_cast<int>(std::lround(length / factor)), 1);
  };
  Picture small =
      ScaleEffect::BilinearScale(picture, reduced(picture.Width()), reduced(picture.Height()));
  const double rest = variance / (factor * factor) - 1 / 3.0;
  small = GaussianBlur(2 * std::sqrt(rest)).ApplyEffect(std::move(small));
  return ScaleEffect::BilinearScale(small, picture.Width(), picture.Height());
}

}  // namespace

void EffectModuleSharpen::ApplyEffect(Picture& picture, double scale) {
  if (picture.IsNil()) return;
  // Four neighbours, each a pixel away, have a variance of a half. In a larger picture the same
  // details are wider, and a blur stands between the pixel and its neighbours; in a smaller one
  // they are steeper.
  const double variance = (scale * scale - 1) / 2;
  const double share = std::min(scale * scale, 1.0) * kernels::kSharpenShare;
  // Of a large photo every copy counts: against a blur it is sharpened where it is.
  const Picture soft = variance > 0 ? Blurred(picture, variance) : picture;
  if (soft.IsNil()) return;
  const Picture::Rewriting pixels = picture.Rewrite();
  kernels::SharpenAgainst(pixels.from, soft.View(), pixels.to,
                          static_cast<int>(std::lround(share)));
}

}  // namespace brivolant
