// SPDX-License-Identifier: MIT
#include "effects/geometry/EffectModuleBackgroundScale.h"

#include "engine/pictures/SharedPictureEffects.h"
#include "platform/pictures/kernels/ComposeKernels.h"
#include "platform/pictures/kernels/LookKernels.h"

namespace brivolant {

void EffectModuleBackgroundScale::ApplyEffect(Picture& picture, double) {
  if (Scale > 1) return ZoomIn(picture, Scale, xOffSet, yOffset);
  if (Scale == 1.0F) return;
  const Box box = Shrunk(picture, Scale, xOffSet, yOffset);
  const Picture small = SharedPictureEffects::Scale(picture, box.width, box.height,
                                                    SharedPictureEffects::kScaleExactly);
  kernels::FillPixels(picture.Edit(), kWhite);
  if (!small.IsNil()) kernels::Compose(picture.Edit(), small.View(), {}, box.x, box.y);
}

bool EffectModuleBackgroundScale::MouseActionDown(float x, float y, bool& render) {
  MouseActionDrag(x, y);
  return LayerScale::MouseActionDown(x, y, render);
}

void EffectModuleBackgroundScale::MouseActionDrag(float x, float y) {
  xOffSet = x;
  yOffset = y;
}

}  // namespace brivolant
