// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// What the segments of a JPEG begin with that hold metadata.
namespace brivolant::JpegMarks {

inline constexpr std::string_view kExifMark("Exif\0\0", 6);
inline constexpr std::string_view kXmpMark("http://ns.adobe.com/xap/1.0/\0", 29);
inline constexpr std::string_view kXmpFurtherMark("http://ns.adobe.com/xmp/extension/\0", 35);
inline constexpr std::string_view kPhotoshopMark("Photoshop 3.0\0", 14);
inline constexpr std::string_view kProfileMark("ICC_PROFILE\0", 12);
inline constexpr std::string_view kJfifMark("JFIF\0", 5);

}  // namespace brivolant::JpegMarks
