// SPDX-License-Identifier: MIT
#include "platform/pictures/kernels/TurnKernels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <numbers>

#include "platform/pictures/Parallel.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/pictures/kernels/TurnKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace brivolant::kernels {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

HWY_ATTR void ReverseRow(const std::uint32_t* from, std::uint32_t* to, int width) {
  const hn::ScalableTag<std::uint32_t> d;
  const int lanes = static_cast<int>(hn::Lanes(d));
  int x = 0;
  for (; x + lanes <= width; x += lanes) {
    hn::StoreU(hn::Reverse(d, hn::LoadU(d, from + (width - lanes - x))), d, to + x);
  }
  for (; x < width; ++x) to[x] = from[width - 1 - x];
}

/// Mirrors one row in place.
HWY_ATTR void ReverseInPlace(std::uint32_t* row, int width) {
  const hn::ScalableTag<std::uint32_t> d;
  const int lanes = static_cast<int>(hn::Lanes(d));
  int left = 0;
  int right = width;
  for (; right - left >= 2 * lanes; left += lanes, right -= lanes) {
    const auto a = hn::LoadU(d, row + left);
    const auto b = hn::LoadU(d, row + right - lanes);
    hn::StoreU(hn::Reverse(d, b), d, row + left);
    hn::StoreU(hn::Reverse(d, a), d, row + right - lanes);
  }
  std::reverse(row + left, row + right);
}

/// Exchanges rows and columns of four by four pixels.
HWY_ATTR void TransposeFour(const std::uint32_t* from, std::ptrdiff_t fromStep, std::uint32_t* to,
                            std::ptrdiff_t toStep) {
  const hn::Full128<std::uint32_t> d;
  const hn::Full128<std::uint64_t> d64;
  const auto a = hn::LoadU(d, from);
  const auto b = hn::LoadU(d, from + fromStep);
  const auto c = hn::LoadU(d, from + 2 * fromStep);
  const auto e = hn::LoadU(d, from + 3 * fromStep);
  const auto ab = hn::BitCast(d64, hn::InterleaveLower(d, a, b));
  const auto AB = hn::BitCast(d64, hn::InterleaveUpper(d, a, b));
  const auto ce = hn::BitCast(d64, hn::InterleaveLower(d, c, e));
  const auto CE = hn::BitCast(d64, hn::InterleaveUpper(d, c, e));
  hn::StoreU(hn::BitCast(d, hn::InterleaveLower(d64, ab, ce)), d, to);
  hn::StoreU(hn::BitCast(d, hn::InterleaveUpper(d64, ab, ce)), d, to + toStep);
  hn::StoreU(hn::BitCast(d, hn::InterleaveLower(d64, AB, CE)), d, to + 2 * toStep);
  hn::StoreU(hn::BitCast(d, hn::InterleaveUpper(d64, AB, CE)), d, to + 3 * toStep);
}

