// SPDX-License-Identifier: MIT
#include <openjpeg.h>

#include <algorithm>
#include <memory>

#include "platform/codecs/RescueCodec.h"

namespace brivolant::codecs {
namespace {

struct DestroyCodec {
  void operator()(opj_codec_t* codec) const { opj_destroy_codec(codec); }
};
struct DestroyStream {
  void operator()(opj_stream_t* stream) const { opj_stream_destroy(stream); }
};
struct DestroyImage {
  void operator()(opj_image_t* image) const { opj_image_destroy(image); }
};

/// True for grey and RGB of up to 16 bits, all components of one size.
bool IsSimple(const opj_image_t& image) {
  if (image.numcomps < 1 || image.numcomps > 4 || image.color_space == OPJ_CLRSPC_SYCC ||
      image.color_space == OPJ_CLRSPC_EYCC || image.color_space == OPJ_CLRSPC_CMYK) {
    return false;
  }
  return std::all_of(image.comps, image.comps + image.numcomps, [&](const opj_image_comp_t& c) {
    return c.w == image.comps->w && c.h == image.comps->h && c.prec >= 1 && c.prec <= 16;
  });
}

void Place(Canvas& canvas, const opj_image_t& image) {
  const Pixels pixels = canvas.picture.Edit();
  const bool alpha = !canvas.mask.IsNil();
  const Grey mask = alpha ? canvas.mask.Edit() : Grey{};
  const bool grey = image.numcomps < 3;
  const auto value = [&](std::uint32_t component, std::size_t at) {
    const opj_image_comp_t& c = image.comps[component];
    if (c.data == nullptr) return std::uint8_t{128};
    // Of damaged data any number may come.
    const std::int64_t shifted = std::int64_t{c.data[at]} + (c.sgnd != 0 ? 1 << (c.prec - 1) : 0);
    const int most = (1 << c.prec) - 1;
    const auto limited = static_cast<int>(std::clamp<std::int64_t>(shifted, 0, most));
    return static_cast<std::uint8_t>((limited * 255 + most / 2) / most);
  };
  for (int y = 0; y < pixels.height; ++y) {
    std::uint8_t* to = pixels.Row(y);
    for (int x = 0; x < pixels.width; ++x, to += 4) {
      const std::size_t at = static_cast<std::size_t>(y) * static_cast<std::size_t>(pixels.width) +
                             static_cast<std::size_t>(x);
      to[2] = value(0, at);
      to[1] = grey ? to[2] : value(1, at);
      to[0] = grey ? to[2] : value(2, at);
      if (alpha) mask.Row(y)[x] = static_cast<std::uint8_t>(255 - value(image.numcomps - 1, at));
    }
  }
}

/// How many rows have something, which the library does not tell: with any packets of its first
/// tile all have.
int RowsWithPackets(const FolderItem& file, int height) {
  constexpr std::string_view kStartOfData{"\xFF\x93"};
  const std::optional<std::string> bytes = ReadFile(file, kMostRescuedBytes);
  const std::size_t start = bytes ? bytes->find(kStartOfData) : std::string::npos;
  // The first packet's head and a few bits of it.
  constexpr std::size_t kSome = 32;
  return start != std::string::npos && bytes->size() - start > kSome ? height : 0;
}

}  // namespace

Expected<DecodedImage> RescueJpeg2000(const FolderItem& file) {
  const std::unique_ptr<opj_stream_t, DestroyStream> stream(
      opj_stream_create_default_file_stream(file.Path().c_str(), OPJ_TRUE));
  const std::unique_ptr<opj_codec_t, DestroyCodec> codec(opj_create_decompress(OPJ_CODEC_JP2));
  if (!stream || !codec) return {};
  opj_dparameters_t parameters;
  opj_set_default_decoder_parameters(&parameters);
  opj_image_t* read = nullptr;
  if (opj_setup_decoder(codec.get(), &parameters) == OPJ_FALSE) return {};
  // Opens what is cut off, which is why we are here.
  opj_decoder_set_strict_mode(codec.get(), OPJ_FALSE);
  const bool header = opj_read_header(stream.get(), codec.get(), &read) != OPJ_FALSE;
  const std::unique_ptr<opj_image_t, DestroyImage> image(read);
  if (!header || !image || !IsSimple(*image)) return {};
  const bool alpha = image->numcomps == 2 || image->numcomps == 4;
  if (image->comps->w > 1U << 24U || image->comps->h > 1U << 24U) return {};
  auto canvas =
      NewCanvas(file, static_cast<int>(image->comps->w), static_cast<int>(image->comps->h), alpha);
  if (!canvas) return Expected<DecodedImage>::Failure(canvas.error);
  if (opj_decode(codec.get(), stream.get(), image.get()) == OPJ_FALSE || !IsSimple(*image) ||
      static_cast<int>(image->comps->w) != canvas->picture.Width() ||
      static_cast<int>(image->comps->h) != canvas->picture.Height()) {
    return {};
  }
  Place(*canvas, *image);
  ImageProperties properties;
  properties.HasAlpha = alpha;
  properties.ColorModel = image->numcomps < 3 ? "Gray" : "RGB";
  const int rows = RowsWithPackets(file, canvas->picture.Height());
  if (image->icc_profile_buf != nullptr && rows > 0) {
    const SourceProfile profile({reinterpret_cast<const char*>(image->icc_profile_buf),
                                 static_cast<std::size_t>(image->icc_profile_len)});
    properties.ProfileName = profile.Name();
    profile.ConvertToSRGB(canvas->picture, image->numcomps < 3);
  }
  return ReadInPart(file, canvas->Take(properties), codecTexts::kBadData.Text(), rows);
}

}  // namespace brivolant::codecs
