// SPDX-License-Identifier: MIT
#include "app/session/ManyEdits.h"

#include <algorithm>
#include <filesystem>

#include "app/core/WorkerServices.h"
#include "app/session/DocumentSnapshot.h"
#include "effects/EffectRegistry.h"
#include "engine/brivolantProcessorLite.h"
#include "files/FileCopier.h"
#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "formats/DocumentParts.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/ExclusiveMove.h"

namespace brivolant {
namespace {

std::string SettingsOf(const FolderItem& document) {
  return ReadFile(document.Child(BrivolantDocument::kSettingsName)).value_or(std::string());
}

std::string Reason(WorkerServices& worker, const std::string& otherwise) {
  std::string reason;
  for (const WorkerServices::Told& told : worker.Take()) {
    for (const std::string& sentence : {told.Message, told.Explanation}) {
      if (!reason.empty() && !sentence.empty()) reason += ' ';
      reason += sentence;
    }
  }
  return reason.empty() ? otherwise : reason;
}

}  // namespace

/// A document that was made or changed, and what it was before.
struct ManyEdits::Change {
  FolderItem Document;
  /// The settings that were written.
  std::string Written;
  /// Null for one that was made.
  std::unique_ptr<const DocumentSnapshot> Before;
};

/// Renders the previews of one document after the other.
class ManyEdits::Renderer {
 public:
  Renderer(const std::string& styleData, const Services& services)
      : processor_(EffectRegistry(), services) {
    processor_.Startup();
    processor_.StyleData(styleData);
  }
  /// False if the photo cannot be read, or the work should end.
  bool Render(BrivolantDocument& document, Jobs::Control& control) {
    constexpr int kSize = 1024;
    document.GeneratePreviews(kSize, kSize);
    if (document.PreviewBase.IsNil()) return false;
    processor_.Progress = [&control](double) { return !control.Cancelled(); };
    const double scale = brivolantProcessorLite::PreviewScale(
        document.ImageOriginal(), document.Geometry(), document.PreviewBase);
    document.PreviewAfter =
        processor_.ProcessReduced(document.PreviewBase, scale, document.PastedImages());
    document.DropOriginal();
    return !control.Cancelled() && !document.PreviewAfter.IsNil();
  }

