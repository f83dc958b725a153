// SPDX-License-Identifier: MIT
#include "platform/pictures/kernels/WarpKernels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numbers>

#include "platform/pictures/Parallel.h"
#include "platform/pictures/kernels/TurnKernels.h"

namespace brivolant::kernels {
namespace {

constexpr int kGrain = 16;
constexpr double kDegree = std::numbers::pi / 180;

/// Four bytes of a colour as pixels hold them.
struct Bytes {
  explicit Bytes(Color color) : value{color.Blue, color.Green, color.Red, 255} {}
  std::uint8_t value[4];
};

/// Interpolates between four pixels at a position that lies inside.
void Interpolate(const std::uint8_t* a, const std::uint8_t* b, const std::uint8_t* c,
                 const std::uint8_t* d, int wx, int wy, std::uint8_t* out) {
  for (int k = 0; k < 3; ++k) {
    const int top = a[k] * (256 - wx) + b[k] * wx;
    const int bottom = c[k] * (256 - wx) + d[k] * wx;
    out[k] = static_cast<std::uint8_t>((top * (256 - wy) + bottom * wy + 32768) >> 16);
  }
  out[3] = 255;
}

/// The pixel at a position whose pixels' middles are whole numbers; the border goes on.
void SampleClamped(ConstPixels source, double x, double y, std::uint8_t* out) {
  x = std::clamp(x, 0.0, source.width - 1.0);
  y = std::clamp(y, 0.0, source.height - 1.0);
  const int x0 = static_cast<int>(x);
  const int y0 = static_cast<int>(y);
  const std::uint8_t* upper = source.Row(y0);
  const std::uint8_t* lower = source.Row(std::min(y0 + 1, source.height - 1));
  const std::ptrdiff_t left = std::ptrdiff_t{4} * x0;
  const std::ptrdiff_t right = std::ptrdiff_t{4} * std::min(x0 + 1, source.width - 1);
  Interpolate(upper + left, upper + right, lower + left, lower + right,
              static_cast<int>((x - x0) * 256), static_cast<int>((y - y0) * 256), out);
}

/// The same, fading to a colour within a pixel beyond the border.
void SampleOver(ConstPixels source, double x, double y, const Bytes& back, std::uint8_t* out) {
  if (!(x > -1 && y > -1 && x < source.width && y < source.height)) {
    std::memcpy(out, back.value, 4);
    return;
  }
  const int x0 = static_cast<int>(x + 1) - 1;
  const int y0 = static_cast<int>(y + 1) - 1;
  const auto pixel = [&](int px, int py) {
    const bool inside = px >= 0 && py >= 0 && px < source.width && py < source.height;
    return inside ? source.Row(py) + std::ptrdiff_t{4} * px : back.value;
  };
  Interpolate(pixel(x0, y0), pixel(x0 + 1, y0), pixel(x0, y0 + 1), pixel(x0 + 1, y0 + 1),
              static_cast<int>((x - x0) * 256), static_cast<int>((y - y0) * 256), out);
}

/// Calls `draw(x, y, out)` for every pixel of the target.
template <class DrawPixel>
void ForEach(Pixels target, DrawPixel draw) {
  ParallelRows(target.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      std::uint8_t* out = target.Row(y);
      for (int x = 0; x < target.width; ++x, out += 4) draw(x, y, out);
    }
  });
}

