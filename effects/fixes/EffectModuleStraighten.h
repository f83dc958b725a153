// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ModuleParameter.h"

namespace brivolant {

/// Levels a photo: turns it by a small angle and zooms in as far as hides the corners. The size
/// stays. Shows a grid while it is selected.
class EffectModuleStraighten final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleStraighten.kName", "Straighten"};
  static constexpr LocalizedText kAngle{"EffectModuleStraighten.kAngle", "Angle:"};

  /// Degrees clockwise, -50 to 50.
  SliderParameter<int> Angle{*this, {"Angle", 0, 0, {-360, 360}}, {kAngle, {.offset = -50}, 0.5F}};

 protected:
  std::string getID() const override { return "31C7BD01-3049-4413-66B4-DEAB8A4AE849"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
  void PostProcess(MarkCanvas& canvas, double scale) override;
};

}  // namespace brivolant
