// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pictures/Picture.h"

namespace brivolant {

/// Operations that turn colours into others. As in PictureEffects.h: a mask that may be null
/// limits the effect, none where it is 255; nil in, nil out; the source's mask stays.

/// Grey by weights: 0 ITU-R BT.601 (NTSC and PAL), 1 ITU-R BT.709, 2 the plain mean, 3 a mean that
/// counts green twice. Any other type counts as 0.
class GrayscaleEffect {
 public:
  Picture Apply(Picture source, int grayscaleTypeValue, const Plane* mask = nullptr) const;
  void ApplyInPlace(Picture& source, int grayscaleTypeValue, const Plane* mask = nullptr) const;
};

/// Grey by the lightness of the HSL model: the middle between largest and smallest channel.
class DesaturateEffect {
 public:
  Picture Apply(Picture source, const Plane* mask = nullptr) const;
  void ApplyInPlace(Picture& source, const Plane* mask = nullptr) const;
};

/// The sepia() filter of the W3C Filter Effects Module: `value` 0 changes nothing, 50 is the whole
/// tone, and more stays there.
class SepiaEffect {
 public:
  Picture Apply(Picture source, int value, const Plane* mask = nullptr) const;
  void ApplyInPlace(Picture& source, int value, const Plane* mask = nullptr) const;
};

/// Multiplies each channel by its share of 255, 0 to 255.
class ColorFilterEffect {
 public:
  Picture Apply(Picture source, int red, int green, int blue, const Plane* mask = nullptr) const;
  void ApplyInPlace(Picture& source, int red, int green, int blue,
                    const Plane* mask = nullptr) const;
};

}  // namespace brivolant
