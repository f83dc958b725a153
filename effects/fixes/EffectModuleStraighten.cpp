// SPDX-License-Identifier: MIT
#include "effects/fixes/EffectModuleStraighten.h"

#include <algorithm>
#include <cstdlib>

#include "engine/pictures/PictureEffects.h"
#include "platform/pictures/Graphics.h"
#include "platform/pictures/kernels/ScaleKernels.h"

namespace brivolant {

void EffectModuleStraighten::ApplyEffect(Picture& picture, double) {
  if (Angle == 0 || picture.IsNil()) return;
  const Picture rotated = RotateEffect().Apply(picture, Angle, kWhite, 1);
  if (rotated.IsNil()) return;
  const double factor = 1 + std::abs(Angle) / 50.0;
  const int width = static_cast<int>(rotated.Width() * factor);
  const int height = static_cast<int>(rotated.Height() * factor);
  const int x = (picture.Width() - width) / 2;
  const int y = (picture.Height() - height) / 2;
  // Only what comes to lie inside the picture is scaled.
  const double perX = 1.0 * rotated.Width() / width;
  const double perY = 1.0 * rotated.Height() / height;
  const kernels::SourceArea area{std::max(-x, 0) * perX, std::max(-y, 0) * perY,
                                 picture.Width() * perX, picture.Height() * perY};
  kernels::Scale(rotated.View(), area, picture.Edit());
}

void EffectModuleStraighten::PostProcess(Picture& picture, double) {
  constexpr int kParts = 5;
  const int stepX = picture.Width() / kParts;
  const int stepY = picture.Height() / kParts;
  Graphics g(picture);
  g.UseOldRenderer = true;
  for (int i = 1; i < kParts; ++i) {
    g.DrawLine(i * stepX, 0, i * stepX, picture.Height() - 1);
    g.DrawLine(0, i * stepY, picture.Width() - 1, i * stepY);
  }
}

}  // namespace brivolant
