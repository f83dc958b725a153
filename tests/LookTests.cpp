// SPDX-License-Identifier: MIT
// Colour looks, geometry and finishing touches: their formulas on values worked out by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <vector>

#include "Helpers.h"
#include "effects/FindEffect.h"
#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/ColorEffects.h"
#include "engine/pictures/ConvolutionEffect.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "platform/pictures/kernels/LookKernels.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;

constexpr Color kOrange{255, 128, 0};

/// A module of the foreground by its display name, enabled with its reset settings.
struct Looks : TestServices {
  Looks() { processor.Startup(); }
  effectModule& Get(const std::string& name, int stack = kForeground) {
    processor.CurrentStack = stack;
    effectModule& module = ModuleNamed(processor, name);
    module.Enabled(true);
    return module;
  }
  /// With the settings given, in the order of the control rows where they are numbers.
  effectModule& Set(const std::string& name,
                    std::initializer_list<std::pair<const char*, Variant>> s) {
    effectModule& module = Get(name);
    Dictionary settings = module.Settings();
    for (const auto& [key, value] : s) settings.Value(key, value);
    module.Settings(settings);
    return module;
  }
  static Color On(effectModule& module, Color color) {
    Picture picture = PlainPicture(24, 20, color);
    module.Apply(picture, 1);
    EXPECT_EQ(picture.Width(), 24);
    EXPECT_EQ(picture.Height(), 20);
    return picture.At(12, 10);
  }
  brivolantProcessorLite processor{EffectRegistry(), services};
};

TEST(Look, PointFormulas) {
  Looks l;
  struct Case {
    const char* name;
    std::initializer_list<std::pair<const char*, Variant>> settings;
    Color in;
    Color out;
  };
  const Color grey{100, 100, 100};
  for (const Case& c : std::initializer_list<Case>{
           {"Colorize",
            {{"useColor", kOrange}, {"ShiftInstead", false}},
            {200, 200, 200},
            {200, 100, 0}},
           {"Colorize",
            {{"useColor", kOrange}, {"ShiftInstead", true}},
            {10, 100, 7},
            {255, 228, 7}},
           {"Greyscale", {{"Type", 0}}, {200, 100, 50}, {124, 124, 124}},
           {"Greyscale", {{"Type", 1}}, {200, 100, 50}, {118, 118, 118}},
           {"Greyscale", {{"Type", 2}}, {200, 100, 50}, {117, 117, 117}},
           {"Greyscale", {{"Type", 3}}, {200, 100, 50}, {113, 113, 113}},
           {"Greyscale", {{"Type", 4}}, {200, 100, 50}, {125, 125, 125}},
           {"Greyscale", {{"Type", 99}}, {200, 100, 50}, {124, 124, 124}},
           {"Sepia", {{"Strength", 1.0}}, grey, {135, 120, 94}},
           {"Sepia", {{"Strength", 7.0}}, grey, {135, 120, 94}},
           {"Sepia", {{"Strength", 0.5}}, grey, {118, 110, 97}},
           {"Sepia", {{"Strength", 0.0}}, grey, grey},
           {"2-Strip Technicolor Simulation", {}, {10, 20, 30}, {10, 20, 20}},
           {"Inverse", {{"OnlyLight", false}}, {10, 20, 30}, {245, 235, 225}},
           {"Inverse", {{"OnlyLight", true}}, {200, 100, 50}, {55, 28, 14}},
           {"Inverse", {{"OnlyLight", true}}, kBlack, kWhite},
           {"Posterize", {{"Levels", 255}}, {7, 8, 255}, {0, 8, 248}},
           {"Posterize", {{"Levels", 16}}, {134, 135, 255}, {0, 135, 135}},
           {"Posterize", {{"Levels", 0}}, {7, 8, 255}, kBlack},
           {"Posterize", {{"Levels", -5}}, {7, 8, 255}, kBlack},
           {"Over Burn", {{"Strength", 0.0}}, {90, 140, 30}, {90, 140, 30}},
           {"Bit Depth Simulation", {{"Depth", 0}, {"Threshold", 1.0}}, {126, 126, 126}, kBlack},
           {"Bit Depth Simulation", {{"Depth", 0}, {"Threshold", 1.0}}, {130, 130, 130}, kWhite},
           {"Bit Depth Simulation", {{"Depth", 1}, {"Threshold", 1.0}}, grey, {85, 85, 85}},
           {"Bit Depth Simulation", {{"Depth", 2}, {"Threshold", 1.0}}, {250, 10, 5}, {255, 0, 0}},
           {"Bit Depth Simulation", {{"Depth", 2}, {"Threshold", 1.0}}, kWhite, kWhite},
           {"Bit Depth Simulation",
            {{"Depth", 3}, {"Threshold", 1.0}},
            {26, 100, 230},
            {51, 102, 255}},
           {"Bit Depth Simulation",
            {{"Depth", 5}, {"Threshold", 1.0}},
            {26, 100, 230},
            {26, 100, 230}},
       }) {
    EXPECT_EQ(l.On(l.Set(c.name, c.settings), c.in), c.out)
        << c.name << " " << c.in.RGB() << " gives " << l.On(l.Set(c.name, c.settings), c.in).RGB();
  }
}

