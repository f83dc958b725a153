// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

#include "app/core/Desk.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "platform/values/Event.h"
#include "platform/values/Text.h"

namespace brivolant {

class BrowserPane;
class Commands;
class Panes;

using BrowserContainer = multiViewFileBrowser::Container;

/// What the browser's pane shows, and what it tells of it.
class BrowserController {
 public:
  static constexpr LocalizedText kOpen{"MainWindow.kOpen", "Open"};
  static constexpr LocalizedText kUpdatingThumbnailCaption{"MainWindow.kUpdatingThumbnailCaption",
                                                           "Updating Thumbnails"};

  BrowserController(const Desk& desk, Commands& commands, Panes& panes, BrowserPane& pane);
  BrowserController(const BrowserController&) = delete;
  BrowserController& operator=(const BrowserController&) = delete;

  /// Shows what was on show when the window was last closed.
  void OpenBrowser();
  /// Shows a folder or another container, and brings the pane into view.
  void DisplayContainer(const BrowserContainer& container);
  /// The same of a folder of the user's list, which may be gone: then nothing changes.
  void DisplayPlace(const FolderItem& place);
  /// The same of one that the path leads to already.
  void DisplayAlongPath(const BrowserContainer& container);
  /// The same for what stands for the container on show: the path stays as it is.
  void DisplayInPlace(const BrowserContainer& container);
  /// The list that changes is not another step of the path.
  bool InPlace() const { return inPlace_; }
  /// Shows a folder with some of its files selected.
  void ShowFiles(const std::vector<FolderItem>& files);
  void ShowBrowserInfo();
  void ShowEnclosingFolder();
  void StorePreferences();
  /// What a row or an item of the sidebar opens: a volume is its root.
  static BrowserContainer ContainerOf(const browserItem::Wrapped& wrapped);

  /// Something else is about to be shown.
  Event<const BrowserContainer&> Leaving;
  /// Other rows are on show.
  Event<> ListChanged;
  Event<> SelectionChanged;
  /// The pane is to be seen; the user may say no.
  std::function<void()> BringIntoView;

 private:
  void Wire();
  /// Tells where it goes, and brings the pane into view.
  void LeaveFor(const BrowserContainer& container);

  Desk desk_;
  Commands& commands_;
  Panes& panes_;
  BrowserPane& pane_;
  bool inPlace_ = false;
};

}  // namespace brivolant
