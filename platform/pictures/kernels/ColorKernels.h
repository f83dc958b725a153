// SPDX-License-Identifier: MIT
#pragma once

#include <array>

#include "platform/pictures/Views.h"

namespace brivolant::kernels {

/// Changes hue, saturation and lightness in the HSL model, in place.
/// `hue` in degrees, -180 to 180, turns the hue. `saturation` below 0 draws towards grey, reached
/// at -200; above 0 it multiplies, up to three times at 200. `lightness`, -100 to 100, draws
/// towards black or white. 0, 0, 0 changes nothing.
/// Numbers beyond turn on, or do no more than their ends.
void ShiftHueSaturationLightness(Pixels pixels, double hue, double saturation, double lightness);
/// What the three numbers mean for a pixel: sixths of a turn from 0 to 6, a factor of the
/// saturation, and -1 to 1. What is no finite number changes nothing.
float TurnOf(double hue);
float StrengthOf(double saturation);
float LightOf(double lightness);

/// One shift of all hues and six of ranges of them: reds, yellows, greens, cyans, blues, magentas.
/// A range works wholly within 15 degrees of its middle and fades out over the next 30, so that two
/// neighbours together never work more than once. Greys have no hue and know only the first.
struct HueShift {
  double hue = 0;
  double saturation = 0;
  double lightness = 0;
};
inline constexpr int kHueRanges = 6;
using HueShifts = std::array<HueShift, 1 + kHueRanges>;
void ShiftByHue(Pixels pixels, const HueShifts& shifts);
/// How much a range, 0 to 5, works on a hue in degrees: 0 to 1.
double ShareOfRange(int range, double hue);

/// The same, one pixel at a time.
namespace reference {
void ShiftHueSaturationLightness(Pixels pixels, double hue, double saturation, double lightness);
}  // namespace reference

}  // namespace brivolant::kernels
