// SPDX-License-Identifier: MIT
#include "app/edit/ColorController.h"

#include <algorithm>
#include <cmath>

#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "app/edit/EditorPane.h"
#include "app/edit/ScreenColor.h"
#include "effects/fixes/EffectModuleColorAdjuster.h"
#include "engine/ui/EditorDisplay.h"
#include "engine/ui/EffectStackEditor.h"

namespace brivolant {

ColorController::ColorController(const Desk& desk, EditSession& session, Commands& commands,
                                 EditorPane& pane)
    : desk_(desk), session_(session), pane_(pane), panel_(desk.ColorPanel) {
  pane_.AdvancedPanel->ColorWellClicked = [this](int index) { ColorWellClicked(index); };
  pane_.AdvancedPanel->SelectedColorWell = [this](int index) {
    return index == panel_.currentControl;
  };
  panel_.ColorChanged = [this](const RGBAColor& color) { ColorChanged(color); };
  session_.Processor().SelectedEffectChanged = [this] { SelectedEffectChanged(); };
  listening_.push_back(session_.ModuleCreated.Listen([this](effectModule& module) {
    if (auto* adjuster = dynamic_cast<EffectModuleColorAdjuster*>(&module)) {
      adjuster->PickColor = [this, &module] { PickFor(module); };
    }
  }));
  // What is being picked for may go with the photo.
  listening_.push_back(session_.Settling.Listen([this] {
    if (picker_) picker_->Cancel();
  }));
  commands.Add(
      {{"ViewShowColors", &Menus::kViewShowColors, "Ctrl+Shift+C", kAllPanes,
        [this] { ShowColors(); }, [this] { return desk_.ColorPanel.Visible() || FirstWell() >= 0; },
        nullptr, [this] { return ShowColorsMenuItem::Text(desk_.ColorPanel).toStdString(); },
        true}});
}

ColorController::~ColorController() {
  session_.Processor().SelectedEffectChanged = nullptr;
}

int ColorController::FirstWell() const {
  effectModule* module = session_.Processor().SelectedEffect();
  for (int i = 0; module != nullptr && i < module->ControlCount(); ++i) {
    if (module->Control(i).Type == kControlColorWell) return i;
  }
  return -1;
}

void ColorController::ShowColors() {
  // A panel that is bound to nothing would change nothing.
  if (!desk_.ColorPanel.Visible() && panel_.currentControl < 0) {
    return ColorWellClicked(FirstWell());
  }
  ShowColorsMenuItem::Action(desk_.ColorPanel);
}

void ColorController::ColorWellClicked(int index) {
  effectModule* module = session_.Processor().SelectedEffect();
  if (module == nullptr || index < 0) return;
  panel_.currentControl = index;
  recorded_ = -1;
  const Color color = module->ControlValue(index).ToColor();
  panel_.ShowPanel({static_cast<float>(color.Red) / 255, static_cast<float>(color.Green) / 255,
                    static_cast<float>(color.Blue) / 255, 1});
  pane_.AdvancedPanel->update();
}

void ColorController::ColorChanged(const RGBAColor& color) {
  effectModule* module = session_.Processor().SelectedEffect();
  const int control = panel_.currentControl;
  if (control < 0 || module == nullptr || control >= module->ControlCount()) return;
  if (session_.Busy()) return;
  if (recorded_ != session_.HistorySteps()) {
    session_.Record({{session_.ModuleKey("EffectChanged:", *module), module->Settings()}},
                    module->Name());
  }
  const auto byte = [](float part) {
    return static_cast<std::uint8_t>(std::clamp(std::lround(part * 255), 0L, 255L));
  };
  module->ControlValue(control, Color{byte(color.Red), byte(color.Green), byte(color.Blue)});
  const int steps = session_.HistorySteps();
  session_.SetDirty(true);
  if (steps != session_.HistorySteps()) recorded_ = session_.HistorySteps();
  pane_.AdvancedPanel->Update();
  session_.Processor().UpdatePreview(false);
}

void ColorController::SelectedEffectChanged() {
  panel_.currentControl = -1;
  recorded_ = -1;
  if (!panel_.PanelVisible()) return;
  const int well = FirstWell();
  if (well >= 0) return ColorWellClicked(well);
  panel_.HidePanel();
}

void ColorController::PickFor(effectModule& module) {
  // By its name, since much may happen until the click: another style makes new modules.
  picker_ = std::make_unique<ScreenColor>(
      *pane_.MyDisplay, [this, id = module.ID(), stack = session_.Processor().CurrentStack](
                            const std::optional<Color>& color) {
        brivolantProcessorLite& processor = session_.Processor();
        auto* adjuster = processor.CurrentStack == stack
                             ? dynamic_cast<EffectModuleColorAdjuster*>(processor.ItemVIaID(id))
                             : nullptr;
        if (!color || adjuster == nullptr || session_.Busy()) return;
        session_.Record({{session_.ModuleKey("EffectChanged:", *adjuster), adjuster->Settings()}},
                        adjuster->Name());
        adjuster->Neutralize(*color);
        processor.UpdatePreview(false);
        session_.SetDirty(true);
        pane_.AdvancedPanel->Update();
      });
}

}  // namespace brivolant
