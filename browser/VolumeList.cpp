// SPDX-License-Identifier: MIT
#include "browser/VolumeList.h"

#include <fcntl.h>

#include <chrono>
#include <map>
#include <mutex>
#include <thread>

#include "browser/FolderLister.h"
#include "browser/SideBarItem.h"

namespace brivolant {
namespace {

using Steady = std::chrono::steady_clock;

/// Between two questions of what the desktop's service has mounted.
constexpr std::chrono::seconds kShares{2};

}  // namespace

/// What threads answer. They hold it until they end, which may be never.
struct VolumeList::Asked {
  std::mutex mutex;
  std::vector<FolderItem> shares;
  bool asking = false;
  Steady::time_point askedAt;
  struct Volume {
    bool answered = false;
    VolumeFacts facts;
  };
  std::map<std::string, Volume> volumes;
};

VolumeList::VolumeList() : asked_(std::make_shared<Asked>()) {}

VolumeList::~VolumeList() = default;

void VolumeList::AskShares() {
  // Without a mount of the service there is nobody to ask.
  const bool runs = DesktopShares::AreServed(table_);
  const std::lock_guard lock(asked_->mutex);
  if (!runs) asked_->shares.clear();
  if (!runs || asked_->asking || Steady::now() - asked_->askedAt < kShares) return;
  asked_->asking = true;
  std::thread([asked = asked_] {
    std::vector<FolderItem> roots = DesktopShares::Roots();
    const std::lock_guard answer(asked->mutex);
    asked->shares = std::move(roots);
    asked->asking = false;
    asked->askedAt = Steady::now();
  }).detach();
}

void VolumeList::AskVolume(const FolderItem& root) {
  std::thread([asked = asked_, root] {
    VolumeFacts facts;
    const VolumeItem volume(root);
    facts.Media = volume.Media();
    facts.Capacity = volume.Capacity();
    facts.Modified = FolderLister::FactsOf(AT_FDCWD, root.Path().c_str(), {}).Modified;
    const std::lock_guard answer(asked->mutex);
    asked->volumes[root.ShellPath()] = {true, std::move(facts)};
  }).detach();
}

const std::vector<std::shared_ptr<browserItem>>& VolumeList::Look() {
  MountTable table = MountTable::Now();
  const bool changed = table != table_;
  table_ = std::move(table);
  AskShares();
  std::vector<FolderItem> shares;
  {
    const std::lock_guard lock(asked_->mutex);
    shares = asked_->shares;
  }
  if (changed || shares != shares_) {
    shares_ = shares;
    rows_.clear();
    std::vector<FolderItem> roots = table_.OfUser();
    roots.insert(roots.end(), shares.begin(), shares.end());
    for (const FolderItem& root : roots) {
      auto row = std::make_shared<browserItem>();
      const VolumeItem volume(root);
      row->Name = SideBarSources::CaptionOf(volume);
      row->item = volume;
      row->Volume.Ejectable = volume.Ejectable();
      rows_.push_back(std::move(row));
    }
  }
  const std::lock_guard lock(asked_->mutex);
  // A volume that was away is asked anew when it is back.
  std::erase_if(asked_->volumes, [&](const auto& known) {
    return std::none_of(rows_.begin(), rows_.end(),
                        [&](const auto& row) { return row->File().ShellPath() == known.first; });
  });
  for (const auto& row : rows_) {
    const auto [known, fresh] = asked_->volumes.try_emplace(row->File().ShellPath());
    if (fresh) AskVolume(row->File());
    if (!known->second.answered || row->Volume.Known) continue;
    const bool ejectable = row->Volume.Ejectable;
    row->Volume = known->second.facts;
    row->Volume.Ejectable = ejectable;
    row->Volume.Known = true;
  }
  return rows_;
}

}  // namespace brivolant
