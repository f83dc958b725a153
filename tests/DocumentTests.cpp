// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "Helpers.h"
#include "formats/BrivolantDocument.h"
#include "formats/ImageFile.h"
#include "formats/PictureStrings.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/BinaryStream.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A PNG is exact, so pixels can be compared.
FolderItem WritePng(const TemporaryFolder& folder, std::string_view name, const Picture& picture) {
  return folder.Write(name, PngExporter().SaveToString(picture));
}

TEST(Document, AnImageBecomesAPackageAndComesBack) {
  TestServices s;
  const Picture picture = TestPicture(120, 80);
  const FolderItem image = WritePng(s.folder, "trip.png", picture);
  BrivolantDocument document(s.services);
  ASSERT_TRUE(document.CreateFromFile(image)) << document.lastErrorMessage;
  EXPECT_EQ(document.Name, "trip");
  EXPECT_FALSE(document.Dirty);
  EXPECT_TRUE(document.tFile.Exists());
  EXPECT_EQ(document.CropOffSet, (Pair{0.1, 0.1}));
  ASSERT_TRUE(document.PastedImage("note.png", image));

  document.StyleData = std::string("style\0bytes", 11);
  document.Crop = true;
  document.CropOffSet = {0.12345, 0.1};
  document.CropSize = {0.5, 0.25};
  document.Rotation = 1;
  document.Flip = 2;
  document.Orientation = 1;
  document.Copyright = "caf\xC3\xA9";
  document.PreviewAfter = picture;
  document.Dirty = true;
  document.File = s.folder.Child("My Trip");
  ASSERT_TRUE(document.Save());
  EXPECT_EQ(document.File.Name(), "My Trip.brvPhoto");
  EXPECT_FALSE(document.Dirty);
  EXPECT_TRUE(document.tFile.IsNil());
  EXPECT_EQ(document.FileDataVersion, 4);
  const FolderItem package = document.File;
  EXPECT_EQ(ReadFile(package.Child("Contents").Child("PkgInfo")), "brPhQMBP");
  EXPECT_EQ(ReadFile(package.Child("trip.png")), ReadFile(image)) << "the original, byte for byte";
  EXPECT_TRUE(package.Child("note.png").Exists()) << "pasted images move along";
  EXPECT_TRUE(image.Exists());

  BrivolantDocument back(s.services);
  ASSERT_TRUE(back.Load(package)) << back.lastErrorMessage;
  EXPECT_EQ(back.StyleData, document.StyleData);
  EXPECT_EQ(back.Name, "trip");
  EXPECT_EQ(back.Creator, "Ada Lens");
  EXPECT_EQ(back.Copyright, "caf\xC3\xA9");
  EXPECT_EQ(back.CreatedDate, s.clock.now);
  EXPECT_TRUE(back.Crop);
  EXPECT_EQ(back.CropOffSet, (Pair{0.123, 0.1})) << "three decimals are kept";
  EXPECT_EQ(back.CropSize, (Pair{0.5, 0.25}));
  EXPECT_EQ(back.Rotation, 1);
  EXPECT_EQ(back.Flip, 2);
  EXPECT_EQ(back.Orientation, 1);
  EXPECT_EQ(back.OriginalImageID, "trip.png");
  EXPECT_TRUE(back.ImageOriginal().SameAs(picture));
  EXPECT_EQ(back.PreviewAfter.Width(), 256);
  EXPECT_EQ(back.PreviewAfter.Height(), 170);
  ASSERT_NE(back.MidSizePreview(), nullptr);
  EXPECT_TRUE(s.dialogs.messages.empty());
}

