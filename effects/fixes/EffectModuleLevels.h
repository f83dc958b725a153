// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ModuleParameter.h"

namespace brivolant {

/// Maps the levels between Shadows and Highlights to those between OutBlack and OutWhite. Shows
/// the histogram of the HSV value on the preview.
class EffectModuleLevels final : public ToneModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleLevels.kName", "Levels"};
  static constexpr LocalizedText kIn{"EffectModuleLevels.kIn", "In"};
  static constexpr LocalizedText kOut{"EffectModuleLevels.kOut", "Out"};
  static constexpr LocalizedText kDark{"EffectModuleLevels.kDark", "Black:"};
  static constexpr LocalizedText kLight{"EffectModuleLevels.kLight", "White:"};
  static constexpr SliderMapping kLevel{.multiply = 255, .divide = 100};

  LabelRow In{*this, kIn};
  SliderParameter<int> Shadows{*this, {"Shadows", 0, 0, {-65536, 65536}}, {kDark, kLevel}};
  SliderParameter<int> Highlights{
      *this, {"Highlights", 255, 255, {-65536, 65536}}, {kLight, kLevel}};
  LabelRow Out{*this, kOut};
  SliderParameter<int> OutBlack{*this, {"OutBlack", 0, 0, {-65536, 65536}}, {kDark, kLevel}};
  SliderParameter<int> OutWhite{*this, {"OutWhite", 255, 255, {-65536, 65536}}, {kLight, kLevel}};

  std::optional<ToneTables> Tables(const Picture& picture) override;
  /// Draws the histogram of a picture, width by height pixels.
  Picture Histogram(const Picture& source, int width, int height) const;

 protected:
  std::string getID() const override { return "7FFFFFFF-B3AC-4C8A-146F-1F804A5B9B06"; }
  std::string getName() const override { return kName.Text(); }
  void PostProcess(MarkCanvas& canvas, double scale) override;
};

}  // namespace brivolant
