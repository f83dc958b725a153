// SPDX-License-Identifier: MIT
#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <map>

#include "engine/brivolantProcessorLite.h"
#include "engine/ui/EffectStackEditor.h"
#include "kit/InterfaceKitSupport.h"

namespace brivolant {
namespace {

QAccessibleInterface* InterfaceOf(QObject* object) {
  return QAccessible::queryAccessibleInterface(object);
}

/// A row of the panel, or a control of the selected row. Asks the panel anew each time, since rows
/// move and modules are made anew.
class PanelItem final : public QAccessibleInterface,
                        public QAccessibleActionInterface,
                        public QAccessibleValueInterface {
 public:
  PanelItem(EffectStackEditor& panel, int row, int control)
      : panel_(&panel), row_(row), control_(control) {}

  bool isValid() const override {
    if (panel_.isNull() || Module() == nullptr) return false;
    return control_ < 0 ||
           (row_ == panel_->selectedEffect() && control_ < Module()->ControlCount());
  }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QAccessibleInterface* parent() const override { return InterfaceOf(panel_); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  void setText(QAccessible::Text, const QString&) override {}

  QString text(QAccessible::Text kind) const override {
    if (!isValid()) return {};
    if (kind == QAccessible::Name) {
      return ToQString(control_ < 0 ? Module()->Name() : Module()->Control(control_).Caption);
    }
    if (kind == QAccessible::Value && control_ >= 0) return ValueText();
    return {};
  }

  QRect rect() const override {
    if (!isValid()) return {};
    const QRect local = control_ < 0 ? panel_->RowRect(row_) : panel_->ControlRect(control_);
    return {panel_->mapToGlobal(local.topLeft()), local.size()};
  }

  QAccessible::Role role() const override {
    if (!isValid()) return QAccessible::NoRole;
    if (control_ < 0) return IsDivider() ? QAccessible::Heading : QAccessible::CheckBox;
    switch (Module()->Control(control_).Type) {
      case kControlSlider:
        return QAccessible::Slider;
      case kControlCheckBox:
        return QAccessible::CheckBox;
      case kControlButton:
        return QAccessible::PushButton;
      case kControlColorWell:
        return QAccessible::ColorChooser;
      case kControlMenu:
        return QAccessible::ComboBox;
      default:
        return QAccessible::StaticText;
    }
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    if (!isValid()) return state;
    state.disabled = !panel_->isEnabled() || !Module()->Complete();
    state.focusable = true;
    state.selectable = control_ < 0;
    const bool selected = row_ == panel_->selectedEffect();
    state.selected = control_ < 0 && selected;
    state.focused = panel_->hasFocus() && selected && panel_->focusedControl() == control_;
    const bool box =
        control_ < 0 ? !IsDivider() : Module()->Control(control_).Type == kControlCheckBox;
    state.checkable = box;
    state.checked =
        box && (control_ < 0 ? Module()->Enabled() : Module()->ControlValue(control_).ToBool());
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ActionInterface) {
      return static_cast<QAccessibleActionInterface*>(this);
    }
    if (type == QAccessible::ValueInterface && role() == QAccessible::Slider) {
      return static_cast<QAccessibleValueInterface*>(this);
    }
    return nullptr;
  }

  QStringList actionNames() const override {
    if (!isValid()) return {};
    if (control_ < 0) return {toggleAction(), setFocusAction()};
    switch (role()) {
      case QAccessible::Slider:
        return {increaseAction(), decreaseAction()};
      case QAccessible::ComboBox:
        return {showMenuAction()};
      case QAccessible::CheckBox:
        return {toggleAction()};
      case QAccessible::StaticText:
        return {};
      default:
        return {pressAction()};
    }
  }

  void doAction(const QString& name) override {
    if (!isValid()) return;
    if (control_ < 0) {
      if (name == toggleAction()) panel_->ToggleRow(row_, false);
      if (name == setFocusAction()) panel_->SelectRow(row_);
      return;
    }
    const int value = Module()->ControlValue(control_).ToInt();
    if (name == increaseAction()) {
      panel_->SetSlider(control_, value + 1);
    } else if (name == decreaseAction()) {
      panel_->SetSlider(control_, value - 1);
    } else if (role() != QAccessible::Slider) {
      panel_->Activate(control_);
    }
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

  QVariant currentValue() const override {
    return isValid() ? Module()->ControlValue(control_).ToDouble() : QVariant();
  }
  void setCurrentValue(const QVariant& value) override {
    if (isValid()) panel_->SetSlider(control_, value.toInt());
  }
  QVariant maximumValue() const override { return 100; }
  QVariant minimumValue() const override { return 0; }
  QVariant minimumStepSize() const override { return 1; }

 private:
  effectModule* Module() const { return panel_->myProcessor->item(row_); }
  bool IsDivider() const { return dynamic_cast<const EffectModuleDivider*>(Module()) != nullptr; }
  QString ValueText() const {
    const Variant value = Module()->ControlValue(control_);
    switch (role()) {
      case QAccessible::Slider:
        return QString::number(value.ToInt());
      case QAccessible::ComboBox: {
        const auto& menu = Module()->Control(control_).Menu;
        const int chosen = value.ToInt();
        const bool known = menu && chosen >= 0 && chosen < static_cast<int>(menu->Children.size());
        if (!menu) return ToQString(value.ToText());
        return known ? ToQString(menu->Children[static_cast<std::size_t>(chosen)].Text) : QString();
      }
      default:
        return ToQString(value.ToText());
    }
  }

  QPointer<EffectStackEditor> panel_;
  int row_;
  int control_;
};

/// The panel: its rows first, then the controls of the selected row.
class Panel final : public QAccessibleWidget {
 public:
  explicit Panel(EffectStackEditor* panel)
      : QAccessibleWidget(panel, QAccessible::List), panel_(panel) {}
  ~Panel() override {
    for (const auto& [key, id] : items_) QAccessible::deleteAccessibleInterface(id);
  }

  int childCount() const override { return Rows() + Controls(); }
  QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    return index < Rows() ? Item(index, -1) : Item(panel_->selectedEffect(), index - Rows());
  }
  int indexOfChild(const QAccessibleInterface* item) const override {
    for (int i = 0; i < childCount(); ++i) {
      if (child(i) == item) return i;
    }
    return -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    // Controls lie inside their row.
    for (int i = childCount() - 1; i >= 0; --i) {
      QAccessibleInterface* item = child(i);
      if (item->rect().contains(x, y)) return item;
    }
    return nullptr;
  }
  QAccessibleInterface* focusChild() const override {
    const int row = panel_->selectedEffect();
    return row < 0 ? nullptr : Item(row, panel_->focusedControl());
  }

 private:
  int Rows() const { return panel_->myProcessor == nullptr ? 0 : panel_->myProcessor->Count() + 1; }
  int Controls() const {
    if (panel_->myProcessor == nullptr) return 0;
    effectModule* module = panel_->myProcessor->item(panel_->selectedEffect());
    return module == nullptr ? 0 : module->ControlCount();
  }
  QAccessibleInterface* Item(int row, int control) const {
    const auto [known, added] = items_.try_emplace({row, control}, QAccessible::Id());
    if (added) {
      known->second =
          QAccessible::registerAccessibleInterface(new PanelItem(*panel_, row, control));
    }
    return QAccessible::accessibleInterface(known->second);
  }

  EffectStackEditor* panel_;
  mutable std::map<std::pair<int, int>, QAccessible::Id> items_;
};

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
  auto* panel = dynamic_cast<EffectStackEditor*>(object);
  return panel == nullptr ? nullptr : new Panel(panel);
}

}  // namespace

void InstallEffectStackAccessibility() {
  static const bool installed = [] {
    QAccessible::installFactory(MakeInterface);
    return true;
  }();
  (void)installed;
}

}  // namespace brivolant
