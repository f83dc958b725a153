// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <unistd.h>
#include <vips/vips.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <vector>

#include "platform/codecs/Cancellation.h"
#include "platform/codecs/CodecDetail.h"
#include "platform/files/AtomicFile.h"

namespace brivolant::codecs {
namespace {

struct LoaderType {
  std::string_view loader;
  std::string_view type;
};
constexpr std::array<LoaderType, 11> kLoaderTypes{{{"jpegload", "public.jpeg"},
                                                   {"pngload", "public.png"},
                                                   {"tiffload", "public.tiff"},
                                                   {"gifload", "com.compuserve.gif"},
                                                   {"webpload", "org.webmproject.webp"},
                                                   {"heifload", "public.heic"},
                                                   {"jp2kload", "public.jpeg-2000"},
                                                   {"pdfload", "com.adobe.pdf"},
                                                   {"svgload", "public.svg-image"},
                                                   {"openexrload", "com.ilm.openexr-image"},
                                                   {"radload", "public.radiance"}}};
constexpr std::array<LoaderType, 6> kExtensionTypes{{{".bmp", "com.microsoft.bmp"},
                                                     {".psd", "com.adobe.photoshop-image"},
                                                     {".pct", "com.apple.pict"},
                                                     {".pict", "com.apple.pict"},
                                                     {".sgi", "com.sgi.sgi-image"},
                                                     {".tga", "com.truevision.tga-image"}}};

std::atomic<bool> started = false;

bool Start() {
  static const bool ready = [] {
    if (vips_init("brivolant") != 0) return false;
    // What is wrong with a file reaches the user as our own sentence.
    g_log_set_handler(
        "VIPS", G_LOG_LEVEL_WARNING, [](const char*, GLogLevelFlags, const char*, void*) {},
        nullptr);
    // Files are read once: what the library would keep only takes memory from pictures.
    vips_cache_set_max(0);
    started = true;
    return true;
  }();
  return ready;
}

struct Unref {
  void operator()(VipsImage* image) const { g_object_unref(image); }
};
using Image = std::unique_ptr<VipsImage, Unref>;

/// The library's own words, in one line.
std::string TakeError() {
  std::string text(Trim(vips_error_buffer()));
  vips_error_clear();
  std::replace(text.begin(), text.end(), '\n', ';');
  return text.empty() ? "unknown error" : EnsureUTF8(text);
}

/// A path that the libraries take as it stands: they read options from square brackets and numbers
/// from percent signs, so a name with such is reached over its descriptor.
class PlainPath {
 public:
  explicit PlainPath(const FolderItem& file) : path_(file.ShellPath()) {
    if (path_.find_first_of("[%") == std::string::npos) return;
    descriptor_ = open(path_.c_str(), O_RDONLY | O_CLOEXEC);
    path_ = "/proc/self/fd/" + std::to_string(descriptor_);
  }
  ~PlainPath() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  PlainPath(const PlainPath&) = delete;
  PlainPath& operator=(const PlainPath&) = delete;
  const char* Get() const { return path_.c_str(); }

