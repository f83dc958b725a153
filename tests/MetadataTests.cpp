// SPDX-License-Identifier: MIT
// What photos tell of themselves: the model of tags, and reading.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <limits>

#include "CommandLine.h"
#include "Helpers.h"
#include "MetadataFiles.h"
#include "metadata/ImageMetaData.h"
#include "metadata/MetadataCopy.h"
#include "metadata/MetadataStream.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

using Files = MetadataFiles;

struct Metadata : testing::Test {
  std::unique_ptr<ImageMetaData> Read(const std::string& bytes, const std::string& name = "a.jpg",
                                      bool stopAfterTIFF = false) {
    auto data = std::make_unique<ImageMetaData>();
    data->ReadFile(folder.Write(name, bytes), stopAfterTIFF);
    return data;
  }
  static std::string Jpeg(const std::string& segments) {
    return "\xFF\xD8" + segments + Files::Segment(0xC0, Frame()) + Files::Segment(0xDA, "scan") +
           "\xFF\xE1 chance\xFF\xD9";
  }
  static std::string Frame() {
    return Files::Big(8, 1) + Files::Big(30, 2) + Files::Big(40, 2) + Files::Big(3, 1) +
           std::string(9, '\0');
  }
  TemporaryFolder folder;
};

TEST(Tags, AreListsOfValuesUnderTheirText) {
  TIFFDataObject block;
  EXPECT_EQ(block.TagName("ABCD"), "unknown TagID: \"ABCD\"");
  EXPECT_EQ(block.TagName("013B"), "Artist");
  EXPECT_EQ(NumberOf(block.Lookup("0100", TagValue(7U), 1)), 7);
  for (std::uint32_t i = 1; i <= 7; ++i) block.AddData("0102", kShortType, TagValue(i));
  EXPECT_EQ(block.ValueCount("0102"), 7);
  EXPECT_EQ(block.StringValue("0102"), "[1, 2, 3, 4, 5, 6...]");
  block.Remove("0102", 7);
  EXPECT_EQ(block.StringValue("0102"), "[1, 2, 3, 4, 5, 6...]");
  block.Remove("0102", 1);
  EXPECT_EQ(block.StringValue("0102"), "[2, 3, 4, 5, 6]");
  // What changes comes last.
  block.Value("0102", 2, TagValue(9U));
  EXPECT_EQ(block.StringValue("0102"), "[2, 4, 5, 6, 9]");
  block.Value("013B", 1, TagValue(std::string("Anna")));
  EXPECT_EQ(block.TagType("0112"), kShortType);
  for (int i = 0; i < 5; ++i) block.Remove("0102", 1);
  EXPECT_FALSE(block.hasKey("0102"));
  EXPECT_EQ(block.Count(), 1);
  EXPECT_EQ(block.StringValue("013B"), "Anna") << "it is still found";
  block.Remove("0102", 1);
}

