// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// A colour that comes in towards the corners. The clear circle is as wide as the radius says.
class EffectModuleVignette final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleVignette.kName", "Vignette"};

  ColorParameter VignetteColor{
      *this, {"VignetteColor", kBlack, kBlack}, EffectModuleSharedConstants::kColor};
  SliderParameter<float> vignetteRadius{
      *this,
      {"vignetteRadius", 1, 0.5F, {-10, 10}},
      {EffectModuleSharedConstants::kRadius, {.divide = 100}, 0.5F}};

 protected:
  std::string getID() const override { return "0F62EDAB-27E1-55C8-F332-BDA8872B9C70"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
  void CacheReset() override { vignetteCache = {}; }

 private:
  /// 255 where the picture shows.
  Plane vignetteCache;
  int cachedInner_ = -1;
};

}  // namespace brivolant
