// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pictures/Picture.h"
#include "platform/values/Pair.h"

namespace brivolant {

/// How a document cuts and turns its image.
struct ImageGeometry {
  bool Crop = false;
  Pair CropOffSet;
  Pair CropSize;
  int Orientation = 0;
  int Rotation = 0;
  int Flip = 0;
  /// True if the rotation exchanges width and height.
  bool QuarterTurned() const { return Rotation == 1 || Rotation == 3; }
  friend bool operator==(const ImageGeometry&, const ImageGeometry&) = default;
};

/// What a document shows before any effect, as functions of its original and its geometry alone.
namespace DocumentPreviews {
/// Applies crop, orientation, rotation and flip, in this order.
Picture Turned(const Picture& picture, const ImageGeometry& geometry);
/// The size after crop and orientation, before the picture is turned; of a nil picture 0.
int Width(const Picture& original, const ImageGeometry& geometry);
int Height(const Picture& original, const ImageGeometry& geometry);
/// The original, and the image before the effects, to fit into a box of pixels.
Picture Before(const Picture& original, int width, int height);
Picture Base(const Picture& original, const ImageGeometry& geometry, int width, int height);
}  // namespace DocumentPreviews

/// Both scaled pictures of a document, made anew only when what they follow from is another: most
/// changes are of the effects alone.
class ScaledPreviews {
 public:
  /// Makes them to fit into a box of pixels. False if they are those of before.
  bool Make(const Picture& original, const ImageGeometry& geometry, int width, int height);
  const Picture& Before() const { return before_; }
  const Picture& Base() const { return base_; }

 private:
  Picture original_;
  ImageGeometry geometry_;
  int width_ = 0;
  int height_ = 0;
  Picture before_;
  Picture base_;
};

}  // namespace brivolant