TEST(Document, SettingsBytesAreThoseOfTheFormat) {
  TestServices s;
  const FolderItem image = WritePng(s.folder, "a.png", TestPicture(8, 8));
  BrivolantDocument document(s.services);
  ASSERT_TRUE(document.ReadImage(image));
  document.StyleData = "S";
  document.CropOffSet = {-0.0001, -0.25};
  ASSERT_TRUE(document.Save(s.folder.Child("d.brvPhoto")));
  const std::string settings = ReadFile(s.folder.Child("d.brvPhoto").Child("Settings")).value();
  BinaryStream stream(settings);
  stream.LittleEndian = true;
  EXPECT_EQ(stream.ReadUInt16(), 4);
  EXPECT_EQ(stream.ReadUInt32(), settings.size() - 2);
  EXPECT_EQ(stream.ReadUInt16(), 1);
  EXPECT_EQ(stream.ReadUInt16(), 13);
  std::vector<std::pair<int, std::string>> items;
  for (int i = 0; i < 13; ++i) {
    const int id = stream.ReadUInt16();
    items.emplace_back(id, stream.Read(stream.ReadUInt32()));
  }
  using P = std::pair<int, std::string>;
  EXPECT_THAT(items,
              ElementsAre(P{0, "https://ada.example"}, P{1, "\xC2\xA9 Ada"},
                          P{2, "2009-03-04 14:05:06"}, P{3, "Brivolant Photos/1.0.0.0/Mac/x86/"},
                          P{4, "Ada Lens"}, P{5, "False"}, P{6, "0.000 -0.250 0.800 0.800"},
                          P{7, "0"}, P{8, "a"}, P{9, "0"}, P{10, "S"}, P{12, "a.png"}, P{13, "0"}));
  EXPECT_TRUE(stream.EndOfFile());
}

TEST(Document, GeometryIsAppliedInItsOrder) {
  TestServices s;
  const Picture picture = TestPicture(40, 20);
  BrivolantDocument document(s.services);
  document.Crop = true;
  document.CropOffSet = {0.25, 0.5};
  document.CropSize = {0.5, 0.5};
  Picture result = document.SetOrientation(picture);
  EXPECT_EQ(result.Width(), 20);
  EXPECT_EQ(result.Height(), 10);
  EXPECT_EQ(result.At(0, 0), picture.At(10, 10));
  document.Rotation = 1;
  result = document.SetOrientation(picture);
  EXPECT_EQ(result.Width(), 10);
  EXPECT_EQ(result.At(9, 0), picture.At(10, 10));
  document.Flip = 1;
  EXPECT_EQ(document.SetOrientation(picture).At(0, 0), picture.At(10, 10));
  document.Flip = 2;
  EXPECT_EQ(document.SetOrientation(picture).At(9, 19), picture.At(10, 10));
  document.Rotation = 0;
  document.Flip = 0;
  document.Orientation = 1;
  result = document.SetOrientation(picture);
  EXPECT_EQ(result.Width(), 10);
  EXPECT_EQ(result.Height(), 20);

  // Crops from hostile files still give a picture.
  for (const auto& [offset, size] : {std::pair{Pair{0.9, 0.9}, Pair{5, 5}},
                                     {Pair{-3, 7}, Pair{0, 0}},
                                     {Pair{std::nan(""), 1e300}, Pair{-1e300, std::nan("")}}}) {
    document.CropOffSet = offset;
    document.CropSize = size;
    EXPECT_FALSE(document.SetOrientation(picture).IsNil());
  }
}

TEST(Document, SizeIsThatOfTheImage) {
  TestServices s;
  BrivolantDocument document(s.services, TestPicture(50, 30), "new");
  EXPECT_EQ(document.Width(), 50);
  document.Orientation = 1;
  EXPECT_EQ(document.Width(), 30);
  EXPECT_EQ(document.Height(), 50);
  document.Orientation = 0;
  document.Crop = true;
  document.CropSize = {0.5, 0.25};
  EXPECT_EQ(document.Width(), 25);
  EXPECT_EQ(document.Height(), 7);
  EXPECT_EQ(document.Image().Width(), 25);
  document.GeneratePreviews(10, 10);
  EXPECT_EQ(document.PreviewBefore.Width(), 10);
  EXPECT_EQ(document.PreviewBase.Width(), 10);
  EXPECT_EQ(document.PreviewBase.Height(), 2);
  document.ResetPreviews();
  EXPECT_TRUE(document.PreviewAfter.IsNil());
}

