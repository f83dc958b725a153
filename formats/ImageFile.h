// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/pictures/ExtendedPicture.h"
#include "platform/files/FileType.h"
#include "platform/files/FolderItem.h"

namespace brivolant {

/// One image file in memory, possibly of several pictures.
class ImageFile {
 public:
  /// The pictures, in file order.
  std::vector<ExtendedPicture> Image;
  /// Uniform type identifier.
  std::string FileType = "com.apple.pict";
  FolderItem Folderitem;
  /// Why Save failed.
  std::string LastError;
  /// What the file says of its first picture, if it was asked for.
  std::optional<ImageProperties> Properties;
  /// The file's thumbnail, upright, if it was asked for and there is one.
  std::optional<ExtendedPicture> ThumbNail;

  /// The last index of Image: -1 when it is empty.
  int Count() const { return static_cast<int>(Image.size()) - 1; }
  /// Appends a picture; a nil picture is ignored.
  void AddPicture(const Picture& picture);
  /// Null when there is none.
  ExtendedPicture* FirstImage() { return Image.empty() ? nullptr : &Image.front(); }

  /// Sets FileType by the name of Folderitem; a name that fits no writable type changes nothing.
  void SetFormatFromFile();
  /// Gives Folderitem the type's extension and writes. On failure LastError says why, and what
  /// was there before stays.
  [[nodiscard]] bool Save();
  /// The same under exactly the name of Folderitem.
  [[nodiscard]] bool SaveUnderThisName();
  /// The name of the writable type in FileType, or empty.
  std::string DisplayFileType() const;
  /// The file beside `file` whose name ends like the type's first extension.
  static FolderItem attachFileExtension(const FolderItem& file, std::string_view type);
};

/// Opening and saving image files.
namespace ImageIO {

/// How much is read.
enum OpenMode {
  kEverything = 0,     ///< Properties, thumbnail, all pictures.
  kFirstPicture = 1,   ///< The first picture alone.
  kThumbnailOnly = 2,  ///< The thumbnail alone, no side longer than 256 pixels.
};

/// Null, and a sentence in `error`, when the file cannot be opened as an image. Pictures that fail
/// are left out, with the sentence in `error`.
std::unique_ptr<ImageFile> OpenAsImageFile(const FolderItem& file, OpenMode mode,
                                           std::string& error);
/// The first picture of a file, upright.
struct OpenedPicture {
  Picture Pixels;
  /// Why there is none.
  std::string Error;
  /// What of it could not be read.
  PictureDamage Damage;
};
OpenedPicture OpenFirstPicture(const FolderItem& file);
/// The same; nil and a sentence in `error` on failure. A damaged picture comes as far as it can be
/// read.
Picture OpenAsPictureUsingImageIO(const FolderItem& file, std::string& error);
/// `quality` 0 to 1. False and a sentence in `error` on failure.
[[nodiscard]] bool SaveAsJPEG(const FolderItem& file, const Picture& picture, double quality,
                              std::string& error);
/// The first extension of a type.
std::string FirstExtension(const FileType& type);
/// True if codes or extension of the file are the type's.
bool Match(const FileType& type, const FolderItem& file);

}  // namespace ImageIO
}  // namespace brivolant
