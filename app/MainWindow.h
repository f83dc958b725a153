// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QThreadPool>
#include <QTimer>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "app/MainMenuBar.h"
#include "app/core/UndoHandler.h"
#include "browser/SpotlightQuery.h"
#include "browser/browserItem.h"
#include "engine/EffectModuleControl.h"
#include "engine/brivolantProcessorLite.h"
#include "files/FolderitemExtensions.h"
#include "formats/PastedFiles.h"
#include "kit/ColorPanelBridge.h"
#include "kit/ifkWindow.h"
#include "platform/values/Text.h"

class QComboBox;
class QLabel;
class QMenu;
class QSplitter;
class QScrollBar;
class QVBoxLayout;

namespace brivolant {

class App;
class BrivolantDocument;
class CropEditor;
class CropModule;
class EditorDisplay;
class EffectStackEditor;
class OneClickWonder;
class QuickLookWindow;
class StylePreviews;
class StyleTiles;
class Sidebar;
class ThreadediPhotoReader;
class ifkPathBar;
class ifkSearchField;
class ifkSegmentView;
class multiViewFileBrowser;
class ifkSlider;
class ifkStaticText;
class templateSelector;
struct DragItem;
struct QuickLookItem;
struct RecoveredEdits;

/// The one document window. It holds the working areas, of which one is in view, and owns the
/// editing session: one document in the processor, one history, and a dirty flag.
class MainWindow final : public ifkWindow {
 public:
  /// Of style data on the clipboard.
  static constexpr const char* kStyleType = "application/x-brivolant-style-data";
  enum Pane { kBrowserPane = 0, kEditorPane = 1, kLayoutPane = 2 };

  static constexpr LocalizedText kOpenAnImage{"MainWindow.kOpenAnImage", "<Open an Image>"};
  static constexpr LocalizedText kFullScreen{"MainWindow.kFullScreen", "Picture Full Screen"};
  static constexpr LocalizedText kForeground{"MainWindow.kForeground", "Top Layer"};
  static constexpr LocalizedText kBackground{"MainWindow.kBackground", "Bottom Layer"};
  static constexpr LocalizedText kBlend{"MainWindow.kBlend", "Blend:"};
  static constexpr LocalizedText kOpacity{"MainWindow.kOpacity", "Opacity:"};
  static constexpr LocalizedText kImageInfo{"MainWindow.kImageInfo",
                                            "<width> x <height> (<megapixel>, Ratio: <ratio>)"};
  static constexpr LocalizedText kOpeningImage{"MainWindow.kOpeningImage",
                                               "Opening Image <filename>..."};
  static constexpr LocalizedText kUpdatingPreview{"MainWindow.kUpdatingPreview",
                                                  "Updating Preview..."};
  static constexpr LocalizedText kProgressGeneric{"MainWindow.kProgressGeneric",
                                                  "Processing Image..."};
  static constexpr LocalizedText kAskToSaveMessage{
      "MainWindow.kAskToSaveMessage",
      "Do you want to save the changes you made to the photo <filename>?"};
  static constexpr LocalizedText kAskToSaveExplaination{
      "MainWindow.kAskToSaveExplaination",
      "If you choose not to save the changes you have made to the photo, they will be lost."};
  static constexpr LocalizedText kNewFromClipboard{"MainWindow.kNewFromClipboard",
                                                   "New Image from Clipboard"};
  static constexpr LocalizedText kDroppedPicture{"MainWindow.kDroppedPicture", "New Image"};
  static constexpr LocalizedText kOpenTitle{"MainWindow.kOpenTitle", "Open a Photo"};
  static constexpr LocalizedText kSaveTitle{"MainWindow.kSaveTitle", "Save the Photo"};
  static constexpr LocalizedText kSaveCopyTitle{"MainWindow.kSaveCopyTitle",
                                                "Save the Finished Picture"};
  static constexpr LocalizedText kAllPhotos{"MainWindow.kAllPhotos", "Photos and Documents"};
  static constexpr LocalizedText kAllFiles{"MainWindow.kAllFiles", "All Files"};
  static constexpr LocalizedText kCannotReplace{
      "MainWindow.kCannotReplace",
      "The file \"<filename>\" cannot be replaced: it could not be moved to the trash."};
  static constexpr LocalizedText kPicturesNotBack{
      "MainWindow.kPicturesNotBack",
      "The pictures that lay over the photo could not be brought back. They are kept for the next "
      "start."};
  static constexpr LocalizedText kNotSaved{"MainWindow.kNotSaved",
                                           "The picture \"<filename>\" was not saved."};
  // What an entry of the history is called.
  static constexpr LocalizedText kUndoRotate{"MainWindow.kUndoRotate", "Rotate"};
  static constexpr LocalizedText kUndoFlip{"MainWindow.kUndoFlip", "Flip"};
  static constexpr LocalizedText kUndoOrientation{"MainWindow.kUndoOrientation",
                                                  "Change Orientation"};
  static constexpr LocalizedText kUndoCrop{"MainWindow.kUndoCrop", "Crop"};
  static constexpr LocalizedText kUndoRewind{"MainWindow.kUndoRewind", "Rewind"};
  static constexpr LocalizedText kUndoBlending{"MainWindow.kUndoBlending", "Blending"};
  static constexpr LocalizedText kUndoClearStyle{"MainWindow.kUndoClearStyle", "Clear Style"};
  static constexpr LocalizedText kUndoPasteStyle{"MainWindow.kUndoPasteStyle", "Paste Style"};
  static constexpr LocalizedText kUndoLastStyle{"MainWindow.kUndoLastStyle", "Last Style"};
  static constexpr LocalizedText kUndoPaste{"MainWindow.kUndoPaste", "Paste"};

