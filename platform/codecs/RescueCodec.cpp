// SPDX-License-Identifier: MIT
// Decoders for what the usual ones refuse whole: files that end too early or hold a bad block.
#include "platform/codecs/RescueCodec.h"

#include <fstream>

namespace brivolant::codecs {
namespace {

/// Which decoder a file is for.
enum class Kind { kNone, kTiff, kWebP, kJpeg2000, kGif, kBmp, kPnm };

Kind KindOf(const FolderItem& file) {
  std::string begin(16, '\0');
  std::ifstream(file.Path(), std::ios::binary)
      .read(begin.data(), static_cast<std::streamsize>(begin.size()));
  const std::string_view bytes = begin;
  if (bytes.starts_with(std::string_view("II*\0", 4)) ||
      bytes.starts_with(std::string_view("MM\0*", 4))) {
    return Kind::kTiff;
  }
  if (bytes.starts_with("RIFF") && bytes.substr(8, 4) == "WEBP") {
    return Kind::kWebP;
  }
  if (bytes.starts_with(std::string_view("\0\0\0\x0CjP  ", 8))) return Kind::kJpeg2000;
  if (bytes.starts_with("GIF87a") || bytes.starts_with("GIF89a")) return Kind::kGif;
  if (bytes.starts_with("BM")) return Kind::kBmp;
  if (bytes[0] == 'P' && bytes[1] >= '1' && bytes[1] <= '6') return Kind::kPnm;
  return Kind::kNone;
}

std::string_view TypeOf(Kind kind) {
  switch (kind) {
    case Kind::kTiff:
      return "public.tiff";
    case Kind::kWebP:
      return "org.webmproject.webp";
    case Kind::kJpeg2000:
      return "public.jpeg-2000";
    case Kind::kGif:
      return "com.compuserve.gif";
    case Kind::kBmp:
      return "com.microsoft.bmp";
    case Kind::kPnm:
    case Kind::kNone:
      break;
  }
  return {};
}

/// One picture that was read when the file was opened.
class DamagedSource final : public ImageSource {
 public:
  DamagedSource(std::string_view type, DecodedImage image)
      : type_(type), image_(std::move(image)) {}

  std::string Type() const override { return std::string(type_); }
  int Count() const override { return 1; }
  Expected<ImageProperties> Properties(int) const override { return {image_.Properties, {}}; }
  Expected<DecodedImage> Decode(int) const override { return {image_, {}}; }
  Expected<DecodedImage> Small(int longest) const override {
    return {SmallOf(image_, longest), {}};
  }

 private:
  std::string_view type_;
  DecodedImage image_;
};

}  // namespace

DecodedImage Canvas::Take(ImageProperties properties) {
  properties.Width = picture.Width();
  properties.Height = picture.Height();
  picture.HorizontalResolution = properties.HorizontalResolution;
  picture.VerticalResolution = properties.VerticalResolution;
  if (!mask.IsNil()) picture.SetMask(std::move(mask));
  return {std::move(picture), std::move(properties), {}};
}

Expected<Canvas> NewCanvas(const FolderItem& file, int width, int height, bool alpha) {
  if (std::int64_t{width} * height > PixelsThatFit(file.Length())) {
    return Expected<Canvas>::Failure(CodecMessage(codecTexts::kUnreadable, file));
  }
  Expected<Picture> picture = Allocate(file, width, height);
  if (!picture) return Expected<Canvas>::Failure(picture.error);
  PaintMissing(*picture, 0);
  return {Canvas{std::move(*picture), alpha ? Plane(width, height, 0) : Plane()}, {}};
}

Expected<DecodedImage> Rescue(const FolderItem& file, int index) {
  switch (KindOf(file)) {
    case Kind::kTiff:
      return RescueTiff(file, index);
    case Kind::kWebP:
      return RescueWebP(file);
    case Kind::kJpeg2000:
      return RescueJpeg2000(file);
    case Kind::kGif:
      // Later pictures of an animation lie over those before.
      return index == 0 ? RescueGif(file) : Expected<DecodedImage>{};
    case Kind::kBmp:
    case Kind::kPnm:
      return RescuePlain(file);
    case Kind::kNone:
      break;
  }
  return {};
}

std::unique_ptr<ImageSource> OpenDamaged(const FolderItem& file) {
  auto image = Rescue(file, 0);
  if (!image) return nullptr;
  return std::make_unique<DamagedSource>(TypeOf(KindOf(file)), std::move(*image));
}

}  // namespace brivolant::codecs
