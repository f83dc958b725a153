// SPDX-License-Identifier: MIT
#pragma once

#include "effects/geometry/LayerScale.h"
#include "engine/EffectModuleSharedConstants.h"

namespace brivolant {

/// Shrinks the layer on white, or zooms into it.
class EffectModuleBackgroundScale final : public LayerScale {
 public:
  SliderParameter<float> Scale{*this,
                               {"Scale", 1, 1, {0, 100}},
                               {EffectModuleSharedConstants::kScale, {.divide = 50}, 0.5F}};
  Parameter<float> xOffSet{*this, {"xOffSet", 0.5F, 0.5F, {-100, 100}}};
  Parameter<float> yOffset{*this, {"yOffset", 0.5F, 0.5F, {-100, 100}}};

 protected:
  std::string getID() const override { return "404C05B7-3F0B-1122-DAF4-1948DA9032F3"; }
  void ApplyEffect(Picture& picture, double scale) override;
  bool MouseActionDown(float x, float y, bool& render) override;
  void MouseActionDrag(float x, float y) override;
};

}  // namespace brivolant
