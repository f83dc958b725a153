// SPDX-License-Identifier: MIT
#include "platform/files/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/files/WorkingName.h"

namespace brivolant {
namespace {

std::error_code LastError() {
  return {errno, std::generic_category()};
}

/// Who may do what with a file; nothing if it is not there.
std::optional<mode_t> ModeOf(const FolderItem& file) {
  struct stat status {};
  if (stat(file.Path().c_str(), &status) != 0) return std::nullopt;
  return status.st_mode & 07777;
}

}  // namespace

AtomicFile::AtomicFile(const FolderItem& target) : target_(target) {
  // A link keeps pointing at the file it names.
  if (target_.Alias()) {
    std::error_code error;
    const auto real = std::filesystem::weakly_canonical(target_.Path(), error);
    if (!error) target_ = FolderItem(real);
  }
  if (target_.IsNil()) {
    error_ = std::make_error_code(std::errc::invalid_argument);
    return;
  }
  mode_ = ModeOf(target_);
  // What is new gets what the system gives to new files; the umask cannot be asked for without
  // setting it for all threads. What replaces another file is closed to others until it is done.
  const mode_t mode = mode_ ? S_IRUSR | S_IWUSR : 0666;
  constexpr int kTries = 8;
  for (int i = 0; i < kTries && descriptor_ < 0; ++i) {
    working_ = WorkingName::Beside(target_, true);
    descriptor_ = open(working_.Path().c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (descriptor_ < 0 && errno != EEXIST) break;
  }
  if (descriptor_ < 0) {
    error_ = LastError();
    working_ = FolderItem();
    return;
  }
  WorkingName::Lock(descriptor_);
}

AtomicFile::~AtomicFile() {
  if (descriptor_ >= 0) close(descriptor_);
  if (working_) unlink(working_.Path().c_str());
}

std::error_code AtomicFile::Write(std::string_view bytes) {
  if (error_) return error_;
  while (!bytes.empty()) {
    const ssize_t written = write(descriptor_, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return error_ = LastError();
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return {};
}

std::error_code AtomicFile::Commit() {
  if (error_) return error_;
  if (const std::optional<mode_t> now = ModeOf(target_)) mode_ = now;
  if ((mode_ && fchmod(descriptor_, *mode_) != 0) || fsync(descriptor_) != 0) {
    return error_ = LastError();
  }
  if (close(std::exchange(descriptor_, -1)) != 0) return error_ = LastError();
  if (rename(working_.Path().c_str(), target_.Path().c_str()) != 0) return error_ = LastError();
  working_ = FolderItem();
  // The rename itself reaches the disk with the folder; a failure here loses nothing.
  const int folder = open(target_.Path().parent_path().c_str(), O_RDONLY | O_CLOEXEC);
  if (folder >= 0) {
    (void)fsync(folder);
    close(folder);
  }
  WorkingName::Sweep(target_.Parent());
  return {};
}

std::error_code WriteFileAtomically(const FolderItem& target, std::string_view bytes) {
  AtomicFile file(target);
  if (const std::error_code error = file.Write(bytes)) return error;
  return file.Commit();
}

std::error_code CopyFileAtomically(const FolderItem& source, const FolderItem& target) {
  constexpr std::size_t kPart = std::size_t{1} << 18;
  // A pipe would wait for ever for someone to write.
  const int from = open(source.Path().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (from < 0) return LastError();
  struct stat status {};
  if (fstat(from, &status) != 0 || !S_ISREG(status.st_mode)) {
    close(from);
    return std::make_error_code(std::errc::invalid_argument);
  }
  AtomicFile file(target);
  std::string part(kPart, '\0');
  std::error_code error;
  ssize_t count = 1;
  while (!error && count > 0) {
    count = read(from, part.data(), part.size());
    if (count < 0 && errno == EINTR) {
      count = 1;
    } else if (count < 0) {
      error = LastError();
    } else if (count > 0) {
      error = file.Write(std::string_view(part).substr(0, static_cast<std::size_t>(count)));
    }
  }
  close(from);
  return error ? error : file.Commit();
}

}  // namespace brivolant
