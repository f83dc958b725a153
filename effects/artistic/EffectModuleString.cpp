// SPDX-License-Identifier: MIT
#include "effects/artistic/EffectModuleString.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "engine/pictures/AdvancedGraphics.h"
#include "engine/pictures/ShapeStamp.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "platform/pictures/kernels/LookKernels.h"

namespace brivolant {

namespace {
constexpr int kSample = 100;
}

void EffectModuleString::SettingsReset() {
  const bool kept = DropShadow;
  effectModule::SettingsReset();
  DropShadow = kept;
}

void EffectModuleString::ApplyEffect(Picture& picture, double scale) {
  // The factor of the rings' angles, as it has always been.
  constexpr double kDegree = 0.01744444444;
  const Picture sample =
      SharedPictureEffects::Scale(picture, kSample, kSample, SharedPictureEffects::kScaleExactly);
  if (sample.IsNil()) return;
  const double tw = picture.Width() / (kSample - 1.0);
  const double th = picture.Height() / (kSample - 1.0);
  kernels::FillPixels(picture.Edit(), backColor);
  // Gaps and shadows are the same share of a thread at every size.
  const double width = std::max(tw - scale, 0.5);
  const double height = std::max(th - scale, 0.5);
  std::optional<ShapeStamp::Shadow> shadow;
  if (DropShadow) shadow = ShapeStamp::Shadow{3 * scale, scale};
  FineStamps dots(static_cast<int>(std::ceil(width)), static_cast<int>(std::ceil(height)), 1,
                  shadow, [&](AdvancedGraphics& g, double left, double top) {
                    g.DrawOval(AdvancedGraphicsModule::MakeCGRect(
                                   static_cast<float>(left), static_cast<float>(top),
                                   static_cast<float>(width), static_cast<float>(height)),
                               kFill);
                  });
  std::vector<FineStamps::Piece> pieces;
  const auto dot = [&](int x, int y) {
    if (x >= kSample || y >= kSample || x < 0 || y < 0) return;
    pieces.push_back(dots.At(x * tw, y * th, sample.At(x, y)));
  };
  if (Shape == 0) {
    for (int y = 0; y < kSample; ++y) {
      for (int x = 0; x < kSample; x += 3) dot(x, y);
    }
    LayPieces(picture, pieces);
    return;
  }
  constexpr int kMiddle = kSample / 2;
  for (int r = 0; r <= kMiddle; ++r) {
    for (int a = 0; a < 360; a += 4) {
      const double t = kDegree * (r * 3.6 + a);
      dot(static_cast<int>(r * std::cos(t) + kMiddle), static_cast<int>(r * std::sin(t) + kMiddle));
    }
  }
  LayPieces(picture, pieces);
}

}  // namespace brivolant
