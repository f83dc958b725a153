// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <vector>

#include "platform/codecs/Cancellation.h"
#include "platform/codecs/CodecDetail.h"
#include "platform/codecs/JpegEighth.h"
#include "platform/codecs/JpegErrors.h"
#include "platform/pictures/PixelMemory.h"

// Needs the header of libjpeg above.
#include <jerror.h>

namespace brivolant::codecs {
namespace {

/// A progressive file can make the decoder go over the whole image for every few bytes.
constexpr int kMostScans = 500;
/// Bytes. A progressive file is held as coefficients of its full size, however small the result.
constexpr long kMostWorkingMemory = 1L << 30;  // NOLINT(google-runtime-int): the type of libjpeg

JpegErrors& ErrorsOf(j_common_ptr info) {
  return *reinterpret_cast<JpegErrors*>(info->err);
}

[[noreturn]] void OnError(j_common_ptr info) {
  info->err->format_message(info, ErrorsOf(info).message.data());
  std::longjmp(ErrorsOf(info).jump, 1);
}

/// Looks at a file that ended: whether all its rows of blocks were there. The last one is given the
/// benefit of the doubt, since a decoder looks ahead; the other warnings tell if it is not whole.
void NoteEnd(const jpeg_decompress_struct& info, JpegErrors& errors) {
  errors.ended = true;
  if (info.input_scan_number == 0) return;
  errors.damaged = errors.damaged || info.input_iMCU_row + 1 < info.total_iMCU_rows;
  errors.nothing = errors.nothing || (info.input_scan_number == 1 && info.input_iMCU_row == 0);
}

void OnWarning(j_common_ptr info, int level) {
  if (level >= 0) return;
  ++info->err->num_warnings;
  JpegErrors& errors = ErrorsOf(info);
  if (info->is_decompressor == FALSE) return;
  const auto& read = *reinterpret_cast<j_decompress_ptr>(info);
  switch (info->err->msg_code) {
    case JWRN_JPEG_EOF:
      NoteEnd(read, errors);
      break;
    case JWRN_EXTRANEOUS_DATA:
      // Coded data that no block took. Before the first scan, and where the file just ends without
      // its mark, it is none.
      errors.damaged = errors.damaged || (read.input_scan_number > 0 && !errors.ended);
      break;
    case JWRN_HIT_MARKER:
      // Behind a restart marker, and in another scan, there may be more.
      errors.nothing = errors.nothing ||
                       (read.input_iMCU_row == 0 && read.comps_in_scan == read.num_components &&
                        read.progressive_mode == FALSE &&
                        (read.restart_interval == 0 || read.unread_marker == JPEG_EOI));
      errors.damaged = true;
      break;
    case JWRN_HUFF_BAD_CODE:
    case JWRN_ARITH_BAD_CODE:
    case JWRN_MUST_RESYNC:
      errors.damaged = true;
      break;
    default:
      break;
  }
}

[[noreturn]] void Stop(j_common_ptr info) {
  JpegErrors& errors = ErrorsOf(info);
  errors.stopped = true;
  std::longjmp(errors.jump, 1);
}

void OnProgress(j_common_ptr info) {
  if (DecodeCancellation::Requested() ||
      reinterpret_cast<j_decompress_ptr>(info)->input_scan_number > kMostScans) {
    Stop(info);
  }
}

}  // namespace

void Install(JpegErrors& errors, jpeg_common_struct& info) {
  info.err = jpeg_std_error(&errors.base);
  errors.base.error_exit = OnError;
  errors.base.emit_message = OnWarning;
  errors.message[0] = '\0';
  errors.damaged = errors.ended = errors.nothing = errors.stopped = false;
}

namespace {

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
    codecs::Install(errors_, reinterpret_cast<jpeg_common_struct&>(info_));
    progress_.progress_monitor = OnProgress;
  }
  ~Decompressor() {
    if (created_) jpeg_destroy_decompress(&info_);
    std::free(icc_);
  }
  Decompressor(const Decompressor&) = delete;
  Decompressor& operator=(const Decompressor&) = delete;

