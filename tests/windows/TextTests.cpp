// SPDX-License-Identifier: MIT
// Text typed on the photo in the real window, and the menu of fonts.
#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QListView>
#include <QTimer>

#include "WindowHelpers.h"
#include "effects/text/EffectModuleText.h"
#include "kit/ifkFontComboBox.h"

namespace brivolant::test {
namespace {

struct TextWindow : testing::Test {
  TextWindow() { program.OpenPhoto(program.Photo("photo.jpg", 640, 480)); }
  EffectModuleText& Text() { return dynamic_cast<EffectModuleText&>(program.Module("Text")); }
  const std::string& Words() { return Text().myTextEngine.item.at(0)->Text(); }
  /// A place of the display by fractions of the photo.
  QPoint At(double x, double y) {
    const QRect rect = program.Display().PreviewRect();
    const double ratio = program.Display().devicePixelRatioF();
    return {static_cast<int>((rect.x() + x * rect.width()) / ratio),
            static_cast<int>((rect.y() + y * rect.height()) / ratio)};
  }
  Program program;
};

TEST_F(TextWindow, IsTypedMovedCopiedAndUndone) {
  program.SelectRow("Text");
  Click(program.Panel(), program.ControlAt(EffectModuleText::kAddRow, 0.5));
  ASSERT_EQ(Text().myTextEngine.item.size(), 1U);
  EXPECT_EQ(QApplication::focusWidget(), &program.Display());
  Type(program.Window(), "Hello");
  EXPECT_EQ(Words(), "Hello");
  EXPECT_TRUE(program.Document().Dirty);
  // Keys of menus and of other effects are text here.
  Type(program.Window(), " [b]");
  Key(program.Window(), Qt::Key_Backspace);
  EXPECT_EQ(Words(), "Hello [b");
  QInputMethodEvent composed;
  composed.setCommitString(QStringLiteral("\u00F1"));
  QApplication::sendEvent(&program.Display(), &composed);
  EXPECT_EQ(Words(), "Hello [b\u00F1");
  Key(program.Window(), Qt::Key_A, Qt::ControlModifier);
  Key(program.Window(), Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(Words(), "");
  Key(program.Window(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Words(), "Hello [b\u00F1");
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Hello [b\u00F1"));
  // A double click takes a word, which is typed over.
  const Point foot = Text().myTextEngine.item[0]->XYFromPoistion(Text().myTextEngine.SourceSize, 1);
  const QPoint word = At(foot.x / program.Display().PreviewRect().width(),
                         foot.y / program.Display().PreviewRect().height() - 0.02);
  Click(program.Display(), word);
  Click(program.Display(), word);
  EXPECT_EQ(Text().myTextEngine.SelText(), "Hello");
  Type(program.Window(), "Bye");
  EXPECT_EQ(Words(), "Bye [b\u00F1");
  program.Choose("EditUndo");
  EXPECT_EQ(Words(), "Hello [b\u00F1");
  program.Choose("EditRedo");
  EXPECT_EQ(Words(), "Bye [b\u00F1");
  // Moved by its frame: one step back.
  const float before = Text().myTextEngine.item[0]->Left;
  const QPoint frame = At(0.3, 0.5) - QPoint(6, 0);
  Drag(program.Display(), frame, frame + QPoint(40, 0));
  EXPECT_GT(Text().myTextEngine.item[0]->Left, before + 0.02F);
  program.Choose("EditUndo");
  EXPECT_FLOAT_EQ(Text().myTextEngine.item[0]->Left, before);
  // A mere click is no step.
  Click(program.Display(), At(0.5, 0.5));
  program.Choose("EditUndo");
  EXPECT_EQ(Words(), "Hello [b\u00F1");
}

TEST_F(TextWindow, BlinksWithoutARenderAndShowsItsCursors) {
  program.SelectRow("Text");
  Type(program.Window(), "I");
  Move(program.Display(), At(0.5, 0.5));
  EXPECT_EQ(program.Display().cursor().shape(), Qt::IBeamCursor);
  Move(program.Display(), At(0.3, 0.5) - QPoint(6, 0));
  EXPECT_EQ(program.Display().cursor().shape(), Qt::OpenHandCursor);
  Move(program.Display(), At(0.3, 0.4) - QPoint(9, 9));
  EXPECT_EQ(program.Display().cursor().shape(), Qt::SizeFDiagCursor);
  Move(program.Display(), At(0.7, 0.4) + QPoint(9, -9));
  EXPECT_EQ(program.Display().cursor().shape(), Qt::SizeBDiagCursor);
  Move(program.Display(), At(0.05, 0.05));
  EXPECT_EQ(program.Display().cursor().shape(), Qt::ArrowCursor);
  // What was typed is shown, and at the size that the open panel leaves.
  Settle();
  ASSERT_TRUE(Until([&] { return !program.Window().ResizedUpdateTimer.isActive(); }));
  program.Window().Session().FinishPreview();
  int renders = 0;
  const auto started = program.Processor().UpdateStarted;
  program.Processor().UpdateStarted = [&] { ++renders; };
  const QImage first = program.Display().Buffer().copy();
  EXPECT_TRUE(Until([&] { return program.Display().Buffer() != first; }));
  EXPECT_EQ(renders, 0);
  program.Processor().UpdateStarted = started;
}

TEST_F(TextWindow, ADragOnThePhotoIsAStepOfTheHistory) {
  program.SelectRow("Overlay");
  auto& overlay = program.Module("Overlay");
  Click(program.Panel(), program.ControlAt(3, 0.5));
  while (program.Window().UndoGizmo.UndoAvailable()) program.Choose("EditUndo");
  const Dictionary before = overlay.Settings();
  Drag(program.Display(), At(0.4, 0.4), At(0.7, 0.6));
  EXPECT_FALSE(overlay.Settings() == before);
  EXPECT_TRUE(program.Document().Dirty);
  program.Choose("EditUndo");
  EXPECT_TRUE(overlay.Settings() == before);
}

TEST(FontMenu, GivesTheChosenFaceOrTheOldOne) {
  ifkFontComboBoxMenu& menu = ifkFontComboBoxMenu::Instance();
  const QStringList families = QFontDatabase::families();
  ASSERT_FALSE(families.isEmpty());
  const std::string first = families.front().toStdString();
  std::function<void(QListView&)> act;
  QTimer opened;
  QObject::connect(&opened, &QTimer::timeout, [&] {
    if (!menu.isVisible()) return;
    opened.stop();
    act(menu.Listbox1());
  });
  const auto answer = [&](const std::function<void(QListView&)>& what, const std::string& current) {
    act = what;
    opened.start(5);
    return menu.Popup(10, 10, 140, current);
  };
  const auto press = [&](Qt::Key key) { return [&menu, key](QListView&) { Key(menu, key); }; };
  EXPECT_EQ(answer(press(Qt::Key_Escape), first), first);
  EXPECT_EQ(answer(press(Qt::Key_Return), first), first);
  EXPECT_EQ(answer(press(Qt::Key_Escape), "No Such Face"), "No Such Face");
  EXPECT_EQ(answer([&](QListView&) { menu.hide(); }, first), first);
  const std::string clicked = answer(
      [&](QListView& list) {
        const QModelIndex row = list.model()->index(list.model()->rowCount() - 1, 0);
        list.scrollTo(row);
        Settle();
        Click(*list.viewport(), list.visualRect(row).center());
      },
      first);
  EXPECT_EQ(clicked, families.back().toStdString());
  // The field opens the same menu and takes its answer.
  ifkFontComboBox field;
  field.setCurrentText(QStringLiteral("No Such Face"));
  field.show();
  act = [&](QListView& list) {
    EXPECT_TRUE(field.MenuOpen());
    press(Qt::Key_Down)(list);
    press(Qt::Key_Return)(list);
  };
  opened.start(5);
  field.showPopup();
  EXPECT_FALSE(field.MenuOpen());
  EXPECT_TRUE(families.contains(field.currentText()));
  field.setCurrentIndex(0);
  field.setEditText(QStringLiteral("half a na"));
  Key(field, Qt::Key_Return);
  EXPECT_EQ(field.currentText(), families.front());
  EXPECT_EQ(field.lineEdit()->selectedText(), families.front());
}

}  // namespace
}  // namespace brivolant::test
