// SPDX-License-Identifier: MIT
#include "effects/geometry/EffectModuleForegroundScale.h"

#include <algorithm>

#include "engine/brivolantProcessorLite.h"

namespace brivolant {

void EffectModuleForegroundScale::LimitedScale::Set(const Variant& position) {
  constexpr float kSmallest = 0.1F;
  SliderParameter<float>::Set(position);
  if (Value() < kSmallest) *this = kSmallest;
}

void EffectModuleForegroundScale::Place(const std::optional<Point>& corner,
                                        const std::optional<Point>& size) {
  if (myProcessor == nullptr) return;
  myProcessor->foregroundScaleTopleft = corner;
  myProcessor->foregroundScaleSize = size;
}

void EffectModuleForegroundScale::ApplyEffect(Picture& picture, double) {
  if (Scale >= 1) {
    Place({}, {});
    if (Scale > 1) ZoomIn(picture, Scale, xOffSet, yOffset);
    return;
  }
  const Box box = Shrunk(picture, Scale, xOffSet, yOffset);
  Place(Point{static_cast<double>(box.x), static_cast<double>(box.y)},
        Point{static_cast<double>(std::max(box.width, 1)),
              static_cast<double>(std::max(box.height, 1))});
}

void EffectModuleForegroundScale::SettingsReset() {
  LayerScale::SettingsReset();
  Place({}, {});
}

void EffectModuleForegroundScale::EnabledStateChanged() {
  if (!Enabled()) Place({}, {});
}

bool EffectModuleForegroundScale::MouseActionDown(float x, float y, bool& render) {
  LastMousePos = {x, y};
  return LayerScale::MouseActionDown(x, y, render);
}

void EffectModuleForegroundScale::MouseActionDrag(float x, float y) {
  xOffSet = xOffSet + static_cast<float>(x - LastMousePos.Left);
  yOffset = yOffset + static_cast<float>(y - LastMousePos.Right);
  LastMousePos = {x, y};
}

}  // namespace brivolant
