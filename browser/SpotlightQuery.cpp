// SPDX-License-Identifier: MIT
#include "browser/SpotlightQuery.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <QElapsedTimer>
#include <QStandardPaths>
#include <QThread>
#include <QThreadPool>
#include <algorithm>
#include <array>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <set>
#include <unordered_set>

#include "browser/FolderLister.h"
#include "browser/SearchIndex.h"
#include "browser/SearchText.h"
#include "browser/SideBarItem.h"
#include "files/FolderitemExtensions.h"
#include "files/NaturalOrder.h"

namespace brivolant {
namespace {

/// Milliseconds between two reports of progress.
constexpr int kProgress = 200;
/// Folders of the system: nobody keeps photos there, and they are half of a disk's files.
constexpr std::array<std::string_view, 17> kSystem{
    "/bin", "/boot", "/dev", "/etc",  "/lib", "/lib32", "/lib64", "/libx32", "/lost+found",
    "/opt", "/proc", "/run", "/sbin", "/sys", "/tmp",   "/usr",   "/var"};

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

std::vector<std::string> EverythingOfTheUser() {
  std::vector<std::string> roots{
      QStandardPaths::writableLocation(QStandardPaths::HomeLocation).toStdString(), "/"};
  for (const FolderItem& volume : SideBarSources::MountedVolumes()) {
    roots.push_back(volume.ShellPath());
  }
  return roots;
}

}  // namespace

/// What the threads of one search share.
struct SpotlightQuery::Work {
  explicit Work(const std::string& query) : text(query), query(query) {}
  SpotlightQuery* owner = nullptr;
  SearchText text;
  std::string query;
  std::string documentExtension;
  /// Given up: nothing is reported. Finished: what there is is reported.
  std::atomic<bool> ended = false;
  std::atomic<bool> finished = false;
  std::atomic<bool> paused = false;

  std::mutex mutex;
  std::condition_variable changed;
  std::vector<std::string> folders;
  int working = 0;
  /// Devices and numbers of the folders that were gone into, so that none is twice.
  std::set<std::pair<dev_t, ino_t>> seen;
  std::unordered_set<std::string> paths;
  std::vector<SpotlightItem> hits;
  QElapsedTimer since;

