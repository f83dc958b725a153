// SPDX-License-Identifier: MIT
// The bar of 1-Click styles: tiles of the open photo, applying, making, sharing, removing.
#include <QFileSystemWatcher>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "app/App.h"
#include "app/MainWindow.h"
#include "app/OneClickEditor.h"
#include "app/StylePreviews.h"
#include "app/StyleTiles.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "engine/ui/EditorDisplay.h"
#include "engine/ui/EffectStackEditor.h"
#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "kit/AnimationCore.h"
#include "kit/DesktopServices.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/ifkSegmentView.h"
#include "kit/templateSelector.h"
#include "platform/values/SharedComponents.h"

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

}  // namespace

void MainWindow::WireStyles() {
  OneClickWonderStorage& store = app_.Styles();
  PresentMenu = PopUpMenu;
  store.currentCategory =
      std::clamp(app_.Preferences().Value(kCategoryKey, 0).ToInt(), 0, store.CategoryCount());
  PreviewTitle->SegmentByTag("styles")->Selected =
      app_.Preferences().Value(kVisibleKey, true).ToBool();
  myStylesBar->myScrollBar = styleSlider;
  connect(styleSlider, &QScrollBar::valueChanged, this,
          [this](int value) { myStylesBar->tileOffset(value); });
  myStylesBar->ItemSelected = [this](int index) { return ApplyOneClick(index); };
  myStylesBar->ChangedCategory = [this](int category) {
    app_.Styles().currentCategory = category;
    app_.Preferences().Assign(kCategoryKey, category);
    app_.Preferences().Synchronize();
    myStylesBar->SelectedItem = -1;
    updateStylesList();
  };
  myStylesBar->ContextMenu = [this](int index, const QPoint& at) { StyleMenu(index, at); };
  myStylesBar->Hovered = [this](int index) { HoverStyle(index); };
  myStylesBar->Scrolled = [this] { OrderTiles(); };
  previews_ = std::make_unique<StylePreviews>();
  previews_->Ready = [this](const std::string& id, const Picture& preview) {
    if (preview.IsNil()) return;
    for (const auto& style : app_.Styles().Wonders()) {
      if (style->ID == id) style->PreviewDecoded(preview);
    }
    if (readyTiles_.contains(id)) return;
    for (int i = 0; i < myStylesBar->Count(); ++i) {
      if (myStylesBar->Item(i).Tag == id) myStylesBar->Preview(i, ImageFromPicture(preview));
    }
  };
  tiles_ = std::make_unique<StyleTiles>();
  tiles_->Ready = [this](const std::string& id, const Picture& tile) {
    QImage image = ImageFromPicture(SharedPictureEffects::Scale(tile, TileSide(), TileSide(),
                                                                SharedPictureEffects::kScaleToFit));
    image.setDevicePixelRatio(devicePixelRatioF());
    readyTiles_[id] = image;
    for (int i = 0; i < myStylesBar->Count(); ++i) {
      if (myStylesBar->Item(i).Tag == id) myStylesBar->Preview(i, image);
    }
  };
  hoverTile_ = std::make_unique<StyleTiles>();
  hoverTile_->Ready = [this](const std::string& id, const Picture& shown) {
    if (id == hoverID_) MyDisplay->ShowInstead(shown);
  };
  folderTimer_.setSingleShot(true);
  folderTimer_.setInterval(kFolderRests);
  connect(&folderTimer_, &QTimer::timeout, this, [this] {
    if (app_.Styles().Refresh()) updateStylesList();
  });
}

void MainWindow::LoadStyles() {
  if (!myStylesBar->Catergory.empty()) return;
  OneClickWonderStorage& store = app_.Styles();
  store.Load();
  auto* watcher = new QFileSystemWatcher(this);
  if (store.usersCustomWondersFolder.Directory()) {
    watcher->addPath(QString::fromStdString(store.usersCustomWondersFolder.ShellPath()));
  }
  connect(watcher, &QFileSystemWatcher::directoryChanged, this, [this] { folderTimer_.start(); });
  updateStylesList();
}

