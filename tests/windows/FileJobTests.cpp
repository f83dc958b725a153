// SPDX-License-Identifier: MIT
// Work on files that takes its time, and what the window does meanwhile.
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <atomic>
#include <thread>

#include "BrowsingHelpers.h"
#include "app/ProgressDialog.h"
#include "formats/BrivolantDocument.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;

/// A job of the browser that ends when the test says so, or is cancelled.
struct Standing {
  explicit Standing(Program& program)
      : Standing(program.Window().FileWork(), "Copying files...", false) {}
  Standing(Jobs& jobs, const char* text, bool unmeasured) {
    jobs.Start({text, true,
                [state = state](Jobs::Control& control) {
                  while (!state->go && !control.Cancelled()) {
                    std::this_thread::sleep_for(std::chrono::milliseconds(1));
                  }
                },
                [state = state](Jobs::End, const std::string&) { state->ended = true; }, nullptr,
                unmeasured});
  }
  ~Standing() { state->go = true; }
  struct State {
    std::atomic<bool> go = false;
    bool ended = false;
  };
  std::shared_ptr<State> state = std::make_shared<State>();
};

QProgressDialog* Progress(Program& program) {
  return program.Window().findChild<QProgressDialog*>();
}

TEST(FileJobs, ClosingAsksWhatBecomesOfThem) {
  for (const Answer answer : {Answer::kCancel, Answer::kAction, Answer::kAlternate}) {
    Program program;
    MainWindow& window = program.Window();
    const Standing job(program);
    program.dialogs.answers = {answer};
    EXPECT_EQ(window.close(), answer == Answer::kAlternate);
    EXPECT_EQ(program.dialogs.questions.size(), 1U);
    EXPECT_EQ(window.isVisible(), answer != Answer::kAlternate);
    if (answer == Answer::kAlternate) {
      EXPECT_TRUE(Until([&] { return job.state->ended; })) << "it is ended";
      continue;
    }
    EXPECT_FALSE(job.state->ended);
    job.state->go = true;
    EXPECT_TRUE(Until([&] { return job.state->ended; }));
    const auto closed = [&] { return !window.isVisible(); };
    EXPECT_TRUE(answer == Answer::kCancel || Until(closed));
    Settle();
    EXPECT_EQ(window.isVisible(), answer == Answer::kCancel);
    // Nobody asks again.
    EXPECT_EQ(program.dialogs.questions.size(), 1U);
  }
}

TEST(FileJobs, LeaveTheKeyboardWhereItIs) {
  Browsing program({"a.jpg", "b.jpg"});
  program.Browser().setFocus();
  program.Browser().HighLightItem("a.jpg", false);
  program.Browser().BeginRename();
  Type(program.Window(), "summ");
  Standing job(program);
  ASSERT_TRUE(
      Until([&] { return Progress(program) != nullptr && Progress(program)->isVisible(); }));
  ASSERT_NE(program.Browser().RenameField(), nullptr);
  Type(program.Window(), "er");
  EXPECT_EQ(program.Browser().RenameField()->text(), QStringLiteral("summer.jpg"));
  // The name is taken, but not under the feet of the work.
  Key(program.Window(), Qt::Key_Return);
  EXPECT_FALSE(job.state->ended);
  EXPECT_EQ(program.Browser().RenameField(), nullptr);
  EXPECT_TRUE(program.Pictures().Child("a.jpg").Exists());
  const QPointer<QProgressDialog> dialog = Progress(program);
  dialog->findChild<QPushButton*>()->click();
  EXPECT_TRUE(Until([&] { return job.state->ended; })) << "cancelled";
  EXPECT_TRUE(program.Shows({"b.jpg", "summer.jpg"}));
  EXPECT_TRUE(Until([&] { return dialog.isNull(); }));
}

TEST(FileJobs, WhatMayWaitForADiskIsAWordFirstAndCanBeGivenUpWhenItTakesLong) {
  Program program;
  const Standing job(program.Window().Session().Work(), "Opening the photo...", true);
  EXPECT_TRUE(Until([&] { return program.app->Progress().isVisible(); }));
  EXPECT_EQ(Progress(program), nullptr);
  ASSERT_TRUE(
      Until([&] { return Progress(program) != nullptr && Progress(program)->isVisible(); }));
  EXPECT_FALSE(program.app->Progress().isVisible());
  Progress(program)->findChild<QPushButton*>()->click();
  EXPECT_TRUE(Until([&] { return job.state->ended; }));
}

