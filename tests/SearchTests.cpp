// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QScopeGuard>
#include <QSemaphore>
#include <QThreadPool>
#include <cstdint>

#include "Helpers.h"
#include "browser/DiskThreads.h"
#include "browser/FolderLister.h"
#include "browser/SearchIndex.h"
#include "browser/SearchText.h"
#include "browser/SpotlightQuery.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SearchText, IgnoresCaseAndHowAccentsAreComposed) {
  EXPECT_TRUE(SearchText("beach").In("My BEACH.jpg"));
  EXPECT_TRUE(SearchText("BEA").In("beach"));
  EXPECT_FALSE(SearchText("beach").In("peach.jpg"));
  const std::string composed = "\xC3\x89t\xC3\xA9.jpg";
  const std::string apart = "e\xCC\x81te\xCC\x81";
  EXPECT_TRUE(SearchText(apart).In(composed));
  EXPECT_TRUE(SearchText(composed).In("E\xCC\x81te\xCC\x81.JPG"));
  EXPECT_TRUE(SearchText("jpg").In(composed));
  EXPECT_FALSE(SearchText("").In("anything"));
  EXPECT_TRUE(SearchText("b.jpg").In("\xE9 B.jpg"));
}

bool Wait(const std::function<bool()>& condition) {
  const QDeadlineTimer limit(20000);
  while (!condition() && !limit.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
  }
  return condition();
}

std::vector<std::string> NamesFound(const SpotlightQuery& query) {
  std::vector<std::string> names;
  for (int i = 0; i < query.Count(); ++i) names.push_back(query.Item(i).Row()->Name);
  return names;
}

TEST(SpotlightQuery, FindsImagesDocumentsAndFoldersButNoOthers) {
  const TemporaryFolder folder;
  for (const char* name : {"trip", "trip/deep", "trip/deep/Trip 2", ".hidden", "x.brvPhoto"}) {
    ASSERT_FALSE(folder.Child(name).CreateAsFolder());
  }
  for (const char* name :
       {"trip/TRIP10.JPG", "trip/trip9.cr2", "trip/trip.txt", "trip/deep/best-trip.HEIC",
        ".hidden/trip.jpg", ".trip.jpg", "x.brvPhoto/trip.jpg"}) {
    folder.Write(name, "x");
  }
  ASSERT_FALSE(folder.Child("trip.brvPhoto").CreateAsFolder());
  // A link in a circle, and one to a photo that is found at its own place.
  ASSERT_EQ(symlink("..", folder.Child("trip/loop").Path().c_str()), 0);
  ASSERT_EQ(symlink("TRIP10.JPG", folder.Child("trip/trip-link.jpg").Path().c_str()), 0);
  SpotlightQuery query;
  query.Roots = {folder.Item(), folder.Child("trip")};
  query.DocumentExtension = "brvPhoto";
  query.Query = "trip";
  int reports = 0;
  query.Completed = [&] { ++reports; };
  query.Run();
  EXPECT_FALSE(query.IsCompleted());
  ASSERT_TRUE(Wait([&] { return query.IsCompleted(); }));
  EXPECT_THAT(NamesFound(query),
              testing::UnorderedElementsAre("best-trip.HEIC", "trip", "Trip 2", "trip.brvPhoto",
                                            "trip9.cr2", "TRIP10.JPG"));
  EXPECT_EQ(reports, 1);
  // A new run gives the one before up.
  query.Query = "best";
  query.Run();
  query.Query = "trip 2";
  query.Run();
  ASSERT_TRUE(Wait([&] { return query.IsCompleted(); }));
  EXPECT_EQ(reports, 2);
  EXPECT_THAT(NamesFound(query), ElementsAre("Trip 2"));
}

