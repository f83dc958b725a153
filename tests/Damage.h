// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
// libjpeg wants the declarations of stdio before its own.
#include <jpeglib.h>

#include <algorithm>
#include <array>
#include <string>

#include "Helpers.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/files/BinaryStream.h"

/// Files to be damaged, and what is left of them.
namespace brivolant::test {

inline constexpr int kWidth = 300;
inline constexpr int kHeight = 240;

/// A picture in which every row differs from every other.
inline const Picture& Original() {
  static const Picture picture = TestPicture(kWidth, kHeight);
  return picture;
}

inline std::string Cut(const std::string& bytes, double share) {
  return bytes.substr(0, static_cast<std::size_t>(static_cast<double>(bytes.size()) * share));
}

/// With some bytes in the middle overwritten.
inline std::string Spoilt(std::string bytes, double place, int count = 40) {
  const auto at = static_cast<std::size_t>(static_cast<double>(bytes.size()) * place);
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
    bytes[at + i] = static_cast<char>(bytes[at + i] ^ 0x5A);
  }
  return bytes;
}

struct JpegForm {
  bool progressive = false;
  bool arithmetic = false;
  /// Rows of blocks between two restart markers.
  int restart = 0;
};

inline std::string Jpeg(const Picture& picture, const JpegForm& form) {
  jpeg_compress_struct info{};
  jpeg_error_mgr errors{};
  info.err = jpeg_std_error(&errors);
  jpeg_create_compress(&info);
  unsigned char* bytes = nullptr;
  unsigned long size = 0;  // NOLINT(google-runtime-int)
  jpeg_mem_dest(&info, &bytes, &size);
  info.image_width = static_cast<JDIMENSION>(picture.Width());
  info.image_height = static_cast<JDIMENSION>(picture.Height());
  info.input_components = 4;
  info.in_color_space = JCS_EXT_BGRX;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, 95, TRUE);
  if (form.progressive) jpeg_simple_progression(&info);
  info.arith_code = form.arithmetic ? TRUE : FALSE;
  info.restart_in_rows = form.restart;
  jpeg_start_compress(&info, TRUE);
  while (info.next_scanline < info.image_height) {
    auto* row = const_cast<JSAMPROW>(picture.View().Row(static_cast<int>(info.next_scanline)));
    jpeg_write_scanlines(&info, &row, 1);
  }
  jpeg_finish_compress(&info);
  std::string jpeg(reinterpret_cast<const char*>(bytes), size);
  jpeg_destroy_compress(&info);
  std::free(bytes);
  return jpeg;
}

/// Where the number-th marker of that kind stands.
inline std::size_t Marker(const std::string& jpeg, int kind, int number) {
  const std::string marker{'\xFF', static_cast<char>(kind)};
  std::size_t at = jpeg.find(marker);
  for (int i = 1; i < number; ++i) at = jpeg.find(marker, at + 2);
  return at;
}

/// With bytes that no block takes before the number-th marker of that kind.
inline std::string Stuffed(std::string jpeg, int kind, int number) {
  return jpeg.insert(Marker(jpeg, kind, number), "\x12\x34\x56");
}

inline std::string Encoded(std::string_view type, const Picture& picture, double quality = 0.9) {
  TemporaryFolder folder;
  const std::array<EncodeImage, 1> images{{{picture, quality}}};
  EXPECT_EQ(EncodeImageFile(folder.Child("a"), type, images), "");
  return *ReadFile(folder.Child("a"));
}

/// The largest difference in the rows from `first` to before `last`.
inline int DifferenceOfRows(const Picture& a, const Picture& b, int first, int last) {
  int most = 0;
  for (int y = first; y < last; ++y) {
    for (int x = 0; x < a.Width(); ++x) {
      const Color one = a.At(x, y);
      const Color other = b.At(x, y);
      most = std::max({most, std::abs(one.Red - other.Red), std::abs(one.Green - other.Green),
                       std::abs(one.Blue - other.Blue)});
    }
  }
  return most;
}

}  // namespace brivolant::test
