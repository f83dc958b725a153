// SPDX-License-Identifier: MIT
// What a person does with a photo: open, improve, save, reopen, rewind.
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>
#include <QToolBar>
#include <fstream>

#include "WindowHelpers.h"
#include "app/ProgressDialog.h"
#include "app/commands/ToolButtons.h"
#include "app/core/UpdateCheck.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "formats/ImageFile.h"
#include "kit/ifkButton.h"
#include "kit/ifkSegmentView.h"
#include "kit/ifkSlider.h"
#include "kit/ifkStaticText.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/files/BinaryStream.h"
#include "platform/services/SharedFolders.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

Picture Read(const FolderItem& file) {
  std::string error;
  Picture picture = ImageIO::OpenAsPictureUsingImageIO(file, error);
  EXPECT_EQ(error, "");
  return picture;
}

TEST(Opening, ByDialogDropDesktopAndRecentMenu) {
  const EnglishNumbers english;
  Program program;
  const FolderItem first = program.Photo("first.jpg");
  const FolderItem second = program.Photo("second.png", 100, 200);
  MainWindow& window = program.Window();
  EXPECT_EQ(window.DisplayPane, MainWindow::kBrowserPane);
  EXPECT_EQ(Mean(program.Shown(), 0) > 0, false);

  program.fileDialogs.files = {first};
  program.Tool(ToolButtons::Open().Identifier);
  Settle();
  EXPECT_EQ(program.Document().Name, "first");
  EXPECT_EQ(window.DisplayPane, MainWindow::kEditorPane);
  EXPECT_FALSE(program.Document().Dirty);
  EXPECT_FALSE(window.isWindowModified());
  EXPECT_EQ(window.getSimpleImageInfo(), "320 x 240 (0.1 Megapixel, Ratio: 4 : 3)");

  DropFile(program.Display(), second);
  Settle();
  EXPECT_EQ(program.Document().Name, "second");
  program.app->OpenDocument(first);
  program.Finish();
  EXPECT_EQ(program.Document().Name, "first");

  // The newest stands first, each once.
  const QList<QAction*> recent = window.Menu().Submenu("FileOpenRecent").actions();
  ASSERT_EQ(recent.size(), 4);
  EXPECT_EQ(recent[0]->text(), QStringLiteral("first"));
  EXPECT_EQ(recent[1]->text(), QStringLiteral("second"));
  recent[1]->trigger();
  Settle();
  EXPECT_EQ(program.Document().Name, "second");
  // A cancelled dialog changes nothing.
  program.Choose("FileOpen");
  EXPECT_EQ(program.Document().Name, "second");
  EXPECT_THAT(program.dialogs.messages, IsEmpty());
}

TEST(Opening, WhatCannotBeReadLeavesTheSession) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  const FolderItem broken = program.home.Write("broken.jpg", "no picture at all");
  const FolderItem document = program.home.Child("empty.brvPhoto");
  EXPECT_FALSE(document.CreateAsFolder());
  for (const FolderItem& file : {broken, document, program.home.Child("missing.jpg")}) {
    program.dialogs.messages.clear();
    program.Window().OpenImage(file, {});
    program.Finish();
    ASSERT_EQ(program.dialogs.messages.size(), 1U);
    EXPECT_THAT(program.dialogs.messages[0], HasSubstr(file.Name()));
    EXPECT_EQ(program.Document().Name, "photo");
    EXPECT_EQ(program.Window().DisplayPane, MainWindow::kEditorPane);
  }
  EXPECT_EQ(program.app->RecentItem().size(), 1U);
  // Styles, borders and layouts say that they cannot be loaded.
  program.dialogs.messages.clear();
  program.app->OpenDocument(program.home.Write("warm.oneClick", "x"));
  program.Finish();
  EXPECT_THAT(program.dialogs.messages,
              ElementsAre("Sorry I was unable to open the 1-Click Style called "
                          "\"warm.oneClick\"."));
  // A recent item whose file is gone says so and stays in the list.
  program.dialogs.messages.clear();
  EXPECT_FALSE(program.home.Child("photo.jpg").Delete());
  program.app->OpenRecent(program.app->RecentItem().front());
  Settle();
  EXPECT_THAT(program.dialogs.messages,
              ElementsAre("Brivolant Photos cannot open the file \"photo\" as it can no longer be "
                          "found."));
  EXPECT_EQ(program.app->RecentItem().size(), 1U);
}

