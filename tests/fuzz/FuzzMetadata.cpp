// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "metadata/ImageMetaData.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // The reader takes a file, which need not lie on a disk.
  static const int file = memfd_create("photo", MFD_CLOEXEC);
  if (file < 0 || ftruncate(file, 0) != 0 ||
      pwrite(file, data, size, 0) != static_cast<ssize_t>(size)) {
    std::abort();
  }
  brivolant::ImageMetaData metadata;
  metadata.ReadFile(brivolant::FolderItem("/proc/self/fd/" + std::to_string(file)));
  // Whatever it holds, it was looked at.
  if (size > 0 && !metadata.ImageSummary) std::abort();
  brivolant::XMPProperties properties;
  (void)brivolant::ReadXMP(metadata.XMP, properties);
  for (const brivolant::TiffDataCoreClass* block :
       {static_cast<brivolant::TiffDataCoreClass*>(metadata.TIFFData.get()),
        static_cast<brivolant::TiffDataCoreClass*>(metadata.ExifData.get()),
        static_cast<brivolant::TiffDataCoreClass*>(metadata.GPSData.get()),
        static_cast<brivolant::TiffDataCoreClass*>(metadata.IPTCData.get()),
        static_cast<brivolant::TiffDataCoreClass*>(metadata.Photoshop.get()),
        static_cast<brivolant::TiffDataCoreClass*>(metadata.ColorProfile.get())}) {
    if (block == nullptr) continue;
    for (const auto& entry : block->AllData()) (void)block->StringValue(entry.Tag);
  }
  return 0;
}
