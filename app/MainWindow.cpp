// SPDX-License-Identifier: MIT
#include "app/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QToolBar>
#include <QVBoxLayout>

#include "app/App.h"
#include "app/WindowCommands.h"
#include "app/commands/ToolButtons.h"
#include "app/core/GlobalApplicationSpecificProperties.h"
#include "effects/EffectRegistry.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "engine/ui/EditorDisplay.h"
#include "formats/BrivolantDocument.h"
#include "kit/AnimationCore.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/ifkStaticText.h"

namespace brivolant {
namespace {

constexpr QSize kSmallest{720, 520};
constexpr QSize kFirstSize{1180, 780};
constexpr int kBarHeight = 21;
/// Milliseconds between two looks at edits that are not saved.
constexpr int kKeepEdits = 3000;

}  // namespace

MainWindow::MainWindow(App& app)
    : app_(app),
      stage_(new Stage(this)),
      session_(EffectRegistry(), app.Desk(), app.Recovery(), app.Recent()),
      commands_(*this),
      browse_(app.Desk(), session_, commands_, *this, stage_),
      edit_(app.Desk(), session_, commands_, *this, stage_),
      rendering_(session_, *edit_.Pane.MyDisplay, app.Progress()),
      photoWork_(session_.Work(), *this, app.Progress(), true),
      fileWork_(browse_.History.Work(), *this, app.Progress(), false),
      editsWork_(browse_.Edits.Work(), *this, app.Progress(), false),
      unfinished_({&browse_.History.Work(), &browse_.Edits.Work()}, app.Dialogs(), app.Log()) {
  setWindowTitle(QStringLiteral("[*]") +
                 ToQString(GlobalApplicationSpecificProperties::ApplicationName.Text()));
  setMinimumSize(kSmallest);
  resize(kFirstSize);
  setContextMenuPolicy(Qt::NoContextMenu);
  BuildFrame();
  AddCommands();
  menu_ = std::make_unique<MainMenuBar>(*this, commands_);
  WindowMenu(&menu_->Submenu("WindowMenu"));
  WireSession();
  WireBrowser();
  session_.Start();
}

MainWindow::~MainWindow() {
  WindowMenu(nullptr);
}

void MainWindow::BuildFrame() {
  rbToolBar = new QToolBar(this);
  rbToolBar->setMovable(false);
  rbToolBar->setFloatable(false);
  rbToolBar->setFocusPolicy(Qt::TabFocus);
  rbToolBar->toggleViewAction()->setEnabled(false);
  addToolBar(rbToolBar);
  ToolBar(rbToolBar);
  auto* content = new QWidget(this);
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  infotext = new ifkStaticText(content);
  infotext->setFixedHeight(kBarHeight);
  infotext->Alignment = Qt::AlignCenter;
  QFont small = infotext->font();
  small.setPointSizeF(small.pointSizeF() * 0.9);
  infotext->setFont(small);
  column->addWidget(stage_, 1);
  column->addWidget(infotext);
  setCentralWidget(content);
  stage_->Take({{browse_.Pane.BrowserSeat, [](QSize stage) { return QRect({}, stage); }},
                {edit_.Pane.EditorSeat, [this](QSize stage) { return edit_.Pane.Place(stage); }}});
}

void MainWindow::AddCommands() {
  WindowCommands::Add(commands_, *this, *rbToolBar,
                      {[this] { app_.ShowAboutBox(); }, [this] { app_.ShowPreferences(); },
                       [this] { BackToBrowser(); }, [this] { SwapDisplay(kEditorPane); },
                       [this] { return Document() != nullptr; }});
  commands_.Cropping = [this] { return Cropping(); };
  commands_.Busy = [this] { return session_.Busy(); };
}

void MainWindow::UpdateRecentMenu() {
  WindowCommands::FillRecent(
      menu_->Submenu("FileOpenRecent"), app_.RecentItem(),
      [this](const std::string& path) { app_.OpenRecent(path); },
      [this] { app_.ClearRecentMenu(); });
}

// How the parts hear of each other.

void MainWindow::WireSession() {
  listening_.push_back(session_.Settling.Listen([this] {
    // A hidden widget is laid out when it is shown, but a preview is made for its size before.
    stage_->PlacePanes();
    edit_.Pane.Layout();
  }));
  listening_.push_back(session_.Changed.Listen([this] {
    Modified(session_.Dirty());
    // Edits may be pasted, and taken back, while the browser is in view.
    if (DisplayPane != kBrowserPane) return;
    if (session_.Dirty()) {
      LastDirty = true;
    } else if (session_.SameAsSaved()) {
      LastDirty = false;
    }
  }));
  listening_.push_back(session_.Saved.Listen([this] { LastDirty = session_.Dirty(); }));
  listening_.push_back(session_.Opened.Listen([this] {
    LastDirty = session_.Dirty();
    SwapDisplay(kEditorPane);
  }));
  listening_.push_back(
      session_.Failed.Listen([this](const std::string& message, const std::string& why) {
        const EditSession::Hold hold(session_);
        app_.Dialogs().Message(message, why);
      }));
  session_.Ask = [this](const Question& question) {
    const EditSession::Hold hold(session_);
    return app_.Dialogs().Ask(question);
  };
  listening_.push_back(
      edit_.Photo.FullScreenReady.Listen([this](const Picture& picture, const std::string& title) {
        browse_.Looks.ShowFullScreen(picture, title);
      }));
  listening_.push_back(edit_.Documents.OthersChosen.Listen(
      [this](const std::vector<FolderItem>& files) { browse_.Browser.ShowFiles(files); }));
  RecoveryTimer.setInterval(kKeepEdits);
  connect(&RecoveryTimer, &QTimer::timeout, this, [this] { session_.KeepEdits(); });
}

void MainWindow::WireBrowser() {
  listening_.push_back(
      browse_.Opening.PhotoChosen.Listen([this](const FolderItem& file, const std::string& name) {
        session_.Work().WhenIdle([this, file, name] {
          const auto open = [this, file, name] { OpenImage(file, name); };
          if (!AskToSave(open)) open();
        });
      }));
  browse_.Browser.BringIntoView = [this] { BackToBrowser(); };
  browse_.Holding(
      [this]() -> std::shared_ptr<void> { return std::make_shared<EditSession::Hold>(session_); });
  browse_.Edits.StyleMenu(menu_->Submenu("EditApplyStyle"));
}

void MainWindow::Open() {
  const auto& preferences = app_.Preferences();
  ToolButtons::DisplayMode(*rbToolBar, preferences.Value("rbToolBar.Mode", 0).ToInt());
  ToolButtons::DisplaySize(*rbToolBar, preferences.Value("rbToolBar.Size", 0).ToInt());
  ToolButtons::Build(*rbToolBar, kBrowserPane, false, commands_);
  app_.MainWindowOpen = true;
  Dimensions(preferences.Value("MainWindow.Dimensions", Dimensions()).ToText());
  UpdateRecentMenu();
  browse_.Open();
  stage_->PlacePanes();
  commands_.Refresh();
  RecoveryTimer.start();
  show();
  raise();
  activateWindow();
}

void MainWindow::Info(const std::string& text) {
  infotext->Text(ToQString(text));
}

void MainWindow::SwapDisplay(int mode) {
  const int old = DisplayPane;
  DisplayPane = mode;
  ToolButtons::Build(*rbToolBar, mode, Document() != nullptr, commands_);
  const bool editing = mode == kEditorPane;
  if (editing) Info(getSimpleImageInfo());
  if (!editing && myColorPanel.PanelVisible()) myColorPanel.HidePanel();
  // What was saved meanwhile shows its new picture.
  if (mode == kBrowserPane && mode != old) imageBrowser->ReloadCurrentView();
  if (mode == kBrowserPane) browse_.Browser.ShowBrowserInfo();
  // The mark of the photo comes back with it, whatever brought it into view.
  if (editing && mode != old && LastDirty != session_.Dirty()) {
    const int style = session_.StyleSelection();
    SetDirty(LastDirty);
    session_.SelectStyle(style);
  }
  commands_.Refresh();
  stage_->Show(mode);
  (editing ? static_cast<QWidget*>(MyDisplay) : imageBrowser)->setFocus();
}

void MainWindow::BackToBrowser() {
  const auto go = [this] {
    LastDirty = session_.Dirty();
    SetDirty(false);
    SwapDisplay(kBrowserPane);
  };
  if (!AskToSave(go)) go();
}

void MainWindow::StorePreferences() {
  auto& preferences = app_.Preferences();
  browse_.StorePreferences();
  preferences.Assign("rbToolBar.Mode", ToolButtons::DisplayMode(*rbToolBar));
  preferences.Assign("rbToolBar.Size", ToolButtons::DisplaySize(*rbToolBar));
  preferences.Assign("MainWindow.Dimensions", Dimensions());
  preferences.Assign("OneClickWonderStorage.currentCategory", app_.Styles().currentCategory);
  preferences.Synchronize();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  // Not from within the work that ends: the window may be closing just now.
  const auto later = [this] { QTimer::singleShot(0, this, [this] { close(); }); };
  const auto saved = [this] {
    unfinished_.AskNoMore();
    close();
  };
  if (unfinished_.MustWait(later) || app_.InfoMustWait(later) || AskToSave(saved)) {
    return event->ignore();
  }
  unfinished_.GiveUp();
  AnimationCore::Stop();
  StorePreferences();
  browse_.Looks.Close();
  ifkWindow::closeEvent(event);
  QApplication::quit();
}

void MainWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::ActivationChange) {
    edit_.Crop.WindowActivated(QApplication::activeWindow());
  }
  ifkWindow::changeEvent(event);
}

}  // namespace brivolant
