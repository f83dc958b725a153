// SPDX-License-Identifier: MIT
#include "app/browse/BrowserController.h"

#include <QFile>
#include <QHBoxLayout>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <algorithm>

#include "app/browse/OwnPreviews.h"
#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "browser/ui/BrowserViews.h"
#include "browser/ui/ColumnPreview.h"
#include "browser/ui/Sidebar.h"
#include "formats/FileTypes.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkPathBar.h"
#include "kit/ifkSearchField.h"
#include "kit/ifkSegmentView.h"
#include "kit/ifkSlider.h"

namespace brivolant {
namespace {

using ItemPointer = std::shared_ptr<browserItem>;

constexpr const char* kIconSizeKey = "imageBrowser.IconSize";
constexpr const char* kRowSizeKey = "imageBrowser.RowSize";
constexpr int kSideBarWidth = 200;
constexpr int kMargin = 8;

FolderItem Standard(QStandardPaths::StandardLocation location) {
  return FolderItem(QFile::encodeName(QStandardPaths::writableLocation(location)).toStdString());
}

/// Milliseconds that a place may take to say what it is.
constexpr int kPatience = 20;

/// A folder that answers: one of a share that is dead keeps nobody waiting.
bool IsThere(const FolderItem& folder) {
  const auto found = FolderLister::Look(folder, kPatience);
  return found && !found->Gone;
}

}  // namespace

BrowserController::BrowserController(const Desk& desk, Commands& commands, Panes& panes,
                                     QWidget* stage)
    : desk_(desk), commands_(commands), panes_(panes) {
  Build(stage);
  Wire();
  AddCommands(commands);
}

BrowserController::~BrowserController() = default;

void BrowserController::Build(QWidget* stage) {
  BrowserSeat = new QWidget(stage);
  BrowserSeat->setAutoFillBackground(true);
  auto* whole = new QVBoxLayout(BrowserSeat);
  whole->setContentsMargins(0, 0, 0, 0);
  split_ = new QSplitter(Qt::Horizontal, BrowserSeat);
  split_->setHandleWidth(1);
  split_->setChildrenCollapsible(false);
  whole->addWidget(split_);
  mySideBar = new Sidebar(split_);
  mySideBar->setMinimumWidth(140);
  auto* part = new QWidget(split_);
  BuildBar(part);
  imageBrowser = new multiViewFileBrowser(NewThumbnailMaker(), NewFilePreviewer(), part);
  imageBrowser->DocumentExtension =
      std::string(InternalFileTypes::BrivolantPhotosDocument.Extensions);
  Column->addWidget(imageBrowser, 1);
  split_->setStretchFactor(0, 0);
  split_->setStretchFactor(1, 1);
  split_->setSizes({kSideBarWidth, 1000});
}

void BrowserController::BuildBar(QWidget* part) {
  Column = new QVBoxLayout(part);
  Column->setContentsMargins(0, 0, 0, 0);
  Column->setSpacing(0);
  auto* bar = new QHBoxLayout;
  bar->setContentsMargins(0, 2, kMargin, 2);
  bar->setSpacing(kMargin);
  myPathBar = new ifkPathBar(part);
  browserViewStyle = new ifkSegmentView(part);
  browserViewStyle->AddSegment({}, SvgIcon(QStringLiteral("ViewIcons")), 0).ToolTip =
      Shown(Menus::kViewAsIcons);
  browserViewStyle->AddSegment({}, SvgIcon(QStringLiteral("ViewList")), 1).ToolTip =
      Shown(Menus::kViewAsList);
  browserViewStyle->AddSegment({}, SvgIcon(QStringLiteral("ViewColumns")), 2).ToolTip =
      Shown(Menus::kViewAsColumns);
  browserViewStyle->setFixedSize(120, 28);
  iconSize = new ifkSlider(part);
  iconSize->setFixedSize(112, 24);
  iconSize->setAccessibleName(Shown(kIconSize));
  iconSize->setToolTip(Shown(kIconSize));
  browserSearchField = new ifkSearchField(part);
  browserSearchField->setFixedWidth(196);
  bar->addWidget(myPathBar, 1);
  bar->addWidget(iconSize);
  bar->addWidget(browserViewStyle);
  bar->addWidget(browserSearchField);
  Column->addLayout(bar);
}

void BrowserController::Wire() {
  multiViewFileBrowser& browser = *imageBrowser;
  browser.OpenItem = [this](const BrowserPayload& payload) { OpenItem(payload); };
  browser.ListChanged = [this] {
    if (!updating_) DisplayPath(imageBrowser->currentView(), false);
    ListChanged();
    commands_.Changed();
    ShowBrowserInfo();
  };
  browser.SelectionChanged = [this] {
    // Now, since the next key may be there already, and what is disabled takes none.
    commands_.Refresh();
    ShowBrowserInfo();
    SelectionChanged();
  };
  browser.modeChanged = [this] { ModeChanged(); };
  browser.PreviewChanged = [this] {
    desk_.Preferences.Assign("PreviewDisplayMetaData",
                             imageBrowser->previewCanvas().PreviewDisplayMetaData());
    desk_.Preferences.Assign("imageBrowser.splitter", imageBrowser->SplitterPosition());
  };
  browser.Sorted = [this] {
    desk_.Preferences.Assign("imageBrowser.sortColumn", imageBrowser->Rows().SortColumn());
    desk_.Preferences.Assign("imageBrowser.sortDescending", imageBrowser->Rows().Descending());
    commands_.Changed();
  };
  browser.FolderGone = [this] {
    const FolderItem gone = imageBrowser->CurrentFolder();
    const FolderItem left = FolderLister::Standing(gone, kPatience).value_or(gone.Parent());
    // Whoever edits a photo goes on doing so.
    Leaving(left);
    imageBrowser->DisplayItem(left);
  };
  browser.Navigate = [this](int direction) {
    direction < 0 ? myPathBar->Goback() : myPathBar->GoForward();
  };
  browser.ShowEnclosing = [this] { ShowEnclosingFolder(); };
  browser.ConstructContextualMenu = [this](QMenu& menu) { return FillMenu(menu); };
  browser.StartedToUpdateThumbnails = [this] { ShowBrowserInfo(); };
  browser.FinishedUpdatingThumbnails = [this] { ShowBrowserInfo(); };
  browserViewStyle->Action = [this](SegmentViewPiece& piece) {
    imageBrowser->Mode(piece.Tag.ToInt());
  };
  iconSize->ValueChanged = [this] {
    if (updating_) return;
    imageBrowser->IconSize(iconSize->value());
    KeepIconSize();
  };
  myPathBar->Action = [this](const SegmentViewPiece& piece) {
    DisplayContainer(ContainerOf(piece.Tag));
  };
  myPathBar->NavButtonClicked = [this] {
    if (myPathBar->Count() < 0) return;
    // The path is there already; only what it leads to is missing.
    const QScopedValueRollback updating(updating_, true);
    DisplayContainer(ContainerOf(myPathBar->Item(myPathBar->Count()).Tag));
  };
}

void BrowserController::OpenBrowser() {
  auto& preferences = desk_.Preferences;
  imageBrowser->previewCanvas().PreviewDisplayMetaData(
      preferences.Value("PreviewDisplayMetaData", true).ToBool());
  imageBrowser->SplitterPosition(
      preferences.Value("imageBrowser.splitter", imageBrowser->SplitterPosition()).ToInt());
  const int mode =
      std::clamp<int>(preferences.Value("imageBrowser.mode", 0).ToInt(),
                      multiViewFileBrowser::kIconView, multiViewFileBrowser::kColumnView);
  // Each view has a size of its own, also those that are not on show.
  const int icons = preferences.Value(kIconSizeKey, 128).ToInt();
  const int rows = preferences.Value(kRowSizeKey, 0).ToInt();
  imageBrowser->IconSizes(icons, rows);
  imageBrowser->Mode(mode);
  imageBrowser->Sort(std::clamp<int>(preferences.Value("imageBrowser.sortColumn", 0).ToInt(),
                                     BrowserRows::kNameColumn, BrowserRows::kDateColumn),
                     preferences.Value("imageBrowser.sortDescending", false).ToBool());
  ModeChanged();
  const std::string stored = preferences.Value("imageBrowser.currentView", "Default").ToText();
  FolderItem start =
      stored == "Default" ? Standard(QStandardPaths::PicturesLocation) : FolderItem(stored);
  if (!IsThere(start)) start = Standard(QStandardPaths::PicturesLocation);
  if (!IsThere(start)) start = Standard(QStandardPaths::HomeLocation);
  mySideBar->updateList();
  DisplayContainer(start);
  imageBrowser->setFocus();
}

void BrowserController::StorePreferences() {
  const FolderItem folder = imageBrowser->CurrentFolder();
  desk_.Preferences.Assign("imageBrowser.currentView", folder ? folder.ShellPath() : "Default");
}

void BrowserController::DisplayContainer(const BrowserContainer& container) {
  Leaving(container);
  if (panes_.Pane() != kBrowserPane && BringIntoView) BringIntoView();
  imageBrowser->DisplayItem(container);
}

void BrowserController::DisplayPlace(const FolderItem& place) {
  const auto found = FolderLister::Look(place, kPatience);
  if (found && found->Gone) return;
  Leaving(place);
  if (panes_.Pane() != kBrowserPane && BringIntoView) BringIntoView();
  imageBrowser->DisplayItem(place, found);
}

void BrowserController::DisplayInPlace(const BrowserContainer& container) {
  const QScopedValueRollback updating(updating_, true);
  imageBrowser->DisplayItem(container);
}

void BrowserController::ShowFiles(const std::vector<FolderItem>& files) {
  if (files.empty()) return;
  const FolderItem folder = files.front().Parent();
  Leaving(folder);
  imageBrowser->DisplayItem(folder);
  imageBrowser->SelectFiles(files);
}

void BrowserController::ShowBrowserInfo() {
  if (panes_.Pane() != kBrowserPane) return;
  std::string text = imageBrowser->GetViewInfo();
  if (imageBrowser->myImageGetter().State() == browserThumbnailGetter::kRunning) {
    text += " \u2014 " + kUpdatingThumbnailCaption.Text();
  }
  panes_.Info(text);
}

void BrowserController::ShowEnclosingFolder() {
  const FolderItem folder = imageBrowser->CurrentFolder();
  if (folder.IsNil()) return;
  if (folder.Parent().IsNil()) return DisplayContainer(desk_.Computer());
  DisplayContainer(folder.Parent());
  // One sees where one came from.
  imageBrowser->SelectFiles({folder});
}

void BrowserController::KeepIconSize() {
  const bool list = imageBrowser->Mode() == multiViewFileBrowser::kListView;
  desk_.Preferences.Assign(list ? kRowSizeKey : kIconSizeKey, imageBrowser->IconSize());
}

void BrowserController::ModeChanged() {
  const int mode = imageBrowser->Mode();
  for (int i = 0; i <= browserViewStyle->Count(); ++i) {
    browserViewStyle->Segment(i).Selected = browserViewStyle->Segment(i).Tag.ToInt() == mode;
  }
  browserViewStyle->update();
  desk_.Preferences.Assign("imageBrowser.mode", mode);
  KeepIconSize();
  {
    const QScopedValueRollback updating(updating_, true);
    iconSize->Minimum = imageBrowser->minIconSize();
    iconSize->Maximum = imageBrowser->maxIconSize();
    iconSize->value(imageBrowser->IconSize());
  }
  iconSize->update();
  commands_.Changed();
}

std::vector<FolderItem> BrowserController::SelectedFiles() const {
  std::vector<FolderItem> files;
  for (const BrowserPayload& payload : imageBrowser->SelectedItems()) {
    FolderItem file;
    if (const auto* item = std::get_if<ItemPointer>(&payload)) file = (*item)->File();
    if (const auto* photo = std::get_if<std::shared_ptr<iPhotoItem>>(&payload)) {
      file = (*photo)->File();
    }
    if (file) files.push_back(file);
  }
  return files;
}

}  // namespace brivolant
