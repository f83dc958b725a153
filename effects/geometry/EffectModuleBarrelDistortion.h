// SPDX-License-Identifier: MIT
#pragma once

#include "effects/GuideGrid.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// Corrects what a lens bends, or bends it. Shows a grid while it is selected.
class EffectModuleBarrelDistortion final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleBarrelDistortion.kName", "Barrel Distortion"};

  static constexpr LocalizedText kDistortion{"EffectModuleBarrelDistortion.kDistortion",
                                             "Distortion:"};

  /// -1 to 1.
  SliderParameter<double> Distortion{
      *this, {"Distortion", 0, 0, {-10, 10}}, {kDistortion, {.divide = 50, .offset = -1}, 0.5F}};

 protected:
  std::string getID() const override { return "22BEFEB7-2944-6DE5-F57E-DFE98DF1D845"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
  void PostProcess(MarkCanvas& canvas, double) override { DrawGuide(canvas); }
};

}  // namespace brivolant
