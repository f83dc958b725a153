// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ModuleParameter.h"

namespace brivolant {

/// Adds to all levels, then stretches around the middle.
class EffectModuleBrightnessContrast final : public ToneModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleBrightnessContrast.kName",
                                       "Brightness & Contrast"};
  static constexpr LocalizedText kBrightness{"EffectModuleBrightnessContrast.kBrightness",
                                             "Brightness:"};
  static constexpr LocalizedText kContrast{"EffectModuleBrightnessContrast.kContrast", "Contrast:"};

  SliderParameter<double> Brightness{
      *this, {"Brightness", 1.0, 1.0, {-1000, 1000}}, {kBrightness, {.divide = 50}, 0.5F}};
  SliderParameter<double> Contrast{
      *this, {"Contrast", 1.0, 1.0, {-1000, 1000}}, {kContrast, {.divide = 50}, 0.5F}};

  std::optional<ToneTables> Tables(const Picture& picture) override;

 protected:
  std::string getID() const override { return "7FFFFFFF-D09E-9F58-95EE-A46B2D22CAC1"; }
  std::string getName() const override { return kName.Text(); }
};

}  // namespace brivolant