  // Of the browser.
  static constexpr LocalizedText kBrokenAliasMessage{
      "MainWindow.kBrokenAliasMessage",
      "The original of the alias \"<filename>\" cannot be found."};
  static constexpr LocalizedText kDeleteAlias{"MainWindow.kDeleteAlias", "Delete Alias"};
  static constexpr LocalizedText kSearchCurrentFolder{"MainWindow.kSearchCurrentFolder",
                                                      "Search Current Folder"};
  static constexpr LocalizedText kSearchEntireComputer{"MainWindow.kSearchEntireComputer",
                                                       "Search Entire Computer"};
  static constexpr LocalizedText kSearchResults{"MainWindow.kSearchResults", "Search Results"};
  static constexpr LocalizedText kSearching{"MainWindow.kSearching",
                                            "Searching <folder> (<x> found)"};
  static constexpr LocalizedText kSearchingFor{"MainWindow.kSearchingFor", "Searching..."};
  static constexpr LocalizedText kNothingFound{"MainWindow.kNothingFound",
                                               "No photo or folder has this in its name"};
  /// Where the chosen photo library's path is kept; empty for the one in the pictures folder.
  static constexpr const char* kLibraryKey = "iPhotoLibrary.file";
  static constexpr LocalizedText kIconSize{"MainWindow.kIconSize", "Size of icons"};
  static constexpr LocalizedText kOpen{"MainWindow.kOpen", "Open"};
  static constexpr LocalizedText kOpenEnclosingFolder{"MainWindow.kOpenEnclosingFolder",
                                                      "Open Enclosing Folder"};
  static constexpr LocalizedText kRemoveFromSidebar{"MainWindow.kRemoveFromSidebar",
                                                    "Remove From Sidebar"};
  static constexpr LocalizedText kNotTrashed{
      "MainWindow.kNotTrashed", "The file \"<filename>\" could not be moved to the trash."};
  static constexpr LocalizedText kNotCopied{"MainWindow.kNotCopied",
                                            "The file \"<filename>\" could not be copied here."};
  static constexpr LocalizedText kNotRenamed{
      "MainWindow.kNotRenamed", "The file \"<filename>\" could not be renamed to \"<name>\"."};
  static constexpr LocalizedText kNameTaken{
      "MainWindow.kNameTaken",
      "The name \"<name>\" is taken by another file. Please choose a different name."};
  static constexpr LocalizedText kNameNotAllowed{
      "MainWindow.kNameNotAllowed", "The name \"<name>\" cannot be used: names hold no \"/\"."};
  static constexpr LocalizedText kNotFavorite{
      "MainWindow.kNotFavorite", "The file \"<filename>\" could not be added to the favorites."};
  static constexpr LocalizedText kNoDesktopPicture{
      "MainWindow.kNoDesktopPicture", "This desktop did not take the picture \"<filename>\"."};
  static constexpr LocalizedText kFavorites{"MainWindow.kFavorites", "Favorites"};
  static constexpr LocalizedText kNotPutBack{
      "MainWindow.kNotPutBack",
      "The file \"<filename>\" could not be taken out of the trash: its old place is not free."};
  static constexpr LocalizedText kUpdatingThumbnailCaption{"MainWindow.kUpdatingThumbnailCaption",
                                                           "Updating Thumbnails"};

