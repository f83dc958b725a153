// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// Stars, hearts and flowers strewn over the picture.
class EffectModuleConfetti final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleConfetti.kName", "Confetti"};

  static constexpr LocalizedText kConfetti{"EffectModuleConfetti.kConfetti", "Confetti"};
  static constexpr LocalizedText kSkinnyStars{"EffectModuleConfetti.kSkinnyStars", "Skinny Stars"};
  static constexpr LocalizedText kThinStars{"EffectModuleConfetti.kThinStars", "Thin Stars"};
  static constexpr LocalizedText kFatStars{"EffectModuleConfetti.kFatStars", "Fat Stars"};
  static constexpr LocalizedText kChunkyStars{"EffectModuleConfetti.kChunkyStars", "Chunky Stars"};
  static constexpr LocalizedText kRandomColor{"EffectModuleConfetti.kRandomColor", "Random Color"};

  /// A colour of one's own ends the random ones.
  class OwnColor final : public ColorParameter {
   public:
    OwnColor(effectModule& owner, CheckBoxParameter& random)
        : ColorParameter(owner, {"StarColor", kWhite, kWhite}, EffectModuleSharedConstants::kColor),
          random_(random) {}
    using ColorParameter::operator=;
    void Set(const Variant& value) override {
      ColorParameter::Set(value);
      random_ = false;
    }

   private:
    CheckBoxParameter& random_;
  };

  MenuParameter Kind{*this,
                     {"kind", 2, 0},
                     EffectModuleSharedConstants::kType,
                     {kConfetti, kSkinnyStars, kThinStars, kFatStars, kChunkyStars,
                      EffectModuleSharedConstants::kShapeNameHeart,
                      EffectModuleSharedConstants::kShapeNameFlower}};
  /// Stored, and no part of the effect.
  Parameter<int> Opacity{*this, {"Opacity", 1, 1, {-1000, 1000}}};
  SliderParameter<int> StarCount{*this,
                                 {"StarCount", 10, 10, {0, 2000}},
                                 {EffectModuleSharedConstants::kQuantity, {.multiply = 4}}};
  CheckBoxParameter RandomColor{*this, {"RandomColor", false, false}, kRandomColor};
  OwnColor StarColor{*this, RandomColor};
  SliderParameter<float> maxSize{
      *this, {"maxSize", 1, 1, {0, 20}}, {EffectModuleSharedConstants::kMaxSize, {.divide = 25}}};

  SeedParameter Seed{*this};

 protected:
  std::string getID() const override { return "629ACFD7-A1C2-325C-767F-1972350657FD"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
  void SettingsReset() override;
};

}  // namespace brivolant