void MainWindow::updateStylesList() {
  const OneClickWonderStorage& store = app_.Styles();
  const std::string selected =
      myStylesBar->SelectedItem >= 0 && myStylesBar->SelectedItem < myStylesBar->Count()
          ? myStylesBar->Item(myStylesBar->SelectedItem).Tag
          : std::string();
  myStylesBar->RemoveAllItems();
  if (myStylesBar->Catergory.empty()) {
    for (const LocalizedText& text : OneClickWonderStorage::CategoryName) {
      myStylesBar->Catergory.push_back(text.Text());
    }
  }
  myStylesBar->selectedCategory = store.currentCategory;
  myStylesBar->SelectedItem = -1;
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
    myStylesBar->Add(style->Name(), shown, style->Name(), style->ID, true, style->Description());
    if (style->ID == selected) myStylesBar->SelectedItem = i;
  }
  myStylesBar->updateScrollBar();
  myStylesBar->update();
  OrderTiles();
}

// Tiles of the open photo.

int MainWindow::TileSide() const {
  return static_cast<int>(std::lround(templateSelector::kPicture * devicePixelRatioF()));
}

void MainWindow::RefreshTiles() {
  if (!tiles_) return;
  if (!document_) return tiles_->Photo({}, {});
  const Picture& base = document_->PreviewBase;
  PastedFiles pasted = document_->PastedImages();
  if (base.IsNil() || (base.SharesPixelsWith(tilesOf_) && pasted == tilesPasted_)) return;
  tilesOf_ = base;
  tilesPasted_ = pasted;
  readyTiles_.clear();
  const int side = kTileDetail * TileSide();
  tiles_->Photo(SharedPictureEffects::Scale(base, side, side, SharedPictureEffects::kScaleToFit),
                std::move(pasted));
  OrderTiles();
}

void MainWindow::OrderTiles() {
  if (!document_ || !tiles_ || !myStylesBar->isVisible()) return;
  const auto [first, last] = myStylesBar->Visible();
  std::vector<StyleTiles::Order> orders;
  const OneClickWonderStorage& store = app_.Styles();
  const auto order = [&](int from, int to) {
    for (int i = std::max(from, 0); i <= std::min(to, myStylesBar->Count() - 1); ++i) {
      const auto style = store.item(i);
      if (style != nullptr) orders.push_back({style->ID, style->StyleData});
    }
  };
  // What is in view, then what a turn of the wheel brings, then the rest.
  order(first, last);
  order(last + 1, myStylesBar->Count() - 1);
  order(0, first - 1);
  tiles_->Render(orders);
}

void MainWindow::HoverStyle(int index) {
  hoverID_.clear();
  const auto style = index < 0 ? nullptr : app_.Styles().item(index);
  if (!document_ || style == nullptr || Cropping() || busy_) {
    MyDisplay->ShowInstead({});
    return;
  }
  hoverID_ = style->ID;
  hoverTile_->Photo(document_->PreviewBase, document_->PastedImages());
  hoverTile_->Render({{style->ID, style->StyleData}});
}

// Commands.

bool MainWindow::ApplyOneClick(int index) {
  const auto style = app_.Styles().item(index);
  if (!document_ || style == nullptr || busy_ || Cropping()) return true;
  if (index == myStylesBar->SelectedItem) return true;
  Record({{"OneClickSelection", myStylesBar->SelectedItem},
          {"ProcessorStack", myProcessor->StyleData()}},
         style->Name());
  myProcessor->Reset();
  myProcessor->StyleData(style->StyleData);
  myProcessor->ChangeStack(0);
  updateProcessorRelatedInterfaceElements();
  SetDirty(true);
  myStylesBar->SelectedItem = index;
  myStylesBar->update();
  return false;
}

