// SPDX-License-Identifier: MIT
#include "effects/fixes/EffectModuleStraighten.h"

#include <cstdlib>

#include "effects/GuideGrid.h"
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

void EffectModuleStraighten::PostProcess(MarkCanvas& canvas, double) {
  DrawGuide(canvas);
}

}  // namespace brivolant
