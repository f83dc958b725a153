// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// Blur by a movement of the camera.
class EffectModuleMotionBlur final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleMotionBlur.kName", "Motion Blur"};

  static constexpr LocalizedText kLinear{"EffectModuleMotionBlur.kLinear", "Linear"};
  static constexpr LocalizedText kRadial{"EffectModuleMotionBlur.kRadial", "Radial"};
  static constexpr LocalizedText kZoom{"EffectModuleMotionBlur.kZoom", "Zoom"};
  static constexpr LocalizedText kDistance{"EffectModuleMotionBlur.kDistance", "Distance:"};
  static constexpr LocalizedText kRepetitions{"EffectModuleMotionBlur.kRepetitions",
                                              "Repetitions:"};

  MenuParameter blurKind{
      *this, {"blurKind", 0, 0}, EffectModuleSharedConstants::kType, {kLinear, kRadial, kZoom}};
  SliderParameter<double> GaussianRadius{
      *this, {"GaussianRadius", 0, 5, {0, 10000}}, {EffectModuleSharedConstants::kRadius, {}}};
  SliderParameter<double> motionAngle{
      *this, {"motionAngle", 0, 0, {-100000, 100000}}, {EffectModuleSharedConstants::kAngle, {}}};
  SliderParameter<int> motionDistance{*this, {"motionDistance", 0, 0, {0, 10000}}, {kDistance, {}}};
  /// Stored and shown; no part of the effect.
  SliderParameter<int> motionRepetitions{
      *this, {"motionRepetitions", 0, 0, {0, 10000}}, {kRepetitions, {}}};

 protected:
  std::string getID() const override { return "3305A849-B86A-A505-407A-ECC1375B21D3"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
