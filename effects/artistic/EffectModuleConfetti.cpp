// SPDX-License-Identifier: MIT
#include "effects/artistic/EffectModuleConfetti.h"

#include <algorithm>
#include <cmath>
#include <numbers>
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

/// The one shape of lines alone.
constexpr std::size_t kSkinnyStar = 0;

/// A shape as it fell.
struct Piece {
  std::size_t index;
  double degrees;
  double size;
  double x;
  double y;
  Color color;
};

/// Lines from side to side through the middle, and short ones between them.
void DrawRays(AdvancedGraphics& g, const Piece& piece) {
  constexpr double kWidth = 2;
  g.SetStrokeColor(piece.color, 1);
  g.PenThickness(kWidth * piece.size);
  for (int i = 0; i < 4; ++i) {
    // The ends of a line stand out by half its width.
    const double reach = (i % 2 == 0 ? kHalf : 0.5 * kHalf * std::numbers::sqrt2) - kWidth / 2;
    const double angle = AdvancedGraphicsModule::Radian(piece.degrees + 45.0 * i);
    const double dx = piece.size * reach * std::cos(angle);
    const double dy = piece.size * reach * std::sin(angle);
    const double y = g.Height() - piece.y;
    g.DrawLine(piece.x - dx, y - dy, piece.x + dx, y + dy);
  }
}

}  // namespace

void EffectModuleConfetti::SettingsReset() {
  // What is chosen survives a reset; only size and the random colours go back.
  RandomColor = false;
  maxSize = 1;
}

void EffectModuleConfetti::ApplyEffect(Picture& picture, double scale) {
  static const std::vector<AdvancedGraphicsPath> shapes = MakeShapes();
  Dice dice(Seed.Value());
  std::vector<Piece> pieces;
  for (int i = 0; i < StarCount; ++i) {
    const int any = dice.Below(static_cast<int>(shapes.size()));
    const int index = Kind == 0 ? any : Kind - 1;
    const double degrees = dice.Rnd() * 359;
    const auto part = [&dice] { return static_cast<std::uint8_t>(dice.Below(255)); };
    const Color random{part(), part(), part()};
    const double size = dice.Rnd() * maxSize * scale;
    const double x = std::trunc(picture.Width() * dice.Rnd());
    const double y = std::trunc(picture.Height() * dice.Rnd());
    if (index < 0 || index >= static_cast<int>(shapes.size())) continue;
    pieces.push_back({static_cast<std::size_t>(index), degrees, size, x, y,
                      RandomColor ? random : StarColor.Value()});
  }
  DrawInBands(picture, [&](AdvancedGraphics& g) {
    for (const Piece& piece : pieces) {
      if (piece.index == kSkinnyStar) {
        DrawRays(g, piece);
        continue;
      }
      AdvancedGraphicsPath shape = shapes[piece.index];
      shape.Scale(piece.size, piece.size);
      shape.Rotate(piece.degrees);
      shape.MovePath(piece.x, g.Height() - piece.y);
      g.SetFillColor(piece.color, 1);
      g.DrawPath(shape, kFill);
    }
  });
}

}  // namespace brivolant
