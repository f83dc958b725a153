// SPDX-License-Identifier: MIT
#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QFile>
#include <QHBoxLayout>
#include <QMenu>
#include <QSplitter>
#include <QStandardPaths>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

#include "app/App.h"
#include "app/MainWindow.h"
#include "app/Menus.h"
#include "app/OwnPreviews.h"
#include "app/ToolButtons.h"
#include "browser/ui/BrowserViews.h"
#include "browser/ui/ColumnPreview.h"
#include "browser/ui/Sidebar.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "effects/styles/OneClickWonder.h"
#include "formats/FileTypes.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkPathBar.h"
#include "kit/ifkSearchField.h"
#include "kit/ifkSegmentView.h"
#include "kit/ifkSlider.h"
#include "kit/ifkStaticText.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/services/SharedFolders.h"
#include "platform/values/Captions.h"

namespace brivolant {
namespace {

using Container = multiViewFileBrowser::Container;
using ItemPointer = std::shared_ptr<browserItem>;

constexpr int kSideBarWidth = 200;
constexpr int kMargin = 8;
/// A photo library as a file manager shows it.
constexpr const char* kLibraryPackage = "iPhoto Library";

FolderItem Standard(QStandardPaths::StandardLocation location) {
  return FolderItem(QFile::encodeName(QStandardPaths::writableLocation(location)).toStdString());
}

/// By the desktop's program for it.
void Launch(const FolderItem& file) {
  QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(file.Path().c_str())));
}

}  // namespace

void MainWindow::BuildBrowser() {
  BrowserSeat = new QWidget(stage_);
  BrowserSeat->setAutoFillBackground(true);
  auto* whole = new QVBoxLayout(BrowserSeat);
  whole->setContentsMargins(0, 0, 0, 0);
  browserSplit_ = new QSplitter(Qt::Horizontal, BrowserSeat);
  browserSplit_->setHandleWidth(1);
  browserSplit_->setChildrenCollapsible(false);
  whole->addWidget(browserSplit_);
  mySideBar = new Sidebar(browserSplit_);
  mySideBar->setMinimumWidth(140);
  browserPart_ = new QWidget(browserSplit_);
  auto* column = new QVBoxLayout(browserPart_);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  auto* bar = new QHBoxLayout;
  bar->setContentsMargins(0, 2, kMargin, 2);
  bar->setSpacing(kMargin);
  myPathBar = new ifkPathBar(browserPart_);
  browserViewStyle = new ifkSegmentView(browserPart_);
  browserViewStyle->AddSegment({}, SvgIcon(QStringLiteral("ViewIcons")), 0).ToolTip =
      Shown(Menus::kViewAsIcons);
  browserViewStyle->AddSegment({}, SvgIcon(QStringLiteral("ViewList")), 1).ToolTip =
      Shown(Menus::kViewAsList);
  browserViewStyle->AddSegment({}, SvgIcon(QStringLiteral("ViewColumns")), 2).ToolTip =
      Shown(Menus::kViewAsColumns);
  browserViewStyle->setFixedSize(120, 28);
  iconSize = new ifkSlider(browserPart_);
  iconSize->setFixedSize(112, 24);
  iconSize->setAccessibleName(Shown(kIconSize));
  iconSize->setToolTip(Shown(kIconSize));
  browserSearchField = new ifkSearchField(browserPart_);
  browserSearchField->setFixedWidth(196);
  bar->addWidget(myPathBar, 1);
  bar->addWidget(iconSize);
  bar->addWidget(browserViewStyle);
  bar->addWidget(browserSearchField);
  column->addLayout(bar);
  BuildSearch(*column);
  imageBrowser = new multiViewFileBrowser(NewThumbnailMaker(), NewFilePreviewer(), browserPart_);
  imageBrowser->DocumentExtension =
      std::string(InternalFileTypes::BrivolantPhotosDocument.Extensions);
  column->addWidget(imageBrowser, 1);
  browserSplit_->setStretchFactor(0, 0);
  browserSplit_->setStretchFactor(1, 1);
  browserSplit_->setSizes({kSideBarWidth, 1000});
  WireBrowser();
  WireSideBar();
  WireSearch();
}

