// SPDX-License-Identifier: MIT
// How the parts of the window hear of each other.
#include <QTimer>

#include "app/App.h"
#include "app/MainWindow.h"
#include "browser/ui/Sidebar.h"
#include "platform/values/Captions.h"

namespace brivolant {
namespace {

/// Milliseconds between two looks at edits that are not saved.
constexpr int kKeepEdits = 3000;

constexpr LocalizedText kWorkGoesOn{"MainWindow.kWorkGoesOn",
                                    "Files are still being copied, moved or given edits."};
constexpr LocalizedText kWorkGoesOnExplanation{
    "MainWindow.kWorkGoesOnExplanation",
    "The window can close as soon as all is done. If you end it now, what is done stays, and the "
    "rest is left out."};
constexpr LocalizedText kCloseWhenDone{"MainWindow.kCloseWhenDone", "Close When Done"};
constexpr LocalizedText kEndNow{"MainWindow.kEndNow", "End Now"};

}  // namespace

MainWindow::~MainWindow() {
  WindowMenu(nullptr);
  // An end from outside asks nobody, but somebody may look for what is missing.
  for (const Jobs* work : {&files_.Work(), &edits_.Work()}) {
    for (const std::string& text : work->Unfinished()) {
      app_.Log().Write("Ended before it was done: " + text);
    }
  }
}

bool MainWindow::MustWait() {
  Jobs& files = files_.Work();
  Jobs& edits = edits_.Work();
  if (files.Unfinished().empty() && edits.Unfinished().empty()) return false;
  const Answer answer =
      app_.Dialogs().Ask({kWorkGoesOn.Text(), kWorkGoesOnExplanation.Text(), kCloseWhenDone.Text(),
                          Captions::kCancel.Text(), kEndNow.Text()});
  if (answer == Answer::kAlternate) {
    files.CancelAll();
    edits.CancelAll();
    return false;
  }
  if (answer == Answer::kAction) {
    files.WhenIdle([this, &edits] {
      // Not from within: the window may be closing just now.
      edits.WhenIdle([this] { QTimer::singleShot(0, this, [this] { close(); }); });
    });
  }
  return true;
}

void MainWindow::WireSession() {
  listening_.push_back(session_.Settling.Listen([this] {
    // A hidden widget is laid out when it is shown, but a preview is made for its size before.
    PlaceSeats();
    pane_.Layout();
  }));
  listening_.push_back(session_.Changed.Listen([this] {
    Modified(session_.Dirty());
    // Edits may be pasted, and taken back, while the browser is in view.
    if (DisplayPane != kBrowserPane) return;
    if (session_.Dirty()) {
      LastDirty = true;
    } else if (session_.SameAsSaved()) {
      LastDirty = false;
    }
  }));
  listening_.push_back(session_.Saved.Listen([this] { LastDirty = session_.Dirty(); }));
  listening_.push_back(session_.Opened.Listen([this] {
    LastDirty = session_.Dirty();
    SwapDisplay(kEditorPane);
  }));
  listening_.push_back(
      session_.Failed.Listen([this](const std::string& message, const std::string& why) {
        const EditSession::Hold hold(session_);
        app_.Dialogs().Message(message, why);
      }));
  session_.Ask = [this](const Question& question) {
    const EditSession::Hold hold(session_);
    return app_.Dialogs().Ask(question);
  };
  listening_.push_back(
      editor_.FullScreenReady.Listen([this](const Picture& picture, const std::string& title) {
        looks_.ShowFullScreen(picture, title);
      }));
  listening_.push_back(
      editor_.StylesToggled.Listen([this](bool visible) { styles_.ShowHideStyles(visible); }));
  listening_.push_back(editor_.OthersChosen.Listen(
      [this](const std::vector<FolderItem>& files) { browser_.ShowFiles(files); }));
  RecoveryTimer.setInterval(kKeepEdits);
  connect(&RecoveryTimer, &QTimer::timeout, this, [this] { session_.KeepEdits(); });
}

void MainWindow::WireBrowser() {
  listening_.push_back(
      browser_.PhotoChosen.Listen([this](const FolderItem& file, const std::string& name) {
        session_.Work().WhenIdle([this, file, name] {
          const auto open = [this, file, name] { OpenImage(file, name); };
          if (!AskToSave(open)) open();
        });
      }));
  browser_.BringIntoView = [this] { BackToBrowser(); };
  const auto hold = [this]() -> std::shared_ptr<void> {
    return std::make_shared<EditSession::Hold>(session_);
  };
  browser_.imageBrowser->Holding = hold;
  mySideBar->Holding = hold;
  browser_.MoreRows = [this](QMenu& menu) { edits_.AddRows(menu); };
  edits_.StyleMenu(menu_->Submenu("EditApplyStyle"));
  browser_.ShowLibrary = [this] {
    if (iPhotolibrary.empty()) return false;
    sidebar_.UnfoldLibrary();
    DisplayContainer(iPhotolibrary.front());
    return true;
  };
  browser_.Events = [this] { return iPhotolibrary.empty() ? nullptr : iPhotolibrary.front(); };
  listening_.push_back(files_.FavoriteAdded.Listen([this](const FolderItem& folder) {
    sidebar_.AddPlace(folder, SidebarController::kFavorites.Text(), "Favorites");
  }));
  listening_.push_back(sidebar_.Dropped.Listen(
      [this](const std::vector<FolderItem>& files, const FolderItem& folder) {
        files_.DropFilesInto(files, folder);
      }));
  listening_.push_back(
      files_.Moved.Listen([this](const FileMoves& moves) { search_.Follow(moves); }));
  listening_.push_back(library_.Changed.Listen([this] { sidebar_.ShowAlbums(iPhotolibrary); }));
  listening_.push_back(search_.Changed.Listen([this] { sidebar_.ShowSearch(currentSearchItem); }));
}

}  // namespace brivolant
