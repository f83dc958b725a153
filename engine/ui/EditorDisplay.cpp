// SPDX-License-Identifier: MIT
#include "engine/ui/EditorDisplay.h"

#include <QDropEvent>
#include <QGestureEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QTimer>
#include <algorithm>
#include <cmath>

#include "engine/brivolantProcessorLite.h"
#include "kit/DesktopServices.h"

namespace brivolant {
namespace {

Qt::CursorShape ShapeOf(MouseCursor cursor) {
  switch (cursor) {
    case MouseCursor::kOpenHand:
      return Qt::OpenHandCursor;
    case MouseCursor::kClosedHand:
      return Qt::ClosedHandCursor;
    case MouseCursor::kIBeam:
      return Qt::IBeamCursor;
    case MouseCursor::kFallingArrow:
      return Qt::SizeFDiagCursor;
    case MouseCursor::kRisingArrow:
      return Qt::SizeBDiagCursor;
    default:
      return Qt::ArrowCursor;
  }
}

}  // namespace

EditorDisplay::EditorDisplay(QWidget* parent) : QWidget(parent), blink_(new QTimer(this)) {
  constexpr int kBlinkStep = 200;
  blink_->setInterval(kBlinkStep);
  connect(blink_, &QTimer::timeout, this, [this] {
    if (Editing() != nullptr) Update(false);
  });
  setAttribute(Qt::WA_InputMethodEnabled);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAcceptDrops(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  grabGesture(Qt::PinchGesture);
}

QPointF EditorDisplay::FractionsAt(const QPointF& position) const {
  return view_.FractionsAt(OnScreen(position));
}

void EditorDisplay::ShowCursor(MouseCursor cursor) {
  setCursor(ShapeOf(cursor));
}

void EditorDisplay::CursorFor(int pointerState) {
  effectModule* module = myProcessor == nullptr ? nullptr : myProcessor->SelectedEffect();
  ShowCursor(module == nullptr ? MouseCursor::kNone : module->MouseCursor(pointerState));
}

TextEditing* EditorDisplay::Editing() const {
  effectModule* module = myProcessor == nullptr ? nullptr : myProcessor->SelectedEffect();
  TextEditing* text = module == nullptr ? nullptr : module->AsTextEditing();
  return text != nullptr && text->Editing() ? text : nullptr;
}

void EditorDisplay::RenderOrShow() {
  if (LiveDragging) {
    myProcessor->UpdatePreview(false);
  } else {
    Update(true);
  }
}

void EditorDisplay::mousePressEvent(QMouseEvent* event) {
  setFocus();
  const bool hand = hand_ && event->button() == Qt::LeftButton;
  if (!dragging_ && panning_ == Qt::NoButton && (hand || event->button() == Qt::MiddleButton)) {
    panning_ = event->button();
    panAt_ = event->position();
    return ShowCursor(MouseCursor::kClosedHand);
  }
  const QPointF at = FractionsAt(event->position());
  effectModule* module = myProcessor == nullptr ? nullptr : myProcessor->SelectedEffect();
  const bool inside = view_.Shows(OnScreen(event->position()));
  if (!inside || panning_ != Qt::NoButton || module == nullptr || event->button() != Qt::LeftButton)
    return event->ignore();
  LiveDragging = false;
  beforeDrag_ = module->Settings();
  draggedTo_ = at;
  dragging_ =
      module->MouseDown(static_cast<float>(at.x()), static_cast<float>(at.y()), LiveDragging);
  CursorFor(kPointerDown);
  if (dragging_) RenderOrShow();
}

void EditorDisplay::mouseMoveEvent(QMouseEvent* event) {
  if (panning_ != Qt::NoButton) {
    const QPointF by = OnScreen(event->position() - std::exchange(panAt_, event->position()));
    return Look([&](PhotoView& view) { view.Pan(by); });
  }
  effectModule* module = myProcessor == nullptr ? nullptr : myProcessor->SelectedEffect();
  if (module == nullptr) return;
  QPointF at = FractionsAt(event->position());
  if (!dragging_) {
    module->fireMouseMove(static_cast<float>(at.x()), static_cast<float>(at.y()));
    return;
  }
  at = {std::clamp(at.x(), 0.0, 1.0), std::clamp(at.y(), 0.0, 1.0)};
  draggedTo_ = at;
  module->MouseDrag(static_cast<float>(at.x()), static_cast<float>(at.y()));
  RenderOrShow();
}

void EditorDisplay::mouseReleaseEvent(QMouseEvent* event) {
  if (panning_ != Qt::NoButton && event->button() == panning_) return EndPan();
  if (event->button() != Qt::LeftButton) return;
  const QPointF at = FractionsAt(event->position());
  draggedTo_ = {std::clamp(at.x(), 0.0, 1.0), std::clamp(at.y(), 0.0, 1.0)};
  EndGesture();
}

void EditorDisplay::EndGesture() {
  if (!dragging_) return;
  dragging_ = false;
  effectModule* module = myProcessor == nullptr ? nullptr : myProcessor->SelectedEffect();
  if (module == nullptr) return;
  CursorFor(kPointerUp);
  module->MouseUp(static_cast<float>(draggedTo_.x()), static_cast<float>(draggedTo_.y()));
  const bool changed = !(module->Settings() == beforeDrag_);
  if (changed && Changed) Changed(*module, &beforeDrag_);
  myProcessor->UpdatePreview(false);
  Update(true);
}

void EditorDisplay::EndPan() {
  panning_ = Qt::NoButton;
  if (hand_) return ShowCursor(MouseCursor::kOpenHand);
  CursorFor(kPointerEntered);
}

void EditorDisplay::wheelEvent(QWheelEvent* event) {
  effectModule* module = myProcessor == nullptr ? nullptr : myProcessor->SelectedEffect();
  const QPoint at = event->position().toPoint();
  const QPoint delta = event->angleDelta();
  event->accept();
  if (module != nullptr && module->fireMouseWheel(at.x(), at.y(), delta.x(), delta.y())) return;
  // Two fingers move what is shown, as everywhere; a wheel of a mouse has no phases.
  const bool fingers = event->deviceType() == QInputDevice::DeviceType::TouchPad ||
                       event->phase() != Qt::NoScrollPhase;
  const bool shifted = event->modifiers().testFlag(Qt::ShiftModifier);
  if (!event->modifiers().testFlag(Qt::ControlModifier) && !view_.Fits() && (fingers || shifted)) {
    QPointF by = event->pixelDelta().isNull() ? QPointF(delta) / 2 : QPointF(event->pixelDelta());
    if (shifted && by.x() == 0) by = {by.y(), 0};
    return Look([&](PhotoView& view) { view.Pan(OnScreen(by)); });
  }
  if (delta.y() == 0) return;
  constexpr double kNotch = 120;
  constexpr double kStep = 1.25;
  const double factor = std::pow(kStep, delta.y() / kNotch);
  Look([&](PhotoView& view) { view.ZoomBy(factor, OnScreen(event->position())); });
}

bool EditorDisplay::GestureEvent(QEvent* event) {
  const auto pinch = [&](double factor, const QPointF& at) {
    Look([&](PhotoView& view) { view.ZoomBy(factor, OnScreen(at)); });
    return true;
  };
  if (event->type() == QEvent::NativeGesture) {
    const auto& gesture = *static_cast<QNativeGestureEvent*>(event);
    switch (gesture.gestureType()) {
      case Qt::ZoomNativeGesture:
        return pinch(1 + gesture.value(), gesture.position());
      case Qt::PanNativeGesture:
        Look([&](PhotoView& view) { view.Pan(OnScreen(gesture.delta())); });
        return true;
      default:
        return false;
    }
  }
  if (event->type() != QEvent::Gesture) return false;
  const auto* gesture =
      static_cast<QPinchGesture*>(static_cast<QGestureEvent*>(event)->gesture(Qt::PinchGesture));
  if (gesture == nullptr) return false;
  // The fingers hold the photo: it goes where they go.
  const QPointF at = mapFromGlobal(gesture->centerPoint());
  if (gesture->state() == Qt::GestureUpdated) {
    const QPointF by = gesture->centerPoint() - gesture->lastCenterPoint();
    Look([&](PhotoView& view) { view.Pan(OnScreen(by)); });
  }
  return pinch(gesture->scaleFactor(), at);
}

std::string KeyName(const QKeyEvent& event) {
  struct Named {
    int key;
    const char* name;
  };
  constexpr Named kNamed[] = {
      {Qt::Key_Left, "Left"},           {Qt::Key_Right, "Right"},   {Qt::Key_Up, "Up"},
      {Qt::Key_Down, "Down"},           {Qt::Key_Return, "Return"}, {Qt::Key_Enter, "Return"},
      {Qt::Key_Escape, "Escape"},       {Qt::Key_Home, "Home"},     {Qt::Key_End, "End"},
      {Qt::Key_Backspace, "Backspace"}, {Qt::Key_Delete, "Delete"}, {Qt::Key_PageUp, "PageUp"},
      {Qt::Key_PageDown, "PageDown"}};
  for (const Named& named : kNamed) {
    if (event.key() != named.key) continue;
    std::string name = named.name;
    if (event.modifiers().testFlag(Qt::ShiftModifier)) name.insert(0, "Shift+");
    if (event.modifiers().testFlag(Qt::ControlModifier)) name.insert(0, "Ctrl+");
    return name;
  }
  return event.text().toStdString();
}

bool EditorDisplay::EditCommand(const QKeyEvent& event) {
  TextEditing* text = Editing();
  if (text == nullptr) return false;
  if (event.matches(QKeySequence::Copy)) {
    text->Copy();
  } else if (event.matches(QKeySequence::Cut)) {
    text->Cut();
  } else if (event.matches(QKeySequence::Paste)) {
    text->Paste();
  } else if (event.matches(QKeySequence::SelectAll)) {
    text->SelectAll();
  } else {
    return false;
  }
  if (event.matches(QKeySequence::Cut) || event.matches(QKeySequence::Paste)) {
    if (Changed) Changed(*myProcessor->SelectedEffect(), nullptr);
    myProcessor->UpdatePreview(false);
  } else {
    Update(false);
  }
  return true;
}

bool EditorDisplay::event(QEvent* event) {
  // While text is edited its keys are not those of the menus.
  if (event->type() == QEvent::ShortcutOverride && Editing() != nullptr) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
    const bool typed = !(modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) &&
                       key.key() != Qt::Key_Tab && key.key() < Qt::Key_F1;
    const bool command = key.matches(QKeySequence::Copy) || key.matches(QKeySequence::Cut) ||
                         key.matches(QKeySequence::Paste) || key.matches(QKeySequence::SelectAll) ||
                         key.matches(QKeySequence::MoveToNextWord) ||
                         key.matches(QKeySequence::MoveToPreviousWord) ||
                         key.matches(QKeySequence::SelectNextWord) ||
                         key.matches(QKeySequence::SelectPreviousWord);
    if (typed || command) {
      event->accept();
      return true;
    }
  }
  return GestureEvent(event) || QWidget::event(event);
}

bool EditorDisplay::Type(const std::string& key) {
  if (myProcessor == nullptr || myProcessor->SelectedEffect() == nullptr) return false;
  bool render = false;
  effectModule& module = *myProcessor->SelectedEffect();
  if (!module.keyPressed(key, render)) return false;
  LiveDragging = render;
  if (render && Changed) Changed(module, nullptr);
  RenderOrShow();
  return true;
}

void EditorDisplay::inputMethodEvent(QInputMethodEvent* event) {
  // Accents, input methods and emoji pickers commit whole texts.
  if (Editing() != nullptr && !event->commitString().isEmpty()) {
    (void)Type(event->commitString().toStdString());
  }
  event->accept();
}

QVariant EditorDisplay::inputMethodQuery(Qt::InputMethodQuery query) const {
  if (query == Qt::ImEnabled) return Editing() != nullptr;
  return QWidget::inputMethodQuery(query);
}

void EditorDisplay::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  blink_->start();
}

