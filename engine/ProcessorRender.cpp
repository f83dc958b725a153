// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

#include "engine/brivolantProcessorLite.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "formats/BrivolantDocument.h"
#include "platform/pictures/Graphics.h"
#include "platform/pictures/kernels/ToneKernels.h"
#include "platform/values/Whole.h"

namespace brivolant {
namespace {

constexpr double kReferenceSize = 640;

Picture ScaledTo(const Picture& picture, const std::optional<Point>& size) {
  if (!size) return picture;
  return SharedPictureEffects::Scale(picture, Whole(size->x), Whole(size->y),
                                     SharedPictureEffects::kScaleExactly);
}

/// Asks while it lives.
class Asking {
 public:
  Asking(std::function<bool()>& place, const std::function<bool()>& goOn) : place_(place) {
    place_ = goOn;
  }
  ~Asking() { place_ = nullptr; }
  Asking(const Asking&) = delete;
  Asking& operator=(const Asking&) = delete;

 private:
  std::function<bool()>& place_;
};

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

double brivolantProcessorLite::PreviewScale(const Picture& original, const ImageGeometry& geometry,
                                            const Picture& base) {
  // A small portrait would be measured by its width where the full picture is by its height. What
  // is shown is that picture, reduced.
  int width = DocumentPreviews::Width(original, geometry);
  int height = DocumentPreviews::Height(original, geometry);
  if (geometry.QuarterTurned()) std::swap(width, height);
  if (width <= 0 || height <= 0) return ConsistencyScaleFor(base);
  return ConsistencyScaleFor(width, height) * base.Width() / width;
}

double brivolantProcessorLite::DocumentScale() const {
  return PreviewScale(Document->ImageOriginal(), Document->Geometry(), Document->PreviewBase);
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
  if (!goOn_) return false;
  stopped_ = stopped_ || !goOn_();
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
  const double scale = ConsistencyScaleFor(source);
  return ProcessReduced(std::move(source), scale, std::move(pasted));
}

Picture brivolantProcessorLite::ProcessReduced(Picture reduced, double scale, PastedFiles pasted) {
  pasted_ = std::move(pasted);
  warnings_.clear();
  stopped_ = false;
  std::function<bool()> goOn;
  if (Progress) {
    goOn = [this, done = 0, all = std::max(EnabledModules(), 1)]() mutable {
      return Progress(1.0 * done++ / all);
    };
  }
  const Asking asking(goOn_, goOn);
  // The preview goes on as if this render had not been.
  struct Kept {
    double& place;
    double value;
    ~Kept() { place = value; }
  } const kept{consistencyScale, consistencyScale};
  Picture result = ProcessLayers(std::move(reduced), scale);
  return stopped_ ? Picture() : result;
}

Picture brivolantProcessorLite::ProcessLayers(Picture source, double scale) {
  if (source.IsNil()) return source;
  ResetEffectCache();
  foregroundScaleTopleft.reset();
  foregroundScaleSize.reset();
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

void brivolantProcessorLite::MakePointCache(const Picture& base, double scale) {
  consistencyScale = scale;
  cacheCurrentStack = {};
  Picture cache = SharedPictureEffects::Clone(base, 24, true);
  const StackList& stack = Current();
  const int last = std::min(cacheCurrentStackPoint, static_cast<int>(stack.size()));
  foregroundScaleTopleft.reset();
  foregroundScaleSize.reset();
  RunModules(stack, 0, last, cache);
  cachedTopleft_ = foregroundScaleTopleft;
  cachedSize_ = foregroundScaleSize;
  if (!stopped_) cacheCurrentStack = std::move(cache);
}

std::optional<Picture> brivolantProcessorLite::RenderPreview(const Picture& base, double scale,
                                                             const std::function<bool()>& goOn) {
  stopped_ = false;
  const Asking asking(goOn_, goOn);
  if (cacheCurrentStack.IsNil()) MakePointCache(base, scale);
  if (stopped_) return std::nullopt;
  Picture after = cacheCurrentStack;
  // Where the layer lies follows from the modules of this render, those in the cache among them.
  foregroundScaleTopleft = cachedTopleft_;
  foregroundScaleSize = cachedSize_;
  (void)RunStack(after, CurrentStack, cacheCurrentStackPoint, scale);
  if (stopped_) return std::nullopt;
  if (CurrentStack != kForeground) return after;
  const bool covers = after.Width() == base.Width() && after.Height() == base.Height();
  if (ForegroundIsOpaque() && !foregroundScaleSize && covers) return after;
  if (cacheBackgroundLayer.Width() != base.Width() ||
      cacheBackgroundLayer.Height() != base.Height()) {
    cacheBackgroundLayer = {};
    Picture background = SharedPictureEffects::Clone(base, 24, true);
    (void)RunStack(background, kBackground, 0, scale);
    if (stopped_) return std::nullopt;
    cacheBackgroundLayer = std::move(background);
  }
  return Compose(cacheBackgroundLayer, ScaledTo(after, foregroundScaleSize));
}

}  // namespace brivolant
