// SPDX-License-Identifier: MIT
#include "effects/artistic/EffectModuleConfetti.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "effects/Dice.h"
#include "engine/pictures/AdvancedGraphics.h"

namespace brivolant {

namespace {

constexpr double kHalf = 23;
constexpr double kQuarter = 11;

/// The shapes, around the origin with y down, made on a canvas of height 0.
std::vector<AdvancedGraphicsPath> MakeShapes() {
  constexpr double h = kHalf;
  constexpr double q = kQuarter;
  std::vector<AdvancedGraphicsPath> shapes(10, AdvancedGraphicsPath(0));
  // Lines of the skinny star are thin bars.
  for (int i = 0; i < 4; ++i) {
    AdvancedGraphicsPath bar(0);
    const auto reach = static_cast<float>(i % 2 == 0 ? h : 0.5 * h * 1.4142);
    bar.AddRect(AdvancedGraphicsModule::MakeCGRect(-reach, -1, 2 * reach, 2));
    bar.Rotate(45.0 * i);
    shapes[0].AddPath(bar);
  }
  constexpr double kCorners[5][2] = {{-h, -h}, {h, -h}, {h, h}, {-h, h}, {-h, -h}};
  for (const std::size_t star : {1, 2}) {
    shapes[star].MoveToPoint(-h, -h);
    for (int i = 1; i < 5; ++i) {
      const double x = kCorners[i][0];
      const double y = kCorners[i][1];
      if (star == 1) {
        shapes[star].AddCurveToPoint(0, 0, 0, 0, x, y);
      } else {
        shapes[star].AddQuadCurveToPoint(0, 0, x, y);
      }
    }
  }
  shapes[3].MoveToPoint(-h + 6.9, h);
  for (const auto& [x, y] : {std::pair{0.0, -h}, {h - 6.9, h}, {-h, -h + 16.1}, {h, -h + 16.1}}) {
    shapes[3].AddLineToPoint(x, y);
  }
  shapes[3].CloseSubpath();
  shapes[4].MoveToPoint(-h, -q);
  shapes[4].AddCurveToPoint(-h, -h, 0, -h, 0, -q);
  shapes[4].AddCurveToPoint(0, -h, h, -h, h, -q);
  shapes[4].AddQuadCurveToPoint(h, q, 0, h);
  shapes[4].AddQuadCurveToPoint(-h, q, -h, -q);
  for (int i = 0; i < 4; ++i) {
    constexpr double kPetals[5][2] = {{h, -h}, {-h, -h}, {-h, h}, {h, h}, {h, -h}};
    shapes[5].MoveToPoint(0, 0);
    shapes[5].AddCurveToPoint(kPetals[i][0], kPetals[i][1], kPetals[i + 1][0], kPetals[i + 1][1], 0,
                              0);
  }
  shapes[6].AddRect(AdvancedGraphicsModule::MakeCGRect(-h, -h, 2 * h, 2 * h));
  shapes[7].MoveToPoint(0, -h);
  shapes[7].AddCurveToPoint(-h, -h, -h, h, 0, h);
  shapes[7].AddCurveToPoint(-q, h, -q, -h, 0, -h);
  shapes[8].MoveToPoint(-h, 0);
  shapes[8].AddCurveToPoint(-h, h, h, h, h, 0);
  shapes[8].AddLineToPoint(0.8 * h, -h);
  shapes[8].AddLineToPoint(0.3 * h, -h);
  shapes[8].AddLineToPoint(q, 0);
  shapes[8].AddCurveToPoint(q, q, -q, q, -q, 0);
  shapes[8].AddLineToPoint(-0.3 * h, -h);
  shapes[8].AddLineToPoint(-0.8 * h, -h);
  shapes[8].CloseSubpath();
  shapes[9].MoveToPoint(-h, 0);
  shapes[9].AddQuadCurveToPoint(-q, -h, 0, -q);
  shapes[9].AddQuadCurveToPoint(q, -h, h, 0);
  shapes[9].CloseSubpath();
  shapes[9].MoveToPoint(h, 3);
  shapes[9].AddQuadCurveToPoint(0, h, -h, 3);
  shapes[9].CloseSubpath();
  return shapes;
}

}  // namespace

void EffectModuleConfetti::SettingsReset() {
  // What is chosen survives a reset; only size and the random colours go back.
  RandomColor = false;
  maxSize = 1;
}

void EffectModuleConfetti::ApplyEffect(Picture& picture, double scale) {
  static const std::vector<AdvancedGraphicsPath> shapes = MakeShapes();
  constexpr int kMostStars = 100000;
  Dice dice(seed_);
  AdvancedGraphics g(picture);
  for (int i = 0; i < std::min(static_cast<int>(StarCount), kMostStars); ++i) {
    const int any = dice.Below(static_cast<int>(shapes.size()));
    const int index = Kind == 0 ? any : Kind - 1;
    const double degrees = dice.Rnd() * 359;
    const auto part = [&dice] { return static_cast<std::uint8_t>(dice.Below(255)); };
    const Color random{part(), part(), part()};
    const double size = dice.Rnd() * maxSize * scale;
    const double x = std::trunc(picture.Width() * dice.Rnd());
    const double y = std::trunc(picture.Height() * dice.Rnd());
    if (index < 0 || index >= static_cast<int>(shapes.size())) continue;
    AdvancedGraphicsPath shape = shapes[static_cast<std::size_t>(index)];
    shape.Scale(size, size);
    shape.Rotate(degrees);
    shape.MovePath(x, picture.Height() - y);
    g.SetFillColor(RandomColor ? random : StarColor.Value(), 1);
    g.DrawPath(shape, kFill);
  }
}

}  // namespace brivolant