 private:
  std::string path_;
  int descriptor_ = -1;
};

Image Load(const PlainPath& path, int page) {
  const std::string name =
      page > 0 ? std::string(path.Get()) + "[page=" + std::to_string(page) + "]" : path.Get();
  return Image(vips_image_new_from_file(name.c_str(), "access", VIPS_ACCESS_SEQUENTIAL, "fail_on",
                                        VIPS_FAIL_ON_TRUNCATED, nullptr));
}

std::string ProfileOf(VipsImage* image) {
  const void* data = nullptr;
  std::size_t size = 0;
  if (vips_image_get_typeof(image, VIPS_META_ICC_NAME) == 0 ||
      vips_image_get_blob(image, VIPS_META_ICC_NAME, &data, &size) != 0) {
    return {};
  }
  return {static_cast<const char*>(data), size};
}

ImageProperties PropertiesOf(VipsImage* image) {
  ImageProperties properties;
  properties.Width = vips_image_get_width(image);
  properties.Height = vips_image_get_height(image);
  properties.Orientation = std::clamp(vips_image_get_orientation(image), 1, 8);
  const auto perInch = [](double perMillimetre) {
    const long resolution = std::lround(perMillimetre * 25.4);
    // One a millimetre is what loaders say when the file says nothing.
    return perMillimetre == 1.0 || resolution < 1 ? 72 : static_cast<int>(resolution);
  };
  properties.HorizontalResolution = perInch(vips_image_get_xres(image));
  properties.VerticalResolution = perInch(vips_image_get_yres(image));
  properties.HasAlpha = vips_image_hasalpha(image) != 0;
  properties.BitsPerComponent =
      8 * static_cast<int>(vips_format_sizeof(vips_image_get_format(image)));
  const VipsInterpretation space = vips_image_guess_interpretation(image);
  const bool grey = space == VIPS_INTERPRETATION_B_W || space == VIPS_INTERPRETATION_GREY16;
  properties.ColorModel = grey ? "Gray" : space == VIPS_INTERPRETATION_CMYK ? "CMYK" : "RGB";
  properties.ProfileName = SourceProfile(ProfileOf(image)).Name();
  return properties;
}

/// To 8-bit sRGB with three bands, or four with alpha.
Image ToSRGB(Image image) {
  VipsImage* next = nullptr;
  const bool cmyk = vips_image_guess_interpretation(image.get()) == VIPS_INTERPRETATION_CMYK;
  const std::string icc = ProfileOf(image.get());
  const bool convert = cmyk || (!icc.empty() && FindIgnoringCase(SourceProfile(icc).Name(),
                                                                 "srgb") == std::string::npos);
  if (convert) {
    const char* fallback = cmyk ? "cmyk" : "srgb";
    if (vips_icc_transform(image.get(), &next, "srgb", "embedded", TRUE, "input_profile", fallback,
                           "intent", VIPS_INTENT_PERCEPTUAL, nullptr) == 0) {
      image.reset(next);
    } else {
      // A profile that cannot be used: the numbers are taken for what they most likely are.
      vips_error_clear();
    }
  }
  if (vips_colourspace(image.get(), &next, VIPS_INTERPRETATION_sRGB, nullptr) != 0) return nullptr;
  image.reset(next);
  if (vips_image_get_bands(image.get()) > 4) {
    if (vips_extract_band(image.get(), &next, 0, "n", 4, nullptr) != 0) return nullptr;
    image.reset(next);
  }
  if (vips_cast_uchar(image.get(), &next, nullptr) != 0) return nullptr;
  image.reset(next);
  return image;
}

struct Target {
  Pixels pixels;
  Grey mask;
};

/// Takes a strip of finished rows.
int WriteStrip(VipsRegion* region, VipsRect* area, void* data) {
  const auto& target = *static_cast<Target*>(data);
  const int bands = region->im->Bands;
  for (int y = area->top; y < area->top + area->height; ++y) {
    const VipsPel* from = VIPS_REGION_ADDR(region, area->left, y);
    std::uint8_t* to = target.pixels.Row(y) + std::ptrdiff_t{4} * area->left;
    for (int x = 0; x < area->width; ++x, from += bands, to += 4) {
      to[0] = from[bands >= 3 ? 2 : 0];
      to[1] = from[bands >= 3 ? 1 : 0];
      to[2] = from[0];
      to[3] = 255;
      if (target.mask.data != nullptr) {
        target.mask.Row(y)[area->left + x] = static_cast<std::uint8_t>(255 - from[bands - 1]);
      }
    }
  }
  return 0;
}

Expected<Picture> Render(const FolderItem& file, VipsImage* image) {
  Expected<Picture> picture =
      Allocate(file, vips_image_get_width(image), vips_image_get_height(image));
  if (!picture) return picture;
  Target target{picture->Edit(), {}};
  Plane mask;
  if (vips_image_hasalpha(image) != 0) {
    mask = Plane::Uninitialized(picture->Width(), picture->Height());
    if (mask.IsNil()) return Expected<Picture>::Failure(CodecMessage(codecTexts::kNoMemory, file));
    target.mask = mask.Edit();
  }
  if (const std::atomic<bool>* flag = DecodeCancellation::Flag()) {
    // The signal may come on another thread, so the flag goes with it.
    vips_image_set_progress(image, TRUE);
    g_signal_connect(image, "eval", G_CALLBACK(+[](VipsImage* at, VipsProgress*, void* data) {
                       if (static_cast<const std::atomic<bool>*>(data)->load()) {
                         vips_image_set_kill(at, TRUE);
                       }
                     }),
                     const_cast<std::atomic<bool>*>(flag));
  }
  if (vips_sink_disc(image, WriteStrip, &target) != 0) {
    return Expected<Picture>::Failure(CodecMessage(codecTexts::kDamaged, file, TakeError()));
  }
  if (!mask.IsNil()) picture->SetMask(std::move(mask));
  return picture;
}

class VipsSource final : public ImageSource {
 public:
  VipsSource(FolderItem file, VipsImage* first)
      : file_(std::move(file)),
        width_(vips_image_get_width(first)),
        height_(vips_image_get_height(first)) {
    const char* loader = nullptr;
    if (vips_image_get_string(first, VIPS_META_LOADER, &loader) != 0) vips_error_clear();
    const std::string_view name = loader == nullptr ? "" : loader;
    for (const LoaderType& known : kLoaderTypes) {
      if (name.starts_with(known.loader)) type_ = known.type;
    }
    const std::string extension = LowerCase(file_.Path().extension().string());
    for (const LoaderType& known : kExtensionTypes) {
      if (type_.empty() && extension == known.loader) type_ = known.type;
    }
    // Without a page option the library shows only the first page.
    if (vips_image_get_typeof(first, VIPS_META_N_PAGES) != 0) {
      constexpr int kMostPages = 10000;
      count_ = std::clamp(vips_image_get_n_pages(first), 1, kMostPages);
    }
  }

