// SPDX-License-Identifier: MIT
// Files that end too early or hold a bad block: what is shown of them, and what is said.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <png.h>
#include <webp/encode.h>

#include "Damage.h"
#include "Helpers.h"
#include "formats/BrivolantDocument.h"
#include "formats/ImageFile.h"
#include "formats/PictureStrings.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/files/BinaryStream.h"

namespace brivolant::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

std::string InterlacedPng(const Picture& picture) {
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
               static_cast<png_uint_32>(picture.Height()), 8, PNG_COLOR_TYPE_RGB,
               PNG_INTERLACE_ADAM7, PNG_COMPRESSION_TYPE_BASE, PNG_FILTER_TYPE_BASE);
  png_write_info(png, info);
  png_set_bgr(png);
  png_set_filler(png, 0, PNG_FILLER_AFTER);
  const int passes = png_set_interlace_handling(png);
  for (int pass = 0; pass < passes; ++pass) {
    for (int y = 0; y < picture.Height(); ++y) png_write_row(png, picture.View().Row(y));
  }
  png_write_end(png, nullptr);
  png_destroy_write_struct(&png, &info);
  return bytes;
}

std::string ProgressiveJpeg(const Picture& picture) {
  return Jpeg(picture, {.progressive = true});
}

/// Without the mark of the end.
std::string Endless(const std::string& jpeg) {
  return jpeg.substr(0, jpeg.size() - 2);
}

/// A PNG without alpha, with a chunk of a transparent colour whose sum is wrong.
std::string BadTransparency(std::string png) {
  return png.insert(png.find("IDAT") - 4,
                    Bytes("00000006") + "tRNS" + Bytes("0001 0002 0003 DEADBEEF"));
}

/// A PNG whose sum over the pixels is wrong: it stands before the end chunk and its length.
std::string BadSum(std::string png) {
  png[png.size() - 16] = static_cast<char>(png[png.size() - 16] ^ 1);
  return png;
}

std::string WebP(const Picture& picture, bool lossless) {
  std::uint8_t* bytes = nullptr;
  const std::uint8_t* pixels = picture.View().data;
  const int stride = static_cast<int>(picture.View().stride);
  const std::size_t size =
      lossless ? WebPEncodeLosslessBGRA(pixels, picture.Width(), picture.Height(), stride, &bytes)
               : WebPEncodeBGRA(pixels, picture.Width(), picture.Height(), stride, 90, &bytes);
  std::string file(reinterpret_cast<const char*>(bytes), size);
  WebPFree(bytes);
  return file;
}

/// Uncompressed, with the directory before the strips, as cameras write them.
std::string PlainTiff(const Picture& picture) {
  constexpr int kRows = 16;
  const int strips = (picture.Height() + kRows - 1) / kRows;
  const int stripBytes = picture.Width() * 3 * kRows;
  constexpr int kEntries = 10;
  const int arrays = 8 + 2 + kEntries * 12 + 4;
  const int data = arrays + 8 + 8 * strips;
  ByteWriter out;
  out.Bytes(Bytes("49492A00 08000000"));
  out.UInt16(kEntries);
  const auto entry = [&](int tag, int type, int count, int value) {
    out.UInt16(static_cast<std::uint16_t>(tag));
    out.UInt16(static_cast<std::uint16_t>(type));
    out.UInt32(static_cast<std::uint32_t>(count));
    out.UInt32(static_cast<std::uint32_t>(value));
  };
  entry(256, 4, 1, picture.Width());
  entry(257, 4, 1, picture.Height());
  entry(258, 3, 3, arrays);
  entry(259, 3, 1, 1);
  entry(262, 3, 1, 2);
  entry(273, 4, strips, arrays + 8);
  entry(274, 3, 1, 1);
  entry(277, 3, 1, 3);
  entry(278, 4, 1, kRows);
  entry(279, 4, strips, arrays + 8 + 4 * strips);
  out.UInt32(0);
  out.Bytes(Bytes("0800 0800 0800 0000"));
  for (int i = 0; i < strips; ++i) out.UInt32(static_cast<std::uint32_t>(data + i * stripBytes));
  for (int i = 0; i < strips; ++i) out.UInt32(static_cast<std::uint32_t>(stripBytes));
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      const Color color = picture.At(x, y);
      for (const int channel : {color.Red, color.Green, color.Blue}) {
        out.UInt8(static_cast<std::uint8_t>(channel));
      }
    }
  }
  return out.Take();
}

