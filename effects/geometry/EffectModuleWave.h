// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// Swings the picture as seen on moving water.
class EffectModuleWave final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleWave.kName", "Wave"};

  static constexpr LocalizedText kWaves{"EffectModuleWave.kWaves", "Waves:"};

  SliderParameter<float> Waves{*this, {"Waves", 0, 0, {-1000, 1000}}, {kWaves, {.divide = 2}}};
  ColorParameter backColor{
      *this, {"backColor", kBlack, kBlack}, EffectModuleSharedConstants::kbackColor};

 protected:
  std::string getID() const override { return "7FFFFFFF-9141-7F3B-2928-36DFC5F5CC73"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
