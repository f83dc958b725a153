// SPDX-License-Identifier: MIT
#include <libraw/libraw.h>

#include <array>
#include <cstring>

#include "platform/codecs/Cancellation.h"
#include "platform/codecs/CodecDetail.h"
#include "platform/codecs/RawExtensions.h"

namespace brivolant::codecs {
namespace {

struct FreeImage {
  void operator()(libraw_processed_image_t* image) const { LibRaw::dcraw_clear_mem(image); }
};
using ProcessedImage = std::unique_ptr<libraw_processed_image_t, FreeImage>;

/// A decoder that ends when it is cancelled.
std::unique_ptr<LibRaw> NewDecoder() {
  auto raw = std::make_unique<LibRaw>();
  raw->set_progress_handler(
      [](void* flag, LibRaw_progress, int, int) {
        return static_cast<const std::atomic<bool>*>(flag)->load() ? 1 : 0;
      },
      const_cast<std::atomic<bool>*>(DecodeCancellation::Flag()));
  if (DecodeCancellation::Flag() == nullptr) raw->set_progress_handler(nullptr, nullptr);
  return raw;
}

/// 8-bit RGB, as the library hands it over, into a picture.
Picture FromRGB(const libraw_processed_image_t& image) {
  if (image.type != LIBRAW_IMAGE_BITMAP || image.bits != 8 ||
      (image.colors != 3 && image.colors != 1)) {
    return {};
  }
  Picture picture = Picture::Uninitialized(image.width, image.height, 32);
  if (picture.IsNil()) return {};
  const Pixels pixels = picture.Edit();
  const std::uint8_t* from = image.data;
  const int blue = image.colors == 3 ? 2 : 0;
  const int green = image.colors == 3 ? 1 : 0;
  for (int y = 0; y < pixels.height; ++y) {
    std::uint8_t* to = pixels.Row(y);
    for (int x = 0; x < pixels.width; ++x, to += 4, from += image.colors) {
      to[0] = from[blue];
      to[1] = from[green];
      to[2] = from[0];
      to[3] = 255;
    }
  }
  return picture;
}

class RawSource final : public ImageSource {
 public:
  RawSource(FolderItem file, const libraw_image_sizes_t& sizes) : file_(std::move(file)) {
    // The library turns pictures upright itself; a flip of 5 or 6 is a quarter turn.
    const bool turned = sizes.flip == 5 || sizes.flip == 6;
    properties_.Width = turned ? sizes.height : sizes.width;
    properties_.Height = turned ? sizes.width : sizes.height;
    properties_.BitsPerComponent = 8;
  }

  std::string Type() const override { return "public.camera-raw-image"; }
  int Count() const override { return 1; }
  Expected<ImageProperties> Properties(int) const override { return {properties_, {}}; }

  Expected<DecodedImage> Decode(int) const override {
    std::string padded;
    Expected<DecodedImage> image = Develop(padded);
    if (image || DecodeCancellation::Requested()) return image;
    // The library refuses a file that ends too early: in memory it goes on, black.
    constexpr std::size_t kMostBytes = std::size_t{1} << 30U;
    std::optional<std::string> bytes = ReadFile(file_, kMostBytes);
    if (!bytes) return image;
    padded = std::move(*bytes);
    const auto pixels =
        static_cast<std::size_t>(properties_.Width) * static_cast<std::size_t>(properties_.Height);
    padded.append(2 * pixels, '\0');
    Expected<DecodedImage> more = Develop(padded);
    return more ? more : image;
  }

  Expected<DecodedImage> Small(int longest) const override {
    const auto raw = NewDecoder();
    int error = raw->open_file(file_.Path().c_str());
    if (error == LIBRAW_SUCCESS) error = raw->unpack_thumb();
    ProcessedImage image;
    if (error == LIBRAW_SUCCESS) image.reset(raw->dcraw_make_mem_thumb(&error));
    Picture picture;
    if (image && image->type == LIBRAW_IMAGE_JPEG) {
      picture = DecodeJpegPreview({reinterpret_cast<const char*>(image->data), image->data_size},
                                  longest);
    } else if (image) {
      picture = FromRGB(*image);
    }
    if (picture.IsNil()) {
      Expected<DecodedImage> full = Decode(0);
      if (!full) return full;
      return {SmallOf(std::move(*full), longest), {}};
    }
    // The preview is stored as the sensor stood.
    constexpr std::array<int, 8> kOrientation{1, 1, 1, 3, 1, 8, 6, 1};
    ImageProperties stored = properties_;
    stored.Orientation = kOrientation.at(static_cast<std::size_t>(raw->imgdata.sizes.flip & 7));
    return {SmallOf({std::move(picture), std::move(stored)}, longest), {}};
  }

 private:
  /// From the file, or from its bytes, which are taken for damaged ones.
  Expected<DecodedImage> Develop(std::string& bytes) const {
    using Result = Expected<DecodedImage>;
    const auto raw = NewDecoder();
    raw->imgdata.params.use_camera_wb = 1;
    raw->imgdata.params.output_color = 1;
    raw->imgdata.params.output_bps = 8;
    bool damaged = !bytes.empty();
    raw->set_dataerror_handler(
        [](void* flag, const char*, int) { *static_cast<bool*>(flag) = true; }, &damaged);
    int error = bytes.empty() ? raw->open_file(file_.Path().c_str())
                              : raw->open_buffer(bytes.data(), bytes.size());
    if (error == LIBRAW_SUCCESS) error = raw->unpack();
    if (error == LIBRAW_SUCCESS) error = raw->dcraw_process();
    ProcessedImage image;
    if (error == LIBRAW_SUCCESS) image.reset(raw->dcraw_make_mem_image(&error));
    if (!image) {
      return Result::Failure(
          CodecMessage(codecTexts::kDamaged, file_, codecTexts::kBadData.Text()));
    }
    Picture picture = FromRGB(*image);
    if (picture.IsNil()) return Result::Failure(CodecMessage(codecTexts::kNoMemory, file_));
    DecodedImage decoded{std::move(picture), properties_, {}};
    // Of a file that ends early nobody knows where.
    const int rows = bytes.empty() ? properties_.Height : 0;
    return damaged ? ReadInPart(file_, std::move(decoded), codecTexts::kBadData.Text(), rows)
                   : Result{std::move(decoded), {}};
  }

  FolderItem file_;
  ImageProperties properties_;
};

}  // namespace

bool HasRawExtension(const FolderItem& file) {
  const std::string extension = LowerCase(file.Path().extension().string());
  for (const std::string_view raw : kRawExtensions) {
    if (extension.size() == raw.size() + 1 && extension.ends_with(raw)) return true;
  }
  return false;
}

std::unique_ptr<ImageSource> OpenRaw(const FolderItem& file) {
  const auto raw = NewDecoder();
  if (raw->open_file(file.Path().c_str()) != LIBRAW_SUCCESS) return nullptr;
  const libraw_image_sizes_t& sizes = raw->imgdata.sizes;
  if (std::int64_t{sizes.width} * sizes.height > Picture::kMostPixels) return nullptr;
  return std::make_unique<RawSource>(file, sizes);
}

}  // namespace brivolant::codecs
