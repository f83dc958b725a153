// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/JobProgress.h"
#include "app/browse/BrowserController.h"
#include "app/browse/EditsController.h"
#include "app/browse/FileController.h"
#include "app/browse/LibraryController.h"
#include "app/browse/QuickLookController.h"
#include "app/browse/SearchController.h"
#include "app/browse/SidebarController.h"
#include "app/commands/Commands.h"
#include "app/commands/MainMenuBar.h"
#include "app/commands/Panes.h"
#include "app/edit/ColorController.h"
#include "app/edit/CropController.h"
#include "app/edit/EditorController.h"
#include "app/edit/EditorPane.h"
#include "app/edit/StylesController.h"
#include "app/edit/ZoomController.h"
#include "app/session/EditSession.h"
#include "kit/ifkWindow.h"

class QToolBar;

namespace brivolant {

class App;
class ifkStaticText;

/// The one document window: a stage on which one of the panes is in view, menus and toolbar, and
/// the session and the parts that work on it. What others call by name here goes on to the part
/// that does it.
class MainWindow final : public ifkWindow, private Panes {
 public:
  using enum DisplayMode;
  using enum SidebarController::SideBarSection;

  /// The application must outlive the window.
  explicit MainWindow(App& app);
  ~MainWindow() override;

  /// Reads the settings and shows the window; once.
  void Open();

  void OpenImage(const FolderItem& item, std::string name) { session_.Open(item, std::move(name)); }
  void OpenRecovered(const RecoveredEdits& edits) { session_.Open(edits); }
  void SaveMethod(std::function<void(bool)> then = [](bool) {}) {
    editor_.SaveMethod(std::move(then));
  }
  /// True if one must not go on now: the user cancelled, or `then` follows a save.
  bool AskToSave(const std::function<void()>& then = {}) { return editor_.AskToSave(then); }
  void SetDirty(bool dirty) { session_.SetDirty(dirty); }
  void PerformRewind() { session_.PerformRewind(); }
  void CropMethod() { crop_.CropMethod(); }
  bool Cropping() const { return crop_.Cropping(); }
  void FullScreenMethod() { editor_.FullScreenMethod(); }
  void QuickLookMethod() { looks_.QuickLookMethod(); }
  void DisplayContainer(const BrowserContainer& container) { browser_.DisplayContainer(container); }
  void ShowFiles(const std::vector<FolderItem>& files) { browser_.ShowFiles(files); }
  void CopyFilesInto(const std::vector<FolderItem>& files, const FolderItem& folder) {
    files_.CopyFilesInto(files, folder);
  }
  void ReadPhotoLibrary() { library_.ReadPhotoLibrary(); }
  void ShowStyle(const OneClickWonder& style) { styles_.ShowStyle(style); }
  std::string getSimpleImageInfo() const { return editor_.getSimpleImageInfo(); }
  /// Does what a command's name says, if it can be done now.
  void MenuAction(const std::string& name) { commands_.Run(name); }
  /// Asks for the states of all commands now.
  void EnableMenuItems() { commands_.RefreshForMenu(); }

  void SwapDisplay(int mode) override;
  void UpdateRecentMenu();
  BrivolantDocument* Document() { return session_.Document(); }
  EditSession& Session() { return session_; }
  Jobs& FileWork() { return files_.Work(); }
  Jobs& Looking() { return browser_.Looking(); }
  EditsController& Edits() { return edits_; }
  MainMenuBar& Menu() { return *menu_; }
  CropEditor* Cropper() { return &crop_.Editor(); }
  QuickLookWindow* FullScreen() { return looks_.FullScreen(); }
  QuickLookWindow* QuickLook() { return looks_.QuickLook(); }
  ZoomController& Zoom() { return zoom_; }

  int DisplayPane = kBrowserPane;
  /// Of the photo in the editor while the browser is in view.
  bool LastDirty = false;

 private:
  App& app_;
  QWidget* stage_;
  EditSession session_;
  Commands commands_;
  EditorPane pane_;
  BrowserController browser_;
  FileController files_;
  EditsController edits_;
  SidebarController sidebar_;
  LibraryController library_;
  SearchController search_;
  QuickLookController looks_;
  EditorController editor_;
  StylesController styles_;
  CropController crop_;
  ColorController colors_;
  ZoomController zoom_;

 public:
  // Named controls.
  brivolantProcessorLite* myProcessor = &session_.Processor();
  UndoHandler& UndoGizmo = session_.UndoGizmo();
  EditorDisplay* MyDisplay = pane_.MyDisplay;
  EffectStackEditor* AdvancedPanel = pane_.AdvancedPanel;
  QScrollBar* EffectScrollbar = pane_.EffectScrollbar;
  ifkSegmentView* AdvancedSectionheader = pane_.AdvancedSectionheader;
  QComboBox* BlendMode = pane_.BlendMode;
  ifkSlider* BlendAlpha = pane_.BlendAlpha;
  ifkSegmentView* PreviewTitle = pane_.PreviewTitle;
  templateSelector* myStylesBar = pane_.myStylesBar;
  QScrollBar* styleSlider = pane_.styleSlider;
  QWidget* dummySlider = pane_.dummySlider;
  multiViewFileBrowser* imageBrowser = browser_.imageBrowser;
  Sidebar* mySideBar = browser_.mySideBar;
  ifkPathBar* myPathBar = browser_.myPathBar;
  ifkSegmentView* browserViewStyle = browser_.browserViewStyle;
  ifkSearchField* browserSearchField = browser_.browserSearchField;
  ifkSlider* iconSize = browser_.iconSize;
  SpotlightQuery& mySpotlightSearch = search_.mySpotlightSearch;
  std::shared_ptr<browserItemCollection>& currentSearchItem = search_.currentSearchItem;
  std::vector<std::shared_ptr<iPhotoAlbum>>& iPhotolibrary = library_.iPhotolibrary;
  MyColorPanelHelper& myColorPanel = colors_.Panel();
  QTimer& ResizedUpdateTimer = editor_.ResizedUpdateTimer;
  MenuPresenter& PresentMenu = styles_.PresentMenu;
  QToolBar* rbToolBar = nullptr;
  ifkStaticText* infotext = nullptr;
  QTimer RecoveryTimer;

 protected:
  void closeEvent(QCloseEvent* event) override;
  /// True if one must not end now: files are worked on, and the user would rather wait.
  bool MustWait();
  void changeEvent(QEvent* event) override;

 private:
  // Panes.
  int Pane() const override { return DisplayPane; }
  void Info(const std::string& text) override;
  QWidget& Window() override { return *this; }

  void BuildFrame();
  void WireSession();
  void WireBrowser();
  void AddCommands();
  void AddToolbarCommands();
  void BackToBrowser();
  void PlaceSeats();
  void Settle();
  void StorePreferences();

  std::unique_ptr<MainMenuBar> menu_;
  QTimer settleTimer_;
  RenderProgress rendering_;
  JobProgress photoWork_;
  JobProgress fileWork_;
  JobProgress editsWork_;
  std::vector<Listening> listening_;
};

}  // namespace brivolant
