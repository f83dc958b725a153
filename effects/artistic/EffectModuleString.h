// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// Threads of coloured dots, straight or in rings.
class EffectModuleString final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleString.kName", "Strings"};

  static constexpr LocalizedText kVertical{"EffectModuleString.kVertical", "Vertical Lines"};
  static constexpr LocalizedText kCircular{"EffectModuleString.kCircular", "Circular Lines"};

  MenuParameter Shape{
      *this, {"Shape", 0, 0}, EffectModuleSharedConstants::kShape, {kVertical, kCircular}};
  ColorParameter backColor{*this,
                           {"backColor", kBlack, Color::FromRGB(0x404040)},
                           EffectModuleSharedConstants::kbackColor};
  CheckBoxParameter DropShadow{
      *this, {"DropShadow", false, false}, EffectModuleSharedConstants::kDropShadow};

 protected:
  std::string getID() const override { return "7FFFFFFF-0F4A-DF74-A393-4BA94AC514F7"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
  void SettingsReset() override;
};

}  // namespace brivolant
