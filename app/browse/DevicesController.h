// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <utility>
#include <vector>

#include "app/core/Desk.h"
#include "app/core/Jobs.h"
#include "browser/SideBarItem.h"
#include "platform/values/Event.h"

namespace brivolant {

class BrowserPane;
class SidebarController;

/// The mounted disks, in the sidebar and as a folder.
class DevicesController {
 public:
  DevicesController(const Desk& desk, BrowserPane& pane, SidebarController& sidebar);
  DevicesController(const DevicesController&) = delete;
  DevicesController& operator=(const DevicesController&) = delete;

  /// Looks at the disks, from now on every second.
  void Open();

 private:
  void Look();
  void Eject(const VolumeItem& volume);

  Desk desk_;
  BrowserPane& pane_;
  SidebarController& sidebar_;
  QTimer timer_;
  /// Those that are shown, and whether they have told of themselves.
  std::vector<std::pair<FolderItem, bool>> volumes_;
  Listening listening_;
  Jobs asking_;
};

}  // namespace brivolant
