// SPDX-License-Identifier: MIT
// Damaged files: colours, planes and rows that are not stored from the top, stored previews, and
// what is said of those that stay closed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <lcms2.h>
#include <png.h>

#include "Damage.h"
#include "Helpers.h"
#include "formats/ImageFile.h"
#include "formats/PictureStrings.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/codecs/JpegEighth.h"
#include "platform/files/BinaryStream.h"

namespace brivolant::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr Color kMissing{128, 128, 128};

/// Not packed, plane by plane, the bottom row first.
std::string PlainSgi(const Picture& picture) {
  ByteWriter out;
  out.Bytes(Bytes("01DA 00 01 0003"));
  out.UInt8(static_cast<std::uint8_t>(picture.Width() >> 8));
  out.UInt8(static_cast<std::uint8_t>(picture.Width()));
  out.UInt8(static_cast<std::uint8_t>(picture.Height() >> 8));
  out.UInt8(static_cast<std::uint8_t>(picture.Height()));
  out.Bytes(Bytes("0003 00000000 000000FF"));
  out.Bytes(std::string(492, '\0'));
  for (int plane = 0; plane < 3; ++plane) {
    for (int y = picture.Height() - 1; y >= 0; --y) {
      for (int x = 0; x < picture.Width(); ++x) {
        const Color color = picture.At(x, y);
        const int value = plane == 0 ? color.Red : plane == 1 ? color.Green : color.Blue;
        out.UInt8(static_cast<std::uint8_t>(value));
      }
    }
  }
  return out.Take();
}

TEST(Damage, SgiFilesShowTheirFirstPlanesWhateverTheirName) {
  TemporaryFolder folder;
  const std::string packed = Encoded("com.sgi.sgi-image", Original());
  const std::string plain = PlainSgi(Original());
  // From the bottom: packed rows have all colours, of the others red comes first.
  for (const auto& [name, whole, share, first] : {std::tuple{"half.sgi", packed, 0.6, 110},
                                                  {"fifth.sgi", plain, 0.2, 100},
                                                  {"half.dat", packed, 0.6, 110},
                                                  {"fifth", plain, 0.2, 100}}) {
    SCOPED_TRACE(name);
    EXPECT_THAT(ImageIO::OpenFirstPicture(folder.Write("whole", whole)).Damage.Warning, IsEmpty());
    const FolderItem file = folder.Write(name, Cut(whole, share));
    const ImageIO::OpenedPicture opened = ImageIO::OpenFirstPicture(file);
    ASSERT_EQ(opened.Pixels.Height(), kHeight) << opened.Error;
    EXPECT_THAT(opened.Damage.Warning, HasSubstr(codecTexts::kEndsEarly.Text()));
    int most = 0;
    for (int y = first; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) {
        most = std::max(most, std::abs(opened.Pixels.At(x, y).Red - Original().At(x, y).Red));
        if (whole != packed) continue;
        most = std::max(most, std::abs(opened.Pixels.At(x, y).Blue - Original().At(x, y).Blue));
      }
    }
    EXPECT_EQ(most, 0);
    const auto small = (*ImageSource::Open(file).value)->Small(64);
    ASSERT_TRUE(small);
    EXPECT_TRUE(small.value->Damage);
  }
}

TEST(Damage, BitmapsShowTheRowsTheyHave) {
  TemporaryFolder folder;
  const std::string bmp = Encoded("com.microsoft.bmp", Original());
  // A negative height is that of a file that begins with the top row.
  constexpr std::size_t kHeightAt = 22;
  std::string downwards = bmp;
  downwards.replace(kHeightAt, 4, Bytes("10FFFFFF"));
  for (const auto& [name, bytes, first, last] :
       {std::tuple{"half.bmp", bmp, 100, kHeight}, {"downwards.bmp", downwards, 0, 140}}) {
    SCOPED_TRACE(name);
    const Picture whole = ImageIO::OpenFirstPicture(folder.Write("whole", bytes)).Pixels;
    const FolderItem file = folder.Write(name, Cut(bytes, 0.6));
    const ImageIO::OpenedPicture opened = ImageIO::OpenFirstPicture(file);
    ASSERT_EQ(opened.Pixels.Height(), kHeight) << opened.Error;
    EXPECT_THAT(opened.Damage.Warning, HasSubstr(codecTexts::kEndsEarly.Text()));
    EXPECT_EQ(DifferenceOfRows(opened.Pixels, whole, first, last), 0);
    EXPECT_EQ(opened.Pixels.At(7, first == 0 ? kHeight - 1 : 0), kMissing);
    EXPECT_TRUE((*ImageSource::Open(file).value)->Small(64)->Damage);
  }
  // So few bytes do not hold so large a picture.
  std::string lying = Cut(bmp, 0.6);
  lying.replace(kHeightAt - 4, 8, Bytes("00600000 00600000"));
  EXPECT_THAT(ImageIO::OpenFirstPicture(folder.Write("lying.bmp", lying)).Error,
              HasSubstr("\"lying.bmp\""));
}

