// SPDX-License-Identifier: MIT
#include <libexif/exif-data.h>

#include <array>
#include <cmath>
#include <csetjmp>
#include <cstdio>
// libjpeg wants the declarations of stdio before its own.
#include <jpeglib.h>
// Needs the one above.
#include <jerror.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "platform/codecs/Cancellation.h"
#include "platform/codecs/CodecDetail.h"
#include "platform/codecs/JpegEighth.h"
#include "platform/files/AtomicFile.h"
#include "platform/pictures/Parallel.h"
#include "platform/pictures/PixelMemory.h"

namespace brivolant::codecs {
namespace {

/// A progressive file can make the decoder go over the whole image for every few bytes.
constexpr int kMostScans = 500;
/// Bytes. A progressive file is held as coefficients of its full size, however small the result.
constexpr long kMostWorkingMemory = 1L << 30;  // NOLINT(google-runtime-int): the type of libjpeg

struct ErrorManager {
  jpeg_error_mgr base;
  std::jmp_buf jump;
  std::array<char, JMSG_LENGTH_MAX> message;
  bool truncated;
};

ErrorManager& ManagerOf(j_common_ptr info) {
  return *reinterpret_cast<ErrorManager*>(info->err);
}

[[noreturn]] void OnError(j_common_ptr info) {
  ErrorManager& manager = ManagerOf(info);
  info->err->format_message(info, manager.message.data());
  std::longjmp(manager.jump, 1);
}

void OnWarning(j_common_ptr info, int level) {
  if (level >= 0) return;
  ++info->err->num_warnings;
  std::array<char, JMSG_LENGTH_MAX> message{};
  info->err->format_message(info, message.data());
  if (std::strncmp(message.data(), "Premature end", 13) == 0) ManagerOf(info).truncated = true;
}

void OnProgress(j_common_ptr info) {
  if (DecodeCancellation::Requested()) {
    ErrorManager& manager = ManagerOf(info);
    std::snprintf(manager.message.data(), manager.message.size(), "cancelled");
    std::longjmp(manager.jump, 1);
  }
  if (reinterpret_cast<j_decompress_ptr>(info)->input_scan_number > kMostScans) {
    ErrorManager& manager = ManagerOf(info);
    std::snprintf(manager.message.data(), manager.message.size(), "too many scans");
    std::longjmp(ManagerOf(info).jump, 1);
  }
}

void Install(ErrorManager& manager, jpeg_common_struct& info) {
  info.err = jpeg_std_error(&manager.base);
  manager.base.error_exit = OnError;
  manager.base.emit_message = OnWarning;
  manager.message[0] = '\0';
  manager.truncated = false;
}

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

/// Reads a file through a large buffer: near the end of its buffer the decoder of the library falls
/// back to a slow path, so that small buffers cost a third of its speed.
struct FileInput {
  static constexpr std::size_t kBuffer = std::size_t{128} << 10U;
  jpeg_source_mgr base{};
  std::FILE* file = nullptr;
  std::vector<JOCTET> buffer;

  void Install(j_decompress_ptr info, std::FILE* from) {
    file = from;
    buffer.resize(kBuffer);
    base.init_source = [](j_decompress_ptr) {};
    base.term_source = [](j_decompress_ptr) {};
    base.resync_to_restart = jpeg_resync_to_restart;
    base.fill_input_buffer = Fill;
    base.skip_input_data = Skip;
    base.bytes_in_buffer = 0;
    info->src = &base;
  }

