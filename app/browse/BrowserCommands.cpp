// SPDX-License-Identifier: MIT
// The commands of the browser's pane on what it shows, and the menu on its rows.
#include <QAction>
#include <QMenu>

#include "app/browse/BrowserController.h"
#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "kit/InterfaceKitSupport.h"

namespace brivolant {

void BrowserController::AddCommands(Commands& commands) {
  using namespace Menus;
  multiViewFileBrowser& browser = *imageBrowser;
  struct View {
    const char* name;
    const LocalizedText& text;
    const char* shortcut;
    int mode;
  };
  for (const View& view :
       {View{"ViewAsIcons", kViewAsIcons, "Ctrl+1", multiViewFileBrowser::kIconView},
        {"ViewAsList", kViewAsList, "Ctrl+2", multiViewFileBrowser::kListView},
        {"ViewAsColumns", kViewAsColumns, "Ctrl+3", multiViewFileBrowser::kColumnView}}) {
    commands.Add({{view.name, &view.text, view.shortcut, kInBrowser,
                   [&browser, mode = view.mode] { browser.Mode(mode); }, nullptr,
                   [&browser, mode = view.mode] { return browser.Mode() == mode; }}});
  }
  struct Order {
    const char* name;
    const LocalizedText& text;
    int column;
  };
  for (const Order& order : {Order{"ViewSortByName", BrowserRows::kName, BrowserRows::kNameColumn},
                             {"ViewSortByKind", BrowserRows::kKind, BrowserRows::kKindColumn},
                             {"ViewSortBySize", BrowserRows::kFileSize, BrowserRows::kSizeColumn},
                             {"ViewSortByDate", BrowserRows::kModDate, BrowserRows::kDateColumn}}) {
    commands.Add(
        {{order.name, &order.text, "", kInBrowser, [this, column = order.column] { Sort(column); },
          nullptr,
          [&browser, column = order.column] { return browser.Rows().SortColumn() == column; }}});
  }
  commands.Add({
      {"ViewSortBy", &kViewSortBy, "", kInBrowser},
      {"ViewSortDescending", &kViewSortDescending, "", kInBrowser, [this] { Sort(-1); }, nullptr,
       [&browser] { return browser.Rows().Descending(); }},
      {"ViewShowHiddenFiles", &kViewShowHiddenFiles, "Ctrl+H", kInBrowser,
       [&browser] {
         browser.showInvisibles = !browser.showInvisibles;
         browser.ReloadCurrentView();
       },
       nullptr, [&browser] { return browser.showInvisibles; }},
      {"EditSelectAll", &kEditSelectAll, "Ctrl+A", kInBrowser, [&browser] { browser.SelectAll(); }},
      {"EditSelectNone", &kEditSelectNone, "Ctrl+Shift+A", kInBrowser,
       [&browser] { browser.UnselectAll(); }},
  });
}

void BrowserController::Sort(int column) {
  const BrowserRows& rows = imageBrowser->Rows();
  const bool descending = column < 0 ? !rows.Descending() : rows.Descending();
  imageBrowser->Sort(column < 0 ? rows.SortColumn() : column, descending);
}

bool BrowserController::FillMenu(QMenu& menu) {
  commands_.RefreshForMenu();
  const auto add = [&](const char* name, bool always = true) {
    QAction& action = commands_.Action(name);
    if (always || action.isEnabled()) menu.addAction(&action);
  };
  constexpr bool kIfEnabled = false;
  const int count = imageBrowser->SelectedCount();
  if (count == 1) {
    QObject::connect(menu.addAction(Shown(kOpen)), &QAction::triggered, imageBrowser,
                     [this] { OpenItem(imageBrowser->SelectedItem(0)); });
    menu.addSeparator();
    add("FileShowOriginal", kIfEnabled);
    add("FileRename", kIfEnabled);
    add("FileMoveToTrash");
    menu.addSeparator();
    add("FileAddToFavorites");
    add("FileAddToSideBar");
    add("FileQuickLook");
    add("menuskFileShareSetasDesktopPicture", kIfEnabled);
    menu.addSeparator();
  } else if (count > 1) {
    add("FileMoveToTrash");
    menu.addSeparator();
  }
  if (count > 0) add("EditCopy");
  add("EditPaste", kIfEnabled);
  if (count > 0 && MoreRows) MoreRows(menu);
  if (count == 1) {
    menu.addSeparator();
    add("FileShowInFinder");
  }
  if (count == 0) {
    if (!menu.isEmpty()) menu.addSeparator();
    QMenu* sort = menu.addMenu(Shown(Menus::kViewSortBy));
    for (const char* name :
         {"ViewSortByName", "ViewSortByKind", "ViewSortBySize", "ViewSortByDate"}) {
      sort->addAction(&commands_.Action(name));
    }
    sort->addSeparator();
    sort->addAction(&commands_.Action("ViewSortDescending"));
  }
  return !menu.isEmpty();
}

}  // namespace brivolant