struct Damaged {
  const char* name;
  std::string whole;
  std::string bytes;
  /// Rows from the top that are as the whole file shows them.
  int rows;
  /// What the bottom row is, if it is missing.
  std::optional<Color> missing;
  /// How far, in the mean, the shrunk picture is from that of the whole file at most; 0 if that is
  /// not asked for. A grey one is further away.
  double near = 0;
};

/// The mean difference of the channels.
double MeanDifference(const Picture& a, const Picture& b) {
  double sum = 0;
  for (int y = 0; y < a.Height(); ++y) {
    for (int x = 0; x < a.Width(); ++x) {
      const Color one = a.At(x, y);
      const Color other = b.At(x, y);
      sum += std::abs(one.Red - other.Red) + std::abs(one.Green - other.Green) +
             std::abs(one.Blue - other.Blue);
    }
  }
  return sum / (3.0 * a.Width() * a.Height());
}

/// Where the blocks of a GIF's first picture begin: the length of each stands before it.
std::vector<std::size_t> GifBlocks(const std::string& gif) {
  const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(gif[i]); };
  const auto table = [&](std::size_t flags) {
    return (byte(flags) & 0x80U) == 0 ? 0U : 3U << ((byte(flags) & 7U) + 1U);
  };
  std::size_t at = 13 + table(10);
  const auto skip = [&] {
    while (byte(at) != 0) at += byte(at) + 1U;
    ++at;
  };
  while (gif[at] == '!') {
    at += 2;
    skip();
  }
  // The picture's place and size, its colours, and how many bits its codes begin with.
  at += 10 + table(at + 9) + 1;
  std::vector<std::size_t> blocks;
  for (; byte(at) != 0; at += byte(at) + 1U) blocks.push_back(at);
  return blocks;
}

/// A GIF in which one of ten blocks says that it is longer or shorter than it is.
std::string BadLength(std::string gif) {
  const std::vector<std::size_t> blocks = GifBlocks(gif);
  gif[blocks[blocks.size() * 6 / 10]] = '\x03';
  return gif;
}

/// A PNG with a byte of the sum over a chunk inverted.
std::string BadSumOf(std::string png, const char* chunk) {
  const std::size_t at = png.find(chunk);
  BinaryStream length(std::string_view(png).substr(at - 4, 4));
  const std::size_t sum = at + 4 + length.ReadUInt32();
  png[sum] = static_cast<char>(~png[sum]);
  return png;
}

/// Grey, red and so on as they are.
std::string Ppm(const Picture& picture) {
  std::string bytes = "P6\n# a comment\n" + std::to_string(picture.Width()) + " " +
                      std::to_string(picture.Height()) + "\n255\n";
  for (int y = 0; y < picture.Height(); ++y) {
    for (int x = 0; x < picture.Width(); ++x) {
      const Color color = picture.At(x, y);
      for (const int channel : {color.Red, color.Green, color.Blue}) {
        bytes += static_cast<char>(channel);
      }
    }
  }
  return bytes;
}

/// The red of a picture as numbers.
std::string TextPgm(const Picture& picture) {
  std::string bytes =
      "P2 " + std::to_string(picture.Width()) + " " + std::to_string(picture.Height()) + " 255";
  for (int y = 0; y < picture.Height(); ++y) {
    bytes += '\n';
    for (int x = 0; x < picture.Width(); ++x) bytes += std::to_string(picture.At(x, y).Red) + " ";
  }
  return bytes;
}

