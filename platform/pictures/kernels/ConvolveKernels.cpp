// SPDX-License-Identifier: MIT
#include "platform/pictures/kernels/ConvolveKernels.h"

#include <algorithm>
#include <cmath>

#include "platform/pictures/Parallel.h"

namespace brivolant::kernels {
namespace {

constexpr int kGrain = 16;

std::uint8_t Level(std::int32_t sum, const Convolution3x3& c) {
  const std::int32_t half = c.divisor / 2;
  const std::int32_t rounded = sum >= 0 ? (sum + half) / c.divisor : (sum - half) / c.divisor;
  return static_cast<std::uint8_t>(std::clamp(rounded + c.offset, 0, 255));
}

}  // namespace

void Convolve(ConstPixels source, Pixels target, const Convolution3x3& convolution) {
  const auto& w = convolution.weights;
  ParallelRows(source.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      const std::uint8_t* above = source.Row(std::max(y - 1, 0));
      const std::uint8_t* here = source.Row(y);
      const std::uint8_t* below = source.Row(std::min(y + 1, source.height - 1));
      std::uint8_t* out = target.Row(y);
      for (int x = 0; x < source.width; ++x) {
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
      }
    }
  });
}

}  // namespace brivolant::kernels
