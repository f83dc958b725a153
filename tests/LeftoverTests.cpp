// SPDX-License-Identifier: MIT
// What killed saves leave beside their targets, and who may take it away.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utime.h>

#include <array>
#include <csignal>
#include <ctime>
#include <functional>

#include "Helpers.h"
#include "app/core/Recovery.h"
#include "formats/BrivolantDocument.h"
#include "formats/PictureStrings.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/FileLock.h"
#include "platform/files/WorkingName.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

/// A process of its own that does `work` and then waits for its end.
class Writer {
 public:
  explicit Writer(const std::function<void(const std::function<void()>& wait)>& work) {
    std::array<int, 2> ready{};
    if (pipe(ready.data()) != 0) return;
    process_ = fork();
    if (process_ == 0) {
      work([&] {
        if (write(ready[1], "x", 1) != 1) _exit(1);
        for (;;) pause();
      });
      _exit(0);
    }
    char byte = 0;
    EXPECT_EQ(read(ready[0], &byte, 1), 1);
    close(ready[0]);
    close(ready[1]);
  }
  ~Writer() { Kill(); }
  pid_t Process() const { return process_; }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;
  void Kill() {
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    process_ = 0;
  }

 private:
  pid_t process_ = 0;
};

/// The names in a folder that begin with a dot.
std::vector<std::string> Hidden(const TemporaryFolder& folder) {
  std::vector<std::string> names;
  for (const std::string& name : folder.Names()) {
    if (name.starts_with('.')) names.push_back(name);
  }
  return names;
}

struct Leftovers : testing::Test {
  TemporaryFolder folder;
  FolderItem target = folder.Child("photo.jpg");
  void HalfAFile(const std::function<void()>& wait) const {
    AtomicFile file(target);
    if (file.Write("half")) _exit(1);
    wait();
  }
  void HalfAFolder(const std::function<void()>& wait) const {
    const GrowingFolder growing(folder.Child("doc.brvPhoto"));
    if (WriteFileAtomically(growing.Folder().Child("part"), "half")) _exit(1);
    wait();
  }
  /// A save of something else in the same folder.
  void SaveBeside() const { EXPECT_FALSE(WriteFileAtomically(folder.Child("other.txt"), "x")); }
  /// What a killed save of a file leaves, under a name with other digits at `field` of the name:
  /// 0 the machine, 1 the session, 2 the process.
  FolderItem LeftElsewhere(int field, std::time_t age) const {
    Writer([&](const auto& wait) { HalfAFile(wait); }).Kill();
    const std::string name = Hidden(folder).at(0);
    std::string other = name;
    char& digit = other.at(name.rfind("~brv-") + 5 + static_cast<std::size_t>(field) * 9);
    digit = digit == '0' ? '1' : '0';
    const FolderItem place = folder.Child(other);
    EXPECT_FALSE(folder.Child(name).MoveFileTo(place));
    const utimbuf times{std::time(nullptr) - age, std::time(nullptr) - age};
    EXPECT_EQ(utime(place.Path().c_str(), &times), 0);
    return place;
  }
};

constexpr std::time_t kDay = 24 * 60 * 60;

TEST_F(Leftovers, OfAKilledSaveGoWithTheNext) {
  for (int i = 0; i < 3; ++i) {
    Writer([&](const auto& wait) { HalfAFile(wait); }).Kill();
    Writer([&](const auto& wait) { HalfAFolder(wait); }).Kill();
    ASSERT_THAT(Hidden(folder), SizeIs(2));
    SaveBeside();
    EXPECT_THAT(folder.Names(), ElementsAre("other.txt"));
  }
}