std::vector<Damaged> DamagedFiles() {
  const std::string png = PngExporter().SaveToString(Original());
  Picture clear = Original();
  clear.SetMask(TestPlane(kWidth, kHeight));
  const std::string clearPng = PngExporter().SaveToString(clear);
  const std::string jpeg = JpegExporter{.Quality = 95}.SaveToString(Original());
  const std::string progressive = ProgressiveJpeg(Original());
  std::string badTable = progressive;
  badTable[Marker(badTable, 0xC4, 5) + 4] = '\x7F';
  const std::string restarts = Jpeg(Original(), {.restart = 2});
  const std::string arithmetic = Jpeg(Original(), {.arithmetic = true});
  const std::string interlaced = InterlacedPng(Original());
  const std::string tiff = Encoded("public.tiff", Original());
  const std::string plainTiff = PlainTiff(Original());
  const std::string gif = Encoded("com.compuserve.gif", Original());
  std::string ones = gif;
  ones.replace(ones.size() * 6 / 10, 2000, 2000, '\xFF');
  const std::string profiled = Encoded("public.png", Original());
  const std::string ppm = Ppm(Original());
  const std::string pgm = TextPgm(Original());
  const std::string webp = WebP(Original(), false);
  const std::string lossless = WebP(Original(), true);
  const std::string jp2 = Encoded("public.jpeg-2000", Original());
  constexpr Color kGrey{128, 128, 128};
  return {{"half.png", png, Cut(png, 0.6), 120, kGrey},
          {"spoilt.png", png, Spoilt(png, 0.6), 100, {}},
          {"sum.png", png, BadSum(png), kHeight, {}},
          {"transparency.png", png, BadTransparency(png), kHeight, {}},
          {"clear.png", clearPng, Cut(clearPng, 0.6), 120, kGrey},
          {"interlaced.png", interlaced, Cut(interlaced, 0.9), 0, {}, 12},
          {"header.png", png, BadSumOf(png, "IHDR"), kHeight, {}},
          {"profile.png", profiled, BadSumOf(profiled, "iCCP"), kHeight, {}},
          {"half.jpg", jpeg, Cut(jpeg, 0.6), 100, {}},
          {"spoilt.jpg", jpeg, Spoilt(jpeg, 0.6, 500), 100, {}},
          {"progressive.jpg", progressive, Cut(progressive, 0.6), 0, {}, 12},
          // Blocks that were read wrong leave data behind, or take too little.
          {"longer.jpg", jpeg, std::string(jpeg).insert(jpeg.size() / 2, jpeg, 900, 40), 80, {}},
          {"end.jpg", jpeg, Stuffed(jpeg, 0xD9, 1), kHeight, {}},
          {"restart.jpg", restarts, Stuffed(restarts, 0xD3, 1), kHeight, {}},
          {"scan.jpg", progressive, Stuffed(progressive, 0xDA, 4), kHeight, {}},
          {"arithmetic.jpg", arithmetic, Cut(arithmetic, 0.6), 100, {}},
          {"table.jpg", progressive, badTable, 0, {}, 12},
          {"spoilt.tif", tiff, Spoilt(tiff, 0.5), 80, {}},
          {"half.tif", plainTiff, Cut(plainTiff, 0.6), 140, kGrey},
          {"half.gif", gif, Cut(gif, 0.6), 130, kGrey},
          {"spoilt.gif", gif, Spoilt(gif, 0.6), 130, {}},
          {"length.gif", gif, BadLength(gif), 130, {}},
          {"ones.gif", gif, ones, 130, {}},
          {"half.ppm", ppm, Cut(ppm, 0.6), 140, kGrey},
          {"half.pgm", pgm, Cut(pgm, 0.6), 140, Color{128, 128, 128}},
          {"half.webp", webp, Cut(webp, 0.6), 50, kGrey},
          {"lossless.webp", lossless, Cut(lossless, 0.6), 50, kGrey},
          {"half.jp2", jp2, Cut(jp2, 0.6), 0, {}, 12}};
}

