// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// Cuts the picture into pieces and lays them on a sheet.
class EffectModuleSegment final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleSegment.kName", "Segment"};

  static constexpr LocalizedText kSegments{"EffectModuleSegment.kSegments", "Segments:"};
  static constexpr LocalizedText kGap{"EffectModuleSegment.kGap", "Gap:"};

  SliderParameter<int> tileCount{
      *this, {"tileCount", 0, 1, {-1, 7}}, {kSegments, {.multiply = 6, .divide = 100}}};
  /// Percent of the picture.
  SliderParameter<int> Distance{*this, {"Distance", 5, 10, {-100, 1000}}, {kGap, {}}};
  ColorParameter backColor{
      *this, {"backColor", kBlack, kWhite}, EffectModuleSharedConstants::kbackColor};
  CheckBoxParameter DropShadow{
      *this, {"DropShadow", false, true}, EffectModuleSharedConstants::kDropShadow};

 protected:
  std::string getID() const override { return "3C80E86B-331A-3C40-B7DF-2C5AA2E88F87"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
