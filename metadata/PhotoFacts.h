// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "metadata/MetadataFields.h"
#include "platform/files/FolderItem.h"
#include "platform/values/Date.h"

namespace brivolant {

class ImageMetaData;

/// The few things that people look for in what a photo tells. Of several places that say the same,
/// descriptions, creators and moments are Exif's first, titles, keywords and copyrights IPTC's, and
/// XMP's where neither says it. What is kept beside a file that is never written comes before all.
struct PhotoFacts {
  std::string Title;
  std::string Caption;
  std::string Creator;
  std::string Copyright;
  std::vector<std::string> Keywords;
  /// Make and model, the make said once.
  std::string Camera;
  std::string Lens;
  /// "1/250 s, f/5.6, ISO 200, 35 mm": what of it there is.
  std::string Exposure;
  std::optional<Date> Taken;
  std::optional<Position> Where;
  /// -1 to 5; 0 for none.
  int Rating = 0;

  /// Of what was read.
  static PhotoFacts Of(const ImageMetaData& data);
  /// Of a file; empty for one that tells nothing.
  static PhotoFacts Of(const FolderItem& file);
};

/// A moment as Exif writes it, "YYYY:MM:DD HH:MM:SS", with whatever between the numbers. Nothing
/// for what is no moment: blanks, zeros, a month 13.
std::optional<Date> DateFromExif(std::string_view text);

}  // namespace brivolant
