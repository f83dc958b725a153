// SPDX-License-Identifier: MIT
#include "effects/looks/EffectModulePopArt.h"

#include <array>

#include "engine/pictures/PictureEffects.h"
#include "engine/pictures/ReferenceDetail.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "platform/pictures/kernels/DetailKernels.h"
#include "platform/pictures/kernels/ToneKernels.h"

namespace brivolant {

namespace {

/// Colours of dark, middle and bright parts, for each of the four copies.
const std::array<kernels::Panel, 4> kPanels{
    {{Color::FromRGB(0x37302D), Color::FromRGB(0x29D9D3), Color::FromRGB(0xCFC10C)},
     {Color::FromRGB(0x12520A), Color::FromRGB(0xFF1E1E), Color::FromRGB(0xEEF20E)},
     {Color::FromRGB(0x113859), Color::FromRGB(0xFF8A00), Color::FromRGB(0x9BFF62)},
     {Color::FromRGB(0x712D15), Color::FromRGB(0x23D700), Color::FromRGB(0xFF52F6)}}};

/// The pencil drawing of the picture, so much darkened that its lines are black.
Plane Lines(const ReferenceDetail& detail) {
  constexpr double kDarken = -40;
  Picture lines = PencilDrawing(detail);
  SharedPictureEffects::Exposure(lines, kDarken);
  Plane plane = Plane::Uninitialized(lines.Width(), lines.Height());
  if (!plane.IsNil()) kernels::Luma(lines.View(), plane.Edit());
  return plane;
}

/// The HSV values of the picture with shifted tones.
Plane Values(Picture picture, double threshold) {
  SharedPictureEffects::Exposure(picture, threshold);
  Plane plane = Plane::Uninitialized(picture.Width(), picture.Height());
  if (!plane.IsNil()) kernels::Values(picture.View(), plane.Edit());
  return plane;
}

}  // namespace

void EffectModulePopArt::ApplyEffect(Picture& picture, double scale) {
  const int left = picture.Width() / 2;
  const int top = picture.Height() / 2;
  if (left == 0 || top == 0) return;
  // Panels of an odd picture share its middle row or column.
  const int width = picture.Width() - left;
  const int height = picture.Height() - top;
  const ReferenceDetail detail(ScaleEffect::BilinearScale(picture, width, height), scale);
  const Plane lines = ScaleEffect::BilinearScale(Lines(detail), width, height);
  const Plane values = ScaleEffect::BilinearScale(Values(detail.Soft, Threshold), width, height);
  if (lines.IsNil() || values.IsNil()) return;
  kernels::PaintPanels(values.View(), lines.View(), picture.Rewrite().to, left, top, kPanels);
}

}  // namespace brivolant
