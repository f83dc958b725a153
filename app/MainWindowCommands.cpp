// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QComboBox>
#include <QDesktopServices>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScreen>
#include <QToolBar>
#include <QUrl>
#include <algorithm>
#include <cmath>
#include <map>

#include "app/App.h"
#include "app/CropEditor.h"
#include "app/MainWindow.h"
#include "app/Menus.h"
#include "app/OwnPreviews.h"
#include "app/ProgressDialog.h"
#include "app/QuickLookWindow.h"
#include "app/ToolButtons.h"
#include "app/core/GlobalApplicationSpecificProperties.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "effects/EffectRegistry.h"
#include "effects/crop/CropModule.h"
#include "effects/finishes/EffectModuleOverlay.h"
#include "engine/pictures/PictureEffects.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "engine/ui/EditorDisplay.h"
#include "engine/ui/EffectStackEditor.h"
#include "formats/BrivolantDocument.h"
#include "formats/FileTypes.h"
#include "formats/ImageFile.h"
#include "kit/AnimationCore.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkSegmentView.h"
#include "kit/ifkSlider.h"
#include "kit/ifkStaticText.h"
#include "kit/templateSelector.h"

namespace brivolant {
namespace {

constexpr const char* kStyleType = "application/x-brivolant-style-data";
/// Extensions that a dialog for photos shows.
constexpr const char* kPhotoExtensions =
    "jpg;jpeg;jpe;png;tif;tiff;heic;heif;avif;webp;gif;bmp;jp2;psd;brvPhoto;dng;cr2;cr3;crw;nef;"
    "arw;orf;rw2;raf;pef;srw;mrw;dcr;raw";

/// Waits for one click anywhere and gives the colour under it.
class ClickedColor final : public QObject {
 public:
  std::optional<Color> Wait(EditorDisplay& display) {
    qApp->installEventFilter(this);
    display_ = &display;
    display.grabMouse(Qt::CrossCursor);
    display.grabKeyboard();
    loop_.exec();
    display.releaseKeyboard();
    display.releaseMouse();
    qApp->removeEventFilter(this);
    return color_;
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::MouseButtonPress:
        Take(static_cast<const QMouseEvent*>(event)->globalPosition().toPoint());
        return true;
      case QEvent::MouseButtonRelease:
        if (color_) loop_.quit();
        return true;
      case QEvent::KeyPress:
      case QEvent::ShortcutOverride:
        // Nothing else happens until the click.
        event->accept();
        if (static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Escape) loop_.quit();
        return true;
      default:
        return false;
    }
  }

 private:
  void Take(const QPoint& at) {
    const QPoint local = display_->mapFromGlobal(at);
    QRgb pixel = 0;
    if (display_->rect().contains(local)) {
      const QPointF device = QPointF(local) * display_->devicePixelRatioF();
      pixel = display_->Buffer().pixel(device.toPoint());
    } else {
      const QScreen* screen = QGuiApplication::screenAt(at);
      if (screen == nullptr) return;
      const QPoint onScreen = at - screen->geometry().topLeft();
      const QImage image =
          const_cast<QScreen*>(screen)->grabWindow(0, onScreen.x(), onScreen.y(), 1, 1).toImage();
      if (image.isNull()) return;
      pixel = image.pixel(0, 0);
    }
    color_ = Color{static_cast<std::uint8_t>(qRed(pixel)), static_cast<std::uint8_t>(qGreen(pixel)),
                   static_cast<std::uint8_t>(qBlue(pixel))};
  }

  QEventLoop loop_;
  EditorDisplay* display_ = nullptr;
  std::optional<Color> color_;
};

}  // namespace

std::optional<Color> MainWindow::PickScreenColor() {
  return ClickedColor().Wait(*MyDisplay);
}

bool MainWindow::Cropping() const {
  return crop_ != nullptr && myProcessor->SelectedEffect() == crop_.get();
}

// Menu and toolbar.

