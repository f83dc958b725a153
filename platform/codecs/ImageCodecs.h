// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/files/FolderItem.h"
#include "platform/pictures/Picture.h"
#include "platform/values/Text.h"

namespace brivolant {

/// A value or the sentence that says why there is none.
template <class T>
struct [[nodiscard]] Expected {
  std::optional<T> value;
  std::string error;

  explicit operator bool() const { return value.has_value(); }
  T& operator*() { return *value; }
  T* operator->() { return &*value; }

  static Expected Failure(std::string why) { return {std::nullopt, std::move(why)}; }
};

/// What is known of a picture in a file.
struct ImageProperties {
  /// As stored, before Orientation is applied.
  int Width = 0;
  int Height = 0;
  /// TIFF orientation, 1 to 8.
  int Orientation = 1;
  /// Pixels per inch.
  int HorizontalResolution = 72;
  int VerticalResolution = 72;
  int BitsPerComponent = 8;
  bool HasAlpha = false;
  /// "RGB", "Gray" or "CMYK".
  std::string ColorModel = "RGB";
  /// Empty if the file names none.
  std::string ProfileName;
};

/// What is wrong with a picture that could be read only in part; empty for one that was read whole.
struct PictureDamage {
  /// A sentence that names the file: what is wrong, and that the rest is shown.
  std::string Warning;
  /// The sentence for those who take whole pictures only.
  std::string Refusal;

  explicit operator bool() const { return !Warning.empty(); }
};

/// A picture as it lies in the file, in sRGB, not yet turned upright.
struct DecodedImage {
  Picture Pixels;
  ImageProperties Properties;
  /// What is missing of the picture is grey, or as the format's own decoder leaves it.
  PictureDamage Damage{};
};

/// An image file opened for reading. Decoders check every size before memory is asked for.
class ImageSource {
 public:
  virtual ~ImageSource() = default;
  /// Uniform type identifier, such as "public.jpeg".
  virtual std::string Type() const = 0;
  /// Number of pictures.
  virtual int Count() const = 0;
  virtual Expected<ImageProperties> Properties(int index) const = 0;
  /// A damaged picture comes as far as it can be read, see DecodedImage::Damage; it fails if there
  /// is nothing to see. The same file gives the same every time.
  virtual Expected<DecodedImage> Decode(int index) const = 0;
  /// The first picture upright, no side longer than `longest`, by the cheapest way there is: a
  /// stored preview of that size, or a reduced decode. Damaged ones show what can be read, and the
  /// damage that was met on that way.
  virtual Expected<DecodedImage> Small(int longest) const = 0;
  /// The same for who only looks.
  Expected<Picture> Thumbnail(int longest) const;

  /// The error names the file.
  static Expected<std::unique_ptr<ImageSource>> Open(const FolderItem& file);
};

/// One picture to be written.
struct EncodeImage {
  Picture Pixels;
  /// 0 to 1, for formats that lose.
  double Quality = 0.75;
  /// Written with one channel, by the luma of the pixels, where the format has such a form.
  bool Grey = false;
};

/// Writes a file of the format with that identifier; see ImagesWritableMac for those known.
/// The file is complete or untouched. TIFF, GIF and PDF take several pictures, the others the
/// first. Formats without transparency lay it on white. Empty on success, else a sentence.
[[nodiscard]] std::string EncodeImageFile(const FolderItem& file, std::string_view identifier,
                                          std::span<const EncodeImage> pictures);

/// A PNG or JPEG 2000 file in memory, its transparency as the mask; nil if it is neither, has a
/// side longer than `longest` pixels or cannot be decoded.
Picture DecodeImageBytes(std::string_view bytes, int longest = std::numeric_limits<int>::max());
/// A JPEG in memory; nil if it cannot be decoded whole, or claims more than `most` pixels. With
/// `atLeast` it is reduced as far as its longer side keeps that many.
Picture DecodeJpegBytes(std::string_view bytes, int atLeast = 0,
                        std::int64_t most = Picture::kMostPixels);
/// A picture as the bytes of a JPEG file; empty if memory runs out.
std::string EncodeJpegBytes(const EncodeImage& image);

/// Shuts the codec libraries down; call it last, if at all.
void ShutDownCodecs();

/// Sentences of the codecs; "<filename>" is the file's name.
namespace codecTexts {
inline constexpr LocalizedText kMissing{"ImageCodecs.kMissing",
                                        "The file \"<filename>\" does not exist."};
inline constexpr LocalizedText kUnreadable{
    "ImageCodecs.kUnreadable", "The file \"<filename>\" is not an image that can be read."};
inline constexpr LocalizedText kDamaged{
    "ImageCodecs.kDamaged", "The image \"<filename>\" is damaged or incomplete (<reason>)."};
inline constexpr LocalizedText kReadInPart{
    "ImageCodecs.kReadInPart",
    "The image \"<filename>\" is damaged or incomplete (<reason>); it is shown as far as it can be "
    "read."};
inline constexpr LocalizedText kEndsEarly{"ImageCodecs.kEndsEarly", "it ends too early"};
inline constexpr LocalizedText kBadData{"ImageCodecs.kBadData",
                                        "a part of its data is missing or wrong"};
inline constexpr LocalizedText kTooLarge{
    "ImageCodecs.kTooLarge",
    "The image \"<filename>\" is too large: it claims <width> x <height> pixels."};
inline constexpr LocalizedText kNoMemory{
    "ImageCodecs.kNoMemory", "There is not enough memory to open the image \"<filename>\"."};
inline constexpr LocalizedText kCannotWrite{"ImageCodecs.kCannotWrite",
                                            "The file \"<filename>\" cannot be saved: <reason>."};
inline constexpr LocalizedText kEncoderFailed{"ImageCodecs.kEncoderFailed",
                                              "the disk may be full or cannot be written to"};
inline constexpr LocalizedText kJpegSide{"ImageCodecs.kJpegSide",
                                         "a JPEG has at most <pixels> pixels a side"};
inline constexpr LocalizedText kUnknownFormat{
    "ImageCodecs.kUnknownFormat",
    "The file \"<filename>\" cannot be saved: its format cannot be written."};
}  // namespace codecTexts

/// `text` with the file's name put in.
std::string CodecMessage(const LocalizedText& text, const FolderItem& file,
                         std::string_view reason = {});

}  // namespace brivolant
