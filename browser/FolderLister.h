// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "browser/BrowserRows.h"

namespace brivolant {

class PhotoFactsCache;

/// Lists a folder on another thread and hands its rows over in their order: at once if it is
/// quick, in a few parts if it is not.
class FolderLister final : public QObject {
 public:
  FolderLister() = default;
  ~FolderLister() override;

  struct Order {
    int column = BrowserRows::kNameColumn;
    bool descending = false;
    bool hiddenToo = false;
    /// Files of the program's own kind that are folders.
    std::string documentExtension;
    /// What is known of photos goes along with their rows; null for nothing.
    std::shared_ptr<PhotoFactsCache> facts = nullptr;
  };
  /// Lists, after whatever was being listed is given up. Waits at most `patience` milliseconds
  /// for a quick end, so that small folders appear without a flicker.
  void List(const FolderItem& folder, const Order& order, int patience);
  void Stop();
  bool Running() const { return work_ != nullptr; }

  /// Sorted rows with their keys; `done` with the last part. Raised on the thread of the object.
  std::function<void(std::vector<BrowserRows::Row> rows, bool done)> Listed;

  /// What a place turned out to be.
  struct Place {
    /// What a link leads to, else the place itself; a link that leads nowhere.
    FolderItem Real;
    /// There is no such folder.
    bool Gone = false;
    /// It may not be looked into.
    bool Closed = false;
    /// Bytes free for the user.
    std::uint64_t Available = 0;
  };
  /// Milliseconds that a look at a place, and then its listing, may hold a window up.
  static constexpr int kPatience = 20;
  /// Looks at a place on another thread; nothing if it does not answer within `patience`
  /// milliseconds, as those of a disk that sleeps or a share that is dead.
  static std::optional<Place> Look(const FolderItem& place, int patience);
  /// The nearest folder that is there: the place itself, else one that it lies in. Nothing as with
  /// Look.
  static std::optional<FolderItem> Standing(const FolderItem& place, int patience);
  /// The folder that was listed last, as it was found; known once the listing is done.
  const std::optional<Place>& Found() const { return found_; }

  /// What a folder knows of one of its entries; `folder` is its descriptor.
  static FileFacts FactsOf(int folder, const char* name, const std::string& documentExtension);
  /// The listing itself; `part` is called on the same thread, now and then without rows,
  /// and ends it with false.
  static void Read(const FolderItem& folder, const Order& order,
                   const std::function<bool(std::vector<BrowserRows::Row> rows, bool done)>& part);

 private:
  struct Work;
  void Deliver(const std::shared_ptr<Work>& work);

  std::shared_ptr<Work> work_;
  std::optional<Place> found_;
};

}  // namespace brivolant
