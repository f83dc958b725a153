// SPDX-License-Identifier: MIT
#include "platform/pictures/kernels/DetailKernels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <type_traits>

#include "platform/pictures/Parallel.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/pictures/kernels/DetailKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace brivolant::kernels {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// Bytes 4 to `end` of a row. Gives where it stopped: at most a vector and a pixel before the end.
HWY_ATTR std::size_t SharpenRow(const std::uint8_t* source, const std::uint8_t* above,
                                const std::uint8_t* here, const std::uint8_t* below,
                                std::uint8_t* out, std::size_t end, int share) {
  const hn::ScalableTag<std::int16_t> d;
  const hn::Rebind<std::uint8_t, decltype(d)> d8;
  const std::size_t lanes = hn::Lanes(d);
  const auto part = hn::Set(d, static_cast<std::int16_t>(share));
  const auto at = [&](const std::uint8_t* place) HWY_ATTR {
    return hn::BitCast(d, hn::PromoteTo(hn::RebindToUnsigned<decltype(d)>(), hn::LoadU(d8, place)));
  };
  std::size_t i = 4;
  for (; i + lanes + 4 <= end; i += lanes) {
    const auto level = at(source + i);
    const auto around =
        hn::Add(hn::Add(at(above + i), at(below + i)), hn::Add(at(here + i - 4), at(here + i + 4)));
    const auto difference = hn::Sub(hn::ShiftLeft<2>(level), around);
    hn::StoreU(hn::DemoteTo(d8, hn::Add(level, hn::MulFixedPoint15(difference, part))), d8,
               out + i);
  }
  return i;
}

/// Pixels 1 to `width` - 1 of a row; gives where it stopped.
HWY_ATTR int EdgeRow(const std::uint8_t* above, const std::uint8_t* here, const std::uint8_t* below,
                     std::uint8_t* out, int width, float gain) {
  const hn::ScalableTag<std::uint32_t> d;
  const hn::RebindToSigned<decltype(d)> di;
  const hn::RebindToFloat<decltype(d)> df;
  const int lanes = static_cast<int>(hn::Lanes(d));
  const auto low = hn::Set(d, 255);
  const auto opaque = hn::Set(d, 0xFF000000U);
  int x = 1;
  for (; x + lanes + 1 <= width; x += lanes) {
    const auto load = [&](const std::uint8_t* row, int dx) HWY_ATTR {
      return hn::LoadU(d, reinterpret_cast<const std::uint32_t*>(row) + x + dx);
    };
    const auto nw = load(above, -1);
    const auto n = load(above, 0);
    const auto ne = load(above, 1);
    const auto w = load(here, -1);
    const auto e = load(here, 1);
    const auto sw = load(below, -1);
    const auto s = load(below, 0);
    const auto se = load(below, 1);
    auto largest = hn::Zero(di);
    const auto channel = [&](auto shift) HWY_ATTR {
      const auto of = [&](auto v) HWY_ATTR {
        return hn::BitCast(di, hn::And(hn::ShiftRight<decltype(shift)::value>(v), low));
      };
      const auto cnw = of(nw);
      const auto cne = of(ne);
      const auto csw = of(sw);
      const auto cse = of(se);
      const auto across = hn::Sub(hn::Add(hn::Add(cne, cse), hn::ShiftLeft<1>(of(e))),
                                  hn::Add(hn::Add(cnw, csw), hn::ShiftLeft<1>(of(w))));
      const auto down = hn::Sub(hn::Add(hn::Add(csw, cse), hn::ShiftLeft<1>(of(s))),
                                hn::Add(hn::Add(cnw, cne), hn::ShiftLeft<1>(of(n))));
      largest = hn::Max(largest, hn::Add(hn::Mul(across, across), hn::Mul(down, down)));
    };
    channel(std::integral_constant<int, 0>());
    channel(std::integral_constant<int, 8>());
    channel(std::integral_constant<int, 16>());
    const auto length = hn::Mul(hn::Sqrt(hn::ConvertTo(df, largest)), hn::Set(df, gain));
    const auto dark = hn::NearestInt(hn::Min(length, hn::Set(df, 255.0F)));
    const auto level = hn::BitCast(d, hn::Sub(hn::Set(di, 255), dark));
    const auto grey = hn::Or(level, hn::Or(hn::ShiftLeft<8>(level), hn::ShiftLeft<16>(level)));
    hn::StoreU(hn::Or(grey, opaque), d, reinterpret_cast<std::uint32_t*>(out) + x);
  }
  return x;
}

}  // namespace HWY_NAMESPACE
}  // namespace brivolant::kernels
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

