// SPDX-License-Identifier: MIT
#pragma once

#include "effects/FocalPoint.h"
#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// Gaussian blur, everywhere or away from a point in focus.
class EffectModuleGaussianBlur final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleGaussianBlur.kName", "Blur"};

  SliderParameter<int> GaussianRadius{
      *this, {"GaussianRadius", 0, 5, {0, 10000}}, {EffectModuleSharedConstants::kRadius, {}}};
  FocalPoint Focus{*this};

 protected:
  std::string getID() const override { return "5BC0BD23-CAC0-7375-3F22-5342E05745D7"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
  void CacheReset() override { Focus.ResetCache(); }
  void PostProcess(MarkCanvas& canvas, double) override { Focus.DrawOn(canvas); }
  bool MouseActionDown(float x, float y, bool&) override { return Focus.MoveTo(x, y); }
  void MouseActionDrag(float x, float y) override { Focus.MoveTo(x, y); }
};

}  // namespace brivolant