TEST(SpotlightQuery, StopsPausesAndFinishesWithWhatThereIs) {
  const TemporaryFolder folder;
  folder.Write("a-photo.jpg", "x");
  SpotlightQuery query;
  query.Roots = {folder.Item()};
  query.Query = "photo";
  query.Completed = [] { FAIL(); };
  query.Run();
  query.Stop();
  EXPECT_FALSE(query.Running());
  QCoreApplication::processEvents();
  bool done = false;
  query.Completed = [&] { done = true; };
  query.Run();
  query.Pause();
  query.Resume();
  ASSERT_TRUE(Wait([&] { return done; }));
  EXPECT_EQ(query.Count(), 1);
  done = false;
  query.Run();
  query.Finish();
  ASSERT_TRUE(Wait([&] { return done; }));
  // What was found until then is there, and it is over.
  EXPECT_FALSE(query.Running());
  EXPECT_TRUE(query.IsCompleted());
}

TEST(SpotlightQuery, WaitsNeitherForBusyListingsNorForItsOwnEnd) {
  const TemporaryFolder folder;
  folder.Write("a-photo.jpg", "x");
  // Every thread that lists folders is stuck at a dead disk.
  QSemaphore go;
  QThreadPool& threads = DiskThreads::For(FolderItem("/"));
  for (int i = 0; i < threads.maxThreadCount(); ++i) threads.start([&go] { go.acquire(); });
  bool done = false;
  {
    SpotlightQuery query;
    query.Roots = {folder.Item()};
    query.Query = "photo";
    query.Completed = [&] { done = true; };
    query.Run();
    EXPECT_TRUE(Wait([&] { return done; }));
    EXPECT_EQ(query.Count(), 1);
  }
  go.release(threads.maxThreadCount());
  threads.waitForDone();
}

/// Mounts as the kernel lists them: a disk, and a share at each of some places.
MountTable Shares(const std::vector<FolderItem>& roots, const std::string& kind = "nfs4") {
  std::string text = "/dev/sda1 / ext4 rw 0 0\n";
  for (const FolderItem& root : roots) {
    text += "server:/share " + root.ShellPath() + " " + kind + " rw 0 0\n";
  }
  return MountTable::FromText(text);
}

TEST(SpotlightQuery, AShareThatIsSilentHoldsNothingUpAndAddsWhatItHasWhenItAnswers) {
  const TemporaryFolder folder;
  for (const char* name : {"share", "share/deep", "other"}) {
    ASSERT_FALSE(folder.Child(name).CreateAsFolder());
  }
  for (const char* name :
       {"b-photo.jpg", "share/a-photo.jpg", "share/deep/c-photo.jpg", "other/d-photo.jpg"}) {
    folder.Write(name, "x");
  }
  QSemaphore answer;
  {
    SpotlightQuery query;
    query.Roots = {folder.Item(), folder.Child("share"), folder.Child("other")};
    query.Mounts = Shares({folder.Child("share"), folder.Child("other")});
    query.Patience = std::chrono::milliseconds(0);
    query.Query = "photo";
    query.Entering = [&, share = folder.Child("share").ShellPath()](const std::string& entered) {
      if (entered == share) answer.acquire();
    };
    std::vector<std::vector<std::string>> reports;
    query.Progress = [&](const std::string&, int) { EXPECT_FALSE(query.IsCompleted()); };
    query.Completed = [&] { reports.push_back(NamesFound(query)); };
    query.Run();
    ASSERT_TRUE(Wait([&] { return !reports.empty() && reports.back().size() == 2; }));
    EXPECT_THAT(reports.back(), ElementsAre("b-photo.jpg", "d-photo.jpg"));
    EXPECT_TRUE(query.IsCompleted());
    EXPECT_TRUE(query.Running());
    answer.release();
    ASSERT_TRUE(Wait([&] { return !query.Running(); }));
    EXPECT_THAT(reports.back(),
                ElementsAre("a-photo.jpg", "b-photo.jpg", "c-photo.jpg", "d-photo.jpg"));
    // Whoever has gone on to another search hears nothing of this one any more.
    query.Run();
    ASSERT_TRUE(Wait([&] { return query.IsCompleted(); }));
    query.Query = "a-photo";
    query.Run();
    reports.clear();
    answer.release(2);
    ASSERT_TRUE(Wait([&] { return !query.Running(); }));
    EXPECT_THAT(reports.back(), ElementsAre("a-photo.jpg"));
    for (const auto& names : reports) EXPECT_LE(names.size(), 1U);
  }
}

