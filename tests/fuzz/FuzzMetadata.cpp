// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "metadata/ContainerParts.h"
#include "metadata/ImageMetaData.h"
#include "metadata/JpegMarks.h"
#include "metadata/MetadataParts.h"
#include "metadata/MetadataWriter.h"
#include "metadata/XMPExtension.h"
#include "platform/files/AtomicFile.h"

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

/// What is told of a file, but for what was asked to change or follows from that.
std::map<std::string, std::string> Told(const brivolant::ImageMetaData& data) {
  static const std::set<std::string> kFollow{"TIFF.013B",      "TIFF.02BC",      "TIFF.8769",
                                             "Photoshop.0424", "Photoshop.0425", "IPTC.25"};
  std::map<std::string, std::string> told;
  for (const auto& [name, block] : data.Blocks()) {
    if (block == nullptr) continue;
    for (const auto& entry : block->AllData()) {
      const std::string tag = std::string(name) + "." + entry.Tag;
      if (kFollow.contains(tag)) continue;
      // Records may have become UTF-8.
      for (const brivolant::TagValue& value : entry.Values) told[tag] += TextOf(value) + "|";
    }
  }
  return told;
}

struct Scratch {
  Scratch() {
    if (mkdtemp(Path.data()) == nullptr) Fail("There is no folder to write in.\n");
  }
  ~Scratch() {
    std::error_code error;
    std::filesystem::remove_all(Path, error);
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;
  std::string Path =
      std::filesystem::exists("/dev/shm") ? "/dev/shm/written.XXXXXX" : "/tmp/written.XXXXXX";
};

/// What is written as a whole tells what it told, in every block, or is as it was.
void WriteWhole(const std::string& old, const brivolant::ImageMetaData& before) {
  using brivolant::MetadataBlock;
  using Act = brivolant::MetadataChange::Act;
  // In memory, where there is such a place.
  static const Scratch scratch;
  const brivolant::FolderItem file(scratch.Path + "/photo");
  if (brivolant::WriteFileAtomically(file, old)) std::abort();
  const std::vector<brivolant::MetadataChange> changes{
      {Act::kSet, MetadataBlock::kTiff, "013B", "Anna Beispiel"},
      {Act::kAdd, MetadataBlock::kIptc, "25", "one"}};
  const bool done = brivolant::MetadataWriter::Write(file, changes).empty();
  const std::string now = brivolant::ReadFile(file).value_or("");
  if (!done && now != old) Fail("What was refused has changed.\n");
  if (!done) return;
  brivolant::ImageMetaData after;
  after.ReadFile(file);
  const auto told = Told(after);
  for (const auto& [tag, values] : Told(before)) {
    const auto found = told.find(tag);
    if (found == told.end() || found->second != values) {
      Fail((tag + " tells something else.\n").c_str());
    }
  }
}

/// A copy of another kind stays within its file too.
void Carry(const std::string& old) {
  brivolant::MetadataStream stream(old);
  brivolant::ContainerParts parts(stream);
  if (!parts.Good()) return;
  brivolant::CarriedData data;
  data.Tiff = std::make_unique<brivolant::DirectoryEditor>(true);
  if (!data.Tiff->Set(brivolant::DirectoryEditor::kFirst, 0x010F, 2, std::string("Maker\0", 6))) {
    std::abort();
  }
  data.XMP = "<packet/>";
  data.IPTC = old.substr(old.size() / 2);
  if (!parts.Take(std::move(data))) return;
  if (const auto plan = parts.Plan()) (void)Made(old, *plan);
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
  WriteWhole(old, metadata);
  Carry(old);
  // A packet that is parted is the same again.
  constexpr std::size_t kRoom = 1200;
  if (const auto split = brivolant::XMPExtension::Split(metadata.XMP, kRoom)) {
    brivolant::XMPExtension further;
    for (const std::string& payload : split->Further) {
      further.Take(std::string_view(payload).substr(brivolant::JpegMarks::kXmpFurtherMark.size()));
    }
    brivolant::XMPProperties joined;
    const bool read = brivolant::ReadXMP(further.Joined(split->Packet), joined);
    if (!split->Further.empty() && (!read || joined.size() < properties.size())) {
      Fail("A packet was not the same again.\n");
    }
  }
  Write(old, {}, metadata);
  Write(old, brivolant::MetadataWriter::Strip::kPlace, metadata);
  Write(old, brivolant::MetadataWriter::Strip::kAll, metadata);
  return 0;
}
