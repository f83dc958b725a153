// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <string>

class QAction;
class QMainWindow;
class QMenu;

namespace brivolant {

class Commands;

/// The menu bar of the main window, built from the table of menus and the commands.
class MainMenuBar {
 public:
  /// Fills the window's menu bar.
  MainMenuBar(QMainWindow& window, Commands& commands);

  /// The item or submenu of that name; there must be one.
  QAction& Item(const std::string& name) const;
  QMenu& Submenu(const std::string& name) const;
  bool Has(const std::string& name) const { return items_.contains(name); }
  /// The names of all items.
  const std::map<std::string, QAction*>& Items() const { return items_; }

 private:
  friend struct MenuBuilder;
  std::map<std::string, QAction*> items_;
  std::map<std::string, QMenu*> menus_;
};

}  // namespace brivolant
