// SPDX-License-Identifier: MIT
#include "effects/fixes/EffectModuleStraighten.h"

#include <cstdlib>

#include "platform/pictures/Graphics.h"
#include "platform/pictures/kernels/TurnKernels.h"

namespace brivolant {

void EffectModuleStraighten::ApplyEffect(Picture& picture, double) {
  if (Angle == 0 || picture.IsNil()) return;
  // The turned picture is enlarged about its centre; what comes to lie outside is never made.
  const double zoom = 1 + std::abs(Angle) / 50.0;
  Picture turned = Picture::Uninitialized(picture.Width(), picture.Height(), picture.Depth());
  if (turned.IsNil()) return;
  kernels::RotateAnyAngle(picture.View(), turned.Edit(), Angle, kWhite.RGB(), zoom);
  turned.HorizontalResolution = picture.HorizontalResolution;
  turned.VerticalResolution = picture.VerticalResolution;
  if (const Plane* mask = picture.Mask()) turned.SetMask(*mask);
  picture = std::move(turned);
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
