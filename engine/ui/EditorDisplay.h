// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QWidget>
#include <functional>
#include <memory>
#include <tuple>

#include "engine/EditorInterfaces.h"
#include "engine/PhotoView.h"
#include "platform/pictures/Picture.h"
#include "platform/values/Variant.h"

namespace brivolant {

class TextEditing;
class brivolantProcessorLite;
class effectModule;
struct DragItem;

/// Shows the processor's preview on a dark gradient, centred and scaled to fit or enlarged, with
/// the picture before the effects beside it when that is asked for. Mouse and keys on the image
/// reach the selected effect as fractions of the drawn image, whatever the window's size and the
/// scale. The wheel, two fingers, and a drag with the middle button or the space bar move what is
/// shown.
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
  QRect PreviewRect() const { return view_.Photo(); }
  /// Where the picture before the effects was drawn; empty when it is not shown.
  QRect BeforeRect() const { return view_.Before(); }
  /// What is on show, in pixels of the screen; as long as nothing is painted.
  const QImage& Buffer();
  /// A position of the widget as fractions of the drawn image.
  QPointF FractionsAt(const QPointF& position) const;

  /// Shows this picture in place of the preview, until a nil one comes. Nothing else changes.
  void ShowInstead(const Picture& picture);

  // Scale and part of the photo.

  const PhotoView& View() const { return view_; }
  /// A change of the view by one of its operations, such as `ZoomTo(1)`.
  void Look(const std::function<void(PhotoView&)>& change);
  /// The finished photo at its full size, as the present preview shows it, and the same before the
  /// effects, which may be nil. They are shown sharply in place of scaled previews, until another
  /// preview is rendered.
  void ShowFull(const Picture& after, const Picture& before);
  /// The view is another one, or whether the display is in view at all.
  std::function<void()> ViewChanged;

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
  void keyReleaseEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void DrawPictures(bool full);
  void LayOut(const Picture& preview);
  /// The picture before the effects as it is shown beside an enlarged photo, or beside a fitted
  /// one.
  Picture BeforeShown();
  /// What is to be seen of a picture that takes `whole`.
  void DrawPart(QPainter& painter, const Picture& picture, const QRect& whole, const QRect& area,
                bool sharp, bool marks);
  /// The full picture is that of this preview.
  bool ShowsFull(const Picture& preview) const;
  void TellView();
  /// Draws nothing but the rim of a photo that lies exactly where the one before lay.
  bool TakeNewer(QPainter& painter, const Picture& photo);
  /// What of the widget is painted from the newer photo.
  QRect NewerPart() const;
  bool GestureEvent(QEvent* event);
  void EndPan();
  /// Arrows move an enlarged photo.
  bool PanKey(const QKeyEvent& event);
  QPointF OnScreen(const QPointF& position) const { return position * devicePixelRatioF(); }
  void CursorFor(int pointerState);
  /// The selected module if text is edited in it now.
  TextEditing* Editing() const;
  bool EditCommand(const QKeyEvent& event);
  /// False if the selected module does not take the key.
  bool Type(const std::string& key);
  void RenderOrShow();
  /// Makes the buffer as large as the display. False without memory, or if nothing is to be seen.
  bool TakeRoom();

  PhotoView view_;
  /// Told with ViewChanged the last time.
  std::tuple<bool, double, bool, bool> told_;
  bool shown_ = false;
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
  /// What the buffer lies in, and its bytes.
  std::unique_ptr<uchar[]> memory_;
  std::size_t room_ = 0;
  QImage buffer_;
  /// Where the buffer has the photo's frame.
  QRect framed_;
  /// A newer photo than the buffer's within the frame, to be painted from its own pixels: a large
  /// window is not copied twice for each step of a slider.
  Picture newer_;
  Picture instead_;
  // The photo at its full size, and the preview that shows the same.
  Picture full_;
  Picture fullBefore_;
  Picture fullOf_;
  /// The space bar is down: the left button moves the photo.
  bool hand_ = false;
  Qt::MouseButton panning_ = Qt::NoButton;
  QPointF panAt_;
  // The picture before the effects at the size at which it is shown.
  Picture beforeSource_;
  Picture beforeShown_;
};

/// The name that a key has for effect modules: its text, or "Left", "Return", "Escape" and the
/// like, with "Shift+" and "Ctrl+" before the names of keys without a text.
std::string KeyName(const QKeyEvent& event);

}  // namespace brivolant
