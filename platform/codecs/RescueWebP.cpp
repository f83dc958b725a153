// SPDX-License-Identifier: MIT
#include <webp/decode.h>
#include <webp/demux.h>

#include <memory>

#include "platform/codecs/RescueCodec.h"

namespace brivolant::codecs {
namespace {

struct DeleteAnimation {
  void operator()(WebPAnimDecoder* decoder) const { WebPAnimDecoderDelete(decoder); }
};

struct DeleteDecoder {
  void operator()(WebPIDecoder* decoder) const { WebPIDelete(decoder); }
};

}  // namespace

Expected<DecodedImage> RescueWebP(const FolderItem& file) {
  const std::optional<std::string> bytes = ReadFile(file, kMostRescuedBytes);
  if (!bytes) return {};
  WebPDecoderConfig config;
  const auto* data = reinterpret_cast<const std::uint8_t*>(bytes->data());
  if (WebPInitDecoderConfig(&config) == 0 ||
      WebPGetFeatures(data, bytes->size(), &config.input) != VP8_STATUS_OK ||
      config.input.has_animation != 0) {
    return {};
  }
  const bool alpha = config.input.has_alpha != 0;
  auto canvas = NewCanvas(file, config.input.width, config.input.height, alpha);
  if (!canvas) return Expected<DecodedImage>::Failure(canvas.error);
  const Pixels pixels = canvas->picture.Edit();
  config.output.colorspace = MODE_BGRA;
  config.output.is_external_memory = 1;
  config.output.u.RGBA.rgba = pixels.data;
  config.output.u.RGBA.stride = static_cast<int>(pixels.stride);
  config.output.u.RGBA.size = pixels.stride * static_cast<std::size_t>(pixels.height);
  int rows = 0;
  bool ended = false;
  {
    const std::unique_ptr<WebPIDecoder, DeleteDecoder> decoder(WebPIDecode(nullptr, 0, &config));
    if (!decoder) return {};
    ended = WebPIAppend(decoder.get(), data, bytes->size()) == VP8_STATUS_SUSPENDED;
    (void)WebPIDecGetRGB(decoder.get(), &rows, nullptr, nullptr, nullptr);
  }
  // Below, the decoder may have begun what it could not finish.
  PaintMissing(canvas->picture, rows);
  if (alpha) {
    const Grey mask = canvas->mask.Edit();
    for (int y = 0; y < rows; ++y) {
      for (int x = 0; x < pixels.width; ++x) {
        std::uint8_t& opacity = pixels.Row(y)[4 * x + 3];
        mask.Row(y)[x] = static_cast<std::uint8_t>(255 - opacity);
        opacity = 255;
      }
    }
  }
  ImageProperties properties;
  properties.HasAlpha = alpha;
  return ReadInPart(file, canvas->Take(properties),
                    (ended ? codecTexts::kEndsEarly : codecTexts::kBadData).Text(), rows);
}

namespace {

/// The canvas after that many frames of an animation, four bytes a pixel.
bool DrawFrame(const std::string& bytes, int index, std::vector<std::uint8_t>& pixels) {
  WebPAnimDecoderOptions options;
  if (WebPAnimDecoderOptionsInit(&options) == 0) return false;
  options.color_mode = MODE_RGBA;
  const WebPData data{reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
  const std::unique_ptr<WebPAnimDecoder, DeleteAnimation> decoder(
      WebPAnimDecoderNew(&data, &options));
  WebPAnimInfo info;
  if (!decoder || WebPAnimDecoderGetInfo(decoder.get(), &info) == 0) return false;
  if (std::size_t{4} * info.canvas_width * info.canvas_height != pixels.size()) return false;
  std::uint8_t* canvas = nullptr;
  int time = 0;
  for (int frame = 0; frame <= index; ++frame) {
    if (WebPAnimDecoderGetNext(decoder.get(), &canvas, &time) == 0) return false;
  }
  std::copy_n(canvas, pixels.size(), pixels.begin());
  return true;
}

bool DrawStill(const std::string& bytes, int width, std::vector<std::uint8_t>& pixels, int bands) {
  WebPDecoderConfig config;
  if (WebPInitDecoderConfig(&config) == 0) return false;
  config.options.use_threads = 1;
  config.output.colorspace = bands == 4 ? MODE_RGBA : MODE_RGB;
  config.output.is_external_memory = 1;
  config.output.u.RGBA.rgba = pixels.data();
  config.output.u.RGBA.stride = width * bands;
  config.output.u.RGBA.size = pixels.size();
  return WebPDecode(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size(), &config) ==
         VP8_STATUS_OK;
}

}  // namespace

std::vector<std::uint8_t> WebPPixels(const FolderItem& file, int index, int width, int height,
                                     int bands) {
  const std::optional<std::string> bytes = ReadFile(file, kMostRescuedBytes);
  WebPBitstreamFeatures features;
  if (!bytes || (bands != 3 && bands != 4) ||
      WebPGetFeatures(reinterpret_cast<const std::uint8_t*>(bytes->data()), bytes->size(),
                      &features) != VP8_STATUS_OK) {
    return {};
  }
  const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  if (features.has_animation == 0) {
    std::vector<std::uint8_t> pixels(count * static_cast<std::size_t>(bands));
    const bool drawn = features.width == width && features.height == height &&
                       DrawStill(*bytes, width, pixels, bands);
    return drawn ? pixels : std::vector<std::uint8_t>();
  }
  std::vector<std::uint8_t> pixels(count * 4);
  if (!DrawFrame(*bytes, index, pixels)) return {};
  if (bands == 3) {
    for (std::size_t i = 0; i < count; ++i) std::copy_n(&pixels[4 * i], 3, &pixels[3 * i]);
    pixels.resize(count * 3);
  }
  return pixels;
}

}  // namespace brivolant::codecs
