// SPDX-License-Identifier: MIT
#include <png.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <vector>

#include "platform/codecs/Cancellation.h"
#include "platform/codecs/CodecDetail.h"
#include "platform/codecs/RowShrinker.h"
#include "platform/pictures/PixelMemory.h"

namespace brivolant::codecs {
namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

/// No coding packs more than eight pixels of one bit 1032 times: so small a file has next to
/// nothing to show, and need not cost the memory that it claims.
constexpr std::uint64_t kMostPixelsPerByte = std::uint64_t{8} * 1032;

/// Where the bytes come from, and what the library said of them.
struct Progress {
  std::FILE* file = nullptr;
  std::string_view bytes;
  bool ended = false;    ///< The bytes ended before the picture.
  bool failed = false;   ///< Nothing after this can be read.
  bool damaged = false;  ///< Coded pixels are not what was stored.
};

void Read(png_structp png, png_bytep to, std::size_t count) {
  auto& progress = *static_cast<Progress*>(png_get_io_ptr(png));
  std::size_t got = 0;
  if (progress.file != nullptr) {
    got = std::fread(to, 1, count, progress.file);
  } else {
    got = progress.bytes.copy(reinterpret_cast<char*>(to), count);
    progress.bytes.remove_prefix(got);
  }
  if (got == count) return;
  progress.ended = true;
  png_error(png, "end of file");
}

[[noreturn]] void OnError(png_structp png, png_const_charp) {
  static_cast<Progress*>(png_get_error_ptr(png))->failed = true;
  png_longjmp(png, 1);
}

void OnWarning(png_structp png, png_const_charp message) {
  // Of the chunks that make the picture these hold pixels; more data than needed is harmless if the
  // size is right, and so are transparency and profiles that a picture of that kind cannot have.
  const std::string_view text = message;
  const bool sum = text.find("CRC") != std::string_view::npos;
  const bool pixels =
      text.starts_with("IDAT") || text.starts_with("PLTE") ||
      (sum && (text.starts_with("IHDR") || text.starts_with("tRNS") || text.starts_with("iCCP")));
  if (!pixels || text.find("xtra") != std::string_view::npos ||
      text.find("oo much") != std::string_view::npos) {
    return;
  }
  static_cast<Progress*>(png_get_error_ptr(png))->damaged = true;
}

/// A PNG file being read, by rows in our order of bytes. The functions that may jump hold nothing
/// that needs a destructor.
class PngReader {
 public:
  PngReader() = default;
  ~PngReader() { png_destroy_read_struct(&png_, &info_, nullptr); }
  PngReader(const PngReader&) = delete;
  PngReader& operator=(const PngReader&) = delete;

