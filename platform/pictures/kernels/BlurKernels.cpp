// SPDX-License-Identifier: MIT
#include "platform/pictures/kernels/BlurKernels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <memory>

#include "platform/pictures/Parallel.h"
#include "platform/pictures/PixelMemory.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/pictures/kernels/BlurKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

// Both directions run on strips: 64 columns of bytes, one filter position a line, gathered from
// the picture so that they fit the cache. Bytes of different channels are different columns.
#ifndef BRIVOLANT_BLUR_STRIP
#define BRIVOLANT_BLUR_STRIP
namespace brivolant::kernels {
inline constexpr int kStrip = 64;
/// Ring buffers for one group of columns: as many lines as the boxes are wide.
struct BlurScratch {
  /// `length` is that of the longest strip.
  BlurScratch(const GaussianPlan& plan, int length);
  std::shared_ptr<std::uint8_t> memory;
  std::uint32_t* second = nullptr;
  std::uint32_t* third = nullptr;
  std::uint8_t* line = nullptr;
};
}  // namespace brivolant::kernels
#endif

HWY_BEFORE_NAMESPACE();
namespace brivolant::kernels {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

using D32 = hn::CappedTag<std::uint32_t, 16>;
using D8 = hn::Rebind<std::uint8_t, D32>;
using V32 = hn::Vec<D32>;

/// Three running sums, one fed by the other; each forgets what is a box's width behind. The sums
/// are exact: 255 times the three widths stays below 2^31.
HWY_ATTR void BoxStrip(std::uint8_t* strip, int length, const GaussianPlan& plan,
                       const BlurScratch& scratch) {
  const D32 d;
  const D8 d8;
  const hn::RebindToSigned<D32> i32;
  const hn::RebindToFloat<D32> f32;
  const int w1 = plan.boxes[0];
  const int w2 = plan.boxes[1];
  const int w3 = plan.boxes[2];
  const int reach = plan.Reach();
  const int lanes = static_cast<int>(hn::Lanes(d));
  const auto scale = hn::Set(f32, 1.0F / static_cast<float>(w1 * w2 * w3));
  for (int group = 0; group < kStrip; group += lanes) {
    std::uint8_t* column = strip + group;
    const auto at = [&](int i) HWY_ATTR {
      return hn::PromoteTo(d, hn::Load(d8, column + std::ptrdiff_t{i} * kStrip));
    };
    // As if the first pixel had gone on for ever.
    const V32 first = at(0);
    V32 s1 = hn::Mul(first, hn::Set(d, static_cast<std::uint32_t>(w1)));
    for (int k = 0; k < w2; ++k) hn::Store(s1, d, scratch.second + std::ptrdiff_t{k} * lanes);
    V32 s2 = hn::Mul(s1, hn::Set(d, static_cast<std::uint32_t>(w2)));
    for (int k = 0; k < w3; ++k) hn::Store(s2, d, scratch.third + std::ptrdiff_t{k} * lanes);
    V32 s3 = hn::Mul(s2, hn::Set(d, static_cast<std::uint32_t>(w3)));
    int slot2 = 0;
    int slot3 = 0;
    for (int i = 1; i < length + reach; ++i) {
      s1 = hn::Add(s1, hn::Sub(at(std::min(i, length - 1)), at(std::clamp(i - w1, 0, length - 1))));
      std::uint32_t* old2 = scratch.second + std::ptrdiff_t{slot2} * lanes;
      s2 = hn::Add(s2, hn::Sub(s1, hn::Load(d, old2)));
      hn::Store(s1, d, old2);
      if (++slot2 == w2) slot2 = 0;
      std::uint32_t* old3 = scratch.third + std::ptrdiff_t{slot3} * lanes;
      s3 = hn::Add(s3, hn::Sub(s2, hn::Load(d, old3)));
      hn::Store(s2, d, old3);
      if (++slot3 == w3) slot3 = 0;
      if (i >= reach) {
        const auto mean = hn::Mul(hn::ConvertTo(f32, hn::BitCast(i32, s3)), scale);
        hn::Store(hn::U8FromU32(hn::BitCast(d, hn::NearestInt(mean))), d8,
                  column + std::ptrdiff_t{i - reach} * kStrip);
      }
    }
  }
}

HWY_ATTR void TapStrip(std::uint8_t* strip, int length, const GaussianPlan& plan,
                       const BlurScratch& scratch) {
  const D32 d;
  const D8 d8;
  const int reach = plan.Reach();
  const int lanes = static_cast<int>(hn::Lanes(d));
  const auto half = hn::Set(d, 32768);
  // Lines are overwritten while later ones still look back at them: a copy is read instead.
  std::memcpy(scratch.line, strip, static_cast<std::size_t>(length) * kStrip);
  for (int i = 0; i < length; ++i) {
    for (int group = 0; group < kStrip; group += lanes) {
      const std::uint8_t* column = scratch.line + group;
      const auto at = [&](int k) HWY_ATTR {
        const int line = std::clamp(k, 0, length - 1);
        return hn::PromoteTo(d, hn::Load(d8, column + std::ptrdiff_t{line} * kStrip));
      };
      V32 sum = hn::Add(half, hn::Mul(at(i), hn::Set(d, plan.taps[0])));
      for (int k = 1; k <= reach; ++k) {
        sum = hn::Add(sum, hn::Mul(hn::Add(at(i - k), at(i + k)),
                                   hn::Set(d, plan.taps[static_cast<std::size_t>(k)])));
      }
      hn::Store(hn::U8FromU32(hn::ShiftRight<16>(sum)), d8,
                strip + group + std::ptrdiff_t{i} * kStrip);
    }
  }
}

HWY_ATTR void BlurStrip(std::uint8_t* strip, int length, const GaussianPlan& plan,
                        const BlurScratch& scratch) {
  if (plan.usesBoxes) {
    BoxStrip(strip, length, plan, scratch);
  } else {
    TapStrip(strip, length, plan, scratch);
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace brivolant::kernels
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace brivolant::kernels {

HWY_EXPORT(BlurStrip);

namespace {

/// Below this a sampled kernel is as cheap and exact.
constexpr double kBoxesFrom = 3.0;

/// Three odd widths, the smallest first, whose variances add up to the Gaussian's. Widths near each
/// other give the better shape, so a small misfit is preferred to a wide spread.
std::array<int, 3> BoxesFor(double sigma) {
  const double target = 12 * sigma * sigma + 3;
  const int middle = static_cast<int>(std::sqrt(target / 3)) | 1;
  constexpr int kSpread = 6;
  constexpr double kSpreadCost = 0.1;
  std::array<int, 3> best{};
  double least = target;
  for (int a = std::max(1, middle - kSpread); a <= middle; a += 2) {
    for (int b = a; b <= middle + kSpread; b += 2) {
      for (int c = b; c <= middle + kSpread; c += 2) {
        const double misfit =
            std::abs(target - (1.0 * a * a + b * b + c * c)) + kSpreadCost * (c - a) * (c - a);
        if (misfit < least) {
          least = misfit;
          best = {a, b, c};
        }
      }
    }
  }
  return best;
}

/// Columns of 64 bytes taken together along y, so that each row gives whole cache lines.
constexpr int kStripsAtOnce = 4;

std::shared_ptr<std::uint8_t> StripMemory(int length, int strips) {
  auto memory = PixelMemory::Allocate(static_cast<std::size_t>(length) * kStrip *
                                      static_cast<std::size_t>(strips));
  if (!memory) throw std::bad_alloc();
  return memory;
}

/// One row of `bytes` bytes holds pixels of `kUnit` bytes; 64 / kUnit rows make a strip.
template <int kUnit>
void AlongX(std::uint8_t* data, std::size_t stride, int width, int height,
            const GaussianPlan& plan) {
  constexpr int kRows = kStrip / kUnit;
  using Unit = std::conditional_t<kUnit == 4, std::uint32_t, std::uint8_t>;
  ParallelRows((height + kRows - 1) / kRows, 1, [&](int from, int to) {
    const BlurScratch scratch(plan, width);
    const auto memory = StripMemory(width, 1);
    auto* strip = reinterpret_cast<Unit*>(memory.get());
    std::array<Unit*, kRows> row{};
    for (int block = from; block < to; ++block) {
      for (int r = 0; r < kRows; ++r) {
        const int y = std::min(block * kRows + r, height - 1);
        row[static_cast<std::size_t>(r)] =
            reinterpret_cast<Unit*>(data + stride * static_cast<std::size_t>(y));
      }
      for (int x = 0; x < width; ++x) {
        for (int r = 0; r < kRows; ++r) {
          strip[std::ptrdiff_t{x} * kRows + r] = row[static_cast<std::size_t>(r)][x];
        }
      }
      HWY_DYNAMIC_DISPATCH(BlurStrip)(memory.get(), width, plan, scratch);
      const int rows = std::min(kRows, height - block * kRows);
      for (int x = 0; x < width; ++x) {
        for (int r = 0; r < rows; ++r) {
          row[static_cast<std::size_t>(r)][x] = strip[std::ptrdiff_t{x} * kRows + r];
        }
      }
    }
  });
}

void AlongY(std::uint8_t* data, std::size_t stride, int height, const GaussianPlan& plan) {
  const int strips = static_cast<int>(stride / kStrip);
  ParallelRows((strips + kStripsAtOnce - 1) / kStripsAtOnce, 1, [&](int from, int to) {
    const BlurScratch scratch(plan, height);
    const auto memory = StripMemory(height, kStripsAtOnce);
    const std::size_t size = static_cast<std::size_t>(height) * kStrip;
    for (int block = from; block < to; ++block) {
      const int count = std::min(kStripsAtOnce, strips - block * kStripsAtOnce);
      std::uint8_t* top = data + static_cast<std::size_t>(block) * kStripsAtOnce * kStrip;
      for (int y = 0; y < height; ++y) {
        for (int s = 0; s < count; ++s) {
          std::memcpy(memory.get() + size * static_cast<std::size_t>(s) +
                          static_cast<std::size_t>(y) * kStrip,
                      top + stride * static_cast<std::size_t>(y) + s * kStrip, kStrip);
        }
      }
      for (int s = 0; s < count; ++s) {
        HWY_DYNAMIC_DISPATCH(BlurStrip)
        (memory.get() + size * static_cast<std::size_t>(s), height, plan, scratch);
      }
      for (int y = 0; y < height; ++y) {
        for (int s = 0; s < count; ++s) {
          std::memcpy(top + stride * static_cast<std::size_t>(y) + s * kStrip,
                      memory.get() + size * static_cast<std::size_t>(s) +
                          static_cast<std::size_t>(y) * kStrip,
                      kStrip);
        }
      }
    }
  });
}

}  // namespace

GaussianPlan::GaussianPlan(double sigma) {
  if (sigma >= kBoxesFrom) {
    usesBoxes = true;
    boxes = BoxesFor(std::min(sigma, kLargestSigma));
    return;
  }
  const int reach = std::max(1, static_cast<int>(std::ceil(3 * sigma)));
  std::vector<double> weight(static_cast<std::size_t>(reach) + 1);
  double sum = 0;
  for (std::size_t i = 0; i < weight.size(); ++i) {
    const auto x = static_cast<double>(i);
    weight[i] = std::exp(-x * x / (2 * sigma * sigma));
    sum += i == 0 ? weight[i] : 2 * weight[i];
  }
  taps.resize(weight.size());
  std::uint32_t rest = 65536;
  for (std::size_t i = weight.size(); i-- > 1;) {
    taps[i] = static_cast<std::uint32_t>(std::lround(weight[i] / sum * 65536));
    rest -= 2 * taps[i];
  }
  taps[0] = rest;
}

int GaussianPlan::Reach() const {
  if (!usesBoxes) return static_cast<int>(taps.size()) - 1;
  return (boxes[0] + boxes[1] + boxes[2] - 3) / 2;
}

BlurScratch::BlurScratch(const GaussianPlan& plan, int length) {
  constexpr std::size_t kLine = 16 * sizeof(std::uint32_t);
  const std::size_t ring2 = static_cast<std::size_t>(plan.boxes[1]) * kLine;
  const std::size_t ring3 = static_cast<std::size_t>(plan.boxes[2]) * kLine;
  memory = PixelMemory::Allocate(ring2 + ring3 +
                                 (plan.usesBoxes ? 0 : static_cast<std::size_t>(length) * kStrip));
  if (!memory) throw std::bad_alloc();
  second = reinterpret_cast<std::uint32_t*>(memory.get());
  third = reinterpret_cast<std::uint32_t*>(memory.get() + ring2);
  line = memory.get() + ring2 + ring3;
}

void GaussianBlur(Pixels pixels, const GaussianPlan& plan) {
  AlongX<4>(pixels.data, pixels.stride, pixels.width, pixels.height, plan);
  AlongY(pixels.data, pixels.stride, pixels.height, plan);
}

void GaussianBlur(Grey plane, const GaussianPlan& plan) {
  AlongX<1>(plane.data, plane.stride, plane.width, plane.height, plan);
  AlongY(plane.data, plane.stride, plane.height, plan);
}

namespace reference {

std::vector<double> Kernel(const GaussianPlan& plan) {
  std::vector<double> half;
  if (!plan.usesBoxes) {
    for (const std::uint32_t tap : plan.taps) half.push_back(tap / 65536.0);
    return half;
  }
  std::vector<double> full{1.0};
  for (const int width : plan.boxes) {
    std::vector<double> wider(full.size() + static_cast<std::size_t>(width) - 1);
    for (std::size_t i = 0; i < full.size(); ++i) {
      for (int k = 0; k < width; ++k) wider[i + static_cast<std::size_t>(k)] += full[i] / width;
    }
    full = std::move(wider);
  }
  return {full.begin() + static_cast<std::ptrdiff_t>(full.size() / 2), full.end()};
}

void GaussianBlur(Grey plane, const GaussianPlan& plan) {
  const std::vector<double> kernel = Kernel(plan);
  const int reach = static_cast<int>(kernel.size()) - 1;
  const auto pass = [&](int lines, int length, auto&& at) {
    std::vector<double> line(static_cast<std::size_t>(length));
    for (int j = 0; j < lines; ++j) {
      for (int i = 0; i < length; ++i) line[static_cast<std::size_t>(i)] = at(j, i);
      for (int i = 0; i < length; ++i) {
        double sum = 0;
        for (int k = -reach; k <= reach; ++k) {
          sum += kernel[static_cast<std::size_t>(std::abs(k))] *
                 line[static_cast<std::size_t>(std::clamp(i + k, 0, length - 1))];
        }
        at(j, i) = static_cast<std::uint8_t>(std::lround(sum));
      }
    }
  };
  pass(plane.height, plane.width, [&](int y, int x) -> std::uint8_t& { return plane.Row(y)[x]; });
  pass(plane.width, plane.height, [&](int x, int y) -> std::uint8_t& { return plane.Row(y)[x]; });
}

}  // namespace reference
}  // namespace brivolant::kernels
#endif
