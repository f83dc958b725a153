// SPDX-License-Identifier: MIT
// Pictures pasted over a photo: with the session until the document is saved, then in its package.
#include <gmock/gmock.h>

#include "Helpers.h"
#include "app/core/Recovery.h"
#include "formats/BrivolantDocument.h"
#include "formats/IFFData.h"
#include "formats/PictureStrings.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/BinaryStream.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr const char* kFirst = "11111111-AAAA-BBBB-CCCC-000000000001";
constexpr const char* kSecond = "22222222-AAAA-BBBB-CCCC-000000000002";

struct AnsweringDialogs final : Dialogs {
  std::vector<std::string> messages;
  std::vector<std::string> questions;
  Answer answer = Answer::kCancel;
  void Message(const std::string& message, const std::string&) override {
    messages.push_back(message);
  }
  Answer Ask(const Question& question) override {
    questions.push_back(question.Message);
    return answer;
  }
};

struct NoTemporaryFiles final : TemporaryFiles {
  FolderItem Child(std::string_view) override { return {}; }
};

/// Services with a user who answers, and a saved document.
struct Saved : TestServices {
  Saved() {
    BrivolantDocument document(own, TestPicture(40, 30), "trip");
    document.StyleData = "plain";
    document.File = package;
    EXPECT_TRUE(document.Save());
  }
  FolderItem Picture(const char* name, std::uint32_t seed) const {
    return folder.Write(name, PngExporter().SaveToString(TestPicture(9, 7, seed)));
  }
  std::string Bytes(const FolderItem& file) const { return ReadFile(file).value_or("none"); }

  AnsweringDialogs asked;
  Services own{log, asked, user, temporary, clock, random};
  FolderItem package = folder.Child("trip.brvPhoto");
};

TEST(PastedPictures, ChangeThePackageOnlyWhenItIsSaved) {
  Saved s;
  BrivolantDocument document(s.own);
  ASSERT_TRUE(document.Load(s.package));
  const FolderItem source = s.Picture("a.png", 1);
  const std::string first = s.Bytes(source);
  ASSERT_TRUE(document.PastedImage(kFirst, source));
  EXPECT_FALSE(source.Delete());
  EXPECT_EQ(s.Bytes(document.PastedImage(kFirst)), first) << "a copy answers";
  EXPECT_FALSE(s.package.Child(kFirst).Exists());
  EXPECT_THAT(document.SessionImages(), ElementsAre(Pair(kFirst, document.PastedImage(kFirst))));

  document.StyleData = std::string("style with ") + kFirst;
  ASSERT_TRUE(document.Save());
  EXPECT_EQ(s.Bytes(s.package.Child(kFirst)), first);

  // Another one is chosen: the package keeps the first until the document is saved, and undo finds
  // it even after that.
  ASSERT_TRUE(document.PastedImage(kSecond, s.Picture("b.png", 2)));
  EXPECT_TRUE(s.package.Child(kFirst).Exists());
  document.StyleData = std::string("style with ") + kSecond;
  ASSERT_TRUE(document.Save());
  EXPECT_FALSE(s.package.Child(kFirst).Exists());
  EXPECT_TRUE(s.package.Child(kSecond).Exists());
  EXPECT_EQ(s.Bytes(document.PastedImage(kFirst)), first);
  document.StyleData = std::string("style with ") + kFirst;
  ASSERT_TRUE(document.Save());
  EXPECT_EQ(s.Bytes(s.package.Child(kFirst)), first);
  EXPECT_FALSE(s.package.Child(kSecond).Exists());

  // The same for a document that was closed in between, whose picture only the package had.
  BrivolantDocument again(s.own);
  ASSERT_TRUE(again.Load(s.package));
  EXPECT_THAT(again.SessionImages(), IsEmpty());
  EXPECT_THAT(again.PastedImages(), ElementsAre(Pair(kFirst, s.package.Child(kFirst))));
  again.StyleData = "plain";
  ASSERT_TRUE(again.Save());
  EXPECT_FALSE(s.package.Child(kFirst).Exists());
  EXPECT_EQ(s.Bytes(again.PastedImage(kFirst)), first);

  // What a session did not save leaves no trace. Files of other hands stay where they are.
  s.folder.Write("trip.brvPhoto/notes.txt", "mine");
  {
    BrivolantDocument unsaved(s.own);
    ASSERT_TRUE(unsaved.Load(s.package));
    ASSERT_TRUE(unsaved.PastedImage(kSecond, s.Picture("c.png", 3)));
    ASSERT_TRUE(unsaved.PastedImage("notes.txt", FolderItem()));
  }
  EXPECT_EQ(s.Bytes(s.package.Child("notes.txt")), "mine");
  EXPECT_FALSE(s.package.Child(kSecond).Exists());
  EXPECT_THAT(s.asked.questions, IsEmpty());
}

