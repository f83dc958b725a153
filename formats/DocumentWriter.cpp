// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cmath>

#include "engine/pictures/SharedPictureEffects.h"
#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "formats/DocumentParts.h"
#include "formats/FileTypes.h"
#include "formats/IFFData.h"
#include "formats/ImageFile.h"
#include "metadata/DocumentTags.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/BinaryStream.h"
#include "platform/files/ExclusiveMove.h"
#include "platform/files/WorkingName.h"
#include "platform/values/Captions.h"
#include "platform/values/Numbers.h"
#include "platform/values/SharedComponents.h"

namespace brivolant {
namespace {

using namespace documentTexts;

constexpr double kPreviewQuality = 0.5;
constexpr int kThumbnailSize = 256;
constexpr int kMidSize = 1024;

/// Three decimals, a sign only when negative.
std::string ThreeDecimals(double value) {
  // What is no finite number was read so, and stays so; only its use is limited.
  if (!std::isfinite(value)) return Variant(value).ToText();
  return FixedNumber(std::abs(value) < 0.0005 ? 0.0 : value, 3);
}

/// Moves a finished package to its place. A one-file document that stands there lives on inside
/// the package, so after the exchange it is not needed.
bool TakeOwnPlace(const FolderItem& package, const FolderItem& target) {
  if (!target.Exists()) return !package.MoveFileTo(target);
  if (renameat2(AT_FDCWD, package.Path().c_str(), AT_FDCWD, target.Path().c_str(),
                RENAME_EXCHANGE) == 0) {
    return !package.Delete();
  }
  // A file system that cannot exchange: there is always one whole document under some name.
  const FolderItem old = target.Parent().Child(target.Name() + ".old");
  if (old.Exists() || target.MoveFileTo(old)) return false;
  if (package.MoveFileTo(target)) return !old.MoveFileTo(target) && false;
  return !old.Delete();
}

}  // namespace

bool BrivolantDocument::IsDocument(const FolderItem& file) {
  return FolderitemExtensions::isFileType(file, &InternalFileTypes::BrivolantPhotosDocument);
}

FolderItem BrivolantDocument::PackageFor(const FolderItem& file) {
  if (file.IsNil() || IsDocument(file)) return file;
  const std::string ending =
      "." + std::string(InternalFileTypes::BrivolantPhotosDocument.Extensions);
  return file.Parent().Child(
      NumberedName(FolderitemExtensions::FileNameWithoutExtension(file), 0, ending));
}

bool BrivolantDocument::Save(const FolderItem& file) {
  if (File.IsNil() && file.IsNil()) return false;
  const FolderItem target = PackageFor(file ? file : File);
  if (!target.IsWriteable()) {
    FolderitemExtensions::StandardFileErrorDialog(target, FolderitemExtensions::kSave, "",
                                                  services_.Dialogs);
    Dirty = true;
    return false;
  }
  const FolderItem original = OriginalFile();
  const bool moves = tFile && !(tFile == target);
  // Somebody may have taken it out of the package.
  const bool lost = target == File && target.Directory() && original && !original.Exists();
  const bool writesOriginal = lost || (!moves && !target.Directory());
  if (!PicturesAreThere() || (writesOriginal && !OriginalIsThere()) || !MayReplace(target)) {
    Dirty = true;
    return false;
  }
  if (moves) {
    if (tFile.MoveFileTo(target)) {
      FolderitemExtensions::StandardFileErrorDialog(target, FolderitemExtensions::kSave, "",
                                                    services_.Dialogs);
      Dirty = true;
      return false;
    }
    if (File == tFile) File = target;
    tFile = {};
  }
  bool complete = true;
  if (!target.Directory()) {
    if (!CreatePackage(target)) {
      services_.Dialogs.Message(kNotCreated.Text(), target.DisplayName());
      Dirty = true;
      return false;
    }
  } else if (!KnowOriginal(target) || (lost && !WriteOriginal(target)) || !WriteMetadata(target) ||
             !WritePictures(target)) {
    services_.Dialogs.Message(kPicturesNotSaved.Text(), target.DisplayName());
    Dirty = true;
    return false;
  } else {
    complete = WriteSettings(target);
    if (complete) DropPictures(target);
    if (!WritePreviews(target)) {
      services_.Log.Write("The previews of \"" + target.ShellPath() + "\" could not be written.");
    }
  }
  if (file.IsNil()) {
    File = target;
    // What could not be written must be asked for again.
    Dirty = !complete;
  }
  if (complete && target == File) Written();
  FileDataVersion = kVersion;
  midSizePreview_.reset();
  listed_.reset();
  (void)PastedImages();
  WorkingName::Sweep(target.Parent());
  return complete;
}

void BrivolantDocument::Written() {
  stateOnDisk_ = StateOf(File);
  savedStyle_ = StyleData;
}

bool BrivolantDocument::SaveAs(const FolderItem& place, bool replaces) {
  const FolderItem target = PackageFor(place);
  if (target == File && tFile.IsNil()) return Save();
  const FolderItem& writes = target.Exists() ? target.Parent() : target;
  Dirty = true;
  if (!writes.IsWriteable()) {
    FolderitemExtensions::StandardFileErrorDialog(target, FolderitemExtensions::kSave, "",
                                                  services_.Dialogs);
    return false;
  }
  if (!PicturesAreThere() || !OriginalIsThere()) return false;
  const std::string before = OriginalImageID;
  {
    const GrowingFolder growing(target);
    const bool filled = FillPackage(growing.Folder());
    if (!filled) services_.Dialogs.Message(kNotCreated.Text(), target.DisplayName());
    if (!filled || !PutInPlace(growing.Folder(), target, replaces)) {
      OriginalImageID = before;
      return false;
    }
  }
  if (tFile && tFile.DeleteFolder()) services_.Log.Write("Not deleted: " + tFile.ShellPath());
  tFile = {};
  File = target;
  Dirty = false;
  FileDataVersion = kVersion;
  Written();
  midSizePreview_.reset();
  HoldFiles();
  WorkingName::Sweep(target.Parent());
  return true;
}

bool BrivolantDocument::PutInPlace(const FolderItem& package, const FolderItem& target,
                                   bool replaces) const {
  std::optional<FolderitemExtensions::TrashedFile> old;
  if (EntryExists(target)) {
    if (!replaces) return false;
    old = FolderitemExtensions::PutInTrash(target);
    if (!old) {
      services_.Dialogs.Message(
          WithPlaceholders(kCannotReplace.Text(), {{"<filename>", target.DisplayName()}}), {});
      return false;
    }
  }
  // What somebody else has laid there by now is not replaced.
  if (!MoveExclusively(package, target)) return true;
  if (old && !FolderitemExtensions::PutBack(*old)) {
    services_.Log.Write("In the trash: " + target.ShellPath());
  }
  if (replaces || !EntryExists(target)) {
    services_.Dialogs.Message(kNotCreated.Text(), target.DisplayName());
  }
  return false;
}

bool BrivolantDocument::CreatePackage(const FolderItem& target) {
  const GrowingFolder growing(target);
  // The name of the original is this document's only once the package stands.
  const std::string before = OriginalImageID;
  // What stands in the place of a package is not this document.
  const bool placed = FillPackage(growing.Folder()) &&
                      (before.empty() ? TakeOwnPlace(growing.Folder(), target)
                                      : PutInPlace(growing.Folder(), target, true));
  if (placed) return true;
  OriginalImageID = before;
  return false;
}

bool BrivolantDocument::FillPackage(const FolderItem& package) {
  const FolderItem contents = package.Child("Contents");
  if (contents.CreateAsFolder()) return false;
  const std::string mark = std::string(InternalFileTypes::BrivolantPhotosDocument.MacType) +
                           std::string(InternalFileTypes::kCreator);
  return !WriteFileAtomically(contents.Child("PkgInfo"), mark) && WriteOriginal(package) &&
         WriteMetadata(package) && WritePictures(package) && WriteSettings(package) &&
         WritePreviews(package);
}

bool BrivolantDocument::WriteMetadata(const FolderItem& package) const {
  const std::string packet = MetadataPacket();
  // One that stands there may be newer by now.
  return packet.empty() || package.Child(kMetadataName).Exists() ||
         !WriteFileAtomically(package.Child(kMetadataName), packet);
}

bool BrivolantDocument::KnowOriginal(const FolderItem& package) {
  if (!OriginalImageID.empty()) return true;
  // It was opened as one file, and another program made the package meanwhile: its original is
  // ours.
  BrivolantDocument other(services_);
  if (!other.Load(package) || !other.OriginalFile().Exists()) return false;
  OriginalImageID = other.OriginalImageID;
  return true;
}

bool BrivolantDocument::WriteOriginal(const FolderItem& package) {
  // A saved document that is saved elsewhere brings its own original along.
  if (const FolderItem source = OriginalSource()) {
    // Settings are UTF-8, so the name that they give must be.
    std::string name = EnsureUTF8(source.Name());
    if (FolderitemExtensions::isFileType(source, &InternalFileTypes::BrivolantPhotosDocument)) {
      // The older form is the image itself, with the data behind it.
      name = EnsureUTF8(FolderitemExtensions::FileNameWithoutExtension(source)) + "." +
             LowerCase(FolderitemExtensions::FileFormat(source));
    }
    if (name.size() > kLongestName) {
      name = NumberedName(EnsureUTF8(FolderitemExtensions::FileNameWithoutExtension(source)), 0,
                          "." + EnsureUTF8(FolderitemExtensions::FileExtension(source)));
    }
    // The image may have the name of one of the package's own parts.
    if (!IsFreeName(name, {})) name = "Original-" + name;
    const FolderItem place = package.Child(name);
    // The temporary package is this document's own and goes when it is saved: there need not be two
    // of a file that is on the disk already.
    const bool moved = tFile && !(source == originalImageFile) &&
                       link(source.Path().c_str(), place.Path().c_str()) == 0;
    if (!moved && CopyFileAtomically(source, place)) return false;
    OriginalImageID = name;
    return true;
  }
  return WriteWhatWasRead(package);
}

bool BrivolantDocument::WriteWhatWasRead(const FolderItem& package) {
  const Picture& picture = ImageOriginal();
  if (originalImageFile || !OriginalImageID.empty() || !stateOnDisk_.empty()) {
    // It had a file of which only the pixels are left: none of them may change.
    const FolderItem file =
        package.Child(otherSharedComponents::NewGUID(services_.Random) + ".png");
    const std::array<EncodeImage, 1> images{{{picture, 1.0}}};
    const std::string error =
        EncodeImageFile(file, std::string(ImagesWritableMac::PNG.Identifier), images);
    if (!error.empty()) services_.Log.Write(error);
    OriginalImageID = file.Name();
    return error.empty();
  }
  const FolderItem jpeg = package.Child(otherSharedComponents::NewGUID(services_.Random) + ".jpg");
  std::string error;
  if (!ImageIO::SaveAsJPEG(jpeg, picture, 1.0, error)) {
    services_.Log.Write(error);
    return false;
  }
  if (!WriteDocumentTags(jpeg,
                         {Name, Creator, Copyright, CreatedWith, picture.Width(), picture.Height(),
                          picture.HorizontalResolution, picture.VerticalResolution})) {
    services_.Log.Write("The image \"" + jpeg.Name() + "\" could not be tagged.");
  }
  OriginalImageID = jpeg.Name();
  return true;
}

std::string BrivolantDocument::SettingsBytes() const {
  IFFData data;
  data.Add(kItemContactLink, ContactLink);
  data.Add(kItemCopyright, Copyright);
  data.Add(kItemCreatedDate, CreatedDate);
  data.Add(kItemCreatedWith, CreatedWith);
  data.Add(kItemCreator, Creator);
  data.Add(kItemCrop, Crop);
  data.Add(kItemCropRectangle,
           ThreeDecimals(CropOffSet.Left) + ' ' + ThreeDecimals(CropOffSet.Right) + ' ' +
               ThreeDecimals(CropSize.Left) + ' ' + ThreeDecimals(CropSize.Right));
  data.Add(kItemFlip, Flip);
  data.Add(kItemName, Name);
  data.Add(kItemRotation, Rotation);
  data.Add(kItemStyleData, StyleData);
  data.Add(kItemOriginalImageID, OriginalImageID);
  data.Add(kItemOrientation, Orientation);
  ByteWriter out;
  out.UInt16(kVersion);
  out.Bytes(data.Data());
  return out.Take();
}

bool BrivolantDocument::WriteSettings(const FolderItem& package) {
  const std::error_code error = WriteFileAtomically(package.Child(kSettingsName), SettingsBytes());
  if (error) services_.Dialogs.Message(kNoSettingsFile.Text(), package.DisplayName());
  return !error;
}

bool BrivolantDocument::MayReplace(const FolderItem& package) const {
  if (stateOnDisk_.empty() || !(package == File)) return true;
  const std::string now = StateOf(package);
  if (now.empty() || now == stateOnDisk_) return true;
  const Question question{
      WithPlaceholders(kChangedOnDisk.Text(), {{"<filename>", package.DisplayName()}}),
      kChangedOnDiskExplanation.Text(),
      kReplace.Text(),
      Captions::kCancel.Text(),
      {}};
  return services_.Dialogs.Ask(question) == Answer::kAction;
}

bool BrivolantDocument::WritePreviews(const FolderItem& package) {
  using namespace SharedPictureEffects;
  if (PreviewAfter.IsNil()) return true;
  const Picture middle = Scale(PreviewAfter, kMidSize, kMidSize, kScaleToFit);
  const Picture thumbnail = Scale(middle, kThumbnailSize, kThumbnailSize, kScaleToFit);
  std::string error;
  return ImageIO::SaveAsJPEG(package.Child(kThumbnailName), thumbnail, kPreviewQuality, error) &&
         ImageIO::SaveAsJPEG(package.Child(kMidSizePreviewName), middle, kPreviewQuality, error);
}

}  // namespace brivolant