  // Of the styles.
  static constexpr LocalizedText kLocked1ClickMessage{
      "MainWindow.kLocked1ClickMessage",
      "Editing of <filename> is prohibited because it is eiher locked or stored on a locked "
      "drive/disk, such as a CD-ROM"};
  static constexpr LocalizedText kLocked1ClickExplaination{
      "MainWindow.kLocked1ClickExplaination",
      "In order to edit <filename> it must either be unlocked in the finder or copied to a "
      "writeable drive first, such as your hard drive."};
  static constexpr LocalizedText kShowInFinder{"MainWindow.kShowInFinder", "Show In Finder"};
  static constexpr LocalizedText kCancel{"MainWindow.kCancel", "Cancel"};
  static constexpr LocalizedText kEditStyle{"MainWindow.kEditStyle", "Edit This 1-Click Style"};
  static constexpr LocalizedText kShareStyle{"MainWindow.kShareStyle", "Share via e-mail..."};
  static constexpr LocalizedText kRemove{"MainWindow.kRemove", "&Remove"};
  static constexpr LocalizedText keMail1ClickMessage{
      "MainWindow.keMail1ClickMessage", "Here is a cool Brivolant Photos 1-Click Style"};
  static constexpr LocalizedText kNoMailProgram{"MainWindow.kNoMailProgram",
                                                "There is no mail program that could be started."};
  static constexpr LocalizedText kDelete1ClickMessage{
      "MainWindow.kDelete1ClickMessage", "Are you sure you wish to remove <filename>?"};
  static constexpr LocalizedText kDelete1ClickExplaination{
      "MainWindow.kDelete1ClickExplaination",
      "If you remove this 1-Click Style, the file will be moved to the Trash. Giving you the "
      "opportunity to undo this action, however once you empty your Trash it will be gone "
      "forever."};

  /// The application must outlive the window.
  explicit MainWindow(App& app);
  ~MainWindow() override;

  /// Reads the settings and shows the window; once.
  void Open();

  // The session; MainWindowSession.cpp.

  /// Opens an image file or a document. An empty name stands for the file's own. False, and the
  /// user has been told, if it cannot be read; the session before goes on then.
  bool OpenImage(const FolderItem& item, std::string name);
  /// Opens a picture that has no file.
  bool OpenImage(const Picture& picture, const std::string& name);
  /// Opens what an unclean end left, not yet saved.
  bool OpenRecovered(const RecoveredEdits& edits);
  /// Saves; asks where to if the photo has no place yet. False if it is not saved.
  bool SaveMethod();
  /// True if the user cancelled.
  bool AskToSave();
  void SetDirty(bool dirty);
  void PerformRewind();
  void updateProcessorRelatedInterfaceElements();
  /// Asks for a place and writes the finished picture there.
  bool SaveACopyAs();

  // Commands; MainWindowCommands.cpp and MainWindowEditing.cpp.

  /// Acts on a menu item or a button of the toolbar by its name or identifier.
  void MenuAction(const std::string& name);
  void ToolAction(const std::string& identifier);
  void EnableMenuItems();
  void UpdateRecentMenu();
  void CropMethod();
  void FullScreenMethod();
  /// True to keep the window.
  bool CancelClose();
  bool Cropping() const;

  // Layout; MainWindowLayout.cpp.

  void SwapDisplay(int mode);
  void buildToolbar(int mode);
  void ShowHideEffects(bool visible);
  void ShowHideStyles(bool visible);

  // Browser; MainWindowBrowser.cpp, MainWindowFiles.cpp and MainWindowSources.cpp.

  /// The sections of the sidebar; searches follow.
  enum SideBarSection {
    kLibrarySection = 0,
    kDevicesSection = 1,
    kPlacesSection = 2,
    kSearchSection = 3
  };
  using BrowserContainer =
      std::variant<std::monostate, FolderItem, std::shared_ptr<browserItemCollection>,
                   std::shared_ptr<iPhotoAlbum>, std::shared_ptr<iPhotoRoll>>;

  /// Shows a folder or another container in the browser's pane.
  void DisplayContainer(const BrowserContainer& container);
  /// Reads the library of the preferences, else the one in the pictures folder, on another thread.
  void ReadPhotoLibrary();
  /// Copies files into a folder under free names, then selects them.
  void CopyFilesInto(const std::vector<FolderItem>& files, const FolderItem& folder);
  void FileMoveToTrash();
  void FileAddToSideBar();
  /// Links to what is selected, in the user's folder of favourites.
  void AddFavoritesMethod();
  void SetDesktopPicture();
  void QuickLookMethod();

  // Styles; MainWindowStyles.cpp.

