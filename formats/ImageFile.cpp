// SPDX-License-Identifier: MIT
#include "formats/ImageFile.h"

#include <array>

#include "formats/FileTypes.h"

namespace brivolant {
namespace {

constexpr int kThumbnailSize = 256;
constexpr LocalizedText kNoImages{"ImageFile.kNoImages", "No Images"};
constexpr LocalizedText kNoFile{"ImageFile.kNoFile", "No File To Save To"};
constexpr LocalizedText kDeadAlias{"ImageIO.kDeadAlias", "Dead Alias/Link: <path>"};

/// The order in which formats are tried by name: the last that fits wins.
constexpr std::array<const FileType*, 11> kFormatOrder{
    &ImagesWritableMac::WindowsBitmap, &ImagesWritableMac::GIF,       &ImagesWritableMac::Jpeg,
    &ImagesWritableMac::JPEG2000,      &ImagesWritableMac::PDF,       &ImagesWritableMac::PICT,
    &ImagesWritableMac::PNG,           &ImagesWritableMac::Photoshop, &ImagesWritableMac::SGI,
    &ImagesWritableMac::TGA,           &ImagesWritableMac::TIFF};

}  // namespace

void ImageFile::AddPicture(const Picture& picture) {
  if (!picture.IsNil()) Image.emplace_back(picture);
}

void ImageFile::SetFormatFromFile() {
  for (const brivolant::FileType* type : kFormatOrder) {
    if (ImageIO::Match(*type, Folderitem)) FileType = type->Identifier;
  }
}

bool ImageFile::Save() {
  if (!Image.empty() && Folderitem) Folderitem = attachFileExtension(Folderitem, FileType);
  return SaveUnderThisName();
}

bool ImageFile::SaveUnderThisName() {
  LastError.clear();
  if (Image.empty()) {
    LastError = kNoImages.Text();
  } else if (Folderitem.IsNil()) {
    LastError = kNoFile.Text();
  } else {
    std::vector<EncodeImage> pictures;
    for (const ExtendedPicture& image : Image) {
      pictures.push_back({image.Picture(), image.CompressionQuality,
                          image.ColorSpace() == ImageIOKColorSpace::kGray});
    }
    LastError = EncodeImageFile(Folderitem, FileType, pictures);
  }
  return LastError.empty();
}

std::string ImageFile::DisplayFileType() const {
  const brivolant::FileType* type = ImagesWritableMac::WithIdentifier(FileType);
  return type == nullptr ? std::string() : type->Name.Text();
}

FolderItem ImageFile::attachFileExtension(const FolderItem& file, std::string_view type) {
  const brivolant::FileType* writable = ImagesWritableMac::WithIdentifier(type);
  if (writable == nullptr) return file;
  const std::string extension = "." + ImageIO::FirstExtension(*writable);
  const std::string name = file.Name();
  if (name.size() >= extension.size() &&
      EqualIgnoringCase(std::string_view(name).substr(name.size() - extension.size()), extension)) {
    return file;
  }
  return file.Parent().Child(name.substr(0, name.find('.')) + extension);
}

namespace ImageIO {

std::unique_ptr<ImageFile> OpenAsImageFile(const FolderItem& file, OpenMode mode,
                                           std::string& error) {
  error.clear();
  if (file.Alias() && !file.Exists()) {
    error = WithPlaceholders(kDeadAlias.Text(), {{"<path>", file.AbsolutePath()}});
    return nullptr;
  }
  const auto source = ImageSource::Open(file);
  if (!source) {
    error = source.error;
    return nullptr;
  }
  const ImageSource& images = **source.value;
  auto result = std::make_unique<ImageFile>();
  result->Folderitem = file;
  result->FileType = images.Type();
  if (mode == kEverything) result->Properties = images.Properties(0).value;
  if (mode != kFirstPicture) {
    if (auto thumbnail = images.Thumbnail(kThumbnailSize)) {
      result->ThumbNail.emplace(std::move(*thumbnail));
    } else {
      error = thumbnail.error;
    }
  }
  const int count = mode == kThumbnailOnly ? 0 : mode == kFirstPicture ? 1 : images.Count();
  for (int i = 0; i < count; ++i) {
    if (auto image = images.Decode(i)) {
      result->Image.emplace_back(std::move(*image)).ApplyOrientation();
    } else {
      error = image.error;
    }
  }
  return result;
}

OpenedPicture OpenFirstPicture(const FolderItem& file) {
  OpenedPicture opened;
  const auto image = OpenAsImageFile(file, kFirstPicture, opened.Error);
  if (!image || image->Image.empty()) return opened;
  opened.Damage = image->Image.front().Damage();
  opened.Pixels = std::move(image->Image.front().Picture());
  return opened;
}

Picture OpenAsPictureUsingImageIO(const FolderItem& file, std::string& error) {
  OpenedPicture opened = OpenFirstPicture(file);
  error = std::move(opened.Error);
  return std::move(opened.Pixels);
}

bool SaveAsJPEG(const FolderItem& file, const Picture& picture, double quality,
                std::string& error) {
  ImageFile image;
  image.FileType = ImagesWritableMac::Jpeg.Identifier;
  image.Folderitem = file;
  image.AddPicture(picture);
  if (ExtendedPicture* first = image.FirstImage()) {
    first->CompressionQuality = static_cast<float>(quality);
  }
  const bool saved = image.Save();
  error = image.LastError;
  return saved;
}

std::string FirstExtension(const FileType& type) {
  std::string extension;
  for (const char c : Trim(Split(type.Extensions, ';').front())) {
    if (c != '.') extension += c;
  }
  return extension;
}

bool Match(const FileType& type, const FolderItem& file) {
  if (!type.MacType.empty() && file.MacType() == type.MacType) return true;
  const std::string name = file.Name();
  const std::size_t dot = name.rfind('.');
  if (dot == std::string::npos) return false;
  const std::string extension = name.substr(dot + 1);
  // A part of the list is enough, so only extensions of three or four letters are asked for.
  return (extension.size() == 3 || extension.size() == 4) &&
         FindIgnoringCase(type.Extensions, extension) != std::string::npos;
}

}  // namespace ImageIO
}  // namespace brivolant
