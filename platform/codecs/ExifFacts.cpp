// SPDX-License-Identifier: MIT
#include <libexif/exif-data.h>

#include "platform/codecs/CodecDetail.h"

namespace brivolant::codecs {

ExifFacts ReadExif(const std::string& segment) {
  ExifFacts facts;
  if (segment.empty()) return facts;
  ExifData* data = exif_data_new_from_data(reinterpret_cast<const unsigned char*>(segment.data()),
                                           static_cast<unsigned>(segment.size()));
  if (data == nullptr) return facts;
  if (ExifEntry* entry = exif_content_get_entry(data->ifd[EXIF_IFD_0], EXIF_TAG_ORIENTATION);
      entry != nullptr && entry->format == EXIF_FORMAT_SHORT && entry->size >= 2) {
    const int value = exif_get_short(entry->data, exif_data_get_byte_order(data));
    if (value >= 1 && value <= 8) facts.orientation = value;
  }
  if (data->data != nullptr && data->size > 0) {
    facts.preview.assign(reinterpret_cast<const char*>(data->data), data->size);
  }
  exif_data_unref(data);
  return facts;
}

}  // namespace brivolant::codecs
