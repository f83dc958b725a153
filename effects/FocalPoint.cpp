// SPDX-License-Identifier: MIT
#include "effects/FocalPoint.h"

#include <QPainter>

#include "engine/EffectModuleSharedConstants.h"
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

FocalPoint::Disc FocalPoint::DiscOn(int width, int height) const {
  const int diameter = Whole(width * focalRadius);
  return {Whole(width * focalXOffset - diameter / 2.0),
          Whole(height * focalYOffset - diameter / 2.0), diameter};
}

const Plane* FocalPoint::MaskFor(const Picture& picture) {
  if (!isFocal) return nullptr;
  const Disc disc = DiscOn(picture.Width(), picture.Height());
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

void FocalPoint::DrawOn(MarkCanvas& canvas) const {
  if (!isFocal) return;
  const Disc disc = DiscOn(canvas.Width(), canvas.Height());
  QPainter& painter = canvas.Painter();
  painter.setPen(QPen(Qt::white, 1));
  painter.setBrush(Qt::NoBrush);
  // The outline lies on the pixels of its rectangle's edge.
  constexpr double kHalf = 0.5;
  painter.drawEllipse(
      QRectF(disc.left + kHalf, disc.top + kHalf, disc.diameter - 1, disc.diameter - 1));
}

bool FocalPoint::MoveTo(float x, float y) {
  focalXOffset = x;
  focalYOffset = y;
  return true;
}

}  // namespace brivolant