TEST(Tags, ShowWhatTheyMean) {
  EXPECT_EQ(Rational(72, 1).StringValue(), "72");
  EXPECT_EQ(Rational(5, 2).StringValue(), "2.5");
  EXPECT_EQ(Rational(1, 3).StringValue(), ".33");
  EXPECT_EQ(Rational(-1, 3, true).StringValue(), "-.33");
  EXPECT_EQ(Rational(1, 0).Value(), std::numeric_limits<double>::infinity());
  EXPECT_EQ(Rational(1, 0).ToInt(), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(Rational(0, 0).ToInt(), 0);
  struct Case {
    const char* tag;
    int type;
    TagValue value;
    const char* text;
  };
  const auto bytes = [](std::string_view text) { return TagValue(std::string(text)); };
  EXIFDataObject exif;
  for (const Case& c :
       {Case{"829A", 5, Rational(1, 250), ".004 (1/250)"}, Case{"9209", 3, 1U, "Flash Fired"},
        Case{"9209", 3, 25U, "Flash Fired, Auto Mode"}, Case{"9000", 7, bytes("0220"), "2.2"},
        Case{"9101", 7, bytes(std::string_view("\1\2\3\0", 4)), "YCbCr"},
        Case{"9286", 7, bytes(std::string_view("\0\0\0\0\0\0\0\0abc", 11)), "abc"},
        Case{"9286", 7, bytes(std::string_view("UNICODE\0\0g\0r\0\xFC", 14)), "gr\xC3\xBC"},
        Case{"9286", 7, bytes("neither"), "Unknown 6E656974686572"},
        Case{"9208", 3, 5U, "Unknown 05"}, Case{"A001", 3, 7U, "Other (7)"},
        Case{"9286", 7, bytes(std::string_view("JIS\0\0\0\0\0\x93\xFA\x96\x7B", 12)),
             "\xE6\x97\xA5\xE6\x9C\xAC"},
        Case{"920A", 5, Rational(50, 1), "50 mm"}}) {
    exif.AddData(c.tag, c.type, c.value);
    EXPECT_EQ(exif.StringValue(c.tag, c.value), c.text) << c.tag;
  }
  TIFFDataObject tiff;
  for (const Case& c :
       {Case{"0103", 3, 8U, "Unknown compression (8)"},
        Case{"00FE", 4, 0U, "High Resolution Version"}, Case{"02BC", 1, bytes("<x/>"), "True"},
        Case{"9C9B", 1, bytes(std::string_view("T\0\xFC\0\0\0", 6)), "T\xC3\xBC"},
        Case{"013B", 2, bytes("J\xFCrgen \x96"), "J\xC3\xBCrgen \xE2\x80\x93"}}) {
    tiff.AddData(c.tag, c.type, c.value);
    EXPECT_EQ(tiff.StringValue(c.tag, c.value), c.text) << c.tag;
  }
  GPSDataObject gps;
  gps.AddData("0000", 1, bytes(std::string_view("\2\2\0\0", 4)));
  gps.AddData("0010", 2, bytes("m"));
  EXPECT_EQ(gps.StringValue("0000"), "2.2.0.0");
  EXPECT_EQ(gps.StringValue("0010"), "Magnetic direction");
  EXPECT_EQ(PhotoshopDataObject::convertQualityToInteger(std::string_view("\xFF\xFD", 2)), 1);
  EXPECT_EQ(PhotoshopDataObject::convertQualityToInteger(std::string_view("\0\x08", 2)), 12);
}

TEST_F(Metadata, OfATiffInBothByteOrders) {
  for (const bool little : {false, true}) {
    const auto data = Read(Files{little}.Tiff(), "a.tif");
    EXPECT_EQ(data->ErrorID, -1);
    EXPECT_EQ(data->TIFFData->StringValue("013B"), "J\xC3\xBCrgen");
    EXPECT_EQ(data->TIFFData->StringValue("0112"), "90 deg CCW");
    EXPECT_FALSE(data->TIFFData->hasKey("8769")) << "what leads on is no value";
    EXPECT_EQ(data->ImageSummary->DPI, 245);
    EXPECT_EQ(data->ImageSummary->FileFormat, "TIFF");
    EXPECT_EQ(data->ExifData->StringValue("829A"), ".004 (1/250)");
    EXPECT_EQ(data->ExifData->StringValue("9204"), "-.33");
    EXPECT_EQ(NumberOf(data->ExifData->Value("920A", 1)), 50) << "DOUBLE";
    EXPECT_EQ(data->GPSData->StringValue("0002"), "[51, 30, 26.4]");
    EXPECT_EQ(data->Thumbnail->TIFFData->StringValue("0103"), "JPEG");
  }
}

TEST_F(Metadata, OfAJpegAndNothingBehindItsScan) {
  const std::string exif = std::string("Exif\0\0", 6) + Files{true}.Tiff();
  const std::string iptc = Files::Dataset(1, 90, "\x1B%G") + Files::Dataset(2, 0, "\0\2") +
                           Files::Dataset(2, 25, "one") +
                           Files::Dataset(2, 25,
                                          "Gr\xC3\xBC\xC3\x9F"
                                          "e") +
                           Files::Dataset(2, 120, std::string(200, 'c')).substr(0, 40);
  const std::string mark("Photoshop 3.0\0", 14);
  const std::string resources =
      Files::Resource(0x0404, iptc) + Files::Resource(0x0406, std::string("\0\x08\0\0\1", 5));
  const std::string xmp =
      std::string("http://ns.adobe.com/xap/1.0/\0", 29) +
      "<?xpacket begin=''?><x:xmpmeta xmlns:x='adobe:ns:meta/'><rdf:RDF "
      "xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'><rdf:Description rdf:about='' "
      "xmlns:dc='http://purl.org/dc/elements/1.1/' xmlns:xmp='http://ns.adobe.com/xap/1.0/' "
      "xmp:Rating='4'><dc:subject><rdf:Bag><rdf:li>one</rdf:li><rdf:li>two</rdf:li></rdf:Bag>"
      "</dc:subject></rdf:Description></rdf:RDF></x:xmpmeta><?xpacket end='w'?>";
  std::string profile(128, '\0');
  profile.replace(16, 4, "RGB ");
  profile.replace(24, 12,
                  Files::Big(2009, 2) + Files::Big(3, 2) + Files::Big(4, 2) + Files::Big(5, 2) +
                      Files::Big(6, 2) + Files::Big(7, 2));
  profile += Files::Big(1, 4) + "cprt" + Files::Big(144, 4) + Files::Big(11, 4);
  profile += std::string("text\0\0\0\0", 8) + "fre";
  const auto part = [&](int number, std::size_t from, std::size_t length) {
    return Files::Segment(0xE2, std::string("ICC_PROFILE\0", 12) + static_cast<char>(number) +
                                    '\3' + profile.substr(from, length));
  };
  const std::string jpeg =
      Jpeg(Files::Segment(0xE0, std::string("JFIF\0\1\2\1\0\x48\0\x48\0\0", 14)) +
           Files::Segment(0xE1, exif) + Files::Segment(0xE1, xmp) +
           // Resources that go on in the next segment, parts of a profile out of order.
           Files::Segment(0xED, mark + resources.substr(0, 50)) +
           Files::Segment(0xED, mark + resources.substr(50)) + part(2, 50, 50) + part(1, 0, 50) +
           part(3, 100, 100) + "\xFF" + Files::Segment(0xFE, "a comment"));
  const auto data = Read(jpeg);
  EXPECT_EQ(data->ErrorID, -1);
  EXPECT_EQ(data->ImageSummary->Width, 40U);
  EXPECT_EQ(data->ImageSummary->Height, 30U);
  EXPECT_EQ(data->ImageSummary->ColorSpace, "RGB");
  EXPECT_EQ(data->ImageSummary->DPI, 72);
  EXPECT_EQ(data->JFIFData->Version, 1);
  EXPECT_EQ(data->ExifData->StringValue("8827"), "200");
  EXPECT_EQ(data->IPTCData->StringValue("25"),
            "[one, Gr\xC3\xBC\xC3\x9F"
            "e]");
  EXPECT_EQ(data->IPTCData->StringValue("120"), std::string(35, 'c')) << "what there is of it";
  EXPECT_FALSE(data->IPTCData->hasKey("90")) << "another record";
  EXPECT_EQ(data->IPTCData->OtherRecords().size(), 2U);
  EXPECT_EQ(data->Photoshop->StringValue("0406"), "12 (Maximum)");
  EXPECT_EQ(data->ColorProfile->RawData, profile);
  EXPECT_EQ(data->ColorProfile->CreatedDate, (Date{2009, 3, 4, 5, 6, 7}));
  EXPECT_EQ(data->ColorProfile->StringValue("cprt"), "fre");
  EXPECT_EQ(data->JPEGComment, "a comment");
  XMPProperties properties;
  ASSERT_TRUE(ReadXMP(data->XMP, properties));
  ASSERT_EQ(properties.size(), 2U);
  EXPECT_EQ(properties[0].first, "xmp:Rating");
  EXPECT_THAT(properties[1].second, ElementsAre("one", "two"));
  // Whoever wants the camera's data alone gets no more.
  const auto quick = Read(jpeg, "b.jpg", true);
  EXPECT_NE(quick->ExifData, nullptr);
  EXPECT_EQ(quick->IPTCData, nullptr);
}

TEST_F(Metadata, OfAPhotoshopFile) {
  const std::string head = "8BPS" + Files::Big(1, 2) + std::string(6, '\0') + Files::Big(3, 2) +
                           Files::Big(30, 4) + Files::Big(40, 4) + Files::Big(8, 2) +
                           Files::Big(4, 2) + Files::Big(0, 4);
  const std::string resources = Files::Resource(0x0422, Files{}.Tiff()) +
                                Files::Resource(0x0404, Files::Dataset(2, 5, "Title")) +
                                Files::Resource(0x040A, "\1");
  const auto data = Read(head + Files::Big(resources.size(), 4) + resources, "a.psd");
  EXPECT_EQ(data->ImageSummary->FileFormat, "Photoshop");
  EXPECT_EQ(data->ImageSummary->ColorSpace, "CMYK");
  EXPECT_EQ(data->ImageSummary->Width, 40U);
  EXPECT_EQ(data->ExifData->StringValue("8827"), "200") << "offsets count from the resource";
  EXPECT_EQ(data->IPTCData->StringValue("5"), "Title");
  EXPECT_EQ(data->Photoshop->StringValue("040A"), "True");
}

TEST_F(Metadata, WhatIsDamagedOrLeadsInCirclesIsReadAsFarAsItGoes) {
  EXPECT_EQ(Read("", "empty.jpg")->ErrorMessage, "File is empty.");
  EXPECT_EQ(Read("plain text", "a.txt")->ErrorMessage, "Unable to understand the data");
  ImageMetaData missing;
  missing.ReadFile(folder.Child("none.jpg"));
  EXPECT_EQ(missing.ErrorMessage, "Unable to read file.");

  // Every truncation of each kind.
  const std::string tiff = Files{true}.Tiff();
  const std::string jpeg = Jpeg(Files::Segment(0xE1, std::string("Exif\0\0", 6) + Files{}.Tiff()));
  const std::string resources = Files::Resource(0x0422, Files{}.Tiff()) +
                                Files::Resource(0x0404, Files::Dataset(2, 5, "Title"));
  const std::string layers = "8BPS" + Files::Big(1, 2) + std::string(6, '\0') + Files::Big(3, 2) +
                             Files::Big(30, 4) + Files::Big(40, 4) + Files::Big(8, 2) +
                             Files::Big(4, 2) + Files::Big(0, 4) + Files::Big(resources.size(), 4) +
                             resources;
  for (const std::string& whole : {tiff, jpeg, layers}) {
    for (std::size_t length = 1; length < whole.size(); ++length) {
      (void)Read(whole.substr(0, length), "cut");
    }
  }
  // Those that a codec reads, with data of our own in them.
  for (const char* name : {"out.png", "out.jp2"}) {
    ImageFile image;
    image.Folderitem = folder.Child(name);
    image.FileType = std::string(name).ends_with("png") ? "public.png" : "public.jpeg-2000";
    image.AddPicture(TestPicture(4, 3));
    ASSERT_TRUE(image.SaveUnderThisName());
    const FolderItem photo = folder.Write("told.jpg", jpeg);
    ASSERT_EQ(MetadataCopy(photo, MetadataCopy::Rule::kAll).Into(image.Folderitem, {4, 3}), "");
    const std::string whole = ReadFile(image.Folderitem).value();
    EXPECT_NE(Read(whole, name)->ExifData, nullptr);
    for (std::size_t length = 1; length < whole.size(); length += 3) {
      (void)Read(whole.substr(0, length), std::string("cut-") + name);
    }
  }

  // The first directory is its own thumbnail's, and the Exif one leads back to it.
  const Files files;
  const auto link = [&](int tag, std::uint32_t to) {
    return Files::Tag{tag, 4, 1, files.Number(to, 4)};
  };
  std::string circle = files.Header() + files.Directory(8, {link(0x8769, 60)}, 8);
  circle.resize(60);
  circle += files.Directory(
      60, {link(0xA005, 8), link(0x8769, 60), {0x8827, 3, 1, files.Number(100, 2)}});
  const auto data = Read(circle, "circle.tif");
  EXPECT_NE(data->ExifData, nullptr);
  EXPECT_EQ(data->ErrorID, -1);

  // Counts and offsets beyond the file, a directory that cannot be, a type that nobody names.
  const auto far = Read(files.Header() + files.Directory(8, {{0x010F, 2, 0xFFFFFFFF, "far away"},
                                                             {0x0110, 12, 0x20000000, "more"},
                                                             {0x0112, 3, 1, files.Number(6, 2)},
                                                             {0x0131, 99, 1, "x"},
                                                             {0x013B, 2, 2, "B"}}),
                        "far.tif");
  ASSERT_NE(far->TIFFData, nullptr);
  EXPECT_EQ(far->TIFFData->Count(), 1);
  EXPECT_EQ(far->TIFFData->StringValue("0112"), "90 deg CCW");
  EXPECT_THAT(far->StringResult, HasSubstr("99"));
  (void)Read(files.Header() + files.Number(0xFFFF, 2), "many.tif");

  // Numbers of a type that nobody expects there, beyond all bounds.
  const auto real = [&](int tag, std::uint64_t bits) {
    return Files::Tag{tag, 12, 1, files.Number(bits, 8)};
  };
  constexpr std::uint64_t kHuge = 0x7E37E43C8800759C;
  constexpr std::uint64_t kNegative = 0xFE37E43C8800759C;
  constexpr std::uint64_t kNone = 0x7FF8000000000000;
  const auto odd =
      Read(files.Header() + files.Directory(8, {real(0x0100, kHuge), real(0x0101, kNegative),
                                                real(0x0102, kNone), real(0x0112, kHuge),
                                                real(0x8769, kNegative)}),
           "odd.tif");
  EXPECT_EQ(odd->ImageSummary->Width, 0xFFFFFFFFU);
  EXPECT_EQ(odd->ImageSummary->Height, 0U);
  EXPECT_EQ(odd->ImageSummary->Depth, 0);
  EXPECT_EQ(odd->TIFFData->StringValue("0112").find("deg"), std::string::npos);
  EXPECT_EQ(odd->ExifData, nullptr);
}

TEST_F(Metadata, TextsWithoutAnEncodingAreReadAsWhoeverWroteThemMeant) {
  const auto comment = [&](const std::string& bytes) {
    return Read(Jpeg(Files::Segment(0xFE, bytes)))->JPEGComment;
  };
  EXPECT_EQ(comment("Gr\xC3\xBC\xC3\x9F"
                    "e"),
            "Gr\xC3\xBC\xC3\x9F"
            "e");
  EXPECT_EQ(comment("Gr\x9F\xA7"
                    "e \xD2\xA9\xD3"),
            "Gr\xC3\xBC\xC3\x9F"
            "e \xE2\x80\x9C\xC2\xA9\xE2\x80\x9D")
      << "of an older Mac";
  const Files files;
  const auto artist =
      Read(files.Header() + files.Directory(8, {{0x013B, 2, 6, std::string("Gr\xFC\xDF e\0", 7)}}),
           "a.tif");
  EXPECT_THAT(artist->TIFFData->StringValue("013B"), HasSubstr("Gr\xC3\xBC\xC3\x9F"))
      << "of Windows";
}

TEST_F(CommandLine, MetadataIsPrintedForPeopleAndPrograms) {
  const std::string photo = Path("photo.tif");
  folder.Write("photo.tif", MetadataFiles{true}.Tiff());
  const Outcome shown = Cli({"metadata", photo});
  EXPECT_EQ(shown.code, 0);
  EXPECT_THAT(shown.out, HasSubstr("  Artist: J\xC3\xBCrgen\n"));
  EXPECT_THAT(shown.out, HasSubstr("  Exposure Time: .004 (1/250)\n"));
  const Outcome run = Cli({"metadata", "--json", photo, Path("none.jpg")});
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.err, HasSubstr("none.jpg"));
  const QJsonArray all = QJsonDocument::fromJson(QByteArray::fromStdString(run.out)).array();
  ASSERT_EQ(all.size(), 2);
  EXPECT_TRUE(all[0][QStringLiteral("error")].isNull());
  const QJsonObject blocks = all[0][QStringLiteral("blocks")].toObject();
  const QJsonObject exposure = blocks[QStringLiteral("EXIF")].toArray()[0].toObject();
  EXPECT_EQ(exposure[QStringLiteral("tag")].toString(), QStringLiteral("829A"));
  EXPECT_EQ(exposure[QStringLiteral("type")].toInt(), 5);
  EXPECT_EQ(exposure[QStringLiteral("values")].toArray(), (QJsonArray{QJsonArray{1, 250}}));
  EXPECT_FALSE(all[1][QStringLiteral("error")].isNull());
}

}  // namespace
}  // namespace brivolant::test
