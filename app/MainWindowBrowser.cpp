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
#include "app/QuickLookWindow.h"
#include "app/ToolButtons.h"
#include "app/core/ApplicationServices.h"
#include "browser/ui/BrowserViews.h"
#include "browser/ui/Sidebar.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "effects/styles/OneClickWonder.h"
#include "formats/BrivolantDocument.h"
#include "formats/FileTypes.h"
#include "formats/ImageFile.h"
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

constexpr const char* kUriList = "text/uri-list";
constexpr const char* kThumbnailProgram = "brivolant-photos-1";
constexpr int kSideBarWidth = 200;
constexpr int kMargin = 8;
/// Milliseconds between two looks at the mounted disks.
constexpr int kDevices = 1000;
enum Section { kDevicesSection = 0, kPlacesSection = 1 };
constexpr const char* kFolds[] = {"MainWindow.sidebar.devices", "MainWindow.sidebar.places"};

/// The stored picture of a file of the program's own kinds; nil for any other.
Picture OwnPreview(const FolderItem& file, int longest) {
  using FolderitemExtensions::isFileType;
  if (isFileType(file, &InternalFileTypes::BrivolantPhotosDocument)) {
    if (!file.Directory()) {
      const QuietServices services;
      BrivolantDocument document(services.All());
      return document.Load(file) ? document.PreviewAfter : Picture();
    }
    auto source = ImageSource::Open(file.Child(BrivolantDocument::kMidSizePreviewName));
    if (!source) source = ImageSource::Open(file.Child(BrivolantDocument::kThumbnailName));
    if (!source) return {};
    auto picture = (*source.value)->Thumbnail(longest);
    return picture ? std::move(*picture) : Picture();
  }
  if (isFileType(file, &InternalFileTypes::BrivolantPhotosOneClickWonder)) {
    const QuietServices services;
    OneClickWonder style(services.All());
    return style.Load(file) ? style.Preview() : Picture();
  }
  return {};
}

std::shared_ptr<ThumbnailMaker> NewMaker() {
  auto maker = std::make_shared<ThumbnailMaker>(
      ThumbnailCache(ThumbnailCache::DefaultRoot(), kThumbnailProgram));
  maker->OwnPreview = OwnPreview;
  return maker;
}

FolderItem Standard(QStandardPaths::StandardLocation location) {
  return FolderItem(QFile::encodeName(QStandardPaths::writableLocation(location)).toStdString());
}

/// A name in the folder that is free: "a.jpg", then "a-1.jpg" and so on.
FolderItem FreeName(const FolderItem& folder, const FolderItem& file) {
  FolderItem target = folder.Child(file.Name());
  const std::string base = FolderitemExtensions::FileNameWithoutExtension(file);
  const std::string extension = FolderitemExtensions::FileExtension(file);
  for (int n = 1; target.Exists() || target.Alias(); ++n) {
    std::string name = base + "-" + std::to_string(n);
    if (!extension.empty()) name.append(".").append(extension);
    target = folder.Child(name);
  }
  return target;
}

