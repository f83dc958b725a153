// SPDX-License-Identifier: MIT
// Images of kinds that this program never writes: made here by other libraries, or byte by byte.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <lcms2.h>

#include <QImage>
#include <cstdio>
// libjpeg wants the declarations of stdio before its own.
#include <jpeglib.h>

#include "Helpers.h"
#include "formats/ImageFile.h"
#include "formats/PictureStrings.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/files/BinaryStream.h"

namespace brivolant::test {
namespace {

Picture Opened(const FolderItem& file) {
  std::string error;
  Picture picture = ImageIO::OpenAsPictureUsingImageIO(file, error);
  EXPECT_EQ(error, "");
  return picture;
}

void Save(const QImage& image, const FolderItem& file) {
  ASSERT_TRUE(image.save(QString::fromStdString(file.ShellPath())));
}

TEST(ImageKinds, PngsOfEveryDepth) {
  TemporaryFolder folder;
  QImage source(40, 30, QImage::Format_RGB32);
  for (int y = 0; y < 30; ++y) {
    for (int x = 0; x < 40; ++x) source.setPixel(x, y, qRgb(x * 6, y * 8, 255 - x * 6));
  }
  for (const auto& [format, tolerance] : {std::pair{QImage::Format_Grayscale8, 0},
                                          {QImage::Format_Grayscale16, 1},
                                          {QImage::Format_RGBX64, 1},
                                          {QImage::Format_Indexed8, 0},
                                          {QImage::Format_Mono, 0}}) {
    const QImage image = source.convertToFormat(format);
    Save(image, folder.Child("a.png"));
    const Picture picture = Opened(folder.Child("a.png"));
    ASSERT_EQ(picture.Width(), 40) << format;
    EXPECT_EQ(picture.Mask(), nullptr) << format;
    for (int y = 0; y < 30; y += 3) {
      for (int x = 0; x < 40; x += 3) {
        const QColor wanted = image.pixelColor(x, y);
        ASSERT_NEAR(picture.At(x, y).Red, wanted.red(), tolerance) << format;
        ASSERT_NEAR(picture.At(x, y).Blue, wanted.blue(), tolerance) << format;
      }
    }
  }
  // Sixteen bits with transparency.
  QImage clear(9, 9, QImage::Format_RGBA64);
  clear.fill(QColor(200, 100, 50, 51));
  Save(clear, folder.Child("b.png"));
  const Picture picture = Opened(folder.Child("b.png"));
  ASSERT_NE(picture.Mask(), nullptr);
  EXPECT_NEAR(picture.Mask()->At(4, 4), 204, 1);
  EXPECT_NEAR(picture.At(4, 4).Red, 200, 1);
}

/// A JPEG written by libjpeg in a colour space of the test's choice.
std::string WithLibjpeg(int width, int height, int components, J_COLOR_SPACE space,
                        const std::vector<std::uint8_t>& pixel, bool progressive = false) {
  jpeg_compress_struct info{};
  jpeg_error_mgr errors{};
  info.err = jpeg_std_error(&errors);
  jpeg_create_compress(&info);
  unsigned char* bytes = nullptr;
  unsigned long size = 0;  // NOLINT(google-runtime-int)
  jpeg_mem_dest(&info, &bytes, &size);
  info.image_width = static_cast<JDIMENSION>(width);
  info.image_height = static_cast<JDIMENSION>(height);
  info.input_components = components;
  info.in_color_space = space;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, 95, TRUE);
  if (progressive) jpeg_simple_progression(&info);
  jpeg_start_compress(&info, TRUE);
  std::vector<std::uint8_t> row;
  for (int x = 0; x < width; ++x) row.insert(row.end(), pixel.begin(), pixel.end());
  while (info.next_scanline < info.image_height) {
    std::uint8_t* data = row.data();
    jpeg_write_scanlines(&info, &data, 1);
  }
  jpeg_finish_compress(&info);
  std::string jpeg(reinterpret_cast<const char*>(bytes), size);
  jpeg_destroy_compress(&info);
  std::free(bytes);
  return jpeg;
}

TEST(ImageKinds, JpegsInOtherColourSpaces) {
  TemporaryFolder folder;
  const auto middle = [&](const std::string& bytes) {
    return Opened(folder.Write("a.jpg", bytes)).At(20, 10);
  };
  const Color grey = middle(WithLibjpeg(40, 20, 1, JCS_GRAYSCALE, {77}));
  EXPECT_NEAR(grey.Red, 77, 2);
  EXPECT_EQ(grey.Red, grey.Blue);
  const Color progressive = middle(WithLibjpeg(40, 20, 3, JCS_RGB, {200, 100, 50}, true));
  EXPECT_NEAR(progressive.Red, 200, 3);
  EXPECT_NEAR(progressive.Blue, 50, 3);
  // Four inks, stored inverted as photo programs do: no ink is white, cyan and yellow are green.
  const Color white = middle(WithLibjpeg(40, 20, 4, JCS_CMYK, {255, 255, 255, 255}));
  EXPECT_GT(std::min({white.Red, white.Green, white.Blue}), 245);
  const Color green = middle(WithLibjpeg(40, 20, 4, JCS_CMYK, {0, 255, 0, 255}));
  EXPECT_GT(green.Green, green.Red + 60);
  EXPECT_GT(green.Green, green.Blue + 30);
  const Color black = middle(WithLibjpeg(40, 20, 4, JCS_CMYK, {0, 0, 0, 0}));
  EXPECT_LT(std::max({black.Red, black.Green, black.Blue}), 60);
}

/// The JPEG with another profile in place of any it has.
std::string WithProfile(const std::string& jpeg, const std::string& icc) {
  std::string segment = Bytes("FFE2");
  const std::size_t length = icc.size() + 16;
  segment += static_cast<char>(length >> 8);
  segment += static_cast<char>(length);
  segment += std::string("ICC_PROFILE\0\1\1", 14) + icc;
  return jpeg.substr(0, 2) + segment + jpeg.substr(2);
}

std::string Saved(cmsHPROFILE profile) {
  cmsUInt32Number size = 0;
  cmsSaveProfileToMem(profile, nullptr, &size);
  std::string bytes(size, '\0');
  cmsSaveProfileToMem(profile, bytes.data(), &size);
  cmsCloseProfile(profile);
  return bytes;
}

TEST(ImageKinds, AnotherProfileIsConvertedToSRGB) {
  // A space with wider primaries and a plain power curve.
  const cmsCIExyY white{0.3127, 0.3290, 1};
  const cmsCIExyYTRIPLE wide{{0.64, 0.33, 1}, {0.21, 0.71, 1}, {0.15, 0.06, 1}};
  cmsToneCurve* gamma = cmsBuildGamma(nullptr, 2.2);
  const std::array<cmsToneCurve*, 3> curves{gamma, gamma, gamma};
  const std::string icc = Saved(cmsCreateRGBProfile(&white, &wide, curves.data()));
  cmsFreeToneCurve(gamma);

  TemporaryFolder folder;
  const std::string plain = WithLibjpeg(40, 20, 3, JCS_RGB, {60, 160, 60});
  const FolderItem file = folder.Write("wide.jpg", WithProfile(plain, icc));
  const Color before = Opened(folder.Write("plain.jpg", plain)).At(20, 10);
  const Color after = Opened(file).At(20, 10);

  cmsHPROFILE from = cmsOpenProfileFromMem(icc.data(), static_cast<cmsUInt32Number>(icc.size()));
  cmsHPROFILE to = cmsCreate_sRGBProfile();
  cmsHTRANSFORM transform =
      cmsCreateTransform(from, TYPE_RGB_8, to, TYPE_RGB_8, INTENT_PERCEPTUAL, 0);
  std::array<std::uint8_t, 3> wanted{};
  const std::array<std::uint8_t, 3> stored{before.Red, before.Green, before.Blue};
  cmsDoTransform(transform, stored.data(), wanted.data(), 1);
  cmsDeleteTransform(transform);
  cmsCloseProfile(from);
  cmsCloseProfile(to);
  EXPECT_NEAR(after.Red, wanted[0], 2);
  EXPECT_NEAR(after.Green, wanted[1], 2);
  EXPECT_NEAR(after.Blue, wanted[2], 2);
  EXPECT_LT(after.Red, before.Red - 20) << "the profile must make a difference here";
  const auto source = ImageSource::Open(file);
  const auto small = (*source.value)->Thumbnail(16);
  EXPECT_NEAR(small.value->At(8, 4).Red, after.Red, 3) << "thumbnails are converted too";
  // Rubbish in place of a profile changes nothing.
  EXPECT_EQ(Opened(folder.Write("bad.jpg", WithProfile(plain, std::string(200, 'x')))).At(20, 10),
            before);
}

/// A TIFF directory entry by entry, for a raw file.
class RawFile {
 public:
  void Short(int tag, std::vector<int> values) {
    std::string bytes;
    for (const int value : values) {
      bytes += static_cast<char>(value);
      bytes += static_cast<char>(value >> 8);
    }
    Add(tag, 3, values.size(), bytes);
  }
  void Long(int tag, std::uint32_t value) { Add(tag, 4, 1, Word(value)); }
  void Byte(int tag, const std::string& bytes) { Add(tag, 1, bytes.size(), bytes); }
  void Text(int tag, std::string text) {
    text += '\0';
    Add(tag, 2, text.size(), text);
  }
  void Rational(int tag, int type, const std::vector<int>& numerators) {
    std::string bytes;
    for (const int n : numerators) {
      bytes += Word(static_cast<std::uint32_t>(n)) + Word(10000);
    }
    Add(tag, type, numerators.size(), bytes);
  }
  /// The file; the tag of the image's place receives it.
  std::string Finish(int offsetTag, const std::string& image) {
    const std::size_t directory = 8 + 2 + (entries_.size() + 1) * 12 + 4;
    const std::size_t imageAt = directory + extra_.size();
    Long(offsetTag, static_cast<std::uint32_t>(imageAt));
    std::sort(entries_.begin(), entries_.end(),
              [](const Entry& a, const Entry& b) { return a.tag < b.tag; });
    ByteWriter out;
    out.Bytes(Bytes("49492A00 08000000"));
    out.UInt16(static_cast<std::uint16_t>(entries_.size()));
    for (const Entry& entry : entries_) {
      out.UInt16(static_cast<std::uint16_t>(entry.tag));
      out.UInt16(static_cast<std::uint16_t>(entry.type));
      out.UInt32(static_cast<std::uint32_t>(entry.count));
      if (entry.inside.size() <= 4) {
        out.Bytes(entry.inside + std::string(4 - entry.inside.size(), '\0'));
      } else {
        out.UInt32(static_cast<std::uint32_t>(directory + entry.extra));
      }
    }
    out.UInt32(0);
    out.Bytes(extra_);
    out.Bytes(image);
    return out.Take();
  }

