// SPDX-License-Identifier: MIT
#include "platform/pictures/kernels/ScaleKernels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <vector>

#include "platform/pictures/Parallel.h"
#include "platform/pictures/PixelMemory.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/pictures/kernels/ScaleKernels.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace brivolant::kernels {
namespace HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

/// One target row before it is scaled along x: the weighted sum of source rows, in 1/256 levels.
HWY_ATTR void SumRows(const std::uint8_t* top, std::size_t stride, int taps,
                      const std::int32_t* weights, std::size_t bytes, std::uint16_t* sum) {
  const hn::ScalableTag<std::int32_t> d;
  const hn::Rebind<std::uint8_t, decltype(d)> d8;
  const hn::Rebind<std::uint16_t, decltype(d)> d16;
  const auto half = hn::Set(d, 32);
  for (std::size_t i = 0; i < bytes; i += hn::Lanes(d)) {
    auto total = half;
    for (int k = 0; k < taps; ++k) {
      const auto level =
          hn::PromoteTo(d, hn::Load(d8, top + stride * static_cast<std::size_t>(k) + i));
      total = hn::Add(total, hn::Mul(level, hn::Set(d, weights[k])));
    }
    hn::Store(hn::DemoteTo(d16, hn::ShiftRight<6>(total)), d16, sum + i);
  }
}

