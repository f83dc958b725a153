// SPDX-License-Identifier: MIT
// The session in its window: what arrives meanwhile, what the history holds, and the commands.
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include "BrowsingHelpers.h"
#include "app/commands/ToolButtons.h"
#include "effects/styles/OneClickWonderStorage.h"
#include "kit/ifkSegmentView.h"
#include "kit/templateSelector.h"
#include "metadata/ImageMetaData.h"
#include "metadata/MetadataWriter.h"
#include "metadata/PhotoFacts.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string UndoName(Program& program) {
  return program.Window().UndoGizmo.UndoName();
}

/// Two entries of which the newer is undone, so that there is something to lose.
void UndoOne(Program& program) {
  program.Choose("RotateAndFlipRotate90");
  program.Choose("RotateAndFlipFlipHorizontally");
  program.Choose("EditUndo");
  ASSERT_TRUE(program.Window().UndoGizmo.RedoAvailable());
}

TEST(Copies, CarryWhatThePhotoToldAndAreStampedForOthers) {
  Program program;
  const FolderItem photo = program.Photo("told.jpg", 300, 200);
  using enum MetadataBlock;
  using Act = MetadataChange::Act;
  const std::vector<MetadataChange> changes{{Act::kSet, kExif, "8827", "200"},
                                            {Act::kSet, kTiff, "0112", "6"},
                                            {Act::kSet, kIptc, "80", "Anna"}};
  ASSERT_EQ(MetadataWriter::Write(photo, changes), "");
  program.OpenPhoto(photo);
  const FolderItem copy = photo.Parent().Child("copy.jpg");
  program.fileDialogs.files = {copy};
  program.Choose("FileSaveACopyAs");
  program.Finish();
  ASSERT_TRUE(copy.Exists());
  ImageMetaData data;
  data.ReadFile(copy);
  EXPECT_EQ(data.ExifData->StringValue("8827"), "200");
  EXPECT_EQ(NumberOf(data.TIFFData->Value("0112", 1)), 1);
  EXPECT_EQ(NumberOf(data.ExifData->Value("A002", 1)), 200);
  EXPECT_TRUE(data.Thumbnail->TIFFData->hasKey("0202"));
  EXPECT_THAT(data.TIFFData->StringValue("0131"), testing::StartsWith("Brivolant Photos"));
  // A document tells what its original told.
  program.fileDialogs.files = {photo.Parent().Child("kept.brvPhoto")};
  program.Choose("RotateAndFlipRotate90");
  program.Choose("FileSave");
  program.Finish();
  program.OpenPhoto(photo.Parent().Child("kept.brvPhoto"));
  program.fileDialogs.files = {photo.Parent().Child("again.jpg")};
  program.Choose("FileSaveACopyAs");
  program.Finish();
  ImageMetaData again;
  again.ReadFile(photo.Parent().Child("again.jpg"));
  ASSERT_NE(again.ExifData, nullptr);
  EXPECT_EQ(again.ExifData->StringValue("8827"), "200");
  // For others, with what the user wants to be known by; what is empty leaves what stands.
  program.app->usersFullName = "Ada Lens";
  program.app->usersContactLink = "";
  program.app->usersCopyright = "";
  EXPECT_EQ(program.app->TagImageFile(copy), "");
  const PhotoFacts facts = PhotoFacts::Of(copy);
  EXPECT_EQ(facts.Creator, "Ada Lens");
  ImageMetaData stamped;
  stamped.ReadFile(copy);
  EXPECT_EQ(stamped.IPTCData->StringValue("80"), "Ada Lens") << "one truth";
  EXPECT_EQ(stamped.TIFFData->StringValue("9C9D"), "Ada Lens");
  program.app->userTagImages = false;
  program.app->usersFullName = "Nobody";
  EXPECT_EQ(program.app->TagImageFile(copy), "");
  EXPECT_EQ(PhotoFacts::Of(copy).Creator, "Ada Lens");
}

