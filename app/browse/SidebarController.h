// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/browse/BrowserController.h"
#include "app/core/Desk.h"
#include "browser/SideBarItem.h"
#include "platform/values/Event.h"
#include "platform/values/Text.h"

namespace brivolant {

class BrowserPane;
class Sidebar;
class iPhotoAlbum;

/// The sidebar: its sections, and what choosing or dropping on an item of them does.
class SidebarController {
 public:
  static constexpr LocalizedText kOpenEnclosingFolder{"MainWindow.kOpenEnclosingFolder",
                                                      "Open Enclosing Folder"};
  static constexpr LocalizedText kRemoveFromSidebar{"MainWindow.kRemoveFromSidebar",
                                                    "Remove From Sidebar"};
  static constexpr const LocalizedText& kFavorites = SideBarSources::kFavorites;
  static constexpr LocalizedText kSearchResults{"MainWindow.kSearchResults", "Search Results"};

  /// The sections; that of searches comes and goes.
  enum SideBarSection {
    kLibrarySection = 0,
    kDevicesSection = 1,
    kPlacesSection = 2,
    kSearchSection = 3
  };

  SidebarController(const Desk& desk, BrowserPane& pane, BrowserController& browser);
  SidebarController(const SidebarController&) = delete;
  SidebarController& operator=(const SidebarController&) = delete;

  /// As the sections were when the window was last closed.
  void Open();
  /// Asks for what the items show anew.
  void Refresh();
  void ShowDevices(const std::shared_ptr<browserItemCollection>& computer);
  void ShowAlbums(const std::vector<std::shared_ptr<iPhotoAlbum>>& albums);
  void UnfoldLibrary();
  /// Shows what a search found as a section of its own; null takes it away.
  void ShowSearch(const std::shared_ptr<browserItemCollection>& found);

  /// Files were dropped on a folder.
  Event<const std::vector<FolderItem>&, const FolderItem&> Dropped;
  /// The same on the user's places.
  Event<const std::vector<FolderItem>&> PlacesDropped;
  Event<const VolumeItem&> EjectWanted;

 private:
  void Wire();
  void WireMenu();
  void WireDrop();
  /// Selects what is on show.
  void Highlight();

  Desk desk_;
  BrowserPane& pane_;
  BrowserController& browser_;
  Sidebar& bar_;
  Listening listening_;
};

}  // namespace brivolant
