// SPDX-License-Identifier: MIT
#include "platform/files/FolderItem.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "platform/files/FileAddress.h"
#include "platform/files/FileNames.h"
#include "platform/files/WorkingName.h"
#include "platform/values/Date.h"
#include "platform/values/Text.h"

namespace brivolant {

namespace fs = std::filesystem;

namespace {

struct Descriptor {
  int number = -1;
  explicit Descriptor(int opened) : number(opened) {}
  ~Descriptor() {
    if (number >= 0) close(number);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
};

}  // namespace

FolderItem::FolderItem(const fs::path& path) {
  std::error_code error;
  path_ = path.empty() ? fs::path() : fs::absolute(path, error).lexically_normal();
  if (!path_.has_filename() && path_.has_relative_path()) path_ = path_.parent_path();
}

FolderItem FolderItem::Entry(const FolderItem& folder, std::string_view name) {
  FolderItem item;
  item.path_ = folder.path_ / name;
  return item;
}

std::string FolderItem::URLPath() const {
  return FileAddress::Of(*this);
}

std::string FolderItem::AbsolutePath() const {
  std::string text;
  for (const fs::path& part : path_.relative_path()) {
    if (!text.empty()) text += ':';
    text += part.string();
  }
  return text;
}

std::string FolderItem::Name() const {
  return path_.filename().string();
}

std::string FolderItem::DisplayName() const {
  return EnsureUTF8(Name());
}

FolderItem FolderItem::Parent() const {
  if (IsNil() || !path_.has_relative_path()) return {};
  return FolderItem(path_.parent_path());
}

FolderItem FolderItem::Child(std::string_view name) const {
  // Names come from users and from files: none leads out of the folder.
  return IsNil() || !IsPlainName(name) ? FolderItem() : FolderItem(path_ / name);
}

std::vector<FolderItem> FolderItem::Children() const {
  std::vector<FolderItem> children;
  std::error_code error;
  for (fs::directory_iterator at(path_, error), end; !error && at != end; at.increment(error)) {
    children.emplace_back(at->path());
  }
  return children;
}

bool FolderItem::Exists() const {
  std::error_code error;
  return !IsNil() && fs::exists(path_, error);
}

bool FolderItem::Directory() const {
  std::error_code error;
  return !IsNil() && fs::is_directory(path_, error);
}

bool FolderItem::Alias() const {
  std::error_code error;
  return !IsNil() && fs::is_symlink(path_, error);
}

bool FolderItem::IsReadable() const {
  return !IsNil() && access(path_.c_str(), R_OK) == 0;
}

bool FolderItem::IsWriteable() const {
  if (IsNil()) return false;
  if (Exists()) return access(path_.c_str(), W_OK) == 0;
  const FolderItem parent = Parent();
  return parent.Directory() && access(parent.path_.c_str(), W_OK) == 0;
}

std::uint64_t FolderItem::Length() const {
  std::error_code error;
  const std::uintmax_t size = IsNil() ? 0 : fs::file_size(path_, error);
  return error ? 0 : size;
}

std::optional<Date> FolderItem::ModificationDate() const {
  struct stat status {};
  if (IsNil() || stat(path_.c_str(), &status) != 0) return std::nullopt;
  return Date::FromUnixTime(status.st_mtim.tv_sec);
}

std::error_code FolderItem::CreateAsFolder() const {
  std::error_code error;
  fs::create_directories(path_, error);
  return error;
}

std::error_code FolderItem::CopyFileTo(const FolderItem& target) const {
  std::error_code error;
  fs::copy_file(path_, target.path_, error);
  return error;
}

namespace {

/// Waits until a file or folder is on the disk.
std::error_code Sync(const fs::path& path) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return {errno, std::generic_category()};
  const bool failed = fsync(descriptor) != 0 && errno != EINVAL;
  const std::error_code error{failed ? errno : 0, std::generic_category()};
  close(descriptor);
  return error;
}

std::error_code SyncAll(const fs::path& root) {
  std::error_code error;
  if (fs::is_directory(root, error)) {
    for (fs::recursive_directory_iterator at(root, error), end; !error && at != end;
         at.increment(error)) {
      if (!at->is_symlink() && (error = Sync(at->path()))) return error;
    }
    if (error) return error;
  }
  return Sync(root);
}

}  // namespace

std::error_code FolderItem::MoveFileTo(const FolderItem& target) const {
  if (target.Directory()) return std::make_error_code(std::errc::file_exists);
  std::error_code error;
  fs::rename(path_, target.path_, error);
  if (error != std::errc::cross_device_link) return error;
  // Another file system: the copy stands complete under another name before it takes its place.
  const FolderItem beside = WorkingName::Beside(target, false);
  std::error_code ignored;
  error.clear();
  fs::copy(path_, beside.path_, fs::copy_options::recursive, error);
  // The source may be the only one: it goes when the copy has reached the disk.
  if (!error) error = SyncAll(beside.path_);
  if (!error) fs::rename(beside.path_, target.path_, error);
  if (error) {
    fs::remove_all(beside.path_, ignored);
    return error;
  }
  (void)Sync(target.path_.parent_path());
  fs::remove_all(path_, error);
  WorkingName::Sweep(target.Parent());
  return error;
}

std::error_code FolderItem::Delete() const {
  std::error_code error;
  fs::remove(path_, error);
  return error;
}

std::error_code FolderItem::DeleteFolder() const {
  std::error_code error;
  fs::remove_all(path_, error);
  return error;
}

std::optional<std::string> ReadFile(const FolderItem& file, std::uint64_t limit) {
  // Without waiting for whoever may never write into a pipe.
  const Descriptor descriptor{
      file.IsNil() ? -1 : open(file.Path().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)};
  struct stat status {};
  if (descriptor.number < 0 || fstat(descriptor.number, &status) != 0 || !S_ISREG(status.st_mode)) {
    return std::nullopt;
  }
  const auto size = static_cast<std::uint64_t>(status.st_size);
  if (size > limit) return std::nullopt;
  std::string bytes(size, '\0');
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t count = read(descriptor.number, bytes.data() + done, bytes.size() - done);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
  }
  bytes.resize(done);
  return bytes;
}

}  // namespace brivolant
