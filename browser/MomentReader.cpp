// SPDX-License-Identifier: MIT
#include "browser/MomentReader.h"

#include <QElapsedTimer>
#include <atomic>
#include <mutex>

#include "browser/DiskThreads.h"

namespace brivolant {
namespace {

/// Milliseconds between two times that rows find new places.
constexpr int kPart = 500;

}  // namespace

struct MomentReader::Work {
  /// Under it the reader is there, as long as the work has not ended.
  std::mutex mutex;
  std::atomic<bool> ended = false;
};

MomentReader::~MomentReader() {
  Stop();
}

void MomentReader::Stop() {
  if (work_) {
    const std::lock_guard lock(work_->mutex);
    work_->ended = true;
  }
  work_.reset();
}

void MomentReader::Read(std::vector<FolderItem> photos,
                        const std::shared_ptr<PhotoFactsCache>& facts) {
  Stop();
  if (photos.empty() || !facts) return;
  work_ = std::make_shared<Work>();
  const FolderItem first = photos.front();
  DiskThreads::Run(first, [this, work = work_, photos = std::move(photos), facts] {
    auto told = std::make_shared<std::vector<Told>>();
    const auto hand = [&](bool last) {
      const std::lock_guard lock(work->mutex);
      if (work->ended) return;
      QMetaObject::invokeMethod(
          this,
          [this, work, told, last] {
            if (work != work_) return;
            if (last) work_.reset();
            if (Known) Known(*told);
          },
          Qt::QueuedConnection);
      told = std::make_shared<std::vector<Told>>();
    };
    QElapsedTimer since;
    since.start();
    for (const FolderItem& photo : photos) {
      if (work->ended) return;
      told->push_back({photo, facts->Of(photo)});
      if (since.elapsed() < kPart) continue;
      hand(false);
      since.restart();
    }
    hand(true);
  });
}

}  // namespace brivolant