TEST_F(Leftovers, GoWhenADocumentIsSavedThere) {
  TestServices s;
  BrivolantDocument document(s.services);
  ASSERT_TRUE(
      document.ReadImage(s.folder.Write("a.png", PngExporter().SaveToString(TestPicture(60, 40)))));
  Writer([&](const auto& wait) { HalfAFolder(wait); }).Kill();
  ASSERT_TRUE(document.Save(folder.Child("doc.brvPhoto")));
  EXPECT_THAT(folder.Names(), ElementsAre("doc.brvPhoto"));
  Writer([&](const auto& wait) { HalfAFile(wait); }).Kill();
  BrivolantDocument again(s.services);
  ASSERT_TRUE(again.Load(folder.Child("doc.brvPhoto")));
  ASSERT_TRUE(again.Save());
  EXPECT_THAT(folder.Names(), ElementsAre("doc.brvPhoto"));
  for (const FolderItem& part : folder.Child("doc.brvPhoto").Children()) {
    EXPECT_FALSE(part.Name().starts_with('.')) << part.Name();
  }
}

TEST_F(Leftovers, OfALivingSaveStay) {
  Writer file([&](const auto& wait) { HalfAFile(wait); });
  Writer package([&](const auto& wait) { HalfAFolder(wait); });
  AtomicFile own(folder.Child("own.txt"));
  ASSERT_FALSE(own.Write("mine"));
  ASSERT_THAT(Hidden(folder), SizeIs(3));
  SaveBeside();
  EXPECT_THAT(Hidden(folder), SizeIs(3));
  ASSERT_FALSE(own.Commit());
  EXPECT_EQ(ReadFile(folder.Child("own.txt")), "mine");
  file.Kill();
  package.Kill();
  SaveBeside();
  EXPECT_THAT(folder.Names(), ElementsAre("other.txt", "own.txt"));
}

TEST_F(Leftovers, StayAsLongAsSomeoneHoldsTheLock) {
  std::array<int, 2> line{};
  ASSERT_EQ(pipe(line.data()), 0);
  pid_t heir = 0;
  Writer([&](const auto& wait) {
    AtomicFile file(target);
    if (file.Write("half")) _exit(1);
    // Another process writes on with the same lock, whatever becomes of the one in the name.
    const pid_t child = fork();
    if (child == 0) {
      for (;;) pause();
    }
    if (write(line[1], &child, sizeof child) != static_cast<ssize_t>(sizeof child)) _exit(1);
    wait();
  }).Kill();
  ASSERT_EQ(read(line[0], &heir, sizeof heir), static_cast<ssize_t>(sizeof heir));
  SaveBeside();
  EXPECT_THAT(Hidden(folder), SizeIs(1));
  kill(heir, SIGKILL);
  // It is nobody's child here: its end shows in the lock alone.
  for (int i = 0; i < 2000 && !Hidden(folder).empty(); ++i) {
    SaveBeside();
    usleep(5000);
  }
  EXPECT_THAT(Hidden(folder), SizeIs(0));
  close(line[0]);
  close(line[1]);
}

TEST_F(Leftovers, OfOtherMachinesStayAndThoseOfOtherSessionsADay) {
  struct Case {
    int field;
    std::time_t age;
    bool stays;
  };
  for (const Case& c : {Case{0, 0, true}, Case{0, 100 * kDay, true}, Case{1, 0, true},
                        Case{1, kDay / 2, true}, Case{1, 2 * kDay, false}}) {
    const FolderItem left = LeftElsewhere(c.field, c.age);
    SaveBeside();
    EXPECT_EQ(left.Exists(), c.stays) << c.field << ", " << c.age;
    (void)left.Delete();
  }
}

