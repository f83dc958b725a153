// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "platform/codecs/CodecDetail.h"

/// What the decoders of damaged files share: they take what a header says for a claim only.
namespace brivolant::codecs {

/// No file is read that is longer.
constexpr std::size_t kMostRescuedBytes = std::size_t{1} << 30U;

/// More pixels than the best coding packs into so many bytes: a header that claims more lies.
constexpr std::int64_t PixelsThatFit(std::uint64_t bytes) {
  constexpr std::int64_t kMostPixelsPerByte = 4096;
  return kMostPixelsPerByte * static_cast<std::int64_t>(bytes);
}

/// A grey picture, and a mask that is opaque, to be painted over.
struct Canvas {
  Picture picture;
  Plane mask;

  DecodedImage Take(ImageProperties properties);
};
/// Fails if the file cannot hold so many pixels.
Expected<Canvas> NewCanvas(const FolderItem& file, int width, int height, bool alpha);

// A failure without a sentence if the file is not of the format.
Expected<DecodedImage> RescueTiff(const FolderItem& file, int index);
Expected<DecodedImage> RescueWebP(const FolderItem& file);
/// A frame of a WebP file of that size, three or four bytes a pixel, red first; empty if any of it
/// cannot be read. Equal bytes give equal answers.
std::vector<std::uint8_t> WebPPixels(const FolderItem& file, int index, int width, int height,
                                     int bands);
Expected<DecodedImage> RescueGif(const FolderItem& file);
/// BMP and PNM.
Expected<DecodedImage> RescuePlain(const FolderItem& file);
Expected<DecodedImage> RescueJpeg2000(const FolderItem& file);

}  // namespace brivolant::codecs
