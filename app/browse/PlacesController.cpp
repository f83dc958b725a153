// SPDX-License-Identifier: MIT
#include "app/browse/PlacesController.h"

#include <QBuffer>
#include <algorithm>

#include "app/browse/BrowserController.h"
#include "app/browse/BrowserPane.h"
#include "app/browse/SidebarController.h"
#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "browser/ui/Sidebar.h"
#include "formats/FileTypes.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/SvgIcon.h"
#include "platform/services/SharedFolders.h"

namespace brivolant {
namespace {

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

PlacesController::PlacesController(const Desk& desk, Commands& commands, BrowserPane& pane,
                                   SidebarController& sidebar)
    : desk_(desk), pane_(pane), sidebar_(sidebar) {
  listening_ = sidebar_.PlacesDropped.Listen(
      [this](const std::vector<FolderItem>& files) { AddFolders(files); });
  pane_.mySideBar->Removed = [this](const std::shared_ptr<SideBarItem>& item,
                                    SideBarCollection& section) {
    if (&section != &Places()) return;
    section.RemoveItem(item);
    pane_.mySideBar->updateList();
    SavePlaces();
  };
  commands.Add(
      {{"FileAddToSideBar", &Menus::kAddToSidebar, "Ctrl+T", kInBrowser,
        [this] { AddFolders(pane_.SelectedFiles()); }, [this] { return FolderSelected(); }}});
}

SideBarCollection& PlacesController::Places() {
  return *pane_.mySideBar->item[SidebarController::kPlacesSection];
}

bool PlacesController::FolderSelected() const {
  if (pane_.imageBrowser->SelectedCount() != 1) return false;
  const BrowserPayload selected = pane_.imageBrowser->SelectedItem(0);
  const auto* item = std::get_if<std::shared_ptr<browserItem>>(&selected);
  return item != nullptr && (*item)->Facts.value_or(FileFacts()).Is == FileFacts::kFolder;
}

void PlacesController::Open() {
  if (!SideBarSources::Load(PlacesFile(), Places())) {
    SideBarSources::AddDefaults(Places(), otherSharedComponents::DefaultPipDocumentsFolder());
  }
}

void PlacesController::SavePlaces() {
  if (!SideBarSources::Save(PlacesFile(), Places(), PngOf)) {
    desk_.Services.Log.Write("The places of the sidebar could not be saved.");
  }
}

void PlacesController::AddPlace(const FolderItem& folder, const std::string& caption,
                                const std::string& icon) {
  SideBarCollection& places = Places();
  const bool known = std::any_of(places.item.begin(), places.item.end(), [&](const auto& place) {
    return BrowserController::ContainerOf(place->Tag) == BrowserContainer(folder);
  });
  if (known) return;
  places.Add(caption, icon, folder);
  sidebar_.Refresh();
  SavePlaces();
}

void PlacesController::AddFolders(const std::vector<FolderItem>& files) {
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
                   SideBarCollection& places = Places();
                   for (const FolderItem& folder : *folders) {
                     places.Add(folder.DisplayName(), {}, folder);
                   }
                   sidebar_.Refresh();
                   SavePlaces();
                 }});
}

}  // namespace brivolant