  std::string Type() const override { return type_; }
  int Count() const override { return count_; }

  Expected<ImageProperties> Properties(int index) const override {
    const PlainPath path(file_);
    const Image image = Load(path, index);
    if (!image) return Failure<ImageProperties>();
    return {PropertiesOf(image.get()), {}};
  }

  Expected<DecodedImage> Decode(int index) const override {
    const PlainPath path(file_);
    Image image = Load(path, index);
    if (!image) return Failure<DecodedImage>();
    ImageProperties properties = PropertiesOf(image.get());
    // Before the pipeline is built: a lying header must not cost memory.
    if (std::int64_t{properties.Width} * properties.Height > Picture::kMostPixels) {
      return Expected<DecodedImage>::Failure(
          Allocate(file_, properties.Width, properties.Height).error);
    }
    image = ToSRGB(std::move(image));
    if (!image) return Failure<DecodedImage>();
    Expected<Picture> picture = Render(file_, image.get());
    if (!picture) return Expected<DecodedImage>::Failure(picture.error);
    picture->HorizontalResolution = properties.HorizontalResolution;
    picture->VerticalResolution = properties.VerticalResolution;
    return {DecodedImage{std::move(*picture), std::move(properties)}, {}};
  }

  Expected<Picture> Thumbnail(int longest) const override {
    // Most formats are read whole, however small the result.
    if (std::int64_t{width_} * height_ > Picture::kMostPixels) {
      return Expected<Picture>::Failure(Allocate(file_, width_, height_).error);
    }
    const PlainPath path(file_);
    VipsImage* small = nullptr;
    if (vips_thumbnail(path.Get(), &small, longest, "height", longest, "size", VIPS_SIZE_DOWN,
                       "export_profile", "srgb", nullptr) != 0) {
      return Failure<Picture>();
    }
    const Image image = ToSRGB(Image(small));
    if (!image) return Failure<Picture>();
    return Render(file_, image.get());
  }

 private:
  template <class T>
  Expected<T> Failure() const {
    return Expected<T>::Failure(CodecMessage(codecTexts::kDamaged, file_, TakeError()));
  }

