// SPDX-License-Identifier: MIT
// Finished pictures of the open document, rendered as jobs: for a file, and for a screen.
#include "app/session/EditSession.h"
#include "effects/EffectRegistry.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "export/SaveAsCopy.h"
#include "formats/BrivolantDocument.h"

namespace brivolant {

void EditSession::SaveCopy(const FolderItem& file, const std::string& type, double quality) {
  if (!document_) return;
  // A copy of the handles: the editor may go on while this one is rendered.
  const auto source = CopyOfDocument();
  const auto copy = std::make_shared<SaveAsCopy::Job>();
  copy->StyleData = processor_.StyleData();
  copy->File = file;
  copy->Type = type;
  copy->Quality = quality;
  const int rule = desk_.Preferences.Value(kCopiesCarry, 0).ToInt();
  using enum MetadataCopy::Rule;
  copy->Data.Rule = rule == 1 ? kWithoutPlace : rule == 2 ? kNone : kAll;
  const auto error = std::make_shared<std::string>();
  const auto outcome = std::make_shared<SaveAsCopy::Outcome>(SaveAsCopy::Outcome::kFailed);
  jobs_.Start(
      {WithPlaceholders(SaveAsCopy::kSaving.Text(), {{"<filename>", file.DisplayName()}}), true,
       [this, source, copy, error, outcome](Jobs::Control& control) {
         // The disk is asked, which may be away.
         const auto why = std::make_shared<std::string>();
         if (!control.Apart([source, copy, why] { *why = source->WhyNotWriteTo(copy->File); })) {
           return;
         }
         *error = *why;
         if (!error->empty()) return;
         copy->Source = source->Image();
         copy->Pasted = source->PastedImages();
         copy->Data.Photo = source->OriginalSource();
         copy->Data.Packet = source->MetadataPacket();
         *outcome = SaveAsCopy::Run(
             *copy, worker_->All(), [&](double done) { return control.Progress(done); }, *error);
       },
       [this, file, error, outcome](Jobs::End end, const std::string& why) {
         TellWorkers();
         if (end == Jobs::End::kDone && error->empty()) return;
         if (end == Jobs::End::kCancelled) return;
         // The copy is there, and lacks what the sentence says.
         if (*outcome == SaveAsCopy::Outcome::kDone) return Failed(*error, {});
         Failed(WithPlaceholders(kNotSaved.Text(), {{"<filename>", file.DisplayName()}}),
                why.empty() ? *error : why);
       }});
}

void EditSession::RenderFor(int width, int height, std::function<void(const Picture&)> then) {
  if (!document_) return;
  const auto document = CopyOfDocument();
  const auto result = std::make_shared<Picture>();
  jobs_.Start(
      {kProgressGeneric.Text(), false,
       [this, document, result, width, height, style = processor_.StyleData()](Jobs::Control&) {
         const Picture& original = document->ImageOriginal();
         Picture source;
         if (original.Width() > width || original.Height() > height) {
           source = SharedPictureEffects::Scale(document->Image(), width, height,
                                                SharedPictureEffects::kScaleToFit);
         } else if (original.Width() < document->PreviewAfter.Width()) {
           source = document->PreviewBase;
         } else {
           source = document->Image();
         }
         brivolantProcessorLite processor(EffectRegistry(), worker_->All());
         processor.Startup();
         processor.StyleData(style);
         const double scale =
             brivolantProcessorLite::PreviewScale(original, document->Geometry(), source);
         *result = processor.ProcessReduced(std::move(source), scale, document->PastedImages());
       },
       [this, result, then = std::move(then), name = document_->Name](Jobs::End end,
                                                                      const std::string& why) {
         TellWorkers();
         if (end == Jobs::End::kDone && !result->IsNil()) return then(*result);
         Failed(WithPlaceholders(kNotShown.Text(), {{"<filename>", name}}), why);
       }});
}

}  // namespace brivolant
