// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "browser/browserItem.h"
#include "platform/files/MountTable.h"

namespace brivolant {

/// The computer's volumes: disks, shares, phones and cameras. What must be asked of a volume itself
/// is asked on a thread of its own, so that one that is silent holds nothing up, and is there at a
/// later look. Belongs to one thread.
class VolumeList {
 public:
  VolumeList();
  ~VolumeList();
  VolumeList(const VolumeList&) = delete;
  VolumeList& operator=(const VolumeList&) = delete;

  /// The volumes as they are known now, as rows. Waits for nothing.
  const std::vector<std::shared_ptr<browserItem>>& Look();

 private:
  struct Asked;
  void AskShares();
  void AskVolume(const FolderItem& root);

  std::shared_ptr<Asked> asked_;
  MountTable table_;
  std::vector<FolderItem> shares_;
  std::vector<std::shared_ptr<browserItem>> rows_;
};

}  // namespace brivolant
