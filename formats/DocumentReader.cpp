// SPDX-License-Identifier: MIT
#include <algorithm>
#include <filesystem>
#include <fstream>

#include "files/FolderitemExtensions.h"
#include "formats/BrivolantDocument.h"
#include "formats/DocumentParts.h"
#include "formats/FileTypes.h"
#include "formats/IFFData.h"
#include "formats/PictureStrings.h"
#include "platform/files/BinaryStream.h"

namespace brivolant {
namespace {

using namespace documentTexts;

/// The last `count` bytes of a file, or what there is.
std::string ReadTail(const FolderItem& file, std::uint64_t count) {
  // A pipe would be waited for.
  std::error_code error;
  if (!std::filesystem::is_regular_file(file.Path(), error)) return {};
  std::ifstream stream(file.Path(), std::ios::binary);
  const std::uint64_t size = std::min(count, file.Length());
  std::string bytes(size, '\0');
  stream.seekg(-static_cast<std::streamoff>(size), std::ios::end);
  stream.read(bytes.data(), static_cast<std::streamsize>(size));
  if (!stream) bytes.clear();
  return bytes;
}

/// A text of the older body: 16 bits of length and UTF-8.
std::string ReadText(BinaryStream& stream) {
  return EnsureUTF8(stream.Read(stream.ReadUInt16()));
}

std::string WrongData(const FolderItem& file) {
  return WithPlaceholders(FolderitemExtensions::kErrorMessageFileContainsIncorrectData.Text(),
                          {{"<filename>", file.DisplayName()},
                           {"<filetype>", InternalFileTypes::BrivolantPhotosDocument.Name.Text()}});
}

}  // namespace

bool BrivolantDocument::Load(const FolderItem& file) {
  CreatedDate = services_.Clock.Now();
  if (!FolderitemExtensions::Validate(file, FolderitemExtensions::kRead,
                                      &InternalFileTypes::BrivolantPhotosDocument,
                                      services_.Dialogs)) {
    return false;
  }
  if (file.Directory() ? !LoadPackage(file) : !LoadOneFile(file)) return false;
  File = file;
  stateOnDisk_ = StateOf(file);
  listed_.reset();
  // What was there when it was opened is what a save must bring along.
  (void)PastedImages();
  return true;
}

bool BrivolantDocument::LoadPackage(const FolderItem& file) {
  const FolderItem settings = file.Child(kSettingsName);
  if (!settings.Exists()) {
    lastErrorMessage = kMissingSettings.Text();
    return false;
  }
  const auto bytes = ReadFile(settings);
  if (!bytes) {
    lastErrorMessage = kUnreadableSettings.Text();
    return false;
  }
  BinaryStream stream(*bytes);
  stream.LittleEndian = true;
  FileDataVersion = stream.ReadUInt16();
  if (!ReadContainer(std::string_view(*bytes).substr(stream.Position()))) {
    lastErrorMessage = WrongData(file);
    return false;
  }
  savedStyle_ = StyleData;
  const FolderItem thumbnail = file.Child(kThumbnailName);
  if (thumbnail.Exists()) PreviewAfter = JpegImporter::PreviewFromFile(thumbnail);
  return true;
}

FolderItem BrivolantDocument::OriginalIn(const FolderItem& package) {
  constexpr std::uint64_t kMost = std::uint64_t{1} << 26;
  const auto bytes = ReadFile(package.Child(kSettingsName), kMost);
  if (!bytes) return {};
  BinaryStream stream(*bytes);
  stream.LittleEndian = true;
  (void)stream.ReadUInt16();
  const std::uint32_t size = stream.ReadUInt32();
  IFFData data;
  if (!data.Data(stream.ReadUpTo(size))) return {};
  for (int i = 0; i < data.Count(); ++i) {
    if (data.ID(i) != kItemOriginalImageID) continue;
    const std::string name = data.Value(i).ToText();
    const FolderItem original = IsPlainName(name) ? package.Child(name) : FolderItem();
    return original.Exists() ? original : FolderItem();
  }
  return {};
}

bool BrivolantDocument::LoadOneFile(const FolderItem& file) {
  constexpr std::uint64_t kTrailer = 12;
  constexpr std::uint64_t kLongestBody = std::uint64_t{1} << 30;
  const std::string trailer = ReadTail(file, kTrailer);
  if (trailer.empty() && file.Length() > 0) {
    lastErrorMessage = WithPlaceholders(FolderitemExtensions::kErrorMessageUnableToRead.Text(),
                                        {{"<filename>", file.DisplayName()}});
    return false;
  }
  const std::string mark = std::string(InternalFileTypes::kCreator) +
                           std::string(InternalFileTypes::BrivolantPhotosDocument.MacType);
  if (!trailer.ends_with(mark)) {
    lastErrorMessage = kWrongTrailer.Text();
    return false;
  }
  BinaryStream stream(trailer);
  stream.LittleEndian = true;
  const std::uint64_t distance = stream.ReadUInt32();
  // The version byte lies `distance` before the length field.
  const bool fits = distance >= 1 && distance <= kLongestBody && !stream.Failed() &&
                    distance + kTrailer <= file.Length();
  const std::string body = fits ? ReadTail(file, distance + kTrailer) : std::string();
  if (!fits || body.size() != distance + kTrailer) {
    lastErrorMessage = kWrongTrailer.Text();
    return false;
  }
  FileDataVersion = static_cast<std::uint8_t>(body.front());
  const std::string_view fields = std::string_view(body).substr(1, distance - 1);
  constexpr int kFirstWithContainer = 3;
  if (FileDataVersion >= kFirstWithContainer ? ReadContainer(fields) : ReadOldBody(fields)) {
    return true;
  }
  lastErrorMessage = WrongData(file);
  return false;
}

bool BrivolantDocument::ReadContainer(std::string_view bytes) {
  BinaryStream stream(bytes);
  stream.LittleEndian = true;
  // The size counts itself, so what remains may be four bytes less.
  const std::uint32_t size = stream.ReadUInt32();
  IFFData data;
  if (!data.Data(stream.ReadUpTo(size))) return false;
  processNIF(data);
  return true;
}

void BrivolantDocument::processNIF(const IFFData& data) {
  for (int i = 0; i < data.Count(); ++i) {
    const Variant& value = data.Value(i);
    switch (data.ID(i)) {
      case kItemContactLink:
        ContactLink = EnsureUTF8(value.ToText());
        break;
      case kItemCopyright:
        Copyright = EnsureUTF8(value.ToText());
        break;
      case kItemCreatedDate:
        CreatedDate = value.ToDate();
        break;
      case kItemCreatedWith:
        CreatedWith = EnsureUTF8(value.ToText());
        break;
      case kItemCreator:
        Creator = EnsureUTF8(value.ToText());
        break;
      case kItemCrop:
        Crop = value.ToBool();
        break;
      case kItemCropRectangle: {
        // Earlier versions wrote the decimal sign of the user's locale; numbers here have no
        // groups.
        std::string text = value.ToText();
        std::replace(text.begin(), text.end(), ',', '.');
        const auto fields = Split(text, ' ');
        const auto field = [&](std::size_t index) {
          return index < fields.size() ? Variant(fields[index]).ToDouble() : 0.0;
        };
        CropOffSet = {field(0), field(1)};
        CropSize = {field(2), field(3)};
        break;
      }
      case kItemFlip:
        Flip = value.ToInt();
        break;
      case kItemName:
        Name = EnsureUTF8(value.ToText());
        break;
      case kItemRotation:
        Rotation = value.ToInt();
        break;
      case kItemStyleData:
        StyleData = value.ToText();
        break;
      case kItemOriginalImageID:
        OriginalImageID = EnsureUTF8(value.ToText());
        break;
      case kItemOrientation:
        Orientation = value.ToInt();
        break;
      default:
        break;
    }
  }
}

bool BrivolantDocument::ReadOldBody(std::string_view bytes) {
  BinaryStream stream(bytes);
  stream.LittleEndian = true;
  ContactLink = ReadText(stream);
  Copyright = ReadText(stream);
  CreatedDate = Date::FromTotalSeconds(stream.ReadDouble());
  CreatedWith = ReadText(stream);
  Creator = ReadText(stream);
  if (FileDataVersion == 2) {
    Crop = stream.ReadUInt8() == 1;
    CropOffSet.Left = stream.ReadSingle();
    CropOffSet.Right = stream.ReadSingle();
    CropSize.Left = stream.ReadSingle();
    CropSize.Right = stream.ReadSingle();
  } else {
    CropOffSet.Left = stream.ReadUInt16();
    CropOffSet.Right = stream.ReadUInt16();
    CropSize.Left = stream.ReadUInt16();
    CropSize.Right = stream.ReadUInt16();
  }
  Flip = stream.ReadUInt8();
  Name = ReadText(stream);
  Rotation = stream.ReadUInt8();
  const std::uint32_t styleLength = stream.ReadUInt32();
  const std::uint32_t skipLength = stream.ReadUInt32();
  StyleData = stream.Read(styleLength);
  stream.Read(skipLength);
  if (const std::uint32_t length = stream.ReadUInt32(); length > 0) {
    PreviewAfter = JpegImporter::PreviewFromString(stream.Read(length));
  }
  return !stream.Failed();
}

bool IsFreeName(std::string_view name, std::string_view originalImageID) {
  if (!IsPlainName(name) || EqualIgnoringCase(name, originalImageID)) return false;
  for (const std::string_view own :
       {std::string_view("Contents"), BrivolantDocument::kSettingsName,
        BrivolantDocument::kThumbnailName, BrivolantDocument::kMidSizePreviewName,
        BrivolantDocument::kMetadataName}) {
    if (EqualIgnoringCase(name, own)) return false;
  }
  return true;
}

}  // namespace brivolant
