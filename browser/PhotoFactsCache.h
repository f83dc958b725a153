// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
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
  /// A file as it was: times and sizes, of what is kept beside it too. Empty for none.
  using Stamp = std::string;
  static Stamp StampOf(const FolderItem& photo);
  static Stamp StampOf(std::string path);

  /// The database is opened by the first who asks.
  explicit PhotoFactsCache(FolderItem file) : file_(std::move(file)) {}
  ~PhotoFactsCache();
  PhotoFactsCache(const PhotoFactsCache&) = delete;
  PhotoFactsCache& operator=(const PhotoFactsCache&) = delete;
  static FolderItem DefaultFile();

  /// Of one photo, read if it must be.
  Facts Of(const FolderItem& photo);
  /// Photos that were read, with what they were then, of which title or keywords hold the text.
  /// `goOn` is asked now and then, and ends it with false.
  std::vector<std::pair<FolderItem, Stamp>> Find(const std::string& text,
                                                 const std::function<bool()>& goOn);
  /// How many photos have been read, rather than known.
  int Reads() const { return reads_; }

  /// What is known of a folder's photos, for a listing of it.
  class Folder {
   public:
    Folder(PhotoFactsCache& cache, const FolderItem& folder);
    /// Gives items what is known of them; reads none. False if `goOn` ended it.
    bool Fill(std::span<const std::shared_ptr<browserItem>> items,
              const std::function<bool()>& goOn);
    /// The listing was whole: what else is kept of the folder is of photos that are gone.
    void ForgetOthers();

   private:
    struct Known {
      Stamp At;
      std::int64_t Taken = 0;
      std::string Said;
    };
    PhotoFactsCache& cache_;
    std::string path_;
    std::unordered_map<std::string, Known> known_;
    std::unordered_set<std::string> seen_;
  };

 private:
  class Statement;
  std::optional<Facts> Read(const FolderItem& photo);
  void Keep(const FolderItem& photo, const Stamp& stamp, const Facts& facts);
  int Run(const char* sql);
  /// Opens the database, once; under the mutex.
  void Open();
  bool OpenFile();
  /// What is no database any more is made anew, once; nothing in it was the user's.
  void Broken();
  void Close();

  FolderItem file_;
  std::mutex mutex_;
  bool opened_ = false;
  bool renewed_ = false;
  sqlite3* database_ = nullptr;
  std::atomic<int> reads_ = 0;
};

}  // namespace brivolant
