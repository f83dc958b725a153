// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstdio>
// libjpeg wants the declarations of stdio before its own.
#include <jpeglib.h>

#include <array>
#include <cmath>
#include <random>

#include "Helpers.h"
#include "platform/codecs/JpegEighth.h"

namespace brivolant::test {
namespace {

using codecs::DecodeJpegEighth;

struct Kind {
  int width = 203;
  int height = 117;
  int horizontal = 1;
  int vertical = 1;
  int restart = 0;
  bool grey = false;
  bool optimized = false;
  bool progressive = false;
  J_COLOR_SPACE stored = JCS_YCbCr;
  bool inPieces = false;
};

/// Colours that change slowly, so that halved chroma holds all of them.
Picture Soft(int width, int height) {
  Picture picture = Picture::Uninitialized(width, height);
  const Pixels pixels = picture.Edit();
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      std::uint8_t* p = pixels.Row(y) + std::ptrdiff_t{4} * x;
      p[0] = static_cast<std::uint8_t>(128 + 90 * std::sin(x / 60.0));
      p[1] = static_cast<std::uint8_t>(128 + 90 * std::sin(y / 50.0));
      p[2] = static_cast<std::uint8_t>(128 + 90 * std::cos((x + y) / 70.0));
      p[3] = 255;
    }
  }
  return picture;
}

/// A JPEG of that kind.
std::string Written(const Kind& kind, int quality = 85, bool soft = false) {
  const Picture picture =
      soft ? Soft(kind.width, kind.height) : TestPicture(kind.width, kind.height);
  jpeg_compress_struct info{};
  jpeg_error_mgr errors{};
  info.err = jpeg_std_error(&errors);
  jpeg_create_compress(&info);
  unsigned char* bytes = nullptr;
  unsigned long size = 0;  // NOLINT(google-runtime-int): the type of libjpeg
  jpeg_mem_dest(&info, &bytes, &size);
  info.image_width = static_cast<JDIMENSION>(kind.width);
  info.image_height = static_cast<JDIMENSION>(kind.height);
  info.input_components = 4;
  info.in_color_space = JCS_EXT_BGRX;
  jpeg_set_defaults(&info);
  jpeg_set_colorspace(&info, kind.grey ? JCS_GRAYSCALE : kind.stored);
  jpeg_set_quality(&info, quality, TRUE);
  info.comp_info[0].h_samp_factor = kind.horizontal;
  info.comp_info[0].v_samp_factor = kind.vertical;
  info.restart_interval = static_cast<unsigned>(kind.restart);
  info.optimize_coding = kind.optimized ? TRUE : FALSE;
  static const std::array<jpeg_scan_info, 3> kPieces{
      {{1, {0}, 0, 63, 0, 0}, {1, {1}, 0, 63, 0, 0}, {1, {2}, 0, 63, 0, 0}}};
  if (kind.inPieces) {
    info.scan_info = kPieces.data();
    info.num_scans = 3;
  }
  if (kind.progressive) jpeg_simple_progression(&info);
  jpeg_start_compress(&info, TRUE);
  const ConstPixels pixels = picture.View();
  while (info.next_scanline < info.image_height) {
    auto* row = const_cast<JSAMPLE*>(pixels.Row(static_cast<int>(info.next_scanline)));
    jpeg_write_scanlines(&info, &row, 1);
  }
  jpeg_finish_compress(&info);
  jpeg_destroy_compress(&info);
  std::string written(reinterpret_cast<const char*>(bytes), size);
  free(bytes);
  return written;
}