TEST(FileJobs, AnUntouchedNameStaysWithItsBlanks) {
  Browsing program({"a.jpg"});
  const FolderItem odd = program.home.Write("Pictures/words ", "words");
  ASSERT_TRUE(program.Shows({"a.jpg", "words "}));
  program.Browser().setFocus();
  program.Browser().SelectFiles({odd});
  program.Browser().BeginRename();
  Key(program.Window(), Qt::Key_Return);
  Settle();
  EXPECT_TRUE(odd.Exists());
}

TEST(FileJobs, WhatWasAskedAboutIsTrashedWhateverIsSelectedMeanwhile) {
  Browsing program({"a.jpg", "b.jpg"});
  program.OpenPhoto(program.Pictures().Child("a.jpg"));
  program.fileDialogs.files = {program.Pictures().Child("doc.brvPhoto")};
  program.Choose("RotateAndFlipRotate90");
  program.Choose("FileSave");
  const FolderItem document = program.Pictures().Child("doc.brvPhoto");
  ASSERT_TRUE(document.Exists());
  program.Window().MenuAction("ViewBrowseMyPhotos");
  ASSERT_TRUE(program.Shows({"a.jpg", "b.jpg", "doc.brvPhoto"}));
  program.Browser().SelectFiles({document});
  program.dialogs.answers = {Answer::kAction};
  program.dialogs.whileOpen = [&] {
    program.Browser().SelectFiles({program.Pictures().Child("b.jpg")});
  };
  program.Choose("FileMoveToTrash");
  EXPECT_EQ(program.dialogs.questions.size(), 1U);
  EXPECT_TRUE(program.Shows({"a.jpg", "b.jpg"}));
  EXPECT_THAT(program.Selected(), ElementsAre("b.jpg"));
}

TEST(FileJobs, AnUndoThatFailsCanBeTriedAgain) {
  Browsing program({"a.jpg", "b.jpg"});
  program.Browser().SelectFiles({program.Pictures().Child("a.jpg")});
  program.Choose("FileMoveToTrash");
  ASSERT_TRUE(program.Shows({"b.jpg"}));
  const FolderItem other = program.home.Write("Pictures/a.jpg", "another");
  ASSERT_TRUE(program.Shows({"a.jpg", "b.jpg"}));
  program.Choose("EditUndo");
  EXPECT_EQ(program.dialogs.messages.size(), 1U);
  EXPECT_EQ(ReadFile(other), "another");
  ASSERT_FALSE(other.Delete());
  program.Choose("EditUndo");
  EXPECT_TRUE(program.Shows({"a.jpg", "b.jpg"}));
  EXPECT_NE(ReadFile(other), "another");
}

TEST(FileJobs, UndoneCopiesOfTheOpenDocumentAreAskedAbout) {
  Browsing program({"b.jpg"});
  program.OpenPhoto(program.Photo("photo.jpg"));
  program.fileDialogs.files = {program.home.Child("doc.brvPhoto")};
  program.Choose("RotateAndFlipRotate90");
  program.Choose("FileSave");
  program.Window().MenuAction("ViewBrowseMyPhotos");
  ASSERT_TRUE(program.Shows({"b.jpg"}));
  program.Window().CopyFilesInto({program.home.Child("doc.brvPhoto")}, program.Pictures());
  ASSERT_TRUE(program.Shows({"b.jpg", "doc.brvPhoto"}));
  const FolderItem copy = program.Pictures().Child("doc.brvPhoto");
  program.OpenPhoto(copy);
  program.Window().MenuAction("ViewBrowseMyPhotos");
  // Who cancels can think again.
  for (int i = 0; i < 2; ++i) {
    program.dialogs.questions.clear();
    program.dialogs.answers = {Answer::kCancel};
    program.Choose("EditUndo");
    EXPECT_EQ(program.dialogs.questions.size(), 1U);
    EXPECT_TRUE(copy.Exists());
  }
}

TEST(FileJobs, ADropOnASelectedFolderGoesIntoIt) {
  Browsing program({"b.jpg"});
  const FolderItem trip = program.Pictures().Child("Trip");
  ASSERT_FALSE(trip.CreateAsFolder());
  ASSERT_TRUE(Until([&] { return program.Browser().Count() == 2; }));
  program.Browser().SelectFiles({trip});
  const int row = program.Names().front() == "Trip" ? 0 : 1;
  bool taken = false;
  DropToMove(program.Grid(), {program.Photo("outside.jpg", 64, 48)}, program.Cell(row), taken);
  EXPECT_TRUE(Until([&] { return trip.Child("outside.jpg").Exists(); }));
  EXPECT_FALSE(program.Pictures().Child("outside.jpg").Exists());
}

}  // namespace
}  // namespace brivolant::test
