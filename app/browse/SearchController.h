// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "app/browse/BrowserController.h"
#include "app/core/Desk.h"
#include "browser/SpotlightQuery.h"
#include "platform/values/Event.h"
#include "platform/values/Text.h"

class QLabel;

namespace brivolant {

class BrowserPane;
class PathController;

/// The search: its field, the line that tells how it goes, and what it found.
class SearchController {
 public:
  static constexpr LocalizedText kSearchCurrentFolder{"MainWindow.kSearchCurrentFolder",
                                                      "Search Current Folder"};
  static constexpr LocalizedText kSearchEntireComputer{"MainWindow.kSearchEntireComputer",
                                                       "Search Entire Computer"};
  static constexpr LocalizedText kSearching{"MainWindow.kSearching",
                                            "Searching <folder> (<x> found)"};
  static constexpr LocalizedText kSearchingFor{"MainWindow.kSearchingFor", "Searching..."};
  static constexpr LocalizedText kNothingFound{"MainWindow.kNothingFound",
                                               "No photo or folder has this in its name"};

  SearchController(const Desk& desk, BrowserPane& pane, BrowserController& browser,
                   PathController& path);
  ~SearchController();
  SearchController(const SearchController&) = delete;
  SearchController& operator=(const SearchController&) = delete;

  void StorePreferences();
  /// What was found follows files that have other places.
  void Follow(const FileMoves& moves);

  SpotlightQuery mySpotlightSearch;
  /// What a search of the computer found; null when none is on show.
  std::shared_ptr<browserItemCollection> currentSearchItem;
  /// The search has another name, or is gone.
  Event<> Changed;

 private:
  void BuildLine();
  void WireField();
  void WireQuery();
  void TextChanged();
  void Completed();
  void End();

  Desk desk_;
  BrowserPane& pane_;
  BrowserController& browser_;
  PathController& path_;
  /// What happened since the search began, which may have been in its folder before.
  FileMoves moved_;
  /// The present search has reported.
  bool completed_ = false;
  QWidget* line_ = nullptr;
  QLabel* place_ = nullptr;
  Listening listening_;
};

}  // namespace brivolant
