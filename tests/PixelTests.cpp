// SPDX-License-Identifier: MIT
// Kernels and drawing helpers against plain forms of themselves.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "Helpers.h"
#include "engine/pictures/AdvancedGraphics.h"
#include "engine/pictures/PictureEffects.h"
#include "engine/pictures/ShapeStamp.h"
#include "engine/pictures/TextureRenderer.h"
#include "platform/pictures/Noise.h"
#include "platform/pictures/kernels/ColorKernels.h"
#include "platform/pictures/kernels/ComposeKernels.h"
#include "platform/pictures/kernels/ConvolveKernels.h"
#include "platform/pictures/kernels/LookKernels.h"
#include "platform/pictures/kernels/ToneKernels.h"
#include "platform/pictures/kernels/TurnKernels.h"

namespace brivolant::test {
namespace {

constexpr Color kPink{255, 0, 200};

TEST(HueRanges, ChangeTheirOwnColorsAlone) {
  // Of two neighbours one fades in as the other fades out.
  for (int hue = -30; hue < 400; hue += 5) {
    double sum = 0;
    for (int range = 0; range < kernels::kHueRanges; ++range) {
      sum += kernels::ShareOfRange(range, hue);
    }
    EXPECT_NEAR(sum, 1, 1e-9) << hue;
  }
  EXPECT_EQ(kernels::ShareOfRange(0, 350), 1);
  EXPECT_EQ(kernels::ShareOfRange(0, 60), 0);
  HueSaturation shift;
  shift.Hue(5, 120);  // blues become reds
  shift.Saturation(3, -200);
  shift.Lightness(0, 0);
  const auto changed = [&](Color color) {
    return shift.ApplyEffect(PlainPicture(3, 2, color)).At(1, 1);
  };
  EXPECT_EQ(changed({0, 0, 200}), (Color{200, 0, 0}));
  EXPECT_EQ(changed({200, 0, 0}), (Color{200, 0, 0}));
  EXPECT_EQ(changed({0, 100, 0}), (Color{50, 50, 50}));
  EXPECT_EQ(changed({90, 90, 90}), (Color{90, 90, 90}));
  // The first channel works on all, with the ranges on top; the plain form agrees where there are
  // none.
  const Picture photo = TestPicture(40, 30);
  HueSaturation all(30, 40, -10);
  HueSaturation same;
  for (int range = 1; range <= kernels::kHueRanges; ++range) same.Hue(range, 30);
  same.Saturation(0, 40);
  same.Lightness(0, -10);
  EXPECT_LE(LargestDifference(all.ApplyEffect(photo), same.ApplyEffect(photo)), 1);
  same.Reset();
  EXPECT_TRUE(same.ApplyEffect(photo).SameAs(photo));
  EXPECT_THROW(same.Hue(7, 1), std::out_of_range);
}

TEST(TextureRenderers, MixPatternAndSourceByTheirLevels) {
  const Picture photo = TestPicture(90, 70);
  TextureRenderer renderer;
  const std::array<Picture, 5> drawn{renderer.RenderClouds(photo), renderer.RenderWood(photo),
                                     renderer.RenderMarble(photo), renderer.RenderTextile(photo),
                                     renderer.RenderLabyrinth(photo)};
  for (std::size_t i = 0; i < drawn.size(); ++i) {
    EXPECT_GT(LargestDifference(drawn.at(i), photo), 20) << i;
    for (std::size_t k = 0; k < i; ++k) {
      EXPECT_GT(LargestDifference(drawn.at(i), drawn.at(k)), 20) << i << k;
    }
  }
  EXPECT_TRUE(renderer.RenderClouds(photo).SameAs(drawn[0]));
  renderer.Seed = 2;
  EXPECT_FALSE(renderer.RenderClouds(photo).SameAs(drawn[0]));
  EXPECT_FALSE(renderer.RenderWood(photo, nullptr, 5).SameAs(renderer.RenderWood(photo)));
  // Half and half lies between half of the source and all of it.
  renderer.OriginalLevel = 1;
  renderer.TextureLevel = 0;
  double done = 0;
  renderer.ProgressHandler = [&done](double share) { done = share; };
  EXPECT_EQ(LargestDifference(renderer.RenderMarble(photo), photo), 0);
  EXPECT_EQ(done, 1);
  renderer.OriginalLevel = 0;
  renderer.TextureLevel = 1;
  renderer.UseTextureColor = true;
  renderer.TextureColor = {0, 0, 250};
  const Picture blue = renderer.RenderClouds(photo);
  int most = 0;
  for (int y = 0; y < 70; ++y) {
    for (int x = 0; x < 90; ++x) {
      ASSERT_EQ(blue.At(x, y).Red, 0);
      most = std::max<int>(most, blue.At(x, y).Blue);
    }
  }
  EXPECT_GT(most, 130);
  const Plane none(90, 70, 255);
  EXPECT_EQ(LargestDifference(renderer.RenderClouds(photo, &none), photo), 0);
  EXPECT_TRUE(renderer.RenderWood({}).IsNil());
}

TEST(ConvolveKernels, AgreeWithTheSumOfNine) {
  const std::array<kernels::Convolution3x3, 6> matrices{{
      {{0, -2, 0, -2, 11, -2, 0, -2, 0}, 3, 0},
      {{1, 1, 1, 0, 0, 0, -1, -1, -1}, 1, 127},
      {{1, 2, 1, 2, 4, 2, 1, 2, 1}, 16, 0},
      {{-1, -1, -1, -1, 9, -1, -1, -1, -1}, 1, 0},
      {{-1, 0, -1, 0, 4, 0, -1, 0, -1}, 1, 127},
      // Too large for 16 bits.
      {{900, 0, 0, 0, -800, 0, 0, 0, 20}, 100, 5},
  }};
  for (const auto& size : {std::pair{1, 1}, {2, 3}, {9, 4}, {40, 17}, {67, 5}}) {
    const Picture photo = TestPicture(size.first, size.second);
    Picture out = Picture::Uninitialized(size.first, size.second);
    for (const kernels::Convolution3x3& matrix : matrices) {
      kernels::Convolve(photo.View(), out.Edit(), matrix);
      for (int y = 0; y < size.second; ++y) {
        for (int x = 0; x < size.first; ++x) {
          double sum = 0;
          for (int i = 0; i < 9; ++i) {
            const int px = std::clamp(x + i % 3 - 1, 0, size.first - 1);
            const int py = std::clamp(y + i / 3 - 1, 0, size.second - 1);
            sum += matrix.weights.at(static_cast<std::size_t>(i)) * photo.At(px, py).Green;
          }
          const double level =
              std::clamp(std::round(sum / matrix.divisor) + matrix.offset, 0.0, 255.0);
          ASSERT_EQ(out.At(x, y).Green, level) << size.first << ' ' << x << ' ' << y;
        }
      }
      ASSERT_EQ(out.View().Row(0)[3], 255);
    }
  }
}

TEST(Stamps, LayShapeAndShadowOnTheirRowsAlone) {
  const ShapeStamp stamp(20, 10, 1, ShapeStamp::Shadow{4, 4},
                         [](AdvancedGraphics& g, int x, int y) {
                           g.DrawRect(AdvancedGraphicsModule::MakeCGRect(
                                          static_cast<float>(x), static_cast<float>(y), 20, 10),
                                      kFill);
                         });
  const Picture plain = PlainPicture(61, 50, kWhite);
  Picture laid = plain;
  stamp.Lay(laid.Edit(), kPink, 15, 12, 0, 50);
  EXPECT_EQ(laid.At(15, 12), kPink);
  EXPECT_EQ(laid.At(34, 21), kPink);
  EXPECT_EQ(laid.At(14, 5), kWhite);
  const Color shadow = laid.At(25, 23);
  EXPECT_LT(shadow.Red, 230);
  EXPECT_EQ(shadow.Red, shadow.Green);
  EXPECT_EQ(laid.At(25, 40), kWhite);
  // In bands it is the same; beyond the borders it is cut.
  Picture banded = plain;
  for (int row = 0; row < 50; row += 7) {
    if (stamp.Touches(12, row, row + 7)) stamp.Lay(banded.Edit(), kPink, 15, 12, row, row + 7);
  }
  EXPECT_TRUE(banded.SameAs(laid));
  for (const auto& [x, y] : {std::pair{-15, -5}, {55, 45}, {-400, 0}, {0, 400}}) {
    Picture cut = plain;
    stamp.Lay(cut.Edit(), kPink, x, y, 0, 50);
    EXPECT_EQ(cut.At(60 * (x < 0), 0 + 49 * (y < 0)), kWhite);
  }
  // Half an opacity is half the colour.
  const ShapeStamp half(20, 10, 0.5, std::nullopt, [](AdvancedGraphics& g, int x, int y) {
    g.DrawRect(
        AdvancedGraphicsModule::MakeCGRect(static_cast<float>(x), static_cast<float>(y), 20, 10),
        kFill);
  });
  Picture light = plain;
  half.Lay(light.Edit(), kBlack, 15, 12, 0, 50);
  EXPECT_NEAR(light.At(20, 15).Green, 127, 1);
}

/// (over * (255 - mask) + under * mask) / 255, rounded.
int Mixed(int over, int under, int mask) {
  return static_cast<int>(std::lround((over * (255 - mask) + under * mask) / 255.0));
}

TEST(Masks, MixAsTheirFormulaSaysAtEveryWidthAndPlace) {
  for (const int width : {1, 3, 4, 7, 8, 15, 16, 17, 33}) {
    const Picture over = TestPicture(width, 5, 3);
    const Plane mask = TestPlane(width, 5, 4);
    const Picture under = TestPicture(40, 9, 5);
    for (const auto& [x, y] : {std::pair{0, 0}, {3, 2}, {-2, -1}, {38, 7}, {5, -9}}) {
      Picture mixed = under;
      kernels::Compose(mixed.Edit(), over.View(), mask.View(), x, y);
      for (int row = 0; row < 9; ++row) {
        for (int column = 0; column < 40; ++column) {
          const int sx = column - x;
          const int sy = row - y;
          const bool covered = sx >= 0 && sy >= 0 && sx < width && sy < 5;
          const Color below = under.At(column, row);
          const Color found = mixed.At(column, row);
          if (!covered) {
            ASSERT_EQ(found, below) << width << ' ' << column << ' ' << row;
            continue;
          }
          const Color above = over.At(sx, sy);
          const int m = mask.At(sx, sy);
          ASSERT_EQ(found.Red, Mixed(above.Red, below.Red, m)) << width;
          ASSERT_EQ(found.Green, Mixed(above.Green, below.Green, m)) << width;
          ASSERT_EQ(found.Blue, Mixed(above.Blue, below.Blue, m)) << width;
        }
      }
      ASSERT_EQ(mixed.View().Row(4)[3], 255);
    }
  }
}

TEST(Rewriting, LeavesSharedPixelsAndWritesItsOwnInPlace) {
  ToneTable negative{};
  for (int i = 0; i < 256; ++i) {
    negative[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(255 - i);
  }
  const Picture original = TestPicture(30, 20);
  Picture shared = original;
  {
    const Picture::Rewriting pixels = shared.Rewrite();
    EXPECT_NE(pixels.from.data, pixels.to.data);
    kernels::ApplyToneTables(pixels.from, pixels.to, ToneTables::All(negative));
  }
  EXPECT_EQ(shared.At(7, 7).Green, 255 - original.At(7, 7).Green);
  EXPECT_TRUE(original.SameAs(TestPicture(30, 20)));
  const std::uint8_t* before = shared.View().data;
  {
    const Picture::Rewriting pixels = shared.Rewrite();
    EXPECT_EQ(pixels.from.data, pixels.to.data);
    kernels::ApplyToneTables(pixels.from, pixels.to, {negative, negative, IdentityTable()});
  }
  EXPECT_EQ(shared.View().data, before);
  EXPECT_EQ(shared.At(7, 7).Green, original.At(7, 7).Green);
  EXPECT_EQ(shared.At(7, 7).Blue, 255 - original.At(7, 7).Blue);
}

TEST(Rotation, ByAnyAngleTakesEveryPixelFromItsPlace) {
  const Picture photo = TestPicture(41, 29);
  const Color back{9, 99, 200};
  for (const auto& [degrees, zoom] : {std::pair{0.0, 1.0}, {13.0, 1.0}, {-71.5, 1.4}, {180, 1}}) {
    Picture turned = Picture::Uninitialized(47, 53);
    kernels::RotateAnyAngle(photo.View(), turned.Edit(), degrees, back.RGB(), zoom);
    const double c = std::cos(degrees * std::numbers::pi / 180) / zoom;
    const double s = std::sin(degrees * std::numbers::pi / 180) / zoom;
    double farthest = 0;
    for (int y = 0; y < 53; ++y) {
      for (int x = 0; x < 47; ++x) {
        const double sx = 20 + (x - 23) * c + (y - 26) * s;
        const double sy = 14 - (x - 23) * s + (y - 26) * c;
        const double fx = std::floor(sx);
        const double fy = std::floor(sy);
        double level = 0;
        for (const auto& [dx, dy] : {std::pair{0, 0}, {1, 0}, {0, 1}, {1, 1}}) {
          const int px = static_cast<int>(fx) + dx;
          const int py = static_cast<int>(fy) + dy;
          const bool inside = px >= 0 && py >= 0 && px < 41 && py < 29;
          const double weight = (1 - std::abs(sx - px)) * (1 - std::abs(sy - py));
          level += weight * (inside ? photo.At(px, py).Green : back.Green);
        }
        farthest = std::max(farthest, std::abs(level - turned.At(x, y).Green));
      }
    }
    // A position lies within a few hundredths of a pixel at the border, where hard edges meet.
    EXPECT_LE(farthest, 2.5) << degrees;
  }
}

TEST(Bands, DrawAsOnePieceWould) {
  const auto draw = [](AdvancedGraphics& g) {
    g.SetFillColor(kPink, 0.6);
    g.DrawOval(AdvancedGraphicsModule::MakeCGRect(10, 5, 90, 120), kFill);
    g.SetStrokeColor(kBlack, 1);
    g.PenThickness(3);
    g.DrawLine(3, 2, 140, 111);
    AdvancedGraphicsPath star = g.NewPath();
    star.MoveToPoint(70, 20);
    star.AddCurveToPoint(120, 40, 20, 90, 70, 110);
    star.CloseSubpath();
    g.DrawPath(star, kFillAndStroke);
  };
  for (const int height : {1, 5, 131}) {
    const Picture photo = TestPicture(151, height);
    Picture banded = photo;
    DrawInBands(banded, draw);
    Picture whole = photo;
    {
      AdvancedGraphics g(whole);
      draw(g);
    }
    // Coordinates are rounded in each band anew.
    EXPECT_LE(LargestDifference(banded, whole), 4) << height;
  }
}

TEST(Noise, RepeatsAfterItsPeriodAndFillsItsRange) {
  double low = 0;
  double high = 0;
  double largestStep = 0;
  for (int i = 0; i < 4000; ++i) {
    const double u = i * 0.037;
    const double v = i * 0.011;
    const double value = GradientNoise(u, v, 7, 5, 3);
    ASSERT_NEAR(value, GradientNoise(u + 7, v - 5, 7, 5, 3), 1e-9);
    low = std::min(low, value);
    high = std::max(high, value);
    largestStep = std::max(largestStep, std::abs(value - GradientNoise(u + 1e-4, v, 7, 5, 3)));
  }
  EXPECT_LT(low, -0.6);
  EXPECT_GT(high, 0.6);
  EXPECT_LT(std::max(-low, high), 1.2);
  EXPECT_LT(largestStep, 1e-3) << "it has no jumps";
  EXPECT_EQ(GradientNoise(3, 2, 7, 5, 3), 0) << "at the corners of its cells it is nought";
  EXPECT_NE(GradientNoise(3.5, 2.5, 7, 5, 3), GradientNoise(3.5, 2.5, 7, 5, 4));
}

}  // namespace
}  // namespace brivolant::test
