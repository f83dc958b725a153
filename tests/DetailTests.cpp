// SPDX-License-Identifier: MIT
// Effects that draw with lengths of their own, and the kernels they are made of.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <set>
#include <vector>

#include "Helpers.h"
#include "effects/artistic/EffectModuleLineArt.h"
#include "effects/artistic/EffectModuleSegment.h"
#include "effects/geometry/EffectModuleInterlace.h"
#include "effects/geometry/EffectModuleSharpen.h"
#include "engine/pictures/AdvancedGraphics.h"
#include "engine/pictures/ConvolutionEffect.h"
#include "engine/pictures/PictureEffects.h"
#include "engine/pictures/ShapeStamp.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "engine/pictures/SoftShadow.h"
#include "platform/pictures/Graphics.h"
#include "platform/pictures/kernels/DetailKernels.h"

namespace brivolant::test {
namespace {

using AdvancedGraphicsModule::MakeCGRect;

template <class Module>
Picture Applied(const Dictionary& settings, Picture picture, double scale) {
  Module module;
  module.Constructor();
  module.ResetSettings();
  Dictionary all = module.Settings();
  for (int i = 0; i < settings.Count(); ++i)
    all.Value(settings.Key(i).ToText(), settings.ValueAt(i));
  all.Value("Enabled", true);
  module.Settings(all);
  module.Apply(picture, scale);
  return picture;
}

Dictionary With(std::initializer_list<std::pair<const char*, Variant>> values) {
  Dictionary settings;
  for (const auto& [key, value] : values) settings.Value(key, value);
  return settings;
}

TEST(Sharpening, InBandsIsThatOfTheWhole) {
  // Higher than two bands, at the scale of a large photo.
  const Picture photo = TestPicture(90, 150);
  constexpr double kScale = 5;
  constexpr double kVariance = (kScale * kScale - 1) / 2;
  EffectModuleSharpen sharpen;
  sharpen.Enabled(true);
  Picture banded = photo;
  sharpen.Apply(banded, kScale);
  Picture soft = ScaleEffect::BilinearScale(photo, 45, 75);
  soft = GaussianBlur(2 * std::sqrt(kVariance / 4 - 1 / 3.0)).ApplyEffect(std::move(soft));
  soft = ScaleEffect::BilinearScale(soft, 90, 150);
  Picture whole = Picture::Uninitialized(90, 150);
  kernels::reference::SharpenAgainst(photo.View(), soft.View(), whole.Edit(),
                                     kernels::kSharpenShare);
  // A level of the blur more or less weighs up to four times in the sum.
  EXPECT_LE(LargestDifference(banded, whole), 3);
  EXPECT_GT(LargestDifference(banded, photo), 30);
}

TEST(DetailKernels, AgreeWithTheirPlainFormsAtEveryWidth) {
  for (const auto& [w, h] : {std::pair{1, 1}, {2, 3}, {5, 1}, {9, 4}, {17, 6}, {40, 17}, {67, 5}}) {
    const Picture photo = TestPicture(w, h);
    const Picture soft = TestPicture(w, h, 7);
    Picture fast = Picture::Uninitialized(w, h);
    Picture plain = Picture::Uninitialized(w, h);
    for (const int share : {0, 900, kernels::kSharpenShare, 32767}) {
      kernels::SharpenAgainst(photo.View(), soft.View(), fast.Edit(), share);
      kernels::reference::SharpenAgainst(photo.View(), soft.View(), plain.Edit(), share);
      ASSERT_EQ(LargestDifference(fast, plain), 0) << w << ' ' << share;
      ASSERT_EQ(fast.View().Row(h - 1)[4 * w - 1], 255);
      // The same where it is.
      Picture own = photo;
      const Pixels pixels = own.Edit();
      kernels::SharpenAgainst(pixels, soft.View(), pixels, share);
      ASSERT_EQ(LargestDifference(own, plain), 0) << w << ' ' << share;
    }
    kernels::SharpenAgainst(photo.View(), photo.View(), fast.Edit(), kernels::kSharpenShare);
    EXPECT_EQ(LargestDifference(fast, ConvolutionEffect().Sharpen(photo)), 0) << w;
    for (const float gain : {0.0F, 0.21F, 0.75F, 4.0F}) {
      kernels::DrawEdges(photo.View(), fast.Edit(), gain);
      kernels::reference::DrawEdges(photo.View(), plain.Edit(), gain);
      ASSERT_EQ(LargestDifference(fast, plain), 0) << w << ' ' << gain;
    }
    std::vector<std::uint8_t> keep;
    for (int y = 0; y < h; ++y) keep.push_back(static_cast<std::uint8_t>(255 - 51 * (y % 6)));
    Picture darkened = photo;
    kernels::DarkenRows(darkened.Edit(), keep);
    for (int y = 0; y < h; ++y) {
      for (int x = 0; x < w; ++x) {
        const double share = keep[static_cast<std::size_t>(y)] / 255.0;
        ASSERT_EQ(darkened.At(x, y).Red, std::lround(photo.At(x, y).Red * share)) << y;
        ASSERT_EQ(darkened.At(x, y).Blue, std::lround(photo.At(x, y).Blue * share)) << y;
      }
    }
  }
}

TEST(DetailKernels, PanelsHaveSmoothEdgesAndFlatColors) {
  // A ramp from 60 to 110 crosses the first boundary in its middle.
  Plane values(11, 4, 0);
  for (int y = 0; y < 4; ++y) {
    for (int x = 0; x < 11; ++x) values.Edit().Row(y)[x] = static_cast<std::uint8_t>(60 + 5 * x);
  }
  Plane lines(11, 4, 255);
  lines.Edit().Row(3)[0] = 0;
  const Color brown{200, 100, 50};
  const Color grey{9, 9, 9};
  const std::array<kernels::Panel, 4> panels{
      kernels::Panel{kBlack, brown, kWhite}, kernels::Panel{kWhite, kBlack, kWhite},
      kernels::Panel{kBlack, kWhite, kBlack}, kernels::Panel{grey, kBlack, kWhite}};
  Picture picture = PlainPicture(21, 7, {1, 2, 3});
  kernels::PaintPanels(values.View(), lines.View(), picture.Edit(), 10, 3, panels);
  EXPECT_EQ(picture.At(2, 1), kBlack);
  EXPECT_EQ(picture.At(8, 1), (Color{200, 100, 50}));
  EXPECT_GT(picture.At(5, 1).Red, 60) << "85 lies a tenth of a step beyond the edge";
  EXPECT_LT(picture.At(5, 1).Red, 180);
  EXPECT_EQ(picture.At(20, 1), kBlack);
  EXPECT_EQ(picture.At(12, 6), (Color{9, 9, 9}));
  EXPECT_EQ(picture.At(0, 6), kBlack) << "a line is black on every ground";
  EXPECT_EQ(kernels::CoverageAbove(values.View(), 0, 0, 62), 0);
  EXPECT_EQ(kernels::CoverageAbove(values.View(), 5, 0, 85), 128);
}

/// Bands in eight directions, dark on light.
Picture Spokes(int size) {
  Picture picture = NewPicture(size, size, 24);
  AdvancedGraphics g(picture);
  g.PenThickness(size / 16.0);
  for (int i = 0; i < 8; ++i) {
    const double angle = AdvancedGraphicsModule::Radian(22.5 * i);
    const double dx = 0.4 * size * std::cos(angle);
    const double dy = 0.4 * size * std::sin(angle);
    g.DrawLine(size / 2.0 - dx, size / 2.0 - dy, size / 2.0 + dx, size / 2.0 + dy);
  }
  return picture;
}

TEST(LineArt, DrawsTheSameAtEverySize) {
  const Picture large = Spokes(1280);
  const Picture small =
      SharedPictureEffects::Scale(large, 320, 320, SharedPictureEffects::kScaleExactly);
  for (const int mode : {0, 1}) {
    const Dictionary settings = With({{"Mode", mode}});
    const Picture shown = Applied<EffectModuleLineArt>(settings, small, 1);
    const Picture exported =
        SharedPictureEffects::Scale(Applied<EffectModuleLineArt>(settings, large, 4), 320, 320,
                                    SharedPictureEffects::kScaleExactly);
    double ink = 0;
    double inkThere = 0;
    double difference = 0;
    for (int y = 0; y < 320; ++y) {
      for (int x = 0; x < 320; ++x) {
        ink += 255 - shown.At(x, y).Green;
        inkThere += 255 - exported.At(x, y).Green;
        difference += std::abs(shown.At(x, y).Green - exported.At(x, y).Green);
      }
    }
    EXPECT_GT(ink / (320 * 320), 5) << mode;
    EXPECT_NEAR(inkThere / ink, 1, 0.1) << mode;
    EXPECT_LT(difference / ink, 0.25) << mode;
  }
}

TEST(LineArt, ThinLinesHaveEveryDirectionAndNoRelief) {
  // Half planes turned by a dozen angles: at the edge a dark line, on both sides paper.
  for (int degrees = 0; degrees < 360; degrees += 30) {
    Picture halves = PlainPicture(61, 61, {60, 60, 60});
    {
      AdvancedGraphics g(halves);
      g.Translate(30.5, 30.5);
      g.Rotate(degrees);
      g.SetFillColor({160, 160, 160}, 1);
      const std::array<Point, 4> half{{{0, -100}, {100, -100}, {100, 100}, {0, 100}}};
      g.DrawPolygon(half, kFill);
    }
    for (const double scale : {0.5, 1.0, 1.7, 4.5}) {
      const Picture lines = Applied<EffectModuleLineArt>(With({{"Mode", 1}}), halves, scale);
      EXPECT_LT(lines.At(30, 30).Red, scale < 1 ? 160 : 90) << degrees << ' ' << scale;
      const double angle = AdvancedGraphicsModule::Radian(degrees);
      for (const double side : {-26.0, 26.0}) {
        const int x = static_cast<int>(30.5 + side * std::cos(angle));
        const int y = static_cast<int>(30.5 - side * std::sin(angle));
        EXPECT_GT(lines.At(x, y).Red, 250) << degrees << ' ' << scale;
      }
    }
  }
  // Colours of one lightness have an edge as well, and its line is grey.
  Picture colors = PlainPicture(40, 40, {200, 60, 60});
  Graphics g(colors);
  g.ForeColor = {60, 130, 60};
  g.FillRect(20, 0, 20, 40);
  const Color line = Applied<EffectModuleLineArt>(With({{"Mode", 1}}), colors, 1).At(20, 20);
  EXPECT_LT(line.Red, 20);
  EXPECT_EQ(line.Red, line.Blue);
}

TEST(Sharpen, IsTheConvolutionAtScaleOneAndWidensWithTheScale) {
  const Picture photo = TestPicture(80, 60);
  EXPECT_EQ(LargestDifference(Applied<EffectModuleSharpen>({}, photo, 1),
                              ConvolutionEffect().Sharpen(photo)),
            0);
  // Beside it the filter has no step.
  EXPECT_LE(LargestDifference(Applied<EffectModuleSharpen>({}, photo, 0.99),
                              ConvolutionEffect().Sharpen(photo)),
            8);
  // The halo of an edge reaches further in a larger picture, and is as high.
  const auto halo = [](double scale) {
    Picture halves = PlainPicture(200, 8, {90, 90, 90});
    Graphics g(halves);
    g.ForeColor = {130, 130, 130};
    g.FillRect(100, 0, 100, 8);
    const Picture sharp = Applied<EffectModuleSharpen>({}, halves, scale);
    int reach = 0;
    while (sharp.At(100 + reach, 4).Red > 134) ++reach;
    EXPECT_EQ(sharp.At(10, 4).Red, 90);
    EXPECT_EQ(sharp.At(190, 4).Red, 130);
    return std::pair{reach, static_cast<int>(sharp.At(100, 4).Red)};
  };
  EXPECT_EQ(halo(1).first, 1);
  EXPECT_NEAR(halo(3).first, 3, 1);
  EXPECT_NEAR(halo(6).first, 7, 1);
  EXPECT_GT(halo(3).second, 160);
  EXPECT_NEAR(halo(6).second, halo(3).second, 8);
  EXPECT_LT(halo(0.5).second, halo(1).second);
}

TEST(Interlace, DarkensByWhatOfARowItsLinesCover) {
  // Three pixels a band: quarters that end between pixels.
  const Picture lines = Applied<EffectModuleInterlace>({}, PlainPicture(4, 300, kWhite), 1);
  const auto dark = [&](int y) { return (255 - lines.At(2, y).Red) / 255.0; };
  EXPECT_NEAR(dark(0), 0.75 * 0.5 + 0.25, 0.01);
  EXPECT_NEAR(dark(1), 1, 0.01);
  EXPECT_NEAR(dark(2), dark(0), 0.01);
  for (const int y : {3, 4, 5, 9}) EXPECT_EQ(lines.At(2, y), kWhite) << y;
  EXPECT_EQ(lines.At(2, 6), lines.At(2, 0));
  // Whatever the height, the same share of light is left.
  for (const int height : {333, 480, 1067}) {
    const Picture other = Applied<EffectModuleInterlace>({}, PlainPicture(2, height, kWhite), 1);
    double sum = 0;
    for (int y = 0; y < height; ++y) sum += other.At(0, y).Red;
    EXPECT_NEAR(sum / height, 255 * 0.625, 2) << height;
  }
}

TEST(Shadows, AreOneLookWhereverTheyFall) {
  // The grid of profiles, the vector layer and the stamps are three ways to the same shadow.
  for (const int blur : {3, 8, 24}) {
    Picture grid = PlainPicture(160, 140, kWhite);
    const SoftShadow::Side across{60, 100};
    const SoftShadow::Side down{55 + 6, 85 + 6};
    SoftShadow::LayGrid(grid, {&across, 1}, {&down, 1}, blur);
    Picture drawn = PlainPicture(160, 140, kWhite);
    {
      AdvancedGraphics g(drawn);
      g.SetShadow(0, -6, blur);
      g.SetFillColor(kBlack, 1);
      g.DrawRect(MakeCGRect(60, 55, 40, 30), kFill);
    }
    const ShapeStamp stamp(
        40, 30, 1, ShapeStamp::Shadow{6, 1.0 * blur},
        [](AdvancedGraphics& g, double left, double top) {
          g.DrawRect(MakeCGRect(static_cast<float>(left), static_cast<float>(top), 40, 30), kFill);
        });
    Picture stamped = PlainPicture(160, 140, kWhite);
    stamp.Lay(stamped.Edit(), kBlack, 60, 55, 0, 140);
    std::set<int> greys;
    for (int y = 0; y < 140; ++y) {
      for (int x = 0; x < 160; ++x) {
        const bool shape = x >= 60 && x < 100 && y >= 55 && y < 85;
        if (shape) continue;
        ASSERT_NEAR(drawn.At(x, y).Green, grid.At(x, y).Green, 2) << blur << ' ' << x << ' ' << y;
        ASSERT_NEAR(stamped.At(x, y).Green, grid.At(x, y).Green, 2) << blur << ' ' << x << ' ' << y;
        greys.insert(grid.At(x, y).Green);
      }
    }
    // It falls off softly, from the middle of its edge, and ends.
    EXPECT_GT(greys.size(), 25U) << blur;
    const int edge = grid.At(80, 91).Green;
    EXPECT_NEAR(edge, blur > 20 ? 214 : 209, 8) << blur;
    for (int y = 86; y < 139; ++y) {
      EXPECT_LE(grid.At(80, y).Green, grid.At(80, y + 1).Green) << blur << ' ' << y;
    }
    EXPECT_EQ(grid.At(2, 2), kWhite);
  }
}

TEST(Shadows, OfSegmentsAreSoft) {
  const Picture plain = PlainPicture(300, 200, kWhite);
  const Picture cut = Applied<EffectModuleSegment>(
      With({{"tileCount", 2}, {"Distance", 40}, {"backColor", kWhite}, {"DropShadow", true}}),
      plain, 1);
  // Down from the lower edge of a piece the sheet becomes lighter step by step.
  std::set<int> greys;
  for (int y = 81; y < 99; ++y) {
    greys.insert(cut.At(75, y).Green);
    EXPECT_LE(std::abs(cut.At(75, y).Green - cut.At(75, y + 1).Green), 12) << y;
  }
  EXPECT_GT(greys.size(), 12U);
}

TEST(Stamps, AreFineOnSmallShapesAndWholeOnLargeOnes) {
  const auto tile = [](float size) {
    return FineStamps(
        static_cast<int>(size), static_cast<int>(size), 1, std::nullopt,
        [size](AdvancedGraphics& g, double left, double top) {
          g.DrawRect(MakeCGRect(static_cast<float>(left), static_cast<float>(top), size, size),
                     kFill);
        });
  };
  FineStamps small = tile(8);
  Picture picture = PlainPicture(40, 40, kWhite);
  LayPieces(picture, {small.At(5.5, 6, kBlack), small.At(-3.25, 30, kBlack)});
  EXPECT_NEAR(picture.At(5, 8).Red, 128, 2) << "half of the pixel is covered";
  EXPECT_EQ(picture.At(6, 8), kBlack);
  EXPECT_NEAR(picture.At(13, 8).Red, 128, 2);
  EXPECT_EQ(picture.At(8, 5), kWhite);
  EXPECT_EQ(picture.At(3, 33), kBlack);
  EXPECT_NEAR(picture.At(4, 33).Red, 64, 2);
  EXPECT_EQ(small.At(5.5, 6, kBlack).stamp, small.At(9.5, 1, kWhite).stamp);
  FineStamps large = tile(90);
  EXPECT_EQ(large.At(5.5, 6.2, kBlack).stamp, large.At(9.1, 1, kWhite).stamp);
}

}  // namespace
}  // namespace brivolant::test
