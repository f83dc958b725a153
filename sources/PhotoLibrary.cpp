// SPDX-License-Identifier: MIT
#include "sources/PhotoLibrary.h"

#include "formats/ImageFile.h"

namespace brivolant {

FolderItem iPhotoItem::ProcessFolderitem(const std::string& path) {
  if (path.empty()) return {};
  std::string plain = path;
  constexpr std::string_view kEscaped = "&amp;";
  for (std::size_t at = plain.find(kEscaped); at != std::string::npos;
       at = plain.find(kEscaped, at + 1)) {
    plain.replace(at, kEscaped.size(), "&");
  }
  return FolderItem(plain);
}

Date iPhotoItem::DateTime() const {
  // The library counts from 2001 and the dates here from 1904; its clock is eight hours behind.
  Date date = Date::FromTotalSeconds(DateAsTimerInterval);
  date.Year += 97;
  date.Hour += 8;
  return date.Normalized();
}

Picture iPhotoItem::DynamicPreview() {
  if (iDynamic.IsNil() && !ThumbPath.empty()) {
    std::string ignored;
    iDynamic = ImageIO::OpenAsPictureUsingImageIO(ThumbNailFile(), ignored);
  }
  return iDynamic;
}

}  // namespace brivolant
