// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <vector>

#include "browser/browserItem.h"
#include "platform/files/FolderItem.h"

struct sqlite3;

namespace brivolant {

/// What photos tell of themselves, kept between runs: what the browser sorts by, searches and
/// shows. A database of the program's own in the cache folder, never beside photos; a photo that
/// was changed is read again. May be used on any thread. Where the database cannot be opened
/// nothing is kept, and every photo is read.
class PhotoFactsCache {
 public:
  struct Facts {
    /// Seconds of the Unix epoch, in the user's time zone; 0 if the photo does not tell.
    std::int64_t Taken = 0;
    std::string Title;
    /// One in each line.
    std::string Words;
    /// Camera, lens and exposure, one in each line.
    std::string Shot;
  };

  /// The database is opened by the first who asks.
  explicit PhotoFactsCache(FolderItem file) : file_(std::move(file)) {}
  ~PhotoFactsCache();
  PhotoFactsCache(const PhotoFactsCache&) = delete;
  PhotoFactsCache& operator=(const PhotoFactsCache&) = delete;
  static FolderItem DefaultFile();

  /// Of one photo, read if it must be.
  Facts Of(const FolderItem& photo);
  /// Gives files of one folder the moments at which they were taken. `goOn` is asked now and then,
  /// and ends it with false.
  void FillTaken(const FolderItem& folder, std::span<const std::shared_ptr<browserItem>> items,
                 const std::function<bool()>& goOn);
  /// Photos that were read, as they were then, of which title or keywords hold the text.
  std::vector<FolderItem> Find(const std::string& text);
  /// How many photos have been read, rather than known.
  int Reads() const { return reads_; }

 private:
  struct Stamp {
    std::int64_t Modified = 0;
    std::int64_t Size = 0;
    friend bool operator==(const Stamp&, const Stamp&) = default;
  };
  class Statement;
  static Stamp StampOf(const FolderItem& photo);
  Facts Read(const FolderItem& photo);
  void Keep(const FolderItem& photo, const Stamp& stamp, const Facts& facts);
  bool Run(const char* sql);
  /// Opens the database, once; under the mutex.
  void Open();

  FolderItem file_;
  std::mutex mutex_;
  bool opened_ = false;
  sqlite3* database_ = nullptr;
  std::atomic<int> reads_ = 0;
};

}  // namespace brivolant