TEST(Opening, AnOlderDocumentIsSavedInTheCurrentForm) {
  Program program;
  const FolderItem photo = program.Photo("old.jpg");
  const auto image = ReadFile(photo);
  ASSERT_TRUE(image);
  // A one-file document of version 3: the image, its data, and the trailer.
  ByteWriter body;
  body.UInt8(3);
  body.UInt32(8);
  body.UInt16(1);
  body.UInt16(0);
  const std::string data = body.Take();
  ByteWriter trailer;
  trailer.UInt32(static_cast<std::uint32_t>(data.size()));
  const FolderItem document =
      program.home.Write("old.brvPhoto", *image + data + trailer.Take() + "QMBPbrPh");
  program.OpenPhoto(document);
  EXPECT_TRUE(document.Directory());
  EXPECT_EQ(program.Document().FileDataVersion, BrivolantDocument::kVersion);
  EXPECT_FALSE(program.Document().Dirty);
  EXPECT_EQ(Read(document.Child(program.Document().OriginalImageID)).Width(), 320);
}

TEST(Turning, TogglesAndComesBack) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  BrivolantDocument& document = program.Document();
  const Picture plain = program.Shown();
  program.Choose("RotateAndFlipRotate90");
  EXPECT_EQ(document.Rotation, 1);
  EXPECT_GT(program.Shown().Height(), program.Shown().Width());
  EXPECT_TRUE(program.Menu("RotateAndFlipRotate90").isChecked());
  program.Choose("RotateAndFlipRotate90");
  EXPECT_EQ(document.Rotation, 0);
  program.Choose("EditUndo");
  EXPECT_EQ(document.Rotation, 1);
  program.Choose("RotateAndFlipRotate180");
  // The preview is turned after it is scaled, so it is the plain one turned.
  EXPECT_LE(LargestDifference(program.Shown(), SharedPictureEffects::Rotate(plain, 180, kWhite, 1)),
            1);
  // A new change ended the redo history.
  EXPECT_FALSE(program.Window().UndoGizmo.RedoAvailable());
  program.Choose("RotateAndFlipRotate180");
  program.Choose("RotateAndFlipFlipHorizontally");
  EXPECT_LE(LargestDifference(program.Shown(), SharedPictureEffects::Flip(plain, 0)), 1);
  EXPECT_EQ(program.Menu("EditUndo").text(), QStringLiteral("&Undo Flip"));
  program.Choose("RotateAndFlipFlipVertially");
  EXPECT_EQ(document.Flip, 2);
  program.Choose("EditChangeOrientationTo");
  EXPECT_GT(program.Shown().Height(), program.Shown().Width());
  while (program.Window().UndoGizmo.UndoAvailable()) program.Choose("EditUndo");
  EXPECT_EQ(document.Rotation + document.Flip + document.Orientation, 0);
  EXPECT_LE(LargestDifference(program.Shown(), plain), 1);
}

