// SPDX-License-Identifier: MIT
#include "app/browse/SidebarController.h"

#include <QMenu>

#include "app/browse/BrowserPane.h"
#include "app/commands/Menus.h"
#include "browser/ui/Sidebar.h"
#include "kit/InterfaceKitSupport.h"

namespace brivolant {
namespace {

constexpr const char* kFolds[] = {"MainWindow.sidebar.iPhoto", "MainWindow.sidebar.devices",
                                  "MainWindow.sidebar.places"};

}  // namespace

SidebarController::SidebarController(const Desk& desk, BrowserPane& pane,
                                     BrowserController& browser)
    : desk_(desk), pane_(pane), browser_(browser), bar_(*pane.mySideBar) {
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
      return eject ? EjectWanted(chosen) : browser_.DisplayContainer(FolderItem(chosen));
    }
    if (const auto* folder = std::get_if<FolderItem>(&item.Tag)) {
      // Its row may go by what comes of it.
      return browser_.DisplayPlace(FolderItem(*folder));
    }
    browser_.DisplayContainer(BrowserController::ContainerOf(item.Tag));
  };
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
    if (folder != nullptr) {
      menu.addAction(Shown(Menus::kFileGetInfo), &bar_,
                     [this, file = *folder] { desk_.ShowInfo({file}); });
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
    PlacesDropped(files);
  };
}

void SidebarController::Open() {
  for (std::size_t i = 0; i < std::size(kFolds); ++i) {
    bar_.item[i]->ItemsVisible = desk_.Preferences.Value(kFolds[i], true).ToBool();
  }
}

void SidebarController::Refresh() {
  bar_.updateList();
  Highlight();
}

void SidebarController::Highlight() {
  bar_.highlightItem(std::visit([](const auto& held) { return SideBarItem::Target(held); },
                                pane_.imageBrowser->currentView()));
}

void SidebarController::ShowDevices(const std::shared_ptr<browserItemCollection>& computer) {
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