TEST(Arriving, FilesWaitWhileAQuestionIsOpen) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  program.Choose("RotateAndFlipRotate90");
  const FolderItem other = program.Photo("other.jpg");
  const effectModule* module = program.Processor().item(2);
  program.dialogs.whileOpen = [&] {
    program.app->OpenDocument(other);
    QApplication::processEvents();
    EXPECT_EQ(program.Document().Name, "photo");
    EXPECT_EQ(program.Processor().item(2), module);
    EXPECT_EQ(program.dialogs.questions.size(), 1U);
  };
  // The question of the way back is answered, then the one of the file that came is asked.
  program.dialogs.answers = {Answer::kCancel, Answer::kCancel};
  program.Tool(ToolButtons::Browser().Identifier);
  ASSERT_TRUE(Until([&] { return program.dialogs.questions.size() == 2; }));
  Settle();
  EXPECT_EQ(program.Document().Name, "photo");
  EXPECT_EQ(program.Document().Rotation, 1);
  // The same while a place is chosen, for a save that then goes to the right photo.
  program.dialogs.answers = {Answer::kAlternate};
  program.app->OpenDocument(other);
  Settle();
  EXPECT_EQ(program.Document().Name, "other");
}

TEST(Arriving, AStyleFromTheBrowserKeepsTheMarkOfThePhoto) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  program.Choose("RotateAndFlipRotate90");
  const OneClickWonder style = program.app->Styles().Wonders().front()->Clone();
  const FolderItem file = program.home.Child("gift.oneClick");
  OneClickWonder gift = style;
  ASSERT_TRUE(gift.Save(file));
  program.dialogs.answers = {Answer::kAlternate};
  program.Tool(ToolButtons::Browser().Identifier);
  Settle();
  ASSERT_FALSE(program.Window().isWindowModified());
  program.app->OpenDocument(file);
  Settle();
  EXPECT_EQ(program.Window().DisplayPane, MainWindow::kEditorPane);
  EXPECT_TRUE(program.Window().isWindowModified());
  EXPECT_TRUE(program.Menu("FileSave").isEnabled());
}

TEST(Arriving, PhotosOpenWhereTheUsersFolderCannotBe) {
  Program program;
  ASSERT_FALSE(program.home.Child("Documents").DeleteFolder());
  program.home.Write("Documents", "a file where the folder should be");
  program.Start();
  EXPECT_THAT(program.dialogs.messages,
              ElementsAre("Unable to create a UserCreatedElements folder as the users documents "
                          "folder doesn't exist."));
  program.OpenPhoto(program.Photo("photo.jpg"));
  EXPECT_EQ(program.Document().Name, "photo");
}

TEST(Arriving, ANewPhotoBearsTheNameOfToday) {
  Program program;
  program.OpenPhoto(program.Photo("one.jpg"));
  program.app->usersFullName = "Ann Other";
  program.app->usersCopyright = "2026 Ann";
  program.OpenPhoto(program.Photo("two.jpg"));
  EXPECT_EQ(program.Document().Creator, "Ann Other");
  EXPECT_EQ(program.Document().Copyright, "2026 Ann");
}

TEST(Arriving, OfSeveralPhotosTheFirstIsEditedAndTheOthersShow) {
  Browsing program({"a.jpg", "b.jpg", "c.jpg"});
  FolderItem trip = program.home.Child("Trip");
  ASSERT_FALSE(trip.CreateAsFolder());
  for (const char* name : {"x.jpg", "y.jpg", "z.jpg"}) {
    program.fileDialogs.several.push_back(program.Photo(std::string("Trip/") + name, 64, 48));
  }
  program.Choose("FileOpen");
  Settle();
  EXPECT_EQ(program.Document().Name, "x");
  EXPECT_EQ(program.Browser().CurrentFolder(), trip);
  EXPECT_TRUE(program.Shows({"x.jpg", "y.jpg", "z.jpg"}));
  // Likewise of several that are dropped on the photo.
  bool taken = false;
  DropToMove(program.Display(), {trip.Child("z.jpg"), trip.Child("y.jpg")}, {50, 50}, taken);
  EXPECT_TRUE(Until([&] { return program.Document().Name == "z"; }));
  ExpectSoon([&] { return program.Selected(); }, testing::UnorderedElementsAre("y.jpg", "z.jpg"));
}

