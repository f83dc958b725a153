// SPDX-License-Identifier: MIT
#include "platform/files/MountTable.h"

#include <unistd.h>

#include <QByteArray>
#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <map>

#include "platform/files/FileAddress.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 15> kDisks{"ext2",  "ext3",    "ext4",    "xfs",     "btrfs",
                                                  "f2fs",  "zfs",     "vfat",    "exfat",   "ntfs",
                                                  "ntfs3", "fuseblk", "hfsplus", "iso9660", "udf"};
constexpr std::array<std::string_view, 12> kShares{"nfs",   "nfs4",  "cifs",      "smb3",
                                                   "smbfs", "afs",   "ncpfs",     "9p",
                                                   "ceph",  "davfs", "glusterfs", "virtiofs"};
/// Programs that mount something for themselves.
constexpr std::array<std::string_view, 7> kInternal{
    "fuse.portal",     "fuse.lxcfs",          "fuse.gvfsd-fuse", "fuse.snapfuse",
    "fuse.squashfuse", "fuse.fuse-overlayfs", "fusectl"};
/// Programs whose files lie on this machine.
constexpr std::array<std::string_view, 5> kLocalPrograms{
    "fuse.encfs", "fuse.gocryptfs", "fuse.cryfs", "fuse.mergerfs", "fuse.bindfs"};
/// Where the system mounts what is its own.
constexpr std::array<std::string_view, 17> kSystem{
    "/bin", "/boot", "/dev",  "/efi", "/etc", "/lib", "/opt", "/proc", "/root",
    "/run", "/sbin", "/snap", "/sys", "/tmp", "/usr", "/var", "/nix"};
/// The exceptions: removable media.
constexpr std::array<std::string_view, 2> kMedia{"/run/media", "/var/run/media"};

template <std::size_t size>
bool Among(std::string_view text, const std::array<std::string_view, size>& known) {
  return std::find(known.begin(), known.end(), text) != known.end();
}

bool Under(std::string_view place, std::string_view folder) {
  return place.starts_with(folder) &&
         (place.size() == folder.size() || place[folder.size()] == '/' || folder == "/");
}

template <std::size_t size>
bool UnderOne(std::string_view place, const std::array<std::string_view, size>& folders) {
  return std::any_of(folders.begin(), folders.end(),
                     [&](std::string_view folder) { return Under(place, folder); });
}

/// A field of the list: blanks and the like stand as "\040".
std::string Unescaped(std::string_view field) {
  constexpr std::size_t kDigits = 3;
  std::string text;
  for (std::size_t i = 0; i < field.size(); ++i) {
    const std::string_view digits = field.substr(i + 1, kDigits);
    const bool escape =
        field[i] == '\\' && digits.size() == kDigits &&
        std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '7'; });
    if (!escape) {
      text += field[i];
      continue;
    }
    int value = 0;
    for (const char digit : digits) value = value * 8 + (digit - '0');
    text += static_cast<char>(value);
    i += kDigits;
  }
  return text;
}

std::string TextOf(const fs::path& file) {
  // The kernel's files tell no size: to the end.
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// The folders of the disks that a device lies on: of its own disk, or of those below an encrypted
/// or composed one.
void AddDisks(const fs::path& devices, const std::string& name, std::vector<fs::path>& disks) {
  std::error_code error;
  fs::path own = fs::canonical(devices / name, error);
  if (error) return;
  bool composed = false;
  for (fs::directory_iterator at(own / "slaves", error), end; !error && at != end;
       at.increment(error)) {
    composed = true;
    if (at->path().filename() != name) AddDisks(devices, at->path().filename().string(), disks);
  }
  if (composed) return;
  // A partition's folder lies in that of its disk.
  if (fs::exists(own / "partition", error)) own = own.parent_path();
  disks.push_back(std::move(own));
}

std::vector<fs::path> DisksOf(const FolderItem& devices, const std::string& device) {
  constexpr std::string_view kDevices = "/dev/";
  std::vector<fs::path> disks;
  if (!device.starts_with(kDevices)) return disks;
  std::error_code error;
  // "/dev/mapper/stick" leads to "/dev/dm-0".
  const fs::path real = fs::canonical(device, error);
  AddDisks(devices.Path(), (error ? fs::path(device) : real).filename().string(), disks);
  return disks;
}

/// A stick, a card, a disc, or a disk in a case of its own.
bool CanBeTakenOut(const fs::path& disk) {
  const std::string path = disk.string();
  return TextOf(disk / "removable").starts_with('1') || path.find("/usb") != std::string::npos ||
         path.find("/mmc_host/") != std::string::npos ||
         path.find("/firewire") != std::string::npos;
}

}  // namespace

bool Mount::Remote() const {
  return Among(Kind, kShares) || Kind == "fuse.gvfsd-fuse" ||
         (Kind.starts_with("fuse.") && !Among(Kind, kLocalPrograms) && !Among(Kind, kInternal));
}

bool Mount::OfUser() const {
  const std::string place = Root.ShellPath();
  if (place == "/") return true;
  const bool kind = Among(Kind, kDisks) || Among(Kind, kShares) ||
                    (Kind.starts_with("fuse.") && !Among(Kind, kInternal));
  // What programs carry with them is mounted under such names.
  const bool carried = place.find("/.mount_") != std::string::npos;
  return kind && !carried && (UnderOne(place, kMedia) || !UnderOne(place, kSystem));
}

bool Mount::Has(std::string_view option) const {
  const auto options = Split(Options, ',');
  return std::find(options.begin(), options.end(), option) != options.end();
}