std::error_code CopyWhole(const FolderItem& from, const FolderItem& to) {
  std::error_code error;
  std::filesystem::copy(
      from.Path(), to.Path(),
      std::filesystem::copy_options::recursive | std::filesystem::copy_options::copy_symlinks,
      error);
  return error;
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
  browserViewStyle->setFixedSize(80, 28);
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
  imageBrowser = new multiViewFileBrowser(NewMaker(), browserPart_);
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
  };
  browser.modeChanged = [this] { BrowserModeChanged(); };
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
  for (const LocalizedText* caption : {&SideBarSources::kDevices, &SideBarSources::kPlaces}) {
    auto section = std::make_shared<SideBarCollection>();
    section->Caption = caption->Text();
    bar.item.push_back(std::move(section));
  }
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
      if (mySideBar->item[i].get() != &section) continue;
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
  for (std::size_t i = 0; i < mySideBar->item.size(); ++i) {
    mySideBar->item[i]->ItemsVisible = preferences.Value(kFolds[i], true).ToBool();
  }
  SideBarCollection& places = *mySideBar->item[kPlacesSection];
  if (!SideBarSources::Load(PlacesFile(), places)) {
    SideBarSources::AddDefaults(places, otherSharedComponents::DefaultPipDocumentsFolder());
  }
  deviceTimer_.start();
  LookAtDevices();
  imageBrowser->Mode(preferences.Value("imageBrowser.mode", 0).ToInt() ==
                             multiViewFileBrowser::kListView
                         ? multiViewFileBrowser::kListView
                         : multiViewFileBrowser::kIconView);
  if (imageBrowser->Mode() == multiViewFileBrowser::kIconView) {
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

void MainWindow::QuickLookMethod() {
  if (busy_ || DisplayPane != kBrowserPane || imageBrowser->SelectedCount() == 0) return;
  const std::vector<FolderItem> files = SelectedFiles();
  if (files.empty() || (files.front().Directory() &&
                        !FolderitemExtensions::isFileType(
                            files.front(), &InternalFileTypes::BrivolantPhotosDocument))) {
    return;
  }
  const FolderItem& file = files.front();
  const QSize pixels = screen()->size() * screen()->devicePixelRatio();
  Picture picture;
  InBackground([&] {
    constexpr int kOwn = 1024;
    picture = OwnPreview(file, kOwn);
    if (!picture.IsNil() || !FolderitemExtensions::HoldsPicture(file)) return;
    const auto source = ImageSource::Open(file);
    if (!source) return;
    // No more is decoded than the screen can show.
    auto shown = (*source.value)->Thumbnail(std::max(pixels.width(), pixels.height()));
    if (shown) picture = std::move(*shown);
  });
  if (picture.IsNil()) {
    FolderitemExtensions::StandardFileErrorDialog(file, FolderitemExtensions::kRead, {},
                                                  app_.Dialogs());
    return;
  }
  if (!quickLook_) quickLook_ = std::make_unique<QuickLookWindow>();
  quickLook_->ShowFullScreen(picture, file.DisplayName());
}

// Files.

std::vector<FolderItem> MainWindow::SelectedFiles() const {
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

void MainWindow::CopyFiles() {
  std::string list;
  std::string names;
  for (const FolderItem& file : SelectedFiles()) {
    list += file.URLPath() + "\r\n";
    if (!names.empty()) names += "\n";
    names += file.DisplayName();
  }
  if (!list.empty()) app_.Clipboard().Set(names, kUriList, list);
}

void MainWindow::PasteFiles() {
  const FolderItem folder = imageBrowser->CurrentFolder();
  if (folder.IsNil()) return;
  std::vector<FolderItem> files;
  const std::string list = app_.Clipboard().Data(kUriList);
  for (const std::string_view line : Split(list, '\n')) {
    const QUrl url(QString::fromStdString(std::string(Trim(line))));
    if (!url.isLocalFile()) continue;
    const FolderItem file(QFile::encodeName(url.toLocalFile()).toStdString());
    if (file.Exists()) files.push_back(file);
  }
  CopyFilesInto(files, folder);
}

void MainWindow::CopyFilesInto(const std::vector<FolderItem>& files, const FolderItem& folder) {
  if (busy_ || files.empty()) return;
  std::vector<std::string> made;
  FolderItem failed;
  InBackground([&] {
    for (const FolderItem& file : files) {
      // A folder cannot go into itself.
      const std::string inside = folder.ShellPath() + "/";
      const FolderItem target = FreeName(folder, file);
      if (inside.starts_with(file.ShellPath() + "/") || CopyWhole(file, target)) {
        failed = file;
        break;
      }
      made.push_back(target.DisplayName());
    }
  });
  imageBrowser->ReloadCurrentView();
  if (folder == imageBrowser->CurrentFolder() && !made.empty()) {
    imageBrowser->HighLightItem(made.front(), false);
    for (int i = 0; i < imageBrowser->Count(); ++i) {
      const std::string name = imageBrowser->Rows().Name(i);
      if (std::find(made.begin(), made.end(), name) != made.end()) {
        imageBrowser->isItemSelected(i, true);
      }
    }
  }
  if (failed) {
    app_.Dialogs().Message(
        WithPlaceholders(kNotCopied.Text(), {{"<filename>", failed.DisplayName()}}), {});
  }
}

void MainWindow::FileMoveToTrash() {
  if (busy_) return;
  std::vector<FolderitemExtensions::TrashedFile> moved;
  FolderItem failed;
  const int row = imageBrowser->ListIndex();
  for (const BrowserPayload& payload : imageBrowser->SelectedItems()) {
    const auto* item = std::get_if<ItemPointer>(&payload);
    if (item == nullptr) continue;
    const auto* file = std::get_if<FolderItem>(&(*item)->item);
    if (file == nullptr) continue;
    if (auto trashed = FolderitemExtensions::PutInTrash(*file)) {
      moved.push_back(std::move(*trashed));
    } else {
      failed = *file;
    }
  }
  if (!moved.empty()) {
    trashed_.push_back(std::move(moved));
    imageBrowser->ReloadCurrentView();
    const int last = imageBrowser->Count() - 1;
    if (last >= 0) imageBrowser->ListIndex(std::clamp(row, 0, last));
  }
  UpdateCommands();
  if (failed) {
    app_.Dialogs().Message(
        WithPlaceholders(kNotTrashed.Text(), {{"<filename>", failed.DisplayName()}}), {});
  }
}

void MainWindow::UndoTrash() {
  if (trashed_.empty()) return;
  const auto files = std::move(trashed_.back());
  trashed_.pop_back();
  FolderItem failed;
  for (const auto& file : files) {
    if (!FolderitemExtensions::PutBack(file)) failed = file.Original;
  }
  imageBrowser->ReloadCurrentView();
  imageBrowser->HighLightItem(files.front().Original.DisplayName(), false);
  UpdateCommands();
  if (failed) {
    app_.Dialogs().Message(
        WithPlaceholders(kNotPutBack.Text(), {{"<filename>", failed.DisplayName()}}), {});
  }
}

void MainWindow::FileAddToSideBar() {
  SideBarCollection& places = *mySideBar->item[kPlacesSection];
  bool added = false;
  for (const FolderItem& file : SelectedFiles()) {
    if (!file.Directory()) continue;
    auto place = std::make_shared<SideBarItem>();
    place->Caption = file.DisplayName();
    place->Tag = file;
    places.AddItem(std::move(place));
    added = true;
  }
  if (!added) return;
  mySideBar->updateList();
  mySideBar->highlightItem(imageBrowser->CurrentFolder());
  SavePlaces();
}

// Menus.

void MainWindow::EnableBrowserItems() {
  MainMenuBar& menu = *menu_;
  const int count = imageBrowser->SelectedCount();
  const int mode = imageBrowser->Mode();
  for (const char* name :
       {"ViewAsIcons", "ViewAsList", "ViewShowHiddenFiles", "EditSelectAll", "EditSelectNone"}) {
    menu.Item(name).setEnabled(true);
  }
  menu.Item("ViewAsIcons").setChecked(mode == multiViewFileBrowser::kIconView);
  menu.Item("ViewAsList").setChecked(mode == multiViewFileBrowser::kListView);
  menu.Item("ViewShowHiddenFiles").setChecked(imageBrowser->showInvisibles);
  for (const char* name : {"EditCopy", "FileMoveToTrash"}) menu.Item(name).setEnabled(count > 0);
  QString copy = Shown(Menus::kEditCopy);
  if (count > 1) {
    copy += QStringLiteral(" %1 ").arg(count) + Shown(BrowserRows::kItems);
  } else if (count == 1) {
    const BrowserPayload selected = imageBrowser->SelectedItem(0);
    QString name = ToQString(BrowserRows::NameOf(selected));
    name.replace(QLatin1Char('&'), QStringLiteral("&&"));
    copy += QStringLiteral(" \"") + name + QLatin1Char('"');
    const auto* item = std::get_if<ItemPointer>(&selected);
    const FileFacts facts = item == nullptr ? FileFacts() : (*item)->Facts.value_or(FileFacts());
    menu.Item("FileShowInFinder").setEnabled(true);
    menu.Item("FileQuickLook").setEnabled(true);
    menu.Item("FileAddToSideBar").setEnabled(item != nullptr && facts.Is == FileFacts::kFolder);
    menu.Item("FileShowOriginal").setEnabled(item != nullptr && facts.Is == FileFacts::kAlias);
  }
  menu.Item("EditCopy").setText(copy);
  menu.Item("EditPaste")
      .setEnabled(imageBrowser->CurrentFolder() && app_.Clipboard().Has(kUriList));
  menu.Item("EditUndo").setEnabled(!trashed_.empty());
  menu.Item("EditUndo")
      .setText(Shown(Menus::kEditUndo) + QLatin1Char(' ') + Shown(Menus::kFileMoveToTrash));
  ToolButtons::ChangeButtonEnabled(*rbToolBar, ToolButtons::QuickLook().Identifier, count == 1);
}

bool MainWindow::BrowserMenu(QMenu& menu) {
  EnableMenuItems();
  const int count = imageBrowser->SelectedCount();
  const auto add = [&](const char* name) { menu.addAction(&menu_->Item(name)); };
  if (count == 1) {
    menu.addAction(Shown(kOpen), this, [this] { OpenBrowserItem(imageBrowser->SelectedItem(0)); });
    add("FileQuickLook");
    menu.addSeparator();
    if (menu_->Item("FileShowOriginal").isEnabled()) add("FileShowOriginal");
    add("FileMoveToTrash");
    menu.addSeparator();
    add("FileAddToSideBar");
    menu.addSeparator();
  } else if (count > 1) {
    add("FileMoveToTrash");
    menu.addSeparator();
  }
  if (count > 0) add("EditCopy");
  if (menu_->Item("EditPaste").isEnabled()) add("EditPaste");
  if (count == 1) {
    menu.addSeparator();
    add("FileShowInFinder");
  }
  return !menu.isEmpty();
}

}  // namespace brivolant
