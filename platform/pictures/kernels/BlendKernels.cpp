// SPDX-License-Identifier: MIT
#include "platform/pictures/kernels/BlendKernels.h"

#include <algorithm>
#include <cstddef>

#include "platform/pictures/Parallel.h"
#include "platform/pictures/kernels/ToneKernels.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/pictures/kernels/BlendKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace brivolant::kernels {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using D16 = hn::ScalableTag<std::uint16_t>;
using D8 = hn::Rebind<std::uint8_t, D16>;
using V16 = hn::Vec<D16>;
using DF = hn::ScalableTag<float>;
using VF = hn::Vec<DF>;
using D32 = hn::RebindToUnsigned<DF>;
using DI = hn::RebindToSigned<DF>;
using V32 = hn::Vec<D32>;

/// x / 255, rounded, for x up to 65025.
HWY_INLINE V16 Div255(V16 x) {
  const V16 rounded = hn::Add(x, hn::Set(D16(), 128));
  return hn::ShiftRight<8>(hn::Add(rounded, hn::ShiftRight<8>(rounded)));
}

HWY_INLINE V16 HardLight(V16 b, V16 s) {
  const D16 d;
  const V16 twice = hn::Add(s, s);
  const V16 over = hn::Sub(twice, hn::Set(d, 255));
  const V16 screened = hn::Sub(hn::Add(b, over), Div255(hn::Mul(b, over)));
  return hn::IfThenElse(hn::Gt(twice, hn::Set(d, 255)), screened, Div255(hn::Mul(b, twice)));
}

// The integer modes, on levels in 16 bits.
struct Normal {
  V16 operator()(V16, V16 s) const { return s; }
};
struct Multiply {
  V16 operator()(V16 b, V16 s) const { return Div255(hn::Mul(b, s)); }
};
struct Screen {
  V16 operator()(V16 b, V16 s) const { return hn::Sub(hn::Add(b, s), Div255(hn::Mul(b, s))); }
};
struct Overlay {
  V16 operator()(V16 b, V16 s) const { return HardLight(s, b); }
};
struct Darken {
  V16 operator()(V16 b, V16 s) const { return hn::Min(b, s); }
};
struct Lighten {
  V16 operator()(V16 b, V16 s) const { return hn::Max(b, s); }
};
struct HardLightMode {
  V16 operator()(V16 b, V16 s) const { return HardLight(b, s); }
};
struct Difference {
  V16 operator()(V16 b, V16 s) const { return hn::Sub(hn::Max(b, s), hn::Min(b, s)); }
};
struct Exclusion {
  V16 operator()(V16 b, V16 s) const {
    const V16 full = hn::Set(D16(), 255);
    return Div255(hn::Add(hn::Mul(b, hn::Sub(full, s)), hn::Mul(s, hn::Sub(full, b))));
  }
};

template <class D = DF>
HWY_INLINE hn::Vec<D> Limited(D d, hn::Vec<D> v) {
  return hn::Min(hn::Max(v, hn::Zero(d)), hn::Set(d, 255.0F));
}

// The modes with a quotient or a root, on levels as floats.
struct ColorDodge {
  VF operator()(VF b, VF s) const {
    const DF d;
    const VF full = hn::Set(d, 255.0F);
    const VF quotient = hn::Div(hn::Mul(b, full), hn::Sub(full, s));
    const VF result = hn::IfThenElse(hn::Eq(s, full), full, quotient);
    return hn::IfThenZeroElse(hn::Eq(b, hn::Zero(d)), result);
  }
};
struct ColorBurn {
  VF operator()(VF b, VF s) const {
    const DF d;
    const VF full = hn::Set(d, 255.0F);
    const VF quotient = hn::Sub(full, hn::Div(hn::Mul(hn::Sub(full, b), full), s));
    const VF result = hn::IfThenZeroElse(hn::Eq(s, hn::Zero(d)), quotient);
    return hn::IfThenElse(hn::Eq(b, full), full, result);
  }
};
struct SoftLight {
  VF operator()(VF b, VF s) const {
    const DF d;
    const VF one = hn::Set(d, 1.0F);
    const VF scale = hn::Set(d, 1.0F / 255.0F);
    const VF cb = hn::Mul(b, scale);
    const VF cs = hn::Mul(s, scale);
    const VF k = hn::Sub(hn::Add(cs, cs), one);
    const VF poly =
        hn::Mul(hn::Add(hn::Mul(hn::Sub(hn::Mul(hn::Set(d, 16.0F), cb), hn::Set(d, 12.0F)), cb),
                        hn::Set(d, 4.0F)),
                cb);
    const VF root = hn::IfThenElse(hn::Le(cb, hn::Set(d, 0.25F)), poly, hn::Sqrt(cb));
    const VF dark = hn::Mul(cb, hn::Sub(one, cb));
    const VF step =
        hn::IfThenElse(hn::Le(hn::Add(s, s), hn::Set(d, 255.0F)), dark, hn::Sub(root, cb));
    return hn::Mul(hn::Add(cb, hn::Mul(k, step)), hn::Set(d, 255.0F));
  }
};

