// SPDX-License-Identifier: MIT
// Promises of saving, tested by ending the program at any moment.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <ctime>

#include "Helpers.h"
#include "formats/BrivolantDocument.h"
#include "formats/PictureStrings.h"
#include "platform/files/AtomicFile.h"
#include "platform/services/Preferences.h"

namespace brivolant::test {
namespace {

/// Runs `work` over and over in a child process, and kills it a moment after its first round.
template <class Work>
void KilledAfter(int microseconds, Work work) {
  std::array<int, 2> rounds{};
  ASSERT_EQ(pipe(rounds.data()), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    for (int n = 0;; ++n) {
      work(n);
      if (n == 0 && write(rounds[1], "x", 1) != 1) _exit(1);
    }
  }
  close(rounds[1]);
  char first = 0;
  ASSERT_EQ(read(rounds[0], &first, 1), 1) << "the child must not end by itself";
  const timespec moment{0, microseconds * 1000L};
  nanosleep(&moment, nullptr);
  kill(child, SIGKILL);
  int status = 0;
  waitpid(child, &status, 0);
  close(rounds[0]);
  ASSERT_TRUE(WIFSIGNALED(status));
}

TEST(Crash, AFileIsTheOldOrTheNewOne) {
  TemporaryFolder folder;
  const FolderItem file = folder.Write("a", std::string(200000, 'x'));
  for (int i = 0; i < 40; ++i) {
    KilledAfter(200 + i * 137, [&](int n) {
      (void)WriteFileAtomically(file, std::string(200000, static_cast<char>('a' + n % 26)));
    });
    const std::string bytes = *ReadFile(file);
    ASSERT_EQ(bytes.size(), 200000U);
    ASSERT_EQ(bytes.find_first_not_of(bytes.front()), std::string::npos) << "two writes mixed";
  }
}

TEST(Crash, ADocumentCanAlwaysBeOpened) {
  TestServices s;
  const FolderItem image = s.folder.Write("a.png", PngExporter().SaveToString(TestPicture(60, 40)));
  BrivolantDocument document(s.services);
  ASSERT_TRUE(document.ReadImage(image));
  ASSERT_TRUE(document.Save(s.folder.Child("d.brvPhoto")));
  for (int i = 0; i < 25; ++i) {
    BrivolantDocument open(s.services);
    ASSERT_TRUE(open.Load(s.folder.Child("d.brvPhoto"))) << open.lastErrorMessage;
    open.PreviewAfter = {};
    KilledAfter(500 + i * 211, [&](int n) {
      open.StyleData = std::string(30000, static_cast<char>('a' + n % 26));
      open.Rotation = n % 4;
      open.Save();
    });
    BrivolantDocument after(s.services);
    ASSERT_TRUE(after.Load(s.folder.Child("d.brvPhoto"))) << after.lastErrorMessage;
    ASSERT_EQ(after.StyleData.find_first_not_of(after.StyleData.empty() ? 'a' : after.StyleData[0]),
              std::string::npos);
    ASSERT_FALSE(after.ImageOriginal().IsNil());
  }
}

TEST(Crash, ANewPackageIsWholeOrNotThere) {
  TestServices s;
  const FolderItem image = s.folder.Write("a.png", PngExporter().SaveToString(TestPicture(90, 90)));
  BrivolantDocument document(s.services);
  ASSERT_TRUE(document.ReadImage(image));
  for (int i = 0; i < 25; ++i) {
    const std::string name = "n" + std::to_string(i) + "-";
    KilledAfter(300 + i * 173, [&](int n) {
      document.Save(s.folder.Child(name + std::to_string(n) + ".brvPhoto"));
    });
  }
  int packages = 0;
  for (const FolderItem& child : s.folder.Item().Children()) {
    if (child.Name().starts_with('.') || !child.Directory()) continue;
    BrivolantDocument after(s.services);
    ASSERT_TRUE(after.Load(child)) << child.Name() << ": " << after.lastErrorMessage;
    ASSERT_FALSE(after.ImageOriginal().IsNil()) << child.Name();
    ++packages;
  }
  EXPECT_GE(packages, 25) << "the first of each round was finished";
}

TEST(Crash, SettingsKeepTheirOtherKeys) {
  TemporaryFolder folder;
  RecordingLog log;
  {
    Preferences preferences("id", folder.Item(), log);
    preferences.Assign("kept", "for ever");
    preferences.Synchronize();
  }
  for (int i = 0; i < 25; ++i) {
    KilledAfter(300 + i * 151, [&](int n) {
      Preferences preferences("id", folder.Item(), log);
      preferences.Assign("counter", n);
      preferences.Assign("long", std::string(5000, 'y'));
      preferences.Synchronize();
    });
    ASSERT_EQ(Preferences("id", folder.Item(), log).Value("kept").ToText(), "for ever");
  }
  EXPECT_TRUE(log.lines.empty());
}

}  // namespace
}  // namespace brivolant::test
