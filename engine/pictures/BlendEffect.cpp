// SPDX-License-Identifier: MIT
#include "engine/pictures/BlendEffect.h"

#include <algorithm>
#include <cmath>

#include "engine/pictures/PictureEffects.h"
#include "platform/pictures/kernels/BlendKernels.h"
#include "platform/pictures/kernels/ComposeKernels.h"
#include "platform/values/Whole.h"

namespace brivolant {

Picture BlendEffect::Apply(Picture source, const Picture& fill, double opacity,
                           const Plane* fillMask, const Point* location, const Point* size) const {
  if (source.IsNil() || fill.IsNil()) return source;
  const int weight = static_cast<int>(std::lround(std::min(std::max(0.0, opacity), 1.0) * 256));
  if (weight == 0) return source;
  const int width = size != nullptr ? Whole(size->x) : source.Width();
  const int height = size != nullptr ? Whole(size->y) : source.Height();
  const int left = location != nullptr ? Whole(location->x) : 0;
  const int top = location != nullptr ? Whole(location->y) : 0;
  if (width <= 0 || height <= 0) return source;
  const Picture scaled = ScaleEffect::BilinearScale(fill, width, height);
  if (scaled.IsNil()) return source;
  Plane mask = fillMask != nullptr ? *fillMask : Plane();
  if (!mask.IsNil()) mask = ScaleEffect::BilinearScale(mask, width, height);

  if (left == 0 && top == 0 && width == source.Width() && height == source.Height()) {
    kernels::Blend(source.Edit(), scaled.View(), BlendMode, weight, mask.View());
    return source;
  }
  // Only what the fill covers is blended: that part is taken out and put back.
  const int x0 = std::max(left, 0);
  const int y0 = std::max(top, 0);
  const int x1 = std::min(left + width, source.Width());
  const int y1 = std::min(top + height, source.Height());
  if (x0 >= x1 || y0 >= y1) return source;
  Picture under = Picture::Uninitialized(x1 - x0, y1 - y0);
  Picture over = Picture::Uninitialized(x1 - x0, y1 - y0);
  if (under.IsNil() || over.IsNil()) return source;
  kernels::CopyArea(source.View(), x0, y0, under.Edit());
  kernels::CopyArea(scaled.View(), x0 - left, y0 - top, over.Edit());
  Plane maskPart;
  if (!mask.IsNil()) {
    maskPart = Plane::Uninitialized(x1 - x0, y1 - y0);
    kernels::CopyArea(mask.View(), x0 - left, y0 - top, maskPart.Edit());
  }
  kernels::Blend(under.Edit(), over.View(), BlendMode, weight, maskPart.View());
  kernels::Compose(source.Edit(), under.View(), {}, x0, y0);
  return source;
}

void PictureExtensions::PopulatePopupMenuWithAvailableBlendModes(PopupMenu& menu) {
  for (std::size_t i = 0; i < kBlendNames.size(); ++i) {
    menu.AddRow(kBlendNames[i].Text(), static_cast<std::int32_t>(i));
  }
}

}  // namespace brivolant
