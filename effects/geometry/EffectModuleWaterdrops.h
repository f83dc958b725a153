// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// The picture behind drops of water.
class EffectModuleWaterdrops final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleWaterdrops.kName", "Water Drops"};

  /// The slider stays away from drops too small to see.
  class LimitedSize final : public SliderParameter<int> {
   public:
    using SliderParameter<int>::SliderParameter;
    using SliderParameter<int>::operator=;
    void Set(const Variant& position) override;
  };

  SliderParameter<int> DropCount{*this,
                                 {"DropCount", 50, 50, {0, 10000}},
                                 {EffectModuleSharedConstants::kQuantity, {.multiply = 10}}};
  LimitedSize DropSize{
      *this, {"DropSize", 50, 50, {0, 1000}}, {EffectModuleSharedConstants::kMaxSize, {}}};

  SeedParameter Seed{*this};

 protected:
  std::string getID() const override { return "7FFFFFFF-6EDA-E3AC-9108-9A3086CD24E7"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
