// SPDX-License-Identifier: MIT
#include "effects/artistic/EffectModuleMosaic.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "effects/Dice.h"
#include "engine/pictures/AdvancedGraphics.h"
#include "engine/pictures/ShapeStamp.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "platform/values/Whole.h"

namespace brivolant {

namespace {

constexpr std::string_view kCharacters = "ABCDEFGHIJLKMNOPQRSTUVWXYZ1234567890!@#$%&[]==+*<>?|";

enum TileShape { kSquare = 0, kRounded = 1, kOval = 2, kCharacter = 3 };

/// The shapes and characters as stamps, each made when it is first needed.
class Stamps {
 public:
  /// Of a tile; `more` is by how much squares without shadows overlap, so that no gap shows.
  Stamps(double width, double height, double more, double opacity, bool shadow)
      : width_(width), height_(height), more_(shadow ? 0 : more), opacity_(opacity) {
    constexpr double kDistance = 0.2;
    const double distance = height * kDistance;
    if (shadow) shadow_ = ShapeStamp::Shadow{distance, 2 * distance};
  }

  FineStamps& Of(int shape, std::size_t character) {
    auto& stamp =
        stamps_.at(shape == kCharacter ? kCharacter + character : static_cast<std::size_t>(shape));
    if (!stamp) stamp = Make(shape, character);
    return *stamp;
  }

 private:
  std::unique_ptr<FineStamps> Make(int shape, std::size_t character) const {
    const double more = shape == kSquare ? more_ : 0;
    const int w = static_cast<int>(std::ceil(width_ + more));
    // Characters hang below their line, and some are wider than a tile.
    const int room = shape == kCharacter ? 2 : 1;
    return std::make_unique<FineStamps>(
        room * w, room * static_cast<int>(std::ceil(height_ + more)), opacity_, shadow_,
        [=, this](AdvancedGraphics& g, double left, double top) {
          const CGRect rect = AdvancedGraphicsModule::MakeCGRect(
              static_cast<float>(left), static_cast<float>(top), static_cast<float>(width_ + more),
              static_cast<float>(height_ + more));
          if (shape == kSquare) g.DrawRect(rect, kFill);
          if (shape == kRounded) g.DrawRoundRect(rect, height_ / 3, kFill);
          if (shape == kOval) g.DrawOval(rect, kFill);
          if (shape != kCharacter) return;
          g.SetTextFontAndSize("Arial Black", height_);
          // Native coordinates: y from the bottom, and the text's foot there.
          g.DrawString(std::string(1, kCharacters[character]), left, g.Height() - top - height_);
        });
  }

  double width_;
  double height_;
  double more_;
  double opacity_;
  std::optional<ShapeStamp::Shadow> shadow_;
  std::array<std::unique_ptr<FineStamps>, kCharacter + kCharacters.size()> stamps_;
};

}  // namespace

void EffectModuleMosaic::ApplyEffect(Picture& picture, double scale) {
  const int w = picture.Width();
  const int h = picture.Height();
  const int sw = TileCount;
  // Of a tall picture no more rows than can be kept in memory. A preview's height may have lost
  // part of a pixel, which must not cost a row of tiles.
  constexpr int kMostTiles = 2000000;
  const int sh = std::clamp(Whole((h + 1.0) * sw / w), 2, kMostTiles / sw);
  const Picture sample =
      SharedPictureEffects::Scale(picture, sw, sh, SharedPictureEffects::kScaleExactly);
  if (sample.IsNil()) return;
  const double tw = w / (sw - 1.0);
  const double th = h / (sh - 1.0);
  const double spread = w * 0.1 * varyPlacement;
  Dice dice(Seed.Value());
  Stamps stamps(tw, th, std::max(scale, 1.0), std::clamp(Transparency.Value(), 0.0F, 1.0F),
                DropShadow);
  std::vector<FineStamps::Piece> tiles;
  tiles.reserve(static_cast<std::size_t>(sw) * static_cast<std::size_t>(sh));
  for (int y = sh - 1; y >= 0; --y) {
    for (int x = 0; x < sw; ++x) {
      const int shape = shapes == 0 ? dice.Below(4) : shapes - 1;
      const auto place = [&](double at) {
        return at + (varyPlacement == 0.0F ? 0 : dice.Rnd() * spread);
      };
      const double px = place(x * tw);
      const double py = place(y * th);
      if (shape < kSquare || shape > kCharacter) continue;
      const auto character =
          shape == kCharacter
              ? static_cast<std::size_t>(dice.Below(static_cast<int>(kCharacters.size())))
              : 0;
      tiles.push_back(stamps.Of(shape, character).At(px, py, sample.At(x, y)));
    }
  }
  if (Background) {
    AdvancedGraphics g(picture);
    g.SetFillColor(BackColor, Transparency);
    g.DrawRect(
        AdvancedGraphicsModule::MakeCGRect(0, 0, static_cast<float>(w), static_cast<float>(h)),
        kFill);
  }
  LayPieces(picture, tiles);
}

}  // namespace brivolant
