// SPDX-License-Identifier: MIT
#include "effects/artistic/EffectModuleMosaic.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "effects/Dice.h"
#include "engine/pictures/AdvancedGraphics.h"
#include "engine/pictures/SharedPictureEffects.h"

namespace brivolant {

namespace {

constexpr std::string_view kCharacters = "ABCDEFGHIJLKMNOPQRSTUVWXYZ1234567890!@#$%&[]==+*<>?|";

enum TileShape { kSquare = 0, kRounded = 1, kOval = 2, kCharacter = 3 };

}  // namespace

void EffectModuleMosaic::ApplyEffect(Picture& picture, double) {
  const int w = picture.Width();
  const int h = picture.Height();
  const int sw = std::max(static_cast<int>(TileCount), 2);
  const int sh = std::max(static_cast<int>(1.0 * h * sw / w), 2);
  const Picture sample =
      SharedPictureEffects::Scale(picture, sw, sh, SharedPictureEffects::kScaleExactly);
  if (sample.IsNil()) return;
  const double tw = w / (sw - 1.0);
  const double th = h / (sh - 1.0);
  const int radius = static_cast<int>(th) / 3;
  const int spread = static_cast<int>(w * 0.1 * varyPlacement);
  Dice dice(seed_);
  AdvancedGraphics g(picture);
  g.SetTextFontAndSize("Arial Black", th);
  if (Background) {
    g.SetFillColor(BackColor, Transparency);
    g.DrawRect(
        AdvancedGraphicsModule::MakeCGRect(0, 0, static_cast<float>(w), static_cast<float>(h)),
        kFill);
  }
  if (DropShadow) {
    const int s = static_cast<int>(th * 0.2);
    g.SetShadow(0, -s, 2 * s);
  }
  const double grow = DropShadow ? 0 : 1;
  for (int y = sh - 1; y >= 0; --y) {
    for (int x = 0; x < sw; ++x) {
      g.SetFillColor(sample.At(x, y), Transparency);
      const int shape = shapes == 0 ? dice.Below(4) : shapes - 1;
      const double px = std::trunc(x * tw + (varyPlacement == 0.0F ? 0 : dice.Rnd() * spread));
      const double py = std::trunc(y * th + (varyPlacement == 0.0F ? 0 : dice.Rnd() * spread));
      const auto rect = [&](double more) {
        return AdvancedGraphicsModule::MakeCGRect(static_cast<float>(px), static_cast<float>(py),
                                                  static_cast<float>(tw + more),
                                                  static_cast<float>(th + more));
      };
      switch (shape) {
        case kSquare:
          g.DrawRect(rect(grow), kFill);
          break;
        case kRounded:
          g.DrawRoundRect(rect(0), radius, kFill);
          break;
        case kOval:
          g.DrawOval(rect(0), kFill);
          break;
        case kCharacter: {
          const auto at =
              static_cast<std::size_t>(dice.Below(static_cast<int>(kCharacters.size())));
          // Native coordinates: y from the bottom, and the text's foot there.
          g.DrawString(std::string(1, kCharacters[at]), px, h - py - th);
          break;
        }
        default:
          break;
      }
    }
  }
}

}  // namespace brivolant
