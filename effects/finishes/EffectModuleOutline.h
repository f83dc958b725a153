// SPDX-License-Identifier: MIT
#pragma once

#include "effects/geometry/EffectModuleDiffuse.h"
#include "effects/geometry/EffectModuleWave.h"
#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// A matte with a shaped opening over the picture.
class EffectModuleOutline final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleOutline.kName", "Matte"};

  static constexpr LocalizedText kOldTV{"EffectModuleOutline.kOldTV", "Old TV"};
  static constexpr LocalizedText kSize{"EffectModuleOutline.kSize", "Size:"};
  static constexpr LocalizedText kPixelate{"EffectModuleOutline.kPixelate", "Pixelate"};
  static constexpr LocalizedText kGlass{"EffectModuleOutline.kGlass", "Glass"};

  MenuParameter Shape{*this,
                      {"shape", 0, 0},
                      EffectModuleSharedConstants::kShape,
                      {EffectModuleSharedConstants::kShapeNameSquares,
                       EffectModuleSharedConstants::kShapeNameRoundedSquares,
                       EffectModuleSharedConstants::kShapeNameCircles, kOldTV,
                       EffectModuleSharedConstants::kShapeNameFlower,
                       EffectModuleSharedConstants::kShapeNameHeart}};
  /// The border as a fraction of the picture's width, both sides together.
  SliderParameter<float> Size{*this, {"Size", 0.1F, 0.1F, {-2, 2}}, {kSize, {.divide = 200}}};
  ColorParameter outlineColor{
      *this, {"outlineColor", kWhite, kWhite}, EffectModuleSharedConstants::kColor};
  MenuParameter Effect{*this,
                       {"Effect", 0, 0},
                       EffectModuleSharedConstants::kEffect,
                       {EffectModuleSharedConstants::kNone, EffectModuleSharedConstants::kBlur,
                        EffectModuleDiffuse::kName, EffectModuleWave::kName, kPixelate, kGlass}};

  SeedParameter Seed{*this};

 protected:
  std::string getID() const override { return "70325F49-FB0D-5FA0-251B-1CF7387C3762"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;

 private:
  /// White where the picture shows, black where the matte lies.
  Picture Opening(int width, int height) const;
  void TreatEdge(Picture& opening, double scale) const;
};

}  // namespace brivolant
