// SPDX-License-Identifier: MIT
#include "effects/finishes/EffectModuleVignette.h"

#include "platform/pictures/kernels/LookKernels.h"
#include "platform/values/Whole.h"

namespace brivolant {

void EffectModuleVignette::ApplyEffect(Picture& picture, double) {
  const int outer = static_cast<int>(picture.Width() * 0.75);
  const int inner = Whole(picture.Width() * 0.5 * vignetteRadius);
  if (vignetteCache.Width() != picture.Width() || vignetteCache.Height() != picture.Height() ||
      cachedInner_ != inner) {
    vignetteCache = Plane::Uninitialized(picture.Width(), picture.Height());
    if (vignetteCache.IsNil()) return;
    cachedInner_ = inner;
    const int x = picture.Width() / 2;
    const int y = picture.Height() / 2;
    kernels::FillFadingDisc(vignetteCache.Edit(), x, y, inner, outer - inner);
  }
  kernels::LayColor(picture.Edit(), VignetteColor, vignetteCache.View());
}

}  // namespace brivolant
