// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "browser/DiskThreads.h"
#include "browser/browserItem.h"
#include "platform/files/FolderItem.h"
#include "platform/files/MountTable.h"

namespace brivolant {

class PhotoFactsCache;

/// One hit of a search.
class SpotlightItem {
 public:
  SpotlightItem() = default;
  explicit SpotlightItem(std::shared_ptr<browserItem> item) : item_(std::move(item)) {}
  FolderItem File() const { return item_ ? item_->File() : FolderItem(); }
  /// The hit as a row of the browser.
  const std::shared_ptr<browserItem>& Row() const { return item_; }

 private:
  std::shared_ptr<browserItem> item_;
};

/// Searches the whole computer for images and folders whose name contains a text, without regard to
/// case: by a walk through the disks on all cores, and by the desktop's index where one runs, which
/// knows what the walk passes by. A share that does not answer and an index that is silent hold up
/// nothing but their own part, which is reported when it comes after all.
class SpotlightQuery final : public QObject {
 public:
  SpotlightQuery() = default;
  ~SpotlightQuery() override;

  /// The text.
  std::string Query;
  /// Folders that are searched; empty for the user's home, all disks, and the desktop's shares.
  std::vector<FolderItem> Roots;
  /// What is mounted; without it what the kernel lists when a search begins.
  std::optional<MountTable> Mounts;
  /// What is still searched once the disks of this machine are done may be silent for so long.
  std::chrono::milliseconds Patience{6000};
  /// Photos of which title or keywords hold the text are hits too, as far as they were read.
  std::shared_ptr<PhotoFactsCache> Facts;
  /// Called on a searching thread before it goes into a folder, which may take for ever.
  std::function<void(const std::string& folder)> Entering;
  /// Extension of the program's documents, which are folders that count as images.
  std::string DocumentExtension;

  /// Searches, after an earlier search is given up.
  void Run();
  /// Gives the search up; nothing is reported.
  void Stop();
  /// Ends the search with what was found so far, which is reported as ever.
  void Finish();
  void Pause();
  void Resume();
  /// True as long as hits may come.
  bool Running() const { return work_ != nullptr; }
  /// True after a search has ended and before the next begins, also if what is silent may still
  /// add to it.
  bool IsCompleted() const { return completed_; }
  int Count() const { return static_cast<int>(items_.size()); }
  const SpotlightItem& Item(int index) const { return items_.at(static_cast<std::size_t>(index)); }

  /// Raised on the thread of the object; again with all hits whenever what was silent has answered.
  std::function<void()> Completed;
  /// Now and then while it runs: where the search is, and how many hits there are.
  std::function<void(const std::string& folder, int found)> Progress;

 private:
  struct Lane;
  struct Work;
  /// Finds what each thread walks.
  static void Divide(Work& work);
  static void StartLane(const std::shared_ptr<Work>& work, Lane& lane, const std::string& root);
  static void AskShares(const std::shared_ptr<Work>& work);
  static void Hand(const std::shared_ptr<Work>& work, bool last);
  static void Search(const std::shared_ptr<Work>& work);
  static void Walk(Work& work, Lane& lane);
  static void WalkFolder(Work& work, const std::string& folder, std::vector<std::string>& inside);
  static void AskIndexes(const std::shared_ptr<Work>& work);
  static void Add(Work& work, const FolderItem& file, const FileFacts& facts);
  void Report(std::vector<SpotlightItem> hits, bool last);

  std::shared_ptr<Work> work_;
  /// Those of this search and of earlier ones.
  std::shared_ptr<DiskThreads::Count> threads_ = std::make_shared<DiskThreads::Count>();
  std::vector<SpotlightItem> items_;
  bool completed_ = false;
};

}  // namespace brivolant
