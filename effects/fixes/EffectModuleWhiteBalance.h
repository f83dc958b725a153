// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ModuleParameter.h"

namespace brivolant {

/// Cools or warms the light. 5000 K changes nothing; less raises blue, more raises red.
class EffectModuleWhiteBalance final : public ToneModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleWhiteBalance.kName", "White Balance"};
  static constexpr LocalizedText kTemperature{"EffectModuleWhiteBalance.kTemperature",
                                              "Temperature:"};

  /// Kelvin.
  SliderParameter<int> Temperature{
      *this, {"Temperature", 5000, 5000, {0, 1000000}}, {kTemperature, {.multiply = 255}, 0.15F}};

  std::optional<ToneTables> Tables(const Picture& picture) override;

 protected:
  std::string getID() const override { return "0E8D83EB-6CCF-CC4D-43C9-84CAE1BD54DA"; }
  std::string getName() const override { return kName.Text(); }
};

}  // namespace brivolant
