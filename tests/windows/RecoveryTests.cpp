// SPDX-License-Identifier: MIT
// Edits that were not saved when the program ended.
#include <gmock/gmock.h>

#include "WindowHelpers.h"
#include "browser/ui/multiViewFileBrowser.h"

namespace brivolant::test {
namespace {

TEST(Recovery, BringsBackWhatACrashInterrupted) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  program.SelectRow("Exposure");
  Click(program.Panel(), program.ControlAt(0, 0.9));
  program.Choose("RotateAndFlipRotate90");
  const Picture edited = program.Shown();
  program.Window().RecoveryTimer.setInterval(1);
  const FolderItem sets = program.home.Child("data").Child("brivolant-photos").Child("Unsaved");
  ASSERT_TRUE(Until([&] { return !sets.Children().empty(); }));
  program.Crash();
  program.dialogs.answers = {Answer::kAction};
  program.Start();
  EXPECT_TRUE(program.app->OfferRecovery());
  Settle();
  EXPECT_EQ(program.Document().Name, "photo");
  EXPECT_TRUE(program.Document().Dirty);
  ExpectSoon([&] { return LargestDifference(program.Shown(), edited); }, 0);
  // It still has no place of its own.
  program.fileDialogs.files = {program.home.Child("back.brvPhoto")};
  program.Choose("FileSave");
  EXPECT_TRUE(program.home.Child("back.brvPhoto").Directory());
  // After a save there is nothing to bring back, and nothing lies beside the photos.
  program.Crash();
  program.Start();
  EXPECT_FALSE(program.app->OfferRecovery());
  EXPECT_EQ(program.dialogs.questions.size(), 1U);
  EXPECT_THAT(program.home.Names(),
              testing::Not(testing::Contains(testing::HasSubstr(".recovery"))));
}

TEST(Recovery, LeavesTheFolderOfASavedDocumentAloneAndCanBeGivenUp) {
  Program program;
  program.OpenPhoto(program.Photo("photo.jpg"));
  program.fileDialogs.files = {program.home.Child("doc.brvPhoto")};
  program.Window().SaveMethod();
  program.Finish();
  program.Choose("RotateAndFlipRotate180");
  program.Window().RecoveryTimer.setInterval(1);
  const FolderItem sets = program.home.Child("data").Child("brivolant-photos").Child("Unsaved");
  ASSERT_TRUE(Until([&] { return !sets.Children().empty(); }));
  EXPECT_THAT(program.home.Names(),
              testing::Not(testing::Contains(testing::HasSubstr("doc.brvPhoto."))));
  program.Crash();
  // Its disk is away: the edits wait for it, and are in nobody's way.
  const FolderItem package = program.home.Child("doc.brvPhoto");
  ASSERT_FALSE(package.MoveFileTo(program.home.Child("away.brvPhoto")));
  ASSERT_FALSE(program.home.Child("photo.jpg").Delete());
  program.dialogs.answers = {Answer::kAction};
  program.Start();
  EXPECT_TRUE(program.app->OfferRecovery());
  EXPECT_TRUE(Until([&] { return program.dialogs.messages.size() == 1; }));
  program.OpenPhoto(program.Photo("other.jpg"));
  program.Choose("RotateAndFlipRotate90");
  program.Window().RecoveryTimer.setInterval(1);
  ASSERT_TRUE(Until([&] { return sets.Children().size() == 2; }));
  program.Crash();
  // Two wait now. The latest is offered first; each is given up by itself.
  ASSERT_FALSE(program.home.Child("away.brvPhoto").MoveFileTo(package));
  program.dialogs.questions.clear();
  program.dialogs.answers = {Answer::kAlternate, Answer::kAction};
  program.Start();
  EXPECT_TRUE(program.app->OfferRecovery());
  ASSERT_EQ(program.dialogs.questions.size(), 2U);
  program.Finish();
  ASSERT_TRUE(Until([&] { return program.Window().Document() != nullptr; }));
  EXPECT_EQ(program.Document().Name, "doc");
  EXPECT_EQ(program.Document().Rotation, 2);
  EXPECT_EQ(sets.Children().size(), 1U);
  program.Window().RecoveryTimer.stop();
  program.Crash();
  program.dialogs.answers = {Answer::kAlternate};
  program.Start();
  EXPECT_FALSE(program.app->OfferRecovery());
  EXPECT_TRUE(sets.Children().empty());
  program.OpenPhoto(program.home.Child("doc.brvPhoto"));
  EXPECT_EQ(program.Document().Rotation, 0);
}

TEST(Recovery, WhatASignalInterruptsIsBroughtBackAndFilesComeBehindIt) {
  Program program;
  // A photo that lies in no file is the hardest to keep.
  program.Window().Session().Open(TestPicture(90, 60), "pasted");
  program.Finish();
  program.Choose("RotateAndFlipRotate90");
  const Picture original = program.Document().ImageOriginal();
  const FolderItem package = program.Document().File;
  program.app->KeepForNextStart();
  program.Start();
  ASSERT_TRUE(package.Exists());
  // Closed without a clear word they stay.
  program.dialogs.answers = {Answer::kCancel};
  EXPECT_FALSE(program.app->OfferRecovery());
  // What was given at the start comes behind it.
  const FolderItem first = program.Photo("first.jpg");
  const FolderItem second = program.Photo("second.jpg");
  std::vector<std::string> opened;
  const Listening listening =
      program.Window().Session().Opened.Listen([&] { opened.push_back(program.Document().Name); });
  program.dialogs.answers = {Answer::kAction, Answer::kCancel};
  EXPECT_TRUE(program.app->OfferRecovery());
  program.app->OpenDocuments({first, second});
  ASSERT_TRUE(Until([&] { return program.dialogs.questions.size() == 3; }));
  Settle();
  // The way on from unsaved edits is asked about, as ever.
  EXPECT_THAT(opened, testing::ElementsAre("pasted"));
  EXPECT_THAT(program.dialogs.questions.back().Message, testing::HasSubstr("save the changes"));
  EXPECT_EQ(program.Document().Rotation, 1);
  // A picture without a file is kept as a JPEG.
  EXPECT_LE(LargestDifference(program.Document().ImageOriginal(), original), 8);
  // The other photos are there to choose from.
  EXPECT_EQ(program.Window().imageBrowser->CurrentFolder(), program.home.Item());
  program.dialogs.answers = {Answer::kAlternate};
  program.app->OpenDocument(first);
  ASSERT_TRUE(Until([&] { return opened.size() == 2; }));
  EXPECT_THAT(opened, testing::ElementsAre("pasted", "first"));
  program.Start();
  program.app->RemoveLeftovers();
  EXPECT_FALSE(package.Exists());
}

}  // namespace
}  // namespace brivolant::test
