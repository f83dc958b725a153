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
#include <chrono>
#include <condition_variable>
#include <deque>
#include <future>
#include <mutex>
#include <set>
#include <thread>
#include <unordered_set>

#include "browser/FolderLister.h"
#include "browser/PhotoFactsCache.h"
#include "browser/SearchIndex.h"
#include "browser/SearchText.h"
#include "files/FolderitemExtensions.h"
#include "files/NaturalOrder.h"

namespace brivolant {
namespace {

using Steady = std::chrono::steady_clock;

/// Between two reports of progress.
constexpr std::chrono::milliseconds kProgress{200};
/// Between two reports of what comes late.
constexpr std::chrono::milliseconds kLate{1000};
/// Folders of the system: nobody keeps photos there, and they are half of a disk's files.
constexpr std::array<std::string_view, 17> kSystem{
    "/bin", "/boot", "/dev", "/etc",  "/lib", "/lib32", "/lib64", "/libx32", "/lost+found",
    "/opt", "/proc", "/run", "/sbin", "/sys", "/tmp",   "/usr",   "/var"};

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

bool Within(const std::string& path, const std::string& root) {
  return root == "/" || path == root || path.starts_with(root + "/");
}

}  // namespace

/// What is walked by threads of its own: the disks of this machine together, and each file system
/// that may be silent alone, so that one that is holds up nothing but itself.
struct SpotlightQuery::Lane {
  std::vector<std::string> folders;
  int working = 0;
  bool Done() const { return folders.empty() && working == 0; }
};

/// What the threads of one search share. They hold it as long as they run, whatever becomes of the
/// query.
struct SpotlightQuery::Work : std::enable_shared_from_this<Work> {
  explicit Work(const std::string& query) : text(query), query(query) {}
  SpotlightQuery* owner = nullptr;
  SearchText text;
  std::string query;
  std::string documentExtension;
  std::vector<std::string> roots;
  MountTable table;
  std::chrono::milliseconds patience{0};
  std::function<void(const std::string&)> entering;
  std::shared_ptr<PhotoFactsCache> facts;
  /// Given up: nothing is reported. Finished: what there is is reported.
  std::atomic<bool> ended = false;
  std::atomic<bool> finished = false;
  std::atomic<bool> paused = false;

  std::mutex mutex;
  std::condition_variable changed;
  /// The first is that of the disks.
  std::deque<Lane> lanes;
  /// Roots of lanes: no other lane crosses into them. Fixed before any thread walks.
  std::unordered_set<std::string> borders;
  /// Questions to the index and for shares that have no answer yet.
  int asking = 0;
  std::shared_ptr<DiskThreads::Count> threads;
  /// Something was found to be there since the search looked last: a disk that is slow is not
  /// silent.
  std::atomic<bool> alive = false;
  /// When anything was last heard of.
  Steady::time_point heard = Steady::now();
  /// Devices and numbers of the folders that were gone into, so that none is twice.
  std::set<std::pair<dev_t, ino_t>> seen;
  std::unordered_set<std::string> paths;
  std::vector<SpotlightItem> hits;
  std::size_t reported = 0;
  QElapsedTimer since;

