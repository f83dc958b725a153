// SPDX-License-Identifier: MIT
#include "files/FileCopier.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <future>
#include <memory>
#include <thread>
#include <unordered_set>
#include <utility>

#include "files/FolderitemExtensions.h"
#include "platform/files/ExclusiveMove.h"
#include "platform/files/FileNames.h"
#include "platform/files/WorkingName.h"

namespace brivolant {
namespace {

namespace fs = std::filesystem;

/// Bytes between two looks at whether to go on.
constexpr std::size_t kPart = std::size_t{4} << 20U;
/// What an entry costs beside its bytes, in bytes.
constexpr std::uint64_t kEntry = 65536;
constexpr mode_t kPermissions = 0777;

std::error_code LastError() {
  return {errno, std::generic_category()};
}

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() { (void)Close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int Number() const { return number_; }
  bool Close() { return number_ < 0 || close(std::exchange(number_, -1)) == 0; }

 private:
  int number_;
};

std::array<timespec, 2> TimesOf(const struct stat& status) {
  return {status.st_atim, status.st_mtim};
}

bool Inside(const fs::path& path, const fs::path& root) {
  const auto [end, rest] = std::mismatch(root.begin(), root.end(), path.begin(), path.end());
  return end == root.end();
}

/// The path without links in that of its folder; a link itself stays.
fs::path WithoutLinks(const fs::path& path) {
  std::error_code error;
  const fs::path folder = fs::canonical(path.parent_path(), error);
  return error ? path.lexically_normal() : folder / path.filename();
}

/// Comments and ratings that programs keep with a file; not all file systems can.
void CopyAttributes(int from, int to) {
  constexpr std::string_view kUsers = "user.";
  std::array<char, 16384> names{};
  const ssize_t size = flistxattr(from, names.data(), names.size());
  for (ssize_t at = 0; at < size;) {
    const std::string name(names.data() + at);
    at += static_cast<ssize_t>(name.size()) + 1;
    if (!name.starts_with(kUsers)) continue;
    std::array<char, 65536> value{};
    const ssize_t length = fgetxattr(from, name.c_str(), value.data(), value.size());
    if (length < 0) continue;
    (void)fsetxattr(to, name.c_str(), value.data(), static_cast<std::size_t>(length), 0);
  }
}

bool AddState(const fs::path& path, const std::string& name, const std::function<bool()>& goOn,
              std::vector<std::string>& states) {
  if (goOn && !goOn()) return false;
  struct stat status {};
  if (lstat(path.c_str(), &status) != 0) return true;
  std::string state = name;
  const auto add = [&](auto number) { (state += '\0') += std::to_string(number); };
  add(status.st_mode);
  add(status.st_ino);
  if (S_ISDIR(status.st_mode)) {
    // Its entries speak for it.
    for (const FolderItem& inside : FolderItem(path).Children()) {
      if (!AddState(inside.Path(), name + "/" + inside.Name(), goOn, states)) return false;
    }
  } else {
    add(status.st_size);
    add(status.st_mtim.tv_sec);
    add(status.st_mtim.tv_nsec);
    add(status.st_ctim.tv_sec);
    add(status.st_ctim.tv_nsec);
  }
  states.push_back(std::move(state));
  return true;
}

FolderItem NumberedPlace(const FolderItem& folder, const FolderItem& file, int number) {
  const std::string extension = FolderitemExtensions::FileExtension(file);
  return folder.Child(NumberedName(FolderitemExtensions::FileNameWithoutExtension(file), number,
                                   extension.empty() ? "" : "." + extension));
}

/// One part of a file; gives the number of bytes, 0 at its end, less than 0 after an error.
ssize_t CopyPart(int from, int to, std::vector<char>& buffer) {
  if (buffer.empty()) {
    const ssize_t count = copy_file_range(from, nullptr, to, nullptr, kPart, 0);
    if (count > 0) return count;
    // Not between these two, or a file whose size is not told: by reading and writing.
    buffer.resize(kPart);
  }
  ssize_t count = 0;
  do {
    count = read(from, buffer.data(), buffer.size());
  } while (count < 0 && errno == EINTR);
  for (ssize_t written = 0; written < count;) {
    const ssize_t more =
        write(to, buffer.data() + written, static_cast<std::size_t>(count - written));
    if (more < 0 && errno == EINTR) continue;
    if (more <= 0) return -1;
    written += more;
  }
  return count;
}

}  // namespace

FolderItem FileCopier::FreeName(const FolderItem& folder, const FolderItem& file) {
  FolderItem target = folder.Child(file.Name());
  for (int n = 1; EntryExists(target); ++n) target = NumberedPlace(folder, file, n);
  return target;
}

std::string FileCopier::StateOf(const FolderItem& item, const std::function<bool()>& goOn) {
  std::vector<std::string> states;
  if (!AddState(item.Path(), {}, goOn, states)) return {};
  // A folder lists its entries in any order.
  std::sort(states.begin(), states.end());
  std::string all;
  for (const std::string& state : states) (all += state) += '\n';
  return all;
}

bool FileCopier::Tell(std::uint64_t more) {
  done_ = std::min(done_ + more, all_);
  return !goOn_ || goOn_(all_ == 0 ? 1 : static_cast<double>(done_) / static_cast<double>(all_));
}

bool FileCopier::AddCost(const Path& path) {
  struct stat status {};
  all_ += kEntry;
  if (!Tell(0)) return false;
  if (lstat(path.c_str(), &status) != 0) return true;
  if (S_ISREG(status.st_mode)) all_ += static_cast<std::uint64_t>(status.st_size);
  if (!S_ISDIR(status.st_mode)) return true;
  const std::vector<FolderItem> inside = FolderItem(path).Children();
  return std::all_of(inside.begin(), inside.end(),
                     [this](const FolderItem& item) { return AddCost(item.Path()); });
}

/// A card may be emptied, or a stick pulled out, as soon as the copies are there. A disk that does
/// not answer is not waited for once the copying should end: the thread that waits holds what it
/// needs.
void FileCopier::WriteOut(const FolderItem& folder) {
  constexpr std::chrono::milliseconds kLook{50};
  const auto disk =
      std::make_shared<Descriptor>(open(folder.Path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (disk->Number() < 0) return;
  const auto written = std::make_shared<std::promise<void>>();
  const std::future<void> done = written->get_future();
  std::thread([disk, written] {
    (void)syncfs(disk->Number());
    written->set_value();
  }).detach();
  while (done.wait_for(kLook) != std::future_status::ready) {
    if (!Tell(0)) return;
  }
}

void FileCopier::CopyInto(const std::vector<FolderItem>& files, const FolderItem& folder) {
  // What goes along with another goes once.
  struct Wanted {
    FolderItem File;
    FolderItem Companion;
  };
  std::vector<Wanted> wanted;
  std::unordered_set<std::string> along;
  for (const FolderItem& file : files) {
    if (goOn_ && !goOn_(0)) return;
    wanted.push_back({file, companions_.Of ? companions_.Of(file) : FolderItem()});
    if (wanted.back().Companion) along.insert(wanted.back().Companion.ShellPath());
  }
  std::erase_if(wanted, [&](const Wanted& one) { return along.contains(one.File.ShellPath()); });
  for (const Wanted& one : wanted) {
    if (!AddCost(one.File.Path())) return;
    if (one.Companion && !AddCost(one.Companion.Path())) return;
  }
  {
    const GrowingFolder growing(folder.Child("copies"));
    for (const Wanted& one : wanted) {
      const std::error_code error = growing.Folder()
                                        ? CopyOne(one.File, one.Companion, growing.Folder(), folder)
                                        : std::make_error_code(std::errc::permission_denied);
      if (error == std::errc::operation_canceled) return;
      if (!error) continue;
      failed_.push_back(one.File);
      if (error == std::errc::no_space_on_device) break;
    }
  }
  if (!made_.empty()) WriteOut(folder);
}

std::error_code FileCopier::Grow(const FolderItem& file, const FolderItem& grown,
                                 std::string& state) {
  root_ = WithoutLinks(file.Path());
  if (const std::error_code error = CopyEntry(file.Path(), grown.Path())) return error;
  // Going through a folder may take its time. Its own dates are no part of its state, so that it is
  // the same when it has its name.
  if (grown.Alias() || !grown.Directory()) return {};
  state = StateOf(grown, [this] { return Tell(0); });
  return state.empty() ? std::make_error_code(std::errc::operation_canceled) : std::error_code();
}

std::error_code FileCopier::CopyOne(const FolderItem& file, FolderItem companion,
                                    const FolderItem& working, const FolderItem& folder) {
  std::error_code error;
  const fs::path root = WithoutLinks(file.Path());
  if (!file.Alias() && Inside(fs::canonical(folder.Path(), error), root)) {
    return std::make_error_code(std::errc::invalid_argument);
  }
  const FolderItem grown = working.Child(file.Name());
  const FolderItem grownToo = companion ? working.Child(companion.Name()) : FolderItem();
  std::string state;
  std::string stateToo;
  error = Grow(file, grown, state);
  if (!error && companion) {
    const std::error_code failure = Grow(companion, grownToo, stateToo);
    if (failure == std::errc::operation_canceled) error = failure;
    // The photo can be had all the same; that something is missing is told.
    if (failure && !error) {
      failed_.push_back(companion);
      companion = {};
    }
  }
  FolderItem target;
  FolderItem targetToo;
  while (!error) {
    // A name that both can have.
    target = FreeName(folder, file);
    for (int n = 1; companion; ++n) {
      targetToo = companions_.Place(companion, file, target);
      if (!EntryExists(target) && !EntryExists(targetToo)) break;
      target = NumberedPlace(folder, file, n);
    }
    // What follows goes first: a photo never stands there without it.
    if (companion) error = MoveExclusively(grownToo, targetToo);
    if (!error) {
      error = MoveExclusively(grown, target);
      if (!error) break;
      if (companion && MoveExclusively(targetToo, grownToo)) break;
    }
    // Somebody took the name meanwhile: the next one.
    if (error == std::errc::file_exists) error.clear();
  }
  if (error) {
    std::error_code ignored;
    fs::remove_all(grown.Path(), ignored);
    if (grownToo) fs::remove_all(grownToo.Path(), ignored);
    return error;
  }
  Copy made{target, state.empty() ? StateOf(target) : std::move(state)};
  if (companion) {
    made.Companion = targetToo;
    made.CompanionState = StateOf(targetToo);
  }
  made_.push_back(std::move(made));
  return {};
}

std::error_code FileCopier::CopyEntry(const Path& from, const Path& to) {
  if (!Tell(0)) return std::make_error_code(std::errc::operation_canceled);
  struct stat status {};
  if (lstat(from.c_str(), &status) != 0) return LastError();
  std::error_code error = std::make_error_code(std::errc::invalid_argument);
  if (S_ISDIR(status.st_mode)) error = CopyFolder(from, to);
  if (S_ISLNK(status.st_mode)) error = CopyLink(from, to);
  if (S_ISREG(status.st_mode)) error = CopyFile(from, to);
  if (error) return error;
  const auto times = TimesOf(status);
  (void)utimensat(AT_FDCWD, to.c_str(), times.data(), AT_SYMLINK_NOFOLLOW);
  return Tell(kEntry) ? std::error_code() : std::make_error_code(std::errc::operation_canceled);
}

std::error_code FileCopier::CopyFile(const Path& from, const Path& to) {
  const Descriptor source(open(from.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
  if (source.Number() < 0) return LastError();
  Descriptor target(open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
  if (target.Number() < 0) return LastError();
  std::vector<char> buffer;
  while (true) {
    const ssize_t count = CopyPart(source.Number(), target.Number(), buffer);
    if (count < 0) return LastError();
    if (count == 0) break;
    if (!Tell(static_cast<std::uint64_t>(count))) {
      return std::make_error_code(std::errc::operation_canceled);
    }
  }
  struct stat status {};
  if (fstat(source.Number(), &status) != 0) return LastError();
  CopyAttributes(source.Number(), target.Number());
  // Some file systems keep no permissions.
  (void)fchmod(target.Number(), status.st_mode & kPermissions);
  return target.Close() ? std::error_code() : LastError();
}

std::error_code FileCopier::CopyLink(const Path& from, const Path& to) const {
  std::error_code error;
  Path leads = fs::read_symlink(from, error);
  if (error) return error;
  if (leads.is_relative()) {
    const Path absolute = (WithoutLinks(from).parent_path() / leads).lexically_normal();
    if (!Inside(absolute, root_)) leads = absolute;
  }
  fs::create_symlink(leads, to, error);
  return error;
}

std::error_code FileCopier::CopyFolder(const Path& from, const Path& to) {
  const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(from.c_str()), &closedir);
  if (!open) return LastError();
  struct stat status {};
  if (fstat(dirfd(open.get()), &status) != 0) return LastError();
  // The owner may always write into a copy; else it could not even be taken away again.
  if (mkdir(to.c_str(), (status.st_mode & kPermissions) | S_IRWXU) != 0) return LastError();
  // An end and an error look alike but for this.
  errno = 0;
  while (const dirent* entry = readdir(open.get())) {
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") {
      if (const std::error_code error = CopyEntry(from / name, to / name)) return error;
    }
    errno = 0;
  }
  return LastError();
}

}  // namespace brivolant