TEST(Damage, ShownAsFarAsItGoesAndTheSameEveryTime) {
  TemporaryFolder folder;
  for (const Damaged& damaged : DamagedFiles()) {
    SCOPED_TRACE(damaged.name);
    const FolderItem file = folder.Write(damaged.name, damaged.bytes);
    const ImageIO::OpenedPicture first = ImageIO::OpenFirstPicture(file);
    ASSERT_EQ(first.Pixels.Width(), kWidth) << first.Error;
    ASSERT_EQ(first.Pixels.Height(), kHeight);
    EXPECT_THAT(first.Damage.Warning, HasSubstr(damaged.name));
    EXPECT_THAT(first.Damage.Warning, HasSubstr("as far as it can be read."));
    EXPECT_THAT(first.Damage.Refusal, HasSubstr(damaged.name));
    const Picture whole = ImageIO::OpenFirstPicture(folder.Write("whole", damaged.whole)).Pixels;
    EXPECT_EQ(DifferenceOfRows(first.Pixels, whole, 0, damaged.rows), 0);
    if (damaged.missing) {
      EXPECT_EQ(first.Pixels.At(5, kHeight - 1), *damaged.missing);
    }
    const auto source = ImageSource::Open(file);
    ASSERT_TRUE(source);
    const auto small = (*source.value)->Thumbnail(64);
    ASSERT_TRUE(small) << small.error;
    EXPECT_EQ(small.value->Width(), 64);
    if (damaged.near > 0) {
      const auto aim = (*ImageSource::Open(folder.Child("whole")).value)->Thumbnail(64);
      EXPECT_LT(MeanDifference(*small.value, *aim.value), damaged.near);
      EXPECT_GT(
          MeanDifference(PlainPicture(64, small.value->Height(), {128, 128, 128}), *aim.value),
          2 * damaged.near);
    }
    for (int run = 0; run < 20; ++run) {
      const ImageIO::OpenedPicture again = ImageIO::OpenFirstPicture(file);
      ASSERT_EQ(again.Damage.Warning, first.Damage.Warning) << run;
      ASSERT_TRUE(again.Pixels.SameAs(first.Pixels)) << run;
      const auto other = ImageSource::Open(file);
      ASSERT_TRUE((*other.value)->Thumbnail(64).value->SameAs(*small.value)) << run;
    }
  }
}

TEST(Damage, NothingIsSaidOfWholeFiles) {
  TemporaryFolder folder;
  const std::string jpeg = JpegExporter{.Quality = 95}.SaveToString(Original());
  const std::string interlaced = InterlacedPng(Original());
  for (const auto& [name, bytes] : {
           std::pair<const char*, std::string>{"a.png", PngExporter().SaveToString(Original())},
           {"interlaced.png", interlaced},
           {"progressive.jpg", ProgressiveJpeg(Original())},
           // Only the mark of the end is missing: every pixel is there.
           {"a.jpg", Endless(jpeg)},
           {"endless.jpg", Endless(ProgressiveJpeg(Original()))},
           {"arithmetic.jpg", Endless(Jpeg(Original(), {.arithmetic = true}))},
           {"restart.jpg", Endless(Jpeg(Original(), {.restart = 1}))},
           // What stands between the headers is no coded data.
           {"headers.jpg", Stuffed(jpeg, 0xDA, 1)},
           {"padded.jpg", jpeg + std::string(5000, '\0')},
           {"a.tif", Encoded("public.tiff", Original())},
           {"plain.tif", PlainTiff(Original())},
           {"a.gif", Encoded("com.compuserve.gif", Original())},
           {"a.webp", WebP(Original(), false)},
           {"a.jp2", Encoded("public.jpeg-2000", Original())},
           {"a.sgi", Encoded("com.sgi.sgi-image", Original())},
       }) {
    const ImageIO::OpenedPicture opened = ImageIO::OpenFirstPicture(folder.Write(name, bytes));
    EXPECT_EQ(opened.Pixels.Width(), kWidth) << name << opened.Error;
    EXPECT_THAT(opened.Damage.Warning, IsEmpty()) << name;
  }
  EXPECT_TRUE(ImageIO::OpenFirstPicture(folder.Child("interlaced.png")).Pixels.SameAs(Original()));
}

TEST(Damage, PlainPicturesAreShownToo) {
  TemporaryFolder folder;
  Picture page = PlainPicture(kWidth, kHeight, kWhite);
  for (int x = 50; x < 150; ++x) page.Edit().Row(70)[4 * x] = 0;
  Picture drawing = PlainPicture(kWidth, kHeight, kBlack);
  drawing.SetMask(TestPlane(kWidth, kHeight));
  const std::string tiff = PlainTiff(page);
  for (const auto& [name, bytes, whole] : {
           std::tuple{"page.png", BadSum(PngExporter().SaveToString(page)), page},
           {"drawing.png", BadSum(PngExporter().SaveToString(drawing)), drawing},
           {"interlaced.png", BadSum(InterlacedPng(page)), page},
           {"page.tif", tiff.substr(0, tiff.size() - 1), page},
       }) {
    SCOPED_TRACE(name);
    const FolderItem file = folder.Write(name, bytes);
    const ImageIO::OpenedPicture opened = ImageIO::OpenFirstPicture(file);
    ASSERT_EQ(opened.Pixels.Width(), kWidth) << opened.Error;
    EXPECT_EQ(DifferenceOfRows(opened.Pixels, whole, 0, kHeight - 1), 0);
    EXPECT_EQ(opened.Pixels.Mask() != nullptr, whole.Mask() != nullptr);
    EXPECT_THAT(opened.Damage.Warning, HasSubstr(name));
    EXPECT_TRUE((*ImageSource::Open(file).value)->Thumbnail(64));
  }
}

