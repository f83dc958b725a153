// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <unordered_map>

#include "engine/PreviewRequest.h"
#include "engine/brivolantProcessorLite.h"

namespace brivolant {

/// Renders previews on one thread, with modules of its own. What requests have in common stays
/// rendered between them; what comes out follows from the request alone.
class PreviewRenderer {
 public:
  /// `registry` is that of the processors whose requests are rendered. The services are used on
  /// the renderer's thread, and must outlive it.
  PreviewRenderer(ModuleRegistry registry, const Services& services);

  /// Asks `goOn` before each module; nothing comes back once it says no.
  std::optional<PreviewResult> Render(const PreviewRequest& request,
                                      const std::function<bool()>& goOn = {});

 private:
  using StackList = brivolantProcessorLite::StackList;
  /// Brings the modules in line, and drops what is rendered and no longer true.
  void Take(const PreviewRequest& request);
  /// True if the modules stand in another order now.
  static bool Order(StackList& stack, const StackState& state);

  brivolantProcessorLite processor_;
  ScaledPreviews scaled_;
  PreviewRequest last_;
  /// What the modules of each stack were given, by identifier.
  std::array<std::unordered_map<std::string, Dictionary>, 2> given_;
};

}  // namespace brivolant
