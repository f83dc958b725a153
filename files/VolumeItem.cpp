// SPDX-License-Identifier: MIT
#include "files/VolumeItem.h"

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>

#include <QFile>
#include <QStorageInfo>
#include <algorithm>
#include <array>

#include "platform/values/Text.h"

namespace brivolant {
namespace {

constexpr LocalizedText kMediaRemote{"VolumeItem.kMediaRemote", "Remote Volume"};
constexpr LocalizedText kMediaFixedDisk{"VolumeItem.kMediaFixedDisk", "Hard Drive"};
constexpr LocalizedText kErrorEjectFailedInUseMessage{
    "VolumeItem.ErrorEjectFailedInUseMessage",
    "The device \"<deviceName>\" couldn't be ejected at the moment, because it is currently in "
    "use."};
constexpr LocalizedText kErrorEjectFailedInUseExplaniation{
    "VolumeItem.ErrorEjectFailedInUseExplaniation",
    "Try closing unused documents and applications, especially documents that are saved on the "
    "device."};

constexpr std::array<std::string_view, 9> kRemoteKinds{
    "nfs", "nfs4", "cifs", "smb3", "smbfs", "afs", "fuse.sshfs", "fuse.gvfsd-fuse", "davfs"};

QStorageInfo Storage(const FolderItem& root) {
  return QStorageInfo(QFile::decodeName(root.Path().c_str()));
}

struct statvfs Status(const FolderItem& root) {
  struct statvfs status {};
  if (statvfs(root.Path().c_str(), &status) != 0) return {};
  return status;
}

/// True if the kernel says that the disk can be taken out.
bool Removable(const FolderItem& root) {
  const QByteArray device = Storage(root).device().split('/').last();
  // A partition's own folder has no such file: its disk's folder lies above it.
  for (const char* place : {"/sys/class/block/%/removable", "/sys/class/block/%/../removable"}) {
    QFile file(QString::fromUtf8(place).replace(QLatin1Char('%'), QString::fromUtf8(device)));
    if (file.open(QIODevice::ReadOnly)) return file.read(1) == "1";
  }
  return false;
}

}  // namespace

std::string VolumeItem::Name() const {
  if (root_.IsNil()) return {};
  const std::string name = Storage(root_).displayName().toStdString();
  return name == root_.ShellPath() && name.size() > 1 ? root_.DisplayName() : name;
}

bool VolumeItem::isRemote() const {
  const std::string kind = Storage(root_).fileSystemType().toStdString();
  return std::find(kRemoteKinds.begin(), kRemoteKinds.end(), kind) != kRemoteKinds.end();
}

bool VolumeItem::Ejectable() const {
  return isRemote() || Removable(root_);
}

std::string VolumeItem::Media() const {
  if (isRemote()) {
    return Child(
               "\xEF\xBB\xBF"
               "About your iDisk.rtf")
                   .Exists()
               ? "iDisk"
               : kMediaRemote.Text();
  }
  if (!Ejectable()) return kMediaFixedDisk.Text();
  if (Child("iPod_Control").Exists()) return "iPod";
  if (Child("PSP").Exists()) return "PSP";
  return "Disk";
}

bool VolumeItem::Eject(Desktop& desktop, Dialogs& dialogs, Log& log) const {
  const std::string error = desktop.Eject(root_);
  if (error.empty()) return true;
  if (error == "busy") {
    dialogs.Message(
        WithPlaceholders(kErrorEjectFailedInUseMessage.Text(), {{"<deviceName>", Name()}}),
        WithPlaceholders(kErrorEjectFailedInUseExplaniation.Text(), {{"<deviceName>", Name()}}));
  } else {
    std::error_code ignored;
    const FolderItem program(std::filesystem::read_symlink("/proc/self/exe", ignored));
    log.Write(program.Name() + " was unable to eject the device " + Name() +
              " because of error: " + error);
  }
  return false;
}

std::uint64_t VolumeItem::AvailableSpace() const {
  const struct statvfs status = Status(root_);
  return std::uint64_t{status.f_bavail} * status.f_frsize;
}

std::uint64_t VolumeItem::Capacity() const {
  const struct statvfs status = Status(root_);
  return std::uint64_t{status.f_blocks} * status.f_frsize;
}

std::uint64_t VolumeItem::FileCount() const {
  const struct statvfs status = Status(root_);
  return status.f_files - status.f_ffree;
}

std::string VolumeItem::Model() const {
  struct statfs status {};
  if (statfs(root_.Path().c_str(), &status) != 0) return {};
  return std::to_string(static_cast<std::uint32_t>(status.f_type));
}

std::uint64_t VolumeItem::MacVRefNum() const {
  struct stat status {};
  return stat(root_.Path().c_str(), &status) == 0 ? status.st_dev : 0;
}

}  // namespace brivolant
