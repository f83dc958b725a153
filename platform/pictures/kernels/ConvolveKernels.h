// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

#include "platform/pictures/Views.h"

namespace brivolant::kernels {

/// Weights of a pixel and its eight neighbours, row by row, and what their sum is divided by and
/// then grows by.
struct Convolution3x3 {
  std::array<std::int32_t, 9> weights;
  std::int32_t divisor = 1;
  std::int32_t offset = 0;
};

/// Every channel of every pixel becomes the weighted sum, rounded and limited to 0 to 255. Beyond
/// the border the outermost pixels go on. Source and target have one size and are not the same.
void Convolve(ConstPixels source, Pixels target, const Convolution3x3& convolution);

}  // namespace brivolant::kernels
