// SPDX-License-Identifier: MIT
#include "app/session/EditSession.h"

#include "app/core/Recovery.h"
#include "engine/EditorInterfaces.h"
#include "engine/pictures/PictureEffects.h"
#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "formats/ImageFile.h"
#include "platform/files/ExclusiveMove.h"
#include "platform/values/SharedComponents.h"

namespace brivolant {

EditSession::EditSession(ModuleRegistry registry, const Desk& desk, brivolant::Recovery& recovery,
                         RecentItems& recent)
    : desk_(desk),
      recovery_(recovery),
      recent_(recent),
      worker_(std::make_shared<WorkerServices>(desk.Services)),
      processor_(registry, desk.Services),
      preview_(processor_, registry, desk.Services) {
  processor_.ModuleCreated = [this](effectModule& module) { ModuleCreated(module); };
  processor_.UpdateStarted = [this] { RenderStarted(); };
  processor_.UpdateFinished = [this] { Rendered(); };
  working_ = jobs_.Started.Listen([this] { worker_->Refresh(); });
  WireHistory();
}

EditSession::~EditSession() {
  // A job may wait for a render.
  preview_.BreakOff();
  keeping_.Finish();
  // The panel and the display may be gone before the modules are.
  processor_.myEffectEditor = nullptr;
  processor_.myDisplay = nullptr;
  processor_.SelectedEffectChanged = nullptr;
}

void EditSession::Start() {
  processor_.Startup();
  processor_.UpdatePreview(false);
}

void EditSession::Finish() {
  jobs_.Finish();
  keeping_.Finish();
  FinishPreview();
}

bool EditSession::Dirty() const {
  return document_ && document_->Dirty;
}

void EditSession::Refresh() {
  if (processor_.myEffectEditor != nullptr) processor_.myEffectEditor->Update();
  processor_.UpdatePreview(document_ != nullptr);
  Changed();
}

void EditSession::SetDirty(bool dirty) {
  StorePending();
  if (document_) document_->Dirty = dirty;
  // An adjusted photo no longer has that style.
  if (dirty) styleSelection_ = -1;
  if (dirty) givenUp_ = false;
  if (dirty) rewindable_ = true;
  Changed();
}

void EditSession::SelectStyle(int selection) {
  styleSelection_ = selection;
  Changed();
}

void EditSession::Turn(int BrivolantDocument::*field, int value) {
  if (!document_) return;
  int& present = (*document_).*field;
  if (field == &BrivolantDocument::Rotation) {
    Record({{"DocumentRotation", present}}, kUndoRotate.Text());
  } else if (field == &BrivolantDocument::Flip) {
    Record({{"DocumentFlip", present}}, kUndoFlip.Text());
  } else {
    Record({{"DocumentOrientation", present}}, kUndoOrientation.Text());
  }
  present = present == value ? 0 : value;
  SetDirty(true);
  processor_.UpdatePreview(true);
  Changed();
}

void EditSession::RecordBlending() {
  Record({{"BlendingStatus", Pair{static_cast<double>(processor_.BlendMode()),
                                  static_cast<double>(processor_.BlendAlpha)}}},
         kUndoBlending.Text());
}

void EditSession::Blend(int mode, float alpha) {
  if (!document_) return;
  processor_.BlendMode(mode);
  processor_.BlendAlpha = alpha;
  processor_.UpdatePreview(false);
  SetDirty(true);
}

void EditSession::Replace(const std::string& style) {
  processor_.StyleData(style);
  processor_.ChangeStack(0);
  Refresh();
  SetDirty(true);
}

void EditSession::ApplyStyle(const std::string& data, const std::string& name) {
  if (!document_) return;
  Record({{"OneClickSelection", styleSelection_}, {"ProcessorStack", processor_.StyleData()}},
         name);
  processor_.Reset();
  Replace(data);
}

void EditSession::ClearStyle() {
  if (!document_) return;
  Record({{"ProcessorStack", processor_.StyleData()}, {"OneClickSelection", styleSelection_}},
         kUndoClearStyle.Text());
  processor_.Reset();
  Refresh();
  SetDirty(true);
}

void EditSession::ApplyLastStyle() {
  if (!document_ || lastStyle_.empty()) return;
  Record({{"ProcessorStack", processor_.StyleData()}}, kUndoLastStyle.Text());
  Replace(lastStyle_);
}

namespace {

constexpr const char* kOverlay = "7FFFFFFF-B371-0D5F-E410-E0CB34849A08";

}  // namespace

EffectModuleOverlay* EditSession::Overlay() {
  return document_ ? dynamic_cast<EffectModuleOverlay*>(processor_.ItemVIaID(kOverlay)) : nullptr;
}

void EditSession::LayReady(
    std::function<EffectModuleOverlay::Ready(const std::string& name, const FolderItem& copy)> make,
    std::function<void(EffectModuleOverlay::Ready)> take) {
  // Before what arrived while a file was chosen: it is meant for the photo that is open now.
  jobs_.First([this, of = documents_, make = std::move(make), take = std::move(take)] {
    if (of != documents_ || Overlay() == nullptr) return;
    Settling();
    const std::string name = otherSharedComponents::NewGUID(desk_.Services.Random);
    const FolderItem copy = desk_.Services.TemporaryFiles.Child(name);
    const auto ready = std::make_shared<EffectModuleOverlay::Ready>();
    const auto apart = [ready, make, name, copy] { *ready = make(name, copy); };
    jobs_.Start({kLayingOver.Text(), true,
                 // Its disk may be away, and who waits for it can give it up.
                 [apart](Jobs::Control& control) { (void)control.Apart(apart); },
                 [this, ready, take](Jobs::End end, const std::string& why) {
                   if (end == Jobs::End::kCancelled) return;
                   if (ready->Error.empty()) ready->Error = why;
                   if (Overlay() != nullptr) take(std::move(*ready));
                 },
                 nullptr, true});
  });
}

void EditSession::LayOver(const FolderItem& file) {
  const auto make = [file](const std::string& name, const FolderItem& copy) {
    return EffectModuleOverlay::MakeReady(file, name, copy);
  };
  LayReady(make, [this, file](EffectModuleOverlay::Ready ready) {
    EffectModuleOverlay& overlay = *Overlay();
    const std::string error = ready.Error;
    Record({{ModuleKey("EffectChanged:", overlay), overlay.Settings()}}, overlay.Name());
    if (!overlay.Take(std::move(ready))) {
      FolderitemExtensions::StandardFileErrorDialog(file, FolderitemExtensions::kRead, error,
                                                    worker_->All().Dialogs);
      return TellWorkers();
    }
    Refresh();
    SetDirty(true);
  });
}

void EditSession::PastePicture(PictureSource source) {
  constexpr double kQuality = 0.8;
  if (!source) return;
  const auto make = [source = std::move(source)](const std::string& name, const FolderItem& copy) {
    EffectModuleOverlay::Ready ready;
    const Picture picture = source();
    if (picture.IsNil()) {
      ready.Error = kNoPicture.Text();
      return ready;
    }
    // A file is written under the extension of its kind, and lies in the document without one.
    const FolderItem jpeg = copy.Parent().Child(name + ".jpg");
    if (!ImageIO::SaveAsJPEG(jpeg, EnsurePictureCompatible(picture), kQuality, ready.Error)) {
      return ready;
    }
    if (const std::error_code error = MoveExclusively(jpeg, copy)) {
      ready.Error = error.message();
      return ready;
    }
    return EffectModuleOverlay::MakeReady(copy, name, copy);
  };
  LayReady(make, [this](EffectModuleOverlay::Ready ready) {
    EffectModuleOverlay& overlay = *Overlay();
    const std::string error = ready.Error;
    Record({{"ProcessorStack", processor_.StyleData()}}, kUndoPaste.Text());
    if (!overlay.Take(std::move(ready))) return Failed(error, {});
    overlay.Enabled(true);
    // At the head of the stack, above everything else.
    processor_.ChangeItemOrder(processor_.ItemPositionViaID(kOverlay), 0);
    processor_.SelectEffect(0);
    if (processor_.myEffectEditor != nullptr) processor_.myEffectEditor->selectedEffect(0);
    Refresh();
    SetDirty(true);
  });
}

void EditSession::PerformRewind() {
  if (!document_) return;
  BrivolantDocument& document = *document_;
  Record({{"ProcessorStack", processor_.StyleData()},
          {"DocumentRotation", document.Rotation},
          {"DocumentFlip", document.Flip},
          {"DocumentCropEnabled", document.Crop},
          {"DocumentOrientation", document.Orientation}},
         kUndoRewind.Text());
  document.Crop = false;
  document.Rotation = 0;
  document.Flip = 0;
  document.Orientation = 0;
  processor_.Reset();
  Refresh();
  SetDirty(true);
  rewindable_ = false;
  Changed();
}

}  // namespace brivolant