MountTable MountTable::FromText(std::string_view text) {
  MountTable table;
  for (const std::string_view line : Split(text, '\n')) {
    std::vector<std::string> fields;
    for (const std::string_view field : Split(line, ' ')) {
      if (!field.empty()) fields.push_back(Unescaped(field));
    }
    constexpr std::size_t kFields = 4;
    if (fields.size() < kFields || !fields[1].starts_with('/')) continue;
    Mount mount{FolderItem(fields[1]), fields[2], fields[0], fields[3]};
    // The later one hides the earlier.
    std::erase_if(table.mounts_, [&](const Mount& known) { return known.Root == mount.Root; });
    table.mounts_.push_back(std::move(mount));
  }
  return table;
}

MountTable MountTable::Now() {
  return FromText(TextOf("/proc/self/mounts"));
}

const Mount* MountTable::Of(const FolderItem& place) const {
  const Mount* best = nullptr;
  const std::string path = place.ShellPath();
  for (const Mount& mount : mounts_) {
    if (!Under(path, mount.Root.ShellPath())) continue;
    const bool longer =
        best == nullptr || mount.Root.ShellPath().size() >= best->Root.ShellPath().size();
    if (longer) best = &mount;
  }
  return best;
}

std::vector<FolderItem> MountTable::OfUser() const {
  std::vector<FolderItem> roots;
  for (const Mount& mount : mounts_) {
    if (!mount.OfUser()) continue;
    roots.insert(mount.Root.Parent().IsNil() ? roots.begin() : roots.end(), mount.Root);
  }
  return roots;
}

bool MountTable::CanBeEjected(const Mount& mount, const FolderItem& devices,
                              const FolderItem& fixed) const {
  if (mount.Root.Parent().IsNil()) return false;
  if (mount.ByProgram() && mount.Kind != "fuseblk") {
    return mount.Has("user_id=" + std::to_string(getuid()));
  }
  if (mount.Remote()) {
    // Only what the administrator leaves to users.
    const MountTable table = FromText(TextOf(fixed.Path()));
    const Mount* known = table.Of(mount.Root);
    return known != nullptr && known->Root == mount.Root &&
           (known->Has("user") || known->Has("users") || known->Has("owner"));
  }
  const std::vector<fs::path> disks = DisksOf(devices, mount.Device);
  if (disks.empty() || !std::all_of(disks.begin(), disks.end(), CanBeTakenOut)) return false;
  // Not the stick that the system was started from.
  return std::none_of(mounts_.begin(), mounts_.end(), [&](const Mount& other) {
    if (other.OfUser() && !other.Root.Parent().IsNil()) return false;
    const std::vector<fs::path> others = DisksOf(devices, other.Device);
    return std::any_of(others.begin(), others.end(), [&](const fs::path& disk) {
      return std::find(disks.begin(), disks.end(), disk) != disks.end();
    });
  });
}

std::vector<std::string> MountTable::UnmountCommand(const FolderItem& root) const {
  const std::string place = root.ShellPath();
  if (DesktopShares::Holds(root)) return {"gio", "mount", "--unmount", FileAddress::Of(root)};
  const Mount* mount = Of(root);
  if (mount == nullptr || mount->Root != root) return {};
  if (mount->ByProgram() && mount->Kind != "fuseblk") return {"fusermount3", "-u", "--", place};
  if (mount->Remote()) return {"umount", "--", place};
  return {};
}

namespace DesktopShares {
namespace {

constexpr LocalizedText kShareOn{"VolumeItem.kShareOn", "<share> on <server>"};

std::string Decoded(std::string_view text) {
  std::string plain = EnsureUTF8(FileAddress::Decoded(text));
  std::replace(plain.begin(), plain.end(), '_', ' ');
  return plain;
}

}  // namespace

FolderItem Folder() {
  const std::string runtime = qgetenv("XDG_RUNTIME_DIR").toStdString();
  const FolderItem user(runtime.starts_with('/') ? runtime
                                                 : "/run/user/" + std::to_string(getuid()));
  return user.Child("gvfs");
}

bool AreServed(const MountTable& table) {
  const FolderItem folder = Folder();
  const Mount* mount = table.Of(folder);
  return mount != nullptr && mount->Root == folder;
}

std::vector<FolderItem> Roots(const FolderItem& folder) {
  std::vector<FolderItem> roots = folder.Children();
  std::sort(roots.begin(), roots.end(),
            [](const FolderItem& a, const FolderItem& b) { return a.Path() < b.Path(); });
  return roots;
}

bool Holds(const FolderItem& place) {
  return place.ShellPath().starts_with(Folder().ShellPath() + "/");
}

std::string CaptionOf(std::string_view name) {
  std::map<std::string, std::string, std::less<>> parts;
  const std::size_t colon = name.find(':');
  if (colon != std::string_view::npos) {
    for (const std::string_view part : Split(name.substr(colon + 1), ',')) {
      const std::size_t equals = part.find('=');
      if (equals == std::string_view::npos) continue;
      parts[std::string(part.substr(0, equals))] = Decoded(part.substr(equals + 1));
    }
  }
  const std::string server = parts.contains("server") ? parts["server"] : parts["host"];
  if (parts.contains("share") && !server.empty()) {
    return WithPlaceholders(kShareOn.Text(), {{"<share>", parts["share"]}, {"<server>", server}});
  }
  return server.empty() ? EnsureUTF8(name) : server;
}

}  // namespace DesktopShares
}  // namespace brivolant
