// SPDX-License-Identifier: MIT
#include "app/edit/StylesController.h"

#include <QFileSystemWatcher>
#include <QScrollBar>
#include <algorithm>

#include "app/commands/Commands.h"
#include "app/edit/EditorPane.h"
#include "app/edit/TilesController.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "engine/ui/EditorDisplay.h"
#include "kit/AnimationCore.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/ifkSegmentView.h"
#include "kit/templateSelector.h"

namespace brivolant {
namespace {

constexpr const char* kCategoryKey = "OneClickWonderStorage.currentCategory";
constexpr const char* kVisibleKey = "MainWindow.myStylesBar.visible";
constexpr double kSlide = 0.25;
/// Files that arrive in the folder come in several steps.
constexpr int kFolderRests = 300;
/// More than a category will ever hold.
constexpr int kMostStyles = 100000;

}  // namespace

StylesController::StylesController(const Desk& desk, EditSession& session, Commands& commands,
                                   Panes& panes, EditorPane& pane, TilesController& tiles)
    : desk_(desk),
      session_(session),
      panes_(panes),
      pane_(pane),
      tiles_(tiles),
      bar_(*pane.myStylesBar) {
  Wire();
  const auto editing = [this] { return session_.Document() != nullptr; };
  commands.Add({
      {"Viewstyles", &OneClickWonderStorage::kOneClickNameMultiple, "Ctrl+Shift+K", kInEditor,
       [this] { ShowHideStyles(!pane_.StylesShown()); }, editing,
       [this] { return pane_.StylesShown(); }},
  });
  listening_.push_back(session_.Changed.Listen([this] { ShowSelection(); }));
  listening_.push_back(session_.Opened.Listen([this] {
    LoadStyles();
    ShowSelection();
  }));
}

void StylesController::Wire() {
  OneClickWonderStorage& store = desk_.Styles;
  store.currentCategory =
      std::clamp(desk_.Preferences.Value(kCategoryKey, 0).ToInt(), 0, store.CategoryCount());
  pane_.PreviewTitle->SegmentByTag("styles")->Selected =
      desk_.Preferences.Value(kVisibleKey, true).ToBool();
  bar_.myScrollBar = pane_.styleSlider;
  QObject::connect(pane_.styleSlider, &QScrollBar::valueChanged, &bar_,
                   [this](int value) { bar_.tileOffset(value); });
  bar_.ItemSelected = [this](int index) { return ApplyOneClick(index); };
  bar_.ChangedCategory = [this](int category) {
    desk_.Styles.currentCategory = category;
    desk_.Preferences.Assign(kCategoryKey, category);
    desk_.Preferences.SynchronizeSoon();
    updateStylesList();
  };
  folderTimer_.setSingleShot(true);
  folderTimer_.setInterval(kFolderRests);
  QObject::connect(&folderTimer_, &QTimer::timeout, [this] {
    if (desk_.Styles.Refresh()) updateStylesList();
  });
}

void StylesController::LoadStyles() {
  if (!bar_.Catergory.empty()) return;
  OneClickWonderStorage& store = desk_.Styles;
  store.Load();
  auto* watcher = new QFileSystemWatcher(&bar_);
  if (store.usersCustomWondersFolder.Directory()) {
    watcher->addPath(QString::fromStdString(store.usersCustomWondersFolder.ShellPath()));
  }
  QObject::connect(watcher, &QFileSystemWatcher::directoryChanged, &bar_,
                   [this] { folderTimer_.start(); });
  updateStylesList();
}

void StylesController::updateStylesList() {
  const OneClickWonderStorage& store = desk_.Styles;
  // In a list that has changed the lit style may have another place.
  const bool same = shownCategory_ == store.currentCategory;
  shownCategory_ = store.currentCategory;
  const bool lit = same && bar_.SelectedItem >= 0 && bar_.SelectedItem < bar_.Count();
  const std::string selected = lit ? bar_.Item(bar_.SelectedItem).Tag : std::string();
  bar_.RemoveAllItems();
  if (bar_.Catergory.empty()) {
    for (const LocalizedText& text : OneClickWonderStorage::CategoryName) {
      bar_.Catergory.push_back(text.Text());
    }
  }
  bar_.selectedCategory = store.currentCategory;
  int found = -1;
  for (int i = 0; i < store.Count(); ++i) {
    const auto style = store.item(i);
    bar_.Add(style->Name(), tiles_.PictureOf(*style), style->Name(), style->ID, true,
             style->Description());
    if (lit && style->ID == selected) found = i;
  }
  if (lit) session_.SelectStyle(found < 0 ? -1 : SelectionOf(found));
  ShowSelection();
  bar_.updateScrollBar();
  bar_.update();
  tiles_.OrderTiles();
}

int StylesController::SelectionOf(int index) const {
  return desk_.Styles.currentCategory * kMostStyles + index;
}

void StylesController::ShowSelection() {
  const int selection = session_.StyleSelection();
  const bool here = selection >= 0 && selection / kMostStyles == desk_.Styles.currentCategory;
  const int item = here && selection % kMostStyles < bar_.Count() ? selection % kMostStyles : -1;
  if (item == bar_.SelectedItem) return;
  bar_.SelectedItem = item;
  bar_.update();
}

// Commands.

bool StylesController::ApplyOneClick(int index) {
  const auto style = desk_.Styles.item(index);
  if (session_.Document() == nullptr || style == nullptr || session_.Busy() || session_.HalfDone)
    return true;
  if (index == bar_.SelectedItem) return true;
  session_.ApplyStyle(style->StyleData, style->Name());
  session_.SelectStyle(SelectionOf(index));
  return false;
}

void StylesController::ShowStyle(const OneClickWonder& style) {
  LoadStyles();
  desk_.Styles.currentCategory = std::clamp(style.Category, 0, desk_.Styles.CategoryCount());
  updateStylesList();
}

void StylesController::ShowHideStyles(bool visible) {
  desk_.Preferences.Assign(kVisibleKey, visible);
  pane_.PreviewTitle->SegmentByTag("styles")->Selected = visible;
  pane_.PreviewTitle->update();
  const QRect before = bar_.geometry();
  pane_.Layout();
  if (visible && panes_.Pane() == kEditorPane && AnimationCore::Period() != 0) {
    const QRect place = bar_.geometry();
    bar_.move(before.x(), pane_.MyDisplay->geometry().bottom() + templateSelector::kHeight);
    AnimationCore::Animate(bar_, {place.x(), place.y(), place.width(), place.height()}, kSlide);
  }
  tiles_.OrderTiles();
}

}  // namespace brivolant
