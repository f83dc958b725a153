// SPDX-License-Identifier: MIT
// Edits that go from one photo to another.
#include "app/session/EditSession.h"
#include "app/session/ManyEdits.h"
#include "formats/BrivolantDocument.h"
#include "platform/files/AtomicFile.h"

namespace brivolant {

CopiedEdits EditSession::Edits() const {
  return document_ ? CopiedEdits::Of(*document_, processor_.StyleData()) : CopiedEdits();
}

void EditSession::PasteStyle(const std::string& data) {
  // The clipboard holds the stacks alone; their pictures come from where it was copied, and stay
  // within reach until they are here.
  CopiedEdits edits;
  if (Copied && Copied->StyleData == data) edits = *Copied;
  edits.StyleData = data;
  PasteEdits(edits, false, false, {});
}

void EditSession::PasteEdits(const CopiedEdits& edits, bool crop, bool turns, Around around) {
  if (!document_) return;
  // Where each picture is copied to that the document does not have yet.
  const auto copies = std::make_shared<PastedFiles>();
  const PastedFiles has = document_->PastedImages();
  for (const auto& [name, file] : edits.Pasted) {
    if (has.contains(name)) continue;
    (*copies)[name] = desk_.Services.TemporaryFiles.Child(name);
  }
  const auto give = [this, edits, crop, turns, copies, after = std::move(around.After)] {
    for (const auto& [name, copy] : *copies) (void)document_->AdoptPastedImage(name, copy);
    TakeEdits(edits, crop, turns);
    if (after) after();
  };
  if (copies->empty() && !around.Before) return give();
  jobs_.Start({ManyEdits::kPasting.Text(), false,
               [edits, copies, before = std::move(around.Before)](Jobs::Control&) {
                 if (before) before();
                 for (const auto& [name, copy] : *copies) {
                   if (copy) (void)CopyFileAtomically(edits.Pasted.at(name), copy);
                 }
               },
               // A picture that is not there by now is told of where it is missed.
               [give](Jobs::End, const std::string&) { give(); }});
}

void EditSession::TakeEdits(const CopiedEdits& edits, bool crop, bool turns) {
  BrivolantDocument& document = *document_;
  Record({{"ProcessorStack", processor_.StyleData()},
          {"DocumentCropEnabled", document.Crop},
          {"DocumentCropPoint", document.CropOffSet},
          {"DocumentCropSize", document.CropSize},
          {"DocumentOrientation", document.Orientation},
          {"DocumentRotation", document.Rotation},
          {"DocumentFlip", document.Flip}},
         kUndoPasteStyle.Text());
  if (!edits.ApplyTo(document, crop, turns)) {
    return Failed(
        WithPlaceholders(ManyEdits::kPictureNotTaken.Text(), {{"<filename>", edits.Name}}), {});
  }
  processor_.Reset();
  Replace(edits.StyleData);
}

bool EditSession::SameAsSaved() const {
  return document_ && savedState_ == State();
}

}  // namespace brivolant