/// Applies a float mode to 16-bit levels.
template <class Mode>
struct AsFloat {
  V16 operator()(V16 b, V16 s) const {
    const D16 d;
    const hn::Half<D16> half;
    const auto one = [](hn::Vec<hn::Half<D16>> x, hn::Vec<hn::Half<D16>> y) HWY_ATTR {
      const DF f;
      const DI i;
      const hn::RebindToUnsigned<DI> u;
      const VF fx = hn::ConvertTo(f, hn::BitCast(i, hn::PromoteTo(u, x)));
      const VF fy = hn::ConvertTo(f, hn::BitCast(i, hn::PromoteTo(u, y)));
      return hn::DemoteTo(hn::Half<D16>(), hn::NearestInt(Limited(f, Mode()(fx, fy))));
    };
    return hn::Combine(d, one(hn::UpperHalf(half, b), hn::UpperHalf(half, s)),
                       one(hn::LowerHalf(half, b), hn::LowerHalf(half, s)));
  }
};

/// Four bytes for each byte of a mask, so that it lies beside the bytes of its pixels.
HWY_ATTR void SpreadRow(const std::uint8_t* mask, std::uint8_t* spread, std::size_t count) {
  const D32 d;
  const hn::Rebind<std::uint8_t, D32> d8;
  auto* words = reinterpret_cast<std::uint32_t*>(spread);
  const V32 four = hn::Set(d, 0x01010101U);
  for (std::size_t i = 0; i < count / 4; i += hn::Lanes(d)) {
    hn::Store(hn::Mul(hn::PromoteTo(d, hn::Load(d8, mask + i)), four), d, words + i);
  }
}

/// Sets the unused byte of every pixel, which some formulas do not keep.
HWY_ATTR void MakeUnusedFull(std::uint8_t* row, std::size_t count) {
  const D32 d;
  auto* pixels = reinterpret_cast<std::uint32_t*>(row);
  for (std::size_t i = 0; i < count / 4; i += hn::Lanes(d)) {
    hn::Store(hn::Or(hn::Load(d, pixels + i), hn::Set(d, 0xFF000000U)), d, pixels + i);
  }
}

/// The opacity of each byte of a row of pixels, 0 to 256, under a mask that was spread.
HWY_INLINE V16 Weight(const std::uint8_t* spread, V16 opacity) {
  const D16 d;
  if (spread == nullptr) return opacity;
  const V16 visible = hn::Sub(hn::Set(d, 255), hn::PromoteTo(d, hn::Load(D8(), spread)));
  // 256 * 255 does not leave room for rounding in 16 bits: full opacity is taken apart.
  const V16 limited = hn::Min(opacity, hn::Set(d, 255));
  const V16 scaled = Div255(hn::Mul(limited, visible));
  const V16 extra = Div255(visible);
  return hn::IfThenElse(hn::Gt(opacity, limited), hn::Add(scaled, extra), scaled);
}

template <class Mode>
HWY_ATTR void BlendRow(std::uint8_t* base, const std::uint8_t* fill, const std::uint8_t* spread,
                       std::size_t count, int opacity, Mode mode) {
  const D16 d;
  const D8 d8;
  const V16 full = hn::Set(d, static_cast<std::uint16_t>(opacity));
  const V16 whole = hn::Set(d, 256);
  const V16 round = hn::Set(d, 128);
  for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
    const V16 b = hn::PromoteTo(d, hn::Load(d8, base + i));
    const V16 s = hn::PromoteTo(d, hn::Load(d8, fill + i));
    const V16 weight = Weight(spread == nullptr ? nullptr : spread + i, full);
    const V16 mixed = hn::ShiftRight<8>(
        hn::Add(hn::Add(hn::Mul(b, hn::Sub(whole, weight)), hn::Mul(mode(b, s), weight)), round));
    hn::Store(hn::DemoteTo(d8, hn::BitCast(hn::RebindToSigned<D16>(), mixed)), d8, base + i);
  }
}

