// SPDX-License-Identifier: MIT
#include "platform/pictures/kernels/ColorKernels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "platform/pictures/Parallel.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/pictures/kernels/ColorKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace brivolant::kernels {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using DF = hn::ScalableTag<float>;
using VF = hn::Vec<DF>;
using D32 = hn::RebindToUnsigned<DF>;
using DI = hn::RebindToSigned<DF>;
using V32 = hn::Vec<D32>;

template <int kShift>
HWY_INLINE VF Channel(V32 pixel) {
  const V32 level = hn::And(hn::ShiftRight<kShift>(pixel), hn::Set(D32(), 0xFF));
  return hn::ConvertTo(DF(), hn::BitCast(DI(), level));
}

HWY_INLINE VF Limited(VF value) {
  const DF d;
  return hn::Min(hn::Max(value, hn::Zero(d)), hn::Set(d, 1.0F));
}

/// A position on the circle of hues within its six sixths.
HWY_INLINE VF Wrapped(VF hue) {
  const DF d;
  const VF six = hn::Set(d, 6.0F);
  return hn::Sub(hue, hn::IfThenElseZero(hn::Ge(hue, six), six));
}

/// The level of a channel: it rises within a sixth of the hues, stays for two, falls within one.
HWY_INLINE V32 LevelAt(VF low, VF range, VF sector) {
  const DF d;
  const VF share = Limited(hn::Min(sector, hn::Sub(hn::Set(d, 4.0F), sector)));
  const VF value = Limited(hn::Add(low, hn::Mul(range, share)));
  const VF level = hn::Add(hn::Mul(value, hn::Set(d, 255.0F)), hn::Set(d, 0.5F));
  return hn::BitCast(D32(), hn::ConvertTo(DI(), level));
}

/// `turn` in sixths, 0 to 6; `strength` multiplies the saturation; `light` from -1 to 1.
HWY_ATTR void ShiftRows(Pixels pixels, int from, int to, float turn, float strength, float light) {
  const DF d;
  const VF zero = hn::Zero(d);
  const VF one = hn::Set(d, 1.0F);
  const VF two = hn::Set(d, 2.0F);
  const VF four = hn::Set(d, 4.0F);
  const VF six = hn::Set(d, 6.0F);
  const VF turned = hn::Set(d, turn);
  const VF keep = hn::Set(d, 1 - std::abs(light));
  const VF lift = hn::Set(d, std::max(light, 0.0F));
  for (int y = from; y < to; ++y) {
    auto* row = reinterpret_cast<std::uint32_t*>(pixels.Row(y));
    for (std::size_t x = 0; x < pixels.stride / 4; x += hn::Lanes(d)) {
      const V32 pixel = hn::Load(D32(), row + x);
      const VF r = Channel<16>(pixel);
      const VF g = Channel<8>(pixel);
      const VF b = Channel<0>(pixel);
      const VF largest = hn::Max(hn::Max(r, g), b);
      const VF smallest = hn::Min(hn::Min(r, g), b);
      const VF range = hn::Sub(largest, smallest);
      const auto colored = hn::Gt(range, zero);
      VF l = hn::Mul(hn::Add(largest, smallest), hn::Set(d, 0.5F / 255));
      const VF width = hn::Sub(one, hn::Abs(hn::Sub(hn::Add(l, l), one)));
      VF s = hn::Div(hn::Mul(range, hn::Set(d, 1.0F / 255)), width);
      const VF inverse = hn::Div(one, range);
      VF h = hn::IfThenElse(
          hn::Eq(largest, r), hn::Mul(hn::Sub(g, b), inverse),
          hn::IfThenElse(hn::Eq(largest, g), hn::Add(hn::Mul(hn::Sub(b, r), inverse), two),
                         hn::Add(hn::Mul(hn::Sub(r, g), inverse), four)));
      h = hn::Add(h, turned);
      h = Wrapped(hn::Add(h, hn::IfThenElseZero(hn::Lt(h, zero), six)));
      h = hn::IfThenElseZero(colored, h);
      s = hn::IfThenElseZero(colored, hn::Min(hn::Mul(s, hn::Set(d, strength)), one));
      l = hn::Add(hn::Mul(l, keep), lift);
      // Half the distance of the outer channels from the lightness.
      const VF half = hn::Mul(hn::Min(l, hn::Sub(one, l)), s);
      const VF low = hn::Sub(l, half);
      const VF span = hn::Add(half, half);
      const V32 red = LevelAt(low, span, Wrapped(hn::Add(h, two)));
      const V32 green = LevelAt(low, span, h);
      const V32 blue = LevelAt(low, span, Wrapped(hn::Add(h, four)));
      hn::Store(hn::Or(hn::Or(hn::ShiftLeft<16>(red), hn::ShiftLeft<8>(green)),
                       hn::Or(blue, hn::Set(D32(), 0xFF000000U))),
                D32(), row + x);
    }
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace brivolant::kernels
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace brivolant::kernels {

HWY_EXPORT(ShiftRows);

void ShiftHueSaturationLightness(Pixels pixels, double hue, double saturation, double lightness) {
  constexpr int kGrain = 16;
  if (hue == 0 && saturation == 0 && lightness == 0) return;
  const float turn = TurnOf(hue);
  const float strength = StrengthOf(saturation);
  const float light = LightOf(lightness);
  ParallelRows(pixels.height, kGrain, [&](int from, int to) {
    HWY_DYNAMIC_DISPATCH(ShiftRows)(pixels, from, to, turn, strength, light);
  });
}

}  // namespace brivolant::kernels

#endif  // HWY_ONCE
