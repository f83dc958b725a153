// SPDX-License-Identifier: MIT
#include "effects/finishes/EffectModuleVignette.h"

#include "platform/pictures/kernels/LookKernels.h"

namespace brivolant {

void EffectModuleVignette::ApplyEffect(Picture& picture, double) {
  const int outer = static_cast<int>(picture.Width() * 0.75);
  const int inner = static_cast<int>(picture.Width() * 0.5 * vignetteRadius);
  if (vignetteCache.Width() != picture.Width() || vignetteCache.Height() != picture.Height() ||
      cachedInner_ != inner) {
    vignetteCache = Plane::Uninitialized(picture.Width(), picture.Height());
    if (vignetteCache.IsNil()) return;
    cachedInner_ = inner;
    kernels::FillFadingDisc(vignetteCache.Edit(), picture.Width() / 2, picture.Height() / 2, inner,
                            outer - inner);
  }
  kernels::LayColor(picture.Edit(), VignetteColor, vignetteCache.View());
}

}  // namespace brivolant
