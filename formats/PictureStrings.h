// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "platform/files/FolderItem.h"
#include "platform/pictures/Picture.h"

namespace brivolant {

/// Pictures in byte strings, as files of ours embed them. Nil or empty on failure.

class JpegImporter {
 public:
  static constexpr int kMostPreviewPixels = 1 << 22;
  static constexpr int kPreviewSide = 512;
  static Picture OpenFromString(std::string_view bytes);
  static Picture OpenFromFile(const FolderItem& file);
  /// A preview inside a file that may come from anyone: nil if it claims more than
  /// kMostPreviewPixels, which is found out before anything is decoded, else reduced as far as its
  /// longer side stays at `side`.
  static Picture PreviewFromString(std::string_view bytes, int side = kPreviewSide);
  /// The same from a file of a few megabytes at most.
  static Picture PreviewFromFile(const FolderItem& file, int side = kPreviewSide);
};

class PngImporter {
 public:
  static Picture OpenFromString(std::string_view bytes);
  static Picture OpenFromFile(const FolderItem& file);
};

class JpegExporter {
 public:
  /// 0 to 100.
  int Quality = 75;
  std::string SaveToString(const Picture& picture) const;
  [[nodiscard]] bool SaveToFile(const FolderItem& file, const Picture& picture) const;
};

class PngExporter {
 public:
  std::string SaveToString(const Picture& picture) const;
  [[nodiscard]] bool SaveToFile(const FolderItem& file, const Picture& picture) const;
};

}  // namespace brivolant
