// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <atomic>
#include <functional>
#include <memory>
#include <unordered_set>
#include <vector>

#include "browser/DiskThreads.h"
#include "browser/ThumbnailCache.h"
#include "browser/browserItem.h"

namespace brivolant {

/// Makes the picture of one file: from the shared cache, else from the file, which then is cached.
/// Null if there is none. May be called on any thread.
class ThumbnailMaker {
 public:
  explicit ThumbnailMaker(ThumbnailCache cache) : cache_(std::move(cache)) {}

  /// The picture of a file of the program's own kinds; nil for any other file. Called on any
  /// thread.
  std::function<Picture(const FolderItem& file, int longest)> OwnPreview;

  QImage Make(const FolderItem& file, ThumbnailCache::Size size) const;

  /// A picture that is made, and what of it the cache does not know yet.
  struct Made {
    QImage image;
    ThumbnailCache::Key key;
    enum News : std::uint8_t { kNothing, kPicture, kFailure } news = kNothing;
    ThumbnailCache::Size size = ThumbnailCache::kLarge;
  };
  /// Make in two steps, so that pictures can be shown before they are stored.
  Made Look(const FolderItem& file, ThumbnailCache::Size size) const;
  void Store(const Made& made) const;
  const ThumbnailCache& Cache() const { return cache_; }

 private:
  QImage FromFile(const FolderItem& file, int longest) const;
  ThumbnailCache cache_;
};

/// Fills the browser's cells with pictures after the rows are shown: what is in view first, then
/// the rest in the order of rows, on as many threads as there are cores. Results reach the main
/// thread in batches; all events are raised there.
class browserThumbnailGetter final : public QObject {
 public:
  enum State { kRunning = 0, kNotRunning = 4 };

  explicit browserThumbnailGetter(std::shared_ptr<const ThumbnailMaker> maker);
  ~browserThumbnailGetter() override;

  /// The queue, filled before Run.
  std::vector<std::shared_ptr<browserItem>> item;

  /// Pixels of the longest side that are needed from now on, at least. Pictures are kept no larger
  /// than that, so that many small ones find room; those that are too small are made anew as they
  /// come into view.
  void Side(int pixels);
  int Side() const { return side_; }
  void Run();
  /// Ends all work at once: a decode that is under way gives up within milliseconds, and nothing of
  /// this run is delivered any more, not even Finished.
  void Kill();
  int State() const { return running_ ? kRunning : kNotRunning; }
  /// These come first from now on, in this order; those that have no picture yet are worked on
  /// even if they had one that was given back.
  void InView(const std::vector<std::shared_ptr<browserItem>>& items);
  /// Bytes of pictures that are kept; the least recently seen are given back. What is in view
  /// stays, however much it is.
  void Limit(std::size_t bytes) { limit_ = bytes; }
  std::size_t BytesKept() const { return kept_; }

  std::function<void()> Started;
  /// Once for each entry, whether it got a picture or not.
  std::function<void()> AddedThumbnail;
  /// An entry has another picture, or turned out to have none; also of one that was made again.
  std::function<void(const browserItem&)> Changed;
  std::function<void()> Finished;

 private:
  struct Work;
  struct Result;
  void Start();
  /// Makes one picture and hands it over; on any thread.
  void Make(const std::shared_ptr<Work>& work, const ThumbnailMaker& maker, Result result);
  void Deliver();
  void Keep(const std::shared_ptr<browserItem>& item);

  std::shared_ptr<const ThumbnailMaker> maker_;
  std::shared_ptr<Work> work_;
  bool running_ = false;
  int side_ = ThumbnailCache::kLarge;
  std::unordered_set<const browserItem*> view_;
  std::size_t limit_ = std::size_t{64} << 20;
  std::size_t kept_ = 0;
  /// Least recently seen first.
  struct Kept;
  std::unique_ptr<Kept> order_;
  /// Those that still run, of this run and of earlier ones.
  std::shared_ptr<DiskThreads::Count> threads_;
};

}  // namespace brivolant
