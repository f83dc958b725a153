// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// Few tones in each channel.
class EffectModulePosterize final : public ToneModule {
 public:
  static constexpr LocalizedText kName{"EffectModulePosterize.kName", "Posterize"};

  SliderParameter<int> Levels{*this,
                              {"Levels", 255, 16, {0, 65536}},
                              {EffectModuleSharedConstants::kStrength, {.multiply = 2.55}}};

  std::optional<ToneTables> Tables(const Picture& picture) override;

 protected:
  std::string getID() const override { return "7FFFFFFF-5A23-EC46-53CB-10904CD03FA0"; }
  std::string getName() const override { return kName.Text(); }
};

}  // namespace brivolant
