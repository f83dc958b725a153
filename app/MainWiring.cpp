// SPDX-License-Identifier: MIT
// How the parts of the window hear of each other.
#include <QTimer>

#include "app/App.h"
#include "app/MainWindow.h"
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
  for (const Jobs* work : {&browse_.History.Work(), &browse_.Edits.Work()}) {
    for (const std::string& text : work->Unfinished()) {
      app_.Log().Write("Ended before it was done: " + text);
    }
  }
}

bool MainWindow::MustWait() {
  Jobs& files = browse_.History.Work();
  Jobs& edits = browse_.Edits.Work();
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
    edit_.Pane.Layout();
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
      edit_.Photo.FullScreenReady.Listen([this](const Picture& picture, const std::string& title) {
        browse_.Looks.ShowFullScreen(picture, title);
      }));
  listening_.push_back(edit_.Documents.OthersChosen.Listen(
      [this](const std::vector<FolderItem>& files) { browse_.Browser.ShowFiles(files); }));
  RecoveryTimer.setInterval(kKeepEdits);
  connect(&RecoveryTimer, &QTimer::timeout, this, [this] { session_.KeepEdits(); });
}

void MainWindow::WireBrowser() {
  listening_.push_back(
      browse_.Opening.PhotoChosen.Listen([this](const FolderItem& file, const std::string& name) {
        session_.Work().WhenIdle([this, file, name] {
          const auto open = [this, file, name] { OpenImage(file, name); };
          if (!AskToSave(open)) open();
        });
      }));
  browse_.Browser.BringIntoView = [this] { BackToBrowser(); };
  browse_.Holding(
      [this]() -> std::shared_ptr<void> { return std::make_shared<EditSession::Hold>(session_); });
  browse_.Edits.StyleMenu(menu_->Submenu("EditApplyStyle"));
}

}  // namespace brivolant
