// SPDX-License-Identifier: MIT
#include "app/browse/SidebarController.h"

#include <QBuffer>
#include <QMenu>
#include <algorithm>

#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "browser/ui/Sidebar.h"
#include "formats/FileTypes.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "platform/services/SharedFolders.h"

namespace brivolant {
namespace {

/// Milliseconds between two looks at the mounted disks.
constexpr int kDevices = 1000;
constexpr const char* kFolds[] = {"MainWindow.sidebar.iPhoto", "MainWindow.sidebar.devices",
                                  "MainWindow.sidebar.places"};

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

FolderItem PlacesFile() {
  return otherSharedComponents::userElementsFolder().Child(
      "SideBarItems." + std::string(InternalFileTypes::BrivolantPhotosSidebarItems.Extensions));
}

}  // namespace

SidebarController::SidebarController(const Desk& desk, Commands& commands,
                                     BrowserController& browser)
    : desk_(desk), browser_(browser), bar_(*browser.mySideBar) {
  for (const LocalizedText* caption :
       {&SideBarSources::kLibrary, &SideBarSources::kDevices, &SideBarSources::kPlaces}) {
    auto section = std::make_shared<SideBarCollection>();
    section->Caption = caption->Text();
    bar_.item.push_back(std::move(section));
  }
  bar_.item[kLibrarySection]->Visible = false;
  Wire();
  WireMenu();
  WireDrop();
  listening_ = browser_.ListChanged.Listen([this] { Highlight(); });
  deviceTimer_.setInterval(kDevices);
  QObject::connect(&deviceTimer_, &QTimer::timeout, [this] { LookAtDevices(); });
  commands.Add(
      {{"FileAddToSideBar", &Menus::kAddToSidebar, "Ctrl+T", kInBrowser, [this] { AddSelected(); },
        [this] {
          if (browser_.imageBrowser->SelectedCount() != 1) return false;
          const BrowserPayload selected = browser_.imageBrowser->SelectedItem(0);
          const auto* item = std::get_if<std::shared_ptr<browserItem>>(&selected);
          return item != nullptr && (*item)->Facts.value_or(FileFacts()).Is == FileFacts::kFolder;
        }}});
}

void SidebarController::Wire() {
  bar_.CanEject = [](const SideBarItem& item) { return item.Ejectable; };
  // A volume is its root.
  bar_.CompareItems = [](const SideBarItem::Target& a, const SideBarItem::Target& b) {
    return BrowserController::ContainerOf(a) == BrowserController::ContainerOf(b);
  };
  bar_.Folded = [this](SideBarCollection& section) {
    for (std::size_t i = 0; i < bar_.item.size(); ++i) {
      if (bar_.item[i].get() != &section || i >= std::size(kFolds)) continue;
      desk_.Preferences.Assign(kFolds[i], section.ItemsVisible);
    }
  };
  bar_.itemSelected = [this](const SideBarItem& item, bool eject) {
    if (const auto* volume = std::get_if<VolumeItem>(&item.Tag)) {
      const VolumeItem chosen = *volume;
      return eject ? Eject(chosen) : browser_.DisplayContainer(FolderItem(chosen));
    }
    if (const auto* folder = std::get_if<FolderItem>(&item.Tag)) {
      // Its row may go by what comes of it.
      return browser_.DisplayPlace(FolderItem(*folder));
    }
    browser_.DisplayContainer(BrowserController::ContainerOf(item.Tag));
  };
  bar_.Removed = [this](const std::shared_ptr<SideBarItem>& item, SideBarCollection& section) {
    if (&section != bar_.item[kPlacesSection].get()) return;
    section.RemoveItem(item);
    bar_.updateList();
    SavePlaces();
  };
}

void SidebarController::Eject(const VolumeItem& volume) {
  // It waits for the disk, which may have much to write.
  const auto error = std::make_shared<std::string>();
  asking_.Start(
      {{},
       false,
       [&desktop = desk_.Desktop, root = FolderItem(volume), error](Jobs::Control& control) {
         // The window that closes meanwhile does not wait for the disk.
         (void)control.Apart([&desktop, root, error] { *error = desktop.Eject(root); });
       },
       [this, volume, error](Jobs::End, const std::string&) {
         (void)volume.Ejected(*error, desk_.Services.Dialogs, desk_.Services.Log);
         LookAtDevices();
       }});
}

void SidebarController::WireMenu() {
  bar_.RightClick = [this](QMenu& menu, const std::shared_ptr<SideBarItem>& item,
                           SideBarCollection& section) {
    if (&section != bar_.item[kPlacesSection].get()) return false;
    const auto* folder = std::get_if<FolderItem>(&item->Tag);
    if (folder != nullptr) {
      menu.addAction(Shown(BrowserController::kOpen), &bar_,
                     [this, open = *folder] { browser_.DisplayContainer(open); });
      menu.addSeparator();
      menu.addAction(Shown(kOpenEnclosingFolder), &bar_, [this, open = *folder] {
        if (const FolderItem parent = open.Parent()) browser_.DisplayContainer(parent);
      });
      menu.addSeparator();
    }
    menu.addAction(Shown(kRemoveFromSidebar), &bar_,
                   [this, item, &section] { bar_.Removed(item, section); });
    return true;
  };
}

void SidebarController::WireDrop() {
  // A disk takes files as the folder that is its root.
  const auto target = [](const std::shared_ptr<SideBarItem>& item) {
    const BrowserContainer held =
        item ? BrowserController::ContainerOf(item->Tag) : BrowserContainer();
    const auto* folder = std::get_if<FolderItem>(&held);
    return folder == nullptr ? FolderItem() : *folder;
  };
  bar_.TakesFiles = [this, target](const std::shared_ptr<SideBarItem>& item,
                                   SideBarCollection& section) {
    return target(item) || &section == bar_.item[kPlacesSection].get();
  };
  bar_.FilesDropped = [this, target](const std::vector<FolderItem>& files,
                                     const std::shared_ptr<SideBarItem>& item,
                                     SideBarCollection& section) {
    if (const FolderItem folder = target(item)) return Dropped(files, folder);
    if (&section != bar_.item[kPlacesSection].get()) return;
    AddFolders(files);
  };
}

void SidebarController::Open() {
  for (std::size_t i = 0; i < std::size(kFolds); ++i) {
    bar_.item[i]->ItemsVisible = desk_.Preferences.Value(kFolds[i], true).ToBool();
  }
  SideBarCollection& places = *bar_.item[kPlacesSection];
  if (!SideBarSources::Load(PlacesFile(), places)) {
    SideBarSources::AddDefaults(places, otherSharedComponents::DefaultPipDocumentsFolder());
  }
  deviceTimer_.start();
  LookAtDevices();
}

void SidebarController::LookAtDevices() {
  const auto computer = desk_.Computer();
  std::vector<std::pair<FolderItem, bool>> now;
  for (int i = 0; i < computer->Count(); ++i) {
    const auto& item = std::get<std::shared_ptr<browserItem>>(computer->Item(i));
    now.emplace_back(item->File(), item->Volume.Known);
  }
  if (now == volumes_) return;
  volumes_ = now;
  multiViewFileBrowser& rows = *browser_.imageBrowser;
  if (rows.currentView() == BrowserContainer(computer)) rows.ReloadCurrentView();
  SideBarCollection& devices = *bar_.item[kDevicesSection];
  devices.RemoveAllItems();
  devices.Add(computer->Name, computer->Icon, computer);
  for (int i = 0; i < computer->Count(); ++i) {
    const auto& item = std::get<std::shared_ptr<browserItem>>(computer->Item(i));
    devices.Add(item->Name, "Volume", std::get<VolumeItem>(item->item));
    devices.item.back()->Ejectable = item->Volume.Ejectable;
  }
  Refresh();
}

void SidebarController::SavePlaces() {
  if (!SideBarSources::Save(PlacesFile(), *bar_.item[kPlacesSection], PngOf)) {
    desk_.Services.Log.Write("The places of the sidebar could not be saved.");
  }
}

void SidebarController::Refresh() {
  bar_.updateList();
  Highlight();
}

void SidebarController::Highlight() {
  bar_.highlightItem(std::visit([](const auto& held) { return SideBarItem::Target(held); },
                                browser_.imageBrowser->currentView()));
}

void SidebarController::AddPlace(const FolderItem& folder, const std::string& caption,
                                 const std::string& icon) {
  SideBarCollection& places = *bar_.item[kPlacesSection];
  const bool known = std::any_of(places.item.begin(), places.item.end(), [&](const auto& place) {
    return BrowserController::ContainerOf(place->Tag) == BrowserContainer(folder);
  });
  if (known) return;
  places.Add(caption, icon, folder);
  Refresh();
  SavePlaces();
}

void SidebarController::AddSelected() {
  AddFolders(browser_.SelectedFiles());
}

void SidebarController::AddFolders(const std::vector<FolderItem>& files) {
  // What comes from a share that is dead is waited for elsewhere.
  const auto folders = std::make_shared<std::vector<FolderItem>>();
  asking_.Start({{},
                 false,
                 [files, folders](Jobs::Control& control) {
                   (void)control.Apart([files, folders] {
                     for (const FolderItem& file : files) {
                       if (file.Directory()) folders->push_back(file);
                     }
                   });
                 },
                 [this, folders](Jobs::End end, const std::string&) {
                   if (end != Jobs::End::kDone || folders->empty()) return;
                   SideBarCollection& places = *bar_.item[kPlacesSection];
                   for (const FolderItem& folder : *folders) {
                     places.Add(folder.DisplayName(), {}, folder);
                   }
                   Refresh();
                   SavePlaces();
                 }});
}

void SidebarController::ShowAlbums(const std::vector<std::shared_ptr<iPhotoAlbum>>& albums) {
  SideBarCollection& section = *bar_.item[kLibrarySection];
  section.RemoveAllItems();
  section.Visible = !albums.empty();
  for (const auto& album : albums) section.Add(album->Name, album->Icon, album);
  Refresh();
}

void SidebarController::UnfoldLibrary() {
  bar_.item[kLibrarySection]->ItemsVisible = true;
  bar_.updateList();
}

void SidebarController::ShowSearch(const std::shared_ptr<browserItemCollection>& found) {
  if (!found) {
    if (bar_.item.size() > kSearchSection) bar_.item.resize(kSearchSection);
    return Refresh();
  }
  if (bar_.item.size() <= kSearchSection) {
    auto section = std::make_shared<SideBarCollection>();
    section->Caption = kSearchResults.Text();
    bar_.item.push_back(std::move(section));
  }
  SideBarCollection& section = *bar_.item[kSearchSection];
  section.RemoveAllItems();
  section.Add(found->Name, found->Icon, found);
  Refresh();
}

}  // namespace brivolant
