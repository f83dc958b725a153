// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/browse/BrowserController.h"
#include "app/core/Desk.h"
#include "app/core/Jobs.h"
#include "browser/SideBarItem.h"
#include "platform/values/Event.h"
#include "platform/values/Text.h"

namespace brivolant {

class Commands;
class iPhotoAlbum;

/// The sidebar: its sections, the mounted disks, and the user's places.
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

  SidebarController(const Desk& desk, Commands& commands, BrowserController& browser);
  SidebarController(const SidebarController&) = delete;
  SidebarController& operator=(const SidebarController&) = delete;

  /// Reads the places and looks at the disks, from now on every second.
  void Open();
  void SavePlaces();
  void ShowAlbums(const std::vector<std::shared_ptr<iPhotoAlbum>>& albums);
  void UnfoldLibrary();
  /// Shows what a search found as a section of its own; null takes it away.
  void ShowSearch(const std::shared_ptr<browserItemCollection>& found);
  /// A folder among the places, once.
  void AddPlace(const FolderItem& folder, const std::string& caption, const std::string& icon);

  /// Files were dropped on a folder.
  Event<const std::vector<FolderItem>&, const FolderItem&> Dropped;

 private:
  void Wire();
  void WireMenu();
  void WireDrop();
  void LookAtDevices();
  void Eject(const VolumeItem& volume);
  void Refresh();
  /// Selects what is on show.
  void Highlight();
  void AddSelected();
  /// The folders among files become places.
  void AddFolders(const std::vector<FolderItem>& files);

  Desk desk_;
  BrowserController& browser_;
  Sidebar& bar_;
  QTimer deviceTimer_;
  /// Those that are shown, and whether they have told of themselves.
  std::vector<std::pair<FolderItem, bool>> volumes_;
  Jobs asking_;
  Listening listening_;
};

}  // namespace brivolant
