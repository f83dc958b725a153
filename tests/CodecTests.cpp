// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QImage>
#include <csignal>
#include <cstdio>
// libjpeg wants the declarations of stdio before its own.
#include <jpeglib.h>

#include "Helpers.h"
#include "formats/FileTypes.h"
#include "formats/ImageFile.h"
#include "formats/PictureStrings.h"
#include "platform/codecs/ImageCodecs.h"

namespace brivolant::test {
namespace {

using testing::HasSubstr;

Picture Smooth(int width, int height) {
  Picture picture = Picture::Uninitialized(width, height);
  const Pixels pixels = picture.Edit();
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      std::uint8_t* p = pixels.Row(y) + std::ptrdiff_t{4} * x;
      p[0] = static_cast<std::uint8_t>(40 + 120 * x / width);
      p[1] = static_cast<std::uint8_t>(60 + 120 * y / height);
      p[2] = static_cast<std::uint8_t>(200 - 100 * x / width);
      p[3] = 255;
    }
  }
  return picture;
}

TEST(Codecs, EveryWritableFormatComesBack) {
  TemporaryFolder folder;
  Picture picture = Smooth(64, 48);
  picture.HorizontalResolution = picture.VerticalResolution = 300;
  for (const FileType* type : ImagesWritableMac::kTypes) {
    SCOPED_TRACE(type->Name.English);
    const FolderItem file = folder.Child("a." + ImageIO::FirstExtension(*type));
    const std::array<EncodeImage, 1> images{{{picture, 0.9}}};
    ASSERT_EQ(EncodeImageFile(file, type->Identifier, images), "");
    std::string error;
    const Picture back = ImageIO::OpenAsPictureUsingImageIO(file, error);
    ASSERT_FALSE(back.IsNil()) << error;
    const bool lossy = type == &ImagesWritableMac::Jpeg || type == &ImagesWritableMac::JPEG2000 ||
                       type == &ImagesWritableMac::GIF;
    const bool resampled = type == &ImagesWritableMac::PDF;
    if (!resampled) {
      EXPECT_LE(LargestDifference(back, picture), lossy ? 12 : 0);
    }
    if (type == &ImagesWritableMac::Jpeg || type == &ImagesWritableMac::PNG ||
        type == &ImagesWritableMac::TIFF) {
      EXPECT_EQ(back.HorizontalResolution, 300);
    }
  }
  EXPECT_THAT(
      EncodeImageFile(folder.Child("a.xyz"), "no.such", std::array<EncodeImage, 1>{{{picture, 1}}}),
      HasSubstr("its format cannot be written"));
}

TEST(Codecs, AnotherReaderAgrees) {
  // The toolkit's own decoders as the oracle for what is written, and its encoders for reading.
  TemporaryFolder folder;
  const Picture picture = Smooth(61, 37);
  const auto toolkit = [](const FolderItem& file) {
    const QImage image =
        QImage(QString::fromStdString(file.ShellPath())).convertToFormat(QImage::Format_RGB32);
    Picture result = NewPicture(image.width(), image.height(), 24);
    for (int y = 0; y < image.height(); ++y) {
      std::memcpy(result.Edit().Row(y), image.constScanLine(y),
                  static_cast<std::size_t>(image.width()) * 4);
    }
    return result;
  };
  std::string error;
  const FolderItem jpeg = folder.Child("a.jpg");
  ASSERT_TRUE(ImageIO::SaveAsJPEG(jpeg, picture, 0.95, error));
  EXPECT_LE(LargestDifference(toolkit(jpeg), ImageIO::OpenAsPictureUsingImageIO(jpeg, error)), 1);
  const FolderItem png = folder.Child("a.png");
  ASSERT_TRUE(PngExporter().SaveToFile(png, picture));
  EXPECT_TRUE(toolkit(png).SameAs(ImageIO::OpenAsPictureUsingImageIO(png, error)));
  QImage(toolkit(png).AsImage().copy())
      .save(QString::fromStdString(folder.Child("b.bmp").ShellPath()));
  EXPECT_TRUE(ImageIO::OpenAsPictureUsingImageIO(folder.Child("b.bmp"), error).SameAs(picture));
}

