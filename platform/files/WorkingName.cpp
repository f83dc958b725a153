// SPDX-License-Identifier: MIT
#include "platform/files/WorkingName.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <csignal>
#include <ctime>
#include <mutex>
#include <optional>
#include <random>
#include <vector>

#include "platform/files/FileLock.h"
#include "platform/files/FileNames.h"
#include "platform/values/Hash.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

/// ".photo~brv-" + machine, session and process of eight hexadecimal digits each, every one with a
/// "-" behind it, + six letters, + an extension.
constexpr std::string_view kMark = "~brv-";
constexpr int kDigits = 8;
constexpr std::size_t kField = kDigits + 1;
constexpr std::size_t kLetters = 6;
constexpr std::size_t kLongestExtension = 32;
constexpr std::time_t kDay = 24 * 60 * 60;

/// A short file; those of the kernel tell no length.
std::string ShortText(const char* path) {
  std::string text(256, '\0');
  const int file = open(path, O_RDONLY | O_CLOEXEC);
  if (file < 0) return {};
  const ssize_t size = read(file, text.data(), text.size());
  close(file);
  text.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
  return text;
}

struct Owner {
  std::string machine;
  std::string session;
  pid_t process = 0;
};

/// The process is asked for anew: this may be a fork.
Owner Here() {
  static const std::pair<std::string, std::string> place = [] {
    std::error_code error;
    std::string name(256, '\0');
    if (gethostname(name.data(), name.size() - 1) != 0) name.clear();
    const std::string machine = ShortText("/etc/machine-id") + name.substr(0, name.find('\0'));
    const std::string session = ShortText("/proc/sys/kernel/random/boot_id") +
                                std::filesystem::read_symlink("/proc/self/ns/pid", error).string();
    return std::pair{Hexadecimal(StableHash(machine), kDigits),
                     Hexadecimal(StableHash(session), kDigits)};
  }();
  return {place.first, place.second, getpid()};
}

/// Who writes an item of that name; nothing if it is no working name.
std::optional<Owner> OwnerOf(std::string_view name) {
  const std::size_t mark = name.rfind(kMark);
  if (!name.starts_with('.') || mark == std::string_view::npos) return std::nullopt;
  std::string_view fields = name.substr(mark + kMark.size());
  if (fields.size() < 3 * kField + kLetters) return std::nullopt;
  for (std::size_t at = 0; at < 3 * kField; ++at) {
    const bool digit =
        (fields[at] >= '0' && fields[at] <= '9') || (fields[at] >= 'A' && fields[at] <= 'F');
    if (at % kField == kDigits ? fields[at] != '-' : !digit) return std::nullopt;
  }
  // Nothing but an extension may follow.
  const std::string_view rest = fields.substr(3 * kField + kLetters);
  if (!rest.empty() && (!rest.starts_with('.') || rest.size() > kLongestExtension)) {
    return std::nullopt;
  }
  Owner owner{std::string(fields.substr(0, kDigits)), std::string(fields.substr(kField, kDigits)),
              0};
  const std::string_view process = fields.substr(2 * kField, kDigits);
  std::uint32_t number = 0;
  std::from_chars(process.data(), process.data() + process.size(), number, 16);
  owner.process = static_cast<pid_t>(number);
  return owner;
}

std::string NameFor(const FolderItem& target, std::string_view letters,
                    const std::string& extension) {
  const Owner owner = Here();
  const std::string tail = std::string(kMark) + owner.machine + '-' + owner.session + '-' +
                           Hexadecimal(static_cast<std::uint32_t>(owner.process), kDigits) + '-' +
                           std::string(letters) + extension;
  return "." + NumberedName(target.Path().stem().string(), 0, tail, 1);
}

std::string ExtensionOf(const FolderItem& target) {
  std::string extension = target.Path().extension().string();
  return extension.size() <= kLongestExtension ? extension : std::string();
}

bool Gone(pid_t process) {
  return process <= 0 || (kill(process, 0) != 0 && errno == ESRCH);
}

/// The last time that the item, or what lies directly in it, was written.
std::time_t LastWritten(const FolderItem& item) {
  std::time_t last = 0;
  const auto look = [&last](const FolderItem& one) {
    struct stat status {};
    if (lstat(one.Path().c_str(), &status) == 0) last = std::max(last, status.st_mtime);
  };
  look(item);
  if (item.Directory()) {
    for (const FolderItem& child : item.Children()) look(child);
  }
  return last;
}

bool Abandoned(const FolderItem& item, const Owner& owner) {
  const Owner here = Here();
  if (owner.machine != here.machine) return false;
  if (owner.session == here.session) return Gone(owner.process);
  return LastWritten(item) + kDay < std::time(nullptr);
}