TEST(Damage, WhatShowsNothingIsRefusedInOneSentence) {
  TemporaryFolder folder;
  const std::string png = PngExporter().SaveToString(Original());
  const std::string jpeg = JpegExporter{.Quality = 95}.SaveToString(Original());
  for (const auto& [name, bytes] : {
           std::pair<const char*, std::string>{"header.png", png.substr(0, png.find("IDAT") + 6)},
           {"cut.png", png.substr(0, 20)},
           {"header.jpg", jpeg.substr(0, Marker(jpeg, 0xDA, 1) + 14)},
           {"empty.jpg", jpeg.substr(0, Marker(jpeg, 0xDA, 1) + 14) + "\xFF\xD9"},
           {"cut.jpg", jpeg.substr(0, 30)},
           {"strips.tif", PlainTiff(Original()).substr(0, 200)},
           {"header.gif", Encoded("com.compuserve.gif", Original()).substr(0, 13)},
           {"header.webp", WebP(Original(), true).substr(0, 30)},
           {"header.jp2", Encoded("public.jpeg-2000", Original()).substr(0, 60)},
       }) {
    const ImageIO::OpenedPicture opened = ImageIO::OpenFirstPicture(folder.Write(name, bytes));
    EXPECT_TRUE(opened.Pixels.IsNil()) << name;
    EXPECT_THAT(opened.Error, HasSubstr(name));
    EXPECT_THAT(opened.Error, Not(HasSubstr("\n")));
  }
  // A picture in memory is whole or none: it is the program's own.
  EXPECT_TRUE(PngImporter::OpenFromString(Cut(png, 0.6)).IsNil());
}

TEST(Damage, SmallPngsThatClaimManyPixelsAreRefused) {
  TemporaryFolder folder;
  std::string bytes = PngExporter().SaveToString(TestPicture(24, 16));
  // The height stands behind signature, length, name and width; its sum is wrong now.
  constexpr std::size_t kHeightAt = 8 + 4 + 4 + 4;
  bytes.replace(kHeightAt, 4, std::string("\0\x0F\0\x10", 4));
  const FolderItem file = folder.Write("tall.png", bytes);
  const auto source = ImageSource::Open(file);
  ASSERT_TRUE(source) << source.error;
  const std::string sentence =
      CodecMessage(codecTexts::kDamaged, file, codecTexts::kEndsEarly.Text());
  EXPECT_EQ((*source.value)->Decode(0).error, sentence);
  EXPECT_EQ((*source.value)->Thumbnail(64).error, sentence);
  EXPECT_TRUE(DecodeImageBytes(bytes).IsNil());
}

TEST(Damage, LibrariesAreNotQuoted) {
  TemporaryFolder folder;
  std::string bytes = PlainTiff(Original());
  // Its pixels are said to be JPEGs, which makes every strip fail.
  const std::size_t compression = bytes.find(Bytes("0301 0300 01000000 0100"));
  ASSERT_NE(compression, std::string::npos);
  bytes[compression + 8] = 7;
  const FolderItem file = folder.Write("tables.tif", bytes);
  const auto source = ImageSource::Open(file);
  ASSERT_TRUE(source) << source.error;
  for (int run = 0; run < 2; ++run) {
    EXPECT_EQ((*source.value)->Decode(0).error,
              CodecMessage(codecTexts::kDamaged, file, codecTexts::kBadData.Text()));
  }
  // The scan wants tables that the file does not have.
  std::string jpeg = JpegExporter{.Quality = 95}.SaveToString(Original());
  jpeg[Marker(jpeg, 0xDA, 1) + 6] = '\x33';
  const FolderItem scan = folder.Write("scan.jpg", jpeg);
  const auto read = ImageSource::Open(scan);
  ASSERT_TRUE(read) << read.error;
  const std::string sentence =
      CodecMessage(codecTexts::kDamaged, scan, codecTexts::kBadData.Text());
  EXPECT_EQ((*read.value)->Decode(0).error, sentence);
  EXPECT_EQ((*read.value)->Thumbnail(20).error, sentence);
}

