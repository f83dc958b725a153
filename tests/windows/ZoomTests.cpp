// SPDX-License-Identifier: MIT
// Looking closer in the editor: by keys, wheel, hand and fingers, and what is then on the screen.
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include "WindowHelpers.h"
#include "app/edit/CropEditor.h"
#include "app/edit/ZoomController.h"
#include "browser/ui/multiViewFileBrowser.h"
#include "effects/EffectRegistry.h"
#include "effects/crop/CropModule.h"
#include "effects/text/EffectModuleText.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "kit/ifkButton.h"
#include "kit/ifkSegmentView.h"

namespace brivolant::test {
namespace {

struct Zooming : testing::Test {
  Zooming() { program.OpenPhoto(program.Photo("photo.png", 1800, 1300)); }

  EditorDisplay& Display() { return program.Display(); }
  const PhotoView& View() { return Display().View(); }
  double Ratio() { return Display().devicePixelRatioF(); }
  void Press(Qt::Key key) { Key(program.Window(), key, Qt::ControlModifier); }
  std::string Title() {
    return program.Window().PreviewTitle->SegmentByTag("document")->Caption.toStdString();
  }
  bool Sharp() {
    return Until([&] { return program.Window().Zoom().Sharp(); });
  }
  QPoint Middle() { return Display().rect().center(); }

