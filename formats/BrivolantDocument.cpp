// SPDX-License-Identifier: MIT
#include "formats/BrivolantDocument.h"

#include <sys/stat.h>

#include <algorithm>
#include <cmath>

#include "engine/pictures/PictureEffects.h"
#include "engine/pictures/SharedPictureEffects.h"
#include "files/FolderitemExtensions.h"
#include "formats/DocumentParts.h"
#include "formats/ImageFile.h"
#include "formats/PictureStrings.h"
#include "platform/pictures/kernels/ComposeKernels.h"
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
  listed_.reset();
  stateOnDisk_ = saved.stateOnDisk_;
  savedStyle_ = saved.savedStyle_;
  midSizePreview_.reset();
}

bool BrivolantDocument::ReadImage(const FolderItem& file) {
  if (!ReadOriginal(file)) return false;
  Name = EnsureUTF8(FolderitemExtensions::FileNameWithoutExtension(file));
  originalImageFile = file;
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

const Picture& BrivolantDocument::ImageOriginal() {
  if (tempImageStorage_.IsNil()) {
    const FolderItem original = File || tFile ? OriginalFile() : originalImageFile;
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

namespace {

/// Where a crop begins and how long it is along one side: what lies inside the picture, one pixel
/// at least. The fractions come from files and may be any numbers.
struct Cut {
  Cut(double offset, double size, int whole) {
    const auto pixels = [whole](double fraction) {
      // Single precision, as crops have always been reckoned.
      const double limited = std::min(std::max(0.0, fraction), 1.0);
      return std::min(static_cast<int>(static_cast<float>(limited) * static_cast<float>(whole)),
                      whole);
    };
    first = std::max(std::min(pixels(offset), whole - 1), 0);
    length = std::min(std::max(pixels(size), 1), whole - first);
  }
  int first;
  int length;
};

/// A part of a picture and its mask.
Picture Cropped(const Picture& picture, const Pair& offset, const Pair& size) {
  const auto [x, w] = Cut(offset.Left, size.Left, picture.Width());
  const auto [y, h] = Cut(offset.Right, size.Right, picture.Height());
  Picture part = Picture::Uninitialized(w, h, 32);
  if (part.IsNil()) return part;
  part.HorizontalResolution = picture.HorizontalResolution;
  part.VerticalResolution = picture.VerticalResolution;
  kernels::CopyArea(picture.View(), x, y, part.Edit());
  if (const Plane* mask = picture.Mask()) {
    Plane maskPart = Plane::Uninitialized(w, h);
    if (!maskPart.IsNil()) kernels::CopyArea(mask->View(), x, y, maskPart.Edit());
    part.SetMask(std::move(maskPart));
  }
  return part;
}

}  // namespace

Picture BrivolantDocument::SetOrientation(const Picture& picture) const {
  if (picture.IsNil()) return picture;
  Picture result = Crop ? Cropped(picture, CropOffSet, CropSize) : picture;
  if (Orientation == 1 && !result.IsNil()) {
    result = SharedPictureEffects::Scale(result, result.Height(), result.Width(),
                                         SharedPictureEffects::kScaleToFill);
  }
  return Turned(std::move(result));
}

Picture BrivolantDocument::Turned(Picture picture) const {
  if (Rotation >= 1 && Rotation <= 3) {
    picture = SharedPictureEffects::Rotate(picture, Rotation * 90, kWhite, 1);
  }
  if (Flip == 1) return SharedPictureEffects::Flip(picture, 0);
  if (Flip == 2) return SharedPictureEffects::Flip(picture, 1);
  return picture;
}

void BrivolantDocument::GeneratePreviews(int width, int height) {
  using namespace SharedPictureEffects;
  const PreviewKey key{width, height, Crop, CropOffSet, CropSize, Orientation, Rotation, Flip};
  // Most calls follow a change of the effects alone: then the scaled pictures are those of before.
  if (!scaledBefore_.IsNil() && previewKey_ == key) {
    PreviewBefore = scaledBefore_;
    PreviewBase = scaledBase_;
  } else {
    const bool plain = !Crop && Orientation != 1 && Rotation == 0 && Flip == 0;
    if (scaledBefore_.IsNil() || previewKey_.Width != width || previewKey_.Height != height) {
      scaledBefore_ = Scale(ImageOriginal(), width, height, kScaleToFit);
    }
    PreviewBefore = scaledBefore_;
    PreviewBase = plain ? PreviewBefore : ScaledImage(width, height);
    scaledBase_ = PreviewBase;
    previewKey_ = key;
  }
  PreviewAfter = Clone(PreviewBase, 24, false);
}

Picture BrivolantDocument::ScaledImage(int width, int height) {
  using namespace SharedPictureEffects;
  const Picture& original = ImageOriginal();
  if (original.IsNil()) return {};
  if (Orientation == 1) return Scale(Image(), width, height, kScaleToFit);
  // A quarter turn or a mirror image of fewer pixels is the same picture at a fraction of the work.
  const bool quarter = Rotation == 1 || Rotation == 3;
  const Picture cropped = Crop ? Cropped(original, CropOffSet, CropSize) : original;
  return Turned(Scale(Clone(cropped, 24, false), quarter ? height : width, quarter ? width : height,
                      kScaleToFit));
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

namespace {
int Side(const Picture& original, bool crop, double offset, double size, bool width,
         int orientation) {
  const int whole = (orientation == 1) != width ? original.Width() : original.Height();
  return crop ? Cut(offset, size, whole).length : whole;
}
}  // namespace

int BrivolantDocument::Width() {
  return Side(ImageOriginal(), Crop, CropOffSet.Left, CropSize.Left, true, Orientation);
}

int BrivolantDocument::Height() {
  return Side(ImageOriginal(), Crop, CropOffSet.Right, CropSize.Right, false, Orientation);
}

}  // namespace brivolant
