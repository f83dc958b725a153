// SPDX-License-Identifier: MIT
#include "effects/finishes/EffectModuleGloss.h"

#include "engine/pictures/AdvancedGraphics.h"

namespace brivolant {

void EffectModuleGloss::ApplyEffect(Picture& picture, double) {
  const double w = picture.Width();
  const double h = picture.Height();
  AdvancedGraphics g(picture);
  AdvancedGraphicsPath sheen = g.NewPath();
  sheen.MoveToPoint(0, 0);
  sheen.AddLineToPoint(w * 1.1, 0);
  sheen.AddCurveToPoint(w * 0.75, h * 0.75, w * 0.25, h * 0.25, 0, h * 0.9);
  sheen.AddLineToPoint(0, 0);
  sheen.CloseSubpath();
  g.SetFillColor(kWhite, Power / 100.0);
  g.DrawPath(sheen, kFill);
}

}  // namespace brivolant
