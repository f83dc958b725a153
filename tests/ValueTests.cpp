// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Helpers.h"
#include "platform/files/BinaryStream.h"
#include "platform/values/SharedComponents.h"
#include "platform/values/Variant.h"

namespace brivolant::test {
namespace {

TEST(Dictionary, KeepsOrderAndFindsByValue) {
  Dictionary d;
  for (const char* key : {"z", "a", "m"}) d.Value(key, key);
  d.Value(1, "number");
  d.Value("a", "again");
  EXPECT_EQ(d.Count(), 4);
  EXPECT_EQ(d.Key(1).ToText(), "a");
  EXPECT_EQ(d.Value("a").ToText(), "again");
  EXPECT_EQ(d.Value(1.0).ToText(), "number");
  EXPECT_FALSE(d.HasKey("1"));
  EXPECT_EQ(d.Lookup("none", 7).ToInt(), 7);

  Dictionary copy = d;
  copy.Remove("z");
  EXPECT_EQ(copy.Key(0).ToText(), "a");
  EXPECT_EQ(copy.Value("m").ToText(), "m");
  EXPECT_EQ(d.Count(), 4) << "a copy is a value of its own";
}

TEST(Variant, ConversionsAreStableAndNeverFail) {
  EXPECT_EQ(Variant("  -12.75x").ToDouble(), -12.75);
  EXPECT_EQ(Variant("abc").ToInt(), 0);
  EXPECT_EQ(Variant(1e300).ToInt(), 2147483647);
  EXPECT_EQ(Variant(std::nan("")).ToInt(), 0);
  EXPECT_EQ(Variant(0.1).ToText(), "0.1");
  EXPECT_EQ(Variant(0.1F).ToText(), "0.1");
  EXPECT_TRUE(Variant(Variant(true).ToText()).ToBool());
  EXPECT_FALSE(Variant(Variant(false).ToText()).ToBool());
  EXPECT_EQ(Variant("#FF8000").ToColor(), (Color{255, 128, 0}));
  EXPECT_EQ(Variant(Variant(Color{1, 2, 3}).ToText()).ToColor(), (Color{1, 2, 3}));
  const Date date{2024, 2, 29, 23, 59, 58};
  EXPECT_EQ(Variant(Variant(date).ToText()).ToDate(), date);
  EXPECT_TRUE(Variant(3) == Variant(3.0));
  EXPECT_FALSE(Variant("3") == Variant(3));
}

TEST(Date, CalendarArithmetic) {
  EXPECT_EQ((Date{2009, 13, 32, 25, 0, 0}).Normalized(), (Date{2010, 2, 2, 1, 0, 0}));
  EXPECT_EQ((Date{1904, 1, 1, 0, 0, 0}).TotalSeconds(), 0);
  EXPECT_EQ((Date{1970, 1, 1, 0, 0, 0}).TotalSeconds(), 2082844800.0);
  const Date date{2026, 11, 24, 8, 30, 15};
  EXPECT_EQ(Date::FromTotalSeconds(date.TotalSeconds()), date);
  EXPECT_EQ(Date::FromUnixTime(date.UnixTime()), date);
  EXPECT_EQ(date.DayOfWeek(), 3);
  EXPECT_EQ((Date{2024, 12, 31, 0, 0, 0}).DayOfYear(), 366);
  EXPECT_FALSE(Date::FromText("2009-02-30 10:00:00"));
  EXPECT_FALSE(Date::FromText("yesterday"));
  EXPECT_EQ((Date{65279, 12, 1, 0, 0, 0}).Normalized().Year, 32767);
  EXPECT_EQ(Date::FromTotalSeconds(std::nan("")), Date{});
  EXPECT_GT(Date::FromTotalSeconds(1e300).Year, 9000) << "a damaged number has a bound";
}

TEST(Text, PlaceholdersSearchAndEncoding) {
  EXPECT_EQ(WithPlaceholders("<fileName> in <catName>, <FILENAME>",
                             {{"<filename>", "a<filename>b"}, {"<catname>", "c"}}),
            "a<filename>b in c, a<filename>b")
      << "what was put in is not searched again";
  EXPECT_EQ(FindIgnoringCase("Hello", "LL"), 2U);
  EXPECT_EQ(FindIgnoringCase("Hello", "x"), std::string::npos);
  EXPECT_EQ(EnsureUTF8("caf\xE9"), "caf\xC3\xA9");
  EXPECT_EQ(EnsureUTF8("caf\xC3\xA9"), "caf\xC3\xA9");
  EXPECT_FALSE(IsUTF8("\xED\xA0\x80"));
  const std::string bytes = std::string("\0\x01\xFF", 3) + std::string(80, 'm');
  const std::string lines = Base64Encode(bytes, 76);
  EXPECT_EQ(lines.find("\r\n"), 76U);
  EXPECT_EQ(Base64Decode(lines), bytes);
}

TEST(Text, PartsOfTexts) {
  using testing::ElementsAre;
  EXPECT_THAT(Split("a,,b", ','), ElementsAre("a", "", "b"));
  EXPECT_THAT(Split("", ','), ElementsAre(""));
  EXPECT_EQ(Trim(" \t a b \r\n"), "a b");
  EXPECT_EQ(Trim("  "), "");
  EXPECT_EQ(Hexadecimal(255, 4), "00FF");
  EXPECT_TRUE(EqualIgnoringCase("aBc1", "AbC1"));
  EXPECT_FALSE(EqualIgnoringCase("ab", "abc"));
  EXPECT_EQ(LowerCase("\xC3\x84"
                      "BC"),
            "\xC3\x84"
            "bc")
      << "bytes of other letters stay";
}

TEST(SharedComponents, NamesAndIdentifiers) {
  using namespace otherSharedComponents;
  EXPECT_EQ(iNetSafe("My \"best\" photo, it's. 1"), "My_best_photo_its_1");
  EXPECT_EQ(iNetSafe(std::string(40, 'x')).size(), 31U);
  EXPECT_EQ(iNetSafe("\xC3\xA9\xC3\xA9"), "\xC3\xA9\xC3\xA9");

  struct Small final : Random {
    double Rnd() override { return 0; }
  } small;
  EXPECT_EQ(NewGUID(small), "00000000-0000-0000-0000-000000000000");
  SystemRandom random(5);
  for (int i = 0; i < 50; ++i) {
    const std::string id = NewGUID(random);
    ASSERT_EQ(id.size(), 36U);
    for (const std::size_t at : {8U, 13U, 18U, 23U}) ASSERT_EQ(id[at], '-');
    ASSERT_EQ(id.find_first_not_of("0123456789ABCDEF-"), std::string::npos);
  }

  MenuItem menu;
  menu.Children = {createMenuItem("a", "1", "", false, true),
                   createMenuItem("b", "2", "", true, true)};
  Selected(menu, 0);
  EXPECT_TRUE(menu.Children[0].Checked);
  EXPECT_FALSE(menu.Children[1].Checked);
}

TEST(BinaryStream, ReadsPastTheEndFailOnceForAll) {
  BinaryStream stream("\x01\x02\x03");
  EXPECT_EQ(stream.ReadUInt16(), 0x0102);
  stream.Position(0);
  stream.LittleEndian = true;
  EXPECT_EQ(stream.ReadUInt16(), 0x0201);
  EXPECT_EQ(stream.ReadUInt32(), 0U);
  EXPECT_TRUE(stream.Failed());
  EXPECT_TRUE(stream.EndOfFile());
  stream.Position(99);
  EXPECT_EQ(stream.ReadUpTo(5), "");
}

}  // namespace
}  // namespace brivolant::test
