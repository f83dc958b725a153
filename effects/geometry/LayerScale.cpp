// SPDX-License-Identifier: MIT
#include "effects/geometry/LayerScale.h"

#include <algorithm>

#include "platform/pictures/kernels/ScaleKernels.h"
#include "platform/values/Whole.h"

namespace brivolant {

LayerScale::Box LayerScale::Shrunk(const Picture& picture, double scale, double xOffset,
                                   double yOffset) {
  const int width = Whole(picture.Width() * scale);
  const int height = Whole(picture.Height() * scale);
  return {Whole(picture.Width() * xOffset - width / 2.0),
          Whole(picture.Height() * yOffset - height / 2.0), width, height};
}

void LayerScale::ZoomIn(Picture& picture, double scale, double xOffset, double yOffset) {
  const int width = std::max(static_cast<int>(picture.Width() / scale), 1);
  const int height = std::max(static_cast<int>(picture.Height() / scale), 1);
  const auto place = [](int whole, double offset, int part) {
    return std::clamp(Whole(whole - whole * offset - part / 2.0), 0, whole - part);
  };
  const kernels::SourceArea area{static_cast<double>(place(picture.Width(), xOffset, width)),
                                 static_cast<double>(place(picture.Height(), yOffset, height)),
                                 static_cast<double>(width), static_cast<double>(height)};
  const Picture source = picture;
  kernels::Scale(source.View(), area, picture.Edit());
}

bool LayerScale::MouseActionDown(float, float, bool& render) {
  Updating = true;
  render = true;
  return true;
}

void LayerScale::MouseActionUp(float, float) {
  Updating = false;
}

brivolant::MouseCursor LayerScale::GetMouseCursor(int pointerState) {
  switch (pointerState) {
    case kPointerEntered:
    case kPointerUp:
      return brivolant::MouseCursor::kOpenHand;
    case kPointerDown:
      return brivolant::MouseCursor::kClosedHand;
    default:
      return brivolant::MouseCursor::kStandard;
  }
}

}  // namespace brivolant
