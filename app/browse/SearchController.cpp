// SPDX-License-Identifier: MIT
#include "app/browse/SearchController.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <algorithm>
#include <utility>

#include "app/browse/BrowserPane.h"
#include "app/browse/PathController.h"
#include "app/browse/SidebarController.h"
#include "formats/FileTypes.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/ifkPathBar.h"
#include "kit/ifkSearchField.h"
#include "platform/values/Captions.h"

namespace brivolant {
namespace {

constexpr const char* kSearchFolderTag = "SEARCHFOLDER";
constexpr const char* kSearchComputerTag = "SEARCHCOMPUTER";
constexpr const char* kRecentSearches = "browserSearchField.RecentSearches";
/// Letters that a search of the whole computer begins with.
constexpr int kLeastLetters = 3;
constexpr int kMargin = 8;

}  // namespace

SearchController::SearchController(const Desk& desk, BrowserPane& pane, BrowserController& browser,
                                   PathController& path)
    : desk_(desk), pane_(pane), browser_(browser), path_(path) {
  BuildLine();
  WireField();
  WireQuery();
  // Whoever goes elsewhere does not wait for hits any more.
  listening_ = browser_.Leaving.Listen([this](const BrowserContainer& next) {
    if (next != BrowserContainer(currentSearchItem)) End();
  });
}

SearchController::~SearchController() = default;

void SearchController::BuildLine() {
  line_ = new QWidget(pane_.imageBrowser->parentWidget());
  auto* line = new QHBoxLayout(line_);
  line->setContentsMargins(kMargin, 0, kMargin, 4);
  line->setSpacing(kMargin);
  place_ = new QLabel(line_);
  place_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  auto* busy = new QProgressBar(line_);
  busy->setRange(0, 0);
  busy->setTextVisible(false);
  busy->setFixedSize(96, 6);
  auto* cancel = new QPushButton(Shown(Captions::kCancel), line_);
  line->addWidget(place_, 1);
  line->addWidget(busy);
  line->addWidget(cancel);
  line_->hide();
  // Between the bar and the rows.
  pane_.Column->insertWidget(1, line_);
  QObject::connect(cancel, &QPushButton::clicked, line_, [this] { mySpotlightSearch.Finish(); });
}

void SearchController::WireField() {
  ifkSearchField& field = *pane_.browserSearchField;
  field.useLiveSearch = true;
  field.SearchIcon(true);
  field.Menu = {{kSearchCurrentFolder.Text(), kSearchFolderTag, {}, true, true, {}},
                {kSearchEntireComputer.Text(), kSearchComputerTag, {}, false, true, {}}};
  field.TextChanged = [this] { TextChanged(); };
  field.Entered = [this] { pane_.imageBrowser->setFocus(); };
  field.MenuAction = [&field](MenuItem& chosen) {
    for (MenuItem& item : field.Menu) item.Checked = &item == &chosen;
    field.DescriptiveText(Shown(ifkSearchField::kDefaultSearchCaption) + QStringLiteral(": ") +
                          ToQString(chosen.Text));
  };
  field.CancelClicked = [this] {
    End();
    pane_.myPathBar->Goback();
    currentSearchItem.reset();
    Changed();
    return false;
  };
  std::vector<std::string> recent;
  const std::string stored = desk_.Preferences.Value(kRecentSearches, "").ToText();
  for (const std::string_view text : Split(stored, '\n')) {
    if (!text.empty()) recent.emplace_back(text);
  }
  field.RecentSearches(std::move(recent));
}

void SearchController::WireQuery() {
  mySpotlightSearch.DocumentExtension =
      std::string(InternalFileTypes::BrivolantPhotosDocument.Extensions);
  mySpotlightSearch.Facts = pane_.imageBrowser->Facts;
  mySpotlightSearch.Completed = [this] { Completed(); };
  mySpotlightSearch.Progress = [this](const std::string& folder, int found) {
    const QString text = ToQString(WithPlaceholders(
        kSearching.Text(), {{"<folder>", EnsureUTF8(folder)}, {"<x>", std::to_string(found)}}));
    // Its width counts from the first report on.
    line_->show();
    pane_.Column->activate();
    place_->setText(place_->fontMetrics().elidedText(text, Qt::ElideMiddle, place_->width()));
  };
}

void SearchController::StorePreferences() {
  std::vector<std::string> recent = pane_.browserSearchField->RecentSearches();
  if (recent.back().empty()) recent.pop_back();
  std::string stored;
  for (const std::string& text : recent) stored.append(text).append("\n");
  desk_.Preferences.Assign(kRecentSearches, stored);
}

void SearchController::TextChanged() {
  multiViewFileBrowser& rows = *pane_.imageBrowser;
  const auto& menu = pane_.browserSearchField->Menu;
  const auto mode =
      std::find_if(menu.begin(), menu.end(), [](const MenuItem& item) { return item.Checked; });
  if (mode == menu.end() || mode->Tag.empty()) return;
  const std::string text = pane_.browserSearchField->Text();
  if (mode->Tag == kSearchFolderTag) return rows.HighLightItem(text, true);
  End();
  if (ToQString(text).size() < kLeastLetters) return;
  const bool fresh =
      !currentSearchItem || rows.currentView() != BrowserContainer(currentSearchItem);
  if (!currentSearchItem) {
    currentSearchItem = std::make_shared<browserItemCollection>();
    currentSearchItem->Icon = "Search";
  }
  currentSearchItem->Name = "\"" + text + "\" " + SidebarController::kSearchResults.Text();
  Changed();
  rows.EmptyText = kSearchingFor.Text();
  mySpotlightSearch.Query = text;
  if (fresh) {
    rows.DisplayItem(currentSearchItem);
  } else {
    browser_.DisplayInPlace(currentSearchItem);
  }
  path_.DisplayPath(currentSearchItem, true);
  moved_.clear();
  completed_ = false;
  mySpotlightSearch.Run();
}

void SearchController::Completed() {
  const bool late = std::exchange(completed_, true);
  line_->hide();
  pane_.imageBrowser->EmptyText = kNothingFound.Text();
  if (!currentSearchItem) return;
  // What the text before found and this one does not is gone.
  currentSearchItem->RemoveAllItems();
  for (int i = 0; i < mySpotlightSearch.Count(); ++i) {
    const SpotlightItem& hit = mySpotlightSearch.Item(i);
    if (hit.File()) currentSearchItem->AddItem(hit.Row());
  }
  currentSearchItem->Follow(moved_);
  // Whoever has gone elsewhere meanwhile stays there.
  if (pane_.imageBrowser->currentView() != BrowserContainer(currentSearchItem)) return;
  // What comes late takes nobody's selection, place or half-typed name.
  late ? pane_.imageBrowser->ReloadCurrentView() : browser_.DisplayInPlace(currentSearchItem);
}

void SearchController::Follow(const FileMoves& moves) {
  if (mySpotlightSearch.Running()) moved_.insert(moved_.end(), moves.begin(), moves.end());
  if (currentSearchItem) currentSearchItem->Follow(moves);
}

void SearchController::End() {
  mySpotlightSearch.Stop();
  line_->hide();
  pane_.imageBrowser->EmptyText.clear();
}

}  // namespace brivolant
