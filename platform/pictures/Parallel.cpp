// SPDX-License-Identifier: MIT
#include "platform/pictures/Parallel.h"

#include <algorithm>
#include <utility>

#ifdef __SANITIZE_THREAD__
#include <atomic>
#include <thread>
#else
#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#endif

namespace brivolant {
namespace {

thread_local int limit = 0;

}  // namespace

void ParallelRows(int count, int grain, const std::function<void(int, int)>& work) {
  if (count <= 0) return;
  if (limit == 1 || count <= grain) {
    work(0, count);
    return;
  }
  const int size = limit == 0 ? std::max(grain, 1) : std::max(grain, (count + limit - 1) / limit);
#ifdef __SANITIZE_THREAD__
  // The library is not built for the thread sanitizer, which would see races in the order that the
  // library keeps, and by them none of ours.
  std::atomic<int> next = 0;
  const auto take = [&] {
    for (int from = next.fetch_add(size); from < count; from = next.fetch_add(size)) {
      work(from, std::min(from + size, count));
    }
  };
  std::thread other(take);
  take();
  other.join();
#else
  tbb::parallel_for(
      tbb::blocked_range<int>(0, count, static_cast<std::size_t>(size)),
      [&work](const tbb::blocked_range<int>& range) { work(range.begin(), range.end()); });
#endif
}

ThreadLimit::ThreadLimit(int threads) : before_(std::exchange(limit, threads)) {}

ThreadLimit::~ThreadLimit() {
  limit = before_;
}

}  // namespace brivolant
