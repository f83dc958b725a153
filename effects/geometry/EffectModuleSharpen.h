// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ModuleParameter.h"

namespace brivolant {

/// Sharpens by what a pixel differs from its neighbours.
class EffectModuleSharpen final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleSharpen.kName", "Sharpen"};

 protected:
  std::string getID() const override { return "5B350827-F6A9-3E34-0A70-990F7B550769"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
