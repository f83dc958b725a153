// SPDX-License-Identifier: MIT
#include "platform/pictures/Parallel.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <utility>

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
  tbb::parallel_for(
      tbb::blocked_range<int>(0, count, static_cast<std::size_t>(size)),
      [&work](const tbb::blocked_range<int>& range) { work(range.begin(), range.end()); });
}

ThreadLimit::ThreadLimit(int threads) : before_(std::exchange(limit, threads)) {}

ThreadLimit::~ThreadLimit() {
  limit = before_;
}

}  // namespace brivolant
