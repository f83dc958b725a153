// SPDX-License-Identifier: MIT
// The editing session without a window: open, edit, undo, save, copy, cancel, recover.
#include <random>
#include <thread>

#include "Editing.h"
#include "RandomEdits.h"
#include "engine/PreviewRenderer.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "formats/ImageFile.h"
#include "platform/files/AtomicFile.h"

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

TEST(Session, OpensEditsSavesAndReopens) {
  Editing editing;
  EditSession& session = editing.session;
  const FolderItem photo = editing.Photo("photo.jpg");
  editing.Open(photo);
  EXPECT_THAT(editing.events, ElementsAre("settling", "opened photo"));
  EXPECT_FALSE(session.Dirty());
  EXPECT_FALSE(session.Rewindable());
  EXPECT_TRUE(session.NeedsPlace());
  session.Turn(&BrivolantDocument::Rotation, 1);
  editing.Change(editing.Module("Exposure"), 0, 80);
  const Picture edited = editing.Preview();
  EXPECT_GT(edited.Height(), edited.Width());

  editing.events.clear();
  const FolderItem place = editing.folder.Child("better.brvPhoto");
  EXPECT_TRUE(editing.Save(place));
  EXPECT_THAT(editing.events, ElementsAre("settling", "saved"));
  EXPECT_FALSE(session.Dirty());
  EXPECT_FALSE(session.NeedsPlace());
  EXPECT_EQ(editing.Document().Name, "better");
  EXPECT_EQ(ReadFile(place.Child(editing.Document().OriginalImageID)), ReadFile(photo));
  EXPECT_EQ(editing.recent.RecentItem().front(), place.ShellPath());
  // In place from now on.
  session.Turn(&BrivolantDocument::Flip, 1);
  EXPECT_TRUE(editing.Save());

  editing.Open(editing.Photo("other.png"));
  EXPECT_EQ(editing.Document().Rotation, 0);
  editing.Open(place);
  EXPECT_TRUE(session.Rewindable());
  EXPECT_EQ(editing.Document().Flip, 1);
  session.Turn(&BrivolantDocument::Flip, 1);
  EXPECT_EQ(LargestDifference(editing.Preview(), edited), 0);
  EXPECT_THAT(editing.failures, IsEmpty());
}

TEST(Session, WhatCannotBeReadOrThrowsLeavesThePhotoAndEverythingUsable) {
  Editing editing;
  editing.Open(editing.Photo("photo.jpg"));
  editing.session.Turn(&BrivolantDocument::Rotation, 2);
  editing.temporary.broken = true;
  const FolderItem thrown = editing.Photo("thrown.jpg");
  for (const FolderItem& file : {editing.folder.Write("broken.jpg", "no picture"), thrown,
                                 editing.folder.Child("missing.jpg")}) {
    editing.failures.clear();
    editing.Open(file);
    ASSERT_EQ(editing.failures.size(), 1U);
    EXPECT_THAT(editing.failures[0], HasSubstr(file.Name()));
    EXPECT_FALSE(editing.session.Busy());
    EXPECT_EQ(editing.Document().Name, "photo");
    EXPECT_TRUE(editing.session.Dirty());
  }
  editing.temporary.broken = false;
  editing.Open(thrown);
  EXPECT_EQ(editing.Document().Name, "thrown");
}

TEST(Session, WhatADiskHoldsCanBeGivenUpAndNothingWaitsForIt) {
  Editing editing;
  editing.Open(editing.Photo("first.jpg"));
  editing.session.Turn(&BrivolantDocument::Rotation, 1);
  // "Don't Save" was said for a photo that does not come.
  editing.session.GiveUpChanges();
  editing.temporary.holdsNext = true;
  editing.session.Open(editing.Photo("held.jpg"), {});
  editing.temporary.held.wait(false);
  EXPECT_TRUE(editing.session.Work().CanCancel());
  editing.session.Work().Cancel();
  editing.session.Finish();
  EXPECT_EQ(editing.Document().Name, "first");
  EXPECT_TRUE(editing.session.Dirty());
  editing.session.KeepEditsNow();
  EXPECT_EQ(editing.folder.Child("data").Child("Unsaved").Children().size(), 1U) << "kept again";
  editing.Open(editing.Photo("second.jpg"));
  EXPECT_TRUE(Jobs::SomeAreApart());
  editing.temporary.Answer();
  while (Jobs::SomeAreApart()) std::this_thread::yield();
  // It comes too late for anybody.
  editing.session.Finish();
  EXPECT_EQ(editing.Document().Name, "second");
  EXPECT_THAT(editing.failures, IsEmpty());
}