void MainWindow::MenuAction(const std::string& name) {
  using Handler = std::function<void(MainWindow&)>;
  static const std::map<std::string, Handler> handlers{
      {"FileNewFromClipboard", [](MainWindow& w) { w.NewFromClipboard(); }},
      {"FileOpen", [](MainWindow& w) { w.ChooseAndOpen(); }},
      {"FileClose",
       [](MainWindow& w) {
         QWidget* active = QApplication::activeWindow();
         (active == nullptr ? &w : active)->close();
       }},
      {"FileSave", [](MainWindow& w) { w.SaveMethod(); }},
      {"FileSaveACopyAs", [](MainWindow& w) { w.SaveACopyAs(); }},
      {"FileSaveStyleAs", [](MainWindow& w) { w.SaveStyleAs(); }},
      {"FileRevertToOriginal", [](MainWindow& w) { w.PerformRewind(); }},
      {"FileQuit", [](MainWindow& w) { w.close(); }},
      {"EditUndo",
       [](MainWindow& w) {
         w.DisplayPane == kBrowserPane ? w.UndoBrowserStep() : w.UndoGizmo.Undo();
       }},
      {"FileQuickLook", [](MainWindow& w) { w.QuickLookMethod(); }},
      {"FileShowOriginal",
       [](MainWindow& w) {
         for (const FolderItem& file : w.SelectedFiles()) {
           w.app_.Desktop().Reveal(FolderitemExtensions::OriginalFile(file));
         }
       }},
      {"FileShowInFinder",
       [](MainWindow& w) {
         for (const FolderItem& file : w.SelectedFiles()) w.app_.Desktop().Reveal(file);
       }},
      {"FileAddToSideBar", [](MainWindow& w) { w.FileAddToSideBar(); }},
      {"FileMoveToTrash", [](MainWindow& w) { w.FileMoveToTrash(); }},
      {"FileRename", [](MainWindow& w) { w.imageBrowser->BeginRename(); }},
      {"FileAddToFavorites", [](MainWindow& w) { w.AddFavoritesMethod(); }},
      {"menuskFileShareSetasDesktopPicture", [](MainWindow& w) { w.SetDesktopPicture(); }},
      {"ViewSortByName", [](MainWindow& w) { w.SortBrowser(BrowserRows::kNameColumn); }},
      {"ViewSortByKind", [](MainWindow& w) { w.SortBrowser(BrowserRows::kKindColumn); }},
      {"ViewSortBySize", [](MainWindow& w) { w.SortBrowser(BrowserRows::kSizeColumn); }},
      {"ViewSortByDate", [](MainWindow& w) { w.SortBrowser(BrowserRows::kDateColumn); }},
      {"ViewSortDescending", [](MainWindow& w) { w.SortBrowser(-1); }},
      {"EditSelectAll", [](MainWindow& w) { w.imageBrowser->SelectAll(); }},
      {"EditSelectNone", [](MainWindow& w) { w.imageBrowser->UnselectAll(); }},
      {"ViewAsIcons", [](MainWindow& w) { w.imageBrowser->Mode(multiViewFileBrowser::kIconView); }},
      {"ViewAsList", [](MainWindow& w) { w.imageBrowser->Mode(multiViewFileBrowser::kListView); }},
      {"ViewAsColumns",
       [](MainWindow& w) { w.imageBrowser->Mode(multiViewFileBrowser::kColumnView); }},
      {"ViewShowHiddenFiles",
       [](MainWindow& w) {
         w.imageBrowser->showInvisibles = !w.imageBrowser->showInvisibles;
         w.imageBrowser->ReloadCurrentView();
       }},
      {"EditRedo", [](MainWindow& w) { w.UndoGizmo.Redo(); }},
      {"EditCopy",
       [](MainWindow& w) { w.DisplayPane == kBrowserPane ? w.CopyFiles() : w.CopyPicture(); }},
      {"EditCopyStyle", [](MainWindow& w) { w.CopyStyle(); }},
      {"EditPaste",
       [](MainWindow& w) { w.DisplayPane == kBrowserPane ? w.PasteFiles() : w.PastePicture(); }},
      {"EditPasteStyle", [](MainWindow& w) { w.PasteStyle(); }},
      {"EditClearStyle", [](MainWindow& w) { w.ClearStyle(); }},
      {"FileApplyLastStyle", [](MainWindow& w) { w.ApplyLastStyle(); }},
      {"RotateAndFlipRotate90",
       [](MainWindow& w) {
         w.Toggle(&BrivolantDocument::Rotation, 1, "DocumentRotation", kUndoRotate);
       }},
      {"RotateAndFlipRotate180",
       [](MainWindow& w) {
         w.Toggle(&BrivolantDocument::Rotation, 2, "DocumentRotation", kUndoRotate);
       }},
      {"RotateAndFlipRotate270",
       [](MainWindow& w) {
         w.Toggle(&BrivolantDocument::Rotation, 3, "DocumentRotation", kUndoRotate);
       }},
      {"EditChangeOrientationTo",
       [](MainWindow& w) {
         w.Toggle(&BrivolantDocument::Orientation, 1, "DocumentOrientation", kUndoOrientation);
       }},
      {"RotateAndFlipFlipHorizontally",
       [](MainWindow& w) { w.Toggle(&BrivolantDocument::Flip, 1, "DocumentFlip", kUndoFlip); }},
      {"RotateAndFlipFlipVertially",
       [](MainWindow& w) { w.Toggle(&BrivolantDocument::Flip, 2, "DocumentFlip", kUndoFlip); }},
      {"EditCrop", [](MainWindow& w) { w.CropMethod(); }},
      {"EditPreferences", [](MainWindow& w) { w.app_.ShowPreferences(); }},
      {"ViewShowColors", [](MainWindow& w) { ShowColorsMenuItem::Action(w.app_.ColorPanel()); }},
      {"ViewBrowseMyPhotos",
       [](MainWindow& w) {
         if (w.DisplayPane == kEditorPane) {
           w.ToolAction(ToolButtons::Browser().Identifier);
         } else if (w.document_) {
           w.SwapDisplay(kEditorPane);
           w.SetDirty(w.LastDirty);
         }
       }},
      {"ViewBeforeAfter",
       [](MainWindow& w) {
         w.MyDisplay->ShowBefore = !w.MyDisplay->ShowBefore;
         w.MyDisplay->Update(true);
       }},
      {"ViewFullScreen", [](MainWindow& w) { w.FullScreenMethod(); }},
      {"Viewstyles",
       [](MainWindow& w) { w.ShowHideStyles(!w.PreviewTitle->SegmentByTag("styles")->Selected); }},
      {"Viewadvanced",
       [](MainWindow& w) {
         w.ShowHideEffects(!w.PreviewTitle->SegmentByTag("advanced")->Selected);
       }},
      {"ViewHideToolbar", [](MainWindow& w) { w.ToolbarVisible(!w.ToolbarVisible()); }},
      {"ViewIconText", [](MainWindow& w) { ToolButtons::DisplayMode(*w.rbToolBar, 1); }},
      {"ViewIconOnly", [](MainWindow& w) { ToolButtons::DisplayMode(*w.rbToolBar, 2); }},
      {"ViewTextOnly", [](MainWindow& w) { ToolButtons::DisplayMode(*w.rbToolBar, 3); }},
      {"ViewUseSmallSize",
       [](MainWindow& w) {
         const bool small = ToolButtons::DisplaySize(*w.rbToolBar) == 2;
         ToolButtons::DisplaySize(*w.rbToolBar, small ? 1 : 2);
       }},
      {"WindowMinimize", [](MainWindow& w) { w.showMinimized(); }},
      {"WindowZoom", [](MainWindow& w) { w.isMaximized() ? w.showNormal() : w.showMaximized(); }},
      {"WindowBringAllToFront",
       [](MainWindow& w) {
         for (QWidget* window : QApplication::topLevelWidgets()) {
           if (window->isVisible() && window->isWindow() && window != &w) window->raise();
         }
         w.raise();
       }},
      {"HelpappNameWebPage",
       [](MainWindow&) {
         QDesktopServices::openUrl(
             QUrl(ToQString(GlobalApplicationSpecificProperties::URLApplicationWebPage.Text())));
       }},
      {"HelpAboutappName", [](MainWindow& w) { w.app_.ShowAboutBox(); }},
  };
  const auto handler = handlers.find(name);
  if (handler != handlers.end() && !busy_) handler->second(*this);
}

