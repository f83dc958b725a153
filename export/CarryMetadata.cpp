// SPDX-License-Identifier: MIT
#include "export/CarryMetadata.h"

#include "engine/pictures/SharedPictureEffects.h"
#include "platform/codecs/ImageCodecs.h"

namespace brivolant {

std::string CarryMetadata(const Carried& carried, const Picture& picture, const FolderItem& file,
                          std::string_view type, const std::string& named) {
  // What Exif's own small pictures are.
  constexpr int kLongest = 160;
  if (carried.Rule == MetadataCopy::Rule::kNone) return {};
  const MetadataCopy copy(carried.Photo, carried.Rule, carried.Packet);
  const auto told = [&](const LocalizedText& text) {
    return WithPlaceholders(text.Text(), {{"<filename>", named}});
  };
  if (!MetadataCopy::Takes(type)) return copy.Tells() ? told(kNoPlaceForData) : std::string();
  MetadataCopy::Facts facts;
  facts.Width = picture.Width();
  facts.Height = picture.Height();
  facts.Software = carried.Software;
  facts.Creator = carried.Creator;
  facts.Copyright = carried.Copyright;
  const bool small = type == "public.jpeg" || type == "public.png" || type == "public.jpeg-2000";
  if (small && (picture.Width() > kLongest || picture.Height() > kLongest)) {
    facts.Thumbnail = EncodeJpegBytes({SharedPictureEffects::Scale(
        picture, kLongest, kLongest, SharedPictureEffects::kScaleToFit)});
  }
  // One whose data nobody here can read leaves it behind.
  const bool read = carried.Photo.IsNil() || copy.Good();
  return copy.Into(file, facts).empty() && read ? std::string() : told(kDataLeftBehind);
}

}  // namespace brivolant
