// SPDX-License-Identifier: MIT
#include "app/browse/QuickLookController.h"

#include <algorithm>

#include "app/browse/BrowserController.h"
#include "app/browse/BrowserPane.h"
#include "app/browse/OwnPreviews.h"
#include "app/browse/QuickLookWindow.h"
#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "browser/ui/FileIcons.h"
#include "kit/DesktopServices.h"

namespace brivolant {
namespace {

using ItemPointer = std::shared_ptr<browserItem>;

}  // namespace

QuickLookController::QuickLookController(const Desk& desk, Commands& commands, Panes& panes,
                                         BrowserPane& pane, BrowserController& browser)
    : desk_(desk), panes_(panes), pane_(pane) {
  pane_.imageBrowser->QuickLookAction = [this] { QuickLookMethod(); };
  listening_ = browser.SelectionChanged.Listen([this] { Follow(); });
  commands.Add(
      {{"FileQuickLook", &Menus::kQuickLook, "Ctrl+Y", kInBrowser, [this] { QuickLookMethod(); },
        [this] { return pane_.imageBrowser->SelectedCount() > 0; }, nullptr,
        [this] { return Caption(); }}});
}

QuickLookController::~QuickLookController() = default;

std::string QuickLookController::Caption() const {
  std::string text = Menus::kQuickLook.Text();
  if (pane_.imageBrowser->SelectedCount() != 1) return text;
  text += " \"";
  for (const char c : BrowserRows::NameOf(pane_.imageBrowser->SelectedItem(0))) {
    text.append(c == '&' ? "&&" : std::string(1, c));
  }
  return text + "\"";
}

std::vector<QuickLookItem> QuickLookController::Items() const {
  std::vector<QuickLookItem> items;
  for (const BrowserPayload& payload : pane_.imageBrowser->SelectedItems()) {
    QuickLookItem shown;
    shown.Title = BrowserRows::NameOf(payload);
    shown.Icon = [payload](int size, double ratio) { return FileIcons::For(payload, size, ratio); };
    if (const auto* item = std::get_if<ItemPointer>(&payload)) {
      const auto* file = std::get_if<FolderItem>(&(*item)->item);
      if (file != nullptr) shown.File = *file;
    } else if (const auto* photo = std::get_if<std::shared_ptr<iPhotoItem>>(&payload)) {
      shown.File = (*photo)->File();
    }
    shown.Thumbnail = pane_.imageBrowser->Thumbnail(payload);
    items.push_back(std::move(shown));
  }
  return items;
}

void QuickLookController::QuickLookMethod() {
  multiViewFileBrowser& rows = *pane_.imageBrowser;
  if (panes_.Pane() != kBrowserPane || rows.SelectedCount() == 0) return;
  if (!quickLook_) {
    quickLook_ = std::make_unique<QuickLookWindow>(NewFilePreviewer(), desk_.Preferences);
    quickLook_->Step = [&rows](int delta) {
      const int target = rows.ListIndex() + delta;
      if (target < 0 || target >= rows.Count()) return false;
      rows.ListIndex(target);
      return true;
    };
    quickLook_->Close = [this] { desk_.QuickLookOpen(false); };
    // Where it is shown until it has a place of its own.
    constexpr double kShare = 0.8;
    const QWidget& window = panes_.Window();
    QRect place(QPoint(), window.size() * kShare);
    place.moveCenter(window.geometry().center());
    quickLook_->setGeometry(place);
  } else if (quickLook_->isVisible()) {
    // The same key puts it away.
    quickLook_->close();
    return;
  }
  desk_.QuickLookOpen(true);
  quickLook_->DisplayItems(Items(), false);
}

void QuickLookController::Follow() {
  if (!quickLook_ || !quickLook_->isVisible()) return;
  if (pane_.imageBrowser->SelectedCount() == 0) return;
  std::vector<QuickLookItem> items = Items();
  const auto& shown = quickLook_->items();
  // A folder that is listed again is no reason to begin anew.
  const bool same = std::equal(items.begin(), items.end(), shown.begin(), shown.end(),
                               [](const QuickLookItem& a, const QuickLookItem& b) {
                                 return a.File == b.File && a.Title == b.Title;
                               });
  if (!same) quickLook_->Replace(std::move(items));
}

void QuickLookController::ShowFullScreen(const Picture& picture, const std::string& title) {
  if (!fullScreen_) {
    fullScreen_ = std::make_unique<QuickLookWindow>(NewFilePreviewer(), desk_.Preferences);
  }
  fullScreen_->DisplayPicture(picture, title);
}

void QuickLookController::Close() {
  // It keeps its place.
  if (quickLook_) quickLook_->close();
}

}  // namespace brivolant