void MainWindow::ToolAction(const std::string& identifier) {
  if (busy_) return;
  const auto is = [&](const ToolButtons::ToolItem& item) { return identifier == item.Identifier; };
  if (Cropping()) {
    if (is(ToolButtons::Crop())) CropMethod();
    return;
  }
  if (is(ToolButtons::Browser())) {
    if (AskToSave()) return;
    LastDirty = document_ && document_->Dirty;
    SetDirty(false);
    SwapDisplay(kBrowserPane);
  } else if (is(ToolButtons::Editor())) {
    SwapDisplay(kEditorPane);
    SetDirty(LastDirty);
  } else if (is(ToolButtons::Open())) {
    ChooseAndOpen();
  } else if (is(ToolButtons::QuickLook())) {
    QuickLookMethod();
  } else if (is(ToolButtons::FavoritesAdd())) {
    AddFavoritesMethod();
  } else if (is(ToolButtons::Save())) {
    SaveMethod();
  } else if (is(ToolButtons::SaveCopy())) {
    SaveACopyAs();
  } else if (is(ToolButtons::Rewind())) {
    PerformRewind();
  } else if (is(ToolButtons::Undo())) {
    UndoGizmo.Undo();
  } else if (is(ToolButtons::Crop())) {
    CropMethod();
  } else if (is(ToolButtons::BeforeAfter())) {
    MenuAction("ViewBeforeAfter");
  }
  UpdateCommands();
}

