// SPDX-License-Identifier: MIT
// The vector drawing layer, the crop's marks and the straightened photo.
#include <gtest/gtest.h>

#include "Helpers.h"
#include "effects/fixes/EffectModuleStraighten.h"
#include "engine/pictures/AdvancedGraphics.h"

namespace brivolant::test {
namespace {

using AdvancedGraphicsModule::Bottom;
using AdvancedGraphicsModule::MakeCGRect;
using AdvancedGraphicsModule::Radian;
using AdvancedGraphicsModule::Right;

constexpr Color kRed{255, 0, 0};

TEST(Vector, RectanglesHaveTheirOriginAtTheTopLeft) {
  Picture picture = NewPicture(60, 100, 24);
  {
    AdvancedGraphics g(picture);
    g.SetFillColor(kRed, 1);
    g.DrawRect(MakeCGRect(10, 0, 30, 20), kFill);
    EXPECT_EQ(g.CorrectRect(MakeCGRect(10, 0, 30, 20)).origin.y, 80);
  }
  EXPECT_EQ(picture.At(20, 10), kRed);
  EXPECT_EQ(picture.At(20, 30), kWhite);
  EXPECT_EQ(picture.At(5, 10), kWhite);
  // The canvas's own points are native: y from the bottom.
  {
    AdvancedGraphics g(picture);
    g.SetStrokeColor(kBlack, 1);
    g.PenThickness(2);
    g.DrawLine(0, 10, 60, 10);
    g.BeginPath();
    EXPECT_TRUE(g.OpenPath());
    g.MoveToPoint(0, 50);
    g.AddLineToPoint(60, 50);
    g.DrawPath(kStroke);
    EXPECT_FALSE(g.OpenPath());
  }
  EXPECT_EQ(picture.At(30, 90), kBlack);
  EXPECT_EQ(picture.At(30, 50), kBlack);
  EXPECT_EQ(picture.At(30, 70), kWhite);
}

TEST(Vector, AlphaOfFillAndCanvasAreApart) {
  Picture picture = NewPicture(40, 40, 24);
  AdvancedGraphics g(picture);
  g.SetFillColor(kBlack, 0);
  g.DrawRect(MakeCGRect(0, 0, 40, 20), kFill);
  EXPECT_EQ(picture.At(10, 10), kWhite);
  g.SetFillColor(kBlack, 0.5);
  g.DrawRect(MakeCGRect(0, 0, 40, 20), kFill);
  EXPECT_NEAR(picture.At(10, 10).Red, 127, 1);
  g.SetFillColor(kBlack, 1);
  g.Alpha(0.5);
  g.DrawRect(MakeCGRect(0, 20, 40, 20), kFillAndStroke);
  EXPECT_NEAR(picture.At(10, 30).Red, 127, 1);
  g.Alpha(1);
  g.BlendMode(1);
  g.SetFillColor(kRed, 1);
  g.DrawRect(MakeCGRect(0, 20, 40, 20), kFill);
  EXPECT_EQ(picture.At(10, 30).Green, 0);
  EXPECT_NEAR(picture.At(10, 30).Red, 127, 1);
}

TEST(Vector, ARoundRectangleOfRadiusZeroIsAPlainOne) {
  const auto draw = [](double radius, bool round) {
    Picture picture = NewPicture(50, 40, 24);
    AdvancedGraphics g(picture);
    g.SetFillColor(kRed, 1);
    const CGRect rect = MakeCGRect(5, 6, 30, 20);
    if (round) {
      g.DrawRoundRect(rect, radius, kFill);
    } else {
      g.DrawRect(rect, kFill);
    }
    return picture;
  };
  EXPECT_EQ(LargestDifference(draw(0, true), draw(0, false)), 0);
  const Picture rounded = draw(8, true);
  EXPECT_EQ(rounded.At(5, 6), kWhite);
  EXPECT_EQ(rounded.At(20, 16), kRed);
  EXPECT_EQ(rounded.At(34, 25), kWhite);
}

TEST(Vector, PathsKeepWhatWasDoneToThem) {
  Picture picture = NewPicture(100, 100, 24);
  AdvancedGraphics g(picture);
  AdvancedGraphicsPath path = g.NewPath();
  path.AddRect(MakeCGRect(10, 10, 20, 10));
  EXPECT_TRUE(path.ContainsPoint(15, 15));
  EXPECT_FALSE(path.ContainsPoint(15, 25));
  CGRect box = path.BoundingBox();
  EXPECT_EQ(box.origin.y, 10);
  EXPECT_EQ(box.size.height, 10);
  // y up: moved by 30, it lies nearer to the top edge's other side.
  path.MovePath(5, -30);
  EXPECT_FALSE(path.ContainsPoint(15, 15));
  EXPECT_TRUE(path.ContainsPoint(20, 45));
  EXPECT_EQ(path.Transformation().ty, -30);
  path.Scale(2, 1);
  EXPECT_TRUE(path.ContainsPoint(60, 45));
  EXPECT_EQ(path.Transformation().a, 2);
  AdvancedGraphicsPath oval = g.NewPath();
  oval.AddOval(MakeCGRect(40, 40, 20, 20));
  oval.AddPath(path);
  oval.Rotate(90);
  box = oval.BoundingBox();
  EXPECT_NEAR(box.origin.x, -60, 0.5);
  EXPECT_NEAR(Radian(180), 3.14159265, 1e-6);
  EXPECT_EQ(Bottom(MakeCGRect(1, 2, 3, 4)), 6);
  EXPECT_EQ(Right(MakeCGRect(1, 2, 3, 4)), 4);
  CGRect swapped = MakeCGRect(1, 2, 3, 4);
  const std::string bytes = swapped.StringValue();
  swapped.EndianSwap();
  EXPECT_EQ(swapped.StringValue().substr(0, 4), std::string(bytes.rbegin() + 12, bytes.rend()));
}

TEST(Vector, GradientsRunFromTheTopAndImagesStandUpright) {
  Picture picture = NewPicture(40, 40, 24);
  Picture stamp = PlainPicture(10, 10, kBlack);
  stamp.Edit().Row(0)[0] = 255;
  Plane mask(10, 10, 0);
  for (int x = 0; x < 10; ++x) mask.Edit().Row(9)[x] = 255;
  stamp.SetMask(mask);
  {
    AdvancedGraphics g(picture);
    g.DrawGradient(MakeCGRect(0, 0, 20, 40), kBlack, kWhite, 1, 1);
    g.DrawImage(stamp, MakeCGRect(25, 5, 10, 10));
    g.SetShadow(0, -3, 2);
    g.SetFillColor(kRed, 1);
    g.DrawRect(MakeCGRect(25, 22, 10, 8), kFill);
  }
  EXPECT_LT(picture.At(10, 2).Red, 20);
  EXPECT_GT(picture.At(10, 37).Red, 230);
  EXPECT_EQ(picture.At(25, 5).Blue, 255);
  EXPECT_EQ(picture.At(30, 8), kBlack);
  EXPECT_EQ(picture.At(30, 14), kWhite);
  // The shadow falls below its shape.
  EXPECT_EQ(picture.At(30, 25), kRed);
  EXPECT_LT(picture.At(30, 31).Red, 250);
  EXPECT_EQ(picture.At(30, 38), kWhite);
}

TEST(Straighten, LevelsWithoutChangingTheSizeOrShowingCorners) {
  EffectModuleStraighten module;
  module.Constructor();
  module.ResetSettings();
  EXPECT_EQ(module.ControlValue(0).ToInt(), 50);
  module.Enabled(true);
  const Picture source = TestPicture(120, 80);
  Picture same = source;
  module.Apply(same, 1);
  EXPECT_TRUE(same.SameAs(source));
  // The middle stays, and at the far ends no wedge of background shows.
  const Picture plain = PlainPicture(121, 81, Color{40, 90, 160});
  for (const int angle : {-50, -10, 3, 10, 50}) {
    module.ControlValue(0, angle + 50);
    EXPECT_EQ(static_cast<int>(module.Angle), angle);
    Picture turned = plain;
    module.Apply(turned, 1);
    EXPECT_EQ(turned.Width(), 121);
    EXPECT_EQ(turned.Height(), 81);
    EXPECT_EQ(turned.At(60, 40), plain.At(60, 40)) << angle;
    EXPECT_EQ(turned.At(0, 40), plain.At(0, 40)) << angle;
    EXPECT_EQ(turned.At(60, 80), plain.At(60, 80)) << angle;
  }
  // A line that slants by ten degrees comes out level.
  Picture slanted = NewPicture(200, 200, 24);
  {
    AdvancedGraphics g(slanted);
    g.PenThickness(4);
    g.Translate(100, 100);
    g.Rotate(10);
    g.DrawLine(-150, 0, 150, 0);
  }
  module.ControlValue(0, 60);
  module.Apply(slanted, 1);
  for (const int x : {20, 100, 180}) EXPECT_LT(slanted.At(x, 100).Red, 128) << x;
  // The grid shows while it is selected: four lines each way.
  Picture marked = PlainPicture(100, 50, kWhite);
  module.firePostProcess(marked, 1);
  for (const int i : {20, 40, 60, 80}) EXPECT_EQ(marked.At(i, 5), kBlack);
  EXPECT_EQ(marked.At(5, 10), kBlack);
  EXPECT_EQ(marked.At(5, 5), kWhite);
}

}  // namespace
}  // namespace brivolant::test
