// SPDX-License-Identifier: MIT
#include "platform/pictures/kernels/LookKernels.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "platform/pictures/Parallel.h"
#include "platform/pictures/ToneTable.h"

namespace brivolant::kernels {
namespace {

constexpr int kGrain = 32;

/// Calls `change(blue, green, red)` with each pixel's bytes.
template <class Change>
void ForEachPixel(Pixels pixels, Change change) {
  ParallelRows(pixels.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      std::uint8_t* p = pixels.Row(y);
      for (int x = 0; x < pixels.width; ++x, p += 4) change(p[0], p[1], p[2]);
    }
  });
}

}  // namespace

void Desaturate(Pixels pixels) {
  ForEachPixel(pixels, [](std::uint8_t& b, std::uint8_t& g, std::uint8_t& r) {
    const int largest = std::max({b, g, r});
    const int smallest = std::min({b, g, r});
    b = g = r = static_cast<std::uint8_t>((largest + smallest + 1) / 2);
  });
}

void InvertValue(Pixels pixels) {
  ForEachPixel(pixels, [](std::uint8_t& b, std::uint8_t& g, std::uint8_t& r) {
    const int value = std::max({b, g, r});
    if (value == 0) {
      b = g = r = 255;
      return;
    }
    const int target = 255 - value;
    const auto scaled = [value, target](int channel) {
      return static_cast<std::uint8_t>((channel * target + value / 2) / value);
    };
    b = scaled(b);
    g = scaled(g);
    r = scaled(r);
  });
}

void SplitByValue(Pixels pixels, int level, Color dark, Color light) {
  ForEachPixel(pixels, [=](std::uint8_t& b, std::uint8_t& g, std::uint8_t& r) {
    const Color& color = std::max({b, g, r}) >= level ? light : dark;
    b = color.Blue;
    g = color.Green;
    r = color.Red;
  });
}

PaletteLookup::PaletteLookup(std::span<const Color> palette) : nearest_(std::size_t{1} << 15) {
  for (std::size_t i = 0; i < nearest_.size(); ++i) {
    // The middle of the cell, so that black and white find themselves at its ends.
    const auto channel = [i](int shift) {
      const int five = static_cast<int>(i >> shift & 31);
      return five << 3 | five >> 2;
    };
    const int red = channel(10);
    const int green = channel(5);
    const int blue = channel(0);
    double best = std::numeric_limits<double>::max();
    for (const Color& color : palette) {
      const double mean = (red + color.Red) / 2.0;
      const double dr = red - color.Red;
      const double dg = green - color.Green;
      const double db = blue - color.Blue;
      const double distance =
          (2 + mean / 256) * dr * dr + 4 * dg * dg + (2 + (255 - mean) / 256) * db * db;
      if (distance < best) {
        best = distance;
        nearest_[i] = color.RGB();
      }
    }
  }
}

void ReduceToPalette(Pixels pixels, const PaletteLookup& palette) {
  ForEachPixel(pixels, [&palette](std::uint8_t& b, std::uint8_t& g, std::uint8_t& r) {
    const std::uint32_t color = palette.Nearest(r, g, b);
    b = static_cast<std::uint8_t>(color);
    g = static_cast<std::uint8_t>(color >> 8);
    r = static_cast<std::uint8_t>(color >> 16);
  });
}

void FillPixels(Pixels pixels, Color color) {
  // The unused byte too: fresh memory holds anything.
  ParallelRows(pixels.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      std::uint8_t* out = pixels.Row(y);
      for (int x = 0; x < pixels.width; ++x, out += 4) {
        out[0] = color.Blue;
        out[1] = color.Green;
        out[2] = color.Red;
        out[3] = 255;
      }
    }
  });
}

void Enlarge(ConstPixels source, Pixels target) {
  ParallelRows(target.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      const std::uint8_t* in =
          source.Row(static_cast<int>(std::int64_t{y} * source.height / target.height));
      std::uint8_t* out = target.Row(y);
      for (int x = 0; x < target.width; ++x, out += 4) {
        std::memcpy(out, in + 4 * (std::int64_t{x} * source.width / target.width), 4);
      }
    }
  });
}

void FillFadingDisc(Grey plane, double x, double y, double inner, double fade) {
  ParallelRows(plane.height, kGrain, [&](int from, int to) {
    for (int row = from; row < to; ++row) {
      std::uint8_t* out = plane.Row(row);
      const double dy = row + 0.5 - y;
      for (int column = 0; column < plane.width; ++column) {
        const double dx = column + 0.5 - x;
        const double beyond = std::sqrt(dx * dx + dy * dy) - inner;
        const double level = fade <= 0 ? (beyond <= 0 ? 255 : 0) : 255 - beyond * 255 / fade;
        out[column] = ClampedLevel(level);
      }
    }
  });
}

}  // namespace brivolant::kernels
