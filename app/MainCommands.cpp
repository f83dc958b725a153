// SPDX-License-Identifier: MIT
// The commands of the window itself.
#include <QApplication>
#include <QDesktopServices>
#include <QMenu>
#include <QToolBar>
#include <QUrl>

#include "app/App.h"
#include "app/MainWindow.h"
#include "app/commands/Menus.h"
#include "app/commands/ToolButtons.h"
#include "app/core/GlobalApplicationSpecificProperties.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"

namespace brivolant {

void MainWindow::AddCommands() {
  using namespace Menus;
  // Half a crop is no state to leave a photo in, but the window itself can be dealt with.
  constexpr bool kAlso = true;
  const auto always = [&](const char* name, const LocalizedText& text, const char* shortcut,
                          std::function<void()> run) {
    commands_.Add({{name, &text, shortcut, kAllPanes, std::move(run), nullptr, nullptr, nullptr,
                    kAlso, kAlso}});
  };
  always("FileClose", kFileClose, "Ctrl+W", [this] {
    QWidget* active = QApplication::activeWindow();
    (active == nullptr ? this : active)->close();
  });
  always("FileQuit", kFileQuit, "Ctrl+Q", [this] { close(); });
  always("WindowMinimize", kWindowMinimize, "Ctrl+M", [this] { showMinimized(); });
  always("WindowZoom", kWindowZoom, "Ctrl+Alt+Z",
         [this] { isMaximized() ? showNormal() : showMaximized(); });
  always("WindowBringAllToFront", kWindowBringAllToFront, "", [this] {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->isVisible() && window->isWindow() && window != this) window->raise();
    }
    raise();
  });
  always("HelpAboutappName", kHelpAbout, "", [this] { app_.ShowAboutBox(); });
  commands_.Add({
      {"HelpappNameWebPage", &kHelpWebPage, "", kAllPanes,
       [] {
         QDesktopServices::openUrl(
             QUrl(ToQString(GlobalApplicationSpecificProperties::URLApplicationWebPage.Text())));
       }},
      {"FileOpenRecent", &KFileOpenRecent},
      {"EditPreferences", &kEditPreferences, "Ctrl+,", kAllPanes,
       [this] { app_.ShowPreferences(); }},
      {"ViewBrowseMyPhotos", &kViewBrowseMyPhotos, "Ctrl+B", kInEditor,
       [this] { BackToBrowser(); }},
      {"ViewBrowseMyPhotos", &kViewReturnToEditor, "", kInBrowser,
       [this] { SwapDisplay(kEditorPane); }, [this] { return Document() != nullptr; }},
  });
}

void MainWindow::AddToolbarCommands() {
  using namespace Menus;
  constexpr bool kAlso = true;
  struct Mode {
    const char* name;
    const LocalizedText& text;
    int mode;
  };
  for (const Mode& mode : {Mode{"ViewIconText", kViewIconText, 1},
                           {"ViewIconOnly", kViewIconOnly, 2},
                           {"ViewTextOnly", kViewTextOnly, 3}}) {
    commands_.Add(
        {{mode.name, &mode.text, "", kAllPanes,
          [this, mode = mode.mode] { ToolButtons::DisplayMode(*rbToolBar, mode); }, nullptr,
          [this, mode = mode.mode] { return ToolButtons::DisplayMode(*rbToolBar) == mode; },
          nullptr, kAlso}});
  }
  commands_.Add({
      {"ViewUseSmallSize", &kViewUseSmallSize, "", kAllPanes,
       [this] {
         const bool small = ToolButtons::DisplaySize(*rbToolBar) == 2;
         ToolButtons::DisplaySize(*rbToolBar, small ? 1 : 2);
       },
       nullptr, [this] { return ToolButtons::DisplaySize(*rbToolBar) == 2; }, nullptr, kAlso},
      {"ViewHideToolbar", &kViewHideToolBar, "Ctrl+Alt+T", kAllPanes,
       [this] { ToolbarVisible(!ToolbarVisible()); }, nullptr, nullptr,
       [this] { return (ToolbarVisible() ? kViewHideToolBar : kViewHideToolBarHidden).Text(); },
       kAlso},
      {"ViewCustomizeToolbar", &kViewCustomizeToolbar, "", kAllPanes, nullptr, nullptr, nullptr,
       nullptr, kAlso},
  });
}

void MainWindow::UpdateRecentMenu() {
  QMenu& menu = menu_->Submenu("FileOpenRecent");
  menu.clear();
  for (const std::string& path : app_.RecentItem()) {
    QString text = ToQString(RecentItems::TextFor(path));
    text.replace(QLatin1Char('&'), QStringLiteral("&&"));
    QAction* action = menu.addAction(SvgIcon(QStringLiteral("BrivolantPhotosDocument")), text);
    action->setToolTip(ToQString(path));
    // After the menu has closed: opening may ask, and rebuilds this menu.
    connect(
        action, &QAction::triggered, this, [this, path] { app_.OpenRecent(path); },
        Qt::QueuedConnection);
  }
  menu.addSeparator();
  connect(
      menu.addAction(Shown(Menus::kOpenRecentClearRecentMenu)), &QAction::triggered, this,
      [this] { app_.ClearRecentMenu(); }, Qt::QueuedConnection);
}

}  // namespace brivolant
