// SPDX-License-Identifier: MIT
#include "engine/pictures/ExtendedPicture.h"

#include "engine/pictures/PictureEffects.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "platform/codecs/Orientation.h"

namespace brivolant {
namespace {

ImageIOKColorSpace SpaceOf(const std::string& model) {
  if (model == "Gray") return ImageIOKColorSpace::kGray;
  if (model == "CMYK") return ImageIOKColorSpace::kCMYK;
  return ImageIOKColorSpace::kRGB;
}

}  // namespace

ExtendedPicture::ExtendedPicture(brivolant::Picture picture)
    : picture_(std::move(picture)), colorProfile_(kColorProfileNone.Text()) {}

ExtendedPicture::ExtendedPicture(DecodedImage image)
    : picture_(std::move(image.Pixels)),
      orientation_(image.Properties.Orientation),
      colorSpace_(SpaceOf(image.Properties.ColorModel)),
      colorProfile_(image.Properties.ProfileName.empty() ? kColorProfileNone.Text()
                                                         : image.Properties.ProfileName),
      bitsPerComponent_(image.Properties.BitsPerComponent),
      damage_(std::move(image.Damage)) {}

int ExtendedPicture::Depth() const {
  return bitsPerComponent_ * (hasAlpha() ? 4 : 3);
}

AffineTransform ExtendedPicture::Transformer() const {
  const double w = Width();
  const double h = Height();
  const std::array<AffineTransform, 8> upright{{{1, 0, 0, 1, 0, 0},
                                                {-1, 0, 0, 1, w, 0},
                                                {-1, 0, 0, -1, w, h},
                                                {1, 0, 0, -1, 0, h},
                                                {0, 1, 1, 0, 0, 0},
                                                {0, 1, -1, 0, h, 0},
                                                {0, -1, -1, 0, h, w},
                                                {0, -1, 1, 0, 0, w}}};
  return upright.at(static_cast<std::size_t>(orientation_ - 1));
}

void ExtendedPicture::ApplyOrientation() {
  picture_ = UprightPicture(picture_, orientation_);
  orientation_ = 1;
}

brivolant::Picture ExtendedPicture::MakeRBPicture(const Pair* size) const {
  brivolant::Picture picture =
      size == nullptr ? picture_
                      : SharedPictureEffects::Scale(picture_, static_cast<int>(size->Left),
                                                    static_cast<int>(size->Right),
                                                    SharedPictureEffects::kScaleExactly);
  picture.Depth(32);
  return picture;
}

}  // namespace brivolant