TEST(Blending, ModeAndOpacityCompositeTheLayers) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  MainWindow& window = program.Window();
  const double plain = Mean(program.Shown(), 0);
  window.BlendMode->setFocus();
  window.BlendMode->setCurrentIndex(1);
  EXPECT_LT(Mean(program.Shown(), 0), plain - 3);
  EXPECT_TRUE(program.Document().Dirty);
  ifkSlider& opacity = *window.BlendAlpha;
  Drag(opacity, {opacity.width() - 8, 12}, {8, 12});
  EXPECT_EQ(program.Processor().BlendAlpha, 0.0F);
  EXPECT_NEAR(Mean(program.Shown(), 0), plain, 0.5);
  program.Choose("EditUndo");
  EXPECT_EQ(program.Processor().BlendAlpha, 1.0F);
  EXPECT_EQ(opacity.value(), 100);
  program.Choose("EditUndo");
  EXPECT_EQ(window.BlendMode->currentIndex(), 0);
  EXPECT_NEAR(Mean(program.Shown(), 0), plain, 0.01);
  EXPECT_EQ(program.Menu("EditRedo").text(), QStringLiteral("Red&o Blending"));
}

TEST(Saving, FirstAsksWhereThenSavesInPlaceAndReopens) {
  Program program;
  const FolderItem photo = program.Photo("photo.jpg");
  const auto original = ReadFile(photo);
  program.OpenPhoto(photo);
  program.SelectRow("Exposure");
  Click(program.Panel(), program.ControlAt(0, 0.8));
  const Picture edited = program.Shown();
  ASSERT_TRUE(program.Window().isWindowModified());

  // Cancelled: nothing happens.
  program.Tool(ToolButtons::Save().Identifier);
  EXPECT_TRUE(program.Document().Dirty);
  ASSERT_EQ(program.fileDialogs.suggestions.size(), 1U);
  EXPECT_EQ(program.fileDialogs.suggestions[0].Name(), "photo.brvPhoto");
  EXPECT_EQ(program.fileDialogs.suggestions[0].Parent(),
            otherSharedComponents::DefaultPipDocumentsFolder());

  const FolderItem place = program.home.Child("better.brvPhoto");
  program.fileDialogs.files = {place};
  program.Tool(ToolButtons::Save().Identifier);
  EXPECT_TRUE(place.Directory());
  EXPECT_FALSE(program.Document().Dirty);
  EXPECT_FALSE(program.Window().isWindowModified());
  EXPECT_EQ(program.Document().Name, "better");
  EXPECT_EQ(program.app->RecentItem().front(), place.ShellPath());
  // The original lies inside, byte for byte, and the photo itself was not touched.
  EXPECT_EQ(ReadFile(place.Child(program.Document().OriginalImageID)), original);
  EXPECT_EQ(ReadFile(photo), original);

  // From now on it saves in place, without a question.
  program.Choose("RotateAndFlipRotate90");
  program.Choose("FileSave");
  EXPECT_EQ(program.fileDialogs.suggestions.size(), 2U);
  EXPECT_FALSE(program.Menu("FileSave").isEnabled());
  program.Choose("EditUndo");
  program.Choose("FileSave");
  program.OpenPhoto(program.Photo("other.jpg"));
  program.OpenPhoto(place);
  EXPECT_TRUE(program.Module("Exposure").Enabled());
  EXPECT_EQ(LargestDifference(program.Shown(), edited), 0);
}

TEST(Saving, OverAnExistingFileMovesThatToTheTrash) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  program.Choose("RotateAndFlipRotate180");
  const FolderItem place = program.home.Child("kept.brvPhoto");
  EXPECT_FALSE(place.CreateAsFolder());
  const FolderItem inside = place.Child("precious.txt");
  std::ofstream(inside.Path()) << "not to be lost";
  program.fileDialogs.files = {place};
  program.Choose("FileSave");
  EXPECT_FALSE(program.Document().Dirty);
  EXPECT_FALSE(inside.Exists());
  const FolderItem trashed =
      program.home.Child("data").Child("Trash").Child("files").Child("kept.brvPhoto");
  EXPECT_EQ(ReadFile(trashed.Child("precious.txt")), "not to be lost");
}

