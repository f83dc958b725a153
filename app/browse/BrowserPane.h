// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "browser/ui/multiViewFileBrowser.h"
#include "platform/values/Text.h"

class QVBoxLayout;
class QWidget;

namespace brivolant {

class Sidebar;
class ifkPathBar;
class ifkSearchField;
class ifkSegmentView;
class ifkSlider;

/// The widgets of the browser: the sidebar, and the rows under their bar.
class BrowserPane {
 public:
  static constexpr LocalizedText kIconSize{"MainWindow.kIconSize", "Size of icons"};

  explicit BrowserPane(QWidget* stage);
  BrowserPane(const BrowserPane&) = delete;
  BrowserPane& operator=(const BrowserPane&) = delete;

  /// The files among what is selected, photos of a library too.
  std::vector<FolderItem> SelectedFiles() const;

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

 private:
  void BuildBar(QWidget* part);
};

}  // namespace brivolant
