// SPDX-License-Identifier: MIT
#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QDesktopServices>
#include <QFile>
#include <QHBoxLayout>
#include <QLineEdit>
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
/// Milliseconds between two looks at the mounted disks.
constexpr int kDevices = 1000;
constexpr const char* kFolds[] = {"MainWindow.sidebar.iPhoto", "MainWindow.sidebar.devices",
                                 "MainWindow.sidebar.places"};

FolderItem Standard(QStandardPaths::StandardLocation location) {
  return FolderItem(QFile::encodeName(QStandardPaths::writableLocation(location)).toStdString());
}

std::string PngOf(const SideBarItem& place) {
  constexpr int kIcon = 16;
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  SvgPixmap(ToQString(place.icon.empty() ? std::string("Folder") : place.icon), QSize(kIcon, kIcon),
            1, Qt::black)
      .save(&buffer, "PNG");
  return bytes.toStdString();
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
  browserSearchField = new QLineEdit(browserPart_);
  browserSearchField->setPlaceholderText(Shown(kSearchFolder));
  browserSearchField->setClearButtonEnabled(true);
  browserSearchField->setFixedWidth(176);
  bar->addWidget(myPathBar, 1);
  bar->addWidget(iconSize);
  bar->addWidget(browserViewStyle);
  bar->addWidget(browserSearchField);
  column->addLayout(bar);
  imageBrowser = new multiViewFileBrowser(NewThumbnailMaker(), NewFilePreviewer(), browserPart_);
  imageBrowser->DocumentExtension =
      std::string(InternalFileTypes::BrivolantPhotosDocument.Extensions);
  column->addWidget(imageBrowser, 1);
  browserSplit_->setStretchFactor(0, 0);
  browserSplit_->setStretchFactor(1, 1);
  browserSplit_->setSizes({kSideBarWidth, 1000});
  WireBrowser();
  WireSideBar();
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
  browser.TrashAction = [this] { FileMoveToTrash(); };
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
  connect(browserSearchField, &QLineEdit::textChanged, this,
          [this](const QString& text) { imageBrowser->HighLightItem(text.toStdString(), true); });
  connect(browserSearchField, &QLineEdit::returnPressed, this,
          [this] { imageBrowser->setFocus(); });
  myPathBar->Action = [this](const SegmentViewPiece& piece) {
    if (const auto* folder = piece.Tag.As<FolderItem>()) DisplayContainer(*folder);
  };
  myPathBar->NavButtonClicked = [this] {
    if (myPathBar->Count() < 0) return;
    const auto* folder = myPathBar->Item(myPathBar->Count()).Tag.As<FolderItem>();
    if (folder == nullptr) return;
    // The path is there already; only what it leads to is missing.
    updating = true;
    imageBrowser->DisplayItem(*folder);
    updating = false;
    BrowserListChanged();
  };
}

void MainWindow::WireSideBar() {
  Sidebar& bar = *mySideBar;
  for (const LocalizedText* caption :
       {&SideBarSources::kLibrary, &SideBarSources::kDevices, &SideBarSources::kPlaces}) {
    auto section = std::make_shared<SideBarCollection>();
    section->Caption = caption->Text();
    bar.item.push_back(std::move(section));
  }
  bar.item[kLibrarySection]->Visible = false;
  bar.CanEject = [](const SideBarItem& item) {
    const auto* volume = std::get_if<VolumeItem>(&item.Tag);
    return volume != nullptr && volume->Ejectable();
  };
  bar.CompareItems = [](const SideBarItem::Target& a, const SideBarItem::Target& b) {
    const auto path = [](const SideBarItem::Target& target) {
      if (const auto* volume = std::get_if<VolumeItem>(&target)) return volume->Path();
      const auto* folder = std::get_if<FolderItem>(&target);
      return folder == nullptr ? std::string() : folder->ShellPath();
    };
    return !path(a).empty() && path(a) == path(b);
  };
  bar.Folded = [this](SideBarCollection& section) {
    for (std::size_t i = 0; i < mySideBar->item.size(); ++i) {
      if (mySideBar->item[i].get() != &section || i >= std::size(kFolds)) continue;
      app_.Preferences().Assign(kFolds[i], section.ItemsVisible);
    }
  };
  bar.itemSelected = [this](const SideBarItem& item, bool eject) {
    if (const auto* volume = std::get_if<VolumeItem>(&item.Tag)) {
      const VolumeItem chosen = *volume;
      if (!eject) return DisplayContainer(FolderItem(chosen));
      (void)chosen.Eject(app_.Desktop(), app_.Dialogs(), app_.Log());
      return;
    }
    if (const auto* folder = std::get_if<FolderItem>(&item.Tag)) DisplayContainer(*folder);
  };
  bar.Removed = [this](const std::shared_ptr<SideBarItem>& item, SideBarCollection& section) {
    if (&section != mySideBar->item[kPlacesSection].get()) return;
    section.RemoveItem(item);
    mySideBar->updateList();
    SavePlaces();
  };
  bar.RightClick = [this](QMenu& menu, const std::shared_ptr<SideBarItem>& item,
                          SideBarCollection& section) {
    if (&section != mySideBar->item[kPlacesSection].get()) return false;
    const auto* folder = std::get_if<FolderItem>(&item->Tag);
    if (folder != nullptr) {
      menu.addAction(Shown(kOpen), this, [this, open = *folder] { DisplayContainer(open); });
      menu.addSeparator();
      menu.addAction(Shown(kOpenEnclosingFolder), this, [this, open = *folder] {
        if (const FolderItem parent = open.Parent()) DisplayContainer(parent);
      });
      menu.addSeparator();
    }
    menu.addAction(Shown(kRemoveFromSidebar), this,
                   [this, item, &section] { mySideBar->Removed(item, section); });
    return true;
  };
  bar.FilesDropped = [this](const std::vector<FolderItem>& files,
                            const std::shared_ptr<SideBarItem>& item, SideBarCollection& section) {
    const auto* folder = item ? std::get_if<FolderItem>(&item->Tag) : nullptr;
    if (folder != nullptr) {
      QTimer::singleShot(0, this,
                         [this, files, target = *folder] { CopyFilesInto(files, target); });
    } else if (&section == mySideBar->item[kPlacesSection].get()) {
      for (const FolderItem& file : files) {
        if (!file.Directory()) continue;
        auto place = std::make_shared<SideBarItem>();
        place->Caption = file.DisplayName();
        place->Tag = file;
        section.AddItem(std::move(place));
      }
      mySideBar->updateList();
      SavePlaces();
    }
  };
  deviceTimer_.setInterval(kDevices);
  connect(&deviceTimer_, &QTimer::timeout, this, [this] { LookAtDevices(); });
}

