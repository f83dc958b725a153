// SPDX-License-Identifier: MIT
#include "engine/ui/EditorDisplay.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <algorithm>
#include <cmath>

#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "formats/BrivolantDocument.h"
#include "kit/DesktopServices.h"
#include "kit/InterfaceKitSupport.h"

namespace brivolant {
namespace {

constexpr QRgb kTop = 0xff030303;
constexpr QRgb kBottom = 0xff505160;
constexpr double kBeforeScale = 0.4;
constexpr double kShadowDistance = 5;
constexpr double kShadowBlur = 5;
constexpr int kGap = 20;
constexpr int kSide = 10;

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
}

int EditorDisplay::Width() const {
  return static_cast<int>(std::lround(width() * devicePixelRatioF()));
}
int EditorDisplay::Height() const {
  return static_cast<int>(std::lround(height() * devicePixelRatioF()));
}

bool EditorDisplay::Backdrop() {
  const QSize size(Width(), Height());
  if (size.isEmpty()) return false;
  if (backdrop_.size() == size) return true;
  backdrop_ = QImage(size, QImage::Format_RGB32);
  buffer_ = QImage(size, QImage::Format_RGB32);
  if (backdrop_.isNull() || buffer_.isNull()) return false;
  QPainter painter(&backdrop_);
  InterfaceKitSupport::DrawGradient(painter, backdrop_.rect(), QColor::fromRgb(kTop),
                                    QColor::fromRgb(kBottom), InterfaceKitSupport::kGradientDown);
  return true;
}

void EditorDisplay::Update(bool full) {
  if (!InterfaceKitSupport::Displayable(*this)) {
    stale_ = true;
    return;
  }
  const bool whole = full || stale_ || buffer_.size() != QSize(Width(), Height());
  if (!Backdrop()) return;
  stale_ = false;
  DrawPictures(whole);
  if (whole) {
    update();
    return;
  }
  const double ratio = devicePixelRatioF();
  const auto shown = [ratio](const QRect& r) {
    return QRectF(r.x() / ratio, r.y() / ratio, r.width() / ratio, r.height() / ratio)
        .toAlignedRect()
        .adjusted(-1, -1, 1, 1);
  };
  update(shown(PreviewRect()));
  if (!before_.isEmpty()) update(shown(before_));
}

void EditorDisplay::DrawPictures(bool full) {
  QPainter painter(&buffer_);
  if (full) painter.drawImage(0, 0, backdrop_);
  before_ = {};
  const bool open = myProcessor != nullptr && myProcessor->Document != nullptr;
  Picture preview = instead_;
  if (open && preview.IsNil()) preview = myProcessor->Preview();
  if (!open || preview.IsNil()) {
    drawX = drawY = drawW = drawH = 0;
    return;
  }
  const double ratio = devicePixelRatioF();
  const int margin = static_cast<int>(std::lround(kPreviewMargin * ratio));
  const int w = buffer_.width();
  const int h = buffer_.height();
  double s = 1;
  drawW = preview.Width();
  drawH = preview.Height();
  // A preview made for this size touches the margin in one direction: it is shown pixel by pixel.
  const bool fits =
      (drawW == w - margin && drawH <= h - margin) || (drawH == h - margin && drawW <= w - margin);
  if (!fits) {
    s = 1.0 * (w - margin) / preview.Width();
    if (h - margin < preview.Height() * s) s = 1.0 * (h - margin) / preview.Height();
    drawW = std::max(static_cast<int>(std::lround(preview.Width() * s)), 1);
    drawH = std::max(static_cast<int>(std::lround(preview.Height() * s)), 1);
  }
  const Picture& beforePicture = myProcessor->Document->PreviewBefore;
  const int bw = static_cast<int>(beforePicture.Width() * s * kBeforeScale);
  const int bh = static_cast<int>(beforePicture.Height() * s * kBeforeScale);
  const int gap = static_cast<int>(std::lround(kGap * ratio));
  const int side = static_cast<int>(std::lround(kSide * ratio));
  drawX = (w - drawW) / 2;
  drawY = (h - drawH) / 2;
  if (ShowBefore) drawX = bw + gap < w - drawW ? drawX + bw / 2 + gap : w - (drawW + side);

  const auto show = [&](const Picture& picture, const QRect& place) {
    if (full) {
      InterfaceKitSupport::DrawDropShadow(painter, QRectF(place), 0, kShadowDistance * ratio,
                                          kShadowBlur * ratio);
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform,
                          place.size() != QSize(picture.Width(), picture.Height()));
    painter.drawImage(place, picture.AsImage());
    painter.setPen(Qt::white);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(place.adjusted(0, 0, -1, -1));
  };
  show(preview, PreviewRect());
  if (ShowBefore && !beforePicture.IsNil() && bw > 0 && bh > 0) {
    before_ = {std::max(drawX - (bw + gap), side), (h - bh) / 2, bw, bh};
    if (!beforeSource_.SharesPixelsWith(beforePicture) || beforeShown_.Width() != bw ||
        beforeShown_.Height() != bh) {
      beforeSource_ = beforePicture;
      beforeShown_ =
          SharedPictureEffects::Scale(beforePicture, bw, bh, SharedPictureEffects::kScaleExactly);
    }
    show(beforeShown_, before_);
  }
}

void EditorDisplay::paintEvent(QPaintEvent* event) {
  if (stale_ || buffer_.size() != QSize(Width(), Height())) {
    if (!Backdrop()) return;
    stale_ = false;
    DrawPictures(true);
  }
  QPainter painter(this);
  const double ratio = devicePixelRatioF();
  // On a screen of another density the preview has too few pixels, or too many.
  if (ratio != lastRatio_ && lastRatio_ > 0 && Resized) QTimer::singleShot(0, this, Resized);
  lastRatio_ = ratio;
  for (const QRect& part : event->region()) {
    painter.drawImage(
        QRectF(part), buffer_,
        QRectF(part.x() * ratio, part.y() * ratio, part.width() * ratio, part.height() * ratio));
  }
}

void EditorDisplay::resizeEvent(QResizeEvent*) {
  stale_ = true;
  if (Resized) Resized();
}

void EditorDisplay::ShowInstead(const Picture& picture) {
  if (picture.IsNil() && instead_.IsNil()) return;
  instead_ = picture;
  Update(true);
}

QPointF EditorDisplay::FractionsAt(const QPointF& position) const {
  const double ratio = devicePixelRatioF();
  if (drawW == 0 || drawH == 0) return {-1, -1};
  return {(position.x() * ratio - drawX) / drawW, (position.y() * ratio - drawY) / drawH};
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
  const QPointF at = FractionsAt(event->position());
  effectModule* module = myProcessor == nullptr ? nullptr : myProcessor->SelectedEffect();
  const bool inside = at.x() >= 0 && at.x() <= 1 && at.y() >= 0 && at.y() <= 1;
  if (!inside || module == nullptr || event->button() != Qt::LeftButton) return event->ignore();
  LiveDragging = false;
  beforeDrag_ = module->Settings();
  draggedTo_ = at;
  dragging_ =
      module->MouseDown(static_cast<float>(at.x()), static_cast<float>(at.y()), LiveDragging);
  CursorFor(kPointerDown);
  if (dragging_) RenderOrShow();
}

void EditorDisplay::mouseMoveEvent(QMouseEvent* event) {
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

void EditorDisplay::wheelEvent(QWheelEvent* event) {
  effectModule* module = myProcessor == nullptr ? nullptr : myProcessor->SelectedEffect();
  const QPoint at = event->position().toPoint();
  const QPoint delta = event->angleDelta();
  const bool taken =
      module != nullptr && module->fireMouseWheel(at.x(), at.y(), delta.x(), delta.y());
  event->setAccepted(taken);
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
  return QWidget::event(event);
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
}

void EditorDisplay::keyPressEvent(QKeyEvent* event) {
  if (EditCommand(*event)) return;
  const std::string key = KeyName(*event);
  if (key.empty() || !Type(key)) QWidget::keyPressEvent(event);
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
