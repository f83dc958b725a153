// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>

#include "platform/files/FolderItem.h"

namespace brivolant {

/// Tells when something in a folder comes, goes, or is written, or the folder itself goes. By the
/// bytes of its path, in whatever encoding they are. Belongs to the thread that makes it, which
/// needs an event loop; a folder that cannot be watched tells nothing.
class FolderWatch final : public QObject {
 public:
  FolderWatch(const FolderItem& folder, std::function<void()> changed);
  ~FolderWatch() override;

 private:
  void Take();

  int descriptor_ = -1;
  std::function<void()> changed_;
};

}  // namespace brivolant
