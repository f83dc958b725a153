// SPDX-License-Identifier: MIT
#include "engine/PreviewRenderer.h"

#include <algorithm>
#include <chrono>

namespace brivolant {
namespace {

/// True if the modules before `end` are the same in both.
bool SameBefore(int end, const StackState& a, const StackState& b) {
  const auto count = static_cast<std::size_t>(std::max(end, 0));
  return std::equal(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(std::min(count, a.size())),
                    b.begin(), b.begin() + static_cast<std::ptrdiff_t>(std::min(count, b.size())));
}

}  // namespace

PreviewRenderer::PreviewRenderer(ModuleRegistry registry, const Services& services)
    : processor_(registry, services) {
  processor_.Startup();
}

bool PreviewRenderer::Order(StackList& stack, const StackState& state) {
  bool moved = false;
  auto place = stack.begin();
  for (const ModuleState& module : state) {
    const auto found = std::find_if(place, stack.end(),
                                    [&](const auto& other) { return other->ID() == module.ID; });
    if (found == stack.end()) continue;
    if (found != place) {
      std::rotate(place, found, found + 1);
      moved = true;
    }
    ++place;
  }
  return moved;
}

void PreviewRenderer::Take(const PreviewRequest& request) {
  const bool scaled =
      scaled_.Make(request.Original, request.Geometry, request.Width, request.Height);
  bool moved = false;
  for (std::size_t number = 0; number < request.Stacks.size(); ++number) {
    StackList& stack = processor_.stacks[number];
    const StackState& state = request.Stacks[number];
    moved = Order(stack, state) || moved;
    for (const auto& module : stack) {
      const std::string id = module->ID();
      const auto wanted = std::find_if(state.begin(), state.end(),
                                       [&](const ModuleState& other) { return other.ID == id; });
      if (wanted == state.end()) continue;
      const auto known = given_[number].find(id);
      if (known != given_[number].end() && known->second == wanted->Settings) continue;
      module->Restore(wanted->Settings);
      given_[number].insert_or_assign(id, wanted->Settings);
    }
  }
  if (request.Full) processor_.warnings_.clear();
  if (request.Full || scaled || moved) processor_.ResetEffectCache();
  const bool anew = request.Full || scaled || request.Pasted != last_.Pasted;
  const auto current = static_cast<std::size_t>(request.CurrentStack);
  if (anew || request.CurrentStack != last_.CurrentStack ||
      request.CachePoint != last_.CachePoint ||
      !SameBefore(request.CachePoint, request.Stacks.at(current), last_.Stacks.at(current))) {
    processor_.cacheCurrentStack = {};
  }
  if (anew || request.Stacks[kBackground] != last_.Stacks[kBackground]) {
    processor_.cacheBackgroundLayer = {};
  }
  processor_.CurrentStack = request.CurrentStack;
  processor_.cacheCurrentStackPoint = request.CachePoint;
  processor_.BlendAlpha = request.BlendAlpha;
  processor_.BlendMode(request.BlendMode);
  processor_.pasted_ = request.Pasted;
  last_ = request;
}

std::optional<PreviewResult> PreviewRenderer::Render(const PreviewRequest& request,
                                                     const std::function<bool()>& goOn) {
  using namespace std::chrono;
  const auto start = steady_clock::now();
  Take(request);
  PreviewResult result;
  result.Before = scaled_.Before();
  result.Base = scaled_.Base();
  if (!result.Base.IsNil()) {
    const double scale =
        brivolantProcessorLite::PreviewScale(request.Original, request.Geometry, result.Base);
    const auto after = processor_.RenderPreview(result.Base, scale, goOn);
    if (!after) return std::nullopt;
    result.After = *after;
    result.ConsistencyScale = scale;
    result.ScaleTopleft = processor_.foregroundScaleTopleft;
    result.ScaleSize = processor_.foregroundScaleSize;
  }
  result.Warnings = processor_.Warnings();
  result.Microseconds = duration<double, std::micro>(steady_clock::now() - start).count();
  return result;
}

}  // namespace brivolant
