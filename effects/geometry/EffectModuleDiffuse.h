// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// Scatters the pixels, as frosted glass does.
class EffectModuleDiffuse final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleDiffuse.kName", "Diffuse"};

  SliderParameter<int> Radius{
      *this, {"Radius", 10, 10, {0, 1000}}, {EffectModuleSharedConstants::kRadius, {}}};
  CheckBoxParameter Blur{*this, {"Blur", true, true}, EffectModuleSharedConstants::kBlur};

  SeedParameter Seed{*this};

 protected:
  std::string getID() const override { return "4DEE873B-66F0-3E98-B850-11CD1F0AEAF9"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
