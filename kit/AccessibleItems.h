// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QRect>
#include <QString>

class QWidget;

namespace brivolant {

/// What assistive tools are told of one item of a control that paints its items itself.
struct AccessibleItem {
  QString Name;
  QString Description;
  /// In the control's coordinates; may lie outside of what is in view.
  QRect Place;
  QAccessible::Role Role = QAccessible::ListItem;
  bool Selectable = true;
  bool Selected = false;
  bool Checkable = false;
  bool Checked = false;
};

/// A control that paints its items itself. Items are asked for anew each time, since they come and
/// go; no more than those that are asked for exist for assistive tools.
class AccessibleItems {
 public:
  virtual ~AccessibleItems() = default;
  virtual QAccessible::Role AccessibleRole() const { return QAccessible::List; }
  virtual int AccessibleCount() const = 0;
  /// `index` is in range.
  virtual AccessibleItem AccessibleAt(int index) const = 0;
  /// Acts as a click on the item does.
  virtual void PressAccessible(int index) = 0;
  /// The item at a place of the control, or -1.
  virtual int AccessibleIndexAt(const QPoint& at) const;
};

/// Tells assistive tools of the items of all such controls; once.
void InstallAccessibleItems();
/// Tells them which item the keys are on now.
void TellAccessibleFocus(QWidget& control, int index);

}  // namespace brivolant
