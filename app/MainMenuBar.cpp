// SPDX-License-Identifier: MIT
#include "app/MainMenuBar.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include "app/Menus.h"
#include "app/core/GlobalApplicationSpecificProperties.h"
#include "browser/BrowserRows.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "kit/InterfaceKitSupport.h"

namespace brivolant {
namespace {

using namespace Menus;

constexpr MenuEntry kSeparator{};

constexpr MenuEntry Item(const char* name, const LocalizedText& text, const char* shortcut = "") {
  return {.name = name, .text = &text, .shortcut = shortcut};
}
constexpr MenuEntry Always(const char* name, const LocalizedText& text, const char* shortcut = "") {
  return {.name = name, .text = &text, .shortcut = shortcut, .autoEnable = true};
}
constexpr MenuEntry Checked(const char* name, const LocalizedText& text,
                            const char* shortcut = "") {
  return {.name = name, .text = &text, .shortcut = shortcut, .checkable = true};
}

constexpr MenuEntry kShare[] = {
    Item("menuskFileShareDevice", kFileShareDevice),
    Item("menuskFileShareSetasDesktopPicture", kFileShareDesktop),
};

constexpr MenuEntry kFile[] = {
    Item("FileNewFromClipboard", kFileNewFromClipboard, "Ctrl+N"),
    Always("FileOpen", kFileOpen, "Ctrl+O"),
    {.name = "FileOpenRecent", .text = &KFileOpenRecent, .autoEnable = true, .submenu = true},
    kSeparator,
    Always("FileClose", kFileClose, "Ctrl+W"),
    Item("FileSave", kFileSave, "Ctrl+S"),
    Item("FileSaveACopyAs", kFileSaveCopyAs, "Ctrl+Shift+S"),
    Item("FileSaveStyleAs", kFileSaveStyleAs),
    Item("FileRevertToOriginal", kFileRestoreToOriginal, "Ctrl+R"),
    kSeparator,
    {.name = "FileShareVia", .text = &kFileShare, .children = kShare, .submenu = true},
    kSeparator,
    Item("FileAddToFavorites", kFileAddToFavorites),
    Item("FileQuickLook", kQuickLook, "Ctrl+Y"),
    Item("FileShowOriginal", kFileShowOriginal),
    Item("FileShowInFinder", kFileShowInFinder),
    Item("FileAddToSideBar", kAddToSidebar, "Ctrl+T"),
    kSeparator,
    Item("FileRename", kFileRename, "F2"),
    Item("FileMoveToTrash", kFileMoveToTrash, "Ctrl+Backspace"),
    kSeparator,
    Always("FileQuit", kFileQuit, "Ctrl+Q"),
};

constexpr MenuEntry kEdit[] = {
    Item("EditUndo", kEditUndo, "Ctrl+Z"),
    Item("EditRedo", kEditRedo, "Ctrl+Shift+Z"),
    kSeparator,
    Item("EditCopy", kEditCopy, "Ctrl+C"),
    Item("EditCopyStyle", kEditCopyStyle, "Ctrl+Alt+C"),
    Item("EditPaste", kEditPaste, "Ctrl+V"),
    Item("EditPasteStyle", kEditPasteStyle, "Ctrl+Alt+V"),
    Item("EditClearStyle", kEditClearStyle),
    kSeparator,
    Item("EditSelectAll", kEditSelectAll, "Ctrl+A"),
    Item("EditSelectNone", kEditSelectNone, "Ctrl+Shift+A"),
    kSeparator,
    Item("FileApplyLastStyle", kFileApplyLastStyle, "Ctrl+Shift+R"),
    kSeparator,
    Checked("RotateAndFlipRotate90", kRotateAndFlipRotate90, "Ctrl+]"),
    Checked("RotateAndFlipRotate180", kRotateAndFlipRotate180),
    Checked("RotateAndFlipRotate270", kRotateAndFlipRotate270, "Ctrl+["),
    kSeparator,
    Checked("EditChangeOrientationTo", kEditChangeOrientation),
    kSeparator,
    Checked("RotateAndFlipFlipHorizontally", kRotateAndFlipFlipHorizontally),
    Checked("RotateAndFlipFlipVertially", kRotateAndFlipFlipVertically),
    kSeparator,
    Item("EditCrop", kEditCrop, "Ctrl+K"),
    kSeparator,
    Always("EditPreferences", kEditPreferences, "Ctrl+,"),
};

constexpr MenuEntry kCustomize[] = {
    {.name = "ViewIconText", .text = &kViewIconText, .autoEnable = true, .checkable = true},
    {.name = "ViewIconOnly", .text = &kViewIconOnly, .autoEnable = true, .checkable = true},
    {.name = "ViewTextOnly", .text = &kViewTextOnly, .autoEnable = true, .checkable = true},
    kSeparator,
    {.name = "ViewUseSmallSize", .text = &kViewUseSmallSize, .autoEnable = true, .checkable = true},
};

constexpr MenuEntry kSortBy[] = {
    Checked("ViewSortByName", BrowserRows::kName),
    Checked("ViewSortByKind", BrowserRows::kKind),
    Checked("ViewSortBySize", BrowserRows::kFileSize),
    Checked("ViewSortByDate", BrowserRows::kModDate),
    kSeparator,
    Checked("ViewSortDescending", kViewSortDescending),
};

constexpr MenuEntry kView[] = {
    Always("ViewShowColors", kViewShowColors, "Ctrl+Shift+C"),
    kSeparator,
    Item("ViewBrowseMyPhotos", kViewBrowseMyPhotos, "Ctrl+B"),
    kSeparator,
    Checked("ViewAsIcons", kViewAsIcons, "Ctrl+1"),
    Checked("ViewAsList", kViewAsList, "Ctrl+2"),
    Checked("ViewAsColumns", kViewAsColumns, "Ctrl+3"),
    {.name = "ViewSortBy", .text = &kViewSortBy, .children = kSortBy, .submenu = true},
    Checked("ViewShowHiddenFiles", kViewShowHiddenFiles, "Ctrl+H"),
    kSeparator,
    Checked("ViewBeforeAfter", kViewBeforeAndAfter, "Ctrl+Shift+B"),
    Item("ViewFullScreen", kViewFullScreenPicture, "F11"),
    Checked("Viewstyles", OneClickWonderStorage::kOneClickNameMultiple, "Ctrl+Shift+K"),
    Checked("Viewadvanced", kViewAdvancedOptions, "Ctrl+Shift+E"),
    kSeparator,
    Always("ViewHideToolbar", kViewHideToolBar, "Ctrl+Alt+T"),
    {.name = "ViewCustomizeToolbar",
     .text = &kViewCustomizeToolbar,
     .autoEnable = true,
     .children = kCustomize,
     .submenu = true},
};

constexpr MenuEntry kWindow[] = {
    Always("WindowMinimize", kWindowMinimize, "Ctrl+M"),
    Always("WindowZoom", kWindowZoom, "Ctrl+Alt+Z"),
    kSeparator,
    Always("WindowBringAllToFront", kWindowBringAllToFront),
    kSeparator,
};

constexpr MenuEntry kHelp[] = {
    Always("HelpappNameWebPage", kHelpWebPage),
    kSeparator,
    Always("HelpAboutappName", kHelpAbout),
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

  void Fill(QMenu& menu, std::span<const MenuEntry> entries) const {
    QObject::connect(&menu, &QMenu::aboutToShow, [bar = &bar] {
      if (bar->EnableMenuItems) bar->EnableMenuItems();
    });
    for (const MenuEntry& entry : entries) {
      if (entry.name == nullptr) {
        menu.addSeparator();
      } else if (entry.submenu) {
        QMenu* submenu = menu.addMenu(TextOf(entry));
        bar.menus_[entry.name] = submenu;
        bar.items_[entry.name] = submenu->menuAction();
        bar.autoEnabled_[entry.name] = entry.autoEnable;
        Fill(*submenu, entry.children);
      } else {
        AddItem(menu, entry);
      }
    }
  }

  static QString TextOf(const MenuEntry& entry) {
    return ToQString(WithPlaceholders(
        entry.text->Text(),
        {{"<ApplicationName>", GlobalApplicationSpecificProperties::ApplicationName.Text()}}));
  }

  void AddItem(QMenu& menu, const MenuEntry& entry) const {
    QAction* action = menu.addAction(TextOf(entry));
    action->setObjectName(QString::fromLatin1(entry.name));
    action->setShortcut(QKeySequence(QString::fromLatin1(entry.shortcut)));
    action->setCheckable(entry.checkable);
    bar.items_[entry.name] = action;
    bar.autoEnabled_[entry.name] = entry.autoEnable;
    QObject::connect(action, &QAction::triggered,
                     [bar = &bar, name = std::string(entry.name)] { bar->action_(name); });
  }
};

MainMenuBar::MainMenuBar(QMainWindow& window, std::function<void(const std::string&)> action)
    : action_(std::move(action)) {
  const MenuBuilder builder{*this};
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

void MainMenuBar::DisableAll() {
  for (const auto& [name, item] : items_) {
    if (!autoEnabled_.at(name)) item->setEnabled(false);
  }
}

}  // namespace brivolant