 private:
  static boolean Fill(j_decompress_ptr info) {
    auto& self = *reinterpret_cast<FileInput*>(info->src);
    std::size_t count = std::fread(self.buffer.data(), 1, self.buffer.size(), self.file);
    if (count == 0) {
      // An end of image in its place shows what there is.
      WARNMS(info, JWRN_JPEG_EOF);
      self.buffer[0] = 0xFF;
      self.buffer[1] = JPEG_EOI;
      count = 2;
    }
    self.base.next_input_byte = self.buffer.data();
    self.base.bytes_in_buffer = count;
    return TRUE;
  }
  static void Skip(j_decompress_ptr info, long count) {  // NOLINT(google-runtime-int)
    auto& self = *reinterpret_cast<FileInput*>(info->src);
    auto left = static_cast<std::size_t>(std::max(count, 0L));
    while (left > self.base.bytes_in_buffer) {
      left -= self.base.bytes_in_buffer;
      (void)Fill(info);
    }
    self.base.next_input_byte += left;
    self.base.bytes_in_buffer -= left;
  }
};

/// Orientation and preview from an Exif segment.
struct ExifFacts {
  int orientation = 1;
  std::string preview;
};

ExifFacts ReadExif(const std::string& segment) {
  ExifFacts facts;
  if (segment.empty()) return facts;
  ExifData* data = exif_data_new_from_data(reinterpret_cast<const unsigned char*>(segment.data()),
                                           static_cast<unsigned>(segment.size()));
  if (data == nullptr) return facts;
  if (ExifEntry* entry = exif_content_get_entry(data->ifd[EXIF_IFD_0], EXIF_TAG_ORIENTATION);
      entry != nullptr && entry->format == EXIF_FORMAT_SHORT && entry->size >= 2) {
    const int value = exif_get_short(entry->data, exif_data_get_byte_order(data));
    if (value >= 1 && value <= 8) facts.orientation = value;
  }
  if (data->data != nullptr && data->size > 0) {
    facts.preview.assign(reinterpret_cast<const char*>(data->data), data->size);
  }
  exif_data_unref(data);
  return facts;
}

/// What the headers say.
struct Header {
  ImageProperties properties;
  bool plain = false;  ///< Grey or three channels of 8 bits.
  std::string icc;
  std::string exif;
};

/// A decompressor with its error handling. The functions that may jump hold nothing that needs a
/// destructor.
class Decompressor {
 public:
  Decompressor() {
    Install(manager_, reinterpret_cast<jpeg_common_struct&>(info_));
    progress_.progress_monitor = OnProgress;
  }
  ~Decompressor() {
    if (created_) jpeg_destroy_decompress(&info_);
    std::free(icc_);
  }
  Decompressor(const Decompressor&) = delete;
  Decompressor& operator=(const Decompressor&) = delete;

  bool ReadHeader(std::FILE* file, std::string_view bytes) {
    if (setjmp(manager_.jump) != 0) return false;
    jpeg_create_decompress(&info_);
    created_ = true;
    info_.progress = &progress_;
    if (file != nullptr) {
      input_.Install(&info_, file);
    } else {
      jpeg_mem_src(&info_, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    }
    jpeg_save_markers(&info_, JPEG_APP0 + 1, 0xFFFF);
    jpeg_save_markers(&info_, JPEG_APP0 + 2, 0xFFFF);
    jpeg_read_header(&info_, TRUE);
    jpeg_read_icc_profile(&info_, &icc_, &iccSize_);
    return true;
  }

  /// Pixels that the header claims.
  std::int64_t Claimed() const { return std::int64_t{info_.image_width} * info_.image_height; }

  /// Chooses the smallest eighths that keep the longer side at `atLeast` pixels; 0 is full size.
  bool Start(int atLeast) {
    if (setjmp(manager_.jump) != 0) return false;
    info_.out_color_space = JCS_EXT_BGRA;
    info_.mem->max_memory_to_use = kMostWorkingMemory;
    if (atLeast > 0) {
      const int longest = static_cast<int>(std::max(info_.image_width, info_.image_height));
      info_.scale_denom = 8;
      info_.scale_num = 8;
      while (info_.scale_num > 1 &&
             longest * static_cast<int>(info_.scale_num - 1) / 8 >= atLeast) {
        --info_.scale_num;
      }
    }
    jpeg_start_decompress(&info_);
    return true;
  }

  bool ReadInto(std::uint8_t* data, std::size_t stride) {
    if (setjmp(manager_.jump) != 0) return false;
    constexpr int kRows = 16;
    while (info_.output_scanline < info_.output_height) {
      std::array<JSAMPROW, kRows> rows{};
      for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::size_t y =
            std::min<std::size_t>(info_.output_scanline + i, info_.output_height - std::size_t{1});
        rows[i] = data + stride * y;
      }
      jpeg_read_scanlines(&info_, rows.data(), kRows);
    }
    jpeg_finish_decompress(&info_);
    return true;
  }

  Header Facts() {
    Header header;
    header.plain =
        info_.data_precision == 8 && (info_.num_components == 1 || info_.num_components == 3);
    ImageProperties& properties = header.properties;
    properties.Width = static_cast<int>(info_.image_width);
    properties.Height = static_cast<int>(info_.image_height);
    properties.ColorModel = info_.num_components == 1   ? "Gray"
                            : info_.num_components == 4 ? "CMYK"
                                                        : "RGB";
    if (info_.saw_JFIF_marker && info_.density_unit > 0 && info_.X_density > 0) {
      const double unit = info_.density_unit == 2 ? 2.54 : 1.0;
      properties.HorizontalResolution = static_cast<int>(std::lround(info_.X_density * unit));
      properties.VerticalResolution = static_cast<int>(std::lround(info_.Y_density * unit));
    }
    if (icc_ != nullptr) header.icc.assign(reinterpret_cast<const char*>(icc_), iccSize_);
    for (auto* marker = info_.marker_list; marker != nullptr; marker = marker->next) {
      if (marker->marker == JPEG_APP0 + 1 && marker->data_length > 6 &&
          std::memcmp(marker->data, "Exif", 4) == 0) {
        header.exif.assign(reinterpret_cast<const char*>(marker->data), marker->data_length);
        break;
      }
    }
    return header;
  }

