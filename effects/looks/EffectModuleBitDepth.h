// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// The colours of screens that had few: two, four greys, sixteen, or 256.
class EffectModuleBitDepth final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleBitDepth.kName", "Bit Depth Simulation"};

  static constexpr LocalizedText kDepth{"EffectModuleBitDepth.kDepth", "Bit Depth:"};
  static constexpr LocalizedText kDepth1{"EffectModuleBitDepth.kDepth1", "1-Bit - 2 Colors"};
  static constexpr LocalizedText kDepth2{"EffectModuleBitDepth.kDepth2", "2-Bit - 4 Colors"};
  static constexpr LocalizedText kDepth4{"EffectModuleBitDepth.kDepth4", "4-Bit - 16 Colors"};
  static constexpr LocalizedText kDepth8{"EffectModuleBitDepth.kDepth8", "8-Bit - 256 Colors"};

  MenuParameter Depth{*this, {"Depth", 0, 0}, kDepth, {kDepth1, kDepth2, kDepth4, kDepth8}};
  SliderParameter<float> Threshold{
      *this,
      {"Threshold", 1, 0.5F, {-10000, 10000}},
      {EffectModuleSharedConstants::kThreshold, {.divide = 2.5, .offset = -20}, 0.5F}};

 protected:
  std::string getID() const override { return "33062761-D902-8058-6FCB-FBC98920EB69"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
