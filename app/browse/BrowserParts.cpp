// SPDX-License-Identifier: MIT
#include "app/browse/BrowserParts.h"

#include "browser/ui/Sidebar.h"

namespace brivolant {

BrowserParts::BrowserParts(const Desk& desk, EditSession& session, Commands& commands, Panes& panes,
                           QWidget* stage)
    : Pane(stage),
      Browser(desk, commands, panes, Pane),
      Path(Pane, Browser),
      View(desk, commands, Pane),
      Opening(desk, commands, Pane, Browser),
      History(desk, session, commands, Pane),
      Files(desk, session, commands, Pane, History),
      Copies(desk, commands, Pane, History),
      Edits(desk, session, commands, Pane, History),
      Info(desk, commands, Pane, History),
      Sections(desk, Pane, Browser),
      Devices(desk, Pane, Sections),
      Places(desk, commands, Pane, Sections),
      Library(desk),
      Search(desk, Pane, Browser, Path),
      Looks(desk, commands, panes, Pane, Browser) {
  Wire();
}

void BrowserParts::Wire() {
  Opening.MoreRows = [this](QMenu& menu) { Edits.AddRows(menu); };
  Opening.TrashFile = [this](const FolderItem& file) { Files.Trash({file}); };
  Opening.ShowLibrary = [this] {
    if (Library.iPhotolibrary.empty()) return false;
    Sections.UnfoldLibrary();
    Browser.DisplayContainer(Library.iPhotolibrary.front());
    return true;
  };
  Path.Events = [this] {
    return Library.iPhotolibrary.empty() ? nullptr : Library.iPhotolibrary.front();
  };
  listening_.push_back(Files.FavoriteAdded.Listen([this](const FolderItem& folder) {
    Places.AddPlace(folder, SidebarController::kFavorites.Text(), "Favorites");
  }));
  listening_.push_back(Sections.Dropped.Listen(
      [this](const std::vector<FolderItem>& files, const FolderItem& folder) {
        Copies.DropFilesInto(files, folder);
      }));
  listening_.push_back(History.Moved.Listen([this](const FileMoves& moves) {
    Search.Follow(moves);
    Info.Follow(moves);
  }));
  listening_.push_back(
      Library.Changed.Listen([this] { Sections.ShowAlbums(Library.iPhotolibrary); }));
  listening_.push_back(
      Search.Changed.Listen([this] { Sections.ShowSearch(Search.currentSearchItem); }));
}

void BrowserParts::Open() {
  Sections.Open();
  Places.Open();
  Devices.Open();
  View.Restore();
  Browser.OpenBrowser();
  Library.ReadPhotoLibrary();
}

void BrowserParts::StorePreferences() {
  Browser.StorePreferences();
  Places.SavePlaces();
  Search.StorePreferences();
}

void BrowserParts::Holding(const std::function<std::shared_ptr<void>()>& hold) {
  Pane.imageBrowser->Holding = hold;
  Pane.mySideBar->Holding = hold;
}

}  // namespace brivolant