TEST(Codecs, TransparencyIsKeptOrLaidOnWhite) {
  TemporaryFolder folder;
  Picture picture = PlainPicture(16, 16, {200, 0, 0});
  picture.Mask(true)->Edit().Row(2)[3] = 255;
  picture.Mask(true)->Edit().Row(2)[4] = 128;
  const std::array<EncodeImage, 1> images{{{picture, 1.0}}};
  std::string error;
  for (const char* name : {"a.png", "a.tif", "a.psd"}) {
    ImageFile file;
    file.Folderitem = folder.Child(name);
    file.SetFormatFromFile();
    ASSERT_EQ(EncodeImageFile(file.Folderitem, file.FileType, images), "");
    const Picture back = ImageIO::OpenAsPictureUsingImageIO(file.Folderitem, error);
    ASSERT_NE(back.Mask(), nullptr) << name;
    EXPECT_EQ(back.Mask()->At(3, 2), 255) << name;
    EXPECT_NEAR(back.Mask()->At(4, 2), 128, 1) << name;
    EXPECT_EQ(back.Mask()->At(5, 5), 0) << name;
    EXPECT_EQ(back.At(5, 5), (Color{200, 0, 0})) << name;
  }
  ASSERT_TRUE(ImageIO::SaveAsJPEG(folder.Child("a.jpg"), PlainPicture(16, 16, kWhite), 1, error));
  Picture clear = PlainPicture(16, 16, kBlack);
  clear.SetMask(Plane(16, 16, 255));
  ASSERT_TRUE(ImageIO::SaveAsJPEG(folder.Child("a.jpg"), clear, 1, error));
  EXPECT_EQ(ImageIO::OpenAsPictureUsingImageIO(folder.Child("a.jpg"), error).At(8, 8), kWhite);
  const Picture string = PngImporter::OpenFromString(PngExporter().SaveToString(picture));
  EXPECT_TRUE(string.SameAs(picture));
}

TEST(Codecs, SeveralPicturesAndOpenModes) {
  TemporaryFolder folder;
  const FolderItem file = folder.Child("pages.tif");
  const std::array<EncodeImage, 3> images{{{PlainPicture(20, 10, {255, 0, 0}), 1},
                                           {PlainPicture(20, 10, {0, 255, 0}), 1},
                                           {PlainPicture(20, 10, {0, 0, 255}), 1}}};
  ASSERT_EQ(EncodeImageFile(file, "public.tiff", images), "");
  std::string error;
  const auto all = ImageIO::OpenAsImageFile(file, ImageIO::kEverything, error);
  ASSERT_NE(all, nullptr) << error;
  EXPECT_EQ(all->Count(), 2);
  EXPECT_EQ(all->Image[2].Picture().At(5, 5), (Color{0, 0, 255}));
  EXPECT_TRUE(all->ThumbNail);
  EXPECT_EQ(all->Properties->Width, 20);
  EXPECT_EQ(all->FileType, "public.tiff");
  const auto first = ImageIO::OpenAsImageFile(file, ImageIO::kFirstPicture, error);
  EXPECT_EQ(first->Count(), 0);
  EXPECT_FALSE(first->ThumbNail);
  const auto thumbnail = ImageIO::OpenAsImageFile(file, ImageIO::kThumbnailOnly, error);
  EXPECT_EQ(thumbnail->Count(), -1);
  EXPECT_TRUE(thumbnail->ThumbNail);
}

/// A JPEG with an Exif segment that says how it was stored.
std::string Turned(const Picture& picture, int orientation) {
  const std::string jpeg = JpegExporter{.Quality = 95}.SaveToString(picture);
  const std::string exif = std::string("Exif\0\0", 6) +
                           Bytes("4D4D002A 00000008 0001 0112 0003 00000001") +
                           Bytes("00 0" + std::to_string(orientation) + "0000 00000000");
  std::string segment = Bytes("FFE1 00");
  segment += static_cast<char>(exif.size() + 2);
  return jpeg.substr(0, 2) + segment + exif + jpeg.substr(2);
}

