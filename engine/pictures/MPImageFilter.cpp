// SPDX-License-Identifier: MIT
#include "engine/pictures/MPImageFilter.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <random>

#include "engine/pictures/ConvolutionEffect.h"
#include "engine/pictures/MaskedChange.h"
#include "engine/pictures/PictureEffects.h"
#include "platform/pictures/kernels/WarpKernels.h"

namespace brivolant {
namespace {

using Draw = std::function<void(ConstPixels, Pixels)>;

/// What `draw` makes of the source in a picture of its size, as far as the mask lets it.
Picture Drawn(Picture source, const Plane* mask, const Draw& draw) {
  if (source.IsNil()) return source;
  Picture result = Picture::Uninitialized(source.Width(), source.Height(), source.Depth());
  if (result.IsNil()) return source;
  draw(source.View(), result.Edit());
  result.HorizontalResolution = source.HorizontalResolution;
  result.VerticalResolution = source.VerticalResolution;
  if (const Plane* own = source.Mask()) result.SetMask(*own);
  Take(source, std::move(result), mask);
  return source;
}

/// Share of the shorter side by which a wave swings, and the most of its own length.
constexpr double kSwing = 0.02;
constexpr double kSteepest = 0.12;

}  // namespace

namespace MPImageFilter {

Picture MotionBlur(Picture source, int repetitions, double angle, int distance, int blurType,
                   const Plane* mask) {
  constexpr double kDegreesAUnit = 1.8;
  constexpr int kMostPasses = 7;
  const double length = 1.0 * std::max(repetitions, 0) + std::max(distance, 0);
  if (source.IsNil() || length <= 1) return source;
  if (blurType != kRadial && blurType != kZoom) {
    return Drawn(std::move(source), mask, [&](ConstPixels from, Pixels to) {
      kernels::MotionBlurAlongLine(from, to, length, angle * kDegreesAUnit);
    });
  }
  // A mean over 2^n places is n means of two, each over half the way of the one before.
  const double corner = std::max(std::hypot(source.Width(), source.Height()) / 2, 1.0);
  const double way = length / corner;
  const int passes = std::clamp(static_cast<int>(std::ceil(std::log2(length))), 1, kMostPasses);
  Picture blurred = source;
  double step = way / 2;
  for (int pass = 0; pass < passes; ++pass, step /= 2) {
    const double degrees = blurType == kRadial ? step * 180 / std::numbers::pi : 0;
    const double zoom = blurType == kZoom ? 1 + step : 1;
    blurred = Drawn(std::move(blurred), nullptr, [&](ConstPixels from, Pixels to) {
      kernels::AverageWithTurned(from, to, degrees, zoom);
    });
  }
  Take(source, std::move(blurred), mask);
  return source;
}

double GrainAt(double scale) {
  constexpr double kPixelsAGrain = 1.6;
  return std::max(1.0, scale / kPixelsAGrain);
}

Picture Diffuse(Picture source, int radius, bool blur, double grain, std::uint32_t seed,
                const Plane* mask) {
  if (source.IsNil() || radius <= 0) return source;
  const Picture scattered = Drawn(source, nullptr, [&](ConstPixels from, Pixels to) {
    kernels::Scatter(from, to, radius, grain, seed);
  });
  // Grains are softened by what three times three pixels soften those of one.
  constexpr double kCoarse = 1.5;
  Picture soft = scattered;
  if (blur && grain < kCoarse) soft = ConvolutionEffect().Blur(std::move(soft));
  if (blur && grain >= kCoarse) {
    soft = GaussianBlur(std::numbers::sqrt2 * grain).ApplyEffect(std::move(soft));
  }
  Take(source, std::move(soft), mask);
  return source;
}

Picture WaterDrops(Picture source, int largestDropSize, int density, std::uint32_t seed,
                   const Plane* mask) {
  constexpr double kSmallest = 0.15;
  constexpr int kMostDrops = 100000;
  if (source.IsNil() || largestDropSize <= 0 || density <= 0) return source;
  std::mt19937 random(seed);
  const auto fraction = [&random] {
    return static_cast<double>(random()) / (static_cast<double>(std::mt19937::max()) + 1);
  };
  std::vector<kernels::Drop> drops(static_cast<std::size_t>(std::min(density, kMostDrops)));
  for (kernels::Drop& drop : drops) {
    drop.x = fraction() * source.Width();
    drop.y = fraction() * source.Height();
    // Small drops are many.
    const double size = fraction();
    drop.radius = std::max(largestDropSize * (kSmallest + (1 - kSmallest) * size * size), 1.0);
  }
  return Drawn(std::move(source), mask,
               [&](ConstPixels from, Pixels to) { kernels::ThroughDrops(from, to, drops); });
}

Picture Wave(Picture source, double waves, Color backColor, const Plane* mask) {
  if (source.IsNil() || waves == 0) return source;
  const double amplitude =
      std::min(source.Width(), source.Height()) * std::min(kSwing, kSteepest / std::abs(waves));
  return Drawn(std::move(source), mask, [&](ConstPixels from, Pixels to) {
    kernels::Swing(from, to, waves, amplitude, backColor);
  });
}

Picture OilPaintFilter(Picture source, int brushSize, int smoothness, const Plane* mask) {
  if (source.IsNil() || brushSize <= 0 || smoothness <= 0) return source;
  return Drawn(std::move(source), mask, [&](ConstPixels from, Pixels to) {
    kernels::PaintInOil(from, to, brushSize, smoothness);
  });
}

}  // namespace MPImageFilter

Picture BarrelDistortion::ApplyEffect(Picture source) const {
  constexpr double kStrongest = 0.5;
  const double bend = kStrongest * std::clamp(Distortion, -1.0, 1.0);
  if (bend == 0 && VerticalKeystone == 0 && HorizontalKeystone == 0) return source;
  // A barrel is drawn large enough that its corners reach those of the picture.
  const kernels::Lens lens{bend, bend > 0 ? 1 / (1 + bend) : 1, VerticalKeystone,
                           HorizontalKeystone, Interpolate};
  return Drawn(std::move(source), nullptr,
               [&](ConstPixels from, Pixels to) { kernels::Bend(from, to, lens, BackColor); });
}

}  // namespace brivolant
