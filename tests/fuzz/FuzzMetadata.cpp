// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

#include "metadata/ImageMetaData.h"
#include "metadata/MetadataParts.h"
#include "metadata/MetadataWriter.h"

namespace {

[[noreturn]] void Fail(const char* what) {
  (void)std::fputs(what, stderr);
  std::abort();
}

/// What a plan makes of a file.
std::string Made(const std::string& old, const brivolant::FilePlan& plan) {
  std::string made;
  for (const brivolant::FilePiece& piece : plan.Pieces) {
    if (piece.Bytes.empty() &&
        (piece.From > old.size() || piece.Length > old.size() - piece.From)) {
      Fail("A piece lies beyond the end.\n");
    }
    made += piece.Bytes.empty() ? old.substr(piece.From, piece.Length) : piece.Bytes;
  }
  made.resize(plan.Length);
  for (const brivolant::BytePatch& patch : plan.Patches) {
    if (patch.At > made.size() || patch.Bytes.size() > made.size() - patch.At) {
      Fail("A patch lies beyond the end.\n");
    }
    made.replace(patch.At, patch.Bytes.size(), patch.Bytes);
  }
  return made;
}

/// Whatever a file is made of, what is written into it stays within it, can be read again, and has
/// not much grown.
void Write(const std::string& old, std::optional<brivolant::MetadataWriter::Strip> strip,
           const brivolant::ImageMetaData& before) {
  using brivolant::MetadataBlock;
  using Act = brivolant::MetadataChange::Act;
  brivolant::MetadataStream stream(old);
  const auto parts = brivolant::MetadataParts::Of(stream);
  if (!parts) return;
  bool done = true;
  if (strip) {
    done =
        *strip == brivolant::MetadataWriter::Strip::kAll ? parts->StripAll() : parts->StripPlace();
  } else {
    done = parts->Apply({Act::kSet, MetadataBlock::kTiff, "013B", "Anna Beispiel"});
    // What is refused of these leaves the others.
    for (const brivolant::MetadataChange& change :
         {brivolant::MetadataChange{Act::kSet, MetadataBlock::kExif, "A434", "A lens"},
          brivolant::MetadataChange{Act::kRemove, MetadataBlock::kTiff, "010F"},
          brivolant::MetadataChange{Act::kAdd, MetadataBlock::kIptc, "25", "one"},
          brivolant::MetadataChange{Act::kSet, MetadataBlock::kXmp, "dc:title", "A title"}}) {
      (void)parts->Apply(change);
    }
  }
  const auto plan = done ? parts->Plan() : std::nullopt;
  if (!plan) return;
  const std::string made = Made(old, *plan);
  constexpr std::size_t kMostGrowth = 4096;
  if (made.size() > 2 * old.size() + kMostGrowth) Fail("The file has grown.\n");
  static const int file = memfd_create("written", MFD_CLOEXEC);
  if (ftruncate(file, 0) != 0 ||
      pwrite(file, made.data(), made.size(), 0) != static_cast<ssize_t>(made.size())) {
    std::abort();
  }
  brivolant::ImageMetaData after;
  after.ReadFile(brivolant::FolderItem("/proc/self/fd/" + std::to_string(file)));
  if (!after.ImageSummary || after.ImageSummary->FileFormat != before.ImageSummary->FileFormat) {
    Fail("It is no such file any more.\n");
  }
}

}  // namespace

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
  const std::string old(reinterpret_cast<const char*>(data), size);
  Write(old, {}, metadata);
  Write(old, brivolant::MetadataWriter::Strip::kPlace, metadata);
  Write(old, brivolant::MetadataWriter::Strip::kAll, metadata);
  return 0;
}
