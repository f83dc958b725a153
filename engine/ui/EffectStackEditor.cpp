// SPDX-License-Identifier: MIT
#include "engine/ui/EffectStackEditor.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "engine/brivolantProcessorLite.h"
#include "kit/DesktopServices.h"
#include "kit/InterfaceKitSupport.h"

namespace brivolant {
namespace {

constexpr int kCheckBoxLeft = 4;
constexpr int kCheckBoxRight = 20;
constexpr int kDragStarts = 5;
constexpr int kEdge = 12;
constexpr int kFast = 10;

}  // namespace

EffectStackEditor::EffectStackEditor(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAccessibleName(Shown(kLabel));
  QFont small = font();
  small.setPointSizeF(small.pointSizeF() * 0.9);
  setFont(small);
}

EffectStackEditor::~EffectStackEditor() = default;

effectModule* EffectStackEditor::At(int row) const {
  return myProcessor == nullptr ? nullptr : myProcessor->item(row);
}

effectModule* EffectStackEditor::Selected() const {
  return At(selected_);
}

bool EffectStackEditor::IsDivider(int row) const {
  return dynamic_cast<const EffectModuleDivider*>(At(row)) != nullptr;
}

int EffectStackEditor::ControlsOf(int row) const {
  effectModule* module = At(row);
  return module == nullptr ? 0 : module->ControlCount();
}

int EffectStackEditor::Offset() const {
  return myScrollBar != nullptr && myScrollBar->isEnabled() ? yOffset_ : 0;
}

int EffectStackEditor::HeightOf(int row) const {
  const bool unfolded = row == selected_ && mouseStatus_ != kDraggingRow;
  return unfolded ? kRow * (ControlsOf(row) + 1) : kRow;
}

int EffectStackEditor::rowAtXY(int, int y) const {
  if (myProcessor == nullptr) return -1;
  const int at = y + Offset();
  int top = 0;
  for (int row = 0; row <= myProcessor->Count(); ++row) {
    const int height = HeightOf(row);
    if (top <= at && at <= top + height) return row;
    top += height;
  }
  return -1;
}

QRect EffectStackEditor::RowRect(int row) const {
  int top = -Offset();
  for (int i = 0; i < row; ++i) top += HeightOf(i);
  return {0, top, width(), HeightOf(row)};
}

QRect EffectStackEditor::ControlRect(int control) const {
  return {ControlLeft(), RowRect(selected_).top() + kRow * (control + 1), ControlWidth(), kRow};
}

void EffectStackEditor::RecalibrateScrollBar() {
  lastHeight_ = height();
  if (myScrollBar == nullptr || myProcessor == nullptr) return;
  int total = kRow * (myProcessor->Count() + 1);
  if (Selected() != nullptr) total = kRow * (myProcessor->Count() + 1 + ControlsOf(selected_));
  const int excess = total - height();
  myScrollBar->setEnabled(excess > 0);
  myScrollBar->setPageStep(std::max(height(), 1));
  myScrollBar->setSingleStep(kRow);
  myScrollBar->setMaximum(std::max(excess, 0));
  if (excess <= 0) myScrollBar->setValue(0);
}

void EffectStackEditor::yOffset(int offset) {
  yOffset_ = offset;
  update();
}

void EffectStackEditor::AboutToChange(effectModule& module) {
  if (ItemValueChanged) ItemValueChanged(module);
}

void EffectStackEditor::selectedEffect(int index) {
  // What is held belongs to the row that was selected.
  if (mouseStatus_ == kOnControl) EndGesture();
  selected_ = index;
  focusedControl_ = -1;
  keyModule_ = nullptr;
  RecalibrateScrollBar();
  update();
}

void EffectStackEditor::Update() {
  keyModule_ = nullptr;
  RecalibrateScrollBar();
  update();
}

void EffectStackEditor::TellChanged() {
  if (Changed) Changed();
}

void EffectStackEditor::TellIfChanged(const effectModule& module, const Dictionary& before) {
  if (!(module.Settings() == before)) TellChanged();
}

void EffectStackEditor::EnableRow(int row) {
  effectModule* module = At(row);
  if (module == nullptr || module->Enabled() || IsDivider(row) || !module->Complete()) return;
  if (itemEnabledChanged) itemEnabledChanged(*module);
  module->Enabled(true);
  myProcessor->EffectEnabledChanged(row);
  // A change by itself, whatever becomes of the control that was meant.
  TellChanged();
}

void EffectStackEditor::ToggleRow(int row, bool select) {
  effectModule* module = At(row);
  if (module == nullptr || IsDivider(row) || !module->Complete()) return;
  if (itemEnabledChanged) itemEnabledChanged(*module);
  module->Enabled(!module->Enabled());
  myProcessor->EffectEnabledChanged(row);
  if (module->Enabled() && select) {
    selected_ = row;
    focusedControl_ = -1;
    RecalibrateScrollBar();
    selectedControl_ = -1;
    mouseStatus_ = kIdle;
    myProcessor->SelectEffect(row);
  }
  myProcessor->UpdatePreview(false);
  TellChanged();
  update();
}

void EffectStackEditor::ScrollToRow(int row) {
  if (myScrollBar == nullptr || !myScrollBar->isEnabled()) return;
  const int excess = -Offset() + row * kRow + (ControlsOf(row) + 1) * kRow - height();
  if (excess > 0) myScrollBar->setValue(myScrollBar->value() + excess);
  const int above = row * kRow - Offset();
  if (above < 0) myScrollBar->setValue(myScrollBar->value() + above);
}

void EffectStackEditor::SelectRow(int row) {
  selected_ = row;
  focusedControl_ = -1;
  RecalibrateScrollBar();
  ScrollToRow(row);
  selectedControl_ = -1;
  myProcessor->SelectEffect(row);
  mouseStatus_ = kIdle;
  EnableRow(row);
  myProcessor->UpdatePreview(false);
  update();
  NotifyFocus();
}

void EffectStackEditor::mousePressEvent(QMouseEvent* event) {
  if (myProcessor == nullptr || event->button() != Qt::LeftButton) return;
  setFocus();
  const QPoint at = event->position().toPoint();
  const int row = rowAtXY(at.x(), at.y());
  const bool inColumn = at.x() >= kCheckBoxLeft && at.x() <= kCheckBoxRight;
  keyModule_ = nullptr;
  lastX_ = at.x();
  lastY_ = at.y();
  if (inColumn && at.y() <= row * kRow + kRow && row >= 0 && !IsDivider(row) &&
      At(row)->Complete()) {
    ToggleRow(row, !event->modifiers().testFlag(Qt::ControlModifier));
  } else if (row >= 0 && row == selected_) {
    PressOnSelected(at);
  } else if (row >= 0) {
    SelectRow(row);
  }
  update();
}

void EffectStackEditor::PressOnSelected(const QPoint& at) {
  mouseStatus_ = kIdle;
  selectedControl_ = -1;
  const int controls = ControlsOf(selected_);
  if (controls == 0 || Selected() == nullptr) return;
  const QRect row = RowRect(selected_);
  if (at.x() >= ResetButtonLeft() && at.x() <= ResetButtonLeft() + 50 &&
      at.y() <= row.top() + kRow) {
    if (ItemValueChanged) ItemValueChanged(*Selected());
    mouseStatus_ = kOnReset;
    return;
  }
  if (at.x() < ControlLeft() || at.x() > ControlLeft() + ControlWidth() ||
      at.y() < row.top() + kRow) {
    return;
  }
  const int control = std::clamp((at.y() - row.top() - kRow) / kRow, 0, controls - 1);
  PressOnControl(control);
  if (mouseStatus_ == kOnControl && Selected()->Control(control).Type == kControlSlider) {
    DragSlider(at.x());
  }
}

void EffectStackEditor::PressOnControl(int control) {
  effectModule& module = *Selected();
  selectedControl_ = control;
  focusedControl_ = control;
  mouseStatus_ = kOnControl;
  EnableRow(selected_);
  beforeSlide_ = module.Settings();
  const int type = module.Control(control).Type;
  if (type == kControlMenu) return PopUpControlMenu(control);
  if (type == kControlSlider && ItemValueChanged) ItemValueChanged(module);
}

void EffectStackEditor::PopUpControlMenu(int control) {
  effectModule& module = *Selected();
  repaint();
  if (ItemValueChanged) ItemValueChanged(module);
  const Dictionary before = module.Settings();
  const QPoint at = mapToGlobal(ControlRect(control).topLeft());
  const std::shared_ptr<void> hold = Holding ? Holding() : nullptr;
  module.fireShowMenu(control, at.x(), at.y(),
                      [](const MenuItem& menu, int x, int y) { return PopUpMenu(menu, x, y); });
  mouseStatus_ = kIdle;
  myProcessor->UpdatePreview(false);
  TellIfChanged(module, before);
  update();
}

void EffectStackEditor::DragSlider(int x) {
  effectModule& module = *Selected();
  const double position = 100.0 * (x - ControlLeft()) / ControlWidth();
  const int value = static_cast<int>(std::clamp(position, 0.0, 100.0));
  if (value == module.ControlValue(selectedControl_).ToInt()) return;
  module.ControlValue(selectedControl_, value);
  myProcessor->UpdatePreview(false);
  update(RowRect(selected_));
}

void EffectStackEditor::mouseMoveEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  if (!event->buttons().testFlag(Qt::LeftButton)) {
    const int row = rowAtXY(at.x(), at.y());
    if (row != hoverRow_) {
      hoverRow_ = row;
      update();
    }
    return;
  }
  if (mouseStatus_ == kIdle && Selected() != nullptr && std::abs(lastY_ - at.y()) > kDragStarts) {
    mouseStatus_ = kDraggingRow;
  }
  if (mouseStatus_ == kDraggingRow) {
    lastY_ = at.y();
    if (myScrollBar != nullptr && myScrollBar->isEnabled()) {
      if (at.y() < kEdge) myScrollBar->setValue(myScrollBar->value() - kRow);
      if (at.y() > height() - kEdge) myScrollBar->setValue(myScrollBar->value() + kRow);
    }
    update();
  } else if (mouseStatus_ == kOnControl && Selected() != nullptr &&
             Selected()->Control(selectedControl_).Type == kControlSlider) {
    DragSlider(at.x());
  }
}