  bool ReadHeader(std::FILE* file, std::string_view bytes) {
    if (setjmp(errors_.jump) != 0) return false;
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
    if (setjmp(errors_.jump) != 0) return false;
    SetUp(atLeast);
    jpeg_start_decompress(&info_);
    return true;
  }

  /// The same for a file of several scans with an error that Start and ReadInto cannot pass: what
  /// the scans before it hold.
  bool StartBeforeTheError(int atLeast) {
    if (setjmp(errors_.jump) != 0) return false;
    if (jpeg_has_multiple_scans(&info_) == 0) return false;
    SetUp(atLeast);
    info_.buffered_image = TRUE;
    jpeg_start_decompress(&info_);
    if (Consume() || errors_.stopped) return false;
    if (setjmp(errors_.jump) != 0) return false;
    errors_.damaged = true;
    // The scan of the error may be there in part, but the library would read on for the rest.
    jpeg_start_output(&info_, std::max(1, info_.input_scan_number - (atMarker_ ? 0 : 1)));
    return true;
  }

  /// Reads all rows. On an error those from Rows() on are missing.
  bool ReadInto(std::uint8_t* data, std::size_t stride) {
    if (setjmp(errors_.jump) != 0) return false;
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
    return true;
  }

  /// Looks for the end mark behind the last row: coded data that is left there belongs to blocks
  /// that were read wrong. An error there costs nothing any more.
  void Finish() {
    if (setjmp(errors_.jump) != 0) return;
    int got = JPEG_ROW_COMPLETED;
    while (got != JPEG_REACHED_EOI && got != JPEG_SUSPENDED) got = jpeg_consume_input(&info_);
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
  int Rows() const { return static_cast<int>(info_.output_scanline); }
  /// True if some of what was read is not what was stored.
  bool Damaged() {
    // A last scan that is not there at all leaves no trace but the early end.
    return errors_.damaged || (errors_.ended && !HasEveryScan());
  }
  /// How many rows may hold something. Data that ends in the first ones leaves at most a trace.
  int Decoded() const { return errors_.nothing ? 0 : Rows(); }
  /// True if we ended the work.
  bool Stopped() const { return errors_.stopped; }
  /// In our words: the library's are not for the user.
  std::string Reason() const {
    return (errors_.ended ? codecTexts::kEndsEarly : codecTexts::kBadData).Text();
  }

 private:
  void SetUp(int atLeast) {
    info_.out_color_space = JCS_EXT_BGRA;
    info_.mem->max_memory_to_use = kMostWorkingMemory;
    if (atLeast <= 0) return;
    const int longest = static_cast<int>(std::max(info_.image_width, info_.image_height));
    info_.scale_denom = 8;
    info_.scale_num = 8;
    while (info_.scale_num > 1 && longest * static_cast<int>(info_.scale_num - 1) / 8 >= atLeast) {
      --info_.scale_num;
    }
  }

  /// True if no scan can follow those that began.
  bool HasEveryScan() {
    if (setjmp(errors_.jump) != 0 || info_.input_scan_number == 0) return false;
    if (jpeg_has_multiple_scans(&info_) == 0) return true;
    if (info_.coef_bits == nullptr) return info_.input_scan_number >= info_.num_components;
    // How many bits of each coefficient are still to come.
    return std::all_of(info_.coef_bits, info_.coef_bits + info_.num_components,
                       [](const int(&bits)[DCTSIZE2]) {
                         return std::all_of(bits, bits + DCTSIZE2, [](int b) { return b == 0; });
                       });
  }

  /// Takes in the whole file; false at an error.
  bool Consume() {
    if (setjmp(errors_.jump) != 0) return false;
    for (int got = 0; got != JPEG_REACHED_EOI;) {
      OnProgress(reinterpret_cast<j_common_ptr>(&info_));
      got = jpeg_consume_input(&info_);
      atMarker_ = got == JPEG_SCAN_COMPLETED;
    }
    return true;
  }

  jpeg_decompress_struct info_{};
  JpegErrors errors_{};
  jpeg_progress_mgr progress_{};
  FileInput input_;
  JOCTET* icc_ = nullptr;
  unsigned iccSize_ = 0;
  bool created_ = false;
  /// The last that was taken in was the end of a scan.
  bool atMarker_ = false;
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

  Expected<DecodedImage> Decode(int) const override { return DecodeAt(0); }

  Expected<DecodedImage> Small(int longest) const override {
    Picture picture = preview_.empty() ? Picture() : DecodeJpegPreview(preview_, longest);
    // Cameras store 160 pixels, often with black bars: only a full-sized preview will do.
    if (picture.IsNil() || std::max(picture.Width(), picture.Height()) < longest ||
        !SameShape(picture)) {
      picture = Eighth(longest);
      if (picture.IsNil()) {
        Expected<DecodedImage> reduced = DecodeAt(longest);
        if (!reduced) return reduced;
        return {SmallOf(std::move(*reduced), longest), {}};
      }
    } else {
      profile_.ConvertToSRGB(picture);
    }
    return {SmallOf({std::move(picture), header_.properties}, longest), {}};
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

  Expected<DecodedImage> DecodeAt(int atLeast) const {
    Expected<DecodedImage> image;
    if (Attempt(atLeast, false, image)) return image;
    // Opened anew, since the error left the first attempt in the middle.
    Expected<DecodedImage> before;
    if (Attempt(atLeast, true, before) && before) return before;
    return image;
  }

  /// False if there is an error that an attempt `beforeTheError` may pass.
  bool Attempt(int atLeast, bool beforeTheError, Expected<DecodedImage>& result) const {
    const auto failed = [&](std::string sentence) {
      result = Expected<DecodedImage>::Failure(std::move(sentence));
    };
    const File stream(std::fopen(file_.Path().c_str(), "rbe"));
    if (!stream) {
      failed(CodecMessage(codecTexts::kUnreadable, file_));
      return true;
    }
    Decompressor jpeg;
    if (!jpeg.ReadHeader(stream.get(), {}) ||
        !(beforeTheError ? jpeg.StartBeforeTheError(atLeast) : jpeg.Start(atLeast))) {
      failed(CodecMessage(codecTexts::kDamaged, file_, jpeg.Reason()));
      return jpeg.Stopped();
    }
    Expected<Picture> picture = Allocate(file_, jpeg.OutputWidth(), jpeg.OutputHeight());
    if (!picture) {
      failed(picture.error);
      return true;
    }
    const Pixels pixels = picture->Edit();
    const auto touched = PixelMemory::TouchAhead(
        pixels.data, pixels.stride * static_cast<std::size_t>(pixels.height));
    const bool whole = jpeg.ReadInto(pixels.data, pixels.stride);
    if (!whole) {
      failed(CodecMessage(codecTexts::kDamaged, file_, jpeg.Reason()));
      if (jpeg.Stopped() || !beforeTheError) return jpeg.Stopped();
      PaintMissing(*picture, jpeg.Rows());
    }
    if (whole) jpeg.Finish();
    const bool damaged = !whole || jpeg.Damaged();
    picture->HorizontalResolution = header_.properties.HorizontalResolution;
    picture->VerticalResolution = header_.properties.VerticalResolution;
    profile_.ConvertToSRGB(*picture);
    DecodedImage image{std::move(*picture), header_.properties, {}};
    result = damaged ? ReadInPart(file_, std::move(image), jpeg.Reason(), jpeg.Decoded())
                     : Expected<DecodedImage>{std::move(image), {}};
    return true;
  }

  FolderItem file_;
  Header header_;
  SourceProfile profile_;
  std::string preview_;
};

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
  jpeg.Finish();
  if (jpeg.Damaged()) return {};
  return picture;
}

}  // namespace brivolant::codecs