 private:
  struct Entry {
    int tag;
    int type;
    std::size_t count;
    std::string inside;
    std::size_t extra;
  };
  static std::string Word(std::uint32_t value) {
    ByteWriter out;
    out.UInt32(value);
    return out.Take();
  }
  void Add(int tag, int type, std::size_t count, const std::string& bytes) {
    entries_.push_back({tag, type, count, bytes, extra_.size()});
    if (bytes.size() > 4) extra_ += bytes + std::string(bytes.size() % 2, '\0');
  }
  std::vector<Entry> entries_;
  std::string extra_;
};

TEST(ImageKinds, CameraRawIsDeveloped) {
  constexpr int kWidth = 64;
  constexpr int kHeight = 48;
  // An RGGB mosaic: a bright left half, a dark right half, with the neutral's own balance.
  std::string mosaic;
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      const bool green = (x + y) % 2 == 1;
      const int level = (x < kWidth / 2 ? 12000 : 1500) * (green ? 2 : 1);
      mosaic += static_cast<char>(level);
      mosaic += static_cast<char>(level >> 8);
    }
  }
  RawFile raw;
  raw.Long(254, 0);
  raw.Long(256, kWidth);
  raw.Long(257, kHeight);
  raw.Short(258, {16});
  raw.Short(259, {1});
  raw.Short(262, {32803});
  raw.Text(271, "Test");
  raw.Text(272, "Mosaic");
  raw.Short(274, {1});
  raw.Short(277, {1});
  raw.Long(278, kHeight);
  raw.Long(279, static_cast<std::uint32_t>(mosaic.size()));
  raw.Short(33421, {2, 2});
  raw.Byte(33422, Bytes("00 01 01 02"));
  raw.Byte(50706, Bytes("01 04 00 00"));
  raw.Text(50708, "Test Mosaic");
  raw.Long(50717, 65535);
  raw.Rational(50721, 10, {9000, -2000, -1000, -5000, 13000, 2000, -1000, 2000, 6000});
  raw.Rational(50728, 5, {5000, 10000, 5000});
  raw.Short(50778, {21});
  TemporaryFolder folder;
  const std::string bytes = raw.Finish(273, mosaic);
  const FolderItem file = folder.Write("photo.dng", bytes);
  const auto source = ImageSource::Open(file);
  ASSERT_TRUE(source) << source.error;
  EXPECT_EQ((*source.value)->Type(), "public.camera-raw-image");
  const Picture picture = Opened(file);
  ASSERT_EQ(picture.Width(), kWidth);
  ASSERT_EQ(picture.Height(), kHeight);
  const Color bright = picture.At(12, 24);
  const Color dark = picture.At(52, 24);
  EXPECT_GT(bright.Green, dark.Green + 60);
  EXPECT_NEAR(bright.Red, bright.Blue, 40) << "white balance of the camera";
  const auto small = (*source.value)->Thumbnail(32);
  ASSERT_TRUE(small) << small.error;
  EXPECT_EQ(small.value->Width(), 32) << "without a preview the raw data serves";

  // The sensor's last rows are cut off.
  const FolderItem cut =
      folder.Write("cut.dng", bytes.substr(0, bytes.size() - mosaic.size() * 2 / 5));
  const ImageIO::OpenedPicture first = ImageIO::OpenFirstPicture(cut);
  ASSERT_EQ(first.Pixels.Height(), kHeight) << first.Error;
  EXPECT_NE(first.Damage.Warning.find("cut.dng"), std::string::npos);
  EXPECT_EQ(first.Pixels.At(12, 12), picture.At(12, 12));
  for (int run = 0; run < 20; ++run) {
    ASSERT_TRUE(ImageIO::OpenFirstPicture(cut).Pixels.SameAs(first.Pixels)) << run;
  }
}