TEST(Look, ResetAndMissingKeysDiffer) {
  Looks l;
  const auto value = [&](const char* name, const char* key) {
    return l.Get(name).Settings().Value(key);
  };
  EXPECT_FLOAT_EQ(static_cast<float>(value("Sepia", "Strength").ToDouble()), 0.3F);
  EXPECT_EQ(value("Colorize", "useColor").ToColor(), Color::FromRGB(0xFF0080));
  EXPECT_EQ(value("Reflection", "mode").ToInt(), 4);
  for (const char* name : {"Sepia", "Colorize", "Reflection", "Blur", "Vignette"}) {
    l.Get(name).Settings(Dictionary());
  }
  EXPECT_EQ(value("Sepia", "Strength").ToDouble(), 1.0);
  EXPECT_EQ(value("Colorize", "useColor").ToColor(), kOrange);
  EXPECT_EQ(value("Reflection", "Percent").ToDouble(), 33);
  EXPECT_EQ(value("Blur", "GaussianRadius").ToInt(), 0);
  EXPECT_EQ(value("Vignette", "vignetteRadius").ToDouble(), 1.0);
  // What a reset leaves alone.
  l.Get("Reflection").ResetSettings();
  EXPECT_EQ(value("Reflection", "Percent").ToDouble(), 33);
}

TEST(Look, TwoTonesAndFourPanels) {
  Looks l;
  Picture picture = TestPicture(41, 30);
  l.Set("Duo Tone", {{"darkTone", Color{1, 2, 3}}, {"lightTone", kOrange}, {"Threshold", -7.0}})
      .Apply(picture, 1);
  std::set<std::uint32_t> colors;
  for (int y = 0; y < 30; ++y) {
    for (int x = 0; x < 41; ++x) colors.insert(picture.At(x, y).RGB());
  }
  EXPECT_THAT(colors, ElementsAre(0x010203U, 0xFF8000U));

  // Each quarter of a plain picture takes the colour of its own row.
  for (const auto& [level, first] :
       {std::pair{60, 0x37302DU}, {120, 0x29D9D3U}, {220, 0xCFC10CU}}) {
    const auto tone = static_cast<std::uint8_t>(level);
    Picture plain = PlainPicture(40, 30, {tone, tone, tone});
    l.Set("Pop Art", {{"Threshold", 0.0}}).Apply(plain, 1);
    EXPECT_EQ(plain.At(5, 5).RGB(), first) << level;
    EXPECT_NE(plain.At(35, 5), plain.At(5, 5));
    EXPECT_NE(plain.At(5, 25), plain.At(35, 25));
  }
  for (const auto& [w, h] : {std::pair{1, 1}, {2, 1}, {3, 3}}) {
    Picture small = TestPicture(w, h);
    l.Get("Pop Art").Apply(small, 1);
    EXPECT_EQ(small.Width(), w);
  }
}

