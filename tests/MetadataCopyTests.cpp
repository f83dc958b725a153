// SPDX-License-Identifier: MIT
// What a photo tells in several places at once, and what of it goes along with a copy.
#include "CommandLine.h"
#include "MetadataWriting.h"
#include "metadata/MetadataCopy.h"
#include "metadata/MetadataFields.h"
#include "metadata/PhotoFacts.h"
#include "metadata/XMPEditor.h"

namespace brivolant::test {
namespace {

TEST_F(Writing, WhatAPhotoTellsGoesAlongWithACopy) {
  for (const bool little : {false, true}) {
    const FolderItem photo = folder.Write(
        "photo.jpg", "\xFF\xD8" +
                         Files::Segment(0xE1, std::string(kExifMark) + WithMakerNote({little})) +
                         Jfif() + Rest());
    Change(photo, {kArtist,
                   {Act::kSet, kTiff, "0112", "6"},
                   {Act::kSet, kGps, "0002", "51 30 26.4"},
                   {Act::kAdd, kIptc, "25", "one"},
                   {Act::kSet, kIptc, "90", "Gotham"},
                   {Act::kSet, kXmp, "tiff:Orientation", "6"},
                   {Act::kSet, kXmp, "xmp:Rating", "3"},
                   {Act::kSet, kXmp, "photoshop:City", "Gotham"},
                   {Act::kSet, kComment, "", "said"}});
    const std::string bare = "\xFF\xD8" + Jfif() + Rest();
    const MetadataCopy::Facts facts{40, 30, 1, "Ours", {}, "\xC2\xA9 Ada", std::string(50, 's')};
    const FolderItem copy = folder.Write("copy.jpg", bare);
    EXPECT_EQ(MetadataCopy(photo, MetadataCopy::Rule::kAll).Into(copy, facts), "");
    auto data = Read(copy);
    EXPECT_EQ(data->LittleEndian, little);
    const auto noteAt = [&](const FolderItem& file) {
      const std::string bytes = Content(file);
      return bytes.find("note of a maker") - bytes.find(kExifMark);
    };
    EXPECT_EQ(noteAt(copy), noteAt(photo)) << "offsets in it count from the structure's begin";
    EXPECT_EQ(data->TIFFData->StringValue("010F"), "Maker");
    EXPECT_EQ(data->TIFFData->StringValue("013B"), "Anna Beispiel");
    EXPECT_EQ(data->TIFFData->StringValue("8298"), "\xC2\xA9 Ada");
    EXPECT_EQ(data->TIFFData->StringValue("0131"), "Ours");
    EXPECT_EQ(NumberOf(data->TIFFData->Value("0112", 1)), 1);
    EXPECT_EQ(data->TIFFData->StringValue("011A"), "72") << "as its JFIF segment says";
    EXPECT_EQ(NumberOf(data->ExifData->Value("A002", 1)), 40);
    EXPECT_EQ(data->GPSData->StringValue("0002"), "[51, 30, 26.4]");
    EXPECT_EQ(data->IPTCData->StringValue("25"), "one");
    EXPECT_EQ(data->IPTCData->StringValue("116"), "\xC2\xA9 Ada");
    EXPECT_EQ(data->JPEGComment, "said");
    EXPECT_EQ(NumberOf(data->Thumbnail->TIFFData->Value("0202", 1)), 50);
    EXPECT_THAT(Content(copy), HasSubstr(std::string(50, 's')));
    XMPProperties properties;
    ASSERT_TRUE(ReadXMP(data->XMP, properties));
    EXPECT_THAT(properties, testing::Contains(testing::Pair("tiff:Orientation", ElementsAre("1"))));
    EXPECT_THAT(properties, testing::Contains(testing::Pair("xmp:Rating", ElementsAre("3"))));
    EXPECT_TRUE(Content(copy).ends_with(Rest()));
    // A TIFF has an order of its own.
    const Files other{!little};
    const FolderItem tiff = folder.Write(
        "copy.tif", other.Header() + other.Directory(8, {{0x0100, 3, 1, other.Number(40, 2)},
                                                         {0x0101, 3, 1, other.Number(30, 2)}}));
    EXPECT_EQ(MetadataCopy(photo, MetadataCopy::Rule::kAll).Into(tiff, facts), "");
    data = Read(tiff);
    EXPECT_EQ(NumberOf(data->TIFFData->Value("0100", 1)), 40);
    EXPECT_EQ(data->ExifData->StringValue("8827"), "200");
    EXPECT_EQ(data->GPSData->StringValue("0002"), "[51, 30, 26.4]");
    EXPECT_EQ(data->IPTCData->StringValue("25"), "one");
    // Without place, and without anything.
    folder.Write("copy.jpg", bare);
    EXPECT_EQ(MetadataCopy(photo, MetadataCopy::Rule::kWithoutPlace).Into(copy, facts), "");
    data = Read(copy);
    EXPECT_EQ(data->GPSData, nullptr);
    EXPECT_EQ(data->ExifData->StringValue("8827"), "200");
    for (const char* gone : {"Gotham", "note of a maker"}) {
      EXPECT_THAT(Content(copy), Not(HasSubstr(gone)));
    }
    folder.Write("copy.jpg", bare);
    EXPECT_EQ(MetadataCopy(photo, MetadataCopy::Rule::kNone).Into(copy, {}), "");
    EXPECT_EQ(Content(copy), bare);
  }
}

TEST_F(Writing, FactsOfAPhotoComeFromWhicheverPlaceTellsThem) {
  const FolderItem file = Jpeg(Jfif());
  Change(file, {{Act::kSet, kXmp, "dc:title", "of XMP"},
                {Act::kSet, kXmp, "dc:creator", "of XMP"},
                {Act::kAdd, kXmp, "dc:subject", "one"},
                {Act::kAdd, kXmp, "dc:subject", "two"},
                {Act::kSet, kXmp, "xmp:CreateDate", "2020-01-02T03:04:05"}});
  PhotoFacts facts = PhotoFacts::Of(file);
  EXPECT_EQ(facts.Title, "of XMP");
  EXPECT_EQ(facts.Creator, "of XMP");
  EXPECT_THAT(facts.Keywords, ElementsAre("one", "two"));
  EXPECT_EQ(facts.Taken, (Date{2020, 1, 2, 3, 4, 5}));
  EXPECT_EQ(facts.Camera + facts.Exposure, "");
  Change(file, {kArtist,
                {Act::kSet, kIptc, "5", "of IPTC"},
                {Act::kAdd, kIptc, "25", "three"},
                {Act::kSet, kTiff, "010F", "NIKON CORPORATION"},
                {Act::kSet, kTiff, "0110", "NIKON D70"},
                {Act::kSet, kExif, "829A", "1/250"},
                {Act::kSet, kExif, "829D", "5.6"},
                {Act::kSet, kExif, "8827", "200"},
                {Act::kSet, kExif, "A434", "A lens"},
                {Act::kSet, kExif, "9003", "2008:10:22 16:28:39"}});
  facts = PhotoFacts::Of(file);
  EXPECT_EQ(facts.Title, "of IPTC");
  EXPECT_EQ(facts.Creator, "Anna Beispiel");
  EXPECT_THAT(facts.Keywords, ElementsAre("three"));
  EXPECT_EQ(facts.Camera, "NIKON D70");
  EXPECT_EQ(facts.Lens, "A lens");
  EXPECT_EQ(facts.Exposure, "1/250 s, f/5.6, ISO 200");
  EXPECT_EQ(facts.Taken, (Date{2008, 10, 22, 16, 28, 39}));
  for (const char* none : {"", "    :  :     :  :  ", "0000:00:00 00:00:00", "2020:13:01 00:00:00",
                           "2020:02:30 00:00:00", "yesterday at noon"}) {
    EXPECT_EQ(DateFromExif(none), std::nullopt) << none;
  }
  EXPECT_EQ(DateFromExif("2020:02:29"), (Date{2020, 2, 29, 0, 0, 0}));
}

TEST_F(Writing, OneValueIsOneTruthInEveryPlaceThatTellsIt) {
  const FolderItem file = Jpeg(Jfif());
  const auto set = [&](MetadataField field, const std::vector<std::string>& texts) {
    const auto changes = ChangesOf(field, texts, *Read(file));
    ASSERT_TRUE(changes);
    Change(file, *changes);
  };
  // Places that say nothing stay silent, but for the field's own.
  set(MetadataField::kCreator, {"Ada"});
  EXPECT_EQ(Read(file)->IPTCData, nullptr);
  Change(file, {{Act::kSet, kIptc, "80", "Anna"},
                {Act::kSet, kTiff, "9C9D", "Anna"},
                {Act::kAdd, kIptc, "25", "old"},
                {Act::kSet, kTiff, "9C9E", "old"},
                {Act::kSet, kIptc, "55", "20000101"},
                {Act::kSet, kIptc, "60", "000000"}});
  set(MetadataField::kCreator, {"Gr\xC3\xA4"
                                "fin"});
  set(MetadataField::kKeywords, {"one", "two"});
  set(MetadataField::kTaken, {"2008-10-22 16:28:39"});
  set(MetadataField::kRating, {"4"});
  const auto data = Read(file);
  XMPProperties xmp;
  ASSERT_TRUE(ReadXMP(data->XMP, xmp));
  const std::string name =
      "Gr\xC3\xA4"
      "fin";
  EXPECT_EQ(data->TIFFData->StringValue("013B"), name);
  EXPECT_EQ(data->TIFFData->StringValue("9C9D"), name);
  EXPECT_EQ(data->IPTCData->StringValue("80"), name);
  EXPECT_THAT(xmp, testing::Contains(testing::Pair("dc:creator", ElementsAre(name))));
  EXPECT_EQ(data->IPTCData->StringValue("25"), "[one, two]");
  EXPECT_EQ(data->TIFFData->StringValue("9C9E"), "one;two");
  EXPECT_THAT(xmp, testing::Contains(testing::Pair("dc:subject", ElementsAre("one", "two"))));
  EXPECT_EQ(data->ExifData->StringValue("9003"), "2008:10:22 16:28:39");
  EXPECT_EQ(data->IPTCData->StringValue("55") + data->IPTCData->StringValue("60"),
            "20081022162839");
  EXPECT_THAT(xmp, testing::Contains(
                       testing::Pair("photoshop:DateCreated", ElementsAre("2008-10-22T16:28:39"))));
  // Also what older programs say in the packet, and Windows in its own way.
  Change(file, {{Act::kSet, kXmp, "tiff:Artist", "old"},
                {Act::kSet, kXmp, "exif:DateTimeOriginal", "2001-01-01T00:00:00"},
                {Act::kSet, kXmp, "MicrosoftPhoto:Rating", "99"},
                {Act::kSet, kTiff, "4749", "99"}});
  set(MetadataField::kCreator, {"Ada", "Ben"});
  set(MetadataField::kTaken, {"2008-10-22 16:28:40"});
  set(MetadataField::kRating, {"2"});
  const auto mirrored = Read(file);
  xmp.clear();
  ASSERT_TRUE(ReadXMP(mirrored->XMP, xmp));
  EXPECT_THAT(xmp, testing::Contains(testing::Pair("tiff:Artist", ElementsAre("Ada; Ben"))));
  EXPECT_THAT(xmp, testing::Contains(
                       testing::Pair("exif:DateTimeOriginal", ElementsAre("2008-10-22T16:28:40"))));
  EXPECT_THAT(xmp, testing::Contains(testing::Pair("MicrosoftPhoto:Rating", ElementsAre("25"))));
  EXPECT_EQ(NumberOf(mirrored->TIFFData->Value("4749", 1)), 25);
  set(MetadataField::kKeywords, {});
  EXPECT_FALSE(Read(file)->IPTCData->hasKey("25"));
  EXPECT_THAT(PhotoFacts::Of(file).Keywords, testing::IsEmpty());
  EXPECT_FALSE(ChangesOf(MetadataField::kTaken, {"2008-13-22 16:28:39"}, *data));
  EXPECT_FALSE(ChangesOf(MetadataField::kRating, {"6"}, *data));
}

TEST_F(Writing, AMomentKeepsItsZoneInEveryPlace) {
  const FolderItem file = Jpeg(Jfif());
  Change(file, {{Act::kSet, kExif, "9003", "2008:10:22 16:28:39"},
                {Act::kSet, kIptc, "55", "20081022"},
                {Act::kSet, kIptc, "60", "162839-0930"},
                {Act::kSet, kXmp, "photoshop:DateCreated", "2008-10-22T16:28:39-09:30"}});
  const auto told = [&] {
    const auto data = Read(file);
    XMPProperties xmp;
    EXPECT_TRUE(ReadXMP(data->XMP, xmp));
    std::string all = data->ExifData->StringValue("9003") + "|" +
                      data->ExifData->StringValue("9011") + "|" + data->IPTCData->StringValue("60");
    for (const auto& [name, texts] : xmp) {
      if (name == "photoshop:DateCreated") all += "|" + texts.front();
    }
    return all;
  };
  const auto set = [&](const std::string& moment) {
    const auto changes = ChangesOf(MetadataField::kTaken, {moment}, *Read(file));
    ASSERT_TRUE(changes);
    Change(file, *changes);
  };
  set("2009-01-02 03:04:05");
  EXPECT_EQ(told(), "2009:01:02 03:04:05|-09:30|030405-0930|2009-01-02T03:04:05-09:30");
  // Exif's own goes before, and a new one changes them all.
  Change(file, {{Act::kSet, kExif, "9011", "+02:00"}});
  set("2009-01-02 03:04:06");
  EXPECT_EQ(told(), "2009:01:02 03:04:06|+02:00|030406+0200|2009-01-02T03:04:06+02:00");
  set("2009-01-02 03:04:07Z");
  EXPECT_EQ(told(), "2009:01:02 03:04:07|+00:00|030407+0000|2009-01-02T03:04:07+00:00");
  EXPECT_FALSE(ChangesOf(MetadataField::kTaken, {"2009-01-02 03:04:05 noon"}, *Read(file)));
  // What is said beside a photo is in the zone that is said there.
  const FolderItem raw = folder.Write("a.dng", Files{true}.Tiff());
  std::string packet;
  ASSERT_TRUE(XMPEditor::Set(packet, "photoshop:DateCreated", {"2020-06-06T09:00:00-07:00"}));
  folder.Write("a.dng.xmp", packet);
  const FolderItem copy = folder.Write("copy.jpg", "\xFF\xD8" + Jfif() + Rest());
  ASSERT_EQ(MetadataCopy(raw, MetadataCopy::Rule::kAll).Into(copy, {40, 30}), "");
  const auto carried = Read(copy);
  EXPECT_EQ(carried->ExifData->StringValue("9003") + carried->ExifData->StringValue("9011"),
            "2020:06:06 09:00:00-07:00");
}

TEST_F(CommandLine, WhatAnotherPhotoTellsStandsInPlaceOfAllThatTheFileTold) {
  std::string error;
  const auto photo = [&](const char* name) {
    ImageFile image;
    image.Folderitem = folder.Child(name);
    image.FileType = std::string(name).ends_with("tif") ? "public.tiff" : "public.jpeg";
    image.AddPicture(TestPicture(60, 40, 1));
    EXPECT_TRUE(image.SaveUnderThisName());
    return Path(name);
  };
  const std::string from = photo("from.jpg");
  ASSERT_EQ(Cli({"metadata", "--set", "TIFF.0110=Model", "--set", "EXIF.A001=1", "--add",
                 "IPTC.105=Headline", from})
                .code,
            0);
  for (const char* name : {"to.jpg", "to.tif"}) {
    const std::string to = photo(name);
    ASSERT_EQ(Cli({"metadata", "--set", "TIFF.013B=Ada", "--set", "EXIF.829A=1/160", "--set",
                   "GPS.0002=51 30 26.4", "--set", "XMP.dc:title=A title", "--add", "IPTC.25=one",
                   "--set", "EXIF.A001=65535", "--set", "XMP.photoshop:ICCProfile=My colors", to})
                  .code,
              0);
    const Picture before = Open(name);
    EXPECT_EQ(Cli({"metadata", "--copy-from", from, to}).err, "");
    const std::string told = Cli({"metadata", to}).out;
    EXPECT_THAT(told, HasSubstr("Device Model: Model"));
    EXPECT_THAT(told, HasSubstr("Headline: Headline"));
    // What describes the pixels, which stay.
    EXPECT_THAT(told, HasSubstr("Color Space: Uncalibrated"));
    EXPECT_THAT(told, HasSubstr("My colors"));
    // Half of two truths would be none.
    EXPECT_THAT(told, Not(testing::ContainsRegex("Ada|1/160|Latitude|A title|Keywords")));
    EXPECT_EQ(LargestDifference(Open(name), before), 0);
  }
  // A document tells what its photo does, and what its owner says of it.
  const std::string package = Path("a.brvPhoto");
  ASSERT_EQ(Cli({"document", "create", from, package}).code, 0);
  EXPECT_THAT(Cli({"metadata", "--json", package}).out, HasSubstr("Headline"));
  EXPECT_EQ(Cli({"metadata", "--copy-from", package, photo("third.jpg")}).err, "");
  EXPECT_THAT(Cli({"metadata", Path("third.jpg")}).out, HasSubstr("Headline: Headline"));
  // What makes no sense is not written.
  for (const char* wrong : {"EXIF.9003=2020:13:45 99:99:99", "rating=9", "position=here"}) {
    EXPECT_EQ(Cli({"metadata", "--set", wrong, from}).code, 1) << wrong;
  }
}

TEST_F(CommandLine, PngAndJpeg2000TellItTooAndOthersSaySo) {
  const std::string photo = Path("told.jpg");
  std::string error;
  ASSERT_TRUE(ImageIO::SaveAsJPEG(FolderItem(photo), TestPicture(300, 200, 1), 1, error));
  ASSERT_EQ(Cli({"metadata", "--set", "EXIF.8827=200", "--set", "TIFF.0112=6", "--set",
                 "GPS.0002=51 30 26.4", "--add", "IPTC.25=only one", "--add", "IPTC.25=and two",
                 "--set", "IPTC.90=Gotham", photo})
                .code,
            0);
  for (const char* name : {"out.png", "out.jp2"}) {
    const std::string out = Path(name);
    ASSERT_EQ(Cli({"metadata", "--set", "title=A title", photo}).code, 0);
    ASSERT_EQ(Cli({"render", photo, "-o", out}).err, "");
    const Picture plain = Open(name);
    const std::string told = Cli({"metadata", out}).out;
    EXPECT_THAT(told, HasSubstr("ISO Speed Ratings: 200"));
    EXPECT_THAT(told, HasSubstr("Latitude: [51, 30, 26.4]"));
    EXPECT_THAT(told, HasSubstr("dc:title: A title"));
    // What has no place in such a file is said by its packet.
    EXPECT_THAT(told, HasSubstr("and two"));
    EXPECT_THAT(told, Not(HasSubstr("90 deg"))) << "it was turned upright";
    // In place of what was there, not beside it, and never harming the picture.
    ASSERT_EQ(Cli({"metadata", "--set", "title=Another", photo}).code, 0);
    ASSERT_EQ(Cli({"metadata", "--copy-from", photo, out}).err, "");
    const std::string again = Cli({"metadata", out}).out;
    EXPECT_THAT(again, HasSubstr("dc:title: Another"));
    EXPECT_EQ(LargestDifference(Open(name), plain), 0);
    // The field's own reader finds it, and nothing to complain about.
    QProcess reader;
    reader.start(QStringLiteral("exiftool"),
                 {QStringLiteral("-validate"), QStringLiteral("-warning"), QStringLiteral("-a"),
                  QStringLiteral("-ISO"), QStringLiteral("-Subject"), QStringLiteral("-City"),
                  QString::fromStdString(out)});
    ASSERT_TRUE(reader.waitForFinished());
    const std::string read = reader.readAllStandardOutput().toStdString();
    EXPECT_THAT(read, HasSubstr(": OK"));
    EXPECT_THAT(read, HasSubstr(": 200"));
    EXPECT_THAT(read, HasSubstr("only one, and two"));
    EXPECT_THAT(read, HasSubstr("Gotham"));
    ASSERT_EQ(Cli({"render", "--metadata", "without-place", photo, "-o", out}).err, "");
    EXPECT_THAT(Cli({"metadata", out}).out, Not(testing::ContainsRegex("Latitude|Gotham")));
  }
  Outcome run = Cli({"render", photo, "-o", Path("out.gif")});
  EXPECT_EQ(run.code, 0);
  EXPECT_THAT(run.err, HasSubstr("\"out.gif\" says nothing"));
  EXPECT_EQ(Cli({"render", "--metadata", "none", photo, "-o", Path("out.gif")}).err, "");
  EXPECT_EQ(Cli({"render", image.ShellPath(), "-o", Path("out.gif")}).err, "");
}

TEST_F(CommandLine, WhatIsRenderedTellsWhatThePhotoTold) {
  const std::string photo = Path("told.jpg");
  std::string error;
  ASSERT_TRUE(ImageIO::SaveAsJPEG(FolderItem(photo), TestPicture(300, 200, 1), 1, error));
  ASSERT_EQ(Cli({"metadata", "--set", "EXIF.8827=200", "--set", "TIFF.0112=6", "--set",
                 "GPS.0002=51 30 26.4", "--add", "IPTC.25=one", photo})
                .code,
            0);
  for (const char* name : {"out.jpg", "out.tif"}) {
    const std::string out = Path(name);
    ASSERT_EQ(Cli({"render", photo, "-o", out}).code, 0);
    const std::string told = Cli({"metadata", out}).out;
    EXPECT_THAT(told, HasSubstr("ISO Speed Ratings: 200"));
    EXPECT_THAT(told, HasSubstr("  Keywords: one\n"));
    EXPECT_THAT(told, HasSubstr("Latitude: [51, 30, 26.4]"));
    EXPECT_THAT(told, Not(HasSubstr("90 deg"))) << "it was turned upright";
    ASSERT_EQ(Cli({"render", "--metadata", "without-place", photo, "-o", out}).code, 0);
    EXPECT_THAT(Cli({"metadata", out}).out, Not(HasSubstr("Latitude")));
    ASSERT_EQ(Cli({"render", "--metadata", "none", photo, "-o", out}).code, 0);
    EXPECT_THAT(Cli({"metadata", out}).out, Not(HasSubstr("ISO")));
    // In place, how it is turned stays.
    ASSERT_EQ(Cli({"metadata", "--copy-from", photo, out}).code, 0);
    EXPECT_THAT(Cli({"metadata", out}).out, HasSubstr("ISO Speed Ratings: 200"));
    EXPECT_THAT(Cli({"metadata", out}).out, Not(HasSubstr("90 deg")));
  }
  EXPECT_EQ(Cli({"metadata", "--copy-from", Path("none.jpg"), Path("out.jpg")}).code, 1);
  folder.Write("nothing.jpg", "nothing");
  const std::string before = Cli({"metadata", Path("out.jpg")}).out;
  EXPECT_EQ(Cli({"metadata", "--copy-from", Path("nothing.jpg"), Path("out.jpg")}).code, 1);
  EXPECT_EQ(Cli({"metadata", Path("out.jpg")}).out, before);
  EXPECT_EQ(Cli({"render", "--metadata", "some", photo, "-o", Path("out.jpg")}).code, 2);
}

}  // namespace
}  // namespace brivolant::test
