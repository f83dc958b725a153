// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QWidget>
#include <functional>

#include "engine/EditorInterfaces.h"
#include "platform/pictures/Picture.h"
#include "platform/values/Variant.h"

namespace brivolant {

class TextEditing;
class brivolantProcessorLite;
class effectModule;
struct DragItem;

/// Shows the processor's preview on a dark gradient, centred and scaled to fit, with the picture
/// before the effects beside it when that is asked for. Mouse and keys on the image reach the
/// selected effect as fractions of the drawn image, whatever the window's size.
class EditorDisplay final : public QWidget, public PreviewDisplay {
 public:
  explicit EditorDisplay(QWidget* parent = nullptr);

  brivolantProcessorLite* myProcessor = nullptr;
  /// The picture before the effects stands beside the preview. Update shows the change.
  bool ShowBefore = false;

  void ShowCursor(MouseCursor cursor) override;
  void TakeFocus() override { setFocus(); }
  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

  // PreviewDisplay: pixels of the screen.
  int Width() const override;
  int Height() const override;
  double PixelRatio() const override { return devicePixelRatioF(); }
  /// Draws into the buffer; with `full` background and shadows too.
  void Update(bool full) override;

  /// Where the preview was last drawn, in pixels of the screen.
  QRect PreviewRect() const { return {drawX, drawY, drawW, drawH}; }
  /// Where the picture before the effects was drawn; empty when it is not shown.
  QRect BeforeRect() const { return before_; }
  /// What is on show, in pixels of the screen.
  const QImage& Buffer() const { return buffer_; }
  /// A position of the widget as fractions of the drawn image.
  QPointF FractionsAt(const QPointF& position) const;

  /// Shows this picture in place of the preview, until a nil one comes. Nothing else changes.
  void ShowInstead(const Picture& picture);

  /// The size of the widget has changed.
  std::function<void()> Resized;
  /// The selected module was changed on the image: what its settings were before, or null if the
  /// module has told of the change itself.
  std::function<void(effectModule& module, const Dictionary* before)> Changed;
  /// Files or a picture were dropped.
  std::function<void(const DragItem&)> Dropped;
  /// Ends what the mouse is drawing, as letting go of it does.
  void EndGesture();

 protected:
  bool event(QEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void DrawPictures(bool full);
  void CursorFor(int pointerState);
  /// The selected module if text is edited in it now.
  TextEditing* Editing() const;
  bool EditCommand(const QKeyEvent& event);
  /// False if the selected module does not take the key.
  bool Type(const std::string& key);
  void RenderOrShow();
  bool Backdrop();

  int drawX = 0;
  int drawY = 0;
  int drawW = 0;
  int drawH = 0;
  /// Draws the caret anew while text is edited.
  QTimer* blink_;
  bool LiveDragging = false;
  bool dragging_ = false;
  /// Where the drag has come to, in fractions of the photo.
  QPointF draggedTo_;
  /// Of the module that is dragged, when the drag began.
  Dictionary beforeDrag_;
  bool stale_ = true;
  double lastRatio_ = 0;
  QImage buffer_;
  QImage backdrop_;
  QRect before_;
  Picture instead_;
  // The picture before the effects at the size at which it is shown.
  Picture beforeSource_;
  Picture beforeShown_;
};

/// The name that a key has for effect modules: its text, or "Left", "Return", "Escape" and the
/// like, with "Shift+" and "Ctrl+" before the names of keys without a text.
std::string KeyName(const QKeyEvent& event);

}  // namespace brivolant