void SweepOne(const FolderItem& item) {
  // Some network file systems lock only what may be written; a folder may only be read.
  constexpr int kOptions = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
  int descriptor = open(item.Path().c_str(), O_RDWR | kOptions);
  if (descriptor < 0) descriptor = open(item.Path().c_str(), O_RDONLY | kOptions);
  if (descriptor < 0) return;
  struct stat status {};
  const bool ours = fstat(descriptor, &status) == 0 && status.st_uid == geteuid() &&
                    (S_ISREG(status.st_mode) || S_ISDIR(status.st_mode));
  if (ours && FileLock::Lock(descriptor) == FileLock::kLocked) {
    (void)(S_ISDIR(status.st_mode) ? item.DeleteFolder() : item.Delete());
  }
  close(descriptor);
}

/// Where what is open lies now; nil if that cannot be told.
FolderItem PlaceOf(int descriptor) {
  if (descriptor < 0) return {};
  std::error_code error;
  const FolderItem place(
      std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), error));
  struct stat open {};
  struct stat there {};
  // What is gone, or lies elsewhere by now, has no place.
  const bool same = !error && fstat(descriptor, &open) == 0 &&
                    lstat(place.Path().c_str(), &there) == 0 && open.st_dev == there.st_dev &&
                    open.st_ino == there.st_ino;
  return same ? place : FolderItem();
}

/// Going through a very large folder takes longer than a small save, and edits are kept every few
/// seconds: there a minute passes between two looks.
class LargeFolder {
 public:
  bool LookedAtJustNow(const FolderItem& folder) {
    const std::lock_guard lock(mutex_);
    return folder == folder_ && Clock::now() - last_ < std::chrono::minutes(1);
  }
  void Remember(const FolderItem& folder, std::size_t entries) {
    constexpr std::size_t kLarge = 10000;
    if (entries < kLarge) return;
    const std::lock_guard lock(mutex_);
    folder_ = folder;
    last_ = Clock::now();
  }

 private:
  using Clock = std::chrono::steady_clock;
  std::mutex mutex_;
  FolderItem folder_;
  Clock::time_point last_;
};

}  // namespace

FolderItem WorkingName::Beside(const FolderItem& target, bool extension) {
  constexpr std::string_view kAlphabet = "abcdefghijklmnopqrstuvwxyz0123456789";
  std::random_device random;
  std::string letters;
  for (std::size_t i = 0; i < kLetters; ++i) letters += kAlphabet[random() % kAlphabet.size()];
  return target.Parent().Child(
      NameFor(target, letters, extension ? ExtensionOf(target) : std::string()));
}

void WorkingName::Lock(int descriptor) {
  // Nobody else knows the file yet, so this never waits.
  (void)FileLock::Lock(descriptor);
}

void WorkingName::Sweep(const FolderItem& folder) {
  static LargeFolder large;
  if (large.LookedAtJustNow(folder)) return;
  DIR* stream = opendir(folder.Path().c_str());
  if (stream == nullptr) return;
  std::vector<std::pair<FolderItem, Owner>> found;
  std::size_t entries = 0;
  while (const dirent* entry = readdir(stream)) {
    ++entries;
    if (entry->d_name[0] != '.') continue;
    if (auto owner = OwnerOf(entry->d_name)) {
      found.emplace_back(FolderItem::Entry(folder, entry->d_name), std::move(*owner));
    }
  }
  closedir(stream);
  large.Remember(folder, entries);
  for (const auto& [item, owner] : found) {
    if (Abandoned(item, owner)) SweepOne(item);
  }
}

GrowingFolder::GrowingFolder(const FolderItem& target) {
  constexpr mode_t kAll = 0777;
  constexpr int kTries = 8;
  for (int i = 0; i < kTries && folder_.IsNil(); ++i) {
    const FolderItem folder = WorkingName::Beside(target, false);
    if (mkdir(folder.Path().c_str(), kAll) == 0) {
      folder_ = folder;
    } else if (errno != EEXIST) {
      return;
    }
  }
  descriptor_ = open(folder_.Path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor_ >= 0) WorkingName::Lock(descriptor_);
}

GrowingFolder::~GrowingFolder() {
  if (folder_.IsNil()) return;
  // A folder above it may have another name by now.
  const FolderItem folder = PlaceOf(descriptor_);
  if (folder.Name() == folder_.Name()) {
    (void)folder.DeleteFolder();
  } else if (folder.IsNil() && folder_.Exists()) {
    (void)folder_.DeleteFolder();
  }
  if (descriptor_ >= 0) close(descriptor_);
}

}  // namespace brivolant
