// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pictures/Picture.h"
#include "platform/pictures/kernels/ColorKernels.h"

namespace brivolant {

/// The picture operations that effects are made of. An Apply leaves its source untouched; an
/// ApplyInPlace changes it. A mask that may be null limits the effect: none where it is 255, all
/// of it where it is 0. Nil in, nil out. All work on colour and keep the source's mask, except
/// where told.

/// Gaussian blur. The radius is twice the standard deviation, as in CSS (W3C CSS Backgrounds and
/// Borders, "blur radius"). Beyond the border the outermost pixels go on.
class GaussianBlur {
 public:
  GaussianBlur() = default;
  /// Pixels, 0 or more, not only whole ones.
  explicit GaussianBlur(double radius) : Radius(radius) {}
  double Radius = 0;

  Picture ApplyEffect(Picture source, const Plane* mask = nullptr) const;
  Plane ApplyEffect(Plane source) const;
};

/// The negative.
class InvertEffect {
 public:
  Picture Apply(Picture source, const Plane* mask = nullptr) const;
  void ApplyInPlace(Picture& source, const Plane* mask = nullptr) const;
};

/// Mirrors colour only.
class FlipEffect {
 public:
  Picture ApplyHorizontal(const Picture& source) const;
  Picture ApplyVertical(const Picture& source) const;
  Picture ApplyBoth(const Picture& source) const;
  void ApplyInPlaceHorizontal(Picture& source) const;
  void ApplyInPlaceVertical(Picture& source) const;
  void ApplyInPlaceBoth(Picture& source) const;
};

/// Turns clockwise on a canvas that encloses the result; quarter turns are exact. The mask is not
/// carried over.
class RotateEffect {
 public:
  /// Corners take `backColor`. `method` 1 interpolates bilinearly; there is no coarser one.
  Picture Apply(const Picture& source, double angle, Color backColor, int method) const;
  /// The same for a mask; corners take `outside`.
  Plane Apply(const Plane& source, double angle, std::uint8_t outside) const;
  void CalculateDestinationSize(int sourceWidth, int sourceHeight, double angle,
                                int& destinationWidth, int& destinationHeight) const;
};

/// Resampling to exactly the size given: bilinear when enlarging, averaging over all source pixels
/// when shrinking. The mask is not carried over. The same size gives the source.
class ScaleEffect {
 public:
  static Picture BilinearScale(const Picture& source, int width, int height);
  static Plane BilinearScale(const Plane& source, int width, int height);
  static Picture StretchHorizontal(const Picture& source, int width);
  static Picture StretchVertical(const Picture& source, int height);
};

/// Adds `value`, -255 to 255, to every channel.
class BrightnessEffect {
 public:
  Picture Apply(Picture source, int value, const Plane* mask = nullptr) const;
  void ApplyInPlace(Picture& source, int value, const Plane* mask = nullptr) const;
};

/// Stretches around the middle: `value` -100 (all grey) to 100 (twice the contrast), 0 nothing.
class ContrastEffect {
 public:
  Picture Apply(Picture source, int value, const Plane* mask = nullptr) const;
  void ApplyInPlace(Picture& source, int value, const Plane* mask = nullptr) const;
};

/// Hue, saturation and lightness in the HSL model; see kernels::ShiftHueSaturationLightness for
/// the ranges of values. Channel 0 is all hues, 1 reds, 2 yellows, 3 greens, 4 cyans, 5 blues, 6
/// magentas; see kernels::ShiftByHue. Another channel raises std::out_of_range.
class HueSaturation {
 public:
  HueSaturation() = default;
  HueSaturation(double hue, double saturation, double lightness)
      : shifts_{{{hue, saturation, lightness}}} {}

  void Reset() { *this = HueSaturation(); }
  double Hue(int channel = 0) const { return Of(channel).hue; }
  double Saturation(int channel = 0) const { return Of(channel).saturation; }
  double Lightness(int channel = 0) const { return Of(channel).lightness; }
  void Hue(int channel, double value) { Of(channel).hue = value; }
  void Saturation(int channel, double value) { Of(channel).saturation = value; }
  void Lightness(int channel, double value) { Of(channel).lightness = value; }

  Picture ApplyEffect(Picture source, const Plane* mask = nullptr) const;
  void ApplyInPlace(Picture& source, const Plane* mask = nullptr) const;

 private:
  const kernels::HueShift& Of(int channel) const {
    return shifts_.at(static_cast<std::size_t>(channel));
  }
  kernels::HueShift& Of(int channel) { return shifts_.at(static_cast<std::size_t>(channel)); }

  kernels::HueShifts shifts_{};
};

/// The picture in the layout that effects accept: 24 bits deep, without a mask's influence.
Picture EnsurePictureCompatible(Picture source);

}  // namespace brivolant
