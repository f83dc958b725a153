// SPDX-License-Identifier: MIT
// Edits of one photo and styles, given to what is selected in the browser.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QMenu>
#include <QPushButton>

#include "BrowsingHelpers.h"
#include "app/browse/PasteEditsSheet.h"
#include "app/commands/ToolButtons.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct Pasting : Browsing {
  Pasting() : Browsing({"a.jpg", "b.jpg"}) {
    OpenPhoto(Photo("source.jpg", 64, 48));
    SelectRow("Exposure");
    Click(Panel(), ControlAt(0, 0.9));
    Choose("RotateAndFlipRotate90");
    fileDialogs.files = {document};
    Window().SaveMethod();
    Finish();
    Choose("ViewBrowseMyPhotos");
    EXPECT_TRUE(Shows({"a.jpg", "b.jpg", "source.brvPhoto"}));
    Browser().setFocus();
  }
  void Select(const std::vector<FolderItem>& files) {
    Browser().SelectFiles(files);
    EXPECT_TRUE(Until([&] { return Browser().SelectedCount() == static_cast<int>(files.size()); }));
    Window().EnableMenuItems();
  }
  PasteEditsSheet& Sheet() { return *Window().Edits().Sheet(); }
  /// Presses the sheet's button, and waits until what it began has ended.
  void Accept() {
    QPointer<QDialog> sheet = &Sheet();
    auto* buttons = sheet->findChild<QDialogButtonBox*>();
    buttons->button(QDialogButtonBox::Ok)->click();
    EXPECT_TRUE(Until([&] { return sheet.isNull(); }));
    Settle();
    Window().Edits().Work().Finish();
    Finish();
  }
  BrivolantDocument Loaded(const FolderItem& file) {
    BrivolantDocument loaded(app->Services());
    EXPECT_TRUE(loaded.Load(file));
    return loaded;
  }
  FolderItem document = Pictures().Child("source.brvPhoto");
  FolderItem a = Pictures().Child("a.jpg");
  FolderItem b = Pictures().Child("b.jpg");
};

TEST(Edits, AreCopiedFromADocumentAndPastedOntoTheSelection) {
  Pasting program;
  program.Select({program.a});
  EXPECT_FALSE(program.Menu("EditCopyStyle").isEnabled()) << "a photo has no edits";
  EXPECT_FALSE(program.Menu("EditPasteStyle").isEnabled());
  program.Select({program.document});
  EXPECT_EQ(program.Menu("EditCopyStyle").text(), QStringLiteral("Copy Edits"));
  program.Choose("EditCopyStyle");
  program.Window().Edits().Work().Finish();
  program.Select({program.a, program.b});
  program.Choose("EditPasteStyle");
  ASSERT_NE(program.Window().Edits().Sheet(), nullptr);
  EXPECT_FALSE(program.Sheet().Crop().isChecked());
  EXPECT_FALSE(program.Sheet().Turns().isChecked());
  program.Sheet().Turns().setChecked(true);
  program.Accept();
  const FolderItem made = program.Pictures().Child("a.brvPhoto");
  ASSERT_TRUE(program.Shows({"a.brvPhoto", "a.jpg", "b.brvPhoto", "b.jpg", "source.brvPhoto"}));
  EXPECT_EQ(program.Loaded(made).StyleData, program.Loaded(program.document).StyleData);
  EXPECT_EQ(program.Loaded(made).Rotation, 1);
  EXPECT_THAT(program.dialogs.questions, testing::IsEmpty());
}

