// SPDX-License-Identifier: MIT
// Formulas held against independent ones, level by level.
#include <gtest/gtest.h>

#include <QColor>
#include <cmath>
#include <functional>

#include "Helpers.h"
#include "platform/pictures/kernels/BlendKernels.h"
#include "platform/pictures/kernels/ColorKernels.h"
#include "platform/pictures/kernels/ComposeKernels.h"

namespace brivolant::test {
namespace {

/// A picture in which every pair of levels meets once: the base along x, the fill along y.
struct AllPairs {
  Picture base = NewPicture(256, 256, 24);
  Picture fill = NewPicture(256, 256, 24);
  AllPairs() {
    for (int y = 0; y < 256; ++y) {
      for (int x = 0; x < 256; ++x) {
        std::uint8_t* b = base.Edit().Row(y) + std::ptrdiff_t{4} * x;
        std::uint8_t* s = fill.Edit().Row(y) + std::ptrdiff_t{4} * x;
        b[0] = b[1] = b[2] = static_cast<std::uint8_t>(x);
        s[0] = s[1] = s[2] = static_cast<std::uint8_t>(y);
      }
    }
  }
};

double SoftLight(double b, double s) {
  if (s <= 0.5) return b - (1 - 2 * s) * b * (1 - b);
  const double d = b <= 0.25 ? ((16 * b - 12) * b + 4) * b : std::sqrt(b);
  return b + (2 * s - 1) * (d - b);
}

double HardLight(double b, double s) {
  return s <= 0.5 ? b * 2 * s : b + (2 * s - 1) - b * (2 * s - 1);
}

TEST(BlendFormulas, EveryPairOfLevelsOfEverySeparableMode) {
  using Formula = std::function<double(double b, double s)>;
  const std::array<Formula, 12> formulas{
      [](double, double s) { return s; },
      [](double b, double s) { return b * s; },
      [](double b, double s) { return b + s - b * s; },
      [](double b, double s) { return HardLight(s, b); },
      [](double b, double s) { return std::min(b, s); },
      [](double b, double s) { return std::max(b, s); },
      [](double b, double s) { return b == 0   ? 0
                                      : s == 1 ? 1
                                               : std::min(1.0, b / (1 - s)); },
      [](double b, double s) { return b == 1   ? 1
                                      : s == 0 ? 0
                                               : 1 - std::min(1.0, (1 - b) / s); },
      SoftLight,
      HardLight,
      [](double b, double s) { return std::abs(b - s); },
      [](double b, double s) { return b + s - 2 * b * s; }};
  const AllPairs pairs;
  for (std::size_t mode = 0; mode < formulas.size(); ++mode) {
    Picture result = pairs.base;
    kernels::Blend(result.Edit(), pairs.fill.View(), static_cast<int>(mode), 256);
    double largest = 0;
    for (int y = 0; y < 256; ++y) {
      for (int x = 0; x < 256; ++x) {
        const double exact = formulas[mode](x / 255.0, y / 255.0) * 255;
        largest = std::max(largest, std::abs(exact - result.At(x, y).Green));
      }
    }
    EXPECT_LE(largest, 0.501) << "mode " << mode << " is not rounded to the nearest level";
  }
}

TEST(BlendFormulas, OpacityIsLinear) {
  const AllPairs pairs;
  for (const int opacity : {1, 64, 128, 200, 255}) {
    Picture result = pairs.base;
    kernels::Blend(result.Edit(), pairs.fill.View(), 0, opacity);
    for (int y = 0; y < 256; y += 5) {
      for (int x = 0; x < 256; x += 3) {
        const double exact = x + (y - x) * opacity / 256.0;
        ASSERT_NEAR(result.At(x, y).Red, exact, 0.501);
      }
    }
  }
}

TEST(BlendFormulas, ColourModesKeepWhatTheyPromise) {
  const Picture base = TestPicture(64, 64, 5);
  const Picture fill = TestPicture(64, 64, 6);
  const auto lum = [](Color c) { return 0.3 * c.Red + 0.59 * c.Green + 0.11 * c.Blue; };
  for (int mode = 12; mode <= 15; ++mode) {
    Picture result = base;
    kernels::Blend(result.Edit(), fill.View(), mode, 256);
    for (int y = 0; y < 64; ++y) {
      for (int x = 0; x < 64; ++x) {
        const double wanted = lum(mode == 15 ? fill.At(x, y) : base.At(x, y));
        ASSERT_NEAR(lum(result.At(x, y)), wanted, 1.0) << "mode " << mode;
      }
    }
  }
}

TEST(HueSaturationFormula, TurningTheHueIsWhatTheToolkitComputes) {
  for (const int degrees : {-150, -60, 1, 33, 120, 180}) {
    for (int r = 0; r <= 255; r += 51) {
      for (int g = 0; g <= 255; g += 85) {
        for (int b = 0; b <= 255; b += 17) {
          Picture picture =
              PlainPicture(1, 1, Color::FromRGB(static_cast<std::uint32_t>(r << 16 | g << 8 | b)));
          kernels::ShiftHueSaturationLightness(picture.Edit(), degrees, 0, 0);
          const QColor source(r, g, b);
          float hue = source.hslHueF();
          if (hue >= 0) hue = std::fmod(hue + static_cast<float>(degrees) / 360 + 1, 1.0F);
          const QColor turned =
              QColor::fromHslF(std::max(hue, 0.0F), source.hslSaturationF(), source.lightnessF());
          const Color got = picture.At(0, 0);
          ASSERT_NEAR(got.Red, turned.red(), 2) << r << ' ' << g << ' ' << b << ' ' << degrees;
          ASSERT_NEAR(got.Green, turned.green(), 2) << r << ' ' << g << ' ' << b;
          ASSERT_NEAR(got.Blue, turned.blue(), 2) << r << ' ' << g << ' ' << b;
        }
      }
    }
  }
}

TEST(HueSaturationFormula, TheFastFormIsThePlainOne) {
  Picture source = Picture::Uninitialized(251, 256);
  for (int y = 0; y < 256; ++y) {
    for (int x = 0; x < 251; ++x) {
      std::uint8_t* p = source.Edit().Row(y) + std::ptrdiff_t{4} * x;
      p[0] = static_cast<std::uint8_t>(x < 200 ? x : 255 * (x % 2));
      p[1] = static_cast<std::uint8_t>(y);
      p[2] = static_cast<std::uint8_t>(x < 200 ? x * y / 3 : 255 * (x / 2 % 2));
      p[3] = 255;
    }
  }
  for (const double hue : {-180.0, -59.5, 0.0, 1.0, 120.0, 180.0}) {
    for (const double saturation : {-250.0, -80.0, 0.0, 33.0, 200.0}) {
      for (const double lightness : {-100.0, -31.0, 0.0, 12.0, 100.0}) {
        Picture fast = source;
        Picture plain = source;
        kernels::ShiftHueSaturationLightness(fast.Edit(), hue, saturation, lightness);
        kernels::reference::ShiftHueSaturationLightness(plain.Edit(), hue, saturation, lightness);
        ASSERT_LE(LargestDifference(fast, plain), 1)
            << hue << ' ' << saturation << ' ' << lightness;
      }
    }
  }
}

TEST(HueSaturationFormula, GreysStayGreyAndLevelsStayInRange) {
  Picture picture = NewPicture(256, 1, 24);
  for (int x = 0; x < 256; ++x) {
    std::uint8_t* p = picture.Edit().Row(0) + std::ptrdiff_t{4} * x;
    p[0] = p[1] = p[2] = static_cast<std::uint8_t>(x);
  }
  for (const auto& [hue, saturation] : {std::pair{77, 200}, {-180, -200}, {180, 0}}) {
    Picture changed = picture;
    kernels::ShiftHueSaturationLightness(changed.Edit(), hue, saturation, 0);
    EXPECT_LE(LargestDifference(changed, picture), 1);
  }
}

TEST(Compose, DrawsOnlyWhatOverlaps) {
  const Picture source = TestPicture(5, 4);
  for (const auto& [x, y] :
       {std::pair{-10, 0}, {-4, -3}, {0, 0}, {7, 6}, {9, 9}, {10, 3}, {3, -4}}) {
    Picture target = NewPicture(10, 10, 24);
    kernels::Compose(target.Edit(), source.View(), {}, x, y);
    for (int ty = 0; ty < 10; ++ty) {
      for (int tx = 0; tx < 10; ++tx) {
        const bool inside = tx >= x && tx < x + 5 && ty >= y && ty < y + 4;
        ASSERT_EQ(target.At(tx, ty), inside ? source.At(tx - x, ty - y) : kWhite) << x << ' ' << y;
      }
    }
  }
}

}  // namespace
}  // namespace brivolant::test