void MainWindow::UpdateCommands() {
  EnableMenuItems();
  const bool cropping = Cropping();
  for (QAction* action : rbToolBar->actions()) {
    const bool isCrop = action->objectName() == QLatin1String(ToolButtons::Crop().Identifier);
    if (isCrop) action->setChecked(cropping);
    if (cropping) action->setEnabled(isCrop);
  }
  if (cropping) return;
  ToolButtons::ChangeButtonEnabled(*rbToolBar, ToolButtons::Undo().Identifier,
                                   UndoGizmo.UndoAvailable());
  ToolButtons::ChangeButtonEnabled(*rbToolBar, ToolButtons::Save().Identifier,
                                   document_ && document_->Dirty);
  ToolButtons::ChangeButtonEnabled(*rbToolBar, ToolButtons::Rewind().Identifier, rewindable_);
  if (QAction* before =
          ToolButtons::itemViaIdentifier(*rbToolBar, ToolButtons::BeforeAfter().Identifier)) {
    before->setChecked(MyDisplay->ShowBefore);
  }
}

void MainWindow::UndoTexts() {
  const auto text = [](const LocalizedText& word, const std::string& name) {
    std::string shown = word.Text();
    if (!name.empty()) shown += " " + name;
    return ToQString(shown);
  };
  menu_->Item("EditUndo").setText(text(Menus::kEditUndo, UndoGizmo.UndoName()));
  menu_->Item("EditRedo").setText(text(Menus::kEditRedo, UndoGizmo.RedoName()));
}

void MainWindow::EnableMenuItems() {
  MainMenuBar& menu = *menu_;
  menu.DisableAll();
  UndoTexts();
  menu.Item("ViewShowColors").setText(ShowColorsMenuItem::Text(app_.ColorPanel()));
  const bool cropping = Cropping();
  // Half a crop is no state to leave a photo in.
  for (const char* name : {"FileOpen", "FileOpenRecent", "EditPreferences"}) {
    menu.Item(name).setEnabled(!cropping);
  }
  menu.Item("ViewHideToolbar")
      .setText(Shown(ToolbarVisible() ? Menus::kViewHideToolBar : Menus::kViewHideToolBarHidden));
  const int mode = ToolButtons::DisplayMode(*rbToolBar);
  menu.Item("ViewIconText").setChecked(mode == 1);
  menu.Item("ViewIconOnly").setChecked(mode == 2);
  menu.Item("ViewTextOnly").setChecked(mode == 3);
  menu.Item("ViewUseSmallSize").setChecked(ToolButtons::DisplaySize(*rbToolBar) == 2);
  menu.Item("ViewBeforeAfter").setChecked(MyDisplay->ShowBefore);
  menu.Item("Viewadvanced").setChecked(PreviewTitle->SegmentByTag("advanced")->Selected);
  menu.Item("Viewstyles").setChecked(PreviewTitle->SegmentByTag("styles")->Selected);
  if (cropping) {
    menu.Item("EditCrop").setEnabled(true);
    return;
  }
  menu.Item("FileNewFromClipboard").setEnabled(app_.Clipboard().HasPicture());
  if (DisplayPane == kEditorPane && document_) EnableEditorItems();
  if (DisplayPane == kBrowserPane) {
    menu.Item("ViewBrowseMyPhotos").setEnabled(document_ != nullptr);
    menu.Item("ViewBrowseMyPhotos").setText(Shown(Menus::kViewReturnToEditor));
    EnableBrowserItems();
  }
}

