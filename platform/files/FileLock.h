// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <utility>

#include "platform/files/FolderItem.h"

namespace brivolant {

/// An exclusive lock on a file or a folder for as long as the object lives, and its process. Every
/// other opening of the item sees it, in this process too. It hinders nobody who does not ask.
class FileLock {
 public:
  enum State {
    kLocked,
    /// Somebody else has it.
    kTaken,
    /// The item cannot be opened, or its file system knows no locks.
    kNone,
  };

  FileLock() = default;
  /// Locks an item that exists.
  explicit FileLock(const FolderItem& item);
  /// Locks a file, made if it is missing, that tells which process has it: for what one process may
  /// own whose file system may know no locks. A file of another user is none.
  static FileLock OfOwner(const FolderItem& file);
  ~FileLock() { Release(); }
  FileLock(FileLock&& other) noexcept
      : descriptor_(std::exchange(other.descriptor_, -1)),
        state_(std::exchange(other.state_, kNone)),
        holder_(other.holder_) {}
  FileLock& operator=(FileLock&& other) noexcept;

  State Is() const { return state_; }
  /// The process that had written itself into a file that is taken; 0 if it did not.
  pid_t Holder() const { return holder_; }
  void Release();

  /// True while somebody has the item.
  static bool InUse(const FolderItem& item) { return FileLock(item).Is() == kTaken; }
  /// Locks what is open, until it is closed; never waits.
  static State Lock(int descriptor);

 private:
  int descriptor_ = -1;
  State state_ = kNone;
  pid_t holder_ = 0;
};

}  // namespace brivolant