TEST(Damage, WhatEndsTooEarlyIsRefusedByThatName) {
  TemporaryFolder folder;
  const std::string psd = Encoded("com.adobe.photoshop-image", Original());
  const std::string tga = Encoded("com.truevision.tga-image", Original());
  std::string pcx = Bytes("0A050108 0000 0000 1300 1300 4800 4800") + std::string(112, '\0');
  pcx.replace(65, 3, Bytes("01 1400"));
  const std::string heic =
      Bytes("00000018") + "ftypheic" + Bytes("00000000") + "mif1heic" + Bytes("00001000") + "mdat";
  for (const auto& [name, bytes] : {
           std::pair<const char*, std::string>{"head.psd", psd.substr(0, 30)},
           {"half.tga", Cut(tga, 0.6)},
           {"half.pcx", pcx + Bytes("D405 C507 01")},
           {"half.heic", heic + std::string(100, 'x')},
           {"head.bmp", Encoded("com.microsoft.bmp", Original()).substr(0, 50)},
       }) {
    SCOPED_TRACE(name);
    const FolderItem file = folder.Write(name, bytes);
    const std::string sentence =
        CodecMessage(codecTexts::kDamaged, file, codecTexts::kEndsEarly.Text());
    EXPECT_EQ(ImageIO::OpenFirstPicture(file).Error, sentence);
  }
  // What its decoder opens all the same is told of.
  EXPECT_THAT(ImageIO::OpenFirstPicture(folder.Write("half.psd", Cut(psd, 0.6))).Damage.Warning,
              HasSubstr(codecTexts::kEndsEarly.Text()));
  // Not of what is whole, or no picture at all.
  EXPECT_THAT(ImageIO::OpenFirstPicture(folder.Write("whole.psd", psd)).Error, IsEmpty());
  EXPECT_THAT(ImageIO::OpenFirstPicture(folder.Write("whole.tga", tga)).Error, IsEmpty());
  const FolderItem text = folder.Write("text.psd", "Pictures, and what else there is to say");
  EXPECT_THAT(ImageIO::OpenFirstPicture(text).Error, Not(HasSubstr(codecTexts::kEndsEarly.Text())));
}

/// A profile in which grey is the amount of light.
std::string LinearGreyProfile() {
  cmsToneCurve* curve = cmsBuildGamma(nullptr, 1.0);
  const cmsHPROFILE profile = cmsCreateGrayProfile(cmsD50_xyY(), curve);
  cmsFreeToneCurve(curve);
  cmsUInt32Number size = 0;
  cmsSaveProfileToMem(profile, nullptr, &size);
  std::string icc(size, '\0');
  cmsSaveProfileToMem(profile, icc.data(), &size);
  cmsCloseProfile(profile);
  return icc;
}

/// The green of a picture with that profile.
std::string GreyPng(const Picture& picture) {
  std::string bytes;
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(png);
  png_set_write_fn(
      png, &bytes,
      [](png_structp to, png_bytep data, std::size_t size) {
        static_cast<std::string*>(png_get_io_ptr(to))
            ->append(reinterpret_cast<const char*>(data), size);
      },
      nullptr);
  png_set_IHDR(png, info, static_cast<png_uint_32>(picture.Width()),
               static_cast<png_uint_32>(picture.Height()), 8, PNG_COLOR_TYPE_GRAY,
               PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_BASE, PNG_FILTER_TYPE_BASE);
  const std::string icc = LinearGreyProfile();
  png_set_iCCP(png, info, "grey", PNG_COMPRESSION_TYPE_BASE,
               reinterpret_cast<png_const_bytep>(icc.data()), static_cast<png_uint_32>(icc.size()));
  png_write_info(png, info);
  std::vector<std::uint8_t> row(static_cast<std::size_t>(picture.Width()));
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      row[static_cast<std::size_t>(x)] = static_cast<std::uint8_t>(picture.At(x, y).Green);
    }
    png_write_row(png, row.data());
  }
  png_write_end(png, nullptr);
  png_destroy_write_struct(&png, &info);
  return bytes;
}

