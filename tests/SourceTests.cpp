// SPDX-License-Identifier: MIT
// Icon files and photo libraries: what comes from other programs' files.
#include <gmock/gmock.h>

#include "Helpers.h"
#include "formats/iconObject.h"
#include "platform/files/BinaryStream.h"
#include "sources/ThreadediPhotoReader.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::string BigEndian(std::size_t value) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift);
  return bytes;
}

std::string Entry(const std::string& type, const std::string& data) {
  return type + BigEndian(data.size() + 8) + data;
}

std::string ICNS(const std::string& entries) {
  return "icns" + BigEndian(entries.size() + 8) + entries;
}

/// One plane of a 16 or 32 pixel icon in runs of the longest length.
std::string Runs(int pixels, char value) {
  std::string data;
  for (; pixels >= 130; pixels -= 130) data += {static_cast<char>(255), value};
  if (pixels > 0) data += {static_cast<char>(pixels + 125), value};
  return data;
}

TEST(Icons, ColoursAndMaskComeInEitherOrder) {
  const std::string color = Runs(1024, 10) + Runs(1024, 20) + Runs(1024, 30);
  const std::string mask(1024, static_cast<char>(200));
  for (const bool maskFirst : {false, true}) {
    RecordingLog log;
    iconObject icon(log);
    icon.OpenAsIcon({}, ICNS(maskFirst ? Entry("l8mk", mask) + Entry("il32", color)
                                       : Entry("il32", color) + Entry("l8mk", mask)));
    EXPECT_FALSE(icon.Error);
    const Picture large = icon.Large();
    ASSERT_EQ(large.Width(), 32);
    EXPECT_EQ(large.At(31, 31), (Color{10, 20, 30}));
    ASSERT_NE(large.Mask(), nullptr);
    EXPECT_EQ(large.Mask()->At(5, 5), 55);
    EXPECT_TRUE(icon.Small().IsNil());
  }
}

TEST(Icons, RunsRepeatFromThreeToAHundredAndThirtyTimes) {
  RecordingLog log;
  iconObject icon(log);
  // Red: three sevens, two literals, then ones to the end.
  std::string red = Bytes("80 07 01 02 03");
  red += Runs(256 - 5, 1);
  icon.OpenAsIcon({}, ICNS(Entry("is32", BigEndian(0) + red + Runs(256, 0) + Runs(256, 0))));
  const Picture small = icon.Small();
  std::vector<int> firsts;
  for (int x = 0; x < 7; ++x) firsts.push_back(small.At(x, 0).Red);
  EXPECT_THAT(firsts, ElementsAre(7, 7, 7, 2, 3, 1, 1));
  EXPECT_EQ(small.At(15, 15).Red, 1);
}

TEST(Icons, BestIconIsTheNextLargerOneElseTheLargest) {
  RecordingLog log;
  iconObject icon(log);
  icon.StoreData(16, PlainPicture(16, 16, Color{1, 1, 1}));
  icon.StoreData(32, PlainPicture(32, 32, Color{2, 2, 2}));
  EXPECT_EQ(icon.BestIcon(16).Width(), 16);
  EXPECT_EQ(icon.BestIcon(20).Width(), 32);
  EXPECT_EQ(icon.BestIcon(600).Width(), 32);
  EXPECT_EQ(icon.AsPicture().Width(), 32);
  // A whole image takes no more data, nor does what is decoded.
  icon.StoreData(16, 1, 8, iconObject::kMask, "x");
  EXPECT_THAT(log.lines, ElementsAre(HasSubstr("something in memory that shouldn't be!")));
}

