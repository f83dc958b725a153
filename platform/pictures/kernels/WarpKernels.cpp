// SPDX-License-Identifier: MIT
#include "platform/pictures/kernels/WarpKernels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numbers>
#include <vector>

#include "platform/pictures/Noise.h"
#include "platform/pictures/Parallel.h"
#include "platform/pictures/kernels/TurnKernels.h"

namespace brivolant::kernels {
namespace {

constexpr int kGrain = 16;
constexpr double kDegree = std::numbers::pi / 180;

/// No line is longer: the sums stay within 32 bits.
constexpr double kFarthest = 1 << 20;

/// A running mean along the digital lines y = b + slope * x, |slope| at most 1: every pixel lies
/// on one of them. `reach` pixels of x on each side, 0 to kFarthest.
void BlurAlongFlatLines(ConstPixels source, Pixels target, double slope, int reach) {
  const int width = source.width;
  const int height = source.height;
  std::vector<int> rise(static_cast<std::size_t>(width));
  for (int x = 0; x < width; ++x) {
    rise[static_cast<std::size_t>(x)] = static_cast<int>(std::lround(slope * x));
  }
  const int lowest = std::min(0, rise.back());
  const int highest = std::max(0, rise.back());
  const int lines = height + highest - lowest;
  const std::uint32_t count = 2 * static_cast<std::uint32_t>(reach) + 1;
  const std::uint64_t inverse = (std::uint64_t{1} << 32U) / count;
  // Of the line through the first pixel, those that lie inside and to its right.
  const int inside = std::min(reach, width - 1);
  ParallelRows(lines, kGrain, [&](int from, int to) {
    for (int line = from; line < to; ++line) {
      const int b = line - highest;
      // Beyond the borders the line goes on in its nearest pixel.
      const auto pixel = [&](int x) {
        x = std::clamp(x, 0, width - 1);
        const int y = std::clamp(b + rise[static_cast<std::size_t>(x)], 0, height - 1);
        return source.Row(y) + std::ptrdiff_t{4} * x;
      };
      std::uint32_t sum[3] = {count / 2, count / 2, count / 2};
      for (int k = 0; k < 3; ++k) {
        sum[k] += static_cast<std::uint32_t>(reach) * pixel(0)[k];
        sum[k] += static_cast<std::uint32_t>(reach - inside) * pixel(width - 1)[k];
        for (int x = 0; x <= inside; ++x) sum[k] += pixel(x)[k];
      }
      for (int x = 0; x < width; ++x) {
        const int y = b + rise[static_cast<std::size_t>(x)];
        if (y >= 0 && y < height) {
          std::uint8_t* out = target.Row(y) + std::ptrdiff_t{4} * x;
          for (int k = 0; k < 3; ++k) {
            out[k] = static_cast<std::uint8_t>(sum[k] * inverse >> 32U);
          }
          out[3] = 255;
        }
        const std::uint8_t* comes = pixel(x + reach + 1);
        const std::uint8_t* goes = pixel(x - reach);
        for (int k = 0; k < 3; ++k) sum[k] += comes[k] - std::uint32_t{goes[k]};
      }
    }
  });
}

}  // namespace

void MotionBlurAlongLine(ConstPixels source, Pixels target, double length, double degrees) {
  double angle = std::isfinite(degrees) ? std::fmod(degrees, 180) : 0;
  if (angle < 0) angle += 180;
  length = std::min(std::max(0.0, length), 2 * kFarthest);
  const double dx = std::cos(angle * kDegree);
  const double dy = std::sin(angle * kDegree);
  if (std::abs(dx) >= std::abs(dy)) {
    BlurAlongFlatLines(source, target, dy / dx,
                       static_cast<int>(std::lround(length * std::abs(dx) / 2)));
    return;
  }
  // Steep lines are flat ones of the exchanged picture.
  const std::size_t stride = (static_cast<std::size_t>(source.height) * 4 + 63) / 64 * 64;
  const std::size_t size = stride * static_cast<std::size_t>(source.width);
  std::vector<std::uint8_t> exchanged(size);
  std::vector<std::uint8_t> blurred(size);
  const Pixels from{exchanged.data(), stride, source.height, source.width};
  const Pixels to{blurred.data(), stride, source.height, source.width};
  TurnPixels(source, from, {.exchange = true});
  BlurAlongFlatLines({exchanged.data(), stride, source.height, source.width}, to, dx / dy,
                     static_cast<int>(std::lround(length * dy / 2)));
  TurnPixels({blurred.data(), stride, source.height, source.width}, target, {.exchange = true});
}

void Scatter(ConstPixels source, Pixels target, double radius, double grain, std::uint32_t seed) {
  // Places spread evenly over the disc along a sunflower's spiral (H. Vogel); the dice choose one.
  constexpr int kPlaces = 4096;
  constexpr double kGolden = 2.399963229728653;
  struct Place {
    int x;
    int y;
  };
  std::vector<Place> places(kPlaces);
  // Farther than the picture is wide and high, all is its border.
  radius = std::min(std::max(0.0, radius), 1.0 * source.width + source.height);
  for (int i = 0; i < kPlaces; ++i) {
    const double distance = radius * std::sqrt((i + 0.5) / kPlaces);
    places[static_cast<std::size_t>(i)] = {
        static_cast<int>(std::lround(distance * std::cos(i * kGolden))),
        static_cast<int>(std::lround(distance * std::sin(i * kGolden)))};
  }
  const double cell = std::max(grain, 1.0);
  const auto cellOf = [cell](int at) { return static_cast<std::uint32_t>(at / cell); };
  ParallelRows(target.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      std::uint8_t* out = target.Row(y);
      const std::uint32_t row = cellOf(y);
      for (int x = 0; x < target.width;) {
        const std::uint32_t column = cellOf(x);
        const Place& place = places[HashOf(column, row, seed) % kPlaces];
        const std::uint8_t* in = source.Row(std::clamp(y + place.y, 0, source.height - 1));
        const int next = static_cast<int>(std::ceil((column + 1.0) * cell));
        const int end = std::clamp(next, x + 1, target.width);
        for (; x < end; ++x, out += 4) {
          std::memcpy(out, in + std::ptrdiff_t{4} * std::clamp(x + place.x, 0, source.width - 1),
                      4);
        }
      }
    }
  });
}

