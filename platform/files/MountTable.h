// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files/FolderItem.h"

namespace brivolant {

/// A mounted file system.
struct Mount {
  FolderItem Root;
  /// "ext4", "nfs4", "fuse.sshfs" and so on.
  std::string Kind;
  /// A device of the machine, or the address of a share.
  std::string Device;
  /// Separated by commas.
  std::string Options;

  /// On another machine, or on a device such as a phone that is asked through a service.
  bool Remote() const;
  /// Served by a program: it may be silent for as long as that program is.
  bool ByProgram() const { return Kind.starts_with("fuse"); }
  /// It may stop to answer, unlike a disk of this computer.
  bool Apart() const { return Remote() || (ByProgram() && Kind != "fuseblk"); }
  /// True if a user may keep photos there, as opposed to what the system mounts for itself.
  bool OfUser() const;
  /// True if the option is set, such as "user_id=1000".
  bool Has(std::string_view option) const;

  friend bool operator==(const Mount&, const Mount&) = default;
};

/// What is mounted, as the kernel lists it. Nothing here asks a mounted file system anything, so
/// that one that is dead or asleep holds nobody up.
class MountTable {
 public:
  /// The mounts of this moment; what hides behind a later one is left out.
  static MountTable Now();
  /// From the text of such a list: device, place, kind and options in a line.
  static MountTable FromText(std::string_view text);

  const std::vector<Mount>& Mounts() const { return mounts_; }
  /// The mount that a place lies on, by the path alone; null if there is none.
  const Mount* Of(const FolderItem& place) const;
  /// The roots of what a user knows of, "/" first.
  std::vector<FolderItem> OfUser() const;
  /// True if this user can take the volume out, or unmount it. `devices` is the kernel's folder of
  /// block devices, `fixed` the table of mounts that the administrator wrote.
  bool CanBeEjected(const Mount& mount, const FolderItem& devices = FolderItem("/sys/class/block"),
                    const FolderItem& fixed = FolderItem("/etc/fstab")) const;
  /// The program that unmounts what is at a place, with its arguments; empty for a disk, which is
  /// unmounted by the desktop's service of disks.
  std::vector<std::string> UnmountCommand(const FolderItem& root) const;

  friend bool operator==(const MountTable&, const MountTable&) = default;

 private:
  std::vector<Mount> mounts_;
};

/// What the desktop's own service of phones, cameras and shares shows as folders, each a volume of
/// its own. Asks that service: on a thread that may wait.
namespace DesktopShares {

/// The folder in which they are.
FolderItem Folder();
/// True if the service runs; by the table alone.
bool AreServed(const MountTable& table);
std::vector<FolderItem> Roots(const FolderItem& folder = Folder());
/// True if a place is one of them, or lies in one; by the path alone.
bool Holds(const FolderItem& place);
/// "photos on nas" of "smb-share:server=nas,share=photos"; the name itself if it says nothing.
std::string CaptionOf(std::string_view name);

}  // namespace DesktopShares
}  // namespace brivolant