 private:
  brivolantProcessorLite processor_;
};

CopiedEdits CopiedEdits::Of(const BrivolantDocument& document, std::string styleData) {
  // A copy of the handles: the pictures go with the last of them.
  const auto holds = std::make_shared<BrivolantDocument>(document);
  holds->DropOriginal();
  holds->ResetPreviews();
  CopiedEdits edits;
  edits.Name = document.Name;
  edits.StyleData = std::move(styleData);
  for (const auto& [name, file] : holds->PastedImages()) {
    if (edits.StyleData.find(name) != std::string::npos) edits.Pasted[name] = file;
  }
  edits.OfPhoto = true;
  edits.Crop = document.Crop;
  edits.CropOffset = document.CropOffSet;
  edits.CropSize = document.CropSize;
  edits.Orientation = document.Orientation;
  edits.Rotation = document.Rotation;
  edits.Flip = document.Flip;
  edits.holds_ = holds;
  return edits;
}

bool CopiedEdits::ApplyTo(BrivolantDocument& document, bool crop, bool turns) const {
  const bool taken = std::all_of(Pasted.begin(), Pasted.end(), [&](const auto& picture) {
    return document.PastedImage(picture.first).Exists() ||
           document.PastedImage(picture.first, picture.second);
  });
  if (!taken) return false;
  document.StyleData = StyleData;
  if (OfPhoto && crop) {
    document.Crop = Crop;
    document.CropOffSet = CropOffset;
    document.CropSize = CropSize;
  }
  if (OfPhoto && turns) {
    document.Orientation = Orientation;
    document.Rotation = Rotation;
    document.Flip = Flip;
  }
  return true;
}

ManyEdits::ManyEdits(Order order) : order_(std::move(order)) {}
ManyEdits::~ManyEdits() = default;

FolderItem ManyEdits::PlaceFor(const FolderItem& photo) const {
  FolderItem folder = order_.Folder ? order_.Folder : photo.Parent();
  if (!order_.Folder) {
    bool inside = false;
    for (FolderItem above = folder; above && !inside; above = above.Parent()) {
      inside = FolderitemExtensions::Package(above);
    }
    if (inside || !folder.IsWriteable()) folder = order_.Spare;
  }
  const FolderItem place = BrivolantDocument::PackageFor(folder.Child(photo.Name()));
  return FileCopier::FreeName(folder, place);
}

void ManyEdits::Run(WorkerServices& worker, Jobs::Control& control) {
  failures_.clear();
  Renderer renderer(order_.Edits.StyleData, worker.All());
  for (std::size_t i = 0; i < order_.Items.size(); ++i) {
    const FolderItem& item = order_.Items[i];
    if (!control.Progress(static_cast<double>(i) / static_cast<double>(order_.Items.size()))) {
      return;
    }
    std::string why;
    try {
      why = Give(item, worker, renderer, control);
    } catch (const std::exception& exception) {
      why = exception.what();
    }
    if (!why.empty() && !control.Cancelled()) failures_.push_back({item, why});
  }
}

std::string ManyEdits::Give(const FolderItem& item, WorkerServices& worker, Renderer& renderer,
                            Jobs::Control& control) {
  const std::string unreadable = WithPlaceholders(
      FolderitemExtensions::kErrorMessageUnableToRead.Text(), {{"<filename>", item.DisplayName()}});
  BrivolantDocument document(worker.All());
  const bool existing = BrivolantDocument::IsDocument(item);
  const bool read = existing ? document.Load(item) : document.ReadImage(item);
  const auto why = [&] {
    return Reason(worker,
                  document.lastErrorMessage.empty() ? unreadable : document.lastErrorMessage);
  };
  if (!read) return why();
  Change change;
  if (existing) {
    change.Before = std::make_unique<const DocumentSnapshot>(item, document.OriginalImageID,
                                                             worker.All().TemporaryFiles);
    // What could not be taken back is not done.
    if (!change.Before->Whole()) return documentTexts::kNoTemporaryPackage.Text();
  }
  if (!order_.Edits.ApplyTo(document, order_.Crop, order_.Turns)) {
    return WithPlaceholders(kPictureNotTaken.Text(), {{"<filename>", item.DisplayName()}});
  }
  if (!renderer.Render(document, control)) return why();
  if (existing && IsSpared(item)) {
    return WithPlaceholders(kOpenNow.Text(), {{"<filename>", item.DisplayName()}});
  }
  bool saved = existing && document.Save();
  constexpr int kTries = 8;
  for (int i = 0; !existing && !saved && i < kTries; ++i) {
    const FolderItem place = PlaceFor(item);
    saved = document.SaveAsNew(place);
    // Somebody took the name meanwhile: the next one.
    if (!saved && !EntryExists(place)) break;
  }
  if (!saved) return Reason(worker, documentTexts::kNotCreated.Text());
  change.Document = document.File;
  change.Written = SettingsOf(document.File);
  changes_.push_back(std::move(change));
  return {};
}

void ManyEdits::Spare(const FolderItem& document) {
  const std::lock_guard lock(mutex_);
  spared_.push_back(document);
}

bool ManyEdits::IsSpared(const FolderItem& document) {
  const std::lock_guard lock(mutex_);
  return std::any_of(spared_.begin(), spared_.end(), [&](const FolderItem& open) {
    std::error_code error;
    return std::filesystem::equivalent(open.Path(), document.Path(), error);
  });
}

bool ManyEdits::Remember(const FolderItem& document, const std::string& original,
                         TemporaryFiles& files) {
  auto change = std::make_unique<Change>();
  change->Document = document;
  change->Before = std::make_unique<const DocumentSnapshot>(document, original, files);
  if (!change->Before->Whole()) return false;
  remembered_ = std::move(change);
  return true;
}

void ManyEdits::RememberedIsWritten() {
  if (remembered_) remembered_->Written = SettingsOf(remembered_->Document);
}

void ManyEdits::Forget() {
  remembered_.reset();
}

void ManyEdits::TakeBack(WorkerServices& worker, const std::vector<FolderItem>& keeps) {
  failures_.clear();
  std::vector<Change> left;
  if (remembered_) changes_.insert(changes_.begin(), std::move(*remembered_));
  remembered_.reset();
  // The last first: a document may have been changed twice, over a link.
  for (auto change = changes_.rbegin(); change != changes_.rend(); ++change) {
    const FolderItem& document = change->Document;
    const bool open = std::find(keeps.begin(), keeps.end(), document) != keeps.end();
    const bool written = !change->Written.empty() && SettingsOf(document) == change->Written;
    const bool same = written && !open;
    bool done = false;
    if (same && change->Before) {
      done = change->Before->Restore(document);
      for (const auto& [name, file] : order_.Edits.Pasted) {
        if (done && !change->Before->Holds(name)) (void)document.Child(name).Delete();
      }
    } else if (same) {
      done = FolderitemExtensions::MoveToTrash(document);
    }
    if (done) continue;
    const LocalizedText& why = open ? kOpenNow : written ? kNotRestored : kChangedSince;
    failures_.push_back(
        {document,
         Reason(worker, WithPlaceholders(why.Text(), {{"<filename>", document.DisplayName()}}))});
    // What may come back once the disk is there again, or the document is closed, can be tried
    // anew.
    if (written) left.insert(left.begin(), std::move(*change));
  }
  changes_ = std::move(left);
}

std::vector<FolderItem> ManyEdits::Done() const {
  std::vector<FolderItem> done;
  if (remembered_) done.push_back(remembered_->Document);
  for (const Change& change : changes_) done.push_back(change.Document);
  return done;
}

}  // namespace brivolant
