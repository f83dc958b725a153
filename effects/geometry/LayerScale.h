// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ModuleParameter.h"

namespace brivolant {

/// What both modules that scale a layer share: a scale of 1 leaves it, less shrinks it, more zooms
/// in; dragging on the image moves it.
class LayerScale : public effectModule {
 public:
  static constexpr LocalizedText kName{"LayerScale.kName", "Scale Layer"};

  /// Where a shrunk layer lies, in whole pixels.
  struct Box {
    int x;
    int y;
    int width;
    int height;
  };

 protected:
  LayerScale() = default;
  std::string getName() const override { return kName.Text(); }
  /// The place of the layer shrunk to `scale` with its middle at the offsets.
  static Box Shrunk(const Picture& picture, double scale, double xOffset, double yOffset);
  /// Shows the part of the picture that is 1 / `scale` as large. The offsets count from the far
  /// side, so that the content follows the pointer.
  static void ZoomIn(Picture& picture, double scale, double xOffset, double yOffset);

  bool MouseActionDown(float x, float y, bool& render) override;
  void MouseActionUp(float x, float y) override;
  brivolant::MouseCursor GetMouseCursor(int pointerState) override;

  /// Between press and release.
  bool Updating = false;
};

}  // namespace brivolant
