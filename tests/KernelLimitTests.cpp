// SPDX-License-Identifier: MIT
// Kernels and picture operations take any argument: what lies outside is left out, what is too much
// is as much as there is, and what is no number changes nothing or fills with the border.
#include <gtest/gtest.h>

#include <limits>

#include "Helpers.h"
#include "engine/pictures/BlendEffect.h"
#include "engine/pictures/MPImageFilter.h"
#include "engine/pictures/PictureEffects.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "platform/pictures/kernels/ColorKernels.h"
#include "platform/pictures/kernels/ComposeKernels.h"
#include "platform/pictures/kernels/LookKernels.h"
#include "platform/pictures/kernels/ScaleKernels.h"
#include "platform/pictures/kernels/TurnKernels.h"
#include "platform/pictures/kernels/WarpKernels.h"
#include "platform/values/Whole.h"

namespace brivolant::test {
namespace {

constexpr int kIntMin = std::numeric_limits<int>::min();
constexpr int kIntMax = std::numeric_limits<int>::max();
const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInfinite = std::numeric_limits<double>::infinity();
const std::vector<int> kOffsets{kIntMin, kIntMin + 1, -1000000000, -9, -8,         -3,     0,
                                4,       11,          12,          13, 1000000000, kIntMax};

TEST(Limits, WholeNumbers) {
  for (const auto& [value, whole] : {std::pair{2.9, 2},
                                     {-2.9, -2},
                                     {1e9, 1000000000},
                                     {1e300, 1000000000},
                                     {-1e300, -1000000000},
                                     {kInfinite, 1000000000},
                                     {-kInfinite, -1000000000},
                                     {kNaN, 0}}) {
    EXPECT_EQ(Whole(value), whole) << value;
  }
}

/// Every pixel of `after` is that of `source` where it lies at (x, y), else as it was.
void ExpectLaid(const Picture& before, const Picture& source, std::int64_t x, std::int64_t y,
                const Picture& after) {
  for (int row = 0; row < before.Height(); ++row) {
    for (int column = 0; column < before.Width(); ++column) {
      const std::int64_t sx = column - x;
      const std::int64_t sy = row - y;
      const bool inside = sx >= 0 && sy >= 0 && sx < source.Width() && sy < source.Height();
      const Color expected =
          inside ? source.At(static_cast<int>(sx), static_cast<int>(sy)) : before.At(column, row);
      ASSERT_EQ(after.At(column, row), expected) << x << ' ' << y;
    }
  }
}

TEST(Limits, PicturesAreLaidAndCutAnywhere) {
  const Picture under = TestPicture(12, 10, 1);
  const Picture over = TestPicture(8, 9, 2);
  const Plane opaque(8, 9, 0);
  for (const int x : kOffsets) {
    for (const int y : kOffsets) {
      Picture laid = under;
      kernels::Compose(laid.Edit(), over.View(), {}, x, y);
      ExpectLaid(under, over, x, y, laid);
      laid = under;
      kernels::Compose(laid.Edit(), over.View(), opaque.View(), x, y);
      ExpectLaid(under, over, x, y, laid);
      laid = under;
      kernels::CopyArea(over.View(), x, y, laid.Edit());
      ExpectLaid(under, over, -std::int64_t{x}, -std::int64_t{y}, laid);
      // Stamps that keep nothing are the colour where they lie.
      laid = under;
      const Plane none(8, 9, 0);
      const Plane all(8, 9, 255);
      kernels::LayStamp(laid.Edit(), {none.View(), all.View()}, {1, 2, 3}, x, y, 0, 10);
      ExpectLaid(under, PlainPicture(8, 9, {1, 2, 3}), x, y, laid);
      Plane plane = TestPlane(12, 10, 3);
      const Plane before = plane;
      kernels::Compose(plane.Edit(), all.View(), x, y);
      kernels::CopyArea(all.View(), x, y, plane.Edit());
      const bool touched = x > -8 && x < 12 && y > -9 && y < 10;
      const bool cut = x > -12 && x < 8 && y > -10 && y < 9;
      EXPECT_EQ(LargestDifference(plane, before) > 0, touched || cut) << x << ' ' << y;
    }
  }
}

TEST(Limits, LayersAreBlendedAnywhere) {
  const Picture under = TestPicture(20, 16);
  const Picture over = PlainPicture(6, 6, {9, 8, 7});
  for (const double x : {-1e300, -1e9, -3.0, 5.0, 1e9, 1e300, kNaN, kInfinite}) {
    for (const double size : {-1e300, 0.0, 6.0, 1e300, kNaN}) {
      for (const double opacity : {-1e300, 0.5, 1e300, kNaN}) {
        const Point at{x, x};
        const Point box{size, 6};
        const Picture shown = BlendEffect().Apply(under, over, opacity, nullptr, &at, &box);
        ASSERT_EQ(shown.Width(), 20);
        if (!(opacity > 0) || size == 0 || std::abs(x) > 100) {
          ASSERT_EQ(LargestDifference(shown, under), 0) << x << ' ' << size << ' ' << opacity;
        }
      }
    }
  }
}

TEST(Limits, FiltersTakeAnyLengthAndAngle) {
  const Picture photo = TestPicture(33, 21);
  const Picture plain = PlainPicture(33, 21, {200, 100, 50});
  for (const int length : {kIntMin, -1, 0, 1, 5, 40, 4000, kIntMax}) {
    for (const double angle : {0.0, 30.0, 75.0, -1e300, kInfinite, kNaN}) {
      for (int kind = -1; kind <= 3; ++kind) {
        const Picture blurred = MPImageFilter::MotionBlur(photo, length, angle, length, kind);
        ASSERT_EQ(blurred.Width(), 33);
        // A blur of one colour is that colour, however far it goes.
        const Picture same = MPImageFilter::MotionBlur(plain, length, angle, length, kind);
        ASSERT_LE(LargestDifference(same, plain), 1) << length << ' ' << angle << ' ' << kind;
      }
    }
    for (const int other : {kIntMin, 0, 3, kIntMax}) {
      EXPECT_EQ(LargestDifference(MPImageFilter::OilPaintFilter(plain, length, other), plain), 0);
      EXPECT_EQ(LargestDifference(MPImageFilter::Diffuse(plain, length, true, other, 1), plain), 0);
      EXPECT_EQ(MPImageFilter::WaterDrops(photo, length, std::min(other, 50), 1).Width(), 33);
    }
    EXPECT_LE(LargestDifference(GaussianBlur(length).ApplyEffect(plain), plain), 1);
    EXPECT_EQ(LargestDifference(SharedPictureEffects::Scale(plain, length, 21, 9), plain) == 0,
              length == 33)
        << "an impossible size gives no picture";
  }
  for (const double any : {-1e300, -1e9, 1e9, 1e300, kNaN, kInfinite, -kInfinite}) {
    EXPECT_EQ(MPImageFilter::Wave(photo, any, kBlack).Width(), 33);
    EXPECT_LE(LargestDifference(SharedPictureEffects::GaussianBlur(plain, any), plain), 1);
    BarrelDistortion lens;
    lens.Distortion = lens.VerticalKeystone = lens.HorizontalKeystone = any;
    EXPECT_EQ(lens.ApplyEffect(photo).Width(), 33);
  }
}

TEST(Limits, ALongMotionBlurIsTheMeanOfBothEnds) {
  // Half of what a very long line sees is the one border, half the other.
  Picture halves = PlainPicture(40, 4, kBlack);
  kernels::Compose(halves.Edit(), PlainPicture(20, 4, kWhite).View(), {}, 20, 0);
  Picture blurred = NewPicture(40, 4, 32);
  kernels::MotionBlurAlongLine(halves.View(), blurred.Edit(), 1e300, 0);
  EXPECT_LE(LargestDifference(blurred, PlainPicture(40, 4, {127, 127, 127})), 1);
}

TEST(Limits, HuesTurnAnyNumberOfTimes) {
  const Picture photo = TestPicture(64, 32);
  const auto shifted = [&](double hue, double saturation, double lightness) {
    Picture picture = photo;
    kernels::ShiftHueSaturationLightness(picture.Edit(), hue, saturation, lightness);
    return picture;
  };
  for (const double hue : {-3000.0, -725.0, -180.0, 90.0, 3000.0, 36000.0}) {
    // Whole turns change nothing, but for what single precision loses.
    EXPECT_LE(LargestDifference(shifted(hue, 40, 10), shifted(std::fmod(hue, 360), 40, 10)), 1);
    Picture slow = photo;
    kernels::reference::ShiftHueSaturationLightness(slow.Edit(), hue, 40, 10);
    EXPECT_LE(LargestDifference(shifted(hue, 40, 10), slow), 1) << hue;
  }
  for (const double any : {kNaN, kInfinite, -kInfinite}) {
    EXPECT_LE(LargestDifference(shifted(any, any, any), photo), 1) << "what is no number";
  }
  EXPECT_LE(LargestDifference(shifted(0, 0, 1e300), PlainPicture(64, 32, kWhite)), 0);
  kernels::HueShifts shifts{};
  shifts[3] = {1e300, -1e300, kNaN};
  Picture picture = photo;
  kernels::ShiftByHue(picture.Edit(), shifts);
  EXPECT_EQ(picture.View().Row(31)[4 * 63 + 3], 255);
}

TEST(Limits, DiscsTurnsDropsAndScales) {
  for (const double any : {-1e300, kNaN, 1e300, kInfinite}) {
    Plane plane(20, 10, 7);
    kernels::FillFadingDisc(plane.Edit(), any, 5, any, any);
    kernels::RotateAnyAngle(TestPlane(20, 10).View(), plane.Edit(), any, 9);
    Picture picture = TestPicture(20, 10);
    const Picture source = picture;
    kernels::RotateAnyAngle(source.View(), picture.Edit(), any, 0, any);
    kernels::ThroughDrops(source.View(), picture.Edit(),
                          {{any, 5, 3}, {5, any, 3}, {5, 5, any}, {any, any, any}});
    kernels::Scatter(source.View(), picture.Edit(), any, kIntMin, 1);
    kernels::Scale(source.View(), {any, any, 20, 10}, picture.Edit());
    EXPECT_EQ(picture.View().Row(9)[4 * 19 + 3], 255);
    Picture small = NewPicture(20, 10, 32);
    kernels::Scale(PlainPicture(20, 10, {3, 4, 5}).View(), {0, 0, any > 0 ? 20 : any, 10},
                   small.Edit());
    EXPECT_EQ(small.At(10, 5), (Color{3, 4, 5}));
  }
}

}  // namespace
}  // namespace brivolant::test
