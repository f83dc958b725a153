// SPDX-License-Identifier: MIT
#include "formats/DocumentPreviews.h"

#include <algorithm>

#include "engine/pictures/SharedPictureEffects.h"
#include "platform/pictures/kernels/ComposeKernels.h"

namespace brivolant {
namespace {

/// Where a crop begins and how long it is along one side: what lies inside the picture, one pixel
/// at least. The fractions come from files and may be any numbers.
struct Cut {
  Cut(double offset, double size, int whole) {
    const auto pixels = [whole](double fraction) {
      // Single precision, as crops have always been reckoned.
      const double limited = std::min(std::max(0.0, fraction), 1.0);
      return std::min(static_cast<int>(static_cast<float>(limited) * static_cast<float>(whole)),
                      whole);
    };
    first = std::max(std::min(pixels(offset), whole - 1), 0);
    length = std::min(std::max(pixels(size), 1), whole - first);
  }
  int first;
  int length;
};

/// A part of a picture and its mask.
Picture Cropped(const Picture& picture, const Pair& offset, const Pair& size) {
  const auto [x, w] = Cut(offset.Left, size.Left, picture.Width());
  const auto [y, h] = Cut(offset.Right, size.Right, picture.Height());
  Picture part = Picture::Uninitialized(w, h, 32);
  if (part.IsNil()) return part;
  part.HorizontalResolution = picture.HorizontalResolution;
  part.VerticalResolution = picture.VerticalResolution;
  kernels::CopyArea(picture.View(), x, y, part.Edit());
  if (const Plane* mask = picture.Mask()) {
    Plane maskPart = Plane::Uninitialized(w, h);
    if (!maskPart.IsNil()) kernels::CopyArea(mask->View(), x, y, maskPart.Edit());
    part.SetMask(std::move(maskPart));
  }
  return part;
}

Picture RotatedAndFlipped(Picture picture, const ImageGeometry& geometry) {
  if (geometry.Rotation >= 1 && geometry.Rotation <= 3) {
    picture = SharedPictureEffects::Rotate(picture, geometry.Rotation * 90, kWhite, 1);
  }
  if (geometry.Flip == 1) return SharedPictureEffects::Flip(picture, 0);
  if (geometry.Flip == 2) return SharedPictureEffects::Flip(picture, 1);
  return picture;
}

int Side(const Picture& original, bool crop, double offset, double size, bool width,
         int orientation) {
  const int whole = (orientation == 1) != width ? original.Width() : original.Height();
  return crop ? Cut(offset, size, whole).length : whole;
}

}  // namespace

Picture DocumentPreviews::Turned(const Picture& picture, const ImageGeometry& geometry) {
  if (picture.IsNil()) return picture;
  Picture result =
      geometry.Crop ? Cropped(picture, geometry.CropOffSet, geometry.CropSize) : picture;
  if (geometry.Orientation == 1 && !result.IsNil()) {
    result = SharedPictureEffects::Scale(result, result.Height(), result.Width(),
                                         SharedPictureEffects::kScaleToFill);
  }
  return RotatedAndFlipped(std::move(result), geometry);
}

int DocumentPreviews::Width(const Picture& original, const ImageGeometry& geometry) {
  return Side(original, geometry.Crop, geometry.CropOffSet.Left, geometry.CropSize.Left, true,
              geometry.Orientation);
}

int DocumentPreviews::Height(const Picture& original, const ImageGeometry& geometry) {
  return Side(original, geometry.Crop, geometry.CropOffSet.Right, geometry.CropSize.Right, false,
              geometry.Orientation);
}

Picture DocumentPreviews::Before(const Picture& original, int width, int height) {
  return SharedPictureEffects::Scale(original, width, height, SharedPictureEffects::kScaleToFit);
}

Picture DocumentPreviews::Base(const Picture& original, const ImageGeometry& geometry, int width,
                               int height) {
  using namespace SharedPictureEffects;
  if (original.IsNil()) return {};
  if (geometry.Orientation == 1) {
    return Scale(Turned(Clone(original, 24, false), geometry), width, height, kScaleToFit);
  }
  // A quarter turn or a mirror image of fewer pixels is the same picture at a fraction of the work.
  const bool quarter = geometry.QuarterTurned();
  const Picture cropped =
      geometry.Crop ? Cropped(original, geometry.CropOffSet, geometry.CropSize) : original;
  return RotatedAndFlipped(Scale(Clone(cropped, 24, false), quarter ? height : width,
                                 quarter ? width : height, kScaleToFit),
                           geometry);
}

bool ScaledPreviews::Make(const Picture& original, const ImageGeometry& geometry, int width,
                          int height) {
  const bool fits = !before_.IsNil() && original.SharesPixelsWith(original_) && width_ == width &&
                    height_ == height;
  if (fits && geometry_ == geometry) return false;
  if (!fits) before_ = DocumentPreviews::Before(original, width, height);
  const bool plain =
      !geometry.Crop && geometry.Orientation != 1 && geometry.Rotation == 0 && geometry.Flip == 0;
  base_ = plain ? before_ : DocumentPreviews::Base(original, geometry, width, height);
  original_ = original;
  geometry_ = geometry;
  width_ = width;
  height_ = height;
  return true;
}

}  // namespace brivolant
