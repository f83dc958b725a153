// SPDX-License-Identifier: MIT
#include "app/browse/EditsGiver.h"

#include <algorithm>

#include "app/browse/BrowserPane.h"
#include "app/browse/FileHistory.h"
#include "app/commands/Menus.h"
#include "app/session/EditSession.h"
#include "formats/BrivolantDocument.h"
#include "platform/values/Captions.h"

namespace brivolant {

/// What was given at once, and is taken back at once.
struct EditsGiver::Given {
  std::unique_ptr<ManyEdits> Many;
  /// The number of the document that is open in the editor, if it was among them; its history as
  /// it was then.
  int Open = 0;
  FolderItem File;
  int Steps = 0;
  bool Saved = false;
};

EditsGiver::EditsGiver(const Desk& desk, EditSession& session, BrowserPane& pane,
                       FileHistory& history)
    : desk_(desk), session_(session), pane_(pane), history_(history), worker_(desk.Services) {
  // Who works here now: a document takes the names as it is made.
  listening_.push_back(jobs_.Started.Listen([this] { worker_.Refresh(); }));
  listening_.push_back(session_.Opened.Listen([this] {
    if (session_.Document() != nullptr) Spare(session_.Document()->File);
  }));
}

void EditsGiver::Spare(const FolderItem& document) {
  if (const auto given = giving_.lock()) given->Many->Spare(document);
}

void EditsGiver::Give(ManyEdits::Order order) {
  const auto documents =
      std::count_if(order.Items.begin(), order.Items.end(), BrivolantDocument::IsDocument);
  if (documents > 0) {
    const EditSession::Hold hold(session_);
    const bool all = documents == std::ssize(order.Items);
    const Answer answer = desk_.Services.Dialogs.Ask(
        {WithPlaceholders(kHaveEdits.Text(), {{"<count>", std::to_string(documents)}}),
         kHaveEditsExplanation.Text(), kReplace.Text(), Captions::kCancel.Text(),
         all ? std::string() : kOnlyOthers.Text()});
    if (answer == Answer::kCancel) return;
    if (answer == Answer::kAlternate) std::erase_if(order.Items, BrivolantDocument::IsDocument);
  }
  // Behind what the session is at: the open document gets its edits there.
  session_.Work().WhenIdle([this, order = std::move(order)] { GiveNow(order); });
}

std::function<void()> EditsGiver::AddStep(const std::shared_ptr<Given>& given) {
  return history_.AddStep(Menus::kEditPasteEditsUndo, [this, given] {
    // What is still being given is not; what was given is a list that grows until then.
    if (giving_.lock() == given) jobs_.Cancel();
    // A save of the open document belongs to it.
    jobs_.WhenIdle([this, given] { session_.Work().WhenIdle([this, given] { TakeBack(given); }); });
  });
}

void EditsGiver::GiveNow(const ManyEdits::Order& order) {
  const auto given = std::make_shared<Given>();
  ManyEdits::Order others = order;
  std::erase_if(others.Items, [this](const FolderItem& item) { return session_.LiesIn(item); });
  const bool open = others.Items.size() < order.Items.size();
  given->Many = std::make_unique<ManyEdits>(std::move(others));
  open ? GiveOpen(order, given) : GiveOthers(given);
}

void EditsGiver::GiveOthers(const std::shared_ptr<Given>& given) {
  const auto forget = AddStep(given);
  giving_ = given;
  jobs_.Start({ManyEdits::kPasting.Text(), true,
               [this, given](Jobs::Control& control) { given->Many->Run(worker_, control); },
               [this, given, forget, select = history_.SelectIfUntouched()](
                   Jobs::End, const std::string& why) {
                 giving_.reset();
                 const std::vector<FolderItem> done = given->Many->Done();
                 if (done.empty() && given->Open == 0) forget();
                 pane_.imageBrowser->ReloadCurrentView();
                 if (!done.empty()) select(done);
                 std::vector<ManyEdits::Failure> failures = given->Many->Failures();
                 if (!why.empty()) failures.push_back({{}, why});
                 Tell(kNotGiven, failures);
               }});
}

void EditsGiver::GiveOpen(const ManyEdits::Order& order, const std::shared_ptr<Given>& given) {
  // What was not saved yet is not saved by this.
  const bool saved = session_.SameAsSaved();
  const auto kept = std::make_shared<bool>(false);
  const FolderItem file = session_.Document()->File;
  EditSession::Around around;
  if (saved) {
    around.Before = [given, kept, file, original = session_.Document()->OriginalImageID,
                     &files = desk_.Services.TemporaryFiles] {
      *kept = given->Many->Remember(file, original, files);
    };
  }
  around.After = [this, given, kept, file, before = session_.HistorySteps()] {
    TookOpen(given, file, before, *kept);
    GiveOthers(given);
  };
  session_.PasteEdits(order.Edits, order.Crop, order.Turns, std::move(around));
}

void EditsGiver::TookOpen(const std::shared_ptr<Given>& given, const FolderItem& file, int before,
                          bool kept) {
  // It had these edits already, or did not get them.
  if (session_.HistorySteps() == before) return given->Many->Forget();
  given->Saved = kept;
  given->Open = session_.DocumentNumber();
  given->File = file;
  given->Steps = session_.HistorySteps();
  if (!kept) return;
  session_.Save({}, [this, given](bool done) {
    if (done) given->Many->RememberedIsWritten();
    pane_.imageBrowser->ReloadCurrentView();
  });
}

void EditsGiver::TakeBack(const std::shared_ptr<Given>& given) {
  const auto failures = std::make_shared<std::vector<ManyEdits::Failure>>();
  if (given->Open != 0 && session_.DocumentNumber() == given->Open) {
    // Only if nothing has come after it.
    if (session_.HistorySteps() == given->Steps) {
      given->Many->Forget();
      given->Open = 0;
      session_.Undo();
      if (given->Saved) {
        session_.Save({}, [this](bool) { pane_.imageBrowser->ReloadCurrentView(); });
      }
    } else if (!given->Saved) {
      failures->push_back(
          {given->File, WithPlaceholders(ManyEdits::kOpenNow.Text(),
                                         {{"<filename>", given->File.DisplayName()}})});
    }
  }
  std::vector<FolderItem> keeps;
  for (const FolderItem& file : given->Many->Done()) {
    if (session_.LiesIn(file)) keeps.push_back(file);
  }
  jobs_.Start({FileHistory::kTakingBack.Text(), false,
               [this, given, keeps](Jobs::Control&) { given->Many->TakeBack(worker_, keeps); },
               [this, given, failures](Jobs::End, const std::string& why) {
                 pane_.imageBrowser->ReloadCurrentView();
                 const auto& more = given->Many->Failures();
                 failures->insert(failures->end(), more.begin(), more.end());
                 if (!why.empty()) failures->push_back({{}, why});
                 if (given->Many->Left()) (void)AddStep(given);
                 Tell(kNotTakenBack, *failures);
               }});
}

void EditsGiver::Tell(const LocalizedText& text, const std::vector<ManyEdits::Failure>& failures) {
  if (failures.empty()) return;
  constexpr std::size_t kMostTold = 8;
  std::string why;
  for (std::size_t i = 0; i < std::min(failures.size(), kMostTold); ++i) {
    const ManyEdits::Failure& failure = failures[i];
    if (!why.empty()) why += '\n';
    if (failure.Item) why += failure.Item.DisplayName() + ": ";
    why += failure.Why;
  }
  if (failures.size() > kMostTold) why += "\n...";
  const EditSession::Hold hold(session_);
  desk_.Services.Dialogs.Message(text.Text(), why);
}

}  // namespace brivolant
