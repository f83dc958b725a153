// SPDX-License-Identifier: MIT
#include "app/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QScrollBar>
#include <QToolBar>

#include "app/App.h"
#include "app/CropEditor.h"
#include "app/ProgressDialog.h"
#include "app/QuickLookWindow.h"
#include "app/StylePreviews.h"
#include "app/StyleTiles.h"
#include "app/ToolButtons.h"
#include "app/core/GlobalApplicationSpecificProperties.h"
#include "effects/EffectRegistry.h"
#include "effects/crop/CropModule.h"
#include "effects/finishes/EffectModuleOverlay.h"
#include "effects/fixes/EffectModuleColorAdjuster.h"
#include "effects/text/EffectModuleText.h"
#include "engine/ui/EditorDisplay.h"
#include "engine/ui/EffectStackEditor.h"
#include "formats/BrivolantDocument.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/ifkFontComboBox.h"
#include "kit/ifkSegmentView.h"
#include "kit/ifkSlider.h"
#include "kit/ifkStaticText.h"
#include "sources/ThreadediPhotoReader.h"

namespace brivolant {
namespace {

constexpr QSize kSmallest{720, 520};
constexpr QSize kFirstSize{1180, 780};
/// Milliseconds between two looks at edits that are not saved.
constexpr int kKeepEdits = 3000;
constexpr int kResizeRests = 120;

}  // namespace

MainWindow::MainWindow(App& app) : app_(app) {
  setWindowTitle(QStringLiteral("[*]") +
                 ToQString(GlobalApplicationSpecificProperties::ApplicationName.Text()));
  setMinimumSize(kSmallest);
  resize(kFirstSize);
  setContextMenuPolicy(Qt::NoContextMenu);
  myProcessor = std::make_unique<brivolantProcessorLite>(EffectRegistry(), app.Services());
  myColorPanel = std::make_unique<MyColorPanelHelper>(app.ColorPanel());
  menu_ = std::make_unique<MainMenuBar>(*this, [this](const std::string& name) {
    MenuAction(name);
    UpdateCommands();
  });
  menu_->EnableMenuItems = [this] {
    EnableMenuItems();
    NamePastedFile();
  };
  WindowMenu(&menu_->Submenu("WindowMenu"));
  BuildControls();
  cropEditor_ = std::make_unique<CropEditor>(this);
  WireProcessor();
  WirePanel();
  WireUndo();
}

MainWindow::~MainWindow() {
  deviceTimer_.stop();
  mySpotlightSearch.Stop();
  if (libraryReader_) libraryReader_->Stop();
  libraryPool_.waitForDone();
  WindowMenu(nullptr);
  // The widgets look at the processor until they are gone.
  myProcessor->myEffectEditor = nullptr;
  myProcessor->myDisplay = nullptr;
  myProcessor->SelectedEffectChanged = nullptr;
  MyDisplay->myProcessor = nullptr;
  AdvancedPanel->myProcessor = nullptr;
  cropEditor_->Forget();
}

void MainWindow::WireProcessor() {
  myProcessor->myDisplay = MyDisplay;
  myProcessor->myEffectEditor = AdvancedPanel;
  MyDisplay->myProcessor = myProcessor.get();
  AdvancedPanel->myProcessor = myProcessor.get();
  AdvancedPanel->myScrollBar = EffectScrollbar;
  myProcessor->ModuleCreated = [this](effectModule& module) {
    if (auto* adjuster = dynamic_cast<EffectModuleColorAdjuster*>(&module)) {
      adjuster->PickColor = [this] { return PickScreenColor(); };
    }
    if (auto* overlay = dynamic_cast<EffectModuleOverlay*>(&module)) {
      overlay->ChoosePicture = [this] { return ChoosePhoto(EffectModuleOverlay::kPrompt); };
    }
    if (auto* text = dynamic_cast<EffectModuleText*>(&module)) {
      text->ChooseFont = [](int x, int y, int width, const std::string& current) {
        return ifkFontComboBoxMenu::Instance().Popup(x, y, width, current);
      };
      text->myTextEngine.ReadClipboard = [this] { return app_.Clipboard().Text(); };
      text->myTextEngine.WriteClipboard = [this](const std::string& copied) {
        app_.Clipboard().Text(copied);
      };
    }
  };
  myProcessor->Warned = [this](const std::string&) {
    infotext->Text(ToQString(getSimpleImageInfo()));
  };
  myProcessor->UpdateStarted = [this] {
    if (!myProcessor->nonLiveMode || app_.progressWindowOpen || !isVisible()) return;
    ShownProgress = true;
    app_.Progress().Show(kUpdatingPreview.Text(), MyDisplay);
  };
  myProcessor->UpdateFinished = [this] {
    if (ShownProgress) app_.Progress().hide();
    ShownProgress = false;
    // A new preview is what is to be seen now, wherever the pointer rests.
    HoverStyle(-1);
    RefreshTiles();
  };
  myProcessor->SelectedEffectChanged = [this] { SelectedEffectChanged(); };
  myProcessor->Startup();
  myProcessor->UpdatePreview(false);
}

void MainWindow::WirePanel() {
  WireStyles();
  AdvancedPanel->Changed = [this] { SetDirty(true); };
  AdvancedPanel->ItemValueChanged = [this](effectModule& module) {
    Record({{ModuleKey("EffectChanged:", module), module.Settings()}}, module.Name());
  };
  AdvancedPanel->itemEnabledChanged = [this](effectModule& module) {
    Record({{ModuleKey("EffectEnabledChanged:", module), module.Enabled()}}, module.Name());
  };
  AdvancedPanel->ItemMoved = [this](effectModule& module, int from, int to) {
    Record({{ModuleKey("EffectMoved:", module),
             Pair{static_cast<double>(from), static_cast<double>(to)}}},
           module.Name());
  };
  AdvancedPanel->ColorWellClicked = [this](int index) { ColorWellClicked(index); };
  AdvancedPanel->SelectedColorWell = [this](int index) {
    return index == myColorPanel->currentControl;
  };
  myColorPanel->ColorChanged = [this](const RGBAColor& color) { ColorChanged(color); };
  const auto recordBlending = [this] {
    Record({{"BlendingStatus", Pair{static_cast<double>(myProcessor->BlendMode()),
                                    static_cast<double>(myProcessor->BlendAlpha)}}},
           kUndoBlending.Text());
  };
  BlendAlpha->DraggingStarted = [this, recordBlending] {
    if (!updating && document_) recordBlending();
  };
  BlendAlpha->ValueChanged = [this] {
    if (updating || !document_) return;
    myProcessor->BlendAlpha = static_cast<float>(BlendAlpha->value()) / 100;
    myProcessor->UpdatePreview(false);
    SetDirty(true);
  };
  connect(BlendMode, &QComboBox::currentIndexChanged, this, [this, recordBlending](int index) {
    if (updating || !document_ || index == myProcessor->BlendMode()) return;
    recordBlending();
    myProcessor->BlendMode(index);
    myProcessor->UpdatePreview(false);
    SetDirty(true);
  });
  AdvancedSectionheader->Action = [this](SegmentViewPiece& piece) {
    myProcessor->ChangeStack(piece.Tag.ToInt());
  };
  PreviewTitle->Action = [this](SegmentViewPiece& piece) {
    if (piece.Tag == Variant("advanced")) ShowHideEffects(piece.Selected);
    if (piece.Tag == Variant("styles")) ShowHideStyles(piece.Selected);
    if (piece.Tag == Variant("FullScreen")) {
      piece.Selected = false;
      FullScreenMethod();
    }
    UpdateCommands();
  };
  MyDisplay->Changed = [this](effectModule& module, const Dictionary* before) {
    if (before != nullptr) {
      Record({{ModuleKey("EffectChanged:", module), *before}}, module.Name());
    }
    SetDirty(true);
    AdvancedPanel->Update();
  };
  MyDisplay->Resized = [this] {
    isResizing = true;
    ResizedUpdateTimer.start();
  };
  MyDisplay->Dropped = [this](const DragItem& item) { Drop(item); };
  ResizedUpdateTimer.setSingleShot(true);
  ResizedUpdateTimer.setInterval(kResizeRests);
  connect(&ResizedUpdateTimer, &QTimer::timeout, this, [this] {
    // The button that drags the window's edge is not ours to see; a rest in the sizes is.
    if (busy_ || QApplication::mouseButtons() != Qt::NoButton) return ResizedUpdateTimer.start();
    isResizing = false;
    if (DisplayPane == kEditorPane) myProcessor->UpdatePreview(true);
  });
  RecoveryTimer.setInterval(kKeepEdits);
  connect(&RecoveryTimer, &QTimer::timeout, this, [this] { KeepEdits(); });
}

void MainWindow::Open() {
  const auto& preferences = app_.Preferences();
  ToolButtons::DisplayMode(*rbToolBar, preferences.Value("rbToolBar.Mode", 0).ToInt());
  ToolButtons::DisplaySize(*rbToolBar, preferences.Value("rbToolBar.Size", 0).ToInt());
  buildToolbar(kBrowserPane);
  updating = true;
  BlendMode->setCurrentIndex(0);
  updating = false;
  SegmentViewPiece* advanced = PreviewTitle->SegmentByTag("advanced");
  advanced->Selected = preferences.Value("MainWindow.AdvancedPanel.Visible", true).ToBool();
  app_.MainWindowOpen = true;
  Dimensions(preferences.Value("MainWindow.Dimensions", Dimensions()).ToText());
  UpdateRecentMenu();
  OpenBrowser();
  PlaceSeats();
  UpdateCommands();
  RecoveryTimer.start();
  show();
  raise();
  activateWindow();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (busy_ || CancelClose()) {
    event->ignore();
    return;
  }
  // It keeps its place.
  if (quickLook_) quickLook_->close();
  ifkWindow::closeEvent(event);
  QApplication::quit();
}

void MainWindow::changeEvent(QEvent* event) {
  if (event->type() == QEvent::ActivationChange && Cropping() && cropEditor_ &&
      DisplayPane == kEditorPane) {
    const QWidget* active = QApplication::activeWindow();
    const bool ours = active == this || active == cropEditor_.get();
    if (ours && active == this && !cropEditor_->isVisible()) {
      cropEditor_->Show(*crop_, *MyDisplay);
    } else if (!ours) {
      cropEditor_->hide();
    }
  }
  ifkWindow::changeEvent(event);
}

}  // namespace brivolant