/// A running mean along the digital lines y = b + slope * x, |slope| at most 1: every pixel lies
/// on one of them. `reach` pixels of x on each side.
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
  const std::uint32_t inverse = (1U << 24) / count;
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
      for (int x = -reach; x <= reach; ++x) {
        for (int k = 0; k < 3; ++k) sum[k] += pixel(x)[k];
      }
      for (int x = 0; x < width; ++x) {
        const int y = b + rise[static_cast<std::size_t>(x)];
        if (y >= 0 && y < height) {
          std::uint8_t* out = target.Row(y) + std::ptrdiff_t{4} * x;
          for (int k = 0; k < 3; ++k) {
            out[k] = static_cast<std::uint8_t>(std::uint64_t{sum[k]} * inverse >> 24);
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

/// A number that depends on all bits of its arguments (the finaliser of MurmurHash3).
std::uint32_t Mixed(std::uint32_t x, std::uint32_t y, std::uint32_t seed) {
  std::uint32_t h = x * 0x9E3779B1U ^ (y * 0x85EBCA77U + seed * 0xC2B2AE3DU);
  h ^= h >> 16;
  h *= 0x85EBCA6BU;
  h ^= h >> 13;
  h *= 0xC2B2AE35U;
  return h ^ h >> 16;
}

}  // namespace

void MotionBlurAlongLine(ConstPixels source, Pixels target, double length, double degrees) {
  double angle = std::fmod(degrees, 180);
  if (angle < 0) angle += 180;
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

void AverageWithTurned(ConstPixels source, Pixels target, double degrees, double zoom) {
  const double cosine = std::cos(degrees * kDegree) / zoom;
  const double sine = std::sin(degrees * kDegree) / zoom;
  const double cx = (source.width - 1) / 2.0;
  const double cy = (source.height - 1) / 2.0;
  ForEach(target, [&](int x, int y, std::uint8_t* out) {
    const double dx = x - cx;
    const double dy = y - cy;
    SampleClamped(source, cx + dx * cosine + dy * sine, cy - dx * sine + dy * cosine, out);
    const std::uint8_t* own = source.Row(y) + std::ptrdiff_t{4} * x;
    for (int k = 0; k < 3; ++k) out[k] = static_cast<std::uint8_t>((out[k] + own[k] + 1) / 2);
  });
}

void Scatter(ConstPixels source, Pixels target, double radius, int grain, std::uint32_t seed) {
  // Places spread evenly over the disc along a sunflower's spiral (H. Vogel); the dice choose one.
  constexpr int kPlaces = 4096;
  constexpr double kGolden = 2.399963229728653;
  struct Place {
    int x;
    int y;
  };
  std::vector<Place> places(kPlaces);
  for (int i = 0; i < kPlaces; ++i) {
    const double distance = radius * std::sqrt((i + 0.5) / kPlaces);
    places[static_cast<std::size_t>(i)] = {
        static_cast<int>(std::lround(distance * std::cos(i * kGolden))),
        static_cast<int>(std::lround(distance * std::sin(i * kGolden)))};
  }
  const int cell = std::max(grain, 1);
  ForEach(target, [&](int x, int y, std::uint8_t* out) {
    const std::uint32_t bits =
        Mixed(static_cast<std::uint32_t>(x / cell), static_cast<std::uint32_t>(y / cell), seed);
    const Place& place = places[bits % kPlaces];
    std::memcpy(out,
                source.Row(std::clamp(y + place.y, 0, source.height - 1)) +
                    std::ptrdiff_t{4} * std::clamp(x + place.x, 0, source.width - 1),
                4);
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

void Swing(ConstPixels source, Pixels target, double waves, double amplitude, Color back) {
  const Bytes outside(back);
  const double period = 2 * std::numbers::pi * waves;
  std::vector<double> across(static_cast<std::size_t>(source.width));
  for (int x = 0; x < source.width; ++x) {
    across[static_cast<std::size_t>(x)] = amplitude * std::sin(period * x / source.width);
  }
  std::vector<double> down(static_cast<std::size_t>(source.height));
  for (int y = 0; y < source.height; ++y) {
    down[static_cast<std::size_t>(y)] = amplitude * std::sin(period * y / source.height);
  }
  ForEach(target, [&](int x, int y, std::uint8_t* out) {
    SampleOver(source, x + down[static_cast<std::size_t>(y)],
               y + across[static_cast<std::size_t>(x)], outside, out);
  });
}

void Bend(ConstPixels source, Pixels target, const Lens& lens, Color back) {
  const Bytes outside(back);
  const double cx = (source.width - 1) / 2.0;
  const double cy = (source.height - 1) / 2.0;
  const double reach = std::max(std::hypot(cx, cy), 0.5);
  const double inverse = 1 / reach;
  const double scale = lens.scale * reach;
  const bool keystone = lens.verticalKeystone != 0 || lens.horizontalKeystone != 0;
  ForEach(target, [&](int x, int y, std::uint8_t* out) {
    double dx = (x - cx) * inverse;
    double dy = (y - cy) * inverse;
    if (keystone) {
      const double depth = 1 + lens.verticalKeystone * dy + lens.horizontalKeystone * dx;
      dx /= depth;
      dy /= depth;
    }
    const double factor = scale * (1 + lens.bend * (dx * dx + dy * dy));
    SampleOver(source, cx + dx * factor, cy + dy * factor, outside, out);
  });
}

void ThroughDrops(ConstPixels source, Pixels target, const std::vector<Drop>& drops) {
  constexpr double kRefraction = 1.6;
  constexpr double kHighlight = 0.55;
  constexpr double kShade = 0.35;
  ParallelRows(target.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) std::memcpy(target.Row(y), source.Row(y), target.stride);
    for (const Drop& drop : drops) {
      const int top = std::max(static_cast<int>(std::ceil(drop.y - drop.radius)), from);
      const int bottom = std::min(static_cast<int>(drop.y + drop.radius) + 1, to);
      for (int y = top; y < bottom; ++y) {
        const double v = (y - drop.y) / drop.radius;
        const double half = std::sqrt(std::max(1 - v * v, 0.0));
        const int left = std::max(static_cast<int>(std::ceil(drop.x - half * drop.radius)), 0);
        const int right = std::min(static_cast<int>(drop.x + half * drop.radius) + 1, target.width);
        for (int x = left; x < right; ++x) {
          const double u = (x - drop.x) / drop.radius;
          const double r2 = u * u + v * v;
          if (r2 >= 1) continue;
          // A ball lens turns what lies under it over; towards its rim it looks far aside.
          const double bend = kRefraction * (r2 * r2 + 0.35);
          std::uint8_t bent[4];
          SampleClamped(source, drop.x - u * bend * drop.radius, drop.y - v * bend * drop.radius,
                        bent);
          // Lit from the top left: dark towards it inside, bright opposite, and a spot.
          const double light = kShade * (u + v) * std::sqrt(r2);
          const double spot = std::max(0.0, 1 - std::hypot(u + 0.4, v + 0.4) / 0.22);
          const double edge = std::clamp((1 - std::sqrt(r2)) * drop.radius, 0.0, 1.0);
          std::uint8_t* out = target.Row(y) + std::ptrdiff_t{4} * x;
          for (int k = 0; k < 3; ++k) {
            const double lit = bent[k] * (1 + light) + 255 * kHighlight * spot;
            const double level = out[k] + (std::clamp(lit, 0.0, 255.0) - out[k]) * edge;
            out[k] = static_cast<std::uint8_t>(std::lround(level));
          }
        }
      }
    }
  });
}

}  // namespace brivolant::kernels
