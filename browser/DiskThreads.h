// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>

#include "platform/files/MountTable.h"

class QThreadPool;

namespace brivolant::DiskThreads {

/// The threads that read a place's file system, and do nothing else. Not the ones that all share:
/// the toolkit paints large areas on those, and a disk that does not answer would hold up the
/// windows. The disks of this machine have many together. What may stop to answer has a few of its
/// own, so that a share that is dead holds no more than those, however often it is asked; what is
/// asked of it meanwhile waits. By the path alone; they are never destroyed, for whoever reads a
/// dead disk may still do so when the program ends.
QThreadPool& For(const FolderItem& place, const MountTable& table = MountTable::Now());

/// Most threads of the disks together, and of what may stop to answer each.
constexpr int kOfDisks = 64;
constexpr int kOfOne = 4;

/// Runs something there; it must hold what it uses.
void Run(const FolderItem& place, std::function<void()> work);

/// Counts threads that somebody started, and waits for them, but not for ever.
class Count {
 public:
  void Enter();
  void Leave();
  void Await();

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  int running_ = 0;
};

/// Waits for what runs on all threads, which was told to end, but not for ever. False if some are
/// left to themselves, now or by an earlier wait: the program must end without taking down what
/// they use.
bool Finish();

}  // namespace brivolant::DiskThreads
