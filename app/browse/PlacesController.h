// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "app/core/Desk.h"
#include "app/core/Jobs.h"
#include "platform/values/Event.h"

namespace brivolant {

class BrowserPane;
class Commands;
class SidebarController;
class SideBarCollection;

/// The user's places in the sidebar, and the file that keeps them.
class PlacesController {
 public:
  PlacesController(const Desk& desk, Commands& commands, BrowserPane& pane,
                   SidebarController& sidebar);
  PlacesController(const PlacesController&) = delete;
  PlacesController& operator=(const PlacesController&) = delete;

  /// Reads the places; without any, those that everybody has.
  void Open();
  void SavePlaces();
  /// A folder among the places, once.
  void AddPlace(const FolderItem& folder, const std::string& caption, const std::string& icon);

 private:
  SideBarCollection& Places();
  bool FolderSelected() const;
  /// The folders among files become places.
  void AddFolders(const std::vector<FolderItem>& files);

  Desk desk_;
  BrowserPane& pane_;
  SidebarController& sidebar_;
  Listening listening_;
  Jobs asking_;
};

}  // namespace brivolant
