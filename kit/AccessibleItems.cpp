// SPDX-License-Identifier: MIT
#include "kit/AccessibleItems.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <QWidget>
#include <map>

namespace brivolant {
namespace {

class Item final : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  Item(QWidget& control, AccessibleItems& items, int index)
      : control_(&control), items_(&items), index_(index) {}

  int Index() const { return index_; }
  bool isValid() const override { return !control_.isNull() && index_ < items_->AccessibleCount(); }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(control_);
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  void setText(QAccessible::Text, const QString&) override {}
  QString text(QAccessible::Text kind) const override {
    if (!isValid()) return {};
    const AccessibleItem item = items_->AccessibleAt(index_);
    return kind == QAccessible::Name          ? item.Name
           : kind == QAccessible::Description ? item.Description
                                              : QString();
  }
  QRect rect() const override {
    if (!isValid()) return {};
    const QRect place = items_->AccessibleAt(index_).Place;
    return {control_->mapToGlobal(place.topLeft()), place.size()};
  }
  QAccessible::Role role() const override {
    return isValid() ? items_->AccessibleAt(index_).Role : QAccessible::NoRole;
  }
  QAccessible::State state() const override {
    QAccessible::State state;
    if (!isValid()) return state;
    const AccessibleItem item = items_->AccessibleAt(index_);
    state.disabled = !control_->isEnabled();
    state.focusable = true;
    state.selectable = item.Selectable;
    state.selected = item.Selected;
    state.checkable = item.Checkable;
    state.checked = item.Checked;
    state.offscreen = !control_->rect().intersects(item.Place);
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
  }
  QStringList actionNames() const override { return {pressAction()}; }
  void doAction(const QString& name) override {
    if (isValid() && name == pressAction()) items_->PressAccessible(index_);
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  QPointer<QWidget> control_;
  AccessibleItems* items_;
  int index_;
};

class Control final : public QAccessibleWidget {
 public:
  Control(QWidget& control, AccessibleItems& items)
      : QAccessibleWidget(&control, items.AccessibleRole()), control_(&control), items_(&items) {}
  ~Control() override {
    for (const auto& [index, id] : made_) QAccessible::deleteAccessibleInterface(id);
  }

  int childCount() const override { return items_->AccessibleCount(); }
  QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    const auto [known, added] = made_.try_emplace(index, QAccessible::Id());
    if (added) {
      known->second = QAccessible::registerAccessibleInterface(new Item(*control_, *items_, index));
    }
    return QAccessible::accessibleInterface(known->second);
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    const auto* item = dynamic_cast<const Item*>(child);
    return item == nullptr ? -1 : item->Index();
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    return child(items_->AccessibleIndexAt(control_->mapFromGlobal(QPoint(x, y))));
  }

 private:
  QWidget* control_;
  AccessibleItems* items_;
  mutable std::map<int, QAccessible::Id> made_;
};

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
  auto* items = dynamic_cast<AccessibleItems*>(object);
  auto* control = qobject_cast<QWidget*>(object);
  return items == nullptr || control == nullptr ? nullptr : new Control(*control, *items);
}

}  // namespace

int AccessibleItems::AccessibleIndexAt(const QPoint& at) const {
  for (int i = 0; i < AccessibleCount(); ++i) {
    if (AccessibleAt(i).Place.contains(at)) return i;
  }
  return -1;
}

void InstallAccessibleItems() {
  static const bool installed = [] {
    QAccessible::installFactory(MakeInterface);
    return true;
  }();
  (void)installed;
}

void TellAccessibleFocus(QWidget& control, int index) {
  if (!QAccessible::isActive() || index < 0) return;
  QAccessibleEvent event(&control, QAccessible::Focus);
  event.setChild(index);
  QAccessible::updateAccessibility(&event);
}

}  // namespace brivolant