TEST(SpotlightQuery, FindsWhatLiesOnTheDesktopsShares) {
  const TemporaryFolder folder;
  for (const char* name :
       {"home", "run", "run/gvfs", "run/gvfs/smb-share:server=nas,share=photos"}) {
    ASSERT_FALSE(folder.Child(name).CreateAsFolder());
  }
  folder.Write("run/gvfs/smb-share:server=nas,share=photos/beach-at-night.jpg", "x");
  const QByteArray before = qgetenv("XDG_RUNTIME_DIR");
  const auto restore = qScopeGuard(
      [&] { before.isNull() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", before); });
  qputenv("XDG_RUNTIME_DIR", folder.Child("run").ShellPath().c_str());
  SpotlightQuery query;
  // No disk of this machine, so that nothing else is found.
  query.Mounts = Shares({folder.Child("run/gvfs")}, "fuse.gvfsd-fuse");
  query.Query = "beach-at-night";
  query.Run();
  ASSERT_TRUE(Wait([&] { return query.Count() == 1; }));
  EXPECT_EQ(query.Item(0).Row()->Name, "beach-at-night.jpg");
}

TEST(DiskThreads, WhatMayBeSilentHoldsNoMoreThanAFew) {
  const MountTable table = Shares({FolderItem("/share"), FolderItem("/other")});
  QThreadPool& share = DiskThreads::For(FolderItem("/share/deep"), table);
  QThreadPool& disks = DiskThreads::For(FolderItem("/home"), table);
  EXPECT_EQ(&share, &DiskThreads::For(FolderItem("/share"), table));
  EXPECT_NE(&share, &DiskThreads::For(FolderItem("/other"), table));
  EXPECT_NE(&share, &disks);
  EXPECT_EQ(&disks, &DiskThreads::For(FolderItem("/tmp"), table));
  EXPECT_LT(share.maxThreadCount(), disks.maxThreadCount());
}

std::string IndexRow(const std::vector<std::string>& values) {
  std::string row;
  const auto number = [&](std::uint32_t n) {
    row.append(reinterpret_cast<const char*>(&n), sizeof n);
  };
  number(static_cast<std::uint32_t>(values.size()));
  for (std::size_t i = 0; i < values.size(); ++i) number(2);
  std::uint32_t end = 0;
  for (const std::string& value : values) {
    end += static_cast<std::uint32_t>(value.size());
    number(end++);
  }
  for (const std::string& value : values) row.append(value).push_back('\0');
  return row;
}

TEST(SearchIndex, RowsAreReadAsFarAsTheyAreWhole) {
  const std::string first = IndexRow({"file:///a%20b.jpg"});
  const std::string second = IndexRow({"file:///c.jpg", "more"});
  EXPECT_THAT(SearchIndex::FirstColumn(first + second),
              ElementsAre("file:///a%20b.jpg", "file:///c.jpg"));
  EXPECT_THAT(SearchIndex::FirstColumn(""), IsEmpty());
  for (std::size_t cut = 1; cut < second.size(); ++cut) {
    EXPECT_THAT(SearchIndex::FirstColumn(first + second.substr(0, cut)),
                ElementsAre("file:///a%20b.jpg"));
  }
  // Lengths that lie.
  std::string lying = first;
  lying[8] = '\x7F';
  EXPECT_THAT(SearchIndex::FirstColumn(lying), IsEmpty());
  EXPECT_THAT(SearchIndex::FirstColumn(std::string(64, '\xFF')), IsEmpty());
}

}  // namespace
}  // namespace brivolant::test
