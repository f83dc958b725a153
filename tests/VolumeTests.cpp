// SPDX-License-Identifier: MIT
// Volumes and places: what is known of them without asking a disk, and who is asked for the rest.
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Helpers.h"
#include "browser/SideBarItem.h"
#include "browser/VolumeList.h"
#include "platform/files/MountTable.h"

namespace brivolant::test {
namespace {

using testing::ElementsAre;

std::vector<std::string> OfUser(const std::string& text) {
  std::vector<std::string> paths;
  for (const FolderItem& root : MountTable::FromText(text).OfUser()) {
    paths.push_back(root.ShellPath());
  }
  return paths;
}

TEST(MountTable, ListsWhatAUserKeepsPhotosOn) {
  EXPECT_THAT(OfUser("proc /proc proc rw 0 0\n"
                     "tmpfs /run tmpfs rw 0 0\n"
                     "/dev/sda2 /boot ext4 rw 0 0\n"
                     "/dev/sdb1 /media/ann/My\\040Card vfat rw 0 0\n"
                     "/dev/sda1 / ext4 rw 0 0\n"
                     "/dev/sda3 /home f2fs rw 0 0\n"
                     "tank/photos /tank/photos zfs rw 0 0\n"
                     "tank/log /var/log zfs rw 0 0\n"
                     "nas:/photos /mnt/nas nfs4 rw 0 0\n"
                     "ann@host:/pictures /home/ann/host fuse.sshfs rw,user_id=1000 0 0\n"
                     "/dev/sdc1 /run/media/ann/Disk ext4 rw 0 0\n"
                     "gvfsd-fuse /run/user/1000/gvfs fuse.gvfsd-fuse rw 0 0\n"
                     "portal /run/user/1000/doc fuse.portal rw 0 0\n"
                     "App /tmp/.mount_AppX fuse.App ro 0 0\n"
                     "a line that is none\n"),
              ElementsAre("/", "/media/ann/My Card", "/home", "/tank/photos", "/mnt/nas",
                          "/home/ann/host", "/run/media/ann/Disk"));
}

TEST(MountTable, KnowsAPlaceByItsPathAlone) {
  const MountTable table = MountTable::FromText(
      "/dev/sda1 / ext4 rw 0 0\nnas:/a /mnt/nas nfs4 rw 0 0\nauto /mnt/b autofs rw 0 0\n"
      "nas:/b /mnt/b cifs rw 0 0\n");
  const auto kind = [&](const char* path) { return table.Of(FolderItem(path))->Kind; };
  EXPECT_EQ(kind("/mnt/nas/deep/er"), "nfs4");
  EXPECT_EQ(kind("/mnt/nasty"), "ext4");
  EXPECT_EQ(kind("/mnt/b"), "cifs") << "the later mount hides the earlier";
  EXPECT_TRUE(table.Of(FolderItem("/mnt/nas"))->Remote());
  EXPECT_FALSE(table.Of(FolderItem("/home"))->Remote());
  EXPECT_EQ(MountTable::FromText("").Of(FolderItem("/")), nullptr);
}

/// The kernel's folder of devices: a disk of the machine, a disk at USB, a card, and an encrypted
/// stick.
struct Devices {
  TemporaryFolder folder;
  FolderItem blocks = folder.Child("class");
  Devices() {
    EXPECT_FALSE(blocks.CreateAsFolder());
    Disk("pci/ata1/sda", "0", {"sda1", "sda2"});
    Disk("pci/usb1/sdb", "0", {"sdb1"});
    Disk("pci/mmc_host/mmcblk0", "0", {"mmcblk0p1"});
    Disk("pci/usb2/sdc", "1", {"sdc1"});
    Disk("virtual/dm-0", "0", {});
    EXPECT_FALSE(folder.Child("virtual/dm-0/slaves/sdc1").CreateAsFolder());
  }
  void Disk(const std::string& path, const char* removable,
            const std::vector<std::string>& partitions) {
    EXPECT_FALSE(folder.Child(path).CreateAsFolder());
    folder.Write(path + "/removable", removable);
    Link(path);
    for (const std::string& partition : partitions) {
      EXPECT_FALSE(folder.Child(path + "/" + partition).CreateAsFolder());
      folder.Write(path + "/" + partition + "/partition", "1");
      Link(path + "/" + partition);
    }
  }
  void Link(const std::string& path) {
    const FolderItem device = folder.Child(path);
    EXPECT_EQ(symlink(device.Path().c_str(), blocks.Child(device.Name()).Path().c_str()), 0);
  }
};

TEST(MountTable, OffersToEjectWhatThisUserCan) {
  const Devices devices;
  const FolderItem fixed = devices.folder.Write(
      "fstab", "nas:/open /mnt/open nfs noauto,user 0 0\nnas:/shut /mnt/shut nfs defaults 0 0\n");
  const std::string own = "user_id=" + std::to_string(getuid());
  const MountTable table = MountTable::FromText(
      "/dev/sda1 / ext4 rw 0 0\n/dev/sda2 /home ext4 rw 0 0\n/dev/sdb1 /media/usb ext4 rw 0 0\n"
      "/dev/mmcblk0p1 /media/card vfat rw 0 0\n/dev/dm-0 /media/locked ext4 rw 0 0\n"
      "nas:/open /mnt/open nfs rw 0 0\nnas:/shut /mnt/shut nfs rw 0 0\n"
      "h:/ /home/mine fuse.sshfs rw," +
      own + " 0 0\nh:/ /home/theirs fuse.sshfs rw,user_id=4000000 0 0\n");
  std::vector<std::string> offered;
  for (const Mount& mount : table.Mounts()) {
    if (table.CanBeEjected(mount, devices.blocks, fixed)) {
      offered.push_back(mount.Root.ShellPath());
    }
  }
  EXPECT_THAT(offered,
              ElementsAre("/media/usb", "/media/card", "/media/locked", "/mnt/open", "/home/mine"));
  // The stick that the system was started from stays in.
  const MountTable live =
      MountTable::FromText("/dev/sdb1 / ext4 rw 0 0\n/dev/sdb1 /media/usb ext4 rw 0 0\n");
  EXPECT_FALSE(live.CanBeEjected(live.Mounts()[1], devices.blocks, fixed));
}

TEST(MountTable, EachKindIsUnmountedByWhatMountedIt) {
  const MountTable table = MountTable::FromText(
      "/dev/sdb1 /media/usb ext4 rw 0 0\nh:/ /home/h fuse.sshfs rw 0 0\nn:/ /mnt/n nfs rw 0 0\n"
      "/dev/sdb2 /media/ntfs fuseblk rw 0 0\n");
  const auto command = [&](const char* root) { return table.UnmountCommand(FolderItem(root)); };
  EXPECT_THAT(command("/media/usb"), testing::IsEmpty());
  EXPECT_THAT(command("/media/ntfs"), testing::IsEmpty());
  EXPECT_THAT(command("/home/h"), ElementsAre("fusermount3", "-u", "--", "/home/h"));
  EXPECT_THAT(command("/mnt/n"), ElementsAre("umount", "--", "/mnt/n"));
  EXPECT_THAT(command("/home/h/inside"), testing::IsEmpty());
}

TEST(DesktopShares, AreVolumesWithNamesForPeople) {
  for (const auto& [name, caption] :
       {std::pair{"smb-share:server=nas.local,share=family_photos", "family photos on nas.local"},
        {"gphoto2:host=Some_Camera_1", "Some Camera 1"},
        {"mtp:host=Ann%27s_Phone", "Ann's Phone"},
        {"sftp:host=attic,user=ann", "attic"},
        {"strange", "strange"},
        {"x:y,z", "x:y,z"}}) {
    EXPECT_EQ(DesktopShares::CaptionOf(name), caption);
  }
  const TemporaryFolder folder;
  setenv("XDG_RUNTIME_DIR", folder.Item().ShellPath().c_str(), 1);
  const FolderItem phone = folder.Child("gvfs/mtp:host=Phone");
  ASSERT_FALSE(phone.CreateAsFolder());
  EXPECT_THAT(DesktopShares::Roots(), ElementsAre(phone));
  EXPECT_TRUE(DesktopShares::Holds(phone.Child("DCIM")));
  EXPECT_FALSE(DesktopShares::Holds(folder.Item()));
  const VolumeItem volume(phone);
  EXPECT_EQ(volume.Name(), "Phone");
  EXPECT_TRUE(volume.isRemote() && volume.Ejectable());
  unsetenv("XDG_RUNTIME_DIR");
}

TEST(VolumeList, RowsAreThereAtOnceAndFilledInWhenTheVolumeAnswers) {
  VolumeList list;
  const auto first = list.Look();
  ASSERT_FALSE(first.empty());
  EXPECT_EQ(first.front()->File(), FolderItem("/"));
  EXPECT_FALSE(first.front()->Name.empty());
  const auto known = [&] { return list.Look().front()->Volume.Known; };
  for (int i = 0; i < 2000 && !known(); ++i) usleep(5000);
  ASSERT_TRUE(known());
  const VolumeFacts& facts = list.Look().front()->Volume;
  EXPECT_EQ(facts.Capacity, VolumeItem(FolderItem("/")).Capacity());
  EXPECT_EQ(facts.Media, VolumeItem(FolderItem("/")).Media());
  EXPECT_GT(facts.Modified, 0);
  EXPECT_FALSE(facts.Ejectable);
}

TEST(Places, ANewUserFindsTheFoldersThatAreThere) {
  const TemporaryFolder home;
  setenv("HOME", home.Item().ShellPath().c_str(), 1);
  setenv("XDG_CONFIG_HOME", home.Child("config").ShellPath().c_str(), 1);
  setenv("XDG_DATA_HOME", home.Child("data").ShellPath().c_str(), 1);
  const auto captions = [&] {
    SideBarCollection places;
    SideBarSources::AddDefaults(places, home.Child("Documents/Brivolant"));
    std::vector<std::string> all;
    for (const auto& place : places.item) all.push_back(place->Caption);
    return all;
  };
  const std::string own = home.Item().DisplayName();
  EXPECT_THAT(captions(), ElementsAre(own, "Favorites"));
  for (const char* folder : {"Pictures/Photo Booth", "Pictures/Webcam", "Desktop", "Public",
                             "Documents/Brivolant", "Downloads", "Library/Mail Downloads"}) {
    ASSERT_FALSE(home.Child(folder).CreateAsFolder());
  }
  EXPECT_THAT(captions(),
              ElementsAre("Pictures", "Desktop", "Documents", "Public", "Downloads", "Photo Booth",
                          "Webcam", own, "Brivolant", "Mail Downloads", "Favorites"));
}

}  // namespace
}  // namespace brivolant::test
