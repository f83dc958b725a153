// SPDX-License-Identifier: MIT
// When a preview is rendered, where, and what hears of it.
#include <algorithm>
#include <chrono>
#include <cmath>

#include "engine/EditorInterfaces.h"
#include "engine/PreviewRequest.h"
#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "formats/BrivolantDocument.h"

namespace brivolant {
namespace {

/// Microseconds above which sliders no longer follow live.
constexpr double kSlow = 400000;

double Microseconds() {
  using namespace std::chrono;
  return static_cast<double>(
      duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count());
}

/// What the display shows round the preview.
int Margin(const PreviewDisplay& display) {
  return static_cast<int>(std::lround(kPreviewMargin * display.PixelRatio()));
}

}  // namespace

void brivolantProcessorLite::rebuildCurrentPointCache() {
  if (myRenderer != nullptr || Document == nullptr || Document->PreviewBase.IsNil()) return;
  pasted_ = Document->PastedImages();
  MakePointCache(Document->PreviewBase, DocumentScale());
}

void brivolantProcessorLite::UpdatePreview(bool full) {
  if (full && Document != nullptr && myRenderer == nullptr) {
    Document->ResetPreviews();
    warnings_.clear();
    cacheBackgroundLayer = {};
    rebuildCurrentPointCache();
    ResetEffectCache();
  }
  RunRoutine(full);
}

void brivolantProcessorLite::RenderDocument() {
  BrivolantDocument& document = *Document;
  pasted_ = document.PastedImages();
  const int width = myDisplay->Width();
  const int height = myDisplay->Height();
  if (document.PreviewBase.IsNil() || width != lastWidth || height != lastHeight) {
    ResetEffectCache();
    const int margin = Margin(*myDisplay);
    document.GeneratePreviews(width - margin, height - margin);
    lastWidth = width;
    lastHeight = height;
    rebuildCurrentPointCache();
  }
  if (document.PreviewBase.IsNil()) return;
  if (const auto after = RenderPreview(document.PreviewBase, DocumentScale(), {})) {
    document.PreviewAfter = *after;
  }
}

void brivolantProcessorLite::RunRoutine(bool full) {
  if (myRenderer != nullptr) return myRenderer->Request(full);
  const double start = Microseconds();
  debugProcessTime = start;
  if (UpdateStarted) UpdateStarted();
  if (Document != nullptr && myDisplay != nullptr) RenderDocument();
  if (myDisplay != nullptr) myDisplay->Update(full);
  debugProcessTime = Microseconds() - start;
  nonLiveMode = debugProcessTime > kSlow;
  if (UpdateFinished) UpdateFinished();
}

bool brivolantProcessorLite::Running() const {
  return myRenderer != nullptr && myRenderer->Running();
}

PreviewRequest brivolantProcessorLite::BeginPreview(bool full) {
  if (UpdateStarted) UpdateStarted();
  PreviewRequest request;
  request.Full = full;
  if (Document == nullptr || myDisplay == nullptr) return request;
  const int margin = Margin(*myDisplay);
  request.Original = Document->ImageOriginal();
  request.Geometry = Document->Geometry();
  request.Width = myDisplay->Width() - margin;
  request.Height = myDisplay->Height() - margin;
  for (const Stack number : {kForeground, kBackground}) {
    request.Stacks.at(number).reserve(stacks.at(number).size());
    for (const auto& module : stacks.at(number)) {
      request.Stacks.at(number).push_back({module->ID(), module->Settings()});
    }
  }
  request.BlendAlpha = BlendAlpha;
  request.BlendMode = BlendMode();
  request.CurrentStack = CurrentStack;
  request.CachePoint = cacheCurrentStackPoint;
  request.Pasted = Document->PastedImages();
  return request;
}

void brivolantProcessorLite::EndPreview(const PreviewResult* result, bool full) {
  if (result != nullptr) {
    if (Document != nullptr && myDisplay != nullptr) {
      Document->PreviewBefore = result->Before;
      Document->PreviewBase = result->Base;
      Document->PreviewAfter = result->After;
    }
    foregroundScaleTopleft = result->ScaleTopleft;
    foregroundScaleSize = result->ScaleSize;
    consistencyScale = result->ConsistencyScale;
    if (full) warnings_.clear();
    for (const std::string& sentence : result->Warnings) Warn(sentence);
    if (myDisplay != nullptr) myDisplay->Update(full);
    debugProcessTime = result->Microseconds;
    nonLiveMode = debugProcessTime > kSlow;
  }
  if (UpdateFinished) UpdateFinished();
}

Picture brivolantProcessorLite::Preview() {
  if (Document == nullptr) return {};
  if (mSelectedeffect == nullptr || Document->PreviewAfter.IsNil()) return Document->PreviewAfter;
  // Its memory is taken for the next.
  PostBuffer = Picture();
  PostBuffer = SharedPictureEffects::Clone(Document->PreviewAfter, 24, true);
  mSelectedeffect->firePostProcess(PostBuffer, consistencyScale);
  return PostBuffer;
}

void brivolantProcessorLite::DrawMarks(MarkCanvas& canvas) {
  if (mSelectedeffect != nullptr) mSelectedeffect->firePostProcess(canvas, consistencyScale);
}

}  // namespace brivolant
