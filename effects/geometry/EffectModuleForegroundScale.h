// SPDX-License-Identifier: MIT
#pragma once

#include "effects/geometry/LayerScale.h"
#include "engine/EffectModuleSharedConstants.h"

namespace brivolant {

/// Shrinks the layer over the background, which the processor does, or zooms into it.
class EffectModuleForegroundScale final : public LayerScale {
 public:
  /// The slider stays away from nothing at all.
  class LimitedScale final : public SliderParameter<float> {
   public:
    using SliderParameter<float>::SliderParameter;
    using SliderParameter<float>::operator=;
    void Set(const Variant& position) override;
  };

  LimitedScale Scale{*this,
                     {"Scale", 1, 1, {0.01F, 100}},
                     {EffectModuleSharedConstants::kScale, {.divide = 50}, 0.5F}};
  Parameter<float> xOffSet{*this, {"xOffSet", 0.5F, 0.5F, {-100, 100}}};
  Parameter<float> yOffset{*this, {"yOffset", 0.5F, 0.5F, {-100, 100}}};

  bool MayPlaceLayer() const override { return true; }
  void BelongsTo(brivolantProcessorLite& processor) override { myProcessor = &processor; }

 protected:
  std::string getID() const override { return "6538471D-51C4-6A7B-FE80-6B09BA5EAC32"; }
  void ApplyEffect(Picture& picture, double scale) override;
  void SettingsReset() override;
  void EnabledStateChanged() override;
  bool MouseActionDown(float x, float y, bool& render) override;
  void MouseActionDrag(float x, float y) override;

 private:
  void Place(const std::optional<Point>& corner, const std::optional<Point>& size);
  brivolantProcessorLite* myProcessor = nullptr;
  Pair LastMousePos;
};

}  // namespace brivolant
