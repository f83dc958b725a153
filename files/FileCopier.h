// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <system_error>
#include <vector>

#include "platform/files/FolderItem.h"

namespace brivolant {

/// Copies files, links and whole folders into a folder. A copy grows under a working name and takes
/// its own only when it is whole; it never replaces anything. It keeps dates, permissions and the
/// user's own attributes, and a relative link still leads where it led: within what is copied to
/// the copy, else to the original. Works on one thread.
class FileCopier {
 public:
  /// One copy that was made, with what follows it, nil for nothing; and what both looked like then.
  struct Copy {
    FolderItem Item;
    std::string State;
    FolderItem Companion{};
    std::string CompanionState{};
  };

  /// A file that goes where another goes, under a name that follows the other's.
  struct Companions {
    /// Nil for none.
    std::function<FolderItem(const FolderItem& file)> Of;
    std::function<FolderItem(const FolderItem& companion, const FolderItem& file,
                             const FolderItem& copy)>
        Place;
  };

  /// `goOn` gets the part that is done, 0 to 1; false ends the copying.
  explicit FileCopier(std::function<bool(double done)> goOn, Companions companions = {})
      : goOn_(std::move(goOn)), companions_(std::move(companions)) {}

  /// Whole copies alone stay, also when it is ended. One that fails stops no other, but for a disk
  /// that is full.
  void CopyInto(const std::vector<FolderItem>& files, const FolderItem& folder);
  const std::vector<Copy>& Made() const { return made_; }
  /// Those that could not be copied.
  const std::vector<FolderItem>& Failed() const { return failed_; }

  /// A name in the folder that is free: "a.jpg", then "a-1.jpg" and so on.
  static FolderItem FreeName(const FolderItem& folder, const FolderItem& file);
  /// What tells whether a file, or anything in a folder, was changed: another text if it was. Ends
  /// early, and gives nothing, once `goOn` gives false; it may be null.
  static std::string StateOf(const FolderItem& item, const std::function<bool()>& goOn = nullptr);

 private:
  using Path = std::filesystem::path;
  std::error_code CopyOne(const FolderItem& file, FolderItem companion, const FolderItem& working,
                          const FolderItem& folder);
  /// Grows a copy beside its place; `state` is what it then looks like.
  std::error_code Grow(const FolderItem& file, const FolderItem& grown, std::string& state);
  std::error_code CopyEntry(const Path& from, const Path& to);
  std::error_code CopyFile(const Path& from, const Path& to);
  std::error_code CopyLink(const Path& from, const Path& to) const;
  std::error_code CopyFolder(const Path& from, const Path& to);
  bool Tell(std::uint64_t more);
  /// Adds what copying will cost; false if it should end.
  bool AddCost(const Path& path);
  void WriteOut(const FolderItem& folder);

  std::function<bool(double)> goOn_;
  Companions companions_;
  std::vector<Copy> made_;
  std::vector<FolderItem> failed_;
  /// What is copied at present, without links in its path.
  Path root_;
  std::uint64_t all_ = 0;
  std::uint64_t done_ = 0;
};

}  // namespace brivolant
