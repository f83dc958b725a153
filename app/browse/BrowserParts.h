// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "app/browse/BrowserController.h"
#include "app/browse/BrowserPane.h"
#include "app/browse/CopyController.h"
#include "app/browse/DevicesController.h"
#include "app/browse/EditsController.h"
#include "app/browse/FileController.h"
#include "app/browse/FileHistory.h"
#include "app/browse/InfoController.h"
#include "app/browse/LibraryController.h"
#include "app/browse/OpeningController.h"
#include "app/browse/PathController.h"
#include "app/browse/PlacesController.h"
#include "app/browse/QuickLookController.h"
#include "app/browse/SearchController.h"
#include "app/browse/SidebarController.h"
#include "app/browse/ViewController.h"

namespace brivolant {

/// The browser's pane: its widgets, a controller for each concern, and how these hear of each
/// other.
struct BrowserParts {
  BrowserParts(const Desk& desk, EditSession& session, Commands& commands, Panes& panes,
               QWidget* stage);
  BrowserParts(const BrowserParts&) = delete;
  BrowserParts& operator=(const BrowserParts&) = delete;

  /// Reads the settings, and shows what was on show when the window was last closed.
  void Open();
  void StorePreferences();
  /// Whoever runs a loop of events holds one of these.
  void Holding(const std::function<std::shared_ptr<void>()>& hold);

  BrowserPane Pane;
  BrowserController Browser;
  PathController Path;
  ViewController View;
  OpeningController Opening;
  FileHistory History;
  FileController Files;
  CopyController Copies;
  EditsController Edits;
  InfoController Info;
  SidebarController Sections;
  DevicesController Devices;
  PlacesController Places;
  LibraryController Library;
  SearchController Search;
  QuickLookController Looks;

 private:
  void Wire();

  std::vector<Listening> listening_;
};

}  // namespace brivolant