TEST(Codecs, OrientationTurnsPicturesAndThumbnailsUpright) {
  TemporaryFolder folder;
  // Red in the top left corner of the upright picture, whatever the orientation.
  const std::array<std::pair<int, int>, 8> corner{
      {{0, 0}, {59, 0}, {59, 39}, {0, 39}, {0, 0}, {0, 39}, {59, 39}, {59, 0}}};
  for (int orientation = 1; orientation <= 8; ++orientation) {
    Picture stored = PlainPicture(60, 40, {0, 0, 200});
    const auto [cx, cy] = corner.at(static_cast<std::size_t>(orientation - 1));
    const Pixels pixels = stored.Edit();
    for (int y = 0; y < 40; ++y) {
      for (int x = 0; x < 60; ++x) {
        if (std::abs(x - cx) < 16 && std::abs(y - cy) < 16) {
          pixels.Row(y)[4 * x] = 0;
          pixels.Row(y)[4 * x + 2] = 220;
        }
      }
    }
    std::string error;
    const FolderItem file = folder.Write("a.jpg", Turned(stored, orientation));
    const Picture upright = ImageIO::OpenAsPictureUsingImageIO(file, error);
    EXPECT_EQ(upright.Width(), orientation >= 5 ? 40 : 60);
    EXPECT_GT(upright.At(4, 4).Red, 180) << orientation;
    EXPECT_LT(upright.At(30, 30).Red, 60) << orientation;
    const auto small = ImageSource::Open(file);
    ASSERT_TRUE(small);
    const auto thumbnail = (*small.value)->Thumbnail(30);
    ASSERT_TRUE(thumbnail);
    EXPECT_EQ(thumbnail.value->Width(), orientation >= 5 ? 20 : 30);
    EXPECT_GT(thumbnail.value->At(2, 2).Red, 150) << orientation;
  }
}

TEST(Codecs, DamagedExifIsPassedOver) {
  TemporaryFolder folder;
  const Picture picture = Smooth(40, 30);
  const std::string jpeg = JpegExporter{.Quality = 95}.SaveToString(picture);
  for (const std::string& exif :
       {std::string("Exif\0\0", 6), std::string("Exif\0\0MM\0*\xFF\xFF\xFF\xFF", 14),
        std::string("Exif\0\0", 6) + Bytes("4D4D002A 00000008 FFFF 0112 0003 00000001 0009 0000"),
        std::string("Exif\0\0", 6) +
            Bytes("4D4D002A 00000008 0001 0112 0003 00000001 0009 0000 00000000"),
        std::string("Exif\0\0", 6) +
            Bytes("4D4D002A 00000008 0001 0112 0002 FFFFFFFF 00060000 00000008")}) {
    std::string segment = Bytes("FFE1 00");
    segment += static_cast<char>(exif.size() + 2);
    std::string error;
    const FolderItem file =
        folder.Write("a.jpg", jpeg.substr(0, 2) + segment + exif + jpeg.substr(2));
    const Picture back = ImageIO::OpenAsPictureUsingImageIO(file, error);
    ASSERT_EQ(back.Width(), 40) << error;
    EXPECT_LE(LargestDifference(back, picture), 12);
  }
}

TEST(Codecs, ThumbnailsKeepTheirBound) {
  TemporaryFolder folder;
  std::string error;
  for (const auto& [w, h] :
       {std::pair{1000, 100}, {100, 1000}, {40, 30}, {3000, 2000}, {2049, 3}}) {
    const FolderItem file = folder.Child("a.jpg");
    ASSERT_TRUE(ImageIO::SaveAsJPEG(file, Smooth(w, h), 0.9, error));
    const auto source = ImageSource::Open(file);
    const auto small = (*source.value)->Thumbnail(256);
    ASSERT_TRUE(small);
    EXPECT_EQ(std::max(small.value->Width(), small.value->Height()), std::min(256, std::max(w, h)));
    EXPECT_NEAR(small.value->Width() * h, small.value->Height() * w,
                std::max(w, h) + std::max(small.value->Width(), small.value->Height()));
  }
}

TEST(Codecs, ThumbnailsOfHugePngsKeepTheirColours) {
  TemporaryFolder folder;
  constexpr Color kColor{230, 120, 250};
  Picture wide = PlainPicture(9000, 600, kColor);
  for (const bool clear : {false, true}) {
    if (clear) wide.SetMask(Plane(wide.Width(), wide.Height(), 0));
    const auto source =
        ImageSource::Open(folder.Write("wide.png", PngExporter().SaveToString(wide)));
    ASSERT_TRUE(source) << source.error;
    const auto small = (*source.value)->Thumbnail(15);
    ASSERT_TRUE(small) << small.error;
    EXPECT_EQ(small.value->Width(), 15);
    EXPECT_EQ(small.value->At(7, 0), kColor) << clear;
  }
}

