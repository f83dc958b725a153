// SPDX-License-Identifier: MIT
#include "app/browse/DevicesController.h"

#include "app/browse/BrowserPane.h"
#include "app/browse/SidebarController.h"

namespace brivolant {
namespace {

/// Milliseconds between two looks at the mounted disks.
constexpr int kDevices = 1000;

}  // namespace

DevicesController::DevicesController(const Desk& desk, BrowserPane& pane,
                                     SidebarController& sidebar)
    : desk_(desk), pane_(pane), sidebar_(sidebar) {
  listening_ = sidebar_.EjectWanted.Listen([this](const VolumeItem& volume) { Eject(volume); });
  timer_.setInterval(kDevices);
  QObject::connect(&timer_, &QTimer::timeout, [this] { Look(); });
}

void DevicesController::Open() {
  timer_.start();
  Look();
}

void DevicesController::Look() {
  const auto computer = desk_.Computer();
  std::vector<std::pair<FolderItem, bool>> now;
  for (int i = 0; i < computer->Count(); ++i) {
    const auto& item = std::get<std::shared_ptr<browserItem>>(computer->Item(i));
    now.emplace_back(item->File(), item->Volume.Known);
  }
  if (now == volumes_) return;
  volumes_ = now;
  multiViewFileBrowser& rows = *pane_.imageBrowser;
  if (rows.currentView() == BrowserContainer(computer)) rows.ReloadCurrentView();
  sidebar_.ShowDevices(computer);
}

void DevicesController::Eject(const VolumeItem& volume) {
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
         Look();
       }});
}

}  // namespace brivolant
