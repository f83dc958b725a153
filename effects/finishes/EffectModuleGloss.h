// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// A white sheen over the top left, as on a glossy print.
class EffectModuleGloss final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleGloss.kName", "Gloss"};

  /// Percent.
  SliderParameter<int> Power{*this,
                             {"Power", 25, 25, {-100, 1000}},
                             {EffectModuleSharedConstants::kStrength, {.divide = 2.5}}};

 protected:
  std::string getID() const override { return "17629B63-4AC7-83B3-B805-B7D5CE5360B0"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
