// SPDX-License-Identifier: MIT
#include "app/browse/BrowserController.h"

#include <QFile>
#include <QScopedValueRollback>
#include <QStandardPaths>

#include "app/browse/BrowserPane.h"
#include "app/commands/Commands.h"
#include "browser/ui/Sidebar.h"
#include "kit/ifkPathBar.h"
#include "platform/files/MountTable.h"

namespace brivolant {
namespace {

FolderItem Standard(QStandardPaths::StandardLocation location) {
  return FolderItem(QFile::encodeName(QStandardPaths::writableLocation(location)).toStdString());
}

/// A share that does not answer keeps nobody waiting; a disk that takes its time is there.
bool IsThere(const FolderItem& folder) {
  const auto found = FolderLister::Look(folder, FolderLister::kPatience);
  if (found) return !found->Gone;
  const MountTable table = MountTable::Now();
  const Mount* mount = table.Of(folder);
  return mount == nullptr || !mount->Apart();
}

}  // namespace

BrowserController::BrowserController(const Desk& desk, Commands& commands, Panes& panes,
                                     BrowserPane& pane)
    : desk_(desk), commands_(commands), panes_(panes), pane_(pane) {
  Wire();
}

void BrowserController::Wire() {
  multiViewFileBrowser& browser = *pane_.imageBrowser;
  browser.ListChanged = [this] {
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
  browser.FolderGone = [this] {
    const FolderItem gone = pane_.imageBrowser->CurrentFolder();
    const FolderItem left =
        FolderLister::Standing(gone, FolderLister::kPatience).value_or(gone.Parent());
    // Whoever edits a photo goes on doing so.
    Leaving(left);
    pane_.imageBrowser->DisplayItem(left);
  };
  browser.Navigate = [this](int direction) {
    direction < 0 ? pane_.myPathBar->Goback() : pane_.myPathBar->GoForward();
  };
  browser.ShowEnclosing = [this] { ShowEnclosingFolder(); };
  browser.StartedToUpdateThumbnails = [this] { ShowBrowserInfo(); };
  browser.FinishedUpdatingThumbnails = [this] { ShowBrowserInfo(); };
}

void BrowserController::OpenBrowser() {
  const std::string stored =
      desk_.Preferences.Value("imageBrowser.currentView", "Default").ToText();
  FolderItem start =
      stored == "Default" ? Standard(QStandardPaths::PicturesLocation) : FolderItem(stored);
  if (!IsThere(start)) start = Standard(QStandardPaths::PicturesLocation);
  if (!IsThere(start)) start = Standard(QStandardPaths::HomeLocation);
  pane_.mySideBar->updateList();
  DisplayContainer(start);
  pane_.imageBrowser->setFocus();
}

void BrowserController::StorePreferences() {
  const FolderItem folder = pane_.imageBrowser->CurrentFolder();
  desk_.Preferences.Assign("imageBrowser.currentView", folder ? folder.ShellPath() : "Default");
}

void BrowserController::LeaveFor(const BrowserContainer& container) {
  Leaving(container);
  if (panes_.Pane() != kBrowserPane && BringIntoView) BringIntoView();
}

void BrowserController::DisplayContainer(const BrowserContainer& container) {
  LeaveFor(container);
  pane_.imageBrowser->DisplayItem(container);
}

void BrowserController::DisplayPlace(const FolderItem& place) {
  const auto found = FolderLister::Look(place, FolderLister::kPatience);
  if (found && found->Gone) return;
  LeaveFor(place);
  pane_.imageBrowser->DisplayItem(place, found);
}

void BrowserController::DisplayAlongPath(const BrowserContainer& container) {
  const QScopedValueRollback inPlace(inPlace_, true);
  DisplayContainer(container);
}

void BrowserController::DisplayInPlace(const BrowserContainer& container) {
  const QScopedValueRollback inPlace(inPlace_, true);
  pane_.imageBrowser->DisplayItem(container);
}

void BrowserController::ShowFiles(const std::vector<FolderItem>& files) {
  if (files.empty()) return;
  const FolderItem folder = files.front().Parent();
  Leaving(folder);
  pane_.imageBrowser->DisplayItem(folder);
  pane_.imageBrowser->SelectFiles(files);
}

void BrowserController::ShowBrowserInfo() {
  if (panes_.Pane() != kBrowserPane) return;
  std::string text = pane_.imageBrowser->GetViewInfo();
  if (pane_.imageBrowser->myImageGetter().State() == browserThumbnailGetter::kRunning) {
    text += " \u2014 " + kUpdatingThumbnailCaption.Text();
  }
  panes_.Info(text);
}

void BrowserController::ShowEnclosingFolder() {
  const FolderItem folder = pane_.imageBrowser->CurrentFolder();
  if (folder.IsNil()) return;
  if (folder.Parent().IsNil()) return DisplayContainer(desk_.Computer());
  DisplayContainer(folder.Parent());
  // One sees where one came from.
  pane_.imageBrowser->SelectFiles({folder});
}

BrowserContainer BrowserController::ContainerOf(const browserItem::Wrapped& wrapped) {
  return std::visit(
      [](const auto& held) -> BrowserContainer {
        if constexpr (std::is_same_v<std::decay_t<decltype(held)>, VolumeItem>) {
          return FolderItem(held);
        } else {
          return held;
        }
      },
      wrapped);
}

}  // namespace brivolant