  FolderItem file_;
  std::string type_;
  int width_;
  int height_;
  int count_ = 1;
};

/// The pictures below each other as RGB or RGBA rows. All are cut or padded to the first's size,
/// which is what page-by-page formats can hold.
Image ForWriting(std::span<const EncodeImage> pictures, bool alpha, std::vector<VipsPel>& memory) {
  const Picture& first = pictures.front().Pixels;
  const bool masked = alpha && first.Mask() != nullptr;
  const int bands = masked ? 4 : 3;
  const auto width = static_cast<std::size_t>(first.Width());
  const std::size_t size = width * static_cast<std::size_t>(first.Height());
  memory.assign(size * pictures.size() * static_cast<std::size_t>(bands), 255);
  VipsPel* to = memory.data();
  for (const EncodeImage& image : pictures) {
    const Picture picture = masked ? image.Pixels : Flattened(image.Pixels);
    const Plane* mask = picture.Mask();
    for (int y = 0; y < first.Height(); ++y) {
      for (int x = 0; x < first.Width(); ++x, to += bands) {
        if (x >= picture.Width() || y >= picture.Height()) continue;
        const Color color = picture.At(x, y);
        to[0] = color.Red;
        to[1] = color.Green;
        to[2] = color.Blue;
        if (masked) to[3] = mask == nullptr ? 255 : static_cast<VipsPel>(255 - mask->At(x, y));
      }
    }
  }
  const int height = first.Height() * static_cast<int>(pictures.size());
  Image raw(vips_image_new_from_memory(memory.data(), memory.size(), first.Width(), height, bands,
                                       VIPS_FORMAT_UCHAR));
  if (!raw) return nullptr;
  VipsImage* tagged = nullptr;
  if (vips_copy(raw.get(), &tagged, "interpretation", VIPS_INTERPRETATION_sRGB, "xres",
                first.HorizontalResolution / 25.4, "yres", first.VerticalResolution / 25.4,
                nullptr) != 0) {
    return nullptr;
  }
  Image image(tagged);
  const std::string_view icc = SRGBProfile();
  vips_image_set_blob_copy(tagged, VIPS_META_ICC_NAME, icc.data(), icc.size());
  if (pictures.size() > 1) vips_image_set_int(tagged, VIPS_META_PAGE_HEIGHT, first.Height());
  return image;
}

/// Why an encoder could not write: the system's own words where the library quotes them.
std::string WriteFailure() {
  const std::string text = TakeError();
  constexpr std::string_view kQuote = "unix error: ";
  const std::size_t at = text.find(kQuote);
  if (at == std::string::npos) return codecTexts::kEncoderFailed.Text();
  const std::size_t from = at + kQuote.size();
  return text.substr(from, text.find(';', from) - from);
}

struct Writer {
  std::string_view identifier;
  bool alpha;
  bool pages;
  int (*save)(VipsImage* image, const char* path, double quality);
};

template <int kIndex>
int SaveByMagick(VipsImage* image, const char* path, double) {
  constexpr std::array<const char*, 5> kFormats{"BMP", "PSD", "PICT", "SGI", "TGA"};
  return vips_magicksave(image, path, "format", kFormats[kIndex], nullptr);
}

/// The encoder stores the top row first and says that the bottom row comes first: byte 17 of a TGA
/// file tells the corner, and its bit 5 the top.
int SaveTga(VipsImage* image, const char* path, double quality) {
  if (SaveByMagick<4>(image, path, quality) != 0) return -1;
  constexpr off_t kDescriptor = 17;
  const int file = open(path, O_RDWR | O_CLOEXEC);
  std::uint8_t descriptor = 0;
  bool done = file >= 0 && pread(file, &descriptor, 1, kDescriptor) == 1;
  descriptor |= 0x20;
  done = done && pwrite(file, &descriptor, 1, kDescriptor) == 1;
  if (file >= 0) close(file);
  return done ? 0 : -1;
}

constexpr std::array<Writer, 9> kWriters{{
    {"public.png", true, false,
     [](VipsImage* image, const char* path, double) { return vips_pngsave(image, path, nullptr); }},
    {"public.tiff", true, true,
     [](VipsImage* image, const char* path, double) {
       return vips_tiffsave(image, path, "compression", VIPS_FOREIGN_TIFF_COMPRESSION_LZW,
                            "predictor", VIPS_FOREIGN_TIFF_PREDICTOR_HORIZONTAL, nullptr);
     }},
    {"com.compuserve.gif", true, true,
     [](VipsImage* image, const char* path, double) { return vips_gifsave(image, path, nullptr); }},
    {"public.jpeg-2000", true, false,
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
    {"com.microsoft.bmp", false, false, SaveByMagick<0>},
    {"com.adobe.photoshop-image", true, false, SaveByMagick<1>},
    {"com.apple.pict", false, false, SaveByMagick<2>},
    {"com.sgi.sgi-image", true, false, SaveByMagick<3>},
    {"com.truevision.tga-image", true, false, SaveTga},
}};

}  // namespace

std::unique_ptr<ImageSource> OpenWithVips(const FolderItem& file) {
  if (!Start()) return nullptr;
  const PlainPath path(file);
  const Image image = Load(path, 0);
  if (!image) {
    vips_error_clear();
    return nullptr;
  }
  return std::make_unique<VipsSource>(file, image.get());
}

Picture DecodeWithVips(std::string_view bytes) {
  // Other formats have no business in the containers that this serves.
  constexpr std::string_view kPng = "\x89PNG\r\n\x1a\n";
  constexpr std::string_view kJpeg2000{"\0\0\0\x0CjP  ", 8};
  if ((!bytes.starts_with(kPng) && !bytes.starts_with(kJpeg2000)) || !Start()) return {};
  Image image(vips_image_new_from_buffer(bytes.data(), bytes.size(), "", "fail_on",
                                         VIPS_FAIL_ON_TRUNCATED, nullptr));
  if (image &&
      std::int64_t{vips_image_get_width(image.get())} * vips_image_get_height(image.get()) <=
          Picture::kMostPixels) {
    image = ToSRGB(std::move(image));
    if (image) {
      if (auto picture = Render({}, image.get())) return std::move(*picture);
    }
  }
  vips_error_clear();
  return {};
}

std::string EncodeWithVips(const FolderItem& file, std::string_view identifier,
                           std::span<const EncodeImage> pictures) {
  const auto* writer = std::find_if(kWriters.begin(), kWriters.end(), [&](const Writer& candidate) {
    return candidate.identifier == identifier;
  });
  if (writer == kWriters.end() || !Start()) {
    return CodecMessage(codecTexts::kUnknownFormat, file);
  }
  AtomicFile target(file);
  if (target.Error()) {
    return CodecMessage(codecTexts::kCannotWrite, file, target.Error().message());
  }
  std::vector<VipsPel> memory;
  const Image image =
      ForWriting(writer->pages ? pictures : pictures.first(1), writer->alpha, memory);
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

void ShutDownVips() {
  if (started.exchange(false)) vips_shutdown();
}

}  // namespace brivolant::codecs
