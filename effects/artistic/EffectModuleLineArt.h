// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// A drawing in lines.
class EffectModuleLineArt final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleLineArt.kName", "Line Art"};

  static constexpr LocalizedText kThick{"EffectModuleLineArt.kThick", "Thick Softer Lines"};
  static constexpr LocalizedText kThin{"EffectModuleLineArt.kThin", "Thinner Sharper Lines"};

  MenuParameter Mode{*this, {"Mode", 0, 0}, EffectModuleSharedConstants::kType, {kThick, kThin}};

 protected:
  std::string getID() const override { return "0BDF9AD3-852D-855C-82F2-D7830B635FD6"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
