// SPDX-License-Identifier: MIT
#include <tiffio.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <vector>

#include "platform/codecs/RescueCodec.h"

namespace brivolant::codecs {
namespace {

struct CloseTiff {
  void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};

/// A file in memory that, while pixels are read, goes on after its end in the grey of what is
/// missing: so a strip that is cut off gives the rows that it has. It goes on no further than one
/// strip can, for a strip may claim any length.
struct PaddedFile {
  static constexpr int kMissing = 128;
  std::string bytes;
  toff_t at = 0;
  /// Not for directories: a length that lies would be read from the padding, up to its gigabytes.
  bool padded = false;
  toff_t padding = 0;
  /// How many bytes are still given: any number of strips may claim the same ones.
  std::uint64_t left = std::numeric_limits<std::uint64_t>::max();
};

tmsize_t ReadPadded(thandle_t handle, void* to, tmsize_t count) {
  auto& file = *static_cast<PaddedFile*>(handle);
  auto* out = static_cast<char*>(to);
  const auto wanted = static_cast<std::size_t>(count);
  if (wanted > file.left) return 0;
  file.left -= wanted;
  const std::size_t left = file.bytes.size() - std::min<std::size_t>(file.at, file.bytes.size());
  const std::size_t got = std::min(wanted, left);
  if (got > 0) file.bytes.copy(out, got, file.at);
  if (!file.padded) {
    file.at += got;
    return static_cast<tmsize_t>(got);
  }
  const toff_t end = file.bytes.size() + file.padding;
  const std::size_t given = std::min<std::size_t>(wanted, end - std::min(file.at, end));
  std::fill(out + got, out + given, static_cast<char>(PaddedFile::kMissing));
  file.at += given;
  return static_cast<tmsize_t>(given);
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
  // Samples of a pixel, and the length of a strip, are claims as well.
  constexpr std::int64_t kLeast = std::int64_t{16} << 20U;
  constexpr std::int64_t kBytesPerPixel = 16;
  TIFFOpenOptionsSetMaxSingleMemAlloc(
      options, std::min(static_cast<std::int64_t>(2 * kMostRescuedBytes),
                        kLeast + kBytesPerPixel * PixelsThatFit(file.bytes.size())));
  std::unique_ptr<TIFF, CloseTiff> tiff(TIFFClientOpenExt(
      "tiff", "rm", &file, ReadPadded, [](thandle_t, void*, tmsize_t) { return tmsize_t{0}; },
      SeekPadded, [](thandle_t) { return 0; },
      [](thandle_t handle) {
        const auto& padded = *static_cast<PaddedFile*>(handle);
        return padded.bytes.size() + (padded.padded ? padded.padding : 0);
      },
      nullptr, nullptr, options));
  TIFFOpenOptionsFree(options);
  return tiff;
}

/// How the pixels are coded.
std::uint16_t Packing(TIFF* tiff) {
  std::uint16_t packing = COMPRESSION_NONE;
  TIFFGetFieldDefaulted(tiff, TIFFTAG_COMPRESSION, &packing);
  return packing;
}

/// True if the pixels would fill more memory than a file of so many bytes can.
bool ClaimsTooMuch(TIFF* tiff, std::uint64_t width, std::uint64_t height, std::uint64_t bytes) {
  std::uint16_t bits = 1;
  std::uint16_t samples = 1;
  TIFFGetFieldDefaulted(tiff, TIFFTAG_BITSPERSAMPLE, &bits);
  TIFFGetFieldDefaulted(tiff, TIFFTAG_SAMPLESPERPIXEL, &samples);
  const std::uint64_t plain = width * height * bits * samples / 8;
  switch (Packing(tiff)) {
    case COMPRESSION_NONE:
      // A hundredth of a picture with few colours has so many pixels.
      return width * height > 200 * bytes;
    case COMPRESSION_PACKBITS:
      return plain > 64 * bytes;
    case COMPRESSION_LZW:
      // A code of twelve bits for at most 4096 bytes.
      return plain > 2731 * bytes;
    case COMPRESSION_ADOBE_DEFLATE:
    case COMPRESSION_DEFLATE:
      return plain > 1032 * bytes;
    default:
      return false;
  }
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

/// Where rows are put, and which came by themselves: not those of whole strips and tiles, which the
/// library makes colours of.
struct TiffRows {
  Canvas& canvas;
  std::vector<bool> read;
};

/// Converts a row as the file holds it.
using RowConverter = std::function<void(const std::uint8_t* from, std::uint8_t* pixels, int width)>;

/// How the rows of what most files hold become pixels: grey, RGB and inks of 8 bits, in strips.
/// Empty for everything else.
RowConverter PlainRows(TIFF* tiff) {
  std::uint16_t bits = 0;
  std::uint16_t samples = 0;
  std::uint16_t planes = 0;
  std::uint16_t space = 0;
  TIFFGetFieldDefaulted(tiff, TIFFTAG_BITSPERSAMPLE, &bits);
  TIFFGetFieldDefaulted(tiff, TIFFTAG_SAMPLESPERPIXEL, &samples);
  TIFFGetFieldDefaulted(tiff, TIFFTAG_PLANARCONFIG, &planes);
  TIFFGetField(tiff, TIFFTAG_PHOTOMETRIC, &space);
  if (TIFFIsTiled(tiff) != 0 || bits != 8 || planes != PLANARCONFIG_CONTIG) return {};
  // Inks are converted when all are there.
  if (space == PHOTOMETRIC_SEPARATED && samples == 4) {
    return [](const std::uint8_t* from, std::uint8_t* to, int width) {
      std::copy_n(from, std::ptrdiff_t{4} * width, to);
    };
  }
  const bool colors = space == PHOTOMETRIC_RGB && samples == 3;
  if (!colors && (space != PHOTOMETRIC_MINISBLACK || samples != 1)) return {};
  return [colors](const std::uint8_t* from, std::uint8_t* to, int width) {
    for (int x = 0; x < width; ++x, from += colors ? 3 : 1, to += 4) {
      to[2] = from[0];
      to[1] = from[colors ? 1 : 0];
      to[0] = from[colors ? 2 : 0];
    }
  };
}

/// Reads the rows of a strip up to a bad place, and gives how many.
int ReadRows(TIFF* tiff, const RowConverter& convert, TiffRows& into, int top, int rows) {
  const Pixels pixels = into.canvas.picture.Edit();
  std::uint16_t samples = 0;
  TIFFGetFieldDefaulted(tiff, TIFFTAG_SAMPLESPERPIXEL, &samples);
  std::vector<std::uint8_t> line(static_cast<std::size_t>(TIFFScanlineSize(tiff)));
  if (line.size() < static_cast<std::size_t>(pixels.width) * samples) return 0;
  for (int y = top; y < top + rows; ++y) {
    if (TIFFReadScanline(tiff, line.data(), static_cast<std::uint32_t>(y), 0) != 1) return y - top;
    convert(line.data(), pixels.Row(y), pixels.width);
    into.read[static_cast<std::size_t>(y)] = true;
  }
  return rows;
}

/// How many of the rows of a strip are in the file, as far as that can be known.
int StoredRows(TIFF* tiff, const PaddedFile& file, std::uint32_t strip, int rows) {
  const std::uint64_t line = TIFFScanlineSize64(tiff);
  if (Packing(tiff) != COMPRESSION_NONE || line == 0) return rows;
  const std::uint64_t there = file.bytes.size() - TIFFGetStrileOffset(tiff, strip);
  return static_cast<int>(std::min<std::uint64_t>(static_cast<std::uint64_t>(rows), there / line));
}

/// Reads every strip or tile that can be read, and gives how many rows those have that are in the
/// file. Each comes into memory of its own, since what the
/// library leaves of one would show where the next is missing. Those of `plain` rows, if it is not
/// empty, come row by row.
std::int64_t ReadBlocks(TIFF* tiff, const RowConverter& plain, PaddedFile& file, TiffRows& into) {
  Canvas& canvas = into.canvas;
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
  if (across == 0 || down == 0) return 0;
  // Tiles reach beyond the picture, but not any far.
  const std::int64_t columns = (width + std::int64_t{across} - 1) / across;
  const std::int64_t lines = (height + std::int64_t{down} - 1) / down;
  if (columns * across > Picture::kMostPixels || lines * down > Picture::kMostPixels ||
      columns * across * lines * down > PixelsThatFit(file.bytes.size())) {
    return 0;
  }
  std::int64_t decoded = 0;
  std::vector<std::uint32_t> block;
  for (std::int64_t y = 0; y < height; y += down) {
    for (std::int64_t x = 0; x < width; x += across) {
      const auto left = static_cast<std::uint32_t>(x);
      const auto top = static_cast<std::uint32_t>(y);
      // A strip's last rows are cut; a tile is always whole.
      const int rows = tiled ? static_cast<int>(down)
                             : static_cast<int>(std::min<std::int64_t>(down, height - y));
      const std::uint32_t number =
          tiled ? TIFFComputeTile(tiff, left, top, 0, 0) : TIFFComputeStrip(tiff, top, 0);
      const bool stored = TIFFGetStrileOffset(tiff, number) < file.bytes.size();
      int came = 0;
      if (plain) {
        came = stored ? ReadRows(tiff, plain, into, static_cast<int>(y),
                                 StoredRows(tiff, file, number, rows))
                      : 0;
      } else {
        block.assign(std::size_t{across} * down, 0);
        const int read = tiled ? TIFFReadRGBATileExt(tiff, left, top, block.data(), 1)
                               : TIFFReadRGBAStripExt(tiff, top, block.data(), 1);
        if (read != 0) {
          Place(canvas, block, static_cast<int>(x), static_cast<int>(y), static_cast<int>(across),
                rows);
          came = rows;
        }
      }
      if (stored) decoded += came;
    }
  }
  return decoded;
}

}  // namespace

Expected<DecodedImage> RescueTiff(const FolderItem& file, int index) {
  std::optional<std::string> bytes = ReadFile(file, kMostRescuedBytes);
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
  if (ClaimsTooMuch(tiff.get(), width, height, padded.bytes.size())) {
    return Expected<DecodedImage>::Failure(
        CodecMessage(codecTexts::kDamaged, file, codecTexts::kEndsEarly.Text()));
  }
  auto canvas = NewCanvas(file, static_cast<int>(width), static_cast<int>(height), extra > 0);
  if (!canvas) return Expected<DecodedImage>::Failure(canvas.error);
  // Rows come as they are stored; whoever shows the picture turns it.
  TIFFSetField(tiff.get(), TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
  // Each byte once for all pixels of a strip and once for its rows, of up to eight bytes a pixel.
  constexpr std::uint64_t kSlack = std::uint64_t{1} << 16U;
  padded.left = kSlack + 4 * padded.bytes.size() + 16 * std::uint64_t{width} * height;
  // The length of a strip is a claim as well: what is packed fills no more than that from so
  // little.
  const std::uint64_t block =
      TIFFIsTiled(tiff.get()) != 0 ? TIFFTileSize64(tiff.get()) : TIFFStripSize64(tiff.get());
  constexpr std::uint64_t kMostMissing = 16;
  const std::uint64_t most = Packing(tiff.get()) == COMPRESSION_NONE
                                 ? kMostRescuedBytes
                                 : kMostMissing * padded.bytes.size();
  padded.padding = kSlack + std::min(block, most);
  std::uint32_t size = 0;
  const void* icc = nullptr;
  std::string profileBytes;
  if (TIFFGetField(tiff.get(), TIFFTAG_ICCPROFILE, &size, &icc) != 0) {
    profileBytes.assign(static_cast<const char*>(icc), size);
  }
  const SourceProfile profile(profileBytes);
  const RowConverter plain = PlainRows(tiff.get());
  padded.padded = true;
  TiffRows into{*canvas, std::vector<bool>(height)};
  const std::int64_t rows = ReadBlocks(tiff.get(), plain, padded, into);
  padded.padded = false;
  if (rows > 0) {
    std::uint16_t space = PHOTOMETRIC_RGB;
    TIFFGetField(tiff.get(), TIFFTAG_PHOTOMETRIC, &space);
    const bool grey = space == PHOTOMETRIC_MINISBLACK || space == PHOTOMETRIC_MINISWHITE;
    properties.ProfileName = profile.Name();
    if (grey) properties.ColorModel = "Gray";
    if (space == PHOTOMETRIC_SEPARATED) {
      properties.ColorModel = "CMYK";
      ConvertInks(canvas->picture, into.read, profileBytes);
    } else {
      profile.ConvertToSRGB(canvas->picture, grey);
    }
  }
  return ReadInPart(file, canvas->Take(properties), codecTexts::kBadData.Text(), rows);
}

}  // namespace brivolant::codecs
