// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Helpers.h"
#include "formats/BrivolantDocument.h"
#include "formats/PictureStrings.h"
#include "platform/codecs/ImageCodecs.h"

namespace brivolant::test {
namespace {

TEST(FolderItems, PathsAndNames) {
  EXPECT_TRUE(FolderItem().IsNil());
  EXPECT_TRUE(FolderItem("").IsNil());
  EXPECT_TRUE(FolderItem().Child("a").IsNil());
  EXPECT_TRUE(FolderItem().Parent().IsNil());
  EXPECT_FALSE(FolderItem().Exists());
  EXPECT_FALSE(FolderItem().IsWriteable());
  EXPECT_TRUE(FolderItem("/").Parent().IsNil());
  EXPECT_EQ(FolderItem("/a/b/").Name(), "b");
  EXPECT_EQ(FolderItem("/a/./b/../c").ShellPath(), "/a/c");
  EXPECT_TRUE(FolderItem("/a/b").Parent() == FolderItem("/a"));
  EXPECT_EQ(FolderItem("/a b/#1.jpg").URLPath(), "file:///a%20b/%231.jpg");
  EXPECT_EQ(FolderItem("/a/b/c").AbsolutePath(), "a:b:c");
  const FolderItem latin("/p/caf\xE9.jpg");
  EXPECT_EQ(latin.Name(), "caf\xE9.jpg") << "names are bytes";
  EXPECT_EQ(latin.DisplayName(), "caf\xC3\xA9.jpg");
}

TEST(FolderItems, LinksAreSeenAndFollowed) {
  TemporaryFolder folder;
  const FolderItem file = folder.Write("a", "content");
  const FolderItem link = folder.Child("link");
  const FolderItem dead = folder.Child("dead");
  const FolderItem circle = folder.Child("circle");
  std::filesystem::create_symlink(file.Path(), link.Path());
  std::filesystem::create_symlink(folder.Child("gone").Path(), dead.Path());
  std::filesystem::create_symlink(circle.Path(), circle.Path());
  EXPECT_TRUE(link.Exists());
  EXPECT_TRUE(link.Alias());
  EXPECT_EQ(link.Length(), 7U);
  EXPECT_FALSE(dead.Exists());
  EXPECT_TRUE(dead.Alias());
  EXPECT_FALSE(circle.Exists());
  EXPECT_FALSE(ReadFile(circle));
  EXPECT_FALSE(link.Delete());
  EXPECT_TRUE(file.Exists());
}

TEST(FolderItems, MovesAcrossFileSystemsWholeOrNotAtAll) {
  TemporaryFolder folder;
  const FolderItem other("/dev/shm/brivolant-move-test-" + std::to_string(getpid()));
  ASSERT_FALSE(other.CreateAsFolder());
  const FolderItem package = folder.Child("p");
  ASSERT_FALSE(package.Child("inner").CreateAsFolder());
  folder.Write("p/inner/file", "deep");
  EXPECT_FALSE(package.MoveFileTo(other.Child("p")));
  EXPECT_FALSE(package.Exists());
  EXPECT_EQ(ReadFile(other.Child("p").Child("inner").Child("file")), "deep");
  folder.Write("q", "new");
  EXPECT_TRUE(folder.Child("q").MoveFileTo(other.Child("p"))) << "a folder is never replaced";
  EXPECT_EQ(ReadFile(folder.Child("q")), "new");
  EXPECT_EQ(ReadFile(other.Child("p").Child("inner").Child("file")), "deep");
  EXPECT_TRUE(folder.Child("q").CopyFileTo(other.Child("p").Child("inner").Child("file")))
      << "a copy never replaces";
  EXPECT_TRUE(folder.Child("none").MoveFileTo(other.Child("x")));
  EXPECT_THAT(other.Children(), testing::SizeIs(1));
  EXPECT_FALSE(other.DeleteFolder());
}

TEST(FolderItems, FilesThatAreNoneAreNotRead) {
  TemporaryFolder folder;
  EXPECT_FALSE(ReadFile(folder.Item()));
  EXPECT_FALSE(ReadFile(folder.Child("none")));
  EXPECT_FALSE(ReadFile(folder.Write("long", std::string(100, 'x')), 99));
  EXPECT_EQ(ReadFile(folder.Write("empty", "")), "");
  // Into a pipe nobody may ever write.
  ASSERT_EQ(mkfifo(folder.Child("pipe.icns").Path().c_str(), 0600), 0);
  EXPECT_FALSE(ReadFile(folder.Child("pipe.icns")));
  EXPECT_THAT(ImageSource::Open(folder.Child("pipe.icns")).error,
              testing::HasSubstr("\"pipe.icns\" is not an image"));
  EXPECT_FALSE(folder.Child("none").ModificationDate());
  EXPECT_TRUE(folder.Child("none").Children().empty());
  EXPECT_FALSE(folder.Child("none").Delete()) << "nothing to delete is no error";
}

TEST(FolderItems, ImagesWithOddNamesBecomeDocuments) {
  TestServices s;
  const std::string png = PngExporter().SaveToString(TestPicture(12, 8));
  for (const char* name : {"caf\xE9.png", "a[1].png", " blank .png", "-dash.png", "no extension",
                           "\xF0\x9F\x93\xB7.png", "new\nline.png", "a.brvPhoto.png"}) {
    const FolderItem image = s.folder.Write(name, png);
    BrivolantDocument document(s.services);
    ASSERT_TRUE(document.CreateFromFile(image)) << name << document.lastErrorMessage;
    ASSERT_TRUE(document.Save(s.folder.Child("out.brvPhoto")));
    BrivolantDocument back(s.services);
    ASSERT_TRUE(back.Load(s.folder.Child("out.brvPhoto")));
    EXPECT_TRUE(back.ImageOriginal().SameAs(TestPicture(12, 8))) << name << back.lastErrorMessage;
    EXPECT_TRUE(IsUTF8(back.Name));
    ASSERT_FALSE(s.folder.Child("out.brvPhoto").DeleteFolder());
  }
}

}  // namespace
}  // namespace brivolant::test