TEST(Icons, WindowsIconsOfEveryDepth) {
  const TemporaryFolder folder;
  struct Case {
    int bits;
    std::string palette;
    std::string row;
    Color first;
  };
  const std::string two = Bytes("00 00 FF 00 00 FF 00 00");
  const std::vector<Case> cases{
      {1, two, Bytes("7F FF 00 00"), Color{255, 0, 0}},
      {4, two, Bytes("01") + std::string(7, '\x11'), Color{255, 0, 0}},
      {8, two, std::string(1, '\0') + std::string(15, '\1'), Color{255, 0, 0}},
      {24, "", Bytes("03 02 01") + std::string(45, '\x7F'), Color{1, 2, 3}},
      {32, "", Bytes("03 02 01 80") + std::string(60, '\x7F'), Color{1, 2, 3}},
  };
  for (const Case& c : cases) {
    ByteWriter image;
    image.UInt32(40);
    image.UInt32(16);
    image.UInt32(32);
    image.UInt16(1);
    image.UInt16(static_cast<std::uint16_t>(c.bits));
    image.Bytes(std::string(16, '\0'));
    image.UInt32(static_cast<std::uint32_t>(c.palette.size() / 4));
    image.UInt32(0);
    image.Bytes(c.palette);
    for (int y = 0; y < 16; ++y) image.Bytes(c.row);
    // The second pixel of the bottom row is transparent.
    image.Bytes(Bytes("40 00 00 00") + std::string(60, '\0'));
    const std::string bytes = image.Take();
    ByteWriter file;
    file.Bytes(Bytes("00 00 01 00 01 00 10 10 00 00 01 00 20 00"));
    file.UInt32(static_cast<std::uint32_t>(bytes.size()));
    file.UInt32(22);
    file.Bytes(bytes);
    RecordingLog log;
    iconObject icon(log, folder.Write("a.ico", file.Take()));
    const Picture small = icon.Small();
    ASSERT_EQ(small.Width(), 16) << c.bits;
    EXPECT_EQ(small.At(0, 3), c.first) << c.bits;
    ASSERT_NE(small.Mask(), nullptr);
    EXPECT_EQ(small.Mask()->At(0, 15), c.bits == 32 ? 127 : 0) << c.bits;
    EXPECT_EQ(small.Mask()->At(1, 15), c.bits == 32 ? 128 : 255) << c.bits;
  }
}

TEST(Icons, OtherFilesAndLyingLengthsGiveNothing) {
  const TemporaryFolder folder;
  RecordingLog log;
  iconObject icon(log, folder.Write("a.icns", "GIF89a"));
  EXPECT_TRUE(icon.Error);
  EXPECT_EQ(icon.ErrorMessage, "Don't understand the format of this file.");
  iconObject missing(log, folder.Child("none.icns"));
  EXPECT_EQ(missing.ErrorMessage, "Unable to open the file");
  iconObject lying(log);
  lying.OpenAsIcon({}, "icns" + BigEndian(0xFFFFFFFF) + "ic08" + BigEndian(0x7FFFFFFF) + "\x89PNG");
  EXPECT_TRUE(lying.HiRes256().IsNil());
  EXPECT_TRUE(lying.BestIcon(16).IsNil());
}

constexpr const char* kLibraryHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC \"-//E//DTD\" \"e\">\n"
    "<plist version=\"1.0\"><dict>";

std::string Image(const std::string& key, const std::string& caption, const std::string& media) {
  return "<key>" + key + "</key><dict><key>MediaType</key><string>" + media +
         "</string><key>Caption</key><string>" + caption +
         "</string><key>DateAsTimerInterval</key><real>0</real><key>ImagePath</key>"
         "<string>/p/a &#38; b.jpg</string></dict>";
}