TEST(Session, AFailedSaveChangesNothingAndTheNextOneAsksAgain) {
  Editing editing;
  editing.Open(editing.Photo("photo.jpg"));
  editing.session.Turn(&BrivolantDocument::Rotation, 2);
  const FolderItem before = editing.Document().File;
  EXPECT_FALSE(editing.Save(editing.folder.Child("no folder").Child("a.brvPhoto")));
  EXPECT_EQ(editing.failures.size(), 1U);
  EXPECT_TRUE(editing.session.Dirty());
  EXPECT_TRUE(editing.session.NeedsPlace());
  EXPECT_EQ(editing.Document().File, before);
  EXPECT_EQ(editing.Document().Name, "photo");
  EXPECT_TRUE(editing.Save(editing.folder.Child("a.brvPhoto")));
  EXPECT_FALSE(editing.session.NeedsPlace());
}

TEST(Session, UndoneBackToWhatIsSavedThereIsNothingToSave) {
  Editing editing;
  EditSession& session = editing.session;
  editing.Open(editing.Photo("photo.jpg"));
  session.Turn(&BrivolantDocument::Rotation, 1);
  editing.Change(editing.Module("Exposure"), 0, 80);
  session.Blend(3, 0.5F);
  session.ClearStyle();
  EXPECT_TRUE(session.Dirty());
  while (session.UndoGizmo().UndoAvailable()) session.Undo();
  // The blending was not recorded.
  EXPECT_TRUE(session.Dirty());
  session.Processor().BlendMode(0);
  session.Processor().BlendAlpha = 1;
  session.Redo();
  session.Undo();
  EXPECT_FALSE(session.Dirty());
  session.Redo();
  EXPECT_TRUE(session.Dirty());
  // What is saved is what counts, not where the history began.
  EXPECT_TRUE(editing.Save(editing.folder.Child("a.brvPhoto")));
  session.Undo();
  EXPECT_TRUE(session.Dirty());
  session.Redo();
  EXPECT_FALSE(session.Dirty());
  // A picture without a file is never saved by undoing.
  session.Open(TestPicture(80, 60), "pasted");
  session.Finish();
  session.Turn(&BrivolantDocument::Rotation, 1);
  session.Undo();
  EXPECT_TRUE(session.Dirty());
}

TEST(Session, WhatChangedNothingLeavesNoEntryAndKeepsWhatWasUndone) {
  Editing editing;
  EditSession& session = editing.session;
  editing.Open(editing.Photo("photo.jpg"));
  effectModule& exposure = editing.Module("Exposure");
  editing.Change(exposure, 0, 80);
  editing.Change(exposure, 0, 30);
  session.Undo();
  ASSERT_TRUE(session.UndoGizmo().RedoAvailable());
  // A menu that is dismissed, and a module that tells of the same change as its panel.
  const EditSession::Pairs same{
      {session.ModuleKey("EffectChanged:", exposure), exposure.Settings()}};
  session.Record(same, "Exposure");
  session.Record(same, "Exposure");
  session.SetDirty(true);
  EXPECT_TRUE(session.UndoGizmo().RedoAvailable());
  session.Record(same, "Once");
  session.Record(same, "Twice");
  exposure.ControlValue(0, 10);
  session.SetDirty(true);
  EXPECT_FALSE(session.UndoGizmo().RedoAvailable());
  EXPECT_EQ(editing.UndoName(), "Twice");
  session.Undo();
  EXPECT_EQ(editing.UndoName(), "Exposure");
  // An unknown key is told of, and what came before it in its entry is undone.
  session.UndoGizmo().Add("DocumentRotation", 3);
  session.UndoGizmo().Add("Nonsense", 3);
  session.UndoGizmo().Store(false);
  session.Undo();
  EXPECT_EQ(editing.Document().Rotation, 3);
  EXPECT_THAT(editing.services.log.lines, testing::Contains("Nonsense wasn't handled"));
}

