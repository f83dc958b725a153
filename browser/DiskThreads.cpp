// SPDX-License-Identifier: MIT
#include "browser/DiskThreads.h"

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
  if (mount == nullptr || !mount->Apart()) return {};
  if (!DesktopShares::Holds(place)) return mount->Root.ShellPath();
  const std::string shares = DesktopShares::Folder().ShellPath() + "/";
  const std::string path = place.ShellPath();
  return path.substr(0, path.find('/', shares.size()));
}

/// What is told to end does so within milliseconds, unless a disk holds it.
constexpr std::chrono::milliseconds kParting{2000};
std::atomic<bool> left = false;

}  // namespace

QThreadPool& DiskThreads::For(const FolderItem& place, const MountTable& table) {
  static std::mutex mutex;
  static auto* const pools = new std::map<std::string, QThreadPool*>;
  const std::string key = KeyOf(place, table);
  const std::lock_guard lock(mutex);
  QThreadPool*& pool = (*pools)[key];
  if (pool == nullptr) {
    pool = new QThreadPool;
    pool->setMaxThreadCount(key.empty() ? kOfDisks : kOfOne);
  }
  return *pool;
}

DiskThreads::Pool::Pool(int threads) : pool_(std::make_unique<QThreadPool>()) {
  pool_->setMaxThreadCount(threads);
}

DiskThreads::Pool::~Pool() {
  if (pool_->waitForDone(static_cast<int>(kParting.count()))) return;
  left = true;
  // Its own end would wait.
  (void)pool_.release();
}

void DiskThreads::Pool::Start(std::function<void()> work) {
  pool_->start(std::move(work));
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

bool DiskThreads::SomeWereLeft() {
  return left;
}

}  // namespace brivolant
