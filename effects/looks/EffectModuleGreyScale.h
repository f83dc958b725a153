// SPDX-License-Identifier: MIT
#pragma once

#include "effects/FocalPoint.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// Black and white, everywhere or away from a point in focus.
class EffectModuleGreyScale final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleGreyScale.kName", "Greyscale"};

  static constexpr LocalizedText kMethod{"EffectModuleGreyScale.kMethod", "Method:"};
  static constexpr LocalizedText kMethodName1{"EffectModuleGreyScale.kMethodName1", "NTSC and PAL"};
  static constexpr LocalizedText kMethodName2{"EffectModuleGreyScale.kMethodName2", "ITU-R"};
  static constexpr LocalizedText kMethodName3{"EffectModuleGreyScale.kMethodName3", "Average"};
  static constexpr LocalizedText kMethodName4{"EffectModuleGreyScale.kMethodName4",
                                              "Weighted Average"};
  static constexpr LocalizedText kMethodName5{"EffectModuleGreyScale.kMethodName5", "Desaturate"};

  MenuParameter Type{*this,
                     {"Type", 1, 0},
                     kMethod,
                     {kMethodName1, kMethodName2, kMethodName3, kMethodName4, kMethodName5}};
  FocalPoint Focus{*this};

 protected:
  std::string getID() const override { return "285DB39F-1FBB-67F7-B156-71124CE02033"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
  void CacheReset() override { Focus.ResetCache(); }
  void PostProcess(MarkCanvas& canvas, double) override { Focus.DrawOn(canvas); }
  bool MouseActionDown(float x, float y, bool&) override { return Focus.MoveTo(x, y); }
  void MouseActionDrag(float x, float y) override { Focus.MoveTo(x, y); }
};

}  // namespace brivolant
