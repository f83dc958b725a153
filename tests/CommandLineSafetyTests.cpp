// SPDX-License-Identifier: MIT
// What the command line must not do to photos, and must not keep to itself.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <filesystem>
#include <fstream>
#include <map>

#include "CommandLine.h"
#include "Sanitized.h"
#include "formats/FileTypes.h"
#include "platform/files/BinaryStream.h"

namespace brivolant::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

TEST_F(CommandLine, DamagedImagesAreRenderedWithAWarning) {
  const std::string whole = *ReadFile(image);
  const std::string half = whole.substr(0, whole.size() / 2);
  const std::string path = folder.Write("half.png", half).ShellPath();
  const Outcome run = Cli({"render", path, "-o", Path("out.png")});
  EXPECT_EQ(run.code, 0);
  EXPECT_THAT(run.err, HasSubstr("\"half.png\" is damaged or incomplete"));
  const Picture shown = Open("out.png");
  ASSERT_EQ(shown.Height(), 60);
  EXPECT_EQ(shown.At(40, 10), picture.At(40, 10));

  const Outcome strict = Cli({"render", path, "-o", Path("strict.png"), "--strict"});
  EXPECT_EQ(strict.code, 1);
  EXPECT_THAT(strict.err, HasSubstr("\"half.png\" is damaged or incomplete"));
  EXPECT_FALSE(folder.Child("strict.png").Exists());
  EXPECT_EQ(Cli({"render", image.ShellPath(), "-o", Path("whole.png"), "--strict"}).code, 0);

  EXPECT_EQ(Cli({"render", path, "-o", path}).code, 1);
  EXPECT_EQ(ReadFile(folder.Child("half.png")), half);

  const Outcome created = Cli({"document", "create", path, Path("d.brvPhoto")});
  EXPECT_EQ(created.code, 0);
  EXPECT_THAT(created.err, HasSubstr("damaged"));
  const FolderItem original = folder.Child("d.brvPhoto").Child("half.png");
  const Outcome over = Cli({"document", "render", Path("d.brvPhoto"), "-o", original.ShellPath()});
  EXPECT_EQ(over.code, 1);
  EXPECT_THAT(over.err, HasSubstr("\"half.png\" lies inside a document"));
  EXPECT_EQ(ReadFile(original), half);
  EXPECT_EQ(Cli({"document", "render", Path("d.brvPhoto"), "-o", Path("o.jpg"), "--strict"}).code,
            1);
  // Every command says it, and none takes it where whole pictures are wanted.
  const Outcome small = Cli({"thumbnail", path, "--out-dir", Path("small")});
  EXPECT_EQ(small.code, 0);
  EXPECT_THAT(small.err, HasSubstr("\"half.png\" is damaged"));
  const Outcome info = Cli({"document", "info", Path("d.brvPhoto")});
  EXPECT_EQ(info.code, 0);
  EXPECT_THAT(info.err, HasSubstr("\"half.png\" is damaged"));
  // The damage of a document's original is found when it is decoded, not when it is opened.
  const Outcome copied = Cli({"document", "create", Path("d.brvPhoto"), Path("copy")});
  EXPECT_EQ(copied.code, 0);
  EXPECT_THAT(copied.err, HasSubstr("\"half.png\" is damaged"));
  for (const std::string& whole : {path, Path("d.brvPhoto")}) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"document", "create", whole, Path("no"), "--strict"},
          {"thumbnail", whole, "--out-dir", Path("none"), "--strict"}}) {
      const Outcome refused = Cli(arguments);
      EXPECT_EQ(refused.code, 1) << testing::PrintToString(arguments);
      EXPECT_THAT(refused.err, HasSubstr("\"half.png\" is damaged"));
    }
  }
  EXPECT_FALSE(folder.Child("no.brvPhoto").Exists());
  EXPECT_THAT(folder.Child("none").Children(), IsEmpty());
  EXPECT_EQ(Cli({"thumbnail", image.ShellPath(), "--out-dir", Path("none"), "--strict"}).code, 0);
}

/// Every file below the folder with its bytes.
std::map<std::string, std::string> Contents(const FolderItem& folder) {
  std::map<std::string, std::string> contents;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path())) {
    if (!entry.is_regular_file()) continue;
    contents[entry.path().lexically_relative(folder.Path())] =
        ReadFile(FolderItem(entry.path())).value();
  }
  return contents;
}

