// SPDX-License-Identifier: MIT
#pragma once

#include "engine/EffectModuleSharedConstants.h"
#include "engine/ModuleParameter.h"

namespace brivolant {

/// Multiplies the picture by a colour, or adds the colour to it.
class EffectModuleColorize final : public ToneModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleColorize.kName", "Colorize"};

  static constexpr LocalizedText kShift{"EffectModuleColorize.kShift", "Color Shift"};

  ColorParameter useColor{*this,
                          {"useColor", Color::FromRGB(0xFF8000), Color::FromRGB(0xFF0080)},
                          EffectModuleSharedConstants::kColor};
  CheckBoxParameter ShiftInstead{*this, {"ShiftInstead", false, false}, kShift};

  std::optional<ToneTables> Tables(const Picture& picture) override;

 protected:
  std::string getID() const override { return "7FFFFFFF-A1B9-D227-53EC-6E7D15F7730F"; }
  std::string getName() const override { return kName.Text(); }
};

}  // namespace brivolant
