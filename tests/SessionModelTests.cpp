// SPDX-License-Identifier: MIT
// What the application keeps apart from its windows: history, recent files, update rule, edits
// kept for a crash.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Helpers.h"
#include "app/core/RecentItems.h"
#include "app/core/Recovery.h"
#include "app/core/UndoHandler.h"
#include "app/core/UpdateCheck.h"
#include "formats/BrivolantDocument.h"
#include "platform/files/AtomicFile.h"
#include "platform/services/Preferences.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;

/// A history over a few named numbers.
struct History {
  History() {
    undo.Action = [this](const std::string& key, const Variant& value, bool) {
      if (!values.contains(key)) return false;
      replayed.push_back(key);
      undo.Add(key, values[key]);
      values[key] = value.ToInt();
      return true;
    };
    undo.CompleteUndo = [this](bool redo) { undo.Store(!redo); };
    undo.StateChanged = [this] { ++changes; };
    undo.Unhandled = [this](const std::string& message) { unhandled = message; };
  }
  void Set(const std::string& key, int value, const std::string& name) {
    undo.Add(key, values[key]);
    undo.Store(false, name);
    values[key] = value;
  }
  UndoHandler undo;
  std::map<std::string, int> values{{"a", 0}, {"b", 0}};
  std::vector<std::string> replayed;
  std::string unhandled;
  int changes = 0;
};

TEST(Undo, GoesBackAndForthByName) {
  History h;
  EXPECT_FALSE(h.undo.UndoAvailable());
  h.Set("a", 1, "One");
  h.Set("a", 2, "Two");
  EXPECT_EQ(h.undo.UndoName(), "Two");
  h.undo.Undo();
  EXPECT_EQ(h.values["a"], 1);
  EXPECT_EQ(h.undo.UndoName(), "One");
  EXPECT_EQ(h.undo.RedoName(), "Two");
  h.undo.Redo();
  EXPECT_EQ(h.values["a"], 2);
  EXPECT_EQ(h.undo.UndoName(), "Two");
  h.undo.Undo();
  h.undo.Undo();
  EXPECT_EQ(h.values["a"], 0);
  h.undo.Undo();
  EXPECT_EQ(h.values["a"], 0);
  // A new action ends the redo history.
  h.Set("b", 5, "Five");
  EXPECT_FALSE(h.undo.RedoAvailable());
  h.undo.Reset();
  EXPECT_FALSE(h.undo.UndoAvailable());
}

TEST(Undo, ReplaysAnEntryInItsOrderAndStopsAtWhatItDoesNotKnow) {
  History h;
  h.undo.Add("a", 7);
  h.undo.Add("b", 8);
  h.undo.Store(false, "Both");
  h.undo.Undo();
  EXPECT_THAT(h.replayed, ElementsAre("a", "b"));
  EXPECT_EQ(h.values["b"], 8);
  h.undo.Add("a", 1);
  h.undo.Add("unknown", 1);
  h.undo.Add("b", 1);
  h.undo.Store(false);
  h.undo.Undo();
  EXPECT_EQ(h.unhandled, "unknown wasn't handled");
  EXPECT_EQ(h.values["a"], 1);
  EXPECT_EQ(h.values["b"], 8);
  // What was replayed can still be taken back.
  h.undo.Redo();
  EXPECT_EQ(h.values["a"], 7);
  h.undo.Add("a", 3);
  h.undo.Discard();
  h.undo.Store(false, "Empty");
  h.replayed.clear();
  h.undo.Undo();
  EXPECT_TRUE(h.replayed.empty());
}

TEST(Undo, GoesOnAfterAnActionThrew) {
  History h;
  h.Set("a", 1, "One");
  h.Set("a", 2, "Two");
  const auto action = h.undo.Action;
  h.undo.Action = [](const std::string&, const Variant&, bool) -> bool { throw std::bad_alloc(); };
  EXPECT_THROW(h.undo.Undo(), std::bad_alloc);
  h.undo.Action = action;
  h.undo.Undo();
  EXPECT_EQ(h.values["a"], 0);
}

