// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "platform/codecs/CodecDetail.h"
#include "platform/codecs/JpegErrors.h"
#include "platform/files/AtomicFile.h"
#include "platform/pictures/Parallel.h"
#include "platform/values/Numbers.h"

namespace brivolant::codecs {
namespace {

/// How a picture is coded.
struct Coding {
  int percent = 75;        ///< Quality.
  bool grey = false;       ///< One component.
  bool fullColor = false;  ///< Chroma is not halved.
  int restartRows = 0;     ///< Rows of blocks between two restart markers.

  /// Pixels that a block of the coding has on each side.
  int Block() const { return grey || fullColor ? 8 : 16; }
  int PixelsPerRestart() const { return restartRows * Block(); }
  int BlocksPerRestart(int width) const { return (width + Block() - 1) / Block() * restartRows; }
};

/// Depends on picture and quality alone, so that a file does not depend on the machine that wrote
/// it.
Coding CodingOf(const EncodeImage& image) {
  // At the highest qualities the eye sees halved colour before it sees the quantisation.
  constexpr int kFullColorFrom = 95;
  // What an interval of restart markers can count.
  constexpr int kMostBlocks = 65535;
  Coding coding;
  // Rounded first: 95 per cent of a single is a little less than 0.95.
  coding.percent = static_cast<int>(std::lround(std::clamp(image.Quality, 0.0, 1.0) * 100));
  coding.grey = image.Grey;
  coding.fullColor = coding.percent >= kFullColorFrom;
  coding.restartRows = 16;
  while (coding.BlocksPerRestart(image.Pixels.Width()) > kMostBlocks) coding.restartRows /= 2;
  return coding;
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

  bool Write(ConstPixels rows, const Picture& picture, const Coding& coding, bool first) {
    if (setjmp(manager_.jump) != 0) return false;
    jpeg_create_compress(&info_);
    created_ = true;
    jpeg_mem_dest(&info_, &bytes_, &size_);
    info_.image_width = static_cast<JDIMENSION>(rows.width);
    info_.image_height = static_cast<JDIMENSION>(rows.height);
    info_.input_components = 4;
    info_.in_color_space = JCS_EXT_BGRX;
    jpeg_set_defaults(&info_);
    jpeg_set_quality(&info_, coding.percent, TRUE);
    if (coding.grey) {
      jpeg_set_colorspace(&info_, JCS_GRAYSCALE);
    } else if (coding.fullColor) {
      info_.comp_info[0].h_samp_factor = 1;
      info_.comp_info[0].v_samp_factor = 1;
    }
    info_.density_unit = 1;
    info_.X_density = static_cast<UINT16>(std::clamp(picture.HorizontalResolution, 1, 65535));
    info_.Y_density = static_cast<UINT16>(std::clamp(picture.VerticalResolution, 1, 65535));
    jpeg_start_compress(&info_, TRUE);
    // Grey without a profile is taken to be of sRGB's curve, which it is.
    if (first && !coding.grey) {
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
  JpegErrors manager_{};
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
std::string Assembled(const std::vector<std::string>& strips, ConstPixels pixels,
                      const Coding& coding) {
  const std::string& first = strips.front();
  const Layout layout = LayoutOf(first);
  std::string jpeg = first.substr(0, layout.scan);
  jpeg[layout.frame + 5] = static_cast<char>(pixels.height >> 8);
  jpeg[layout.frame + 6] = static_cast<char>(pixels.height);
  if (strips.size() > 1) {
    jpeg += "\xFF\xDD";
    AppendBigEndian(jpeg, 4);
    AppendBigEndian(jpeg, coding.BlocksPerRestart(pixels.width));
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
    error = WithPlaceholders(codecTexts::kJpegSide.Text(),
                             {{"<pixels>", PaddedNumber(kLargestSide, 1)}});
    return {};
  }
  const Coding coding = CodingOf(image);
  const int rows = coding.PixelsPerRestart();
  std::vector<std::string> strips(static_cast<std::size_t>((pixels.height + rows - 1) / rows));
  std::vector<std::string> errors(strips.size());
  ParallelRows(static_cast<int>(strips.size()), 1, [&](int from, int to) {
    for (int i = from; i < to; ++i) {
      ConstPixels part = pixels;
      part.data = pixels.Row(i * rows);
      part.height = std::min(rows, pixels.height - i * rows);
      Compressor jpeg;
      const auto at = static_cast<std::size_t>(i);
      if (jpeg.Write(part, picture, coding, i == 0)) {
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
  return Assembled(strips, pixels, coding);
}

}  // namespace

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