TEST(History, WhatIsCancelledOrDismissedLeavesNoEntry) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  program.SelectRow("Overlay");
  UndoOne(program);
  // The chooser is cancelled.
  program.Panel().Activate(4);
  EXPECT_TRUE(program.Window().UndoGizmo.RedoAvailable());
  EXPECT_EQ(UndoName(program), "Rotate");
  // A slider that is pressed where it stands.
  program.SelectRow("Exposure");
  Click(program.Panel(), program.ControlAt(0, 0.8));
  UndoOne(program);
  Click(program.Panel(), program.ControlAt(0, 0.8));
  EXPECT_TRUE(program.Window().UndoGizmo.RedoAvailable());
}

TEST(History, TheDocumentIsChangedByWhatChangesItAlone) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  // A chooser that is cancelled leaves on the effect that it turned on.
  program.SelectRow("Overlay");
  program.Module("Overlay").Enabled(false);
  program.Window().SetDirty(false);
  Click(program.Panel(), program.ControlAt(4, 0.5));
  EXPECT_TRUE(program.Module("Overlay").Enabled());
  EXPECT_TRUE(program.Window().Session().Dirty());
  // A slider that is pressed where it stands, and a color that is only looked at, change nothing.
  program.SelectRow("Exposure");
  Click(program.Panel(), program.ControlAt(0, 0.8));
  program.Window().SetDirty(false);
  Click(program.Panel(), program.ControlAt(0, 0.8));
  EXPECT_FALSE(program.Window().Session().Dirty());
  program.SelectRow("Overlay");
  program.Window().SetDirty(false);
  program.Panel().Activate(1);
  EXPECT_FALSE(program.Window().Session().Dirty());
}

TEST(History, AddingATextIsOneEntry) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  program.SelectRow("Text");
  Type(program.Window(), "one");
  const std::string before = program.Processor().StyleData();
  effectModule& text = program.Module("Text");
  int add = -1;
  for (int i = 0; i < text.ControlCount(); ++i) {
    if (text.Control(i).Type == kControlButton) add = i;
  }
  ASSERT_GE(add, 0);
  program.Panel().Activate(add);
  ASSERT_NE(program.Processor().StyleData(), before);
  program.Choose("EditUndo");
  EXPECT_EQ(program.Processor().StyleData(), before);
}

TEST(History, AColorThatIsChosenInThePanelIsOneEntry) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  program.SelectRow("Overlay");
  const std::string before = program.Processor().StyleData();
  program.Panel().Activate(1);
  ColorPanel& colors = program.app->ColorPanel();
  ASSERT_TRUE(colors.Visible());
  for (const float red : {0.2F, 0.4F, 0.9F}) colors.ColorChanged({red, 0, 0, 1});
  EXPECT_EQ(program.Module("Overlay").ControlValue(1).ToColor().Red, 230);
  program.Choose("EditUndo");
  EXPECT_EQ(program.Processor().StyleData(), before);
  // A colour of its own after the undo, and after another well.
  colors.ColorChanged({0.1F, 0, 0, 1});
  program.Panel().Activate(1);
  colors.ColorChanged({0.3F, 0, 0, 1});
  program.Choose("EditUndo");
  EXPECT_EQ(program.Module("Overlay").ControlValue(1).ToColor().Red, 26);
  colors.Close();
}

