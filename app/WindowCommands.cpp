// SPDX-License-Identifier: MIT
#include "app/WindowCommands.h"

#include <QApplication>
#include <QDesktopServices>
#include <QMenu>
#include <QToolBar>
#include <QUrl>
#include <utility>

#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "app/commands/ToolButtons.h"
#include "app/core/GlobalApplicationSpecificProperties.h"
#include "app/core/RecentItems.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkWindow.h"

namespace brivolant::WindowCommands {
namespace {

using namespace Menus;

/// Half a crop is no state to leave a photo in, but the window itself can be dealt with.
constexpr bool kAlso = true;

void AddOfWindow(Commands& commands, ifkWindow& window, const Asks& asks) {
  const auto always = [&](const char* name, const LocalizedText& text, const char* shortcut,
                          std::function<void()> run) {
    commands.Add({{name, &text, shortcut, kAllPanes, std::move(run), nullptr, nullptr, nullptr,
                   kAlso, kAlso}});
  };
  always("FileClose", kFileClose, "Ctrl+W", [&window] {
    QWidget* active = QApplication::activeWindow();
    (active == nullptr ? &window : active)->close();
  });
  always("FileQuit", kFileQuit, "Ctrl+Q", [&window] { window.close(); });
  always("WindowMinimize", kWindowMinimize, "Ctrl+M", [&window] { window.showMinimized(); });
  always("WindowZoom", kWindowZoom, "Ctrl+Alt+Z",
         [&window] { window.isMaximized() ? window.showNormal() : window.showMaximized(); });
  always("WindowBringAllToFront", kWindowBringAllToFront, "", [&window] {
    for (QWidget* other : QApplication::topLevelWidgets()) {
      if (other->isVisible() && other->isWindow() && other != &window) other->raise();
    }
    window.raise();
  });
  always("HelpAboutappName", kHelpAbout, "", asks.ShowAboutBox);
  commands.Add({
      {"HelpappNameWebPage", &kHelpWebPage, "", kAllPanes,
       [] {
         QDesktopServices::openUrl(
             QUrl(ToQString(GlobalApplicationSpecificProperties::URLApplicationWebPage.Text())));
       }},
      {"FileOpenRecent", &KFileOpenRecent},
      {"EditPreferences", &kEditPreferences, "Ctrl+,", kAllPanes, asks.ShowPreferences},
      {"ViewBrowseMyPhotos", &kViewBrowseMyPhotos, "Ctrl+B", kInEditor, asks.BackToBrowser},
      {"ViewBrowseMyPhotos", &kViewReturnToEditor, "", kInBrowser, asks.ReturnToEditor,
       asks.PhotoOpen},
  });
}

void AddOfToolbar(Commands& commands, ifkWindow& window, QToolBar& toolbar) {
  struct Mode {
    const char* name;
    const LocalizedText& text;
    int mode;
  };
  for (const Mode& mode : {Mode{"ViewIconText", kViewIconText, 1},
                           {"ViewIconOnly", kViewIconOnly, 2},
                           {"ViewTextOnly", kViewTextOnly, 3}}) {
    commands.Add(
        {{mode.name, &mode.text, "", kAllPanes,
          [&toolbar, mode = mode.mode] { ToolButtons::DisplayMode(toolbar, mode); }, nullptr,
          [&toolbar, mode = mode.mode] { return ToolButtons::DisplayMode(toolbar) == mode; },
          nullptr, kAlso}});
  }
  commands.Add({
      {"ViewUseSmallSize", &kViewUseSmallSize, "", kAllPanes,
       [&toolbar] {
         const bool small = ToolButtons::DisplaySize(toolbar) == 2;
         ToolButtons::DisplaySize(toolbar, small ? 1 : 2);
       },
       nullptr, [&toolbar] { return ToolButtons::DisplaySize(toolbar) == 2; }, nullptr, kAlso},
      {"ViewHideToolbar", &kViewHideToolBar, "Ctrl+Alt+T", kAllPanes,
       [&window] { window.ToolbarVisible(!window.ToolbarVisible()); }, nullptr, nullptr,
       [&window] {
         return (window.ToolbarVisible() ? kViewHideToolBar : kViewHideToolBarHidden).Text();
       },
       kAlso},
      {"ViewCustomizeToolbar", &kViewCustomizeToolbar, "", kAllPanes, nullptr, nullptr, nullptr,
       nullptr, kAlso},
  });
}

}  // namespace

void Add(Commands& commands, ifkWindow& window, QToolBar& toolbar, const Asks& asks) {
  AddOfWindow(commands, window, asks);
  AddOfToolbar(commands, window, toolbar);
}

void FillRecent(QMenu& menu, const std::vector<std::string>& paths,
                const std::function<void(const std::string&)>& open,
                const std::function<void()>& forget) {
  menu.clear();
  for (const std::string& path : paths) {
    QString text = ToQString(RecentItems::TextFor(path));
    text.replace(QLatin1Char('&'), QStringLiteral("&&"));
    QAction* action = menu.addAction(SvgIcon(QStringLiteral("BrivolantPhotosDocument")), text);
    action->setToolTip(ToQString(path));
    QObject::connect(
        action, &QAction::triggered, &menu, [open, path] { open(path); }, Qt::QueuedConnection);
  }
  menu.addSeparator();
  QObject::connect(menu.addAction(Shown(kOpenRecentClearRecentMenu)), &QAction::triggered, &menu,
                   forget, Qt::QueuedConnection);
}

}  // namespace brivolant::WindowCommands
