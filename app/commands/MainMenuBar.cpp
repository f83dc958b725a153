// SPDX-License-Identifier: MIT
#include "app/commands/MainMenuBar.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "kit/InterfaceKitSupport.h"

namespace brivolant {
namespace {

using namespace Menus;

constexpr MenuEntry kSeparator{};

constexpr MenuEntry kShare[] = {
    {"menuskFileShareDevice"},
    {"menuskFileShareSetasDesktopPicture"},
};

constexpr MenuEntry kFile[] = {
    {"FileNewFromClipboard"},
    {"FileOpen"},
    {"FileOpenRecent", {}, true},
    kSeparator,
    {"FileClose"},
    {"FileSave"},
    {"FileSaveACopyAs"},
    {"FileSaveStyleAs"},
    {"FileRevertToOriginal"},
    kSeparator,
    {"FileShareVia", kShare, true},
    kSeparator,
    {"FileGetInfo"},
    {"FileEditInfo"},
    {"FileAddToFavorites"},
    {"FileQuickLook"},
    {"FileShowOriginal"},
    {"FileShowInFinder"},
    {"FileAddToSideBar"},
    kSeparator,
    {"FileRename"},
    {"FileMoveToTrash"},
    kSeparator,
    {"FileQuit"},
};

constexpr MenuEntry kEdit[] = {
    {"EditUndo"},
    {"EditRedo"},
    kSeparator,
    {"EditCopy"},
    {"EditCopyStyle"},
    {"EditPaste"},
    {"EditPasteStyle"},
    {"EditApplyStyle", {}, true},
    {"EditClearStyle"},
    kSeparator,
    {"EditSelectAll"},
    {"EditSelectNone"},
    kSeparator,
    {"FileApplyLastStyle"},
    kSeparator,
    {"RotateAndFlipRotate90"},
    {"RotateAndFlipRotate180"},
    {"RotateAndFlipRotate270"},
    kSeparator,
    {"EditChangeOrientationTo"},
    kSeparator,
    {"RotateAndFlipFlipHorizontally"},
    {"RotateAndFlipFlipVertially"},
    kSeparator,
    {"EditCrop"},
    kSeparator,
    {"EditPreferences"},
};

constexpr MenuEntry kCustomize[] = {
    {"ViewIconText"}, {"ViewIconOnly"}, {"ViewTextOnly"}, kSeparator, {"ViewUseSmallSize"},
};

constexpr MenuEntry kSortBy[] = {
    {"ViewSortByName"},  {"ViewSortByKind"}, {"ViewSortBySize"},     {"ViewSortByDate"},
    {"ViewSortByTaken"}, kSeparator,         {"ViewSortDescending"},
};

constexpr MenuEntry kView[] = {
    {"ViewShowColors"},
    kSeparator,
    {"ViewBrowseMyPhotos"},
    kSeparator,
    {"ViewAsIcons"},
    {"ViewAsList"},
    {"ViewAsColumns"},
    {"ViewSortBy", kSortBy, true},
    {"ViewShowHiddenFiles"},
    kSeparator,
    {"ViewZoomIn"},
    {"ViewZoomOut"},
    {"ViewZoomToFit"},
    {"ViewActualSize"},
    kSeparator,
    {"ViewBeforeAfter"},
    {"ViewFullScreen"},
    {"Viewstyles"},
    {"Viewadvanced"},
    kSeparator,
    {"ViewHideToolbar"},
    {"ViewCustomizeToolbar", kCustomize, true},
};

constexpr MenuEntry kWindow[] = {
    {"WindowMinimize"}, {"WindowZoom"}, kSeparator, {"WindowBringAllToFront"}, kSeparator,
};

constexpr MenuEntry kHelp[] = {
    {"HelpappNameWebPage"},
    kSeparator,
    {"HelpAboutappName"},
};

constexpr MenuTable kMenus[] = {
    {"FileMenu", &FileMenu, kFile}, {"EditMenu", &EditMenu, kEdit},
    {"ViewMenu", &ViewMenu, kView}, {"WindowMenu", &WindowMenu, kWindow},
    {"HelpMenu", &HelpMenu, kHelp},
};

}  // namespace

std::span<const MenuTable> MainMenus() {
  return kMenus;
}

struct MenuBuilder {
  MainMenuBar& bar;
  Commands& commands;

  void Fill(QMenu& menu, std::span<const MenuEntry> entries) const {
    QObject::connect(&menu, &QMenu::aboutToShow,
                     [commands = &commands] { commands->RefreshForMenu(); });
    for (const MenuEntry& entry : entries) {
      if (entry.name == nullptr) {
        menu.addSeparator();
        continue;
      }
      QAction& action = commands.Action(entry.name);
      if (!entry.submenu) {
        menu.addAction(&action);
        bar.items_[entry.name] = &action;
        continue;
      }
      QMenu* submenu = menu.addMenu(action.text());
      bar.menus_[entry.name] = submenu;
      bar.items_[entry.name] = submenu->menuAction();
      // A menu has an action of its own, which follows the command's.
      QObject::connect(&action, &QAction::changed, submenu, [submenu, &action] {
        submenu->menuAction()->setEnabled(action.isEnabled());
        submenu->menuAction()->setText(action.text());
      });
      Fill(*submenu, entry.children);
    }
  }
};

MainMenuBar::MainMenuBar(QMainWindow& window, Commands& commands) {
  const MenuBuilder builder{*this, commands};
  for (const MenuTable& table : MainMenus()) {
    QMenu* menu = window.menuBar()->addMenu(Shown(*table.text));
    menus_[table.name] = menu;
    builder.Fill(*menu, table.entries);
  }
}

QAction& MainMenuBar::Item(const std::string& name) const {
  return *items_.at(name);
}

QMenu& MainMenuBar::Submenu(const std::string& name) const {
  return *menus_.at(name);
}

}  // namespace brivolant
