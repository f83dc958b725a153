// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/codecs/ImageCodecs.h"
#include "platform/codecs/Orientation.h"

/// What the codecs share among themselves.
namespace brivolant::codecs {

/// A picture to decode into, or the sentence why not.
Expected<Picture> Allocate(const FolderItem& file, int width, int height);

/// The picture shrunk so that no side is longer than `longest`, in the same proportion. Smaller
/// ones stay as they are.
Picture FitWithin(const Picture& picture, int longest);
/// The picture on white, without its mask.
Picture Flattened(const Picture& picture);

/// Null if the file is not a JPEG of one or three channels in RGB or grey.
std::unique_ptr<ImageSource> OpenJpeg(const FolderItem& file);
/// Decodes a JPEG in memory, no side needing more than `atLeast` pixels. Nil on failure.
Picture DecodeJpegPreview(std::string_view bytes, int atLeast,
                          std::int64_t most = Picture::kMostPixels);
std::string EncodeJpeg(const FolderItem& file, const EncodeImage& image);
std::string EncodeJpegToMemory(const EncodeImage& image);

/// True if the name ends like a camera raw file's.
bool HasRawExtension(const FolderItem& file);
std::unique_ptr<ImageSource> OpenRaw(const FolderItem& file);

std::unique_ptr<ImageSource> OpenWithVips(const FolderItem& file);
/// A PNG or JPEG 2000 file in memory; nil on failure.
Picture DecodeWithVips(std::string_view bytes);
std::string EncodeWithVips(const FolderItem& file, std::string_view identifier,
                           std::span<const EncodeImage> pictures);
void ShutDownVips();

/// An ICC profile that pixels are converted from.
class SourceProfile {
 public:
  explicit SourceProfile(std::string_view icc);
  /// The profile's own description, empty if it is none.
  const std::string& Name() const { return name_; }
  bool IsRGB() const { return rgb_; }
  /// Converts to sRGB in place; nothing if the profile is sRGB or cannot be used.
  void ConvertToSRGB(Picture& picture) const;

 private:
  std::string icc_;
  std::string name_;
  bool rgb_ = false;
};

/// The sRGB profile that written files carry; the same bytes on every day.
std::string_view SRGBProfile();

}  // namespace brivolant::codecs
