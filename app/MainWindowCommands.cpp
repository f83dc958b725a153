// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QDesktopServices>
#include <QMenu>
#include <QToolBar>
#include <QUrl>
#include <map>

#include "app/App.h"
#include "app/MainWindow.h"
#include "app/Menus.h"
#include "app/ToolButtons.h"
#include "app/core/GlobalApplicationSpecificProperties.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "effects/crop/CropModule.h"
#include "engine/ui/EditorDisplay.h"
#include "formats/BrivolantDocument.h"
#include "kit/AnimationCore.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkSegmentView.h"

namespace brivolant {

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
  for (const auto& [name, text] : {std::pair{"EditCopy", &Menus::kEditCopy},
                                   {"EditPaste", &Menus::kEditPaste},
                                   {"FileQuickLook", &Menus::kQuickLook}}) {
    menu.Item(name).setText(Shown(*text));
  }
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

// Ending.

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
