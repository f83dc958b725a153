// SPDX-License-Identifier: MIT
// Looking at photos without opening them: the column view and quick look.
#include <QApplication>
#include <QSemaphore>
#include <QTest>
#include <QThreadPool>
#include <QWheelEvent>
#include <cmath>

#include "BrowsingHelpers.h"
#include "app/browse/QuickLookWindow.h"
#include "app/commands/ToolButtons.h"
#include "browser/DiskThreads.h"
#include "browser/FolderLister.h"
#include "browser/ui/ColumnPreview.h"
#include "effects/styles/OneClickWonder.h"
#include "kit/ifkSplitter.h"
#include "metadata/MetadataWriter.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/files/BinaryStream.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;

TEST(Columns, TellWhatThePhotoTellsOfItself) {
  const EnglishNumbers english;
  Browsing program({"a.jpg"});
  using enum MetadataBlock;
  using Act = MetadataChange::Act;
  const std::vector<MetadataChange> changes{{Act::kSet, kExif, "9003", "2008:10:22 16:28:39"},
                                            {Act::kSet, kIptc, "120", "On the beach"},
                                            {Act::kSet, kTiff, "8298", "\xC2\xA9 Ada"}};
  ASSERT_EQ(MetadataWriter::Write(program.Pictures().Child("a.jpg"), changes), "");
  ASSERT_TRUE(program.Shows({"a.jpg"}));
  program.Choose("ViewAsColumns");
  Click(program.Grid(), program.Cell(0));
  ExpectSoon(
      [&] { return program.Browser().previewCanvas().columnPreviewDisplayData(); },
      ElementsAre("On the beach", testing::_, testing::_,
                  testing::AllOf(testing::StartsWith("Taken: "), testing::HasSubstr("10/22/08")),
                  "\xC2\xA9 Ada"));
}

TEST(Columns, ShowWhatIsSelectedWithLinesThatCanBeHidden) {
  const EnglishNumbers english;
  Browsing program({"a.jpg", "b.jpg"});
  program.home.Write("Pictures/notes.txt", "words");
  ASSERT_TRUE(program.Shows({"a.jpg", "b.jpg", "notes.txt"}));
  program.Choose("ViewAsColumns");
  ColumnPreview& preview = program.Browser().previewCanvas();
  ASSERT_TRUE(preview.isVisible());
  const auto lines = [&] { return preview.columnPreviewDisplayData(); };
  Click(program.Grid(), program.Cell(1));
  ExpectSoon(lines, ElementsAre("b.jpg", "JPEG image, 0.0 Megapixel (64 x 48)",
                                testing::StartsWith("Recommended Print Size: ")));
  EXPECT_EQ(preview.Shown().size(), QSize(64, 48));
  // A file without a picture has its icon and its kind.
  Click(program.Grid(), program.Cell(2));
  ExpectSoon(lines, ElementsAre("notes.txt", testing::_));
  EXPECT_FALSE(preview.Shown().isNull());
  // With several, only the ground is there.
  Click(program.Grid(), program.Cell(1), Qt::ControlModifier);
  EXPECT_TRUE(preview.Shown().isNull());
  Click(preview, preview.InformationRect().center());
  EXPECT_FALSE(preview.PreviewDisplayMetaData());
  ifkSplitter& bar = program.Browser().splitter();
  const int before = program.Grid().width();
  Drag(bar, {2, 100}, {62, 100});
  EXPECT_EQ(program.Grid().width(), before + 60);
  const int left = bar.x();
  program.Window().close();
  program.Start();
  EXPECT_EQ(program.Browser().Mode(), multiViewFileBrowser::kColumnView);
  EXPECT_FALSE(program.Browser().previewCanvas().PreviewDisplayMetaData());
  EXPECT_EQ(program.Browser().splitter().x(), left);
  // A double click on the preview opens what it shows.
  ASSERT_TRUE(program.Shows({"a.jpg", "b.jpg", "notes.txt"}));
  Click(program.Grid(), program.Cell(0));
  ExpectSoon([&] { return program.Browser().previewCanvas().columnPreviewDisplayData(); },
             ElementsAre("a.jpg", testing::_, testing::_));
  DoubleClick(program.Browser().previewCanvas(), {80, 80});
  Settle();
  EXPECT_EQ(program.Document().Name, "a");
}