void MainWindow::StyleMenu(int index, const QPoint& at) {
  const auto style = app_.Styles().item(index);
  if (style == nullptr) return;
  const auto named = [&](const LocalizedText& text) {
    return WithPlaceholders(text.Text(), {{"<filename>", style->Name()}});
  };
  if (style->Locked()) {
    const Question question{named(kLocked1ClickMessage),
                            named(kLocked1ClickExplaination),
                            kShowInFinder.Text(),
                            kCancel.Text(),
                            {}};
    if (app_.Dialogs().Ask(question) == Answer::kAction) {
      (void)FolderitemExtensions::Reveal(style->File, app_.Desktop());
    }
    return;
  }
  MenuItem menu;
  menu.Children.push_back(
      otherSharedComponents::createMenuItem(kEditStyle.Text(), "EDIT", {}, false, true));
  menu.Children.push_back(otherSharedComponents::createMenuItem("-", {}, {}, false, true));
  menu.Children.push_back(
      otherSharedComponents::createMenuItem(kShareStyle.Text(), "SHARE", {}, false, true));
  menu.Children.push_back(otherSharedComponents::createMenuItem("-", {}, {}, false, true));
  menu.Children.push_back(
      otherSharedComponents::createMenuItem(kRemove.Text(), "REMOVE", {}, false, true));
  const auto chosen = PresentMenu(menu, at.x(), at.y());
  if (!chosen) return;
  const std::string& tag = menu.Children.at(static_cast<std::size_t>(*chosen)).Tag;
  if (tag == "EDIT") {
    if (oneClickEditor(app_, this).edit1Click(*style, {})) updateStylesList();
  } else if (tag == "SHARE") {
    if (!app_.SendViaEmail(style->File, keMail1ClickMessage.Text())) {
      app_.Dialogs().Message(kNoMailProgram.Text(), {});
    }
  } else if (tag == "REMOVE") {
    RemoveStyle(index);
  }
}

void MainWindow::RemoveStyle(int index) {
  const auto style = app_.Styles().item(index);
  const Question question{
      WithPlaceholders(kDelete1ClickMessage.Text(), {{"<filename>", style->Name()}}),
      kDelete1ClickExplaination.Text(),
      kRemove.Text(),
      kCancel.Text(),
      {}};
  if (app_.Dialogs().Ask(question) != Answer::kAction) return;
  if (!FolderitemExtensions::MoveToTrash(style->File)) {
    app_.Dialogs().Message(
        WithPlaceholders(kCannotReplace.Text(), {{"<filename>", style->File.DisplayName()}}), {});
    return;
  }
  myStylesBar->Remove(index);
  app_.Styles().Remove(*style);
}

void MainWindow::SaveStyleAs() {
  if (!document_) return;
  LoadStyles();
  auto style = std::make_shared<OneClickWonder>(app_.StyleServices());
  style->Creator = app_.usersFullName;
  style->ContactLink = app_.usersContactLink;
  style->StyleData = myProcessor->StyleData();
  style->Category = OneClickWonderStorage::kUsersCategory;
  if (!oneClickEditor(app_, this)
           .edit1Click(*style, oneClickEditor::kTitleCreateOneClickWonder.Text())) {
    return;
  }
  (void)app_.Styles().Add(style);
  ShowStyle(*style);
  for (int i = 0; i < myStylesBar->Count(); ++i) {
    if (myStylesBar->Item(i).Tag == style->ID) myStylesBar->SelectedItem = i;
  }
  myStylesBar->ScrollTo(myStylesBar->SelectedItem);
  myStylesBar->update();
}

void MainWindow::ShowStyle(const OneClickWonder& style) {
  LoadStyles();
  app_.Styles().currentCategory = std::clamp(style.Category, 0, app_.Styles().CategoryCount());
  myStylesBar->selectedCategory = app_.Styles().currentCategory;
  updateStylesList();
}

void MainWindow::ShowHideStyles(bool visible) {
  app_.Preferences().Assign(kVisibleKey, visible);
  PreviewTitle->SegmentByTag("styles")->Selected = visible;
  PreviewTitle->update();
  const QRect before = myStylesBar->geometry();
  LayoutEditor();
  if (visible && DisplayPane == kEditorPane && AnimationCore::Period() != 0) {
    const QRect place = myStylesBar->geometry();
    myStylesBar->move(before.x(), MyDisplay->geometry().bottom() + templateSelector::kHeight);
    AnimationCore::Animate(*myStylesBar, {place.x(), place.y(), place.width(), place.height()},
                           kSlide);
  }
  OrderTiles();
}

}  // namespace brivolant
