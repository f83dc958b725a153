// SPDX-License-Identifier: MIT
#include "effects/artistic/EffectModuleMosaic.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string_view>
#include <vector>

#include "effects/Dice.h"
#include "engine/pictures/AdvancedGraphics.h"
#include "engine/pictures/ShapeStamp.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "platform/pictures/Parallel.h"
#include "platform/values/Whole.h"

namespace brivolant {

namespace {

constexpr std::string_view kCharacters = "ABCDEFGHIJLKMNOPQRSTUVWXYZ1234567890!@#$%&[]==+*<>?|";

enum TileShape { kSquare = 0, kRounded = 1, kOval = 2, kCharacter = 3 };

/// The shapes and characters as stamps, each made when it is first needed.
class Stamps {
 public:
  Stamps(double width, double height, double opacity, bool shadow)
      : width_(width), height_(height), opacity_(opacity) {
    constexpr double kDistance = 0.2;
    const int distance = static_cast<int>(height * kDistance);
    if (shadow) shadow_ = ShapeStamp::Shadow{distance, 2 * distance};
  }

  const ShapeStamp& Of(int shape, std::size_t character) {
    auto& stamp =
        stamps_.at(shape == kCharacter ? kCharacter + character : static_cast<std::size_t>(shape));
    if (!stamp) stamp.emplace(Make(shape, character));
    return *stamp;
  }

 private:
  ShapeStamp Make(int shape, std::size_t character) const {
    // Tiles without shadows overlap by a pixel, so that no gap shows.
    const double more = shape == kSquare && !shadow_ ? 1 : 0;
    const int w = static_cast<int>(std::ceil(width_ + more));
    // Characters hang below their line, and some are wider than a tile.
    const int room = shape == kCharacter ? 2 : 1;
    return {room * w, room * static_cast<int>(std::ceil(height_ + more)), opacity_, shadow_,
            [&](AdvancedGraphics& g, int left, int top) {
              const CGRect rect = AdvancedGraphicsModule::MakeCGRect(
                  static_cast<float>(left), static_cast<float>(top),
                  static_cast<float>(width_ + more), static_cast<float>(height_ + more));
              if (shape == kSquare) g.DrawRect(rect, kFill);
              if (shape == kRounded) g.DrawRoundRect(rect, std::trunc(height_ / 3), kFill);
              if (shape == kOval) g.DrawOval(rect, kFill);
              if (shape != kCharacter) return;
              g.SetTextFontAndSize("Arial Black", height_);
              // Native coordinates: y from the bottom, and the text's foot there.
              g.DrawString(std::string(1, kCharacters[character]), left,
                           g.Height() - top - height_);
            }};
  }

  double width_;
  double height_;
  double opacity_;
  std::optional<ShapeStamp::Shadow> shadow_;
  std::array<std::optional<ShapeStamp>, kCharacter + kCharacters.size()> stamps_;
};

struct Tile {
  const ShapeStamp* stamp;
  Color color;
  int x;
  int y;
};

}  // namespace

void EffectModuleMosaic::ApplyEffect(Picture& picture, double) {
  const int w = picture.Width();
  const int h = picture.Height();
  const int sw = TileCount;
  // Of a tall picture no more rows than can be kept in memory.
  constexpr int kMostTiles = 2000000;
  const int sh = std::clamp(Whole(1.0 * h * sw / w), 2, kMostTiles / sw);
  const Picture sample =
      SharedPictureEffects::Scale(picture, sw, sh, SharedPictureEffects::kScaleExactly);
  if (sample.IsNil()) return;
  const double tw = w / (sw - 1.0);
  const double th = h / (sh - 1.0);
  const int spread = static_cast<int>(w * 0.1 * varyPlacement);
  Dice dice(Seed.Value());
  Stamps stamps(tw, th, std::clamp(Transparency.Value(), 0.0F, 1.0F), DropShadow);
  std::vector<Tile> tiles;
  tiles.reserve(static_cast<std::size_t>(sw) * static_cast<std::size_t>(sh));
  for (int y = sh - 1; y >= 0; --y) {
    for (int x = 0; x < sw; ++x) {
      const int shape = shapes == 0 ? dice.Below(4) : shapes - 1;
      const auto place = [&](double at) {
        return static_cast<int>(at + (varyPlacement == 0.0F ? 0 : dice.Rnd() * spread));
      };
      const int px = place(x * tw);
      const int py = place(y * th);
      if (shape < kSquare || shape > kCharacter) continue;
      const auto character =
          shape == kCharacter
              ? static_cast<std::size_t>(dice.Below(static_cast<int>(kCharacters.size())))
              : 0;
      tiles.push_back({&stamps.Of(shape, character), sample.At(x, y), px, py});
    }
  }
  if (Background) {
    AdvancedGraphics g(picture);
    g.SetFillColor(BackColor, Transparency);
    g.DrawRect(
        AdvancedGraphicsModule::MakeCGRect(0, 0, static_cast<float>(w), static_cast<float>(h)),
        kFill);
  }
  constexpr int kGrain = 64;
  const Pixels target = picture.Edit();
  ParallelRows(h, kGrain, [&](int from, int to) {
    for (const Tile& tile : tiles) {
      if (tile.stamp->Touches(tile.y, from, to)) {
        tile.stamp->Lay(target, tile.color, tile.x, tile.y, from, to);
      }
    }
  });
}

}  // namespace brivolant