TEST(PastedPictures, ComeAlongWhenTheDocumentIsSavedElsewhere) {
  Saved s;
  BrivolantDocument document(s.own);
  ASSERT_TRUE(document.Load(s.package));
  ASSERT_TRUE(document.PastedImage(kFirst, s.Picture("a.png", 1)));
  document.StyleData = kFirst;
  ASSERT_TRUE(document.Save());
  ASSERT_TRUE(document.PastedImage(kSecond, s.Picture("b.png", 2)));
  document.StyleData = std::string(kFirst) + kSecond;
  const FolderItem copy = s.folder.Child("copy.brvPhoto");
  ASSERT_TRUE(document.Save(copy));
  EXPECT_EQ(s.Bytes(copy.Child(kFirst)), s.Bytes(s.package.Child(kFirst)));
  EXPECT_TRUE(copy.Child(kSecond).Exists());
  EXPECT_FALSE(s.package.Child(kSecond).Exists());
  // A picture that cannot be copied keeps the package as it was.
  const std::string settings = s.Bytes(s.package.Child("Settings"));
  EXPECT_FALSE(document.PastedImage(kSecond).Delete());
  EXPECT_FALSE(document.Save());
  EXPECT_TRUE(document.Dirty);
  EXPECT_EQ(s.asked.questions.size(), 1U);
  EXPECT_EQ(s.Bytes(s.package.Child("Settings")), settings);
}

TEST(Document, AsksBeforeItReplacesWhatAnotherProgramWrote) {
  Saved s;
  BrivolantDocument here(s.own);
  BrivolantDocument there(s.own);
  ASSERT_TRUE(here.Load(s.package));
  ASSERT_TRUE(there.Load(s.package));
  there.StyleData = "theirs";
  ASSERT_TRUE(there.Save());
  ASSERT_TRUE(there.Save()) << "one's own changes are no surprise";
  EXPECT_THAT(s.asked.questions, IsEmpty());
  here.StyleData = "ours";
  EXPECT_FALSE(here.Save());
  EXPECT_TRUE(here.Dirty);
  ASSERT_EQ(s.asked.questions.size(), 1U);
  EXPECT_THAT(s.asked.questions.front(), testing::HasSubstr("trip"));
  BrivolantDocument kept(s.own);
  ASSERT_TRUE(kept.Load(s.package));
  EXPECT_EQ(kept.StyleData, "theirs");
  s.asked.answer = Answer::kAction;
  EXPECT_TRUE(here.Save());
  EXPECT_FALSE(here.Dirty);
  ASSERT_TRUE(kept.Load(s.package));
  EXPECT_EQ(kept.StyleData, "ours");
}

TEST(Document, WithoutATemporaryPackageHasNoPlaceToLose) {
  Saved s;
  NoTemporaryFiles none;
  const Services full{s.log, s.asked, s.user, none, s.clock, s.random};
  BrivolantDocument opened(full);
  EXPECT_FALSE(opened.CreateFromFile(s.Picture("a.png", 1)));
  EXPECT_THAT(opened.lastErrorMessage, testing::Not(IsEmpty()));
  EXPECT_TRUE(opened.File.IsNil());
  BrivolantDocument pasted(full, TestPicture(20, 10), "Pasted");
  EXPECT_TRUE(pasted.File.IsNil());
  EXPECT_TRUE(pasted.tFile.IsNil());
  EXPECT_FALSE(pasted.PastedImage(kFirst, s.Picture("b.png", 2)));
  EXPECT_FALSE(pasted.Save()) << "there is no place yet";
  const FolderItem place = s.folder.Child("pasted.brvPhoto");
  ASSERT_TRUE(pasted.Save(place));
  BrivolantDocument back(s.own);
  ASSERT_TRUE(back.Load(place));
  EXPECT_EQ(LargestDifference(back.ImageOriginal(), TestPicture(20, 10)) < 60, true);
}