void MainWindow::LookAtDevices() {
  const std::vector<FolderItem> now = SideBarSources::MountedVolumes();
  if (now == volumes_) return;
  volumes_ = now;
  SideBarCollection& devices = *mySideBar->item[kDevicesSection];
  devices.RemoveAllItems();
  for (const FolderItem& root : volumes_) {
    auto device = std::make_shared<SideBarItem>();
    const VolumeItem volume(root);
    const bool computer = root.Parent().IsNil();
    device->Caption = computer ? SideBarSources::kComputer.Text() : volume.Name();
    device->icon = computer ? "Computer" : "Volume";
    device->Tag = volume;
    devices.AddItem(std::move(device));
  }
  mySideBar->updateList();
  mySideBar->highlightItem(imageBrowser->CurrentFolder());
}

FolderItem MainWindow::PlacesFile() const {
  return otherSharedComponents::userElementsFolder().Child(
      "SideBarItems." + std::string(InternalFileTypes::BrivolantPhotosSidebarItems.Extensions));
}

void MainWindow::SavePlaces() {
  if (!SideBarSources::Save(PlacesFile(), *mySideBar->item[kPlacesSection], PngOf)) {
    app_.Log().Write("The places of the sidebar could not be saved.");
  }
}

void MainWindow::OpenBrowser() {
  auto& preferences = app_.Preferences();
  for (std::size_t i = 0; i < std::size(kFolds); ++i) {
    mySideBar->item[i]->ItemsVisible = preferences.Value(kFolds[i], true).ToBool();
  }
  SideBarCollection& places = *mySideBar->item[kPlacesSection];
  if (!SideBarSources::Load(PlacesFile(), places)) {
    SideBarSources::AddDefaults(places, otherSharedComponents::DefaultPipDocumentsFolder());
  }
  deviceTimer_.start();
  LookAtDevices();
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
  BrowserModeChanged();
  const std::string stored = preferences.Value("imageBrowser.currentView", "Default").ToText();
  FolderItem start =
      stored == "Default" ? Standard(QStandardPaths::PicturesLocation) : FolderItem(stored);
  if (!start.Directory()) start = Standard(QStandardPaths::PicturesLocation);
  if (!start.Directory()) start = Standard(QStandardPaths::HomeLocation);
  mySideBar->updateList();
  DisplayContainer(start);
  imageBrowser->setFocus();
}

void MainWindow::DisplayContainer(const Container& container) {
  if (DisplayPane != kBrowserPane) ToolAction(ToolButtons::Browser().Identifier);
  imageBrowser->DisplayItem(container);
}

void MainWindow::BrowserListChanged() {
  const FolderItem folder = imageBrowser->CurrentFolder();
  mySideBar->highlightItem(folder);
  if (!updating) DisplayPath();
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

void MainWindow::DisplayPath() {
  ifkPathBar::Path path;
  for (FolderItem at = imageBrowser->CurrentFolder(); at; at = at.Parent()) {
    SegmentViewPiece piece;
    piece.Caption =
        at.Parent().IsNil() ? Shown(SideBarSources::kComputer) : ToQString(at.DisplayName());
    piece.icon =
        SvgIcon(at.Parent().IsNil() ? QStringLiteral("Computer") : QStringLiteral("Folder"));
    piece.Tag = at;
    path.insert(path.begin(), piece);
  }
  if (!path.empty()) myPathBar->FullPath(path);
}

void MainWindow::ShowEnclosingFolder() {
  const FolderItem folder = imageBrowser->CurrentFolder();
  if (folder.IsNil() || folder.Parent().IsNil()) return;
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
    if (const FolderItem root = opened->File()) DisplayContainer(root);
    return;
  }
  if (const auto* photo = std::get_if<std::shared_ptr<iPhotoItem>>(&payload)) {
    const FolderItem file = (*photo)->File();
    if (file && !AskToSave()) OpenImage(file, (*photo)->Caption);
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
  const auto launch = [&] {
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFile::decodeName(target.Path().c_str())));
  };
  const bool browse = QApplication::keyboardModifiers().testFlag(Qt::AltModifier);
  if (isFileType(target, &InternalFileTypes::BrivolantPhotosDocument)) {
    return app_.OpenDocument(target);
  }
  if (facts.Is == FileFacts::kPackage && !browse) return launch();
  if (target.Directory()) return DisplayContainer(target);
  // Camera raw and newer formats are images too, whatever their first bytes are called.
  if (FolderitemExtensions::FileBaseType(target) == "Image" || HoldsPicture(target) ||
      isFileType(target, &InternalFileTypes::BrivolantPhotosOneClickWonder)) {
    return app_.OpenDocument(target);
  }
  launch();
}

}  // namespace brivolant
