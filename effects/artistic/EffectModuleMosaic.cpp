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
#include "platform/pictures/kernels/ScaleKernels.h"
#include "platform/values/Whole.h"

namespace brivolant {

namespace {

constexpr std::string_view kCharacters = "ABCDEFGHIJLKMNOPQRSTUVWXYZ1234567890!@#$%&[]==+*<>?|";

enum TileShape { kSquare = 0, kRounded = 1, kOval = 2, kCharacter = 3 };

/// What all tiles have in common.
struct Tile {
  double width;
  double height;
  /// By how much squares without shadows overlap, so that no gap shows.
  double more;
  double opacity;
  std::optional<ShapeStamp::Shadow> shadow;

  /// Of the rectangle in which a shape is painted.
  double MoreOf(int shape) const { return shape == kSquare && !shadow ? more : 0; }
  void Draw(AdvancedGraphics& g, int shape, std::size_t character, double left, double top) const {
    const double over = MoreOf(shape);
    const CGRect rect = AdvancedGraphicsModule::MakeCGRect(
        static_cast<float>(left), static_cast<float>(top), static_cast<float>(width + over),
        static_cast<float>(height + over));
    if (shape == kSquare) g.DrawRect(rect, kFill);
    if (shape == kRounded) g.DrawRoundRect(rect, height / 3, kFill);
    if (shape == kOval) g.DrawOval(rect, kFill);
    if (shape != kCharacter) return;
    g.SetTextFontAndSize("Arial Black", height);
    // Native coordinates: y from the bottom, and the text's foot there.
    g.DrawString(std::string(1, kCharacters[character]), left, g.Height() - top - height);
  }
};

/// One tile of the picture.
struct Place {
  int shape;
  std::size_t character;
  double x;
  double y;
  Color color;
};

/// The shapes and characters as stamps, each made when it is first needed.
class Stamps {
 public:
  explicit Stamps(const Tile& tile) : tile_(tile) {}

  FineStamps& Of(int shape, std::size_t character) {
    auto& stamp =
        stamps_.at(shape == kCharacter ? kCharacter + character : static_cast<std::size_t>(shape));
    if (!stamp) stamp = Make(shape, character);
    return *stamp;
  }

 private:
  std::unique_ptr<FineStamps> Make(int shape, std::size_t character) const {
    const double more = tile_.MoreOf(shape);
    // Characters hang below their line, and some are wider than a tile.
    const int room = shape == kCharacter ? 2 : 1;
    return std::make_unique<FineStamps>(room * static_cast<int>(std::ceil(tile_.width + more)),
                                        room * static_cast<int>(std::ceil(tile_.height + more)),
                                        tile_.opacity, tile_.shadow,
                                        [=, this](AdvancedGraphics& g, double left, double top) {
                                          tile_.Draw(g, shape, character, left, top);
                                        });
  }

  Tile tile_;
  std::array<std::unique_ptr<FineStamps>, kCharacter + kCharacters.size()> stamps_;
};

/// Lays small tiles, of which there are thousands.
void LayStamps(Picture& picture, const Tile& tile, const std::vector<Place>& places) {
  Stamps stamps(tile);
  std::vector<FineStamps::Piece> pieces;
  pieces.reserve(places.size());
  for (const Place& place : places) {
    pieces.push_back(stamps.Of(place.shape, place.character).At(place.x, place.y, place.color));
  }
  LayPieces(picture, pieces);
}

/// Draws large tiles one by one: as stamps, with their shadows, half a hundred of characters that
/// hardly repeat would need gigabytes.
void DrawTiles(Picture& picture, const Tile& tile, const std::vector<Place>& places) {
  AdvancedGraphics g(picture);
  if (tile.shadow) g.SetShadow(0, -tile.shadow->down, tile.shadow->blur);
  for (const Place& place : places) {
    g.SetFillColor(place.color, static_cast<float>(tile.opacity));
    tile.Draw(g, place.shape, place.character, place.x, place.y);
  }
}

}  // namespace

void EffectModuleMosaic::ApplyEffect(Picture& picture, double scale) {
  const int w = picture.Width();
  const int h = picture.Height();
  if (picture.IsNil()) return;
  const int columns = TileCount;
  const double tw = w / (columns - 1.0);
  // Of a tall picture no more rows than can be kept in memory. Else a tile is as high as it is
  // wide, whatever part of a pixel a preview's height has lost.
  constexpr int kMostTiles = 2000000;
  const int most = kMostTiles / columns;
  const double th = std::max(tw, h / (most - 2.0));
  // The last row lies below the picture: whether there is one more of it never shows.
  const int rows = std::min(Whole(h / th) + 2, most);
  // The colours come from as many equal parts of the width as there are columns, and from parts of
  // the same shape below each other.
  Picture sample = Picture::Uninitialized(columns, rows);
  if (sample.IsNil()) return;
  const double part = th * (columns - 1.0) / columns;
  kernels::Scale(picture.View(), {0, 0, 1.0 * w, rows * part}, sample.Edit());
  const double spread = w * 0.1 * varyPlacement;
  constexpr double kDistance = 0.2;
  Tile tile{tw, th, std::max(scale, 1.0), std::clamp(Transparency.Value(), 0.0F, 1.0F), {}};
  if (DropShadow) tile.shadow = ShapeStamp::Shadow{th * kDistance, 2 * th * kDistance};
  std::vector<Place> places;
  places.reserve(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
  for (int y = rows - 1; y >= 0; --y) {
    for (int x = 0; x < columns; ++x) {
      // Every tile throws its own: a row more or less does not move the others.
      TileDice dice(Seed.Value(), x, y);
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
      places.push_back({shape, character, px, py, sample.At(x, y)});
    }
  }
  if (Background) {
    AdvancedGraphics g(picture);
    g.SetFillColor(BackColor, Transparency);
    g.DrawRect(
        AdvancedGraphicsModule::MakeCGRect(0, 0, static_cast<float>(w), static_cast<float>(h)),
        kFill);
  }
  constexpr double kLargest = 200;
  const bool characters = shapes == 0 || shapes - 1 == kCharacter;
  if (characters && std::max(tw, th) > kLargest) {
    DrawTiles(picture, tile, places);
  } else {
    LayStamps(picture, tile, places);
  }
}

}  // namespace brivolant
