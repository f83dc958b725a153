// SPDX-License-Identifier: MIT
#include "platform/files/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <string>

namespace brivolant {

FileLock::State FileLock::Lock(int descriptor) {
  if (descriptor < 0) return kNone;
  if (flock(descriptor, LOCK_EX | LOCK_NB) == 0) return kLocked;
  return errno == EWOULDBLOCK ? kTaken : kNone;
}

FileLock::FileLock(const FolderItem& item) {
  constexpr int kOptions = O_CLOEXEC | O_NONBLOCK;
  if (item.IsNil()) return;
  // Some network file systems lock only what may be written; a folder may only be read.
  descriptor_ = open(item.Path().c_str(), O_RDWR | kOptions);
  if (descriptor_ < 0) descriptor_ = open(item.Path().c_str(), O_RDONLY | kOptions);
  state_ = Lock(descriptor_);
  if (state_ == kTaken) close(std::exchange(descriptor_, -1));
}

FileLock FileLock::OfOwner(const FolderItem& file) {
  constexpr mode_t kMine = S_IRUSR | S_IWUSR;
  FileLock lock;
  lock.descriptor_ =
      open(file.Path().c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, kMine);
  struct stat status {};
  if (lock.descriptor_ < 0) return lock;
  if (fstat(lock.descriptor_, &status) != 0 || status.st_uid != geteuid() ||
      !S_ISREG(status.st_mode)) {
    lock.Release();
    return lock;
  }
  lock.state_ = Lock(lock.descriptor_);
  std::array<char, 32> text{};
  const ssize_t size = pread(lock.descriptor_, text.data(), text.size(), 0);
  if (size > 0) std::from_chars(text.data(), text.data() + size, lock.holder_);
  if (lock.state_ == kNone) {
    // Without locks, the process that says so has it as long as it lives.
    const bool lives = lock.holder_ > 0 && lock.holder_ != getpid() && kill(lock.holder_, 0) == 0;
    lock.state_ = lives ? kTaken : kLocked;
  }
  if (lock.state_ == kTaken) {
    close(std::exchange(lock.descriptor_, -1));
    return lock;
  }
  lock.holder_ = 0;
  const std::string own = std::to_string(getpid()) + "\n";
  if (ftruncate(lock.descriptor_, 0) != 0 ||
      pwrite(lock.descriptor_, own.data(), own.size(), 0) != static_cast<ssize_t>(own.size())) {
    // A full disk: the lock itself holds, only its holder has no name.
    return lock;
  }
  return lock;
}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
  if (this == &other) return *this;
  Release();
  descriptor_ = std::exchange(other.descriptor_, -1);
  state_ = std::exchange(other.state_, kNone);
  holder_ = other.holder_;
  return *this;
}

void FileLock::Release() {
  if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
  state_ = kNone;
}

}  // namespace brivolant