TEST(Session, KeysOfModulesFindTheirLayer) {
  Editing editing;
  EditSession& session = editing.session;
  brivolantProcessorLite& processor = session.Processor();
  editing.Open(editing.Photo("photo.jpg"));
  processor.ChangeStack(kBackground);
  editing.Change(editing.Module("Exposure"), 0, 80);
  effectModule& moved = editing.Module("Sharpen");
  const int from = processor.ItemPositionViaID(moved.ID());
  session.Record({{session.ModuleKey("EffectMoved:", moved), Pair{1.0 * from, 2.0}}}, "Sharpen");
  processor.ChangeItemOrder(from, 2);
  session.SetDirty(true);
  processor.ChangeStack(kForeground);
  session.Undo();
  EXPECT_EQ(processor.CurrentStack, kBackground);
  EXPECT_EQ(processor.ItemPositionViaID(moved.ID()), from);
  session.Undo();
  EXPECT_FALSE(editing.Module("Exposure").Enabled());
  session.Redo();
  session.Redo();
  EXPECT_EQ(processor.ItemPositionViaID(moved.ID()), 2);
  EXPECT_TRUE(editing.Module("Exposure").Enabled());
}

TEST(Session, AStyleReplacesTheStacksAndLightsUntilTheNextChange) {
  Editing editing;
  EditSession& session = editing.session;
  editing.Open(editing.Photo("photo.jpg"));
  editing.Change(editing.Module("Exposure"), 0, 80);
  const std::string style = session.Processor().StyleData();
  editing.Open(editing.Photo("second.jpg"));
  EXPECT_EQ(session.LastStyle(), style);
  session.ApplyStyle(style, "Bright");
  session.SelectStyle(7);
  EXPECT_TRUE(editing.Module("Exposure").Enabled());
  session.Undo();
  EXPECT_EQ(session.StyleSelection(), -1);
  session.Redo();
  EXPECT_EQ(session.StyleSelection(), 7);
  session.Turn(&BrivolantDocument::Flip, 1);
  EXPECT_EQ(session.StyleSelection(), -1);
  session.PerformRewind();
  EXPECT_FALSE(session.Rewindable());
  EXPECT_FALSE(editing.Module("Exposure").Enabled());
  session.Undo();
  EXPECT_EQ(editing.Document().Flip, 1);
  EXPECT_TRUE(editing.Module("Exposure").Enabled());
}

TEST(Session, TheModuleOfANewStyleTellsOfItsChanges) {
  Editing editing;
  editing.Open(editing.Photo("photo.jpg"));
  brivolantProcessorLite& processor = editing.session.Processor();
  processor.SelectEffect(processor.ItemPositionViaID(editing.Module("Text").ID()));
  editing.session.ApplyStyle(processor.StyleData(), "Same");
  ASSERT_NE(processor.SelectedEffect(), nullptr);
  EXPECT_EQ(processor.SelectedEffect()->Name(), "Text");
  processor.SelectedEffect()->AboutToChange();
  EXPECT_THAT(editing.panel.told, ElementsAre("Text"));
}

TEST(Session, WhatIsOpenedWaitsForAQuestionAndForWork) {
  static int count = 0;
  static QCoreApplication* application =
      QCoreApplication::instance() == nullptr ? new QCoreApplication(count, nullptr) : nullptr;
  (void)application;
  Editing editing;
  editing.Open(editing.Photo("first.jpg"));
  effectModule* module = editing.session.Processor().item(3);
  {
    const EditSession::Hold hold(editing.session);
    editing.Open(editing.Photo("second.jpg"));
    editing.session.Open(TestPicture(40, 30), "third");
    // Nothing that somebody looks at is replaced.
    EXPECT_EQ(editing.Document().Name, "first");
    EXPECT_EQ(editing.session.Processor().item(3), module);
  }
  while (editing.events.size() < 6) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
  }
  EXPECT_THAT(editing.events, ElementsAre("settling", "opened first", "settling", "opened second",
                                          "settling", "opened third"));
}

