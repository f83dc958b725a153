// SPDX-License-Identifier: MIT
// Operations that move pixels, and the agreement of preview and export.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numbers>
#include <optional>

#include "Helpers.h"
#include "effects/EffectRegistry.h"
#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/MPImageFilter.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "platform/pictures/Graphics.h"
#include "platform/pictures/kernels/WarpKernels.h"

namespace brivolant::test {
namespace {

using namespace MPImageFilter;

/// Black with one bright square in the middle.
Picture Spot(int width, int height, int side) {
  Picture picture = PlainPicture(width, height, kBlack);
  Graphics g(picture);
  g.ForeColor = kWhite;
  const int left = (width - side) / 2;
  const int top = (height - side) / 2;
  g.FillRect(left, top, side, side);
  return picture;
}

double Sum(const Picture& picture) {
  double sum = 0;
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) sum += picture.At(x, y).Green;
  }
  return sum;
}

TEST(MotionBlurs, SmearAlongTheirPathAndKeepTheLight) {
  const Picture spot = Spot(101, 101, 3);
  struct Case {
    double angle;
    Point inside;
    Point outside;
  };
  // 25 units are 45 degrees, 50 a right angle.
  for (const Case& c : {Case{0, {40, 50}, {50, 40}},
                        {25, {42, 42}, {42, 58}},
                        {50, {50, 40}, {40, 50}},
                        {75, {42, 58}, {42, 42}}}) {
    const Picture blurred = MotionBlur(spot, 5, c.angle, 26, kLinear);
    const auto at = [&](const Point& p) {
      return blurred.At(static_cast<int>(p.x), static_cast<int>(p.y)).Green;
    };
    EXPECT_GT(at(c.inside), 10) << c.angle;
    EXPECT_EQ(at(c.outside), 0) << c.angle;
    EXPECT_NEAR(Sum(blurred), Sum(spot), Sum(spot) * 0.12) << c.angle;
  }
  // A plain picture stays plain to its very border, and nothing to move changes nothing.
  const Picture plain = PlainPicture(40, 30, {10, 200, 77});
  for (const int type : {kLinear, kRadial, kZoom}) {
    EXPECT_LE(LargestDifference(MotionBlur(plain, 30, 13, 20, type), plain), 1) << type;
    EXPECT_TRUE(MotionBlur(spot, 0, 10, 0, type).SameAs(spot));
  }
  // The centre of a turn and of an approach stands still; what is far away does not.
  const Picture photo = TestPicture(81, 61);
  for (const int type : {kRadial, kZoom}) {
    const Picture blurred = MotionBlur(photo, 20, 0, 0, type);
    EXPECT_EQ(blurred.At(40, 30), photo.At(40, 30)) << type;
    EXPECT_NE(blurred.At(3, 3), photo.At(3, 3)) << type;
    EXPECT_NE(blurred.At(77, 30), photo.At(77, 30)) << type;
  }
  const Plane none(101, 101, 255);
  EXPECT_EQ(LargestDifference(MotionBlur(spot, 9, 0, 9, kRadial, &none), spot), 0);
}

TEST(Scattering, StaysWithinItsRadiusAndRepeatsForASeed) {
  Picture ramp = Picture::Uninitialized(200, 50);
  for (int y = 0; y < 50; ++y) {
    for (int x = 0; x < 200; ++x) {
      std::uint8_t* p = ramp.Edit().Row(y) + std::ptrdiff_t{4} * x;
      p[0] = p[1] = p[2] = static_cast<std::uint8_t>(x);
      p[3] = 255;
    }
  }
  const Picture scattered = Diffuse(ramp, 9, false, 1, 7);
  int farthest = 0;
  for (int y = 0; y < 50; ++y) {
    for (int x = 0; x < 200; ++x) {
      farthest = std::max(farthest, std::abs(scattered.At(x, y).Green - x));
    }
  }
  EXPECT_LE(farthest, 10);
  EXPECT_GE(farthest, 7);
  EXPECT_TRUE(Diffuse(ramp, 9, false, 1, 7).SameAs(scattered));
  EXPECT_FALSE(Diffuse(ramp, 9, false, 1, 8).SameAs(scattered));
  EXPECT_TRUE(Diffuse(ramp, 0, true, 1, 7).SameAs(ramp));
  // A grain moves as one.
  const Picture coarse = Diffuse(ramp, 9, false, 4, 7);
  EXPECT_EQ(coarse.At(101, 21).Green - coarse.At(100, 20).Green, 1);
}