TEST_F(CommandLine, NoOutputTakesThePlaceOfWhatIsRead) {
  const std::string in = image.ShellPath();
  ASSERT_FALSE(folder.Child("x").CreateAsFolder());
  const std::string namesake =
      folder.Write("x/photo.png", PngExporter().SaveToString(TestPicture(20, 20))).ShellPath();
  const std::string doc = Path("doc.brvPhoto");
  ASSERT_EQ(Cli({"document", "create", in, doc}).code, 0);
  // A package whose original is kept elsewhere, one by another name, and links into one.
  const std::string linked = Path("linked.brvPhoto");
  ASSERT_EQ(Cli({"document", "create", second.ShellPath(), linked}).code, 0);
  namespace fs = std::filesystem;
  fs::rename(linked + "/second.png", Path("kept.png"));
  fs::create_symlink(Path("kept.png"), linked + "/second.png");
  ASSERT_FALSE(folder.Child("y").CreateAsFolder());
  fs::rename(doc, Path("y/plain"));
  fs::create_symlink(Path("y/plain"), doc);
  fs::create_symlink(Path("y/plain/photo.png"), Path("way.png"));
  fs::create_hard_link(in, Path("twin.png"));
  const std::string style = Path("style.jpg");
  ASSERT_EQ(Cli({"render", in, "-o", Path("x/o.png"), "--save-style", style}).code, 0);
  ASSERT_EQ(Cli({"styles", "extract", "Golden Evening", "-o", Path("source")}).code, 0);
  ASSERT_EQ(Cli({"styles", "make", Path("source"), "-o", Path("made.oneClick")}).code, 0);

  const auto before = Contents(folder.Item());
  const char* own = "is the original itself";
  const char* inside = "lies inside a document";
  for (const auto& [arguments, reason] :
       std::vector<std::pair<std::vector<std::string>, const char*>>{
           {{"render", in, "-o", in}, own},
           {{"render", in, "-o", Path("twin.png")}, own},
           {{"render", in, "-o", Path("x/../photo.png")}, own},
           {{"render", in, "-o", style, "--style", style}, own},
           {{"render", in, "-o", Path("x/new.png"), "--save-style", in}, own},
           {{"render", in, "-o", doc + "/new.png"}, inside},
           {{"render", in, "-o", Path("way.png"), "--style", doc}, inside},
           {{"render", doc, "-o", doc + "/photo.png"}, inside},
           {{"render", doc, "-o", Path("y/plain/photo.png")}, inside},
           {{"render", doc, "-o", Path("y/plain/new.png")}, inside},
           {{"render", linked, "-o", Path("kept.png")}, own},
           {{"render", in, namesake, "--out-dir", linked}, inside},
           {{"render", in, "--out-dir", Path("new.brvPhoto")}, inside},
           {{"styles", "apply", "Golden Evening", in, "-o", in}, own},
           {{"styles", "apply", "Golden Evening", in, "-o", linked + "/Thumbnail.jpg"}, inside},
           {{"styles", "extract", Path("made.oneClick"), "-o", Path("made.oneClick")}, own},
           {{"document", "render", linked, "-o", Path("kept.png")}, own},
           {{"document", "render", linked, "-o", linked + "/Thumbnail.jpg"}, inside},
           {{"document", "create", in, linked + "/inner"}, inside},
           {{"thumbnail", in, "--out-dir", linked}, inside}}) {
    const Outcome run = Cli(arguments);
    EXPECT_EQ(run.code, 1) << testing::PrintToString(arguments);
    EXPECT_THAT(run.err, HasSubstr(reason)) << testing::PrintToString(arguments);
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
    ASSERT_TRUE(Contents(folder.Item()) == before) << testing::PrintToString(arguments);
  }
}

TEST_F(CommandLine, OutputsInAFolderGoAroundItsPhotos) {
  const Picture other = TestPicture(20, 20);
  ASSERT_FALSE(folder.Child("x").CreateAsFolder());
  const std::string namesake =
      folder.Write("x/photo.png", PngExporter().SaveToString(other)).ShellPath();
  // Not an input, but a photo all the same.
  folder.Write("photo-1.png", "precious");
  const std::string jpeg =
      folder.Write("second.jpg", JpegExporter().SaveToString(picture)).ShellPath();
  const auto before = Contents(folder.Item());
  const std::string here = folder.Item().ShellPath();

  EXPECT_EQ(Cli({"render", namesake, image.ShellPath(), "--out-dir", here}).code, 0);
  EXPECT_EQ(Open("photo-2.png").Width(), 20);
  EXPECT_EQ(Open("photo-3.png").Width(), 90);
  EXPECT_EQ(Cli({"styles", "apply", "Golden Evening", image.ShellPath(), "--out-dir", here}).code,
            0);
  EXPECT_EQ(Open("photo-4.png").Width(), 90);
  EXPECT_EQ(Cli({"thumbnail", second.ShellPath(), jpeg, "--out-dir", here, "--size", "10"}).code,
            0);
  EXPECT_EQ(Open("second-1.jpg").Height(), 10);
  EXPECT_EQ(Open("second-2.jpg").Width(), 10);
  auto after = Contents(folder.Item());
  EXPECT_EQ(after.size(), before.size() + 5);
  for (const auto& [name, bytes] : before) EXPECT_TRUE(after[name] == bytes) << name;

  // Elsewhere an earlier result is replaced, as ever.
  for (int run = 0; run < 2; ++run) {
    ASSERT_EQ(Cli({"render", namesake, image.ShellPath(), "--out-dir", Path("out")}).code, 0);
    EXPECT_EQ(folder.Child("out").Children().size(), 2U);
  }
}

