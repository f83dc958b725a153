// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Helpers.h"
#include "app/core/ApplicationServices.h"
#include "platform/services/Preferences.h"
#include "platform/services/SharedFolders.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kID = "com.quillmere.brivolantPhotos";

TEST(Preferences, EveryTypeComesBack) {
  TemporaryFolder folder;
  RecordingLog log;
  const Date date{2026, 6, 1, 12, 30, 0};
  Dictionary nested;
  nested.Value("inner", 2.5);
  nested.Value("unstorable", Pair{1, 2});
  {
    Preferences preferences(kID, folder.Item(), log);
    preferences.Assign("empty", "");
    preferences.Assign("text", "<b> & \"\xC3\xA9\" \n");
    preferences.Assign("flag", false);
    preferences.Assign("integer", 42);
    preferences.Assign("real", 0.1);
    preferences.Assign("date", date);
    preferences.Assign("nested", nested);
    preferences.Assign("text2", "old");
    preferences.Assign("text2", "new");
    preferences.Assign("text2", Pair{1, 2});
    preferences.Synchronize();
  }
  Preferences preferences(kID, folder.Item(), log);
  EXPECT_EQ(preferences.Value("empty", "default").ToText(), "");
  EXPECT_EQ(preferences.Value("text").ToText(), "<b> & \"\xC3\xA9\" \n");
  EXPECT_FALSE(preferences.Value("flag", true).ToBool());
  EXPECT_TRUE(preferences.Value("integer") == Variant(42));
  EXPECT_TRUE(preferences.Value("integer").Is<double>());
  EXPECT_EQ(preferences.Value("real").ToDouble(), 0.1);
  EXPECT_EQ(preferences.Value("date").ToDate(), date);
  EXPECT_EQ(preferences.Value("text2").ToText(), "new") << "an unknown type changes nothing";
  EXPECT_EQ(preferences.Value("missing", 7).ToInt(), 7);
  const Variant back = preferences.Value("nested");
  ASSERT_NE(back.As<Dictionary>(), nullptr);
  EXPECT_EQ(back.As<Dictionary>()->Value("inner").ToDouble(), 2.5);
  EXPECT_EQ(back.As<Dictionary>()->Count(), 1);
  EXPECT_TRUE(log.lines.empty());
}

TEST(Preferences, UnknownKeysAndOtherProgramsChangesSurvive) {
  TemporaryFolder folder;
  RecordingLog log;
  folder.Write(std::string(kID) + ".plist",
               "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>future</key>"
               "<data>AAEC</data><key>list</key><array><string>a</string><integer>2</integer>"
               "</array></dict></plist>");
  Preferences first(kID, folder.Item(), log);
  Preferences second(kID, folder.Item(), log);
  ASSERT_NE(first.Value("list").As<Collection>(), nullptr);
  EXPECT_EQ(first.Value("list").As<Collection>()->Item(1).ToInt(), 2);
  EXPECT_EQ(first.Value("future", "default").ToText(), "default");
  first.Assign("mine", 1);
  first.Synchronize();
  second.Assign("yours", 2);
  second.Synchronize();
  const std::string text = ReadFile(folder.Child(std::string(kID) + ".plist")).value();
  EXPECT_THAT(text, HasSubstr("<data>AAEC</data>"));
  EXPECT_THAT(text, HasSubstr("mine"));
  EXPECT_THAT(text, HasSubstr("yours"));
}

TEST(Preferences, ADamagedFileIsSetAside) {
  TemporaryFolder folder;
  RecordingLog log;
  const std::string name = std::string(kID) + ".plist";
  for (const char* damage : {"<plist><dict><key>a", "", "\x01\x02", "<plist><array/></plist>"}) {
    folder.Write(name, damage);
    Preferences preferences(kID, folder.Item(), log);
    EXPECT_EQ(preferences.Value("a", "default").ToText(), "default");
    preferences.Assign("a", "b");
    preferences.Synchronize();
    EXPECT_EQ(Preferences(kID, folder.Item(), log).Value("a").ToText(), "b");
  }
  EXPECT_EQ(log.lines.size(), 4U);
  EXPECT_EQ(folder.Names().size(), 5U) << "each damaged file is kept under a name of its own";
}

TEST(Preferences, AFailedWriteIsOnlyLogged) {
  RecordingLog log;
  Preferences preferences(kID, FolderItem("/proc/none"), log);
  preferences.Assign("key", "value");
  preferences.Synchronize();
  EXPECT_THAT(log.lines, ElementsAre("Preferences: the settings could not be written. The last "
                                     "change was: Writing: key : value"));
  EXPECT_EQ(preferences.Value("key").ToText(), "value");
}

