// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

class QMenu;
class QToolBar;

namespace brivolant {

class Commands;
class ifkWindow;

/// The commands that concern the window and the program, not what a pane shows.
namespace WindowCommands {

/// What they ask of the program and of the window.
struct Asks {
  std::function<void()> ShowAboutBox;
  std::function<void()> ShowPreferences;
  std::function<void()> BackToBrowser;
  std::function<void()> ReturnToEditor;
  std::function<bool()> PhotoOpen;
};

/// Adds them. Window, toolbar and what is asked must live as long as the commands.
void Add(Commands& commands, ifkWindow& window, QToolBar& toolbar, const Asks& asks);

/// Fills a menu with what was opened last, the newest first. Both hooks run after the menu has
/// closed, since opening may ask, and fills this menu anew.
void FillRecent(QMenu& menu, const std::vector<std::string>& paths,
                const std::function<void(const std::string&)>& open,
                const std::function<void()>& forget);

}  // namespace WindowCommands
}  // namespace brivolant
