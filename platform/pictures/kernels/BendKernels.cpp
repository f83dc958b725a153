// SPDX-License-Identifier: MIT
// Operations that take every pixel from a position between pixels of the source. They share one
// sampler: positions of a run of pixels are worked out in vectors, then each pixel is interpolated
// with two loads of two neighbours, 15 bits of a fraction.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <numbers>

#include "platform/pictures/Parallel.h"
#include "platform/pictures/kernels/TurnKernels.h"
#include "platform/pictures/kernels/WarpKernels.h"
#include "platform/values/Whole.h"

// What the code for each instruction set shares; this file is compiled once for each.
#ifndef BRIVOLANT_BEND_KERNELS
#define BRIVOLANT_BEND_KERNELS
namespace brivolant::kernels::bending {

/// A lens about a centre in pixels.
struct LensAt {
  float cx;
  float cy;
  float inverse;
  float scale;
  float bend;
  float vertical;
  float horizontal;
  bool interpolate;
};

/// x' = x0 + x c + y s, y' = y0 - x s + y c.
struct Turned {
  double x0;
  double y0;
  double c;
  double s;
};

/// A row of sums of light, and the share of each pixel that is still open.
struct Light {
  float* blue;
  float* green;
  float* red;
  float* open;
};

/// The pixel at a position of which a neighbour lies outside the source, there `back`.
void SampleAtBorder(ConstPixels source, float x, float y, std::uint32_t back, std::uint32_t* out);

}  // namespace brivolant::kernels::bending
#endif

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/pictures/kernels/BendKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace brivolant::kernels {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using DF = hn::ScalableTag<float>;
using DI = hn::RebindToSigned<DF>;
using VF = hn::Vec<DF>;
using VI = hn::Vec<DI>;

/// Pixels whose positions are worked out together.
constexpr int kRun = 64;
constexpr float kFraction = 32768;

struct Run {
  alignas(64) float x[kRun];
  alignas(64) float y[kRun];
};

/// Two neighbours of the upper and the lower row, interpolated; alpha is 255 as theirs is.
HWY_INLINE std::uint32_t Interpolated(const std::uint8_t* upper, const std::uint8_t* lower,
                                      std::int32_t fx, std::int32_t fy) {
  const hn::FixedTag<std::uint8_t, 8> d8;
  const hn::FixedTag<std::int16_t, 8> d16;
  const auto top = hn::PromoteTo(d16, hn::LoadU(d8, upper));
  const auto bottom = hn::PromoteTo(d16, hn::LoadU(d8, lower));
  const auto down = hn::MulFixedPoint15(hn::ShiftLeft<7>(hn::Sub(bottom, top)),
                                        hn::Set(d16, static_cast<std::int16_t>(fy)));
  const auto column = hn::Add(hn::ShiftLeft<7>(top), down);
  const auto next = hn::ShiftRightBytes<8>(d16, column);
  const auto across =
      hn::MulFixedPoint15(hn::Sub(next, column), hn::Set(d16, static_cast<std::int16_t>(fx)));
  const auto level =
      hn::ShiftRight<7>(hn::Add(hn::Add(column, across), hn::Set(d16, std::int16_t{64})));
  const auto bytes = hn::DemoteTo(d8, level);
  return hn::GetLane(hn::BitCast(hn::FixedTag<std::uint32_t, 2>(), bytes));
}

/// Draws `count` pixels from the positions of a run. Positions must lie inside the source if
/// kInside; otherwise what lies beyond is `back`.
template <bool kInside>
HWY_ATTR void Sample(ConstPixels source, const Run& run, int count, std::uint32_t back,
                     std::uint32_t* out) {
  const DF d;
  const DI di;
  alignas(64) std::int32_t column[kRun];
  alignas(64) std::int32_t row[kRun];
  alignas(64) std::int32_t fx[kRun];
  alignas(64) std::int32_t fy[kRun];
  const VI lastColumn = hn::Set(di, std::max(source.width - 2, 0));
  const VI lastRow = hn::Set(di, std::max(source.height - 2, 0));
  for (int i = 0; i < count; i += static_cast<int>(hn::Lanes(d))) {
    // Far outside is as good as anywhere outside, and does not overflow.
    const VF x = hn::Min(hn::Max(hn::Load(d, run.x + i), hn::Set(d, -2.0F)), hn::Set(d, 1e9F));
    const VF y = hn::Min(hn::Max(hn::Load(d, run.y + i), hn::Set(d, -2.0F)), hn::Set(d, 1e9F));
    VI ix = hn::ConvertTo(di, hn::Floor(x));
    VI iy = hn::ConvertTo(di, hn::Floor(y));
    if (kInside) {
      ix = hn::Min(ix, lastColumn);
      iy = hn::Min(iy, lastRow);
    }
    const VI most = hn::Set(di, 32767);
    const auto fraction = [&](VF position, VI whole) HWY_ATTR {
      const VF part = hn::Sub(position, hn::ConvertTo(d, whole));
      return hn::Min(hn::ConvertTo(di, hn::Mul(part, hn::Set(d, kFraction))), most);
    };
    hn::Store(fraction(x, ix), di, fx + i);
    hn::Store(fraction(y, iy), di, fy + i);
    hn::Store(ix, di, column + i);
    hn::Store(iy, di, row + i);
  }
  const auto inColumns = static_cast<std::uint32_t>(std::max(source.width - 1, 0));
  const auto inRows = static_cast<std::uint32_t>(std::max(source.height - 1, 0));
  const std::size_t below = source.height > 1 ? source.stride : 0;
  for (int i = 0; i < count; ++i) {
    if (!kInside && (static_cast<std::uint32_t>(column[i]) >= inColumns ||
                     static_cast<std::uint32_t>(row[i]) >= inRows)) {
      bending::SampleAtBorder(source, run.x[i], run.y[i], back, out + i);
      continue;
    }
    const std::uint8_t* upper = source.Row(row[i]) + std::ptrdiff_t{4} * column[i];
    out[i] = Interpolated(upper, upper + below, fx[i], fy[i]);
  }
}

HWY_INLINE VF Columns(int x) {
  const DF d;
  return hn::Iota(d, static_cast<float>(x));
}

/// Fills rows of the target from the positions that `places` gives; with kClamp they stay inside
/// the source, whose border then goes on.
template <bool kClamp, class Places>
HWY_INLINE void Warp(ConstPixels source, Pixels target, int from, int to, std::uint32_t back,
                     const Places& places) {
  const DF d;
  Run run;
  for (int y = from; y < to; ++y) {
    auto* out = reinterpret_cast<std::uint32_t*>(target.Row(y));
    for (int x = 0; x < target.width; x += kRun) {
      const int count = std::min(kRun, target.width - x);
      for (int i = 0; i < count; i += static_cast<int>(hn::Lanes(d))) {
        VF px;
        VF py;
        places.At(x + i, y, px, py);
        if (kClamp) {
          const VF zero = hn::Zero(d);
          px = hn::Min(hn::Max(px, zero), hn::Set(d, static_cast<float>(source.width - 1)));
          py = hn::Min(hn::Max(py, zero), hn::Set(d, static_cast<float>(source.height - 1)));
        }
        hn::Store(px, d, run.x + i);
        hn::Store(py, d, run.y + i);
      }
      Sample<kClamp>(source, run, count, back, out + x);
    }
  }
}

struct SwingPlaces {
  const float* across;
  const float* down;
  HWY_INLINE void At(int x, int y, VF& px, VF& py) const {
    const DF d;
    px = hn::Add(Columns(x), hn::Set(d, down[y]));
    py = hn::Add(hn::Set(d, static_cast<float>(y)), hn::LoadU(d, across + x));
  }
};

HWY_ATTR void SwingRows(ConstPixels source, Pixels target, int from, int to, const float* across,
                        const float* down, std::uint32_t back) {
  Warp<false>(source, target, from, to, back, SwingPlaces{across, down});
}

struct LensPlaces {
  const bending::LensAt& lens;
  HWY_INLINE void At(int x, int y, VF& px, VF& py) const {
    const DF d;
    const VF one = hn::Set(d, 1.0F);
    VF dx = hn::Mul(hn::Sub(Columns(x), hn::Set(d, lens.cx)), hn::Set(d, lens.inverse));
    VF dy = hn::Set(d, (static_cast<float>(y) - lens.cy) * lens.inverse);
    if (lens.vertical != 0 || lens.horizontal != 0) {
      const VF depth = hn::Add(one, hn::Add(hn::Mul(hn::Set(d, lens.vertical), dy),
                                            hn::Mul(hn::Set(d, lens.horizontal), dx)));
      dx = hn::Div(dx, depth);
      dy = hn::Div(dy, depth);
    }
    const VF r2 = hn::Add(hn::Mul(dx, dx), hn::Mul(dy, dy));
    const VF factor =
        hn::Mul(hn::Set(d, lens.scale), hn::Add(one, hn::Mul(hn::Set(d, lens.bend), r2)));
    px = hn::Add(hn::Set(d, lens.cx), hn::Mul(dx, factor));
    py = hn::Add(hn::Set(d, lens.cy), hn::Mul(dy, factor));
    if (lens.interpolate) return;
    px = hn::Round(px);
    py = hn::Round(py);
  }
};

HWY_ATTR void BendRows(ConstPixels source, Pixels target, int from, int to,
                       const bending::LensAt& lens, std::uint32_t back) {
  Warp<false>(source, target, from, to, back, LensPlaces{lens});
}

struct TurnedPlaces {
  const bending::Turned& turned;
  HWY_INLINE void At(int x, int y, VF& px, VF& py) const {
    const DF d;
    const VF step = hn::Iota(d, 0.0F);
    const double x0 = turned.x0 + x * turned.c + y * turned.s;
    const double y0 = turned.y0 - x * turned.s + y * turned.c;
    px = hn::Add(hn::Set(d, static_cast<float>(x0)),
                 hn::Mul(step, hn::Set(d, static_cast<float>(turned.c))));
    py = hn::Sub(hn::Set(d, static_cast<float>(y0)),
                 hn::Mul(step, hn::Set(d, static_cast<float>(turned.s))));
  }
};

HWY_ATTR void TurnRows(ConstPixels source, Pixels target, int from, int to,
                       const bending::Turned& turned, std::uint32_t back) {
  Warp<false>(source, target, from, to, back, TurnedPlaces{turned});
}

HWY_ATTR void AverageRows(ConstPixels source, Pixels target, int from, int to,
                          const bending::Turned& turned) {
  Warp<true>(source, target, from, to, 0, TurnedPlaces{turned});
  const hn::ScalableTag<std::uint8_t> d8;
  for (int y = from; y < to; ++y) {
    const std::uint8_t* own = source.Row(y);
    std::uint8_t* out = target.Row(y);
    for (std::size_t i = 0; i < target.stride; i += hn::Lanes(d8)) {
      hn::Store(hn::AverageRound(hn::Load(d8, out + i), hn::Load(d8, own + i)), d8, out + i);
    }
  }
}

template <int kShift>
HWY_INLINE VF LevelOf(const std::uint32_t* pixels) {
  const DF d;
  const hn::RebindToUnsigned<DF> du;
  const auto level = hn::And(hn::ShiftRight<kShift>(hn::LoadU(du, pixels)), hn::Set(du, 0xFFU));
  return hn::ConvertTo(d, hn::BitCast(DI(), level));
}

/// Adds one drop's part of a row to the sums, where later drops have left something to see.
HWY_ATTR void DropOnRow(ConstPixels source, const Drop& drop, int y, int left, int right,
                        const bending::Light& row) {
  const DF d;
  const auto lanes = static_cast<int>(hn::Lanes(d));
  const VF zero = hn::Zero(d);
  const VF one = hn::Set(d, 1.0F);
  const VF white = hn::Set(d, 255.0F);
  const VF radius = hn::Set(d, static_cast<float>(drop.radius));
  const VF inverse = hn::Set(d, static_cast<float>(1 / drop.radius));
  const VF v = hn::Set(d, static_cast<float>((y - drop.y) / drop.radius));
  const VF v2 = hn::Mul(v, v);
  const VF lastColumn = hn::Set(d, static_cast<float>(source.width - 1));
  const VF lastRow = hn::Set(d, static_cast<float>(source.height - 1));
  alignas(64) std::uint32_t bent[kRun];
  Run run;
  for (int x = left; x < right; x += lanes) {
    const VF u = hn::Mul(hn::Sub(Columns(x), hn::Set(d, static_cast<float>(drop.x))), inverse);
    const VF r2 = hn::Add(hn::Mul(u, u), v2);
    const VF r = hn::Sqrt(r2);
    const VF edge = hn::Min(hn::Max(hn::Mul(hn::Sub(one, r), radius), zero), one);
    const VF open = hn::LoadU(d, row.open + x);
    const VF share = hn::Mul(open, edge);
    if (hn::AllTrue(d, hn::Le(share, zero))) continue;
    // A ball lens turns what lies under it over; towards its rim it looks far aside.
    const VF bend =
        hn::Mul(radius, hn::Mul(hn::Set(d, 1.6F), hn::Add(hn::Mul(r2, r2), hn::Set(d, 0.35F))));
    const auto within = [&](VF at, VF last) HWY_ATTR { return hn::Min(hn::Max(at, zero), last); };
    hn::Store(within(hn::Sub(hn::Set(d, static_cast<float>(drop.x)), hn::Mul(u, bend)), lastColumn),
              d, run.x);
    hn::Store(within(hn::Sub(hn::Set(d, static_cast<float>(drop.y)), hn::Mul(v, bend)), lastRow), d,
              run.y);
    Sample<true>(source, run, lanes, 0, bent);
    // Lit from the top left: dark towards it inside, bright opposite, and a spot.
    const VF light = hn::Add(one, hn::Mul(hn::Mul(hn::Set(d, 0.35F), hn::Add(u, v)), r));
    const VF su = hn::Add(u, hn::Set(d, 0.4F));
    const VF sv = hn::Add(v, hn::Set(d, 0.4F));
    const VF far = hn::Sqrt(hn::Add(hn::Mul(su, su), hn::Mul(sv, sv)));
    const VF spot = hn::Max(zero, hn::Sub(one, hn::Mul(far, hn::Set(d, 1 / 0.22F))));
    const VF shine = hn::Mul(hn::Set(d, 255 * 0.55F), spot);
    const auto add = [&](float* sums, VF level) HWY_ATTR {
      const VF lit = hn::Min(hn::Max(hn::Add(hn::Mul(level, light), shine), zero), white);
      hn::StoreU(hn::Add(hn::LoadU(d, sums + x), hn::Mul(share, lit)), d, sums + x);
    };
    add(row.blue, LevelOf<0>(bent));
    add(row.green, LevelOf<8>(bent));
    add(row.red, LevelOf<16>(bent));
    hn::StoreU(hn::Sub(open, share), d, row.open + x);
  }
}

/// What the drops leave open is the picture itself.
HWY_ATTR void FinishRow(const std::uint32_t* source, std::uint32_t* out, int width,
                        const bending::Light& row) {
  const DF d;
  const hn::RebindToUnsigned<DF> du;
  for (int x = 0; x < width; x += static_cast<int>(hn::Lanes(d))) {
    const VF open = hn::LoadU(d, row.open + x);
    const auto level = [&](const float* sums, VF own) HWY_ATTR {
      const VF sum = hn::Add(hn::LoadU(d, sums + x), hn::Mul(open, own));
      return hn::BitCast(du, hn::ConvertTo(DI(), hn::Add(sum, hn::Set(d, 0.5F))));
    };
    const auto blue = level(row.blue, LevelOf<0>(source + x));
    const auto green = level(row.green, LevelOf<8>(source + x));
    const auto red = level(row.red, LevelOf<16>(source + x));
    hn::Store(hn::Or(hn::Or(hn::Set(du, 0xFF000000U), blue),
                     hn::Or(hn::ShiftLeft<8>(green), hn::ShiftLeft<16>(red))),
              du, out + x);
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace brivolant::kernels
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace brivolant::kernels {

HWY_EXPORT(SwingRows);
HWY_EXPORT(BendRows);
HWY_EXPORT(TurnRows);
HWY_EXPORT(AverageRows);
HWY_EXPORT(DropOnRow);
HWY_EXPORT(FinishRow);

namespace bending {

void SampleAtBorder(ConstPixels source, float x, float y, std::uint32_t back, std::uint32_t* out) {
  const auto width = static_cast<float>(source.width);
  const auto height = static_cast<float>(source.height);
  if (!(x > -1 && y > -1 && x < width && y < height)) {
    *out = back;
    return;
  }
  const int x0 = static_cast<int>(x + 1) - 1;
  const int y0 = static_cast<int>(y + 1) - 1;
  const auto pixel = [&](int px, int py) {
    std::uint32_t value = back;
    if (px >= 0 && py >= 0 && px < source.width && py < source.height) {
      std::memcpy(&value, source.Row(py) + std::ptrdiff_t{4} * px, 4);
    }
    return value;
  };
  const std::uint32_t a = pixel(x0, y0);
  const std::uint32_t b = pixel(x0 + 1, y0);
  const std::uint32_t c = pixel(x0, y0 + 1);
  const std::uint32_t d = pixel(x0 + 1, y0 + 1);
  const auto wx = static_cast<std::uint32_t>(std::lround((x - static_cast<float>(x0)) * 256));
  const auto wy = static_cast<std::uint32_t>(std::lround((y - static_cast<float>(y0)) * 256));
  std::uint32_t result = 0;
  for (int shift = 0; shift < 32; shift += 8) {
    const auto level = [shift](std::uint32_t value) { return value >> shift & 255; };
    const std::uint32_t top = level(a) * (256 - wx) + level(b) * wx;
    const std::uint32_t bottom = level(c) * (256 - wx) + level(d) * wx;
    result |= ((top * (256 - wy) + bottom * wy + 32768) >> 16) << shift;
  }
  *out = result;
}

}  // namespace bending

namespace {

constexpr int kGrain = 16;
/// Vectors may read and write this far over the end of a row of floats.
constexpr std::size_t kSlack = 64;

std::uint32_t PixelOf(Color color) {
  return 0xFF000000U | color.RGB();
}

bending::Turned About(double sourceX, double sourceY, double targetX, double targetY,
                      double degrees, double zoom) {
  const double c = std::cos(degrees * std::numbers::pi / 180) / zoom;
  const double s = std::sin(degrees * std::numbers::pi / 180) / zoom;
  return {sourceX - targetX * c - targetY * s, sourceY + targetX * s - targetY * c, c, s};
}

}  // namespace

void Swing(ConstPixels source, Pixels target, double waves, double amplitude, Color back) {
  const double period = 2 * std::numbers::pi * waves;
  const auto sine = [&](int length) {
    std::vector<float> swing(static_cast<std::size_t>(length) + kSlack);
    for (int i = 0; i < length; ++i) {
      swing[static_cast<std::size_t>(i)] =
          static_cast<float>(amplitude * std::sin(period * i / length));
    }
    return swing;
  };
  const std::vector<float> across = sine(source.width);
  const std::vector<float> down = sine(source.height);
  ParallelRows(target.height, kGrain, [&](int from, int to) {
    HWY_DYNAMIC_DISPATCH(SwingRows)
    (source, target, from, to, across.data(), down.data(), PixelOf(back));
  });
}

void Bend(ConstPixels source, Pixels target, const Lens& lens, Color back) {
  const double cx = (source.width - 1) / 2.0;
  const double cy = (source.height - 1) / 2.0;
  const double reach = std::max(std::hypot(cx, cy), 0.5);
  const bending::LensAt at{static_cast<float>(cx),
                           static_cast<float>(cy),
                           static_cast<float>(1 / reach),
                           static_cast<float>(lens.scale * reach),
                           static_cast<float>(lens.bend),
                           static_cast<float>(lens.verticalKeystone),
                           static_cast<float>(lens.horizontalKeystone),
                           lens.interpolate};
  ParallelRows(target.height, kGrain, [&](int from, int to) {
    HWY_DYNAMIC_DISPATCH(BendRows)(source, target, from, to, at, PixelOf(back));
  });
}

void AverageWithTurned(ConstPixels source, Pixels target, double degrees, double zoom) {
  const double cx = (source.width - 1) / 2.0;
  const double cy = (source.height - 1) / 2.0;
  const bending::Turned turned = About(cx, cy, cx, cy, degrees, zoom);
  ParallelRows(target.height, kGrain, [&](int from, int to) {
    HWY_DYNAMIC_DISPATCH(AverageRows)(source, target, from, to, turned);
  });
}

void RotateAnyAngle(ConstPixels source, Pixels target, double degrees, std::uint32_t back,
                    double zoom) {
  const bending::Turned turned =
      About((source.width - 1) / 2.0, (source.height - 1) / 2.0, (target.width - 1) / 2.0,
            (target.height - 1) / 2.0, degrees, zoom);
  ParallelRows(target.height, kGrain, [&](int from, int to) {
    HWY_DYNAMIC_DISPATCH(TurnRows)(source, target, from, to, turned, 0xFF000000U | back);
  });
}

void ThroughDrops(ConstPixels source, Pixels target, const std::vector<Drop>& drops) {
  constexpr int kLook = 32;
  ParallelRows(target.height, kGrain, [&](int from, int to) {
    std::vector<const Drop*> near;
    for (const Drop& drop : drops) {
      if (!(drop.radius > 0 && std::isfinite(drop.radius) && std::isfinite(drop.x))) continue;
      if (drop.y + drop.radius >= from && drop.y - drop.radius <= to) near.push_back(&drop);
    }
    const std::size_t width = static_cast<std::size_t>(target.width) + kSlack;
    std::vector<float> sums(4 * width);
    const bending::Light row{sums.data(), sums.data() + width, sums.data() + 2 * width,
                             sums.data() + 3 * width};
    for (int y = from; y < to; ++y) {
      std::fill(sums.begin(), sums.end(), 0.0F);
      std::fill(row.open, row.open + width, 1.0F);
      // From the uppermost drop down: what it covers wholly need not be drawn again.
      int since = 0;
      for (auto drop = near.rbegin(); drop != near.rend(); ++drop) {
        // Many drops cover a row wholly long before all of them are drawn.
        if (++since % kLook == 0 &&
            std::all_of(row.open, row.open + target.width, [](float open) { return open <= 0; })) {
          break;
        }
        const double v = (y - (*drop)->y) / (*drop)->radius;
        if (std::abs(v) >= 1) continue;
        const double half = std::sqrt(1 - v * v) * (*drop)->radius;
        const int left = std::max(Whole(std::ceil((*drop)->x - half)), 0);
        const int right = std::min(Whole((*drop)->x + half) + 1, target.width);
        HWY_DYNAMIC_DISPATCH(DropOnRow)(source, **drop, y, left, right, row);
      }
      HWY_DYNAMIC_DISPATCH(FinishRow)
      (reinterpret_cast<const std::uint32_t*>(source.Row(y)),
       reinterpret_cast<std::uint32_t*>(target.Row(y)), target.width, row);
    }
  });
}

}  // namespace brivolant::kernels

#endif  // HWY_ONCE