void EditorDisplay::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  blink_->stop();
  hand_ = false;
  if (panning_ != Qt::NoButton) EndPan();
}

void EditorDisplay::keyPressEvent(QKeyEvent* event) {
  if (EditCommand(*event)) return;
  const bool space = event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier;
  // Held down, the bar repeats itself.
  if (space && hand_) return;
  const std::string key = KeyName(*event);
  if (!key.empty() && Type(key)) return;
  if (PanKey(*event)) return;
  if (!space) return QWidget::keyPressEvent(event);
  hand_ = true;
  if (panning_ == Qt::NoButton) ShowCursor(MouseCursor::kOpenHand);
}

bool EditorDisplay::PanKey(const QKeyEvent& event) {
  constexpr double kStep = 64;
  QPointF by;
  if (event.key() == Qt::Key_Left) by = {kStep, 0};
  if (event.key() == Qt::Key_Right) by = {-kStep, 0};
  if (event.key() == Qt::Key_Up) by = {0, kStep};
  if (event.key() == Qt::Key_Down) by = {0, -kStep};
  const bool plain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (by.isNull() || !plain || view_.Fits()) return false;
  Look([&](PhotoView& view) { view.Pan(OnScreen(by)); });
  return true;
}

void EditorDisplay::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Space || !hand_) return QWidget::keyReleaseEvent(event);
  if (event->isAutoRepeat()) return;
  hand_ = false;
  if (panning_ == Qt::NoButton) CursorFor(kPointerEntered);
}

void EditorDisplay::enterEvent(QEnterEvent*) {
  CursorFor(kPointerEntered);
  if (myProcessor != nullptr && myProcessor->SelectedEffect() != nullptr) {
    myProcessor->SelectedEffect()->fireMouseEnter();
  }
}

void EditorDisplay::leaveEvent(QEvent*) {
  CursorFor(kPointerLeft);
  if (myProcessor != nullptr && myProcessor->SelectedEffect() != nullptr) {
    myProcessor->SelectedEffect()->fireMouseExit();
  }
}

void EditorDisplay::dragEnterEvent(QDragEnterEvent* event) {
  if (CanTake(*event->mimeData())) AcceptAsCopy(*event);
}

void EditorDisplay::dropEvent(QDropEvent* event) {
  const DragItem item = TakeDrag(*event->mimeData());
  if (item.IsEmpty()) return;
  AcceptAsCopy(*event);
  if (Dropped) Dropped(item);
}

}  // namespace brivolant