TEST(Bending, KeepsTheMiddleAndFillsTheCorners) {
  const Picture photo = TestPicture(121, 81);
  BarrelDistortion lens;
  EXPECT_TRUE(lens.ApplyEffect(photo).SameAs(photo));
  lens.BackColor = {255, 0, 255};
  const Picture plain = PlainPicture(121, 81, {20, 90, 30});
  for (const double distortion : {-1.0, -0.3, 0.4, 1.0}) {
    lens.Distortion = distortion;
    EXPECT_EQ(lens.ApplyEffect(photo).At(60, 40), photo.At(60, 40));
    // No background shows, neither at the corners nor at the sides.
    EXPECT_LE(LargestDifference(lens.ApplyEffect(plain), plain), 1) << distortion;
  }
  // A barrel bulges: a line near the border bends away from the middle at its middle.
  Picture line = PlainPicture(201, 201, kBlack);
  {
    Graphics g(line);
    g.ForeColor = kWhite;
    g.FillRect(30, 0, 3, 201);
  }
  const auto place = [](const Picture& picture, int y) {
    double sum = 0;
    double weight = 0;
    for (int x = 0; x < 100; ++x) {
      sum += picture.At(x, y).Green * x;
      weight += picture.At(x, y).Green;
    }
    return sum / weight;
  };
  lens.Distortion = 0.6;
  const Picture barrel = lens.ApplyEffect(line);
  EXPECT_LT(place(barrel, 100), place(barrel, 10));
  lens.Distortion = -0.6;
  const Picture cushion = lens.ApplyEffect(line);
  EXPECT_GT(place(cushion, 100), place(cushion, 10));
  lens.Reset();
  lens.VerticalKeystone = 0.3;
  const Picture leaning = lens.ApplyEffect(line);
  EXPECT_NE(std::lround(place(leaning, 60)), std::lround(place(leaning, 140)));
}

TEST(Waving, SwingsAroundItsPlaceAndShowsTheBackColor) {
  const Picture photo = TestPicture(100, 80);
  EXPECT_TRUE(Wave(photo, 0, kBlack).SameAs(photo));
  const Picture plain = PlainPicture(100, 80, {20, 90, 30});
  const Picture waved = Wave(plain, 3, {255, 0, 255});
  EXPECT_EQ(waved.At(50, 40), plain.At(50, 40));
  int back = 0;
  for (int x = 0; x < 100; ++x) back += waved.At(x, 0) == (Color{255, 0, 255}) ? 1 : 0;
  EXPECT_GT(back, 5);
  EXPECT_LT(back, 95);
}

TEST(Drops, LieWhereTheSeedSaysAndChangeOnlyWhatTheyCover) {
  const Picture photo = TestPicture(160, 120);
  Picture out = Picture::Uninitialized(160, 120);
  kernels::ThroughDrops(photo.View(), out.Edit(), {{80, 60, 20}});
  EXPECT_EQ(out.At(80 - 21, 60), photo.At(80 - 21, 60));
  EXPECT_EQ(out.At(5, 5), photo.At(5, 5));
  EXPECT_NE(out.At(80, 50), photo.At(80, 50));
  EXPECT_TRUE(WaterDrops(photo, 20, 30, 5).SameAs(WaterDrops(photo, 20, 30, 5)));
  EXPECT_FALSE(WaterDrops(photo, 20, 30, 5).SameAs(WaterDrops(photo, 20, 30, 6)));
  EXPECT_TRUE(WaterDrops(photo, 20, 0, 5).SameAs(photo));
  EXPECT_TRUE(WaterDrops(photo, -3, 9, 5).SameAs(photo));
}

/// The plain forms of the operations, pixel by pixel in floating point.
namespace reference {

using Level = std::array<double, 3>;

Level At(const Picture& picture, int x, int y) {
  const Color color =
      picture.At(std::clamp(x, 0, picture.Width() - 1), std::clamp(y, 0, picture.Height() - 1));
  return {1.0 * color.Red, 1.0 * color.Green, 1.0 * color.Blue};
}

/// Bilinear; beyond the border lies `back`, or the border itself goes on.
Level Sample(const Picture& picture, double x, double y, const std::optional<Color>& back) {
  if (!back) {
    x = std::clamp(x, 0.0, picture.Width() - 1.0);
    y = std::clamp(y, 0.0, picture.Height() - 1.0);
  }
  const int x0 = static_cast<int>(std::floor(x));
  const int y0 = static_cast<int>(std::floor(y));
  Level sum{};
  for (const auto& [px, py] : {std::pair{x0, y0}, {x0 + 1, y0}, {x0, y0 + 1}, {x0 + 1, y0 + 1}}) {
    const double weight = (1 - std::abs(x - px)) * (1 - std::abs(y - py));
    const bool inside = px >= 0 && py >= 0 && px < picture.Width() && py < picture.Height();
    const Level level = inside || !back
                            ? At(picture, px, py)
                            : Level{1.0 * back->Red, 1.0 * back->Green, 1.0 * back->Blue};
    for (std::size_t k = 0; k < 3; ++k) sum[k] += weight * level[k];
  }
  return sum;
}

/// The farthest that a channel of `picture` lies from what `level(x, y)` says.
template <class LevelAt>
double Farthest(const Picture& picture, LevelAt level) {
  double farthest = 0;
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      const Level expected = level(x, y);
      const Level found = At(picture, x, y);
      for (std::size_t k = 0; k < 3; ++k) {
        farthest = std::max(farthest, std::abs(expected[k] - found[k]));
      }
    }
  }
  return farthest;
}

}  // namespace reference

