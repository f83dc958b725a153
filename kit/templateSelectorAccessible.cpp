// SPDX-License-Identifier: MIT
// The bar for assistive tools: a list of categories, then of tiles.
#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <map>

#include "kit/InterfaceKitSupport.h"
#include "kit/templateSelector.h"

namespace brivolant {
namespace {

/// Asks the bar anew each time, since tiles come and go.
class Item final : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  Item(templateSelector& bar, int index) : bar_(&bar), index_(index) {}

  bool isValid() const override { return !bar_.isNull() && index_ < Categories() + bar_->Count(); }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(bar_);
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  void setText(QAccessible::Text, const QString&) override {}

  QString text(QAccessible::Text kind) const override {
    if (!isValid()) return {};
    const bool name = kind == QAccessible::Name;
    if (IsCategory()) {
      return name ? ToQString(bar_->Catergory[static_cast<std::size_t>(index_)]) : QString();
    }
    if (kind != QAccessible::Description && !name) return {};
    const TemplateSelectorItem& tile = bar_->Item(Tile());
    return ToQString(name ? tile.Name : tile.Information);
  }
  QRect rect() const override {
    if (!isValid()) return {};
    const QRect local = IsCategory()
                            ? QRect(0, templateSelector::kTop + templateSelector::kRow * index_,
                                    templateSelector::kColumn, templateSelector::kRow)
                            : bar_->TileRect(Tile());
    return {bar_->mapToGlobal(local.topLeft()), local.size()};
  }
  QAccessible::Role role() const override {
    return IsCategory() ? QAccessible::RadioButton : QAccessible::ListItem;
  }
  QAccessible::State state() const override {
    QAccessible::State state;
    if (!isValid()) return state;
    state.disabled = !bar_->isEnabled();
    state.focusable = true;
    state.selectable = !IsCategory();
    state.checkable = IsCategory();
    state.selected = !IsCategory() && Tile() == bar_->SelectedItem;
    state.checked = IsCategory() && index_ == bar_->selectedCategory;
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
  }
  QStringList actionNames() const override { return {pressAction()}; }
  void doAction(const QString& name) override {
    if (!isValid() || name != pressAction()) return;
    if (!IsCategory()) bar_->ScrollTo(Tile());
    const QPoint at = bar_->mapFromGlobal(rect().center());
    bar_->MouseClick(at.x(), at.y());
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  int Categories() const { return static_cast<int>(bar_->Catergory.size()); }
  bool IsCategory() const { return !bar_.isNull() && index_ < Categories(); }
  int Tile() const { return index_ - Categories(); }

  QPointer<templateSelector> bar_;
  int index_;
};

class Bar final : public QAccessibleWidget {
 public:
  explicit Bar(templateSelector* bar) : QAccessibleWidget(bar, QAccessible::List), bar_(bar) {}
  ~Bar() override {
    for (const auto& [index, id] : items_) QAccessible::deleteAccessibleInterface(id);
  }

  int childCount() const override {
    return static_cast<int>(bar_->Catergory.size()) + bar_->Count();
  }
  QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    const auto [known, added] = items_.try_emplace(index, QAccessible::Id());
    if (added) {
      known->second = QAccessible::registerAccessibleInterface(new Item(*bar_, index));
    }
    return QAccessible::accessibleInterface(known->second);
  }
  int indexOfChild(const QAccessibleInterface* item) const override {
    for (int i = 0; i < childCount(); ++i) {
      if (child(i) == item) return i;
    }
    return -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    // The column lies over the tiles.
    for (int i = 0; i < childCount(); ++i) {
      if (child(i)->rect().contains(x, y)) return child(i);
    }
    return nullptr;
  }

 private:
  templateSelector* bar_;
  mutable std::map<int, QAccessible::Id> items_;
};

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
  auto* bar = dynamic_cast<templateSelector*>(object);
  return bar == nullptr ? nullptr : new Bar(bar);
}

}  // namespace

void InstallTemplateSelectorAccessibility() {
  static const bool installed = [] {
    QAccessible::installFactory(MakeInterface);
    return true;
  }();
  (void)installed;
}

}  // namespace brivolant
