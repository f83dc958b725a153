// SPDX-License-Identifier: MIT
// Saving, and where the document lies.
#include <filesystem>

#include "app/core/RecentItems.h"
#include "app/session/EditSession.h"
#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "platform/values/Captions.h"

namespace brivolant {
namespace {

/// The same folder may be reached over a link; the item itself may be one, and is what it is.
std::string RealPath(const FolderItem& item) {
  std::error_code error;
  const auto folder = std::filesystem::weakly_canonical(item.Path().parent_path(), error);
  return ((error ? item.Path().parent_path() : folder) / item.Name()).string();
}

}  // namespace

bool EditSession::NeedsPlace() const {
  return document_ && (document_->File.IsNil() || !document_->tFile.IsNil());
}

/// A copy of the document that is being saved.
struct EditSession::Saving {
  std::unique_ptr<BrivolantDocument> copy;
  /// What stands there goes to the trash; nil where the document lies already.
  FolderItem place;
  /// The document does not lie there any more.
  bool gone = false;
  /// Of the session, as it is saved.
  std::string state;
  std::pair<FolderItem, std::string> real;
  int of = 0;
  /// What the user has said yes to.
  std::vector<Question> agreed;
  std::function<void(bool)> then;
  bool done = false;
};

void EditSession::Save(const FolderItem& place, std::function<void(bool)> then) {
  SaveWith({}, place, std::move(then));
}

void EditSession::SaveWith(const std::vector<Question>& agreed, const FolderItem& place,
                           std::function<void(bool)> then) {
  // Before any photo that arrived while the place was asked for: it is this one that is meant.
  jobs_.First([this, agreed, place, of = documents_, then = std::move(then)] {
    if (!document_ || of != documents_) return then(false);
    // An answer holds for the save that it was given to.
    worker_->Forget();
    for (const Question& question : agreed) worker_->LayReady(question, Answer::kAction);
    Settling();
    StorePending();
    const auto saving = std::make_shared<Saving>();
    saving->place = place;
    saving->of = documents_;
    saving->agreed = agreed;
    saving->then = then;
    const auto more = [this, saving]() -> std::function<void(Jobs::Control&)> {
      if (saving->copy) return nullptr;
      // The package holds a picture of what it shows.
      auto wait = AwaitPreview();
      return wait ? wait : SaveNow(saving);
    };
    const auto done = [this, saving](Jobs::End, const std::string& why) {
      TakeSaved(*saving, why);
    };
    jobs_.Start({{}, false, nullptr, done, more});
  });
}

std::function<void(Jobs::Control&)> EditSession::SaveNow(const std::shared_ptr<Saving>& saving) {
  saving->copy = std::make_unique<BrivolantDocument>(*document_);
  saving->copy->StyleData = processor_.StyleData();
  saving->state = State();
  if (saving->place) {
    saving->copy->Name = EnsureUTF8(FolderitemExtensions::FileNameWithoutExtension(saving->place));
  }
  return [saving](Jobs::Control&) {
    BrivolantDocument& copy = *saving->copy;
    saving->gone = !saving->place && !copy.File.Exists();
    if (saving->gone) return;
    saving->done = saving->place ? copy.SaveAs(saving->place) : copy.Save();
    saving->real = {copy.File, RealPath(copy.File)};
  };
}

void EditSession::TakeSaved(Saving& saving, const std::string& why) {
  // Another photo is open by now: this one was saved all the same.
  if (saving.of != documents_) return saving.then(saving.done);
  // What failed changes nothing, so that the next attempt asks again.
  if (saving.done) {
    document_->TakeOver(*saving.copy);
    place_ = saving.real;
    savedState_ = saving.state;
    recent_.Add(document_->File);
  }
  // Assistive tools may have changed something meanwhile.
  const bool clean = saving.done && savedState_ == State();
  if (clean) ForgetEdits();
  // What failed has changed nothing, not even which style is lit.
  if (saving.done) SetDirty(!clean);
  if (saving.done) Saved();
  if (!saving.done && SaveOtherwise(saving, why)) return;
  if (!saving.done && (saving.gone || !why.empty())) {
    Failed(WithPlaceholders(kNotSaved.Text(), {{"<filename>", document_->Name}}),
           saving.gone ? kPlaceGone.Text() : why);
  }
  TellWorkers();
  saving.then(saving.done);
}

/// True if another attempt is under way, or the user wants none.
bool EditSession::SaveOtherwise(Saving& saving, const std::string& why) {
  if (!Ask) return false;
  if (const std::optional<Question> question = worker_->Unanswered()) {
    TellWorkers();
    if (Ask(*question) == Answer::kAction) {
      saving.agreed.push_back(*question);
      SaveWith(saving.agreed, saving.place, saving.then);
    } else {
      saving.then(false);
    }
    return true;
  }
  if (saving.place || !AskPlace) return false;
  std::string reason = saving.gone ? kPlaceGone.Text() : why;
  for (const WorkerServices::Told& told : worker_->Take()) {
    for (const std::string& sentence : {told.Message, told.Explanation}) {
      if (!reason.empty() && !sentence.empty()) reason += ' ';
      reason += sentence;
    }
  }
  const Question question{
      WithPlaceholders(kNotSavedThere.Text(), {{"<filename>", document_->Name}}),
      reason,
      kSaveElsewhere.Text(),
      Captions::kCancel.Text(),
      {}};
  const FolderItem place = Ask(question) == Answer::kAction ? AskPlace() : FolderItem();
  if (place) {
    SaveWith(saving.agreed, place, saving.then);
  } else {
    saving.then(false);
  }
  return true;
}

namespace {

/// Where something really is; nothing if its disk does not say so at once.
std::optional<std::string> PlaceOf(const FolderItem& item) {
  constexpr int kPatience = 20;
  const auto place = std::make_shared<std::string>();
  const bool told = Jobs::Within(kPatience, [item, place] { *place = RealPath(item); });
  return told ? std::optional(*place) : std::nullopt;
}

/// There is a folder or package of that name on the way.
bool Passes(const std::string& place, const std::string& name) {
  return (place + "/").find("/" + name + "/") != std::string::npos;
}

}  // namespace

bool EditSession::LiesIn(const FolderItem& item) const {
  if (!document_ || document_->File.IsNil() || !document_->tFile.IsNil()) return false;
  const std::string named = document_->File.ShellPath();
  if (document_->File == item || named.starts_with(item.ShellPath() + "/")) return true;
  if (place_.first != document_->File) {
    if (const auto real = PlaceOf(document_->File)) place_ = {document_->File, *real};
  }
  const bool known = place_.first == document_->File;
  // Most things are called like nothing on the way to it: no disk is asked about those.
  if (!Passes(known ? place_.second : named, item.Name())) return false;
  const auto real = PlaceOf(item);
  // Of what does not answer, the name alone says that it may be: one question too many loses
  // nothing.
  if (!known || !real) return true;
  return (place_.second + "/").starts_with(*real + "/");
}

void EditSession::Relocate(const FolderItem& from, const FolderItem& to) {
  // A save that is under way knows the old place only.
  // A save that waits is to know the new one.
  jobs_.First([this, from, to] {
    if (document_) document_->Relocate(from, to);
  });
}

}  // namespace brivolant