struct Rgb {
  VF r;
  VF g;
  VF b;
};

HWY_INLINE VF Lum(const Rgb& c) {
  const DF d;
  return hn::Add(hn::Add(hn::Mul(c.r, hn::Set(d, 0.3F)), hn::Mul(c.g, hn::Set(d, 0.59F))),
                 hn::Mul(c.b, hn::Set(d, 0.11F)));
}
HWY_INLINE VF Largest(const Rgb& c) {
  return hn::Max(hn::Max(c.r, c.g), c.b);
}
HWY_INLINE VF Smallest(const Rgb& c) {
  return hn::Min(hn::Min(c.r, c.g), c.b);
}
HWY_INLINE VF Sat(const Rgb& c) {
  return hn::Sub(Largest(c), Smallest(c));
}

HWY_INLINE VF Around(VF l, VF v, VF k) {
  return hn::Add(l, hn::Mul(hn::Sub(v, l), k));
}

template <class Wrong>
HWY_INLINE Rgb ClipWhere(const Rgb& c, Wrong wrong, VF l, VF k) {
  return {hn::IfThenElse(wrong, Around(l, c.r, k), c.r),
          hn::IfThenElse(wrong, Around(l, c.g, k), c.g),
          hn::IfThenElse(wrong, Around(l, c.b, k), c.b)};
}

HWY_INLINE Rgb SetLum(const Rgb& c, VF target) {
  const DF d;
  const VF full = hn::Set(d, 255.0F);
  const VF delta = hn::Sub(target, Lum(c));
  Rgb moved{hn::Add(c.r, delta), hn::Add(c.g, delta), hn::Add(c.b, delta)};
  const VF l = Lum(moved);
  const VF n = Smallest(moved);
  const VF x = Largest(moved);
  moved = ClipWhere(moved, hn::Lt(n, hn::Zero(d)), l, hn::Div(l, hn::Sub(l, n)));
  return ClipWhere(moved, hn::Gt(x, full), l, hn::Div(hn::Sub(full, l), hn::Sub(x, l)));
}

HWY_INLINE Rgb SetSat(const Rgb& c, VF s) {
  const DF d;
  const VF n = Smallest(c);
  const VF range = hn::Sub(Largest(c), n);
  const VF k = hn::IfThenElseZero(hn::Gt(range, hn::Zero(d)), hn::Div(s, range));
  return {hn::Mul(hn::Sub(c.r, n), k), hn::Mul(hn::Sub(c.g, n), k), hn::Mul(hn::Sub(c.b, n), k)};
}

struct HueMode {
  Rgb operator()(const Rgb& b, const Rgb& s) const { return SetLum(SetSat(s, Sat(b)), Lum(b)); }
};
struct SaturationMode {
  Rgb operator()(const Rgb& b, const Rgb& s) const { return SetLum(SetSat(b, Sat(s)), Lum(b)); }
};
struct ColorMode {
  Rgb operator()(const Rgb& b, const Rgb& s) const { return SetLum(s, Lum(b)); }
};
struct LuminosityMode {
  Rgb operator()(const Rgb& b, const Rgb& s) const { return SetLum(b, Lum(s)); }
};

template <int kShift>
HWY_INLINE V32 Channel(V32 pixel) {
  return hn::And(hn::ShiftRight<kShift>(pixel), hn::Set(D32(), 0xFF));
}

HWY_INLINE VF FloatOf(V32 level) {
  return hn::ConvertTo(DF(), hn::BitCast(DI(), level));
}

HWY_INLINE Rgb Unpack(V32 pixel) {
  return {FloatOf(Channel<16>(pixel)), FloatOf(Channel<8>(pixel)), FloatOf(Channel<0>(pixel))};
}

HWY_INLINE V32 LevelOf(VF value) {
  return hn::BitCast(D32(), hn::NearestInt(Limited(DF(), value)));
}

