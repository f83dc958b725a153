// SPDX-License-Identifier: MIT
// The editor's display: where pictures stand, and how mouse and keys reach an effect.
#include <QAction>
#include <QApplication>

#include "WindowHelpers.h"

namespace brivolant::test {
namespace {

/// Remembers what reaches it.
class Listener final : public effectModule {
 public:
  std::vector<std::string> heard;
  QPointF last;
  bool takes = true;
  bool live = false;

 protected:
  std::string getID() const override { return "listener"; }
  std::string getName() const override { return "Listener"; }
  bool MouseActionDown(float x, float y, bool& render) override {
    render = live;
    return Heard("down", x, y) && takes;
  }
  void MouseActionDrag(float x, float y) override { Heard("drag", x, y); }
  void MouseActionUp(float x, float y) override { Heard("up", x, y); }
  void MouseMove(float x, float y) override { Heard("move", x, y); }
  void MouseEnter() override { heard.emplace_back("enter"); }
  void MouseExit() override { heard.emplace_back("exit"); }
  bool KeyDown(const std::string& key, bool&) override {
    heard.push_back("key " + key);
    return key != "x";
  }

 private:
  bool Heard(const char* what, float x, float y) {
    heard.emplace_back(what);
    last = {x, y};
    return true;
  }
};

struct DisplayTest : testing::Test {
  void Open(int width, int height) {
    program.OpenPhoto(program.Photo("photo.jpg", width, height));
    program.Render(true);
  }
  Program program;
};

TEST_F(DisplayTest, APhotoFitsByItsLongerSideAndStandsInTheMiddle) {
  for (const auto& [width, height] : {std::pair{900, 200}, {200, 900}, {400, 300}}) {
    Open(width, height);
    EditorDisplay& display = program.Display();
    const int margin = qRound(20 * display.devicePixelRatioF());
    const QRect shown = display.PreviewRect();
    // Shown pixel by pixel: the preview was made for this place.
    EXPECT_EQ(shown.size(), QSize(program.Shown().Width(), program.Shown().Height()));
    EXPECT_TRUE(shown.width() == display.Width() - margin ||
                shown.height() == display.Height() - margin);
    EXPECT_LE(shown.width(), display.Width() - margin);
    EXPECT_LE(shown.height(), display.Height() - margin);
    EXPECT_NEAR(shown.left(), display.Width() - shown.width() - shown.left(), 1);
    EXPECT_NEAR(shown.top(), display.Height() - shown.height() - shown.top(), 1);
    // A white line round the photo; its pixels inside.
    const QImage& buffer = display.Buffer();
    EXPECT_EQ(buffer.pixel(shown.topLeft()), qRgb(255, 255, 255));
    const Color inside = program.Shown().At(shown.width() / 2, shown.height() / 2);
    EXPECT_EQ(buffer.pixel(shown.left() + shown.width() / 2, shown.top() + shown.height() / 2),
              qRgb(inside.Red, inside.Green, inside.Blue));
    // The gradient, from the top to the bottom.
    EXPECT_EQ(buffer.pixel(0, 0), 0xff030303U);
    EXPECT_EQ(buffer.pixel(0, buffer.height() - 1), 0xff505160U);
  }
}

TEST_F(DisplayTest, BeforeStandsBesideAndOverlapsWhereItMust) {
  Open(300, 600);
  EditorDisplay& display = program.Display();
  const QRect alone = display.PreviewRect();
  EXPECT_TRUE(display.BeforeRect().isEmpty());
  program.SelectRow("Exposure");
  Click(program.Panel(), program.ControlAt(0, 0.9));
  program.Choose("ViewBeforeAfter");
  EXPECT_TRUE(program.Menu("ViewBeforeAfter").isChecked());
  const QRect before = display.BeforeRect();
  const QRect after = display.PreviewRect();
  EXPECT_NEAR(before.width(), alone.width() * 0.4, 1);
  EXPECT_LT(before.right(), after.left());
  EXPECT_GT(after.left(), alone.left());
  // Left the photo before the effects, right after them.
  const QRgb dark = display.Buffer().pixel(before.center());
  const QRgb bright = display.Buffer().pixel(after.center());
  EXPECT_NE(dark, bright);
  program.Choose("ViewBeforeAfter");
  EXPECT_EQ(display.PreviewRect(), alone);

  Open(900, 400);
  program.Choose("ViewBeforeAfter");
  const int side = qRound(10 * display.devicePixelRatioF());
  EXPECT_EQ(display.PreviewRect().right() + 1, display.Width() - side);
  EXPECT_EQ(display.BeforeRect().left(), side);
}

// A step of a slider is painted past the buffer; both have the same pixels, whoever asks first.
TEST_F(DisplayTest, WhatIsPaintedIsWhatTheBufferHas) {
  Open(900, 600);
  EditorDisplay& display = program.Display();
  const QImage plain = display.Buffer().copy();
  program.SelectRow("Exposure");
  Click(program.Panel(), program.ControlAt(0, 0.9));
  program.Render();
  for (const bool before : {false, true}) {
    if (before) program.Choose("ViewBeforeAfter");
    const QImage painted = display.grab().toImage().convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(painted, display.Buffer());
    EXPECT_NE(painted, plain);
    EXPECT_EQ(display.Buffer().pixel(display.PreviewRect().topLeft()), qRgb(255, 255, 255));
    EXPECT_EQ(display.grab().toImage().convertToFormat(QImage::Format_RGB32), painted);
  }
}

TEST_F(DisplayTest, AWindowOfAnotherSizeMakesAPreviewOfThatSize) {
  Open(800, 600);
  const int before = program.Shown().Width();
  program.Window().resize(program.Window().width() - 200, program.Window().height() - 150);
  ASSERT_TRUE(Until([&] { return program.Shown().Width() < before; }));
  const int margin = qRound(20 * program.Display().devicePixelRatioF());
  EXPECT_LE(program.Shown().Width(), program.Display().Width() - margin);
  EXPECT_EQ(program.Display().PreviewRect().width(), program.Shown().Width());
}

TEST_F(DisplayTest, MouseAndKeysReachTheSelectedEffectAsFractions) {
  Open(400, 300);
  Listener listener;
  program.Processor().SelectedEffect(&listener);
  EditorDisplay& display = program.Display();
  const double ratio = display.devicePixelRatioF();
  const QRectF rect(display.PreviewRect());
  const auto at = [&](double x, double y) {
    return QPointF((rect.x() + x * rect.width()) / ratio, (rect.y() + y * rect.height()) / ratio)
        .toPoint();
  };
  // Beside the photo a press is not taken, and neither is what follows.
  Drag(display, QPoint(2, 2), at(0.5, 0.5));
  EXPECT_THAT(listener.heard, testing::Not(testing::Contains("down")));
  EXPECT_THAT(listener.heard, testing::Not(testing::Contains("up")));
  listener.heard.clear();
  Press(display, at(0.25, 0.5));
  EXPECT_NEAR(listener.last.x(), 0.25, 0.01);
  EXPECT_NEAR(listener.last.y(), 0.5, 0.01);
  // A drag stays within the photo.
  Move(display, QPoint(2, 2));
  EXPECT_EQ(listener.last, QPointF(0, 0));
  Release(display, at(1, 1) + QPoint(8, 8));
  EXPECT_EQ(listener.last, QPointF(1, 1));
  EXPECT_THAT(listener.heard, testing::IsSupersetOf({"down", "drag", "up"}));
  EXPECT_EQ(listener.heard.back(), "up");
  // A move does not.
  Move(display, QPoint(2, 2));
  EXPECT_LT(listener.last.x(), 0);

  listener.heard.clear();
  display.setFocus();
  Key(program.Window(), Qt::Key_Left, Qt::ShiftModifier);
  Key(program.Window(), Qt::Key_Return);
  Type(program.Window(), "ax");
  EXPECT_THAT(listener.heard,
              testing::ElementsAre("key Shift+Left", "key Return", "key a", "key x"));
  program.Processor().SelectedEffect(nullptr);
}

TEST_F(DisplayTest, AnEffectThatAsksForItIsRenderedAtEachStep) {
  Open(400, 300);
  Settle();
  // A server that tells the window's size late makes a render of its own.
  program.Window().ResizedUpdateTimer.stop();
  program.Window().ResizedUpdateTimer.setInterval(std::chrono::hours(1));
  Listener listener;
  program.Processor().SelectedEffect(&listener);
  int renders = 0;
  program.Processor().UpdateFinished = [&] { ++renders; };
  EditorDisplay& display = program.Display();
  const QPoint middle = display.rect().center();
  Press(display, middle);
  Move(display, middle + QPoint(3, 3));
  EXPECT_EQ(renders, 0);
  Release(display, middle);
  EXPECT_EQ(renders, 1);
  listener.live = true;
  Press(display, middle);
  Move(display, middle + QPoint(3, 3));
  EXPECT_EQ(renders, 3);
  Release(display, middle);
  program.Processor().UpdateFinished = nullptr;
  program.Processor().SelectedEffect(nullptr);
}

TEST_F(DisplayTest, APixelPickedOnThePhotoBecomesGrey) {
  Open(400, 300);
  program.SelectRow("Color Balance");
  const QPoint place = program.Display().rect().center();
  constexpr int kAfterTheButton = 100;
  QTimer::singleShot(kAfterTheButton, [&] { Click(program.Display(), place); });
  Click(program.Panel(), program.ControlAt(3, 0.5));
  EXPECT_TRUE(Until([&] {
    const effectModule& module = program.Module("Color Balance");
    return module.ControlValue(0).ToInt() != 50 || module.ControlValue(1).ToInt() != 50 ||
           module.ControlValue(2).ToInt() != 50;
  }));
}

}  // namespace
}  // namespace brivolant::test
