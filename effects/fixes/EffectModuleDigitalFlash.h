// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// Brightens dark regions as a flash does: a brightened picture shows through where the picture
/// is dark.
class EffectModuleDigitalFlash final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleDigitalFlash.kName", "Digital Flash"};

  SliderParameter<float> Strength{*this,
                                  {"Strength", 1, 1, {-1000, 1000}},
                                  {EffectModuleSharedConstants::kStrength, {.divide = 50}, 0.5F}};

  /// The curve of the brightened picture.
  ToneTable Brightened() const;

 protected:
  std::string getID() const override { return "0E0C7AE9-5559-6F0D-F2D4-C316A9F849FB"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
