// SPDX-License-Identifier: MIT
#include "formats/BrivolantDocument.h"

#include <sys/stat.h>

#include "engine/pictures/PictureEffects.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "files/FolderitemExtensions.h"
#include "formats/DocumentParts.h"
#include "formats/ImageFile.h"
#include "formats/PictureStrings.h"
#include "metadata/Sidecar.h"
#include "platform/values/SharedComponents.h"

namespace brivolant {

BrivolantDocument::BrivolantDocument(const Services& services) : services_(services) {
  SetDefaults();
}

BrivolantDocument::BrivolantDocument(const Services& services, Picture picture,
                                     const std::string& name)
    : services_(services) {
  SetDefaults();
  Name = name;
  tempImageStorage_ = EnsurePictureCompatible(std::move(picture));
  MakeTemporaryPackage();
  Dirty = true;
}

void BrivolantDocument::SetDefaults() {
  Creator = services_.UserDetails.FullName();
  ContactLink = services_.UserDetails.ContactLink();
  Copyright = services_.UserDetails.Copyright();
  CreatedWith = services_.UserDetails.CreatedWith();
  CreatedDate = services_.Clock.Now();
}

void BrivolantDocument::MakeTemporaryPackage() {
  File =
      PackageFor(services_.TemporaryFiles.Child(otherSharedComponents::NewGUID(services_.Random)));
  if (Save()) {
    tFile = File;
    HoldFiles();
  } else {
    // A place where nothing is must not be taken for the document's own.
    File = {};
    lastErrorMessage = documentTexts::kNoTemporaryPackage.Text();
  }
}

bool BrivolantDocument::ReadOriginal(const FolderItem& file) {
  ImageIO::OpenedPicture opened = ImageIO::OpenFirstPicture(file);
  tempImageStorage_ = std::move(opened.Pixels);
  OriginalDamage = std::move(opened.Damage);
  lastErrorMessage = std::move(opened.Error);
  return !tempImageStorage_.IsNil();
}

std::string BrivolantDocument::WhyNotWriteTo(const FolderItem& file) const {
  if (!OriginalDamage) return {};
  const auto isOne = [&](const FolderItem& original) {
    std::error_code error;
    return !original.IsNil() && std::filesystem::equivalent(original.Path(), file.Path(), error);
  };
  if (!isOne(originalImageFile) && !isOne(OriginalFile())) return {};
  return WithPlaceholders(documentTexts::kDamagedOriginal.Text(),
                          {{"<filename>", file.DisplayName()}});
}

void BrivolantDocument::TakeOver(const BrivolantDocument& saved) {
  Name = saved.Name;
  StyleData = saved.StyleData;
  File = saved.File;
  tFile = saved.tFile;
  OriginalImageID = saved.OriginalImageID;
  FileDataVersion = saved.FileDataVersion;
  session_ = saved.session_;
  heldOriginal_ = saved.heldOriginal_;
  heldPacket_ = saved.heldPacket_;
  listed_ = saved.listed_;
  stateOnDisk_ = saved.stateOnDisk_;
  savedStyle_ = saved.savedStyle_;
  midSizePreview_.reset();
}

void BrivolantDocument::Relocate(const FolderItem& from, const FolderItem& to) {
  for (FolderItem* own : {&File, &originalImageFile}) {
    if (const FolderItem now = PlaceAfter(*own, from, to)) *own = now;
  }
}

bool BrivolantDocument::ReadImage(const FolderItem& file) {
  originalState_ = StateOf(file);
  if (!ReadOriginal(file)) return false;
  Name = EnsureUTF8(FolderitemExtensions::FileNameWithoutExtension(file));
  originalImageFile = file;
  // What is said beside the photo goes along.
  if (!Sidecar::WrittenInPlace(file)) heldPacket_ = Sidecar::Read(Sidecar::Of(file));
  return true;
}

bool BrivolantDocument::CreateFromFile(const FolderItem& file) {
  if (!ReadImage(file)) return false;
  MakeTemporaryPackage();
  Dirty = false;
  return tFile.Exists();
}

std::string BrivolantDocument::StateOf(const FolderItem& document) {
  if (document.Directory()) return ReadFile(document.Child(kSettingsName)).value_or(std::string());
  struct stat status {};
  if (document.IsNil() || stat(document.Path().c_str(), &status) != 0) return {};
  return std::to_string(status.st_size) + " bytes, " + std::to_string(status.st_mtim.tv_sec) + "." +
         std::to_string(status.st_mtim.tv_nsec);
}

FolderItem BrivolantDocument::OriginalFile() const {
  const FolderItem& package = File ? File : tFile;
  if (OriginalImageID.empty()) return package.Directory() ? FolderItem() : package;
  return IsPlainName(OriginalImageID) ? package.Child(OriginalImageID) : FolderItem();
}

std::string BrivolantDocument::MetadataPacket() const {
  // The window of a file's data writes it while the document is open.
  for (const FolderItem& package : {File, tFile}) {
    if (package.IsNil()) continue;
    if (std::string packet = Sidecar::Read(package.Child(kMetadataName)); !packet.empty()) {
      heldPacket_ = packet;
      return packet;
    }
  }
  return heldPacket_;
}

FolderItem BrivolantDocument::OriginalSource() const {
  for (const FolderItem& original : {HeldOriginal(), OriginalFile()}) {
    if (original.Exists()) return original;
  }
  // The file that it was made from may be another picture by now.
  const bool same = !originalState_.empty() && StateOf(originalImageFile) == originalState_;
  return same ? originalImageFile : FolderItem();
}

const Picture& BrivolantDocument::ImageOriginal() {
  if (tempImageStorage_.IsNil()) {
    FolderItem original = HeldOriginal();
    if (original.IsNil()) original = File || tFile ? OriginalFile() : originalImageFile;
    if (original.IsNil()) {
      lastErrorMessage =
          WithPlaceholders(documentTexts::kNoOriginal.Text(), {{"<filename>", File.DisplayName()}});
      return tempImageStorage_;
    }
    (void)ReadOriginal(original);
  }
  return tempImageStorage_;
}

Picture BrivolantDocument::Image() {
  return SetOrientation(SharedPictureEffects::Clone(ImageOriginal(), 24, false));
}

ImageGeometry BrivolantDocument::Geometry() const {
  return {Crop, CropOffSet, CropSize, Orientation, Rotation, Flip};
}

Picture BrivolantDocument::SetOrientation(const Picture& picture) const {
  return DocumentPreviews::Turned(picture, Geometry());
}

void BrivolantDocument::GeneratePreviews(int width, int height) {
  ScaledPreviews scaled;
  (void)scaled.Make(ImageOriginal(), Geometry(), width, height);
  PreviewBefore = scaled.Before();
  PreviewBase = scaled.Base();
  PreviewAfter = SharedPictureEffects::Clone(PreviewBase, 24, false);
}

void BrivolantDocument::ResetPreviews() {
  PreviewBefore = {};
  PreviewBase = {};
  PreviewAfter = {};
}

const ExtendedPicture* BrivolantDocument::MidSizePreview() {
  if (!midSizePreview_) {
    const FolderItem& package = tFile.Exists() ? tFile : File;
    const FolderItem preview = package.Child(kMidSizePreviewName);
    if (!package.Exists() || !preview.Exists()) return nullptr;
    constexpr int kSide = 1024;
    const Picture picture = JpegImporter::PreviewFromFile(preview, kSide);
    if (picture.IsNil()) return nullptr;
    midSizePreview_.emplace(picture);
  }
  return &*midSizePreview_;
}

int BrivolantDocument::Width() {
  return DocumentPreviews::Width(ImageOriginal(), Geometry());
}

int BrivolantDocument::Height() {
  return DocumentPreviews::Height(ImageOriginal(), Geometry());
}

}  // namespace brivolant