/// A block of columns of the source becomes rows of the target. `toStep` may be negative.
HWY_ATTR void TransposeBlock(const std::uint32_t* from, std::ptrdiff_t fromStep, int width,
                             int height, std::uint32_t* to, std::ptrdiff_t toStep) {
  int y = 0;
  for (; y + 4 <= height; y += 4) {
    int x = 0;
    for (; x + 4 <= width; x += 4) {
      TransposeFour(from + y * fromStep + x, fromStep, to + x * toStep + y, toStep);
    }
    for (; x < width; ++x) {
      for (int k = 0; k < 4; ++k) to[x * toStep + y + k] = from[(y + k) * fromStep + x];
    }
  }
  for (; y < height; ++y) {
    for (int x = 0; x < width; ++x) to[x * toStep + y] = from[y * fromStep + x];
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace brivolant::kernels
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace brivolant::kernels {

HWY_EXPORT(ReverseRow);
HWY_EXPORT(ReverseInPlace);
HWY_EXPORT(TransposeBlock);

namespace {

/// Side of the blocks in which axes are exchanged: two of them fit the first cache.
constexpr int kBlock = 32;

const std::uint32_t* PixelRow(ConstPixels pixels, int y) {
  return reinterpret_cast<const std::uint32_t*>(pixels.Row(y));
}
std::uint32_t* PixelRow(Pixels pixels, int y) {
  return reinterpret_cast<std::uint32_t*>(pixels.Row(y));
}

/// Rows and columns exchanged. Mirroring costs nothing more: the source's rows are taken from the
/// bottom, or the target's are filled from there.
void Exchange(ConstPixels source, Pixels target, const Turn& turn) {
  const auto step = static_cast<std::ptrdiff_t>(source.stride / 4);
  const auto targetStep = static_cast<std::ptrdiff_t>(target.stride / 4);
  const std::ptrdiff_t fromStep = turn.mirrorX ? -step : step;
  const std::ptrdiff_t toStep = turn.mirrorY ? -targetStep : targetStep;
  ParallelRows((source.width + kBlock - 1) / kBlock, 2, [&](int from, int to) {
    for (int block = from; block < to; ++block) {
      const int x = block * kBlock;
      const int width = std::min(kBlock, source.width - x);
      const int targetRow = turn.mirrorY ? target.height - 1 - x : x;
      for (int y = 0; y < source.height; y += kBlock) {
        const int sourceRow = turn.mirrorX ? source.height - 1 - y : y;
        HWY_DYNAMIC_DISPATCH(TransposeBlock)
        (PixelRow(source, sourceRow) + x, fromStep, width, std::min(kBlock, source.height - y),
         PixelRow(target, targetRow) + y, toStep);
      }
    }
  });
}

}  // namespace

void TurnPixels(ConstPixels source, Pixels target, const Turn& turn) {
  if (turn.exchange) {
    Exchange(source, target, turn);
    return;
  }
  ParallelRows(target.height, 64, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      const std::uint32_t* row = PixelRow(source, turn.mirrorY ? source.height - 1 - y : y);
      if (turn.mirrorX) {
        HWY_DYNAMIC_DISPATCH(ReverseRow)(row, PixelRow(target, y), target.width);
      } else {
        std::memcpy(target.Row(y), row, target.stride);
      }
    }
  });
}

void TurnPlane(ConstGrey source, Grey target, const Turn& turn) {
  ParallelRows(target.height, 16, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      const int ty = turn.mirrorY ? target.height - 1 - y : y;
      for (int x = 0; x < target.width; ++x) {
        const int tx = turn.mirrorX ? target.width - 1 - x : x;
        target.Row(y)[x] = turn.exchange ? source.Row(tx)[ty] : source.Row(ty)[tx];
      }
    }
  });
}

void Mirror(Pixels pixels, bool alongX, bool alongY) {
  if (alongX) {
    ParallelRows(pixels.height, 64, [&](int from, int to) {
      for (int y = from; y < to; ++y) {
        HWY_DYNAMIC_DISPATCH(ReverseInPlace)(PixelRow(pixels, y), pixels.width);
      }
    });
  }
  if (alongY) {
    ParallelRows(pixels.height / 2, 32, [&](int from, int to) {
      for (int y = from; y < to; ++y) {
        std::swap_ranges(pixels.Row(y), pixels.Row(y) + pixels.stride,
                         pixels.Row(pixels.height - 1 - y));
      }
    });
  }
}

void RotateAnyAngle(ConstGrey source, Grey target, double degrees, std::uint8_t outside) {
  const double c = std::cos(degrees * std::numbers::pi / 180);
  const double s = std::sin(degrees * std::numbers::pi / 180);
  const auto at = [&](int x, int y) {
    const bool inside = x >= 0 && y >= 0 && x < source.width && y < source.height;
    return int{inside ? source.Row(y)[x] : outside};
  };
  ParallelRows(target.height, 16, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      const double dy = y - (target.height - 1) / 2.0;
      for (int x = 0; x < target.width; ++x) {
        const double dx = x - (target.width - 1) / 2.0;
        const double sx = (source.width - 1) / 2.0 + dx * c + dy * s;
        const double sy = (source.height - 1) / 2.0 - dx * s + dy * c;
        if (!(sx > -1 && sy > -1 && sx < source.width && sy < source.height)) {
          target.Row(y)[x] = outside;
          continue;
        }
        // Shifted, so that truncation rounds down also left of the source.
        const int x0 = static_cast<int>(sx + 1) - 1;
        const int y0 = static_cast<int>(sy + 1) - 1;
        const int wx = static_cast<int>((sx - x0) * 256);
        const int wy = static_cast<int>((sy - y0) * 256);
        const int top = at(x0, y0) * (256 - wx) + at(x0 + 1, y0) * wx;
        const int bottom = at(x0, y0 + 1) * (256 - wx) + at(x0 + 1, y0 + 1) * wx;
        target.Row(y)[x] =
            static_cast<std::uint8_t>((top * (256 - wy) + bottom * wy + 32768) >> 16);
      }
    }
  });
}

}  // namespace brivolant::kernels
#endif
