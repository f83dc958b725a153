// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// Lifts the dark regions and lowers the bright ones, each through a blurred mask made from the
/// picture.
class EffectModuleShadowsHighlight final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleShadowsHighlight.kName", "Shadow & Highlight"};
  static constexpr LocalizedText kShadow{"EffectModuleShadowsHighlight.kShadow", "Shadow:"};
  static constexpr LocalizedText kHighlight{"EffectModuleShadowsHighlight.kHighlight",
                                            "Highlight:"};

  SliderParameter<int> Shadows{*this, {"Shadows", 0, 0, {-1000, 1000}}, {kShadow, {}}};
  SliderParameter<int> Highlights{*this, {"Highlights", 0, 0, {-1000, 1000}}, {kHighlight, {}}};
  /// Radius in pixels of a photo a thousand pixels high; any other is blurred in proportion.
  SliderParameter<int> Blur{
      *this, {"Blur", 0, 0, {0, 1000}}, {EffectModuleSharedConstants::kBlur, {}}};

 protected:
  std::string getID() const override { return "2EF3FA3F-93B2-B20D-BFA7-3E5957A43F2C"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
