// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ModuleParameter.h"

namespace brivolant {

/// Early colour film of two strips: what is green is blue, too.
class EffectModuleTechnicolor final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleTechnicolor.kName",
                                       "2-Strip Technicolor Simulation"};

 protected:
  std::string getID() const override { return "4B18AC97-40EB-1A45-D413-5669FE074678"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