/// Inks, not packed. The strip of that number, of 16 rows, is said to lie beyond the end.
std::string InkTiff(const Picture& picture, int lost) {
  constexpr int kRows = 16;
  constexpr int kEntries = 9;
  const int strips = (picture.Height() + kRows - 1) / kRows;
  const int stripBytes = picture.Width() * 4 * kRows;
  const int arrays = 8 + 2 + kEntries * 12 + 4;
  const int data = arrays + 8 + 8 * strips;
  ByteWriter out;
  out.Bytes(Bytes("49492A00 08000000"));
  out.UInt16(kEntries);
  for (const std::array<int, 4>& entry : {std::array{256, 4, 1, picture.Width()},
                                          {257, 4, 1, picture.Height()},
                                          {258, 3, 4, arrays},
                                          {259, 3, 1, 1},
                                          {262, 3, 1, 5},
                                          {273, 4, strips, arrays + 8},
                                          {277, 3, 1, 4},
                                          {278, 4, 1, kRows},
                                          {279, 4, strips, arrays + 8 + 4 * strips}}) {
    out.UInt16(static_cast<std::uint16_t>(entry[0]));
    out.UInt16(static_cast<std::uint16_t>(entry[1]));
    out.UInt32(static_cast<std::uint32_t>(entry[2]));
    out.UInt32(static_cast<std::uint32_t>(entry[3]));
  }
  out.UInt32(0);
  out.Bytes(Bytes("0800 0800 0800 0800"));
  for (int i = 0; i < strips; ++i) {
    out.UInt32(i == lost ? 0x7FFF0000U : static_cast<std::uint32_t>(data + i * stripBytes));
  }
  for (int i = 0; i < strips; ++i) out.UInt32(static_cast<std::uint32_t>(stripBytes));
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      const Color color = picture.At(x, y);
      for (const int light : {color.Red, color.Green, color.Blue}) {
        out.UInt8(static_cast<std::uint8_t>(255 - light));
      }
      out.UInt8(40);
    }
  }
  return out.Take();
}

TEST(Damage, WhatIsLeftHasItsColors) {
  TemporaryFolder folder;
  const auto open = [&](const char* name, const std::string& bytes) {
    return ImageIO::OpenFirstPicture(folder.Write(name, bytes));
  };
  const std::string grey = GreyPng(Original());
  const Picture greys = open("grey.png", grey).Pixels;
  EXPECT_GT(greys.At(3, 3).Red, Original().At(3, 3).Green) << "the profile makes it lighter";
  const ImageIO::OpenedPicture half = open("half.png", Cut(grey, 0.6));
  ASSERT_EQ(half.Pixels.Height(), kHeight) << half.Error;
  EXPECT_TRUE(half.Damage);
  EXPECT_EQ(DifferenceOfRows(half.Pixels, greys, 0, 100), 0);
  // Without libvips, which converts by a way of its own.
  EXPECT_LE(DifferenceOfRows(DecodeImageBytes(grey), greys, 0, kHeight), 2);

  const Picture inks = open("inks.tif", InkTiff(Original(), -1)).Pixels;
  const ImageIO::OpenedPicture hole = open("hole.tif", InkTiff(Original(), 7));
  ASSERT_EQ(hole.Pixels.Height(), kHeight) << hole.Error;
  EXPECT_TRUE(hole.Damage);
  EXPECT_EQ(DifferenceOfRows(hole.Pixels, inks, 0, 7 * 16), 0);
  EXPECT_EQ(hole.Pixels.At(9, 7 * 16 + 9), kMissing);
  EXPECT_EQ(DifferenceOfRows(hole.Pixels, inks, 8 * 16, kHeight), 0);
  // A strip that is there in part.
  const ImageIO::OpenedPicture cut = open("cut.tif", Cut(InkTiff(Original(), -1), 0.62));
  EXPECT_EQ(DifferenceOfRows(cut.Pixels, inks, 0, 9 * 16), 0);
  EXPECT_EQ(cut.Pixels.At(9, kHeight - 1), kMissing);
  EXPECT_EQ(cut.Pixels.At(9, 150), kMissing);
}

