// SPDX-License-Identifier: MIT
#include "app/edit/StylesController.h"

#include <QFileSystemWatcher>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "app/edit/EditorPane.h"
#include "app/edit/StylePreviews.h"
#include "app/edit/StyleTiles.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "engine/ui/EditorDisplay.h"
#include "formats/BrivolantDocument.h"
#include "kit/AnimationCore.h"
#include "kit/DesktopServices.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/ifkSegmentView.h"
#include "kit/templateSelector.h"

namespace brivolant {
namespace {

constexpr const char* kCategoryKey = "OneClickWonderStorage.currentCategory";
constexpr const char* kVisibleKey = "MainWindow.myStylesBar.visible";
constexpr double kSlide = 0.25;
/// A tile is rendered so many times as large and shrunk: what works in single pixels, such as
/// sharpening, would overdo it at the tile's own size.
constexpr int kTileDetail = 2;
/// Files that arrive in the folder come in several steps.
constexpr int kFolderRests = 300;
/// More than a category will ever hold.
constexpr int kMostStyles = 100000;

}  // namespace

StylesController::StylesController(const Desk& desk, EditSession& session, Commands& commands,
                                   Panes& panes, EditorPane& pane)
    : desk_(desk), session_(session), panes_(panes), pane_(pane), bar_(*pane.myStylesBar) {
  Wire();
  const auto editing = [this] { return session_.Document() != nullptr; };
  commands.Add({
      {"FileSaveStyleAs", &Menus::kFileSaveStyleAs, "", kInEditor, [this] { SaveStyleAs(); },
       editing},
      {"Viewstyles", &OneClickWonderStorage::kOneClickNameMultiple, "Ctrl+Shift+K", kInEditor,
       [this] { ShowHideStyles(!pane_.StylesShown()); }, editing,
       [this] { return pane_.StylesShown(); }},
  });
  listening_.push_back(session_.Changed.Listen([this] { ShowSelection(); }));
  listening_.push_back(session_.Opened.Listen([this] {
    LoadStyles();
    ShowSelection();
  }));
  listening_.push_back(session_.Rendered.Listen([this] {
    // A new preview is what is to be seen now, wherever the pointer rests.
    HoverStyle(-1);
    RefreshTiles();
  }));
}

StylesController::~StylesController() = default;

void StylesController::Wire() {
  OneClickWonderStorage& store = desk_.Styles;
  PresentMenu = PopUpMenu;
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
  bar_.ContextMenu = [this](int index, const QPoint& at) { StyleMenu(index, at); };
  bar_.Hovered = [this](int index) { HoverStyle(index); };
  bar_.Scrolled = [this] { OrderTiles(); };
  previews_ = std::make_unique<StylePreviews>();
  previews_->Ready = [this](const std::string& id, const Picture& preview) {
    if (preview.IsNil()) return;
    for (const auto& style : desk_.Styles.Wonders()) {
      if (style->ID == id) style->PreviewDecoded(preview);
    }
    if (readyTiles_.contains(id)) return;
    for (int i = 0; i < bar_.Count(); ++i) {
      if (bar_.Item(i).Tag == id) bar_.Preview(i, ImageFromPicture(preview));
    }
  };
  tiles_ = std::make_unique<StyleTiles>();
  tiles_->Ready = [this](const std::string& id, const Picture& tile) {
    QImage image = ImageFromPicture(SharedPictureEffects::Scale(tile, TileSide(), TileSide(),
                                                                SharedPictureEffects::kScaleToFit));
    image.setDevicePixelRatio(bar_.devicePixelRatioF());
    readyTiles_[id] = image;
    for (int i = 0; i < bar_.Count(); ++i) {
      if (bar_.Item(i).Tag == id) bar_.Preview(i, image);
    }
  };
  hoverTile_ = std::make_unique<StyleTiles>();
  hoverTile_->Ready = [this](const std::string& id, const Picture& shown) {
    if (id == hoverID_) pane_.MyDisplay->ShowInstead(shown);
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
    const auto ready = readyTiles_.find(style->ID);
    QImage shown;
    if (ready != readyTiles_.end()) {
      shown = ready->second;
    } else if (style->PreviewIsDecoded()) {
      shown = ImageFromPicture(style->Preview());
    } else {
      previews_->Decode(*style);
    }
    bar_.Add(style->Name(), shown, style->Name(), style->ID, true, style->Description());
    if (lit && style->ID == selected) found = i;
  }
  if (lit) session_.SelectStyle(found < 0 ? -1 : SelectionOf(found));
  ShowSelection();
  bar_.updateScrollBar();
  bar_.update();
  OrderTiles();
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

// Tiles of the open photo.

int StylesController::TileSide() const {
  return static_cast<int>(std::lround(templateSelector::kPicture * bar_.devicePixelRatioF()));
}

double StylesController::ScaleOf(BrivolantDocument& document, const Picture& reduced) {
  return brivolantProcessorLite::PreviewScale(document.ImageOriginal(), document.Geometry(),
                                              reduced);
}

void StylesController::RefreshTiles() {
  if (!tiles_) return;
  if (session_.Document() == nullptr) return tiles_->Photo({}, 1, {});
  BrivolantDocument& document = *session_.Document();
  const Picture& base = document.PreviewBase;
  PastedFiles pasted = document.PastedImages();
  if (base.IsNil() || (base.SharesPixelsWith(tilesOf_) && pasted == tilesPasted_)) return;
  tilesOf_ = base;
  tilesPasted_ = pasted;
  readyTiles_.clear();
  const int side = kTileDetail * TileSide();
  const Picture small =
      SharedPictureEffects::Scale(base, side, side, SharedPictureEffects::kScaleToFit);
  tiles_->Photo(small, ScaleOf(document, small), std::move(pasted));
  OrderTiles();
}

void StylesController::OrderTiles() {
  if (session_.Document() == nullptr || !tiles_ || !bar_.isVisible()) return;
  const auto [first, last] = bar_.Visible();
  std::vector<StyleTiles::Order> orders;
  const OneClickWonderStorage& store = desk_.Styles;
  const auto order = [&](int from, int to) {
    for (int i = std::max(from, 0); i <= std::min(to, bar_.Count() - 1); ++i) {
      const auto style = store.item(i);
      if (style != nullptr) orders.push_back({style->ID, style->StyleData});
    }
  };
  // What is in view, then what a turn of the wheel brings, then the rest.
  order(first, last);
  order(last + 1, bar_.Count() - 1);
  order(0, first - 1);
  tiles_->Render(orders);
}

void StylesController::HoverStyle(int index) {
  hoverID_.clear();
  const auto style = index < 0 ? nullptr : desk_.Styles.item(index);
  if (session_.Document() == nullptr || style == nullptr || session_.HalfDone || session_.Busy()) {
    pane_.MyDisplay->ShowInstead({});
    return;
  }
  hoverID_ = style->ID;
  BrivolantDocument& document = *session_.Document();
  hoverTile_->Photo(document.PreviewBase, ScaleOf(document, document.PreviewBase),
                    document.PastedImages());
  hoverTile_->Render({{style->ID, style->StyleData}});
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
  OrderTiles();
}

}  // namespace brivolant
