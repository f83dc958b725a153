// SPDX-License-Identifier: MIT
// Where photos are found: the sidebar, the photo library, the search, and the path to what is
// shown.
#include <QBuffer>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <algorithm>

#include "app/App.h"
#include "app/MainWindow.h"
#include "app/ToolButtons.h"
#include "browser/ui/Sidebar.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "formats/FileTypes.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "kit/ifkPathBar.h"
#include "kit/ifkSearchField.h"
#include "platform/services/SharedFolders.h"
#include "platform/services/SystemServices.h"
#include "platform/values/Captions.h"
#include "sources/ThreadediPhotoReader.h"

namespace brivolant {
namespace {

using Container = multiViewFileBrowser::Container;

/// Milliseconds between two looks at the mounted disks.
constexpr int kDevices = 1000;
constexpr const char* kFolds[] = {"MainWindow.sidebar.iPhoto", "MainWindow.sidebar.devices",
                                  "MainWindow.sidebar.places"};
constexpr const char* kSearchFolderTag = "SEARCHFOLDER";
constexpr const char* kSearchComputerTag = "SEARCHCOMPUTER";
constexpr const char* kRecentSearches = "browserSearchField.RecentSearches";
/// Letters that a search of the whole computer begins with.
constexpr int kLeastLetters = 3;
constexpr int kMargin = 8;

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

FolderItem Pictures() {
  return FolderItem(
      QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation))
          .toStdString());
}

SegmentViewPiece Piece(const QString& caption, const QString& icon, const Variant& tag) {
  SegmentViewPiece piece;
  piece.Caption = caption;
  piece.icon = SvgIcon(icon);
  piece.Tag = tag;
  return piece;
}

}  // namespace