void MainWindow::EnableEditorItems() {
  MainMenuBar& menu = *menu_;
  const BrivolantDocument& document = *document_;
  for (const char* name :
       {"EditCopy", "EditCopyStyle", "EditClearStyle", "EditCrop", "RotateAndFlipRotate90",
        "RotateAndFlipRotate180", "RotateAndFlipRotate270", "EditChangeOrientationTo",
        "RotateAndFlipFlipHorizontally", "RotateAndFlipFlipVertially", "FileSaveACopyAs",
        "FileRevertToOriginal", "ViewBrowseMyPhotos", "ViewBeforeAfter", "ViewFullScreen",
        "Viewadvanced", "Viewstyles", "FileSaveStyleAs"}) {
    menu.Item(name).setEnabled(true);
  }
  menu.Item("ViewBrowseMyPhotos").setText(Shown(Menus::kViewBrowseMyPhotos));
  menu.Item("EditUndo").setEnabled(UndoGizmo.UndoAvailable());
  menu.Item("EditRedo").setEnabled(UndoGizmo.RedoAvailable());
  menu.Item("EditPaste").setEnabled(app_.Clipboard().HasPicture());
  menu.Item("EditPasteStyle").setEnabled(app_.Clipboard().Has(kStyleType));
  menu.Item("FileSave").setEnabled(document.Dirty);
  menu.Item("FileApplyLastStyle").setEnabled(!LastStyle.empty());
  menu.Item("RotateAndFlipRotate90").setChecked(document.Rotation == 1);
  menu.Item("RotateAndFlipRotate180").setChecked(document.Rotation == 2);
  menu.Item("RotateAndFlipRotate270").setChecked(document.Rotation == 3);
  menu.Item("EditChangeOrientationTo").setChecked(document.Orientation == 1);
  menu.Item("RotateAndFlipFlipHorizontally").setChecked(document.Flip == 1);
  menu.Item("RotateAndFlipFlipVertially").setChecked(document.Flip == 2);
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

// Opening, copying and styles.

FolderItem MainWindow::ChoosePhoto(const LocalizedText& title) {
  const std::vector<FolderItem> files = app_.FileDialogs().Open(
      title.Text(), {}, {{kAllPhotos.Text(), kPhotoExtensions}, {kAllFiles.Text(), ""}});
  return files.empty() ? FolderItem() : files.front();
}

void MainWindow::ChooseAndOpen() {
  if (const FolderItem file = ChoosePhoto(kOpenTitle)) app_.OpenDocument(file);
}

void MainWindow::PastePicture() {
  constexpr const char* kOverlay = "7FFFFFFF-B371-0D5F-E410-E0CB34849A08";
  constexpr double kQuality = 0.8;
  const Picture picture = app_.Clipboard().Picture();
  auto* overlay = dynamic_cast<EffectModuleOverlay*>(myProcessor->ItemVIaID(kOverlay));
  if (!document_ || picture.IsNil() || overlay == nullptr) return;
  const FolderItem file = app_.Services().TemporaryFiles.Child("FromClipboard.jpg");
  std::string error;
  if (!ImageIO::SaveAsJPEG(file, EnsurePictureCompatible(picture), kQuality, error)) {
    app_.Dialogs().Message(error, {});
    return;
  }
  Record({{"ProcessorStack", myProcessor->StyleData()}}, kUndoPaste.Text());
  if (!overlay->SetAsMyPicture(file)) return;
  overlay->Enabled(true);
  // At the head of the stack, above everything else.
  myProcessor->ChangeItemOrder(myProcessor->ItemPositionViaID(kOverlay), 0);
  myProcessor->SelectEffect(0);
  AdvancedPanel->selectedEffect(0);
  updateProcessorRelatedInterfaceElements();
  SetDirty(true);
}

void MainWindow::Drop(const DragItem& item) {
  if (item.IsEmpty()) return;
  // The drag's source waits for the drop to return; a question must not keep it waiting.
  QTimer::singleShot(0, this, [this, item] {
    if (!item.Files.empty()) return app_.OpenDocument(item.Files.front());
    if (!AskToSave()) OpenImage(item.Picture, kDroppedPicture.Text());
  });
}

void MainWindow::NewFromClipboard() {
  const Picture picture = app_.Clipboard().Picture();
  if (picture.IsNil() || AskToSave()) return;
  OpenImage(picture, kNewFromClipboard.Text());
}

void MainWindow::CopyPicture() {
  if (!document_) return;
  app_.Clipboard().Picture(SharedPictureEffects::Clone(document_->PreviewAfter, 24, false));
}

void MainWindow::CopyStyle() {
  app_.Clipboard().Set({}, kStyleType, myProcessor->StyleData());
}

void MainWindow::PasteStyle() {
  if (!document_ || !app_.Clipboard().Has(kStyleType)) return;
  Record({{"ProcessorStack", myProcessor->StyleData()}}, kUndoPasteStyle.Text());
  myProcessor->Reset();
  ApplyStyleData(app_.Clipboard().Data(kStyleType));
}

void MainWindow::ClearStyle() {
  if (!document_) return;
  Record({{"ProcessorStack", myProcessor->StyleData()},
          {"OneClickSelection", myStylesBar->SelectedItem}},
         kUndoClearStyle.Text());
  myProcessor->Reset();
  updateProcessorRelatedInterfaceElements();
  SetDirty(true);
}

void MainWindow::ApplyLastStyle() {
  if (!document_ || LastStyle.empty()) return;
  Record({{"ProcessorStack", myProcessor->StyleData()}}, kUndoLastStyle.Text());
  ApplyStyleData(LastStyle);
}

void MainWindow::Toggle(int BrivolantDocument::*field, int value, const char* key,
                        const LocalizedText& name) {
  if (!document_) return;
  int& present = (*document_).*field;
  Record({{key, present}}, name.Text());
  present = present == value ? 0 : value;
  SetDirty(true);
  myProcessor->UpdatePreview(true);
  infotext->Text(ToQString(getSimpleImageInfo()));
}

// Crop.

void MainWindow::CropMethod() {
  if (!document_ || busy_) return;
  if (Cropping()) {
    EndCrop();
  } else {
    BeginCrop();
  }
}

void MainWindow::BeginCrop() {
  if (DisplayPane != kEditorPane) return;
  cropBefore_ = {{"DocumentCropEnabled", document_->Crop},
                 {"DocumentCropPoint", document_->CropOffSet},
                 {"DocumentCropSize", document_->CropSize}};
  crop_ = std::make_unique<CropModule>(
      CropModule::Host{[this](CropModule& module) { cropEditor_->Show(module, *MyDisplay); },
                       [this] {
                         cropEditor_->Forget();
                         cropEditor_->hide();
                       },
                       [this] { CropMethod(); },
                       [this] {
                         // Recorded when it is done: a crop that was given up leaves nothing to
                         // undo.
                         Record(cropBefore_, kUndoCrop.Text());
                         SetDirty(true);
                       }});
  crop_->lem = myProcessor->SelectedEffect();
  crop_->Prepare(*myProcessor);
  LockForCrop(true);
  myProcessor->SelectedEffect(crop_.get());
  MyDisplay->setFocus();
  MyDisplay->Update(true);
  UpdateCommands();
}

void MainWindow::EndCrop() {
  CropModule& crop = *crop_;
  crop.Ended();
  // The toolbar's button gives up what was not applied.
  if (!document_->Crop) document_->Crop = cropBefore_.front().second.ToBool();
  myProcessor->SelectedEffect(crop.lem);
  LockForCrop(false);
  myProcessor->UpdatePreview(true);
  infotext->Text(ToQString(getSimpleImageInfo()));
  UpdateCommands();
}

void MainWindow::LockForCrop(bool locked) {
  if (locked) {
    DeactivateToolBar();
  } else {
    ActivateToolBar();
  }
  for (QWidget* control :
       std::initializer_list<QWidget*>{AdvancedPanel, AdvancedSectionheader, myStylesBar,
                                       PreviewTitle, BlendAlpha, BlendMode}) {
    control->setEnabled(!locked);
  }
}

// Colours.

void MainWindow::ColorWellClicked(int index) {
  effectModule* module = myProcessor->SelectedEffect();
  if (module == nullptr) return;
  myColorPanel->currentControl = index;
  const Color color = module->ControlValue(index).ToColor();
  myColorPanel->ShowPanel({static_cast<float>(color.Red) / 255,
                           static_cast<float>(color.Green) / 255,
                           static_cast<float>(color.Blue) / 255, 1});
  AdvancedPanel->update();
}

void MainWindow::ColorChanged(const RGBAColor& color) {
  effectModule* module = myProcessor->SelectedEffect();
  const int control = myColorPanel->currentControl;
  if (control < 0 || module == nullptr || control >= module->ControlCount()) return;
  Record({{ModuleKey("EffectChanged:", *module), module->Settings()}}, module->Name());
  const auto byte = [](float part) {
    return static_cast<std::uint8_t>(std::clamp(std::lround(part * 255), 0L, 255L));
  };
  module->ControlValue(control, Color{byte(color.Red), byte(color.Green), byte(color.Blue)});
  SetDirty(true);
  AdvancedPanel->Update();
  myProcessor->UpdatePreview(false);
}

void MainWindow::SelectedEffectChanged() {
  myColorPanel->currentControl = -1;
  if (!myColorPanel->PanelVisible()) return;
  effectModule* module = myProcessor->SelectedEffect();
  for (int i = 0; module != nullptr && i < module->ControlCount(); ++i) {
    if (module->Control(i).Type == kControlColorWell) return ColorWellClicked(i);
  }
  myColorPanel->HidePanel();
}

// Others.

void MainWindow::FullScreenMethod() {
  if (!document_ || busy_ || Cropping()) return;
  app_.Progress().Show(kProgressGeneric.Text(), this);
  const QScreen* on = screen();
  const QSize pixels = on->size() * on->devicePixelRatio();
  const std::string style = myProcessor->StyleData();
  const std::uint32_t seed = myProcessor->Seed();
  Picture result;
  InBackground([&] {
    const Picture& original = document_->ImageOriginal();
    Picture source;
    if (original.Width() > pixels.width() || original.Height() > pixels.height()) {
      source = SharedPictureEffects::Scale(document_->Image(), pixels.width(), pixels.height(),
                                           SharedPictureEffects::kScaleToFit);
    } else if (original.Width() < document_->PreviewAfter.Width()) {
      source = document_->PreviewBase;
    } else {
      source = document_->Image();
    }
    // Its own stacks: those of the window may be drawn meanwhile.
    brivolantProcessorLite processor(EffectRegistry(), app_.Services());
    processor.Startup();
    processor.StyleData(style);
    processor.Seed(seed);
    result = processor.Process(std::move(source));
  });
  if (!fullScreen_) {
    fullScreen_ = std::make_unique<QuickLookWindow>(NewFilePreviewer(), app_.Preferences());
  }
  fullScreen_->DisplayPicture(result, document_->Name);
  app_.Progress().hide();
}

void MainWindow::StorePreferences() {
  auto& preferences = app_.Preferences();
  const FolderItem folder = imageBrowser->CurrentFolder();
  preferences.Assign("imageBrowser.currentView", folder ? folder.ShellPath() : "Default");
  SavePlaces();
  StoreSearches();
  preferences.Assign("rbToolBar.Mode", ToolButtons::DisplayMode(*rbToolBar));
  preferences.Assign("rbToolBar.Size", ToolButtons::DisplaySize(*rbToolBar));
  preferences.Assign("MainWindow.Dimensions", Dimensions());
  preferences.Assign("OneClickWonderStorage.currentCategory", app_.Styles().currentCategory);
  preferences.Synchronize();
}

bool MainWindow::CancelClose() {
  if (AskToSave()) return true;
  AnimationCore::Stop();
  StorePreferences();
  return false;
}

}  // namespace brivolant