TEST(Document, APictureWithoutAFileIsKeptAsAJpeg) {
  TestServices s;
  Picture picture = PlainPicture(30, 20, {10, 120, 200});
  picture.HorizontalResolution = 300;
  BrivolantDocument document(s.services, picture, "pasted");
  EXPECT_TRUE(document.Dirty);
  EXPECT_TRUE(document.tFile.Child("Settings").Exists());
  EXPECT_THAT(document.OriginalImageID, testing::EndsWith(".jpg"));
  ASSERT_TRUE(document.Save(s.folder.Child("p.brvPhoto")));
  BrivolantDocument back(s.services);
  ASSERT_TRUE(back.Load(s.folder.Child("p.brvPhoto")));
  EXPECT_LE(LargestDifference(back.ImageOriginal(), picture), 2);
  EXPECT_EQ(back.ImageOriginal().HorizontalResolution, 300);
}

TEST(Document, SavingAgainNeverTouchesTheOriginal) {
  TestServices s;
  const FolderItem image = WritePng(s.folder, "a.png", TestPicture(20, 20));
  BrivolantDocument document(s.services);
  EXPECT_FALSE(document.Save()) << "nowhere to save";
  ASSERT_TRUE(document.CreateFromFile(image));
  ASSERT_TRUE(document.Save(s.folder.Child("a")));
  BrivolantDocument again(s.services);
  ASSERT_TRUE(again.Load(s.folder.Child("a.brvPhoto")));
  const FolderItem original = again.File.Child("a.png");
  const auto written = std::filesystem::last_write_time(original.Path());
  ASSERT_FALSE(image.Delete());
  again.StyleData = "changed";
  again.Dirty = true;
  ASSERT_TRUE(again.Save());
  EXPECT_EQ(std::filesystem::last_write_time(original.Path()), written);
  // A copy elsewhere brings the original along, though the user's file is gone.
  ASSERT_TRUE(again.Save(s.folder.Child("copy")));
  BrivolantDocument copy(s.services);
  ASSERT_TRUE(copy.Load(s.folder.Child("copy.brvPhoto")));
  EXPECT_EQ(copy.StyleData, "changed");
  EXPECT_TRUE(copy.ImageOriginal().SameAs(TestPicture(20, 20)));
}

