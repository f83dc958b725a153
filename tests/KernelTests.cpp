// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <hwy/targets.h>

#include <cmath>
#include <numeric>
#include <random>

#include "Helpers.h"
#include "platform/pictures/Parallel.h"
#include "platform/pictures/kernels/BlendKernels.h"
#include "platform/pictures/kernels/BlurKernels.h"
#include "platform/pictures/kernels/ScaleKernels.h"
#include "platform/pictures/kernels/ToneKernels.h"
#include "platform/pictures/kernels/TurnKernels.h"

namespace brivolant::test {
namespace {

struct Size {
  int width;
  int height;
};
// One pixel, odd sizes around the widths of vectors, and more than one task.
constexpr std::array<Size, 7> kSizes{
    {{1, 1}, {3, 5}, {15, 4}, {16, 16}, {67, 33}, {130, 71}, {257, 130}}};

/// Runs `check` once with each instruction set of this machine.
template <class Check>
void OnEveryTarget(Check check) {
  const std::int64_t all = hwy::SupportedTargets();
  for (std::int64_t rest = all; rest != 0; rest &= rest - 1) {
    const std::int64_t target = rest & -rest;
    hwy::SetSupportedTargetsForTest(target);
    hwy::GetChosenTarget().Update(target);
    SCOPED_TRACE(hwy::TargetName(target));
    check();
  }
  hwy::SetSupportedTargetsForTest(0);
  hwy::GetChosenTarget().Update(hwy::SupportedTargets());
}

/// Checks that two forms of an operation in place give the same bytes.
template <class Fast, class Plain>
void ExpectSame(const Picture& source, Fast fast, Plain plain) {
  Picture expected = source;
  plain(expected.Edit());
  OnEveryTarget([&] {
    Picture actual = source;
    fast(actual.Edit());
    EXPECT_EQ(LargestDifference(actual, expected), 0) << source.Width() << " x " << source.Height();
    for (int y = 0; y < actual.Height(); ++y) {
      for (int x = 0; x < actual.Width(); ++x) {
        ASSERT_EQ(actual.View().Row(y)[4 * x + 3], 255) << "the unused byte must stay full";
      }
    }
  });
}

ToneTable RandomTable(std::uint32_t seed) {
  std::mt19937 random(seed);
  ToneTable table{};
  for (auto& entry : table) entry = static_cast<std::uint8_t>(random());
  return table;
}

TEST(Kernels, ToneTablesReachEveryEntry) {
  for (const Size size : kSizes) {
    const Picture source = TestPicture(size.width, size.height);
    for (const ToneTables& tables : {ToneTables::All(RandomTable(1)),
                                     ToneTables{RandomTable(2), RandomTable(3), RandomTable(4)},
                                     ToneTables::All(IdentityTable())}) {
      ExpectSame(
          source, [&](Pixels p) { kernels::ApplyToneTables(p, tables); },
          [&](Pixels p) { kernels::reference::ApplyToneTables(p, tables); });
    }
  }
}

TEST(Kernels, ComposedTablesAreOneAfterTheOther) {
  const ToneTables first{RandomTable(1), RandomTable(2), RandomTable(3)};
  const ToneTables then{RandomTable(4), RandomTable(5), RandomTable(6)};
  ExpectSame(
      TestPicture(67, 33), [&](Pixels p) { kernels::ApplyToneTables(p, then.After(first)); },
      [&](Pixels p) {
        kernels::reference::ApplyToneTables(p, first);
        kernels::reference::ApplyToneTables(p, then);
      });
}

TEST(Kernels, PointOperationsEqualTheirReference) {
  for (const Size size : kSizes) {
    const Picture source = TestPicture(size.width, size.height, 7);
    for (const int amount : {-255, -40, 0, 1, 77, 255}) {
      ExpectSame(
          source, [&](Pixels p) { kernels::AddBrightness(p, amount); },
          [&](Pixels p) { kernels::reference::AddBrightness(p, amount); });
    }
    ToneTable negative{};
    for (int i = 0; i < 256; ++i)
      negative[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(255 - i);
    ExpectSame(
        source, [&](Pixels p) { kernels::Invert(p); },
        [&](Pixels p) { kernels::reference::ApplyToneTables(p, ToneTables::All(negative)); });
    ExpectSame(
        source, [&](Pixels p) { kernels::BlendTableByDarkness(p, negative); },
        [&](Pixels p) { kernels::reference::BlendTableByDarkness(p, negative); });
    const Plane mask = TestPlane(size.width, size.height, 9);
    for (const std::pair<int, int>& amounts : {std::pair{60, 0}, {0, 80}, {255, 255}, {33, 17}}) {
      ExpectSame(
          source,
          [&](Pixels p) { kernels::LiftAndLower(p, mask.View(), amounts.first, amounts.second); },
          [&](Pixels p) {
            kernels::reference::LiftAndLower(p, mask.View(), amounts.first, amounts.second);
          });
    }
    Plane luma(size.width, size.height, 0);
    Plane oneBit(size.width, size.height, 0);
    kernels::reference::Luma(source.View(), luma.Edit());
    kernels::reference::BlackAndWhite(source.View(), oneBit.Edit());
    OnEveryTarget([&] {
      Plane actual(size.width, size.height, 0);
      kernels::Luma(source.View(), actual.Edit());
      EXPECT_EQ(LargestDifference(actual, luma), 0);
      kernels::BlackAndWhite(source.View(), actual.Edit());
      EXPECT_EQ(LargestDifference(actual, oneBit), 0);
    });
  }
}

TEST(Kernels, EveryBlendModeEqualsItsReference) {
  for (const Size size : {kSizes[1], kSizes[4], kSizes[6]}) {
    const Picture base = TestPicture(size.width, size.height, 11);
    const Picture fill = TestPicture(size.width, size.height, 12);
    const Plane mask = TestPlane(size.width, size.height, 13);
    for (int mode = 0; mode <= 16; ++mode) {
      SCOPED_TRACE(mode);
      for (const int opacity : {0, 1, 128, 255, 256}) {
        for (const ConstGrey& over : {ConstGrey{}, mask.View()}) {
          ExpectSame(
              base, [&](Pixels p) { kernels::Blend(p, fill.View(), mode, opacity, over); },
              [&](Pixels p) { kernels::reference::Blend(p, fill.View(), mode, opacity, over); });
        }
      }
    }
  }
}

TEST(Kernels, BlendModesFollowTheirFormulas) {
  // Values worked out by hand from the compositing specification, at full opacity.
  struct Case {
    int mode;
    Color base;
    Color fill;
    Color result;
  };
  constexpr std::array<Case, 19> kCases{{
      {0, {10, 20, 30}, {200, 100, 50}, {200, 100, 50}},
      {1, {255, 128, 0}, {128, 128, 128}, {128, 64, 0}},
      {2, {255, 128, 0}, {128, 128, 128}, {255, 192, 128}},
      {3, {64, 128, 192}, {128, 128, 128}, {64, 129, 192}},
      {4, {10, 200, 30}, {20, 100, 30}, {10, 100, 30}},
      {5, {10, 200, 30}, {20, 100, 30}, {20, 200, 30}},
      {6, {0, 100, 100}, {255, 255, 128}, {0, 255, 201}},
      {7, {255, 100, 200}, {0, 0, 128}, {255, 0, 145}},
      {8, {128, 128, 64}, {255, 0, 255}, {181, 64, 128}},
      {9, {128, 128, 128}, {64, 128, 192}, {64, 129, 192}},
      {10, {10, 200, 30}, {20, 100, 30}, {10, 100, 0}},
      {11, {255, 0, 128}, {255, 255, 128}, {0, 255, 127}},
      {12, {128, 128, 128}, {255, 0, 0}, {128, 128, 128}},
      {13, {200, 100, 50}, {90, 90, 90}, {125, 125, 125}},
      {14, {128, 128, 128}, {90, 90, 90}, {128, 128, 128}},
      {15, {200, 100, 50}, {90, 90, 90}, {166, 66, 16}},
      {15, {0, 0, 0}, {77, 77, 77}, {77, 77, 77}},
      {6, {255, 0, 1}, {0, 255, 254}, {255, 0, 255}},
      {7, {0, 255, 254}, {255, 0, 1}, {0, 255, 0}},
  }};
  for (const Case& c : kCases) {
    Picture base = PlainPicture(5, 2, c.base);
    kernels::Blend(base.Edit(), PlainPicture(5, 2, c.fill).View(), c.mode, 256);
    const Color got = base.At(4, 1);
    EXPECT_NEAR(got.Red, c.result.Red, 1) << "mode " << c.mode;
    EXPECT_NEAR(got.Green, c.result.Green, 1) << "mode " << c.mode;
    EXPECT_NEAR(got.Blue, c.result.Blue, 1) << "mode " << c.mode;
  }
}

TEST(Kernels, BlurAgreesWithTheConvolution) {
  for (const Size size : {Size{1, 1}, Size{2, 40}, Size{67, 33}, Size{130, 71}}) {
    const Plane source = TestPlane(size.width, size.height, 21);
    for (const double sigma : {0.5, 1.0, 2.5, 3.0, 5.0, 13.0, 30.0, 90.0}) {
      const kernels::GaussianPlan plan(sigma);
      Plane expected = source;
      kernels::reference::GaussianBlur(expected.Edit(), plan);
      Plane first;
      OnEveryTarget([&] {
        Plane actual = source;
        kernels::GaussianBlur(actual.Edit(), plan);
        EXPECT_LE(LargestDifference(actual, expected), 1)
            << "sigma " << sigma << ", " << size.width << " x " << size.height;
        // The instruction set must not show at all.
        if (first.IsNil()) first = actual;
        EXPECT_EQ(LargestDifference(actual, first), 0);
      });
    }
  }
}

TEST(Kernels, BlurOfAPictureIsThatOfItsChannels) {
  const Picture source = TestPicture(75, 43, 22);
  Plane green(75, 43, 0);
  for (int y = 0; y < 43; ++y) {
    for (int x = 0; x < 75; ++x) green.Edit().Row(y)[x] = source.At(x, y).Green;
  }
  for (const double sigma : {1.0, 4.0}) {
    const kernels::GaussianPlan plan(sigma);
    Picture blurred = source;
    kernels::GaussianBlur(blurred.Edit(), plan);
    Plane plane = green;
    kernels::GaussianBlur(plane.Edit(), plan);
    for (int y = 0; y < 43; ++y) {
      for (int x = 0; x < 75; ++x) ASSERT_EQ(blurred.At(x, y).Green, plane.At(x, y));
    }
  }
}

TEST(Kernels, BlurIsNearlyGaussian) {
  for (int radius = 1; radius <= 180; ++radius) {
    const double sigma = radius / 2.0;
    const auto kernel = kernels::reference::Kernel(kernels::GaussianPlan(sigma));
    double sum = kernel[0];
    double variance = 0;
    for (std::size_t i = 1; i < kernel.size(); ++i) {
      sum += 2 * kernel[i];
      variance += 2 * kernel[i] * static_cast<double>(i * i);
    }
    EXPECT_NEAR(sum, 1, 1e-9);
    EXPECT_NEAR(std::sqrt(variance), sigma, sigma * 0.01 + 0.035) << sigma;
    // The step from black to white, where an error of the curve shows most.
    // Below one pixel the curve is narrower than what samples can hold.
    if (sigma < 1) continue;
    double area = 0.5 - kernel[0] / 2;
    for (std::size_t i = 0; i < kernel.size(); ++i) {
      area += kernel[i];
      const double x = static_cast<double>(i) + 0.5;
      ASSERT_NEAR(area, 0.5 * (1 + std::erf(x / sigma / std::sqrt(2.0))), 0.02) << sigma;
    }
  }
}

TEST(Kernels, ScaleAgreesWithTheReferenceAndKeepsPlainColours) {
  struct Case {
    Size from;
    Size to;
  };
  for (const Case& c :
       {Case{{67, 33}, {67, 33}}, Case{{67, 33}, {16, 9}}, Case{{67, 33}, {1, 1}},
        Case{{16, 16}, {61, 47}}, Case{{1, 1}, {9, 4}}, Case{{130, 71}, {50, 142}}}) {
    const Plane source = TestPlane(c.from.width, c.from.height, 31);
    for (const double part : {1.0, 0.6}) {
      const kernels::SourceArea area{c.from.width * (1 - part) / 2, c.from.height * (1 - part) / 2,
                                     c.from.width * part, c.from.height * part};
      Plane expected(c.to.width, c.to.height, 0);
      kernels::reference::Scale(source.View(), area, expected.Edit());
      OnEveryTarget([&] {
        Plane actual(c.to.width, c.to.height, 0);
        kernels::Scale(source.View(), area, actual.Edit());
        EXPECT_LE(LargestDifference(actual, expected), 1);
        Plane white(c.to.width, c.to.height, 0);
        kernels::Scale(Plane(c.from.width, c.from.height, 255).View(), area, white.Edit());
        EXPECT_EQ(LargestDifference(white, Plane(c.to.width, c.to.height, 255)), 0);
      });
    }
  }
}

TEST(Kernels, TurnsMoveEveryPixel) {
  for (const Size size : kSizes) {
    const Picture source = TestPicture(size.width, size.height, 41);
    const Plane plane = TestPlane(size.width, size.height, 42);
    for (int bits = 0; bits < 8; ++bits) {
      const kernels::Turn turn{(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0};
      const int width = turn.exchange ? size.height : size.width;
      const int height = turn.exchange ? size.width : size.height;
      OnEveryTarget([&] {
        Picture turned = Picture::Uninitialized(width, height);
        kernels::TurnPixels(source.View(), turned.Edit(), turn);
        Plane turnedPlane(width, height, 0);
        kernels::TurnPlane(plane.View(), turnedPlane.Edit(), turn);
        for (int y = 0; y < height; ++y) {
          for (int x = 0; x < width; ++x) {
            const int mx = turn.mirrorX ? width - 1 - x : x;
            const int my = turn.mirrorY ? height - 1 - y : y;
            const int sx = turn.exchange ? my : mx;
            const int sy = turn.exchange ? mx : my;
            ASSERT_EQ(turned.At(x, y), source.At(sx, sy)) << bits;
            ASSERT_EQ(turnedPlane.At(x, y), plane.At(sx, sy)) << bits;
          }
        }
        Picture mirrored = source;
        kernels::Mirror(mirrored.Edit(), turn.mirrorX, turn.mirrorY);
        if (!turn.exchange) {
          EXPECT_EQ(LargestDifference(mirrored, turned), 0);
        }
      });
    }
  }
}

TEST(Kernels, ResultsDoNotDependOnThreads) {
  const Picture source = TestPicture(300, 400, 51);
  const Picture fill = TestPicture(300, 400, 52);
  const auto run = [&] {
    Picture picture = source;
    kernels::GaussianBlur(picture.Edit(), kernels::GaussianPlan(7));
    kernels::Blend(picture.Edit(), fill.View(), 8, 200);
    Picture small = Picture::Uninitialized(77, 91);
    kernels::Scale(picture.View(), {0, 0, 300, 400}, small.Edit());
    return small;
  };
  const Picture many = run();
  const ThreadLimit limit(1);
  EXPECT_EQ(LargestDifference(run(), many), 0);
}

}  // namespace
}  // namespace brivolant::test
