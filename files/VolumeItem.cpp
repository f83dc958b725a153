// SPDX-License-Identifier: MIT
#include "files/VolumeItem.h"

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/vfs.h>

#include <filesystem>

#include "platform/files/FileAddress.h"
#include "platform/files/MountTable.h"
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

struct statvfs Status(const FolderItem& root) {
  struct statvfs status {};
  if (statvfs(root.Path().c_str(), &status) != 0) return {};
  return status;
}

/// The label of a device's file system, as the system's folder of labels has it.
std::string LabelOf(const std::string& device) {
  namespace fs = std::filesystem;
  // Of others it may be a folder, or a place on a share that does not answer.
  if (!device.starts_with("/dev/")) return {};
  std::error_code error;
  const fs::path wanted = fs::canonical(device, error);
  if (error) return {};
  for (const FolderItem& label : FolderItem("/dev/disk/by-label").Children()) {
    if (fs::canonical(label.Path(), error) != wanted) continue;
    // Blanks and the like stand as "\x20".
    std::string name = label.Name();
    for (std::size_t at = name.find("\\x"); at != std::string::npos; at = name.find("\\x", at)) {
      name.replace(at, 2, "%");
    }
    return EnsureUTF8(FileAddress::Decoded(name));
  }
  return {};
}

}  // namespace

std::string VolumeItem::Name() const {
  if (root_.IsNil()) return {};
  if (DesktopShares::Holds(root_)) return DesktopShares::CaptionOf(root_.Name());
  const MountTable table = MountTable::Now();
  const Mount* mount = table.Of(root_);
  std::string label = mount == nullptr ? std::string() : LabelOf(mount->Device);
  if (!label.empty()) return label;
  return root_.Parent().IsNil() ? root_.ShellPath() : root_.DisplayName();
}

bool VolumeItem::isRemote() const {
  if (DesktopShares::Holds(root_)) return true;
  const MountTable table = MountTable::Now();
  const Mount* mount = table.Of(root_);
  return mount != nullptr && mount->Remote();
}

bool VolumeItem::Ejectable() const {
  if (DesktopShares::Holds(root_)) return true;
  const MountTable table = MountTable::Now();
  const Mount* mount = table.Of(root_);
  return mount != nullptr && mount->Root == root_ && table.CanBeEjected(*mount);
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
  return Ejected(desktop.Eject(root_), dialogs, log);
}

bool VolumeItem::Ejected(const std::string& error, Dialogs& dialogs, Log& log) const {
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
