// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "platform/pictures/Picture.h"

namespace brivolant::codecs {

/// The channels that a file stores of each pixel.
struct Channels {
  bool grey = false;   ///< One instead of red, green and blue.
  bool alpha = false;  ///< Opacity, last.
  int Count() const { return (grey ? 1 : 3) + (alpha ? 1 : 0); }
};

/// Puts `width` pixels of row `y` from `left` on, one byte a channel, at `to`. Without a channel
/// for it, transparency is laid on white. What lies outside the picture is white and opaque.
void EncodeRow(const Picture& picture, int y, int left, int width, Channels channels,
               std::uint8_t* to);

}  // namespace brivolant::codecs
