// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pictures/Views.h"

namespace brivolant::kernels {

/// Changes hue, saturation and lightness in the HSL model, in place.
/// `hue` in degrees, -180 to 180, turns the hue. `saturation` below 0 draws towards grey, reached
/// at -200; above 0 it multiplies, up to three times at 200. `lightness`, -100 to 100, draws
/// towards black or white. 0, 0, 0 changes nothing.
void ShiftHueSaturationLightness(Pixels pixels, double hue, double saturation, double lightness);

/// The same, one pixel at a time.
namespace reference {
void ShiftHueSaturationLightness(Pixels pixels, double hue, double saturation, double lightness);
}  // namespace reference

}  // namespace brivolant::kernels
