// SPDX-License-Identifier: MIT
// Moves, copies, the trash and addresses of files: nothing is ever replaced, and names are bytes.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <thread>

#include "Helpers.h"
#include "browser/ThumbnailCache.h"
#include "browser/browserItem.h"
#include "files/FileCopier.h"
#include "files/FolderitemExtensions.h"
#include "metadata/Sidecar.h"
#include "platform/files/ExclusiveMove.h"
#include "platform/files/FileAddress.h"

namespace brivolant::test {
namespace {

namespace fx = FolderitemExtensions;
using testing::ElementsAre;
using testing::IsEmpty;

/// A file system that refuses some calls.
int Refuses(const char*, const char*) {
  return EINVAL;
}
int Forbids(const char*, const char*) {
  return EPERM;
}

std::vector<std::pair<const char*, MoveCalls>> FileSystems() {
  const MoveCalls& system = MoveCalls::System();
  return {{"with the flag", system},
          {"without it", {&Refuses, system.Link}},
          {"without links", {&Refuses, &Forbids}}};
}

TEST(ExclusiveMove, NothingIsReplacedOnAnyFileSystem) {
  for (const auto& [name, calls] : FileSystems()) {
    SCOPED_TRACE(name);
    const TemporaryFolder folder;
    const FolderItem photo = folder.Write("photo", "pixels");
    const FolderItem other = folder.Write("other", "more");
    const FolderItem link = folder.Child("link");
    const FolderItem broken = folder.Child("broken");
    const FolderItem inside = folder.Child("folder");
    ASSERT_EQ(symlink("photo", link.Path().c_str()), 0);
    ASSERT_EQ(symlink("nowhere", broken.Path().c_str()), 0);
    ASSERT_FALSE(inside.CreateAsFolder());
    const FolderItem second = folder.Child("second");
    std::filesystem::create_hard_link(photo.Path(), second.Path());
    const std::vector<FolderItem> entries{photo, other, link, broken, inside, second};
    for (const FolderItem& from : entries) {
      for (const FolderItem& to : entries) {
        if (from == to) continue;
        EXPECT_EQ(MoveExclusively(from, to, calls), std::errc::file_exists)
            << from.Name() << " to " << to.Name();
      }
    }
    EXPECT_EQ(ReadFile(photo), "pixels");
    EXPECT_EQ(ReadFile(other), "more");
    EXPECT_TRUE(link.Alias() && broken.Alias() && inside.Directory());
    // To a free name each goes, a link as a link.
    for (const FolderItem& from : entries) {
      const FolderItem to = folder.Child("new " + from.Name());
      EXPECT_FALSE(MoveExclusively(from, to, calls)) << from.Name();
      EXPECT_TRUE(EntryExists(to) && !EntryExists(from)) << from.Name();
    }
    EXPECT_EQ(std::filesystem::read_symlink(folder.Child("new link").Path()), "photo");
    EXPECT_TRUE(MoveExclusively(photo, folder.Child("x"), calls));
    EXPECT_FALSE(MoveExclusively(other, other, calls));
  }
}

/// As a folder that ignores case: the other case of a name is taken by the same entry.
int IgnoresCase(const char* from, const char* to) {
  if (strcasecmp(from, to) == 0) return EEXIST;
  return MoveCalls::System().NoReplace(from, to);
}

TEST(ExclusiveMove, ACaseAloneChangesWhereNamesIgnoreIt) {
  const TemporaryFolder folder;
  const MoveCalls calls{&IgnoresCase, MoveCalls::System().Link};
  const FolderItem photo = folder.Write("photo.jpg", "pixels");
  ASSERT_FALSE(MoveExclusively(photo, folder.Child("Photo.JPG"), calls));
  EXPECT_THAT(folder.Names(), ElementsAre("Photo.JPG"));
  // Where both stand, they are two.
  folder.Write("photo.jpg", "another");
  EXPECT_TRUE(MoveExclusively(folder.Child("photo.jpg"), folder.Child("Photo.JPG"), calls));
  EXPECT_EQ(ReadFile(folder.Child("Photo.JPG")), "pixels");
  EXPECT_EQ(ReadFile(folder.Child("photo.jpg")), "another");
}

struct TrashHome {
  TemporaryFolder home;
  FolderItem trash = home.Child("data/Trash");
  TrashHome() { setenv("XDG_DATA_HOME", home.Child("data").ShellPath().c_str(), 1); }
};

TEST(Trash, NeitherWayReplacesAnything) {
  const TrashHome t;
  // Records and files of others, each without its counterpart.
  ASSERT_FALSE(t.trash.Child("info").CreateAsFolder());
  ASSERT_FALSE(t.trash.Child("files").CreateAsFolder());
  t.home.Write("data/Trash/info/a.jpg.trashinfo", "of another program");
  ASSERT_EQ(symlink("gone", t.home.Child("data/Trash/files/a-1.jpg").Path().c_str()), 0);
  const FolderItem file = t.home.Write("a.jpg", "mine");
  const auto trashed = fx::PutInTrash(file);
  ASSERT_TRUE(trashed.has_value());
  EXPECT_EQ(trashed->InTrash, t.home.Child("data/Trash/files/a-2.jpg"));
  EXPECT_EQ(ReadFile(t.home.Child("data/Trash/info/a.jpg.trashinfo")), "of another program");
  EXPECT_FALSE(t.home.Child("data/Trash/info/a-1.jpg.trashinfo").Exists());
  // Its place was taken, by a link that leads nowhere.
  ASSERT_EQ(symlink("nowhere", file.Path().c_str()), 0);
  EXPECT_FALSE(fx::PutBack(*trashed));
  EXPECT_TRUE(file.Alias());
  EXPECT_EQ(ReadFile(trashed->InTrash), "mine");
  ASSERT_FALSE(file.Delete());
  EXPECT_TRUE(fx::PutBack(*trashed));
  EXPECT_EQ(ReadFile(file), "mine");
  EXPECT_FALSE(trashed->Info.Exists());
}

TEST(Trash, ManyAtOnceOfOneNameAllStay) {
  const TrashHome t;
  constexpr int kThreads = 4;
  constexpr int kEach = 25;
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    ASSERT_FALSE(t.home.Child(std::to_string(i)).CreateAsFolder());
    threads.emplace_back([&, i] {
      for (int n = 0; n < kEach; ++n) {
        const std::string text = std::to_string(i) + "/" + std::to_string(n);
        EXPECT_TRUE(fx::MoveToTrash(t.home.Write(std::to_string(i) + "/a.jpg", text)));
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  std::vector<std::string> texts;
  for (const FolderItem& file : t.trash.Child("files").Children()) {
    texts.push_back(ReadFile(file).value());
    EXPECT_TRUE(t.trash.Child("info").Child(file.Name() + ".trashinfo").Exists());
  }
  std::sort(texts.begin(), texts.end());
  EXPECT_EQ(std::unique(texts.begin(), texts.end()) - texts.begin(), kThreads * kEach);
}

std::vector<FolderItem> CopiesOf(const FileCopier& copier) {
  std::vector<FolderItem> copies;
  for (const FileCopier::Copy& copy : copier.Made()) copies.push_back(copy.Item);
  return copies;
}

TEST(FileCopier, KeepsDatesModesAndWhereLinksLead) {
  const TemporaryFolder folder;
  ASSERT_FALSE(folder.Child("trip/day").CreateAsFolder());
  ASSERT_FALSE(folder.Child("there").CreateAsFolder());
  const FolderItem photo = folder.Write("trip/day/a.jpg", "pixels");
  folder.Write("outside.jpg", "outside");
  const auto link = [&](const char* to, const char* at) {
    ASSERT_EQ(symlink(to, folder.Child(at).Path().c_str()), 0);
  };
  link("day/a.jpg", "trip/within");
  link("../outside.jpg", "trip/out");
  link("../nowhere", "trip/broken");
  link("outside.jpg", "alone");
  const std::array<timespec, 2> old{timespec{1000, 5}, timespec{2000, 700}};
  for (const FolderItem& item : {photo, folder.Child("trip/day"), folder.Child("trip")}) {
    ASSERT_EQ(utimensat(AT_FDCWD, item.Path().c_str(), old.data(), 0), 0);
  }
  ASSERT_EQ(chmod(photo.Path().c_str(), 0640), 0);
  FileCopier copier(nullptr);
  copier.CopyInto({folder.Child("trip"), folder.Child("alone")}, folder.Child("there"));
  EXPECT_THAT(CopiesOf(copier),
              ElementsAre(folder.Child("there/trip"), folder.Child("there/alone")));
  EXPECT_THAT(copier.Failed(), IsEmpty());
  for (const char* name : {"trip/day/a.jpg", "trip/day", "trip"}) {
    struct stat status {};
    const FolderItem copy(folder.Child("there").Path() / name);
    ASSERT_EQ(stat(copy.Path().c_str(), &status), 0) << name;
    EXPECT_EQ(status.st_mtim.tv_sec, 2000) << name;
    EXPECT_EQ(status.st_mtim.tv_nsec, 700) << name;
    if (S_ISREG(status.st_mode)) {
      EXPECT_EQ(status.st_mode & 0777U, 0640U);
    }
  }
  const auto leads = [&](const char* at) {
    std::error_code error;
    return std::filesystem::canonical(folder.Child(at).Path(), error);
  };
  EXPECT_EQ(leads("there/trip/within"), folder.Child("there/trip/day/a.jpg").Path());
  EXPECT_EQ(leads("there/trip/out"), folder.Child("outside.jpg").Path());
  EXPECT_EQ(leads("there/alone"), folder.Child("outside.jpg").Path());
  EXPECT_EQ(std::filesystem::read_symlink(folder.Child("there/trip/broken").Path()),
            folder.Child("nowhere").Path());
}

TEST(FileCopier, FreeNamesAndWhatCannotBeCopiedStopsNoOther) {
  const TemporaryFolder folder;
  ASSERT_FALSE(folder.Child("there").CreateAsFolder());
  const FolderItem a = folder.Write("a.jpg", "1");
  folder.Write("there/a.jpg", "kept");
  ASSERT_EQ(symlink("gone", folder.Child("there/a-1.jpg").Path().c_str()), 0);
  ASSERT_EQ(mkfifo(folder.Child("pipe").Path().c_str(), 0600), 0);
  FileCopier copier(nullptr);
  copier.CopyInto({folder.Child("missing"), folder.Child("pipe"), folder.Item(), a},
                  folder.Child("there"));
  EXPECT_THAT(copier.Failed(),
              ElementsAre(folder.Child("missing"), folder.Child("pipe"), folder.Item()));
  EXPECT_THAT(CopiesOf(copier), ElementsAre(folder.Child("there/a-2.jpg")));
  EXPECT_EQ(ReadFile(folder.Child("there/a.jpg")), "kept");
  // By a link's road a folder does not go into itself either.
  ASSERT_EQ(symlink("there", folder.Child("road").Path().c_str()), 0);
  FileCopier into(nullptr);
  into.CopyInto({folder.Child("there")}, folder.Child("road"));
  EXPECT_THAT(into.Made(), IsEmpty());
  EXPECT_FALSE(folder.Child("there/there").Exists());
}

TEST(Sidecars, GoWherePhotosGo) {
  const TemporaryFolder folder;
  ASSERT_FALSE(folder.Child("there").CreateAsFolder());
  const FolderItem a = folder.Write("a.jpg", "photo");
  const FolderItem said = folder.Write("a.jpg.xmp", "said");
  const FolderItem raw = folder.Write("b.CR2", "raw");
  folder.Write("b.xmp", "of the raw file");
  const FolderItem pair = folder.Write("b.jpg", "its picture");
  // One of the two places is taken: both get the next.
  folder.Write("there/a-1.jpg.xmp", "another's");
  folder.Write("there/a.jpg", "another");
  FileCopier copier(nullptr, {Sidecar::Following, Sidecar::BesideMoved});
  copier.CopyInto({said, a, raw, pair}, folder.Child("there"));
  EXPECT_THAT(CopiesOf(copier),
              ElementsAre(folder.Child("there/a-2.jpg"), folder.Child("there/b.CR2"),
                          folder.Child("there/b.jpg")));
  EXPECT_EQ(copier.Made()[0].Companion, folder.Child("there/a-2.jpg.xmp"));
  EXPECT_EQ(copier.Made()[1].Companion, folder.Child("there/b.xmp"));
  EXPECT_TRUE(copier.Made()[2].Companion.IsNil());
  EXPECT_EQ(ReadFile(folder.Child("there/a-2.jpg.xmp")), "said");
  EXPECT_EQ(ReadFile(folder.Child("there/a-1.jpg.xmp")), "another's");
  // What is said of two raw files belongs to both, and what is said of one to no other.
  EXPECT_FALSE(Sidecar::Shared(folder.Child("b.xmp"), raw));
  const FolderItem other = folder.Write("b.dng", "raw too");
  EXPECT_TRUE(Sidecar::Shared(folder.Child("b.xmp"), raw));
  EXPECT_EQ(Sidecar::Following(other), folder.Child("b.xmp"));
  EXPECT_TRUE(Sidecar::Of(folder.Write("b.heic", "of a telephone")).IsNil());
  folder.Write("c.xmp", "of no raw file");
  EXPECT_EQ(Sidecar::Of(folder.Write("c.heic", "of a telephone")), folder.Child("c.xmp"));
  EXPECT_TRUE(Sidecar::Of(folder.Write("c.jpg", "says it itself")).IsNil());
  // One that cannot be read does not hold its photo back.
  const FolderItem closed = folder.Write("d.jpg", "photo");
  ASSERT_FALSE(folder.Child("d.jpg.xmp").CreateAsFolder());
  ASSERT_EQ(mkfifo(folder.Child("d.jpg.xmp/pipe").Path().c_str(), 0600), 0);
  FileCopier again(nullptr, {Sidecar::Following, Sidecar::BesideMoved});
  again.CopyInto({closed}, folder.Child("there"));
  EXPECT_THAT(CopiesOf(again), ElementsAre(folder.Child("there/d.jpg")));
  EXPECT_THAT(again.Failed(), ElementsAre(folder.Child("d.jpg.xmp")));
  folder.Write("there.xmp", "no photo's");
  EXPECT_TRUE(Sidecar::Following(folder.Child("there")).IsNil());
}

TEST(FileCopier, EndedAnywhereItLeavesWholeCopiesAndNothingElse) {
  const TemporaryFolder folder;
  const FolderItem small = folder.Write("small.jpg", "1");
  const FolderItem large = folder.Write("large.jpg", std::string(std::size_t{9} << 20U, 'x'));
  ASSERT_FALSE(folder.Child("trip").CreateAsFolder());
  folder.Write("trip/a.jpg", std::string(std::size_t{5} << 20U, 'y'));
  int calls = 0;
  double last = 0;
  FileCopier all([&](double done) {
    ++calls;
    EXPECT_GE(done, last);
    last = done;
    return true;
  });
  ASSERT_FALSE(folder.Child("all").CreateAsFolder());
  all.CopyInto({small, large, folder.Child("trip")}, folder.Child("all"));
  EXPECT_EQ(all.Made().size(), 3U);
  EXPECT_EQ(last, 1);
  ASSERT_GT(calls, 8);
  for (int end = 0; end < calls; ++end) {
    const FolderItem there = folder.Child("there" + std::to_string(end));
    ASSERT_FALSE(there.CreateAsFolder());
    int call = 0;
    FileCopier copier([&](double) { return call++ < end; });
    copier.CopyInto({small, large, folder.Child("trip")}, there);
    EXPECT_THAT(there.Children(), testing::UnorderedElementsAreArray(CopiesOf(copier))) << end;
    for (const FileCopier::Copy& copy : copier.Made()) {
      const bool trip = copy.Item.Name() == "trip";
      const FolderItem whole = trip ? copy.Item.Child("a.jpg") : copy.Item;
      const std::uint64_t length = trip                              ? 5U << 20U
                                   : copy.Item.Name() == "large.jpg" ? 9U << 20U
                                                                     : 1;
      EXPECT_EQ(whole.Length(), length) << end;
    }
    ASSERT_FALSE(there.DeleteFolder());
  }
}

TEST(FileCopier, AStateTellsOfEveryChange) {
  const TemporaryFolder folder;
  ASSERT_FALSE(folder.Child("trip/day").CreateAsFolder());
  folder.Write("trip/a.jpg", "1");
  const FolderItem trip = folder.Child("trip");
  std::string state = FileCopier::StateOf(trip);
  EXPECT_EQ(FileCopier::StateOf(trip), state);
  const auto changed = [&] { return std::exchange(state, FileCopier::StateOf(trip)) != state; };
  folder.Write("trip/a.jpg", "2");
  EXPECT_TRUE(changed());
  folder.Write("trip/day/b.jpg", "1");
  EXPECT_TRUE(changed());
  ASSERT_FALSE(folder.Child("trip/day/b.jpg").Delete());
  EXPECT_TRUE(changed());
  ASSERT_EQ(chmod(folder.Child("trip/a.jpg").Path().c_str(), 0600), 0);
  EXPECT_TRUE(changed());
  EXPECT_FALSE(changed());
}

TEST(FileAddress, NamesOfAnyBytesComeBack) {
  std::string every;
  for (int byte = 1; byte < 256; ++byte) {
    if (byte != '/') every += static_cast<char>(byte);
  }
  const std::vector<FolderItem> files{FolderItem("/a b/#1?.jpg"), FolderItem("/caf\xE9.jpg"),
                                      FolderItem("/caf\xC3\xA9.jpg"), FolderItem("/" + every)};
  for (const FolderItem& file : files) {
    EXPECT_EQ(FileAddress::File(FileAddress::Of(file)), file) << FileAddress::Of(file);
  }
  EXPECT_EQ(FileAddress::Files(FileAddress::ListOf(files)), files);
  EXPECT_EQ(FileAddress::Of(files[1]), "file:///caf%E9.jpg");
  // As others write them, and what is none.
  EXPECT_EQ(FileAddress::File("FILE:/a%20b"), FolderItem("/a b"));
  EXPECT_EQ(FileAddress::File("file://localhost/a%2"), FolderItem("/a%2"));
  for (const char* none : {"", "file:", "file:a", "file://elsewhere.example/a", "https://a/b", "/a",
                           "file:///a%00b", "file://localhost"}) {
    EXPECT_TRUE(FileAddress::File(none).IsNil()) << none;
  }
  EXPECT_THAT(FileAddress::Files("# file:///no\r\nfile:///yes\nhttps://no.example\r\n"),
              ElementsAre(FolderItem("/yes")));
}

TEST(FileAddress, TwoNamesThatLookAlikeHaveTwoRecordsAndThumbnails) {
  const TrashHome t;
  const FolderItem one = t.home.Write("\xE9.jpg", "one");
  const FolderItem two = t.home.Write("\xE8.jpg", "two");
  ASSERT_EQ(one.DisplayName().size(), two.DisplayName().size());
  EXPECT_NE(ThumbnailCache::KeyOf(one).Hash, ThumbnailCache::KeyOf(two).Hash);
  const auto trashed = fx::PutInTrash(one);
  ASSERT_TRUE(trashed.has_value());
  EXPECT_THAT(ReadFile(trashed->Info).value(), testing::HasSubstr("/%E9.jpg\n"));
  FileCopier copier(nullptr);
  ASSERT_FALSE(t.home.Child("there").CreateAsFolder());
  copier.CopyInto({two}, t.home.Child("there"));
  EXPECT_EQ(ReadFile(t.home.Child("there/\xE8.jpg")), "two");
}

TEST(Collections, RowsFollowTheirFiles) {
  browserItemCollection found;
  for (const char* path : {"/a/1.jpg", "/b", "/b/2.jpg", "/bb/3.jpg", "/c.jpg"}) {
    found.AddItem(std::make_shared<browserItem>(FolderItem(path)));
  }
  const auto paths = [&] {
    std::vector<std::string> all;
    for (int i = 0; i < found.Count(); ++i) {
      all.push_back(std::get<std::shared_ptr<browserItem>>(found.Item(i))->File().ShellPath());
    }
    return all;
  };
  const std::vector<std::string> before = paths();
  found.Follow({{FolderItem("/b"), {}}});
  EXPECT_THAT(paths(), ElementsAre("/a/1.jpg", "/bb/3.jpg", "/c.jpg"));
  found.Follow({{FolderItem("/a/1.jpg"), {}}});
  found.Follow({{{}, FolderItem("/a/1.jpg")}});
  found.Follow({{{}, FolderItem("/b")}});
  EXPECT_EQ(paths(), before);
  // Many at once, those of a folder among them, and back in another order.
  found.Follow({{FolderItem("/c.jpg"), {}}, {FolderItem("/b"), {}}, {FolderItem("/a/1.jpg"), {}}});
  EXPECT_THAT(paths(), ElementsAre("/bb/3.jpg"));
  found.Follow({{{}, FolderItem("/b/2.jpg")}, {{}, FolderItem("/c.jpg")}});
  EXPECT_THAT(paths(), ElementsAre("/bb/3.jpg", "/b/2.jpg", "/c.jpg"));
  found.Follow({{{}, FolderItem("/a/1.jpg")},
                {{}, FolderItem("/b")},
                {FolderItem("/c.jpg"), {}},
                {{}, FolderItem("/c.jpg")}});
  EXPECT_THAT(paths(), testing::UnorderedElementsAreArray(before));
  found = {};
  for (const std::string& path : before) {
    found.AddItem(std::make_shared<browserItem>(FolderItem(path)));
  }
  found.Follow({{FolderItem("/b"), FolderItem("/new")}});
  EXPECT_THAT(paths(), ElementsAre("/a/1.jpg", "/new", "/new/2.jpg", "/bb/3.jpg", "/c.jpg"));
  EXPECT_EQ(std::get<std::shared_ptr<browserItem>>(found.Item(1))->Name, "new");
}

}  // namespace
}  // namespace brivolant::test
