// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/commands/Panes.h"
#include "platform/values/Event.h"
#include "platform/values/Text.h"

class QAction;

namespace brivolant {

/// Something that the user can tell the program to do, as one part of the window does it. Where
/// several panes have a command of that name, the pane in view decides.
struct Command {
  /// By which menus, toolbar and tests know it.
  const char* Name;
  const LocalizedText* Text;
  /// The first of several, separated by "; ", is the one that menus show.
  const char* Shortcut = "";
  /// Bits of the panes in which it can be given.
  int Where = kAllPanes;
  std::function<void()> Run{};
  /// Always, if null.
  std::function<bool()> Enabled{};
  /// Null for what has no mark.
  std::function<bool()> Checked{};
  /// In place of Text.
  std::function<std::string()> Caption{};
  /// Also while a crop is drawn, or while long work uses the photo.
  bool WhileCropping = false;
  bool WhileBusy = false;
};

/// All commands. Menus, toolbar, context menus and shortcuts are made of their actions.
class Commands {
 public:
  explicit Commands(const Panes& panes);
  ~Commands();
  Commands(const Commands&) = delete;
  Commands& operator=(const Commands&) = delete;

  void Add(std::vector<Command> commands);
  /// The action of a name; it may be asked for before its command is there.
  QAction& Action(const std::string& name);
  bool Has(const std::string& name) const { return entries_.contains(name); }
  /// Does what the name says; asks first whether it can be done, since what is shown may be a turn
  /// old. False if it cannot.
  bool Run(const std::string& name);
  /// States may have changed: they are asked for at the end of the turn.
  void Changed() { later_.start(); }
  /// Asks for all states now.
  void Refresh();
  /// The same because a menu is about to open: what is costly to find out is asked for too.
  void RefreshForMenu();
  /// True within RefreshForMenu.
  bool MenuOpens() const { return menuOpens_; }

  /// Asked before a command is shown or run.
  std::function<bool()> Cropping;
  std::function<bool()> Busy;
  /// Raised when all states are those of now.
  Event<> Refreshed;

 private:
  struct Entry {
    std::vector<Command> commands;
    std::unique_ptr<QAction> action;
  };
  const Command* InView(const Entry& entry) const;
  bool CanRun(const Command& command) const;

  const Panes& panes_;
  std::map<std::string, Entry> entries_;
  QTimer later_;
  bool menuOpens_ = false;
};

}  // namespace brivolant
