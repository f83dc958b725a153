// SPDX-License-Identifier: MIT
#include "app/browse/EditsController.h"

#include <QMenu>
#include <QTimer>
#include <algorithm>

#include "app/browse/BrowserController.h"
#include "app/browse/FileController.h"
#include "app/browse/PasteEditsSheet.h"
#include "app/commands/Commands.h"
#include "app/commands/Menus.h"
#include "app/session/EditSession.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "formats/FileTypes.h"
#include "kit/InterfaceKitSupport.h"
#include "platform/services/SharedFolders.h"
#include "platform/values/Captions.h"

namespace brivolant {
namespace {

/// The kinds of more files are not looked up at every key.
constexpr int kMostLooked = 16;

bool IsDocument(const FolderItem& file) {
  return FolderitemExtensions::isFileType(file, &InternalFileTypes::BrivolantPhotosDocument);
}

bool TakesEdits(const FolderItem& file) {
  return IsDocument(file) || FolderitemExtensions::NamesPicture(file.Name());
}

}  // namespace

/// What was given at once, and is taken back at once.
struct EditsController::Given {
  std::unique_ptr<ManyEdits> Many;
  /// The number of the document that is open in the editor, if it was among them; its history as
  /// it was then.
  int Open = 0;
  FolderItem File;
  int Steps = 0;
  bool Saved = false;
};

EditsController::EditsController(const Desk& desk, EditSession& session, Commands& commands,
                                 BrowserController& browser, FileController& files)
    : desk_(desk),
      session_(session),
      commands_(commands),
      browser_(browser),
      files_(files),
      worker_(desk.Services) {
  AddCommands(commands);
  // Who works here now: a document takes the names as it is made.
  listening_.push_back(jobs_.Started.Listen([this] { worker_.Refresh(); }));
  listening_.push_back(session_.Opened.Listen([this] {
    const auto given = giving_.lock();
    if (given && session_.Document() != nullptr) given->Many->Spare(session_.Document()->File);
  }));
}

EditsController::~EditsController() {
  delete sheet_.data();
}

void EditsController::AddCommands(Commands& commands) {
  using namespace Menus;
  commands.Add({
      {"EditCopyStyle", &kEditCopyEdits, "", kInBrowser, [this] { CopyEdits(); },
       [this] { return DocumentSelected() && !jobs_.Busy(); }},
      {"EditPasteStyle", &kEditPasteEdits, "", kInBrowser, [this] { PasteEdits(); },
       [this] { return desk_.Clipboard.Has(CopiedEdits::kStyleType) && PhotosSelected(); }},
      {"EditApplyStyle", &kEditApplyStyle, "", kInBrowser, nullptr,
       [this] { return PhotosSelected(); }},
  });
}

std::vector<FolderItem> EditsController::Photos() const {
  std::vector<FolderItem> photos = browser_.SelectedFiles();
  std::erase_if(photos, [](const FolderItem& file) { return !TakesEdits(file); });
  return photos;
}

bool EditsController::PhotosSelected() const {
  const std::vector<FolderItem> files = browser_.SelectedFiles();
  const auto looked = files.begin() + std::min<std::ptrdiff_t>(std::ssize(files), kMostLooked);
  return std::ssize(files) > kMostLooked || std::any_of(files.begin(), looked, TakesEdits);
}

FolderItem EditsController::DocumentSelected() const {
  if (browser_.imageBrowser->SelectedCount() != 1) return {};
  const std::vector<FolderItem> files = browser_.SelectedFiles();
  return files.size() == 1 && IsDocument(files.front()) ? files.front() : FolderItem();
}

// Copying.

void EditsController::Keep(CopiedEdits edits) {
  desk_.Clipboard.Set({}, CopiedEdits::kStyleType, edits.StyleData);
  session_.Copied = std::make_shared<const CopiedEdits>(std::move(edits));
  commands_.Changed();
}

void EditsController::CopyEdits() {
  const FolderItem file = DocumentSelected();
  if (!file) return;
  // As they are in the editor, saved or not.
  if (session_.LiesIn(file)) return Keep(session_.Edits());
  const auto edits = std::make_shared<CopiedEdits>();
  const auto failed = std::make_shared<std::vector<ManyEdits::Failure>>();
  jobs_.Start({{},
               false,
               [this, file, edits, failed](Jobs::Control&) {
                 BrivolantDocument document(worker_.All());
                 if (!document.Load(file)) {
                   failed->push_back({file, document.lastErrorMessage});
                   return;
                 }
                 document.HoldFiles();
                 *edits = CopiedEdits::Of(document, document.StyleData);
               },
               [this, edits, failed](Jobs::End end, const std::string&) {
                 for (const WorkerServices::Told& told : worker_.Take()) {
                   desk_.Services.Dialogs.Message(told.Message, told.Explanation);
                 }
                 if (!failed->empty() && !failed->front().Why.empty()) {
                   desk_.Services.Dialogs.Message(failed->front().Why,
                                                  failed->front().Item.DisplayName());
                 }
                 if (end == Jobs::End::kDone && failed->empty()) Keep(std::move(*edits));
               }});
}

CopiedEdits EditsController::OnClipboard() const {
  CopiedEdits edits;
  edits.StyleData = desk_.Clipboard.Data(CopiedEdits::kStyleType);
  // What another program's clipboard or an earlier run left has neither pictures nor a crop.
  const auto& copied = session_.Copied;
  return copied && copied->StyleData == edits.StyleData ? *copied : edits;
}

// Pasting.

void EditsController::PasteEdits() {
  AskAndGive(OnClipboard());
}

void EditsController::ApplyStyle(const OneClickWonder& style) {
  CopiedEdits edits;
  edits.Name = style.Name();
  edits.StyleData = style.StyleData;
  AskAndGive(std::move(edits));
}

PasteEditsSheet* EditsController::Sheet() const {
  return static_cast<PasteEditsSheet*>(sheet_.data());
}

void EditsController::AskAndGive(CopiedEdits edits) {
  ManyEdits::Order order;
  order.Items = Photos();
  order.Edits = std::move(edits);
  if (order.Items.empty() || order.Edits.StyleData.empty()) return;
  delete sheet_.data();
  auto* sheet = new PasteEditsSheet(*browser_.imageBrowser->window(), order, desk_.Preferences);
  sheet_ = sheet;
  // The sheet has closed before the next question opens.
  sheet->Accepted = [this](const ManyEdits::Order& chosen) {
    QTimer::singleShot(0, browser_.imageBrowser, [this, chosen] { Give(chosen); });
  };
  sheet->open();
}

void EditsController::Give(ManyEdits::Order order) {
  const auto documents = std::count_if(order.Items.begin(), order.Items.end(), IsDocument);
  if (documents > 0) {
    const EditSession::Hold hold(session_);
    const bool all = documents == std::ssize(order.Items);
    const Answer answer = desk_.Services.Dialogs.Ask(
        {WithPlaceholders(kHaveEdits.Text(), {{"<count>", std::to_string(documents)}}),
         kHaveEditsExplanation.Text(), kReplace.Text(), Captions::kCancel.Text(),
         all ? std::string() : kOnlyOthers.Text()});
    if (answer == Answer::kCancel) return;
    if (answer == Answer::kAlternate) std::erase_if(order.Items, IsDocument);
  }
  // Behind what the session is at: the open document gets its edits there.
  session_.Work().WhenIdle([this, order = std::move(order)] { GiveNow(order); });
}

std::function<void()> EditsController::AddStep(const std::shared_ptr<Given>& given) {
  return files_.AddStep(Menus::kEditPasteEditsUndo, [this, given] {
    // What is still being given is not; what was given is a list that grows until then.
    if (giving_.lock() == given) jobs_.Cancel();
    // A save of the open document belongs to it.
    jobs_.WhenIdle([this, given] { session_.Work().WhenIdle([this, given] { TakeBack(given); }); });
  });
}

void EditsController::GiveNow(const ManyEdits::Order& order) {
  const auto given = std::make_shared<Given>();
  ManyEdits::Order others = order;
  std::erase_if(others.Items, [this](const FolderItem& item) { return session_.LiesIn(item); });
  const bool open = others.Items.size() < order.Items.size();
  given->Many = std::make_unique<ManyEdits>(std::move(others));
  if (open) GiveOpen(order, given);
  const auto forget = AddStep(given);
  giving_ = given;
  jobs_.Start({kPasting.Text(), true,
               [this, given](Jobs::Control& control) { given->Many->Run(worker_, control); },
               [this, given, forget, select = files_.SelectIfUntouched()](Jobs::End,
                                                                          const std::string& why) {
                 giving_.reset();
                 const std::vector<FolderItem> done = given->Many->Done();
                 if (done.empty() && given->Open == 0) forget();
                 browser_.imageBrowser->ReloadCurrentView();
                 if (!done.empty()) select(done);
                 std::vector<ManyEdits::Failure> failures = given->Many->Failures();
                 if (!why.empty()) failures.push_back({{}, why});
                 Tell(kNotGiven, failures);
               }});
}

void EditsController::GiveOpen(const ManyEdits::Order& order, const std::shared_ptr<Given>& given) {
  // What was not saved yet is not saved by this.
  const bool saved = session_.SameAsSaved();
  const bool kept =
      saved && given->Many->Remember(*session_.Document(), desk_.Services.TemporaryFiles);
  const FolderItem file = session_.Document()->File;
  const int before = session_.HistorySteps();
  session_.PasteEdits(order.Edits, order.Crop, order.Turns);
  // It had these edits already, or did not get them.
  if (session_.HistorySteps() == before) return given->Many->Forget();
  given->Saved = kept;
  given->Open = session_.DocumentNumber();
  given->File = file;
  given->Steps = session_.HistorySteps();
  if (!kept) return;
  session_.Save({}, [this, given](bool done) {
    if (done) given->Many->RememberedIsWritten();
    browser_.imageBrowser->ReloadCurrentView();
  });
}

void EditsController::TakeBack(const std::shared_ptr<Given>& given) {
  const auto failures = std::make_shared<std::vector<ManyEdits::Failure>>();
  if (given->Open != 0 && session_.DocumentNumber() == given->Open) {
    // Only if nothing has come after it.
    if (session_.HistorySteps() == given->Steps) {
      given->Many->Forget();
      given->Open = 0;
      session_.Undo();
      if (given->Saved) {
        session_.Save({}, [this](bool) { browser_.imageBrowser->ReloadCurrentView(); });
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
  jobs_.Start({FileController::kTakingBack.Text(), false,
               [this, given, keeps](Jobs::Control&) { given->Many->TakeBack(worker_, keeps); },
               [this, given, failures](Jobs::End, const std::string& why) {
                 browser_.imageBrowser->ReloadCurrentView();
                 const auto& more = given->Many->Failures();
                 failures->insert(failures->end(), more.begin(), more.end());
                 if (!why.empty()) failures->push_back({{}, why});
                 if (given->Many->Left()) (void)AddStep(given);
                 Tell(kNotTakenBack, *failures);
               }});
}

void EditsController::Tell(const LocalizedText& text,
                           const std::vector<ManyEdits::Failure>& failures) {
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