  int OutputWidth() const { return static_cast<int>(info_.output_width); }
  int OutputHeight() const { return static_cast<int>(info_.output_height); }
  bool Truncated() const { return manager_.truncated; }
  std::string Message() const {
    return manager_.truncated ? "it ends too early" : manager_.message.data();
  }

 private:
  jpeg_decompress_struct info_{};
  ErrorManager manager_{};
  jpeg_progress_mgr progress_{};
  FileInput input_;
  JOCTET* icc_ = nullptr;
  unsigned iccSize_ = 0;
  bool created_ = false;
};

class JpegSource final : public ImageSource {
 public:
  JpegSource(FolderItem file, Header header)
      : file_(std::move(file)), header_(std::move(header)), profile_(header_.icc) {
    const ExifFacts exif = ReadExif(header_.exif);
    header_.properties.Orientation = exif.orientation;
    header_.properties.ProfileName = profile_.Name();
    preview_ = exif.preview;
  }

  bool Usable() const { return header_.plain && (header_.icc.empty() || profile_.IsRGB()); }

  std::string Type() const override { return "public.jpeg"; }
  int Count() const override { return 1; }
  Expected<ImageProperties> Properties(int) const override { return {header_.properties, {}}; }

  Expected<DecodedImage> Decode(int) const override {
    Expected<Picture> picture = DecodeAt(0, true);
    if (!picture) return Expected<DecodedImage>::Failure(picture.error);
    return {DecodedImage{std::move(*picture), header_.properties}, {}};
  }

  Expected<Picture> Thumbnail(int longest) const override {
    Picture picture = preview_.empty() ? Picture() : DecodeJpegPreview(preview_, longest);
    // Cameras store 160 pixels, often with black bars: only a full-sized preview will do.
    if (picture.IsNil() || std::max(picture.Width(), picture.Height()) < longest ||
        !SameShape(picture)) {
      picture = Eighth(longest);
      if (picture.IsNil()) {
        Expected<Picture> reduced = DecodeAt(longest, false);
        if (!reduced) return reduced;
        picture = std::move(*reduced);
      }
    } else {
      profile_.ConvertToSRGB(picture);
    }
    return {UprightPicture(FitWithin(picture, longest), header_.properties.Orientation), {}};
  }

 private:
  bool SameShape(const Picture& picture) const {
    const double shape = static_cast<double>(picture.Width()) / picture.Height();
    const ImageProperties& own = header_.properties;
    return std::abs(shape * own.Height / own.Width - 1) < 0.02;
  }

  /// The quick way to a small picture; nil if this file needs the other.
  Picture Eighth(int atLeast) const {
    constexpr std::size_t kMostBytes = std::size_t{64} << 20U;
    if (std::max(header_.properties.Width, header_.properties.Height) / 8 < atLeast) return {};
    const std::optional<std::string> bytes = ReadFile(file_, kMostBytes);
    if (!bytes) return {};
    Picture picture = DecodeJpegEighth(*bytes);
    if (picture.IsNil()) return picture;
    picture.HorizontalResolution = header_.properties.HorizontalResolution;
    picture.VerticalResolution = header_.properties.VerticalResolution;
    profile_.ConvertToSRGB(picture);
    return picture;
  }

  /// `strict` refuses a file that ends too early; a thumbnail shows what there is.
  Expected<Picture> DecodeAt(int atLeast, bool strict) const {
    const File stream(std::fopen(file_.Path().c_str(), "rbe"));
    const auto damaged = [&](const Decompressor& jpeg) {
      return Expected<Picture>::Failure(CodecMessage(codecTexts::kDamaged, file_, jpeg.Message()));
    };
    if (!stream) return Expected<Picture>::Failure(CodecMessage(codecTexts::kUnreadable, file_));
    Decompressor jpeg;
    if (!jpeg.ReadHeader(stream.get(), {}) || !jpeg.Start(atLeast)) return damaged(jpeg);
    Expected<Picture> picture = Allocate(file_, jpeg.OutputWidth(), jpeg.OutputHeight());
    if (!picture) return picture;
    const Pixels pixels = picture->Edit();
    const auto touched = PixelMemory::TouchAhead(
        pixels.data, pixels.stride * static_cast<std::size_t>(pixels.height));
    if (!jpeg.ReadInto(pixels.data, pixels.stride) || (strict && jpeg.Truncated())) {
      return damaged(jpeg);
    }
    picture->HorizontalResolution = header_.properties.HorizontalResolution;
    picture->VerticalResolution = header_.properties.VerticalResolution;
    profile_.ConvertToSRGB(*picture);
    return picture;
  }

