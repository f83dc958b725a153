// SPDX-License-Identifier: MIT
#pragma once

#include "effects/fixes/LevelRange.h"
#include "engine/effectModule.h"

namespace brivolant {

/// Stretches each channel by itself, which also removes a colour cast.
class EffectModuleAutoLevels final : public ToneModule {
 public:
  std::optional<ToneTables> Tables(const Picture& picture) override;
  bool LooksAtPicture() const override { return true; }
  /// The range of each channel over the picture.
  void calculateAutoLevels(const Picture& picture);

 protected:
  std::string getID() const override { return "0E689855-F4E8-FCC3-AC7B-1E502A2B8095"; }
  std::string getName() const override;

 private:
  LevelRange red_;
  LevelRange green_;
  LevelRange blue_;
};

}  // namespace brivolant