/// What libjpeg makes of it at an eighth.
Picture Reference(const std::string& bytes) {
  jpeg_decompress_struct info{};
  jpeg_error_mgr errors{};
  info.err = jpeg_std_error(&errors);
  jpeg_create_decompress(&info);
  jpeg_mem_src(&info, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
  jpeg_read_header(&info, TRUE);
  info.scale_num = 1;
  info.scale_denom = 8;
  info.out_color_space = JCS_EXT_BGRA;
  jpeg_start_decompress(&info);
  Picture picture = Picture::Uninitialized(static_cast<int>(info.output_width),
                                           static_cast<int>(info.output_height));
  const Pixels pixels = picture.Edit();
  while (info.output_scanline < info.output_height) {
    JSAMPROW row = pixels.Row(static_cast<int>(info.output_scanline));
    jpeg_read_scanlines(&info, &row, 1);
  }
  jpeg_finish_decompress(&info);
  jpeg_destroy_decompress(&info);
  return picture;
}

TEST(JpegEighth, EqualsTheLibraryWhereChromaIsWhole) {
  const std::array<Kind, 6> kinds{{{},
                                   {.grey = true},
                                   {.restart = 5, .grey = true},
                                   {.restart = 3},
                                   {.optimized = true},
                                   {.width = 8, .height = 9}}};
  for (const Kind& kind : kinds) {
    for (const int quality : {10, 85, 100}) {
      const std::string bytes = Written(kind, quality);
      const Picture eighth = DecodeJpegEighth(bytes);
      ASSERT_FALSE(eighth.IsNil());
      EXPECT_LE(LargestDifference(eighth, Reference(bytes)), 1);
    }
  }
}

TEST(JpegEighth, ComesNearTheLibraryWhereChromaIsHalved) {
  for (const auto& [h, v] : {std::pair{2, 2}, {2, 1}, {1, 2}}) {
    for (const int width : {203, 208, 16, 1}) {
      const Kind kind{.width = width, .horizontal = h, .vertical = v, .restart = width % 3};
      const std::string bytes = Written(kind, 95, true);
      const Picture eighth = DecodeJpegEighth(bytes);
      ASSERT_FALSE(eighth.IsNil());
      const Picture reference = Reference(bytes);
      ASSERT_EQ(eighth.Width(), reference.Width());
      ASSERT_EQ(eighth.Height(), reference.Height());
      // Between the means of chroma lies a straight line here, and a curve there.
      EXPECT_LE(LargestDifference(eighth, reference), 12) << width << ' ' << h << v;
    }
  }
}

TEST(JpegEighth, LeavesOtherFilesToOthers) {
  EXPECT_TRUE(DecodeJpegEighth("").IsNil());
  EXPECT_TRUE(DecodeJpegEighth("\xFF\xD8\xFF").IsNil());
  EXPECT_TRUE(DecodeJpegEighth(Written({.progressive = true})).IsNil());
  EXPECT_TRUE(DecodeJpegEighth(Written({.stored = JCS_RGB})).IsNil());
  EXPECT_TRUE(DecodeJpegEighth(Written({.inPieces = true})).IsNil());
  // A header that claims more than there can be.
  std::string large = Written({});
  const std::size_t frame = large.find("\xFF\xC0");
  large.replace(frame + 5, 4, "\xFF\xFF\xFF\xFF");
  EXPECT_TRUE(DecodeJpegEighth(large).IsNil());
}

TEST(JpegEighth, DamageGivesNothingOrAPictureButNeverMore) {
  for (const Kind& kind : {Kind{}, Kind{.horizontal = 2, .vertical = 2, .restart = 4}}) {
    const std::string bytes = Written(kind);
    for (std::size_t cut = 0; cut + 2 < bytes.size(); cut += 7) {
      EXPECT_TRUE(DecodeJpegEighth(bytes.substr(0, cut)).IsNil());
    }
    std::mt19937 dice(5);
    for (int i = 0; i < 3000; ++i) {
      std::string damaged = bytes;
      for (int n = 0; n < 3; ++n) damaged[dice() % damaged.size()] = static_cast<char>(dice());
      const Picture picture = DecodeJpegEighth(damaged);
      EXPECT_LE(picture.Width(), 8192);
    }
  }
}

}  // namespace
}  // namespace brivolant::test
