// SPDX-License-Identifier: MIT
#include "platform/codecs/EncodeRows.h"

#include <algorithm>

namespace brivolant::codecs {

void EncodeRow(const Picture& picture, int y, int left, int width, Channels channels,
               std::uint8_t* to) {
  const int count = channels.Count();
  std::fill_n(to, static_cast<std::ptrdiff_t>(width) * count, std::uint8_t{255});
  if (y >= picture.Height()) return;
  const Plane* plane = picture.Mask();
  const std::uint8_t* mask = plane == nullptr ? nullptr : plane->View().Row(y);
  const int end = std::min(left + width, picture.Width());
  const std::uint8_t* from = picture.View().Row(y) + std::ptrdiff_t{4} * left;
  for (int x = left; x < end; ++x, from += 4, to += count) {
    int blue = from[0];
    int green = from[1];
    int red = from[2];
    if (mask != nullptr && !channels.alpha) {
      const int clear = mask[x];
      const auto onWhite = [&](int value) {
        return (value * (255 - clear) + 255 * clear + 127) / 255;
      };
      blue = onWhite(blue);
      green = onWhite(green);
      red = onWhite(red);
    }
    if (channels.grey) {
      // The weights of ITU-R BT.601 times 65536: equal channels stay what they are.
      to[0] = static_cast<std::uint8_t>((19595 * red + 38470 * green + 7471 * blue + 32768) >> 16);
    } else {
      to[0] = static_cast<std::uint8_t>(red);
      to[1] = static_cast<std::uint8_t>(green);
      to[2] = static_cast<std::uint8_t>(blue);
    }
    if (channels.alpha && mask != nullptr) {
      to[count - 1] = static_cast<std::uint8_t>(255 - mask[x]);
    }
  }
}

}  // namespace brivolant::codecs