TEST(Codecs, BadFilesGiveOneSentenceWithTheirName) {
  TemporaryFolder folder;
  const std::string jpeg = JpegExporter().SaveToString(TestPicture(300, 200));
  const std::string png = PngExporter().SaveToString(TestPicture(300, 200));
  std::string huge = jpeg;
  const std::size_t frame = huge.find(Bytes("FFC0"));
  ASSERT_NE(frame, std::string::npos);
  huge.replace(frame + 5, 4, Bytes("FFDC FFDC"));
  std::string hugePng = png;
  hugePng.replace(16, 8, Bytes("000186A0 000186A0"));
  struct Case {
    const char* name;
    std::string bytes;
    const char* reason;
  };
  for (const Case& c : {Case{"empty.jpg", "", "not an image"},
                        Case{"text.jpg", "hello, I am a text", "not an image"},
                        Case{"head.jpg", jpeg.substr(0, 100), "head.jpg"},
                        Case{"huge.jpg", huge, "too large: it claims 65500 x 65500 pixels"},
                        Case{"huge.png", hugePng, "huge.png"},
                        Case{"raw.dng", Bytes("49492A00 6E6F7468"), "not an image"},
                        Case{"page.pdf", "%PDF-1.4 broken", "page.pdf"}}) {
    std::string error;
    const FolderItem file = folder.Write(c.name, c.bytes);
    EXPECT_TRUE(ImageIO::OpenAsPictureUsingImageIO(file, error).IsNil()) << c.name;
    EXPECT_THAT(error, HasSubstr(c.name));
    EXPECT_THAT(error, HasSubstr(c.reason));
    EXPECT_EQ(error.find('\n'), std::string::npos);
  }
  std::string error;
  ImageIO::OpenAsPictureUsingImageIO(folder.Child("none.jpg"), error);
  EXPECT_EQ(error, "The file \"none.jpg\" does not exist.");
  ImageIO::OpenAsPictureUsingImageIO(folder.Item(), error);
  EXPECT_THAT(error, HasSubstr("not an image"));
}

TEST(Codecs, FailedWritesLeaveTheOldFile) {
  TemporaryFolder folder;
  const FolderItem file = folder.Write("a.jpg", "old");
  std::string error;
  EXPECT_FALSE(ImageIO::SaveAsJPEG(FolderItem("/proc/a.jpg"), TestPicture(5, 5), 1, error));
  EXPECT_THAT(error, HasSubstr("\"a.jpg\" cannot be saved"));
  EXPECT_FALSE(ImageIO::SaveAsJPEG(file, Picture(), 1, error));
  EXPECT_EQ(ReadFile(file), "old");
  // A name with brackets is a name.
  const std::array<EncodeImage, 1> any{{{Smooth(9, 9), 1}}};
  for (const char* name : {"a[1] page=2", "%d", "a%03d[0-9]", "png:x"}) {
    for (const auto& [extension, type] :
         {std::pair{".png", "public.png"}, {".bmp", "com.microsoft.bmp"}}) {
      const FolderItem odd = folder.Child(std::string(name) + extension);
      ASSERT_EQ(EncodeImageFile(odd, type, any), "");
      ASSERT_TRUE(odd.Exists()) << odd.Name();
      EXPECT_TRUE(ImageIO::OpenAsPictureUsingImageIO(odd, error).SameAs(Smooth(9, 9))) << error;
    }
  }
  const std::array<EncodeImage, 1> images{{{Smooth(9, 9), 1}}};
  const FolderItem oddTiff = folder.Child("b[1].tif");
  EXPECT_EQ(EncodeImageFile(oddTiff, "public.tiff", images), "");
  EXPECT_TRUE(oddTiff.Exists());
}

