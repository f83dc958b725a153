// SPDX-License-Identifier: MIT
#include "golden/Golden.h"

#include "effects/EffectRegistry.h"
#include "engine/brivolantProcessorLite.h"

namespace brivolant::test {

std::vector<GoldenRender> RenderGolden(const Picture& input, const Services& services) {
  constexpr int kSliders = 70;
  std::vector<GoldenRender> renders;
  for (std::size_t row = 0; row < EffectRegistry().size(); ++row) {
    brivolantProcessorLite processor(EffectRegistry(), services);
    processor.Startup();
    effectModule& module = *processor.item(static_cast<int>(row));
    if (!module.Complete() || dynamic_cast<EffectModuleDivider*>(&module) != nullptr) continue;
    for (int i = 0; i < module.ControlCount(); ++i) {
      const EffectModuleControl& control = module.Control(i);
      if (control.Type == kControlSlider) module.ControlValue(i, kSliders);
      // A menu without a choice takes its first item.
      const bool open = control.Menu && module.ControlValue(i).ToInt() < 0;
      if (control.Type == kControlMenu && open) module.ControlValue(i, 0);
    }
    module.Enabled(true);
    renders.push_back(
        {std::string(EffectRegistry()[row].foregroundClass), processor.Process(input, {})});
  }
  return renders;
}

}  // namespace brivolant::test
