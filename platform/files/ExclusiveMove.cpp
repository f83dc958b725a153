// SPDX-License-Identifier: MIT
#include "platform/files/ExclusiveMove.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QString>
#include <cerrno>
#include <cstdio>

#include "platform/files/FileNames.h"

namespace brivolant {
namespace {

std::error_code ErrorOf(int number) {
  return {number, std::generic_category()};
}

bool Refused(int error) {
  return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP || error == EPERM;
}

bool Look(const FolderItem& place, struct stat& status) {
  return lstat(place.Path().c_str(), &status) == 0;
}

int Move(const FolderItem& from, const FolderItem& to, const MoveCalls& calls) {
  const char* const source = from.Path().c_str();
  const char* const target = to.Path().c_str();
  const int error = calls.NoReplace(source, target);
  if (!Refused(error)) return error;
  // The file system knows no such rename. A second name for a file is as exclusive.
  struct stat status {};
  if (!Look(from, status)) return errno;
  if (!S_ISDIR(status.st_mode)) {
    const int linked = calls.Link(source, target);
    if (linked == 0) {
      if (unlink(source) == 0) return 0;
      const int kept = errno;
      (void)unlink(target);
      return kept;
    }
    if (!Refused(linked) && linked != EMLINK) return linked;
  }
  if (Look(to, status)) return EEXIST;
  return rename(source, target) == 0 ? 0 : errno;
}

/// Both names are those of one entry: the folder ignores case, and lists only the name of `from`.
bool ChangesCaseAlone(const FolderItem& from, const FolderItem& to) {
  if (from.Parent() != to.Parent()) return false;
  const auto folded = [](const FolderItem& file) {
    return QString::fromStdString(file.Name())
        .normalized(QString::NormalizationForm_C)
        .toCaseFolded();
  };
  if (folded(from) != folded(to)) return false;
  struct stat source {};
  struct stat target {};
  if (!Look(from, source)) return false;
  if (Look(to, target) && (source.st_dev != target.st_dev || source.st_ino != target.st_ino)) {
    return false;
  }
  bool listed = false;
  for (const FolderItem& entry : from.Parent().Children()) {
    if (entry.Name() == to.Name()) return false;
    listed = listed || entry.Name() == from.Name();
  }
  return listed;
}

/// By a name that is free, since the new one is taken by the very entry. Not a hidden one: if the
/// power fails here the file is to be found.
int MoveByAFreeName(const FolderItem& from, const FolderItem& to, const MoveCalls& calls) {
  constexpr int kMost = 1000;
  for (int n = 1; n < kMost; ++n) {
    const FolderItem free = to.Parent().Child(NumberedName(to.Name(), n, {}));
    const int error = Move(from, free, calls);
    if (error == EEXIST) continue;
    if (error != 0) return error;
    const int second = Move(free, to, calls);
    // Somebody was quicker: as it was.
    return second == 0 || Move(free, from, calls) == 0 ? second : EIO;
  }
  return EEXIST;
}

}  // namespace

const MoveCalls& MoveCalls::System() {
  static constexpr MoveCalls kCalls{
      [](const char* from, const char* to) {
        return renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0 ? 0 : errno;
      },
      [](const char* from, const char* to) {
        return linkat(AT_FDCWD, from, AT_FDCWD, to, 0) == 0 ? 0 : errno;
      }};
  return kCalls;
}

std::error_code MoveExclusively(const FolderItem& from, const FolderItem& to,
                                const MoveCalls& calls) {
  if (from.IsNil() || to.IsNil()) return std::make_error_code(std::errc::invalid_argument);
  if (from == to) return {};
  const int error = Move(from, to, calls);
  return ErrorOf(error == EEXIST && ChangesCaseAlone(from, to) ? MoveByAFreeName(from, to, calls)
                                                               : error);
}

bool EntryExists(const FolderItem& place) {
  struct stat status {};
  return !place.IsNil() && Look(place, status);
}

}  // namespace brivolant
