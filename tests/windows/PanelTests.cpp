// SPDX-License-Identifier: MIT
// The panel of the effect stack: mouse, keys, assistive tools.
#include <QAccessible>
#include <QApplication>
#include <QScrollBar>
#include <cmath>

#include "WindowHelpers.h"
#include "kit/Appearance.h"

namespace brivolant::test {
namespace {

struct PanelTest : testing::Test {
  PanelTest() { program.OpenPhoto(program.Photo("photo.jpg")); }
  QPoint CheckBoxOf(const std::string& name) {
    return {12, program.Panel().RowRect(program.Row(name)).top() + 10};
  }
  Program program;
};

TEST_F(PanelTest, CheckBoxesFollowTheirRules) {
  EffectStackEditor& panel = program.Panel();
  // Switching an effect on selects it.
  Click(panel, CheckBoxOf("Auto Levels"));
  EXPECT_TRUE(program.Module("Auto Levels").Enabled());
  EXPECT_EQ(panel.selectedEffect(), program.Row("Auto Levels"));
  EXPECT_TRUE(program.Document().Dirty);
  // Switching it off leaves the selection.
  Click(panel, CheckBoxOf("Auto Levels"));
  EXPECT_FALSE(program.Module("Auto Levels").Enabled());
  EXPECT_EQ(panel.selectedEffect(), program.Row("Auto Levels"));
  // With Ctrl an effect is only switched on.
  Click(panel, CheckBoxOf("Auto Contrast"), Qt::ControlModifier);
  EXPECT_TRUE(program.Module("Auto Contrast").Enabled());
  EXPECT_EQ(panel.selectedEffect(), program.Row("Auto Levels"));
  // Selecting an effect by its name switches it on too.
  program.SelectRow("Exposure");
  EXPECT_TRUE(program.Module("Exposure").Enabled());
  // Below an unfolded row the column belongs to the row.
  const int below = program.Row("Levels");
  Click(panel, {12, panel.RowRect(below).top() + 15});
  EXPECT_EQ(panel.selectedEffect(), below);
  EXPECT_TRUE(program.Module("Levels").Enabled());
}

TEST_F(PanelTest, HeadingsAndUnfinishedEffectsSwitchNothing) {
  EffectStackEditor& panel = program.Panel();
  const std::string before = program.Processor().StyleData();
  Click(panel, {12, 10});
  EXPECT_EQ(panel.selectedEffect(), 0);
  program.Window().EffectScrollbar->setValue(program.Window().EffectScrollbar->maximum());
  Click(panel, CheckBoxOf("Borders"));
  EXPECT_FALSE(program.Module("Borders").Enabled());
  EXPECT_EQ(program.Processor().StyleData(), before);
  EXPECT_FALSE(program.Window().UndoGizmo.UndoAvailable());
  // Far below the last row there is nothing.
  program.Window().resize(1100, 1400);
  Settle();
  Click(panel, {60, panel.height() - 5});
  EXPECT_EQ(panel.selectedEffect(), program.Row("Borders"));
}

TEST_F(PanelTest, ADraggedSliderChangesThePhotoLiveAndIsOneUndo) {
  program.SelectRow("Exposure");
  const double before = Mean(program.Shown(), 1);
  EffectStackEditor& panel = program.Panel();
  Press(panel, program.ControlAt(0, 0.5));
  Move(panel, program.ControlAt(0, 0.7));
  const double during = Mean(program.Shown(), 1);
  EXPECT_GT(during, before + 3);
  Move(panel, program.ControlAt(0, 0.9));
  EXPECT_GT(Mean(program.Shown(), 1), during + 3);
  // Beyond the track the value stays at its end.
  Move(panel, program.ControlAt(0, 0.9) + QPoint(400, 40));
  Release(panel, program.ControlAt(0, 0.9) + QPoint(400, 40));
  EXPECT_EQ(program.Module("Exposure").ControlValue(0).ToInt(), 100);
  EXPECT_EQ(program.Menu("EditUndo").text(), QStringLiteral("&Undo Exposure"));
  program.Choose("EditUndo");
  EXPECT_NEAR(Mean(program.Shown(), 1), before, 0.01);
  program.Choose("EditRedo");
  EXPECT_EQ(program.Module("Exposure").ControlValue(0).ToInt(), 100);
  EXPECT_GT(Mean(program.Shown(), 1), during + 3);
}

TEST_F(PanelTest, KeysWhileASliderIsHeldLetGoOfIt) {
  program.SelectRow("Exposure");
  const std::string untouched = program.Processor().StyleData();
  EffectStackEditor& panel = program.Panel();
  const auto at = [&](int x) { return program.ControlAt(0, x / 100.0); };
  Press(panel, at(20));
  Move(panel, at(60));
  const std::string below = program.Processor().item(program.Row("Exposure") + 1)->ID();
  Key(panel, Qt::Key_Down);
  const std::string stack = program.Processor().StyleData();
  Move(panel, at(90));
  EXPECT_TRUE(program.Processor().StyleData() == stack) << "the mouse holds nothing of " << below;
  Release(panel, at(90));
  program.Choose("EditUndo");
  EXPECT_TRUE(program.Processor().StyleData() == untouched) << "it was one change";

  // Taken back while it is held: what is drawn after that is not recorded behind nobody's back.
  program.SelectRow("Exposure");
  Press(panel, at(20));
  Move(panel, at(60));
  program.Choose("EditUndo");
  const std::string undone = program.Processor().StyleData();
  Move(panel, at(90));
  EXPECT_TRUE(program.Processor().StyleData() == undone);
  Release(panel, at(90));
}

TEST_F(PanelTest, APressOnAControlOfADisabledEffectEnablesIt) {
  program.SelectRow("Exposure");
  Click(program.Panel(), CheckBoxOf("Exposure"));
  ASSERT_FALSE(program.Module("Exposure").Enabled());
  Click(program.Panel(), program.ControlAt(0, 0.8));
  EXPECT_TRUE(program.Module("Exposure").Enabled());
  EXPECT_NEAR(program.Module("Exposure").ControlValue(0).ToInt(), 80, 1);
}

TEST_F(PanelTest, ResetStandsOnEffectsWithControlsAndCanBeUndone) {
  program.SelectRow("Exposure");
  EffectStackEditor& panel = program.Panel();
  Click(panel, program.ControlAt(0, 0.9));
  const Variant set = program.Module("Exposure").ControlValue(0);
  Click(panel, {panel.ResetButtonLeft() + 20, panel.RowRect(panel.selectedEffect()).top() + 9});
  EXPECT_EQ(program.Module("Exposure").ControlValue(0).ToInt(), 50);
  EXPECT_TRUE(program.Module("Exposure").Enabled());
  program.Choose("EditUndo");
  EXPECT_EQ(program.Module("Exposure").ControlValue(0), set);
  // A row without controls has none: the place belongs to the row.
  Click(panel, CheckBoxOf("Auto Levels"));
  Click(panel, {panel.ResetButtonLeft() + 20, panel.RowRect(panel.selectedEffect()).top() + 9});
  EXPECT_EQ(panel.mouseStatus(), EffectStackEditor::kIdle);
}

TEST_F(PanelTest, RowsMoveByDraggingAndBackByUndo) {
  EffectStackEditor& panel = program.Panel();
  const int from = program.Row("Auto Contrast");
  const QPoint start(60, panel.RowRect(from).top() + 10);
  // Five pixels are no drag.
  Drag(panel, start, start + QPoint(0, 5));
  EXPECT_EQ(program.Row("Auto Contrast"), from);
  EXPECT_EQ(panel.selectedEffect(), from);
  // Six are, and the controls fold away while it lasts.
  Press(panel, start);
  Move(panel, start + QPoint(0, 6));
  EXPECT_EQ(panel.mouseStatus(), EffectStackEditor::kDraggingRow);
  EXPECT_EQ(panel.RowRect(from).height(), EffectStackEditor::kRow);
  Move(panel, start + QPoint(0, 105));
  Release(panel, start + QPoint(0, 105));
  const int to = program.Row("Auto Contrast");
  EXPECT_EQ(to, 5);
  EXPECT_EQ(panel.selectedEffect(), to);
  program.Choose("EditUndo");
  EXPECT_EQ(program.Row("Auto Contrast"), from);
  program.Choose("EditRedo");
  EXPECT_EQ(program.Row("Auto Contrast"), to);
}

TEST_F(PanelTest, ARowDroppedUnderTheLastGoesToTheEnd) {
  program.Window().resize(1100, 1400);
  Settle();
  EffectStackEditor& panel = program.Panel();
  const QPoint start(60, panel.RowRect(1).top() + 10);
  Drag(panel, start, {60, panel.height() - 20});
  const int last = program.Processor().Count();
  EXPECT_EQ(program.Row("Auto Contrast"), last);
  program.Choose("EditUndo");
  EXPECT_EQ(program.Row("Auto Contrast"), 1);
  program.Choose("EditRedo");
  EXPECT_EQ(program.Row("Auto Contrast"), last);
}

TEST_F(PanelTest, EverythingIsReachedByKeys) {
  EffectStackEditor& panel = program.Panel();
  MainWindow& window = program.Window();
  panel.setFocus();
  // However busy the machine is, no rest is between two keys.
  panel.OneChange = 1000 * 1000;
  program.SelectRow("Exposure");
  // Down and up, and no further than the ends.
  Key(window, Qt::Key_Down);
  EXPECT_EQ(panel.selectedEffect(), program.Row("Levels"));
  EXPECT_FALSE(program.Module("Levels").Enabled());
  Key(window, Qt::Key_Space);
  EXPECT_TRUE(program.Module("Levels").Enabled());
  Key(window, Qt::Key_Space);
  Key(window, Qt::Key_Up);
  for (int i = 0; i < 20; ++i) Key(window, Qt::Key_Up);
  EXPECT_EQ(panel.selectedEffect(), 0);
  for (int i = 0; i < 60; ++i) Key(window, Qt::Key_Down);
  EXPECT_EQ(panel.selectedEffect(), program.Processor().Count());
  EXPECT_GT(program.Window().EffectScrollbar->value(), 0);
  EXPECT_LE(panel.RowRect(panel.selectedEffect()).bottom(), panel.height());

  program.Window().EffectScrollbar->setValue(0);
  program.SelectRow("Exposure");
  effectModule& exposure = program.Module("Exposure");
  Key(window, Qt::Key_Tab);
  EXPECT_EQ(panel.focusedControl(), 0);
  Key(window, Qt::Key_Right);
  EXPECT_EQ(exposure.ControlValue(0).ToInt(), 51);
  Key(window, Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(exposure.ControlValue(0).ToInt(), 61);
  Key(window, Qt::Key_End);
  EXPECT_EQ(exposure.ControlValue(0).ToInt(), 100);
  Key(window, Qt::Key_Home);
  EXPECT_EQ(exposure.ControlValue(0).ToInt(), 0);
  // All those steps were one change.
  program.Choose("EditUndo");
  EXPECT_EQ(program.Module("Exposure").ControlValue(0).ToInt(), 50);
  Key(window, Qt::Key_Right);
  EXPECT_EQ(program.Module("Exposure").ControlValue(0).ToInt(), 51);
  program.Choose("EditUndo");
  EXPECT_EQ(program.Module("Exposure").ControlValue(0).ToInt(), 50);
  Key(window, Qt::Key_Left);
  Key(window, Qt::Key_Delete);
  EXPECT_EQ(program.Module("Exposure").ControlValue(0).ToInt(), 50);

  const int before = program.Row("Exposure");
  Key(window, Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(program.Row("Exposure"), before + 1);
  Key(window, Qt::Key_Up, Qt::ControlModifier);
  EXPECT_EQ(program.Row("Exposure"), before);
  // Past the last control the focus leaves the panel.
  Key(window, Qt::Key_Tab);
  Key(window, Qt::Key_Tab);
  EXPECT_FALSE(panel.hasFocus());
}

TEST_F(PanelTest, TheListScrollsByBarAndWheel) {
  EffectStackEditor& panel = program.Panel();
  QScrollBar& bar = *program.Window().EffectScrollbar;
  ASSERT_TRUE(bar.isEnabled());
  const int rows = program.Processor().Count() + 1;
  EXPECT_EQ(bar.maximum(), EffectStackEditor::kRow * rows - panel.height());
  bar.setValue(100);
  EXPECT_EQ(panel.yOffset(), 100);
  EXPECT_EQ(panel.rowAtXY(0, 5), 5);
  program.Window().resize(1100, 1500);
  Settle();
  EXPECT_FALSE(bar.isEnabled());
  EXPECT_EQ(panel.rowAtXY(0, 5), 0);
  EXPECT_EQ(panel.rowAtXY(0, panel.height() - 1), -1);
}

TEST_F(PanelTest, TheBottomLayerShowsAloneAndUndoReturnsToIt) {
  MainWindow& window = program.Window();
  QWidget& header = *reinterpret_cast<QWidget*>(window.AdvancedSectionheader);
  Click(header, {header.width() * 3 / 4, header.height() / 2});
  EXPECT_EQ(program.Processor().CurrentStack, 1);
  const double plain = Mean(program.Shown(), 0);
  program.SelectRow("Exposure");
  Click(program.Panel(), program.ControlAt(0, 0.9));
  EXPECT_GT(Mean(program.Shown(), 0), plain + 3);
  Click(header, {header.width() / 4, header.height() / 2});
  EXPECT_EQ(program.Processor().CurrentStack, 0);
  EXPECT_NEAR(Mean(program.Shown(), 0), plain, 0.01);
  program.Choose("EditUndo");
  EXPECT_EQ(program.Processor().CurrentStack, 1);
}

TEST_F(PanelTest, ACaptionThatIsCutHasATip) {
  program.SelectRow("Exposure");
  const QRect control = program.Panel().ControlRect(0);
  EXPECT_EQ(program.Panel().TipAt({10, control.center().y()}), QString());
  effectModule& module = program.Module("Exposure");
  module.Control(0).Caption = "A caption that is much too long for this place:";
  EXPECT_EQ(program.Panel().TipAt({10, control.center().y()}).toStdString(),
            module.Control(0).Caption);
  // Neither over the control itself nor over another row.
  EXPECT_EQ(program.Panel().TipAt(control.center()), QString());
  EXPECT_EQ(program.Panel().TipAt({10, control.top() - 5}), QString());
}

TEST_F(PanelTest, AssistiveToolsReadAndActOnEveryRow) {
  program.SelectRow("Exposure");
  QAccessibleInterface* panel = QAccessible::queryAccessibleInterface(&program.Panel());
  ASSERT_NE(panel, nullptr);
  EXPECT_EQ(panel->role(), QAccessible::List);
  // The rows, then the controls of the selected one.
  const int rows = program.Processor().Count() + 1;
  ASSERT_EQ(panel->childCount(), rows + 1);
  EXPECT_EQ(panel->child(0)->role(), QAccessible::Heading);
  QAccessibleInterface* row = panel->child(program.Row("Auto Levels"));
  EXPECT_EQ(row->text(QAccessible::Name), QStringLiteral("Auto Levels"));
  EXPECT_FALSE(row->state().checked);
  row->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_TRUE(program.Module("Auto Levels").Enabled());
  EXPECT_TRUE(row->state().checked);
  EXPECT_TRUE(panel->child(program.Row("Borders"))->state().disabled);
  QAccessibleInterface* slider = panel->child(rows);
  EXPECT_EQ(slider->role(), QAccessible::Slider);
  EXPECT_EQ(slider->parent(), panel);
  EXPECT_EQ(panel->indexOfChild(slider), rows);
  slider->valueInterface()->setCurrentValue(75);
  EXPECT_EQ(program.Module("Exposure").ControlValue(0).ToInt(), 75);
  EXPECT_EQ(slider->text(QAccessible::Value), QStringLiteral("75"));
  slider->actionInterface()->doAction(QAccessibleActionInterface::decreaseAction());
  EXPECT_EQ(slider->valueInterface()->currentValue().toInt(), 74);
  const QPoint middle = program.Panel().mapToGlobal(program.ControlAt(0, 0.5));
  EXPECT_EQ(panel->childAt(middle.x(), middle.y()), slider);
}

TEST_F(PanelTest, ADisabledRowThatIsSelectedStaysReadable) {
  program.SelectRow("Exposure");
  EffectStackEditor& panel = program.Panel();
  for (const Appearance::Scheme scheme : {Appearance::kLight, Appearance::kDark}) {
    Appearance::Apply(*qApp, scheme);
    for (const bool enabled : {true, false}) {
      panel.setEnabled(enabled);
      Settle();
      const QRect row = panel.RowRect(program.Row("Exposure"));
      const QImage shown = panel.grab(QRect(28, row.top() + 2, 80, 15)).toImage();
      // As the guidelines for contrast reckon it.
      double darkest = 1;
      double lightest = 0;
      const auto linear = [](int part) { return std::pow(part / 255.0, 2.2); };
      for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
          const QColor color = shown.pixelColor(x, y);
          const double luminance = 0.2126 * linear(color.red()) + 0.7152 * linear(color.green()) +
                                   0.0722 * linear(color.blue());
          darkest = std::min(darkest, luminance);
          lightest = std::max(lightest, luminance);
        }
      }
      // What is at rest is paler, but not lost on the accent.
      EXPECT_GT((lightest + 0.05) / (darkest + 0.05), enabled ? 4 : 2.5)
          << "scheme " << scheme << enabled;
    }
  }
  Appearance::Apply(*qApp, Appearance::kFollowDesktop);
}

}  // namespace
}  // namespace brivolant::test
