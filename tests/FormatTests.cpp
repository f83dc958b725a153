// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QMimeDatabase>
#include <fstream>
#include <set>

#include "Helpers.h"
#include "files/FolderitemExtensions.h"
#include "formats/BinaryDictionary.h"
#include "formats/FileTypes.h"
#include "formats/IFFData.h"
#include "formats/ImageFile.h"
#include "platform/codecs/RawExtensions.h"
#include "platform/values/Text.h"

namespace brivolant::test {
namespace {

using namespace BinaryDictionary;

const std::string kHead = "bdicvlox" + Bytes("04 00 00 00") + "Root";

Dictionary One(const Variant& value) {
  Dictionary d;
  d.Value("a", value);
  return d;
}

TEST(BinaryDictionaryFormat, BytesOfEveryType) {
  const std::string entry = kHead + Bytes("12 01 00 00 00 01 00 00 00") + "a";
  Collection list;
  list.Add(1, "dropped");
  const std::array<std::pair<Variant, std::string>, 14> cases{{
      {1, Bytes("02 01 00 00 00")},
      {std::int64_t{-2}, Bytes("03 FE FF FF FF")},
      {1.5F, Bytes("04 00 00 C0 3F")},
      {1.5, Bytes("05 00 00 00 00 00 00 F8 3F")},
      {Currency{12345}, Bytes("06 39 30 00 00 00 00 00 00")},
      {Date{2009, 3, 4, 14, 5, 6}, Bytes("07 07 E0 03 04 0E 05 06")},
      {Date{255, 1, 1, 0, 0, 0}, Bytes("07 01 00 01 01 00 00 00")},
      {"", Bytes("08 00 00 00 00")},
      {"\xE9\x01", Bytes("08 02 00 00 00 E9 01")},
      {true, Bytes("0B 01")},
      {Color{255, 128, 1}, Bytes("17 FF 00 80 00 01 00")},
      {Variant(), Bytes("00")},
      {list, Bytes("14 01 00 00 00 00 00 00 00 02 01 00 00 00")},
      {Pair{1, 2}, Bytes("00")},
  }};
  for (const auto& [value, bytes] : cases) {
    EXPECT_EQ(BinaryStringFromDictionary(One(value)), entry + bytes) << value.ToText();
  }
  EXPECT_EQ(BinaryStringFromDictionary({}).size(), 21U);
}

TEST(BinaryDictionaryFormat, ValuesComeBack) {
  Dictionary inner;
  inner.Value("nil", {});
  inner.Value("after", "nil");
  Dictionary d;
  d.Value(7, "key becomes text");
  d.Value("single", 0.25F);
  d.Value("long", std::int64_t{5000000000});
  d.Value("date", Date{2009, 12, 31, 23, 59, 59});
  d.Value("color", Color{1, 2, 3});
  d.Value("inner", inner);
  d.Value("file", FolderItem("/a/b c"));
  const auto back = BinaryDictionaryFromString(BinaryStringFromDictionary(d));
  ASSERT_TRUE(back);
  EXPECT_EQ(back->Key(0).ToText(), "7");
  EXPECT_TRUE(back->Value("single").Is<double>());
  EXPECT_EQ(back->Value("single").ToDouble(), 0.25);
  EXPECT_EQ(back->Value("long").ToInt(), 2147483647) << "64 bits are written as 32";
  EXPECT_EQ(back->Value("date").ToDate(), (Date{2009, 12, 31, 23, 59, 59}));
  EXPECT_EQ(back->Value("color").ToColor(), (Color{1, 2, 3}));
  EXPECT_EQ(back->Value("file").As<FolderItem>()->ShellPath(), "/a/b c");
  const auto* nested = back->Value("inner").As<Dictionary>();
  ASSERT_NE(nested, nullptr);
  EXPECT_TRUE(nested->Value("nil").IsNil());
  EXPECT_EQ(nested->Value("after").ToText(), "nil");
}

TEST(BinaryDictionaryFormat, OlderAndUnknownTags) {
  const std::string two = kHead + Bytes("12 02 00 00 00 01 00 00 00") + "a";
  const auto color = BinaryDictionaryFromString(two + Bytes("10 0A 0B 0C 01 00 00 00") + "b" +
                                                Bytes("63 03 00 00 00") + "xyz");
  ASSERT_TRUE(color);
  EXPECT_EQ(color->Value("a").ToColor(), (Color{10, 11, 12}));
  EXPECT_EQ(color->Value("b").ToText(), "xyz") << "an unknown tag reads like a text";
}

TEST(BinaryDictionaryFormat, StreamIsLeftBehindTheRoot) {
  const std::string bytes = BinaryStringFromDictionary(One("x")) + "rest";
  BinaryStream stream(bytes);
  ASSERT_TRUE(BinaryDictionaryFromStream(stream));
  EXPECT_EQ(stream.Read(4), "rest");
}

TEST(BinaryDictionaryFormat, DamageIsRefused) {
  const std::string good = BinaryStringFromDictionary(One(One("deep")));
  for (std::size_t length = 0; length < good.size(); ++length) {
    EXPECT_FALSE(BinaryDictionaryFromString(good.substr(0, length))) << length;
  }
  EXPECT_FALSE(BinaryDictionaryFromString("bdicvlow" + good.substr(8)));
  EXPECT_FALSE(BinaryDictionaryFromString(kHead + Bytes("02 01 00 00 00"))) << "root is a number";
  EXPECT_FALSE(BinaryDictionaryFromString(kHead + Bytes("12 FF FF FF FF"))) << "lying count";
  EXPECT_FALSE(BinaryDictionaryFromString("bdicvlox" + Bytes("FF FF FF FF") + "Root"));

  std::string nested = kHead;
  for (int i = 0; i < 10000; ++i) nested += Bytes("12 01 00 00 00 00 00 00 00");
  EXPECT_FALSE(BinaryDictionaryFromString(nested + Bytes("00")));
  Dictionary deep;
  for (int i = 0; i < 500; ++i) deep = One(deep);
  EXPECT_TRUE(BinaryDictionaryFromString(BinaryStringFromDictionary(deep)))
      << "what is written can be read";
}

TEST(BinaryDictionaryFormat, Files) {
  TemporaryFolder folder;
  const FolderItem file = folder.Child("items.sbit");
  EXPECT_EQ(OpenAsBinaryDictionary(file)->Count(), 0) << "a missing file is an empty start";
  EXPECT_TRUE(
      SaveAsBinaryDictionary(file, One(1), &InternalFileTypes::BrivolantPhotosSidebarItems));
  EXPECT_TRUE(SaveAsBinaryDictionary(file, One(2), nullptr));
  EXPECT_EQ(OpenAsBinaryDictionary(file)->Value("a").ToInt(), 2);
  EXPECT_FALSE(OpenAsBinaryDictionary(folder.Write("bad", "no")));
  EXPECT_FALSE(SaveAsBinaryDictionary(FolderItem("/proc/none/x"), One(1), nullptr));
}

TEST(IFFDataFormat, BytesAndRoundTrip) {
  EXPECT_EQ(IFFData().Data(), Bytes("08 00 00 00 01 00 00 00"));
  IFFData one;
  one.Add(7, "abc");
  EXPECT_EQ(one.Data(), Bytes("11 00 00 00 01 00 01 00 07 00 03 00 00 00") + "abc");

  IFFData data;
  data.Add(65537, "low bits stay");
  data.Add(7, "");
  data.Add(7, std::string("\0\xFF\0", 3));
  data.Add(2, 1.25);
  IFFData back;
  ASSERT_TRUE(back.Data(std::string_view(data.Data()).substr(4)));
  ASSERT_EQ(back.Count(), 4);
  EXPECT_EQ(back.ID(0), 1);
  EXPECT_EQ(back.Value(1).ToText(), "");
  EXPECT_EQ(back.Value(2).ToText(), std::string("\0\xFF\0", 3));
  EXPECT_EQ(back.Value(3).ToText(), "1.25");
  ASSERT_TRUE(back.Data(std::string_view(one.Data()).substr(4)));
  EXPECT_EQ(back.Count(), 5) << "an assignment appends";

  for (const char* bad : {"", "01 00 01 00", "01 00 01 00 07 00 FF FF FF FF 61", "01 00 FF FF"}) {
    EXPECT_FALSE(IFFData().Data(Bytes(bad))) << bad;
  }
}

TEST(ImageFileNames, ExtensionsAndFormats) {
  struct Case {
    const char* name;
    const char* type;
    const char* result;
  };
  for (const Case& c :
       {Case{"trip.2009.png", "public.jpeg", "trip.jpg"}, Case{"A.JPG", "public.jpeg", "A.JPG"},
        Case{"a", "public.tiff", "a.tif"}, Case{"a.jpg", "unknown", "a.jpg"}}) {
    EXPECT_EQ(
        ImageFile::attachFileExtension(FolderItem(std::string("/p/") + c.name), c.type).Name(),
        c.result);
  }
  struct Format {
    const char* name;
    const char* type;
  };
  for (const Format& f :
       {Format{"a.jpeg", "public.jpeg"}, Format{"a.JPE", "public.jpeg"},
        Format{"a.jp2", "public.jpeg-2000"}, Format{"a.tiff", "public.tiff"},
        Format{"a.pic", "com.apple.pict"}, Format{"a.bmp", "com.microsoft.bmp"},
        Format{"a.psd", "com.adobe.photoshop-image"}, Format{"a.tga", "com.truevision.tga-image"},
        Format{"noextension", "com.apple.pict"}}) {
    ImageFile file;
    file.Folderitem = FolderItem(std::string("/p/") + f.name);
    file.SetFormatFromFile();
    EXPECT_EQ(file.FileType, f.type) << f.name;
  }
  ImageFile file;
  EXPECT_EQ(file.Count(), -1);
  EXPECT_FALSE(file.Save());
  EXPECT_EQ(file.LastError, "No Images");
  file.AddPicture({});
  EXPECT_EQ(file.Count(), -1);
  file.AddPicture(TestPicture(2, 2));
  EXPECT_FALSE(file.Save());
  EXPECT_EQ(file.LastError, "No File To Save To");
  EXPECT_EQ(file.DisplayFileType(), "PICT image");
  EXPECT_EQ(ImagesWritableMac::All().substr(0, 28), "JPEG image;JPEG 2000 image;W");
  EXPECT_EQ(ImageIO::FirstExtension(ImagesWritableMac::Jpeg), "jpg");
}

TEST(FileTypes, OfPhotosAreThoseThatTheCodecsRead) {
  const std::string list = ReadableExtensions();
  std::set<std::string, std::less<>> extensions;
  for (const std::string_view extension : Split(list, ';')) {
    EXPECT_TRUE(extensions.emplace(extension).second) << extension << " stands there twice";
  }
  const auto holds = [&](const auto& all) {
    for (const std::string_view extension : all) {
      EXPECT_TRUE(extensions.contains(extension)) << extension;
    }
  };
  holds(kRawExtensions);
  holds(std::array{"jpg", "jpeg", "png", "tif", "tiff", "heic", "avif", "webp", "jp2", "psd", "gif",
                   "bmp", "jxl", "exr", "cr3", "arw"});
  std::string raw;
  for (const FileType& type : ImagesReadableMac::Types()) {
    if (type.Name.English == std::string_view("Raw Images")) raw = type.Extensions;
  }
  EXPECT_THAT(Split(raw, ';'), testing::ElementsAreArray(kRawExtensions));
}

// What the desktop offers this program for, and what the browser takes for a photo.
TEST(FileTypes, OfTheDesktopAreThoseThatTheCodecsRead) {
  const auto text = [](const char* name) {
    std::ifstream file(std::string(BRIVOLANT_LINUX "/") + name);
    return std::string(std::istreambuf_iterator<char>(file), {});
  };
  const std::string desktop = text("brivolant-photos.desktop");
  const std::string own = text("brivolant-photos.xml");
  const QMimeDatabase database;
  for (const std::string_view extension : kRawExtensions) {
    const std::string name = "photo." + std::string(extension);
    EXPECT_TRUE(FolderitemExtensions::NamesPicture(name)) << name;
    const QMimeType type =
        database.mimeTypeForFile(QString::fromStdString(name), QMimeDatabase::MatchExtension);
    const bool known =
        !type.isDefault() && desktop.find(type.name().toStdString() + ";") != std::string::npos;
    EXPECT_TRUE(known || own.find("*." + std::string(extension) + "\"") != std::string::npos)
        << name;
  }
  EXPECT_FALSE(FolderitemExtensions::NamesPicture("dng"));
  EXPECT_FALSE(FolderitemExtensions::NamesPicture("notes.txt"));
}

}  // namespace
}  // namespace brivolant::test
