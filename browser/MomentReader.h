// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

#include "browser/PhotoFactsCache.h"
#include "browser/browserItem.h"

namespace brivolant {

/// Reads what photos tell beside the window, and hands it over now and then.
class MomentReader final : public QObject {
 public:
  MomentReader() = default;
  ~MomentReader() override;

  struct Told {
    FolderItem Photo;
    PhotoFactsCache::Facts Facts;
  };
  /// Reads these photos; what was being read is given up.
  void Read(std::vector<FolderItem> photos, const std::shared_ptr<PhotoFactsCache>& facts);
  void Stop();
  /// Raised on the thread of the object.
  std::function<void(const std::vector<Told>& told)> Known;

 private:
  struct Work;
  std::shared_ptr<Work> work_;
};

}  // namespace brivolant