void EffectStackEditor::MoveRow(int target) {
  // What is held belongs to the row that was selected.
  if (mouseStatus_ == kOnControl) EndGesture();
  effectModule* module = Selected();
  if (module == nullptr) return;
  if (target < 0 || target > myProcessor->Count()) target = myProcessor->Count();
  if (target != selected_) {
    if (ItemMoved) ItemMoved(*module, selected_, target);
    myProcessor->ChangeItemOrder(selected_, target);
    selected_ = target;
    myProcessor->SelectEffect(target);
    myProcessor->UpdatePreview(false);
    TellChanged();
  }
  RecalibrateScrollBar();
  update();
}

void EffectStackEditor::ResetRow() {
  effectModule* module = Selected();
  if (module == nullptr) return;
  const Dictionary before = module->Settings();
  myProcessor->ResetSettings(*module);
  myProcessor->UpdatePreview(false);
  TellIfChanged(*module, before);
  update();
}

void EffectStackEditor::Activate(int control) {
  effectModule* module = Selected();
  if (module == nullptr || control < 0 || control >= module->ControlCount()) return;
  // A button opens a chooser, and may have to tell what came of it.
  const std::shared_ptr<void> hold = Holding ? Holding() : nullptr;
  const Dictionary before = module->Settings();
  switch (module->Control(control).Type) {
    case kControlSlider:
      // Shown while it was dragged, unless it was pressed where it stands.
      if (mouseStatus_ == kOnControl) TellIfChanged(*module, beforeSlide_);
      return;
    case kControlColorWell:
      // Colors that are chosen tell of themselves.
      if (ColorWellClicked) ColorWellClicked(control);
      return;
    case kControlCheckBox:
      if (ItemValueChanged) ItemValueChanged(*module);
      module->ControlValue(control, !module->ControlValue(control).ToBool());
      myProcessor->UpdatePreview(false);
      break;
    case kControlButton:
      if (ItemValueChanged) ItemValueChanged(*module);
      if (module->PushButton(control)) myProcessor->UpdatePreview(false);
      // A chooser that was cancelled has changed nothing.
      return TellIfChanged(*module, before);
    default:
      return;
  }
  TellChanged();
}

