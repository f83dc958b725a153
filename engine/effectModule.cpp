// SPDX-License-Identifier: MIT
#include "engine/effectModule.h"

#include "engine/EditorInterfaces.h"
#include "engine/ModuleParameter.h"
#include "platform/pictures/kernels/ToneKernels.h"

namespace brivolant {
namespace {
constexpr const char* kEnabledKey = "Enabled";
}

int EffectModuleControl::ShowMenu(int x, int y, const MenuPresenter& present) {
  if (!Menu) return -1;
  if (const std::optional<int> chosen = present(*Menu, x, y)) {
    otherSharedComponents::Selected(*Menu, *chosen);
  }
  for (std::size_t i = 0; i < Menu->Children.size(); ++i) {
    if (Menu->Children[i].Checked) return static_cast<int>(i);
  }
  return 0;
}

Dictionary effectModule::Settings() const {
  Dictionary settings;
  saveSettings(settings);
  if (mEnabled) settings.Value(kEnabledKey, true);
  return settings;
}

void effectModule::Settings(const Dictionary& settings) {
  loadSettings(settings);
  Enabled(settings.Lookup(kEnabledKey, false).ToBool());
}

void effectModule::Restore(const Dictionary& settings) {
  loadSettings(settings);
  mEnabled = settings.Lookup(kEnabledKey, false).ToBool();
}

void effectModule::Enabled(bool enabled) {
  mEnabled = enabled;
  EnabledStateChanged();
}

void effectModule::Reseed(std::uint32_t seed) {
  if (seed_ != nullptr) *seed_ = seed;
}

void effectModule::Apply(Picture& picture, double scale) {
  if (mEnabled) ApplyEffect(picture, scale);
}

void effectModule::fireShowMenu(int index, int x, int y, const MenuPresenter& present) {
  if (ShowMenu(index, x, y)) return;
  // The check mark follows what was loaded or undone since the menu was last shown.
  EffectModuleControl& control = Control(index);
  if (control.Menu) otherSharedComponents::Selected(*control.Menu, ControlValue(index).ToInt());
  bool dismissed = false;
  const int chosen = control.ShowMenu(x, y, [&](const MenuItem& menu, int left, int top) {
    const std::optional<int> item = present(menu, left, top);
    dismissed = !item;
    return item;
  });
  // Nothing may have been chosen before; then nothing is now.
  if (!dismissed) ControlValue(index, chosen);
}

void effectModule::AboutToChange() {
  if (Parent != nullptr) Parent->AboutToChange(*this);
}

void effectModule::saveSettings(Dictionary& settings) const {
  for (const ParameterBase* parameter : parameters_) {
    settings.Value(parameter->Key(), parameter->Stored());
  }
}

void effectModule::loadSettings(const Dictionary& settings) {
  for (ParameterBase* parameter : parameters_) {
    parameter->Store(settings.Lookup(parameter->Key(), parameter->DefaultOnRead()));
  }
}

void effectModule::SettingsReset() {
  for (ParameterBase* parameter : parameters_) parameter->Store(parameter->ResetValue());
}

void effectModule::DeclareMyControls() {
  for (ControlRow* row : rows_) AddControl(row->Declare());
}

Variant effectModule::getControlValue(int index) const {
  return index >= 0 && index < static_cast<int>(rows_.size())
             ? rows_[static_cast<std::size_t>(index)]->Shown()
             : Variant();
}

void effectModule::SetControlValue(int index, const Variant& value) {
  if (index >= 0 && index < static_cast<int>(rows_.size())) {
    rows_[static_cast<std::size_t>(index)]->Set(value);
  }
}

void ToneModule::ApplyEffect(Picture& picture, double) {
  if (const auto tables = Tables(picture)) {
    const Picture::Rewriting pixels = picture.Rewrite();
    kernels::ApplyToneTables(pixels.from, pixels.to, *tables);
  }
}

}  // namespace brivolant
