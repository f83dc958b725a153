// SPDX-License-Identifier: MIT
// The crop: with each handle, each proportion, applied, given up, undone.
#include <QAction>
#include <QComboBox>
#include <QToolBar>

#include "WindowHelpers.h"
#include "app/commands/ToolButtons.h"
#include "app/edit/CropEditor.h"
#include "effects/crop/CropModule.h"
#include "kit/ifkButton.h"

namespace brivolant::test {
namespace {

struct CropTest : testing::Test {
  CropTest() { program.OpenPhoto(program.Photo("photo.jpg", 400, 300)); }
  void Begin() {
    program.Tool(ToolButtons::Crop().Identifier);
    ASSERT_TRUE(program.Window().Cropping());
  }
  CropModule& Crop() { return dynamic_cast<CropModule&>(*program.Processor().SelectedEffect()); }
  CropEditor& Editor() { return *program.Window().Cropper(); }
  /// A place on the display for a position on the photo.
  QPoint At(double x, double y) {
    const QRect rect = program.Display().PreviewRect();
    const double ratio = program.Display().devicePixelRatioF();
    return QPointF((rect.x() + x * rect.width()) / ratio, (rect.y() + y * rect.height()) / ratio)
        .toPoint();
  }
  void Drag(double fromX, double fromY, double toX, double toY) {
    test::Drag(program.Display(), At(fromX, fromY), At(toX, toY));
  }
  void Expect(double l, double t, double w, double h) {
    EXPECT_NEAR(Crop().CropOffset.Left, l, 0.006);
    EXPECT_NEAR(Crop().CropOffset.Right, t, 0.006);
    EXPECT_NEAR(Crop().CropSize.Left, w, 0.006);
    EXPECT_NEAR(Crop().CropSize.Right, h, 0.006);
  }
  Program program;
};

TEST_F(CropTest, EveryHandleMovesItsCorner) {
  Begin();
  Editor().AspectRatio().setCurrentIndex(8);
  Expect(0.1, 0.1, 0.8, 0.8);
  Drag(0.1, 0.1, 0.2, 0.3);
  Expect(0.2, 0.3, 0.7, 0.6);
  Drag(0.2, 0.9, 0.25, 0.8);
  Expect(0.25, 0.3, 0.65, 0.5);
  Drag(0.9, 0.3, 0.8, 0.4);
  Expect(0.25, 0.4, 0.55, 0.4);
  Drag(0.8, 0.8, 0.75, 0.7);
  Expect(0.25, 0.4, 0.5, 0.3);
  // The inside moves it, as far as the border.
  Drag(0.5, 0.55, 0.6, 0.5);
  Expect(0.35, 0.35, 0.5, 0.3);
  Drag(0.6, 0.5, 0.99, 0.99);
  Expect(0.5, 0.7, 0.5, 0.3);
  // An edge away from the corners takes nothing.
  Drag(0.5, 0.85, 0.3, 0.85);
  Expect(0.5, 0.7, 0.5, 0.3);
  // Never smaller than a fifth.
  Drag(1.0, 1.0, 0.52, 0.72);
  Expect(0.5, 0.7, 0.2, 0.2);
}

TEST_F(CropTest, ProportionsConstrainTheHeight) {
  Begin();
  QComboBox& ratios = Editor().AspectRatio();
  EXPECT_EQ(ratios.count(), 9);
  EXPECT_EQ(ratios.itemText(0), QStringLiteral("Current Photo's Ratio 4:3"));
  EXPECT_EQ(ratios.currentIndex(), 0);
  struct Case {
    int index;
    double ratio;
  };
  for (const Case& c : {Case{2, 1.0}, {3, 1.5}, {4, 4 / 3.0}, {5, 0.8}, {6, 16 / 9.0}}) {
    ratios.setCurrentIndex(c.index);
    const Pair size = Crop().CropSize;
    EXPECT_NEAR(size.Left * 400 / (size.Right * 300), c.ratio, 0.02) << c.index;
    EXPECT_LE(Crop().CropOffset.Left + size.Left, 1.0001);
    EXPECT_LE(Crop().CropOffset.Right + size.Right, 1.0001);
  }
  // The smallest width still gives a lower height.
  Drag(Crop().CropOffset.Left + Crop().CropSize.Left,
       Crop().CropOffset.Right + Crop().CropSize.Right, 0.12, 0.12);
  EXPECT_NEAR(Crop().CropSize.Left, 0.2, 0.001);
  EXPECT_NEAR(Crop().CropSize.Right, 0.2 * 4 / 3 * 9 / 16, 0.001);
}

TEST_F(CropTest, ProportionsThatPixelsMissByALittleAreFound) {
  // 0.8 of this is 323.2 x 242.4 pixels.
  program.OpenPhoto(program.Photo("odd.jpg", 404, 303));
  Begin();
  EXPECT_EQ(Editor().AspectRatio().currentIndex(), 0);
  for (const int index : {2, 3, 4, 5, 6}) {
    Editor().AspectRatio().setCurrentIndex(index);
    Click(Editor().ApplyButton());
    Begin();
    // A photo of 4:3 has that proportion itself.
    EXPECT_EQ(Editor().AspectRatio().currentIndex(), index == 4 ? 0 : index);
  }
}

TEST_F(CropTest, ApplyCropsAndUndoAndRedoFollow) {
  Begin();
  Editor().AspectRatio().setCurrentIndex(8);
  Drag(0.9, 0.9, 0.6, 0.6);
  EXPECT_TRUE(Editor().isVisible());
  Click(Editor().ApplyButton());
  BrivolantDocument& document = program.Document();
  EXPECT_FALSE(program.Window().Cropping());
  EXPECT_FALSE(Editor().isVisible());
  EXPECT_TRUE(document.Crop);
  EXPECT_TRUE(document.Dirty);
  EXPECT_EQ(document.Image().Width(), 200);
  EXPECT_EQ(program.Menu("EditUndo").text(), QStringLiteral("&Undo Crop"));
  program.Choose("EditUndo");
  EXPECT_FALSE(document.Crop);
  EXPECT_EQ(document.CropSize, (Pair{0.8, 0.8}));
  EXPECT_EQ(document.Image().Width(), 400);
  program.Choose("EditRedo");
  EXPECT_TRUE(document.Crop);
  EXPECT_EQ(document.Image().Width(), 200);
  // A second crop begins with the first and sees the whole photo.
  Begin();
  Expect(0.1, 0.1, 0.5, 0.5);
  EXPECT_NEAR(1.0 * program.Shown().Width() / program.Shown().Height(), 4 / 3.0, 0.02);
}

TEST_F(CropTest, OnATurnedPhotoCropsWhatIsShown) {
  const auto check = [&](const char* what) {
    const Picture whole = program.Document().Image();
    Begin();
    Editor().AspectRatio().setCurrentIndex(8);
    Drag(Crop().CropOffset.Left + Crop().CropSize.Left,
         Crop().CropOffset.Right + Crop().CropSize.Right, 0.5, 0.7);
    const Pair offset = Crop().CropOffset;
    const Pair size = Crop().CropSize;
    Click(Editor().ApplyButton());
    const Picture cropped = program.Document().Image();
    ASSERT_NEAR(cropped.Width(), size.Left * whole.Width(), 1.01) << what;
    ASSERT_NEAR(cropped.Height(), size.Right * whole.Height(), 1.01) << what;
    // The part that was framed, to within the rounding of its corner.
    const int x = qRound(offset.Left * whole.Width());
    const int y = qRound(offset.Right * whole.Height());
    bool found = false;
    for (int dx = -1; dx <= 1; ++dx) {
      for (int dy = -1; dy <= 1; ++dy) {
        const auto same = [&](int px, int py) {
          return cropped.At(px, py) == whole.At(x + px + dx, y + py + dy);
        };
        found = found || (same(3, 5) && same(20, 9) && same(40, 33) && same(60, 70));
      }
    }
    EXPECT_TRUE(found) << what;
    program.Choose("EditUndo");
  };
  check("plain");
  for (const char* turn :
       {"RotateAndFlipRotate90", "RotateAndFlipRotate180", "RotateAndFlipRotate270",
        "RotateAndFlipFlipHorizontally", "RotateAndFlipFlipVertially"}) {
    program.Choose(turn);
    check(turn);
  }
  // A changed format is put aside for the crop, and comes back.
  program.Choose("EditChangeOrientationTo");
  Begin();
  EXPECT_EQ(program.Document().Orientation, 0);
  Click(Editor().CancelButton());
  EXPECT_EQ(program.Document().Orientation, 1);
}

TEST_F(CropTest, GivingUpLeavesNothingBehind) {
  const auto giveUp = [&](const std::function<void()>& how) {
    Begin();
    Drag(0.9, 0.9, 0.6, 0.6);
    how();
    EXPECT_FALSE(program.Window().Cropping());
    EXPECT_FALSE(program.Document().Crop);
    EXPECT_EQ(program.Document().CropSize, (Pair{0.8, 0.8}));
    EXPECT_FALSE(program.Document().Dirty);
    EXPECT_FALSE(program.Window().UndoGizmo.UndoAvailable());
    EXPECT_FALSE(Editor().isVisible());
  };
  giveUp([&] { Click(Editor().CancelButton()); });
  giveUp([&] { program.Tool(ToolButtons::Crop().Identifier); });
  giveUp([&] { Key(program.Window(), Qt::Key_Escape); });
  giveUp([&] { Editor().close(); });
}

TEST_F(CropTest, NothingElseCanBeDoneMeanwhile) {
  program.SelectRow("Exposure");
  const std::string style = program.Processor().StyleData();
  Begin();
  MainWindow& window = program.Window();
  for (QAction* action : window.rbToolBar->actions()) {
    const bool isCrop = action->objectName() == QLatin1String(ToolButtons::Crop().Identifier);
    EXPECT_EQ(action->isEnabled(), isCrop) << action->text().toStdString();
  }
  window.MenuAction("ViewBrowseMyPhotos");
  EXPECT_EQ(window.DisplayPane, MainWindow::kEditorPane);
  window.EnableMenuItems();
  for (const char* name : {"FileSave", "EditUndo", "RotateAndFlipRotate90", "FileOpen"}) {
    EXPECT_FALSE(program.Menu(name).isEnabled()) << name;
  }
  Click(program.Panel(), {12, 30});
  EXPECT_EQ(program.Processor().StyleData(), style);
  // Keys move and apply the rectangle.
  program.Display().setFocus();
  Key(window, Qt::Key_Right);
  Expect(0.11, 0.1, 0.8, 0.8);
  Key(window, Qt::Key_Return);
  EXPECT_TRUE(program.Document().Crop);
  // The effect that was selected before is selected again, and everything works.
  EXPECT_EQ(program.Processor().SelectedEffect(), &program.Module("Exposure"));
  EXPECT_TRUE(program.Panel().isEnabled());
  EXPECT_TRUE(ToolButtons::itemViaIdentifier(*window.rbToolBar, ToolButtons::Save().Identifier)
                  ->isEnabled());
}

TEST_F(CropTest, AnotherPhotoEndsIt) {
  Begin();
  program.OpenPhoto(program.Photo("other.jpg"));
  EXPECT_FALSE(program.Window().Cropping());
  EXPECT_EQ(program.Document().Name, "other");
  EXPECT_TRUE(program.Panel().isEnabled());
}

}  // namespace
}  // namespace brivolant::test