  bool Wanted() const { return !ended && !finished; }
  bool Done() const {
    return asking == 0 &&
           std::all_of(lanes.begin(), lanes.end(), [](const Lane& lane) { return lane.Done(); });
  }
  /// A thread that holds the work; counted until it ends.
  static void Start(const std::shared_ptr<Work>& work, std::function<void(Work&)> what);
};

void SpotlightQuery::Work::Start(const std::shared_ptr<Work>& work,
                                 std::function<void(Work&)> what) {
  work->threads->Enter();
  std::thread([work, what = std::move(what)] {
    what(*work);
    work->threads->Leave();
  }).detach();
}

SpotlightQuery::~SpotlightQuery() {
  Stop();
  threads_->Await();
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
  work_->threads = threads_;
  work_->documentExtension = DocumentExtension;
  work_->facts = Facts;
  work_->table = Mounts.value_or(MountTable::Now());
  work_->patience = Patience;
  work_->entering = Entering;
  for (const FolderItem& root : Roots) work_->roots.push_back(root.ShellPath());
  work_->since.start();
  Work::Start(work_, [work = work_](Work&) { Search(work); });
}

void SpotlightQuery::Divide(Work& work) {
  if (work.roots.empty()) {
    work.roots = {QStandardPaths::writableLocation(QStandardPaths::HomeLocation).toStdString()};
    for (const FolderItem& volume : work.table.OfUser()) work.roots.push_back(volume.ShellPath());
  }
  work.lanes.emplace_back();
  const auto add = [&](const std::string& root) {
    const Mount* mount = work.table.Of(FolderItem(root));
    const bool own = mount != nullptr && mount->Apart();
    if (own) work.borders.insert(root);
    (own ? work.lanes.emplace_back() : work.lanes.front()).folders.push_back(root);
  };
  for (const std::string& root : work.roots) add(root);
  for (const Mount& mount : work.table.Mounts()) {
    if (!mount.Apart() && mount.Kind != "autofs") continue;
    const std::string root = mount.Root.ShellPath();
    const bool below = std::any_of(work.roots.begin(), work.roots.end(),
                                   [&](const auto& above) { return Within(root, above); });
    if (!below || !work.borders.insert(root).second || !mount.OfUser()) continue;
    work.lanes.emplace_back().folders.push_back(root);
  }
}

void SpotlightQuery::StartLane(const std::shared_ptr<Work>& work, Lane& lane,
                               const std::string& root) {
  // Whoever searches what is silent again and again gets no more threads that wait for it.
  DiskThreads::For(FolderItem(root), work->table).start([work, &lane] { Walk(*work, lane); });
}

void SpotlightQuery::AskShares(const std::shared_ptr<Work>& work) {
  std::vector<FolderItem> shares;
  if (DesktopShares::AreServed(work->table)) {
    // One question at a time: a service that is silent gets no thread for each letter typed. Who
    // comes meanwhile waits for the same answer.
    struct Question {
      std::mutex mutex;
      std::shared_future<std::vector<FolderItem>> answer;
    };
    static Question& question = *new Question;
    std::promise<std::vector<FolderItem>> promise;
    std::unique_lock asked(question.mutex);
    const auto there = [](const auto& answer) {
      return answer.wait_for(std::chrono::milliseconds(20)) == std::future_status::ready;
    };
    const bool ours = !question.answer.valid() || there(question.answer);
    if (ours) question.answer = promise.get_future().share();
    const auto answer = question.answer;
    asked.unlock();
    if (ours) promise.set_value(DesktopShares::Roots());
    while (!work->ended && !there(answer)) continue;
    if (!work->ended) shares = answer.get();
  }
  const std::lock_guard lock(work->mutex);
  for (const FolderItem& share : shares) {
    Lane& lane = work->lanes.emplace_back();
    lane.folders.push_back(share.ShellPath());
    StartLane(work, lane, share.ShellPath());
  }
  --work->asking;
  work->changed.notify_all();
}

void SpotlightQuery::Hand(const std::shared_ptr<Work>& work, bool last) {
  std::unique_lock lock(work->mutex);
  std::vector<SpotlightItem> hits = work->hits;
  work->reported = hits.size();
  lock.unlock();
  if (work->ended) return;
  const NaturalOrder natural;
  std::vector<std::pair<QCollatorSortKey, std::size_t>> order;
  for (std::size_t i = 0; i < hits.size(); ++i) {
    order.emplace_back(natural.Key(hits[i].Row()->Name), i);
  }
  std::stable_sort(order.begin(), order.end(),
                   [](const auto& a, const auto& b) { return a.first.compare(b.first) < 0; });
  auto sorted = std::make_shared<std::vector<SpotlightItem>>();
  sorted->reserve(order.size());
  for (const auto& [key, index] : order) sorted->push_back(std::move(hits[index]));
  lock.lock();
  if (work->owner == nullptr) return;
  QMetaObject::invokeMethod(
      work->owner,
      [owner = work->owner, work, sorted, last] {
        if (work == owner->work_) owner->Report(std::move(*sorted), last);
      },
      Qt::QueuedConnection);
}

void SpotlightQuery::Search(const std::shared_ptr<Work>& work) {
  const bool everywhere = work->roots.empty();
  Divide(*work);
  work->asking = everywhere ? 2 : 1;
  std::unique_lock lock(work->mutex);
  Lane& own = work->lanes.front();
  for (Lane& lane : work->lanes) {
    if (&lane != &own) StartLane(work, lane, lane.folders.front());
  }
  lock.unlock();
  // Behind those, since it adds lanes and starts them itself.
  if (everywhere) Work::Start(work, [work](Work&) { AskShares(work); });
  Work::Start(work, [work](Work&) { AskIndexes(work); });
  for (int i = 0; i < std::max(QThread::idealThreadCount(), 1); ++i) {
    Work::Start(work, [&own](Work& walked) { Walk(walked, own); });
  }
  lock.lock();
  bool silent = false;
  const auto over = [&] { return !work->Wanted() || work->Done(); };
  while (!over()) {
    if (silent) {
      // However much comes: whoever looks at the hits is not disturbed more often.
      if (work->changed.wait_for(lock, kLate, over) || work->hits.size() == work->reported)
        continue;
      lock.unlock();
      Hand(work, false);
      lock.lock();
      continue;
    }
    work->changed.wait_for(lock, kProgress);
    if (!own.Done() || work->paused || work->alive.exchange(false)) {
      work->heard = Steady::now();
    }
    // Whoever is silent now may be so for ever, and nobody waits for that.
    if (Steady::now() - work->heard <= work->patience) continue;
    silent = true;
    lock.unlock();
    Hand(work, false);
    lock.lock();
  }
  // Whoever comes later comes for nothing.
  work->finished = true;
  work->changed.notify_all();
  lock.unlock();
  Hand(work, true);
  // An index that never comes to an end need not be listened to any longer.
  work->ended = true;
}

void SpotlightQuery::Report(std::vector<SpotlightItem> hits, bool last) {
  const bool news = !completed_ || hits.size() != items_.size();
  items_ = std::move(hits);
  if (last) work_.reset();
  completed_ = true;
  if (news && Completed) Completed();
}

void SpotlightQuery::AskIndexes(const std::shared_ptr<Work>& work) {
  const auto look = [](Work& of, const FolderItem& file, const PhotoFactsCache::Stamp& stamp) {
    if (!stamp.empty() && PhotoFactsCache::StampOf(file) != stamp) return;
    const FileFacts facts =
        FolderLister::FactsOf(AT_FDCWD, file.Path().c_str(), of.documentExtension);
    // What has gone since it was indexed is no hit.
    if (facts.Modified != 0) Add(of, file, facts);
  };
  const auto end = [](Work& of) {
    const std::lock_guard lock(of.mutex);
    --of.asking;
    of.changed.notify_all();
  };
  using Stamp = PhotoFactsCache::Stamp;
  // With a stamp it is no hit by its name, but by what it told when it was that.
  const auto add = [&](const std::vector<std::pair<FolderItem, Stamp>>& files) {
    for (const auto& [file, stamp] : files) {
      if (!work->Wanted()) return;
      const std::string path = file.ShellPath();
      const std::string name = file.Name();
      const bool within = std::any_of(work->roots.begin(), work->roots.end(),
                                      [&](const auto& root) { return Within(path, root); });
      if (!within || (stamp.empty() && !work->text.In(name))) continue;
      const Mount* mount = work->table.Of(file);
      if (mount == nullptr || !mount->Apart()) {
        look(*work, file, stamp);
        continue;
      }
      // A share that is silent keeps back its own hits alone.
      {
        const std::lock_guard lock(work->mutex);
        ++work->asking;
      }
      DiskThreads::For(file, work->table).start([work, file = file, stamp = stamp, look, end] {
        if (work->Wanted()) look(*work, file, stamp);
        end(*work);
      });
    }
  };
  const auto plain = [](const std::vector<FolderItem>& files) {
    std::vector<std::pair<FolderItem, Stamp>> all;
    all.reserve(files.size());
    for (const FolderItem& file : files) all.emplace_back(file, Stamp());
    return all;
  };
  if (work->facts) add(work->facts->Find(work->query, [&] { return work->Wanted(); }));
  if (const auto files = SearchIndex::AskLocalSearch(work->query, work->ended)) add(plain(*files));
  if (work->Wanted()) add(plain(SearchIndex::AskBaloo(work->query)));
  end(*work);
}

void SpotlightQuery::Add(Work& work, const FolderItem& file, const FileFacts& facts) {
  auto row = std::make_shared<browserItem>(file);
  row->Facts = facts;
  const std::lock_guard lock(work.mutex);
  if (!work.Wanted()) return;
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
    work.alive = true;
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
    // Not even a look: it might never be answered.
    if (work.borders.contains(path)) continue;
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

void SpotlightQuery::Walk(Work& work, Lane& lane) {
  std::vector<std::string> inside;
  std::unique_lock lock(work.mutex);
  while (true) {
    work.changed.wait(lock, [&] {
      if (!work.Wanted()) return true;
      return !work.paused && (!lane.folders.empty() || lane.working == 0);
    });
    if (!work.Wanted() || lane.folders.empty()) break;
    const std::string folder = std::move(lane.folders.back());
    lane.folders.pop_back();
    ++lane.working;
    if (work.owner != nullptr && work.reported == 0 && work.since.elapsed() > kProgress.count()) {
      work.since.restart();
      QMetaObject::invokeMethod(
          work.owner,
          [owner = work.owner, of = work.shared_from_this(), folder,
           found = static_cast<int>(work.hits.size())] {
            if (of != owner->work_ || owner->completed_) return;
            if (owner->Progress) owner->Progress(folder, found);
          },
          Qt::QueuedConnection);
    }
    lock.unlock();
    inside.clear();
    if (work.entering) work.entering(folder);
    WalkFolder(work, folder, inside);
    lock.lock();
    work.heard = Steady::now();
    --lane.working;
    lane.folders.insert(lane.folders.end(), std::make_move_iterator(inside.begin()),
                        std::make_move_iterator(inside.end()));
    work.changed.notify_all();
  }
  work.changed.notify_all();
}

}  // namespace brivolant