TEST(Session, ACopyIsTheFinishedPictureAndACancelledOneIsNoFile) {
  Editing editing;
  EditSession& session = editing.session;
  const FolderItem photo = editing.Photo("photo.png", 900, 600);
  editing.Open(photo);
  editing.Change(editing.Module("Exposure"), 0, 80);
  editing.Module("Confetti").Enabled(true);
  const FolderItem copy = editing.folder.Child("copy.png");
  session.SaveCopy(copy, "public.png", 1);
  EXPECT_TRUE(session.Work().CanCancel());
  session.Work().Finish();
  EXPECT_EQ(LargestDifference(Read(copy), session.Processor().Process(Read(photo), {})), 0);
  EXPECT_TRUE(session.Dirty());

  const FolderItem cancelled = editing.folder.Child("cancelled.png");
  {
    const Listening listening = session.Work().Started.Listen([&] { session.Work().Cancel(); });
    session.SaveCopy(cancelled, "public.png", 1);
  }
  session.Finish();
  EXPECT_FALSE(cancelled.Exists());
  EXPECT_THAT(editing.failures, IsEmpty());
  session.SaveCopy(FolderItem("/proc/nowhere/copy.png"), "public.png", 1);
  session.Finish();
  ASSERT_EQ(editing.failures.size(), 1U);
  EXPECT_THAT(editing.failures[0], HasSubstr("copy.png"));

  // For a screen: no larger than that, and finished.
  Picture shown;
  session.RenderFor(300, 300, [&](const Picture& picture) { shown = picture; });
  session.Finish();
  EXPECT_EQ(shown.Width(), 300);
  EXPECT_EQ(shown.Height(), 200);
}

TEST(Session, WhateverIsDoneInTheEndItsPreviewIsShown) {
  Editing editing;
  EditSession& session = editing.session;
  editing.Open(editing.Photo("photo.jpg"));
  int started = 0;
  int finished = 0;
  const Listening begin = session.RenderStarted.Listen([&] { ++started; });
  const Listening end = session.Rendered.Listen([&] { ++finished; });
  const auto fresh = [&] {
    PreviewRenderer renderer(EffectRegistry(), editing.desk.Services);
    return renderer.Render(session.Processor().BeginPreview(true)).value_or(PreviewResult()).After;
  };
  std::mt19937 random(8);
  constexpr int kChanges = 10000;
  for (int step = 0; step < kChanges; ++step) {
    session.Processor().UpdatePreview(EditAtRandom(session.Processor(), random));
    // A turn of the event loop, in which something may be ready or not.
    if (random() % 4 == 0) (void)session.PreviewSettled();
    if (step % 500 == 499) {
      ASSERT_TRUE(editing.Preview().SameAs(fresh())) << step;
    }
  }
  session.FinishPreview();
  EXPECT_LT(finished, kChanges) << "what was replaced raised nothing";
  EXPECT_EQ(started - kChanges / 500, finished);
}

TEST(Session, APhotoIsOpenWithItsFirstPreviewAndSavedWithItsLast) {
  Editing editing;
  EditSession& session = editing.session;
  editing.Open(editing.Photo("first.png", 300, 100));
  session.Turn(&BrivolantDocument::Rotation, 1);
  bool shown = false;
  const Listening opened = session.Opened.Listen([&] {
    shown = editing.Document().PreviewAfter.Width() > editing.Document().PreviewAfter.Height();
  });
  session.Open(editing.Photo("second.png", 300, 100), {});
  EXPECT_TRUE(session.Busy());
  session.Finish();
  EXPECT_TRUE(shown) << "the preview of the photo before was still there";
  // Saved at once after a change, and closed while all that goes on.
  session.Turn(&BrivolantDocument::Rotation, 1);
  const FolderItem place = editing.folder.Child("a.brvPhoto");
  EXPECT_TRUE(editing.Save(place));
  const Picture saved = Read(place.Child(BrivolantDocument::kMidSizePreviewName));
  EXPECT_GT(saved.Height(), saved.Width());
  session.Turn(&BrivolantDocument::Flip, 1);
  session.Open(editing.Photo("third.png"), {});
}

