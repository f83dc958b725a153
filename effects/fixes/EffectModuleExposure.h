// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ModuleParameter.h"

namespace brivolant {

/// Moves the midtones; black and white stay where they are.
class EffectModuleExposure final : public ToneModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleExposure.kName", "Exposure"};
  static constexpr LocalizedText kExposure{"EffectModuleExposure.kExposure", "Exposure:"};

  SliderParameter<double> Power{*this,
                                {"Power", 1.0, 0.0, {-10000, 10000}},
                                {kExposure, {.multiply = 2, .divide = 5, .offset = -20}, 0.5F}};

  std::optional<ToneTables> Tables(const Picture& picture) override;

 protected:
  std::string getID() const override { return "3237324B-C5C6-997D-40B1-DFC3C16BAEB2"; }
  std::string getName() const override { return kName.Text(); }
};

}  // namespace brivolant