TEST(Saving, AFailureKeepsEverythingAndAsksAgain) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  program.Choose("RotateAndFlipRotate180");
  program.fileDialogs.files = {program.home.Child("no such folder").Child("a.brvPhoto")};
  program.Choose("FileSave");
  EXPECT_TRUE(program.Document().Dirty);
  EXPECT_EQ(program.dialogs.messages.size(), 1U);
  const FolderItem place = program.home.Child("second.brvPhoto");
  program.fileDialogs.files = {place};
  program.Choose("FileSave");
  EXPECT_FALSE(program.Document().Dirty);
  EXPECT_TRUE(place.Child("photo.jpg").Exists());
}

TEST(Saving, ACopyIsTheFinishedPictureAtFullSize) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg", 900, 600));
  program.SelectRow("Exposure");
  Click(program.Panel(), program.ControlAt(0, 0.8));
  // What falls by dice falls in the copy as it does on the screen.
  program.Module("Confetti").Enabled(true);
  program.fileDialogs.files = {program.home.Child("copy.png")};
  program.Choose("FileSaveACopyAs");
  Picture expected = Read(program.home.Child("photo.jpg"));
  expected = program.Processor().Process(expected, {});
  EXPECT_EQ(LargestDifference(Read(program.home.Child("copy.png")), expected), 0);
  // The photo itself is as it was, and so is the document.
  EXPECT_TRUE(program.Document().Dirty);

  // The folder and the format are those of last time; a file in the way goes to the trash.
  program.home.Write("copy2.png", "older");
  program.fileDialogs.files = {program.home.Child("copy2")};
  program.Choose("FileSaveACopyAs");
  EXPECT_EQ(program.fileDialogs.suggestions.back().Name(), "photo.png");
  EXPECT_EQ(program.fileDialogs.suggestions.back().Parent(), program.home.Item());
  EXPECT_EQ(Read(program.home.Child("copy2.png")).Width(), 900);
  const FolderItem trash = program.home.Child("data").Child("Trash").Child("files");
  EXPECT_EQ(ReadFile(trash.Child("copy2.png")), "older");
  for (const char* name : {"copy.jpg", "copy.tif"}) {
    program.fileDialogs.files = {program.home.Child(name)};
    program.Choose("FileSaveACopyAs");
    EXPECT_EQ(Read(program.home.Child(name)).Height(), 600) << name;
  }
  program.fileDialogs.files = {FolderItem("/proc/nowhere/copy.jpg")};
  program.Choose("FileSaveACopyAs");
  ASSERT_FALSE(program.dialogs.messages.empty());
  EXPECT_THAT(program.dialogs.messages.back(), HasSubstr("copy.jpg"));
}

TEST(Closing, EachAnswerDoesWhatItSays) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  MainWindow& window = program.Window();
  // A clean document is not asked about.
  EXPECT_FALSE(window.AskToSave());
  EXPECT_THAT(program.dialogs.questions, IsEmpty());
  program.Choose("RotateAndFlipRotate180");

  program.dialogs.answers = {Answer::kCancel};
  EXPECT_FALSE(window.close());
  EXPECT_TRUE(window.isVisible());
  ASSERT_EQ(program.dialogs.questions.size(), 1U);
  EXPECT_EQ(program.dialogs.questions[0].Message,
            "Do you want to save the changes you made to the photo photo?");
  EXPECT_EQ(program.dialogs.questions[0].AlternateButton, "Don't Save");

  // Saving, but then not saying where: the window stays, since the changes would be lost.
  program.dialogs.answers = {Answer::kAction};
  EXPECT_FALSE(window.close());
  EXPECT_TRUE(program.Document().Dirty);

  // The same at the way back to the browser.
  program.dialogs.answers = {Answer::kCancel};
  program.Tool(ToolButtons::Browser().Identifier);
  EXPECT_EQ(window.DisplayPane, MainWindow::kEditorPane);

  // Closing follows the save.
  program.dialogs.answers = {Answer::kAction};
  program.fileDialogs.files = {program.home.Child("saved.brvPhoto")};
  EXPECT_FALSE(window.close());
  program.Finish();
  EXPECT_FALSE(window.isVisible());
  EXPECT_TRUE(program.home.Child("saved.brvPhoto").Directory());

  program.Start();
  program.OpenPhoto(program.home.Child("photo.jpg"));
  program.Choose("RotateAndFlipRotate180");
  program.dialogs.answers = {Answer::kAlternate};
  EXPECT_TRUE(program.Window().close());
}