TEST(PhotoLibrary, AlbumsRollsAndPhotosAsTheFileTellsThem) {
  const std::string xml =
      std::string(kLibraryHead) +
      "<key>List of Albums</key><array>"
      "<dict><key>AlbumID</key><integer>1</integer><key>albumName</key><string>All</string>"
      "<key>Master</key><true/><key>KeyList</key><array><string>1</string><string>2</string>"
      "<string>gone</string></array></dict>"
      "<dict><key>AlbumName</key><string>Tom &amp; Ann</string><key>Album Type</key>"
      "<string>smart</string></dict></array>"
      "<key>List of Rolls</key><array><dict><key>RollName</key><string>Sea</string><key>KeyList"
      "</key><array><string>2</string></array></dict><dict><key>KeyList</key><array/></dict>"
      "</array><key>Master Image List</key><dict>" +
      Image("1", "A &amp; B", "Image") + Image("2", "Two", "Movie") + "</dict></dict></plist>";
  RecordingLog log;
  SystemRandom random(1);
  ThreadediPhotoReader reader(log, random);
  ASSERT_TRUE(reader.ReadBytes(xml));
  EXPECT_EQ(reader.Status, ThreadediPhotoReader::kFinished);
  ASSERT_EQ(reader.Library.size(), 3U);
  const iPhotoAlbum& events = *reader.Library[0];
  EXPECT_EQ(events.Name, "Events (2)");
  const auto& sea = *std::get<std::shared_ptr<iPhotoRoll>>(events.item[0]);
  EXPECT_EQ(sea.Name, "Sea (1)");
  EXPECT_EQ(sea.FirstItem()->Caption, "Two");
  const auto& nameless = *std::get<std::shared_ptr<iPhotoRoll>>(events.item[1]);
  EXPECT_EQ(nameless.Name, " (0)");
  EXPECT_EQ(nameless.ID.size(), 36U);
  EXPECT_EQ(nameless.FirstItem(), nullptr);
  EXPECT_EQ(reader.Library[1]->Name, "All (2)");
  EXPECT_EQ(reader.Library[1]->Icon, "Library");
  EXPECT_EQ(reader.Library[2]->Name, "Tom & Ann (0)");
  EXPECT_EQ(reader.Library[2]->Icon, "LibrarySmartAlbum");
  const auto& photo = *std::get<std::shared_ptr<iPhotoItem>>(reader.Library[1]->item[0]);
  EXPECT_EQ(photo.Caption, "A &amp; B");
  EXPECT_EQ(photo.File().ShellPath(), "/p/a & b.jpg");
  EXPECT_EQ(photo.DateTime().Text(), "2001-01-01 08:00:00");

  ThreadediPhotoReader filtered(log, random);
  filtered.Filter = "image";
  ASSERT_TRUE(filtered.ReadBytes(xml));
  EXPECT_EQ(filtered.Library[1]->Count(), 1);
}

/// Remembers the root.
struct Values final : XMLDictionaryReader {
  Variant Of(const std::string& key, const std::string& value) {
    (void)ReadBytes("<plist><dict><key>" + key + "</key>" + value + "</dict></plist>");
    return MyDictionary.Value(key);
  }
};

TEST(PhotoLibrary, ValuesOfTheDialect) {
  Values values;
  EXPECT_EQ(values.Of("k", "<string/>").ToText(), "string/");
  EXPECT_EQ(values.Of("k", "<integer>42</integer>"), Variant("42"));
  EXPECT_EQ(values.Of("k", "<true/>"), Variant(true));
  EXPECT_EQ(values.Of("k", "<data>aGVsbG8=</data>").ToText(), "hello");
  EXPECT_EQ(values.Of("k", "<date>2008-01-31T12:34:56Z</date>").ToDate().Text(),
            "2008-01-31 12:34:56");
  EXPECT_EQ(values.Of("k", "<string>\xE9t\xE9</string>").ToText(), "\xC3\xA9t\xC3\xA9");
  const Variant nested =
      values.Of("k", "<array><array><string>a</string></array><string>b</string></array>");
  ASSERT_TRUE(nested.Is<Collection>());
  // The inner closing tag ends the outer array too.
  EXPECT_EQ(nested.As<Collection>()->Count(), 1);
}

TEST(PhotoLibrary, FilesThatCannotBeReadAreLoggedAndTruncatedOnesGiveWhatWasComplete) {
  const TemporaryFolder folder;
  SystemRandom random(1);
  const auto read = [&](const FolderItem& file) {
    RecordingLog log;
    ThreadediPhotoReader reader(log, random);
    EXPECT_FALSE(reader.ReadXML(file));
    EXPECT_EQ(reader.Status, ThreadediPhotoReader::kFailed);
    return log.lines;
  };
  EXPECT_THAT(read({}), ElementsAre("iPhoto Library is invalid"));
  EXPECT_THAT(read(folder.Child("none.xml")), ElementsAre("iPhoto Library doesn't exist"));
  EXPECT_THAT(read(folder.Item()), ElementsAre("iPhoto Library failed to open"));
  EXPECT_THAT(read(folder.Write("empty.xml", "")), ElementsAre("iPhoto Library is empty"));

  RecordingLog log;
  ThreadediPhotoReader reader(log, random);
  EXPECT_TRUE(reader.ReadBytes(std::string(kLibraryHead) +
                               "<key>List of Albums</key><array><dict><key>AlbumName</key>"
                               "<string>One</string></dict><dict><key>AlbumName</key><stri"));
  ASSERT_GE(reader.Library.size(), 2U);
  EXPECT_EQ(reader.Library[1]->Name, "One (0)");
}

}  // namespace
}  // namespace brivolant::test