TEST(Document, AFailedSaveLosesNothing) {
  TestServices s;
  const FolderItem image = WritePng(s.folder, "a.png", TestPicture(64, 64));
  BrivolantDocument document(s.services);
  ASSERT_TRUE(document.CreateFromFile(image));
  ASSERT_TRUE(document.Save(s.folder.Child("a")));
  BrivolantDocument again(s.services);
  ASSERT_TRUE(again.Load(s.folder.Child("a.brvPhoto")));
  again.StyleData = std::string(50000, 'x');
  const auto before = std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  const rlimit small{2000, limit.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  const bool saved = again.Save();
  const bool created = again.Save(s.folder.Child("b"));
  setrlimit(RLIMIT_FSIZE, &limit);
  std::signal(SIGXFSZ, before);
  EXPECT_FALSE(saved);
  EXPECT_TRUE(again.Dirty) << "what was not written must be asked for again";
  EXPECT_FALSE(created);
  EXPECT_THAT(s.dialogs.messages,
              testing::Contains("Something went wrong and the file hasn't been created."));
  EXPECT_THAT(s.dialogs.messages, testing::Contains("Unable to create settings file"));
  BrivolantDocument old(s.services);
  ASSERT_TRUE(old.Load(s.folder.Child("a.brvPhoto")));
  EXPECT_EQ(old.StyleData, "");
  for (const std::string& name : s.folder.Names()) {
    EXPECT_TRUE(name == "a.png" || name == "a.brvPhoto" || name.starts_with(".CleanOnQuit"))
        << name << " was left behind";
  }
  EXPECT_FALSE(again.Save(FolderItem("/proc/x.brvPhoto")));
}

TEST(Document, WhatCannotBeLoadedSaysWhy) {
  TestServices s;
  const auto load = [&](const FolderItem& file) {
    BrivolantDocument document(s.services);
    EXPECT_FALSE(document.Load(file));
    return document.lastErrorMessage;
  };
  const FolderItem empty = s.folder.Child("empty.brvPhoto");
  ASSERT_FALSE(empty.CreateAsFolder());
  EXPECT_EQ(load(empty), "Missing the settings segment form the data file.");
  ASSERT_FALSE(
      WriteFileAtomically(empty.Child("Settings"), Bytes("04 00 FF 00 00 00 01 00 09 00")));
  EXPECT_THAT(load(empty), HasSubstr("\"empty.brvPhoto\" doesn't appear to contain the correct"));
  EXPECT_EQ(load(s.folder.Write("x.brvPhoto", "no trailer here")),
            "Brivolant Photos Data is screwed.");
  EXPECT_EQ(load(s.folder.Write("y.brvPhoto", "")), "Brivolant Photos Data is screwed.");
  EXPECT_EQ(load(s.folder.Write("z.brvPhoto", Bytes("FF FF FF 7F") + "QMBPbrPh")),
            "Brivolant Photos Data is screwed.");
  EXPECT_THAT(s.dialogs.messages, IsEmpty());
  EXPECT_EQ(load(s.folder.Child("missing.brvPhoto")), "") << "the user has been told";
  EXPECT_EQ(load(s.folder.Write("a.jpg", "x")), "");
  EXPECT_EQ(s.dialogs.messages.size(), 2U);
}

TEST(Document, NamesFromFilesStayInsideThePackage) {
  TestServices s;
  const FolderItem secret = WritePng(s.folder, "secret.png", TestPicture(9, 9));
  BrivolantDocument document(s.services);
  ASSERT_TRUE(document.CreateFromFile(WritePng(s.folder, "Settings", TestPicture(5, 5))));
  EXPECT_EQ(document.OriginalImageID, "Original-Settings") << "the package's own parts stay";
  EXPECT_EQ(document.ImageOriginal().Width(), 5);
  for (const char* name : {"../secret.png", "", ".", "..", "a/b", "settings", "Contents",
                           "Thumbnail.jpg", "Original-Settings"}) {
    EXPECT_FALSE(document.PastedImage(name, secret)) << name;
    EXPECT_TRUE(document.PastedImage(name).IsNil()) << name;
  }
  EXPECT_TRUE(document.PastedImage("ok.png", secret));
  EXPECT_TRUE(document.PastedImage("ok.png", document.PastedImage("ok.png")));
  EXPECT_TRUE(document.PastedImage("ok.png").Exists());
  EXPECT_TRUE(document.PastedImage("ok.png", FolderItem()));
  EXPECT_TRUE(document.PastedImage("ok.png").IsNil());

  BrivolantDocument hostile(s.services);
  hostile.File = document.File;
  hostile.OriginalImageID = "../../../secret.png";
  EXPECT_TRUE(hostile.ImageOriginal().IsNil());
  EXPECT_THAT(hostile.lastErrorMessage, HasSubstr("names no image"));
}

std::string OldText(std::string_view text) {
  ByteWriter out;
  out.UInt16(static_cast<std::uint16_t>(text.size()));
  out.Bytes(text);
  return out.Take();
}

/// A one-file document: a JPEG with the data behind it.
std::string OneFile(const std::string& image, int version, const std::string& body) {
  ByteWriter out;
  out.Bytes(image);
  out.UInt8(static_cast<std::uint8_t>(version));
  out.Bytes(body);
  out.UInt32(static_cast<std::uint32_t>(body.size() + 1));
  out.Bytes("QMBPbrPh");
  return out.Take();
}

TEST(Document, OlderOneFileFormsAreReadAndBecomePackages) {
  TestServices s;
  const Picture picture = PlainPicture(24, 16, {200, 50, 50});
  const std::string image = JpegExporter().SaveToString(picture);
  const std::string preview = JpegExporter().SaveToString(PlainPicture(12, 8, {0, 0, 250}));
  const auto body = [&](const std::string& crop) {
    ByteWriter out;
    out.Bytes(OldText("link") + OldText("copy"));
    out.Double(Date{2008, 5, 6, 7, 8, 9}.TotalSeconds());
    out.Bytes(OldText("with") + OldText("me") + crop);
    out.UInt8(2);
    out.Bytes(OldText("Old One"));
    out.UInt8(3);
    out.UInt32(5);
    out.UInt32(2);
    out.Bytes("STYLExx");
    out.UInt32(static_cast<std::uint32_t>(preview.size()));
    out.Bytes(preview);
    return out.Take();
  };
  ByteWriter singles;
  singles.UInt8(1);
  for (const float value : {0.5F, 0.25F, 0.5F, 0.75F}) singles.Single(value);
  ByteWriter whole;
  for (const int value : {1, 2, 30, 40}) whole.UInt16(static_cast<std::uint16_t>(value));

  const std::string two = OneFile(image, 2, body(singles.Take()));
  BrivolantDocument document(s.services);
  ASSERT_TRUE(document.Load(s.folder.Write("two.brvPhoto", two))) << document.lastErrorMessage;
  EXPECT_EQ(document.FileDataVersion, 2);
  EXPECT_TRUE(document.Crop);
  EXPECT_EQ(document.CropOffSet, (Pair{0.5, 0.25}));
  EXPECT_EQ(document.CreatedDate, (Date{2008, 5, 6, 7, 8, 9}));
  EXPECT_EQ(document.Name, "Old One");
  EXPECT_EQ(document.Flip, 2);
  EXPECT_EQ(document.Rotation, 3);
  EXPECT_EQ(document.StyleData, "STYLE");
  EXPECT_EQ(document.PreviewAfter.Width(), 12);
  EXPECT_LE(LargestDifference(document.ImageOriginal(), picture), 3);

  BrivolantDocument first(s.services);
  ASSERT_TRUE(first.Load(s.folder.Write("one.brvPhoto", OneFile(image, 1, body(whole.Take())))));
  EXPECT_FALSE(first.Crop);
  EXPECT_EQ(first.CropOffSet, (Pair{1, 2}));
  EXPECT_EQ(first.CropSize, (Pair{30, 40}));

  // Saved where it lies, it becomes a package that holds the old file as its original.
  ASSERT_TRUE(document.Save());
  EXPECT_TRUE(document.File.Directory());
  BrivolantDocument now(s.services);
  ASSERT_TRUE(now.Load(s.folder.Child("two.brvPhoto")));
  EXPECT_EQ(now.FileDataVersion, 4);
  EXPECT_EQ(now.StyleData, "STYLE");
  EXPECT_EQ(now.OriginalImageID, "two.jpg");
  EXPECT_EQ(ReadFile(now.File.Child("two.jpg")), two) << "not a byte is lost";
  EXPECT_LE(LargestDifference(now.ImageOriginal(), picture), 3);

  // Version 3 has the container of today.
  const std::string settings = ReadFile(now.File.Child("Settings")).value();
  BrivolantDocument third(s.services);
  ASSERT_TRUE(third.Load(s.folder.Write("three.brvPhoto", OneFile(image, 3, settings.substr(2)))));
  EXPECT_EQ(third.Name, "Old One");
  for (std::size_t cut = 1; cut < settings.size(); cut += 13) {
    BrivolantDocument cutOff(s.services);
    EXPECT_FALSE(cutOff.Load(s.folder.Write(
        "cut.brvPhoto", OneFile(image, 3, settings.substr(2, settings.size() - 2 - cut)))));
  }
}

}  // namespace
}  // namespace brivolant::test