TEST(Closing, TheRealDialogAnswersByItsButtons) {
  Program program;
  WidgetDialogs dialogs;
  dialogs.Window(&program.Window());
  for (const auto& [label, answer] : {std::pair{"Save", Answer::kAction},
                                      {"Cancel", Answer::kCancel},
                                      {"Don't Save", Answer::kAlternate}}) {
    QTimer::singleShot(0, [label = QString::fromLatin1(label)] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      for (QAbstractButton* button : box->buttons()) {
        if (button->text().remove(QLatin1Char('&')) == label) button->click();
      }
    });
    EXPECT_EQ(dialogs.Ask({"Question?", "", "Save", "Cancel", "Don't Save"}), answer);
  }
}

TEST(Rewinding, IsOneStepThatCanBeUndone) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  BrivolantDocument& document = program.Document();
  const Picture plain = program.Shown();
  const auto rewind = [&] {
    return ToolButtons::itemViaIdentifier(*program.Window().rbToolBar,
                                          ToolButtons::Rewind().Identifier);
  };
  // A photo that was just read has nothing to rewind.
  EXPECT_FALSE(rewind()->isEnabled());
  document.CropOffSet = {0.25, 0.25};
  document.CropSize = {0.5, 0.5};
  document.Crop = true;
  program.Choose("RotateAndFlipRotate90");
  program.SelectRow("Exposure");
  Click(program.Panel(), program.ControlAt(0, 0.9));
  const Picture edited = program.Shown();
  EXPECT_TRUE(rewind()->isEnabled());
  program.Tool(ToolButtons::Rewind().Identifier);
  EXPECT_EQ(LargestDifference(program.Shown(), plain), 0);
  EXPECT_FALSE(document.Crop);
  EXPECT_FALSE(rewind()->isEnabled());
  EXPECT_EQ(program.Menu("EditUndo").text(), QStringLiteral("&Undo Rewind"));
  program.Tool(ToolButtons::Undo().Identifier);
  EXPECT_TRUE(document.Crop);
  EXPECT_EQ(document.Rotation, 1);
  EXPECT_TRUE(program.Module("Exposure").Enabled());
  EXPECT_EQ(LargestDifference(program.Shown(), edited), 0);
  program.Choose("EditRedo");
  EXPECT_EQ(LargestDifference(program.Shown(), plain), 0);
}

TEST(Styles, AreCopiedPastedClearedAndTakenFromTheLastPhoto) {
  Program program;
  program.OpenPhoto(program.Photo("first.jpg"));
  EXPECT_FALSE(program.Menu("FileApplyLastStyle").isEnabled());
  program.SelectRow("Exposure");
  Click(program.Panel(), program.ControlAt(0, 0.9));
  const Picture edited = program.Shown();
  program.Choose("EditCopyStyle");
  program.Choose("EditClearStyle");
  EXPECT_FALSE(program.Module("Exposure").Enabled());
  const Picture plain = program.Shown();
  program.Choose("EditPasteStyle");
  EXPECT_EQ(LargestDifference(program.Shown(), edited), 0);
  program.Choose("EditUndo");
  EXPECT_EQ(LargestDifference(program.Shown(), plain), 0);
  program.Choose("EditRedo");

  program.dialogs.answers = {Answer::kAlternate};
  program.app->OpenDocument(program.Photo("second.jpg"));
  Settle();
  EXPECT_FALSE(program.Module("Exposure").Enabled());
  program.Choose("FileApplyLastStyle");
  EXPECT_EQ(LargestDifference(program.Shown(), edited), 0);
}