TEST(History, AColorPickedFromThePhotoIsOneEntryAndEscapeNone) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  program.SelectRow("Color Balance");
  UndoOne(program);
  program.Panel().Activate(3);
  Key(program.Window(), Qt::Key_Escape);
  EXPECT_TRUE(program.Window().UndoGizmo.RedoAvailable());
  const std::string before = program.Processor().StyleData();
  program.Panel().Activate(3);
  // Everything else rests until the click.
  Key(program.Window(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(program.Document().Rotation, 1);
  Click(program.Display());
  EXPECT_NE(program.Processor().StyleData(), before);
  EXPECT_EQ(UndoName(program), "Color Balance");
  program.Choose("EditUndo");
  EXPECT_EQ(program.Processor().StyleData(), before);
  EXPECT_EQ(UndoName(program), "Rotate");
}

TEST(History, WhatIsBeingDrawnIsSavedWithTheRest) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  program.fileDialogs.files = {program.home.Child("drawn.brvPhoto")};
  program.Choose("RotateAndFlipRotate90");
  program.SelectRow("Exposure");
  // Saved by its key, while the mouse holds a slider.
  Press(program.Panel(), program.ControlAt(0, 0.5));
  Move(program.Panel(), program.ControlAt(0, 0.9));
  const int value = program.Module("Exposure").ControlValue(0).ToInt();
  ASSERT_NE(value, 50);
  program.Choose("FileSave");
  EXPECT_FALSE(program.Window().isWindowModified());
  EXPECT_EQ(UndoName(program), "Exposure");
  Move(program.Panel(), program.ControlAt(0, 0.1));
  EXPECT_EQ(program.Module("Exposure").ControlValue(0).ToInt(), value) << "the drag has ended";
  Release(program.Panel(), program.ControlAt(0, 0.1));
  EXPECT_EQ(UndoName(program), "Exposure");
  program.Choose("EditUndo");
  EXPECT_EQ(program.Module("Exposure").ControlValue(0).ToInt(), 50);
  EXPECT_TRUE(program.Window().isWindowModified());
}

TEST(Arriving, FilesWaitWhileAPictureIsChosen) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  const FolderItem other = program.Photo("other.jpg");
  program.SelectRow("Overlay");
  // Whether the row is on is a change of its own, and not to be kept.
  program.dialogs.answers = {Answer::kAlternate};
  // What was chosen cannot be read, which is told; meanwhile a photo arrives.
  program.fileDialogs.files = {program.home.Write("broken.jpg", "no picture")};
  program.dialogs.whileOpen = [&] {
    program.app->OpenDocument(other);
    QApplication::processEvents();
    program.Window().Session().Work().Finish();
    QApplication::processEvents();
    EXPECT_EQ(program.Document().Name, "photo");
  };
  const int button = [&] {
    effectModule& module = program.Module("Overlay");
    for (int i = 0; i < module.ControlCount(); ++i) {
      if (module.Control(i).Type == kControlButton) return i;
    }
    return -1;
  }();
  ASSERT_GE(button, 0);
  // The row that was selected is switched on, which is not saved.
  program.dialogs.answers = {Answer::kAlternate};
  program.Panel().Activate(button);
  EXPECT_TRUE(Until([&] { return program.dialogs.messages.size() == 1U; }));
  EXPECT_TRUE(Until([&] { return program.Document().Name == "other"; }));
}

TEST(History, UndoneToWhatIsSavedNothingIsAsked) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  program.Choose("RotateAndFlipRotate90");
  EXPECT_TRUE(program.Window().isWindowModified());
  program.Choose("EditUndo");
  EXPECT_FALSE(program.Window().isWindowModified());
  EXPECT_FALSE(program.Menu("FileSave").isEnabled());
  EXPECT_TRUE(program.Window().close());
  EXPECT_THAT(program.dialogs.questions, IsEmpty());
}

