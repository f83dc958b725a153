// SPDX-License-Identifier: MIT
#pragma once

#include <random>

#include "engine/brivolantProcessorLite.h"
#include "formats/BrivolantDocument.h"

namespace brivolant::test {

/// Does to a document and its processor what a user could do next. True if it is of a kind that
/// wants a full preview.
inline bool EditAtRandom(brivolantProcessorLite& processor, std::mt19937& random) {
  BrivolantDocument& document = *processor.Document;
  const auto below = [&random](int count) {
    return static_cast<int>(random() % static_cast<unsigned>(count));
  };
  const int row = below(processor.Count() + 1);
  effectModule& module = *processor.item(row);
  switch (below(14)) {
    case 0:
      module.Enabled(!module.Enabled());
      processor.EffectEnabledChanged(row);
      return false;
    case 1: {
      const int to = below(processor.Count() + 1);
      processor.ChangeItemOrder(row, to);
      processor.SelectEffect(to);
      return false;
    }
    case 2:
      processor.ChangeStack(1 - processor.CurrentStack);
      return false;
    case 3:
      processor.BlendMode(below(16));
      processor.BlendAlpha = static_cast<float>(below(5)) / 4;
      return false;
    case 4:
      document.Rotation = below(4);
      return true;
    case 5:
      document.Flip = below(3);
      document.Orientation = below(4) / 3;
      return true;
    case 6:
      document.Crop = !document.Crop;
      document.CropOffSet = {below(40) / 100.0, below(40) / 100.0};
      document.CropSize = {(20 + below(60)) / 100.0, (20 + below(60)) / 100.0};
      return true;
    case 7: {
      // Few modules at a time, as in most stacks.
      for (const auto& stack : processor.stacks) {
        for (const auto& other : stack) other->Enabled(other->Enabled() && below(4) == 0);
      }
      const std::string style = processor.StyleData();
      processor.Reset();
      processor.StyleData(style);
      return true;
    }
    default:
      processor.SelectEffect(row);
      module.Enabled(true);
      for (int control = 0; control < module.ControlCount(); ++control) {
        const int type = module.Control(control).Type;
        if (type == kControlSlider) module.ControlValue(control, below(101));
        if (type == kControlCheckBox) module.ControlValue(control, below(2) == 0);
        if (type == kControlMenu && module.Control(control).Menu) module.ControlValue(control, 1);
        if (type == kControlColorWell) {
          module.ControlValue(control, Color::FromRGB(random() % 0xFFFFFF));
        }
      }
      processor.EffectEnabledChanged(row);
      return below(8) == 0;
  }
}

}  // namespace brivolant::test
