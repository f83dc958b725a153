// SPDX-License-Identifier: MIT
#include "effects/looks/EffectModuleBitDepth.h"

#include <array>

#include "engine/pictures/ColorEffects.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "platform/pictures/kernels/ComposeKernels.h"
#include "platform/pictures/kernels/LookKernels.h"
#include "platform/pictures/kernels/ToneKernels.h"

namespace brivolant {

namespace {

/// Sixteen colours of early colour screens.
constexpr std::array<std::uint32_t, 16> kSixteen{
    0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0,
    0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};

const kernels::PaletteLookup& SixteenColors() {
  static const kernels::PaletteLookup lookup([] {
    std::vector<Color> colors;
    colors.reserve(kSixteen.size());
    for (const std::uint32_t rgb : kSixteen) colors.push_back(Color::FromRGB(rgb));
    return colors;
  }());
  return lookup;
}

/// The nearest of `steps` + 1 evenly spaced levels.
ToneTables Steps(int steps) {
  return ToneTables::All(
      MakeTable([steps](int i) { return (i * steps + 127) / 255 * 255 / steps; }));
}

}  // namespace

void EffectModuleBitDepth::ApplyEffect(Picture& picture, double) {
  constexpr int kGreys = 3;
  constexpr int kCube = 5;
  if (Threshold != 1.0F) SharedPictureEffects::Exposure(picture, Threshold);
  switch (Depth.Value()) {
    case 0:
      kernels::ReduceToBlackAndWhite(picture.Edit());
      break;
    case 1:
      GrayscaleEffect().ApplyInPlace(picture, 0);
      kernels::ApplyToneTables(picture.Edit(), Steps(kGreys));
      break;
    case 2:
      kernels::ReduceToPalette(picture.Edit(), SixteenColors());
      break;
    case 3:
      // A cube of six levels a channel: 216 of the 256.
      kernels::ApplyToneTables(picture.Edit(), Steps(kCube));
      break;
    default:
      // Depths that the menu does not reach hold every colour.
      break;
  }
}

}  // namespace brivolant
