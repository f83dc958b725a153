// SPDX-License-Identifier: MIT
// The browser without its windows: listings, the shared cache, and the threads behind thumbnails.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSemaphore>
#include <QThread>
#include <QThreadPool>

#include "Helpers.h"
#include "browser/DiskThreads.h"
#include "browser/FilePreview.h"
#include "browser/FolderLister.h"
#include "browser/browserThumbnailGetter.h"
#include "files/NaturalOrder.h"
#include "platform/codecs/Cancellation.h"
#include "platform/codecs/ImageCodecs.h"

namespace brivolant::test {
namespace {

/// As the program does at its end: what reads disks is done before what it uses is taken down.
class Reads final : public testing::Environment {
  void TearDown() override { EXPECT_TRUE(DiskThreads::Finish()); }
};
const auto* const kReads = testing::AddGlobalTestEnvironment(new Reads);

using testing::ElementsAre;
using testing::IsEmpty;

FolderItem WriteJpeg(const FolderItem& file, int width = 400, int height = 300) {
  const std::array<EncodeImage, 1> image{{{TestPicture(width, height), 0.9}}};
  EXPECT_EQ(EncodeImageFile(file, "public.jpeg", image), "");
  return file;
}

/// Handles events until the condition holds; false after half a minute.
bool Until(const std::function<bool()>& condition) {
  static int count = 0;
  static QCoreApplication* application =
      QCoreApplication::instance() == nullptr ? new QCoreApplication(count, nullptr) : nullptr;
  (void)application;
  QElapsedTimer timer;
  timer.start();
  while (!condition()) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    if (timer.elapsed() > 30000) return false;
    QThread::msleep(1);
  }
  return true;
}

BrowserRows Listing(const FolderItem& folder, const FolderLister::Order& order = {}) {
  BrowserRows rows;
  FolderLister::Read(folder, order, [&](std::vector<BrowserRows::Row> part, bool) {
    rows.Merge(std::move(part));
    return true;
  });
  return rows;
}

std::vector<std::string> Names(const BrowserRows& rows) {
  std::vector<std::string> names;
  for (int i = 0; i < rows.Count(); ++i) names.push_back(rows.Name(i));
  return names;
}

TEST(Listing, FoldersFirstThenNamesByTheirNumbers) {
  const TemporaryFolder folder;
  for (const char* name : {"img10.jpg", "IMG2.jpg", "img1.jpg", ".hidden", "\xE9t\xE9.jpg"}) {
    folder.Write(name, "x");
  }
  ASSERT_FALSE(folder.Child("zoo").CreateAsFolder());
  ASSERT_FALSE(folder.Child("app").Child("Contents").CreateAsFolder());
  ASSERT_FALSE(folder.Child("edit.brvPhoto").CreateAsFolder());
  ASSERT_EQ(symlink("gone", folder.Child("link").Path().c_str()), 0);
  FolderLister::Order order;
  order.documentExtension = "brvPhoto";
  const BrowserRows rows = Listing(folder.Item(), order);
  // Names that are no UTF-8 are shown as well as can be, and still reach their file.
  EXPECT_THAT(Names(rows), ElementsAre("zoo", "app", "edit.brvPhoto", "\xC3\xA9t\xC3\xA9.jpg",
                                       "img1.jpg", "IMG2.jpg", "img10.jpg", "link"));
  EXPECT_TRUE(rows.Item(3)->File().Exists());
  EXPECT_EQ(rows.Item(0)->Facts->Is, FileFacts::kFolder);
  EXPECT_EQ(rows.Item(1)->Facts->Is, FileFacts::kPackage);
  EXPECT_EQ(rows.Item(2)->Facts->Is, FileFacts::kDocument);
  EXPECT_EQ(rows.Item(7)->Facts->Is, FileFacts::kAlias);
  EXPECT_EQ(rows.CellText(0, BrowserRows::kSizeColumn), "0 --");
  EXPECT_EQ(rows.CellText(7, BrowserRows::kKindColumn), "Alias");
  EXPECT_EQ(rows.CellText(4, BrowserRows::kSizeColumn), "1 1 b");
  EXPECT_EQ(rows.ShownText(4, BrowserRows::kSizeColumn), "1 b");
  order.hiddenToo = true;
  const BrowserRows all = Listing(folder.Item(), order);
  EXPECT_EQ(all.Count(), 9);
  EXPECT_FALSE(all.Item(1)->Visible() && all.Item(3)->Visible() && all.Item(2)->Visible());
  EXPECT_EQ(Listing(folder.Child("none")).Count(), 0);
}

TEST(Listing, EveryOrderKeepsTheSelectionAndTakesPartsAtTheirPlaces) {
  const TemporaryFolder folder;
  const std::vector<std::pair<const char*, int>> files{
      {"b.jpg", 30}, {"a.png", 20}, {"c.jpg", 10}, {"d.jpg", 20}};
  int age = 0;
  for (const auto& [name, size] : files) {
    const FolderItem file = folder.Write(name, std::string(static_cast<std::size_t>(size), 'x'));
    const timespec when{1000000 + 100 * age++, 0};
    const std::array<timespec, 2> times{when, when};
    ASSERT_EQ(utimensat(AT_FDCWD, file.Path().c_str(), times.data(), 0), 0);
  }
  BrowserRows rows = Listing(folder.Item());
  rows.ListIndex(2);
  rows.Select(0, true);
  struct Case {
    int column;
    bool descending;
    std::vector<std::string> names;
  };
  for (const Case& c :
       {Case{BrowserRows::kNameColumn, true, {"d.jpg", "c.jpg", "b.jpg", "a.png"}},
        Case{BrowserRows::kSizeColumn, false, {"c.jpg", "a.png", "d.jpg", "b.jpg"}},
        Case{BrowserRows::kDateColumn, true, {"d.jpg", "c.jpg", "a.png", "b.jpg"}},
        Case{BrowserRows::kKindColumn, false, {"b.jpg", "c.jpg", "d.jpg", "a.png"}}}) {
    rows.Sort(c.column, c.descending);
    EXPECT_EQ(Names(rows), c.names) << c.column;
    EXPECT_EQ(rows.Name(rows.ListIndex()), "c.jpg");
    std::vector<std::string> selected;
    for (const int row : rows.SelectedRows()) selected.push_back(rows.Name(row));
    EXPECT_THAT(selected, testing::UnorderedElementsAre("a.png", "c.jpg"));
    // The same row by row.
    BrowserRows parts;
    parts.Sort(c.column, c.descending);
    for (const auto& file : files) {
      BrowserRows one = Listing(folder.Item());
      for (int i = one.Count() - 1; i >= 0; --i) {
        if (one.Name(i) != file.first) one.Remove(i);
      }
      std::vector<BrowserRows::Row> part(1);
      part[0].tag = one.Tag(0);
      part[0].key = NaturalOrder().Key(file.first);
      parts.Merge(std::move(part));
    }
    EXPECT_EQ(Names(parts), c.names) << c.column;
  }
}

struct Thumbnails {
  TemporaryFolder folder;
  std::shared_ptr<ThumbnailMaker> maker =
      std::make_shared<ThumbnailMaker>(ThumbnailCache(folder.Child("thumbnails"), "brivolant"));
};

TEST(ThumbnailCache, OnePictureForAFileAndItsLinksUntilTheFileChanges) {
  Thumbnails t;
  const FolderItem file = WriteJpeg(t.folder.Child("a.jpg"));
  ASSERT_EQ(symlink(file.Path().c_str(), t.folder.Child("link.jpg").Path().c_str()), 0);
  const QImage made = t.maker->Make(file, ThumbnailCache::kLarge);
  EXPECT_EQ(made.size(), QSize(256, 192));
  const ThumbnailCache::Key key = ThumbnailCache::KeyOf(file);
  EXPECT_EQ(ThumbnailCache::KeyOf(t.folder.Child("link.jpg")).Hash, key.Hash);
  const FolderItem cached = t.folder.Child("thumbnails").Child("large").Child(key.Hash + ".png");
  ASSERT_TRUE(cached.Exists());
  struct stat status {};
  ASSERT_EQ(stat(cached.Path().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
  const QImage read(QString::fromStdString(cached.ShellPath()));
  EXPECT_EQ(read.text(QStringLiteral("Thumb::URI")).toStdString(), file.URLPath());
  EXPECT_EQ(read.text(QStringLiteral("Thumb::MTime")).toLongLong(), key.Modified);
  EXPECT_EQ(read.convertToFormat(QImage::Format_RGB32), made);

  // A file that is away keeps its picture; one that changed does not.
  ASSERT_FALSE(file.MoveFileTo(t.folder.Child("away.jpg")));
  EXPECT_FALSE(t.maker->Make(file, ThumbnailCache::kLarge).isNull());
  WriteJpeg(file, 300, 300);
  const std::array<timespec, 2> times{timespec{5, 0}, timespec{5, 0}};
  ASSERT_EQ(utimensat(AT_FDCWD, file.Path().c_str(), times.data(), 0), 0);
  EXPECT_EQ(t.maker->Make(file, ThumbnailCache::kLarge).size(), QSize(256, 256));
  EXPECT_EQ(t.folder.Names(),
            (std::vector<std::string>{"a.jpg", "away.jpg", "link.jpg", "thumbnails"}));
}

TEST(ThumbnailCache, FailuresAreRememberedAndOtherFilesLeftAlone) {
  Thumbnails t;
  const FolderItem broken = t.folder.Write("broken.jpg", "\xFF\xD8\xFF\xE0 nothing");
  const FolderItem empty = t.folder.Write("empty.png", "");
  // 100,000 x 100,000 pixels, 40 GB when decoded.
  const FolderItem huge = t.folder.Write(
      "huge.bmp", Bytes("42 4D 00 00 00 00 00 00 00 00 36 00 00 00 28 00 00 00 A0 86 01 00 A0 86 "
                        "01 00 01 00 20 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"));
  for (const FolderItem& file : {broken, empty, huge}) {
    EXPECT_TRUE(t.maker->Make(file, ThumbnailCache::kLarge).isNull()) << file.Name();
    EXPECT_TRUE(t.maker->Cache().Failed(ThumbnailCache::KeyOf(file))) << file.Name();
  }
  const FolderItem text = t.folder.Write("notes.txt", "words");
  EXPECT_TRUE(t.maker->Make(text, ThumbnailCache::kLarge).isNull());
  EXPECT_FALSE(t.maker->Cache().Failed(ThumbnailCache::KeyOf(text)));
  // Given up is not failed.
  const FolderItem good = WriteJpeg(t.folder.Child("good.jpg"));
  {
    const std::atomic<bool> flag = true;
    const DecodeCancellation cancellation(flag);
    EXPECT_TRUE(t.maker->Make(good, ThumbnailCache::kLarge).isNull());
  }
  EXPECT_FALSE(t.maker->Make(good, ThumbnailCache::kLarge).isNull());
}

struct Getter : Thumbnails {
  std::vector<std::string> events;
  browserThumbnailGetter getter{maker};
  std::vector<std::shared_ptr<browserItem>> items;

  explicit Getter(int count) {
    getter.Started = [this] { events.emplace_back("Started"); };
    getter.AddedThumbnail = [this] { events.emplace_back("Added"); };
    getter.Finished = [this] { events.emplace_back("Finished"); };
    for (int i = 0; i < count; ++i) {
      const FolderItem file = WriteJpeg(folder.Child(std::to_string(i) + ".jpg"), 64, 48);
      items.push_back(std::make_shared<browserItem>(file));
    }
    getter.item = items;
  }
  bool Ended() {
    return Until([&] { return !events.empty() && events.back() == "Finished"; });
  }
};

TEST(ThumbnailGetter, EventsKeepTheirOrderAndCountEveryEntryOnce) {
  Getter empty(0);
  empty.getter.Run();
  EXPECT_THAT(empty.events, ElementsAre("Started", "Finished"));

  Getter t(5);
  t.items.push_back(std::make_shared<browserItem>(t.folder.Write("a.txt", "x")));
  t.items.push_back(std::make_shared<browserItem>());
  t.getter.item = t.items;
  t.getter.Run();
  t.getter.InView({t.items[4], t.items[2]});
  EXPECT_EQ(t.getter.State(), browserThumbnailGetter::kRunning);
  ASSERT_TRUE(t.Ended());
  EXPECT_THAT(t.events, ElementsAre("Started", "Added", "Added", "Added", "Added", "Added", "Added",
                                    "Added", "Finished"));
  for (int i = 0; i < 5; ++i) EXPECT_FALSE(t.items[static_cast<std::size_t>(i)]->image.isNull());
  EXPECT_TRUE(t.items[5]->image.isNull());
  EXPECT_EQ(t.getter.State(), browserThumbnailGetter::kNotRunning);
}

TEST(ThumbnailGetter, WhatWasLeftIsNotDelivered) {
  Getter t(40);
  t.getter.Run();
  t.getter.Kill();
  const std::size_t before = t.events.size();
  for (int i = 0; i < 20; ++i) {
    QCoreApplication::processEvents();
    QThread::msleep(5);
  }
  EXPECT_EQ(t.events.size(), before);
  // The next run is whole.
  t.getter.item = t.items;
  t.getter.Run();
  ASSERT_TRUE(t.Ended());
  EXPECT_EQ(std::count(t.events.begin(), t.events.end(), "Added"), 40);
}

TEST(ThumbnailGetter, MemoryIsBoundedAndWhatIsInViewStays) {
  Getter t(12);
  // Room for four pictures of 64 x 48.
  t.getter.Limit(4 * 64 * 48 * 4);
  t.getter.InView({t.items[0], t.items[1]});
  ASSERT_TRUE(Until([&] { return !t.items[0]->image.isNull() && !t.items[1]->image.isNull(); }));
  t.getter.item = t.items;
  t.getter.Run();
  ASSERT_TRUE(t.Ended());
  EXPECT_LE(t.getter.BytesKept(), 4U * 64 * 48 * 4);
  EXPECT_FALSE(t.items[0]->image.isNull());
  EXPECT_FALSE(t.items[1]->image.isNull());
  EXPECT_EQ(std::count_if(t.items.begin(), t.items.end(),
                          [](const auto& item) { return !item->image.isNull(); }),
            4);
  // What was given back comes again when it is looked at.
  const auto gone = std::find_if(t.items.begin(), t.items.end(),
                                 [](const auto& item) { return item->image.isNull(); });
  t.getter.InView({*gone});
  EXPECT_TRUE(Until([&] { return !(*gone)->image.isNull(); }));
}

TEST(ThumbnailGetter, WhatIsInViewStaysHoweverMuchItIsAndIsMadeOnce) {
  Getter t(8);
  // Room for two, and eight in view.
  t.getter.Limit(2 * 64 * 48 * 4);
  t.getter.InView(t.items);
  const auto all = [&] {
    return std::all_of(t.items.begin(), t.items.end(),
                       [](const auto& item) { return !item->image.isNull(); });
  };
  ASSERT_TRUE(Until(all));
  // Every repaint tells what is in view: nothing is made again.
  t.events.clear();
  for (int i = 0; i < 30; ++i) {
    t.getter.InView(t.items);
    QCoreApplication::processEvents();
    QThread::msleep(2);
  }
  EXPECT_TRUE(all());
  EXPECT_THAT(t.events, IsEmpty());
  // Out of view, the bound holds again.
  t.getter.InView({t.items[7]});
  t.getter.item = t.items;
  t.getter.Run();
  ASSERT_TRUE(t.Ended());
  EXPECT_LE(t.getter.BytesKept(), 2U * 64 * 48 * 4);
  EXPECT_FALSE(t.items[7]->image.isNull());
}

TEST(ThumbnailGetter, SmallViewsKeepSmallPicturesAndLargerOnesGetTheirOwn) {
  Thumbnails t;
  const FolderItem file = WriteJpeg(t.folder.Child("a.jpg"), 800, 600);
  browserThumbnailGetter getter(t.maker);
  const auto item = std::make_shared<browserItem>(file);
  struct Case {
    int side;
    QSize size;
  };
  for (const Case& c :
       {Case{16, {64, 48}}, {100, {128, 96}}, {200, {256, 192}}, {300, {512, 384}}}) {
    getter.Side(c.side);
    getter.InView({item});
    ASSERT_TRUE(Until([&] { return item->image.size() == c.size; })) << c.side;
    EXPECT_EQ(getter.BytesKept(), static_cast<std::size_t>(item->image.sizeInBytes()));
  }
  // What is large enough is not made smaller again.
  getter.Side(16);
  getter.InView({item});
  for (int i = 0; i < 20; ++i) QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
  EXPECT_EQ(item->image.width(), 512);
}

TEST(ThumbnailMaker, NamesThatAreNoTextHaveThumbnails) {
  Thumbnails t;
  // Without an ending only the content tells that it is a photo.
  for (const char* name : {"caf\xE9.jpg", "caf\xE8"}) {
    const FolderItem file(t.folder.Item().Path() / name);
    WriteJpeg(t.folder.Child("plain"));
    ASSERT_EQ(rename(t.folder.Child("plain").Path().c_str(), file.Path().c_str()), 0);
    EXPECT_FALSE(t.maker->Make(file, ThumbnailCache::kLarge).isNull()) << name;
    EXPECT_FALSE(
        t.maker->Cache().Find(ThumbnailCache::KeyOf(file), ThumbnailCache::kLarge).isNull());
  }
}

TEST(FolderListing, TellsWhatThePlaceIsAndWaitsForNoneThatIsSilent) {
  const TemporaryFolder folder;
  ASSERT_FALSE(folder.Child("there").CreateAsFolder());
  ASSERT_EQ(symlink("there", folder.Child("link").Path().c_str()), 0);
  ASSERT_EQ(symlink("nowhere", folder.Child("broken").Path().c_str()), 0);
  constexpr int kLong = 20000;
  const auto link = FolderLister::Look(folder.Child("link"), kLong);
  ASSERT_TRUE(link.has_value());
  EXPECT_EQ(link->Real, folder.Child("there"));
  EXPECT_FALSE(link->Gone);
  EXPECT_GT(link->Available, 0U);
  for (const char* name : {"none", "broken"}) {
    const auto gone = FolderLister::Look(folder.Child(name), kLong);
    ASSERT_TRUE(gone.has_value()) << name;
    EXPECT_TRUE(gone->Gone) << name;
  }
  // As long as all threads wait for dead disks.
  QSemaphore go;
  QThreadPool& threads = DiskThreads::For(FolderItem("/"));
  for (int i = 0; i < threads.maxThreadCount(); ++i) threads.start([&go] { go.acquire(); });
  EXPECT_FALSE(FolderLister::Look(folder.Child("there"), 1).has_value());
  go.release(threads.maxThreadCount());
  threads.waitForDone();
}

TEST(PreviewLoader, OnlyTheLastIsDeliveredAndNoneOnceStopped) {
  const TemporaryFolder folder;
  auto previewer = std::make_shared<FilePreviewer>();
  previewer->Own = [](const FolderItem& file, int, bool) -> std::optional<FilePreview> {
    if (file.Name() == "own") return FilePreview{PlainPicture(3, 2, kWhite), {"Mine"}};
    return std::nullopt;
  };
  std::vector<std::string> titles;
  PreviewLoader loader(previewer);
  loader.Loaded = [&](const FilePreview& preview) { titles.push_back(preview.Lines.front()); };
  const FolderItem photo = WriteJpeg(folder.Child("large.jpg"), 2000, 1500);
  loader.Load(photo, 1000, true);
  loader.Load(folder.Write("notes.txt", "x"), 1000, true);
  loader.Load(folder.Write("own", "x"), 1000, true);
  EXPECT_TRUE(loader.Loading());
  ASSERT_TRUE(Until([&] { return !loader.Loading(); }));
  EXPECT_THAT(titles, ElementsAre("Mine"));
  loader.Load(photo, 1000, true);
  loader.Stop();
  QCoreApplication::processEvents();
  EXPECT_FALSE(loader.Loading());
  EXPECT_EQ(titles.size(), 1U);
}

TEST(FilePreview, SaysTheSizeOfThePhotoAsItStands) {
  const EnglishNumbers english;
  const TemporaryFolder folder;
  const FilePreviewer previewer;
  const FilePreview photo = previewer.Of(WriteJpeg(folder.Child("a.jpg"), 2400, 1800), 600, true);
  EXPECT_EQ(photo.Lines.at(1), "JPEG image, 4.3 Megapixel (2400 x 1800)");
  EXPECT_EQ(std::max(photo.Shown.Width(), photo.Shown.Height()), 600);
  EXPECT_THAT(previewer.Of(folder.Child("a.jpg"), 600, false).Lines, IsEmpty());
  // What is broken, and what is no picture, is named and left at that.
  for (const char* name : {"broken.jpg", "notes.txt"}) {
    const FilePreview other = previewer.Of(folder.Write(name, "words"), 600, true);
    EXPECT_TRUE(other.Shown.IsNil());
    EXPECT_EQ(other.Lines.size(), 2U);
    EXPECT_EQ(other.Lines.front(), name);
  }
}

TEST(FolderListing, ArrivesOnTheMainThreadAndNotAtAllOnceStopped) {
  const TemporaryFolder folder;
  for (int i = 0; i < 50; ++i) folder.Write(std::to_string(i), "x");
  FolderLister lister;
  int rows = 0;
  bool done = false;
  lister.Listed = [&](std::vector<BrowserRows::Row> part, bool last) {
    rows += static_cast<int>(part.size());
    done = last;
  };
  lister.List(folder.Item(), {}, 0);
  lister.Stop();
  EXPECT_FALSE(lister.Running());
  // A quick thread was done before the stop; after it nothing arrives but of the second run.
  const int before = std::exchange(rows, 0);
  EXPECT_THAT(before, testing::AnyOf(0, 50));
  done = false;
  lister.List(folder.Item(), {}, 5000);
  EXPECT_TRUE(Until([&] { return done; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(rows, 50);
}

TEST(BrowserItems, WithoutAFileAndWithEachWrappedKind) {
  const browserItem empty;
  EXPECT_EQ(empty.Name, "");
  EXPECT_TRUE(std::holds_alternative<std::monostate>(empty.item));
  EXPECT_TRUE(empty.Visible());
  EXPECT_FALSE(browserItem(FolderItem("/tmp/.secret")).Visible());
  BrowserRows rows;
  EXPECT_FALSE(rows.AddItem(std::monostate()));
  EXPECT_FALSE(rows.AddItem(std::make_shared<iPhotoItem>()));
  EXPECT_TRUE(rows.AddItem(std::make_shared<browserItemCollection>()));
  EXPECT_EQ(rows.CellText(0, BrowserRows::kSizeColumn), "0 0 Items");
  auto roll = std::make_shared<iPhotoRoll>();
  roll->item.push_back(std::make_shared<iPhotoItem>());
  EXPECT_TRUE(rows.AddItem(roll));
  EXPECT_EQ(rows.CellText(1, BrowserRows::kSizeColumn), "1 1 Item");
  EXPECT_EQ(rows.CellText(1, BrowserRows::kKindColumn), "iPhoto Event");
  const VolumeItem root(FolderItem("/"));
  auto volume = std::make_shared<browserItem>();
  volume->Name = "Disk";
  volume->item = root;
  EXPECT_TRUE(rows.AddItem(volume));
  // Nothing is asked of a disk to paint its row.
  for (const int column : {1, 2, 3}) EXPECT_EQ(rows.CellText(2, column), "");
  volume->Volume = {true, false, root.Media(), root.Capacity(), 86400};
  EXPECT_EQ(rows.CellText(2, BrowserRows::kKindColumn), root.Media());
  EXPECT_THAT(rows.CellText(2, BrowserRows::kSizeColumn),
              testing::StartsWith(std::to_string(root.Capacity()) + " "));
  EXPECT_EQ(rows.CellText(2, BrowserRows::kDateColumn).find(' '), 14U);
}

}  // namespace
}  // namespace brivolant::test
