// SPDX-License-Identifier: MIT
// Decoders for what the usual ones refuse whole: files that end too early or hold a bad block.
#include <openjpeg.h>
#include <tiffio.h>
#include <webp/decode.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <memory>
#include <vector>

#include "platform/codecs/CodecDetail.h"

namespace brivolant::codecs {
namespace {

using Result = Expected<DecodedImage>;

constexpr std::size_t kMostBytes = std::size_t{1} << 30U;
/// More than the best coding packs into a byte: a header that claims more lies.
constexpr std::int64_t kMostPixelsPerByte = 4096;

/// Which decoder a file is for.
enum class Kind { kNone, kTiff, kWebP, kJpeg2000 };

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
  return Kind::kNone;
}

/// A grey picture, and a mask that is opaque, to be painted over.
struct Canvas {
  Picture picture;
  Plane mask;

  DecodedImage Take(ImageProperties properties) {
    properties.Width = picture.Width();
    properties.Height = picture.Height();
    picture.HorizontalResolution = properties.HorizontalResolution;
    picture.VerticalResolution = properties.VerticalResolution;
    if (!mask.IsNil()) picture.SetMask(std::move(mask));
    return {std::move(picture), std::move(properties), {}};
  }
};

Expected<Canvas> NewCanvas(const FolderItem& file, int width, int height, bool alpha) {
  if (std::int64_t{width} * height / kMostPixelsPerByte >
      static_cast<std::int64_t>(file.Length())) {
    return Expected<Canvas>::Failure(CodecMessage(codecTexts::kUnreadable, file));
  }
  Expected<Picture> picture = Allocate(file, width, height);
  if (!picture) return Expected<Canvas>::Failure(picture.error);
  PaintMissing(*picture, 0);
  return {Canvas{std::move(*picture), alpha ? Plane(width, height, 0) : Plane()}, {}};
}

// TIFF

struct CloseTiff {
  void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};

/// A file in memory that goes on after its end in the grey of what is missing: so a strip that is
/// cut off gives the rows that it has.
struct PaddedFile {
  static constexpr toff_t kPadding = toff_t{1} << 40U;
  static constexpr int kMissing = 128;
  std::string bytes;
  toff_t at = 0;
};

tmsize_t ReadPadded(thandle_t handle, void* to, tmsize_t count) {
  auto& file = *static_cast<PaddedFile*>(handle);
  auto* out = static_cast<char*>(to);
  const auto wanted = static_cast<std::size_t>(count);
  const std::size_t left = file.bytes.size() - std::min<std::size_t>(file.at, file.bytes.size());
  const std::size_t got = std::min(wanted, left);
  if (got > 0) file.bytes.copy(out, got, file.at);
  std::fill(out + got, out + wanted, static_cast<char>(PaddedFile::kMissing));
  file.at += wanted;
  return count;
}

toff_t SeekPadded(thandle_t handle, toff_t offset, int whence) {
  auto& file = *static_cast<PaddedFile*>(handle);
  const toff_t from = whence == SEEK_CUR ? file.at : whence == SEEK_END ? file.bytes.size() : 0;
  return file.at = from + offset;
}

std::unique_ptr<TIFF, CloseTiff> OpenPadded(PaddedFile& file) {
  TIFFOpenOptions* options = TIFFOpenOptionsAlloc();
  const auto silent = [](TIFF*, void*, const char*, const char*, va_list) { return 1; };
  TIFFOpenOptionsSetErrorHandlerExtR(options, silent, nullptr);
  TIFFOpenOptionsSetWarningHandlerExtR(options, silent, nullptr);
  std::unique_ptr<TIFF, CloseTiff> tiff(TIFFClientOpenExt(
      "tiff", "rm", &file, ReadPadded, [](thandle_t, void*, tmsize_t) { return tmsize_t{0}; },
      SeekPadded, [](thandle_t) { return 0; },
      [](thandle_t handle) {
        return static_cast<PaddedFile*>(handle)->bytes.size() + PaddedFile::kPadding;
      },
      nullptr, nullptr, options));
  TIFFOpenOptionsFree(options);
  return tiff;
}

/// Copies a block of the library's pixels, whose rows go upwards, to (x, y).
void Place(Canvas& canvas, const std::vector<std::uint32_t>& block, int x, int y, int width,
           int rows) {
  const Pixels pixels = canvas.picture.Edit();
  const Grey mask = canvas.mask.IsNil() ? Grey{} : canvas.mask.Edit();
  for (int row = 0; row < std::min(rows, pixels.height - y); ++row) {
    const std::uint32_t* from =
        block.data() + static_cast<std::size_t>(rows - 1 - row) * static_cast<std::size_t>(width);
    for (int column = 0; column < std::min(width, pixels.width - x); ++column) {
      const std::uint32_t value = from[column];
      const std::uint32_t opacity = TIFFGetA(value);
      if (mask.data != nullptr) {
        mask.Row(y + row)[x + column] = static_cast<std::uint8_t>(255 - opacity);
      }
      // Nothing was written there, or nothing to be seen.
      if (opacity == 0) continue;
      std::uint8_t* to = pixels.Row(y + row) + std::ptrdiff_t{4} * (x + column);
      // Colours come multiplied by opacity.
      const auto plain = [&](std::uint32_t channel) {
        return static_cast<std::uint8_t>(std::min(255U, (channel * 255 + opacity / 2) / opacity));
      };
      to[0] = plain(TIFFGetB(value));
      to[1] = plain(TIFFGetG(value));
      to[2] = plain(TIFFGetR(value));
    }
  }
}

/// Reads the rows of a strip with a bad place, up to that. Only for what most files hold: grey and
/// RGB of 8 bits.
void ReadRows(TIFF* tiff, Canvas& canvas, int top, int rows) {
  std::uint16_t bits = 0;
  std::uint16_t samples = 0;
  std::uint16_t planes = 0;
  std::uint16_t space = 0;
  TIFFGetFieldDefaulted(tiff, TIFFTAG_BITSPERSAMPLE, &bits);
  TIFFGetFieldDefaulted(tiff, TIFFTAG_SAMPLESPERPIXEL, &samples);
  TIFFGetFieldDefaulted(tiff, TIFFTAG_PLANARCONFIG, &planes);
  TIFFGetField(tiff, TIFFTAG_PHOTOMETRIC, &space);
  const bool colors = space == PHOTOMETRIC_RGB && samples == 3;
  if (bits != 8 || planes != PLANARCONFIG_CONTIG ||
      !(colors || (space == PHOTOMETRIC_MINISBLACK && samples == 1))) {
    return;
  }
  // The library is still in the middle of the strip: it forgets that with its directory.
  if (TIFFSetDirectory(tiff, TIFFCurrentDirectory(tiff)) == 0) return;
  TIFFSetField(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
  const Pixels pixels = canvas.picture.Edit();
  std::vector<std::uint8_t> line(static_cast<std::size_t>(TIFFScanlineSize(tiff)));
  if (line.size() < static_cast<std::size_t>(pixels.width) * samples) return;
  for (int y = top; y < top + rows; ++y) {
    if (TIFFReadScanline(tiff, line.data(), static_cast<std::uint32_t>(y), 0) != 1) return;
    const std::uint8_t* from = line.data();
    std::uint8_t* to = pixels.Row(y);
    for (int x = 0; x < pixels.width; ++x, from += samples, to += 4) {
      to[2] = from[0];
      to[1] = from[colors ? 1 : 0];
      to[0] = from[colors ? 2 : 0];
    }
  }
}

/// Reads every strip or tile that can be read. Each comes into memory of its own, since what the
/// library leaves of one would show where the next is missing.
void ReadBlocks(TIFF* tiff, Canvas& canvas) {
  const int width = canvas.picture.Width();
  const int height = canvas.picture.Height();
  const bool tiled = TIFFIsTiled(tiff) != 0;
  std::uint32_t across = static_cast<std::uint32_t>(width);
  std::uint32_t down = static_cast<std::uint32_t>(height);
  if (tiled) {
    TIFFGetField(tiff, TIFFTAG_TILEWIDTH, &across);
    TIFFGetField(tiff, TIFFTAG_TILELENGTH, &down);
  } else {
    TIFFGetField(tiff, TIFFTAG_ROWSPERSTRIP, &down);
    down = std::min(down, static_cast<std::uint32_t>(height));
  }
  if (across == 0 || down == 0 || std::int64_t{across} * down > Picture::kMostPixels) return;
  std::vector<std::uint32_t> block;
  for (std::int64_t y = 0; y < height; y += down) {
    for (std::int64_t x = 0; x < width; x += across) {
      block.assign(std::size_t{across} * down, 0);
      const auto left = static_cast<std::uint32_t>(x);
      const auto top = static_cast<std::uint32_t>(y);
      // A strip's last rows are cut; a tile is always whole.
      const int rows = tiled ? static_cast<int>(down)
                             : static_cast<int>(std::min<std::int64_t>(down, height - y));
      const int read = tiled ? TIFFReadRGBATileExt(tiff, left, top, block.data(), 1)
                             : TIFFReadRGBAStripExt(tiff, top, block.data(), 1);
      if (read != 0) {
        Place(canvas, block, static_cast<int>(x), static_cast<int>(y), static_cast<int>(across),
              rows);
      } else if (!tiled) {
        ReadRows(tiff, canvas, static_cast<int>(y), rows);
      }
    }
  }
}

Result RescueTiff(const FolderItem& file, int index) {
  std::optional<std::string> bytes = ReadFile(file, kMostBytes);
  if (!bytes) return {};
  PaddedFile padded{std::move(*bytes)};
  const std::unique_ptr<TIFF, CloseTiff> tiff = OpenPadded(padded);
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  if (!tiff || (index > 0 && TIFFSetDirectory(tiff.get(), static_cast<tdir_t>(index)) == 0) ||
      TIFFGetField(tiff.get(), TIFFTAG_IMAGEWIDTH, &width) == 0 ||
      TIFFGetField(tiff.get(), TIFFTAG_IMAGELENGTH, &height) == 0 || width > 1U << 24U ||
      height > 1U << 24U) {
    return {};
  }
  ImageProperties properties;
  std::uint16_t bits = 8;
  std::uint16_t extra = 0;
  std::uint16_t* kinds = nullptr;
  std::uint16_t orientation = 1;
  std::uint16_t unit = RESUNIT_INCH;
  float x = 0;
  float y = 0;
  TIFFGetFieldDefaulted(tiff.get(), TIFFTAG_BITSPERSAMPLE, &bits);
  TIFFGetFieldDefaulted(tiff.get(), TIFFTAG_EXTRASAMPLES, &extra, &kinds);
  TIFFGetFieldDefaulted(tiff.get(), TIFFTAG_ORIENTATION, &orientation);
  TIFFGetFieldDefaulted(tiff.get(), TIFFTAG_RESOLUTIONUNIT, &unit);
  if (TIFFGetField(tiff.get(), TIFFTAG_XRESOLUTION, &x) != 0 &&
      TIFFGetField(tiff.get(), TIFFTAG_YRESOLUTION, &y) != 0 && unit != RESUNIT_NONE) {
    const float scale = unit == RESUNIT_CENTIMETER ? 2.54F : 1.0F;
    const auto dots = [&](float value) {
      return value * scale >= 1 && value * scale < 1e5F
                 ? static_cast<int>(std::lround(value * scale))
                 : 72;
    };
    properties.HorizontalResolution = dots(x);
    properties.VerticalResolution = dots(y);
  }
  properties.BitsPerComponent = std::clamp<int>(bits, 8, 32);
  properties.Orientation = orientation >= 1 && orientation <= 8 ? orientation : 1;
  properties.HasAlpha = extra > 0;
  auto canvas = NewCanvas(file, static_cast<int>(width), static_cast<int>(height), extra > 0);
  if (!canvas) return Result::Failure(canvas.error);
  // Rows come as they are stored; whoever shows the picture turns it.
  TIFFSetField(tiff.get(), TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
  ReadBlocks(tiff.get(), *canvas);
  std::uint32_t size = 0;
  const void* icc = nullptr;
  if (TIFFGetField(tiff.get(), TIFFTAG_ICCPROFILE, &size, &icc) != 0 && size > 0 &&
      !IsBlank(canvas->picture)) {
    const SourceProfile profile({static_cast<const char*>(icc), size});
    properties.ProfileName = profile.Name();
    profile.ConvertToSRGB(canvas->picture);
  }
  return ReadInPart(file, canvas->Take(properties), codecTexts::kBadData.Text());
}

// WebP

struct DeleteDecoder {
  void operator()(WebPIDecoder* decoder) const { WebPIDelete(decoder); }
};

Result RescueWebP(const FolderItem& file) {
  const std::optional<std::string> bytes = ReadFile(file, kMostBytes);
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
  if (!canvas) return Result::Failure(canvas.error);
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
                    (ended ? codecTexts::kEndsEarly : codecTexts::kBadData).Text());
}

// JPEG 2000

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
    const int shifted = c.data[at] + (c.sgnd != 0 ? 1 << (c.prec - 1) : 0);
    const int most = (1 << c.prec) - 1;
    return static_cast<std::uint8_t>((std::clamp(shifted, 0, most) * 255 + most / 2) / most);
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

Result RescueJpeg2000(const FolderItem& file) {
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
  if (!canvas) return Result::Failure(canvas.error);
  if (opj_decode(codec.get(), stream.get(), image.get()) == OPJ_FALSE || !IsSimple(*image) ||
      static_cast<int>(image->comps->w) != canvas->picture.Width() ||
      static_cast<int>(image->comps->h) != canvas->picture.Height()) {
    return {};
  }
  Place(*canvas, *image);
  ImageProperties properties;
  properties.HasAlpha = alpha;
  properties.ColorModel = image->numcomps < 3 ? "Gray" : "RGB";
  if (image->icc_profile_buf != nullptr && !IsBlank(canvas->picture)) {
    const SourceProfile profile({reinterpret_cast<const char*>(image->icc_profile_buf),
                                 static_cast<std::size_t>(image->icc_profile_len)});
    properties.ProfileName = profile.Name();
    profile.ConvertToSRGB(canvas->picture);
  }
  return ReadInPart(file, canvas->Take(properties), codecTexts::kBadData.Text());
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

Expected<DecodedImage> Rescue(const FolderItem& file, int index) {
  switch (KindOf(file)) {
    case Kind::kTiff:
      return RescueTiff(file, index);
    case Kind::kWebP:
      return RescueWebP(file);
    case Kind::kJpeg2000:
      return RescueJpeg2000(file);
    case Kind::kNone:
      break;
  }
  return {};
}

std::unique_ptr<ImageSource> OpenDamaged(const FolderItem& file) {
  auto image = Rescue(file, 0);
  if (!image) return nullptr;
  const Kind kind = KindOf(file);
  return std::make_unique<DamagedSource>(kind == Kind::kTiff   ? "public.tiff"
                                         : kind == Kind::kWebP ? "org.webmproject.webp"
                                                               : "public.jpeg-2000",
                                         std::move(*image));
}

}  // namespace brivolant::codecs