  bool Wanted() const { return !ended && !finished; }
};

SpotlightQuery::~SpotlightQuery() {
  Stop();
}

void SpotlightQuery::Stop() {
  if (work_) {
    const std::lock_guard lock(work_->mutex);
    work_->ended = true;
    work_->owner = nullptr;
    work_->paused = false;
    work_->changed.notify_all();
  }
  work_.reset();
}

void SpotlightQuery::Finish() {
  if (!work_) return;
  const std::lock_guard lock(work_->mutex);
  work_->finished = true;
  work_->paused = false;
  work_->changed.notify_all();
}

void SpotlightQuery::Pause() {
  if (work_) work_->paused = true;
}

void SpotlightQuery::Resume() {
  if (!work_) return;
  const std::lock_guard lock(work_->mutex);
  work_->paused = false;
  work_->changed.notify_all();
}

void SpotlightQuery::Run() {
  Stop();
  completed_ = false;
  items_.clear();
  work_ = std::make_shared<Work>(Query);
  work_->owner = this;
  work_->documentExtension = DocumentExtension;
  for (const FolderItem& root : Roots) work_->folders.push_back(root.ShellPath());
  work_->since.start();
  FolderLister::Threads().start([work = work_] { Search(work); });
}

void SpotlightQuery::Search(const std::shared_ptr<Work>& work) {
  // An index knows the whole computer; given folders are walked.
  if (work->folders.empty()) {
    const bool answered = AskIndexes(*work);
    if (!answered && work->Wanted()) work->folders = EverythingOfTheUser();
  }
  if (!work->folders.empty()) {
    std::vector<std::unique_ptr<QThread>> helpers;
    for (int i = 1; i < QThread::idealThreadCount(); ++i) {
      helpers.emplace_back(QThread::create([&] { Walk(*work); }))->start();
    }
    Walk(*work);
    for (const auto& helper : helpers) helper->wait();
  }
  const NaturalOrder natural;
  std::vector<std::pair<QCollatorSortKey, std::size_t>> order;
  for (std::size_t i = 0; i < work->hits.size(); ++i) {
    order.emplace_back(natural.Key(work->hits[i].Row()->Name), i);
  }
  std::stable_sort(order.begin(), order.end(),
                   [](const auto& a, const auto& b) { return a.first.compare(b.first) < 0; });
  std::vector<SpotlightItem> sorted;
  sorted.reserve(order.size());
  for (const auto& [key, index] : order) sorted.push_back(std::move(work->hits[index]));
  const std::lock_guard lock(work->mutex);
  work->hits = std::move(sorted);
  if (work->owner == nullptr) return;
  QMetaObject::invokeMethod(
      work->owner, [owner = work->owner, work] { owner->Report(work); }, Qt::QueuedConnection);
}

void SpotlightQuery::Report(const std::shared_ptr<Work>& work) {
  if (work != work_) return;
  items_ = std::move(work->hits);
  work_.reset();
  completed_ = true;
  if (Completed) Completed();
}

bool SpotlightQuery::AskIndexes(Work& work) {
  const auto add = [&](const std::vector<FolderItem>& files) {
    for (const FolderItem& file : files) {
      if (!work.Wanted()) return;
      const std::string name = file.Name();
      const FileFacts facts =
          FolderLister::FactsOf(AT_FDCWD, file.Path().c_str(), work.documentExtension);
      // What has gone since it was indexed is no hit.
      if (!work.text.In(name) || facts.Modified == 0) continue;
      Add(work, file, facts);
    }
  };
  if (const auto files = SearchIndex::AskLocalSearch(work.query, work.ended)) {
    add(*files);
    // An index of a few folders may know nothing where there is something.
    if (!work.hits.empty()) return true;
  }
  if (work.Wanted()) add(SearchIndex::AskBaloo(work.query));
  return false;
}

void SpotlightQuery::Add(Work& work, const FolderItem& file, const FileFacts& facts) {
  auto row = std::make_shared<browserItem>(file);
  row->Facts = facts;
  const std::lock_guard lock(work.mutex);
  if (work.paths.insert(file.ShellPath()).second) work.hits.emplace_back(std::move(row));
}

void SpotlightQuery::WalkFolder(Work& work, const std::string& folder,
                                std::vector<std::string>& inside) {
  const std::unique_ptr<DIR, CloseFolder> open(opendir(folder.c_str()));
  if (!open) return;
  const int descriptor = dirfd(open.get());
  struct stat status {};
  if (fstat(descriptor, &status) != 0) return;
  {
    const std::lock_guard lock(work.mutex);
    if (!work.seen.emplace(status.st_dev, status.st_ino).second) return;
  }
  const std::string before = folder == "/" ? folder : folder + "/";
  const FolderItem place(folder);
  while (const dirent* entry = readdir(open.get())) {
    if (!work.Wanted()) return;
    const std::string_view name = entry->d_name;
    // Nothing hidden, and no links, which could lead in circles.
    if (name.starts_with('.') || entry->d_type == DT_LNK) continue;
    const bool match = work.text.In(name);
    if (entry->d_type != DT_DIR && entry->d_type != DT_UNKNOWN) {
      if (match && entry->d_type == DT_REG && FolderitemExtensions::NamesPicture(name)) {
        Add(work, FolderItem::Entry(place, name),
            FolderLister::FactsOf(descriptor, entry->d_name, work.documentExtension));
      }
      continue;
    }
    const std::string path = before + entry->d_name;
    if (std::find(kSystem.begin(), kSystem.end(), path) != kSystem.end()) continue;
    const FileFacts facts =
        FolderLister::FactsOf(descriptor, entry->d_name, work.documentExtension);
    const bool picture =
        facts.Is == FileFacts::kDocument ||
        (facts.Is == FileFacts::kPlain && FolderitemExtensions::NamesPicture(name));
    if (match && (picture || facts.Is == FileFacts::kFolder)) {
      Add(work, FolderItem::Entry(place, name), facts);
    }
    if (facts.Is == FileFacts::kFolder) inside.push_back(path);
  }
}

void SpotlightQuery::Walk(Work& work) {
  std::vector<std::string> inside;
  std::unique_lock lock(work.mutex);
  while (true) {
    work.changed.wait(lock, [&] {
      if (!work.Wanted()) return true;
      return !work.paused && (!work.folders.empty() || work.working == 0);
    });
    if (!work.Wanted() || work.folders.empty()) break;
    const std::string folder = std::move(work.folders.back());
    work.folders.pop_back();
    ++work.working;
    if (work.owner != nullptr && work.since.elapsed() > kProgress) {
      work.since.restart();
      QMetaObject::invokeMethod(
          work.owner,
          [owner = work.owner, folder, found = static_cast<int>(work.hits.size())] {
            if (owner->Running() && owner->Progress) owner->Progress(folder, found);
          },
          Qt::QueuedConnection);
    }
    lock.unlock();
    inside.clear();
    WalkFolder(work, folder, inside);
    lock.lock();
    --work.working;
    work.folders.insert(work.folders.end(), std::make_move_iterator(inside.begin()),
                        std::make_move_iterator(inside.end()));
    work.changed.notify_all();
  }
  work.changed.notify_all();
}

}  // namespace brivolant
