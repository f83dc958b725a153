// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace brivolant::codecs {

/// Means of squares of pixels, taken while rows come in. A row has four bytes a pixel, the fourth
/// its opacity if there is such.
class RowShrinker {
 public:
  /// More pixels a side would not fit into the sums.
  static constexpr int kMostFactor = 256;

  /// `factor` is how many pixels a side become one.
  RowShrinker(int width, int height, int factor)
      : factor_(factor),
        width_((width + factor - 1) / factor),
        height_((height + factor - 1) / factor),
        sums_(static_cast<std::size_t>(width_) * kSums) {}

  /// What comes out.
  int Width() const { return width_; }
  int Height() const { return height_; }

  /// Takes a row, unless it is full.
  void Add(const std::uint8_t* row, int width, bool alpha) {
    for (int x = 0, cell = 0; x < width; ++cell) {
      std::uint32_t* sums = sums_.data() + static_cast<std::size_t>(cell) * kSums;
      std::array<std::uint32_t, kSums> sum{};
      const int end = std::min(width, x + factor_);
      for (; x < end; ++x, row += 4) {
        // Transparent pixels have no colour.
        const std::uint32_t weight = alpha ? row[3] : 1;
        for (std::size_t c = 0; c < 3; ++c) sum.at(c) += weight * row[c];
        sum[3] += weight;
        ++sum[4];
      }
      for (std::size_t c = 0; c < kSums; ++c) sums[c] += sum.at(c);
    }
    ++rows_;
  }
  /// True if the rows make one.
  bool Full() const { return rows_ == factor_; }
  bool Empty() const { return rows_ == 0; }

  /// The means as a row, with the share of opacity as the fourth byte; then starts afresh.
  void Take(std::uint8_t* row, bool alpha) {
    const std::uint32_t* sums = sums_.data();
    for (int x = 0; x < width_; ++x, sums += kSums, row += 4) {
      const std::uint32_t weight = std::max<std::uint32_t>(1, sums[3]);
      for (std::size_t c = 0; c < 3; ++c) {
        row[c] = static_cast<std::uint8_t>((sums[c] + weight / 2) / weight);
      }
      row[3] = alpha ? static_cast<std::uint8_t>((sums[3] + sums[4] / 2) / sums[4]) : 255;
    }
    std::fill(sums_.begin(), sums_.end(), 0);
    rows_ = 0;
  }

 private:
  /// Blue, green and red times weight, weight, and pixels.
  static constexpr std::size_t kSums = 5;
  int factor_;
  int width_;
  int height_;
  int rows_ = 0;
  std::vector<std::uint32_t> sums_;
};

}  // namespace brivolant::codecs
