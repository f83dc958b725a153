// SPDX-License-Identifier: MIT
#include "browser/DiskThreads.h"

#include <QDeadlineTimer>
#include <QThreadPool>
#include <atomic>
#include <chrono>
#include <map>

namespace brivolant {
namespace {

/// What stands and falls together: a mount that may be silent, and each of the desktop's shares,
/// which lie in one mount; empty for the disks.
std::string KeyOf(const FolderItem& place, const MountTable& table) {
  const Mount* mount = table.Of(place);
  // What is mounted at a look, too.
  if (mount == nullptr || !(mount->Apart() || mount->Kind == "autofs")) return {};
  if (!DesktopShares::Holds(place)) return mount->Root.ShellPath();
  const std::string shares = DesktopShares::Folder().ShellPath() + "/";
  const std::string path = place.ShellPath();
  return path.substr(0, path.find('/', shares.size()));
}

/// What is told to end does so within milliseconds, unless a disk holds it.
constexpr std::chrono::milliseconds kParting{2000};
std::atomic<bool> left = false;

/// Never destroyed.
struct Pools {
  std::mutex mutex;
  std::map<std::string, QThreadPool*> of;
};

Pools& All() {
  static auto* const pools = new Pools;
  return *pools;
}

}  // namespace

QThreadPool& DiskThreads::For(const FolderItem& place, const MountTable& table) {
  const std::string key = KeyOf(place, table);
  Pools& pools = All();
  const std::lock_guard lock(pools.mutex);
  QThreadPool*& pool = pools.of[key];
  if (pool == nullptr) {
    pool = new QThreadPool;
    pool->setMaxThreadCount(key.empty() ? kOfDisks : kOfOne);
  }
  return *pool;
}

void DiskThreads::Run(const FolderItem& place, std::function<void()> work) {
  For(place).start(std::move(work));
}

bool DiskThreads::Finish() {
  std::map<std::string, QThreadPool*> pools;
  {
    // What still runs may ask for threads.
    const std::lock_guard lock(All().mutex);
    pools = All().of;
  }
  const QDeadlineTimer deadline(kParting);
  for (const auto& [key, pool] : pools) {
    if (!pool->waitForDone(static_cast<int>(deadline.remainingTime()))) left = true;
  }
  return !left;
}

void DiskThreads::Count::Enter() {
  const std::lock_guard lock(mutex_);
  ++running_;
}

void DiskThreads::Count::Leave() {
  const std::lock_guard lock(mutex_);
  --running_;
  changed_.notify_all();
}

void DiskThreads::Count::Await() {
  std::unique_lock lock(mutex_);
  if (!changed_.wait_for(lock, kParting, [this] { return running_ == 0; })) left = true;
}

}  // namespace brivolant
