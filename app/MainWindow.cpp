// SPDX-License-Identifier: MIT
#include "app/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QToolBar>
#include <QVBoxLayout>

#include "app/App.h"
#include "app/ProgressDialog.h"
#include "app/commands/Menus.h"
#include "app/commands/Seat.h"
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
constexpr double kSlide = 0.25;
/// Milliseconds after which a slide has ended, whatever the timer did.
constexpr int kSlideEnds = 500;

}  // namespace

MainWindow::MainWindow(App& app)
    : app_(app),
      stage_(new Seat(this)),
      session_(EffectRegistry(), app.Desk(), app.Recovery(), app.Recent()),
      commands_(*this),
      browse_(app.Desk(), session_, commands_, *this, stage_),
      edit_(app.Desk(), session_, commands_, *this, stage_),
      rendering_(session_, *edit_.Pane.MyDisplay, app.Progress()),
      photoWork_(session_.Work(), *this, app.Progress(), true),
      fileWork_(browse_.History.Work(), *this, app.Progress(), false),
      editsWork_(browse_.Edits.Work(), *this, app.Progress(), false) {
  setWindowTitle(QStringLiteral("[*]") +
                 ToQString(GlobalApplicationSpecificProperties::ApplicationName.Text()));
  setMinimumSize(kSmallest);
  resize(kFirstSize);
  setContextMenuPolicy(Qt::NoContextMenu);
  BuildFrame();
  AddCommands();
  AddToolbarCommands();
  commands_.Cropping = [this] { return Cropping(); };
  commands_.Busy = [this] { return session_.Busy(); };
  menu_ = std::make_unique<MainMenuBar>(*this, commands_);
  WindowMenu(&menu_->Submenu("WindowMenu"));
  WireSession();
  WireBrowser();
  session_.Start();
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
  static_cast<Seat*>(stage_)->Resized = [this] { PlaceSeats(); };
  edit_.Pane.EditorSeat->hide();
  settleTimer_.setSingleShot(true);
  settleTimer_.setInterval(kSlideEnds);
  connect(&settleTimer_, &QTimer::timeout, this, [this] { Settle(); });
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
  PlaceSeats();
  commands_.Refresh();
  RecoveryTimer.start();
  show();
  raise();
  activateWindow();
}

// The stage.

void MainWindow::Info(const std::string& text) {
  infotext->Text(ToQString(text));
}

void MainWindow::PlaceSeats() {
  QWidget& editor = *edit_.Pane.EditorSeat;
  QWidget& browser = *browse_.Pane.BrowserSeat;
  if (!AnimationCore::IsAnimated(editor)) editor.setGeometry(edit_.Pane.Place(stage_->size()));
  if (!AnimationCore::IsAnimated(browser)) browser.setGeometry(stage_->rect());
}

void MainWindow::Settle() {
  if (AnimationCore::IsAnimated(*edit_.Pane.EditorSeat) ||
      AnimationCore::IsAnimated(*browse_.Pane.BrowserSeat)) {
    settleTimer_.start();
    return;
  }
  edit_.Pane.EditorSeat->setVisible(DisplayPane == kEditorPane);
  browse_.Pane.BrowserSeat->setVisible(DisplayPane == kBrowserPane);
  PlaceSeats();
}

void MainWindow::SwapDisplay(int mode) {
  const int old = DisplayPane;
  DisplayPane = mode;
  ToolButtons::Build(*rbToolBar, mode, Document() != nullptr, commands_);
  const bool editing = mode == kEditorPane;
  if (editing) Info(getSimpleImageInfo());
  if (!editing && myColorPanel.PanelVisible()) myColorPanel.HidePanel();
  // What was saved meanwhile shows its new picture.
  if (!editing && mode != old) imageBrowser->ReloadCurrentView();
  if (!editing) browse_.Browser.ShowBrowserInfo();
  // The mark of the photo comes back with it, whatever brought it into view.
  if (editing && mode != old && LastDirty != session_.Dirty()) {
    const int style = session_.StyleSelection();
    SetDirty(LastDirty);
    session_.SelectStyle(style);
  }
  commands_.Refresh();
  QWidget& focus = editing ? static_cast<QWidget&>(*MyDisplay) : *imageBrowser;
  if (mode == old) {
    Settle();
    return focus.setFocus();
  }
  QWidget& next = editing ? *edit_.Pane.EditorSeat : *browse_.Pane.BrowserSeat;
  QWidget& last = editing ? *browse_.Pane.BrowserSeat : *edit_.Pane.EditorSeat;
  const QRect place = editing ? edit_.Pane.Place(stage_->size()) : stage_->rect();
  // The editor comes from the right and goes there again; the browser lives to its left.
  const int width = stage_->width();
  next.setGeometry(place.translated(editing ? width + 2 : -width, 0));
  next.show();
  next.raise();
  using AnimationCore::Animate;
  using AnimationCore::kKeep;
  Animate(next, {place.x(), place.y(), place.width(), place.height()}, kSlide);
  Animate(last, kSlide, editing ? -width : width + 2, kKeep, kKeep, kKeep);
  focus.setFocus();
  if (AnimationCore::Period() == 0) {
    Settle();
  } else {
    settleTimer_.start();
  }
}

void MainWindow::BackToBrowser() {
  const auto go = [this] {
    LastDirty = session_.Dirty();
    SetDirty(false);
    SwapDisplay(kBrowserPane);
  };
  if (!AskToSave(go)) go();
}

// Ending.

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
  if (MustWait() || AskToSave([this] { close(); })) return event->ignore();
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
