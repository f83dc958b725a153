// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ModuleParameter.h"

namespace brivolant {

/// Stretches each channel around its middle.
class EffectModuleChannelContrast final : public ToneModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleChannelContrast.kName", "Channel Contrast"};
  static constexpr LocalizedText kRed{"EffectModuleChannelContrast.kRed", "Red:"};
  static constexpr LocalizedText kGreen{"EffectModuleChannelContrast.kGreen", "Green:"};
  static constexpr LocalizedText kBlue{"EffectModuleChannelContrast.kBlue", "Blue:"};

  SliderParameter<float> redContrast{
      *this, {"redContrast", 1, 1, {-1000, 1000}}, {kRed, {.divide = 50}, 0.5F}};
  SliderParameter<float> greenContrast{
      *this, {"greenContrast", 1, 1, {-1000, 1000}}, {kGreen, {.divide = 50}, 0.5F}};
  SliderParameter<float> blueContrast{
      *this, {"blueContrast", 1, 1, {-1000, 1000}}, {kBlue, {.divide = 50}, 0.5F}};

  std::optional<ToneTables> Tables(const Picture& picture) override;

 protected:
  std::string getID() const override { return "4A5533F7-1FC6-4312-9E40-A008D1BDEE88"; }
  std::string getName() const override { return kName.Text(); }
};

}  // namespace brivolant