TEST(Focus, SparesItsDiscAndFollowsThePointer) {
  Looks l;
  effectModule& grey = l.Get("Greyscale");
  // Touching the diameter turns the focus on.
  grey.ControlValue(2, 20);
  EXPECT_TRUE(grey.Settings().Value("isFocal").ToBool());
  const auto colorful = [&](int x, int y) {
    Picture picture = PlainPicture(200, 100, {200, 100, 50});
    grey.Apply(picture, 1);
    const Color color = picture.At(x, y);
    return color.Red - color.Blue;
  };
  EXPECT_EQ(colorful(100, 50), 150);
  EXPECT_EQ(colorful(2, 2), 0);
  const int between = colorful(135, 50);
  EXPECT_GT(between, 10);
  EXPECT_LT(between, 140);
  bool render = true;
  EXPECT_TRUE(grey.MouseDown(0.1F, 0.2F, render));
  EXPECT_EQ(colorful(20, 20), 150);
  EXPECT_EQ(colorful(190, 90), 0);
  grey.MouseDrag(0.9F, 0.9F);
  EXPECT_EQ(colorful(180, 90), 150);
  // The outline is drawn on the preview while there is a focus.
  Picture marks = PlainPicture(200, 100, kBlack);
  grey.firePostProcess(marks, 1);
  EXPECT_EQ(marks.At(180, 70).Red > 0 || marks.At(179, 70).Red > 0, true);
  l.Set("Greyscale", {{"isFocal", false}});
  EXPECT_EQ(colorful(180, 90), 0);

  Picture picture = TestPicture(200, 100);
  const Picture source = picture;
  effectModule& blur =
      l.Set("Blur", {{"GaussianRadius", 8}, {"isFocal", true}, {"focalRadius", 0.3}});
  blur.Apply(picture, 1);
  EXPECT_EQ(picture.At(100, 50), source.At(100, 50));
  EXPECT_NE(picture.At(3, 3), source.At(3, 3));
  // The radius follows the scale.
  Picture small = TestPicture(60, 40);
  Picture same = small;
  l.Set("Blur", {{"GaussianRadius", 8}, {"isFocal", false}}).Apply(small, 2);
  l.Set("Blur", {{"GaussianRadius", 16}}).Apply(same, 1);
  EXPECT_EQ(LargestDifference(small, same), 0);
}

/// Calls `check(before, after)` for pixels that hold every level of each channel.
template <class Change, class Check>
void ForManyColors(Change change, Check check) {
  constexpr int kSide = 256;
  Picture before = Picture::Uninitialized(kSide, kSide);
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      std::uint8_t* p = before.Edit().Row(y) + std::ptrdiff_t{4} * x;
      p[0] = static_cast<std::uint8_t>(x);
      p[1] = static_cast<std::uint8_t>(y);
      p[2] = static_cast<std::uint8_t>(x * 7 + y * 13);
      p[3] = 255;
    }
  }
  Picture after = before;
  change(after.Edit());
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) check(before.At(x, y), after.At(x, y));
  }
}

TEST(LookKernels, FollowTheirFormulasForEveryLevel) {
  const auto rounded = [](double level) {
    return static_cast<int>(std::floor(std::clamp(level, 0.0, 255.0) + 0.5));
  };
  const std::array<std::array<double, 3>, 3> weights{
      {{0.393, 0.769, 0.189}, {-0.5, 1.25, 0.1}, {0, 0, -1}}};
  ForManyColors(
      [&](Pixels pixels) {
        kernels::MixChannels(pixels, pixels, kernels::MakeChannelMix(weights));
      },
      [&](Color in, Color out) {
        const auto sum = [&](std::size_t row) {
          const auto& w = weights.at(row);
          return w[0] * in.Red + w[1] * in.Green + w[2] * in.Blue;
        };
        // Half a level may fall to either side.
        ASSERT_NEAR(out.Red, std::clamp(sum(0), 0.0, 255.0), 0.51);
        ASSERT_NEAR(out.Green, std::clamp(sum(1), 0.0, 255.0), 0.51);
        ASSERT_EQ(out.Blue, 0);
      });
  ForManyColors([](Pixels pixels) { kernels::Desaturate(pixels); },
                [&](Color in, Color out) {
                  const auto [low, high] = std::minmax({in.Red, in.Green, in.Blue});
                  const int lightness = rounded((low + high) / 2.0);
                  ASSERT_EQ(out.Red, lightness);
                  ASSERT_EQ(out.Green, lightness);
                  ASSERT_EQ(out.Blue, lightness);
                });
  ForManyColors([](Pixels pixels) { kernels::InvertValue(pixels); },
                [&](Color in, Color out) {
                  const int value = std::max({in.Red, in.Green, in.Blue});
                  ASSERT_EQ(std::max({out.Red, out.Green, out.Blue}), 255 - value);
                  if (value == 0) return;
                  // The proportions of the channels are the hue and the saturation.
                  ASSERT_NEAR(out.Red, 1.0 * in.Red * (255 - value) / value, 0.51);
                  ASSERT_NEAR(out.Green, 1.0 * in.Green * (255 - value) / value, 0.51);
                  ASSERT_NEAR(out.Blue, 1.0 * in.Blue * (255 - value) / value, 0.51);
                });
  Plane mask = Plane::Uninitialized(256, 256);
  for (int y = 0; y < 256; ++y) {
    for (int x = 0; x < 256; ++x) mask.Edit().Row(y)[x] = static_cast<std::uint8_t>(y);
  }
  // The mask's level is the row, which the source holds as its green.
  ForManyColors(
      [&](Pixels pixels) {
        kernels::LayColor(pixels, {0, 255, 90}, mask.View());
      },
      [&](Color in, Color out) {
        const double keep = in.Green / 255.0;
        ASSERT_EQ(out.Red, rounded(in.Red * keep));
        ASSERT_EQ(out.Green, rounded(in.Green * keep + 255 * (1 - keep)));
        ASSERT_EQ(out.Blue, rounded(in.Blue * keep + 90 * (1 - keep)));
      });
  ForManyColors([](Pixels pixels) { kernels::SplitByValue(pixels, 128, kOrange, kWhite); },
                [](Color in, Color out) {
                  const bool light = in.Red >= 128 || in.Green >= 128 || in.Blue >= 128;
                  ASSERT_EQ(out, light ? kWhite : kOrange);
                });
}