/// Along x for four channels a pixel.
HWY_ATTR void SumPixels(const std::uint16_t* sum, const ScalePlan& plan, int width,
                        std::uint8_t* target) {
  const hn::CappedTag<std::int32_t, 4> d;
  const hn::Rebind<std::uint16_t, decltype(d)> d16;
  const hn::Rebind<std::uint8_t, decltype(d)> d8;
  const auto half = hn::Set(d, 1 << 21);
  const int taps = plan.Taps();
  for (int x = 0; x < width; ++x) {
    const std::uint16_t* first = sum + std::ptrdiff_t{4} * plan.First(x);
    const std::int32_t* weights = plan.Weights(x);
    auto total = half;
    for (int k = 0; k < taps; ++k) {
      const auto level = hn::PromoteTo(d, hn::LoadU(d16, first + std::ptrdiff_t{4} * k));
      total = hn::Add(total, hn::Mul(level, hn::Set(d, weights[k])));
    }
    hn::StoreU(hn::DemoteTo(d8, hn::ShiftRight<22>(total)), d8, target + std::ptrdiff_t{4} * x);
  }
}

}  // namespace HWY_NAMESPACE
}  // namespace brivolant::kernels
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace brivolant::kernels {

HWY_EXPORT(SumRows);
HWY_EXPORT(SumPixels);

ScalePlan::ScalePlan(int sourceSize, double from, double extent, int targetSize) {
  constexpr int kUnit = 16384;
  // Farther away there is only border.
  constexpr double kFarthest = 1 << 29;
  from = std::isfinite(from) ? std::clamp(from, -kFarthest, kFarthest) : 0;
  extent = std::isfinite(extent) ? std::clamp(extent, 0.0, kFarthest) : sourceSize;
  const double step = extent / targetSize;
  const double reach = std::max(1.0, step);
  taps_ = std::min(sourceSize, static_cast<int>(std::ceil(reach)) * 2 + 1);
  first_.resize(static_cast<std::size_t>(targetSize));
  weights_.resize(static_cast<std::size_t>(targetSize) * static_cast<std::size_t>(taps_));
  std::vector<double> weight(static_cast<std::size_t>(taps_));
  for (int t = 0; t < targetSize; ++t) {
    const double center = from + (t + 0.5) * step - 0.5;
    const int lowest = static_cast<int>(std::ceil(center - reach));
    const int first = std::clamp(lowest, 0, sourceSize - taps_);
    std::fill(weight.begin(), weight.end(), 0.0);
    double sum = 0;
    for (int s = lowest; s < center + reach; ++s) {
      const double w = 1 - std::abs(s - center) / reach;
      if (w <= 0) continue;
      const int at = std::clamp(std::clamp(s, 0, sourceSize - 1) - first, 0, taps_ - 1);
      weight[static_cast<std::size_t>(at)] += w;
      sum += w;
    }
    std::int32_t* row = weights_.data() + static_cast<std::size_t>(t) * weight.size();
    std::int32_t rest = kUnit;
    std::size_t largest = 0;
    for (std::size_t k = 0; k < weight.size(); ++k) {
      row[k] = static_cast<std::int32_t>(std::lround(weight[k] / sum * kUnit));
      rest -= row[k];
      if (row[k] > row[largest]) largest = k;
    }
    // Rounding must not darken or brighten: what is missing goes to the largest weight.
    row[largest] += rest;
    first_[static_cast<std::size_t>(t)] = first;
  }
}

namespace {

template <class Finish>
void ScaleRows(const std::uint8_t* source, std::size_t stride, const ScalePlan& down, int height,
               std::size_t bytes, Finish finish) {
  ParallelRows(height, 8, [&](int from, int to) {
    const std::size_t padded = (bytes + 63) / 64 * 64;
    const auto memory = PixelMemory::Allocate(padded * sizeof(std::uint16_t));
    if (!memory) throw std::bad_alloc();
    auto* sum = reinterpret_cast<std::uint16_t*>(memory.get());
    for (int y = from; y < to; ++y) {
      const std::uint8_t* top = source + stride * static_cast<std::size_t>(down.First(y));
      HWY_DYNAMIC_DISPATCH(SumRows)(top, stride, down.Taps(), down.Weights(y), padded, sum);
      finish(y, sum);
    }
  });
}

std::uint8_t SumBytes(const std::uint16_t* sum, const ScalePlan& plan, int x) {
  std::int32_t total = 1 << 21;
  const std::int32_t* weights = plan.Weights(x);
  for (int k = 0; k < plan.Taps(); ++k) total += sum[plan.First(x) + k] * weights[k];
  return static_cast<std::uint8_t>(total >> 22);
}

}  // namespace

void Scale(ConstPixels source, const SourceArea& area, Pixels target) {
  const ScalePlan across(source.width, area.x, area.width, target.width);
  const ScalePlan down(source.height, area.y, area.height, target.height);
  ScaleRows(source.data, source.stride, down, target.height,
            static_cast<std::size_t>(source.width) * 4, [&](int y, const std::uint16_t* sum) {
              HWY_DYNAMIC_DISPATCH(SumPixels)(sum, across, target.width, target.Row(y));
            });
}

void Scale(ConstGrey source, const SourceArea& area, Grey target) {
  const ScalePlan across(source.width, area.x, area.width, target.width);
  const ScalePlan down(source.height, area.y, area.height, target.height);
  ScaleRows(source.data, source.stride, down, target.height, static_cast<std::size_t>(source.width),
            [&](int y, const std::uint16_t* sum) {
              for (int x = 0; x < target.width; ++x) target.Row(y)[x] = SumBytes(sum, across, x);
            });
}

namespace {

/// The source pixel in which the middle of a target pixel lies.
int Beneath(double from, double step, int target, int size) {
  return static_cast<int>(std::clamp(std::floor(from + (target + 0.5) * step), 0.0, size - 1.0));
}

}  // namespace

void Magnify(ConstPixels source, const SourceArea& area, Pixels target) {
  constexpr std::size_t kPixel = 4;
  std::vector<int> columns(static_cast<std::size_t>(target.width));
  for (int x = 0; x < target.width; ++x) {
    columns[static_cast<std::size_t>(x)] =
        Beneath(area.x, area.width / target.width, x, source.width);
  }
  ParallelRows(target.height, 16, [&](int from, int to) {
    int last = -1;
    for (int y = from; y < to; ++y) {
      const int row = Beneath(area.y, area.height / target.height, y, source.height);
      auto* pixels = reinterpret_cast<std::uint32_t*>(target.Row(y));
      if (row == last) {
        std::memcpy(pixels, target.Row(y - 1), kPixel * columns.size());
        continue;
      }
      const auto* beneath = reinterpret_cast<const std::uint32_t*>(source.Row(row));
      for (std::size_t x = 0; x < columns.size(); ++x) pixels[x] = beneath[columns[x]];
      last = row;
    }
  });
}

void reference::Magnify(ConstPixels source, const SourceArea& area, Pixels target) {
  for (int y = 0; y < target.height; ++y) {
    for (int x = 0; x < target.width; ++x) {
      const int sx = Beneath(area.x, area.width / target.width, x, source.width);
      const int sy = Beneath(area.y, area.height / target.height, y, source.height);
      std::copy_n(source.Row(sy) + std::ptrdiff_t{4} * sx, 4,
                  target.Row(y) + std::ptrdiff_t{4} * x);
    }
  }
}

void reference::Scale(ConstGrey source, const SourceArea& area, Grey target) {
  // In double precision, with the triangle evaluated where it is needed.
  const double stepX = area.width / target.width;
  const double stepY = area.height / target.height;
  const auto weigh = [](double center, double reach, int size, auto&& add) {
    for (int s = static_cast<int>(std::floor(center - reach)); s <= center + reach; ++s) {
      const double w = 1 - std::abs(s - center) / reach;
      if (w > 0) add(std::clamp(s, 0, size - 1), w);
    }
  };
  for (int y = 0; y < target.height; ++y) {
    for (int x = 0; x < target.width; ++x) {
      double sum = 0;
      double weight = 0;
      weigh(area.y + (y + 0.5) * stepY - 0.5, std::max(1.0, stepY), source.height,
            [&](int sy, double wy) {
              weigh(area.x + (x + 0.5) * stepX - 0.5, std::max(1.0, stepX), source.width,
                    [&](int sx, double wx) {
                      sum += wx * wy * source.Row(sy)[sx];
                      weight += wx * wy;
                    });
            });
      target.Row(y)[x] = static_cast<std::uint8_t>(std::lround(sum / weight));
    }
  }
}

}  // namespace brivolant::kernels
#endif
