// SPDX-License-Identifier: MIT
#include "effects/finishes/EffectModuleReflection.h"

#include <algorithm>

#include "engine/pictures/AdvancedGraphics.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "platform/pictures/kernels/ComposeKernels.h"
#include "platform/pictures/kernels/LookKernels.h"
#include "platform/values/Whole.h"

namespace brivolant {

void EffectModuleReflection::SettingsReset() {
  const float kept = Percent;
  effectModule::SettingsReset();
  Percent = kept;
}

void EffectModuleReflection::ApplyEffect(Picture& picture, double) {
  constexpr int kAllSides = 4;
  const Picture mirrored = SharedPictureEffects::Flip(picture, mode < 2 ? 0 : 1);
  if (mode == kAllSides) {
    MirrorBelow(picture, mirrored);
  } else if (mode >= 0 && mode < kAllSides) {
    MirrorAside(picture, mirrored);
  }
}

void EffectModuleReflection::MirrorBelow(Picture& picture, const Picture& mirrored) const {
  constexpr double kSize = 0.75;
  constexpr double kFirst = 0.3;
  using namespace SharedPictureEffects;
  const int w = picture.Width();
  const int h = picture.Height();
  const int nw = static_cast<int>(w * kSize);
  const int nh = static_cast<int>(h * kSize);
  if (nw == 0 || nh == 0) return;
  const int x = (w - nw) / 2;
  const Picture upright = Scale(picture, nw, nh, kScaleExactly);
  const Picture below = Scale(mirrored, nw, nh, kScaleExactly);
  kernels::FillPixels(picture.Edit(), backColor);
  kernels::Compose(picture.Edit(), upright.View(), {}, x, 0);
  kernels::Compose(picture.Edit(), below.View(), {}, x, nh);
  AdvancedGraphics g(picture);
  g.DrawGradient(
      AdvancedGraphicsModule::MakeCGRect(static_cast<float>(x), static_cast<float>(nh),
                                         static_cast<float>(nw), static_cast<float>(h - nh + 1)),
      backColor, backColor, kFirst, 1);
}

void EffectModuleReflection::MirrorAside(Picture& picture, const Picture& mirrored) const {
  const int w = picture.Width();
  const int h = picture.Height();
  const auto part = [this](int side) {
    return std::clamp(Whole(static_cast<double>(side) * Percent), 0, side);
  };
  int x = 0;
  int y = 0;
  int width = w;
  int height = h;
  switch (mode.Value()) {
    case 0:
      x = part(w);
      width = w - x;
      break;
    case 1:
      width = part(w);
      break;
    case 2:
      y = part(h);
      height = h - y;
      break;
    default:
      height = part(h);
      break;
  }
  Picture strip = Picture::Uninitialized(width, height, picture.Depth());
  if (strip.IsNil()) return;
  kernels::CopyArea(mirrored.View(), x, y, strip.Edit());
  kernels::Compose(picture.Edit(), strip.View(), {}, x, y);
}

}  // namespace brivolant