TEST(Damage, ALyingHeaderCostsNoMemory) {
  TemporaryFolder folder;
  // Sixteen bits of four channels in one row; the sum over the header fits.
  const auto png = [](const char* width, const char* sum) {
    return Bytes("89504E47 0D0A1A0A 0000000D") + "IHDR" + Bytes(width) +
           Bytes("00000001 1006000000") + Bytes(sum) + Bytes("00000006") + "IDAT" +
           Bytes("789C03000000 D1C4F393") + Bytes("00000000") + "IEND" + Bytes("AE426082");
  };
  for (const auto& [width, sum, number] :
       {std::tuple{"1FFFFFFF", "FE5535C0", "536870911"}, {"01FFFFFF", "B0B49FAA", "33554431"}}) {
    const FolderItem file = folder.Write("lying.png", png(width, sum));
    EXPECT_THAT(ImageIO::OpenFirstPicture(file).Error,
                testing::AllOf(HasSubstr("\"lying.png\" is too large"), HasSubstr(number)));
    EXPECT_THAT((*ImageSource::Open(file).value)->Thumbnail(64).error, HasSubstr("is too large"));
    EXPECT_TRUE(DecodeImageBytes(*ReadFile(file), 1024).IsNil());
  }
  // A strip that claims to be longer than the file, and a picture of which almost nothing is there.
  std::string tiff = PlainTiff(Original());
  const std::size_t lengths = 8 + 2 + 10 * 12 + 4 + 8 + 4 * std::size_t{15};
  for (std::size_t i = 0; i < 15; ++i) tiff.replace(lengths + 4 * i, 4, 4, '\xFF');
  const ImageIO::OpenedPicture lying = ImageIO::OpenFirstPicture(folder.Write("a.tif", tiff));
  EXPECT_THAT(lying.Error + lying.Damage.Warning, HasSubstr("\"a.tif\""));
  std::string wide = PlainTiff(Original()).substr(0, 36'000);
  wide.replace(8 + 2 + 8, 4, Bytes("10270000"));
  wide.replace(8 + 2 + 12 + 8, 4, Bytes("10270000"));
  EXPECT_THAT(ImageIO::OpenFirstPicture(folder.Write("b.tif", wide)).Error, HasSubstr("\"b.tif\""));
}

TEST(Damage, DocumentsKeepTheDamagedOriginalAndNeverWriteOverIt) {
  TestServices s;
  const std::string bytes = Cut(PngExporter().SaveToString(Original()), 0.6);
  const FolderItem image = s.folder.Write("half.png", bytes);
  BrivolantDocument document(s.services);
  ASSERT_TRUE(document.CreateFromFile(image));
  EXPECT_THAT(document.OriginalDamage.Warning, HasSubstr("half.png"));
  EXPECT_THAT(document.WhyNotWriteTo(image), HasSubstr("\"half.png\" is the original"));
  EXPECT_EQ(document.WhyNotWriteTo(s.folder.Child("other.png")), "");
  const FolderItem package = s.folder.Child("d.brvPhoto");
  ASSERT_TRUE(document.Save(package));
  EXPECT_EQ(*ReadFile(package.Child("half.png")), bytes);

  BrivolantDocument back(s.services);
  ASSERT_TRUE(back.Load(package));
  EXPECT_FALSE(back.ImageOriginal().IsNil());
  EXPECT_THAT(back.OriginalDamage.Warning, HasSubstr("half.png"));
  EXPECT_THAT(back.WhyNotWriteTo(package.Child("half.png")), Not(IsEmpty()));
  ASSERT_TRUE(back.Save());
  EXPECT_EQ(*ReadFile(package.Child("half.png")), bytes);

  BrivolantDocument whole(s.services);
  const FolderItem good = s.folder.Write("good.png", PngExporter().SaveToString(Original()));
  ASSERT_TRUE(whole.ReadImage(good));
  EXPECT_EQ(whole.WhyNotWriteTo(good), "");
}

}  // namespace
}  // namespace brivolant::test
