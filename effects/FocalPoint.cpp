// SPDX-License-Identifier: MIT
#include "effects/FocalPoint.h"

#include "engine/EffectModuleSharedConstants.h"
#include "platform/pictures/Graphics.h"
#include "platform/pictures/kernels/LookKernels.h"
#include "platform/values/Whole.h"

namespace brivolant {

FocalPoint::Diameter::Diameter(effectModule& owner, CheckBoxParameter& focal)
    : SliderParameter<float>(owner, {"focalRadius", 0.4F, 0.4F, {0, 100}},
                             {EffectModuleSharedConstants::kDiameter, {.divide = 100}}),
      focal_(focal) {}

void FocalPoint::Diameter::Set(const Variant& position) {
  SliderParameter<float>::Set(position);
  focal_ = true;
}

FocalPoint::FocalPoint(effectModule& owner)
    : isFocal(owner, {"isFocal", false, false}, EffectModuleSharedConstants::kuseFocalPoint),
      focalRadius(owner, isFocal),
      focalXOffset(owner, {"focalXOffset", 0.5F, 0.5F, {-100, 100}}),
      focalYOffset(owner, {"focalYOffset", 0.5F, 0.5F, {-100, 100}}) {}

FocalPoint::Disc FocalPoint::DiscOn(const Picture& picture) const {
  const int diameter = Whole(picture.Width() * focalRadius);
  return {Whole(picture.Width() * focalXOffset - diameter / 2.0),
          Whole(picture.Height() * focalYOffset - diameter / 2.0), diameter};
}

const Plane* FocalPoint::MaskFor(const Picture& picture) {
  if (!isFocal) return nullptr;
  const Disc disc = DiscOn(picture);
  if (filterMask.Width() != picture.Width() || filterMask.Height() != picture.Height() ||
      !(disc == maskDisc_)) {
    filterMask = Plane::Uninitialized(picture.Width(), picture.Height());
    maskDisc_ = disc;
    if (filterMask.IsNil()) return nullptr;
    const double radius = disc.diameter / 2.0;
    kernels::FillFadingDisc(filterMask.Edit(), disc.left + radius, disc.top + radius, radius,
                            disc.diameter);
  }
  return &filterMask;
}

void FocalPoint::DrawOn(Picture& picture) const {
  if (!isFocal) return;
  const Disc disc = DiscOn(picture);
  Graphics g(picture);
  g.ForeColor = kWhite;
  g.DrawOval(disc.left, disc.top, disc.diameter, disc.diameter);
}

bool FocalPoint::MoveTo(float x, float y) {
  focalXOffset = x;
  focalYOffset = y;
  return true;
}

}  // namespace brivolant
