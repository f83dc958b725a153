// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ModuleParameter.h"

namespace brivolant {

/// Dark scan lines with soft edges, as many on every picture.
class EffectModuleInterlace final : public effectModule {
 public:
  static constexpr LocalizedText kName{"EffectModuleInterlace.kName", "Interlace"};

 protected:
  std::string getID() const override { return "4C386BB9-0C28-4107-7F97-388615A83F8E"; }
  std::string getName() const override { return kName.Text(); }
  void ApplyEffect(Picture& picture, double scale) override;
};

}  // namespace brivolant