template <class Mode>
HWY_ATTR void BlendColorRow(std::uint8_t* base, const std::uint8_t* fill, const std::uint8_t* mask,
                            std::size_t count, int opacity, Mode mode) {
  const D32 d;
  const hn::Rebind<std::uint8_t, D32> d8;
  auto* bases = reinterpret_cast<std::uint32_t*>(base);
  const auto* fills = reinterpret_cast<const std::uint32_t*>(fill);
  const V32 full = hn::Set(d, static_cast<std::uint32_t>(opacity));
  const V32 whole = hn::Set(d, 256);
  const V32 round = hn::Set(d, 128);
  for (std::size_t i = 0; i < count / 4; i += hn::Lanes(d)) {
    const V32 b = hn::Load(d, bases + i);
    const Rgb blended = mode(Unpack(b), Unpack(hn::Load(d, fills + i)));
    V32 weight = full;
    if (mask != nullptr) {
      const V32 visible = hn::Sub(hn::Set(d, 255), hn::PromoteTo(d, hn::Load(d8, mask + i)));
      const V32 rounded = hn::Add(hn::Mul(full, visible), round);
      weight = hn::ShiftRight<8>(hn::Add(rounded, hn::ShiftRight<8>(rounded)));
    }
    const V32 rest = hn::Sub(whole, weight);
    const auto mix = [&](V32 old, VF level) HWY_ATTR {
      return hn::ShiftRight<8>(
          hn::Add(hn::Add(hn::Mul(old, rest), hn::Mul(LevelOf(level), weight)), round));
    };
    const V32 red = hn::ShiftLeft<16>(mix(Channel<16>(b), blended.r));
    const V32 green = hn::ShiftLeft<8>(mix(Channel<8>(b), blended.g));
    const V32 blue = mix(Channel<0>(b), blended.b);
    hn::Store(hn::Or(hn::Or(red, green), hn::Or(blue, hn::Set(d, 0xFF000000U))), d, bases + i);
  }
}

HWY_ATTR void BlendRows(Pixels base, ConstPixels fill, int blendMode, int opacity, ConstGrey mask,
                        std::uint8_t* spread, int from, int to) {
  for (int y = from; y < to; ++y) {
    std::uint8_t* b = base.Row(y);
    const std::uint8_t* s = fill.Row(y);
    const std::uint8_t* m = mask.data == nullptr ? nullptr : mask.Row(y);
    const auto row = [&](auto mode) {
      if (m != nullptr) SpreadRow(m, spread, base.stride);
      BlendRow(b, s, m == nullptr ? nullptr : spread, base.stride, opacity, mode);
    };
    const auto colorRow = [&](auto mode) { BlendColorRow(b, s, m, base.stride, opacity, mode); };
    switch (blendMode) {
      case 1:
        row(Multiply());
        break;
      case 2:
        row(Screen());
        break;
      case 3:
        row(Overlay());
        break;
      case 4:
        row(Darken());
        break;
      case 5:
        row(Lighten());
        break;
      case 6:
        row(AsFloat<ColorDodge>());
        break;
      case 7:
        row(AsFloat<ColorBurn>());
        break;
      case 8:
        row(AsFloat<SoftLight>());
        break;
      case 9:
        row(HardLightMode());
        break;
      case 10:
        row(Difference());
        break;
      case 11:
        row(Exclusion());
        break;
      case 12:
        colorRow(HueMode());
        break;
      case 13:
        colorRow(SaturationMode());
        break;
      case 14:
        colorRow(ColorMode());
        break;
      case 15:
        colorRow(LuminosityMode());
        break;
      default:
        row(Normal());
        break;
    }
    if (blendMode == 10 || blendMode == 11) MakeUnusedFull(b, base.stride);
  }
}

