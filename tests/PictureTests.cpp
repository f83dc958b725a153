// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>

#include "Helpers.h"
#include "engine/pictures/BlendEffect.h"
#include "engine/pictures/ExtendedPicture.h"
#include "engine/pictures/PictureEffects.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "platform/codecs/Orientation.h"
#include "platform/pictures/Graphics.h"

namespace brivolant::test {
namespace {

namespace spe = SharedPictureEffects;

TEST(Picture, IsAValueThatSharesUntilWritten) {
  const Picture original = TestPicture(40, 30);
  Picture copy = original;
  EXPECT_TRUE(copy.SharesPixelsWith(original));
  RGBSurface(copy).Pixel(3, 4, {1, 2, 3});
  EXPECT_FALSE(copy.SharesPixelsWith(original));
  EXPECT_EQ(copy.At(3, 4), (Color{1, 2, 3}));
  EXPECT_NE(original.At(3, 4), (Color{1, 2, 3}));

  copy.Mask(true)->Edit().Row(0)[0] = 255;
  Picture masked = copy;
  masked.Mask(false)->Edit().Row(0)[0] = 7;
  EXPECT_EQ(copy.Mask()->At(0, 0), 255);
  EXPECT_EQ(copy.Mask()->At(1, 1), 0) << "a new mask is opaque";

  EXPECT_TRUE(Picture().IsNil());
  EXPECT_TRUE(NewPicture(0, 5, 24).IsNil());
  EXPECT_TRUE(NewPicture(100000, 100000, 24).IsNil());
  EXPECT_EQ(NewPicture(2, 2, 24).At(1, 1), kWhite);
}

TEST(Picture, LargeBlocksAreReusedWithoutMixingPictures) {
  const Picture kept = PlainPicture(2000, 1500, {10, 20, 30});
  for (int i = 0; i < 4; ++i) {
    Picture other = PlainPicture(2000, 1490 + i, {200, 0, 0});
    Picture third = other;
    RGBSurface(third).Pixel(0, 0, kBlack);
    EXPECT_EQ(other.At(0, 0), (Color{200, 0, 0}));
  }
  EXPECT_EQ(kept.At(1999, 1499), (Color{10, 20, 30}));
}

TEST(Graphics, DrawsPicturesThroughMasksAndScales) {
  Picture target = PlainPicture(10, 10, kWhite);
  Picture source = PlainPicture(4, 4, {200, 0, 0});
  source.Mask(true)->Edit().Row(0)[0] = 255;
  source.Mask(true)->Edit().Row(0)[1] = 128;
  Graphics(target).DrawPicture(source, 8, 8);
  EXPECT_EQ(target.At(8, 8), kWhite);
  EXPECT_EQ(target.At(9, 8).Red, 228);
  EXPECT_EQ(target.At(9, 9), (Color{200, 0, 0}));
  EXPECT_EQ(target.At(7, 9), kWhite);
  Graphics(target).DrawPicture(PlainPicture(2, 2, {0, 9, 0}), -1, -1, 3, 3);
  EXPECT_EQ(target.At(1, 1), (Color{0, 9, 0}));
  EXPECT_EQ(target.At(2, 2), kWhite);

  Picture oneBit = NewPicture(2, 1, 1);
  Picture grey = PlainPicture(2, 1, {127, 127, 127});
  RGBSurface(grey).Pixel(1, 0, {128, 128, 128});
  Graphics(oneBit).DrawPicture(grey, 0, 0);
  EXPECT_EQ(oneBit.At(0, 0), kBlack);
  EXPECT_EQ(oneBit.At(1, 0), kWhite);

  Plane mask(2, 1, 0);
  Graphics(mask).DrawPicture(grey, 0, 0);
  EXPECT_EQ(mask.At(1, 0), 128);
}

TEST(Graphics, ShapesAndFloodFill) {
  Picture picture = NewPicture(20, 20, 24);
  {
    Graphics g(picture);
    g.UseOldRenderer = true;
    g.ForeColor = {0, 0, 255};
    g.DrawRect(2, 2, 10, 10);
    g.FillRect(14, 14, 4, 4);
    EXPECT_EQ(g.Width(), 20);
  }
  EXPECT_EQ(picture.At(2, 2), (Color{0, 0, 255}));
  EXPECT_EQ(picture.At(11, 11), (Color{0, 0, 255}));
  EXPECT_EQ(picture.At(12, 12), kWhite);
  EXPECT_EQ(picture.At(3, 3), kWhite);
  EXPECT_EQ(picture.At(17, 17), (Color{0, 0, 255}));
  RGBSurface(picture).FloodFill(5, 5, {255, 0, 0});
  EXPECT_EQ(picture.At(10, 10), (Color{255, 0, 0}));
  EXPECT_EQ(picture.At(12, 12), kWhite) << "the outline holds";
  RGBSurface(picture).FloodFill(-1, 0, kBlack);
}

TEST(SharedPictureEffects, ScaleModes) {
  const Picture source = TestPicture(400, 300);
  EXPECT_TRUE(spe::Scale({}, 10, 10, 0).IsNil());
  EXPECT_TRUE(spe::Clone({}, 24, true).IsNil());
  const Picture fitted = spe::Scale(source, 100, 100, spe::kScaleToFit);
  EXPECT_EQ(fitted.Width(), 100);
  EXPECT_EQ(fitted.Height(), 75);
  EXPECT_EQ(spe::Scale(source, 1600, 1600, spe::kScaleToFit).Height(), 1200);

  Picture halves = PlainPicture(400, 300, kBlack);
  {
    Graphics g(halves);
    g.FillRect(0, 0, 400, 300);
    g.ForeColor = kWhite;
    g.FillRect(0, 0, 200, 300);
  }
  const Picture filled = spe::Scale(halves, 100, 100, spe::kScaleToFill);
  EXPECT_EQ(filled.Width(), 100);
  EXPECT_EQ(filled.At(40, 50), kWhite);
  EXPECT_EQ(filled.At(60, 50), kBlack);
  const Pair right{100, 100};
  const Picture pushed = spe::Scale(halves, 100, 100, spe::kScaleToFill, &right);
  EXPECT_EQ(pushed.At(60, 50), kWhite) << "moved as far as it covers, and no further";
  EXPECT_EQ(pushed.At(75, 50), kBlack);
}

TEST(SharedPictureEffects, MasksFollow) {
  Picture source = TestPicture(6, 4);
  source.Mask(true)->Edit().Row(0)[0] = 255;
  EXPECT_EQ(spe::Flip(source, 0).Mask()->At(5, 0), 255);
  EXPECT_EQ(spe::Flip(source, 1).Mask()->At(0, 3), 255);
  EXPECT_EQ(spe::Flip(source, 2).Mask()->At(5, 3), 255);
  EXPECT_TRUE(spe::Flip(source, 3).SharesPixelsWith(source));
  EXPECT_EQ(spe::Invert(source).Mask()->At(0, 0), 255);
  const Picture turned = spe::Rotate(source, 90, kWhite, 1);
  EXPECT_EQ(turned.Width(), 4);
  EXPECT_EQ(turned.Mask()->At(3, 0), 255);
  EXPECT_EQ(turned.At(3, 0), source.At(0, 0)) << "clockwise";
  EXPECT_EQ(spe::Scale(source, 12, 8, 0).Mask()->At(0, 0), 255);
  EXPECT_EQ(spe::Blend(source, TestPicture(6, 4, 2), 0, 1).Mask()->At(0, 0), 255);
  const Picture ignoring = spe::Clone(source, 24, true);
  EXPECT_EQ(ignoring.Mask(), nullptr);
  EXPECT_EQ(ignoring.At(0, 0), kWhite) << "what was transparent is drawn on white";
  EXPECT_EQ(spe::Clone(source, 24, false).At(0, 0), source.At(0, 0));
}

TEST(SharedPictureEffects, RotationByAnyAngle) {
  const Picture source = PlainPicture(60, 40, {200, 10, 10});
  const Picture turned = spe::Rotate(source, 30, {0, 0, 255}, 1);
  EXPECT_EQ(turned.Width(), 72);
  EXPECT_EQ(turned.Height(), 65);
  EXPECT_EQ(turned.At(0, 0), (Color{0, 0, 255}));
  EXPECT_EQ(turned.At(36, 32), (Color{200, 10, 10}));
  // A mark near the right edge moves down when turning clockwise.
  Picture marked = PlainPicture(61, 61, kBlack);
  RGBSurface(marked).Pixel(60, 30, kWhite);
  const Picture down = spe::Rotate(marked, 45, kBlack, 1);
  int brightest = 0;
  int at = 0;
  for (int i = 0; i < down.Width() * down.Height(); ++i) {
    const Color pixel = down.At(i % down.Width(), i / down.Width());
    if (pixel.Red > brightest) {
      brightest = pixel.Red;
      at = i;
    }
  }
  EXPECT_GT(at / down.Width(), down.Height() / 2 + 15);
  EXPECT_TRUE(spe::Rotate(source, 360, kWhite, 1).SameAs(source));
  EXPECT_TRUE(spe::RotateForBestFit(source, 10, 10).SharesPixelsWith(source));
  EXPECT_EQ(spe::RotateForBestFit(source, 10, 20).Width(), 40);
}

TEST(SharedPictureEffects, BlurAndExposure) {
  const Picture source = TestPicture(50, 40);
  EXPECT_TRUE(spe::GaussianBlur(source, 0.0).SharesPixelsWith(source));
  EXPECT_FALSE(spe::GaussianBlur(source, 1.0).SameAs(source)) << "the smallest radius blurs";
  // A very wide blur goes over a smaller copy; it must join on to what lies below.
  const Picture wide = PlainPicture(400, 300, {90, 90, 90});
  EXPECT_EQ(LargestDifference(spe::GaussianBlur(wide, 900), wide), 0);
  Picture edge = NewPicture(1200, 40, 24);
  {
    Graphics g(edge);
    g.FillRect(0, 0, 600, 40);
  }
  EXPECT_LE(LargestDifference(spe::GaussianBlur(edge, 200), spe::GaussianBlur(edge, 202)), 3);

  const ToneTable plus = spe::ExposureTable(10);
  EXPECT_EQ(plus[0], 0);
  EXPECT_EQ(plus[255], 255);
  EXPECT_EQ(plus[64],
            static_cast<int>((64 / 255.0 + std::sqrt(64 / 255.0) * (1 - 64 / 255.0)) * 255));
  const ToneTable none = spe::ExposureTable(0);
  for (int i = 0; i < 256; ++i) EXPECT_NEAR(none[static_cast<std::size_t>(i)], i, 1);
}

TEST(SharedPictureEffects, WordsAndNumbers) {
  const EnglishNumbers english;
  EXPECT_EQ(spe::AspectRatioAsPair(1000, 1000), (Pair{1, 1}));
  EXPECT_EQ(spe::AspectRatio(1600, 1200), "4 : 3");
  EXPECT_EQ(spe::AspectRatio(1600, 900), "16 : 9");
  EXPECT_EQ(spe::AspectRatio(3, 1), "3 : 1") << "the unit never becomes zero";
  EXPECT_EQ(spe::Megapixel(4000, 3000), "12.0 Megapixel");
  EXPECT_EQ(spe::PrintSize(2480, 3508, 0, false, 300, false),
            "A4 (8.3\" x 11.7\") or US Letter (8.5\" x 11.0\")");
  EXPECT_EQ(spe::PrintSize(9933, 14043, 0, false, 300, false), "A0 (33.1\" x 46.8\")");
  EXPECT_EQ(spe::ClampValue(-1), 0);
  EXPECT_EQ(spe::ClampValue(256), 255);
  EXPECT_NEAR(spe::Radians(180), 3.141592653589793, 1e-12);
  PopupMenu sizes;
  spe::PopulateWithDefaultImageSizes(sizes);
  EXPECT_EQ(sizes.RowCount(), 14);
  EXPECT_EQ(sizes.At(5).Text, "2 Megapixel (1600 x 1200)");
  EXPECT_NEAR(sizes.At(8).Tag.As<Pair>()->Left, 595.2755905511812, 1e-9);
  PopupMenu modes;
  PictureExtensions::PopulatePopupMenuWithAvailableBlendModes(modes);
  EXPECT_EQ(modes.RowCount(), 16);
  EXPECT_EQ(modes.At(9).Text, "Hard Light");
}

TEST(BlendEffect, LandsOnItsRectangleOnly) {
  const Picture base = TestPicture(30, 20);
  const Picture fill = PlainPicture(5, 5, {1, 2, 3});
  BlendEffect blender;
  const Point where{-2, 15};
  const Point size{10, 10};
  const Picture result = blender.Apply(base, fill, 1.0, nullptr, &where, &size);
  EXPECT_EQ(result.Width(), 30);
  EXPECT_EQ(result.At(7, 19), (Color{1, 2, 3}));
  EXPECT_EQ(result.At(8, 19), base.At(8, 19));
  EXPECT_EQ(result.At(0, 14), base.At(0, 14));
  EXPECT_TRUE(blender.Apply(base, fill, 0).SharesPixelsWith(base));
  blender.BlendMode = 99;
  EXPECT_EQ(LargestDifference(blender.Apply(base, fill, 1), PlainPicture(30, 20, {1, 2, 3})), 0)
      << "an unknown mode is Normal";
  const Plane transparent(30, 20, 255);
  EXPECT_EQ(LargestDifference(blender.Apply(base, fill, 1, &transparent), base), 0);
}

TEST(PictureEffects, MasksLimitThem) {
  const Picture source = TestPicture(20, 10);
  Plane mask(20, 10, 255);
  for (int y = 0; y < 10; ++y) mask.Edit().Row(y)[0] = 0;
  for (const Picture& changed :
       {InvertEffect().Apply(source, &mask), BrightnessEffect().Apply(source, 90, &mask),
        ContrastEffect().Apply(source, 50, &mask), GaussianBlur(9).ApplyEffect(source, &mask),
        HueSaturation(120, 0, 0).ApplyEffect(source, &mask)}) {
    bool first = false;
    for (int y = 0; y < 10; ++y) {
      first = first || changed.At(0, y) != source.At(0, y);
      for (int x = 1; x < 20; ++x) ASSERT_EQ(changed.At(x, y), source.At(x, y));
    }
    EXPECT_TRUE(first);
  }
}

TEST(HueSaturation, TurnsHuesAndReachesGrey) {
  const Picture red = PlainPicture(2, 2, {200, 40, 40});
  const auto apply = [](const Picture& p, double h, double s, double l) {
    return HueSaturation(h, s, l).ApplyEffect(p).At(0, 0);
  };
  EXPECT_EQ(apply(red, 120, 0, 0), (Color{40, 200, 40}));
  EXPECT_EQ(apply(red, -120, 0, 0), (Color{40, 40, 200}));
  EXPECT_EQ(apply(red, 0, -200, 0), (Color{120, 120, 120}));
  EXPECT_EQ(apply(red, 0, 200, 0), (Color{240, 0, 0}));
  EXPECT_EQ(apply(red, 0, 0, 100), kWhite);
  EXPECT_EQ(apply(red, 0, 0, -100), kBlack);
  const Picture any = TestPicture(40, 40);
  EXPECT_LE(LargestDifference(HueSaturation(0, 0, 0).ApplyEffect(any), any), 0);
  EXPECT_LE(LargestDifference(HueSaturation(360, 0, 0).ApplyEffect(any), any), 1);
}

TEST(ExtendedPicture, OrientationsTurnUprightAsTheirTransformSays) {
  for (int orientation = 1; orientation <= 8; ++orientation) {
    DecodedImage image{TestPicture(7, 4), {}, {}};
    image.Properties.Orientation = orientation;
    ExtendedPicture picture(image);
    const AffineTransform t = picture.Transformer();
    picture.ApplyOrientation();
    EXPECT_EQ(picture.Orientation(), 1);
    EXPECT_EQ(picture.Width(), orientation >= 5 ? 4 : 7);
    for (int y = 0; y < 4; ++y) {
      for (int x = 0; x < 7; ++x) {
        const double tx = t.a * (x + 0.5) + t.c * (y + 0.5) + t.tx;
        const double ty = t.b * (x + 0.5) + t.d * (y + 0.5) + t.ty;
        ASSERT_EQ(picture.Picture().At(static_cast<int>(tx), static_cast<int>(ty)),
                  image.Pixels.At(x, y))
            << orientation;
      }
    }
  }
  EXPECT_EQ(ExtendedPicture(TestPicture(2, 2)).ColorProfile(), "None");
}

}  // namespace
}  // namespace brivolant::test
