// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/JobProgress.h"
#include "app/Stage.h"
#include "app/UnfinishedWork.h"
#include "app/browse/BrowserParts.h"
#include "app/commands/Commands.h"
#include "app/commands/MainMenuBar.h"
#include "app/commands/Panes.h"
#include "app/edit/EditorParts.h"
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
    edit_.Documents.SaveMethod(std::move(then));
  }
  /// True if one must not go on now: the user cancelled, or `then` follows a save.
  bool AskToSave(const std::function<void()>& then = {}) { return edit_.Documents.AskToSave(then); }
  void SetDirty(bool dirty) { session_.SetDirty(dirty); }
  void PerformRewind() { session_.PerformRewind(); }
  void CropMethod() { edit_.Crop.CropMethod(); }
  bool Cropping() const { return edit_.Crop.Cropping(); }
  void FullScreenMethod() { edit_.Photo.FullScreenMethod(); }
  void QuickLookMethod() { browse_.Looks.QuickLookMethod(); }
  void DisplayContainer(const BrowserContainer& container) {
    browse_.Browser.DisplayContainer(container);
  }
  void ShowFiles(const std::vector<FolderItem>& files) { browse_.Browser.ShowFiles(files); }
  void CopyFilesInto(const std::vector<FolderItem>& files, const FolderItem& folder) {
    browse_.Copies.CopyFilesInto(files, folder);
  }
  void ReadPhotoLibrary() { browse_.Library.ReadPhotoLibrary(); }
  void ShowStyle(const OneClickWonder& style) { edit_.Styles.ShowStyle(style); }
  std::string getSimpleImageInfo() const { return edit_.Editor.getSimpleImageInfo(); }
  /// Does what a command's name says, if it can be done now.
  void MenuAction(const std::string& name) { commands_.Run(name); }
  /// Asks for the states of all commands now.
  void EnableMenuItems() { commands_.RefreshForMenu(); }

  void SwapDisplay(int mode) override;
  void UpdateRecentMenu();
  BrivolantDocument* Document() { return session_.Document(); }
  EditSession& Session() { return session_; }
  Jobs& FileWork() { return browse_.History.Work(); }
  Jobs& Looking() { return browse_.Opening.Looking(); }
  EditsController& Edits() { return browse_.Edits; }
  InfoController& Infos() { return browse_.Info; }
  MainMenuBar& Menu() { return *menu_; }
  CropEditor* Cropper() { return &edit_.Crop.Editor(); }
  QuickLookWindow* FullScreen() { return browse_.Looks.FullScreen(); }
  QuickLookWindow* QuickLook() { return browse_.Looks.QuickLook(); }
  ZoomController& Zoom() { return edit_.Zoom; }

  int DisplayPane = kBrowserPane;
  /// Of the photo in the editor while the browser is in view.
  bool LastDirty = false;

 private:
  App& app_;
  Stage* stage_;
  EditSession session_;
  Commands commands_;
  BrowserParts browse_;
  EditorParts edit_;

 public:
  // Named controls.
  brivolantProcessorLite* myProcessor = &session_.Processor();
  UndoHandler& UndoGizmo = session_.UndoGizmo();
  EditorDisplay* MyDisplay = edit_.Pane.MyDisplay;
  EffectStackEditor* AdvancedPanel = edit_.Pane.AdvancedPanel;
  QScrollBar* EffectScrollbar = edit_.Pane.EffectScrollbar;
  ifkSegmentView* AdvancedSectionheader = edit_.Pane.AdvancedSectionheader;
  QComboBox* BlendMode = edit_.Pane.BlendMode;
  ifkSlider* BlendAlpha = edit_.Pane.BlendAlpha;
  ifkSegmentView* PreviewTitle = edit_.Pane.PreviewTitle;
  templateSelector* myStylesBar = edit_.Pane.myStylesBar;
  QScrollBar* styleSlider = edit_.Pane.styleSlider;
  QWidget* dummySlider = edit_.Pane.dummySlider;
  multiViewFileBrowser* imageBrowser = browse_.Pane.imageBrowser;
  Sidebar* mySideBar = browse_.Pane.mySideBar;
  ifkPathBar* myPathBar = browse_.Pane.myPathBar;
  ifkSegmentView* browserViewStyle = browse_.Pane.browserViewStyle;
  ifkSearchField* browserSearchField = browse_.Pane.browserSearchField;
  ifkSlider* iconSize = browse_.Pane.iconSize;
  SpotlightQuery& mySpotlightSearch = browse_.Search.mySpotlightSearch;
  std::shared_ptr<browserItemCollection>& currentSearchItem = browse_.Search.currentSearchItem;
  std::vector<std::shared_ptr<iPhotoAlbum>>& iPhotolibrary = browse_.Library.iPhotolibrary;
  MyColorPanelHelper& myColorPanel = edit_.Colors.Panel();
  QTimer& ResizedUpdateTimer = edit_.Editor.ResizedUpdateTimer;
  MenuPresenter& PresentMenu = edit_.StyleMenu.PresentMenu;
  QToolBar* rbToolBar = nullptr;
  ifkStaticText* infotext = nullptr;
  QTimer RecoveryTimer;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  // Panes.
  int Pane() const override { return DisplayPane; }
  void Info(const std::string& text) override;
  QWidget& Window() override { return *this; }

  void BuildFrame();
  void AddCommands();
  void WireSession();
  void WireBrowser();
  void BackToBrowser();
  void StorePreferences();

  std::unique_ptr<MainMenuBar> menu_;
  RenderProgress rendering_;
  JobProgress photoWork_;
  JobProgress fileWork_;
  JobProgress editsWork_;
  /// Below what it looks at: it tells at the end what was not done.
  UnfinishedWork unfinished_;
  std::vector<Listening> listening_;
};

}  // namespace brivolant
