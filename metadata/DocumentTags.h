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

/// Writes the tags into a JPEG that has just been made, beside the resolution that its encoder has
/// written. False if it cannot be done; the JPEG is then as it was.
[[nodiscard]] bool WriteDocumentTags(const FolderItem& jpeg, const DocumentTags& tags);

}  // namespace brivolant
