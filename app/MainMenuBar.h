// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>
#include <map>
#include <string>

class QAction;
class QMainWindow;
class QMenu;

namespace brivolant {

/// The menu bar of the main window, built from the table of menus.
class MainMenuBar {
 public:
  /// Fills the window's menu bar; `action` is called with the name of the chosen item.
  MainMenuBar(QMainWindow& window, std::function<void(const std::string& name)> action);

  /// The item or submenu of that name; there must be one.
  QAction& Item(const std::string& name) const;
  QMenu& Submenu(const std::string& name) const;
  bool Has(const std::string& name) const { return items_.contains(name); }
  /// Disables every item that is not always enabled.
  void DisableAll();
  /// The names of all items.
  const std::map<std::string, QAction*>& Items() const { return items_; }

  /// Raised before a menu opens: states may have changed.
  std::function<void()> EnableMenuItems;

 private:
  std::function<void(const std::string&)> action_;
  std::map<std::string, QAction*> items_;
  std::map<std::string, QMenu*> menus_;
  std::map<std::string, bool> autoEnabled_;
  friend struct MenuBuilder;
};

}  // namespace brivolant
