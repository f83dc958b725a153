// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ModuleParameter.h"

namespace brivolant {

/// Strokes of a brush. Painted on a small copy, so that a print keeps the strokes of the screen.
class EffectModuleOilPainting final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleOilPainting.kName", "Oil Painting"};

  static constexpr LocalizedText kBrushSize{"EffectModuleOilPainting.kBrushSize", "Brush Size:"};
  static constexpr LocalizedText kSmoothness{"EffectModuleOilPainting.kSmoothness", "Smoothness"};

  SliderParameter<int> BrushSize{*this, {"BrushSize", 1, 1, {0, 50}}, {kBrushSize, {.divide = 20}}};
  SliderParameter<int> Smoothness{
      *this, {"Smoothness", 10, 10, {0, 1000}}, {kSmoothness, {.multiply = 2.45, .offset = 10}}};

 protected:
  std::string getID() const override { return "7FFFFFFF-023A-4E6B-9007-9285482F4F50"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