  /// Reads what stands before the pixels. `file` is null for `bytes`. `piece` is how many bytes of
  /// the pixels' data are asked for at once, 0 for as many as is quick.
  bool ReadHeader(std::FILE* file, std::string_view bytes, std::size_t piece = 0) {
    progress_.file = file;
    progress_.bytes = bytes;
    png_ = png_create_read_struct(PNG_LIBPNG_VER_STRING, &progress_, OnError, OnWarning);
    if (png_ == nullptr) return false;
    info_ = png_create_info_struct(png_);
    if (info_ == nullptr || setjmp(png_jmpbuf(png_)) != 0) return false;
    // Nothing is asked for by the size before Refusal has looked at it, which says what is wrong.
    png_set_user_limits(png_, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
    // A wrong sum says that something is wrong, not that the pixels are worth nothing.
    png_set_crc_action(png_, PNG_CRC_WARN_USE, PNG_CRC_WARN_DISCARD);
    if (piece > 0) png_set_compression_buffer_size(png_, piece);
    png_set_read_fn(png_, &progress_, Read);
    png_read_info(png_, info_);
    // The unused byte of a picture's pixels is always full.
    constexpr png_uint_32 kOpaque = 255;
    png_set_expand(png_);
    png_set_scale_16(png_);
    png_set_gray_to_rgb(png_);
    png_set_bgr(png_);
    alpha_ =
        (Color() & PNG_COLOR_MASK_ALPHA) != 0 || png_get_valid(png_, info_, PNG_INFO_tRNS) != 0;
    if (!alpha_) png_set_filler(png_, kOpaque, PNG_FILLER_AFTER);
    return true;
  }

  ImageProperties Properties() {
    ImageProperties properties;
    properties.Width = static_cast<int>(png_get_image_width(png_, info_));
    properties.Height = static_cast<int>(png_get_image_height(png_, info_));
    properties.BitsPerComponent = Deep() ? 16 : 8;
    properties.HasAlpha = alpha_;
    properties.ColorModel = (Color() & PNG_COLOR_MASK_COLOR) != 0 ? "RGB" : "Gray";
    const auto perInch = [](png_uint_32 perMetre) {
      const long resolution = std::lround(perMetre * 0.0254);
      return resolution < 1 || resolution > 100000 ? 72 : static_cast<int>(resolution);
    };
    properties.HorizontalResolution = perInch(png_get_x_pixels_per_meter(png_, info_));
    properties.VerticalResolution = perInch(png_get_y_pixels_per_meter(png_, info_));
    png_uint_32 size = 0;
    png_bytep exif = nullptr;
    if (png_get_eXIf_1(png_, info_, &size, &exif) != 0) {
      properties.Orientation =
          ReadExif(std::string("Exif\0\0", 6) + std::string(reinterpret_cast<char*>(exif), size))
              .orientation;
    }
    return properties;
  }

  std::string Profile() {
    png_charp name = nullptr;
    int method = 0;
    png_bytep icc = nullptr;
    png_uint_32 size = 0;
    if (png_get_iCCP(png_, info_, &name, &method, &icc, &size) == 0) return {};
    return {reinterpret_cast<char*>(icc), size};
  }

  bool Deep() const { return png_get_bit_depth(png_, info_) == 16; }
  bool Alpha() const { return alpha_; }
  bool Ended() const { return progress_.ended; }
  bool Whole() const { return !progress_.failed && !progress_.damaged; }

  /// Call it once, before the rows.
  bool Start() {
    if (setjmp(png_jmpbuf(png_)) != 0) return false;
    passes_ = png_set_interlace_handling(png_);
    png_read_update_info(png_, info_);
    return png_get_rowbytes(png_, info_) == std::size_t{4} * png_get_image_width(png_, info_);
  }
  int Passes() const { return passes_; }

  /// The next row of the pass. An interlaced picture's row must hold what earlier passes put there.
  bool ReadRow(std::uint8_t* row) {
    if (setjmp(png_jmpbuf(png_)) != 0) return false;
    if (passes_ > 1) {
      png_read_row(png_, nullptr, row);
    } else {
      png_read_row(png_, row, nullptr);
    }
    return true;
  }

 private:
  unsigned Color() const { return png_get_color_type(png_, info_); }

  png_structp png_ = nullptr;
  png_infop info_ = nullptr;
  Progress progress_;
  bool alpha_ = false;
  int passes_ = 1;
};

/// Moves the fourth byte of each pixel into the mask, which is 255 where a picture is transparent.
void SplitAlpha(std::uint8_t* row, std::uint8_t* mask, int width) {
  for (int x = 0; x < width; ++x, row += 4) {
    mask[x] = static_cast<std::uint8_t>(255 - row[3]);
    row[3] = 255;
  }
}

/// A picture with room for the mask, if there is one.
struct Room {
  Picture picture;
  Plane mask;
};

/// Why there is none; empty on success.
std::string MakeRoom(const FolderItem& file, int width, int height, bool alpha, Room& room) {
  Expected<Picture> picture = Allocate(file, width, height);
  if (!picture) return picture.error;
  room.picture = std::move(*picture);
  if (!alpha) return {};
  room.mask = Plane::Uninitialized(width, height);
  return room.mask.IsNil() ? CodecMessage(codecTexts::kNoMemory, file) : std::string();
}

/// Paints what is missing of picture and mask; it is opaque.
void PaintMissing(Room& room, int first) {
  codecs::PaintMissing(room.picture, first);
  if (room.mask.IsNil()) return;
  const Grey mask = room.mask.Edit();
  for (int y = first; y < mask.height; ++y) {
    std::fill_n(mask.Row(y), mask.width, std::uint8_t{0});
  }
}

/// Rows that came: of the file, and of the picture. An interlaced picture is there with its first.
struct RowsRead {
  std::int64_t stored = 0;
  int shown = 0;
};

/// Reads the rows into the room.
RowsRead ReadRows(PngReader& png, Room& room) {
  const Pixels pixels = room.picture.Edit();
  const Grey mask = room.mask.IsNil() ? Grey{} : room.mask.Edit();
  const bool interlaced = png.Passes() > 1;
  const auto split = [&](int y) {
    if (mask.data != nullptr) SplitAlpha(pixels.Row(y), mask.Row(y), pixels.width);
  };
  // A pass paints over what the one before left.
  if (interlaced) codecs::PaintMissing(room.picture, 0);
  RowsRead read;
  for (int pass = 0; pass < png.Passes(); ++pass) {
    for (read.shown = 0; read.shown < pixels.height; ++read.shown, ++read.stored) {
      if (DecodeCancellation::Requested() || !png.ReadRow(pixels.Row(read.shown))) break;
      if (!interlaced) split(read.shown);
    }
    if (read.shown < pixels.height) break;
  }
  if (!interlaced) return read;
  for (int y = 0; y < pixels.height; ++y) split(y);
  read.shown = pixels.height;
  return read;
}

/// Reads rows into smaller ones of `shrinker`.
RowsRead ReadRows(PngReader& png, Room& room, RowShrinker& shrinker, int width, int height) {
  const Pixels pixels = room.picture.Edit();
  const Grey mask = room.mask.IsNil() ? Grey{} : room.mask.Edit();
  std::vector<std::uint8_t> row(std::size_t{4} * static_cast<std::size_t>(width));
  RowsRead read;
  bool more = true;
  while (more && read.stored < height) {
    more = !DecodeCancellation::Requested() && png.ReadRow(row.data());
    if (more) {
      shrinker.Add(row.data(), width, png.Alpha());
      ++read.stored;
    }
    // The last row is of what there is.
    const bool last = !more || read.stored == height;
    if (shrinker.Empty() || (!shrinker.Full() && !last)) continue;
    shrinker.Take(pixels.Row(read.shown), png.Alpha());
    if (mask.data != nullptr) {
      SplitAlpha(pixels.Row(read.shown), mask.Row(read.shown), pixels.width);
    }
    ++read.shown;
  }
  return read;
}

std::string ReasonOf(const PngReader& png) {
  return (png.Ended() ? codecTexts::kEndsEarly : codecTexts::kBadData).Text();
}

/// Why no memory is asked for what the header of a file of that many bytes claims; empty if it is.
std::string Refusal(const FolderItem& file, const ImageProperties& claimed, std::uint64_t bytes) {
  std::string reason = TooLarge(file, claimed.Width, claimed.Height);
  if (!reason.empty()) return reason;
  const std::int64_t pixels = std::int64_t{claimed.Width} * claimed.Height;
  if (static_cast<std::uint64_t>(pixels) <= kMostPixelsPerByte * bytes) return {};
  return CodecMessage(codecTexts::kDamaged, file, codecTexts::kEndsEarly.Text());
}

/// Decodes what `png` has the header of, shrunk by about half the way to `longest` pixels a side if
/// that is not 0. `bytes` is how long the file is.
Expected<DecodedImage> DecodeRest(const FolderItem& file, PngReader& png, int longest,
                                  std::uint64_t bytes) {
  using Result = Expected<DecodedImage>;
  const ImageProperties properties = png.Properties();
  std::string refusal = Refusal(file, properties, bytes);
  if (!refusal.empty()) return Result::Failure(std::move(refusal));
  const int factor = longest == 0
                         ? 1
                         : std::min(std::max(properties.Width, properties.Height) / (2 * longest),
                                    RowShrinker::kMostFactor);
  if (!png.Start()) return Result::Failure(CodecMessage(codecTexts::kDamaged, file, ReasonOf(png)));
  const bool small = factor > 1 && png.Passes() == 1;
  RowShrinker shrinker(properties.Width, properties.Height, small ? factor : 1);
  Room room;
  std::string error = MakeRoom(file, shrinker.Width(), shrinker.Height(), png.Alpha(), room);
  if (!error.empty()) return Result::Failure(std::move(error));
  const Pixels pixels = room.picture.Edit();
  const auto touched =
      PixelMemory::TouchAhead(pixels.data, pixels.stride * static_cast<std::size_t>(pixels.height));
  const RowsRead rows = small ? ReadRows(png, room, shrinker, properties.Width, properties.Height)
                              : ReadRows(png, room);
  if (DecodeCancellation::Requested()) {
    return Result::Failure(CodecMessage(codecTexts::kDamaged, file, "cancelled"));
  }
  if (rows.shown < pixels.height) PaintMissing(room, rows.shown);
  DecodedImage image{std::move(room.picture), properties, {}};
  image.Pixels.HorizontalResolution = properties.HorizontalResolution;
  image.Pixels.VerticalResolution = properties.VerticalResolution;
  if (!room.mask.IsNil()) image.Pixels.SetMask(std::move(room.mask));
  const bool whole = rows.shown == pixels.height && png.Whole();
  if (rows.stored == 0) return ReadInPart(file, std::move(image), ReasonOf(png), 0);
  const SourceProfile profile(png.Profile());
  image.Properties.ProfileName = profile.Name();
  profile.ConvertToSRGB(image.Pixels, properties.ColorModel == "Gray");
  if (whole) return {std::move(image), {}};
  return ReadInPart(file, std::move(image), ReasonOf(png), rows.stored);
}

Expected<DecodedImage> DecodeFile(const FolderItem& file, int longest) {
  // The library takes nothing of a piece that is cut off, so where the file ends small ones show
  // more rows.
  constexpr std::size_t kSmall = 64;
  Expected<DecodedImage> image;
  for (const std::size_t piece : {std::size_t{0}, kSmall}) {
    const File stream(std::fopen(file.Path().c_str(), "rbe"));
    PngReader png;
    if (!stream || !png.ReadHeader(stream.get(), {}, piece)) {
      return Expected<DecodedImage>::Failure(CodecMessage(codecTexts::kUnreadable, file));
    }
    image = DecodeRest(file, png, longest, file.Length());
    if (!png.Ended() || DecodeCancellation::Requested()) break;
  }
  return image;
}

class PngSource final : public ImageSource {
 public:
  PngSource(FolderItem file, ImageProperties properties)
      : file_(std::move(file)), properties_(std::move(properties)) {}

