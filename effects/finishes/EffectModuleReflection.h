// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// The picture meets its own mirror image: on one side, or below it, fading into a colour.
class EffectModuleReflection final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleReflection.kName", "Reflection"};

  static constexpr LocalizedText kMode{"EffectModuleReflection.kMode", "Mode:"};
  static constexpr LocalizedText kLeft{"EffectModuleReflection.kLeft", "Left"};
  static constexpr LocalizedText kRight{"EffectModuleReflection.kRight", "Right"};
  static constexpr LocalizedText kTop{"EffectModuleReflection.kTop", "Top"};
  static constexpr LocalizedText kBottom{"EffectModuleReflection.kBottom", "Bottom"};
  static constexpr LocalizedText kAll{"EffectModuleReflection.kAll", "All"};

  MenuParameter mode{*this, {"mode", 0, 4}, kMode, {kLeft, kRight, kTop, kBottom, kAll}};
  /// Where the mirror image begins, as a fraction of the side. A style that lacks it means 33, far
  /// outside, so that nothing is mirrored.
  Parameter<float> Percent{*this, {"Percent", 33, 0.5F, {-100, 100}}};
  ColorParameter backColor{
      *this, {"backColor", kBlack, kBlack}, EffectModuleSharedConstants::kColor};

 protected:
  std::string getID() const override { return "7FFFFFFF-868D-CF59-2D15-F7BDFA4F5D04"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
  void SettingsReset() override;

 private:
  void MirrorBelow(Picture& picture, const Picture& mirrored) const;
  void MirrorAside(Picture& picture, const Picture& mirrored) const;
};

}  // namespace brivolant
