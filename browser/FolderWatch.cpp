// SPDX-License-Identifier: MIT
#include "browser/FolderWatch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>

namespace brivolant {

FolderWatch::FolderWatch(const FolderItem& folder, std::function<void()> changed)
    : descriptor_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)), changed_(std::move(changed)) {
  if (descriptor_ < 0) return;
  constexpr std::uint32_t kNews = IN_CREATE | IN_DELETE | IN_MOVE | IN_ATTRIB | IN_CLOSE_WRITE |
                                  IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
  (void)inotify_add_watch(descriptor_, folder.Path().c_str(), kNews);
  auto* notifier = new QSocketNotifier(descriptor_, QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [this] { Take(); });
}

FolderWatch::~FolderWatch() {
  qDeleteAll(children());
  if (descriptor_ >= 0) close(descriptor_);
}

void FolderWatch::Take() {
  // What changed is found by a look at the folder; here it counts only that something did.
  std::array<char, 4096> events{};
  bool any = false;
  while (read(descriptor_, events.data(), events.size()) > 0) any = true;
  if (any) changed_();
}

}  // namespace brivolant