TEST(WarpKernels, AgreeWithTheirPlainForms) {
  using reference::Level;
  // Sixteenths of a position are lost at most: a level of a hard edge moves by a few.
  constexpr double kClose = 2.5;
  for (const auto& size : {std::pair{1, 1}, {2, 7}, {37, 23}, {64, 65}}) {
    const int width = size.first;
    const int height = size.second;
    const Picture photo = TestPicture(width, height);
    Picture out = Picture::Uninitialized(width, height);
    const double cx = (width - 1) / 2.0;
    const double cy = (height - 1) / 2.0;

    kernels::Swing(photo.View(), out.Edit(), 2.5, 3.7, kWhite);
    EXPECT_LE(reference::Farthest(out,
                                  [&](int x, int y) {
                                    const double turn = 2 * std::numbers::pi * 2.5;
                                    return reference::Sample(
                                        photo, x + 3.7 * std::sin(turn * y / height),
                                        y + 3.7 * std::sin(turn * x / width), kWhite);
                                  }),
              kClose)
        << width;

    for (const auto& [degrees, zoom] : {std::pair{0.0, 1.3}, {25.0, 1.0}, {-170.0, 0.7}}) {
      kernels::AverageWithTurned(photo.View(), out.Edit(), degrees, zoom);
      const double c = std::cos(degrees * std::numbers::pi / 180) / zoom;
      const double s = std::sin(degrees * std::numbers::pi / 180) / zoom;
      EXPECT_LE(reference::Farthest(out,
                                    [&](int x, int y) {
                                      Level mean = reference::Sample(
                                          photo, cx + (x - cx) * c + (y - cy) * s,
                                          cy - (x - cx) * s + (y - cy) * c, std::nullopt);
                                      const Level own = reference::At(photo, x, y);
                                      for (std::size_t k = 0; k < 3; ++k) {
                                        mean[k] = (mean[k] + own[k]) / 2;
                                      }
                                      return mean;
                                    }),
                kClose)
          << width << " " << degrees;
    }

    const kernels::Lens lens{-0.35, 1.1, 0.2, -0.3};
    kernels::Bend(photo.View(), out.Edit(), lens, kBlack);
    EXPECT_LE(reference::Farthest(
                  out,
                  [&](int x, int y) {
                    const double reach = std::max(std::hypot(cx, cy), 0.5);
                    const double depth = 1 + lens.verticalKeystone * (y - cy) / reach +
                                         lens.horizontalKeystone * (x - cx) / reach;
                    const double dx = (x - cx) / reach / depth;
                    const double dy = (y - cy) / reach / depth;
                    const double factor =
                        lens.scale * reach * (1 + lens.bend * (dx * dx + dy * dy));
                    return reference::Sample(photo, cx + dx * factor, cy + dy * factor, kBlack);
                  }),
              kClose)
        << width;

    // Along a row and down a column a line's mean is that of its neighbours.
    for (const double angle : {0.0, 90.0, 180.0, -90.0}) {
      for (const int length : {2, 7, 200}) {
        kernels::MotionBlurAlongLine(photo.View(), out.Edit(), length, angle);
        const int reach = static_cast<int>(std::lround(length / 2.0));
        const bool flat = std::abs(angle) != 90;
        EXPECT_LE(reference::Farthest(out,
                                      [&](int x, int y) {
                                        Level mean{};
                                        for (int i = -reach; i <= reach; ++i) {
                                          const Level level = reference::At(
                                              photo, x + (flat ? i : 0), y + (flat ? 0 : i));
                                          for (std::size_t k = 0; k < 3; ++k) {
                                            mean[k] += level[k] / (2 * reach + 1);
                                          }
                                        }
                                        return mean;
                                      }),
                  1)
            << width << " " << angle << " " << length;
      }
    }

    for (const auto& brush : {std::pair{1, 3}, {4, 20}, {90, 255}}) {
      const int radius = brush.first;
      const int levels = brush.second;
      kernels::PaintInOil(photo.View(), out.Edit(), radius, levels);
      EXPECT_LE(
          reference::Farthest(
              out,
              [&](int x, int y) {
                std::map<int, std::vector<Level>> classes;
                for (int v = std::max(y - radius, 0); v <= std::min(y + radius, height - 1); ++v) {
                  for (int u = std::max(x - radius, 0); u <= std::min(x + radius, width - 1); ++u) {
                    const Level level = reference::At(photo, u, v);
                    const int sum = static_cast<int>(level[0] + level[1] + level[2]);
                    classes[sum * levels / 765].push_back(level);
                  }
                }
                const std::vector<Level>* fullest = nullptr;
                for (const auto& [key, members] : classes) {
                  if (!fullest || members.size() > fullest->size()) {
                    fullest = &members;
                  }
                }
                Level mean{};
                for (const Level& level : *fullest) {
                  for (std::size_t k = 0; k < 3; ++k) {
                    mean[k] += level[k] / static_cast<double>(fullest->size());
                  }
                }
                return mean;
              }),
          1)
          << width << " " << radius;
    }
  }
}

}  // namespace
}  // namespace brivolant::test