void MainWindow::WireBrowser() {
  multiViewFileBrowser& browser = *imageBrowser;
  browser.OpenItem = [this](const BrowserPayload& payload) { OpenBrowserItem(payload); };
  browser.ListChanged = [this] { BrowserListChanged(); };
  browser.SelectionChanged = [this] {
    UpdateCommands();
    ShowBrowserInfo();
    FollowWithQuickLook();
  };
  browser.modeChanged = [this] { BrowserModeChanged(); };
  browser.PreviewChanged = [this] {
    app_.Preferences().Assign("PreviewDisplayMetaData",
                              imageBrowser->previewCanvas().PreviewDisplayMetaData());
    app_.Preferences().Assign("imageBrowser.splitter", imageBrowser->SplitterPosition());
  };
  browser.QuickLookAction = [this] { QuickLookMethod(); };
  browser.RenameItem = [this](const browserItem& item, const std::string& name) {
    return RenameFile(item, name);
  };
  browser.Sorted = [this] {
    app_.Preferences().Assign("imageBrowser.sortColumn", imageBrowser->Rows().SortColumn());
    app_.Preferences().Assign("imageBrowser.sortDescending", imageBrowser->Rows().Descending());
    UpdateCommands();
  };
  browser.TrashAction = [this] { FileMoveToTrash(); };
  browser.FolderGone = [this] {
    FolderItem left = imageBrowser->CurrentFolder();
    while (left && !left.Directory()) left = left.Parent();
    DisplayContainer(left);
  };
  browser.Navigate = [this](int direction) {
    direction < 0 ? myPathBar->Goback() : myPathBar->GoForward();
  };
  browser.ShowEnclosing = [this] { ShowEnclosingFolder(); };
  browser.ConstructContextualMenu = [this](QMenu& menu) { return BrowserMenu(menu); };
  browser.FilesDropped = [this](const std::vector<FolderItem>& files, const FolderItem& folder) {
    // The drag's source waits for the drop to return.
    QTimer::singleShot(0, this, [this, files, folder] { CopyFilesInto(files, folder); });
  };
  browser.StartedToUpdateThumbnails = [this] { ShowBrowserInfo(); };
  browser.FinishedUpdatingThumbnails = [this] { ShowBrowserInfo(); };
  browserViewStyle->Action = [this](SegmentViewPiece& piece) {
    imageBrowser->Mode(piece.Tag.ToInt());
  };
  iconSize->ValueChanged = [this] {
    if (updating) return;
    imageBrowser->IconSize(iconSize->value());
    app_.Preferences().Assign("imageBrowser.IconSize", imageBrowser->IconSize());
  };
  myPathBar->Action = [this](const SegmentViewPiece& piece) {
    DisplayContainer(ContainerOf(piece.Tag));
  };
  myPathBar->NavButtonClicked = [this] {
    if (myPathBar->Count() < 0) return;
    // The path is there already; only what it leads to is missing.
    updating = true;
    DisplayContainer(ContainerOf(myPathBar->Item(myPathBar->Count()).Tag));
    updating = false;
  };
}

void MainWindow::OpenBrowser() {
  auto& preferences = app_.Preferences();
  OpenSideBar();
  imageBrowser->previewCanvas().PreviewDisplayMetaData(
      preferences.Value("PreviewDisplayMetaData", true).ToBool());
  imageBrowser->SplitterPosition(
      preferences.Value("imageBrowser.splitter", imageBrowser->SplitterPosition()).ToInt());
  imageBrowser->Mode(std::clamp<int>(preferences.Value("imageBrowser.mode", 0).ToInt(),
                                     multiViewFileBrowser::kIconView,
                                     multiViewFileBrowser::kColumnView));
  if (imageBrowser->Mode() != multiViewFileBrowser::kListView) {
    imageBrowser->IconSize(preferences.Value("imageBrowser.IconSize", 128).ToInt());
  }
  imageBrowser->Sort(std::clamp<int>(preferences.Value("imageBrowser.sortColumn", 0).ToInt(),
                                     BrowserRows::kNameColumn, BrowserRows::kDateColumn),
                     preferences.Value("imageBrowser.sortDescending", false).ToBool());
  BrowserModeChanged();
  const std::string stored = preferences.Value("imageBrowser.currentView", "Default").ToText();
  FolderItem start =
      stored == "Default" ? Standard(QStandardPaths::PicturesLocation) : FolderItem(stored);
  if (!start.Directory()) start = Standard(QStandardPaths::PicturesLocation);
  if (!start.Directory()) start = Standard(QStandardPaths::HomeLocation);
  mySideBar->updateList();
  DisplayContainer(start);
  imageBrowser->setFocus();
  ReadPhotoLibrary();
}

void MainWindow::DisplayContainer(const Container& container) {
  // Whoever goes elsewhere does not wait for hits any more.
  if (container != Container(currentSearchItem)) EndSearch();
  if (DisplayPane != kBrowserPane) ToolAction(ToolButtons::Browser().Identifier);
  imageBrowser->DisplayItem(container);
}

