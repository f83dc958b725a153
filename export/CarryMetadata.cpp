// SPDX-License-Identifier: MIT
#include "export/CarryMetadata.h"

#include "engine/pictures/SharedPictureEffects.h"
#include "platform/codecs/ImageCodecs.h"

namespace brivolant {

bool CarryMetadata(const FolderItem& photo, const FolderItem& file, std::string_view type,
                   MetadataCopy::Rule rule, const Picture& picture, const std::string& software,
                   const std::string& packet) {
  // What Exif's own small pictures are.
  constexpr int kLongest = 160;
  if (rule == MetadataCopy::Rule::kNone || !MetadataCopy::Takes(type)) return true;
  MetadataCopy::Facts facts;
  facts.Width = picture.Width();
  facts.Height = picture.Height();
  facts.Software = software;
  if (type == "public.jpeg" && (picture.Width() > kLongest || picture.Height() > kLongest)) {
    facts.Thumbnail = EncodeJpegBytes({SharedPictureEffects::Scale(
        picture, kLongest, kLongest, SharedPictureEffects::kScaleToFit)});
  }
  const MetadataCopy copy(photo, rule, packet);
  // One whose data nobody here can read leaves it behind.
  const bool told = photo.IsNil() || copy.Good();
  return copy.Into(file, facts).empty() && told;
}

}  // namespace brivolant
