// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/files/FolderItem.h"
#include "platform/services/Services.h"

namespace brivolant {

/// A mounted disk, share or device. Name, isRemote and Ejectable follow from the kernel's tables;
/// the rest asks the volume itself and may wait for it.
class VolumeItem {
 public:
  /// `root` is the folder at which the disk is mounted; nil makes a volume without facts.
  explicit VolumeItem(FolderItem root) : root_(std::move(root)) {}

  operator const FolderItem&() const { return root_; }  // NOLINT(google-explicit-constructor)

  std::string Name() const;
  std::string Path() const { return root_.ShellPath(); }
  /// What it is, for the user and for its icon: "Hard Drive", "Disk", "iPod" and so on.
  std::string Media() const;
  bool isRemote() const;
  /// This user can take it out, or end the connection to it.
  bool Ejectable() const;
  /// True on success. If the disk is in use the user is told; any other error is logged.
  [[nodiscard]] bool Eject(Desktop& desktop, Dialogs& dialogs, Log& log) const;
  /// The same of what Desktop::Eject gave back, which waits for the disk and so has a thread of its
  /// own.
  bool Ejected(const std::string& error, Dialogs& dialogs, Log& log) const;
  /// Bytes.
  std::uint64_t AvailableSpace() const;
  std::uint64_t Capacity() const;
  std::uint64_t UsedSpace() const { return Capacity() - AvailableSpace(); }
  std::uint64_t FileCount() const;
  /// File systems here do not count folders apart: 0.
  std::uint64_t DirectoryCount() const { return 0; }
  /// The number of the file system's kind.
  std::string Model() const;
  /// The device's number.
  std::uint64_t MacVRefNum() const;
  FolderItem Child(std::string_view name) const { return root_.Child(name); }

  std::string SerialNumber() const { return {}; }
  std::string SMARTStatus() const { return {}; }
  std::string Revision() const { return {}; }
  std::string FileSystem() const { return {}; }
  std::string MountPoint() const { return {}; }
  std::string BSDName() const { return {}; }
  bool ReadOnly() const { return false; }

 private:
  FolderItem root_;
};

}  // namespace brivolant