TEST(Session, EditsThatWereNotSavedComeBack) {
  Editing editing;
  const FolderItem photo = editing.Photo("photo.jpg");
  editing.Open(photo);
  const FolderItem sets = editing.folder.Child("data").Child("Unsaved");
  editing.session.KeepEdits();
  editing.session.Finish();
  EXPECT_THAT(sets.Children(), testing::IsEmpty()) << "there is nothing to keep";
  editing.session.Turn(&BrivolantDocument::Rotation, 1);
  editing.session.HalfDone = true;
  editing.session.KeepEdits();
  editing.session.Finish();
  EXPECT_THAT(sets.Children(), testing::IsEmpty()) << "half a crop is not kept";
  editing.session.HalfDone = false;
  editing.Change(editing.Module("Exposure"), 0, 80);
  editing.session.KeepEdits();
  editing.session.Finish();
  editing.session.GiveUpChanges();
  editing.session.KeepEdits();
  editing.session.Finish();
  EXPECT_THAT(sets.Children(), testing::IsEmpty()) << "nobody wants them back";
  editing.session.SetDirty(true);
  editing.session.KeepEditsNow();
  const Picture edited = editing.Preview();
  ASSERT_EQ(sets.Children().size(), 1U);

  // Work on the photo hinders nothing.
  {
    const Listening listening = editing.session.Work().Started.Listen([&] {
      editing.session.Turn(&BrivolantDocument::Flip, 1);
      const std::string before = ReadFile(sets.Children().front().Child("Edits")).value_or("");
      editing.session.KeepEditsNow();
      EXPECT_NE(ReadFile(sets.Children().front().Child("Edits")).value_or(""), before);
      editing.session.Turn(&BrivolantDocument::Flip, 1);
      editing.session.KeepEditsNow();
    });
    editing.session.SaveCopy(editing.folder.Child("copy.jpg"), "public.jpeg", 1);
    editing.session.Finish();
  }

  // Another run finds them, when this one has gone.
  Recovery later(editing.folder.Child("data"), editing.services.log);
  EXPECT_THAT(later.Left(), testing::IsEmpty()) << "this one still works on them";
  EXPECT_THAT(later.Packages(), testing::Optional(ElementsAre(editing.Document().File)));
  const std::string bytes = ReadFile(sets.Children().front().Child("Edits")).value_or("");
  const FolderItem ended = sets.Child("ended");
  ASSERT_FALSE(ended.CreateAsFolder());
  ASSERT_FALSE(WriteFileAtomically(ended.Child("Edits"), bytes));
  const auto left = later.Left();
  ASSERT_EQ(left.size(), 1U);
  EditSession next(EffectRegistry(), editing.desk, later, editing.recent);
  next.Processor().myDisplay = &editing.display;
  next.Start();
  next.Open(left.front());
  next.Finish();
  ASSERT_NE(next.Document(), nullptr);
  EXPECT_TRUE(next.Dirty());
  EXPECT_TRUE(next.NeedsPlace());
  EXPECT_EQ(next.Document()->Name, "photo");
  EXPECT_EQ(LargestDifference(next.Document()->PreviewAfter, edited), 0);
  next.GiveUpChanges();
  EXPECT_FALSE(ended.Exists());
  // What a set that cannot be read needs is not known.
  ASSERT_FALSE(ended.CreateAsFolder());
  EXPECT_TRUE(later.Packages());
  ASSERT_FALSE(WriteFileAtomically(ended.Child("Edits"), "damaged"));
  EXPECT_FALSE(later.Packages());
}

TEST(Session, APictureThatCannotBeKeptKeepsNothingElseFromBeingKept) {
  Editing editing;
  editing.Open(editing.Photo("photo.jpg"));
  editing.Paste(TestPicture(40, 30));
  for (const auto& [name, file] : editing.Document().SessionImages()) {
    ASSERT_FALSE(file.Delete());
  }
  editing.session.KeepEditsNow();
  const FolderItem sets = editing.folder.Child("data").Child("Unsaved");
  ASSERT_EQ(sets.Children().size(), 1U);
  EXPECT_TRUE(sets.Children().front().Child("Edits").Exists());
}

