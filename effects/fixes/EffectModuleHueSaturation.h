// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ModuleParameter.h"
#include "engine/pictures/PictureEffects.h"

namespace brivolant {

/// Turns the hue and strengthens or weakens the colours. 1 in all three means no change.
class EffectModuleHueSaturation final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleHueSaturation.kName", "Hue & Saturation"};
  static constexpr LocalizedText kHue{"EffectModuleHueSaturation.kHue", "Hue:"};
  static constexpr LocalizedText kSaturation{"EffectModuleHueSaturation.kSaturation",
                                             "Saturation:"};

  /// Degrees, -180 to 180.
  SliderParameter<int> Hue{*this,
                           {"Hue", 1, 1, {-36000, 36000}},
                           {kHue, {.multiply = 360, .divide = 100, .offset = -180}, 0.5F}};
  /// -200 to 200.
  SliderParameter<int> Saturation{*this,
                                  {"Saturation", 1, 1, {-1000, 10000}},
                                  {kSaturation, {.multiply = 4, .offset = -200}, 0.5F}};
  Parameter<int> Lightness{*this, {"Lightness", 1, 1, {-1000, 1000}}};

 protected:
  std::string getID() const override { return "54C1C97D-7E93-0C8F-9426-C6CFE7B2927A"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
