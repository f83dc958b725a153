// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "engine/ModuleParameter.h"

namespace brivolant {

/// Multiplies each channel.
class EffectModuleColorAdjuster final : public ToneModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleColorAdjuster.kName", "Color Balance"};
  static constexpr LocalizedText kRed{"EffectModuleColorAdjuster.kRed", "Red:"};
  static constexpr LocalizedText kGreen{"EffectModuleColorAdjuster.kGreen", "Green:"};
  static constexpr LocalizedText kBlue{"EffectModuleColorAdjuster.kBlue", "Blue:"};
  static constexpr LocalizedText kPixel{"EffectModuleColorAdjuster.kPixel", "Pixel:"};
  static constexpr LocalizedText kSelect{"EffectModuleColorAdjuster.kSelect", "Select"};
  static constexpr int kSelectRow = 3;

  SliderParameter<float> Red{*this, {"Red", 1, 1, {-1000, 1000}}, {kRed, {.divide = 50}, 0.5F}};
  SliderParameter<float> Green{
      *this, {"Green", 1, 1, {-1000, 1000}}, {kGreen, {.divide = 50}, 0.5F}};
  SliderParameter<float> Blue{*this, {"Blue", 1, 1, {-1000, 1000}}, {kBlue, {.divide = 50}, 0.5F}};
  ButtonRow Select{*this, kPixel, kSelect};

  /// Lets the user click a pixel of the screen, whose colour then is neutralized. Set by the window
  /// that shows the panel; without it the button changes nothing.
  std::function<void()> PickColor;

  std::optional<ToneTables> Tables(const Picture& picture) override;
  /// Raises the smaller components to the largest: what has that colour becomes grey.
  void Neutralize(Color color);

 protected:
  std::string getID() const override { return "3D1813CB-F7BA-4CB7-CA79-560F15DCE47B"; }
  std::string getName() const override { return kName.Text(); }
  bool ButtonPushed(int index) override;
};

}  // namespace brivolant