TEST(Columns, DocumentsAndStylesTellWhoMadeThem) {
  const EnglishNumbers english;
  Browsing program({"a.jpg"});
  program.OpenPhoto(program.Pictures().Child("a.jpg"));
  program.fileDialogs.files = {program.Pictures().Child("edited.brvPhoto")};
  program.Document().Copyright = "Ann 2026";
  program.Choose("RotateAndFlipRotate90");
  program.Choose("FileSave");
  program.Tool(ToolButtons::Browser().Identifier);
  Settle();
  ASSERT_TRUE(program.Shows({"a.jpg", "edited.brvPhoto"}));
  program.Choose("ViewAsColumns");
  ColumnPreview& preview = program.Browser().previewCanvas();
  Click(program.Grid(), program.Cell(1));
  ExpectSoon([&] { return preview.columnPreviewDisplayData(); },
             ElementsAre("edited", "Brivolant Photos Document, 0.0 Megapixel (64 x 48)",
                         testing::StartsWith("Recommended Print Size: "), "Ann 2026"));
  EXPECT_LT(preview.Shown().width(), preview.Shown().height());
}

/// Keeps the threads that folders are read on busy until it goes.
class BusyThreads {
 public:
  BusyThreads() {
    for (int i = 0; i < threads_.maxThreadCount(); ++i) {
      threads_.start([this] { go_.acquire(); });
    }
  }
  ~BusyThreads() {
    go_.release(threads_.maxThreadCount());
    threads_.waitForDone();
  }
  BusyThreads(const BusyThreads&) = delete;
  BusyThreads& operator=(const BusyThreads&) = delete;

 private:
  QThreadPool& threads_ = DiskThreads::For(FolderItem("/"));
  QSemaphore go_;
};

TEST(Columns, APreviewStaysWhileAChangedFolderIsReadSlowly) {
  Browsing program({"a.jpg", "b.jpg"});
  program.Choose("ViewAsColumns");
  const auto lines = [&] { return program.Browser().previewCanvas().columnPreviewDisplayData(); };
  Click(program.Grid(), program.Cell(1));
  ExpectSoon(lines, ElementsAre("b.jpg", testing::_, testing::_));
  {
    const BusyThreads busy;
    program.Photo("Pictures/c.jpg", 64, 48);
    ASSERT_TRUE(Until([&] { return program.Browser().Listing(); }));
    EXPECT_THAT(lines(), ElementsAre("b.jpg", testing::_, testing::_));
  }
  ASSERT_TRUE(program.Shows({"a.jpg", "b.jpg", "c.jpg"}));
  EXPECT_THAT(program.Selected(), ElementsAre("b.jpg"));
  EXPECT_THAT(lines(), ElementsAre("b.jpg", testing::_, testing::_));
  // What was taken away meanwhile is not shown any longer.
  {
    const BusyThreads busy;
    ASSERT_FALSE(program.Pictures().Child("b.jpg").Delete());
    ASSERT_TRUE(Until([&] { return program.Browser().Listing(); }));
  }
  ASSERT_TRUE(program.Shows({"a.jpg", "c.jpg"}));
  EXPECT_THAT(lines(), testing::IsEmpty());
}

std::string BorderFile(const Picture& preview) {
  ByteWriter out;
  const auto text = [&out](std::string_view words) {
    out.UInt16(static_cast<std::uint16_t>(words.size()));
    out.Bytes(words);
  };
  out.Bytes("QMBPBORD");
  out.UInt8(1);
  out.UInt8(2);
  text("ann.example");
  text("Brivolant Photos");
  out.Double(Date{2008, 5, 17, 9, 30, 0}.TotalSeconds());
  text("Ann");
  text("some-id");
  out.UInt32(5);
  out.Bytes("\x89PNG.");
  for (const float part : {0.8F, 0.1F, 0.2F, 0.7F}) out.Single(part);
  text("Oak");
  out.UInt8(3);
  const std::string jpeg = EncodeJpegBytes({preview, 0.5});
  out.UInt32(static_cast<std::uint32_t>(jpeg.size()));
  out.Bytes(jpeg);
  return out.Take();
}

