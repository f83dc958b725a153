// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <vector>

#include "platform/codecs/Cancellation.h"
#include "platform/codecs/CodecDetail.h"
#include "platform/codecs/RescueCodec.h"
#include "platform/codecs/VipsSupport.h"

namespace brivolant::codecs {
namespace {

using Image = VipsPicture;

constexpr std::string_view kWebP = "org.webmproject.webp";

struct LoaderType {
  std::string_view loader;
  std::string_view type;
};
constexpr std::array<LoaderType, 11> kLoaderTypes{{{"jpegload", "public.jpeg"},
                                                   {"pngload", "public.png"},
                                                   {"tiffload", "public.tiff"},
                                                   {"gifload", "com.compuserve.gif"},
                                                   {"webpload", kWebP},
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

/// `tolerant` passes over what is wrong with the pixels, as far as the loader can.
Image Load(const PlainPath& path, int page, bool tolerant) {
  const std::string name =
      page > 0 ? std::string(path.Get()) + "[page=" + std::to_string(page) + "]" : path.Get();
  return Image(vips_image_new_from_file(name.c_str(), "access", VIPS_ACCESS_SEQUENTIAL, "fail_on",
                                        tolerant ? VIPS_FAIL_ON_NONE : VIPS_FAIL_ON_ERROR,
                                        nullptr));
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

bool IsStandard(const std::string& icc) {
  return icc.empty() || FindIgnoringCase(SourceProfile(icc).Name(), "srgb") != std::string::npos;
}

/// True if the pixels are taken as they are: 8 bits, grey or sRGB.
bool IsPlain(VipsImage* image) {
  const VipsInterpretation space = vips_image_guess_interpretation(image);
  const int bands = vips_image_get_bands(image);
  return vips_image_get_format(image) == VIPS_FORMAT_UCHAR &&
         vips_image_get_coding(image) == VIPS_CODING_NONE &&
         ((space == VIPS_INTERPRETATION_sRGB && (bands == 3 || bands == 4)) ||
          (space == VIPS_INTERPRETATION_B_W && bands <= 2)) &&
         IsStandard(ProfileOf(image));
}

/// To 8-bit sRGB with three bands, or four with alpha.
Image ToSRGB(Image image) {
  VipsImage* next = nullptr;
  const bool cmyk = vips_image_guess_interpretation(image.get()) == VIPS_INTERPRETATION_CMYK;
  if (cmyk || !IsStandard(ProfileOf(image.get()))) {
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

/// Rows of an image from top to bottom, all on this thread: where several ask a loader for rows, it
/// depends on who is first at a bad block what becomes of the others.
class RowReader {
 public:
  explicit RowReader(VipsImage* image) : image_(image), region_(vips_region_new(image)) {}

  /// How many rows are read at once.
  static constexpr int kStrip = 16;
  /// Makes up to `rows` rows from `top` available; false if they cannot be read.
  bool Read(int top, int rows) {
    const VipsRect area{0, top, vips_image_get_width(image_), rows};
    return !DecodeCancellation::Requested() && vips_region_prepare(region_.get(), &area) == 0;
  }
  const VipsPel* Row(int y) const { return VIPS_REGION_ADDR(region_.get(), 0, y); }

 private:
  VipsImage* image_;
  std::unique_ptr<VipsRegion, UnrefVips> region_;
};

struct Target {
  Pixels pixels;
  Grey mask;
  /// Row of the picture where the image begins.
  int top = 0;
};

void WriteRow(const Target& target, int left, int y, const VipsPel* from, int width, int bands) {
  std::uint8_t* to = target.pixels.Row(y) + std::ptrdiff_t{4} * left;
  const int green = bands >= 3 ? 1 : 0;
  const int blue = bands >= 3 ? 2 : 0;
  std::uint8_t* mask = target.mask.data == nullptr ? nullptr : target.mask.Row(y) + left;
  for (int x = 0; x < width; ++x, from += bands, to += 4) {
    to[0] = from[blue];
    to[1] = from[green];
    to[2] = from[0];
    to[3] = 255;
    if (mask != nullptr) mask[x] = static_cast<std::uint8_t>(255 - from[bands - 1]);
  }
}

/// Takes a strip of finished rows.
int WriteStrip(VipsRegion* region, VipsRect* area, void* data) {
  const auto& target = *static_cast<Target*>(data);
  for (int y = area->top; y < area->top + area->height; ++y) {
    WriteRow(target, area->left, target.top + y, VIPS_REGION_ADDR(region, area->left, y),
             area->width, region->im->Bands);
  }
  return 0;
}

/// Writes plain rows into the target. Gives how many came.
int ReadPlainRows(VipsImage* image, const Target& target) {
  RowReader reader(image);
  const int height = vips_image_get_height(image);
  const int width = vips_image_get_width(image);
  for (int top = 0; top < height; top += RowReader::kStrip) {
    const int rows = std::min(RowReader::kStrip, height - top);
    if (!reader.Read(top, rows)) return top;
    for (int y = top; y < top + rows; ++y) {
      WriteRow(target, 0, y, reader.Row(y), width, vips_image_get_bands(image));
    }
  }
  return height;
}

/// An image over rows that were read, which may be worked on by all cores.
Image OverRows(VipsImage* like, const std::vector<VipsPel>& memory, int rows) {
  const Image raw(vips_image_new_from_memory(
      memory.data(), VIPS_IMAGE_SIZEOF_LINE(like) * static_cast<std::size_t>(rows),
      vips_image_get_width(like), rows, vips_image_get_bands(like), vips_image_get_format(like)));
  VipsImage* tagged = nullptr;
  if (!raw || vips_copy(raw.get(), &tagged, "interpretation", vips_image_guess_interpretation(like),
                        "coding", vips_image_get_coding(like), nullptr) != 0) {
    return nullptr;
  }
  if (const std::string icc = ProfileOf(like); !icc.empty()) {
    vips_image_set_blob_copy(tagged, VIPS_META_ICC_NAME, icc.data(), icc.size());
  }
  return Image(tagged);
}

/// Reads rows and converts them on all cores, a part of the image at a time, so that no second copy
/// of it is needed. Gives how many rows came.
int ReadOtherRows(VipsImage* image, Target target) {
  constexpr std::size_t kPart = std::size_t{32} << 20U;
  RowReader reader(image);
  const int height = vips_image_get_height(image);
  const std::size_t line = VIPS_IMAGE_SIZEOF_LINE(image);
  const int part = std::clamp(static_cast<int>(kPart / std::max<std::size_t>(line, 1)) /
                                  RowReader::kStrip * RowReader::kStrip,
                              RowReader::kStrip, std::max(height, RowReader::kStrip));
  std::vector<VipsPel> memory(line * static_cast<std::size_t>(part));
  for (int top = 0; top < height; top += part) {
    int rows = 0;
    const int wanted = std::min(part, height - top);
    while (rows < wanted) {
      const int strip = std::min(RowReader::kStrip, wanted - rows);
      if (!reader.Read(top + rows, strip)) break;
      for (int y = 0; y < strip; ++y, ++rows) {
        std::memcpy(memory.data() + line * static_cast<std::size_t>(rows), reader.Row(top + rows),
                    line);
      }
    }
    if (rows == 0) return top;
    Image converted = OverRows(image, memory, rows);
    if (converted) converted = ToSRGB(std::move(converted));
    target.top = top;
    if (!converted || vips_sink_disc(converted.get(), WriteStrip, &target) != 0) return top;
    if (rows < wanted) return top + rows;
  }
  return height;
}

/// A picture, and how many rows of it were read.
struct Rendered {
  Picture picture;
  int rows = 0;
  bool Whole() const { return rows == picture.Height(); }
};

/// Why a picture is not all there.
const LocalizedText& ReasonOf(const FolderItem& file) {
  return EndsEarly(file) ? codecTexts::kEndsEarly : codecTexts::kBadData;
}

/// `bands` is their number after the conversion.
Expected<Rendered> Render(const FolderItem& file, VipsImage* image, bool plain, int bands) {
  using Result = Expected<Rendered>;
  Expected<Picture> picture =
      Allocate(file, vips_image_get_width(image), vips_image_get_height(image));
  if (!picture) return Result::Failure(picture.error);
  Target target{picture->Edit(), {}, 0};
  Plane mask;
  if (bands == 2 || bands == 4) {
    mask = Plane::Uninitialized(picture->Width(), picture->Height());
    if (mask.IsNil()) return Result::Failure(CodecMessage(codecTexts::kNoMemory, file));
    target.mask = mask.Edit();
  }
  const int rows = plain ? ReadPlainRows(image, target) : ReadOtherRows(image, target);
  if (rows == 0 || DecodeCancellation::Requested()) {
    vips_error_clear();
    return Result::Failure(CodecMessage(codecTexts::kDamaged, file, ReasonOf(file).Text()));
  }
  vips_error_clear();
  PaintMissing(*picture, rows);
  for (int y = rows; y < mask.Height(); ++y) {
    std::fill_n(target.mask.Row(y), mask.Width(), std::uint8_t{0});
  }
  if (!mask.IsNil()) picture->SetMask(std::move(mask));
  return {Rendered{std::move(*picture), rows}, {}};
}

/// A decoded picture, and how many rows from the top are surely as they were stored.
struct Attempted {
  Expected<DecodedImage> image;
  int rows = 0;
};

/// The library's own words are not for the user: lines of several loaders, which add up.
template <class T>
Expected<T> Failure(const FolderItem& file) {
  vips_error_clear();
  return Expected<T>::Failure(CodecMessage(codecTexts::kDamaged, file, ReasonOf(file).Text()));
}

/// Decodes what was opened, with the properties that its header tells. `tolerant` if the loader
/// passes over what is wrong, `cut` if the end is known to be missing.
Attempted DecodeImage(const FolderItem& file, VipsImage* image, ImageProperties properties,
                      bool tolerant, bool cut) {
  // Before the pipeline is built: a lying header must not cost memory.
  if (std::int64_t{properties.Width} * properties.Height > Picture::kMostPixels) {
    return {
        Expected<DecodedImage>::Failure(Allocate(file, properties.Width, properties.Height).error)};
  }
  const bool plain = IsPlain(image);
  int bands = vips_image_get_bands(image);
  if (!plain) {
    g_object_ref(image);
    const Image converted = ToSRGB(Image(image));
    if (!converted) return {Failure<DecodedImage>(file)};
    bands = vips_image_get_bands(converted.get());
  }
  Expected<Rendered> done = Render(file, image, plain, bands);
  if (!done) return {Expected<DecodedImage>::Failure(done.error)};
  const bool whole = done->Whole() && !tolerant && !cut;
  // A loader that passes over errors does not tell how far it came.
  const int rows = tolerant ? 0 : done->rows;
  done->picture.HorizontalResolution = properties.HorizontalResolution;
  done->picture.VerticalResolution = properties.VerticalResolution;
  DecodedImage decoded{std::move(done->picture), std::move(properties), {}};
  if (whole) return {{std::move(decoded), {}}, rows};
  return {ReadInPart(file, std::move(decoded),
                     (cut ? codecTexts::kEndsEarly : codecTexts::kBadData).Text(), rows),
          cut ? 0 : rows};
}

/// Puts the first rows of `first` over those of `more`, which knows less of colours.
void KeepRows(const Picture& first, int rows, Picture& more) {
  if (rows <= 0 || first.Width() != more.Width() || first.Height() != more.Height()) return;
  const Pixels to = more.Edit();
  for (int y = 0; y < rows; ++y) {
    std::copy_n(first.View().Row(y), std::ptrdiff_t{4} * to.width, to.Row(y));
  }
  if (first.Mask() == nullptr || more.Mask() == nullptr) return;
  Plane mask = *more.Mask();
  const Grey opacity = mask.Edit();
  for (int y = 0; y < rows; ++y) {
    std::copy_n(first.Mask()->View().Row(y), opacity.width, opacity.Row(y));
  }
  more.SetMask(std::move(mask));
}

class VipsSource final : public ImageSource {
 public:
  /// `tolerant` if the file can only be opened so; then it is damaged.
  VipsSource(FolderItem file, VipsImage* first, bool tolerant)
      : file_(std::move(file)),
        tolerant_(tolerant),
        width_(vips_image_get_width(first)),
        height_(vips_image_get_height(first)) {
    const char* loader = nullptr;
    if (vips_image_get_string(first, VIPS_META_LOADER, &loader) != 0) vips_error_clear();
    const std::string_view name = loader == nullptr ? "" : loader;
    for (const LoaderType& known : kLoaderTypes) {
      if (name.starts_with(known.loader)) type_ = known.type;
    }
    others_ = name.starts_with("magickload");
    text_ = name.starts_with("ppmload");
    if (type_.empty() && IsSgi(file_)) type_ = "com.sgi.sgi-image";
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
    const Image image = Load(path, index, tolerant_);
    if (!image) return Failure<ImageProperties>(file_);
    return {PropertiesOf(image.get()), {}};
  }

  Expected<DecodedImage> Decode(int index) const override {
    Attempted first = Attempt(index, tolerant_);
    Expected<DecodedImage>& image = first.image;
    if (DecodeCancellation::Requested() || (image && !image->Damage)) return std::move(image);
    // The loader ends at what is wrong; others go on behind it.
    Expected<DecodedImage> more;
    if (type_ == "public.png") {
      more = RescuePng(file_);
    } else if (type_ != "public.jpeg") {
      more = Rescue(file_, index);
    }
    if (!more && !tolerant_ && (type_ == "public.jpeg" || type_ == "com.compuserve.gif")) {
      more = Attempt(index, true).image;
    }
    if (!more) return std::move(image);
    if (image) KeepRows(image->Pixels, first.rows, more->Pixels);
    return more;
  }

  Expected<DecodedImage> Small(int longest) const override {
    // Most formats are read whole, however small the result.
    if (std::int64_t{width_} * height_ > Picture::kMostPixels) {
      return Expected<DecodedImage>::Failure(Allocate(file_, width_, height_).error);
    }
    const PlainPath path(file_);
    VipsImage* small = nullptr;
    // Turned by us: the library would ask for all pixels at once, on many threads.
    if (!tolerant_ && !CutShort() && type_ != kWebP &&
        vips_thumbnail(path.Get(), &small, longest, "height", longest, "size", VIPS_SIZE_DOWN,
                       "export_profile", "srgb", "no_rotate", TRUE, "fail_on", VIPS_FAIL_ON_ERROR,
                       nullptr) == 0) {
      ImageProperties properties = PropertiesOf(small);
      if (const Image image = ToSRGB(Image(small))) {
        auto done = Render(file_, image.get(), true, vips_image_get_bands(image.get()));
        if (done && done->Whole()) {
          return {SmallOf({std::move(done->picture), std::move(properties)}, longest), {}};
        }
      }
    }
    vips_error_clear();
    Expected<DecodedImage> image = Decode(0);
    if (!image) return image;
    return {SmallOf(std::move(*image), longest), {}};
  }

 private:
  /// True for an end that the library's own decoder passes over.
  bool CutShort() const { return (others_ && EndsEarly(file_)) || (text_ && TextEndsEarly(file_)); }

  Attempted Attempt(int index, bool tolerant) const {
    const PlainPath path(file_);
    const Image image = Load(path, index, tolerant);
    if (!image) return {Failure<DecodedImage>(file_)};
    const ImageProperties properties = PropertiesOf(image.get());
    if (type_ != kWebP ||
        std::int64_t{properties.Width} * properties.Height > Picture::kMostPixels) {
      return DecodeImage(file_, image.get(), properties, tolerant, CutShort());
    }
    // The library's own reading of a spoilt one ends now with an error and now without.
    const int bands = vips_image_get_bands(image.get());
    const std::vector<VipsPel> pixels =
        WebPPixels(file_, index, properties.Width, properties.Height, bands);
    const Image whole = pixels.empty() ? nullptr : OverRows(image.get(), pixels, properties.Height);
    if (!whole) return {Failure<DecodedImage>(file_)};
    return DecodeImage(file_, whole.get(), properties, false, false);
  }

  FolderItem file_;
  bool tolerant_;
  std::string type_;
  /// Loaders that may leave what is missing black, and say nothing.
  bool others_ = false;
  bool text_ = false;
  int width_;
  int height_;
  int count_ = 1;
};

}  // namespace

void ConvertInks(Picture& picture, const std::vector<bool>& rows, const std::string& icc) {
  constexpr int kMostRows = 256;
  constexpr int kInks = 4;
  if (!StartVips()) return;
  Target target{picture.Edit(), {}, 0};
  const Pixels& pixels = target.pixels;
  const auto line = static_cast<std::size_t>(pixels.width) * kInks;
  std::vector<VipsPel> memory;
  for (int y = 0; y < pixels.height;) {
    int count = 0;
    memory.clear();
    while (count < kMostRows && y + count < pixels.height &&
           rows[static_cast<std::size_t>(y) + static_cast<std::size_t>(count)]) {
      const std::uint8_t* row = pixels.Row(y + count);
      memory.insert(memory.end(), row, row + line);
      ++count;
    }
    if (count > 0) {
      const Image raw(vips_image_new_from_memory(memory.data(), memory.size(), pixels.width, count,
                                                 kInks, VIPS_FORMAT_UCHAR));
      VipsImage* inks = nullptr;
      if (raw &&
          vips_copy(raw.get(), &inks, "interpretation", VIPS_INTERPRETATION_CMYK, nullptr) == 0) {
        if (!icc.empty()) {
          vips_image_set_blob_copy(inks, VIPS_META_ICC_NAME, icc.data(), icc.size());
        }
        target.top = y;
        const Image converted = ToSRGB(Image(inks));
        if (converted) (void)vips_sink_disc(converted.get(), WriteStrip, &target);
      }
    }
    // Behind them comes one that is not there, or the next part.
    y += std::max(1, count);
  }
  vips_error_clear();
}

std::unique_ptr<ImageSource> OpenWithVips(const FolderItem& file) {
  if (!StartVips()) return nullptr;
  const PlainPath path(file);
  bool tolerant = false;
  Image image = Load(path, 0, tolerant);
  if (!image) {
    // Some loaders look through the whole file before they begin.
    tolerant = true;
    image = Load(path, 0, tolerant);
  }
  vips_error_clear();
  return image ? std::make_unique<VipsSource>(file, image.get(), tolerant) : nullptr;
}

Picture DecodeWithVips(std::string_view bytes, int longest) {
  if (!StartVips()) return {};
  const Image image(vips_image_new_from_buffer(bytes.data(), bytes.size(), "", "fail_on",
                                               VIPS_FAIL_ON_ERROR, nullptr));
  if (image &&
      std::max(vips_image_get_width(image.get()), vips_image_get_height(image.get())) <= longest &&
      std::int64_t{vips_image_get_width(image.get())} * vips_image_get_height(image.get()) <=
          Picture::kMostPixels) {
    g_object_ref(image.get());
    if (const Image converted = ToSRGB(Image(image.get()))) {
      auto done = Render({}, converted.get(), true, vips_image_get_bands(converted.get()));
      if (done && done->Whole()) return std::move(done->picture);
    }
  }
  vips_error_clear();
  return {};
}

Expected<DecodedImage> DecodeWithVips(const FolderItem& file, std::string_view bytes) {
  if (!StartVips()) return {};
  // From a buffer the library takes another decoder than from a file.
  const std::unique_ptr<::VipsSource, UnrefVips> source(
      vips_source_new_from_memory(bytes.data(), bytes.size()));
  if (!source) return Failure<DecodedImage>(file);
  const Image image(vips_image_new_from_source(source.get(), "", "access", VIPS_ACCESS_SEQUENTIAL,
                                               "fail_on", VIPS_FAIL_ON_ERROR, nullptr));
  if (!image) return Failure<DecodedImage>(file);
  return DecodeImage(file, image.get(), PropertiesOf(image.get()), false, false).image;
}

}  // namespace brivolant::codecs