TEST(LookKernels, PalettesBlocksAndDiscs) {
  // A colour of the palette finds itself, whatever stands beside it.
  std::vector<Color> palette;
  for (int i = 0; i < 64; ++i) {
    palette.push_back(Color::FromRGB(
        static_cast<std::uint32_t>(i * 0x040000 + (63 - i) * 0x0400 + (i * 37 % 64) * 4)));
  }
  const kernels::PaletteLookup lookup(palette);
  for (const Color& color : palette) {
    const Color found = Color::FromRGB(lookup.Nearest(color.Red, color.Green, color.Blue));
    EXPECT_LE(std::abs(found.Red - color.Red) + std::abs(found.Green - color.Green), 12);
  }
  const Picture small = TestPicture(5, 3);
  for (const auto& [width, height] : {std::pair{5, 3}, {11, 8}, {50, 30}, {1, 1}}) {
    Picture large = Picture::Uninitialized(width, height);
    kernels::Enlarge(small.View(), large.Edit());
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) {
        ASSERT_EQ(large.At(x, y), small.At(x * 5 / width, y * 3 / height));
      }
    }
  }
  for (const double fade : {0.0, 8.0}) {
    Plane disc = Plane::Uninitialized(60, 40);
    kernels::FillFadingDisc(disc.Edit(), 30, 20, 10, fade);
    for (int y = 0; y < 40; ++y) {
      for (int x = 0; x < 60; ++x) {
        const double away = std::hypot(x + 0.5 - 30, y + 0.5 - 20);
        const int level = disc.View().Row(y)[x];
        if (away <= 10) {
          ASSERT_EQ(level, 255);
        } else if (away >= 10 + fade) {
          ASSERT_EQ(level, 0);
        } else {
          ASSERT_NEAR(level, 255 * (1 - (away - 10) / fade), 1);
        }
      }
    }
  }
}

TEST(Convolutions, AreWhatTheirWeightsSay) {
  Picture dot = PlainPicture(7, 7, {90, 90, 90});
  dot.Edit().Row(3)[12] = dot.Edit().Row(3)[13] = dot.Edit().Row(3)[14] = 120;
  const ConvolutionEffect c;
  EXPECT_EQ(c.Sharpen(dot).At(3, 3).Red, 200);
  EXPECT_EQ(c.Sharpen(dot).At(3, 2).Red, 70);
  EXPECT_EQ(c.Sharpen(dot).At(2, 2).Red, 90);
  EXPECT_EQ(c.Blur(dot).At(3, 3).Red, 98);
  EXPECT_EQ(c.Smooth(dot, 1).At(2, 2).Red, 93);
  EXPECT_EQ(c.MeanRemoval(dot).At(3, 3).Red, 255);
  EXPECT_EQ(c.EdgeDetect(dot).At(0, 0).Red, 127);
  EXPECT_EQ(c.Emboss(dot).At(3, 3).Red, 247);
  // Flat to the very border, and untouched under a full mask.
  const Picture flat = PlainPicture(5, 4, {9, 80, 200});
  EXPECT_TRUE(c.Sharpen(flat).SameAs(flat));
  EXPECT_TRUE(c.Sharpen(dot, nullptr).At(0, 0) == dot.At(0, 0));
  const Plane none(7, 7, 255);
  EXPECT_EQ(LargestDifference(c.Sharpen(dot, &none), dot), 0);
  EXPECT_EQ(LargestDifference(ColorFilterEffect().Apply(dot, 255, 255, 255), dot), 0);
  EXPECT_EQ(ColorFilterEffect().Apply(dot, 255, 51, 0).At(0, 0), (Color{90, 18, 0}));
}

