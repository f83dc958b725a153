// SPDX-License-Identifier: MIT
#include <algorithm>
#include <chrono>
#include <cmath>

#include "engine/EditorInterfaces.h"
#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "formats/BrivolantDocument.h"
#include "platform/pictures/Graphics.h"
#include "platform/pictures/kernels/ToneKernels.h"
#include "platform/values/Whole.h"

namespace brivolant {
namespace {

constexpr double kReferenceSize = 640;
/// Microseconds above which sliders no longer follow live.
constexpr double kSlow = 400000;

double Microseconds() {
  using namespace std::chrono;
  return static_cast<double>(
      duration_cast<microseconds>(steady_clock::now().time_since_epoch()).count());
}

Picture ScaledTo(const Picture& picture, const std::optional<Point>& size) {
  if (!size) return picture;
  return SharedPictureEffects::Scale(picture, Whole(size->x), Whole(size->y),
                                     SharedPictureEffects::kScaleExactly);
}

const Point* Address(const std::optional<Point>& point) {
  return point ? &*point : nullptr;
}

}  // namespace

double brivolantProcessorLite::ConsistencyScaleFor(const Picture& picture) {
  return ConsistencyScaleFor(picture.Width(), picture.Height());
}

double brivolantProcessorLite::ConsistencyScaleFor(int width, int height) {
  const double byWidth = width / kReferenceSize;
  // Height times the quotient, not the height: stored styles rely on what this gives.
  return height * byWidth > kReferenceSize ? height / kReferenceSize : byWidth;
}

double brivolantProcessorLite::PreviewScale() const {
  // A small portrait would be measured by its width where the full picture is by its height. What
  // is shown is that picture, reduced.
  int width = Document->Width();
  int height = Document->Height();
  if (Document->QuarterTurned()) std::swap(width, height);
  if (width <= 0 || height <= 0) return ConsistencyScaleFor(Document->PreviewBase);
  return ConsistencyScaleFor(width, height) * Document->PreviewBase.Width() / width;
}

void brivolantProcessorLite::RunModules(const StackList& stack, int first, int last,
                                        Picture& picture) {
  std::optional<ToneTables> pending;
  const auto flush = [&] {
    if (pending) {
      const Picture::Rewriting pixels = picture.Rewrite();
      kernels::ApplyToneTables(pixels.from, pixels.to, *pending);
    }
    pending.reset();
  };
  for (int i = first; i < last; ++i) {
    effectModule& module = *stack[static_cast<std::size_t>(i)];
    if (!module.Enabled()) continue;
    if (Stopped()) return;
    ToneModule* tone = module.AsToneModule();
    if (tone == nullptr) {
      flush();
      module.Apply(picture, consistencyScale);
      continue;
    }
    if (tone->LooksAtPicture()) flush();
    if (const auto tables = tone->Tables(picture)) {
      pending = pending ? tables->After(*pending) : *tables;
    }
  }
  flush();
}

bool brivolantProcessorLite::Stopped() {
  if (!counting_ || !Progress) return false;
  stopped_ = stopped_ || !Progress(1.0 * modulesDone_ / std::max(modulesToDo_, 1));
  ++modulesDone_;
  return stopped_;
}

int brivolantProcessorLite::EnabledModules() const {
  std::ptrdiff_t count = 0;
  for (const StackList& stack : stacks) {
    count += std::count_if(stack.begin(), stack.end(),
                           [](const auto& module) { return module->Enabled(); });
  }
  return static_cast<int>(count);
}

Picture brivolantProcessorLite::Process(Picture& picture, int stack, int start,
                                        PastedFiles pasted) {
  pasted_ = std::move(pasted);
  return RunStack(picture, stack, start, ConsistencyScaleFor(picture));
}

Picture brivolantProcessorLite::RunStack(Picture& picture, int stack, int start, double scale) {
  consistencyScale = scale;
  if (stack == kForeground || stack == kBackground) {
    const StackList& list = stacks.at(static_cast<std::size_t>(stack));
    RunModules(list, std::max(start, 0), static_cast<int>(list.size()), picture);
  }
  return picture;
}

bool brivolantProcessorLite::ForegroundMayBePlaced() const {
  const StackList& stack = stacks[kForeground];
  return std::any_of(stack.begin(), stack.end(), [](const auto& module) {
    return module->Enabled() && module->MayPlaceLayer();
  });
}

Picture brivolantProcessorLite::Compose(Picture background, const Picture& foreground) {
  return Blender.Apply(std::move(background), foreground, BlendAlpha, nullptr,
                       Address(foregroundScaleTopleft), Address(foregroundScaleSize));
}

Picture brivolantProcessorLite::Process(Picture source, PastedFiles pasted) {
  pasted_ = std::move(pasted);
  warnings_.clear();
  counting_ = true;
  stopped_ = false;
  modulesDone_ = 0;
  modulesToDo_ = EnabledModules();
  // The preview goes on as if this render had not been.
  const double scaleBefore = consistencyScale;
  Picture result = ProcessLayers(std::move(source));
  consistencyScale = scaleBefore;
  counting_ = false;
  return stopped_ ? Picture() : result;
}

Picture brivolantProcessorLite::ProcessLayers(Picture source) {
  if (source.IsNil()) return source;
  ResetEffectCache();
  foregroundScaleTopleft.reset();
  foregroundScaleSize.reset();
  const double scale = ConsistencyScaleFor(source);
  Picture layer = SharedPictureEffects::Clone(source, 24, false);
  // A layer that nothing else holds is changed where it is: the source is let go, and a layer that
  // cannot be seen is not made.
  source = {};
  if (BlendAlpha <= 0.0F) return RunStack(layer, kBackground, 0, scale);
  if (ForegroundIsOpaque() && !ForegroundMayBePlaced()) {
    const int width = layer.Width();
    const int height = layer.Height();
    Plane mask = layer.Mask() != nullptr ? *layer.Mask() : Plane();
    layer = RunStack(layer, kForeground, 0, scale);
    layer = SharedPictureEffects::Scale(layer, width, height, SharedPictureEffects::kScaleExactly);
    layer.SetMask(std::move(mask));
    return layer;
  }
  Picture background = layer;
  background = RunStack(background, kBackground, 0, scale);
  layer = RunStack(layer, kForeground, 0, scale);
  return Compose(std::move(background), ScaledTo(layer, foregroundScaleSize));
}

void brivolantProcessorLite::ResetEffectCache() {
  for (const StackList& stack : stacks) {
    for (const auto& module : stack) module->ResetCache();
  }
}

void brivolantProcessorLite::rebuildCurrentPointCache() {
  if (Document == nullptr || Document->PreviewBase.IsNil()) return;
  pasted_ = Document->PastedImages();
  consistencyScale = PreviewScale();
  cacheCurrentStack = SharedPictureEffects::Clone(Document->PreviewBase, 24, true);
  const StackList& stack = Current();
  const int last = std::min(cacheCurrentStackPoint, static_cast<int>(stack.size()));
  foregroundScaleTopleft.reset();
  foregroundScaleSize.reset();
  RunModules(stack, 0, last, cacheCurrentStack);
  cachedTopleft_ = foregroundScaleTopleft;
  cachedSize_ = foregroundScaleSize;
}

void brivolantProcessorLite::UpdatePreview(bool full) {
  if (full && Document != nullptr) {
    Document->ResetPreviews();
    warnings_.clear();
    cacheBackgroundLayer = {};
    rebuildCurrentPointCache();
    ResetEffectCache();
  }
  RunRoutine(full);
}

void brivolantProcessorLite::RenderPreview() {
  BrivolantDocument& document = *Document;
  pasted_ = document.PastedImages();
  const int width = myDisplay->Width();
  const int height = myDisplay->Height();
  if (document.PreviewBase.IsNil() || width != lastWidth || height != lastHeight) {
    ResetEffectCache();
    const int margin = static_cast<int>(std::lround(kPreviewMargin * myDisplay->PixelRatio()));
    document.GeneratePreviews(width - margin, height - margin);
    lastWidth = width;
    lastHeight = height;
    rebuildCurrentPointCache();
  }
  if (document.PreviewBase.IsNil()) return;
  const double scale = PreviewScale();
  document.PreviewAfter = cacheCurrentStack;
  // Where the layer lies follows from the modules of this render, those in the cache among them.
  foregroundScaleTopleft = cachedTopleft_;
  foregroundScaleSize = cachedSize_;
  document.PreviewAfter =
      RunStack(document.PreviewAfter, CurrentStack, cacheCurrentStackPoint, scale);
  if (CurrentStack != kForeground) return;
  const bool covers = document.PreviewAfter.Width() == document.PreviewBase.Width() &&
                      document.PreviewAfter.Height() == document.PreviewBase.Height();
  if (ForegroundIsOpaque() && !foregroundScaleSize && covers) return;
  if (cacheBackgroundLayer.Width() != document.PreviewBase.Width() ||
      cacheBackgroundLayer.Height() != document.PreviewBase.Height()) {
    cacheBackgroundLayer = SharedPictureEffects::Clone(document.PreviewBase, 24, true);
    cacheBackgroundLayer = RunStack(cacheBackgroundLayer, kBackground, 0, scale);
  }
  document.PreviewAfter =
      Compose(cacheBackgroundLayer, ScaledTo(document.PreviewAfter, foregroundScaleSize));
}

void brivolantProcessorLite::RunRoutine(bool full) {
  const double start = Microseconds();
  debugProcessTime = start;
  if (UpdateStarted) UpdateStarted();
  if (Document != nullptr && myDisplay != nullptr) RenderPreview();
  if (myDisplay != nullptr) myDisplay->Update(full);
  debugProcessTime = Microseconds() - start;
  nonLiveMode = debugProcessTime > kSlow;
  if (UpdateFinished) UpdateFinished();
}

Picture brivolantProcessorLite::Preview() {
  if (Document == nullptr) return {};
  if (mSelectedeffect == nullptr || Document->PreviewAfter.IsNil()) return Document->PreviewAfter;
  PostBuffer = SharedPictureEffects::Clone(Document->PreviewAfter, 24, true);
  mSelectedeffect->firePostProcess(PostBuffer, consistencyScale);
  return PostBuffer;
}

}  // namespace brivolant