void EffectStackEditor::EndGesture() {
  const bool sliding = mouseStatus_ == kOnControl && Selected() != nullptr &&
                       Selected()->Control(selectedControl_).Type == kControlSlider;
  if (sliding) Activate(selectedControl_);
  mouseStatus_ = kIdle;
  update();
}

void EffectStackEditor::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || myProcessor == nullptr) return;
  const int status = mouseStatus_;
  if (status == kDraggingRow) {
    int target = rowAtXY(static_cast<int>(event->position().x()), lastY_);
    if (target >= 0 && selected_ < target) --target;
    mouseStatus_ = kIdle;
    MoveRow(target);
  } else if (status == kOnControl) {
    Activate(selectedControl_);
  } else if (status == kOnReset) {
    ResetRow();
  }
  mouseStatus_ = kIdle;
  update();
}

void EffectStackEditor::wheelEvent(QWheelEvent* event) {
  if (myScrollBar != nullptr && myScrollBar->isEnabled()) {
    const QPoint pixels = event->pixelDelta();
    constexpr double kNotch = 120;
    const int by = pixels.isNull() ? static_cast<int>(3 * kRow * event->angleDelta().y() / kNotch)
                                   : pixels.y();
    myScrollBar->setValue(myScrollBar->value() - by);
  }
  event->accept();
}

