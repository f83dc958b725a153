// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "platform/files/FolderItem.h"
#include "platform/pictures/Picture.h"
#include "platform/values/Date.h"

namespace brivolant {

/// One border, as its file describes it. The picture of the frame stays in the file.
class BorderModuleItem {
 public:
  std::string Name;
  /// How the frame is made of the picture, 0 to 8.
  int Type = 0;
  /// The photo's rectangle, as fractions of the frame.
  float ImageLeft = 0;
  float ImageTop = 0;
  float ImageWidth = 1;
  float ImageHeight = 1;
  /// Index of a category, 0 to 4.
  int Category = 0;
  FolderItem File;
  Date CreationDate;
  std::string Creator;
  std::string CreatedWith;
  std::string ContactLink;
  std::string ID;
  /// A small picture for lists; nil if the file has none.
  Picture Preview;
  /// Why Load failed.
  std::string LastErrorMessage;

  /// False and LastErrorMessage if the file is none of ours or damaged; then nothing has changed.
  [[nodiscard]] bool Load(const FolderItem& file);
  /// The same from a file's bytes; `name` stands in the message.
  [[nodiscard]] bool LoadBytes(std::string_view bytes, const std::string& name);

 private:
  /// Where the frame's picture lies in the file, a PNG; length 0 for none.
  std::size_t iDataPos = 0;
  std::size_t iDataLength = 0;
};

}  // namespace brivolant