TEST(Damage, AWrongHeaderOfAPngIsTold) {
  TemporaryFolder folder;
  std::string bytes = PngExporter().SaveToString(Original());
  // Fewer rows than are stored; the sum over the header is that of the true height.
  constexpr std::size_t kHeightAt = 8 + 4 + 4 + 4;
  bytes.replace(kHeightAt, 4, Bytes("00000064"));
  const ImageIO::OpenedPicture opened = ImageIO::OpenFirstPicture(folder.Write("low.png", bytes));
  ASSERT_EQ(opened.Pixels.Height(), 100);
  EXPECT_EQ(DifferenceOfRows(opened.Pixels, Original(), 0, 100), 0);
  EXPECT_THAT(opened.Damage.Warning, HasSubstr("\"low.png\""));
}

/// With a preview stored in it.
std::string WithPreview(const std::string& jpeg, const std::string& preview) {
  constexpr int kDirectory = 8 + 2 + 4;
  constexpr int kPreview = kDirectory + 2 + 3 * 12 + 4;
  ByteWriter exif;
  exif.Bytes(Bytes("49492A00 08000000 0000"));
  exif.UInt32(kDirectory);
  exif.Bytes(Bytes("0300 0301 0300 01000000 06000000 0102 0400 01000000"));
  exif.UInt32(kPreview);
  exif.Bytes(Bytes("0202 0400 01000000"));
  exif.UInt32(static_cast<std::uint32_t>(preview.size()));
  exif.UInt32(0);
  exif.Bytes(preview);
  const std::string segment = std::string("Exif\0\0", 6) + exif.Take();
  const std::size_t length = segment.size() + 2;
  EXPECT_LT(length, 65536U);
  return jpeg.substr(0, 2) + "\xFF\xE1" + static_cast<char>(length >> 8U) +
         static_cast<char>(length & 0xFFU) + segment + jpeg.substr(2);
}

TEST(Damage, ADamagedPreviewIsNotShown) {
  TemporaryFolder folder;
  const std::string jpeg = Jpeg(Original(), {});
  const std::string preview = Jpeg(TestPicture(kWidth / 2, kHeight / 2, 9), {});
  const auto small = [&](const std::string& bytes) {
    auto image = (*ImageSource::Open(folder.Write("a.jpg", bytes)).value)->Small(100);
    EXPECT_TRUE(image) << image.error;
    EXPECT_FALSE(image->Damage);
    return std::move(image->Pixels);
  };
  const Picture own = small(jpeg);
  EXPECT_FALSE(small(WithPreview(jpeg, preview)).SameAs(own));
  EXPECT_TRUE(small(WithPreview(jpeg, Cut(preview, 0.7))).SameAs(own));
  EXPECT_TRUE(small(WithPreview(jpeg, Stuffed(preview, 0xD9, 1))).SameAs(own));
  EXPECT_TRUE(DecodeJpegBytes(Cut(preview, 0.7)).IsNil());
  EXPECT_FALSE(DecodeJpegBytes(preview + std::string(100, '\0')).IsNil());
}

TEST(Damage, SmallPicturesTellWhatLargeOnesTell) {
  TemporaryFolder folder;
  const std::string jpeg = Jpeg(Original(), {});
  const std::string restarts = Jpeg(Original(), {.restart = 2});
  // What the quick way refuses the library looks at; of a few bytes that are left over it says
  // nothing, if it has looked ahead of them.
  for (const auto& [name, bytes, refused, damaged] : {
           std::tuple{"a.jpg", jpeg, false, false},
           {"restarts.jpg", restarts, false, false},
           {"endless.jpg", jpeg.substr(0, jpeg.size() - 2), false, false},
           {"filled.jpg", std::string(jpeg).insert(jpeg.size() - 2, "\xFF\xFF\xFF"), false, false},
           {"byte.jpg", std::string(jpeg).insert(jpeg.size() - 2, "\x12"), true, false},
           {"end.jpg", Stuffed(jpeg, 0xD9, 1), true, true},
           {"restart.jpg", Stuffed(restarts, 0xD3, 1), true, true},
           {"last.jpg", std::string(restarts).insert(restarts.size() - 2, 20, '\x12'), true, true},
       }) {
    SCOPED_TRACE(name);
    EXPECT_EQ(codecs::DecodeJpegEighth(bytes).IsNil(), refused);
    const auto source = ImageSource::Open(folder.Write(name, bytes));
    ASSERT_TRUE(source);
    const auto large = (*source.value)->Decode(0);
    const auto small = (*source.value)->Small(32);
    ASSERT_TRUE(large && small);
    EXPECT_EQ(static_cast<bool>(large.value->Damage), damaged);
    EXPECT_EQ(static_cast<bool>(small.value->Damage), damaged);
  }
}

}  // namespace
}  // namespace brivolant::test