TEST(Recent, KeepsOneMoreThanTheLimitNewestFirstEachOnce) {
  TemporaryFolder folder;
  RecordingLog log;
  Preferences preferences("test", folder.Item(), log);
  RecentItems recent(preferences);
  int told = 0;
  recent.UpdateRecentMenu = [&] { ++told; };
  for (int i = 0; i < 15; ++i) recent.Add(FolderItem("/photos/" + std::to_string(i) + ".jpg"));
  EXPECT_EQ(recent.RecentItem().size(), 11U);
  EXPECT_EQ(recent.RecentItem().front(), "/photos/14.jpg");
  recent.Add(FolderItem("/photos/10.jpg"));
  EXPECT_EQ(recent.RecentItem().size(), 11U);
  EXPECT_EQ(recent.RecentItem().front(), "/photos/10.jpg");
  EXPECT_EQ(std::count(recent.RecentItem().begin(), recent.RecentItem().end(), "/photos/10.jpg"),
            1);
  EXPECT_EQ(told, 16);
  // They are being written beside the window.
  preferences.Synchronize();
  Preferences again("test", folder.Item(), log);
  EXPECT_EQ(RecentItems(again).RecentItem(), recent.RecentItem());
  recent.Clear();
  preferences.Synchronize();
  Preferences empty("test", folder.Item(), log);
  EXPECT_TRUE(RecentItems(empty).RecentItem().empty());
  EXPECT_EQ(RecentItems::TextFor("/a/b.c/holiday.2024.jpg"), "holiday.2024");
  EXPECT_EQ(RecentItems::TextFor("/a/.hidden"), ".hidden");
  // A damaged count and missing entries read as what there is.
  Preferences damaged("damaged", folder.Item(), log);
  damaged.Assign("RecentItemCount", 1e9);
  damaged.Assign("RecentItem1", "/only.jpg");
  EXPECT_THAT(RecentItems(damaged).RecentItem(), ElementsAre("/only.jpg"));
}

TEST(UpdateCheck, IsDueByItsPeriodAndInANewYear) {
  const Date now{2026, 3, 31, 12, 0, 0};
  struct Case {
    int period;
    Date last;
    bool due;
  };
  for (const Case& c : {Case{kEveryLaunch, now, true},
                        {kDaily, now, false},
                        {kDaily, {2026, 3, 30}, true},
                        {kWeekly, {2026, 3, 24}, false},
                        {kWeekly, {2026, 3, 23}, true},
                        {kMonthly, {2026, 3, 2}, false},
                        {kMonthly, {2026, 2, 28}, true},
                        {kNever, {2026, 1, 1}, false},
                        {kNever, {2025, 12, 31}, true}}) {
    EXPECT_EQ(UpdateCheckDue(c.period, c.last, now), c.due) << c.period << " " << c.last.Text();
  }
}

TEST(KeptEdits, SurviveAndForgetOnlyTheirOwn) {
  TestServices s;
  const FolderItem data = s.folder.Child("data");
  BrivolantDocument document(s.services, TestPicture(8, 6), "New");
  document.Rotation = 3;
  document.CropOffSet = {0.125, 0.25};
  Recovery recovery(data, s.log);
  EXPECT_TRUE(recovery.Left().empty());
  EXPECT_TRUE(recovery.Keep(document, std::string("style\0data", 10)));
  EXPECT_TRUE(Recovery(data, s.log).Left().empty()) << "a program works on them";
  const FolderItem set = data.Child("Unsaved").Children().front();
  const auto bytes = *ReadFile(set.Child("Edits"));
  recovery.Forget();
  EXPECT_FALSE(set.Exists());
  const auto write = [&](const char* name, const std::string& content) {
    const FolderItem kept = data.Child("Unsaved").Child(name);
    EXPECT_FALSE(kept.CreateAsFolder());
    EXPECT_FALSE(WriteFileAtomically(kept.Child("Edits"), content));
  };
  write("old", bytes);
  const auto found = Recovery(data, s.log).Left();
  ASSERT_EQ(found.size(), 1U);
  const RecoveredEdits* left = &found.front();
  EXPECT_EQ(left->Name, "New");
  EXPECT_EQ(left->StyleData, std::string("style\0data", 10));
  EXPECT_EQ(left->Rotation, 3);
  EXPECT_EQ(left->CropOffSet, (Pair{0.125, 0.25}));
  EXPECT_FALSE(left->Saved);
  EXPECT_EQ(left->Package, document.File);

  // A session that takes them over forgets them when they are saved. Others stay, and what is no
  // set counts as nothing.
  write("bad", "no edits");
  write("newer", bytes);
  {
    Recovery session(data, s.log);
    session.Adopt(found.front());
    EXPECT_EQ(Recovery(data, s.log).Left().size(), 1U);
    session.Forget();
  }
  const auto others = Recovery(data, s.log).Left();
  ASSERT_EQ(others.size(), 1U);
  EXPECT_EQ(others.front().Set.Name(), "newer");
  Recovery session(data, s.log);
  const FolderItem precious = s.folder.Child("precious");
  ASSERT_FALSE(precious.CreateAsFolder());
  RecoveredEdits strange;
  strange.Set = precious;
  session.GiveUp(strange);
  EXPECT_TRUE(precious.Exists());
  session.GiveUp(others.front());
  EXPECT_TRUE(session.Left().empty());
}

}  // namespace
}  // namespace brivolant::test