  /// Fills the bar with the styles of the current category.
  void updateStylesList();
  /// Makes a style's category the current one.
  void ShowStyle(const OneClickWonder& style);
  /// Asks for a name and keeps the present stack as a style.
  void SaveStyleAs();
  /// How menus on the window are shown.
  MenuPresenter PresentMenu;

  /// Size, megapixels and proportions of the document's image; empty without one.
  std::string getSimpleImageInfo();

  // Named controls.
  std::unique_ptr<brivolantProcessorLite> myProcessor;
  UndoHandler UndoGizmo;
  EditorDisplay* MyDisplay = nullptr;
  EffectStackEditor* AdvancedPanel = nullptr;
  QScrollBar* EffectScrollbar = nullptr;
  ifkSegmentView* AdvancedSectionheader = nullptr;
  QComboBox* BlendMode = nullptr;
  ifkSlider* BlendAlpha = nullptr;
  ifkSegmentView* PreviewTitle = nullptr;
  ifkStaticText* infotext = nullptr;
  templateSelector* myStylesBar = nullptr;
  QScrollBar* styleSlider = nullptr;
  /// Under the bar's categories, beside the slider.
  QWidget* dummySlider = nullptr;
  QToolBar* rbToolBar = nullptr;
  multiViewFileBrowser* imageBrowser = nullptr;
  Sidebar* mySideBar = nullptr;
  ifkPathBar* myPathBar = nullptr;
  ifkSegmentView* browserViewStyle = nullptr;
  ifkSearchField* browserSearchField = nullptr;
  ifkSlider* iconSize = nullptr;
  SpotlightQuery mySpotlightSearch;
  /// What a search of the computer found; null when none is on show.
  std::shared_ptr<browserItemCollection> currentSearchItem;
  /// The albums of the photo library, the events first; empty until it is read.
  std::vector<std::shared_ptr<iPhotoAlbum>> iPhotolibrary;
  std::unique_ptr<MyColorPanelHelper> myColorPanel;
  QTimer ResizedUpdateTimer;
  QTimer RecoveryTimer;

  int DisplayPane = kBrowserPane;
  bool updating = false;
  bool ShownProgress = false;
  bool LastDirty = false;
  bool isResizing = false;
  std::string LastStyle;

