// SPDX-License-Identifier: MIT
#include "metadata/TiffParts.h"

#include <algorithm>
#include <array>

#include "metadata/BigEndian.h"
#include "metadata/DirectoryLayout.h"

namespace brivolant {
namespace {

using namespace DirectoryLayout;

constexpr int kXmpTag = 0x02BC;
constexpr int kIptcTag = 0x83BB;
constexpr int kResourcesTag = 0x8649;
constexpr auto kFirst = DirectoryEditor::kFirst;

}  // namespace

// TIFF.

TiffParts::TiffParts(MetadataStream& stream) : MetadataParts(stream) {
  stream.Position(0);
  tiff_ = std::make_unique<DirectoryEditor>(stream);
  if (!tiff_->Good()) return;
  xmp_ = tiff_->BytesOf(kFirst, kXmpTag);
  iptc_ = tiff_->BytesOf(kFirst, kIptcTag);
  resources_ = ImageResources(tiff_->BytesOf(kFirst, kResourcesTag));
  if (iptc_.empty()) iptc_ = resources_.Data(ImageResources::kIptc);
}

bool TiffParts::Good() const {
  // Of a mosaic of colours, or linear light: nothing but a raw file has them.
  return tiff_->Good() && !tiff_->Raw();
}

bool TiffParts::IPTC(std::string bytes) {
  if (bytes == iptc_ && bytes == resources_.Data(ImageResources::kIptc)) return true;
  iptc_ = std::move(bytes);
  iptcChanged_ = true;
  // Where both places hold it, both say the same.
  return !resources_.Has(ImageResources::kIptc) || MetadataParts::IPTC(iptc_);
}

void TiffParts::StripFurther() {
  for (const int id : {ImageResources::kExif, ImageResources::kXmp}) {
    if (!resources_.Has(id)) continue;
    resources_.Remove(id);
    resourcesChanged_ = true;
  }
}

bool TiffParts::StripAll() {
  // What says how the pixels lie and are shown: TIFF 6.0, its supplements, and the profile.
  constexpr std::array kPixels{
      0x00FE, 0x00FF, 0x0100, 0x0101, 0x0102, 0x0103, 0x0106, 0x0107, 0x0108, 0x0109, 0x010A,
      0x0111, 0x0112, 0x0115, 0x0116, 0x0117, 0x0118, 0x0119, 0x011A, 0x011B, 0x011C, 0x0120,
      0x0121, 0x0122, 0x0123, 0x0124, 0x0125, 0x0128, 0x012D, 0x013D, 0x013E, 0x013F, 0x0140,
      0x0141, 0x0142, 0x0143, 0x0144, 0x0145, 0x014A, 0x014C, 0x0150, 0x0151, 0x0152, 0x0153,
      0x0154, 0x0155, 0x0156, 0x015B, 0x0200, 0x0201, 0x0202, 0x0203, 0x0205, 0x0206, 0x0207,
      0x0208, 0x0209, 0x0211, 0x0212, 0x0213, 0x0214, 0x8773};
  tiffChanged_ = true;
  if (!tiff_->Drop(DirectoryEditor::kGps) || !tiff_->Drop(DirectoryEditor::kInterop) ||
      !tiff_->Drop(DirectoryEditor::kExif)) {
    return false;
  }
  for (const int tag : tiff_->Tags(kFirst)) {
    if (std::ranges::find(kPixels, tag) == kPixels.end() && !tiff_->Remove(kFirst, tag)) {
      return false;
    }
  }
  xmpChanged_ = iptcChanged_ = resourcesChanged_ = false;
  return true;
}

bool TiffParts::Take(CarriedData data) {
  // A maker's note counts from a place that the pixels have here.
  if (data.Tiff) {
    if (!KeepColors(*data.Tiff)) return false;
    // Titles, what made it, when and by whom; and all that Exif says. What describes the pixels
    // stays.
    for (const int tag : {0x010D, 0x010E, 0x010F, 0x0110, 0x0131, 0x0132, 0x013B, 0x013C, 0x4746,
                          0x4749, 0x8298, 0x9C9B, 0x9C9C, 0x9C9D, 0x9C9E, 0x9C9F}) {
      if (!tiff_->Remove(kFirst, tag)) return false;
    }
    for (const auto directory :
         {DirectoryEditor::kInterop, DirectoryEditor::kExif, DirectoryEditor::kGps}) {
      if (!tiff_->Drop(directory)) return false;
    }
    const bool swap = data.Tiff->LittleEndian() != tiff_->LittleEndian();
    for (const auto directory :
         {kFirst, DirectoryEditor::kExif, DirectoryEditor::kGps, DirectoryEditor::kInterop}) {
      for (const int tag : data.Tiff->Tags(directory)) {
        if (tag == kMakerNote || tag == kExifLink || tag == kGpsLink || tag == kInteropLink)
          continue;
        // What a TIFF says in its first directory.
        if (directory == DirectoryEditor::kExif &&
            (tag == 0x9101 || tag == 0xA002 || tag == 0xA003)) {
          continue;
        }
        const int type = data.Tiff->TypeOf(directory, tag);
        std::string bytes = data.Tiff->BytesOf(directory, tag);
        if (swap) bytes = DirectoryEditor::Swapped(type, std::move(bytes));
        if (!tiff_->Set(directory, tag, type, std::move(bytes))) return false;
        tiffChanged_ = true;
      }
    }
  }
  return TakeTexts(data);
}

std::optional<FilePlan> TiffParts::Plan() {
  const auto put = [this](int tag, int type, std::string bytes) {
    tiffChanged_ = true;
    const int held = tiff_->TypeOf(kFirst, tag);
    if (SizeOfType(held) != 0) type = held;
    if (bytes.empty()) return tiff_->Remove(kFirst, tag);
    // Some keep it as numbers of four bytes.
    const auto size = static_cast<std::size_t>(SizeOfType(type));
    bytes.resize((bytes.size() + size - 1) / size * size);
    return tiff_->Set(kFirst, tag, type, std::move(bytes));
  };
  if (xmpChanged_ && !put(kXmpTag, kByteType, xmp_)) return std::nullopt;
  if (iptcChanged_ && !put(kIptcTag, kLongType, iptc_)) return std::nullopt;
  if (resourcesChanged_ && !put(kResourcesTag, kByteType, resources_.Bytes())) return std::nullopt;
  FilePlan plan;
  if (!tiffChanged_) {
    plan.Take(0, stream_.Length());
    return plan;
  }
  DirectoryEditor::Result result = tiff_->Write();
  if (result.Length > 0xFFFFFFFF) return std::nullopt;
  plan.Take(0, result.Kept);
  plan.Length = result.Length;
  plan.Patches = std::move(result.Patches);
  return plan;
}

// Photoshop.

PhotoshopParts::PhotoshopParts(MetadataStream& stream) : MetadataParts(stream) {
  constexpr std::uint64_t kHeader = 26;
  stream.Position(4);
  // The form for pictures beyond 30,000 pixels is laid out in the same way so far.
  const int version = stream.ReadUInt16();
  stream.Position(kHeader);
  const std::uint64_t colors = stream.ReadUInt32();
  if ((version != 1 && version != 2) || colors > stream.Remaining()) return;
  stream.Position(stream.Position() + colors);
  begin_ = stream.Position();
  const std::uint64_t length = stream.ReadUInt32();
  if (length > stream.Remaining()) return;
  resources_ = ImageResources(stream.Read(length));
  end_ = stream.Position();
  good_ = resources_.Whole();
  xmp_ = resources_.Data(ImageResources::kXmp);
  if (!resources_.Has(ImageResources::kExif)) return;
  structure_ = resources_.Data(ImageResources::kExif);
  exifStream_ = std::make_unique<MetadataStream>(structure_);
  tiff_ = std::make_unique<DirectoryEditor>(*exifStream_);
  good_ = good_ && tiff_->Good();
}

bool PhotoshopParts::StripAll() {
  tiff_.reset();
  tiffChanged_ = xmpChanged_ = false;
  resourcesChanged_ = true;
  for (const int id :
       {ImageResources::kIptc, ImageResources::kIptcDigest, ImageResources::kExif,
        ImageResources::kXmp, ImageResources::kThumbnail, ImageResources::kOldThumbnail}) {
    resources_.Remove(id);
  }
  // Older forms of Exif data, a caption, an address, and the like.
  for (const int id : {0x03F0, 0x040B, 0x0423, 0x0421, 0x0435, 0x0BB7}) resources_.Remove(id);
  return true;
}

bool PhotoshopParts::Take(CarriedData data) {
  return TakeStructure(std::move(data.Tiff)) && TakeTexts(data);
}

std::optional<FilePlan> PhotoshopParts::Plan() {
  if (tiffChanged_ && tiff_) {
    resources_.Set(ImageResources::kExif, Structure(newStructure_ ? std::string() : structure_));
    resourcesChanged_ = true;
  }
  if (xmpChanged_) {
    xmp_.empty() ? resources_.Remove(ImageResources::kXmp)
                 : resources_.Set(ImageResources::kXmp, xmp_);
    resourcesChanged_ = true;
  }
  FilePlan plan;
  if (!resourcesChanged_) {
    plan.Take(0, stream_.Length());
    return plan;
  }
  std::string bytes = resources_.Bytes();
  if (bytes.size() > 0xFFFFFFFF) return std::nullopt;
  plan.Take(0, begin_);
  plan.Take(BigEndian(bytes.size(), 4) + bytes);
  plan.Take(end_, stream_.Length() - end_);
  return plan;
}

}  // namespace brivolant
