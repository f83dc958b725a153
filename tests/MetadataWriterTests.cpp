// SPDX-License-Identifier: MIT
// Metadata written into files: what was asked for is there, and all else is as it was.
#include <sys/stat.h>

#include <QCryptographicHash>
#include <QProcess>
#include <QStandardPaths>

#include "CommandLine.h"
#include "MetadataWriting.h"
#include "metadata/MetadataCopy.h"
#include "metadata/PhotoFacts.h"
#include "metadata/XMPEditor.h"

namespace brivolant::test {
namespace {

TEST_F(Writing, MakesWhatAJpegDoesNotHoldYet) {
  const FolderItem file =
      Jpeg(Jfif() + Files::Segment(0xFE, "early") + Files::Segment(0xFE, "late"));
  ASSERT_EQ(chmod(file.Path().c_str(), 0640), 0);
  Change(file, {kArtist,
                {Act::kAdd, kIptc, "25",
                 "Gr\xC3\xBC\xC3\x9F"
                 "e"},
                {Act::kAdd, kIptc, "25", "two"},
                {Act::kSet, kXmp, "dc:title", "A <title> & more"},
                {Act::kSet, kExif, "829A", "1/250"},
                {Act::kSet, kExif, "9003", "2024-03-01 10:30:00"},
                {Act::kSet, kExif, "9286", "\xC3\xBC"},
                {Act::kSet, kGps, "0002", "51 30 26.4"},
                {Act::kSet, kComment, "", "said"}});
  const auto data = Read(file);
  EXPECT_FALSE(data->LittleEndian);
  EXPECT_EQ(data->TIFFData->StringValue("013B"), "Anna Beispiel");
  EXPECT_EQ(data->TIFFData->StringValue("011A"), "72") << "what the standard wants beside it";
  EXPECT_EQ(data->ExifData->StringValue("829A"), ".004 (1/250)");
  EXPECT_EQ(data->ExifData->StringValue("9003"), "2024:03:01 10:30:00");
  EXPECT_EQ(data->ExifData->StringValue("9286"), "\xC3\xBC");
  EXPECT_EQ(data->GPSData->StringValue("0002"), "[51, 30, 26.4]");
  EXPECT_EQ(data->GPSData->StringValue("0001"), "N") << "degrees mean nothing without it";
  EXPECT_EQ(data->IPTCData->StringValue("25"),
            "[Gr\xC3\xBC\xC3\x9F"
            "e, two]");
  ASSERT_EQ(data->IPTCData->OtherRecords().size(), 1U + 1U);
  EXPECT_EQ(data->IPTCData->OtherRecords()[0].Bytes, "\x1B%G");
  EXPECT_EQ(data->JPEGComment, "said");
  XMPProperties properties;
  ASSERT_TRUE(ReadXMP(data->XMP, properties));
  EXPECT_THAT(properties[0].second, ElementsAre("A <title> & more"));
  const std::string bytes = Content(file);
  EXPECT_TRUE(bytes.starts_with("\xFF\xD8" + Jfif() + "\xFF\xE1")) << "JFIF first, then Exif";
  EXPECT_TRUE(bytes.ends_with(Rest()));
  EXPECT_THAT(bytes, HasSubstr("early"));
  EXPECT_THAT(bytes, Not(HasSubstr("late")));
  struct stat status {};
  ASSERT_EQ(stat(file.Path().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0640U);
  EXPECT_THAT(folder.Names(), ElementsAre("a.jpg"));
  // A witness from outside.
  const QString tool = QStandardPaths::findExecutable(QStringLiteral("exiftool"));
  ASSERT_FALSE(tool.isEmpty());
  QProcess process;
  process.start(tool, {QStringLiteral("-s3"), QStringLiteral("-charset"), QStringLiteral("utf8"),
                       QStringLiteral("-warning"), QStringLiteral("-validate"),
                       QStringLiteral("-IFD0:Artist"), QStringLiteral("-Keywords"),
                       QStringLiteral("-XMP-dc:Title"), QStringLiteral("-GPSLatitude"),
                       QString::fromStdString(file.ShellPath())});
  ASSERT_TRUE(process.waitForFinished());
  EXPECT_THAT(process.readAllStandardOutput().toStdString(),
              testing::EndsWith("Anna Beispiel\nGr\xC3\xBC\xC3\x9F"
                                "e, two\nA <title> & more\n"
                                "51 deg 30' 26.40\" N\n"));
}

TEST_F(Writing, LeavesMakerNotesWhereTheyAreAndDoesNotGrowEveryDay) {
  for (const bool little : {false, true}) {
    const FolderItem file =
        Jpeg(Files::Segment(0xE1, std::string(kExifMark) + WithMakerNote({little})) + Jfif());
    const auto noteAt = [&] { return Content(file).find("note of a maker"); };
    const std::size_t before = noteAt();
    std::vector<std::size_t> sizes;
    for (int i = 0; i < 40; ++i) {
      Change(file, {{Act::kSet, kTiff, "013B", std::string("Anna ") + std::string(i % 7, 'x')},
                    {Act::kSet, kExif, "A434", "A lens " + std::string(i % 5, 'y')}});
      sizes.push_back(Content(file).size());
    }
    EXPECT_EQ(noteAt(), before);
    const auto data = Read(file);
    EXPECT_EQ(data->LittleEndian, little);
    EXPECT_EQ(data->ExifData->StringValue("8827"), "200");
    EXPECT_EQ(data->Thumbnail->TIFFData->StringValue("0202"), "30");
    EXPECT_THAT(Content(file), HasSubstr(std::string(30, 't')));
    EXPECT_LE(*std::max_element(sizes.begin() + 20, sizes.end()),
              *std::max_element(sizes.begin(), sizes.begin() + 20));
    // What was taken out is gone from the bytes too.
    Change(file, {{Act::kRemove, kTiff, "013B"}, {Act::kRemove, kTiff, "010F"}});
    EXPECT_THAT(Content(file), Not(HasSubstr("Anna")));
    EXPECT_THAT(Content(file), Not(HasSubstr("Maker")));
    EXPECT_EQ(noteAt(), before);
  }
}

TEST_F(Writing, KeepsPixelsPagesAndSharedValuesOfATiff) {
  const Files files{true};
  // Two pages; both resolutions of the first share their eight bytes, as some programs write it.
  constexpr std::uint32_t kPixels = 8;
  constexpr std::uint32_t kFirstAt = 60;
  constexpr std::uint32_t kSecondAt = 200;
  std::string bytes = "II" + files.Number(42, 2) + files.Number(kFirstAt, 4) + "the pixels";
  bytes.resize(kFirstAt);
  const std::string shared = files.Number(300, 4) + files.Number(1, 4);
  bytes += files.Directory(kFirstAt,
                           {{0x0100, 3, 1, files.Number(5, 2)},
                            {0x0101, 3, 1, files.Number(2, 2)},
                            {0x0111, 4, 1, files.Number(kPixels, 4)},
                            {0x0117, 4, 1, files.Number(10, 4)},
                            {0x011A, 5, 1, shared},
                            {0x011B, 5, 1, shared}},
                           kSecondAt);
  // Both lead to the first of the two.
  bytes.replace(kFirstAt + 2 + 12 * 5 + 8, 4, bytes.substr(kFirstAt + 2 + 12 * 4 + 8, 4));
  bytes.resize(kSecondAt);
  bytes += files.Directory(kSecondAt, {{0x0100, 3, 1, files.Number(7, 2)},
                                       {0x013B, 2, 12, std::string("second page\0", 12)}});
  const FolderItem file = folder.Write("a.tif", bytes);
  Change(file, {kArtist,
                {Act::kSet, kTiff, "011A", "150/1"},
                {Act::kAdd, kIptc, "25", "one"},
                {Act::kSet, kXmp, "xmp:Rating", "4"}});
  auto data = Read(file);
  EXPECT_EQ(data->TIFFData->StringValue("013B"), "Anna Beispiel");
  EXPECT_EQ(data->TIFFData->StringValue("011A"), "150");
  EXPECT_EQ(data->TIFFData->StringValue("011B"), "300") << "another's value";
  EXPECT_EQ(data->TIFFData->StringValue("0111"), "8");
  EXPECT_EQ(data->Thumbnail->TIFFData->StringValue("013B"), "second page");
  EXPECT_EQ(data->IPTCData->StringValue("25"), "one");
  EXPECT_THAT(data->XMP, HasSubstr("Rating"));
  EXPECT_EQ(Content(file).substr(kPixels, 10), "the pixels");
  EXPECT_EQ(Content(file).substr(kSecondAt, 30), bytes.substr(kSecondAt, 30));
  EXPECT_EQ(MetadataWriter::Write(file, MetadataWriter::Strip::kAll), "");
  data = Read(file);
  EXPECT_THAT(Content(file), Not(HasSubstr("Anna")));
  EXPECT_THAT(Content(file), Not(HasSubstr("Rating")));
  EXPECT_EQ(data->IPTCData, nullptr);
  EXPECT_EQ(data->TIFFData->StringValue("0111"), "8");
  EXPECT_EQ(data->TIFFData->StringValue("011B"), "300");
}

TEST_F(Writing, KeepsOtherResourcesAndRecords) {
  const std::string old = Files::Dataset(1, 0, std::string("\0\4", 2)) +
                          Files::Dataset(2, 0, std::string("\0\2", 2)) +
                          Files::Dataset(2, 25,
                                         "Gr\xFC\xDF"
                                         "e") +
                          Files::Dataset(2, 80, "plain") + Files::Dataset(3, 10, "raw");
  const std::string resources = Files::Resource(0x0404, old) +
                                Files::Resource(0x0406, std::string("\0\x08\0\0\1", 5)) +
                                Files::Resource(0x0425, std::string(16, 'd')) +
                                Files::Resource(0x0FA0, std::string(70000, 'r'));
  std::string photoshop = "8BPS" + Files::Big(1, 2) + std::string(6, '\0') + Files::Big(3, 2) +
                          Files::Big(30, 4) + Files::Big(40, 4) + Files::Big(8, 2) +
                          Files::Big(3, 2) + Files::Big(0, 4) + Files::Big(resources.size(), 4) +
                          resources + Files::Big(0, 4) + "layers and pixels";
  std::string jpeg = Jfif();
  for (std::size_t at = 0; at < resources.size(); at += 65000) {
    jpeg += Files::Segment(0xED, std::string(kPhotoshopMark) + resources.substr(at, 65000));
  }
  for (const FolderItem& file : {folder.Write("a.psd", photoshop), Jpeg(jpeg)}) {
    Change(file,
           {kArtist, {Act::kAdd, kIptc, "25", "two"}, {Act::kSet, kXmp, "dc:creator", "Anna"}});
    const auto data = Read(file);
    EXPECT_EQ(data->TIFFData->StringValue("013B"), "Anna Beispiel");
    EXPECT_EQ(data->IPTCData->StringValue("25"),
              "[Gr\xC3\xBC\xC3\x9F"
              "e, two]");
    EXPECT_EQ(data->IPTCData->StringValue("80"), "plain");
    const auto& others = data->IPTCData->OtherRecords();
    EXPECT_EQ(others.back().Bytes, "raw");
    EXPECT_EQ(BytesOf(data->IPTCData->Value("25", 1)),
              "Gr\xC3\xBC\xC3\x9F"
              "e")
        << "declared as UTF-8";
    EXPECT_EQ(BytesOf(data->Photoshop->Value("0FA0", 1)).size(), 70000U);
    const QByteArray digest = QCryptographicHash::hash(
        QByteArray::fromStdString(data->IPTCData->myRawData), QCryptographicHash::Md5);
    EXPECT_EQ(BytesOf(data->Photoshop->Value("0425", 1)), digest.toStdString());
    EXPECT_EQ(data->ImageSummary->Width, 40U);
    Change(file, {{Act::kRemove, kIptc, "25"}});
    EXPECT_FALSE(Read(file)->IPTCData->hasKey("25"));
    EXPECT_EQ(MetadataWriter::Write(file, MetadataWriter::Strip::kAll), "");
    EXPECT_EQ(Read(file)->IPTCData, nullptr);
    EXPECT_THAT(Content(file), Not(HasSubstr("Anna")));
  }
  EXPECT_TRUE(Content(folder.Child("a.psd")).ends_with("layers and pixels"));
}

TEST_F(Writing, CorrectsWhereOtherPicturesStand) {
  // A block of several pictures: this one, and one behind it, counted from the block's own mark.
  const Files files{true};
  const auto rows = [&](std::uint32_t length, std::uint32_t offset) {
    return files.Number(0x030000, 4) + files.Number(length, 4) + files.Number(0, 8) +
           files.Number(0, 4) + files.Number(5, 4) + files.Number(offset, 4) + files.Number(0, 4);
  };
  const auto block = [&](std::uint32_t length, std::uint32_t offset) {
    return Files::Segment(0xE2, std::string("MPF\0", 4) + files.Header() +
                                    files.Directory(8, {{0xB002, 7, 32, rows(length, offset)}}));
  };
  const std::string first = Jfif() + block(0, 0);
  const std::size_t length = 2 + first.size() + Rest().size();
  const std::size_t mark = 2 + Jfif().size() + 8;
  const FolderItem file = folder.Write(
      "a.jpg",
      "\xFF\xD8" + Jfif() +
          block(static_cast<std::uint32_t>(length), static_cast<std::uint32_t>(length - mark)) +
          Rest() + "\xFF\xD8 second");
  Change(file, {kArtist});
  const std::string bytes = Content(file);
  const std::size_t now = bytes.find("MPF") + 4;
  const std::size_t second = bytes.find("\xFF\xD8 second");
  EXPECT_EQ(bytes.substr(now + 8 + 2 + 12 + 4 + 4, 4), files.Number(second, 4))
      << "this picture has become longer";
  EXPECT_EQ(bytes.substr(now + 8 + 2 + 12 + 4 + 16 + 8, 4), files.Number(second - now, 4));
}

TEST_F(Writing, ChangesOnePropertyOfAPacketAndNoOther) {
  std::string packet =
      "<?xpacket begin='' id='W5M0MpCehiHzreSzNTczkc9d'?>\n<x:xmpmeta xmlns:x='adobe:ns:meta/'>"
      "<r:RDF xmlns:r='http://www.w3.org/1999/02/22-rdf-syntax-ns#'><r:Description r:about='' "
      "xmlns:old='http://ns.adobe.com/xap/1.0/' xmlns:dc='urn:another' "
      "xmlns:d='http://purl.org/dc/elements/1.1/' xmlns:exif='http://ns.adobe.com/exif/1.0/' "
      "old:Rating='2' dc:title='not ours' exif:GPSLatitude='51,30N'><d:title><r:Alt>"
      "<r:li xml:lang='x-default'>one</r:li><r:li xml:lang='de'>eins</r:li></r:Alt></d:title>"
      "</r:Description></r:RDF></x:xmpmeta>\n      \n<?xpacket end='w'?>";
  EXPECT_TRUE(XMPEditor::Set(packet, "xmp:Rating", {"5"}));
  EXPECT_TRUE(XMPEditor::Set(packet, "dc:title", {"two"}));
  EXPECT_TRUE(XMPEditor::Set(packet, "dc:subject", {"a", "b"}));
  EXPECT_FALSE(XMPEditor::Set(packet, "nobody:knows", {"a"}));
  EXPECT_FALSE(XMPEditor::Set(packet, "dc:ti tle", {"a"}));
  XMPProperties properties;
  ASSERT_TRUE(ReadXMP(packet, properties));
  const auto value = [&](std::string_view name) {
    for (const auto& [known, texts] : properties) {
      if (known == name) return texts;
    }
    return std::vector<std::string>();
  };
  EXPECT_THAT(value("xmp:Rating"), ElementsAre("5"));
  EXPECT_TRUE(value("old:Rating").empty()) << "the same property under another prefix";
  EXPECT_THAT(value("dc:title"), ElementsAre("not ours"));
  EXPECT_THAT(value("d:title"), ElementsAre("two", "eins")) << "another language stays";
  EXPECT_THAT(value("bpdc:subject"), ElementsAre("a", "b")) << "the prefix was another's";
  EXPECT_THAT(packet, HasSubstr("\n      \n<?xpacket end='w'?>"));
  EXPECT_TRUE(XMPEditor::RemoveLike(packet, {"GPS"}));
  EXPECT_THAT(packet, Not(HasSubstr("51,30N")));
  std::string none = "no XML <";
  EXPECT_FALSE(XMPEditor::Set(none, "dc:title", {"a"}));
  EXPECT_EQ(none, "no XML <");
}

TEST_F(Writing, PartsAPacketThatIsTooLongForASegment) {
  const auto further = [&](const FolderItem& file) {
    int count = 0;
    const std::string bytes = Content(file);
    for (std::size_t at = 0; (at = bytes.find("/xmp/extension/", at)) != std::string::npos; ++at) {
      ++count;
    }
    return count;
  };
  const auto texts = [&](const FolderItem& file, std::string_view name) {
    XMPProperties properties;
    EXPECT_TRUE(ReadXMP(Read(file)->XMP, properties));
    for (const auto& [known, said] : properties) {
      if (known == name) return said;
    }
    return std::vector<std::string>();
  };
  const FolderItem file = Jpeg(Jfif());
  std::string story;
  for (int i = 0; i < 20000; ++i) story += "word " + std::to_string(i) + (i % 7 == 0 ? " & " : " ");
  Change(file, {{Act::kSet, kXmp, "dc:description", story},
                {Act::kSet, kXmp, "photoshop:City", "Gotham"},
                {Act::kSet, kXmp, "dc:title", "short"}});
  EXPECT_EQ(further(file), static_cast<int>(story.size() / 65400 + 1));
  EXPECT_THAT(texts(file, "dc:description"), ElementsAre(story));
  EXPECT_TRUE(Content(file).ends_with(Rest()));
  // What is changed, or not, is parted anew, and what belongs together stays together.
  Change(file, {{Act::kSet, kXmp, "dc:title", "other"}});
  EXPECT_THAT(texts(file, "dc:description"), ElementsAre(story));
  EXPECT_EQ(MetadataWriter::Write(file, MetadataWriter::Strip::kPlace), "");
  EXPECT_THAT(texts(file, "photoshop:City"), testing::IsEmpty());
  EXPECT_THAT(texts(file, "dc:description"), ElementsAre(story));
  const FolderItem copy = folder.Write("copy.jpg", "\xFF\xD8" + Jfif() + Rest());
  EXPECT_EQ(MetadataCopy(file, MetadataCopy::Rule::kAll).Into(copy, {40, 30}), "");
  EXPECT_THAT(texts(copy, "dc:description"), ElementsAre(story));
  // However often it is changed, nothing is left behind.
  const auto size = Content(file).size();
  for (const char* title : {"one", "two", "six"})
    Change(file, {{Act::kSet, kXmp, "dc:title", title}});
  Change(file, {{Act::kSet, kXmp, "dc:title", "other"}});
  EXPECT_EQ(Content(file).size(), size);
  // A part that is missing says nothing, and stays where it is.
  std::string damaged = Content(file);
  const std::size_t second = damaged.find("/xmp/extension/", damaged.find("/xmp/extension/") + 1);
  damaged[second + 20] ^= 1;
  const FolderItem partly = folder.Write("partly.jpg", damaged);
  EXPECT_THAT(texts(partly, "dc:description"), testing::IsEmpty());
  Change(partly, {{Act::kSet, kXmp, "dc:title", "third"}});
  EXPECT_EQ(further(partly), further(file));
  Change(file, {{Act::kRemove, kXmp, "dc:description"}});
  EXPECT_EQ(further(file), 0);
  EXPECT_THAT(texts(file, "xmpNote:HasExtendedXMP"), testing::IsEmpty());
  EXPECT_THAT(texts(file, "dc:title"), ElementsAre("other"));
}

TEST_F(Writing, PacketsOfNobodyTakeNeitherTimeNorMemory) {
  const auto packet = [](const std::string& declared, const std::string& inside) {
    return "<x:xmpmeta xmlns:x='adobe:ns:meta/'><r:RDF "
           "xmlns:r='http://www.w3.org/1999/02/22-rdf-syntax-ns#'" +
           declared + ">" + inside + "</r:RDF></x:xmpmeta>";
  };
  const std::string digest(32, 'A');
  const auto photo = [&](const std::string& further) {
    std::string segments = Files::Segment(
        0xE1, std::string("http://ns.adobe.com/xap/1.0/\0", 29) +
                  packet(" xmlns:n='http://ns.adobe.com/xmp/note/'",
                         "<r:Description r:about='' n:HasExtendedXMP='" + digest + "'/>"));
    constexpr std::size_t kPart = 60000;
    for (std::size_t at = 0; at < further.size(); at += kPart) {
      segments += Files::Segment(0xE1, std::string("http://ns.adobe.com/xmp/extension/\0", 35) +
                                           digest + Files::Big(further.size(), 4) +
                                           Files::Big(at, 4) + further.substr(at, kPart));
    }
    return Jpeg(segments);
  };
  std::string deep;
  for (int i = 0; i < 200000; ++i) deep += "<a>";
  for (int i = 0; i < 200000; ++i) deep += "</a>";
  std::string declared;
  std::string many;
  for (int i = 0; i < 3000; ++i) {
    declared += " xmlns:n" + std::to_string(i) + "='urn:" + std::to_string(i) + "'";
    many += "<r:Description/>";
  }
  for (const std::string& further :
       {packet("", "<r:Description xmlns:t='urn:t' r:about=''><t:ImageWidth>" + deep +
                       "</t:ImageWidth></r:Description>"),
        packet(declared, many)}) {
    const FolderItem file = photo(further);
    Change(file, {{Act::kSet, kXmp, "dc:title", "A title"}});
    EXPECT_EQ(PhotoFacts::Of(file).Title, "A title");
    const FolderItem copy = folder.Write("copy.jpg", "\xFF\xD8" + Jfif() + Rest());
    EXPECT_EQ(MetadataCopy(file, MetadataCopy::Rule::kAll).Into(copy, {40, 30}), "");
  }
  // In one piece such a packet is not changed.
  std::string held = packet("", "<r:Description r:about=''>" + deep + "</r:Description>");
  EXPECT_FALSE(XMPEditor::Set(held, "dc:title", {"a"}));
  EXPECT_FALSE(XMPEditor::RemoveLike(held, {"GPS"}));
  // One namespace has been written in two ways: the one that is there is meant.
  std::string stars = packet("",
                             "<r:Description r:about='' "
                             "xmlns:m='http://ns.microsoft.com/photo/1.0' m:Rating='25'/>");
  EXPECT_TRUE(XMPEditor::Set(stars, "MicrosoftPhoto:Rating", {"99"}));
  XMPProperties properties;
  ASSERT_TRUE(ReadXMP(stars, properties));
  ASSERT_EQ(properties.size(), 1U);
  EXPECT_THAT(properties[0].second, ElementsAre("99"));
}

TEST_F(Writing, TakesThePlaceOutWhereverItIsTold) {
  const FolderItem file = Jpeg(Files::Segment(0xE1, std::string(kExifMark) + Files{true}.Tiff()));
  Change(file, {{Act::kSet, kIptc, "90", "Gotham"},
                {Act::kSet, kIptc, "80", "Anna"},
                {Act::kSet, kXmp, "photoshop:City", "Gotham"},
                {Act::kSet, kXmp, "xmp:Rating", "3"},
                {Act::kSet, kXmp, "exif:GPSLatitude", "51,30.44N"}});
  EXPECT_EQ(MetadataWriter::Write(file, MetadataWriter::Strip::kPlace), "");
  const auto data = Read(file);
  EXPECT_EQ(data->GPSData, nullptr);
  EXPECT_EQ(data->TIFFData->StringValue("010F"), "Maker");
  EXPECT_EQ(data->IPTCData->StringValue("80"), "Anna");
  EXPECT_THAT(data->XMP, HasSubstr("Rating"));
  for (const char* told : {"Gotham", "51,30"}) EXPECT_THAT(Content(file), Not(HasSubstr(told)));
  const std::string seconds = Files{true}.Number(264, 4) + Files{true}.Number(10, 4);
  EXPECT_THAT(Content(file), Not(HasSubstr(seconds))) << "nor in bytes that nothing leads to";
  EXPECT_EQ(MetadataWriter::Write(file, MetadataWriter::Strip::kAll), "");
  const auto bare = Read(file);
  EXPECT_EQ(bare->TIFFData->StringValue("0112"), "90 deg CCW") << "the pixels lie as they lie";
  EXPECT_EQ(bare->ExifData, nullptr);
  EXPECT_THAT(Content(file), testing::EndsWith("\xFF\xD9")) << "and nothing behind the picture";
}

TEST_F(Writing, LeavesWhatTwoPlacesLeadTo) {
  // Two pages with one Exif directory, which is the last thing in the file.
  const Files files{true};
  constexpr std::uint32_t kSecondAt = 80;
  constexpr std::uint32_t kExifAt = 140;
  const MetadataFiles::Tag link{0x8769, 4, 1, files.Number(kExifAt, 4)};
  std::string bytes =
      files.Header() + files.Directory(8, {{0x0100, 3, 1, files.Number(5, 2)}, link}, kSecondAt);
  bytes.resize(kSecondAt);
  bytes += files.Directory(kSecondAt, {{0x0100, 3, 1, files.Number(7, 2)}, link});
  bytes.resize(kExifAt);
  bytes += files.Directory(kExifAt, {{0x8827, 3, 1, files.Number(200, 2)}});
  const FolderItem file = folder.Write("a.tif", bytes);
  Change(file, {kArtist, {Act::kSet, kExif, "A434", "A lens"}});
  EXPECT_EQ(Read(file)->ExifData->StringValue("A434"), "A lens");
  EXPECT_EQ(Content(file).substr(kSecondAt, bytes.size() - kSecondAt), bytes.substr(kSecondAt));
  // Black pixels of a length that nobody tells are no gap at the end.
  std::string black = files.Header() + files.Directory(8, {{0x0100, 3, 1, files.Number(64, 2)},
                                                           {0x0111, 4, 1, files.Number(50, 4)}});
  black.resize(50 + 512);
  const FolderItem old = folder.Write("old.tif", black);
  Change(old, {kArtist});
  EXPECT_EQ(Content(old).substr(50, 512), std::string(512, '\0'));
  EXPECT_EQ(Read(old)->TIFFData->StringValue("0111"), "50");
}

TEST_F(Writing, ChangesPropertiesOfOlderPacketsAndOfResources) {
  const std::string packet =
      "<x:xmpmeta xmlns:x='adobe:ns:meta/'><r:RDF "
      "xmlns:r='http://www.w3.org/1999/02/22-rdf-syntax-ns#'><r:Description r:about='' "
      "xmlns:xap='http://ns.adobe.com/xap/1.0/' xmlns:drone='urn:drone' "
      "xmlns:xmpRights='http://ns.adobe.com/xap/1.0/rights/' xap:Rating='3' "
      "drone:GpsLatitude='48.1'><xmpRights:WebStatement r:resource='http://old.example'/>"
      "<geo:lat xmlns:geo='http://www.w3.org/2003/01/geo/wgs84_pos#'>48.2</geo:lat>"
      "</r:Description></r:RDF></x:xmpmeta>";
  const FolderItem file =
      Jpeg(Files::Segment(0xE1, std::string("http://ns.adobe.com/xap/1.0/\0", 29) + packet) +
           Files::Segment(0xE1, "http://ns.adobe.com/xmp/extension/ and more of Gotham"));
  Change(file, {{Act::kSet, kXmp, "xmp:Rating", "5"},
                {Act::kSet, kXmp, "xmpRights:WebStatement", "http://new.example"}});
  XMPProperties properties;
  ASSERT_TRUE(ReadXMP(Read(file)->XMP, properties));
  EXPECT_THAT(properties, testing::Contains(testing::Pair("xmp:Rating", ElementsAre("5"))));
  EXPECT_THAT(properties, testing::Contains(testing::Pair("xmpRights:WebStatement",
                                                          ElementsAre("http://new.example"))));
  EXPECT_EQ(MetadataWriter::Write(file, MetadataWriter::Strip::kPlace), "");
  for (const char* gone : {"48.1", "48.2", "Gotham"}) {
    EXPECT_THAT(Content(file), Not(HasSubstr(gone)));
  }
}

TEST_F(Writing, RefusesWhatItWouldHarm) {
  const Files files{false};
  Refused(folder.Write("a.nef", files.Tiff()), kArtist, "raw");
  Refused(
      folder.Write("dng.tif", files.Header() +
                                  files.Directory(8, {{0xC612, 1, 4, std::string("\1\4\0\0", 4)}})),
      kArtist, "raw");
  Refused(folder.Write("a.png", "\x89PNG\r\n\x1A\n..."), kArtist, "kind");
  Refused(folder.Write("cut.jpg", "\xFF\xD8" + Files::Segment(0xE1, "..").substr(0, 3)), kArtist,
          "damaged");
  Refused(folder.Write("far.tif", files.Header().substr(0, 4) + files.Number(9999, 4)), kArtist,
          "damaged");
  const FolderItem file =
      Jpeg(Files::Segment(0xE1, std::string(kExifMark) + WithMakerNote({true})));
  Refused(file, {Act::kSet, kTiff, "0112", "turned"}, "TIFF.0112");
  Refused(file, {Act::kSet, kTiff, "0112", "70000"}, "TIFF.0112");
  Refused(file, {Act::kSet, kTiff, "0111", "5"}, "TIFF.0111");
  Refused(file, {Act::kSet, kTiff, "ABCD", "5"}, "TIFF.ABCD");
  Refused(file, {Act::kSet, kExif, "9003", "yesterday"}, "EXIF.9003");
  Refused(file, {Act::kSet, kExif, "829A", "1/0"}, "EXIF.829A");
  Refused(file, {Act::kSet, kIptc, "256", "a"}, "IPTC.256");
  const FolderItem declared = folder.Write(
      "declared.jpg",
      "\xFF\xD8" +
          Files::Segment(0xED, std::string(kPhotoshopMark) +
                                   Files::Resource(0x0404, Files::Dataset(1, 90, "\x1B-B") +
                                                               Files::Dataset(2, 25, "\xE8"))) +
          Rest());
  Refused(declared, {Act::kAdd, kIptc, "25", "a"}, "IPTC.25");
  Refused(file, {Act::kSet, kTiff, "010E", std::string(70000, 'x')}, "longer");
  ASSERT_EQ(chmod(file.Path().c_str(), 0444), 0);
  Refused(file, kArtist, "locked");
  EXPECT_THAT(MetadataWriter::Write(folder.Child("none.jpg"), std::vector{kArtist}),
              HasSubstr("none.jpg"));
}

TEST_F(CommandLine, MetadataIsChangedInPlace) {
  const std::string photo = Path("photo.tif");
  folder.Write("photo.tif", MetadataFiles{true}.Tiff());
  Outcome run = Cli({"metadata", "--set", "TIFF.013B=Anna = Beispiel", "--add", "IPTC.25=one",
                     "--add", "IPTC.25=two", "--remove", "TIFF.010F", photo});
  EXPECT_EQ(run.code, 0) << run.err;
  EXPECT_EQ(run.out, "");
  run = Cli({"metadata", photo});
  EXPECT_THAT(run.out, HasSubstr("  Artist: Anna = Beispiel\n"));
  EXPECT_THAT(run.out, HasSubstr("  Keywords: one\n  Keywords: two\n"));
  EXPECT_THAT(run.out, Not(HasSubstr("Maker")));
  EXPECT_EQ(Cli({"metadata", "--set", "creator=Ada", "--set", "keywords=sea, sand", photo}).code,
            0);
  run = Cli({"metadata", photo});
  EXPECT_THAT(run.out, HasSubstr("  Artist: Ada\n"));
  EXPECT_THAT(run.out, HasSubstr("  Keywords: sea\n  Keywords: sand\n"));
  EXPECT_THAT(run.out, HasSubstr("  dc:creator: Ada\n"));
  run = Cli({"metadata", "--set", "taken=yesterday", photo});
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.err, HasSubstr("photo.tif"));
  std::string packet;
  ASSERT_TRUE(XMPEditor::Set(packet, "photoshop:City", {"Gotham"}));
  ASSERT_TRUE(XMPEditor::Set(packet, "dc:title", {"stays"}));
  const FolderItem sidecar = folder.Write("photo.tif.xmp", packet);
  EXPECT_EQ(Cli({"metadata", "--strip", "gps", photo}).code, 0);
  EXPECT_THAT(Cli({"metadata", photo}).out, Not(HasSubstr("GPS\n")));
  EXPECT_THAT(ReadFile(sidecar).value(), Not(HasSubstr("Gotham"))) << "it goes into every copy";
  EXPECT_THAT(ReadFile(sidecar).value(), HasSubstr("stays"));
  for (const std::vector<std::string>& wrong : {std::vector<std::string>{"--set", "TIFF.013B"},
                                                {"--set", "Nothing.1=a"},
                                                {"--strip", "some"}}) {
    std::vector<std::string> arguments{"metadata"};
    arguments.insert(arguments.end(), wrong.begin(), wrong.end());
    arguments.push_back(photo);
    run = Cli(arguments);
    EXPECT_EQ(run.code, 2);
    EXPECT_THAT(run.err, HasSubstr(wrong.back()));
  }
}

}  // namespace
}  // namespace brivolant::test