TEST(Clipboard, TakesThePreviewAndGivesANewPhoto) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  program.Choose("EditCopy");
  const Picture copied = program.app->Clipboard().PastedPicture()();
  EXPECT_EQ(LargestDifference(copied, program.Document().PreviewAfter), 0);
  // Pasted, it lies over the photo as one step that can be undone.
  program.Choose("RotateAndFlipRotate180");
  const Picture turned = program.Shown();
  program.Choose("EditPaste");
  EXPECT_EQ(program.Row("Overlay"), 0);
  EXPECT_EQ(program.Panel().selectedEffect(), 0);
  // Alike but for what a JPEG loses of noise.
  const auto smooth = [](const Picture& p) { return SharedPictureEffects::GaussianBlur(p, 30); };
  EXPECT_LT(LargestDifference(smooth(program.Shown()), smooth(copied)), 12);
  EXPECT_GT(LargestDifference(smooth(program.Shown()), smooth(turned)), 12);
  program.Choose("EditUndo");
  EXPECT_EQ(LargestDifference(program.Shown(), turned), 0);
  program.dialogs.answers = {Answer::kAlternate};
  program.Choose("FileNewFromClipboard");
  EXPECT_EQ(program.Document().Name, "New Image from Clipboard");
  EXPECT_EQ(program.Document().ImageOriginal().Width(), copied.Width());
  // It exists nowhere else, so leaving it asks.
  program.dialogs.answers = {Answer::kCancel};
  EXPECT_TRUE(program.Window().AskToSave());
}

/// What another program gives: the bytes of a file.
struct Foreign final : QMimeData {
  explicit Foreign(const std::string& bytes) {
    setData(QStringLiteral("image/png"), QByteArray::fromStdString(bytes));
  }
  QStringList formats() const override {
    return {QStringLiteral("image/webp"), QStringLiteral("image/tiff"), QStringLiteral("image/png"),
            QStringLiteral("application/x-qt-image")};
  }
};

TEST(Clipboard, APictureOfAnotherProgramIsReadBesideTheWindow) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  const std::string bytes = *ReadFile(program.Photo("given.png", 90, 60));
  QApplication::clipboard()->setMimeData(new Foreign(bytes));
  program.Choose("EditPaste");
  EXPECT_EQ(program.Row("Overlay"), 0);
  // What is none says so, and nothing is opened or left behind.
  program.dialogs.messages.clear();
  program.dialogs.answers = {Answer::kAlternate, Answer::kAlternate};
  QApplication::clipboard()->setMimeData(new Foreign(bytes.substr(0, 40)));
  for (const char* command : {"EditPaste", "FileNewFromClipboard"}) {
    program.Choose(command);
    ASSERT_EQ(program.dialogs.messages.size(), 1U) << command;
    EXPECT_EQ(program.dialogs.messages[0], "The picture could not be read.");
    EXPECT_EQ(program.Document().Name, "photo");
    program.dialogs.messages.clear();
  }
  QApplication::clipboard()->setMimeData(new Foreign(bytes));
  program.Choose("FileNewFromClipboard");
  EXPECT_EQ(program.Document().Name, "New Image from Clipboard");
  EXPECT_EQ(
      LargestDifference(program.Document().ImageOriginal(), Read(program.home.Child("given.png"))),
      0);
}

