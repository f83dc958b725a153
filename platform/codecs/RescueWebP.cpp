// SPDX-License-Identifier: MIT
#include <webp/decode.h>

#include <memory>

#include "platform/codecs/RescueCodec.h"

namespace brivolant::codecs {
namespace {

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

}  // namespace brivolant::codecs
