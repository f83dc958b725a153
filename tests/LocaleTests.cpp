// SPDX-License-Identifier: MIT
// Numbers of files and options are the same everywhere; those for people are as they write them.
// The whole suite runs under other locales besides (CMakeLists.txt).
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLocale>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "Helpers.h"
#include "engine/ParameterText.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "formats/IFFData.h"
#include "formats/PictureStrings.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/BinaryStream.h"
#include "platform/values/Numbers.h"

namespace brivolant::test {
namespace {

using testing::HasSubstr;

TEST(Numbers, ReachTheCLibraryInRunsUnderALocale) {
  const char* wanted = std::getenv("BRIVOLANT_RUN_LOCALE");
  if (wanted == nullptr) GTEST_SKIP() << "an ordinary run";
  EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), wanted);
  EXPECT_STREQ(std::localeconv()->decimal_point, ",") << "this run would prove nothing";
  EXPECT_EQ(QLocale().decimalPoint(), QStringLiteral(","));
}

TEST(Numbers, OfFilesHaveAPoint) {
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  struct Fixed {
    double value;
    int decimals;
    const char* text;
  };
  for (const Fixed& c : {Fixed{0.1, 3, "0.100"}, Fixed{-0.8125, 3, "-0.812"},
                         Fixed{1234567.5, 1, "1234567.5"}, Fixed{2, 0, "2"}, Fixed{-0.0, 1, "-0.0"},
                         Fixed{kInfinite, 1, "0.0"}, Fixed{std::nan(""), 0, "0"}}) {
    EXPECT_EQ(FixedNumber(c.value, c.decimals), c.text);
  }
  EXPECT_EQ(FixedNumber(std::numeric_limits<double>::max(), 60).size(), 309U + 61U);
  EXPECT_EQ(PaddedNumber(7, 2), "07");
  EXPECT_EQ(PaddedNumber(-7, 4), "-007");
  EXPECT_EQ(PaddedNumber(12345, 2), "12345");
  for (const auto& [text, number] :
       std::vector<std::pair<std::string, std::optional<double>>>{{"0.5", 0.5},
                                                                  {"-3.5", -3.5},
                                                                  {"1e3", 1000},
                                                                  {".5", 0.5},
                                                                  {"0,5", std::nullopt},
                                                                  {"", std::nullopt},
                                                                  {" 1", std::nullopt},
                                                                  {"1 ", std::nullopt},
                                                                  {"1x", std::nullopt},
                                                                  {"inf", std::nullopt},
                                                                  {"nan", std::nullopt},
                                                                  {"1e999", std::nullopt},
                                                                  {"1.234,5", std::nullopt}}) {
    EXPECT_EQ(NumberFromText(text), number) << text;
  }
  for (const auto& [text, number] :
       std::vector<std::pair<std::string, double>>{{"0.5", 0.5},
                                                   {" +2.25 mm", 2.25},
                                                   {"-1e2", -100},
                                                   {"7,9", 7},
                                                   {"", 0},
                                                   {"x", 0},
                                                   // What no double holds lies at its ends.
                                                   {"1e400", kInfinite},
                                                   {"-1e400 mm", -kInfinite},
                                                   {"1e-400", 0},
                                                   {"-1e-400", 0},
                                                   {"0.001e400", kInfinite},
                                                   {"1000e-400", 0},
                                                   {"0e999", 0},
                                                   {"+2e+99999999999999999999", kInfinite},
                                                   {"2E-99999999999999999999", 0},
                                                   {"1" + std::string(400, '0'), kInfinite},
                                                   {"0." + std::string(400, '0') + "1", 0}}) {
    EXPECT_EQ(LeadingNumber(text), number) << text;
  }
  EXPECT_EQ(Hexadecimal(0, 1), "0");
  EXPECT_EQ(Hexadecimal(0xFACE, 8), "0000FACE");
  EXPECT_EQ(Hexadecimal(0xFEDCBA9876543210U, 2), "FEDCBA9876543210");
  EXPECT_EQ((Date{2009, 3, 4, 5, 6, 7}.Text()), "2009-03-04 05:06:07");
}

TEST(Numbers, OfTextBoxesComeBack) {
  Dictionary box;
  box.Value("x", 0.125);
  box.Value("Size", 12);
  Dictionary boxes;
  boxes.Value(0, box);
  const std::string text = TextFromValue(boxes);
  EXPECT_THAT(text, HasSubstr("0.125"));
  const auto read = ValueFromText(text, "texts");
  ASSERT_TRUE(read && read->As<Dictionary>() != nullptr);
  EXPECT_EQ(read->As<Dictionary>()->ValueAt(0).As<Dictionary>()->Value("x").ToDouble(), 0.125);
}

