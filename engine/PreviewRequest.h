// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "engine/ModuleRegistry.h"
#include "formats/DocumentPreviews.h"
#include "formats/PastedFiles.h"
#include "platform/pictures/Picture.h"
#include "platform/values/Pair.h"
#include "platform/values/Variant.h"

namespace brivolant {

/// A module as its stack holds it. Its dice are among the settings.
struct ModuleState {
  std::string ID;
  Dictionary Settings;
  friend bool operator==(const ModuleState&, const ModuleState&) = default;
};
using StackState = std::vector<ModuleState>;

/// All that a preview follows from, taken on the processor's thread and rendered on any.
struct PreviewRequest {
  /// Nil if there is nothing to render.
  Picture Original;
  ImageGeometry Geometry;
  /// The box in pixels into which the preview fits.
  int Width = 0;
  int Height = 0;
  std::array<StackState, 2> Stacks;
  float BlendAlpha = 1;
  int BlendMode = 0;
  int CurrentStack = kForeground;
  /// Index in the current stack before which the next requests will hardly change; -1 for none.
  int CachePoint = -1;
  /// Files of the document's pasted pictures.
  PastedFiles Pasted;
  /// Everything but the scaled pictures is made anew.
  bool Full = false;
};

/// A finished preview.
struct PreviewResult {
  /// The original, the image before the effects, and after them.
  Picture Before;
  Picture Base;
  Picture After;
  /// Where the foreground lies; see brivolantProcessorLite.
  std::optional<Point> ScaleTopleft;
  std::optional<Point> ScaleSize;
  double ConsistencyScale = 1;
  /// What the render took.
  double Microseconds = 0;
  /// What could not be done, since the last request that was full.
  std::vector<std::string> Warnings;
};

}  // namespace brivolant