TEST_F(CommandLine, TheLongestNamesAreNumberedToo) {
  const std::string name = std::string(251, 'n') + ".png";
  const std::string png = PngExporter().SaveToString(picture);
  std::vector<std::string> arguments{"render"};
  for (const char* place : {"x", "y", "z"}) {
    ASSERT_FALSE(folder.Child(place).CreateAsFolder());
    arguments.push_back(folder.Write(std::string(place) + "/" + name, png).ShellPath());
  }
  arguments.insert(arguments.end(), {"--out-dir", Path("out")});
  const Outcome run = Cli(arguments);
  EXPECT_EQ(run.code, 0) << run.err;
  const FolderItem out = folder.Child("out");
  EXPECT_EQ(out.Children().size(), 3U);
  EXPECT_TRUE(out.Child(name).Exists());
  EXPECT_TRUE(out.Child(std::string(249, 'n') + "-2.png").Exists());
}

TEST_F(CommandLine, DocumentsWithoutAReadableOriginalSaySo) {
  ASSERT_EQ(Cli({"document", "create", image.ShellPath(), Path("e")}).code, 0);
  folder.Write("e.brvPhoto/photo.png", "gone");
  const Outcome lost = Cli({"document", "create", Path("e.brvPhoto"), Path("f")});
  EXPECT_EQ(lost.code, 1);
  EXPECT_THAT(lost.err, HasSubstr("\"photo.png\""));
  EXPECT_FALSE(folder.Child("f.brvPhoto").Exists());
  EXPECT_THAT(Cli({"document", "info", Path("e.brvPhoto")}).err, HasSubstr("\"photo.png\""));
}

/// The most memory that a child of this process has used, in bytes.
std::int64_t MostOfChildren() {
  struct rusage usage {};
  EXPECT_EQ(getrusage(RUSAGE_CHILDREN, &usage), 0);
  return std::int64_t{usage.ru_maxrss} * 1024;
}

TEST_F(CommandLine, ALyingDocumentCostsNoMemory) {
  constexpr std::int64_t kMuch = 600'000'000;
  if (MostOfChildren() > kMuch) GTEST_SKIP() << "another run has needed more";
  // A hole of more than a gigabyte, and an end that says all of it is the body.
  const FolderItem file = folder.Write("long.brvPhoto", "");
  constexpr std::uint64_t kLength = (std::uint64_t{1} << 30) + 100000;
  std::filesystem::resize_file(file.Path(), kLength);
  std::ofstream(file.Path(), std::ios::binary | std::ios::app)
      << Bytes("01 00 00 40") << InternalFileTypes::kCreator
      << InternalFileTypes::BrivolantPhotosDocument.MacType;
  const Outcome run = Cli({"document", "info", file.ShellPath()});
  EXPECT_EQ(run.code, 1);
  EXPECT_THAT(run.err, HasSubstr("\"long.brvPhoto\""));
  EXPECT_TRUE(kSanitized || MostOfChildren() < kMuch) << MostOfChildren();
}

TEST_F(CommandLine, ALyingTiffCostsNoMemory) {
  constexpr std::int64_t kMuch = 600'000'000;
  if (MostOfChildren() > kMuch) GTEST_SKIP() << "another run has needed more";
  // One packed strip that says it is as long as can be, of as many pixels as its bytes might hold,
  // and of more.
  for (const std::uint32_t side : {5600U, 7000U}) {
    constexpr int kEntries = 9;
    constexpr std::uint32_t kDepths = 8 + 2 + kEntries * 12 + 4;
    ByteWriter out;
    out.Bytes(Bytes("49492A00 08000000"));
    out.UInt16(kEntries);
    for (const auto& [tag, type, count, value] :
         {std::tuple<int, int, std::uint32_t, std::uint32_t>{256, 4, 1, side},
          {257, 4, 1, side},
          {258, 3, 3, kDepths},
          {259, 3, 1, 5},
          {262, 3, 1, 2},
          {273, 4, 1, kDepths + 8},
          {277, 3, 1, 3},
          {278, 4, 1, side},
          {279, 4, 1, 0xFFFFFFF0}}) {
      out.UInt16(static_cast<std::uint16_t>(tag));
      out.UInt16(static_cast<std::uint16_t>(type));
      out.UInt32(count);
      out.UInt32(value);
    }
    out.UInt32(0);
    out.Bytes(Bytes("0800 0800 0800 0000"));
    out.Bytes(std::string(36'000, '\x55'));
    const FolderItem file = folder.Write("strip.tif", out.Take());
    const Outcome run = Cli({"render", file.ShellPath(), "-o", Path("o.png")});
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.err, HasSubstr("\"strip.tif\""));
    EXPECT_TRUE(kSanitized || MostOfChildren() < kMuch) << side << ' ' << MostOfChildren();
  }
}

}  // namespace
}  // namespace brivolant::test
