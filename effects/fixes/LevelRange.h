// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

#include "platform/pictures/Picture.h"
#include "platform/pictures/ToneTable.h"

namespace brivolant {

/// The levels between which a picture's content lies.
struct LevelRange {
  int min = 0;
  int max = 255;

  /// The outermost levels that more than one pixel in a thousand has; where none has, the whole
  /// range.
  static LevelRange Of(const std::array<std::uint32_t, 256>& histogram, int pixels);
  /// The curve that stretches the range to 0 to 255. An empty range changes nothing.
  ToneTable Stretch() const;
};

/// A reduced copy from which histograms are counted, so that a preview and the full picture give
/// the same ones.
Picture HistogramThumbnail(const Picture& picture, int width, int height);

}  // namespace brivolant