namespace brivolant::kernels {

HWY_EXPORT(SharpenRow);
HWY_EXPORT(EdgeRow);

namespace {

constexpr int kGrain = 16;

/// A row and its neighbours, the outermost ones going on beyond the border.
struct Rows {
  Rows(ConstPixels pixels, int y)
      : above(pixels.Row(std::max(y - 1, 0))),
        here(pixels.Row(y)),
        below(pixels.Row(std::min(y + 1, pixels.height - 1))),
        last(pixels.width - 1) {}

  std::ptrdiff_t Left(int x) const { return std::ptrdiff_t{4} * std::max(x - 1, 0); }
  std::ptrdiff_t Right(int x) const { return std::ptrdiff_t{4} * std::min(x + 1, last); }

  const std::uint8_t* above;
  const std::uint8_t* here;
  const std::uint8_t* below;
  int last;
};

void SharpenPixel(const std::uint8_t* source, const Rows& soft, std::uint8_t* out, int x,
                  int share) {
  const std::ptrdiff_t middle = std::ptrdiff_t{4} * x;
  const std::ptrdiff_t left = soft.Left(x);
  const std::ptrdiff_t right = soft.Right(x);
  for (int k = 0; k < 3; ++k) {
    const int level = source[middle + k];
    const int difference = 4 * level - soft.above[middle + k] - soft.below[middle + k] -
                           soft.here[left + k] - soft.here[right + k];
    out[middle + k] =
        static_cast<std::uint8_t>(std::clamp(level + ((difference * share + 16384) >> 15), 0, 255));
  }
  out[middle + 3] = 255;
}

void EdgePixel(const Rows& rows, std::uint8_t* out, int x, float gain) {
  const std::ptrdiff_t middle = std::ptrdiff_t{4} * x;
  const std::ptrdiff_t left = rows.Left(x);
  const std::ptrdiff_t right = rows.Right(x);
  int largest = 0;
  for (int k = 0; k < 3; ++k) {
    const int across = rows.above[right + k] + 2 * rows.here[right + k] + rows.below[right + k] -
                       rows.above[left + k] - 2 * rows.here[left + k] - rows.below[left + k];
    const int down = rows.below[left + k] + 2 * rows.below[middle + k] + rows.below[right + k] -
                     rows.above[left + k] - 2 * rows.above[middle + k] - rows.above[right + k];
    largest = std::max(largest, across * across + down * down);
  }
  const float length = std::sqrt(static_cast<float>(largest)) * gain;
  const auto dark = static_cast<int>(std::nearbyint(std::min(length, 255.0F)));
  out[middle] = out[middle + 1] = out[middle + 2] = static_cast<std::uint8_t>(255 - dark);
  out[middle + 3] = 255;
}

std::uint8_t Between(int from, int to, int share) {
  return static_cast<std::uint8_t>((from * (256 - share) + to * share + 128) / 256);
}

}  // namespace

void SharpenAgainst(ConstPixels source, ConstPixels soft, Pixels target, int share, int softTop) {
  ParallelRows(source.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      const std::uint8_t* row = source.Row(y);
      const Rows around(soft, y + softTop);
      std::uint8_t* out = target.Row(y);
      SharpenPixel(row, around, out, 0, share);
      const auto end = static_cast<std::size_t>(source.width) * 4;
      const std::size_t done = HWY_DYNAMIC_DISPATCH(SharpenRow)(row, around.above, around.here,
                                                                around.below, out, end, share);
      for (int x = static_cast<int>(done / 4); x < source.width; ++x) {
        SharpenPixel(row, around, out, x, share);
      }
    }
  });
}

void DrawEdges(ConstPixels source, Pixels target, float gain) {
  ParallelRows(source.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      const Rows rows(source, y);
      std::uint8_t* out = target.Row(y);
      EdgePixel(rows, out, 0, gain);
      const int done =
          HWY_DYNAMIC_DISPATCH(EdgeRow)(rows.above, rows.here, rows.below, out, source.width, gain);
      for (int x = done; x < source.width; ++x) EdgePixel(rows, out, x, gain);
    }
  });
}

