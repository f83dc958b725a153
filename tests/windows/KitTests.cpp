// SPDX-License-Identifier: MIT
// The program's own windows, controls and animation.
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QScreen>
#include <QTest>
#include <QToolBar>
#include <atomic>
#include <thread>

#include "Helpers.h"
#include "WindowHelpers.h"
#include "app/Stage.h"
#include "app/UnfinishedWork.h"
#include "app/core/Jobs.h"
#include "kit/AnimationCore.h"
#include "kit/InterfaceKitSupport.h"
#include "kit/ifkButton.h"
#include "kit/ifkSegmentView.h"
#include "kit/ifkSlider.h"
#include "kit/ifkSplitter.h"
#include "kit/ifkStaticText.h"
#include "kit/ifkWindow.h"
#include "platform/pictures/Graphics.h"

namespace brivolant::test {
namespace {

using AnimationCore::AnimationRect;

/// A window with one control of that kind, on show.
template <class Control>
struct Shown {
  template <class... Arguments>
  explicit Shown(Arguments&&... arguments)
      : window(std::make_unique<QWidget>()),
        control(new Control(window.get(), std::forward<Arguments>(arguments)...)) {
    window->resize(400, 300);
    control->setGeometry(20, 20, 200, 24);
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    window->activateWindow();
    control->setFocus();
    QApplication::processEvents();
  }
  Control* operator->() { return control; }
  Control& operator*() { return *control; }
  std::unique_ptr<QWidget> window;
  Control* control;
};

struct Animation : testing::Test {
  Animation() { AnimationCore::Start(); }
  ~Animation() override { AnimationCore::Stop(); }
};

TEST_F(Animation, TasksRunInFramesAlongALineAndEndExactly) {
  EXPECT_EQ(AnimationCore::FPS(), 24);
  EXPECT_EQ(AnimationCore::Period(), 41);
  QWidget parent;
  QWidget item(&parent);
  item.setGeometry(10, 20, 100, 50);
  AnimationCore::Animate(item, {111, 20, 30, 57}, 0.25);
  ASSERT_EQ(AnimationCore::Tasks().size(), 1U);
  EXPECT_EQ(AnimationCore::Tasks()[0]->Frames(), 6);
  EXPECT_EQ(AnimationCore::Tasks()[0]->Delta(), (AnimationRect{101, 0, -70, 7}));
  AnimationCore::Action();
  // Each field truncated.
  EXPECT_EQ(AnimationCore::Bounds(item), (AnimationRect{26, 20, 88, 51}));
  // The start was fixed: an item moved meanwhile comes back.
  item.move(500, 500);
  AnimationCore::Action();
  EXPECT_EQ(AnimationCore::Bounds(item), (AnimationRect{43, 20, 76, 52}));
  for (int i = 0; i < 4; ++i) AnimationCore::Action();
  EXPECT_EQ(AnimationCore::Bounds(item), (AnimationRect{111, 20, 30, 57}));
  EXPECT_TRUE(AnimationCore::Tasks().empty());
}

TEST_F(Animation, KeepsFieldsEndsShortTasksAndForgetsItemsThatGo) {
  QWidget parent;
  auto item = std::make_unique<QWidget>(&parent);
  item->setGeometry(10, 20, 100, 50);
  using AnimationCore::kKeep;
  AnimationCore::Animate(*item, 0.25, kKeep, kKeep, kKeep, kKeep);
  for (int i = 0; i < 6; ++i) {
    EXPECT_TRUE(AnimationCore::IsAnimated(*item));
    AnimationCore::Action();
  }
  EXPECT_EQ(AnimationCore::Bounds(*item), (AnimationRect{10, 20, 100, 50}));
  EXPECT_FALSE(AnimationCore::IsAnimated(*item));
  // Less than a frame ends at the first tick.
  AnimationCore::Animate(*item, 0.01, 0, kKeep, kKeep, kKeep);
  AnimationCore::Action();
  EXPECT_EQ(item->x(), 0);
  AnimationCore::Animate(*item, 0.25, 77, kKeep, kKeep, kKeep);
  item.reset();
  AnimationCore::Action();
  EXPECT_TRUE(AnimationCore::Tasks().empty());
  AnimationCore::FPS(50);
  EXPECT_EQ(AnimationCore::Period(), 20);
  AnimationCore::Stop();
  AnimationCore::FPS(10);
  EXPECT_EQ(AnimationCore::FPS(), 0);
}

// A pane that is called back while it slides out.
TEST_F(Animation, TheLastMovementOfAnItemCounts) {
  QWidget parent;
  QWidget item(&parent);
  item.setGeometry(0, 0, 10, 10);
  AnimationCore::Animate(item, {600, 0, 10, 10}, 0.25);
  for (int i = 0; i < 3; ++i) AnimationCore::Action();
  AnimationCore::Animate(item, {0, 0, 10, 10}, 0.25);
  int furthest = 0;
  while (AnimationCore::IsAnimated(item)) {
    AnimationCore::Action();
    furthest = std::max(furthest, item.x());
  }
  EXPECT_EQ(item.x(), 0);
  EXPECT_LE(furthest, 300);
  // Both in one frame.
  AnimationCore::Animate(item, {600, 0, 10, 10}, 0.25);
  AnimationCore::Animate(item, {50, 0, 10, 10}, 0.25);
  while (AnimationCore::IsAnimated(item)) AnimationCore::Action();
  EXPECT_EQ(item.x(), 50);
}

struct StageTest : testing::Test {
  StageTest() {
    AnimationCore::Start();
    stage.resize(400, 300);
    for (QWidget* pane : {&left, &middle, &right}) {
      panes.push_back(
          {pane, [](QSize size) { return QRect(-1, -1, size.width() + 252, size.height()); }});
    }
    stage.Take(panes);
    stage.show();
    stage.PlacePanes();
  }
  ~StageTest() override { AnimationCore::Stop(); }
  Stage stage{nullptr};
  QWidget left{&stage};
  QWidget middle{&stage};
  QWidget right{&stage};
  std::vector<Stage::Pane> panes;
};

TEST_F(StageTest, PanesComeFromTheirSideAndGoThereAgain) {
  EXPECT_TRUE(left.isVisible());
  EXPECT_FALSE(middle.isVisible());
  stage.Show(2);
  EXPECT_GE(right.x(), stage.width());
  stage.resize(500, 300);
  while (AnimationCore::IsAnimated(left)) AnimationCore::Action();
  EXPECT_LE(left.geometry().right(), 0) << "it is wider than the stage";
  EXPECT_TRUE(Until([&] { return !left.isVisible(); }));
  EXPECT_EQ(right.geometry(), QRect(-1, -1, 752, 300));
  stage.Show(1);
  EXPECT_LE(middle.geometry().right(), 0);
  // Called back while it goes.
  stage.Show(2);
  EXPECT_TRUE(Until([&] { return !middle.isVisible(); }));
  EXPECT_TRUE(right.isVisible());
  EXPECT_EQ(right.geometry(), QRect(-1, -1, 752, 300));
  EXPECT_THROW(stage.Show(3), std::out_of_range);
  EXPECT_TRUE(right.isVisible());
}

struct Ending : testing::Test {
  Ending() {
    for (Jobs* jobs : {&files, &edits}) {
      jobs->Start({jobs == &files ? "Copying" : "Pasting", true,
                   [this](Jobs::Control& control) {
                     while (!control.Cancelled() && !released) std::this_thread::yield();
                   },
                   [this](Jobs::End end, const std::string&) { ends.push_back(end); }});
    }
  }
  ~Ending() override { released = true; }
  AnsweringDialogs dialogs;
  RecordingLog log;
  std::atomic<bool> released = false;
  std::vector<Jobs::End> ends;
  Jobs files;
  Jobs edits;
};

TEST_F(Ending, AsksOnceAndCancelsOnlyWhenNothingElseSpeaksAgainstIt) {
  auto unfinished =
      std::make_unique<UnfinishedWork>(std::vector<Jobs*>{&files, &edits}, dialogs, log);
  const auto never = [] { FAIL(); };
  dialogs.answers = {Answer::kCancel, Answer::kAlternate};
  EXPECT_TRUE(unfinished->MustWait(never));
  unfinished->GiveUp();
  EXPECT_TRUE(files.Busy()) << "the user said nothing of the kind";
  EXPECT_FALSE(unfinished->MustWait(never));
  // Another question was asked, a save went by, and the window ends after all.
  EXPECT_TRUE(files.Busy());
  unfinished->AskNoMore();
  EXPECT_FALSE(unfinished->MustWait(never));
  EXPECT_EQ(dialogs.questions.size(), 2U);
  unfinished->GiveUp();
  files.Finish();
  edits.Finish();
  EXPECT_THAT(ends, testing::ElementsAre(Jobs::End::kCancelled, Jobs::End::kCancelled));
  unfinished.reset();
  EXPECT_THAT(log.lines, testing::IsEmpty());
}

TEST_F(Ending, WaitsForAllAndTellsWhatAnEndFromOutsideCutShort) {
  bool called = false;
  {
    UnfinishedWork unfinished({&files, &edits}, dialogs, log);
    dialogs.answers = {Answer::kAction};
    EXPECT_TRUE(unfinished.MustWait([&] { called = !files.Busy() && !edits.Busy(); }));
  }
  EXPECT_THAT(log.lines,
              testing::ElementsAre(testing::HasSubstr("Copying"), testing::HasSubstr("Pasting")));
  EXPECT_FALSE(called);
  released = true;
  EXPECT_TRUE(Until([&] { return called; }));
}

TEST(Window, DimensionsAreStrictAndComeBackOnScreen) {
  ifkWindow window;
  window.setMinimumSize(200, 100);
  window.setMaximumSize(900, 700);
  window.setGeometry(100, 120, 400, 300);
  EXPECT_EQ(window.Dimensions(), "100 120 400 300");
  window.Dimensions("");
  EXPECT_EQ(window.Dimensions(), "100 120 400 300");
  window.Dimensions("  150 160 200 700 ");
  EXPECT_EQ(window.Dimensions(), "150 160 400 300");
  window.Dimensions("50 60 201 699");
  EXPECT_EQ(window.Dimensions(), "50 60 201 699");
  window.Dimensions("nothing of a frame");
  EXPECT_EQ(window.width(), 201);
  // A screen that has gone: centred, a third of the way down.
  window.Dimensions("9000 9000 400 300");
  const QRect screen = window.screen()->availableGeometry();
  EXPECT_EQ(window.x(), (screen.width() - 400) / 2 + screen.left());
  EXPECT_EQ(window.y(), (screen.height() - 323) / 3 + screen.top() + 23);
}

TEST(Window, AnchorsSayWhatStays) {
  ifkWindow window;
  window.setGeometry(300, 200, 100, 80);
  struct Case {
    int anchor;
    int left;
    int top;
  };
  for (const Case& c : {Case{0, 300, 200},
                        {1, 260, 200},
                        {2, 300, 180},
                        {3, 260, 180},
                        {4, 280, 200},
                        {5, 300, 190},
                        {6, 280, 180},
                        {7, 260, 190},
                        {8, 280, 190}}) {
    EXPECT_EQ(window.ResizedFrame(140, 100, c.anchor), (AnimationRect{c.left, c.top, 140, 100}))
        << c.anchor;
  }
  // Centred, the title stays on screen.
  EXPECT_EQ(window.ResizedFrame(1000, 2000, 8).Top, 30);
  window.SmoothResize(140, 100, 3);
  EXPECT_EQ(window.Dimensions(), "260 180 140 100");
}

TEST(Window, StandsInTheWindowMenuWhileItIsOpen) {
  QMenu menu;
  ifkWindow::WindowMenu(&menu);
  const int before = ifkWindow::windowMenuItemCount();
  auto first = std::make_unique<ifkWindow>();
  first->setWindowTitle(QStringLiteral("[*]First"));
  first->show();
  ifkWindow second;
  second.setWindowTitle(QStringLiteral("Second"));
  second.show();
  EXPECT_EQ(ifkWindow::windowMenuItemCount(), before + 2);
  ASSERT_EQ(menu.actions().size(), 2);
  EXPECT_EQ(menu.actions()[0]->text(), QStringLiteral("First"));
  bool told = false;
  first->Close = [&] { told = true; };
  first->close();
  EXPECT_TRUE(told);
  ASSERT_EQ(menu.actions().size(), 1);
  EXPECT_EQ(menu.actions()[0]->text(), QStringLiteral("Second"));
  first.reset();
  second.close();
  EXPECT_EQ(ifkWindow::windowMenuItemCount(), before);
  ifkWindow::WindowMenu(nullptr);
}

TEST(Window, TheDesktopMovesAndSizesAWindowWithoutAFrameWhereItCan) {
  struct Asking final : ifkWindow {
    Asking() : ifkWindow(nullptr, Qt::Window) {}
    bool takes = true;
    int moves = 0;
    int sizes = 0;
    bool StartSystemMove() override { return ++moves > 0 && takes; }
    bool StartSystemResize() override { return ++sizes > 0 && takes; }
  } window;
  window.Style(ifkWindow::kDarkPanel);
  window.setGeometry(100, 100, 300, 200);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  const QRect before = window.geometry();
  // A click asks for nothing; a drag asks once and leaves the rest to the desktop.
  Click(window, {150, 100});
  EXPECT_EQ(window.moves, 0);
  Drag(window, {150, 100}, {190, 130});
  EXPECT_EQ(window.moves, 1);
  Drag(window, {296, 196}, {330, 230});
  EXPECT_EQ(window.sizes, 1);
  EXPECT_EQ(window.geometry(), before);
  // One that does not take it lets the program do it.
  window.takes = false;
  Press(window, {100, 100});
  Move(window, {130, 110});
  Release(window, {100, 100});
  EXPECT_EQ(window.pos(), before.topLeft() + QPoint(30, 10));
}

TEST(Window, ADarkPanelIsMovedByAnyPartAndClosedByItsBox) {
  ifkWindow window;
  window.setGeometry(200, 150, 300, 200);
  window.setMinimumSize(150, 100);
  window.Style(ifkWindow::kDarkPanel);
  EXPECT_FALSE(window.TitleBar());
  EXPECT_EQ(window.Transparency(), 99);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  const QPoint start = window.pos();
  Press(window, {100, 100});
  Move(window, {130, 110});
  Release(window, {100, 100});
  EXPECT_EQ(window.pos(), start + QPoint(30, 10));
  Press(window, {295, 195});
  Move(window, {345, 225});
  EXPECT_EQ(window.size(), QSize(350, 230));
  Move(window, {-500, -500});
  EXPECT_EQ(window.size(), QSize(150, 100));
  Release(window, {10, 60});
  // Beside the box a release closes nothing.
  Press(window, {10, 10});
  Release(window, {60, 60});
  EXPECT_TRUE(window.isVisible());
  Click(window, {10, 10});
  EXPECT_FALSE(window.isVisible());
  window.Shadow(false);
  EXPECT_FALSE(window.Shadow());
  window.Style(ifkWindow::kPlain);
  EXPECT_TRUE(window.TitleBar());
  EXPECT_EQ(window.Transparency(), 100);
}

TEST(SliderControl, LiveAndDeferredScrolling) {
  Shown<ifkSlider> slider;
  QLineEdit field;
  slider->connectedControl(&field);
  int changes = 0;
  int starts = 0;
  slider->ValueChanged = [&] { ++changes; };
  slider->DraggingStarted = [&] { ++starts; };
  Drag(*slider, {8, 12}, {192, 12});
  EXPECT_EQ(slider->value(), 100);
  EXPECT_GT(changes, 2);
  EXPECT_EQ(starts, 1);
  EXPECT_EQ(field.text(), QStringLiteral("100"));
  slider->LiveScroll = false;
  changes = 0;
  Press(*slider, {8, 12});
  Move(*slider, {100, 12});
  EXPECT_EQ(slider->value(), 100);
  EXPECT_EQ(slider->ghostValue(), 50);
  Release(*slider, {100, 12});
  EXPECT_EQ(slider->value(), 50);
  EXPECT_EQ(changes, 1);
  slider->value(1000);
  EXPECT_EQ(slider->value(), 100);
  slider->Minimum = 20;
  slider->NumTickMarks = 8;
  Key(*slider.window, Qt::Key_Left);
  EXPECT_EQ(slider->value(), 90);
  Key(*slider.window, Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(slider->value(), 89);
  Key(*slider.window, Qt::Key_Down);
  EXPECT_EQ(slider->value(), 20);
  Key(*slider.window, Qt::Key_Up);
  EXPECT_EQ(slider->value(), 100);
  // The owner may take the press.
  slider->MouseDown = [](int, int) { return true; };
  Click(*slider, {8, 12});
  EXPECT_EQ(slider->value(), 100);
}

TEST(ButtonControl, ActsOnAReleaseInsideOnly) {
  Shown<ifkButton> button(QStringLiteral("Press"));
  int actions = 0;
  button->Action = [&] { ++actions; };
  Click(*button);
  EXPECT_EQ(actions, 1);
  EXPECT_EQ(button->mouseStatus(), ifkButton::kReleasedInside);
  Press(*button, {50, 12});
  Move(*button, {50, 80});
  EXPECT_EQ(button->mouseStatus(), ifkButton::kUp);
  Release(*button, {50, 80});
  EXPECT_EQ(actions, 1);
  Key(*button.window, Qt::Key_Space);
  button->Push();
  EXPECT_EQ(actions, 3);
  button->Type = ifkButton::kToggle;
  Click(*button);
  EXPECT_TRUE(button->Value());
  Click(*button);
  EXPECT_FALSE(button->Value());
  button->Type = ifkButton::kSets;
  Click(*button);
  Click(*button);
  EXPECT_TRUE(button->Value());
  actions = 0;
  button->setEnabled(false);
  Click(*button);
  button->Push();
  EXPECT_EQ(actions, 0);
}

TEST(SplitterControl, MovesWhatIsTiedToItWithinItsLimits) {
  AnsweringDialogs dialogs;
  Shown<ifkSplitter> splitter(dialogs);
  splitter->setGeometry(200, 0, 8, 300);
  std::array<QWidget*, 3> tied{};
  for (QWidget*& control : tied) {
    control = new QWidget(splitter.window.get());
    control->setGeometry(100, 50, 60, 40);
  }
  splitter->AddControl(tied[0], ifkSplitter::kMoves);
  splitter->AddControl(tied[1], ifkSplitter::kLeftEdge);
  splitter->AddControl(tied[2], ifkSplitter::kRightEdge);
  QObject nothing;
  splitter->AddControl(&nothing, ifkSplitter::kMoves);
  EXPECT_THAT(dialogs.messages,
              testing::ElementsAre("Sorry but currently the ifkSplitter only accepts RectControl"));
  int dragged = 0;
  splitter->Dragged = [&] { ++dragged; };
  Drag(*splitter, {4, 100}, {24, 100});
  EXPECT_EQ(splitter->Position(), 220);
  EXPECT_EQ(dragged, 1);
  EXPECT_EQ(tied[0]->geometry(), QRect(120, 50, 60, 40));
  EXPECT_EQ(tied[1]->geometry(), QRect(120, 50, 40, 40));
  EXPECT_EQ(tied[2]->geometry(), QRect(100, 50, 80, 40));
  // Without a maximum there is none.
  splitter->Position(5000);
  EXPECT_EQ(splitter->Position(), 5000);
  splitter->Maximum = 300;
  splitter->Minimum = 50;
  splitter->Position(5000);
  EXPECT_EQ(splitter->Position(), 292);
  splitter->Position(0);
  EXPECT_EQ(splitter->Position(), 50);
  splitter->RemoveControl(tied[0]);
  const QRect before = tied[0]->geometry();
  splitter->Position(90);
  EXPECT_EQ(tied[0]->geometry(), before);
  splitter->Direction = ifkSplitter::kHorizontalBar;
  splitter->AddControl(tied[0], ifkSplitter::kBottomEdge);
  splitter->AddControl(tied[1], ifkSplitter::kTopEdge);
  splitter->setGeometry(0, 100, 300, 8);
  const QRect other = tied[1]->geometry();
  splitter->Position(110);
  EXPECT_EQ(tied[0]->geometry(), before.adjusted(0, 0, 0, 10));
  EXPECT_EQ(tied[1]->geometry(), other.adjusted(0, 10, 0, 0));
}

TEST(SegmentControl, SelectsOneOrToggles) {
  Shown<ifkSegmentView> view;
  view->AddSegment(QStringLiteral("one"), {}, 1);
  view->AddSegment(QStringLiteral("two"), {}, 2).Unclickable = true;
  view->AddSegment(QStringLiteral("three"), {}, 3);
  std::vector<int> acted;
  view->Action = [&](SegmentViewPiece& piece) { acted.push_back(piece.Tag.ToInt()); };
  EXPECT_EQ(view->Count(), 2);
  EXPECT_EQ(view->SelectedSegment(), nullptr);
  const auto at = [&](int index) { return view->RectOf(index).center(); };
  Click(*view, at(0));
  Click(*view, at(1));
  Click(*view, at(2));
  EXPECT_THAT(acted, testing::ElementsAre(1, 3));
  EXPECT_EQ(view->SelectedSegment(), view->SegmentByTag(3));
  // A press that moves on acts where it is released.
  Press(*view, at(2));
  Move(*view, at(0));
  EXPECT_TRUE(view->Segment(0).Pressed);
  Release(*view, at(0));
  EXPECT_TRUE(view->Segment(0).Selected);
  EXPECT_FALSE(view->Segment(2).Selected);
  view->Mode = ifkSegmentView::kEachToggles;
  Click(*view, at(2));
  EXPECT_TRUE(view->Segment(0).Selected);
  EXPECT_TRUE(view->Segment(2).Selected);
  // Keys skip what cannot be clicked.
  Key(*view.window, Qt::Key_Right);
  Key(*view.window, Qt::Key_Space);
  EXPECT_FALSE(view->Segment(2).Selected);
  view->Segment(2).Enabled = false;
  EXPECT_EQ(view->selectSeg(at(2).x()), nullptr);
  EXPECT_EQ(view->SegmentByTag(9), nullptr);
}

TEST(StaticText, ALinkOpensUnlessTheOwnerTakesThePress) {
  Shown<ifkStaticText> text(QStringLiteral("Our page"));
  std::vector<QString> opened;
  text->ShowURL = [&](const QString& url) { opened.push_back(url); };
  Click(*text);
  EXPECT_TRUE(opened.empty());
  text->URL(QStringLiteral("https://www.quillmere.example/"));
  EXPECT_EQ(text->toolTip(), QStringLiteral("Links to \"https://www.quillmere.example/\""));
  Click(*text);
  EXPECT_EQ(opened.size(), 1U);
  text->MouseDown = [](int, int) { return true; };
  Click(*text);
  EXPECT_EQ(opened.size(), 1U);
}

TEST(Support, IconsCaptionsShadowsAndGradients) {
  using namespace InterfaceKitSupport;
  Picture icon = PlainPicture(4, 3, Color{200, 100, 0});
  Plane mask(4, 3, 0);
  mask.Edit().Row(0)[0] = 255;
  icon.SetMask(mask);
  EXPECT_EQ(AsDisabledIcon(icon).At(1, 1), (Color{227, 177, 128}));
  EXPECT_EQ(AsDisabledIcon(icon).Mask()->At(0, 0), 255);
  EXPECT_EQ(AsPressedIcon(icon).At(1, 1), (Color{72, 0, 0}));
  const Picture engraved = AsEngraved(icon);
  EXPECT_EQ(engraved.Height(), 4);
  EXPECT_EQ(engraved.At(1, 3), kWhite);
  EXPECT_EQ(engraved.At(1, 1), (Color{200, 100, 0}));
  EXPECT_EQ(engraved.Mask()->At(0, 0), 255);
  EXPECT_EQ(engraved.Mask()->At(1, 3), 0);
  EXPECT_EQ(AsEngravedInversed(icon).At(1, 1), (Color{55, 155, 255}));

  QImage image(100, 101, QImage::Format_ARGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  DrawGradient(painter, {0, 0, 10, 101}, Qt::black, QColor(100, 200, 50), kGradientDown);
  EXPECT_EQ(image.pixel(5, 0), qRgb(0, 0, 0));
  EXPECT_EQ(image.pixel(5, 50), qRgb(50, 100, 25));
  EXPECT_EQ(image.pixel(5, 100), qRgb(100, 200, 50));
  DrawGradient(painter, {20, 0, 10, 100}, Qt::black, Qt::white, kGradientBand);
  EXPECT_EQ(image.pixel(25, 0), qRgb(0, 0, 0));
  EXPECT_EQ(image.pixel(25, 49), qRgb(255, 255, 255));
  EXPECT_EQ(image.pixel(25, 99), qRgb(0, 0, 0));
  DrawDropShadow(painter, QRectF(50, 30, 30, 30), 0, 5, 5);
  EXPECT_LT(qRed(image.pixel(65, 50)), 90);
  // Soft at its edge, lower than the rectangle, and gone farther away.
  EXPECT_GT(qRed(image.pixel(65, 66)), qRed(image.pixel(65, 60)));
  EXPECT_LT(qRed(image.pixel(65, 66)), 250);
  EXPECT_EQ(qRed(image.pixel(65, 80)), 255);
  EXPECT_EQ(qRed(image.pixel(65, 26)), 255);

  const QString text = QStringLiteral("A caption that is far too long");
  EXPECT_EQ(ClipString(painter, text, 10000), text);
  const QString cut = ClipString(painter, text, 60);
  EXPECT_TRUE(text.startsWith(cut));
  EXPECT_LT(painter.fontMetrics().horizontalAdvance(cut), 60);
}

TEST(Pictures, PassToTheToolkitAndBackWithTheirMask) {
  Picture picture = TestPicture(21, 13);
  picture.SetMask(TestPlane(21, 13));
  const Picture back = PictureFromImage(ImageFromPicture(picture));
  EXPECT_TRUE(back.SameAs(picture));
  EXPECT_TRUE(PictureFromImage(QImage()).IsNil());
}

}  // namespace
}  // namespace brivolant::test
