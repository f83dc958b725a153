// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPixmap>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "browser/FilePreview.h"
#include "kit/ifkWindow.h"
#include "platform/pictures/Picture.h"
#include "platform/services/Preferences.h"
#include "platform/values/Text.h"

class QNativeGestureEvent;

namespace brivolant {

/// One thing to look at: a file, or a picture that is there already.
struct QuickLookItem {
  FolderItem File;
  std::string Title;
  Picture Shown;
  /// Stands for a file that holds no picture; may be empty.
  std::function<QPixmap(int size, double ratio)> Icon;
  /// What is on show until the file is read; may be null.
  QImage Thumbnail;
};

/// Shows what is selected large, without opening it: in a dark floating window, or on the whole
/// screen. Arrow keys go to the next one; the wheel, two fingers and keys zoom and pan.
class QuickLookWindow final : public ifkWindow {
 public:
  static constexpr LocalizedText kFullScreen{"QuickLookWindow.kFullScreen", "Full Screen"};
  static constexpr LocalizedText kExitFullScreen{"QuickLookWindow.kExitFullScreen",
                                                 "Exit Full Screen"};
  static constexpr LocalizedText kClose{"QuickLookWindow.kClose", "Close"};
  static constexpr LocalizedText kPosition{"QuickLookWindow.kPosition", "<x> of <t>"};
  static constexpr const char* kDimensionsKey = "QuickLookWindow.Dimensions";

  QuickLookWindow(std::shared_ptr<const FilePreviewer> previewer, Preferences& preferences,
                  QuickLookWindow* parent = nullptr);
  ~QuickLookWindow() override;

  /// Shows the first of the items; what was shown before is gone.
  void DisplayItems(std::vector<QuickLookItem> items, bool fullScreen);
  /// The same without coming to the front.
  void Replace(std::vector<QuickLookItem> items);
  /// Shows a picture on the whole screen.
  void DisplayPicture(const Picture& picture, const std::string& title);
  void RemoveAllItems();
  /// On: a second window that covers the screen. Off: back from it.
  void FullScreenMode(bool on);
  bool isFullScreenMode() const { return isFullScreenMode_; }
  /// Index into the items; -1 for none.
  int CurrentImage() const { return currentImage_; }
  const std::vector<QuickLookItem>& items() const { return items_; }
  /// The window that covers the screen for this one, or null.
  QuickLookWindow* FullScreenWindow() { return fullScreen_.get(); }
  /// For a window that covers the screen: the one it came from.
  QuickLookWindow* Parent() const { return parent_; }
  bool Loading() const { return loader_.Loading(); }

  QRect iconFullScreenLocation() const;
  QRect iconCloseLocation() const;
  /// Where the picture is drawn, in units of the window.
  QRectF PictureRect() const;
  /// 1 is the whole picture in the window.
  double Zoom() const { return zoom_; }
  void Zoom(double zoom, const QPointF& about);
  /// Goes on by `delta` items; at an end, or with one item alone, Step is asked.
  void Go(int delta);

  /// Asked for the item before (-1) or behind (1) a single one; false if there is none.
  std::function<bool(int delta)> Step;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool event(QEvent* event) override;

 private:
  bool HasPicture() const { return !image_.isNull(); }
  QSizeF ItemSize() const;
  void ShowCurrent();
  void Take(const FilePreview& preview);
  void LoadEnough();
  void PaintPanel(QPainter& painter);
  void PaintPicture(QPainter& painter);
  void PaintIcons(QPainter& painter);
  void Pan(const QPointF& by);
  bool ZoomKey(int key);
  bool PanKey(int key);
  void CloseAll();
  void Wake();

  PreviewLoader loader_;
  Preferences& preferences_;
  QuickLookWindow* parent_;
  std::unique_ptr<QuickLookWindow> fullScreen_;
  std::vector<QuickLookItem> items_;
  int currentImage_ = -1;
  bool isFullScreenMode_ = false;
  QImage image_;
  /// No larger than a screen needs; the same, or less than all pixels.
  QImage fit_;
  /// Longest side that was asked for.
  int loadedSide_ = 0;
  /// There is no more in the file than what is here.
  bool whole_ = false;
  /// The picture at the size it was last painted.
  QImage scaled_;
  double zoom_ = 1;
  /// Of the picture's middle from the area's.
  QPointF pan_;
  QPointF lastDrag_;
  bool panning_ = false;
  /// On the whole screen, icons and pointer go while nothing is done with the mouse.
  QTimer rest_;
  bool resting_ = false;
};

}  // namespace brivolant
