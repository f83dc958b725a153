// SPDX-License-Identifier: MIT
// File names made from what users type, and names that come from files.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "Helpers.h"
#include "effects/styles/OneClickWonder.h"
#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "formats/PictureStrings.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/FileNames.h"

namespace brivolant::test {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

std::string Repeated(std::string_view text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

TEST(Names, AreMadeSafeFromAnyText) {
  for (const auto& [text, name] : std::vector<std::pair<std::string, std::string>>{
           {"Sunny Day", "Sunny Day"},
           {"caf\xC3\xA9 \xE2\x80\x94 12%", "caf\xC3\xA9 \xE2\x80\x94 12%"},
           {"Black/White", "Black-White"},
           {"/etc/passwd", "-etc-passwd"},
           {"../../x", "-..-x"},
           {"..", "Untitled"},
           {"", "Untitled"},
           {" . ", "Untitled"},
           {"///", "Untitled"},
           {".hidden", "hidden"},
           {"end. ", "end"},
           {"a\nb\tc\x7F", "a-b-c-"},
           {std::string("a\0b", 3), "a-b"},
           {"a:b*c?d\"e<f>g|h\\i", "a-b-c-d-e-f-g-h-i"},
           {"con", "_con"},
           {"Com7.txt", "_Com7.txt"},
           {"COM0", "COM0"},
           {"console", "console"},
           {"\xE9t\xE9", "\xC3\xA9t\xC3\xA9"}}) {
    EXPECT_EQ(SafeFileName(text), name) << text;
    EXPECT_EQ(SafeFileName(text, ".jpg"), name + ".jpg") << text;
    EXPECT_TRUE(IsPlainName(name));
  }
  // Three bytes a character; a byte is kept for the mark of a name that is a device.
  const std::string eighty = SafeFileName(Repeated("\xE2\x82\xAC", 100), ".jpg");
  EXPECT_EQ(eighty, Repeated("\xE2\x82\xAC", 83) + ".jpg");
  EXPECT_TRUE(IsUTF8(SafeFileName("x" + Repeated("\xF0\x9F\x98\x80", 100))));
  EXPECT_EQ(NumberedName("a", 0, ".b"), "a.b");
  EXPECT_EQ(NumberedName("a", 12, ".b"), "a-12.b");
  EXPECT_EQ(NumberedName(Repeated("\xC3\xA4", 200), 7, ".jpg", 10),
            Repeated("\xC3\xA4", 119) + "-7.jpg");
}

TEST(Names, ChildIsOneNameOrNothing) {
  TemporaryFolder folder;
  for (const std::string_view name :
       {std::string_view(""), std::string_view("."), std::string_view(".."), std::string_view("/"),
        std::string_view("/etc"), std::string_view("a/b"), std::string_view("../a"),
        std::string_view("a/"), std::string_view("a\0b", 3)}) {
    EXPECT_TRUE(folder.Item().Child(name).IsNil()) << name;
  }
  for (const char* name : {"a", "...", "a\\b", " ", "-", ".hidden"}) {
    const FolderItem child = folder.Item().Child(name);
    EXPECT_EQ(child.Name(), name);
    EXPECT_EQ(child.Parent(), folder.Item());
  }
  EXPECT_TRUE(FolderItem().Child("a").IsNil());
  // Nothing is written for nothing, not even where the program happens to run.
  const auto here = std::filesystem::current_path();
  std::filesystem::current_path(folder.Item().Path());
  EXPECT_TRUE(WriteFileAtomically(folder.Item().Child("../a"), "x"));
  EXPECT_TRUE(folder.Item().Child("..").CreateAsFolder());
  std::filesystem::current_path(here);
  EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST(Names, AStyleOfAnyNameIsSavedInItsFolder) {
  TestServices s;
  const FolderItem styles = s.folder.Child("styles");
  ASSERT_FALSE(styles.CreateAsFolder());
  const std::vector<std::string> names{"Black/White",
                                       "/etc/passwd",
                                       "../../up",
                                       "..",
                                       "",
                                       ".",
                                       "two\nlines",
                                       "nul",
                                       "Black/White",
                                       "plain",
                                       "\xE5\x86\xAC\xE3\x81\xAE\xE6\xB5\xB7",
                                       Repeated("\xF0\x9F\x98\x80", 300)};
  std::set<std::string> files;
  for (const std::string& name : names) {
    OneClickWonder style(s.services);
    style.Name(OneClickWonder::kUsersLanguage, name);
    style.GenerateFile(styles);
    EXPECT_EQ(style.File.Parent(), styles) << name;
    EXPECT_FALSE(style.File.Name().starts_with('.')) << name;
    ASSERT_TRUE(style.Save({})) << name << ": " << style.LastErrorMessage;
    files.insert(style.File.Name());
    OneClickWonder read(s.services);
    ASSERT_TRUE(read.Load(style.File)) << name;
    EXPECT_EQ(read.Name(), name);
  }
  EXPECT_THAT(files, SizeIs(names.size())) << "each has a file of its own";
  EXPECT_THAT(styles.Children(), SizeIs(names.size()));
  EXPECT_TRUE(files.contains("Black-White.oneClick"));
  EXPECT_TRUE(files.contains("Black-White-1.oneClick"));
}

TEST(Names, TheLongestAreSavedAndThrownAway) {
  TemporaryFolder home;
  setenv("XDG_DATA_HOME", home.Child("data").ShellPath().c_str(), 1);
  const std::string longest = std::string(kLongestName - 4, 'n') + ".jpg";
  for (int i = 0; i < 3; ++i) {
    const FolderItem file = home.Item().Child(longest);
    ASSERT_FALSE(WriteFileAtomically(file, std::to_string(i)));
    ASSERT_TRUE(FolderitemExtensions::MoveToTrash(file)) << i;
  }
  const auto thrown = home.Child("data/Trash/files").Children();
  EXPECT_THAT(thrown, SizeIs(3));
  for (const FolderItem& file : thrown) {
    EXPECT_TRUE(file.Name().ends_with(".jpg"));
    EXPECT_TRUE(home.Child("data/Trash/info/" + file.Name() + ".trashinfo").Exists());
  }
  EXPECT_THAT(home.Names(), testing::ElementsAre("data"));
}

TEST(Names, AnImageOfTheLongestNameBecomesADocument) {
  TestServices s;
  // Latin-1: as the UTF-8 of the settings it would be twice as long.
  const FolderItem image = s.folder.Item().Child(std::string(kLongestName - 4, '\xE4') + ".png");
  ASSERT_FALSE(WriteFileAtomically(image, PngExporter().SaveToString(TestPicture(20, 10))));
  BrivolantDocument document(s.services);
  ASSERT_TRUE(document.ReadImage(image));
  const FolderItem package = BrivolantDocument::PackageFor(image);
  EXPECT_EQ(package.Name().size(), kLongestName);
  ASSERT_TRUE(document.Save(package));
  BrivolantDocument read(s.services);
  ASSERT_TRUE(read.Load(package));
  EXPECT_EQ(read.ImageOriginal().Width(), 20);
  EXPECT_LE(read.OriginalImageID.size(), kLongestName);
  EXPECT_TRUE(read.OriginalImageID.ends_with(".png"));
}

}  // namespace
}  // namespace brivolant::test