// The sidebar.

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
  // A volume is its root.
  bar.CompareItems = [](const SideBarItem::Target& a, const SideBarItem::Target& b) {
    return ContainerOf(a) == ContainerOf(b);
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
    DisplayContainer(ContainerOf(item.Tag));
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
        section.Add(file.DisplayName(), {}, file);
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
  if (imageBrowser->currentView() == Container(app_.myComputer()))
    imageBrowser->ReloadCurrentView();
  SideBarCollection& devices = *mySideBar->item[kDevicesSection];
  devices.RemoveAllItems();
  const auto computer = app_.myComputer();
  devices.Add(computer->Name, computer->Icon, computer);
  for (int i = 0; i < computer->Count(); ++i) {
    const auto& item = std::get<std::shared_ptr<browserItem>>(computer->Item(i));
    devices.Add(item->Name, "Volume", std::get<VolumeItem>(item->item));
  }
  RefreshSideBar();
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

void MainWindow::OpenSideBar() {
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
}

void MainWindow::RefreshSideBar() {
  mySideBar->updateList();
  HighlightSideBar();
}

void MainWindow::HighlightSideBar() {
  mySideBar->highlightItem(std::visit([](const auto& held) { return SideBarItem::Target(held); },
                                      imageBrowser->currentView()));
}

// The path.

Variant MainWindow::TagOf(const Container& container) {
  if (const auto* folder = std::get_if<FolderItem>(&container)) return *folder;
  for (std::size_t i = 0; i < pathTargets_.size(); ++i) {
    if (pathTargets_[i] == container) return static_cast<int>(i);
  }
  pathTargets_.push_back(container);
  return static_cast<int>(pathTargets_.size() - 1);
}

Container MainWindow::ContainerOf(const Variant& tag) const {
  if (const auto* folder = tag.As<FolderItem>()) return *folder;
  const auto index = static_cast<std::size_t>(tag.ToInt());
  return tag.IsNumber() && index < pathTargets_.size() ? pathTargets_[index] : Container();
}

Container MainWindow::ContainerOf(const browserItem::Wrapped& wrapped) {
  return std::visit(
      [](const auto& held) -> Container {
        if constexpr (std::is_same_v<std::decay_t<decltype(held)>, VolumeItem>) {
          return FolderItem(held);
        } else {
          return held;
        }
      },
      wrapped);
}

void MainWindow::DisplayPath(const Container& container, bool skipHistory) {
  ifkPathBar::Path path;
  if (const auto* folder = std::get_if<FolderItem>(&container)) {
    for (FolderItem at = *folder; at; at = at.Parent()) {
      const bool root = at.Parent().IsNil();
      path.insert(
          path.begin(),
          Piece(ToQString(root ? SideBarSources::CaptionOf(VolumeItem(at)) : at.DisplayName()),
                root ? QStringLiteral("Volume") : QStringLiteral("Folder"), at));
    }
  } else if (const auto* c = std::get_if<std::shared_ptr<browserItemCollection>>(&container)) {
    path.push_back(Piece(ToQString((*c)->Name), ToQString((*c)->Icon), TagOf(container)));
  } else if (const auto* album = std::get_if<std::shared_ptr<iPhotoAlbum>>(&container)) {
    path.push_back(Piece(ToQString((*album)->Name), ToQString((*album)->Icon), TagOf(container)));
  } else if (const auto* roll = std::get_if<std::shared_ptr<iPhotoRoll>>(&container)) {
    if (!iPhotolibrary.empty()) {
      const auto& events = iPhotolibrary.front();
      path.push_back(Piece(ToQString(events->Name), ToQString(events->Icon), TagOf(events)));
    }
    path.push_back(Piece(ToQString((*roll)->Name), ToQString((*roll)->Icon), TagOf(container)));
  }
  if (!path.empty()) myPathBar->FullPath(path, skipHistory);
}

// The photo library.

void MainWindow::ReadPhotoLibrary() {
  if (libraryReader_) libraryReader_->Stop();
  libraryPool_.waitForDone();
  const int read = ++librariesRead_;
  const std::string chosen = app_.Preferences().Value(kLibraryKey, "").ToText();
  const FolderItem file = chosen.empty() ? DefaultPhotoLibrary(Pictures()) : FolderItem(chosen);
  if (!iPhotolibrary.empty()) TakePhotoLibrary({});
  if (file.IsNil()) return;
  libraryRandom_ = std::make_unique<SystemRandom>();
  libraryReader_ = std::make_unique<ThreadediPhotoReader>(app_.Log(), *libraryRandom_);
  libraryPool_.start([this, file, read] {
    if (!libraryReader_->ReadXML(file)) return;
    QMetaObject::invokeMethod(
        this,
        [this, read, albums = libraryReader_->Library] {
          if (read == librariesRead_) TakePhotoLibrary(albums);
        },
        Qt::QueuedConnection);
  });
}

void MainWindow::TakePhotoLibrary(const std::vector<std::shared_ptr<iPhotoAlbum>>& albums) {
  iPhotolibrary = albums;
  SideBarCollection& section = *mySideBar->item[kLibrarySection];
  section.RemoveAllItems();
  section.Visible = !albums.empty();
  for (const auto& album : albums) {
    section.Add(album->Name, album->Icon, album);
  }
  RefreshSideBar();
}

void MainWindow::ShowPhotoLibrary() {
  mySideBar->item[kLibrarySection]->ItemsVisible = true;
  mySideBar->updateList();
  DisplayContainer(iPhotolibrary.front());
}

// The search.

void MainWindow::BuildSearch(QVBoxLayout& column) {
  searchLine_ = new QWidget(browserPart_);
  auto* line = new QHBoxLayout(searchLine_);
  line->setContentsMargins(kMargin, 0, kMargin, 4);
  line->setSpacing(kMargin);
  searchPlace_ = new QLabel(searchLine_);
  searchPlace_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  auto* busy = new QProgressBar(searchLine_);
  busy->setRange(0, 0);
  busy->setTextVisible(false);
  busy->setFixedSize(96, 6);
  auto* cancel = new QPushButton(Shown(Captions::kCancel), searchLine_);
  line->addWidget(searchPlace_, 1);
  line->addWidget(busy);
  line->addWidget(cancel);
  searchLine_->hide();
  column.addWidget(searchLine_);
  connect(cancel, &QPushButton::clicked, this, [this] { mySpotlightSearch.Finish(); });
}

void MainWindow::WireSearch() {
  ifkSearchField& field = *browserSearchField;
  field.useLiveSearch = true;
  field.SearchIcon(true);
  field.Menu = {{kSearchCurrentFolder.Text(), kSearchFolderTag, {}, true, true, {}},
                {kSearchEntireComputer.Text(), kSearchComputerTag, {}, false, true, {}}};
  field.TextChanged = [this] { SearchTextChanged(); };
  field.Entered = [this] { imageBrowser->setFocus(); };
  field.MenuAction = [this](MenuItem& chosen) {
    for (MenuItem& item : browserSearchField->Menu) item.Checked = &item == &chosen;
    browserSearchField->DescriptiveText(Shown(ifkSearchField::kDefaultSearchCaption) +
                                        QStringLiteral(": ") + ToQString(chosen.Text));
  };
  field.CancelClicked = [this] {
    EndSearch();
    myPathBar->Goback();
    DropSearchItem();
    return false;
  };
  std::vector<std::string> recent;
  const std::string stored = app_.Preferences().Value(kRecentSearches, "").ToText();
  for (const std::string_view text : Split(stored, '\n')) {
    if (!text.empty()) recent.emplace_back(text);
  }
  field.RecentSearches(std::move(recent));
  mySpotlightSearch.DocumentExtension =
      std::string(InternalFileTypes::BrivolantPhotosDocument.Extensions);
  mySpotlightSearch.Completed = [this] { SearchCompleted(); };
  mySpotlightSearch.Progress = [this](const std::string& folder, int found) {
    const QString text = ToQString(WithPlaceholders(
        kSearching.Text(), {{"<folder>", EnsureUTF8(folder)}, {"<x>", std::to_string(found)}}));
    // Its width counts from the first report on.
    searchLine_->show();
    browserPart_->layout()->activate();
    searchPlace_->setText(
        searchPlace_->fontMetrics().elidedText(text, Qt::ElideMiddle, searchPlace_->width()));
  };
}

void MainWindow::StoreSearches() {
  std::vector<std::string> recent = browserSearchField->RecentSearches();
  if (recent.back().empty()) recent.pop_back();
  std::string stored;
  for (const std::string& text : recent) stored.append(text).append("\n");
  app_.Preferences().Assign(kRecentSearches, stored);
}

void MainWindow::SearchTextChanged() {
  const auto& menu = browserSearchField->Menu;
  const auto mode =
      std::find_if(menu.begin(), menu.end(), [](const MenuItem& item) { return item.Checked; });
  if (mode == menu.end() || mode->Tag.empty()) return;
  const std::string text = browserSearchField->Text();
  if (mode->Tag == kSearchFolderTag) return imageBrowser->HighLightItem(text, true);
  EndSearch();
  if (ToQString(text).size() < kLeastLetters) return;
  const bool fresh =
      !currentSearchItem || imageBrowser->currentView() != Container(currentSearchItem);
  if (!currentSearchItem) {
    currentSearchItem = std::make_shared<browserItemCollection>();
    currentSearchItem->Icon = "Search";
  }
  currentSearchItem->Name = "\"" + text + "\" " + kSearchResults.Text();
  ShowSearchSection();
  imageBrowser->EmptyText = kSearchingFor.Text();
  mySpotlightSearch.Query = text;
  updating = !fresh;
  imageBrowser->DisplayItem(currentSearchItem);
  DisplayPath(currentSearchItem, true);
  updating = false;
  mySpotlightSearch.Run();
}

void MainWindow::SearchCompleted() {
  searchLine_->hide();
  imageBrowser->EmptyText = kNothingFound.Text();
  if (!currentSearchItem) return;
  // What the text before found and this one does not is gone.
  currentSearchItem->RemoveAllItems();
  for (int i = 0; i < mySpotlightSearch.Count(); ++i) {
    const SpotlightItem& hit = mySpotlightSearch.Item(i);
    if (hit.File()) currentSearchItem->AddItem(hit.Row());
  }
  updating = true;
  imageBrowser->DisplayItem(currentSearchItem);
  updating = false;
}

void MainWindow::EndSearch() {
  mySpotlightSearch.Stop();
  searchLine_->hide();
  imageBrowser->EmptyText.clear();
}

void MainWindow::ShowSearchSection() {
  if (mySideBar->item.size() <= kSearchSection) {
    auto section = std::make_shared<SideBarCollection>();
    section->Caption = kSearchResults.Text();
    mySideBar->item.push_back(std::move(section));
  }
  SideBarCollection& section = *mySideBar->item[kSearchSection];
  section.RemoveAllItems();
  section.Add(currentSearchItem->Name, currentSearchItem->Icon, currentSearchItem);
  RefreshSideBar();
}

void MainWindow::DropSearchItem() {
  currentSearchItem.reset();
  if (mySideBar->item.size() > kSearchSection) mySideBar->item.resize(kSearchSection);
  RefreshSideBar();
}

}  // namespace brivolant