TEST(Codecs, AFullDiskIsToldInEveryFormat) {
  TemporaryFolder folder;
  const std::array<EncodeImage, 1> images{{{TestPicture(200, 150), 0.9}}};
  const auto before = std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  for (const FileType* type : ImagesWritableMac::kTypes) {
    const std::string name = "a." + ImageIO::FirstExtension(*type);
    folder.Write(name, "old");
    const rlimit small{5000, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const std::string error = EncodeImageFile(folder.Child(name), type->Identifier, images);
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_THAT(error, HasSubstr("\"" + name + "\" cannot be saved: "));
    EXPECT_THAT(error, Not(HasSubstr("/proc")));
    EXPECT_EQ(ReadFile(folder.Child(name)), "old") << name;
  }
  std::signal(SIGXFSZ, before);
  EXPECT_EQ(folder.Names().size(), ImagesWritableMac::kTypes.size()) << "nothing is left behind";
}

TEST(Codecs, WhatAFormatCannotHoldIsToldAsSuch) {
  // Its sizes have sixteen bits.
  TemporaryFolder folder;
  const std::array<EncodeImage, 1> wide{{{PlainPicture(70'000, 2, kWhite)}}};
  EXPECT_EQ(EncodeImageFile(folder.Child("a.sgi"), "com.sgi.sgi-image", wide),
            "The file \"a.sgi\" cannot be saved: width or height exceeds limit.");
  EXPECT_FALSE(folder.Child("a.sgi").Exists());
}

TEST(Codecs, JpegStripsAreJoinedWithoutASeam) {
  // Tall pictures are encoded in strips of 256 rows, 128 at full colour. A part that begins where a
  // strip begins is coded alike on its own, so it must decode alike.
  const Picture tall = Smooth(70, 2500);
  for (const int quality : {80, 97}) {
    const int first = 256 * 3;
    Picture part = Picture::Uninitialized(70, 2500 - first);
    for (int y = 0; y < part.Height(); ++y) {
      std::memcpy(part.Edit().Row(y), tall.View().Row(y + first), 70 * 4);
    }
    const JpegExporter exporter{.Quality = quality};
    const Picture whole = JpegImporter::OpenFromString(exporter.SaveToString(tall));
    const Picture alone = JpegImporter::OpenFromString(exporter.SaveToString(part));
    ASSERT_EQ(whole.Height(), 2500);
    for (int y = 2; y < part.Height(); ++y) {
      for (int x = 0; x < 70; ++x) ASSERT_EQ(whole.At(x, y + first), alone.At(x, y)) << y;
    }
    EXPECT_LE(LargestDifference(whole, tall), 12);
  }
  const std::array<EncodeImage, 1> wide{{{NewPicture(65501, 1, 24), 0.9}}};
  TemporaryFolder folder;
  EXPECT_THAT(EncodeImageFile(folder.Child("w.jpg"), "public.jpeg", wide), HasSubstr("65500"));
}

/// What libjpeg says of a file, which is not asked to be quick or to forgive.
struct PlainJpeg {
  Picture picture;
  int components = 0;
  bool fullColor = false;
  long warnings = 0;  // NOLINT(google-runtime-int): the type of libjpeg
};

PlainJpeg ReadPlainly(const std::string& bytes) {
  jpeg_decompress_struct info{};
  jpeg_error_mgr errors{};
  info.err = jpeg_std_error(&errors);
  jpeg_create_decompress(&info);
  jpeg_mem_src(&info, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
  jpeg_read_header(&info, TRUE);
  info.out_color_space = JCS_EXT_BGRA;
  jpeg_start_decompress(&info);
  PlainJpeg read;
  read.picture = Picture::Uninitialized(static_cast<int>(info.output_width),
                                        static_cast<int>(info.output_height));
  read.components = info.num_components;
  read.fullColor = info.max_h_samp_factor == 1;
  while (info.output_scanline < info.output_height) {
    JSAMPROW row = read.picture.Edit().Row(static_cast<int>(info.output_scanline));
    jpeg_read_scanlines(&info, &row, 1);
  }
  jpeg_finish_decompress(&info);
  read.warnings = errors.num_warnings;
  jpeg_destroy_decompress(&info);
  return read;
}

TEST(Codecs, WideJpegsAreWholeForOthers) {
  // The interval between restart markers has 16 bits, which rows of blocks can exceed.
  for (const auto& [width, quality] :
       {std::pair{32760, 0.95}, {32768, 0.95}, {40000, 1.0}, {65500, 0.95}, {65500, 0.9}}) {
    const Picture wide = Smooth(width, 300);
    const PlainJpeg read = ReadPlainly(EncodeJpegBytes({wide, quality}));
    EXPECT_EQ(read.warnings, 0) << width;
    EXPECT_LE(LargestDifference(read.picture, wide), 12) << width;
  }
}

TEST(Codecs, JpegQualityIsCountedInWholePercents) {
  const Picture picture = Smooth(64, 64);
  for (int percent = 90; percent <= 100; ++percent) {
    // The two ways in which a quality comes here.
    for (const double quality :
         {static_cast<double>(static_cast<float>(percent) / 100), percent / 100.0}) {
      EXPECT_EQ(ReadPlainly(EncodeJpegBytes({picture, quality})).fullColor, percent >= 95)
          << percent;
    }
  }
}

TEST(Codecs, GreyIsWrittenAsGrey) {
  TemporaryFolder folder;
  Picture picture = Smooth(50, 300);
  const Pixels pixels = picture.Edit();
  for (int y = 0; y < pixels.height; ++y) {
    for (int x = 0; x < pixels.width; ++x) {
      std::uint8_t* p = pixels.Row(y) + std::ptrdiff_t{4} * x;
      p[0] = p[2] = p[1];
    }
  }
  struct Case {
    const char* name;
    int tolerance;
    bool told;
  };
  for (const Case& c : {Case{"a.png", 0, true}, Case{"a.tif", 0, true}, Case{"a.jpg", 4, true},
                        Case{"a.jp2", 4, true}, Case{"a.psd", 0, true}, Case{"a.sgi", 0, false},
                        Case{"a.bmp", 0, false}, Case{"a.tga", 0, false}, Case{"a.gif", 12, false},
                        Case{"a.pct", 0, false}}) {
    ImageFile file;
    file.Folderitem = folder.Child(c.name);
    file.SetFormatFromFile();
    file.AddPicture(picture);
    file.FirstImage()->ColorSpace(ImageIOKColorSpace::kGray);
    file.FirstImage()->CompressionQuality = 0.95F;
    ASSERT_TRUE(file.Save()) << file.LastError;
    std::string error;
    const auto back = ImageIO::OpenAsImageFile(file.Folderitem, ImageIO::kFirstPicture, error);
    ASSERT_TRUE(back && back->FirstImage() != nullptr) << c.name << error;
    EXPECT_LE(LargestDifference(back->FirstImage()->Picture(), picture), c.tolerance) << c.name;
    if (c.told) {
      EXPECT_EQ(back->FirstImage()->ColorSpace(), ImageIOKColorSpace::kGray) << c.name;
      // What was read as grey is written as grey again.
      back->Folderitem = folder.Child(std::string("again-") + c.name);
      ASSERT_TRUE(back->Save()) << back->LastError;
      const auto again = ImageIO::OpenAsImageFile(back->Folderitem, ImageIO::kFirstPicture, error);
      ASSERT_TRUE(again && again->FirstImage() != nullptr) << c.name << error;
      EXPECT_EQ(again->FirstImage()->ColorSpace(), ImageIOKColorSpace::kGray) << c.name;
    }
  }
  EXPECT_TRUE(QImage(QString::fromStdString(folder.Child("a.png").ShellPath())).isGrayscale());
  EXPECT_EQ(ReadPlainly(*ReadFile(folder.Child("a.jpg"))).components, 1);
  // Channels of the file: ITU's and the makers' headers.
  EXPECT_EQ(ReadFile(folder.Child("a.psd"))->at(25), 1) << "grey mode";
  EXPECT_EQ(ReadFile(folder.Child("a.sgi"))->at(11), 1) << "one channel";
}

TEST(Codecs, EightBitsAChannelAreWritten) {
  TemporaryFolder folder;
  Picture picture = Smooth(50, 40);
  for (const bool clear : {false, true}) {
    if (clear) picture.SetMask(TestPlane(50, 40));
    const std::array<EncodeImage, 1> images{{{picture, 1}}};
    const FolderItem psd = folder.Child("a.psd");
    ASSERT_EQ(EncodeImageFile(psd, "com.adobe.photoshop-image", images), "");
    EXPECT_EQ(ReadFile(psd)->at(23), 8) << "the low byte of the depth";
    const FolderItem sgi = folder.Child("a.sgi");
    ASSERT_EQ(EncodeImageFile(sgi, "com.sgi.sgi-image", images), "");
    EXPECT_EQ(ReadFile(sgi)->at(3), 1) << "bytes a channel";
    for (const FolderItem& file : {psd, sgi}) {
      std::string error;
      const auto back = ImageIO::OpenAsImageFile(file, ImageIO::kFirstPicture, error);
      ASSERT_TRUE(back && back->FirstImage() != nullptr) << error;
      // A PSD's picture is laid on white as well, which its reader reckons back in 16 bits.
      if (clear && file == psd) continue;
      EXPECT_EQ(back->FirstImage()->BitsPerComponent(), 8);
      EXPECT_TRUE(back->FirstImage()->Picture().SameAs(picture)) << file.Name();
    }
  }
}

TEST(Codecs, EqualPicturesGiveEqualFiles) {
  const Picture picture = TestPicture(50, 50);
  EXPECT_EQ(JpegExporter().SaveToString(picture), JpegExporter().SaveToString(picture));
}

}  // namespace
}  // namespace brivolant::test