  BrivolantDocument* Document() const { return document_.get(); }
  MainMenuBar& Menu() { return *menu_; }
  CropEditor* Cropper() { return cropEditor_.get(); }
  QuickLookWindow* FullScreen() { return fullScreen_.get(); }
  QuickLookWindow* QuickLook() { return quickLook_.get(); }
  /// True while work on another thread uses the document.
  bool Busy() const { return busy_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  using Pairs = std::vector<std::pair<std::string, Variant>>;

  void BuildControls();
  void BuildEditor();
  void BuildPanel();
  void BuildBrowser();
  void WireBrowser();
  void WireSideBar();
  void OpenBrowser();
  void LookAtDevices();
  void LayoutBrowser();
  void OpenBrowserItem(const BrowserPayload& payload);
  void OpenBrowserFile(const FolderItem& file, const FileFacts& facts);
  void BrowserListChanged();
  void BrowserModeChanged();
  void DisplayPath(const BrowserContainer& container, bool skipHistory);
  Variant TagOf(const BrowserContainer& container);
  BrowserContainer ContainerOf(const Variant& tag) const;
  /// What a row or an item of the sidebar opens: a volume is its root.
  static BrowserContainer ContainerOf(const browserItem::Wrapped& wrapped);
  void OpenSideBar();
  void RefreshSideBar();
  /// Selects what is on show.
  void HighlightSideBar();
  void TakePhotoLibrary(const std::vector<std::shared_ptr<iPhotoAlbum>>& albums);
  void ShowPhotoLibrary();
  void BuildSearch(QVBoxLayout& column);
  void WireSearch();
  void StoreSearches();
  void SearchTextChanged();
  void SearchCompleted();
  void EndSearch();
  void ShowSearchSection();
  void DropSearchItem();
  void ShowEnclosingFolder();
  bool BrowserMenu(QMenu& menu);
  void EnableBrowserItems();
  void CopyFiles();
  void PasteFiles();
  void UndoBrowserStep();
  bool MoveFile(const FolderItem& from, const FolderItem& to);
  std::vector<FolderItem> FilesOnClipboard() const;
  /// Asks the clipboard's owner, so only as a menu opens.
  void NamePastedFile();
  bool RenameFile(const browserItem& item, const std::string& name);
  void SortBrowser(int column);
  void ShowBrowserInfo();
  std::vector<FolderItem> SelectedFiles() const;
  std::vector<QuickLookItem> QuickLookItems() const;
  void FollowWithQuickLook();
  FolderItem PlacesFile() const;
  void SavePlaces();
  void WireStyles();
  void LoadStyles();
  int TileSide() const;
  void RefreshTiles();
  void OrderTiles();
  void HoverStyle(int index);
  bool ApplyOneClick(int index);
  void StyleMenu(int index, const QPoint& at);
  void RemoveStyle(int index);
  void WireProcessor();
  void WirePanel();
  void WireUndo();
  QRect EditorPlace() const;
  void PlaceSeats();
  void LayoutEditor();
  void Settle();

  void Record(const Pairs& pairs, const std::string& name);
  std::string ModuleKey(const char* kind, const effectModule& module) const;
  bool UndoAction(const std::string& key, const Variant& value);
  bool UndoModuleAction(const std::string& key, const Variant& value);
  void CompleteUndo(bool redo);
  bool StartSession(std::unique_ptr<BrivolantDocument> document, bool rewindable);
  void ShowTitle();
  void ApplyStyleData(const std::string& styleData);
  FolderItem AskWhereToSave();
  bool GiveDocumentAPlace();
  void KeepEdits();
  void InBackground(const std::function<void()>& work);

  void Toggle(int BrivolantDocument::*field, int value, const char* key, const LocalizedText& name);
  void ChooseAndOpen();
  /// A photo that the user chose, or nil.
  FolderItem ChoosePhoto(const LocalizedText& title);
  void PastePicture();
  void Drop(const DragItem& item);
  void CopyPicture();
  void CopyStyle();
  void PasteStyle();
  void ClearStyle();
  void ApplyLastStyle();
  void NewFromClipboard();
  void BeginCrop();
  void EndCrop();
  void LockForCrop(bool locked);
  void UpdateCommands();
  void EnableEditorItems();
  void UndoTexts();
  void SelectedEffectChanged();
  std::optional<Color> PickScreenColor();
  void ColorWellClicked(int index);
  void ColorChanged(const RGBAColor& color);
  void StorePreferences();

  App& app_;
  std::unique_ptr<MainMenuBar> menu_;
  std::unique_ptr<BrivolantDocument> document_;
  std::unique_ptr<CropModule> crop_;
  std::unique_ptr<CropEditor> cropEditor_;
  std::unique_ptr<QuickLookWindow> quickLook_;
  /// Shows the document on the whole screen.
  std::unique_ptr<QuickLookWindow> fullScreen_;
  QWidget* stage_ = nullptr;
  QWidget* EditorSeat = nullptr;
  QWidget* BrowserSeat = nullptr;
  QWidget* browserPart_ = nullptr;
  QSplitter* browserSplit_ = nullptr;
  QWidget* searchLine_ = nullptr;
  QLabel* searchPlace_ = nullptr;
  QTimer deviceTimer_;
  /// What pieces of the path stand for that are no folders; their tags are indexes.
  std::vector<BrowserContainer> pathTargets_;
  std::unique_ptr<Random> libraryRandom_;
  std::unique_ptr<ThreadediPhotoReader> libraryReader_;
  QThreadPool libraryPool_;
  /// Counts the reads: what an earlier one found late is not taken.
  int librariesRead_ = 0;
  std::vector<FolderItem> volumes_;
  /// What undo in the browser takes back, newest last: files that went to the trash, or a rename.
  struct BrowserStep {
    std::vector<FolderitemExtensions::TrashedFile> trashed;
    FolderItem before;
    FolderItem after;
  };
  std::vector<BrowserStep> browserSteps_;
  QWidget* panelSeat_ = nullptr;
  QWidget* blendLabel_ = nullptr;
  QWidget* opacityLabel_ = nullptr;
  QTimer settleTimer_;
  std::unique_ptr<StylePreviews> previews_;
  std::unique_ptr<StyleTiles> tiles_;
  std::unique_ptr<StyleTiles> hoverTile_;
  /// Of which the tiles are, and those that are ready by the styles' IDs.
  Picture tilesOf_;
  PastedFiles tilesPasted_;
  std::map<std::string, QImage> readyTiles_;
  /// The style that the photo is shown in for as long as the pointer rests on it.
  std::string hoverID_;
  QTimer folderTimer_;
  /// Of an undo that is under way.
  int undoneSelection_ = -1;
  Pairs cropBefore_;
  bool busy_ = false;
  bool rewindable_ = false;
};

}  // namespace brivolant
