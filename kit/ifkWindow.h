// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>
#include <QPixmap>
#include <functional>
#include <string>
#include <vector>

#include "kit/AnimationCore.h"

class QAction;
class QMenu;
class QToolBar;

namespace brivolant {

/// Base of the program's windows: keeps its frame as a string, comes back on screen when its
/// screen has gone, stands in the window menu, and can look like a dark panel that is moved by any
/// part of it.
class ifkWindow : public QMainWindow {
 public:
  enum WindowStyle { kPlain = 0, kDarkPanel = 1, kShaped = 2 };
  /// What stays when SmoothResize changes the size.
  enum Anchor {
    kTopLeft = 0,
    kTopRight = 1,
    kBottomLeft = 2,
    kBottomRight = 3,
    kTopCenter = 4,
    kLeftCenter = 5,
    kBottomCenter = 6,
    kRightCenter = 7,
    kCenter = 8,
  };
  /// What a press on the window does.
  enum MouseStatus { kNone = 0, kContent = 1, kCloseBox = 3, kMoving = 4, kResizing = 5 };

  explicit ifkWindow(QWidget* parent = nullptr, Qt::WindowFlags flags = {});
  ~ifkWindow() override;

  /// Opacity in percent, 0 to 100.
  void Transparency(int percent);
  int Transparency() const;
  void Style(int style);
  int Style() const { return mCustomShape; }
  /// The outline of a window of style kShaped: opaque where it is drawn.
  void CustomShapePicture(const QPixmap& shape);
  bool Shadow() const;
  void Shadow(bool shadow);
  bool TitleBar() const;
  void TitleBar(bool visible);
  bool Modified() const { return isWindowModified(); }
  void Modified(bool modified) { setWindowModified(modified); }
  bool HasToolBar() const { return toolBar_ != nullptr; }
  bool ToolbarVisible() const;
  void ToolbarVisible(bool visible);
  /// Disables the toolbar's items and remembers which were enabled; ActivateToolBar restores them.
  void DeactivateToolBar();
  void ActivateToolBar();

  /// "left top width height", separated by one blank.
  std::string Dimensions() const;
  /// Sets a stored frame. An empty text is ignored; a width or a height counts only strictly
  /// between the window's limits. The window is brought back on screen.
  void Dimensions(const std::string& text);
  /// Index of the screen that holds the greatest part of the window.
  int isOnScreen() const;
  /// Brings a lost window back to the screen's middle, a third of the way down; -1 stands for the
  /// screen that holds it.
  void EnsureIsOnScreen(int screen = -1);
  /// The frame that SmoothResize goes to.
  AnimationCore::AnimationRect ResizedFrame(int width, int height, int anchor) const;
  void SmoothResize(int width, int height, int anchor);

  /// The menu in which windows stand; shared by all, null until the menu bar sets it.
  static void WindowMenu(QMenu* menu);
  static int windowMenuItemCount();
  QAction* myWindowMenuItem() const { return myWindowMenuItem_; }

  /// Raised before the window moves by a press on it; true takes the press.
  std::function<bool(int x, int y)> MouseDown;
  /// Raised after the window has closed.
  std::function<void()> Close;

 protected:
  /// The window's toolbar, if it has one.
  void ToolBar(QToolBar* toolBar) { toolBar_ = toolBar; }
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  /// Hands a drag of the window, or of its corner, to the desktop; false if it does not take it.
  virtual bool StartSystemMove();
  virtual bool StartSystemResize();
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void AddToWindowMenu();
  void RemoveFromWindowMenu();
  void ChangeToBlack();
  void PaintPanel();
  bool Resizable() const { return minimumSize() != maximumSize(); }

  int mCustomShape = kPlain;
  QPixmap mCustomShapePicture;
  int mouseStatus = kNone;
  int customShapeLastMX = 0;
  int customShapeLastMY = 0;
  QToolBar* toolBar_ = nullptr;
  QAction* myWindowMenuItem_ = nullptr;
  std::vector<bool> PreeviousToolBarStates;
};

}  // namespace brivolant
