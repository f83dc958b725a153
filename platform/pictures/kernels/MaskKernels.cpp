// SPDX-License-Identifier: MIT
// Pixels and colours laid over others through masks, and sums of channels.
#include "platform/pictures/kernels/MaskKernels.h"

#include <algorithm>
#include <cstdint>

#include "platform/pictures/Parallel.h"
#include "platform/pictures/kernels/LookKernels.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/pictures/kernels/MaskKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace brivolant::kernels {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using D32 = hn::ScalableTag<std::uint32_t>;
using D16 = hn::Repartition<std::uint16_t, D32>;
using D8 = hn::Repartition<std::uint8_t, D32>;
using V32 = hn::Vec<D32>;
using V16 = hn::Vec<D16>;

/// The level of a mask for all four bytes of each pixel.
HWY_INLINE V32 Spread(const std::uint8_t* mask) {
  const D32 d;
  const auto level = hn::PromoteTo(d, hn::LoadU(hn::Rebind<std::uint8_t, D32>(), mask));
  alignas(16) static constexpr std::uint8_t kFirst[16] = {0, 0, 0, 0, 4,  4,  4,  4,
                                                          8, 8, 8, 8, 12, 12, 12, 12};
  const D8 d8;
  return hn::BitCast(d, hn::TableLookupBytes(hn::BitCast(d8, level), hn::LoadDup128(d8, kFirst)));
}

/// (a * share + b * keep) / 255, rounded, of all bytes.
HWY_INLINE V32 Mixed(V32 a, V32 share, V32 b, V32 keep) {
  const D32 d;
  const D16 d16;
  const V16 low = hn::Set(d16, 0x00FF);
  const V16 half = hn::Set(d16, 128);
  const auto even = [&](V32 v) HWY_ATTR { return hn::And(hn::BitCast(d16, v), low); };
  const auto odd = [&](V32 v) HWY_ATTR { return hn::ShiftRight<8>(hn::BitCast(d16, v)); };
  const auto scaled = [&](V16 x, V16 s, V16 y, V16 k) HWY_ATTR {
    const V16 sum = hn::Add(hn::Add(hn::Mul(x, s), hn::Mul(y, k)), half);
    return hn::Add(sum, hn::ShiftRight<8>(sum));
  };
  const V16 first = hn::ShiftRight<8>(scaled(even(a), even(share), even(b), even(keep)));
  const V16 second = hn::AndNot(low, scaled(odd(a), odd(share), odd(b), odd(keep)));
  return hn::BitCast(d, hn::Or(first, second));
}

HWY_INLINE V32 Inverse(V32 mask) {
  const D32 d;
  return hn::Xor(mask, hn::Set(d, 0xFFFFFFFFU));
}

/// Masks and pixels are read up to `count` alone: neighbours may belong to someone else.
HWY_ATTR void MixPixels(const std::uint32_t* over, const std::uint8_t* mask, std::uint32_t* under,
                        std::size_t count) {
  const D32 d;
  const std::size_t lanes = hn::Lanes(d);
  std::size_t i = 0;
  for (; i + lanes <= count; i += lanes) {
    const V32 keep = Spread(mask + i);
    const V32 mixed = Mixed(hn::LoadU(d, over + i), Inverse(keep), hn::LoadU(d, under + i), keep);
    hn::StoreU(mixed, d, under + i);
  }
  if (i == count) return;
  // The rest goes by way of the stack: what follows may belong to another thread.
  alignas(64) std::uint8_t restMask[64] = {};
  alignas(64) std::uint32_t restOver[16] = {};
  alignas(64) std::uint32_t restUnder[16] = {};
  std::copy(mask + i, mask + count, restMask);
  std::copy(over + i, over + count, restOver);
  std::copy(under + i, under + count, restUnder);
  const V32 keep = Spread(restMask);
  hn::Store(Mixed(hn::Load(d, restOver), Inverse(keep), hn::Load(d, restUnder), keep), d,
            restUnder);
  std::copy(restUnder, restUnder + (count - i), under + i);
}

/// Whole rows, of masks and of pixels: both are padded.
HWY_ATTR void ColorPixels(std::uint32_t color, const std::uint8_t* mask, std::uint32_t* under,
                          std::size_t count) {
  const D32 d;
  const V32 over = hn::Set(d, color);
  for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
    const V32 keep = Spread(mask + i);
    hn::Store(Mixed(over, Inverse(keep), hn::Load(d, under + i), keep), d, under + i);
  }
}

/// Masks are padded; pixels belong to someone else beyond `count`.
HWY_ATTR void StampPixels(std::uint32_t color, const std::uint8_t* keep, const std::uint8_t* share,
                          std::uint32_t* under, std::size_t count) {
  const D32 d;
  const std::size_t lanes = hn::Lanes(d);
  const V32 over = hn::Set(d, color);
  const V32 opaque = hn::Set(d, 0xFF000000U);
  std::size_t i = 0;
  for (; i + lanes <= count; i += lanes) {
    const V32 mixed = Mixed(over, Spread(share + i), hn::LoadU(d, under + i), Spread(keep + i));
    hn::StoreU(hn::Or(mixed, opaque), d, under + i);
  }
  if (i == count) return;
  alignas(64) std::uint32_t rest[16] = {};
  std::copy(under + i, under + count, rest);
  const V32 mixed = Mixed(over, Spread(share + i), hn::Load(d, rest), Spread(keep + i));
  hn::Store(hn::Or(mixed, opaque), d, rest);
  std::copy(rest, rest + (count - i), under + i);
}

