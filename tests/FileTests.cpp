// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <atomic>
#include <csignal>
#include <thread>

#include "Helpers.h"
#include "files/FolderitemExtensions.h"
#include "files/VolumeItem.h"
#include "formats/FileTypes.h"
#include "platform/files/AtomicFile.h"

namespace brivolant::test {
namespace {

namespace fx = FolderitemExtensions;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(FileFormat, ByContentThenByName) {
  TemporaryFolder folder;
  std::string late(417, 'x');
  std::string tagged(300, 'y');
  tagged.replace(tagged.size() - 128, 3, "TAG");
  const std::array<std::pair<std::string, const char*>, 24> cases{{
      {Bytes("FFD8FFE0 0010"), "JPG"},
      {Bytes("FFD8FFE1"), "JPG"},
      {Bytes("49492A00"), "TIF"},
      {Bytes("4D4D002A"), "TIF"},
      {"<?xml version", "XML"},
      {"GIF89a", "GIF"},
      {"%PDF-1.4", "PDF"},
      {"8BPS", "PSD"},
      {"RIFF....AVI LIST", "AVI"},
      {"RIFF....WAVEfmt ", "WAV"},
      {"RIFF....WEBPVP8 ", "dat"},
      {Bytes("89504E470D0A1A0A"), "PNG"},
      {Bytes("89504E470D0A1A0B"), "dat"},
      {"{\\rtf1", "RTF"},
      {Bytes("3026B2758E66CF11A6D900AA0062CE6C"), "ASF"},
      {Bytes("FFFB9000"), "MP3"},
      {late + Bytes("FFFB"), "MP3"},
      {"ID3v2", "MP3"},
      {tagged, "MP3"},
      {"BM....", "BMP"},
      {"\x01\x01\x01\x01"
       "ftypmp42",
       "MP4"},
      {"\x01\x01\x01\x01"
       "ftypqt  ",
       "MOV"},
      {"\x01\x01\x01\x01"
       "moov",
       "MOV"},
      {"#!AMR", "AMR"},
  }};
  for (const auto& [bytes, kind] : cases) {
    EXPECT_EQ(fx::FileFormat(folder.Write("a.dat x", bytes)), kind);
  }
  EXPECT_EQ(fx::FileFormat(folder.Write("plain", "")), "");
  EXPECT_EQ(fx::FileFormat(folder.Child("missing")), "NILBINARYSTREAM");
  EXPECT_EQ(fx::FileBaseType(folder.Write("a", "GIF89a")), "Image");
  EXPECT_EQ(fx::FileBaseType(folder.Write("a", "#!AMR")), "Sound");
  EXPECT_EQ(fx::FileBaseType(folder.Write("a", "8BPS")), "Image");
  EXPECT_EQ(fx::FileBaseType(folder.Write("a.mov", "")), "Movie");
  EXPECT_EQ(fx::FileBaseType(folder.Write("a", "%PDF-")), "");
}

TEST(FileIdentity, NamesTypesAndPackages) {
  const EnglishNumbers english;
  const auto item = [](const char* name) { return FolderItem(std::string("/p/") + name); };
  EXPECT_EQ(fx::FileExtension(item("a.b.jpg")), "jpg");
  EXPECT_EQ(fx::FileExtension(item("a")), "");
  EXPECT_EQ(fx::FileNameWithoutExtension(item("a.b.jpg")), "a.b");
  EXPECT_EQ(fx::FileNameWithoutExtension(item("a.")), "a.");
  EXPECT_TRUE(fx::isFileType(item("x.JPE"), &ImagesWritableMac::Jpeg));
  EXPECT_FALSE(fx::isFileType(item("x.jp"), &ImagesWritableMac::Jpeg));
  EXPECT_FALSE(fx::isFileType(item("x"), &ImagesWritableMac::Jpeg));
  EXPECT_FALSE(fx::isFileType({}, &ImagesWritableMac::Jpeg));
  EXPECT_FALSE(fx::isFileType(item("x.jpg"), nullptr));
  EXPECT_EQ(fx::fixShellPath("/a\\ b\\(1\\)"), "/a b(1)");

  TemporaryFolder folder;
  const FolderItem package = folder.Child("p.brvPhoto");
  ASSERT_FALSE(package.Child("Contents").CreateAsFolder());
  EXPECT_TRUE(fx::Package(package));
  EXPECT_FALSE(fx::Package(folder.Item()));
  const FolderItem link = folder.Child("link");
  ASSERT_TRUE(fx::MakeAlias(package, link));
  EXPECT_TRUE(fx::OriginalFile(link) == package);
  EXPECT_EQ(fx::Kind(folder.Write("a.png", Bytes("89504E470D0A1A0A"))), "PNG image");
  EXPECT_EQ(fx::UnixPath(link), link.ShellPath());
  EXPECT_GT(fx::Volume(link).Capacity(), 0U);
  EXPECT_EQ(fx::Volume(link).Media(), "Hard Drive");
}

TEST(FileTexts, SizesAndDates) {
  const EnglishNumbers english;
  EXPECT_EQ(fx::AsFileSize(1023, ".00"), "1,023 b");
  EXPECT_EQ(fx::AsFileSize(1024, ".00"), "1 KB");
  EXPECT_EQ(fx::AsFileSize(1572864, ".00"), "1.50 MB");
  EXPECT_EQ(fx::AsFileSize(1572864, ""), "2 MB");
  EXPECT_EQ(fx::AsFileSize(-5368709120.0, ".0"), "-5.0 GB");
  EXPECT_EQ(fx::AsFileSize(1234.0 * 1099511627776.0, ""), "1,234 TB");

  const Date now{2026, 11, 24, 12, 0, 0};
  const auto word = [&](Date date) {
    date.Hour = 14;
    date.Minute = 5;
    const std::string text = fx::RelativeDateTime(date, now);
    EXPECT_THAT(text, HasSubstr(":05"));
    return text.substr(0, text.find(" at "));
  };
  EXPECT_EQ(word({2026, 11, 24}), "Today");
  EXPECT_EQ(word({2026, 11, 23}), "Yesterday");
  EXPECT_EQ(word({2026, 11, 25}), "Tomorrow");
  EXPECT_EQ(word({2026, 11, 17}), "Tuesday");
  EXPECT_EQ(word({2026, 12, 25}), "Friday") << "days ahead are told by weekday";
  EXPECT_THAT(word({2026, 11, 16}), HasSubstr("16"));

  BinaryStream stream("\x01\xAB\xFF");
  EXPECT_EQ(fx::ReadAsHex(stream, 2), "01AB");
  EXPECT_EQ(fx::ReadAsHex(stream, 9), "FF");
}

TEST(Trash, NamesDoNotMeetAndTheOriginIsRecorded) {
  TemporaryFolder home;
  setenv("XDG_DATA_HOME", home.Child("data").ShellPath().c_str(), 1);
  for (const char* content : {"1", "2", "3"}) {
    ASSERT_TRUE(fx::MoveToTrash(home.Write("a b.jpg", content)));
  }
  const FolderItem files = home.Child("data").Child("Trash").Child("files");
  EXPECT_EQ(std::filesystem::status(files.Parent().Path()).permissions(),
            std::filesystem::perms::owner_all);
  EXPECT_EQ(ReadFile(files.Child("a b.jpg")), "1");
  EXPECT_EQ(ReadFile(files.Child("a b-1.jpg")), "2");
  EXPECT_EQ(ReadFile(files.Child("a b-2.jpg")), "3");
  const auto info =
      ReadFile(home.Child("data").Child("Trash").Child("info").Child("a b-1.jpg.trashinfo"));
  EXPECT_THAT(info.value(), HasSubstr("/a%20b.jpg\nDeletionDate="));
  EXPECT_FALSE(fx::MoveToTrash(home.Child("missing")));
  EXPECT_FALSE(home.Child("a b.jpg").Exists());
}

struct MemoryClipboard final : Clipboard {
  std::string type;
  std::string data;
  std::string text;
  bool Has(std::string_view mimeType) const override { return type == mimeType; }
  std::string Data(std::string_view) const override { return data; }
  void Set(std::string_view t, std::string_view mimeType, std::string_view d) override {
    text = t;
    type = mimeType;
    data = d;
  }
};

TEST(ClipboardFiles, ComeBack) {
  MemoryClipboard clipboard;
  EXPECT_FALSE(fx::FolderItemAvailable(clipboard));
  fx::FolderItem(clipboard, FolderItem("/a b/caf\xC3\xA9 #1.jpg"));
  EXPECT_EQ(clipboard.text, "caf\xC3\xA9 #1.jpg");
  EXPECT_TRUE(fx::FolderItemAvailable(clipboard));
  EXPECT_EQ(fx::FolderItem(clipboard).ShellPath(), "/a b/caf\xC3\xA9 #1.jpg");
  clipboard.data = "# comment\r\nhttp://x.example/\r\n";
  EXPECT_TRUE(fx::FolderItem(clipboard).IsNil());
}

TEST(Validate, TellsWhatIsWrong) {
  TemporaryFolder folder;
  const FolderItem file = folder.Write("a.jpg", "x");
  const FolderItem dead = folder.Child("dead.jpg");
  ASSERT_TRUE(fx::MakeAlias(folder.Child("gone"), dead));
  struct Case {
    FolderItem file;
    fx::FileAction action;
    const FileType* type;
    const char* message;
    const char* explanation;
  };
  const FileType* jpeg = &ImagesWritableMac::Jpeg;
  const FileType* png = &ImagesWritableMac::PNG;
  for (const Case& c : {
           Case{file, fx::kRead, jpeg, nullptr, ""},
           Case{file, fx::kSave, nullptr, nullptr, ""},
           Case{folder.Child("new.jpg"), fx::kSave, jpeg, nullptr, ""},
           Case{{},
                fx::kRead,
                nullptr,
                "Brivolant Photos Was Unable To Open The File",
                "Please check that the file still exists"},
           Case{file, fx::kRead, png, "Unable To Open The File \"a.jpg\".",
                "because the file is not a PNG image file"},
           Case{dead, fx::kRead, nullptr, "\"dead.jpg\"", "is a broken alias file"},
           Case{folder.Child("b"), fx::kRead, nullptr, "\"b\"",
                "because the file no longer exists"},
           Case{folder.Child("no").Child("b"), fx::kSave, nullptr, "Unable To Save",
                "The folder or disk that this file was in"},
           Case{folder.Item(), fx::kSave, nullptr, "Unable To Save",
                "a folder with the same name already exists"},
       }) {
    RecordingDialogs dialogs;
    const bool usable = fx::Validate(c.file, c.action, c.type, dialogs);
    EXPECT_EQ(usable, c.message == nullptr) << c.file.ShellPath();
    ASSERT_EQ(dialogs.messages.size(), usable ? 0U : 1U);
    if (usable) continue;
    EXPECT_THAT(dialogs.messages[0], HasSubstr(c.message));
    EXPECT_THAT(dialogs.explanations[0], HasSubstr(c.explanation));
    EXPECT_THAT(dialogs.explanations[0], Not(HasSubstr("..")));
  }
}

TEST(AtomicFile, TheOldContentStaysUntilTheNewIsWhole) {
  TemporaryFolder folder;
  const FolderItem file = folder.Write("a.txt", "old");
  {
    AtomicFile abandoned(file);
    ASSERT_FALSE(abandoned.Write("half"));
    EXPECT_EQ(ReadFile(file), "old");
  }
  EXPECT_THAT(folder.Names(), ElementsAre("a.txt"));
  std::filesystem::permissions(
      file.Path(), std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  const FolderItem link = folder.Child("link");
  ASSERT_TRUE(fx::MakeAlias(file, link));
  EXPECT_FALSE(WriteFileAtomically(link, "new"));
  EXPECT_EQ(ReadFile(file), "new") << "a link still points where it did";
  EXPECT_TRUE(link.Alias());
  EXPECT_EQ(std::filesystem::status(file.Path()).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
  EXPECT_TRUE(WriteFileAtomically(FolderItem("/proc/none"), "x"));
}

TEST(AtomicFile, NewFilesAreAsOpenAsTheUserWantsHoweverManyAreWritten) {
  TemporaryFolder folder;
  constexpr mode_t kMask = 027;
  constexpr int kThreads = 8;
  constexpr int kFiles = 800;
  const mode_t before = umask(kMask);
  std::atomic<int> others = 0;
  {
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
      threads.emplace_back([file = folder.Child(std::to_string(thread)), &others] {
        for (int i = 0; i < kFiles; ++i) {
          struct stat status {};
          const bool written = !WriteFileAtomically(file, "x") &&
                               stat(file.Path().c_str(), &status) == 0 && !file.Delete();
          if (!written || (status.st_mode & 0777) != (0666 & ~kMask)) ++others;
        }
      });
    }
  }
  EXPECT_EQ(umask(before), kMask);
  EXPECT_EQ(others, 0);
}

TEST(AtomicFile, AFullDiskChangesNothing) {
  TemporaryFolder folder;
  const FolderItem file = folder.Write("a.txt", "old");
  const auto before = std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  const rlimit small{1000, limit.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  const std::error_code error = WriteFileAtomically(file, std::string(100000, 'x'));
  setrlimit(RLIMIT_FSIZE, &limit);
  std::signal(SIGXFSZ, before);
  EXPECT_TRUE(error);
  EXPECT_EQ(ReadFile(file), "old");
  EXPECT_THAT(folder.Names(), ElementsAre("a.txt"));
}

TEST(Volume, EjectTellsOrLogs) {
  struct FakeDesktop final : Desktop {
    std::string answer;
    bool Reveal(const FolderItem&) override { return true; }
    std::string Eject(const FolderItem&) override { return answer; }
    bool SetPicture(const FolderItem&) override { return false; }
  } desktop;
  RecordingDialogs dialogs;
  RecordingLog log;
  const VolumeItem volume(FolderItem("/"));
  EXPECT_TRUE(volume.Eject(desktop, dialogs, log));
  desktop.answer = "busy";
  EXPECT_FALSE(volume.Eject(desktop, dialogs, log));
  EXPECT_THAT(dialogs.messages.at(0), HasSubstr("couldn't be ejected at the moment"));
  desktop.answer = "-36";
  EXPECT_FALSE(volume.Eject(desktop, dialogs, log));
  EXPECT_THAT(log.lines.at(0), HasSubstr("because of error: -36"));
  // Somebody may be writing to the disk between two looks at it.
  bool agree = false;
  for (int i = 0; i < 1000 && !agree; ++i) {
    agree = volume.UsedSpace() + volume.AvailableSpace() == volume.Capacity();
  }
  EXPECT_TRUE(agree);
}

}  // namespace
}  // namespace brivolant::test