void MainWindow::BrowserListChanged() {
  HighlightSideBar();
  if (!updating) DisplayPath(imageBrowser->currentView(), false);
  UpdateCommands();
  ShowBrowserInfo();
}

void MainWindow::ShowBrowserInfo() {
  if (DisplayPane != kBrowserPane) return;
  QString text = ToQString(imageBrowser->GetViewInfo());
  if (imageBrowser->myImageGetter().State() == browserThumbnailGetter::kRunning) {
    text += QStringLiteral(" \u2014 ") + Shown(kUpdatingThumbnailCaption);
  }
  infotext->Text(text);
}

void MainWindow::ShowEnclosingFolder() {
  const FolderItem folder = imageBrowser->CurrentFolder();
  if (folder.IsNil()) return;
  if (folder.Parent().IsNil()) return DisplayContainer(app_.myComputer());
  const std::string name = folder.DisplayName();
  DisplayContainer(folder.Parent());
  // One sees where one came from.
  imageBrowser->HighLightItem(name, false);
}

void MainWindow::BrowserModeChanged() {
  const int mode = imageBrowser->Mode();
  for (int i = 0; i <= browserViewStyle->Count(); ++i) {
    browserViewStyle->Segment(i).Selected = browserViewStyle->Segment(i).Tag.ToInt() == mode;
  }
  browserViewStyle->update();
  app_.Preferences().Assign("imageBrowser.mode", mode);
  updating = true;
  iconSize->Minimum = imageBrowser->minIconSize();
  iconSize->Maximum = imageBrowser->maxIconSize();
  iconSize->value(imageBrowser->IconSize());
  updating = false;
  iconSize->update();
  UpdateCommands();
}

// Opening.

void MainWindow::OpenBrowserItem(const BrowserPayload& payload) {
  if (busy_) return;
  if (const auto* item = std::get_if<ItemPointer>(&payload)) {
    const ItemPointer opened = *item;
    if (const auto* file = std::get_if<FolderItem>(&opened->item)) {
      return OpenBrowserFile(*file, opened->Facts.value_or(FileFacts()));
    }
    const Container inside = ContainerOf(opened->item);
    if (!std::holds_alternative<std::monostate>(inside)) DisplayContainer(inside);
    return;
  }
  if (const auto* folder = std::get_if<std::shared_ptr<browserItemCollection>>(&payload)) {
    return DisplayContainer(*folder);
  }
  if (const auto* roll = std::get_if<std::shared_ptr<iPhotoRoll>>(&payload)) {
    return DisplayContainer(*roll);
  }
  if (const auto* photo = std::get_if<std::shared_ptr<iPhotoItem>>(&payload)) {
    const FolderItem file = (*photo)->File();
    const std::string caption = (*photo)->Caption;
    if (!file) return;
    if (FolderitemExtensions::FileBaseType(file) == "Image" ||
        FolderitemExtensions::HoldsPicture(file)) {
      if (!AskToSave()) OpenImage(file, caption);
    } else {
      Launch(file);
    }
  }
}

void MainWindow::OpenBrowserFile(const FolderItem& file, const FileFacts& facts) {
  using FolderitemExtensions::HoldsPicture;
  using FolderitemExtensions::isFileType;
  FolderItem target = file;
  if (file.Alias()) {
    target = FolderitemExtensions::OriginalFile(file);
    if (target.Alias()) {
      const Answer answer = app_.Dialogs().Ask(
          {WithPlaceholders(kBrokenAliasMessage.Text(), {{"<filename>", file.DisplayName()}}),
           {},
           kDeleteAlias.Text(),
           Captions::kOK.Text(),
           {}});
      if (answer == Answer::kAction && FolderitemExtensions::MoveToTrash(file)) {
        imageBrowser->ReloadCurrentView();
      }
      return;
    }
  }
  const bool browse = QApplication::keyboardModifiers().testFlag(Qt::AltModifier);
  if (isFileType(target, &InternalFileTypes::BrivolantPhotosDocument)) {
    return app_.OpenDocument(target);
  }
  if (facts.Is == FileFacts::kPackage && !browse) {
    if (file.Name() == kLibraryPackage && !iPhotolibrary.empty()) return ShowPhotoLibrary();
    return Launch(target);
  }
  if (target.Directory()) return DisplayContainer(target);
  // Camera raw and newer formats are images too, whatever their first bytes are called.
  if (FolderitemExtensions::FileBaseType(target) == "Image" || HoldsPicture(target) ||
      isFileType(target, &InternalFileTypes::BrivolantPhotosOneClickWonder)) {
    return app_.OpenDocument(target);
  }
  Launch(target);
}

}  // namespace brivolant
