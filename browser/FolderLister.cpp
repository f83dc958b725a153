// SPDX-License-Identifier: MIT
#include "browser/FolderLister.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QThreadPool>
#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>

#include "browser/DiskThreads.h"
#include "browser/PhotoFactsCache.h"
#include "files/FolderitemExtensions.h"
#include "files/NaturalOrder.h"
#include "files/VolumeItem.h"

namespace brivolant {
namespace {

/// Milliseconds after which a slow listing shows what it has.
constexpr qint64 kPart = 250;
/// Entries between two looks at whether the listing is still wanted.
constexpr std::size_t kLook = 512;

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

}  // namespace

FileFacts FolderLister::FactsOf(int folder, const char* entry,
                                const std::string& documentExtension) {
  FileFacts facts;
  const std::string_view name = entry;
  facts.Hidden = name.starts_with('.');
  struct stat status {};
  if (fstatat(folder, entry, &status, AT_SYMLINK_NOFOLLOW) != 0) return facts;
  facts.Size = static_cast<std::uint64_t>(std::max<off_t>(status.st_size, 0));
  facts.Modified = status.st_mtim.tv_sec;
  if (S_ISLNK(status.st_mode)) {
    facts.Is = FileFacts::kAlias;
  } else if (S_ISDIR(status.st_mode)) {
    facts.Is = FileFacts::kFolder;
    const std::size_t dot = name.rfind('.');
    if (dot != std::string_view::npos &&
        EqualIgnoringCase(name.substr(dot + 1), documentExtension)) {
      facts.Is = FileFacts::kDocument;
    } else {
      struct stat contents {};
      const std::string inside = std::string(name) + "/Contents";
      if (fstatat(folder, inside.c_str(), &contents, AT_SYMLINK_NOFOLLOW) == 0 &&
          S_ISDIR(contents.st_mode)) {
        facts.Is = FileFacts::kPackage;
      }
    }
  }
  return facts;
}

namespace {

FolderLister::Place Inspect(const FolderItem& folder) {
  FolderLister::Place place;
  place.Real = FolderitemExtensions::OriginalFile(folder);
  place.Gone = !place.Real.Directory();
  place.Closed = !place.Gone && access(place.Real.Path().c_str(), R_OK | X_OK) != 0;
  if (!place.Gone) place.Available = VolumeItem(place.Real).AvailableSpace();
  return place;
}

/// What a question about a place's file system brings, unless it takes longer than `patience`
/// milliseconds.
template <typename Answer>
std::optional<Answer> Ask(const FolderItem& place, int patience, std::function<Answer()> question) {
  struct Asked {
    std::mutex mutex;
    std::condition_variable arrived;
    std::optional<Answer> answer;
  };
  const auto asked = std::make_shared<Asked>();
  DiskThreads::For(place).start([asked, question = std::move(question)] {
    Answer answer = question();
    const std::lock_guard lock(asked->mutex);
    asked->answer = std::move(answer);
    asked->arrived.notify_all();
  });
  std::unique_lock lock(asked->mutex);
  asked->arrived.wait_for(lock, std::chrono::milliseconds(patience),
                          [&] { return asked->answer.has_value(); });
  return asked->answer;
}

}  // namespace

std::optional<FolderLister::Place> FolderLister::Look(const FolderItem& folder, int patience) {
  return Ask<Place>(folder, patience, [folder] { return Inspect(folder); });
}

std::optional<FolderItem> FolderLister::Standing(const FolderItem& place, int patience) {
  return Ask<FolderItem>(place, patience, [place] {
    FolderItem standing = place;
    while (standing && Inspect(standing).Gone) standing = standing.Parent();
    return standing;
  });
}

struct FolderLister::Work {
  std::mutex mutex;
  std::condition_variable arrived;
  std::atomic<bool> stopped = false;
  std::vector<std::vector<BrowserRows::Row>> parts;
  Place found;
  bool done = false;
};

FolderLister::~FolderLister() {
  Stop();
}

void FolderLister::Stop() {
  if (work_) {
    const std::lock_guard lock(work_->mutex);
    work_->stopped = true;
  }
  work_.reset();
}

void FolderLister::Read(
    const FolderItem& folder, const Order& order,
    const std::function<bool(std::vector<BrowserRows::Row> rows, bool done)>& part) {
  const std::unique_ptr<DIR, CloseFolder> open(opendir(folder.Path().c_str()));
  std::vector<BrowserRows::Row> rows;
  std::optional<PhotoFactsCache::Folder> facts;
  if (order.facts && open) facts.emplace(*order.facts, folder);
  // What is known of photos, and then the order; false once the listing is given up.
  const auto sort = [&] {
    if (facts) {
      std::vector<std::shared_ptr<browserItem>> items;
      items.reserve(rows.size());
      for (const auto& row : rows) items.push_back(std::get<std::shared_ptr<browserItem>>(row.tag));
      if (!facts->Fill(items, [&] { return part({}, false); })) return false;
    }
    BrowserRows::Sort(rows, order.column, order.descending);
    return true;
  };
  if (open) {
    const NaturalOrder natural;
    const int descriptor = dirfd(open.get());
    QElapsedTimer since;
    since.start();
    while (const dirent* entry = readdir(open.get())) {
      const std::string_view name = entry->d_name;
      if (name == "." || name == "..") continue;
      if (name.starts_with('.') && !order.hiddenToo) continue;
      const FolderItem file = FolderItem::Entry(folder, name);
      auto item = std::make_shared<browserItem>();
      item->Name = EnsureUTF8(name);
      item->item = file;
      item->Facts = FactsOf(descriptor, entry->d_name, order.documentExtension);
      auto key = natural.Key(item->Name);
      rows.push_back({std::move(item), false, std::move(key)});
      if (rows.size() % kLook == 0 && !part({}, false)) return;
      if (since.elapsed() < kPart) continue;
      if (!sort()) return;
      if (!part(std::exchange(rows, {}), false)) return;
      since.restart();
    }
  }
  if (!sort()) return;
  if (part(std::move(rows), true) && facts) facts->ForgetOthers();
}

void FolderLister::List(const FolderItem& folder, const Order& order, int patience) {
  Stop();
  auto work = std::make_shared<Work>();
  work_ = work;
  found_.reset();
  DiskThreads::For(folder).start([this, work, folder, order] {
    Place found = Inspect(folder);
    Read(found.Real, order, [&](std::vector<BrowserRows::Row> rows, bool done) {
      const std::lock_guard lock(work->mutex);
      if (work->stopped) return false;
      if (rows.empty() && !done) return true;
      work->parts.push_back(std::move(rows));
      work->done = done;
      if (done) work->found = std::move(found);
      work->arrived.notify_all();
      QMetaObject::invokeMethod(
          this, [this, work] { Deliver(work); }, Qt::QueuedConnection);
      return true;
    });
  });
  std::unique_lock lock(work->mutex);
  const bool quick =
      work->arrived.wait_for(lock, std::chrono::milliseconds(patience), [&] { return work->done; });
  lock.unlock();
  if (quick) Deliver(work);
}

void FolderLister::Deliver(const std::shared_ptr<Work>& work) {
  if (work != work_) return;
  std::vector<std::vector<BrowserRows::Row>> parts;
  bool done = false;
  {
    const std::lock_guard lock(work->mutex);
    parts = std::exchange(work->parts, {});
    done = work->done;
    if (done) found_ = work->found;
  }
  if (done) work_.reset();
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (Listed) Listed(std::move(parts[i]), done && i + 1 == parts.size());
  }
}

}  // namespace brivolant