TEST(Geometry, LayersShrinkZoomAndFollowThePointer) {
  Looks l;
  const Picture source = TestPicture(100, 60);
  effectModule& back = l.Get("Scale Layer", kBackground);
  const auto scaled = [&](double scale) {
    Dictionary settings = back.Settings();
    settings.Value("Scale", scale);
    back.Settings(settings);
    Picture picture = source;
    back.Apply(picture, 1);
    return picture;
  };
  EXPECT_TRUE(scaled(1.0).SameAs(source));
  const Picture half = scaled(0.5);
  EXPECT_EQ(half.At(24, 14), kWhite);
  EXPECT_NE(half.At(26, 16), kWhite);
  EXPECT_EQ(half.At(76, 46), kWhite);
  EXPECT_EQ(scaled(0.0).At(50, 30), kWhite);
  bool render = false;
  EXPECT_TRUE(back.MouseDown(0, 0, render));
  EXPECT_TRUE(render);
  EXPECT_NE(scaled(0.5).At(2, 2), kWhite);
  EXPECT_EQ(scaled(0.5).At(60, 40), kWhite);
  // Dragged to the far corner, the near one of the photo comes into view.
  back.MouseDrag(1, 1);
  EXPECT_EQ(LargestDifference(scaled(2.0), SharedPictureEffects::Scale(
                                               [&] {
                                                 Picture corner = Picture::Uninitialized(50, 30);
                                                 for (int y = 0; y < 30; ++y) {
                                                   std::copy_n(source.View().Row(y), 200,
                                                               corner.Edit().Row(y));
                                                 }
                                                 return corner;
                                               }(),
                                               100, 60, SharedPictureEffects::kScaleExactly)) < 60,
            true);

  // The foreground's module leaves shrinking to the processor.
  effectModule& fore = l.Get("Scale Layer", kForeground);
  fore.ControlValue(0, 25);
  Picture picture = source;
  fore.Apply(picture, 1);
  EXPECT_TRUE(picture.SameAs(source));
  ASSERT_TRUE(l.processor.foregroundScaleSize);
  EXPECT_EQ(*l.processor.foregroundScaleSize, (Point{50, 30}));
  EXPECT_EQ(*l.processor.foregroundScaleTopleft, (Point{25, 15}));
  fore.MouseDown(0.2F, 0.2F, render);
  fore.MouseDrag(0.3F, 0.3F);
  fore.Apply(picture, 1);
  EXPECT_EQ(*l.processor.foregroundScaleTopleft, (Point{35, 21}));
  fore.Enabled(false);
  EXPECT_FALSE(l.processor.foregroundScaleSize);
  fore.ControlValue(0, 0);
  EXPECT_FLOAT_EQ(static_cast<float>(fore.Settings().Value("Scale").ToDouble()), 0.1F);
  // The whole render keeps the source's size, with the layer in its place.
  fore.Enabled(true);
  fore.ControlValue(0, 25);
  back.Enabled(false);
  const Picture result = l.processor.Process(source, {});
  EXPECT_EQ(result.Width(), 100);
  EXPECT_EQ(result.At(2, 2), source.At(2, 2));
}

