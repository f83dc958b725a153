// SPDX-License-Identifier: MIT
#include "browser/browserThumbnailGetter.h"

#include <sys/resource.h>
#include <unistd.h>

#include <QThreadPool>
#include <atomic>
#include <deque>
#include <list>
#include <mutex>
#include <thread>
#include <unordered_map>
#include <unordered_set>

#include "files/FolderitemExtensions.h"
#include "formats/iconObjectExtensions.h"
#include "platform/codecs/Cancellation.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/pictures/Parallel.h"

namespace brivolant {
namespace {

/// A copy as an image of the toolkit, with transparency where the picture has a mask.
QImage AsDrawn(const Picture& picture) {
  if (picture.IsNil()) return {};
  QImage image = picture.AsImage().copy();
  const Plane* mask = picture.Mask();
  if (mask == nullptr) return image.convertToFormat(QImage::Format_RGB32);
  image.convertTo(QImage::Format_ARGB32);
  for (int y = 0; y < image.height(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      row[x] = (row[x] & 0xffffffU) | static_cast<QRgb>(255 - mask->At(x, y)) << 24U;
    }
  }
  return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// No larger than asked for.
QImage Reduced(QImage image, int side) {
  if (image.width() <= side && image.height() <= side) return image;
  return image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

/// Counts a thread out.
class Leave {
 public:
  explicit Leave(DiskThreads::Count& threads) : threads_(threads) {}
  ~Leave() { threads_.Leave(); }
  Leave(const Leave&) = delete;
  Leave& operator=(const Leave&) = delete;

 private:
  DiskThreads::Count& threads_;
};

}  // namespace

QImage ThumbnailMaker::FromFile(const FolderItem& file, int longest) const {
  Picture own = OwnPreview ? OwnPreview(file, longest) : Picture();
  if (own.IsNil()) own = iconObjectExtensions::Preview(file, longest);
  if (!own.IsNil()) {
    const QImage image = AsDrawn(own);
    return image.width() <= longest && image.height() <= longest
               ? image
               : image.scaled(longest, longest, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  }
  if (file.Directory() || !FolderitemExtensions::HoldsPicture(file)) return {};
  const auto source = ImageSource::Open(file);
  if (!source) return {};
  auto picture = (*source.value)->Thumbnail(longest);
  return picture ? AsDrawn(*picture) : QImage();
}

ThumbnailMaker::Made ThumbnailMaker::Look(const FolderItem& file, ThumbnailCache::Size size) const {
  Made made;
  made.size = size;
  made.key = ThumbnailCache::KeyOf(file);
  made.image = cache_.Find(made.key, size);
  if (!made.image.isNull() || made.key.Modified == 0 || cache_.Failed(made.key)) return made;
  const bool folder = file.Directory();
  made.image = FromFile(file, size);
  // What was given up says nothing about the file.
  if (DecodeCancellation::Requested()) return {};
  if (!made.image.isNull()) {
    made.news = Made::kPicture;
  } else if (!folder && FolderitemExtensions::HoldsPicture(file)) {
    made.news = Made::kFailure;
  }
  return made;
}

void ThumbnailMaker::Store(const Made& made) const {
  if (made.news == Made::kPicture) cache_.Store(made.key, made.size, made.image);
  if (made.news == Made::kFailure) cache_.StoreFailure(made.key);
}

QImage ThumbnailMaker::Make(const FolderItem& file, ThumbnailCache::Size size) const {
  const Made made = Look(file, size);
  Store(made);
  return made.image;
}

struct browserThumbnailGetter::Result {
  std::shared_ptr<browserItem> item;
  QImage image;
  bool counts = false;
  int side = 0;
};

/// What the threads share. They hold it as long as they run, whatever becomes of the getter.
struct browserThumbnailGetter::Work {
  const MountTable table = MountTable::Now();
  std::mutex mutex;
  std::atomic<bool> ended = false;
  /// Pixels that a picture needs from now on.
  std::atomic<int> side = 0;
  /// The queue of the run, and the entry that comes next.
  std::vector<std::shared_ptr<browserItem>> queue;
  std::size_t next = 0;
  std::deque<std::shared_ptr<browserItem>> inView;
  /// Taken by a thread, or done, in this run.
  std::unordered_set<const browserItem*> taken;
  std::unordered_set<const browserItem*> busy;
  std::unordered_set<const browserItem*> queued;
  std::vector<Result> results;
  /// On show already, but not yet in the cache.
  std::deque<ThumbnailMaker::Made> unstored;
  bool delivering = false;
  std::size_t delivered = 0;
  int threads = 0;

  /// What a thread does next: a picture for an item, or, without an item, storing a picture. False,
  /// and the thread is counted out, if there is nothing.
  bool Next(Result& result, ThumbnailMaker::Made& made);
};

bool browserThumbnailGetter::Work::Next(Result& result, ThumbnailMaker::Made& made) {
  const std::lock_guard guard(mutex);
  if (ended) {
    --threads;
    return false;
  }
  // Pictures in view come before those for the next visit, as long as memory bears it.
  constexpr std::size_t kMostUnstored = 64;
  while (!result.item && !inView.empty() && unstored.size() < kMostUnstored) {
    auto entry = inView.front();
    inView.pop_front();
    if (!busy.contains(entry.get())) result.item = std::move(entry);
  }
  if (!result.item && !unstored.empty()) {
    made = std::move(unstored.front());
    unstored.pop_front();
    return true;
  }
  while (!result.item && next < queue.size()) {
    auto entry = queue[next++];
    if (!taken.contains(entry.get())) result.item = std::move(entry);
  }
  if (!result.item) {
    --threads;
    return false;
  }
  busy.insert(result.item.get());
  result.side = side;
  // Each entry of the queue counts once, however often it comes into view.
  result.counts = queued.contains(result.item.get()) && taken.insert(result.item.get()).second;
  return true;
}

struct browserThumbnailGetter::Kept {
  struct Node {
    std::weak_ptr<browserItem> item;
    const browserItem* id;
    std::size_t bytes;
  };
  std::list<Node> order;
  std::unordered_map<const browserItem*, std::list<Node>::iterator> places;
};

browserThumbnailGetter::browserThumbnailGetter(std::shared_ptr<const ThumbnailMaker> maker)
    : maker_(std::move(maker)),
      order_(std::make_unique<Kept>()),
      threads_(std::make_shared<DiskThreads::Count>()) {}

browserThumbnailGetter::~browserThumbnailGetter() {
  Kill();
  // The libraries they work with may be shut down next.
  threads_->Await();
}

void browserThumbnailGetter::Run() {
  Kill();
  running_ = true;
  work_ = std::make_shared<Work>();
  work_->side = side_;
  work_->queue = std::exchange(item, {});
  for (const auto& entry : work_->queue) work_->queued.insert(entry.get());
  if (Started) Started();
  if (work_->queue.empty()) {
    running_ = false;
    if (Finished) Finished();
    return;
  }
  Start();
}

void browserThumbnailGetter::Kill() {
  if (work_) {
    const std::lock_guard lock(work_->mutex);
    work_->ended = true;
  }
  work_.reset();
  running_ = false;
}

void browserThumbnailGetter::Side(int pixels) {
  // In steps: a slider passes many sizes.
  constexpr int kLeast = 64;
  side_ = kLeast;
  while (side_ < pixels && side_ < ThumbnailCache::kXLarge) side_ *= 2;
  if (work_) work_->side = side_;
}

void browserThumbnailGetter::InView(const std::vector<std::shared_ptr<browserItem>>& items) {
  std::deque<std::shared_ptr<browserItem>> wanted;
  view_.clear();
  for (const auto& entry : items) {
    if (!entry) continue;
    view_.insert(entry.get());
    if (const auto known = order_->places.find(entry.get()); known != order_->places.end()) {
      order_->order.splice(order_->order.end(), order_->order, known->second);
    }
    const bool small = entry->imageSide > 0 && entry->imageSide < side_;
    const bool missing = entry->image.isNull() && !entry->HasNoThumbnail;
    if (small || missing) wanted.push_back(entry);
  }
  if (wanted.empty()) return;
  if (!work_) {
    work_ = std::make_shared<Work>();
    work_->side = side_;
  }
  {
    const std::lock_guard lock(work_->mutex);
    work_->inView = std::move(wanted);
  }
  Start();
}

void browserThumbnailGetter::Start() {
  const std::lock_guard lock(work_->mutex);
  const int cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
  while (work_->threads < cores) {
    ++work_->threads;
    threads_->Enter();
    std::thread([this, work = work_, maker = maker_, threads = threads_] {
      const Leave leave(*threads);
      // The window comes first: these threads yield to it.
      constexpr int kNice = 5;
      (void)setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kNice);
      for (;;) {
        Result result;
        ThumbnailMaker::Made made;
        if (!work->Next(result, made)) return;
        if (!result.item) {
          maker->Store(made);
          continue;
        }
        const FolderItem file = result.item->File();
        const Mount* mount = file ? work->table.Of(file) : nullptr;
        if (mount == nullptr || !mount->Apart()) {
          Make(work, *maker, std::move(result));
          continue;
        }
        // A share that is silent keeps back its own pictures alone, and no thread for each run.
        DiskThreads::For(file, work->table)
            .start([this, work, maker, wanted = std::move(result)]() mutable {
              if (!work->ended) Make(work, *maker, std::move(wanted));
            });
      }
    }).detach();
  }
}

void browserThumbnailGetter::Make(const std::shared_ptr<Work>& work, const ThumbnailMaker& maker,
                                  Result result) {
  const ThreadLimit one(1);
  const DecodeCancellation cancellation(work->ended);
  ThumbnailMaker::Made made;
  if (const FolderItem file = result.item->File();
      file && std::holds_alternative<FolderItem>(result.item->item)) {
    made = maker.Look(file, result.side > ThumbnailCache::kLarge ? ThumbnailCache::kXLarge
                                                                 : ThumbnailCache::kLarge);
    result.image = Reduced(made.image, result.side);
  }
  // Under the lock the object is there, as long as the work has not ended.
  const std::lock_guard guard(work->mutex);
  if (work->ended) return;
  work->results.push_back(std::move(result));
  if (made.news != ThumbnailMaker::Made::kNothing) work->unstored.push_back(std::move(made));
  if (std::exchange(work->delivering, true)) return;
  QMetaObject::invokeMethod(
      this,
      [this, work] {
        if (work == work_) Deliver();
      },
      Qt::QueuedConnection);
}

void browserThumbnailGetter::Deliver() {
  const std::shared_ptr<Work> work = work_;
  std::vector<Result> results;
  bool unstored = false;
  {
    const std::lock_guard lock(work->mutex);
    unstored = !work->unstored.empty();
    results = std::exchange(work->results, {});
    work->delivering = false;
    for (const Result& result : results) work->busy.erase(result.item.get());
  }
  // What came from a share is stored by threads that may have gone.
  if (unstored) Start();
  for (Result& result : results) {
    result.item->imageSide = result.side;
    if (!result.image.isNull()) {
      result.item->image = std::move(result.image);
      result.item->iconRef.clear();
      Keep(result.item);
    } else if (result.item->image.isNull()) {
      result.item->imageSide = 0;
      result.item->HasNoThumbnail = true;
    }
    if (Changed) Changed(*result.item);
    if (!result.counts) {
      if (AddedThumbnail && !running_) AddedThumbnail();
      continue;
    }
    ++work->delivered;
    if (AddedThumbnail) AddedThumbnail();
    if (work != work_) return;
  }
  if (running_ && work->delivered == work->queue.size()) {
    running_ = false;
    if (Finished) Finished();
  }
}

void browserThumbnailGetter::Keep(const std::shared_ptr<browserItem>& item) {
  const auto forget = [this](std::list<Kept::Node>::iterator node) {
    kept_ -= node->bytes;
    order_->places.erase(node->id);
    order_->order.erase(node);
  };
  if (const auto known = order_->places.find(item.get()); known != order_->places.end()) {
    forget(known->second);
  }
  const auto bytes = static_cast<std::size_t>(item->image.sizeInBytes());
  // What nobody has seen yet goes before what is on the screen.
  const auto place = view_.contains(item.get()) ? order_->order.end() : order_->order.begin();
  order_->places[item.get()] = order_->order.insert(place, {item, item.get(), bytes});
  kept_ += bytes;
  for (auto node = order_->order.begin(); kept_ > limit_ && node != order_->order.end();) {
    const auto next = std::next(node);
    // What is seen and given back would be made again at the next repaint, for ever.
    if (!view_.contains(node->id)) {
      if (const auto oldest = node->item.lock()) {
        oldest->image = {};
        oldest->imageSide = 0;
      }
      forget(node);
    }
    node = next;
  }
}

}  // namespace brivolant