TEST(ImageKinds, ExifPreviewsServeThumbnails) {
  // A small picture of another colour as the preview: whether it is used shows.
  const std::string preview =
      JpegExporter{.Quality = 60}.SaveToString(PlainPicture(300, 200, {0, 200, 0}));
  const std::string jpeg = JpegExporter().SaveToString(PlainPicture(600, 400, {200, 0, 0}));
  ByteWriter tiff;
  tiff.Bytes(Bytes("49492A00 08000000 0000"));
  tiff.UInt32(14);
  tiff.UInt16(2);
  for (const auto& [tag, value] :
       {std::pair{0x0201, 44}, {0x0202, static_cast<int>(preview.size())}}) {
    tiff.UInt16(static_cast<std::uint16_t>(tag));
    tiff.UInt16(4);
    tiff.UInt32(1);
    tiff.UInt32(static_cast<std::uint32_t>(value));
  }
  tiff.UInt32(0);
  const std::string exif = std::string("Exif\0\0", 6) + tiff.Take() + preview;
  std::string segment = Bytes("FFE1");
  segment += static_cast<char>((exif.size() + 2) >> 8);
  segment += static_cast<char>(exif.size() + 2);
  TemporaryFolder folder;
  const FolderItem file =
      folder.Write("a.jpg", jpeg.substr(0, 2) + segment + exif + jpeg.substr(2));
  const auto source = ImageSource::Open(file);
  ASSERT_TRUE(source);
  EXPECT_GT((*source.value)->Thumbnail(256).value->At(100, 80).Green, 150);
  EXPECT_GT((*source.value)->Thumbnail(400).value->At(100, 80).Red, 150) << "too small for that";
  EXPECT_GT(Opened(file).At(9, 9).Red, 150);
}

}  // namespace
}  // namespace brivolant::test
