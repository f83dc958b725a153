// SPDX-License-Identifier: MIT
#pragma once

#include "effects/fixes/EffectModuleLevels.h"
#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// Two colours: one for what is dark, one for what is bright. The threshold shifts the tones first;
/// the cut itself stays in the middle.
class EffectModuleDuoTone final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleDuoTone.kName", "Duo Tone"};

  ColorParameter darkTone{*this, {"darkTone", kBlack, kBlack}, EffectModuleLevels::kDark};
  ColorParameter lightTone{*this, {"lightTone", kWhite, kWhite}, EffectModuleLevels::kLight};
  SliderParameter<float> Threshold{
      *this,
      {"Threshold", 0.5F, 0.5F, {-10000, 10000}},
      {EffectModuleSharedConstants::kThreshold, {.divide = 2.5, .offset = -20}, 0.5F}};

 protected:
  std::string getID() const override { return "7FFFFFFF-B14F-1B2D-4590-F6C1B320F535"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
