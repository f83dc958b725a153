// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// The brown of old prints, mixed with the picture.
class EffectModuleSepia final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleSepia.kName", "Sepia"};

  SliderParameter<float> Strength{*this,
                                  {"Strength", 1, 0.3F, {-10, 10}},
                                  {EffectModuleSharedConstants::kStrength, {.divide = 100}}};

 protected:
  std::string getID() const override { return "0E53677B-85AE-A580-B18B-AB374768FB98"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
