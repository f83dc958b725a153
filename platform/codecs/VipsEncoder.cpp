// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstdio>

#include "platform/codecs/CodecDetail.h"
#include "platform/codecs/EncodeRows.h"
#include "platform/codecs/VipsSupport.h"
#include "platform/files/AtomicFile.h"
#include "platform/values/ThreadOrder.h"

namespace brivolant::codecs {
namespace {

/// The pictures below each other. All are cut or padded to the first's size, which is what
/// page-by-page formats can hold.
struct Pages {
  std::span<const EncodeImage> pictures;
  Channels channels;
  /// The library's threads read what was there when it was called.
  ThreadOrder order = {};
  ThreadOrder ended = {};
  ~Pages() { ended.After(); }

  int Width() const { return pictures.front().Pixels.Width(); }
  int Height() const { return pictures.front().Pixels.Height(); }
};

/// Hands a strip to the encoder, when it asks for it: the pictures are never copied whole.
int FillStrip(VipsRegion* region, void*, void* data, void*, gboolean*) {
  const auto& pages = *static_cast<const Pages*>(data);
  pages.order.After();
  const VipsRect& area = region->valid;
  for (int y = area.top; y < area.top + area.height; ++y) {
    const auto page = static_cast<std::size_t>(y / pages.Height());
    EncodeRow(pages.pictures[page].Pixels, y % pages.Height(), area.left, area.width,
              pages.channels, VIPS_REGION_ADDR(region, area.left, y));
  }
  pages.ended.Before();
  return 0;
}

VipsPicture ForWriting(Pages& pages) {
  const Picture& first = pages.pictures.front().Pixels;
  const bool grey = pages.channels.grey;
  VipsPicture image(vips_image_new());
  vips_image_init_fields(image.get(), pages.Width(),
                         pages.Height() * static_cast<int>(pages.pictures.size()),
                         pages.channels.Count(), VIPS_FORMAT_UCHAR, VIPS_CODING_NONE,
                         grey ? VIPS_INTERPRETATION_B_W : VIPS_INTERPRETATION_sRGB,
                         first.HorizontalResolution / 25.4, first.VerticalResolution / 25.4);
  if (vips_image_pipelinev(image.get(), VIPS_DEMAND_STYLE_THINSTRIP, nullptr) != 0 ||
      vips_image_generate(image.get(), nullptr, FillStrip, nullptr, &pages, nullptr) != 0) {
    return nullptr;
  }
  if (!grey) {
    const std::string_view icc = SRGBProfile();
    vips_image_set_blob_copy(image.get(), VIPS_META_ICC_NAME, icc.data(), icc.size());
  }
  pages.order.Before();
  if (pages.pictures.size() > 1) {
    vips_image_set_int(image.get(), VIPS_META_PAGE_HEIGHT, first.Height());
  }
  return image;
}

/// Why an encoder could not write: the system's own words where the library quotes them.
std::string WriteFailure() {
  const std::string text = TakeVipsError();
  constexpr std::string_view kQuote = "unix error: ";
  const std::size_t at = text.find(kQuote);
  if (at == std::string::npos) return codecTexts::kEncoderFailed.Text();
  const std::size_t from = at + kQuote.size();
  return text.substr(from, text.find(';', from) - from);
}

struct Writer {
  std::string_view identifier;
  bool pages;
  int (*save)(VipsImage* image, const char* path, double quality);
};

constexpr std::array<Writer, 4> kWriters{{
    {"public.png", false,
     [](VipsImage* image, const char* path, double) { return vips_pngsave(image, path, nullptr); }},
    {"public.tiff", true,
     [](VipsImage* image, const char* path, double) {
       return vips_tiffsave(image, path, "compression", VIPS_FOREIGN_TIFF_COMPRESSION_LZW,
                            "predictor", VIPS_FOREIGN_TIFF_PREDICTOR_HORIZONTAL, nullptr);
     }},
    {"com.compuserve.gif", true,
     [](VipsImage* image, const char* path, double) { return vips_gifsave(image, path, nullptr); }},
    {"public.jpeg-2000", false,
     [](VipsImage* image, const char* path, double quality) {
       // The encoder counts from 1; a quality of 1.0 is without loss.
       const int percent = std::clamp(static_cast<int>(std::lround(quality * 100)), 1, 100);
       // Through memory: after a failed write to a file the encoder never comes back.
       void* bytes = nullptr;
       std::size_t size = 0;
       if (vips_jp2ksave_buffer(image, &bytes, &size, "Q", percent, "lossless", percent == 100,
                                nullptr) != 0) {
         return -1;
       }
       std::FILE* file = std::fopen(path, "wbe");
       const bool written = file != nullptr && std::fwrite(bytes, 1, size, file) == size;
       if (!written) vips_error_system(errno, "jp2ksave", "write failed");
       const bool closed = file != nullptr && std::fclose(file) == 0;
       g_free(bytes);
       return written && closed ? 0 : -1;
     }},
}};

}  // namespace

std::string EncodeWithVips(const FolderItem& file, std::string_view identifier,
                           std::span<const EncodeImage> pictures) {
  const auto* writer = std::find_if(kWriters.begin(), kWriters.end(), [&](const Writer& candidate) {
    return candidate.identifier == identifier;
  });
  if (writer == kWriters.end() || !StartVips()) {
    return CodecMessage(codecTexts::kUnknownFormat, file);
  }
  AtomicFile target(file);
  if (target.Error()) {
    return CodecMessage(codecTexts::kCannotWrite, file, target.Error().message());
  }
  if (!writer->pages) pictures = pictures.first(1);
  const bool grey = std::all_of(pictures.begin(), pictures.end(),
                                [](const EncodeImage& image) { return image.Grey; });
  Pages pages{pictures, {grey, pictures.front().Pixels.Mask() != nullptr}};
  const VipsPicture image = ForWriting(pages);
  // Over the descriptor, so that no library reads a meaning into the name.
  const std::string path = "/proc/self/fd/" + std::to_string(target.Descriptor());
  if (!image || writer->save(image.get(), path.c_str(), pictures.front().Quality) != 0) {
    return CodecMessage(codecTexts::kCannotWrite, file, WriteFailure());
  }
  if (const std::error_code error = target.Commit()) {
    return CodecMessage(codecTexts::kCannotWrite, file, error.message());
  }
  return {};
}

}  // namespace brivolant::codecs
