// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace brivolant {

/// Runs `work(from, to)` over the ranges that 0 to `count` is cut into, on all cores. `grain` is
/// the smallest range worth a task. The cut never shows in a result: each row is independent.
void ParallelRows(int count, int grain, const std::function<void(int from, int to)>& work);

/// While one lives, ParallelRows of this thread runs on at most `threads` threads.
class ThreadLimit {
 public:
  explicit ThreadLimit(int threads);
  ~ThreadLimit();
  ThreadLimit(const ThreadLimit&) = delete;
  ThreadLimit& operator=(const ThreadLimit&) = delete;

 private:
  int before_;
};

}  // namespace brivolant
