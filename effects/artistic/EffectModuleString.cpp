// SPDX-License-Identifier: MIT
#include "effects/artistic/EffectModuleString.h"

#include <algorithm>
#include <cmath>

#include "engine/pictures/AdvancedGraphics.h"
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

void EffectModuleString::ApplyEffect(Picture& picture, double) {
  // The factor of the rings' angles, as it has always been.
  constexpr double kDegree = 0.01744444444;
  const Picture sample =
      SharedPictureEffects::Scale(picture, kSample, kSample, SharedPictureEffects::kScaleExactly);
  if (sample.IsNil()) return;
  const double tw = picture.Width() / (kSample - 1.0);
  const double th = picture.Height() / (kSample - 1.0);
  kernels::FillPixels(picture.Edit(), backColor);
  AdvancedGraphics g(picture);
  if (DropShadow) g.SetShadow(0, -3, 1);
  const auto dot = [&](int x, int y) {
    if (x >= kSample || y >= kSample || x < 0 || y < 0) return;
    g.SetFillColor(sample.At(x, y), 1);
    g.DrawOval(
        AdvancedGraphicsModule::MakeCGRect(static_cast<float>(x * tw), static_cast<float>(y * th),
                                           static_cast<float>(std::max(tw - 1, 0.5)),
                                           static_cast<float>(std::max(th - 1, 0.5))),
        kFill);
  };
  if (Shape == 0) {
    for (int y = 0; y < kSample; ++y) {
      for (int x = 0; x < kSample; x += 3) dot(x, y);
    }
    return;
  }
  constexpr int kMiddle = kSample / 2;
  for (int r = 0; r <= kMiddle; ++r) {
    for (int a = 0; a < 360; a += 4) {
      const double t = kDegree * (r * 3.6 + a);
      dot(static_cast<int>(r * std::cos(t) + kMiddle), static_cast<int>(r * std::sin(t) + kMiddle));
    }
  }
}

}  // namespace brivolant
