// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

#include "browser/BrowserRows.h"

class QThreadPool;

namespace brivolant {

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
  };
  /// Lists, after whatever was being listed is given up. Waits at most `patience` milliseconds
  /// for a quick end, so that small folders appear without a flicker.
  void List(const FolderItem& folder, const Order& order, int patience);
  void Stop();
  bool Running() const { return work_ != nullptr; }

  /// Sorted rows with their keys; `done` with the last part. Raised on the thread of the object.
  std::function<void(std::vector<BrowserRows::Row> rows, bool done)> Listed;

  /// The threads that folders and disks are read on. Not the ones that all share: the toolkit
  /// paints large areas on those, and a disk that does not answer would hold up the windows.
  static QThreadPool& Threads();

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
};

}  // namespace brivolant
