// SPDX-License-Identifier: MIT
#pragma once

#include "effects/fixes/LevelRange.h"
#include "engine/effectModule.h"

namespace brivolant {

/// Stretches all channels by one curve, so that the brightest channel of the picture uses the
/// whole range.
class EffectModuleAutoContrast final : public ToneModule {
 public:
  std::optional<ToneTables> Tables(const Picture& picture) override;
  bool LooksAtPicture() const override { return true; }
  /// The range of the HSV value over the picture.
  void calculateAutoLevels(const Picture& picture);

 protected:
  std::string getID() const override { return "07F7CED1-1E2B-A9BC-DDBD-921224317768"; }
  std::string getName() const override;

 private:
  LevelRange levels_;
};

}  // namespace brivolant
