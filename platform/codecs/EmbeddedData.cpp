// SPDX-License-Identifier: MIT
#include "platform/codecs/EmbeddedData.h"

#include <libraw/libraw.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "platform/codecs/CodecDetail.h"
#include "platform/codecs/VipsSupport.h"
#include "platform/files/BinaryStream.h"

namespace brivolant {
namespace {

/// More than any picture's data, less than hurts.
constexpr std::size_t kMost = std::size_t{1} << 26;

/// Formats with a head of their own; whatever else the library reads is none of ours.
std::string FormatOf(std::string_view head) {
  if (head.empty()) return {};
  const auto brand = [&](std::string_view name) {
    return head.substr(4, 4) == "ftyp" && head.find(name) != std::string_view::npos;
  };
  if (head.starts_with("\x89PNG\r\n\x1A\n")) return "PNG";
  if (head.starts_with("GIF8")) return "GIF";
  if (head.starts_with("RIFF") && head.substr(8, 4) == "WEBP") return "WebP";
  if (head.starts_with(std::string_view("\0\0\0\x0CjP  ", 8))) return "JPEG 2000";
  if (head.starts_with("\xFF\x4F\xFF\x51")) return "JPEG 2000";
  if (head.starts_with(std::string_view("\0\0\0\x0CJXL ", 8)) || head.starts_with("\xFF\x0A")) {
    return "JPEG XL";
  }
  if (brand("avif") || brand("avis")) return "AVIF";
  if (brand("heic") || brand("heix") || brand("mif1") || brand("msf1")) return "HEIC";
  return {};
}

std::string HeadOf(const FolderItem& file) {
  constexpr std::size_t kHead = 64;
  std::array<char, kHead> head{};
  std::FILE* opened = std::fopen(file.Path().c_str(), "rbe");
  if (opened == nullptr) return {};
  const std::size_t read = std::fread(head.data(), 1, head.size(), opened);
  (void)std::fclose(opened);
  if (read == 0) return {};
  // Of a short file zeros stand for what is not there.
  return {head.data(), head.size()};
}

std::string Blob(VipsImage* image, const char* name) {
  const void* data = nullptr;
  std::size_t size = 0;
  if (vips_image_get_typeof(image, name) == 0 ||
      vips_image_get_blob(image, name, &data, &size) != 0 || size > kMost) {
    return {};
  }
  return {static_cast<const char*>(data), size};
}

/// The library leaves the boxes of a JPEG 2000 file aside.
void ReadBoxes(const FolderItem& file, EmbeddedData& data) {
  constexpr std::uint64_t kHead = 8;
  constexpr std::size_t kIdentifier = 16;
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> opened(
      std::fopen(file.Path().c_str(), "rbe"), std::fclose);
  if (!opened) return;
  const auto read = [&](std::size_t count) {
    std::string bytes(count, '\0');
    bytes.resize(std::fread(bytes.data(), 1, count, opened.get()));
    return bytes;
  };
  const std::uint64_t size = file.Length();
  std::uint64_t at = 0;
  // No file of a camera or of a program has more.
  for (int count = 0; count < 1000 && at + kHead <= size; ++count) {
    if (fseeko(opened.get(), static_cast<off_t>(at), SEEK_SET) != 0) return;
    const std::string head = read(kHead);
    if (head.size() < kHead) return;
    std::uint64_t length = BinaryStream(head).ReadUInt32();
    std::uint64_t behind = kHead;
    if (length == 1) {
      const std::string longer = read(kHead);
      length = BinaryStream(longer).ReadUInt64();
      behind += kHead;
    }
    // The last one may have none.
    if (length == 0) length = size - at;
    if (length < behind || length > size - at) return;
    if (head.ends_with("uuid") && length >= behind + kIdentifier && length <= kMost) {
      const std::string identifier = read(kIdentifier);
      const std::size_t rest = length - behind - kIdentifier;
      if (identifier == kJpeg2000Exif && data.Exif.empty()) data.Exif = read(rest);
      if (identifier == kJpeg2000XMP && data.XMP.empty()) data.XMP = read(rest);
    }
    at += length;
  }
}

std::shared_ptr<const EmbeddedData> ReadRaw(const FolderItem& file) {
  const auto raw = std::make_unique<LibRaw>();
  if (raw->open_file(file.Path().c_str()) != LIBRAW_SUCCESS) return nullptr;
  auto data = std::make_shared<EmbeddedData>();
  data->Format = std::string("Raw, ") + raw->imgdata.idata.make;
  data->Width = raw->imgdata.sizes.width;
  data->Height = raw->imgdata.sizes.height;
  if (raw->unpack_thumb() == LIBRAW_SUCCESS &&
      raw->imgdata.thumbnail.tformat == LIBRAW_THUMBNAIL_JPEG &&
      raw->imgdata.thumbnail.tlength <= kMost) {
    data->Preview.assign(raw->imgdata.thumbnail.thumb, raw->imgdata.thumbnail.tlength);
  }
  return data;
}

}  // namespace

std::shared_ptr<const EmbeddedData> ReadEmbeddedData(const FolderItem& file) {
  if (codecs::HasRawExtension(file)) {
    if (auto raw = ReadRaw(file)) return raw;
  }
  const std::string format = FormatOf(HeadOf(file));
  if (format.empty() || !codecs::StartVips()) return nullptr;
  const codecs::PlainPath path(file);
  const codecs::VipsPicture image(
      vips_image_new_from_file(path.Get(), "access", VIPS_ACCESS_SEQUENTIAL, nullptr));
  if (!image) {
    (void)codecs::TakeVipsError();
    return nullptr;
  }
  auto data = std::make_shared<EmbeddedData>();
  data->Format = format;
  data->Width = vips_image_get_width(image.get());
  data->Height = vips_image_get_page_height(image.get());
  data->BitsPerComponent =
      8 * static_cast<int>(vips_format_sizeof(vips_image_get_format(image.get())));
  const VipsInterpretation space = vips_image_guess_interpretation(image.get());
  data->Channels = space == VIPS_INTERPRETATION_CMYK                                         ? 4
                   : space == VIPS_INTERPRETATION_B_W || space == VIPS_INTERPRETATION_GREY16 ? 1
                                                                                             : 3;
  data->Exif = Blob(image.get(), VIPS_META_EXIF_NAME);
  if (format == "JPEG 2000") ReadBoxes(file, *data);
  constexpr std::string_view kExifMark("Exif\0\0", 6);
  if (data->Exif.starts_with(kExifMark)) data->Exif.erase(0, kExifMark.size());
  if (data->XMP.empty()) data->XMP = Blob(image.get(), VIPS_META_XMP_NAME);
  data->IPTC = Blob(image.get(), VIPS_META_IPTC_NAME);
  data->Profile = Blob(image.get(), VIPS_META_ICC_NAME);
  return data;
}

}  // namespace brivolant
