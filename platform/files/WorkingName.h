// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/files/FolderItem.h"

namespace brivolant {

/// Names under which files and folders grow beside the place that they will take, and what becomes
/// of those that a killed program left.
///
/// A name tells its writer: the machine, the session (one start of the machine, and one space of
/// process numbers in it) and the process. The writer keeps the growing item locked besides. Locks
/// alone do not do: some network file systems keep them to one machine, or have none, and a lock
/// comes a moment later than the file. The name alone does not either: numbers of processes come
/// again. So an item is swept only if its lock is free, and
/// - it is of this session and its process has gone, or
/// - it is of this machine in another session and nothing was written to it for a day.
/// What another machine writes is never swept here, whatever its age.
namespace WorkingName {

/// A free name beside `target`: hidden, with the extension of the target if `extension` is set,
/// since some encoders look at it.
FolderItem Beside(const FolderItem& target, bool extension);
/// Marks an open file or folder as growing as long as `descriptor` is open. A file system without
/// locks is no error: then nothing there is ever swept.
void Lock(int descriptor);
/// Deletes what killed saves left in a folder.
void Sweep(const FolderItem& folder);

}  // namespace WorkingName

/// A folder that grows beside its target under a working name, locked; gone again with the object,
/// also where a folder above it was moved, unless it has got another name.
class GrowingFolder {
 public:
  explicit GrowingFolder(const FolderItem& target);
  ~GrowingFolder();
  GrowingFolder(const GrowingFolder&) = delete;
  GrowingFolder& operator=(const GrowingFolder&) = delete;

  /// Nil if it could not be made.
  const FolderItem& Folder() const { return folder_; }

 private:
  FolderItem folder_;
  int descriptor_ = -1;
};

}  // namespace brivolant
