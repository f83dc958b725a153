// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/files/FolderItem.h"

namespace brivolant {

/// What a document tells about the image that it made from a picture without a file.
struct DocumentTags {
  std::string Name;
  std::string Creator;
  std::string Copyright;
  /// Program and version.
  std::string CreatedWith;
  int Width = 0;
  int Height = 0;
  /// Pixels per inch.
  int HorizontalResolution = 72;
  int VerticalResolution = 72;
};

/// Writes the tags into a JPEG that has just been made. The encoder has already written the
/// resolution; the TIFF block joins with the metadata writer, and this is its one way in.
[[nodiscard]] bool WriteDocumentTags(const FolderItem& jpeg, const DocumentTags& tags);

}  // namespace brivolant