TEST(Geometry, MirrorsLinesAndReflections) {
  Looks l;
  const Picture source = TestPicture(40, 30);
  for (int direction = 0; direction < 3; ++direction) {
    Picture picture = source;
    l.Set("Flip", {{"Direction", direction}}).Apply(picture, 1);
    EXPECT_EQ(LargestDifference(picture, SharedPictureEffects::Flip(source, direction)), 0);
  }
  Picture lines = PlainPicture(10, 200, kWhite);
  l.Get("Interlace").Apply(lines, 1);
  // A band is two pixels, so its quarters are half ones.
  EXPECT_EQ(lines.At(5, 2), kWhite);
  EXPECT_LT(lines.At(5, 0).Red, 100);
  EXPECT_LT(lines.At(5, 4).Red, 100);

  const auto reflected = [&](int mode) {
    Picture picture = source;
    l.Set("Reflection", {{"mode", mode}, {"Percent", 0.5}, {"backColor", kOrange}})
        .Apply(picture, 1);
    return picture;
  };
  EXPECT_EQ(reflected(0).At(30, 7), source.At(9, 7));
  EXPECT_EQ(reflected(0).At(10, 7), source.At(10, 7));
  EXPECT_EQ(reflected(1).At(10, 7), source.At(29, 7));
  EXPECT_EQ(reflected(2).At(7, 20), source.At(7, 9));
  EXPECT_EQ(reflected(3).At(7, 3), source.At(7, 26));
  EXPECT_EQ(reflected(4).At(1, 3), kOrange);
  EXPECT_EQ(reflected(4).At(38, 29), kOrange);
  Picture far = source;
  l.Set("Reflection", {{"mode", 0}, {"Percent", 33.0}}).Apply(far, 1);
  EXPECT_TRUE(far.SameAs(source));
}

TEST(Finishes, VignetteAndGlossKeepTheirShapes) {
  Looks l;
  Picture picture = PlainPicture(200, 120, {200, 200, 200});
  l.Set("Vignette", {{"vignetteRadius", 0.5}, {"VignetteColor", kBlack}}).Apply(picture, 1);
  EXPECT_EQ(picture.At(100, 60), (Color{200, 200, 200}));
  EXPECT_EQ(picture.At(145, 60), (Color{200, 200, 200}));
  EXPECT_LT(picture.At(190, 60).Red, 150);
  EXPECT_LT(picture.At(2, 2).Red, picture.At(2, 60).Red);
  EXPECT_EQ(picture.At(2, 2), picture.At(197, 2));
  // With a radius of 1 the circle is as wide as the picture.
  Picture wide = PlainPicture(200, 120, kWhite);
  l.Set("Vignette", {{"vignetteRadius", 1.0}}).Apply(wide, 1);
  EXPECT_EQ(wide.At(3, 60), kWhite);
  EXPECT_LT(wide.At(0, 0).Red, 255);

  Picture gloss = PlainPicture(100, 80, kBlack);
  l.Set("Gloss", {{"Power", 40}}).Apply(gloss, 1);
  EXPECT_NEAR(gloss.At(5, 5).Red, 102, 1);
  EXPECT_EQ(gloss.At(90, 70), kBlack);
  EXPECT_EQ(l.Get("Gloss").ControlValue(0).ToInt(), 100);
}

TEST(Settings, MenusAndWellsRoundTripThroughTheirRows) {
  Looks l;
  effectModule& grey = l.Get("Greyscale");
  ASSERT_EQ(grey.Control(0).Type, kControlMenu);
  EXPECT_EQ(grey.Control(0).Menu->Children.size(), 5U);
  grey.ControlValue(0, 3);
  // The check mark stands at what is set, also when it was loaded.
  int checked = -1;
  grey.fireShowMenu(0, 0, 0, [&](const MenuItem& menu, int, int) -> std::optional<int> {
    for (std::size_t i = 0; i < menu.Children.size(); ++i) {
      if (menu.Children[i].Checked) checked = static_cast<int>(i);
    }
    return 1;
  });
  EXPECT_EQ(checked, 3);
  EXPECT_EQ(grey.Settings().Value("Type").ToInt(), 1);
  // Dismissed, it stays.
  grey.fireShowMenu(0, 0, 0, [](const MenuItem&, int, int) { return std::optional<int>(); });
  EXPECT_EQ(grey.ControlValue(0).ToInt(), 1);
  effectModule& tint = l.Get("Colorize");
  ASSERT_EQ(tint.Control(0).Type, kControlColorWell);
  tint.ControlValue(0, Color{1, 2, 3});
  EXPECT_EQ(tint.Settings().Value("useColor").ToColor(), (Color{1, 2, 3}));
}

}  // namespace
}  // namespace brivolant::test
