// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/codecs/ImageCodecs.h"
#include "platform/codecs/Orientation.h"

/// What the codecs share among themselves.
namespace brivolant::codecs {

/// Pixels. A row of them is no burden, and no camera or scanner comes near.
constexpr int kLongestSide = 1'000'000;
/// The sentence that a picture of that size is not opened; empty if it is.
std::string TooLarge(const FolderItem& file, int width, int height);
/// A picture to decode into, or the sentence why not.
Expected<Picture> Allocate(const FolderItem& file, int width, int height);

/// Paints the rows from `first` to before `last` in the grey of what could not be read.
void PaintMissing(Picture& picture, int first, int last = kLongestSide);
/// True if there is nothing to see: a decoder that runs out of data in the first block may leave a
/// trace there.
bool IsBlank(const Picture& picture);
/// What could be read of a damaged picture, with the sentence that says so. `rows` is how many were
/// decoded; where that is none, or nobody knows, it fails if there is nothing to see.
Expected<DecodedImage> ReadInPart(const FolderItem& file, DecodedImage image,
                                  std::string_view reason, std::int64_t rows);

/// The picture shrunk so that no side is longer than `longest`, in the same proportion. Smaller
/// ones stay as they are.
Picture FitWithin(const Picture& picture, int longest);
/// The same of a decoded picture, turned upright.
DecodedImage SmallOf(DecodedImage image, int longest);
/// The picture on white, without its mask.
Picture Flattened(const Picture& picture);

/// Null if the file is not a JPEG of one or three channels in RGB or grey.
std::unique_ptr<ImageSource> OpenJpeg(const FolderItem& file);
/// Decodes a JPEG in memory, no side needing more than `atLeast` pixels. Nil on failure, and if it
/// is damaged.
Picture DecodeJpegPreview(std::string_view bytes, int atLeast,
                          std::int64_t most = Picture::kMostPixels);
std::string EncodeJpeg(const FolderItem& file, const EncodeImage& image);
std::string EncodeJpegToMemory(const EncodeImage& image);

/// True if the name ends like a camera raw file's.
bool HasRawExtension(const FolderItem& file);
std::unique_ptr<ImageSource> OpenRaw(const FolderItem& file);

/// What an Exif segment says that decoders need.
struct ExifFacts {
  int orientation = 1;
  /// The stored preview, a JPEG.
  std::string preview;
};
/// From "Exif", two zeros and a TIFF structure; the defaults if it is damaged.
ExifFacts ReadExif(const std::string& segment);

/// Null if the file is not a PNG, or is one in a colour space that needs conversion by libvips.
std::unique_ptr<ImageSource> OpenPng(const FolderItem& file);
/// A damaged PNG of any kind, as far as it can be read.
Expected<DecodedImage> RescuePng(const FolderItem& file);
/// A PNG file in memory; nil on failure, and if it is damaged or has a side longer than `longest`.
Picture DecodePng(std::string_view bytes, int longest);

std::unique_ptr<ImageSource> OpenWithVips(const FolderItem& file);
/// A JPEG 2000 file in memory; nil on failure, and if it has a side longer than `longest`.
Picture DecodeWithVips(std::string_view bytes, int longest);
/// Any format in memory, as it is when it lies in `file`.
Expected<DecodedImage> DecodeWithVips(const FolderItem& file, std::string_view bytes);
std::string EncodeWithVips(const FolderItem& file, std::string_view identifier,
                           std::span<const EncodeImage> pictures);
/// Converts rows whose pixels are four inks, as whole files are converted; the others stay. `icc`
/// may be empty.
void ConvertInks(Picture& picture, const std::vector<bool>& rows, const std::string& icc);
/// The formats that are written by ImageMagick: BMP, PSD, PICT, SGI and TGA.
bool WrittenByMagick(std::string_view identifier);
std::string EncodeWithMagick(const FolderItem& file, std::string_view identifier,
                             const EncodeImage& image);
void ShutDownVips();

/// True if the file is SGI by its first bytes.
bool IsSgi(const FolderItem& file);
/// True if a file is shorter than its headers say, of the formats for which this can be known: SGI,
/// BMP, PSD, PCX, TGA, and HEIF. Some decoders leave the rest black.
bool EndsEarly(const FolderItem& file);
/// The same of PNM whose pixels are written as text.
bool TextEndsEarly(const FolderItem& file);

/// A damaged TIFF, WebP, GIF, JPEG 2000, BMP or PNM file, as far as it can be read; `index` counts
/// pages. A failure without a sentence if it is none of these.
Expected<DecodedImage> Rescue(const FolderItem& file, int index);
/// A damaged file that nothing else opens; null if nothing can be read of it.
std::unique_ptr<ImageSource> OpenDamaged(const FolderItem& file);

/// An ICC profile that pixels are converted from.
class SourceProfile {
 public:
  explicit SourceProfile(std::string_view icc);
  /// The profile's own description, empty if it is none.
  const std::string& Name() const { return name_; }
  bool IsRGB() const { return space_ == Space::kRGB; }
  /// Converts to sRGB in place; nothing if the profile is sRGB or cannot be used. A profile of
  /// greys is used only if the picture is `grey`.
  void ConvertToSRGB(Picture& picture, bool grey = false) const;

 private:
  std::string icc_;
  std::string name_;
  enum class Space { kOther, kRGB, kGrey } space_ = Space::kOther;
};

/// The sRGB profile that written files carry; the same bytes on every day.
std::string_view SRGBProfile();

}  // namespace brivolant::codecs
