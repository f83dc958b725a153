// SPDX-License-Identifier: MIT
#include "platform/pictures/kernels/ConvolveKernels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>

#include "platform/pictures/Parallel.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/pictures/kernels/ConvolveKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace brivolant::kernels {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using D16 = hn::ScalableTag<std::int16_t>;
using V16 = hn::Vec<D16>;

/// Sums divided and rounded as the plain form does it: halves go away from zero.
HWY_INLINE V16 Divided(V16 sum, std::int32_t divisor) {
  const D16 d;
  const hn::RepartitionToWide<D16> d32;
  const hn::RebindToFloat<decltype(d32)> df;
  const int whole = divisor / 2;
  const float half = static_cast<float>(whole) + 0.5F;
  // The half of a unit keeps the quotients of exact multiples from falling below them.
  const auto part = [&](auto wide) HWY_ATTR {
    const auto size = hn::ConvertTo(df, hn::Abs(wide));
    const auto shifted = hn::Add(size, hn::Set(df, half));
    const auto quotient =
        hn::ConvertTo(d32, hn::Mul(shifted, hn::Set(df, 1.0F / static_cast<float>(divisor))));
    return hn::IfThenElse(hn::Lt(wide, hn::Zero(d32)), hn::Neg(quotient), quotient);
  };
  const hn::Half<D16> halves;
  const auto lower = part(hn::PromoteTo(d32, hn::LowerHalf(halves, sum)));
  const auto upper = part(hn::PromoteTo(d32, hn::UpperHalf(halves, sum)));
  return hn::Combine(d, hn::DemoteTo(halves, upper), hn::DemoteTo(halves, lower));
}

/// Bytes 4 to `end` of a row; rows are whole pixels of four bytes. Gives where it stopped: at least
/// a vector and a pixel before the end.
HWY_ATTR std::size_t ConvolveRow(const std::uint8_t* above, const std::uint8_t* here,
                                 const std::uint8_t* below, std::uint8_t* out, std::size_t end,
                                 const Convolution3x3& convolution) {
  const D16 d;
  const hn::Rebind<std::uint8_t, D16> d8;
  const std::size_t lanes = hn::Lanes(d);
  const V16 offset = hn::Set(d, static_cast<std::int16_t>(convolution.offset));
  alignas(16) static constexpr std::int16_t kAlpha[8] = {0, 0, 0, 255, 0, 0, 0, 255};
  const V16 opaque = hn::LoadDup128(d, kAlpha);
  const std::uint8_t* rows[3] = {above, here, below};
  std::size_t i = 4;
  for (; i + lanes + 4 <= end; i += lanes) {
    V16 sum = hn::Zero(d);
    for (std::size_t k = 0; k < 9; ++k) {
      const auto weight = static_cast<std::int16_t>(convolution.weights[k]);
      if (weight == 0) continue;
      const std::uint8_t* place = rows[k / 3] + i + 4 * (k % 3) - 4;
      const V16 level =
          hn::BitCast(d, hn::PromoteTo(hn::RebindToUnsigned<D16>(), hn::LoadU(d8, place)));
      sum = hn::Add(sum, hn::Mul(level, hn::Set(d, weight)));
    }
    if (convolution.divisor != 1) sum = Divided(sum, convolution.divisor);
    sum = hn::Max(hn::SaturatedAdd(sum, offset), opaque);
    hn::StoreU(hn::DemoteTo(d8, sum), d8, out + i);
  }
  return i;
}

}  // namespace HWY_NAMESPACE
}  // namespace brivolant::kernels
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace brivolant::kernels {

HWY_EXPORT(ConvolveRow);

namespace {

constexpr int kGrain = 16;

std::uint8_t Level(std::int32_t sum, const Convolution3x3& c) {
  const std::int32_t half = c.divisor / 2;
  const std::int32_t rounded = sum >= 0 ? (sum + half) / c.divisor : (sum - half) / c.divisor;
  return static_cast<std::uint8_t>(std::clamp(rounded + c.offset, 0, 255));
}

/// True if no sum leaves 16 bits.
bool IsSmall(const Convolution3x3& c) {
  constexpr std::int64_t kMost = 32767 / 255;
  std::int64_t sum = 0;
  for (const std::int32_t weight : c.weights) sum += std::abs(std::int64_t{weight});
  return sum <= kMost && c.divisor > 0 && std::abs(c.offset) <= 255;
}

}  // namespace

void Convolve(ConstPixels source, Pixels target, const Convolution3x3& convolution) {
  const auto& w = convolution.weights;
  const bool small = IsSmall(convolution);
  ParallelRows(source.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      const std::uint8_t* above = source.Row(std::max(y - 1, 0));
      const std::uint8_t* here = source.Row(y);
      const std::uint8_t* below = source.Row(std::min(y + 1, source.height - 1));
      std::uint8_t* out = target.Row(y);
      const auto pixel = [&](int x) {
        const int left = 4 * std::max(x - 1, 0);
        const int middle = 4 * x;
        const int right = 4 * std::min(x + 1, source.width - 1);
        for (int k = 0; k < 3; ++k) {
          const std::int32_t sum =
              w[0] * above[left + k] + w[1] * above[middle + k] + w[2] * above[right + k] +
              w[3] * here[left + k] + w[4] * here[middle + k] + w[5] * here[right + k] +
              w[6] * below[left + k] + w[7] * below[middle + k] + w[8] * below[right + k];
          out[middle + k] = Level(sum, convolution);
        }
        out[middle + 3] = 255;
      };
      pixel(0);
      int x = 1;
      if (small && source.width > 2) {
        const auto end = static_cast<std::size_t>(source.width) * 4;
        const std::size_t done =
            HWY_DYNAMIC_DISPATCH(ConvolveRow)(above, here, below, out, end, convolution);
        x = static_cast<int>(done / 4);
      }
      for (; x < source.width; ++x) pixel(x);
    }
  });
}

}  // namespace brivolant::kernels

#endif  // HWY_ONCE
