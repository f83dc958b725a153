// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ModuleParameter.h"

namespace brivolant {

/// The negative, or only its brightness with the hues kept.
class EffectModuleInverse final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleInverse.kName", "Inverse"};

  static constexpr LocalizedText kOnlyLight{"EffectModuleInverse.kOnlyLight", "Only light"};

  CheckBoxParameter OnlyLight{*this, {"OnlyLight", false, false}, kOnlyLight};

 protected:
  std::string getID() const override { return "6902E1AB-3C2D-F66E-1413-7CAEA8384889"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
