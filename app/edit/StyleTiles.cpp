// SPDX-License-Identifier: MIT
#include "app/edit/StyleTiles.h"

#include <QThreadPool>
#include <algorithm>
#include <set>

#include "app/core/ApplicationServices.h"
#include "effects/EffectRegistry.h"
#include "engine/brivolantProcessorLite.h"
#include "platform/pictures/Parallel.h"

namespace brivolant {

/// What the threads share. They hold it as long as they run, whatever becomes of the object.
struct StyleTiles::Work {
  std::mutex mutex;
  Picture photo;
  double scale = 1;
  PastedFiles pasted;
  /// Counts photos: a tile of an earlier one is thrown away.
  int generation = 0;
  std::deque<Order> orders;
  std::set<std::string> taken;
  int running = 0;
};

StyleTiles::StyleTiles() : work_(std::make_shared<Work>()), pool_(std::make_unique<QThreadPool>()) {
  // A tile is drawn between two frames of the window, never instead of one.
  pool_->setThreadPriority(QThread::LowPriority);
}

StyleTiles::~StyleTiles() {
  {
    const std::lock_guard lock(work_->mutex);
    work_->orders.clear();
  }
  pool_->waitForDone();
}

void StyleTiles::Photo(const Picture& photo, double scale, PastedFiles pasted) {
  const std::lock_guard lock(work_->mutex);
  work_->photo = photo;
  work_->scale = scale;
  work_->pasted = std::move(pasted);
  ++work_->generation;
  work_->orders.clear();
  work_->taken.clear();
}

void StyleTiles::Render(const std::vector<Order>& orders) {
  {
    const std::lock_guard lock(work_->mutex);
    if (work_->photo.IsNil()) return;
    for (auto order = orders.rbegin(); order != orders.rend(); ++order) {
      if (work_->taken.count(order->ID) > 0) continue;
      std::erase_if(work_->orders, [&](const Order& old) { return old.ID == order->ID; });
      work_->orders.push_front(*order);
    }
  }
  Start();
}

bool StyleTiles::Idle() const {
  const std::lock_guard lock(work_->mutex);
  return work_->orders.empty() && work_->running == 0;
}

void StyleTiles::Start() {
  const std::lock_guard lock(work_->mutex);
  const int wanted =
      std::min(static_cast<int>(work_->orders.size()), pool_->maxThreadCount() - work_->running);
  for (int i = 0; i < wanted; ++i) {
    ++work_->running;
    pool_->start([this, work = work_] {
      // Services of this thread's own: those of the window belong to its thread.
      const ThreadLimit one(1);
      const QuietServices own;
      brivolantProcessorLite processor(EffectRegistry(), own.All());
      processor.Startup();
      for (;;) {
        Order order;
        Picture photo;
        double scale = 1;
        PastedFiles pasted;
        int generation = 0;
        {
          const std::lock_guard guard(work->mutex);
          if (work->orders.empty()) {
            --work->running;
            return;
          }
          order = std::move(work->orders.front());
          work->orders.pop_front();
          work->taken.insert(order.ID);
          photo = work->photo;
          scale = work->scale;
          pasted = work->pasted;
          generation = work->generation;
        }
        processor.Reset();
        (void)processor.StyleData(order.StyleData);
        const Picture tile = processor.ProcessReduced(photo, scale, std::move(pasted));
        QMetaObject::invokeMethod(
            this,
            [this, generation, tile, id = order.ID] {
              {
                const std::lock_guard guard(work_->mutex);
                if (generation != work_->generation) return;
              }
              if (Ready) Ready(id, tile);
            },
            Qt::QueuedConnection);
      }
    });
  }
}

}  // namespace brivolant