TEST(Clipboard, WhatIsPastedOverThePhotoIsInTheCopyAndComesBack) {
  Program program;
  program.OpenPhoto(program.Photo("photo.png"));
  program.Choose("EditCopy");
  program.Choose("RotateAndFlipRotate180");
  program.Choose("EditPaste");
  const Picture pasted = program.Shown();
  program.fileDialogs.files = {program.home.Child("copy.png")};
  program.Choose("FileSaveACopyAs");
  const Picture copy = Read(program.home.Child("copy.png"));
  const Picture plain = program.Document().Image();
  EXPECT_GT(LargestDifference(copy, plain), 60);
  EXPECT_EQ(LargestDifference(
                copy, program.Processor().Process(plain, program.Document().PastedImages())),
            0);
  // Reset and undone, saved, closed and opened: the picture is still there.
  program.SelectRow("Overlay");
  Key(program.Panel(), Qt::Key_Delete);
  EXPECT_GT(LargestDifference(program.Shown(), pasted), 60);
  program.Choose("EditUndo");
  EXPECT_EQ(LargestDifference(program.Shown(), pasted), 0);
  program.fileDialogs.files = {program.home.Child("laid.brvPhoto")};
  program.Choose("FileSave");
  program.OpenPhoto(program.Photo("second.jpg"));
  program.OpenPhoto(program.home.Child("laid.brvPhoto"));
  EXPECT_EQ(LargestDifference(program.Shown(), pasted), 0);
  EXPECT_THAT(program.dialogs.messages, testing::IsEmpty());
  // What is lost is told in the window.
  const std::string style = program.Processor().StyleData();
  program.OpenPhoto(program.Photo("third.jpg"));
  program.Processor().StyleData(style);
  program.Render(true);
  EXPECT_THAT(program.Window().infotext->Text().toStdString(), testing::HasSubstr("Overlay"));
}

TEST(Rendering, EventsComeInOrderHoweverSlowTheRenderBeforeWas) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  brivolantProcessorLite& processor = program.Processor();
  std::vector<std::string> events;
  const auto started = processor.UpdateStarted;
  const auto finished = processor.UpdateFinished;
  struct Watch final : PreviewDisplay {
    explicit Watch(EditorDisplay& d, std::vector<std::string>& e) : display(d), events(e) {}
    int Width() const override { return display.Width(); }
    int Height() const override { return display.Height(); }
    void Update(bool full) override {
      events.emplace_back("shown");
      display.Update(full);
    }
    EditorDisplay& display;
    std::vector<std::string>& events;
  } watch(program.Display(), events);
  processor.UpdateStarted = [&] { events.emplace_back("started"); };
  processor.UpdateFinished = [&] { events.emplace_back("finished"); };
  processor.myDisplay = &watch;
  program.SelectRow("Exposure");
  events.clear();
  // Three moves before the next turn of the loop are one render, of the newest value.
  EffectStackEditor& panel = program.Panel();
  Press(panel, program.ControlAt(0, 0.5));
  program.Window().Session().FinishPreview();
  events.clear();
  for (const double at : {0.6, 0.7, 0.8}) {
    const QPoint local = program.ControlAt(0, at);
    QMouseEvent move(QEvent::MouseMove, local, panel.mapToGlobal(local), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(&panel, &move);
  }
  EXPECT_THAT(events, IsEmpty());
  QApplication::processEvents();
  program.Window().Session().FinishPreview();
  EXPECT_THAT(events, ElementsAre("started", "shown", "finished"));
  EXPECT_NEAR(program.Module("Exposure").ControlValue(0).ToInt(), 80, 1);
  // However slow the render before was, a drag is shown.
  events.clear();
  processor.nonLiveMode = true;
  Move(panel, program.ControlAt(0, 0.3));
  EXPECT_THAT(events, ElementsAre("started", "shown", "finished"));
  Release(panel, program.ControlAt(0, 0.3));
  processor.myDisplay = &program.Display();
  // In slow mode a label tells; it goes when the render has ended.
  processor.UpdateStarted = started;
  processor.UpdateFinished = [&] {
    EXPECT_TRUE(program.app->progressWindowOpen);
    finished();
  };
  processor.nonLiveMode = true;
  processor.UpdatePreview(false);
  program.Window().Session().FinishPreview();
  EXPECT_EQ(program.app->Progress().StatusMessage(), "Updating Preview...");
  EXPECT_FALSE(program.app->progressWindowOpen);
  processor.UpdateFinished = finished;
}

}  // namespace
}  // namespace brivolant::test
