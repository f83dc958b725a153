// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "browser/browserItem.h"
#include "platform/files/FolderItem.h"

namespace brivolant {

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
/// knows what the walk passes by. A share that does not answer and an index that is silent end
/// nothing but their own part. Hits are there once the search has ended.
class SpotlightQuery final : public QObject {
 public:
  SpotlightQuery() = default;
  ~SpotlightQuery() override;

  /// The text.
  std::string Query;
  /// Folders that are searched; empty for the user's home and all disks.
  std::vector<FolderItem> Roots;
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
  bool Running() const { return work_ != nullptr; }
  /// True after a search has ended and before the next begins.
  bool IsCompleted() const { return completed_; }
  int Count() const { return static_cast<int>(items_.size()); }
  const SpotlightItem& Item(int index) const { return items_.at(static_cast<std::size_t>(index)); }

  /// Raised on the thread of the object.
  std::function<void()> Completed;
  /// Now and then while it runs: where the search is, and how many hits there are.
  std::function<void(const std::string& folder, int found)> Progress;

 private:
  struct Lane;
  struct Work;
  /// Finds what each thread walks.
  static void Divide(Work& work);
  static void Search(const std::shared_ptr<Work>& work);
  static void Walk(Work& work, Lane& lane);
  static void WalkFolder(Work& work, const std::string& folder, std::vector<std::string>& inside);
  static void AskIndexes(Work& work);
  static void Add(Work& work, const FolderItem& file, const FileFacts& facts);
  void Report(std::vector<SpotlightItem> hits);

  std::shared_ptr<Work> work_;
  std::vector<SpotlightItem> items_;
  bool completed_ = false;
};

}  // namespace brivolant
