// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// Four small copies in flat colours under black lines.
class EffectModulePopArt final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModulePopArt.kName", "Pop Art"};

  SliderParameter<float> Threshold{
      *this,
      {"Threshold", 0.5F, 0.5F, {-10000, 10000}},
      {EffectModuleSharedConstants::kThreshold, {.divide = 2.5, .offset = -20}}};

 protected:
  std::string getID() const override { return "5271AE9B-A57E-1FD4-D2CC-2970B29CD03F"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