TEST(Preferences, AreWrittenBesideTheWindowAndWhatFailedIsTriedAgain) {
  TemporaryFolder folder;
  RecordingLog log;
  const FolderItem later = folder.Child("later");
  {
    Preferences preferences(kID, later, log);
    // Nothing can be made where a file stands.
    folder.Write("later", "x");
    preferences.Assign("a", "first");
    preferences.Assign("again", "old");
    preferences.SynchronizeSoon();
    preferences.Synchronize();
    EXPECT_EQ(log.lines.size(), 1U);
    ASSERT_FALSE(later.Delete());
    preferences.Assign("again", "new");
    preferences.SynchronizeSoon();
    preferences.Synchronize();
    EXPECT_EQ(preferences.Value("again").ToText(), "new");
    preferences.Assign("b", 2);
    preferences.SynchronizeSoon();
    preferences.Assign("c", 3);
    preferences.SynchronizeSoon();
  }
  const Preferences kept(kID, later, log);
  EXPECT_EQ(kept.Value("a").ToText(), "first");
  EXPECT_EQ(kept.Value("again").ToText(), "new");
  EXPECT_EQ(kept.Value("b").ToInt(), 2);
  EXPECT_EQ(kept.Value("c").ToInt(), 3);
  EXPECT_EQ(log.lines.size(), 1U);
}

TEST(SharedFolders, LieInTheUsersDocuments) {
  TemporaryFolder home;
  setenv("HOME", home.Item().ShellPath().c_str(), 1);
  setenv("XDG_CONFIG_HOME", home.Child("config").ShellPath().c_str(), 1);
  using namespace otherSharedComponents;
  const FolderItem elements = userElementsFolder();
  EXPECT_EQ(elements.Name(), "Brivolant Photos");
  EXPECT_TRUE(elements.Directory());
  EXPECT_TRUE(DefaultPipDocumentsFolder() == elements.Child("My Brivolant Photos"));
  EXPECT_TRUE(usersCustomLayoutsFolder().Directory());
  EXPECT_TRUE(ConfigurationFolder() == home.Child("config"));
  EXPECT_THAT(MissingResourcesMessage("Brivolant Photos", "Quillmere", "support.example"),
              HasSubstr("Clicking \"OK\" will take you to a web page"));
}

TEST(UserDetails, ComeFromTheSettingsOrTheAccount) {
  TemporaryFolder home;
  setenv("XDG_CONFIG_HOME", home.Item().ShellPath().c_str(), 1);
  RecordingLog log;
  EXPECT_FALSE(StoredUserDetails(log).FullName().empty()) << "the account has a name";
  EXPECT_EQ(StoredUserDetails(log).Copyright(), "");
  Preferences preferences(kID, home.Item(), log);
  preferences.Assign("usersFullName", "Ada Lens");
  preferences.Assign("usersContactLink", "https://ada.example");
  preferences.Assign("usersCopyright", "\xC2\xA9 Ada");
  preferences.Synchronize();
  const StoredUserDetails details(log);
  EXPECT_EQ(details.FullName(), "Ada Lens");
  EXPECT_EQ(details.ContactLink(), "https://ada.example");
  EXPECT_EQ(details.Copyright(), "\xC2\xA9 Ada");
  EXPECT_EQ(details.CreatedWith(), "Brivolant Photos/1.0.0.0/Mac/x86/");
}

TEST(CleanOnQuit, ChildrenAreApartAndGoWithTheProgram) {
  TemporaryFolder folder;
  SystemRandom random(3);
  FolderItem first;
  {
    CleanOnQuit files(random);
    EXPECT_TRUE(files.Child("x").IsNil()) << "not configured";
    ASSERT_TRUE(files.Configure(folder.Child("CleanOnQuit")));
    first = files.Child("a.jpg");
    const FolderItem second = files.Child("a.jpg");
    EXPECT_FALSE(first == second);
    EXPECT_EQ(first.Parent().Name().size(), 18U);
    EXPECT_TRUE(first.Parent().Parent().Name().starts_with(".")) << "hidden";
    std::filesystem::create_directory_symlink(folder.Item().Path(), first.Path());
  }
  EXPECT_FALSE(first.Parent().Exists());
  EXPECT_TRUE(folder.Item().Exists()) << "a link inside is not followed";
  EXPECT_TRUE(folder.Names().empty());
}

}  // namespace
}  // namespace brivolant::test