TEST_F(Leftovers, WhatOnlyLooksLikeOneStays) {
  Writer([&](const auto& wait) { HalfAFile(wait); }).Kill();
  const std::string name = Hidden(folder).at(0);
  const std::string digits = name.substr(name.rfind("~brv-"));
  (void)folder.Child(name).Delete();
  std::string misspelled = digits;
  misspelled[5] = 'g';
  const std::vector<std::string> others{"photo" + digits, ".photo" + digits.substr(0, 20),
                                        ".photo~brv-notes.jpg", ".photo.jpg",
                                        ".photo" + misspelled + "/"};
  for (const std::string& other : others) {
    if (other.ends_with('/')) {
      ASSERT_FALSE(folder.Child(other).CreateAsFolder());
    } else {
      folder.Write(other, "mine");
    }
  }
  // A link of such a name may lead anywhere.
  TemporaryFolder elsewhere;
  elsewhere.Write("precious", "mine");
  ASSERT_EQ(symlink(elsewhere.Item().Path().c_str(), folder.Child(name).Path().c_str()), 0);
  SaveBeside();
  EXPECT_TRUE(folder.Child(name).Alias());
  EXPECT_THAT(elsewhere.Names(), ElementsAre("precious"));
  for (const std::string& other : others) EXPECT_TRUE(folder.Child(other).Exists()) << other;
}

TEST(Locks, AreSeenByEveryOtherOpeningAndEndWithTheirHolder) {
  const TemporaryFolder folder;
  const FolderItem owned = folder.Child("owned");
  EXPECT_EQ(FileLock(folder.Child("missing")).Is(), FileLock::kNone);
  EXPECT_FALSE(FileLock::InUse(folder.Item()));
  {
    FileLock first(folder.Item());
    EXPECT_EQ(first.Is(), FileLock::kLocked);
    EXPECT_EQ(FileLock(folder.Item()).Is(), FileLock::kTaken);
    // It goes along with the object, and with it.
    FileLock second = std::move(first);
    EXPECT_TRUE(FileLock::InUse(folder.Item()));
    second = FileLock();
    EXPECT_FALSE(FileLock::InUse(folder.Item()));
  }
  Writer other([&](const auto& wait) {
    const FileLock lock = FileLock::OfOwner(owned);
    wait();
  });
  const FileLock late = FileLock::OfOwner(owned);
  EXPECT_EQ(late.Is(), FileLock::kTaken);
  EXPECT_EQ(late.Holder(), other.Process());
  other.Kill();
  EXPECT_EQ(FileLock::OfOwner(owned).Is(), FileLock::kLocked);
  EXPECT_EQ(ReadFile(owned), std::to_string(getpid()) + "\n");
  // What somebody laid there instead is left alone.
  const FolderItem victim = folder.Write("victim", "mine");
  ASSERT_EQ(symlink(victim.Path().c_str(), folder.Child("link").Path().c_str()), 0);
  EXPECT_EQ(FileLock::OfOwner(folder.Child("link")).Is(), FileLock::kNone);
  EXPECT_EQ(ReadFile(victim), "mine");
}

TEST(KeptEdits, WhoTakesThemOverHasTheirTemporaryPackageToo) {
  TestServices s;
  FolderItem root;
  RecoveredEdits edits;
  {
    CleanOnQuit ended(s.random);
    ASSERT_TRUE(ended.Configure(s.folder.Child("CleanOnQuit")));
    edits.Package = ended.Child("photo.brvPhoto");
    ended.Keep();
    root = CleanOnQuit::RootOf(edits.Package);
    EXPECT_EQ(root.Parent(), s.folder.Item());
    EXPECT_TRUE(FileLock::InUse(root));
  }
  EXPECT_TRUE(root.Exists()) << "another run needs it";
  EXPECT_FALSE(FileLock::InUse(root));
  edits.Set = s.folder.Child("set");
  ASSERT_FALSE(edits.Set.CreateAsFolder());
  Recovery recovery(s.folder.Child("data"), s.log);
  recovery.Adopt(edits);
  EXPECT_TRUE(FileLock::InUse(root));
  EXPECT_TRUE(FileLock::InUse(edits.Set));
  recovery.Forget();
  EXPECT_FALSE(FileLock::InUse(root));
  EXPECT_FALSE(edits.Set.Exists());
  EXPECT_TRUE(CleanOnQuit::RootOf(s.folder.Child("photo.jpg")).IsNil());
}

}  // namespace
}  // namespace brivolant::test
