// SPDX-License-Identifier: MIT
// What is exported is what was shown: every effect at the size of a preview and of a full-size
// photo.
#include <gtest/gtest.h>

#include <cmath>

#include "Helpers.h"
#include "Sanitized.h"
#include "effects/EffectRegistry.h"
#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "formats/DocumentPreviews.h"
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
Picture Scene(int width, int height) {
  Picture picture = Picture::Uninitialized(width, height);
  const Pixels pixels = picture.Edit();
  ParallelRows(height, 16, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      for (int x = 0; x < width; ++x) {
        // In units of a thousandth of the longer side.
        const double u = 1000.0 * x / std::max(width, height);
        const double v = 1000.0 * y / std::max(width, height);
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

/// One effect of the foreground as it is set for a comparison.
struct Setting {
  int row = 0;
  /// All of them, -1 for what they begin with.
  int sliders = -1;
  /// A menu and which of its items it is on; the others are on what they begin with.
  int menu = -1;
  int item = 0;
  /// Single values by their names.
  std::vector<std::pair<std::string, Variant>> values = {};
};

/// `full` is the picture that this one shows, reduced or as it is.
Picture Rendered(const Picture& picture, const Picture& full, const TestServices& services,
                 const Setting& setting) {
  brivolantProcessorLite processor(EffectRegistry(), services.services);
  processor.Startup();
  processor.Seed(7);
  effectModule& module = *processor.item(setting.row);
  for (int i = 0; i < module.ControlCount(); ++i) {
    const bool slider = module.Control(i).Type == kControlSlider;
    if (slider && setting.sliders >= 0) module.ControlValue(i, setting.sliders);
    if (!module.Control(i).Menu) continue;
    // A texture must be chosen before it shows.
    if (module.ControlValue(i).ToInt() < 0) module.ControlValue(i, 0);
    if (i == setting.menu) module.ControlValue(i, setting.item);
  }
  if (!setting.values.empty()) {
    Dictionary values = module.Settings();
    for (const auto& [key, value] : setting.values) values.Value(key, value);
    module.Settings(values);
  }
  module.Enabled(true);
  return processor.ProcessReduced(picture, brivolantProcessorLite::PreviewScale(full, {}, picture),
                                  {});
}

/// A photo and its preview, whose height lost part of a pixel.
struct Sizes {
  Sizes(int width, int height, int previewWidth)
      : large(Scene(width, height)),
        small(SharedPictureEffects::Scale(large, previewWidth, height * previewWidth / width,
                                          SharedPictureEffects::kScaleExactly)) {}
  Picture large;
  Picture small;
};

/// How far a render is from another, and from the photo: mean difference of a channel, of 255.
struct Distances {
  double ofExport;
  double ofPhoto;
};

Distances Compare(const Sizes& sizes, const TestServices& services, const Setting& setting) {
  const Picture preview = Rendered(sizes.small, sizes.large, services, setting);
  const Picture exported = SharedPictureEffects::Scale(
      Rendered(sizes.large, sizes.large, services, setting), preview.Width(), preview.Height(),
      SharedPictureEffects::kScaleExactly);
  const bool same =
      preview.Width() == sizes.small.Width() && preview.Height() == sizes.small.Height();
  return {MeanDifference(preview, exported), same ? MeanDifference(preview, sizes.small) : 255};
}

int RowOf(const brivolantProcessorLite& processor, const std::string& name) {
  for (int row = 0; row <= processor.Count(); ++row) {
    if (processor.item(row)->Name() == name) return row;
  }
  ADD_FAILURE() << "no effect " << name;
  return 0;
}

/// Mean difference of a channel, of 255.
constexpr double kBound = 2.5;
/// The same at settings far from what an effect begins with, where grains, dots and hard edges of
/// single pixels fill the picture.
constexpr double kStrongBound = 7;
/// What less of is no look. A line of text covers little.
constexpr double kShows = 0.05;

/// Settings that cannot be compared.
bool LeftOut(const std::string& name, int menu, int item) {
  // Dots of two colours have no mean that a preview could show, and an overlay has no picture yet.
  return (name == "Bit Depth Simulation" && menu == 0 && item == 0) ||
         (name == "Overlay" && menu == 0 && item == 2);
}

TEST(Agreement, OfPreviewAndExportForEveryModule) {
  if (kSanitized)
    GTEST_SKIP() << "megapixels through every effect take too long under the sanitizers";
  const Sizes landscape(6000, 3998, 1600);
  const Sizes portrait(1498, 2250, 533);
  TestServices services;
  brivolantProcessorLite names(EffectRegistry(), services.services);
  names.Startup();
  int compared = 0;
  for (int row = 0; row <= names.Count(); ++row) {
    effectModule& module = *names.item(row);
    if (!module.Complete() || dynamic_cast<const EffectModuleDivider*>(&module) != nullptr)
      continue;
    // What an effect begins with may change nothing; the settings after it must show.
    EXPECT_LT(Compare(landscape, services, {row}).ofExport, kBound) << module.Name();
    const auto check = [&](const Sizes& sizes, const Setting& setting) {
      const Distances distances = Compare(sizes, services, setting);
      const std::string which = module.Name() + ", sliders " + std::to_string(setting.sliders) +
                                ", menu " + std::to_string(setting.menu) + " on " +
                                std::to_string(setting.item) + ", " +
                                std::to_string(sizes.large.Width()) + " pixels";
      EXPECT_LT(distances.ofExport, kStrongBound) << which;
      EXPECT_GT(distances.ofPhoto, kShows) << which;
      ++compared;
    };
    check(landscape, {row, 70});
    check(portrait, {row, 30});
    for (int menu = 0; menu < module.ControlCount(); ++menu) {
      if (!module.Control(menu).Menu) continue;
      const auto items = static_cast<int>(module.Control(menu).Menu->Children.size());
      // The fonts of the machine are not the effect's.
      constexpr int kMany = 20;
      for (int item = 0; item < items && items <= kMany; ++item) {
        if (!LeftOut(module.Name(), menu, item)) check(portrait, {row, 70, menu, item});
      }
    }
  }
  EXPECT_GE(compared, 150);
}

TEST(Agreement, OfMosaicsAtEveryHeight) {
  TestServices services;
  brivolantProcessorLite names(EffectRegistry(), services.services);
  names.Startup();
  const int row = RowOf(names, "Mosaic");
  for (int height = 1040; height < 1052; ++height) {
    const Sizes sizes(1500, height, 750);
    const Distances distances =
        Compare(sizes, services, {row, -1, -1, 0, {{"shapes", 0}, {"TileCount", 30}}});
    EXPECT_LT(distances.ofExport, kBound) << height;
    EXPECT_GT(distances.ofPhoto, 8) << height;
  }
  // Large characters are drawn in another way than small ones.
  for (const bool shadow : {false, true}) {
    const Distances distances =
        Compare(Sizes(1500, 998, 400), services,
                {row, -1, -1, 0, {{"shapes", 4}, {"TileCount", 7}, {"DropShadow", shadow}}});
    EXPECT_LT(distances.ofExport, kBound) << shadow;
    EXPECT_GT(distances.ofPhoto, 8) << shadow;
  }
}

TEST(Agreement, OfTexturesAtEveryScale) {
  TestServices services;
  brivolantProcessorLite names(EffectRegistry(), services.services);
  names.Startup();
  const int row = RowOf(names, "Texture");
  const Sizes sizes(2998, 1998, 1200);
  // Stretched over the picture, very small, and of tiles that are no whole pixels.
  for (const double scale : {0.0, 0.013, 0.05, 0.173, 0.5, 1.37}) {
    const Distances distances = Compare(
        sizes, services, {row, -1, -1, 0, {{"loadedtextureName", "Leather"}, {"Scale", scale}}});
    EXPECT_LT(distances.ofExport, kStrongBound) << scale;
    EXPECT_GT(distances.ofPhoto, kShows) << scale;
  }
}

TEST(Agreement, OfTilesAndSmallPhotos) {
  TestServices services;
  brivolantProcessorLite names(EffectRegistry(), services.services);
  names.Startup();
  const int row = RowOf(names, "Confetti");
  // A tile of a photo, a small portrait that is shown enlarged, and a strip.
  for (const Sizes& sizes : {Sizes(1600, 1200, 200), Sizes(450, 600, 540), Sizes(297, 2240, 99)}) {
    const Distances distances =
        Compare(sizes, services, {row, -1, -1, 0, {{"StarCount", 40}, {"maxSize", 6}}});
    EXPECT_LT(distances.ofExport, kStrongBound) << sizes.large.Width();
    EXPECT_GT(distances.ofPhoto, 3 * distances.ofExport) << sizes.large.Width();
  }
}

TEST(Agreement, OfSoftMasks) {
  TestServices services;
  brivolantProcessorLite names(EffectRegistry(), services.services);
  names.Startup();
  const int row = RowOf(names, "Shadow & Highlight");
  const Sizes sizes(4500, 3000, 1200);
  for (const char* slider : {"Shadows", "Highlights"}) {
    for (const int blur : {0, 30, 100}) {
      const Distances distances =
          Compare(sizes, services, {row, -1, -1, 0, {{slider, 100}, {"Blur", blur}}});
      EXPECT_LT(distances.ofExport, kBound) << slider << ' ' << blur;
      EXPECT_GT(distances.ofPhoto, 8) << slider << ' ' << blur;
    }
  }
}

TEST(Agreement, OfTheGrainsOfMattes) {
  TestServices services;
  brivolantProcessorLite names(EffectRegistry(), services.services);
  names.Startup();
  // Grains of a pixel and a quarter, and of five.
  const Sizes sizes(2400, 5120, 600);
  const Distances distances =
      Compare(sizes, services, {RowOf(names, "Matte"), -1, -1, 0, {{"Effect", 2}, {"Size", 0.05}}});
  EXPECT_LT(distances.ofExport, kBound);
  EXPECT_GT(distances.ofPhoto, 8);
}

}  // namespace
}  // namespace brivolant::test