TEST(History, AStyleThatWasUndoneLightsOnlyInItsCategory) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  templateSelector& bar = *program.Window().myStylesBar;
  const auto category = [&](int index) {
    bar.selectedCategory = index;
    bar.ChangedCategory(index);
  };
  category(0);
  ASSERT_GT(bar.Count(), 2);
  EXPECT_FALSE(bar.ItemSelected(1));
  EXPECT_EQ(bar.SelectedItem, 1);
  program.Choose("EditClearStyle");
  category(3);
  ASSERT_GT(bar.Count(), 2);
  program.Choose("EditUndo");
  EXPECT_EQ(bar.SelectedItem, -1);
  category(0);
  EXPECT_EQ(bar.SelectedItem, 1);
}

TEST(Commands, ThePanelOfEffectsIsHiddenUntilItIsAskedForAndThenStays) {
  Program program;
  program.Window().OpenImage(program.Photo("photo.jpg"), {});
  Settle();
  EXPECT_FALSE(program.Window().PreviewTitle->SegmentByTag("advanced")->Selected);
  EXPECT_FALSE(program.Menu("Viewadvanced").isChecked());
  program.Choose("Viewadvanced");
  EXPECT_TRUE(program.Window().close());
  program.Start();
  EXPECT_TRUE(program.Window().PreviewTitle->SegmentByTag("advanced")->Selected);
}

TEST(Commands, CopyCopiesAtAClickAndItsArrowOpensTheMenu) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  program.app->Clipboard().Text("before");
  program.Tool(ToolButtons::Copy().Identifier);
  EXPECT_TRUE(program.app->Clipboard().HasPicture());
  const auto* button = qobject_cast<QToolButton*>(program.Window().rbToolBar->widgetForAction(
      ToolButtons::itemViaIdentifier(*program.Window().rbToolBar, ToolButtons::Copy().Identifier)));
  ASSERT_NE(button, nullptr);
  EXPECT_EQ(button->popupMode(), QToolButton::MenuButtonPopup);
  EXPECT_EQ(button->menu()->actions().size(), 4);
}

TEST(Commands, ShowColorsBindsAWellOrRests) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  program.SelectRow("Exposure");
  program.Window().EnableMenuItems();
  EXPECT_FALSE(program.Menu("ViewShowColors").isEnabled());
  program.SelectRow("Overlay");
  program.Choose("ViewShowColors");
  ASSERT_TRUE(program.app->ColorPanel().Visible());
  program.app->ColorPanel().ColorChanged({0, 1, 0, 1});
  EXPECT_EQ(program.Module("Overlay").ControlValue(1).ToColor(), (Color{0, 255, 0}));
  program.Choose("ViewShowColors");
  EXPECT_FALSE(program.app->ColorPanel().Visible());
}

TEST(Closing, FollowsTheWorkUnderWay) {
  Program program;
  MainWindow& window = program.Window();
  window.OpenImage(program.Photo("photo.jpg"), {});
  ASSERT_TRUE(window.Session().Busy());
  EXPECT_FALSE(window.close());
  EXPECT_TRUE(window.isVisible());
  EXPECT_TRUE(Until([&] { return !window.isVisible(); }));
  EXPECT_EQ(program.Document().Name, "photo");
}

TEST(Commands, AreRefusedWhileWorkUsesThePhotoAndAfterTheirTimeIsOver) {
  Program program;
  MainWindow& window = program.Window();
  window.MenuAction("RotateAndFlipRotate90");
  window.MenuAction("NoSuchCommand");
  window.OpenImage(program.Photo("photo.jpg"), {});
  ASSERT_TRUE(window.Session().Busy());
  window.MenuAction("ViewHideToolbar");
  program.Finish();
  EXPECT_EQ(program.Document().Rotation, 0);
  // What is shown may be a turn old; what is asked for is looked at anew.
  EXPECT_TRUE(window.UndoGizmo.UndoName().empty());
  window.MenuAction("EditUndo");
  window.MenuAction("RotateAndFlipRotate90");
  EXPECT_EQ(program.Document().Rotation, 1);
}

}  // namespace
}  // namespace brivolant::test