void EffectStackEditor::RecordKeyStep(effectModule& module, int control) {
  const bool goesOn = keyModule_ == &module && keyControl_ == control && keyTimer_.isValid() &&
                      keyTimer_.elapsed() < OneChange;
  if (!goesOn && ItemValueChanged) ItemValueChanged(module);
  keyModule_ = &module;
  keyControl_ = control;
  keyTimer_.start();
}

void EffectStackEditor::SetSlider(int control, int value) {
  effectModule* module = Selected();
  if (module == nullptr || control < 0 || control >= module->ControlCount()) return;
  if (!module->Complete()) return;
  value = std::clamp(value, 0, 100);
  if (value == module->ControlValue(control).ToInt()) return;
  EnableRow(selected_);
  RecordKeyStep(*module, control);
  module->ControlValue(control, value);
  myProcessor->UpdatePreview(false);
  TellChanged();
  update();
  QAccessibleValueChangeEvent changed(this, value);
  QAccessible::updateAccessibility(&changed);
}

void EffectStackEditor::MoveSelection(int by) {
  // What is held belongs to the row that was selected.
  if (mouseStatus_ == kOnControl) EndGesture();
  const int row = std::clamp(selected_ + by, 0, myProcessor->Count());
  selected_ = row;
  focusedControl_ = -1;
  RecalibrateScrollBar();
  ScrollToRow(row);
  myProcessor->SelectEffect(row);
  // The marks of the newly selected effect belong on the photo.
  if (myProcessor->myDisplay != nullptr) myProcessor->myDisplay->Update(false);
  NotifyFocus();
}