  // Events as the windowing system gives them: to the window, which finds the control.
  void Wheel(const QPoint& at, int turned, Qt::KeyboardModifiers modifiers = {},
             Qt::ScrollPhase phase = Qt::NoScrollPhase) {
    QWidget& window = program.Window();
    const QPointF inWindow = Display().mapTo(&window, at);
    QWheelEvent event(inWindow, window.mapToGlobal(inWindow), {}, {0, turned}, {}, modifiers, phase,
                      false);
    QApplication::sendEvent(window.windowHandle(), &event);
    QApplication::processEvents();
  }
  void DragWith(Qt::MouseButton button, const QPoint& from, const QPoint& by) {
    QWidget& window = program.Window();
    const QPoint start = Display().mapTo(&window, from);
    QTest::mousePress(window.windowHandle(), button, {}, start);
    QTest::mouseMove(window.windowHandle(), start + by / 2);
    QTest::mouseMove(window.windowHandle(), start + by);
    QTest::mouseRelease(window.windowHandle(), button, {}, start + by);
    QApplication::processEvents();
  }
  /// A place of the widget for fractions of the photo.
  QPoint At(double x, double y) {
    const QRectF rect(Display().PreviewRect());
    return (QPointF(rect.x() + x * rect.width(), rect.y() + y * rect.height()) / Ratio()).toPoint();
  }
  /// The finished photo, rendered by itself.
  Picture Finished() {
    brivolantProcessorLite processor(EffectRegistry(), program.app->Services());
    processor.Startup();
    processor.StyleData(program.Processor().StyleData());
    return processor.Process(program.Document().Image(), program.Document().PastedImages());
  }
  /// How many of the pixels of the screen, all over the photo's part of the display, are not those
  /// of the picture.
  int Differing(const Picture& picture, const QRect& rect, const QRect& area) {
    const QRect seen = rect & area;
    int differing = 0;
    for (int y = seen.top() + 2; y <= seen.bottom() - 2; y += 3) {
      for (int x = seen.left() + 2; x <= seen.right() - 2; x += 3) {
        const Color color =
            picture.At(static_cast<int>((x + 0.5 - rect.left()) * picture.Width() / rect.width()),
                       static_cast<int>((y + 0.5 - rect.top()) * picture.Height() / rect.height()));
        differing += Display().Buffer().pixel(x, y) != qRgb(color.Red, color.Green, color.Blue);
      }
    }
    return seen.isEmpty() ? 1 : differing;
  }
  int Differing(const Picture& picture) {
    return Differing(picture, Display().PreviewRect(), View().PhotoArea());
  }
  Program program;
};

TEST_F(Zooming, ByKeysShowsEveryPixelOnOneOfTheScreen) {
  program.SelectRow("Exposure");
  Click(program.Panel(), program.ControlAt(0, 0.7));
  const QRect fitted = Display().PreviewRect();
  EXPECT_TRUE(View().Fits());
  EXPECT_TRUE(program.Menu("ViewZoomToFit").isChecked());
  const auto percent = [&] { return std::to_string(std::lround(View().Scale() * 100)); };
  EXPECT_EQ(Title(), "photo (" + percent() + "%)");
  Press(Qt::Key_1);
  EXPECT_EQ(Display().PreviewRect().size(), QSize(1800, 1300));
  EXPECT_EQ(Title(), "photo (100%)");
  program.Window().EnableMenuItems();
  EXPECT_TRUE(program.Menu("ViewActualSize").isChecked());
  EXPECT_FALSE(program.Menu("ViewZoomToFit").isChecked());
  ASSERT_TRUE(Sharp());
  const Picture finished = Finished();
  EXPECT_EQ(Differing(finished), 0);
  // Enlarged, a pixel is a square of pixels.
  for (const double scale : {1.5, 2.0, 3.0, 4.0, 6.0, 8.0}) {
    while (View().Scale() < scale) Press(Qt::Key_Plus);
    EXPECT_EQ(Display().PreviewRect().size(), QSize(1800, 1300) * scale);
    EXPECT_EQ(Differing(finished), 0) << scale;
  }
  Press(Qt::Key_Equal);
  EXPECT_EQ(Title(), "photo (800%)");
  Press(Qt::Key_Minus);
  EXPECT_EQ(Title(), "photo (600%)");
  Press(Qt::Key_0);
  EXPECT_EQ(Display().PreviewRect(), fitted);
  EXPECT_EQ(Title(), "photo (" + percent() + "%)");
  // Between fitted and 1:1 all pixels of the photo have their share: no preview is enlarged.
  Press(Qt::Key_1);
  Press(Qt::Key_Minus);
  ASSERT_FALSE(View().Fits());
  ASSERT_TRUE(Sharp());
  const QRect rect = Display().PreviewRect();
  const Picture scaled = SharedPictureEffects::Scale(Finished(), rect.width(), rect.height(),
                                                     SharedPictureEffects::kScaleExactly);
  EXPECT_EQ(Differing(scaled), 0);
  // Another photo is seen whole.
  program.OpenPhoto(program.Photo("other.png", 1800, 1300));
  EXPECT_TRUE(View().Fits());
  EXPECT_EQ(Title(), "other (" + percent() + "%)");
}

TEST_F(Zooming, TheKeyForOneToOneMeansTheIconsInTheBrowser) {
  MainWindow& window = program.Window();
  Press(Qt::Key_1);
  EXPECT_EQ(View().Scale(), 1);
  window.MenuAction("ViewBrowseMyPhotos");
  Settle();
  Press(Qt::Key_2);
  EXPECT_TRUE(program.Menu("ViewAsList").isChecked());
  EXPECT_FALSE(program.Menu("ViewActualSize").isEnabled());
  Press(Qt::Key_1);
  EXPECT_TRUE(program.Menu("ViewAsIcons").isChecked());
  Press(Qt::Key_2);
  window.MenuAction("ViewBrowseMyPhotos");
  Settle();
  Press(Qt::Key_0);
  Press(Qt::Key_1);
  EXPECT_EQ(View().Scale(), 1);
  EXPECT_TRUE(program.Menu("ViewAsList").isChecked());
}

TEST_F(Zooming, TheWheelZoomsAtThePointerAndTwoFingersMove) {
  const QPoint pointer = At(0.3, 0.6);
  const QPointF before = Display().FractionsAt(pointer);
  const double least = View().Scale();
  for (int i = 0; i < 4; ++i) Wheel(pointer, 120);
  EXPECT_GT(View().Scale(), least * 1.5);
  EXPECT_NEAR(Display().FractionsAt(pointer).x(), before.x(), 0.002);
  EXPECT_NEAR(Display().FractionsAt(pointer).y(), before.y(), 0.002);
  // With the shift key, or by the fingers of a touchpad, it moves; the control key zooms.
  const double scale = View().Scale();
  QRect rect = Display().PreviewRect();
  Wheel(pointer, -120, Qt::ShiftModifier);
  EXPECT_LT(Display().PreviewRect().left(), rect.left());
  EXPECT_EQ(Display().PreviewRect().top(), rect.top());
  rect = Display().PreviewRect();
  Wheel(pointer, -120, {}, Qt::ScrollUpdate);
  EXPECT_LT(Display().PreviewRect().top(), rect.top());
  EXPECT_EQ(View().Scale(), scale);
  Wheel(pointer, -120, Qt::ControlModifier, Qt::ScrollUpdate);
  EXPECT_LT(View().Scale(), scale);
  for (int i = 0; i < 9; ++i) Wheel(pointer, -120);
  EXPECT_TRUE(View().Fits());
}

TEST_F(Zooming, TheHandMovesThePhotoAndSpaceTypesIntoText) {
  Press(Qt::Key_1);
  program.SelectRow("Blur");
  const std::string settings = program.Processor().StyleData();
  QRect rect = Display().PreviewRect();
  const QPoint by(-60, 40);
  const auto moved = [&] {
    return (Display().PreviewRect().topLeft() -
            std::exchange(rect, Display().PreviewRect()).topLeft()) /
           Ratio();
  };
  DragWith(Qt::MiddleButton, Middle(), by);
  EXPECT_EQ(moved(), by);
  // Beside the photo, too, and with the space bar by the left button.
  QWindow* window = program.Window().windowHandle();
  Display().setFocus();
  QTest::keyPress(window, Qt::Key_Space);
  EXPECT_EQ(Display().cursor().shape(), Qt::OpenHandCursor);
  DragWith(Qt::LeftButton, Middle(), by);
  EXPECT_EQ(moved(), by);
  EXPECT_EQ(program.Processor().StyleData(), settings) << "no effect heard of it";
  QTest::keyRelease(window, Qt::Key_Space);
  EXPECT_NE(Display().cursor().shape(), Qt::OpenHandCursor);
  DragWith(Qt::LeftButton, Middle(), by);
  EXPECT_EQ(moved(), QPoint());
  // Arrows do the same where no effect has a use for them.
  Display().setFocus();
  Key(program.Window(), Qt::Key_Right);
  Key(program.Window(), Qt::Key_Up);
  EXPECT_EQ(moved(), QPoint(-64, 64));
  // Released elsewhere it does not stay.
  QTest::keyPress(window, Qt::Key_Space);
  program.Panel().setFocus();
  QTest::keyRelease(window, Qt::Key_Space);
  DragWith(Qt::LeftButton, Middle(), by);
  EXPECT_EQ(moved(), QPoint());

  program.SelectRow("Text");
  Click(program.Panel(), program.ControlAt(EffectModuleText::kAddRow, 0.5));
  Type(program.Window(), "a b");
  const auto& text = dynamic_cast<EffectModuleText&>(program.Module("Text"));
  EXPECT_EQ(text.myTextEngine.item.at(0)->Text(), "a b");
  // Another scale is no text.
  Press(Qt::Key_Plus);
  EXPECT_EQ(View().Scale(), 1.5);
  EXPECT_EQ(text.myTextEngine.item.at(0)->Text(), "a b");
}

TEST_F(Zooming, FingersPinchAtTheirPlace) {
  QWidget& window = program.Window();
  const QPoint place = At(0.4, 0.4);
  const QPointF before = Display().FractionsAt(place);
  const QPointF inWindow = Display().mapTo(&window, place);
  // Of a touchpad.
  QNativeGestureEvent gesture(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2,
                              inWindow, inWindow, window.mapToGlobal(inWindow), 1.0, {});
  const double least = View().Scale();
  QApplication::sendEvent(window.windowHandle(), &gesture);
  EXPECT_NEAR(View().Scale(), std::min(2 * least, 1.0), 0.01);
  EXPECT_NEAR(Display().FractionsAt(place).x(), before.x(), 0.002);
  // On the screen.
  Press(Qt::Key_0);
  std::unique_ptr<QPointingDevice> touch(QTest::createTouchDevice());
  const QPoint middle = inWindow.toPoint();
  const auto fingers = [&](int apart) {
    return std::pair{middle - QPoint(apart, 0), middle + QPoint(apart, 0)};
  };
  QTest::touchEvent(window.windowHandle(), touch.get())
      .press(0, fingers(30).first)
      .press(1, fingers(30).second);
  for (const int apart : {40, 60, 80, 110, 140}) {
    QTest::touchEvent(window.windowHandle(), touch.get())
        .move(0, fingers(apart).first)
        .move(1, fingers(apart).second);
  }
  EXPECT_GT(View().Scale(), 1.5 * least);
  EXPECT_NEAR(Display().FractionsAt(place).x(), before.x(), 0.02);
  QTest::touchEvent(window.windowHandle(), touch.get())
      .release(0, fingers(140).first)
      .release(1, fingers(140).second);
}

TEST_F(Zooming, AChangeShowsThePreviewAtOnceAndTheFullPictureAfterwards) {
  Press(Qt::Key_1);
  ASSERT_TRUE(Sharp());
  const Picture plain = Finished();
  EXPECT_EQ(Differing(plain), 0);
  program.Processor().SelectEffect(program.Row("Inverse"));
  program.Render(true);
  // Nothing changed: it stays sharp.
  EXPECT_TRUE(program.Window().Zoom().Sharp());
  EXPECT_EQ(Differing(plain), 0);
  program.Processor().SelectedEffect()->Enabled(true);
  program.Render();
  EXPECT_FALSE(program.Window().Zoom().Sharp());
  const Picture inverse = Finished();
  const QRect rect = Display().PreviewRect();
  EXPECT_GT(Differing(plain), 1000);
  EXPECT_GT(Differing(inverse), 1000) << "the preview has fewer pixels";
  const Color color = inverse.At(900, 650);
  const QRgb shown = Display().Buffer().pixel(rect.left() + 900, rect.top() + 650);
  EXPECT_NEAR(qGreen(shown), color.Green, 100) << "but it is inverse already";
  ASSERT_TRUE(Sharp());
  EXPECT_EQ(Differing(inverse), 0);
  // The newest of many wins.
  for (const int value : {20, 40, 60, 80}) {
    program.Module("Exposure").Enabled(true);
    program.Module("Exposure").ControlValue(0, value);
    program.Render();
  }
  ASSERT_TRUE(Sharp());
  EXPECT_EQ(Differing(Finished()), 0);
  // Back and closer again, what is there is still right; but not after a change.
  Press(Qt::Key_0);
  Press(Qt::Key_1);
  EXPECT_TRUE(program.Window().Zoom().Sharp());
  Press(Qt::Key_0);
  program.Choose("RotateAndFlipFlipHorizontally");
  EXPECT_FALSE(program.Window().Zoom().Sharp());
  EXPECT_FALSE(program.Window().Zoom().Full().Running()) << "for whom?";
  Press(Qt::Key_1);
  ASSERT_TRUE(Sharp());
  EXPECT_EQ(Differing(Finished()), 0);
  program.Choose("EditUndo");
  ASSERT_TRUE(Sharp());
  EXPECT_EQ(Differing(Finished()), 0);
}

// A slider that is drawn there and back while the full picture is awaited.
TEST_F(Zooming, TheFullPictureIsThatOfTheSettingsItShowsUnder) {
  program.SelectRow("Exposure");
  Press(Qt::Key_1);
  ASSERT_TRUE(Sharp());
  effectModule& exposure = program.Module("Exposure");
  exposure.ControlValue(0, 30);
  program.Render();
  ASSERT_FALSE(program.Window().Zoom().Sharp());
  exposure.ControlValue(0, 80);
  ASSERT_TRUE(Sharp());
  exposure.ControlValue(0, 30);
  program.Window().Session().Rendered();
  ASSERT_TRUE(Sharp());
  EXPECT_EQ(Differing(Finished()), 0);
}

TEST_F(Zooming, WhatNobodyLooksAtIsBrokenOff) {
  for (const char* name : {"Oil Painting", "Motion Blur", "Matte"}) {
    program.Module(name).Enabled(true);
  }
  program.Render();
  FullRender& full = program.Window().Zoom().Full();
  const auto begun = [&] {
    Press(Qt::Key_0);
    Press(Qt::Key_1);
    return full.Running();
  };
  ASSERT_TRUE(begun());
  Press(Qt::Key_0);
  EXPECT_FALSE(full.Running()) << "fitted";
  ASSERT_TRUE(begun());
  program.Window().SetDirty(false);
  program.Window().MenuAction("ViewBrowseMyPhotos");
  ASSERT_TRUE(Until([&] { return !Display().isVisible(); }));
  EXPECT_FALSE(full.Running()) << "out of view";
  EXPECT_FALSE(program.Window().Zoom().Sharp());
  program.Window().MenuAction("ViewBrowseMyPhotos");
  EXPECT_TRUE(full.Running()) << "in view again";
  program.OpenPhoto(program.Photo("other.png", 1800, 1300));
  EXPECT_FALSE(full.Running()) << "another photo";
}

TEST_F(Zooming, EffectsTakeTheMouseWhereThePhotoShowsIt) {
  program.SelectRow("Blur");
  program.Processor().SelectedEffect()->Enabled(true);
  Dictionary settings = program.Module("Blur").Settings();
  settings.Value("isFocal", true);
  program.Module("Blur").Settings(settings);
  for (const int scale : {1, 4}) {
    while (View().Scale() < scale) Press(scale == 1 ? Qt::Key_1 : Qt::Key_Plus);
    DragWith(Qt::MiddleButton, Middle(), {150, 90});
    for (const QPoint& by : {QPoint(-180, -90), {120, 80}}) {
      const QPointF at = Display().FractionsAt(Middle() + by);
      Click(Display(), At(at.x(), at.y()));
      settings = program.Module("Blur").Settings();
      EXPECT_NEAR(settings.Lookup("focalXOffset", 0).ToDouble(), at.x(), 0.002) << scale;
      EXPECT_NEAR(settings.Lookup("focalYOffset", 0).ToDouble(), at.y(), 0.002) << scale;
    }
  }
}

TEST_F(Zooming, TheCropIsDrawnCloseUp) {
  program.Choose("EditCrop");
  ASSERT_TRUE(program.Window().Cropping());
  EXPECT_TRUE(View().Fits());
  program.Window().Cropper()->AspectRatio().setCurrentIndex(8);
  Press(Qt::Key_1);
  ASSERT_EQ(View().Scale(), 1);
  auto& crop = dynamic_cast<CropModule&>(*program.Processor().SelectedEffect());
  // To the corner, and by a hundred pixels of the photo.
  DragWith(Qt::MiddleButton, Middle(), {5000, 5000});
  const QPoint corner = At(0.1, 0.1);
  ASSERT_TRUE(Display().rect().contains(corner));
  Drag(Display(), corner, corner + QPoint(90, 65) / Ratio());
  EXPECT_NEAR(crop.CropOffset.Left, 0.15, 0.002);
  EXPECT_NEAR(crop.CropOffset.Right, 0.15, 0.002);
  // Outside it is darker, to the pixel, once the photo is sharp.
  ASSERT_TRUE(Sharp());
  const QRect rect = Display().PreviewRect();
  const auto at = [&](int x, int y) {
    return QColor(Display().Buffer().pixel(rect.left() + x, rect.top() + y)).green();
  };
  const Picture photo = program.Document().ImageOriginal();
  EXPECT_NEAR(at(200, 400), photo.At(200, 400).Green / 2.0, 2);
  EXPECT_NEAR(at(300, 400), photo.At(300, 400).Green, 1);
  Click(program.Window().Cropper()->ApplyButton());
  EXPECT_TRUE(program.Document().Crop);
  EXPECT_TRUE(View().Fits());
  Press(Qt::Key_1);
  ASSERT_TRUE(Sharp());
  EXPECT_EQ(Display().PreviewRect().width(), program.Document().Image().Width());
  EXPECT_EQ(Differing(Finished()), 0);
}

TEST_F(Zooming, BeforeAndAfterFollowEachOther) {
  program.SelectRow("Inverse");
  program.Processor().SelectedEffect()->Enabled(true);
  program.Choose("RotateAndFlipRotate90");
  program.Choose("ViewBeforeAfter");
  const QRect beside = Display().BeforeRect();
  ASSERT_FALSE(beside.isEmpty());
  Press(Qt::Key_1);
  ASSERT_TRUE(Sharp());
  const auto same = [&] {
    EXPECT_EQ(Display().BeforeRect().size(), Display().PreviewRect().size());
    const QPoint between = View().PhotoArea().topLeft() - View().BeforeArea().topLeft();
    EXPECT_EQ(Display().BeforeRect().translated(between), Display().PreviewRect());
    program.Processor().SelectedEffect(nullptr);
    EXPECT_EQ(Differing(Finished()), 0);
    EXPECT_EQ(Differing(program.Document().Image(), Display().BeforeRect(), View().BeforeArea()),
              0);
  };
  same();
  // Moved and enlarged over either of them.
  DragWith(Qt::MiddleButton, {40, Middle().y()}, {25, -60});
  same();
  const QPoint left(Display().width() / 5, Display().height() / 3);
  for (int i = 0; i < 12; ++i) Wheel(left, 120);
  EXPECT_EQ(View().Scale(), 8);
  same();
  // A change of the effects leaves the photo before them sharp.
  program.Module("Exposure").Enabled(true);
  program.Module("Exposure").ControlValue(0, 80);
  program.Render();
  EXPECT_FALSE(program.Window().Zoom().Sharp());
  EXPECT_EQ(Differing(program.Document().Image(), Display().BeforeRect(), View().BeforeArea()), 0);
  program.Choose("ViewBeforeAfter");
  EXPECT_TRUE(Display().BeforeRect().isEmpty());
  EXPECT_EQ(View().Scale(), 8);
}

}  // namespace
}  // namespace brivolant::test
