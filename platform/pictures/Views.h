// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

namespace brivolant {

/// Rows of 32-bit pixels (blue, green, red, 255), the form in which kernels see a picture. Every
/// row starts at a multiple of 64 bytes and is padded to one, so kernels may run over its end.
template <class Byte>
struct BasicPixels {
  Byte* data = nullptr;
  std::size_t stride = 0;  ///< Bytes from row to row, a multiple of 64.
  int width = 0;           ///< Pixels.
  int height = 0;

  Byte* Row(int y) const { return data + stride * static_cast<std::size_t>(y); }
  operator BasicPixels<const Byte>() const {  // NOLINT(google-explicit-constructor)
    return {data, stride, width, height};
  }
};

using Pixels = BasicPixels<std::uint8_t>;
using ConstPixels = BasicPixels<const std::uint8_t>;

/// Rows of one byte a pixel, with the same alignment.
template <class Byte>
struct BasicGrey {
  Byte* data = nullptr;
  std::size_t stride = 0;
  int width = 0;
  int height = 0;

  Byte* Row(int y) const { return data + stride * static_cast<std::size_t>(y); }
  operator BasicGrey<const Byte>() const {  // NOLINT(google-explicit-constructor)
    return {data, stride, width, height};
  }
};

using Grey = BasicGrey<std::uint8_t>;
using ConstGrey = BasicGrey<const std::uint8_t>;

}  // namespace brivolant
