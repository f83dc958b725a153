// SPDX-License-Identifier: MIT
#include "effects/artistic/EffectModuleOilPainting.h"

#include "engine/pictures/MPImageFilter.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "platform/pictures/kernels/ScaleKernels.h"

namespace brivolant {

void EffectModuleOilPainting::ApplyEffect(Picture& picture, double) {
  constexpr int kWorkingSize = 768;
  using namespace SharedPictureEffects;
  if (BrushSize <= 0 || Smoothness <= 0) return;
  const Picture small = Scale(picture, kWorkingSize, kWorkingSize, kScaleToFit);
  if (small.IsNil()) return;
  const Picture painted = MPImageFilter::OilPaintFilter(small, BrushSize, Smoothness);
  kernels::Scale(
      painted.View(),
      {0, 0, static_cast<double>(painted.Width()), static_cast<double>(painted.Height())},
      picture.Edit());
}

}  // namespace brivolant