bool EffectStackEditor::ControlKey(int key, bool fast) {
  effectModule* module = Selected();
  if (module == nullptr || focusedControl_ < 0) return false;
  const int type = module->Control(focusedControl_).Type;
  const int value = module->ControlValue(focusedControl_).ToInt();
  const int step = fast ? kFast : 1;
  if (type == kControlSlider) {
    switch (key) {
      case Qt::Key_Left:
        SetSlider(focusedControl_, value - step);
        return true;
      case Qt::Key_Right:
        SetSlider(focusedControl_, value + step);
        return true;
      case Qt::Key_Home:
        SetSlider(focusedControl_, 0);
        return true;
      case Qt::Key_End:
        SetSlider(focusedControl_, 100);
        return true;
      default:
        return false;
    }
  }
  if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Space) return false;
  EnableRow(selected_);
  if (type == kControlMenu) {
    PopUpControlMenu(focusedControl_);
  } else {
    Activate(focusedControl_);
  }
  return true;
}

void EffectStackEditor::keyPressEvent(QKeyEvent* event) {
  if (myProcessor == nullptr) return QWidget::keyPressEvent(event);
  const bool control = event->modifiers().testFlag(Qt::ControlModifier);
  const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
  if (!control && ControlKey(event->key(), shift)) return update();
  switch (event->key()) {
    case Qt::Key_Up:
      if (control) {
        if (selected_ > 0) MoveRow(selected_ - 1);
      } else {
        MoveSelection(-1);
      }
      break;
    case Qt::Key_Down:
      if (control) {
        if (selected_ >= 0 && selected_ < myProcessor->Count()) MoveRow(selected_ + 1);
      } else {
        MoveSelection(1);
      }
      break;
    case Qt::Key_Space: {
      effectModule* module = Selected();
      if (module == nullptr || IsDivider(selected_) || !module->Complete()) break;
      if (itemEnabledChanged) itemEnabledChanged(*module);
      module->Enabled(!module->Enabled());
      myProcessor->UpdatePreview(true);
      TellChanged();
      break;
    }
    case Qt::Key_Delete:
      if (ControlsOf(selected_) > 0) {
        if (ItemValueChanged) ItemValueChanged(*Selected());
        ResetRow();
      }
      break;
    default:
      return QWidget::keyPressEvent(event);
  }
  update();
}

QString EffectStackEditor::TipAt(const QPoint& at) const {
  for (int control = 0; control < ControlsOf(selected_); ++control) {
    const QRect rect = ControlRect(control);
    if (at.y() < rect.top() || at.y() > rect.bottom() || at.x() >= rect.left()) continue;
    // The caption of a check box stands to its right and is never cut.
    if (Selected()->Control(control).Type == kControlCheckBox) return {};
    const QString caption = ToQString(Selected()->Control(control).Caption);
    // Only what is cut is worth telling again.
    return fontMetrics().horizontalAdvance(caption) > CaptionWidth() ? caption : QString();
  }
  return {};
}

bool EffectStackEditor::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<const QHelpEvent*>(event);
    const QString tip = TipAt(help->pos());
    if (tip.isEmpty()) {
      QToolTip::hideText();
    } else {
      QToolTip::showText(help->globalPos(), tip, this);
    }
    return true;
  }
  if (event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<const QKeyEvent*>(event);
    const bool back = key->key() == Qt::Key_Backtab;
    if ((key->key() == Qt::Key_Tab || back) && Selected() != nullptr) {
      const int next = focusedControl_ + (back ? -1 : 1);
      // Past either end the focus leaves the panel.
      if (next >= -1 && next < ControlsOf(selected_)) {
        focusedControl_ = next;
        update();
        NotifyFocus();
        return true;
      }
      focusedControl_ = -1;
    }
  }
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) update();
  if (event->type() == QEvent::EnabledChange || event->type() == QEvent::PaletteChange) update();
  return QWidget::event(event);
}

void EffectStackEditor::leaveEvent(QEvent*) {
  hoverRow_ = -1;
  update();
}

void EffectStackEditor::resizeEvent(QResizeEvent*) {
  if (height() != lastHeight_) RecalibrateScrollBar();
}

void EffectStackEditor::NotifyFocus() {
  QAccessibleEvent focused(this, QAccessible::Focus);
  if (selected_ >= 0) focused.setChild(selected_);
  QAccessible::updateAccessibility(&focused);
}

}  // namespace brivolant
