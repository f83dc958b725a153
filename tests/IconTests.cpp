// SPDX-License-Identifier: MIT
// Icon files where people meet them: as thumbnails, as previews, and beside the sidebar's places.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "Helpers.h"
#include "browser/FilePreview.h"
#include "browser/SideBarItem.h"
#include "browser/browserThumbnailGetter.h"
#include "formats/BinaryDictionary.h"
#include "formats/PictureStrings.h"
#include "formats/iconObjectExtensions.h"
#include "platform/files/BinaryStream.h"

namespace brivolant::test {
namespace {

std::string BigEndian(std::size_t value) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift);
  return bytes;
}

/// An icon file with a PNG of each colour at 128 and 512 pixels, in their upper half transparent.
std::string ICNS(Color small, Color large) {
  const auto entry = [](const char* type, int size, Color color) {
    Picture picture = PlainPicture(size, size, color);
    const Grey mask = picture.Mask(true)->Edit();
    for (int y = 0; y < size; ++y) {
      for (int x = 0; x < size; ++x) mask.Row(y)[x] = y < size / 2 ? 255 : 0;
    }
    const std::string png = PngExporter().SaveToString(picture);
    return type + BigEndian(png.size() + 8) + png;
  };
  const std::string entries = entry("ic07", 128, small) + entry("ic09", 512, large);
  return "icns" + BigEndian(entries.size() + 8) + entries;
}

/// A Windows icon of 48 pixels with 32 bits each, all of one colour.
std::string ICO(Color color) {
  constexpr int kSide = 48;
  ByteWriter bitmap;
  bitmap.UInt32(40);
  bitmap.UInt32(kSide);
  bitmap.UInt32(2 * kSide);
  bitmap.UInt16(1);
  bitmap.UInt16(32);
  bitmap.Bytes(std::string(24, '\0'));
  for (int i = 0; i < kSide * kSide; ++i) {
    for (const int part : {int{color.Blue}, int{color.Green}, int{color.Red}, 255}) {
      bitmap.UInt8(static_cast<std::uint8_t>(part));
    }
  }
  const std::string image = bitmap.Take();
  ByteWriter file;
  file.UInt16(0);
  file.UInt16(1);
  file.UInt16(1);
  file.Bytes(std::string("\x30\x30\0\0\1\0\x20\0", 8));
  file.UInt32(static_cast<std::uint32_t>(image.size()));
  file.UInt32(22);
  file.Bytes(image);
  return file.Take();
}

constexpr Color kSmall{200, 20, 20};
constexpr Color kLarge{20, 20, 200};

struct FakeIcons final : IconSource {
  std::map<std::string, Color> theme;
  std::vector<std::string> asked;
  Picture Icon(const std::vector<std::string>& names, int size) override {
    asked = names;
    for (const std::string& name : names) {
      if (const auto known = theme.find(name); known != theme.end()) {
        return PlainPicture(size, size, known->second);
      }
    }
    return {};
  }
};

TEST(IconFiles, StandForThemselvesAndOthersForTheirKind) {
  namespace ext = iconObjectExtensions;
  TemporaryFolder folder;
  RecordingLog log;
  FakeIcons icons;
  icons.theme = {{"folder", kWhite},
                 {"image-png", {1, 2, 3}},
                 {"folder-pictures", {4, 5, 6}},
                 {"brivolant-photos", {7, 8, 9}}};
  const FolderItem icns = folder.Write("a.ICNS", ICNS(kSmall, kLarge));
  const FolderItem broken = folder.Write("b.ico", "no icon");
  const FolderItem image = folder.Write("c.png", "x");
  EXPECT_EQ(ext::Icon(icns, icons, log).Thumbnail().At(64, 100), kSmall);
  EXPECT_EQ(ext::Icon(icns, icons, log).BestIcon(300).Width(), 512);
  EXPECT_EQ(ext::Icon(image, icons, log).Small().At(3, 3), (Color{1, 2, 3}));
  EXPECT_TRUE(ext::OpenAsIcon(broken, log).Error);
  (void)ext::Icon(broken, icons, log);
  EXPECT_FALSE(icons.asked.empty()) << "what is no icon is shown as any other file";
  EXPECT_TRUE(ext::Preview(image, 256).IsNil());
  EXPECT_TRUE(ext::Preview(folder.Child("none.icns"), 256).IsNil());

  EXPECT_EQ(ext::Icon(folder.Item(), icons, log).Large().At(1, 1), kWhite);
  EXPECT_TRUE(ext::OwnIcon(folder.Item(), 16).IsNil());
  folder.Write(".VolumeIcon.icns", ICNS(kSmall, kLarge));
  EXPECT_EQ(ext::OwnIcon(folder.Item(), 16).At(64, 100), kSmall);
  EXPECT_EQ(ext::Icon(folder.Item(), icons, log).HiRes512().At(9, 500), kLarge);

  EXPECT_EQ(ext::LeopardIcon("ToolbarPicturesFolderIcon", icons, log).Small().At(1, 1),
            (Color{4, 5, 6}));
  EXPECT_TRUE(ext::LeopardIcon("NoSuchIcon", icons, log).AsPicture().IsNil());
  EXPECT_EQ(ext::ApplicationIcon(-1, icons, log).Width(), 256);
  EXPECT_EQ(ext::ApplicationIcon(20, icons, log).Width(), 24);
}

