// SPDX-License-Identifier: MIT
// What is exported is what was shown: every effect at the size of a preview and of a full-size
// photo.
#include <gtest/gtest.h>

#include <cmath>

#include "Helpers.h"
#include "effects/EffectRegistry.h"
#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "platform/pictures/Parallel.h"

namespace brivolant::test {
namespace {

/// A number from 0 to 1 that looks like chance, the same for the same place.
double Grain(int x, int y) {
  auto mixed =
      static_cast<std::uint32_t>(x) * 73856093U ^ static_cast<std::uint32_t>(y) * 19349663U;
  mixed = (mixed ^ mixed >> 13U) * 1274126177U;
  return (mixed ^ mixed >> 16U) / 4294967295.0;
}

/// A scene as photos hold them: a soft sky, a hard disc, twigs in all directions, leaves, a wall of
/// stripes, and as much grain as keeps gradients from having steps.
Picture Scene(int width) {
  const int height = width * 2 / 3;
  Picture picture = Picture::Uninitialized(width, height);
  const Pixels pixels = picture.Edit();
  ParallelRows(height, 16, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      for (int x = 0; x < width; ++x) {
        // In units of a thousandth of the width.
        const double u = 1000.0 * x / width;
        const double v = 1000.0 * y / width;
        double red = 90 + 0.07 * u;
        double green = 120 + 0.08 * v;
        double blue = 150 + 60 * std::sin(0.009 * u + 0.006 * v);
        if (std::hypot(u - 640, v - 250) < 140) {
          red = 205;
          green = 70 + 0.2 * v;
          blue = 50;
        }
        if (u < 300 && v > 380) {
          // Leaves, all darker than the middle grey: two tones have no smooth edges at any size.
          const double leaf = std::sin(0.55 * u + 2 * std::sin(0.05 * v)) * std::sin(0.48 * v);
          red = leaf > 0.15 ? 70 : 35;
          green = leaf > 0.15 ? 115 : 60;
          blue = leaf > 0.15 ? 50 : 30;
        }
        if (u > 700 && v > 430) {
          // Stripes of ten pixels of a preview, all brighter.
          const double wave = std::sin(0.8 * u + 0.6 * v);
          red = 195 + 25 * wave;
          green = 190 + 25 * wave;
          blue = 180 + 25 * wave;
        }
        for (int twig = 0; twig < 9; ++twig) {
          const double angle = 0.35 * twig;
          const double across = (u - 330) * std::sin(angle) - (v - 200) * std::cos(angle);
          const double along = (u - 330) * std::cos(angle) + (v - 200) * std::sin(angle);
          if (std::abs(across) < 1.2 && along > 30 && along < 170) red = green = blue = 28;
        }
        const double grain = 1.2 * (Grain(x, y) - 0.5);
        const auto level = [grain](double value) {
          return static_cast<std::uint8_t>(std::lround(std::clamp(value + grain, 0.0, 255.0)));
        };
        std::uint8_t* p = pixels.Row(y) + std::ptrdiff_t{4} * x;
        p[0] = level(blue);
        p[1] = level(green);
        p[2] = level(red);
        p[3] = 255;
      }
    }
  });
  return picture;
}

double MeanDifference(const Picture& a, const Picture& b) {
  double sum = 0;
  for (int y = 0; y < a.Height(); ++y) {
    const std::uint8_t* p = a.View().Row(y);
    const std::uint8_t* q = b.View().Row(y);
    for (int i = 0; i < 4 * a.Width(); ++i) sum += std::abs(p[i] - q[i]);
  }
  return sum / (3.0 * a.Width() * a.Height());
}

/// The picture with one effect of the foreground, each menu on `item` if it has as many.
Picture Rendered(const Picture& picture, const TestServices& services, int row, int item) {
  brivolantProcessorLite processor(EffectRegistry(), services.services);
  processor.Startup();
  processor.Seed(7);
  effectModule& module = *processor.item(row);
  for (int i = 0; i < module.ControlCount(); ++i) {
    if (!module.Control(i).Menu) continue;
    // A texture must be chosen before it shows.
    const bool open = module.ControlValue(i).ToInt() < 0;
    const auto items = static_cast<int>(module.Control(i).Menu->Children.size());
    if (open) module.ControlValue(i, 0);
    if (item > 0 && item < items) module.ControlValue(i, item);
  }
  module.Enabled(true);
  return processor.Process(picture, {});
}

TEST(Agreement, OfPreviewAndExportForEveryModule) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "24 megapixels through every effect take too long under the sanitizers";
#endif
  constexpr int kSmall = 1600;
  constexpr int kLarge = 6000;
  // Mean difference of a channel, of 255.
  constexpr double kBound = 2.5;
  const Picture large = Scene(kLarge);
  const Picture small = SharedPictureEffects::Scale(large, kSmall, kSmall * 2 / 3,
                                                    SharedPictureEffects::kScaleExactly);
  TestServices services;
  brivolantProcessorLite names(EffectRegistry(), services.services);
  names.Startup();
  int compared = 0;
  for (int row = 0; row <= names.Count(); ++row) {
    effectModule& module = *names.item(row);
    if (!module.Complete() || dynamic_cast<const EffectModuleDivider*>(&module) != nullptr)
      continue;
    // Modes of one effect that are effects of their own.
    const int last = module.Name() == "Line Art" || module.Name() == "Mosaic" ? 1 : 0;
    for (int item = 0; item <= last; ++item) {
      const Picture preview = Rendered(small, services, row, item);
      const Picture exported =
          SharedPictureEffects::Scale(Rendered(large, services, row, item), preview.Width(),
                                      preview.Height(), SharedPictureEffects::kScaleExactly);
      EXPECT_LT(MeanDifference(preview, exported), kBound) << module.Name() << " " << item;
      ++compared;
    }
  }
  EXPECT_GE(compared, 46);
}

}  // namespace
}  // namespace brivolant::test
