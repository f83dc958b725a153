// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "platform/pictures/Picture.h"
#include "platform/values/Menu.h"
#include "platform/values/Pair.h"
#include "platform/values/Text.h"

namespace brivolant {

/// The blend modes by number, which style data stores.
inline constexpr std::array<LocalizedText, 16> kBlendNames{{
    {"PictureExtensions.kBlendNameNormal", "Normal"},
    {"PictureExtensions.kBlendNameMultiply", "Multiply"},
    {"PictureExtensions.kBlendNameScreen", "Screen"},
    {"PictureExtensions.kBlendNameOverlay", "Overlay"},
    {"PictureExtensions.kBlendNameDarken", "Darken"},
    {"PictureExtensions.kBlendNameLighten", "Lighten"},
    {"PictureExtensions.kBlendNameColorDodge", "Color Dodge"},
    {"PictureExtensions.kBlendNameColorBurn", "Color Burn"},
    {"PictureExtensions.kBlendNameSoftLight", "Soft Light"},
    {"PictureExtensions.kBlendNamehardLight", "Hard Light"},
    {"PictureExtensions.kBlendNameDifference", "Difference"},
    {"PictureExtensions.kBlendNameExclusion", "Exclusion"},
    {"PictureExtensions.kBlendNameHue", "Hue"},
    {"PictureExtensions.kBlendNameSaturation", "Saturation"},
    {"PictureExtensions.kBlendNameColor", "Color"},
    {"PictureExtensions.kBlendNameLuminosity", "Luminosity"},
}};

/// Composes one picture over another. Formulas: W3C Compositing and Blending Level 1, on 8 bits.
class BlendEffect {
 public:
  /// 0 to 15, see kBlendNames; any other number blends as Normal.
  int BlendMode = 0;

  /// `fill` over `source` with `opacity` 0.0 to 1.0. Without `location` and `size` the fill covers
  /// the source; otherwise it lands on that rectangle, scaled to it. `fillMask` (255 transparent)
  /// may be null. Works on colour: the result has the source's size and mask.
  Picture Apply(Picture source, const Picture& fill, double opacity,
                const Plane* fillMask = nullptr, const Point* location = nullptr,
                const Point* size = nullptr) const;
};

namespace PictureExtensions {
/// Appends the blend modes' names, each with its number as the tag.
void PopulatePopupMenuWithAvailableBlendModes(PopupMenu& menu);
}  // namespace PictureExtensions

}  // namespace brivolant