TEST(IconFiles, AreThumbnailsAndPreviews) {
  TemporaryFolder folder;
  const ThumbnailMaker maker(ThumbnailCache(folder.Child("thumbnails"), "test"));
  const QImage icns =
      maker.Make(folder.Write("a.icns", ICNS(kSmall, kLarge)), ThumbnailCache::kLarge);
  ASSERT_EQ(icns.size(), QSize(256, 256));
  EXPECT_EQ(qAlpha(icns.pixel(128, 20)), 0);
  EXPECT_EQ(icns.pixel(128, 230), qRgb(kLarge.Red, kLarge.Green, kLarge.Blue));
  const QImage ico = maker.Make(folder.Write("b.ico", ICO(kSmall)), ThumbnailCache::kLarge);
  ASSERT_EQ(ico.size(), QSize(48, 48));
  EXPECT_EQ(ico.pixel(20, 20), qRgb(kSmall.Red, kSmall.Green, kSmall.Blue));
  EXPECT_TRUE(maker.Make(folder.Write("c.icns", "icns"), ThumbnailCache::kLarge).isNull());
  // An entry is a picture of its size, or of twice that.
  for (const auto& [side, shown] : {std::pair{1024, true}, {1025, false}}) {
    const std::string whole = PngExporter().SaveToString(PlainPicture(side, 1, kLarge));
    const std::string entry = "ic09" + BigEndian(whole.size() + 8) + whole;
    const FolderItem file =
        folder.Write(std::to_string(side) + ".icns", "icns" + BigEndian(entry.size() + 8) + entry);
    EXPECT_EQ(maker.Make(file, ThumbnailCache::kLarge).isNull(), !shown) << side;
  }

  const EnglishNumbers english;
  const FilePreview preview = FilePreviewer().Of(folder.Child("b.ico"), 800, true);
  EXPECT_EQ(preview.Shown.Width(), 48);
  ASSERT_EQ(preview.Lines.size(), 3U);
  EXPECT_EQ(preview.Lines[0], "b.ico");
  EXPECT_THAT(preview.Lines[1], testing::EndsWith("0.0 Megapixel (48 x 48)"));
}

TEST(IconFiles, OfAFolderStandInTheSidebarAndComeBack) {
  TemporaryFolder folder;
  const FolderItem file = folder.Child("places.sbit");
  ASSERT_FALSE(folder.Child("card").CreateAsFolder());
  ASSERT_FALSE(folder.Child("plain").CreateAsFolder());
  folder.Write("card/.VolumeIcon.icns", ICNS(kSmall, kLarge));
  SideBarCollection places;
  places.Add("Card", {}, folder.Child("card"));
  places.Add("Plain", {}, folder.Child("plain"));
  places.Add("Drawn", "Pictures", folder.Child("card"));
  ASSERT_TRUE(SideBarSources::Save(file, places, [](const SideBarItem&) { return "a drawing"; }));
  SideBarCollection read;
  ASSERT_TRUE(SideBarSources::Load(file, read));
  ASSERT_EQ(read.Count(), 3);
  EXPECT_EQ(read.item[0]->image.At(64, 100), kSmall);
  ASSERT_NE(read.item[0]->image.Mask(), nullptr);
  EXPECT_EQ(read.item[0]->image.Mask()->At(64, 10), 255);
  EXPECT_TRUE(read.item[1]->image.IsNil());
  EXPECT_TRUE(read.item[2]->image.IsNil());
  EXPECT_EQ(read.item[2]->icon, "Pictures");

  // Another writer knows no drawings, only pictures.
  Dictionary entry;
  entry.Value("Name", "Elsewhere");
  entry.Value("File", folder.Child("plain").ShellPath());
  entry.Value("icon", PngExporter().SaveToString(PlainPicture(16, 16, kLarge)));
  Dictionary stored;
  stored.Value(0, entry);
  ASSERT_TRUE(BinaryDictionary::SaveAsBinaryDictionary(file, stored, nullptr));
  SideBarCollection others;
  ASSERT_TRUE(SideBarSources::Load(file, others));
  ASSERT_EQ(others.Count(), 1);
  EXPECT_EQ(others.item[0]->image.At(8, 8), kLarge);
}

}  // namespace
}  // namespace brivolant::test
