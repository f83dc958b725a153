// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ModuleParameter.h"

namespace brivolant {

/// Mirrors the layer.
class EffectModuleFlip final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleFlip.kName", "Flip"};

  static constexpr LocalizedText kDirection{"EffectModuleFlip.kDirection", "Direction:"};
  static constexpr LocalizedText kHorizontally{"EffectModuleFlip.kHorizontally", "Horizontally"};
  static constexpr LocalizedText kVertically{"EffectModuleFlip.kVertically", "Vertically"};
  static constexpr LocalizedText kBoth{"EffectModuleFlip.kBoth", "Both"};

  MenuParameter Direction{
      *this, {"Direction", 0, 0}, kDirection, {kHorizontally, kVertically, kBoth}};

 protected:
  std::string getID() const override { return "26D1E39D-9DB6-4458-0001-5DB554AFEE5B"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
