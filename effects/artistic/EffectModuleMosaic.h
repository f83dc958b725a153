// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// Tiles in the colours of the picture.
class EffectModuleMosaic final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleMosaic.kName", "Mosaic"};

  static constexpr LocalizedText kText{"EffectModuleMosaic.kText", "ASCII Text"};
  static constexpr LocalizedText kTiles{"EffectModuleMosaic.kTiles", "Tiles:"};
  static constexpr LocalizedText kUseBackColor{"EffectModuleMosaic.kUseBackColor",
                                               "Use Back Color:"};
  static constexpr LocalizedText kVary{"EffectModuleMosaic.kVary", "Vary:"};

  MenuParameter shapes{
      *this,
      {"shapes", 1, 1},
      EffectModuleSharedConstants::kShape,
      {EffectModuleSharedConstants::kRandom, EffectModuleSharedConstants::kShapeNameSquares,
       EffectModuleSharedConstants::kShapeNameRoundedSquares,
       EffectModuleSharedConstants::kShapeNameCircles, kText}};
  SliderParameter<int> TileCount{
      *this, {"TileCount", 66, 60, {6, 1000}}, {kTiles, {.multiply = 2, .offset = 10}}};
  CheckBoxParameter Background{*this, {"Background", true, true}, kUseBackColor};
  ColorParameter BackColor{*this,
                           {"BackColor", Color::FromRGB(0xFFDFA6), Color::FromRGB(0xFFDFA6)},
                           EffectModuleSharedConstants::kbackColor};
  SliderParameter<float> Transparency{*this,
                                      {"Transparency", 1, 1, {-10, 10}},
                                      {EffectModuleSharedConstants::kOpacity, {.divide = 100}}};
  SliderParameter<float> varyPlacement{
      *this, {"varyPlacement", 0.25F, 0.25F, {-10, 10}}, {kVary, {.divide = 100}}};
  CheckBoxParameter DropShadow{
      *this, {"DropShadow", true, true}, EffectModuleSharedConstants::kDropShadow};

  SeedParameter Seed{*this};

 protected:
  std::string getID() const override { return "7FFFFFFF-0A01-FC1E-5CF8-D5EBC600183D"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