HWY_ATTR void MixRows(ConstPixels source, Pixels target, int from, int to, const ChannelMix& mix) {
  using DF = hn::ScalableTag<float>;
  using VF = hn::Vec<DF>;
  const D32 d;
  const DF df;
  const hn::RebindToSigned<D32> di;
  const V32 byte = hn::Set(d, 0xFFU);
  const auto level = [&](V32 v) HWY_ATTR { return hn::ConvertTo(df, hn::BitCast(di, v)); };
  const VF half = hn::Set(df, 0.5F);
  const VF most = hn::Set(df, 255.0F);
  const auto sum = [&](const std::array<float, 3>& w, VF r, VF g, VF b) HWY_ATTR {
    const VF warm = hn::Add(hn::Mul(r, hn::Set(df, w[0])), hn::Mul(g, hn::Set(df, w[1])));
    const VF mixed = hn::Add(warm, hn::Add(hn::Mul(b, hn::Set(df, w[2])), half));
    const VF limited = hn::Min(hn::Max(mixed, hn::Zero(df)), most);
    return hn::BitCast(d, hn::ConvertTo(di, limited));
  };
  const bool grey = mix[0] == mix[1] && mix[1] == mix[2];
  for (int y = from; y < to; ++y) {
    const auto* in = reinterpret_cast<const std::uint32_t*>(source.Row(y));
    auto* out = reinterpret_cast<std::uint32_t*>(target.Row(y));
    for (std::size_t x = 0; x < target.stride / 4; x += hn::Lanes(d)) {
      const V32 pixel = hn::Load(d, in + x);
      const VF r = level(hn::And(hn::ShiftRight<16>(pixel), byte));
      const VF g = level(hn::And(hn::ShiftRight<8>(pixel), byte));
      const VF b = level(hn::And(pixel, byte));
      const V32 red = sum(mix[0], r, g, b);
      const V32 green = grey ? red : sum(mix[1], r, g, b);
      const V32 blue = grey ? red : sum(mix[2], r, g, b);
      hn::Store(hn::Or(hn::Or(hn::Set(d, 0xFF000000U), hn::ShiftLeft<16>(red)),
                       hn::Or(hn::ShiftLeft<8>(green), blue)),
                d, out + x);
    }
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace brivolant::kernels
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace brivolant::kernels {

HWY_EXPORT(MixPixels);
HWY_EXPORT(ColorPixels);
HWY_EXPORT(StampPixels);
HWY_EXPORT(MixRows);

namespace {
constexpr int kGrain = 32;
}

void MixRow(const std::uint8_t* over, const std::uint8_t* mask, std::uint8_t* under,
            std::size_t count) {
  HWY_DYNAMIC_DISPATCH(MixPixels)
  (reinterpret_cast<const std::uint32_t*>(over), mask, reinterpret_cast<std::uint32_t*>(under),
   count);
}

void LayColor(Pixels pixels, Color color, ConstGrey mask) {
  ParallelRows(pixels.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      HWY_DYNAMIC_DISPATCH(ColorPixels)
      (0xFF000000U | color.RGB(), mask.Row(y), reinterpret_cast<std::uint32_t*>(pixels.Row(y)),
       static_cast<std::size_t>(pixels.width));
    }
  });
}

void LayStamp(Pixels target, const Stamp& stamp, Color color, int x, int y, int from, int to) {
  const std::int64_t far = x;
  const auto left = static_cast<int>(std::clamp<std::int64_t>(-far, 0, stamp.keep.width));
  const auto right =
      static_cast<int>(std::clamp<std::int64_t>(target.width - far, 0, stamp.keep.width));
  const int top = std::max({from, y, 0});
  const auto bottom = static_cast<int>(
      std::min<std::int64_t>({to, std::int64_t{y} + stamp.keep.height, target.height}));
  if (left >= right) return;
  for (int row = top; row < bottom; ++row) {
    HWY_DYNAMIC_DISPATCH(StampPixels)
    (0xFF000000U | color.RGB(), stamp.keep.Row(row - y) + left, stamp.share.Row(row - y) + left,
     reinterpret_cast<std::uint32_t*>(target.Row(row)) + x + left,
     static_cast<std::size_t>(right - left));
  }
}

ChannelMix MakeChannelMix(const std::array<std::array<double, 3>, 3>& weights) {
  ChannelMix mix{};
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t k = 0; k < 3; ++k) mix.at(i).at(k) = static_cast<float>(weights.at(i).at(k));
  }
  return mix;
}

void MixChannels(ConstPixels source, Pixels target, const ChannelMix& mix) {
  ParallelRows(target.height, kGrain, [&](int from, int to) {
    HWY_DYNAMIC_DISPATCH(MixRows)(source, target, from, to, mix);
  });
}

}  // namespace brivolant::kernels

#endif  // HWY_ONCE
