// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// Dodges, burns and overlays the picture with itself: hard light and deep shadow.
class EffectModuleOverBurn final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleOverBurn.kName", "Over Burn"};

  SliderParameter<float> Strength{*this,
                                  {"Strength", 0.5F, 0.5F, {-10, 10}},
                                  {EffectModuleSharedConstants::kStrength, {.divide = 100}, 0.5F}};

 protected:
  std::string getID() const override { return "18110E6D-07CA-7871-7EE9-71B6A16624F7"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
