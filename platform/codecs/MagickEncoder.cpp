// SPDX-License-Identifier: MIT
#include <magick/MagickCore.h>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

#include "platform/codecs/CodecDetail.h"
#include "platform/codecs/EncodeRows.h"
#include "platform/files/AtomicFile.h"

namespace brivolant::codecs {
namespace {

struct Format {
  std::string_view identifier;
  const char* name;
  bool alpha;
};
constexpr std::array<Format, 5> kFormats{{{"com.microsoft.bmp", "BMP", false},
                                          {"com.adobe.photoshop-image", "PSD", true},
                                          {"com.apple.pict", "PICT", false},
                                          {"com.sgi.sgi-image", "SGI", true},
                                          {"com.truevision.tga-image", "TGA", true}}};

const Format* FormatNamed(std::string_view identifier) {
  const auto* format = std::find_if(kFormats.begin(), kFormats.end(), [&](const Format& candidate) {
    return candidate.identifier == identifier;
  });
  return format == kFormats.end() ? nullptr : format;
}

struct Destroy {
  void operator()(ExceptionInfo* info) const { DestroyExceptionInfo(info); }
  void operator()(ImageInfo* info) const { DestroyImageInfo(info); }
  void operator()(::Image* image) const { DestroyImage(image); }
};

/// What the library says is wrong, without the place in its source that it adds.
std::string ReasonOf(const ExceptionInfo& exception) {
  std::string_view text = exception.reason == nullptr ? "" : exception.reason;
  text = Trim(text.substr(0, std::min(text.find('`'), text.find(" @ "))));
  return text.empty() ? codecTexts::kEncoderFailed.Text() : EnsureUTF8(text);
}

/// The bytes of a file in that format; empty on failure, and why in `reason`.
std::string Encoded(const EncodeImage& source, const Format& format, std::string& reason) {
  static const bool started = [] {
    MagickCoreGenesis(nullptr, MagickFalse);
    return true;
  }();
  const std::unique_ptr<ExceptionInfo, Destroy> exception(AcquireExceptionInfo());
  const std::unique_ptr<ImageInfo, Destroy> info(AcquireImageInfo());
  const std::unique_ptr<::Image, Destroy> image(AcquireImage(info.get()));
  const Picture& picture = source.Pixels;
  const Channels channels{source.Grey, format.alpha && picture.Mask() != nullptr};
  CopyMagickString(info->magick, format.name, MaxTextExtent);
  CopyMagickString(image->magick, format.name, MaxTextExtent);
  if (!started || SetImageExtent(image.get(), static_cast<std::size_t>(picture.Width()),
                                 static_cast<std::size_t>(picture.Height())) == MagickFalse) {
    reason = ReasonOf(image->exception);
    return {};
  }
  // Without this it writes as many bits as it works with.
  image->depth = 8;
  image->matte = channels.alpha ? MagickTrue : MagickFalse;
  image->units = PixelsPerInchResolution;
  image->x_resolution = picture.HorizontalResolution;
  image->y_resolution = picture.VerticalResolution;
  SetImageColorspace(image.get(), channels.grey ? GRAYColorspace : sRGBColorspace);
  const char* const map = channels.grey    ? (channels.alpha ? "IA" : "I")
                          : channels.alpha ? "RGBA"
                                           : "RGB";
  std::vector<std::uint8_t> row(static_cast<std::size_t>(picture.Width() * channels.Count()));
  for (int y = 0; y < picture.Height(); ++y) {
    EncodeRow(picture, y, 0, picture.Width(), channels, row.data());
    if (ImportImagePixels(image.get(), 0, y, static_cast<std::size_t>(picture.Width()), 1, map,
                          CharPixel, row.data()) == MagickFalse) {
      reason = ReasonOf(image->exception);
      return {};
    }
  }
  if (!channels.grey) {
    const std::string_view icc = SRGBProfile();
    StringInfo* profile = BlobToStringInfo(icc.data(), icc.size());
    if (profile != nullptr) {
      SetImageProfile(image.get(), "icc", profile);
      DestroyStringInfo(profile);
    }
  }
  std::size_t size = 0;
  unsigned char* blob = ImageToBlob(info.get(), image.get(), &size, exception.get());
  std::string bytes;
  if (blob != nullptr) bytes.assign(reinterpret_cast<const char*>(blob), size);
  if (bytes.empty()) {
    reason = ReasonOf(exception->reason != nullptr ? *exception : image->exception);
  }
  RelinquishMagickMemory(blob);
  return bytes;
}

}  // namespace

bool WrittenByMagick(std::string_view identifier) {
  return FormatNamed(identifier) != nullptr;
}

std::string EncodeWithMagick(const FolderItem& file, std::string_view identifier,
                             const EncodeImage& image) {
  const Format* format = FormatNamed(identifier);
  if (format == nullptr) return CodecMessage(codecTexts::kUnknownFormat, file);
  std::string reason;
  std::string bytes = Encoded(image, *format, reason);
  if (bytes.empty()) return CodecMessage(codecTexts::kCannotWrite, file, reason);
  // The encoder stores a TGA's top row first and says that the bottom row comes first: byte 17
  // tells the corner, and its bit 5 the top.
  constexpr std::size_t kDescriptor = 17;
  if (format->name == std::string_view("TGA") && bytes.size() > kDescriptor) {
    bytes[kDescriptor] = static_cast<char>(bytes[kDescriptor] | 0x20);
  }
  const std::error_code error = WriteFileAtomically(file, bytes);
  return error ? CodecMessage(codecTexts::kCannotWrite, file, error.message()) : std::string();
}

}  // namespace brivolant::codecs
