// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QWidget>
#include <functional>
#include <memory>

#include "engine/EditorInterfaces.h"
#include "platform/values/Text.h"
#include "platform/values/Variant.h"

class QPainter;
class QScrollBar;

namespace brivolant {

class brivolantProcessorLite;

/// The list of the effects of one stack, drawn by hand: a row a module, and the selected module's
/// controls unfolded inside the list. Mouse, keys and assistive tools reach every row and control.
///
/// Keys: Up and Down walk through the rows, Space switches the row's effect on and off, Tab walks
/// through the controls of the selected row, Left and Right change a slider (ten times as much
/// with Shift), Home and End set it to its ends, Return or Space act on the other controls,
/// Ctrl+Up and Ctrl+Down move the row, Delete resets it.
class EffectStackEditor final : public QWidget, public EffectPanel {
 public:
  static constexpr LocalizedText kReset{"EffectStackEditor.kReset", "Reset"};
  static constexpr LocalizedText kLabel{"EffectStackEditor.kLabel", "Effects"};
  static constexpr int kRow = 20;

  enum MouseStatus { kIdle = 0, kDraggingRow = 1, kOnControl = 2, kOnReset = 3 };

  explicit EffectStackEditor(QWidget* parent = nullptr);
  ~EffectStackEditor() override;

  brivolantProcessorLite* myProcessor = nullptr;
  QScrollBar* myScrollBar = nullptr;

  // EffectPanel.
  void AboutToChange(effectModule& module) override;
  void selectedEffect(int index) override;
  void Update() override;
  void Invalidate() override { update(); }

  int selectedEffect() const { return selected_; }
  /// Index of the control under the press; -1 for none.
  int selectedControl() const { return selectedControl_; }
  /// Index of the control that the keys act on; -1 for the row itself.
  int focusedControl() const { return focusedControl_; }
  int mouseStatus() const { return mouseStatus_; }

  /// The row at a height of the canvas, or -1.
  int rowAtXY(int x, int y) const;
  void RecalibrateScrollBar();
  /// Set by the scroll bar.
  void yOffset(int offset);
  int yOffset() const { return yOffset_; }

  // Geometry, in canvas coordinates.
  int ControlLeft() const { return width() / 3 + 10; }
  static constexpr int ControlWidth() { return 140; }
  /// What there is for a caption beside its control; a longer one is cut.
  int CaptionWidth() const { return ControlLeft() - 14; }
  /// What a tool tip says at a place; empty for nothing.
  QString TipAt(const QPoint& at) const;
  int ResetButtonLeft() const { return width() - 55; }
  /// A row with its unfolded controls, and the line of one control of the selected row.
  QRect RowRect(int row) const;
  QRect ControlRect(int control) const;
  /// Switches a row on or off as its check box does.
  void ToggleRow(int row, bool select);
  void SelectRow(int row);
  /// Acts on a control of the selected row as a click on it does.
  void Activate(int control);
  /// Sets a slider of the selected row, 0 to 100, as one change that can be undone.
  void SetSlider(int control, int value);
  /// Moves the selected row, as dragging it does.
  void MoveRow(int target);
  void ResetRow();
  /// Ends what the mouse is drawing, as letting go of it does.
  void EndGesture();

  /// Steps by keys on one control with less rest between them, in milliseconds, are one change.
  qint64 OneChange = 1000;

  /// The appearance of the stack changed.
  std::function<void()> Changed;
  /// Raised before the change is made.
  std::function<void(effectModule&, int from, int to)> ItemMoved;
  std::function<void(effectModule&)> ItemValueChanged;
  std::function<void(effectModule&)> itemEnabledChanged;
  std::function<void(int control)> ColorWellClicked;
  /// What is kept for as long as an event loop of a menu or a dialog runs; nothing then replaces
  /// the modules. May give null.
  std::function<std::shared_ptr<void>()> Holding;
  /// Is this well the one that the colour panel is bound to?
  std::function<bool(int control)> SelectedColorWell;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void leaveEvent(QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  effectModule* Selected() const;
  effectModule* At(int row) const;
  bool IsDivider(int row) const;
  int ControlsOf(int row) const;
  int Offset() const;
  int HeightOf(int row) const;

  // EffectStackDrawing.cpp
  void DrawAll(QPainter& painter);
  void DrawRow(QPainter& painter, int row, int top);
  void DrawSelected(QPainter& painter);
  void DrawControl(QPainter& painter, int control, int top);
  void drawSlider(QPainter& painter, const QRect& rect, double value, double mark, bool pressed,
                  bool focused) const;
  void drawCheckBox(QPainter& painter, const QRect& rect, bool value, bool pressed) const;
  void drawColorWell(QPainter& painter, const QRect& rect, const QColor& color,
                     bool selected) const;
  void drawMenu(QPainter& painter, const QRect& rect, const QString& text, bool pressed) const;
  void drawWhiteButton(QPainter& painter, const QRect& rect, const QString& text,
                       bool pressed) const;

  void EnableRow(int row);
  void PressOnSelected(const QPoint& at);
  void PressOnControl(int control);
  void PopUpControlMenu(int control);
  void DragSlider(int x);
  void ScrollToRow(int row);
  void TellChanged();
  /// The same if the module is not as it was.
  void TellIfChanged(const effectModule& module, const Dictionary& before);
  /// Of the module whose slider is dragged, when the drag began.
  Dictionary beforeSlide_;
  void RecordKeyStep(effectModule& module, int control);
  void MoveSelection(int by);
  bool ControlKey(int key, bool fast);
  void NotifyFocus();

  int selected_ = -1;
  int lastX_ = 0;
  int lastY_ = 0;
  int mouseStatus_ = kIdle;
  int selectedControl_ = -1;
  int focusedControl_ = -1;
  int hoverRow_ = -1;
  int selRowTop_ = 0;
  int selRowHeight_ = 0;
  int yOffset_ = 0;
  int lastHeight_ = 0;
  QImage Buffer;
  QElapsedTimer keyTimer_;
  const effectModule* keyModule_ = nullptr;
  int keyControl_ = -1;
};

/// Makes the panel's rows and controls known to assistive tools; called once.
void InstallEffectStackAccessibility();

}  // namespace brivolant
