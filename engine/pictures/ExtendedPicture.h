// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>

#include "platform/codecs/ImageCodecs.h"
#include "platform/pictures/Picture.h"
#include "platform/values/Pair.h"
#include "platform/values/Text.h"

namespace brivolant {

/// Colour model of an image file's picture.
enum class ImageIOKColorSpace { kUnknown = 0, kGray = 1, kRGB = 2, kCMYK = 3 };

/// x' = a x + c y + tx, y' = b x + d y + ty.
struct AffineTransform {
  double a = 1;
  double b = 0;
  double c = 0;
  double d = 1;
  double tx = 0;
  double ty = 0;
};

/// A picture as it comes from or goes to an image file, with what a Picture cannot hold.
class ExtendedPicture {
 public:
  static constexpr LocalizedText kColorProfileNone{"ExtendedPicture.kColorProfileNone", "None"};

  /// Wraps a bitmap: upright, RGB, no profile.
  explicit ExtendedPicture(brivolant::Picture picture);
  /// Takes over a decoded image, still as it is stored.
  explicit ExtendedPicture(DecodedImage image);

  const brivolant::Picture& Picture() const { return picture_; }
  brivolant::Picture& Picture() { return picture_; }
  int Width() const { return picture_.Width(); }
  int Height() const { return picture_.Height(); }
  Plane* Mask(bool create) { return picture_.Mask(create); }

  bool hasAlpha() const { return picture_.Mask() != nullptr; }
  int HorizontalResolution() const { return picture_.HorizontalResolution; }
  int VerticalResolution() const { return picture_.VerticalResolution; }
  /// TIFF orientation, 1 to 8.
  int Orientation() const { return orientation_; }
  ImageIOKColorSpace ColorSpace() const { return colorSpace_; }
  /// Grey is written with one channel, where the format has such a form.
  void ColorSpace(ImageIOKColorSpace space) { colorSpace_ = space; }
  const std::string& ColorProfile() const { return colorProfile_; }
  int BitsPerComponent() const { return bitsPerComponent_; }
  int Depth() const;
  /// What of the file's picture could not be read.
  const PictureDamage& Damage() const { return damage_; }

  /// 0 to 1, for writing.
  float CompressionQuality = 0.75F;

  /// Maps a position in the stored image to the upright one, in pixels.
  AffineTransform Transformer() const;
  /// Turns the stored image upright; the orientation is 1 afterwards.
  void ApplyOrientation();
  /// A 32-bit copy, at `size` or the image's own size.
  brivolant::Picture MakeRBPicture(const Pair* size) const;

 private:
  brivolant::Picture picture_;
  int orientation_ = 1;
  ImageIOKColorSpace colorSpace_ = ImageIOKColorSpace::kRGB;
  std::string colorProfile_;
  int bitsPerComponent_ = 8;
  PictureDamage damage_;
};

}  // namespace brivolant