TEST(Numbers, ForPeopleFollowTheirLocale) {
  namespace fx = FolderitemExtensions;
  const struct Restore {
    ~Restore() { QLocale::setDefault(QLocale::system()); }
  } restore;
  struct Case {
    QLocale::Language language;
    const char* size;
    const char* large;
    const char* megapixel;
  };
  for (const Case& c : {Case{QLocale::English, "1.50 MB", "1,234 TB", "12.2 "},
                        Case{QLocale::German, "1,50 MB", "1.234 TB", "12,2 "},
                        Case{QLocale::French, "1,50 MB",
                             "1\xE2\x80\xAF"
                             "234 TB",
                             "12,2 "},
                        Case{QLocale::C, "1.50 MB", "1234 TB", "12.2 "}}) {
    QLocale::setDefault(QLocale(c.language));
    EXPECT_EQ(fx::AsFileSize(1572864, ".00"), c.size) << c.language;
    EXPECT_EQ(fx::AsFileSize(1234.0 * 1099511627776.0, ""), c.large) << c.language;
    EXPECT_THAT(SharedPictureEffects::Megapixel(4000, 3040), testing::StartsWith(c.megapixel));
    // Never where it is read again.
    EXPECT_EQ(FixedNumber(1234.5, 2), "1234.50");
    EXPECT_EQ(Variant(1234.5).ToText(), "1234.5");
  }
}

/// The settings of a document's package with another text in place of its crop.
void ReplaceCrop(const FolderItem& package, const std::string& text) {
  const FolderItem settings = package.Child(BrivolantDocument::kSettingsName);
  std::string bytes = ReadFile(settings).value();
  IFFData read;
  BinaryStream stream(bytes);
  stream.LittleEndian = true;
  (void)stream.ReadUInt16();
  const std::uint32_t size = stream.ReadUInt32();
  ASSERT_TRUE(read.Data(stream.ReadUpTo(size)));
  IFFData written;
  for (int i = 0; i < read.Count(); ++i) {
    constexpr int kCrop = 6;
    written.Add(read.ID(i), read.ID(i) == kCrop ? Variant(text) : read.Value(i));
  }
  ASSERT_FALSE(WriteFileAtomically(settings, bytes.substr(0, 2) + written.Data()));
}

TEST(Numbers, OfACropAreReadAsEverySystemWroteThem) {
  TestServices s;
  const FolderItem package = s.folder.Child("d.brvPhoto");
  {
    BrivolantDocument document(s.services);
    ASSERT_TRUE(document.ReadImage(
        s.folder.Write("a.png", PngExporter().SaveToString(TestPicture(80, 40)))));
    document.Crop = true;
    document.CropOffSet = {0.125, 0.25};
    document.CropSize = {0.5, 0.75};
    ASSERT_TRUE(document.Save(package));
  }
  EXPECT_THAT(ReadFile(package.Child(BrivolantDocument::kSettingsName)).value(),
              HasSubstr("0.125 0.250 0.500 0.750"));
  for (const char* text : {"", "0,125 0,250 0,500 0,750", "0.125 0.25 0.5 0.75"}) {
    if (*text != '\0') ReplaceCrop(package, text);
    BrivolantDocument read(s.services);
    ASSERT_TRUE(read.Load(package));
    EXPECT_EQ(read.CropOffSet, (Pair{0.125, 0.25})) << text;
    EXPECT_EQ(read.CropSize, (Pair{0.5, 0.75})) << text;
    EXPECT_EQ(read.Image().Width(), 40) << text;
    EXPECT_EQ(read.Image().Height(), 30) << text;
  }
  // Beyond all numbers it stays so, read once or again.
  ReplaceCrop(package, "0 -1e400 0.5 1e400");
  for (int time = 0; time < 2; ++time) {
    BrivolantDocument read(s.services);
    ASSERT_TRUE(read.Load(package));
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(read.CropOffSet, (Pair{0, -kInfinite}));
    EXPECT_EQ(read.CropSize, (Pair{0.5, kInfinite}));
    ASSERT_TRUE(read.Save());
  }
}

}  // namespace
}  // namespace brivolant::test