  std::string Type() const override { return "public.png"; }
  int Count() const override { return 1; }
  Expected<ImageProperties> Properties(int) const override { return {properties_, {}}; }
  Expected<DecodedImage> Decode(int) const override { return DecodeFile(file_, 0); }

  Expected<DecodedImage> Small(int longest) const override {
    auto image = DecodeFile(file_, longest);
    if (!image) return image;
    return {SmallOf(std::move(*image), longest), {}};
  }

 private:
  FolderItem file_;
  ImageProperties properties_;
};

}  // namespace

std::unique_ptr<ImageSource> OpenPng(const FolderItem& file) {
  const File stream(std::fopen(file.Path().c_str(), "rbe"));
  PngReader png;
  if (!stream || !png.ReadHeader(stream.get(), {})) return nullptr;
  ImageProperties properties = png.Properties();
  // What is refused is so by this source: another decoder would ask for the memory once more.
  if (!Refusal(file, properties, file.Length()).empty()) {
    return std::make_unique<PngSource>(file, std::move(properties));
  }
  const std::string icc = png.Profile();
  const SourceProfile profile(icc);
  properties.ProfileName = profile.Name();
  // Sixteen bits are converted before they are cut to eight, and grey has its own curve. Libvips
  // says nothing of a wrong sum.
  const bool standard =
      icc.empty() || FindIgnoringCase(profile.Name(), "srgb") != std::string::npos;
  if (!standard && (png.Deep() || !profile.IsRGB()) && png.Whole()) return nullptr;
  return std::make_unique<PngSource>(file, std::move(properties));
}

Expected<DecodedImage> RescuePng(const FolderItem& file) {
  return DecodeFile(file, 0);
}

Picture DecodePng(std::string_view bytes, int longest) {
  PngReader png;
  if (!png.ReadHeader(nullptr, bytes)) return {};
  const ImageProperties properties = png.Properties();
  if (std::max(properties.Width, properties.Height) > longest) return {};
  auto image = DecodeRest({}, png, 0, bytes.size());
  if (!image || image->Damage) return {};
  return std::move(image->Pixels);
}

}  // namespace brivolant::codecs