HWY_ATTR void LiftAndLowerRow(std::uint8_t* row, const std::uint8_t* spread, std::size_t count,
                              int lift, int lower) {
  const D16 d;
  const D8 d8;
  const V16 full = hn::Set(d, 255);
  const V16 up = hn::Set(d, static_cast<std::uint16_t>(lift));
  const V16 down = hn::Set(d, static_cast<std::uint16_t>(lower));
  for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
    const V16 m = hn::PromoteTo(d, hn::Load(d8, spread + i));
    const V16 dark = hn::Sub(full, m);
    const V16 p = hn::PromoteTo(d, hn::Load(d8, row + i));
    const V16 brightened = hn::Min(full, hn::Add(p, up));
    const V16 lifted = Div255(hn::Add(hn::Mul(p, m), hn::Mul(brightened, dark)));
    const V16 lowered = hn::SaturatedSub(p, down);
    const V16 result = Div255(hn::Add(hn::Mul(lifted, dark), hn::Mul(lowered, m)));
    hn::Store(hn::DemoteTo(d8, hn::BitCast(hn::RebindToSigned<D16>(), result)), d8, row + i);
  }
  MakeUnusedFull(row, count);
}

HWY_ATTR void MixByDarknessRow(std::uint8_t* row, const std::uint8_t* toned,
                               const std::uint8_t* luma, std::size_t count) {
  const D16 d;
  const D8 d8;
  const V16 full = hn::Set(d, 255);
  for (std::size_t i = 0; i < count; i += hn::Lanes(d)) {
    const V16 l = hn::PromoteTo(d, hn::Load(d8, luma + i));
    const V16 p = hn::PromoteTo(d, hn::Load(d8, row + i));
    const V16 t = hn::PromoteTo(d, hn::Load(d8, toned + i));
    const V16 result = Div255(hn::Add(hn::Mul(t, hn::Sub(full, l)), hn::Mul(p, l)));
    hn::Store(hn::DemoteTo(d8, hn::BitCast(hn::RebindToSigned<D16>(), result)), d8, row + i);
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace brivolant::kernels
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include <cstring>

#include "platform/pictures/PixelMemory.h"

namespace brivolant::kernels {

HWY_EXPORT(BlendRows);
HWY_EXPORT(SpreadRow);
HWY_EXPORT(LiftAndLowerRow);
HWY_EXPORT(MixByDarknessRow);

namespace {
constexpr int kGrain = 32;
}  // namespace

void Blend(Pixels base, ConstPixels fill, int mode, int opacity, ConstGrey mask) {
  const int limited = std::clamp(opacity, 0, 256);
  ParallelRows(base.height, kGrain, [&](int from, int to) {
    const auto spread = PixelMemory::Allocate(mask.data == nullptr ? 0 : base.stride);
    HWY_DYNAMIC_DISPATCH(BlendRows)(base, fill, mode, limited, mask, spread.get(), from, to);
  });
}

void BlendTableByDarkness(Pixels pixels, const ToneTable& table) {
  const ToneTables tables = ToneTables::All(table);
  ParallelRows(pixels.height, kGrain, [&](int from, int to) {
    // One row at a time, through buffers that stay in the cache.
    const auto memory = PixelMemory::Allocate(3 * pixels.stride);
    const Pixels toned{memory.get(), pixels.stride, pixels.width, 1};
    std::uint8_t* spread = memory.get() + pixels.stride;
    const Grey luma{memory.get() + 2 * pixels.stride, pixels.stride, pixels.width, 1};
    const ThreadLimit here(1);
    for (int y = from; y < to; ++y) {
      std::memcpy(toned.data, pixels.Row(y), pixels.stride);
      Luma(ConstPixels(toned), luma);
      ApplyToneTables(toned, tables);
      HWY_DYNAMIC_DISPATCH(SpreadRow)(luma.data, spread, pixels.stride);
      HWY_DYNAMIC_DISPATCH(MixByDarknessRow)(pixels.Row(y), toned.data, spread, pixels.stride);
    }
  });
}

void LiftAndLower(Pixels pixels, ConstGrey mask, int lift, int lower) {
  const int up = std::clamp(lift, 0, 255);
  const int down = std::clamp(lower, 0, 255);
  ParallelRows(pixels.height, kGrain, [&](int from, int to) {
    const auto spread = PixelMemory::Allocate(pixels.stride);
    for (int y = from; y < to; ++y) {
      HWY_DYNAMIC_DISPATCH(SpreadRow)(mask.Row(y), spread.get(), pixels.stride);
      HWY_DYNAMIC_DISPATCH(LiftAndLowerRow)(pixels.Row(y), spread.get(), pixels.stride, up, down);
    }
  });
}

}  // namespace brivolant::kernels
#endif
