// SPDX-License-Identifier: MIT
// Edits that go from one photo to another.
#include "app/session/EditSession.h"
#include "app/session/ManyEdits.h"
#include "formats/BrivolantDocument.h"

namespace brivolant {

CopiedEdits EditSession::Edits() const {
  return document_ ? CopiedEdits::Of(*document_, processor_.StyleData()) : CopiedEdits();
}

void EditSession::PasteStyle(const std::string& data) {
  CopiedEdits edits;
  edits.StyleData = data;
  // The clipboard holds the stacks alone; their pictures come from where it was copied.
  if (Copied && Copied->StyleData == data) edits.Pasted = Copied->Pasted;
  PasteEdits(edits, false, false);
}

void EditSession::PasteEdits(const CopiedEdits& edits, bool crop, bool turns) {
  if (!document_) return;
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