TEST(Columns, StylesAndBordersShowTheirPreviewAndMaker) {
  Browsing program({});
  program.home.Write("Pictures/oak.brvBorder", BorderFile(PlainPicture(48, 30, {200, 120, 40})));
  const FolderItem style = program.Pictures().Child("warm.oneClick");
  OneClickWonder made(program.app->StyleServices());
  made.Name(OneClickWonder::kUsersLanguage, "Warm");
  made.Description(OneClickWonder::kUsersLanguage, "As by the fire");
  made.Creator = "Ben";
  made.ContactLink = "ben.example";
  made.Preview(PlainPicture(60, 40, {10, 200, 40}));
  ASSERT_TRUE(made.Save(style));
  ASSERT_TRUE(program.Shows({"oak.brvBorder", "warm.oneClick"}));
  ASSERT_TRUE(Until([&] { return !program.Browser().Rows().Item(1)->image.isNull(); }));
  ExpectSoon([&] { return program.Browser().Rows().Item(0)->image.size(); }, QSize(48, 30));
  program.Choose("ViewAsColumns");
  ColumnPreview& preview = program.Browser().previewCanvas();
  Click(program.Grid(), program.Cell(0));
  const auto lines = [&] { return preview.columnPreviewDisplayData(); };
  ExpectSoon(lines,
             ElementsAre("Oak", "Creator: Ann  ann.example", testing::StartsWith("Created: ")));
  EXPECT_EQ(preview.Shown().size(), QSize(48, 30));
  Click(program.Grid(), program.Cell(1));
  ExpectSoon(lines, ElementsAre("Warm", "Creator: Ben  ben.example",
                                testing::StartsWith("Created: "), "As by the fire"));
}

/// Whether a photo, as the tests have them, was read and is shown.
bool Whole(const QuickLookWindow& look) {
  const QSizeF size = look.PictureRect().size();
  return !look.Loading() && std::abs(size.width() / size.height() - 4.0 / 3) < 0.01;
}

struct Looking : Browsing {
  explicit Looking(const std::vector<std::string>& names) : Browsing(names) {
    EXPECT_TRUE(Until([&] { return Browser().Count() == static_cast<int>(names.size()); }));
  }
  QuickLookWindow& Look() { return *Window().QuickLook(); }
  std::string Title() { return Look().windowTitle().toStdString(); }
};

TEST(QuickLook, FollowsArrowKeysThroughFolderAndSelection) {
  Looking program({"a.jpg", "b.jpg", "c.jpg"});
  Click(program.Grid(), program.Cell(0));
  Key(program.Window(), Qt::Key_Space);
  ASSERT_TRUE(program.Look().isVisible());
  EXPECT_TRUE(program.app->QuickLookOpen);
  EXPECT_EQ(program.Title(), "a.jpg");
  ASSERT_TRUE(Until([&] { return Whole(program.Look()); }));
  Key(program.Look(), Qt::Key_Right);
  EXPECT_EQ(program.Title(), "b.jpg");
  EXPECT_THAT(program.Selected(), ElementsAre("b.jpg"));
  Key(program.Look(), Qt::Key_Left);
  Key(program.Look(), Qt::Key_Left);
  EXPECT_EQ(program.Title(), "a.jpg");
  Key(program.Look(), Qt::Key_Space);
  EXPECT_FALSE(program.Look().isVisible());
  EXPECT_FALSE(program.app->QuickLookOpen);
  // Several: the arrows stay within them.
  Click(program.Grid(), program.Cell(2), Qt::ControlModifier);
  program.Choose("FileQuickLook");
  EXPECT_EQ(program.Title(), "a.jpg \xE2\x80\x94 1 of 2");
  Key(program.Look(), Qt::Key_Right);
  EXPECT_EQ(program.Title(), "c.jpg \xE2\x80\x94 2 of 2");
  Key(program.Look(), Qt::Key_Right);
  EXPECT_EQ(program.Title(), "c.jpg \xE2\x80\x94 2 of 2");
  EXPECT_EQ(program.Browser().SelectedCount(), 2);
}