  FolderItem file_;
  Header header_;
  SourceProfile profile_;
  std::string preview_;
};

/// Rows of blocks between two restart markers. A fixed number, so that a file does not depend on
/// the machine that wrote it; at 16 the interval's 16 bits hold the widest JPEG.
constexpr int kRestartRows = 16;
/// At the highest qualities the eye sees halved colour before it sees the quantisation.
constexpr double kFullColorFrom = 0.95;

int PixelsPerRestart(double quality) {
  return kRestartRows * (quality >= kFullColorFrom ? 8 : 16);
}

/// Encodes some rows of a picture as a JPEG of their own.
class Compressor {
 public:
  Compressor() { Install(manager_, reinterpret_cast<jpeg_common_struct&>(info_)); }
  ~Compressor() {
    if (created_) jpeg_destroy_compress(&info_);
    std::free(bytes_);
  }
  Compressor(const Compressor&) = delete;
  Compressor& operator=(const Compressor&) = delete;

  bool Write(ConstPixels rows, const Picture& picture, double quality, bool withProfile) {
    if (setjmp(manager_.jump) != 0) return false;
    jpeg_create_compress(&info_);
    created_ = true;
    jpeg_mem_dest(&info_, &bytes_, &size_);
    info_.image_width = static_cast<JDIMENSION>(rows.width);
    info_.image_height = static_cast<JDIMENSION>(rows.height);
    info_.input_components = 4;
    info_.in_color_space = JCS_EXT_BGRX;
    jpeg_set_defaults(&info_);
    jpeg_set_quality(&info_, static_cast<int>(std::lround(std::clamp(quality, 0.0, 1.0) * 100)),
                     TRUE);
    if (quality >= kFullColorFrom) {
      info_.comp_info[0].h_samp_factor = 1;
      info_.comp_info[0].v_samp_factor = 1;
    }
    info_.density_unit = 1;
    info_.X_density = static_cast<UINT16>(std::clamp(picture.HorizontalResolution, 1, 65535));
    info_.Y_density = static_cast<UINT16>(std::clamp(picture.VerticalResolution, 1, 65535));
    jpeg_start_compress(&info_, TRUE);
    if (withProfile) {
      const std::string_view icc = SRGBProfile();
      jpeg_write_icc_profile(&info_, reinterpret_cast<const JOCTET*>(icc.data()),
                             static_cast<unsigned>(icc.size()));
    }
    while (info_.next_scanline < info_.image_height) {
      // libjpeg does not write to its input.
      auto* row = const_cast<JSAMPROW>(rows.Row(static_cast<int>(info_.next_scanline)));
      jpeg_write_scanlines(&info_, &row, 1);
    }
    jpeg_finish_compress(&info_);
    return true;
  }

  std::string_view Bytes() const { return {reinterpret_cast<const char*>(bytes_), size_}; }
  std::string Message() const { return manager_.message.data(); }