TEST(Session, AnswersHoldForTheSaveThatAskedForThem) {
  Editing editing;
  EditSession& session = editing.session;
  editing.Open(editing.Photo("photo.jpg"));
  editing.Paste(TestPicture(40, 30));
  const FolderItem place = editing.folder.Child("laid.brvPhoto");
  ASSERT_TRUE(editing.Save(place));
  std::vector<std::string> asked;
  Answer answer = Answer::kAction;
  session.Ask = [&](const Question& question) {
    asked.push_back(question.Message);
    return answer;
  };
  const auto pictures = [&] {
    int count = 0;
    for (const FolderItem& child : place.Children()) count += child.Name().size() == 36;
    return count;
  };
  // Another program gives the picture up, and its file goes. The session still has it.
  const auto other = [&](const std::string& style) {
    BrivolantDocument there(editing.services.services);
    ASSERT_TRUE(there.Load(place));
    there.StyleData = style;
    ASSERT_TRUE(there.Save());
  };
  ASSERT_EQ(pictures(), 1);
  other("theirs");
  ASSERT_EQ(pictures(), 0);
  session.Turn(&BrivolantDocument::Rotation, 1);
  EXPECT_TRUE(editing.Save());
  EXPECT_EQ(asked.size(), 1U);
  EXPECT_EQ(pictures(), 1);

  // The session's is lost as well: two questions, each asked once.
  other("theirs again");
  for (const auto& [name, file] : editing.Document().SessionImages()) {
    ASSERT_FALSE(file.Delete());
  }
  session.Turn(&BrivolantDocument::Rotation, 2);
  asked.clear();
  answer = Answer::kCancel;
  EXPECT_FALSE(editing.Save());
  EXPECT_EQ(asked.size(), 1U);
  answer = Answer::kAction;
  asked.clear();
  EXPECT_TRUE(editing.Save());
  ASSERT_EQ(asked.size(), 2U);
  EXPECT_NE(asked[0], asked[1]);

  // What was agreed to then is asked again.
  other("theirs once more");
  session.Turn(&BrivolantDocument::Rotation, 3);
  asked.clear();
  answer = Answer::kCancel;
  EXPECT_FALSE(editing.Save());
  EXPECT_EQ(asked.size(), 1U);
  EXPECT_TRUE(session.Dirty());
}

TEST(Session, ASaveMeansThePhotoThatItWasAskedOf) {
  Editing editing;
  EditSession& session = editing.session;
  const FolderItem first = editing.Photo("first.jpg", 80, 60);
  const FolderItem second = editing.Photo("second.jpg", 60, 40);
  editing.Open(first);
  session.Turn(&BrivolantDocument::Rotation, 2);
  // Another photo arrives while a place is chosen.
  const FolderItem place = editing.folder.Child("place.brvPhoto");
  {
    const EditSession::Hold hold(session);
    session.Open(second, {});
  }
  std::string saved;
  session.Save(place, [&](bool done) { saved = done ? editing.Document().Name : "nothing"; });
  while (editing.Document().Name != "second") {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
  }
  EXPECT_EQ(saved, "place");
  BrivolantDocument kept(editing.services.services);
  ASSERT_TRUE(kept.Load(place));
  EXPECT_EQ(kept.OriginalImageID, "first.jpg");
  EXPECT_EQ(kept.Rotation, 2);
  session.Finish();

  // One that was asked for while another photo came saves neither.
  const FolderItem late = editing.folder.Child("late.brvPhoto");
  session.Open(first, {});
  session.Save(late, [&](bool done) { saved = done ? "late" : "nothing"; });
  session.Work().Finish();
  EXPECT_EQ(saved, "nothing");
  EXPECT_FALSE(late.Exists());
}

TEST(Session, PastingIsOneEntryWhateverWasLookedAtBefore) {
  Editing editing;
  EditSession& session = editing.session;
  editing.Open(editing.Photo("photo.jpg"));
  // A menu of the overlay was opened and dismissed.
  const effectModule& overlay = editing.Module("Overlay");
  session.Record({{session.ModuleKey("EffectChanged:", overlay), overlay.Settings()}}, "Overlay");
  editing.Paste(TestPicture(40, 30));
  EXPECT_EQ(editing.UndoName(), "Paste");
  session.Undo();
  EXPECT_FALSE(session.UndoGizmo().UndoAvailable());
}

}  // namespace
}  // namespace brivolant::test
