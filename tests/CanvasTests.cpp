// SPDX-License-Identifier: MIT
// What a canvas of the vector layer keeps, how it blends, and what it clears.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <array>

#include "Helpers.h"
#include "engine/pictures/AdvancedGraphics.h"
#include "engine/pictures/BlendEffect.h"
#include "platform/pictures/Graphics.h"

namespace brivolant::test {
namespace {

using AdvancedGraphicsModule::MakeCGRect;

constexpr Color kRed{255, 0, 0};
constexpr Color kBlue{0, 0, 255};

/// The darkest green of a region: what of a shadow falls there.
int Darkest(const Picture& picture, int left, int top, int right, int bottom) {
  int least = 255;
  for (int y = top; y < bottom; ++y) {
    for (int x = left; x < right; ++x) least = std::min<int>(least, picture.At(x, y).Green);
  }
  return least;
}

TEST(Canvas, SavesAndRestoresAllOfItsState) {
  Picture picture = NewPicture(100, 100, 24);
  AdvancedGraphics g(picture);
  g.SetFillColor(kRed, 1);
  g.SetStrokeColor(kRed, 1);
  g.PenThickness(4);
  g.SaveState();
  g.SaveState();
  g.SetFillColor(kBlue, 0.3);
  g.SetStrokeColor(kBlue, 1);
  g.PenThickness(1);
  g.SetPenDashes(3, 3);
  g.SetShadow(4, -4, 2);
  g.BlendMode(1);
  g.Alpha(0.2);
  g.Translate(50, 50);
  g.Rotate(20);
  g.SetTextFontAndSize("Sans", 40);
  g.RestoreState();
  g.SetFillColor(kBlue, 1);
  g.RestoreState();
  g.DrawRect(MakeCGRect(10, 10, 20, 20), kFill);
  EXPECT_EQ(picture.At(12, 12), kRed);
  EXPECT_EQ(picture.At(29, 29), kRed);
  EXPECT_EQ(Darkest(picture, 31, 31, 45, 45), 255) << "no shadow is left";
  g.DrawLine(0, 20, 100, 20);
  for (const int x : {5, 8, 50, 95}) {
    EXPECT_EQ(picture.At(x, 78), kRed) << x;
    EXPECT_EQ(picture.At(x, 81), kRed) << x;
    EXPECT_EQ(picture.At(x, 83), kWhite) << x;
  }
  // One too many changes nothing.
  g.RestoreState();
  g.DrawRect(MakeCGRect(60, 10, 20, 20), kFill);
  EXPECT_EQ(picture.At(70, 15), kRed);
  // On grey a mode shows, and a text its font.
  Picture grey = NewPicture(60, 60, 24);
  AdvancedGraphics canvas(grey);
  canvas.SetFillColor({128, 128, 128}, 1);
  canvas.DrawRect(MakeCGRect(0, 0, 60, 60), kFill);
  canvas.SetFillColor(kRed, 1);
  canvas.SetTextFontAndSize("Sans", 6);
  canvas.SaveState();
  canvas.BlendMode(1);
  canvas.SetTextFontAndSize("Sans", 40);
  canvas.RestoreState();
  canvas.DrawRect(MakeCGRect(50, 50, 10, 10), kFill);
  EXPECT_EQ(grey.At(55, 55), kRed);
  canvas.DrawString("H", 2, 2);
  EXPECT_LT(Darkest(grey, 2, 50, 10, 59), 128) << "the text stands below";
  EXPECT_EQ(Darkest(grey, 0, 0, 40, 40), 128) << "and is small";
}

TEST(Canvas, LeavesAPainterOfSomeoneElseAsItWas) {
  QImage image(40, 40, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.translate(3, 4);
  {
    AdvancedGraphics g(painter, 30, 30);
    g.SaveState();
    g.Scale(2, 2);
    g.BlendMode(1);
    g.Alpha(0.5);
    // The saved state is never restored.
  }
  EXPECT_EQ(painter.worldTransform(), QTransform::fromTranslate(3, 4));
  EXPECT_EQ(painter.opacity(), 1);
  EXPECT_EQ(painter.compositionMode(), QPainter::CompositionMode_SourceOver);
}

TEST(Canvas, EverythingThrowsAShadowAsOpaqueAsItself) {
  const auto shadowOf = [](auto draw, double alpha = 1, double opacity = 1) {
    Picture picture = NewPicture(120, 120, 24);
    AdvancedGraphics g(picture);
    g.SetShadow(30, -40, 4);
    g.SetFillColor(kRed, alpha);
    g.SetStrokeColor(kRed, alpha);
    g.PenThickness(8);
    g.Alpha(opacity);
    draw(g);
    // Thirty to the right and forty down from what is drawn in the upper left.
    return 255 - Darkest(picture, 60, 70, 120, 120);
  };
  const auto rect = [](AdvancedGraphics& g) { g.DrawRect(MakeCGRect(20, 20, 30, 20), kFill); };
  EXPECT_NEAR(shadowOf(rect), 102, 2);
  EXPECT_NEAR(shadowOf(rect, 0.5), 51, 2);
  EXPECT_NEAR(shadowOf(rect, 1, 0.5), 51, 2);
  EXPECT_EQ(shadowOf(rect, 0), 0);
  EXPECT_GT(shadowOf([](AdvancedGraphics& g) { g.DrawRect(MakeCGRect(40, 40, 30, 20), kStroke); }),
            80);
  EXPECT_GT(shadowOf([](AdvancedGraphics& g) { g.DrawLine(35, 80, 80, 70); }), 80);
  EXPECT_GT(shadowOf([](AdvancedGraphics& g) {
              g.SetTextFontAndSize("Sans", 40);
              g.DrawString("H", 35, 75);
            }),
            50);
  Picture stamp = PlainPicture(10, 10, kBlue);
  const auto image = [&](AdvancedGraphics& g) { g.DrawImage(stamp, MakeCGRect(40, 40, 20, 20)); };
  EXPECT_NEAR(shadowOf(image), 102, 2);
  // Where a picture is transparent, light falls through.
  stamp.SetMask(Plane(10, 10, 255));
  EXPECT_EQ(shadowOf(image), 0);
}

TEST(Canvas, ShadowsFallTheSameInBandsAndWhateverTurnsTheShape) {
  const auto draw = [](AdvancedGraphics& g) {
    g.SetShadow(3, -5, 9);
    g.SetFillColor(kRed, 0.8);
    for (int i = 0; i < 5; ++i) {
      g.DrawOval(MakeCGRect(static_cast<float>(20 * i), static_cast<float>(17 * i), 22, 30), kFill);
    }
  };
  Picture whole = NewPicture(120, 110, 24);
  {
    AdvancedGraphics g(whole);
    draw(g);
  }
  Picture banded = NewPicture(120, 110, 24);
  DrawInBands(banded, draw);
  EXPECT_LE(LargestDifference(whole, banded), 1);
  Picture turned = NewPicture(120, 110, 24);
  {
    AdvancedGraphics g(turned);
    g.SetShadow(0, -30, 2);
    g.Translate(60, 70);
    g.Rotate(90);
    g.SetFillColor(kRed, 1);
    g.DrawPolygon(std::array<Point, 4>{{{-10, -10}, {10, -10}, {10, 10}, {-10, 10}}}, kFill);
  }
  EXPECT_EQ(turned.At(60, 40), kRed);
  EXPECT_NEAR(turned.At(60, 70).Green, 153, 3) << "below the shape, not beside it";
  EXPECT_EQ(turned.At(95, 40), kWhite);
}

TEST(Canvas, BlendsInEveryModeAsLayersDo) {
  const Picture ground = TestPicture(48, 32);
  const Color color{200, 90, 30};
  const Picture fill = PlainPicture(48, 32, color);
  for (int mode = 0; mode < 16; ++mode) {
    for (const double alpha : {1.0, 0.5}) {
      Picture drawn = ground;
      {
        AdvancedGraphics g(drawn);
        g.BlendMode(mode);
        g.SetFillColor(color, alpha);
        g.DrawRect(MakeCGRect(0, 0, 48, 32), kFill);
      }
      BlendEffect blender;
      blender.BlendMode = mode;
      EXPECT_LE(LargestDifference(drawn, blender.Apply(ground, fill, alpha)), 4)
          << mode << ' ' << alpha;
      EXPECT_GT(LargestDifference(drawn, ground), 0) << mode;
    }
  }
  // The layer is no larger than what is drawn.
  Picture part = ground;
  AdvancedGraphics g(part);
  g.BlendMode(15);
  g.SetFillColor(kWhite, 1);
  g.DrawRect(MakeCGRect(10, 5, 8, 6), kFill);
  EXPECT_EQ(part.At(9, 7), ground.At(9, 7));
  EXPECT_EQ(part.At(12, 7), kWhite);
  EXPECT_EQ(part.At(12, 12), ground.At(12, 12));
}

TEST(Canvas, ClearsPicturesToTransparentUntilTheyAreDrawnOnAgain) {
  Picture picture = PlainPicture(40, 30, kRed);
  {
    AdvancedGraphics g(picture);
    g.SetFillColor(kBlue, 1);
    g.DrawRect(MakeCGRect(0, 0, 5, 5), kFill);
    g.ClearRect(MakeCGRect(10, 5, 20, 10));
    g.Close();
    ASSERT_NE(picture.Mask(), nullptr);
    EXPECT_EQ(picture.Mask()->At(15, 10), 255);
    EXPECT_EQ(picture.Mask()->At(15, 15), 0);
    EXPECT_EQ(picture.Mask()->At(9, 10), 0);
    // Colours and state go on.
    g.DrawRect(MakeCGRect(10, 5, 5, 10), kFill);
    g.SetFillColor(kBlue, 0.5);
    g.DrawRect(MakeCGRect(25, 5, 5, 10), kFill);
  }
  EXPECT_EQ(picture.Mask()->At(12, 10), 0);
  EXPECT_EQ(picture.At(12, 10), kBlue);
  EXPECT_EQ(picture.Mask()->At(20, 10), 255);
  EXPECT_NEAR(picture.Mask()->At(27, 10), 127, 1);
  EXPECT_EQ(picture.At(27, 10), kBlue);
  EXPECT_EQ(picture.At(2, 2), kBlue);
  EXPECT_EQ(picture.At(35, 25), kRed);
  // A mask that was there stays, and drawing alone does not touch it.
  Picture masked = PlainPicture(20, 20, kRed);
  masked.SetMask(Plane(20, 20, 200));
  {
    AdvancedGraphics g(masked);
    g.DrawRect(MakeCGRect(0, 0, 4, 4), kFill);
  }
  EXPECT_EQ(masked.Mask()->At(2, 2), 200);
  {
    AdvancedGraphics g(masked);
    g.ClearRect(MakeCGRect(10, 10, 4, 4));
  }
  EXPECT_EQ(masked.Mask()->At(12, 12), 255);
  EXPECT_EQ(masked.Mask()->At(2, 2), 200);
}

TEST(Canvas, DrawsIconsInProportionAndState) {
  const IconReference icon{PlainPicture(8, 4, kBlue), PlainPicture(32, 16, kRed),
                           PlainPicture(128, 64, {0, 90, 0})};
  const auto drawn = [&](int alignment, int state, float size = 30) {
    Picture picture = NewPicture(40, 40, 24);
    AdvancedGraphics g(picture);
    g.DrawIcon(icon, MakeCGRect(4, 4, size, size), alignment, state);
    return picture;
  };
  // Half as high as wide, it lies in the middle, at the top or at the bottom.
  EXPECT_EQ(drawn(kIconCenter, kIconNormal).At(18, 18), kRed);
  EXPECT_EQ(drawn(kIconCenter, kIconNormal).At(18, 8), kWhite);
  EXPECT_EQ(drawn(kIconTop, kIconNormal).At(18, 8), kRed);
  EXPECT_EQ(drawn(kIconTop, kIconNormal).At(18, 25), kWhite);
  EXPECT_EQ(drawn(kIconBottom | kIconLeft, kIconNormal).At(18, 30), kRed);
  EXPECT_EQ(drawn(kIconCenter, kIconNormal, 8).At(8, 8), kBlue) << "the size that fits";
  EXPECT_EQ(drawn(kIconCenter, kIconSelected).At(18, 18), (Color{127, 0, 0}));
  const Color faint = drawn(kIconCenter, kIconDisabled).At(18, 18);
  EXPECT_EQ(faint.Red, faint.Blue);
  EXPECT_NEAR(faint.Red, (128 + 255) / 2.0, 2);
  Picture untouched = NewPicture(10, 10, 24);
  AdvancedGraphics g(untouched);
  g.DrawIcon({}, MakeCGRect(0, 0, 10, 10));
  g.DrawIcon({Picture()}, MakeCGRect(0, 0, 10, 10));
  EXPECT_EQ(untouched.At(5, 5), kWhite);
}

TEST(Canvas, TellsThatItHasNothingToDrawOn) {
  Picture nil;
  AdvancedGraphics g(nil);
  EXPECT_EQ(g.LastError(), AdvancedGraphics::kNoCanvas);
  g.SetShadow(1, 1, 3);
  g.DrawRect(MakeCGRect(0, 0, 10, 10), kFillAndStroke);
  g.ClearRect(MakeCGRect(0, 0, 10, 10));
  g.Close();
  EXPECT_TRUE(nil.IsNil());
  QPainter idle;
  EXPECT_EQ(AdvancedGraphics(idle, 10, 10).LastError(), AdvancedGraphics::kNoCanvas);
  Picture picture = NewPicture(10, 10, 24);
  EXPECT_EQ(AdvancedGraphics(picture).LastError(), AdvancedGraphics::kNoError);
}

TEST(Canvas, TheShortFormDrawsWhereAGraphicsDoes) {
  Picture picture = NewPicture(30, 30, 24);
  Graphics graphics(picture);
  graphics.ForeColor = kRed;
  graphics.FillRect(0, 0, 30, 30);
  {
    auto g = AdvancedGraphicsModule::AdvancedGraphics(graphics);
    EXPECT_EQ(g.Height(), 30);
    g.SetFillColor(kBlue, 1);
    g.DrawRect(MakeCGRect(0, 0, 10, 10), kFill);
  }
  graphics.FillRect(0, 0, 5, 5);
  EXPECT_EQ(picture.At(2, 2), kRed);
  EXPECT_EQ(picture.At(7, 7), kBlue);
  EXPECT_EQ(picture.At(20, 20), kRed);
  // On a mask white is transparent, and so is what is cleared.
  Plane mask(30, 30, 0);
  Graphics onMask(mask);
  {
    auto g = AdvancedGraphicsModule::AdvancedGraphics(onMask);
    g.SetFillColor(kWhite, 0.5);
    g.DrawRect(MakeCGRect(0, 0, 10, 10), kFill);
    g.ClearRect(MakeCGRect(20, 20, 10, 10));
  }
  EXPECT_NEAR(mask.At(5, 5), 127, 1);
  EXPECT_EQ(mask.At(25, 25), 255);
  EXPECT_EQ(mask.At(15, 5), 0);
}

TEST(Canvas, ShrinksPicturesWithAllOfTheirPixels) {
  // Lines of one pixel, shown at a tenth: every tenth pixel would be one colour.
  Picture lines = NewPicture(200, 200, 24);
  for (int y = 0; y < 200; ++y) {
    for (int x = 0; x < 200; x += 2) {
      std::uint8_t* p = lines.Edit().Row(y) + std::ptrdiff_t{4} * x;
      p[0] = p[1] = p[2] = 0;
    }
  }
  Picture picture = NewPicture(30, 30, 24);
  AdvancedGraphics g(picture);
  g.DrawImage(lines, MakeCGRect(5, 5, 20, 20));
  for (int x = 8; x < 22; ++x) EXPECT_NEAR(picture.At(x, 15).Red, 127, 8) << x;
}

}  // namespace
}  // namespace brivolant::test