TEST(PastedPictures, AreKeptWithEditsThatWereNotSaved) {
  Saved s;
  const FolderItem data = s.folder.Child("data");
  std::string bytes;
  {
    BrivolantDocument document(s.own);
    ASSERT_TRUE(document.Load(s.package));
    ASSERT_TRUE(document.PastedImage(kFirst, s.Picture("a.png", 1)));
    bytes = s.Bytes(document.PastedImage(kFirst));
    Recovery recovery(data, s.log);
    ASSERT_TRUE(recovery.Keep(document, kFirst));
    ASSERT_TRUE(recovery.Keep(document, kFirst));
    // The program ends here, and its temporary files with it.
  }
  // Meanwhile another program saves the document.
  {
    BrivolantDocument there(s.own);
    ASSERT_TRUE(there.Load(s.package));
    there.Rotation = 1;
    ASSERT_TRUE(there.Save());
  }
  Recovery recovery(data, s.log);
  const auto left = recovery.Left();
  ASSERT_EQ(left.size(), 1U);
  BrivolantDocument document(s.own);
  ASSERT_TRUE(document.Load(s.package));
  ASSERT_TRUE(left.front().ApplyTo(document));
  recovery.Adopt(left.front());
  EXPECT_EQ(s.Bytes(document.PastedImage(kFirst)), bytes);
  EXPECT_FALSE(document.Save()) << "the edits were made on what was there before";
  EXPECT_EQ(s.asked.questions.size(), 1U);
  s.asked.answer = Answer::kAction;
  ASSERT_TRUE(document.Save());
  recovery.Forget();
  EXPECT_THAT(data.Child("Unsaved").Children(), IsEmpty());
  EXPECT_EQ(s.Bytes(s.package.Child(kFirst)), bytes);
  // A picture that cannot be taken is told, so that nobody forgets the edits.
  EXPECT_FALSE(left.front().ApplyTo(document));
}

TEST(PastedPictures, ThatAreGoneAreToldBeforeTheDocumentIsSaved) {
  Saved s;
  {
    BrivolantDocument document(s.own);
    ASSERT_TRUE(document.Load(s.package));
    ASSERT_TRUE(document.PastedImage(kFirst, s.Picture("a.png", 1)));
    document.StyleData = kFirst;
    ASSERT_TRUE(document.Save());
  }
  BrivolantDocument document(s.own);
  ASSERT_TRUE(document.Load(s.package));
  EXPECT_FALSE(s.package.Child(kFirst).Delete());
  document.Rotation = 1;
  EXPECT_FALSE(document.Save());
  ASSERT_EQ(s.asked.questions.size(), 1U);
  s.asked.answer = Answer::kAction;
  EXPECT_TRUE(document.Save());
}

TEST(Document, AOneFileDocumentKeepsItsOriginalWhenASaveFails) {
  Saved s;
  const std::string image = PngExporter().SaveToString(TestPicture(30, 20));
  IFFData data;
  data.Add(8, "old");
  ByteWriter file;
  file.Bytes(image);
  file.UInt8(3);
  file.Bytes(data.Data());
  file.UInt32(static_cast<std::uint32_t>(data.Data().size() + 1));
  file.Bytes("QMBPbrPh");
  const FolderItem place = s.folder.Write("old.brvPhoto", file.Take());
  BrivolantDocument document(s.own);
  ASSERT_TRUE(document.Load(place));
  ASSERT_FALSE(document.ImageOriginal().IsNil());
  // A picture that cannot be read fails the save half-way.
  ASSERT_TRUE(document.PastedImage(kFirst, s.Picture("a.png", 1)));
  document.StyleData = kFirst;
  const FolderItem picture = document.PastedImage(kFirst);
  ASSERT_FALSE(picture.Delete());
  ASSERT_FALSE(picture.CreateAsFolder());
  const std::string before = s.Bytes(place);
  EXPECT_FALSE(document.Save());
  EXPECT_EQ(s.Bytes(place), before);
  EXPECT_THAT(document.OriginalImageID, IsEmpty());
  ASSERT_FALSE(picture.Delete());
  s.asked.answer = Answer::kAction;
  ASSERT_TRUE(document.Save());
  ASSERT_TRUE(place.Directory());
  EXPECT_TRUE(s.Bytes(place.Child(document.OriginalImageID)).starts_with(image))
      << "the original, not a picture made of it";
}

TEST(Document, AOneFileDocumentThatBecameAPackageElsewhereKeepsThatOriginal) {
  Saved s;
  const FolderItem place = s.folder.Child("trip.brvPhoto");
  BrivolantDocument document(s.own);
  ASSERT_TRUE(document.Load(place));
  const std::string id = document.OriginalImageID;
  // As if it had been one file when it was opened.
  document.OriginalImageID.clear();
  document.StateOnDisk("100 bytes, 1.0");
  EXPECT_FALSE(document.Save());
  EXPECT_EQ(s.asked.questions.size(), 1U);
  s.asked.answer = Answer::kAction;
  EXPECT_TRUE(document.Save());
  EXPECT_EQ(document.OriginalImageID, id);
}

}  // namespace
}  // namespace brivolant::test
