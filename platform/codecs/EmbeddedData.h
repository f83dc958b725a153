// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/files/FolderItem.h"

namespace brivolant {

/// What a picture file holds beside its pixels, as its codec hands it over, still in bytes.
struct EmbeddedData {
  /// "HEIC", "PNG" and such.
  std::string Format;
  int Width = 0;
  int Height = 0;
  int BitsPerComponent = 8;
  /// 1, 3 or 4.
  int Channels = 3;
  /// A TIFF structure, without what some formats put before it.
  std::string Exif;
  std::string XMP;
  std::string IPTC;
  std::string Profile;
  /// The JPEG that a raw file holds as its preview; everything else is empty then.
  std::string Preview;
};

/// What the boxes of a JPEG 2000 file begin with that hold a TIFF structure, and a packet.
inline constexpr std::string_view kJpeg2000Exif("JpgTiffExif->JP2", 16);
inline constexpr std::string_view kJpeg2000XMP(
    "\xBE\x7A\xCF\xCB\x97\xA9\x42\xE8\x9C\x71\x99\x94\x91\xE3\xAF\xAC", 16);

/// Reads the head of a file, not its pixels; null for what is no picture, or a format that is read
/// elsewhere: JPEG, TIFF and Photoshop files.
std::shared_ptr<const EmbeddedData> ReadEmbeddedData(const FolderItem& file);

}  // namespace brivolant