namespace {

/// The pixels of a window by their class of brightness; one column comes and one goes at a step.
class BrightnessClasses {
 public:
  explicit BrightnessClasses(int levels) : levels_(std::clamp(levels, 1, 255)) {}

  void Clear() { classes_ = {}; }
  void Change(const std::uint8_t* pixel, int by) {
    Class& c = classes_[static_cast<std::size_t>((pixel[0] + pixel[1] + pixel[2]) * levels_ / 765)];
    c.count += by;
    c.blue += by * pixel[0];
    c.green += by * pixel[1];
    c.red += by * pixel[2];
  }
  void MeanOfFullest(std::uint8_t* out) const {
    const Class* fullest = classes_.data();
    for (int i = 1; i <= levels_; ++i) {
      const Class& c = classes_[static_cast<std::size_t>(i)];
      if (c.count > fullest->count) fullest = &c;
    }
    out[0] = static_cast<std::uint8_t>(fullest->blue / fullest->count);
    out[1] = static_cast<std::uint8_t>(fullest->green / fullest->count);
    out[2] = static_cast<std::uint8_t>(fullest->red / fullest->count);
    out[3] = 255;
  }

 private:
  struct Class {
    int count = 0;
    int blue = 0;
    int green = 0;
    int red = 0;
  };
  std::array<Class, 256> classes_{};
  int levels_;
};

}  // namespace

void PaintInOil(ConstPixels source, Pixels target, int radius, int levels) {
  // The sums of a class stay within 32 bits.
  constexpr int kWidest = 1024;
  radius = std::clamp(radius, 0, kWidest);
  ParallelRows(target.height, kGrain, [&](int from, int to) {
    BrightnessClasses classes(levels);
    for (int y = from; y < to; ++y) {
      const int top = std::max(y - radius, 0);
      const int bottom = std::min(y + radius, source.height - 1);
      const auto column = [&](int x, int by) {
        if (x < 0 || x >= source.width) return;
        for (int row = top; row <= bottom; ++row) {
          classes.Change(source.Row(row) + std::ptrdiff_t{4} * x, by);
        }
      };
      classes.Clear();
      for (int x = 0; x < radius; ++x) column(x, 1);
      for (int x = 0; x < target.width; ++x) {
        column(x + radius, 1);
        column(x - radius - 1, -1);
        classes.MeanOfFullest(target.Row(y) + std::ptrdiff_t{4} * x);
      }
    }
  });
}

}  // namespace brivolant::kernels