void DarkenRows(Pixels pixels, std::span<const std::uint8_t> keep) {
  constexpr std::uint32_t kEven = 0x00FF00FF;
  constexpr std::uint32_t kHalves = 0x00800080;
  const auto scaled = [](std::uint32_t levels, std::uint32_t share) {
    const std::uint32_t product = levels * share + kHalves;
    return ((product + (product >> 8 & kEven)) >> 8) & kEven;
  };
  ParallelRows(std::min(pixels.height, static_cast<int>(keep.size())), kGrain,
               [&](int from, int to) {
                 for (int y = from; y < to; ++y) {
                   const std::uint32_t share = keep[static_cast<std::size_t>(y)];
                   if (share == 255) continue;
                   auto* row = reinterpret_cast<std::uint32_t*>(pixels.Row(y));
                   for (int x = 0; x < pixels.width; ++x) {
                     row[x] = scaled(row[x] & kEven, share) |
                              scaled(row[x] >> 8 & kEven, share) << 8 | 0xFF000000U;
                   }
                 }
               });
}

int CoverageAbove(ConstGrey plane, int x, int y, double level) {
  const std::uint8_t* row = plane.Row(y);
  const int left = row[std::max(x - 1, 0)];
  const int right = row[std::min(x + 1, plane.width - 1)];
  const int above = plane.Row(std::max(y - 1, 0))[x];
  const int below = plane.Row(std::min(y + 1, plane.height - 1))[x];
  const double across = (right - left) / 2.0;
  const double down = (below - above) / 2.0;
  // Levels are whole: what changes less has no edge to smooth.
  const double slope = std::max(std::sqrt(across * across + down * down), 1.0);
  return static_cast<int>(std::clamp(0.5 + (row[x] - level) / slope, 0.0, 1.0) * 256);
}

void PaintPanels(ConstGrey values, ConstGrey lines, Pixels target, int left, int top,
                 const std::array<Panel, 4>& panels) {
  constexpr double kMiddle = 84.5;
  constexpr double kBright = 168.5;
  constexpr double kPaper = 127.5;
  const int width = std::min(values.width, target.width - left);
  const int height = std::min(values.height, target.height - top);
  ParallelRows(height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      for (int x = 0; x < width; ++x) {
        const int middle = CoverageAbove(values, x, y, kMiddle);
        const int bright = CoverageAbove(values, x, y, kBright);
        const int paper = CoverageAbove(lines, x, y, kPaper);
        for (std::size_t i = 0; i < panels.size(); ++i) {
          // The middle row and column of an odd picture are those of the first panel that has them:
          // rows are painted at the same time, in any order.
          if ((i >= 2 && top + y < height) || (i % 2 == 1 && left + x < width)) continue;
          const Panel& panel = panels.at(i);
          std::uint8_t* out =
              target.Row(i < 2 ? y : top + y) + std::ptrdiff_t{4} * (i % 2 == 0 ? x : left + x);
          const auto channel = [&](std::uint8_t Color::*which) {
            const int tone = Between(panel[0].*which, panel[1].*which, middle);
            return Between(0, Between(tone, panel[2].*which, bright), paper);
          };
          out[0] = channel(&Color::Blue);
          out[1] = channel(&Color::Green);
          out[2] = channel(&Color::Red);
          out[3] = 255;
        }
      }
    }
  });
}

void Values(ConstPixels pixels, Grey plane) {
  ParallelRows(pixels.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      const std::uint8_t* p = pixels.Row(y);
      std::uint8_t* out = plane.Row(y);
      for (int x = 0; x < pixels.width; ++x, p += 4) out[x] = std::max({p[0], p[1], p[2]});
    }
  });
}

namespace reference {

void SharpenAgainst(ConstPixels source, ConstPixels soft, Pixels target, int share) {
  for (int y = 0; y < source.height; ++y) {
    for (int x = 0; x < source.width; ++x) {
      SharpenPixel(source.Row(y), Rows(soft, y), target.Row(y), x, share);
    }
  }
}

void DrawEdges(ConstPixels source, Pixels target, float gain) {
  for (int y = 0; y < source.height; ++y) {
    for (int x = 0; x < source.width; ++x) EdgePixel(Rows(source, y), target.Row(y), x, gain);
  }
}

}  // namespace reference
}  // namespace brivolant::kernels

#endif  // HWY_ONCE