TEST(QuickLook, GoesFullScreenAndBackByIconAndKey) {
  Looking program({"a.jpg", "b.jpg"});
  Click(program.Grid(), program.Cell(0));
  Key(program.Window(), Qt::Key_Space);
  QuickLookWindow& look = program.Look();
  look.resize(500, 400);
  Click(look, look.iconFullScreenLocation().center());
  QuickLookWindow* full = look.FullScreenWindow();
  ASSERT_NE(full, nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(full));
  EXPECT_TRUE(full->isFullScreen());
  EXPECT_EQ(full->Parent(), &look);
  EXPECT_TRUE(look.isVisible());
  Key(*full, Qt::Key_Right);
  EXPECT_EQ(full->windowTitle(), QStringLiteral("b.jpg"));
  // "f" returns to the window, which has gone along.
  Key(*full, Qt::Key_F);
  EXPECT_FALSE(full->isVisible());
  EXPECT_TRUE(look.isVisible());
  EXPECT_EQ(program.Title(), "b.jpg");
  Key(look, Qt::Key_F);
  full = look.FullScreenWindow();
  Click(*full, full->iconCloseLocation().center());
  EXPECT_FALSE(full->isVisible());
  EXPECT_FALSE(look.isVisible());
  // The window comes back at its place.
  const QSize size = look.size();
  program.Window().close();
  program.Start();
  ASSERT_TRUE(program.Shows({"a.jpg", "b.jpg"}));
  Click(program.Grid(), program.Cell(0));
  Key(program.Window(), Qt::Key_Space);
  EXPECT_EQ(program.Look().size(), size);
}

TEST(QuickLook, ZoomsAboutThePointerAndPansWithinThePicture) {
  Looking program({});
  program.Photo("Pictures/large.jpg", 1600, 1200);
  ASSERT_TRUE(program.Shows({"large.jpg"}));
  Click(program.Grid(), program.Cell(0));
  Key(program.Window(), Qt::Key_Space);
  QuickLookWindow& look = program.Look();
  look.resize(600, 500);
  ASSERT_TRUE(Until([&] { return Whole(look); }));
  const QRectF whole = look.PictureRect();
  EXPECT_NEAR(whole.width() / whole.height(), 4.0 / 3, 0.01);
  EXPECT_LE(whole.width(), 560);
  const QPointF at(whole.left() + whole.width() / 4, whole.top() + whole.height() / 4);
  QWheelEvent wheel(at, look.mapToGlobal(at), {}, {0, 360}, Qt::NoButton, {}, Qt::NoScrollPhase,
                    false);
  QApplication::sendEvent(&look, &wheel);
  EXPECT_GT(look.Zoom(), 1.5);
  const QRectF closer = look.PictureRect();
  EXPECT_NEAR((at.x() - closer.left()) / closer.width(), 0.25, 0.01);
  Drag(look, {300, 250}, {200, 250});
  EXPECT_LT(look.PictureRect().left(), closer.left());
  for (int i = 0; i < 50; ++i) Key(look, Qt::Key_Right, Qt::ShiftModifier);
  // Its right edge is the window's: no further.
  EXPECT_NEAR(look.PictureRect().right(), 600, 1);
  Key(look, Qt::Key_0);
  EXPECT_EQ(look.Zoom(), 1);
  EXPECT_EQ(look.PictureRect(), whole);
}

TEST(QuickLook, AFileWithoutAPictureShowsItsIcon) {
  Looking program({});
  program.home.Write("Pictures/broken.jpg", "\xFF\xD8 no photo");
  program.home.Write("Pictures/notes.txt", "words");
  ASSERT_TRUE(program.Shows({"broken.jpg", "notes.txt"}));
  for (int row : {0, 1}) {
    Click(program.Grid(), program.Cell(row));
    program.Choose("FileQuickLook");
    const auto place = [&] { return program.Look().PictureRect().size(); };
    // An icon is square, and stays when the file was tried.
    ASSERT_TRUE(
        Until([&] { return !program.Look().Loading() && place().width() == place().height(); }));
    program.Look().close();
  }
  EXPECT_THAT(program.dialogs.messages, testing::IsEmpty());
}

}  // namespace
}  // namespace brivolant::test
