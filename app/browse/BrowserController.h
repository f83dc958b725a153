// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/core/Desk.h"
#include "app/core/Jobs.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "platform/values/Event.h"
#include "platform/values/Text.h"

class QSplitter;
class QVBoxLayout;

namespace brivolant {

class Commands;
class Panes;
class Sidebar;
class ifkPathBar;
class ifkSearchField;
class ifkSegmentView;
class ifkSlider;

using BrowserContainer = multiViewFileBrowser::Container;

/// The browser's pane: its widgets, the path to what is on show, and what opening an item means.
class BrowserController {
 public:
  static constexpr LocalizedText kBrokenAliasMessage{
      "MainWindow.kBrokenAliasMessage",
      "The original of the alias \"<filename>\" cannot be found."};
  static constexpr LocalizedText kDeleteAlias{"MainWindow.kDeleteAlias", "Delete Alias"};
  static constexpr LocalizedText kIconSize{"MainWindow.kIconSize", "Size of icons"};
  static constexpr LocalizedText kOpen{"MainWindow.kOpen", "Open"};
  static constexpr LocalizedText kUpdatingThumbnailCaption{"MainWindow.kUpdatingThumbnailCaption",
                                                           "Updating Thumbnails"};

  BrowserController(const Desk& desk, Commands& commands, Panes& panes, QWidget* stage);
  ~BrowserController();
  BrowserController(const BrowserController&) = delete;
  BrowserController& operator=(const BrowserController&) = delete;

  /// Shows what was on show when the window was last closed.
  void OpenBrowser();
  /// Shows a folder or another container, and brings the pane into view.
  void DisplayContainer(const BrowserContainer& container);
  /// The same of a folder of the user's list, which may be gone: then nothing changes.
  void DisplayPlace(const FolderItem& place);
  /// The same for what stands for the container on show: the path bar's history does not grow.
  void DisplayInPlace(const BrowserContainer& container);
  void DisplayPath(const BrowserContainer& container, bool skipHistory);
  /// Shows a folder with some of its files selected.
  void ShowFiles(const std::vector<FolderItem>& files);
  void ShowBrowserInfo();
  void ShowEnclosingFolder();
  std::vector<FolderItem> SelectedFiles() const;
  void StorePreferences();
  /// What a row or an item of the sidebar opens: a volume is its root.
  static BrowserContainer ContainerOf(const browserItem::Wrapped& wrapped);

  // The seat, and the named controls on it; children of the stage.
  QWidget* BrowserSeat = nullptr;
  multiViewFileBrowser* imageBrowser = nullptr;
  Sidebar* mySideBar = nullptr;
  ifkPathBar* myPathBar = nullptr;
  ifkSegmentView* browserViewStyle = nullptr;
  ifkSearchField* browserSearchField = nullptr;
  ifkSlider* iconSize = nullptr;
  /// Between the bar and the rows: a place for what a search tells.
  QVBoxLayout* Column = nullptr;

  /// Something else is about to be shown.
  Event<const BrowserContainer&> Leaving;
  /// Other rows are on show.
  Event<> ListChanged;
  Event<> SelectionChanged;
  /// An image or a document is to be edited; an empty name stands for the file's own.
  Event<const FolderItem&, const std::string& /*name*/> PhotoChosen;
  /// The pane is to be seen; the user may say no.
  std::function<void()> BringIntoView;
  /// Adds to the menu on what is selected.
  std::function<void(QMenu&)> MoreRows;
  /// Moves a file to the trash, as one that was selected.
  std::function<void(const FolderItem&)> TrashFile;
  /// The photo library's package was opened.
  std::function<bool()> ShowLibrary;
  /// The album of the library's events, or null.
  std::function<std::shared_ptr<iPhotoAlbum>()> Events;

  /// Looks at what is to be opened.
  Jobs& Looking() { return looking_; }

 private:
  void Build(QWidget* stage);
  void BuildBar(QWidget* part);
  void Wire();
  void AddCommands(Commands& commands);
  void OpenItem(const BrowserPayload& payload);
  void OpenFile(const FolderItem& file, const FileFacts& facts);
  /// What is to be opened, once links are followed; the target of a broken one is nil.
  struct Seen {
    FolderItem Target;
    bool Package = false;
    bool Folder = false;
    bool Picture = false;
  };
  static Seen LookAt(const FolderItem& file);
  void Open(const Seen& seen, bool browse);
  void TellBroken(const FolderItem& alias);
  void ModeChanged();
  void KeepIconSize();
  void Sort(int column);
  bool FillMenu(QMenu& menu);
  Variant TagOf(const BrowserContainer& container);
  BrowserContainer ContainerOf(const Variant& tag) const;

  Desk desk_;
  Commands& commands_;
  Panes& panes_;
  QSplitter* split_ = nullptr;
  bool updating_ = false;
  /// What pieces of the path stand for that are no folders; their tags are indexes.
  std::vector<BrowserContainer> pathTargets_;
  Jobs looking_;
};

}  // namespace brivolant