TEST(Edits, ReplaceOthersAfterOneQuestionAndUndoBringsAllBack) {
  Pasting program;
  const std::string own = program.Loaded(program.document).StyleData;
  // A style without edits of its own; the open document is among the chosen.
  program.Select({program.a, program.document});
  QMenu& styles = program.Window().Menu().Submenu("EditApplyStyle");
  Q_EMIT styles.aboutToShow();
  ASSERT_GT(styles.actions().size(), 2);
  QAction* style = styles.actions().at(1)->menu()->actions().at(0);
  style->trigger();
  ASSERT_NE(program.Window().Edits().Sheet(), nullptr);
  EXPECT_TRUE(program.Sheet().Crop().isHidden()) << "a style has no crop";
  // Said no, nothing happens.
  program.dialogs.answers = {Answer::kCancel};
  program.Accept();
  ASSERT_EQ(program.dialogs.questions.size(), 1U);
  EXPECT_THAT(program.dialogs.questions[0].Message, HasSubstr("1"));
  EXPECT_THAT(program.Names(), ElementsAre("a.jpg", "b.jpg", "source.brvPhoto"));
  // Only the others.
  style->trigger();
  program.dialogs.answers = {Answer::kAlternate};
  program.Accept();
  ASSERT_TRUE(program.Shows({"a.brvPhoto", "a.jpg", "b.jpg", "source.brvPhoto"}));
  EXPECT_EQ(program.Loaded(program.document).StyleData, own);

  const FolderItem made = program.Pictures().Child("a.brvPhoto");
  const std::string before = ReadFile(made.Child("Settings")).value_or("");
  program.Select({made, program.document, program.b});
  styles.actions().at(2)->menu()->actions().at(1)->trigger();
  program.dialogs.answers = {Answer::kAction};
  program.Accept();
  ASSERT_TRUE(program.Shows({"a.brvPhoto", "a.jpg", "b.brvPhoto", "b.jpg", "source.brvPhoto"}));
  EXPECT_NE(ReadFile(made.Child("Settings")).value_or(""), before);
  ExpectSoon([&] { return program.Loaded(program.document).StyleData == own; }, false);
  EXPECT_EQ(program.Document().Rotation, 1);
  EXPECT_FALSE(program.Document().Dirty) << "what was saved before is saved again";

  program.Window().EnableMenuItems();
  EXPECT_EQ(program.Menu("EditUndo").text(), QStringLiteral("&Undo Paste Edits"));
  program.Choose("EditUndo");
  program.Window().Edits().Work().Finish();
  ASSERT_TRUE(program.Shows({"a.brvPhoto", "a.jpg", "b.jpg", "source.brvPhoto"}));
  EXPECT_EQ(ReadFile(made.Child("Settings")).value_or(""), before);
  ExpectSoon([&] { return program.Loaded(program.document).StyleData == own; }, true);
  program.Choose("EditUndo");
  program.Window().Edits().Work().Finish();
  ASSERT_TRUE(program.Shows({"a.jpg", "b.jpg", "source.brvPhoto"}));
  EXPECT_THAT(program.dialogs.messages, testing::IsEmpty());
}

TEST(Edits, GivenToTheOpenDocumentComeBackWhateverIsOpenByThen) {
  Pasting program;
  const std::string own = program.Loaded(program.document).StyleData;
  // The same once more is no step, and undo takes nothing else away.
  program.Select({program.document});
  program.Choose("EditCopyStyle");
  program.Window().Edits().Work().Finish();
  program.Choose("EditPasteStyle");
  program.dialogs.answers = {Answer::kAction};
  program.Accept();
  Settle();
  program.Window().EnableMenuItems();
  EXPECT_FALSE(program.Menu("EditUndo").isEnabled());
  EXPECT_EQ(program.Loaded(program.document).StyleData, own);

  QMenu& styles = program.Window().Menu().Submenu("EditApplyStyle");
  Q_EMIT styles.aboutToShow();
  program.Select({program.document});
  styles.actions().at(1)->menu()->actions().at(0)->trigger();
  program.dialogs.answers = {Answer::kAction};
  program.Accept();
  ExpectSoon([&] { return program.Loaded(program.document).StyleData == own; }, false);
  program.OpenPhoto(program.b);
  program.Choose("ViewBrowseMyPhotos");
  program.Choose("EditUndo");
  program.Window().Edits().Work().Finish();
  ExpectSoon([&] { return program.Loaded(program.document).StyleData == own; }, true);
  EXPECT_EQ(program.Document().Name, "b");
}

TEST(Edits, OntoAPhotoThatIsNotSavedAreNotSavedEither) {
  Pasting program;
  program.Tool(ToolButtons::Editor().Identifier);
  program.Choose("RotateAndFlipFlipHorizontally");
  program.dialogs.answers = {Answer::kAlternate};
  program.Choose("ViewBrowseMyPhotos");
  const std::string saved = ReadFile(program.document.Child("Settings")).value_or("");
  program.Select({program.document});
  program.Choose("EditCopyStyle");
  program.Choose("EditPasteStyle");
  program.dialogs.answers = {Answer::kAction};
  program.Accept();
  EXPECT_EQ(ReadFile(program.document.Child("Settings")).value_or(""), saved);
  program.Tool(ToolButtons::Editor().Identifier);
  Settle();
  EXPECT_TRUE(program.Window().isWindowModified());
  EXPECT_EQ(program.Document().Flip, 1);
}

}  // namespace
}  // namespace brivolant::test
