// SPDX-License-Identifier: MIT
// 1-Click styles: their files byte for byte, their store, their sources.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Helpers.h"
#include "effects/FindEffect.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "effects/styles/StyleSource.h"
#include "engine/brivolantProcessorLite.h"
#include "formats/PictureStrings.h"
#include "platform/files/BinaryStream.h"
#include "platform/services/SharedFolders.h"
#include "support/LanguageTools.h"

namespace brivolant::test {
namespace {

using testing::HasSubstr;

struct Styles : testing::Test, TestServices {
  OneClickWonder Style(const std::string& name) {
    OneClickWonder style(services);
    style.Name(0, name);
    return style;
  }
};

TEST(Languages, AreNumberedAndNamed) {
  EXPECT_EQ(LanguageTools::Name(0), "English");
  EXPECT_EQ(LanguageTools::Name(3), "German");
  EXPECT_EQ(LanguageTools::Name(50), "Azerbaijan (Cyrillic)");
  EXPECT_EQ(LanguageTools::Name(107), "Sudanese");
  EXPECT_EQ(LanguageTools::Name(108), "");
  EXPECT_EQ(LanguageTools::Name(-1), "");
  EXPECT_EQ(LanguageTools::UsersLangeuageID(), 0);
  EXPECT_EQ(LanguageTools::UsersLanguageName(), "English");
}

/// A file as the format describes it, built by hand.
std::string ByHand(const std::string& header, const std::string& preview) {
  ByteWriter out;
  const auto text = [&out](std::string_view value) {
    out.UInt16(static_cast<std::uint16_t>(value.size()));
    out.Bytes(value);
  };
  out.Bytes(header);
  out.UInt8(1);
  out.UInt8(2);
  out.UInt8(0);
  text("Dawn");
  out.UInt8(3);
  text("Morgenr\xC3\xB6te");
  text("Ada Lens");
  text("https://ada.example");
  text("Brivolant Photos/1.0.0.0/Mac/x86/");
  out.UInt8(2);
  out.Double(Date{2009, 3, 4, 14, 5, 6}.TotalSeconds());
  out.UInt8(1);
  out.UInt8(0);
  text("First light");
  out.UInt32(static_cast<std::uint32_t>(preview.size()));
  out.Bytes(preview);
  out.UInt32(5);
  out.Bytes("stack");
  return out.Take();
}

TEST_F(Styles, FilesAreAsTheFormatSays) {
  const std::string preview = JpegExporter().SaveToString(TestPicture(20, 10));
  const FolderItem file = folder.Write("dawn.oneClick", ByHand("QMBPonCW", preview));
  OneClickWonder style(services);
  ASSERT_TRUE(style.Load(file)) << style.LastErrorMessage;
  EXPECT_EQ(style.Name(), "Dawn");
  EXPECT_EQ(style.Name(3), "Morgenr\xC3\xB6te");
  EXPECT_EQ(style.Name(7), "") << "no other language stands in";
  EXPECT_EQ(style.Description(), "First light");
  EXPECT_EQ(style.Description(3), "");
  EXPECT_EQ(style.Creator, "Ada Lens");
  EXPECT_EQ(style.ContactLink, "https://ada.example");
  EXPECT_EQ(style.Category, 2);
  EXPECT_EQ(style.CreationDate, (Date{2009, 3, 4, 14, 5, 6}));
  EXPECT_EQ(style.StyleData, "stack");
  EXPECT_EQ(style.Preview().Width(), 20);
  EXPECT_EQ(style.File, file);
  // Written back it is the same, its preview too.
  ASSERT_TRUE(style.Save({}));
  EXPECT_EQ(ReadFile(file), ByHand("QMBPonCW", preview));
  // The header of the first version reads as well, and is written as the present one.
  const std::string earlier =
      "\x1F"
      "Brivolant Photos 1-Click Wonder";
  folder.Write("old.oneClick", ByHand(earlier, ""));
  OneClickWonder old(services);
  ASSERT_TRUE(old.Load(folder.Child("old.oneClick"))) << old.LastErrorMessage;
  EXPECT_FALSE(old.HasPreview());
  EXPECT_TRUE(old.Preview().IsNil());
  ASSERT_TRUE(old.Save({}));
  EXPECT_EQ(ReadFile(old.File), ByHand("QMBPonCW", ""));
}

TEST_F(Styles, DamagedFilesChangeNothing) {
  const std::string whole = ByHand("QMBPonCW", "no jpeg");
  OneClickWonder style(services);
  ASSERT_TRUE(style.LoadBytes(whole, "x")) << "a preview that cannot be decoded is none";
  EXPECT_TRUE(style.Preview().IsNil());
  for (std::size_t size = 0; size < whole.size(); ++size) {
    OneClickWonder broken = Style("kept");
    ASSERT_FALSE(broken.LoadBytes(whole.substr(0, size), "cut.oneClick")) << size;
    ASSERT_EQ(broken.Name(), "kept");
    ASSERT_THAT(broken.LastErrorMessage, HasSubstr("\"cut.oneClick\""));
  }
  EXPECT_FALSE(style.LoadBytes("QMBPonCX" + whole.substr(8), "x"));
  EXPECT_FALSE(style.Load(folder.Child("missing.oneClick")));
  EXPECT_THAT(style.LastErrorMessage, HasSubstr("\"missing.oneClick\""));
  EXPECT_FALSE(style.Load(folder.Write("style.txt", whole)));
}

TEST_F(Styles, PreviewsAreCompressedOnceAndKept) {
  OneClickWonder style = Style("Preview");
  style.Preview(TestPicture(60, 40));
  ASSERT_TRUE(style.Save(folder.Child("a.oneClick")));
  const auto first = ReadFile(folder.Child("a.oneClick"));
  ASSERT_TRUE(style.Save(folder.Child("a.oneClick")));
  EXPECT_EQ(ReadFile(folder.Child("a.oneClick")), first);
  style.Preview(TestPicture(30, 40, 2));
  ASSERT_TRUE(style.Save(folder.Child("a.oneClick")));
  EXPECT_NE(ReadFile(folder.Child("a.oneClick")), first);
  OneClickWonder copy = style.Clone();
  EXPECT_EQ(copy.Name(), "Preview");
  EXPECT_EQ(copy.Preview().Width(), 30);
  EXPECT_NE(copy.ID, style.ID);
  EXPECT_TRUE(copy.File.IsNil());
  EXPECT_FALSE(style.Save(FolderItem("/proc/nowhere/x.oneClick")));
  EXPECT_THAT(style.LastErrorMessage, HasSubstr("\"x.oneClick\""));
  EXPECT_EQ(OneClickWonder(services).Name(), "Untitled");
  // Texts longer than their count can say are cut between two characters.
  std::string endless(65534, 'x');
  endless += "\xC3\xA4\xC3\xA4";
  style.Creator = endless;
  OneClickWonder read(services);
  ASSERT_TRUE(read.LoadBytes(style.Bytes(), "x"));
  EXPECT_EQ(read.Creator, std::string(65534, 'x'));
}

TEST_F(Styles, TheStoreListsByCategoryFactoryFirst) {
  OneClickWonderStorage storage(services);
  storage.DefaultWondersFolder = folder.Child("factory");
  storage.usersCustomWondersFolder = folder.Child("own");
  ASSERT_FALSE(storage.DefaultWondersFolder.CreateAsFolder());
  const auto put = [&](const char* file, const char* name, int category) {
    OneClickWonder style = Style(name);
    style.Category = category;
    EXPECT_TRUE(style.Save(folder.Child(file)));
  };
  put("factory/b.oneClick", "Two", 1);
  put("factory/a.oneClick", "One", 0);
  put("factory/z.oneClick", "Nowhere", 77);
  folder.Write("factory/bad.oneClick", "nothing");
  folder.Write("factory/readme.txt", "no style");
  storage.Load();
  storage.Load();
  EXPECT_EQ(storage.Wonders().size(), 3U);
  EXPECT_EQ(log.lines.size(), 1U);
  EXPECT_THAT(log.lines[0], HasSubstr("bad.oneClick"));
  EXPECT_EQ(storage.Count(), 1);
  EXPECT_EQ(storage.item(0)->Name(), "One");
  EXPECT_EQ(storage.item(1), nullptr);
  EXPECT_EQ(storage.item(-1), nullptr);
  EXPECT_EQ(storage.CategoryCount(), 5);
  EXPECT_EQ(storage.Named("two")->Category, 1);
  EXPECT_EQ(storage.Named("three"), nullptr);

  // Found while it was being saved, a style is not there twice.
  const auto again = std::make_shared<OneClickWonder>(services);
  ASSERT_TRUE(again->Load(storage.item(0)->File));
  EXPECT_TRUE(storage.Add(again));
  EXPECT_EQ(storage.Wonders().size(), 3U);
  EXPECT_EQ(storage.item(0), again);

  // A new style gets a file by its name in the user's folder, a second of that name a number.
  const auto added = [&](const std::string& name) {
    auto style = std::make_shared<OneClickWonder>(Style(name));
    style->Category = OneClickWonderStorage::kUsersCategory;
    EXPECT_TRUE(storage.Add(style));
    return style->File.Name();
  };
  EXPECT_EQ(added("My Very \"own\", style."), "My_Very_own_style.oneClick");
  EXPECT_EQ(added("My Very own style"), "My_Very_own_style-1.oneClick");
  EXPECT_EQ(added("A name that is much longer than thirty-one characters"),
            "A_name_that_is_much_longer_than.oneClick");
  EXPECT_FALSE(storage.Add(nullptr));
  storage.currentCategory = OneClickWonderStorage::kUsersCategory;
  EXPECT_EQ(storage.Count(), 3);
  // What comes into the folder or leaves it is seen; the others stay the objects they are.
  const auto kept = storage.item(0);
  ASSERT_FALSE(storage.item(1)->File.Delete());
  put("own/new.oneClick", "New", 5);
  EXPECT_TRUE(storage.Refresh());
  EXPECT_FALSE(storage.Refresh());
  EXPECT_EQ(storage.Count(), 3);
  EXPECT_EQ(storage.item(0), kept);
  EXPECT_EQ(storage.item(2)->Name(), "New");
  storage.Remove(*kept);
  EXPECT_EQ(storage.Count(), 2);
  // A folder that cannot be written keeps the style out.
  storage.usersCustomWondersFolder = FolderItem("/proc/nowhere");
  EXPECT_FALSE(storage.Add(std::make_shared<OneClickWonder>(Style("Lost"))));
  EXPECT_EQ(storage.Count(), 2);
}

TEST_F(Styles, SourcesSayWhatAStyleIs) {
  const std::string source =
      "# warm\nname = Warm Evening\nname[German] = Warmer Abend\nabout = Late light.\n"
      "category = Romantic\nblend = Screen\nopacity = 0.5\n\n[Top Layer]\r\n"
      "Greyscale = on\nLevels.Shadows = 12\nOverlay.overlayColor = #102030\n\n"
      "[bottom layer]\nBlur.isFocal = true\n";
  OneClickWonder style(services);
  std::string error;
  ASSERT_TRUE(StyleSource::Read(source, services, style, error)) << error;
  EXPECT_EQ(style.Name(0), "Warm Evening");
  EXPECT_EQ(style.Name(3), "Warmer Abend");
  EXPECT_EQ(style.Category, 2);
  brivolantProcessorLite processor(EffectRegistry(), services);
  processor.Startup();
  ASSERT_EQ(processor.StyleData(style.StyleData), StyleFault::kNone);
  EXPECT_EQ(processor.BlendMode(), 2);
  EXPECT_EQ(processor.BlendAlpha, 0.5F);
  std::vector<std::string> enabled;
  for (int stack : {kForeground, kBackground}) {
    for (const auto& module : processor.stacks.at(static_cast<std::size_t>(stack))) {
      if (module->Enabled()) enabled.push_back(module->Name());
    }
  }
  // In the order of their naming, not of the list.
  EXPECT_THAT(enabled, testing::ElementsAre("Greyscale", "Levels", "Overlay", "Blur"));
  // Its own source reads back as the same style.
  const std::string written = StyleSource::Write(style, services);
  OneClickWonder again(services);
  ASSERT_TRUE(StyleSource::Read(written, services, again, error)) << error << written;
  EXPECT_EQ(StyleSource::Write(again, services), written);
  EXPECT_EQ(again.StyleData, style.StyleData);
  EXPECT_EQ(again.Name(3), "Warmer Abend");

  for (const auto& [bad, why] : {std::pair{"name = x\nnonsense", "Line 2"},
                                 {"name = x\ncolor = red", "does not have"},
                                 {"name[Klingon] = x", "does not have"},
                                 {"name = x\ncategory = Nothing", "does not fit"},
                                 {"name = x\nopacity = 3", "does not fit"},
                                 {"name = x\nblend = Sideways", "does not fit"},
                                 {"name = x\n[top layer]\nNo Effect = on", "does not exist"},
                                 {"name = x\n[top layer]\nLevels.None = 3", "setting"},
                                 {"name = x\n[top layer]\nLevels.Shadows = many", "does not fit"},
                                 {"name = x\n[top layer]\nLevels = off", "does not fit"},
                                 {"[top layer]\nLevels = on", "no name"}}) {
    OneClickWonder kept = Style("kept");
    EXPECT_FALSE(StyleSource::Read(bad, services, kept, error)) << bad;
    EXPECT_THAT(error, HasSubstr(why));
    EXPECT_EQ(kept.Name(), "kept");
  }
}

TEST_F(Styles, OfTheProgramAreManyAndEachChangesAPhoto) {
  OneClickWonderStorage storage(services);
  storage.DefaultWondersFolder =
      otherSharedComponents::ResourcesFolder().Child(OneClickWonderStorage::kFolderName);
  storage.usersCustomWondersFolder = folder.Child("own");
  storage.Load();
  EXPECT_GE(storage.Wonders().size(), 60U);
  const Picture example = OneClickWonderStorage::PreviewImage();
  ASSERT_FALSE(example.IsNil());
  const Picture plain = StyleSource::Render({}, example, 100, services);
  for (int category = 0; category < OneClickWonderStorage::kUsersCategory; ++category) {
    storage.currentCategory = category;
    EXPECT_GE(storage.Count(), 12) << category;
    std::vector<Picture> looks;
    for (int i = 0; i < storage.Count(); ++i) {
      const auto style = storage.item(i);
      SCOPED_TRACE(style->Name());
      for (const int language : {0, 3}) {
        EXPECT_NE(style->Name(language), "");
        EXPECT_NE(style->Description(language), "");
      }
      EXPECT_FALSE(style->Preview().IsNil());
      const Picture look = StyleSource::Render(style->StyleData, example, 100, services);
      EXPECT_GT(LargestDifference(look, plain), 3);
      for (const Picture& other : looks) EXPECT_GT(LargestDifference(look, other), 8);
      looks.push_back(look);
    }
  }
}

}  // namespace
}  // namespace brivolant::test