 private:
  jpeg_compress_struct info_{};
  ErrorManager manager_{};
  unsigned char* bytes_ = nullptr;
  unsigned long size_ = 0;  // NOLINT(google-runtime-int): the type of libjpeg
  bool created_ = false;
};

/// Where the parts of a JPEG lie that was just written.
struct Layout {
  std::size_t frame = 0;  ///< Of the frame header's marker.
  std::size_t scan = 0;   ///< Of the scan header's marker.
  std::size_t data = 0;   ///< Of the first byte of coded data.
};

Layout LayoutOf(std::string_view jpeg) {
  Layout layout;
  const auto byte = [&](std::size_t at) { return static_cast<std::uint8_t>(jpeg[at]); };
  std::size_t at = 2;
  while (at + 4 <= jpeg.size()) {
    const std::size_t next = at + 2 + (std::size_t{byte(at + 2)} << 8 | byte(at + 3));
    if (byte(at + 1) == 0xC0) layout.frame = at;
    if (byte(at + 1) == 0xDA) {
      layout.scan = at;
      layout.data = next;
      break;
    }
    at = next;
  }
  return layout;
}

void AppendBigEndian(std::string& bytes, int value) {
  bytes += static_cast<char>(value >> 8);
  bytes += static_cast<char>(value);
}

/// A whole JPEG from strips that were encoded apart. The coder starts afresh after a restart
/// marker, so their data only has to be put in a row with such markers between (ITU-T T.81,
/// section F.1.1.5.2); the frame header takes the whole height, and an interval is declared.
std::string Assembled(const std::vector<std::string>& strips, ConstPixels pixels, double quality) {
  const std::string& first = strips.front();
  const Layout layout = LayoutOf(first);
  std::string jpeg = first.substr(0, layout.scan);
  jpeg[layout.frame + 5] = static_cast<char>(pixels.height >> 8);
  jpeg[layout.frame + 6] = static_cast<char>(pixels.height);
  if (strips.size() > 1) {
    const int block = PixelsPerRestart(quality) / kRestartRows;
    jpeg += "\xFF\xDD";
    AppendBigEndian(jpeg, 4);
    AppendBigEndian(jpeg, (pixels.width + block - 1) / block * kRestartRows);
  }
  jpeg.append(first, layout.scan, layout.data - layout.scan);
  for (std::size_t i = 0; i < strips.size(); ++i) {
    constexpr std::size_t kEndMarker = 2;
    const std::size_t data = LayoutOf(strips[i]).data;
    jpeg.append(strips[i], data, strips[i].size() - data - kEndMarker);
    if (i + 1 == strips.size()) break;
    jpeg += '\xFF';
    jpeg += static_cast<char>(0xD0 + i % 8);
  }
  return jpeg + "\xFF\xD9";
}

/// The bytes of a JPEG file; empty, with the reason in `error`, on failure.
std::string Encoded(const EncodeImage& image, std::string& error) {
  const Picture picture = Flattened(image.Pixels);
  const ConstPixels pixels = picture.View();
  constexpr int kLargestSide = 65500;
  if (std::max(pixels.width, pixels.height) > kLargestSide) {
    error = "a JPEG has at most 65500 pixels a side";
    return {};
  }
  const int rows = PixelsPerRestart(image.Quality);
  std::vector<std::string> strips(static_cast<std::size_t>((pixels.height + rows - 1) / rows));
  std::vector<std::string> errors(strips.size());
  ParallelRows(static_cast<int>(strips.size()), 1, [&](int from, int to) {
    for (int i = from; i < to; ++i) {
      ConstPixels part = pixels;
      part.data = pixels.Row(i * rows);
      part.height = std::min(rows, pixels.height - i * rows);
      Compressor jpeg;
      const auto at = static_cast<std::size_t>(i);
      if (jpeg.Write(part, picture, image.Quality, i == 0)) {
        strips[at] = jpeg.Bytes();
      } else {
        errors[at] = jpeg.Message();
      }
    }
  });
  for (const std::string& failure : errors) {
    if (failure.empty()) continue;
    error = failure;
    return {};
  }
  return Assembled(strips, pixels, image.Quality);
}

}  // namespace

std::unique_ptr<ImageSource> OpenJpeg(const FolderItem& file) {
  const File stream(std::fopen(file.Path().c_str(), "rbe"));
  if (!stream) return nullptr;
  Decompressor jpeg;
  if (!jpeg.ReadHeader(stream.get(), {})) return nullptr;
  auto source = std::make_unique<JpegSource>(file, jpeg.Facts());
  return source->Usable() ? std::move(source) : nullptr;
}

Picture DecodeJpegPreview(std::string_view bytes, int atLeast, std::int64_t most) {
  Decompressor jpeg;
  // A few bytes can claim any size: that is looked at before the decoder asks for memory.
  if (!jpeg.ReadHeader(nullptr, bytes) || jpeg.Claimed() > most || !jpeg.Start(atLeast)) return {};
  Picture picture = Picture::Uninitialized(jpeg.OutputWidth(), jpeg.OutputHeight(), 32);
  if (picture.IsNil()) return {};
  const Pixels pixels = picture.Edit();
  if (!jpeg.ReadInto(pixels.data, pixels.stride)) return {};
  return picture;
}

std::string EncodeJpegToMemory(const EncodeImage& image) {
  std::string error;
  return Encoded(image, error);
}

std::string EncodeJpeg(const FolderItem& file, const EncodeImage& image) {
  std::string reason;
  const std::string bytes = Encoded(image, reason);
  if (!bytes.empty()) {
    const std::error_code error = WriteFileAtomically(file, bytes);
    if (!error) return {};
    reason = error.message();
  }
  return CodecMessage(codecTexts::kCannotWrite, file, reason);
}

}  // namespace brivolant::codecs
