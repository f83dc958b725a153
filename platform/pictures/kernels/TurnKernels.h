// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "platform/pictures/Views.h"

namespace brivolant::kernels {

/// How a picture is laid out anew: first its axes are exchanged, then each is mirrored.
struct Turn {
  bool exchange = false;  ///< Rows become columns.
  bool mirrorX = false;   ///< Left and right of the result are exchanged.
  bool mirrorY = false;   ///< Top and bottom of the result are exchanged.
};

/// Writes the turned source into the target, whose size fits.
void TurnPixels(ConstPixels source, Pixels target, const Turn& turn);
void TurnPlane(ConstGrey source, Grey target, const Turn& turn);

/// Mirrors in place.
void Mirror(Pixels pixels, bool alongX, bool alongY);

/// The source turned clockwise about its centre by `degrees`, drawn in the middle of the target
/// with bilinear interpolation and enlarged by `zoom`, 1 or more. Outside the source lies `back`
/// (0xRRGGBB); a plane takes `outside`.
void RotateAnyAngle(ConstPixels source, Pixels target, double degrees, std::uint32_t back,
                    double zoom = 1);
void RotateAnyAngle(ConstGrey source, Grey target, double degrees, std::uint8_t outside);

}  // namespace brivolant::kernels
