// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/files/FolderItem.h"

namespace brivolant {

/// A file that is written beside its target and takes the target's place only when it is
/// complete. Until Commit the target is untouched; without Commit nothing remains. What a killed
/// program left in the folder goes with the next Commit (WorkingName).
class AtomicFile {
 public:
  /// `target` may exist. The working file lies in the same folder, with the same extension.
  explicit AtomicFile(const FolderItem& target);
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  /// Empty if the working file could be created.
  std::error_code Error() const { return error_; }
  /// Open for writing, owned by this object.
  int Descriptor() const { return descriptor_; }
  /// The file that grows; nil when it has taken its place.
  const FolderItem& Working() const { return working_; }

  [[nodiscard]] std::error_code Write(std::string_view bytes);
  /// Flushes to the disk and renames over the target.
  [[nodiscard]] std::error_code Commit();

 private:
  FolderItem target_;
  FolderItem working_;
  int descriptor_ = -1;
  /// Of the file that is replaced.
  std::optional<mode_t> mode_;
  std::error_code error_;
};

/// Replaces the content of `target` by `bytes`, or leaves it as it was.
[[nodiscard]] std::error_code WriteFileAtomically(const FolderItem& target, std::string_view bytes);
/// The same with the content of another file.
[[nodiscard]] std::error_code CopyFileAtomically(const FolderItem& source,
                                                 const FolderItem& target);

}  // namespace brivolant
