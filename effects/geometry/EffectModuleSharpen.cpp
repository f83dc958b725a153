// SPDX-License-Identifier: MIT
#include "effects/geometry/EffectModuleSharpen.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "engine/pictures/PictureEffects.h"
#include "platform/pictures/Parallel.h"
#include "platform/pictures/kernels/DetailKernels.h"
#include "platform/pictures/kernels/ScaleKernels.h"

namespace brivolant {

namespace {

/// How many times smaller the copy may be on which a blur of that variance, in pixels, is made.
int Reduction(double variance) {
  constexpr double kFactorOfSigma = 0.85;
  return static_cast<int>(kFactorOfSigma * std::sqrt(variance));
}

/// The picture reduced by that factor and blurred; reducing and enlarging blur, too.
Picture ReducedAndBlurred(const Picture& picture, int factor, double variance) {
  const auto reduced = [factor](int length) {
    return std::max(static_cast<int>(std::lround(1.0 * length / factor)), 1);
  };
  Picture small =
      ScaleEffect::BilinearScale(picture, reduced(picture.Width()), reduced(picture.Height()));
  const double rest = variance / (1.0 * factor * factor) - 1 / 3.0;
  return GaussianBlur(2 * std::sqrt(rest)).ApplyEffect(std::move(small));
}

template <class Any>
Any Band(Any pixels, int top, int rows) {
  return {pixels.Row(top), pixels.stride, pixels.width, rows};
}

/// Against the small one enlarged, of which there is never more than a few bands: of a large photo
/// every copy counts.
void SharpenInBands(Picture& picture, const Picture& small, int share) {
  constexpr int kBand = 64;
  const int height = picture.Height();
  const double step = 1.0 * small.Height() / height;
  const Picture::Rewriting pixels = picture.Rewrite();
  ParallelRows((height + kBand - 1) / kBand, 1, [&](int from, int to) {
    const ThreadLimit one(1);
    for (int top = from * kBand; top < std::min(to * kBand, height); top += kBand) {
      const int rows = std::min(kBand, height - top);
      // A pixel has neighbours above and below its band.
      const int first = std::max(top - 1, 0);
      const int last = std::min(top + rows + 1, height);
      Picture soft = Picture::Uninitialized(picture.Width(), last - first);
      if (soft.IsNil()) throw std::bad_alloc();
      kernels::Scale(small.View(), {0, first * step, 1.0 * small.Width(), (last - first) * step},
                     soft.Edit());
      kernels::SharpenAgainst(Band(pixels.from, top, rows), soft.View(), Band(pixels.to, top, rows),
                              share, top - first);
    }
  });
}

}  // namespace

void EffectModuleSharpen::ApplyEffect(Picture& picture, double scale) {
  if (picture.IsNil()) return;
  // Four neighbours, each a pixel away, have a variance of a half. In a larger picture the same
  // details are wider, and a blur stands between the pixel and its neighbours; in a smaller one
  // they are steeper.
  const double variance = (scale * scale - 1) / 2;
  const int share =
      static_cast<int>(std::lround(std::min(scale * scale, 1.0) * kernels::kSharpenShare));
  const int factor = variance > 0 ? Reduction(variance) : 0;
  if (factor >= 2) {
    const Picture small = ReducedAndBlurred(picture, factor, variance);
    if (!small.IsNil()) SharpenInBands(picture, small, share);
    return;
  }
  const Picture soft =
      variance > 0 ? GaussianBlur(2 * std::sqrt(variance)).ApplyEffect(picture) : picture;
  if (soft.IsNil()) return;
  const Picture::Rewriting pixels = picture.Rewrite();
  kernels::SharpenAgainst(pixels.from, soft.View(), pixels.to, share);
}

}  // namespace brivolant
