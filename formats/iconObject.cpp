// SPDX-License-Identifier: MIT
#include "formats/iconObject.h"

#include <algorithm>
#include <array>

#include "files/FolderitemExtensions.h"
#include "platform/codecs/ImageCodecs.h"
#include "platform/files/BinaryStream.h"

namespace brivolant {
namespace {

constexpr std::array kSizes{12, 16, 24, 32, 48, 128, 256, 512};
constexpr std::uint64_t kLongestFile = 64 << 20;
/// Pixels a side of a picture in an icon: twice the largest size, for dense screens.
constexpr int kLargestSide = 1024;

struct EntryType {
  std::string_view type;
  int size;
  int depth;
  int record;
};
constexpr std::array<EntryType, 14> kEntryTypes{{
    {"s8mk", 16, 8, iconObject::kMask},
    {"is32", 16, 32, iconObject::kColorData},
    {"l8mk", 32, 8, iconObject::kMask},
    {"il32", 32, 32, iconObject::kColorData},
    {"h8mk", 48, 8, iconObject::kMask},
    {"ih32", 48, 32, iconObject::kColorData},
    {"t8mk", 128, 8, iconObject::kMask},
    {"it32", 128, 32, iconObject::kColorData},
    {"ic04", 16, 32, iconObject::kWholeImage},
    {"ic05", 32, 32, iconObject::kWholeImage},
    {"ic06", 48, 32, iconObject::kWholeImage},
    {"ic07", 128, 32, iconObject::kWholeImage},
    {"ic08", 256, 32, iconObject::kWholeImage},
    {"ic09", 512, 32, iconObject::kWholeImage},
}};

bool WholeFile(std::string_view data) {
  return data.starts_with("\x89PNG") || data.starts_with(std::string_view("\0\0\0\x0CjP", 6));
}

/// Four bytes a pixel: alpha, red, green, blue.
void ReadRaw(Picture& picture, std::string_view data) {
  Plane& mask = *picture.Mask(true);
  const Pixels pixels = picture.Edit();
  const Grey alpha = mask.Edit();
  std::size_t at = 0;
  for (int y = 0; y < pixels.height; ++y) {
    for (int x = 0; x < pixels.width; ++x, at += 4) {
      std::uint8_t* to = pixels.Row(y) + std::ptrdiff_t{4} * x;
      alpha.Row(y)[x] = static_cast<std::uint8_t>(255 - static_cast<std::uint8_t>(data[at]));
      to[2] = static_cast<std::uint8_t>(data[at + 1]);
      to[1] = static_cast<std::uint8_t>(data[at + 2]);
      to[0] = static_cast<std::uint8_t>(data[at + 3]);
    }
  }
}

/// Three planes one after the other, red first. A control byte with its highest bit repeats the
/// next byte (less 125) times; otherwise that many and one more literal bytes follow.
void ReadRuns(Picture& picture, std::string_view data) {
  if (data.starts_with(std::string_view("\0\0\0\0", 4))) data.remove_prefix(4);
  const Pixels pixels = picture.Edit();
  const int total = pixels.width * pixels.height;
  std::size_t at = 0;
  for (int plane = 2; plane >= 0; --plane) {
    int done = 0;
    const auto put = [&](char value) {
      if (done >= total) return;
      pixels.Row(done / pixels.width)[4 * (done % pixels.width) + plane] =
          static_cast<std::uint8_t>(value);
      ++done;
    };
    while (done < total && at < data.size()) {
      const auto control = static_cast<std::uint8_t>(data[at++]);
      if (control >= 128) {
        if (at >= data.size()) break;
        const char value = data[at++];
        for (int i = 0; i < control - 125; ++i) put(value);
      } else {
        for (int i = 0; i <= control && at < data.size(); ++i) put(data[at++]);
      }
    }
  }
}

void ReadMask(Picture& picture, std::string_view data) {
  const Grey mask = picture.Mask(true)->Edit();
  std::size_t at = 0;
  for (int y = 0; y < mask.height; ++y) {
    for (int x = 0; x < mask.width && at < data.size(); ++x, ++at) {
      mask.Row(y)[x] = static_cast<std::uint8_t>(255 - static_cast<std::uint8_t>(data[at]));
    }
  }
}

/// A bitmap of an ".ico" file: a header of 40 bytes, a palette, the colours from the bottom row
/// up, and a mask of one bit a pixel, each row in whole words.
struct Bitmap {
  int width = 0;
  int height = 0;
  int bits = 0;
  std::vector<Color> palette;
  std::string_view colors;
  std::string_view mask;
};

std::size_t RowBytes(int width, int bits) {
  return (static_cast<std::size_t>(width) * static_cast<std::size_t>(bits) + 31) / 32 * 4;
}

std::optional<Bitmap> ParseBitmap(std::string_view bytes) {
  BinaryStream stream(bytes);
  stream.LittleEndian = true;
  constexpr std::uint32_t kHeader = 40;
  constexpr int kLargest = 256;
  if (stream.ReadUInt32() != kHeader) return std::nullopt;
  Bitmap bitmap;
  const std::uint32_t width = stream.ReadUInt32();
  // The height counts colours and mask.
  const std::uint32_t height = stream.ReadUInt32() / 2;
  (void)stream.ReadUInt16();
  bitmap.bits = stream.ReadUInt16();
  (void)stream.Read(16);
  std::uint32_t used = stream.ReadUInt32();
  (void)stream.ReadUInt32();
  constexpr std::array kDepths{1, 4, 8, 24, 32};
  if (stream.Failed() || width == 0 || height == 0 || width > kLargest || height > kLargest ||
      std::find(kDepths.begin(), kDepths.end(), bitmap.bits) == kDepths.end()) {
    return std::nullopt;
  }
  bitmap.width = static_cast<int>(width);
  bitmap.height = static_cast<int>(height);
  if (bitmap.bits <= 8) {
    const std::uint32_t most = 1U << static_cast<unsigned>(bitmap.bits);
    used = used == 0 || used > most ? most : used;
    for (std::uint32_t i = 0; i < used; ++i) {
      const std::uint8_t blue = stream.ReadUInt8();
      const std::uint8_t green = stream.ReadUInt8();
      const std::uint8_t red = stream.ReadUInt8();
      (void)stream.ReadUInt8();
      bitmap.palette.push_back({red, green, blue});
    }
  }
  const auto rows = static_cast<std::size_t>(bitmap.height);
  bitmap.colors = stream.Read(RowBytes(bitmap.width, bitmap.bits) * rows);
  if (stream.Failed()) return std::nullopt;
  bitmap.mask = stream.ReadUpTo(RowBytes(bitmap.width, 1) * rows);
  return bitmap;
}

Color ColorAt(const Bitmap& bitmap, int x, int row, std::uint8_t& alpha) {
  const std::string_view line =
      bitmap.colors.substr(static_cast<std::size_t>(row) * RowBytes(bitmap.width, bitmap.bits));
  const auto byte = [&](std::size_t at) { return static_cast<std::uint8_t>(line[at]); };
  const auto column = static_cast<std::size_t>(x);
  if (bitmap.bits >= 24) {
    const std::size_t at = column * static_cast<std::size_t>(bitmap.bits / 8);
    if (bitmap.bits == 32) alpha = byte(at + 3);
    return {byte(at + 2), byte(at + 1), byte(at)};
  }
  const auto bits = static_cast<unsigned>(bitmap.bits);
  const unsigned perByte = 8 / bits;
  const unsigned shift = (perByte - 1 - static_cast<unsigned>(column) % perByte) * bits;
  const unsigned index =
      static_cast<unsigned>(byte(column / perByte)) >> shift & ((1U << bits) - 1);
  return index < bitmap.palette.size() ? bitmap.palette[index] : Color{};
}

/// One bit a pixel, set where the icon is transparent.
bool read1BitICOMask(const Bitmap& bitmap, int x, int row) {
  const std::size_t at =
      static_cast<std::size_t>(row) * RowBytes(bitmap.width, 1) + static_cast<std::size_t>(x) / 8;
  if (at >= bitmap.mask.size()) return false;
  return (static_cast<std::uint8_t>(bitmap.mask[at]) >> (7 - x % 8) & 1) != 0;
}

Picture DecodeBitmap(std::string_view bytes) {
  const std::optional<Bitmap> bitmap = ParseBitmap(bytes);
  if (!bitmap) return {};
  Picture picture = NewPicture(bitmap->width, bitmap->height, 32);
  if (picture.IsNil()) return {};
  const Grey mask = picture.Mask(true)->Edit();
  const Pixels pixels = picture.Edit();
  bool anyAlpha = false;
  for (int y = 0; y < bitmap->height; ++y) {
    const int row = bitmap->height - 1 - y;
    for (int x = 0; x < bitmap->width; ++x) {
      std::uint8_t alpha = 255;
      const Color color = ColorAt(*bitmap, x, row, alpha);
      std::uint8_t* to = pixels.Row(y) + std::ptrdiff_t{4} * x;
      to[0] = color.Blue;
      to[1] = color.Green;
      to[2] = color.Red;
      anyAlpha = anyAlpha || alpha != 0;
      const bool clear = bitmap->bits < 32 && read1BitICOMask(*bitmap, x, row);
      mask.Row(y)[x] = clear ? 255 : static_cast<std::uint8_t>(255 - alpha);
    }
  }
  // Some writers leave the fourth byte at zero and mean the one-bit mask.
  for (int y = 0; !anyAlpha && y < bitmap->height; ++y) {
    for (int x = 0; x < bitmap->width; ++x) {
      mask.Row(y)[x] = read1BitICOMask(*bitmap, x, bitmap->height - 1 - y) ? 255 : 0;
    }
  }
  return picture;
}

}  // namespace

iconObject::iconObject(Log& log, const FolderItem& file) : log_(&log) {
  if (file) OpenAsIcon(file);
}

void iconObject::Fail(const std::string& message) {
  Error = true;
  ErrorMessage = message;
}

void iconObject::Reset() {
  DataStorage.clear();
}

void iconObject::OpenAsIcon(const FolderItem& file, std::string_view data) {
  std::optional<std::string> content;
  if (data.empty()) {
    content = ReadFile(file, kLongestFile);
    if (!content) return Fail(kUnableToOpen.Text());
    data = *content;
  }
  Reset();
  if (data.starts_with("icns")) {
    FileFormat = kICNS;
    BinaryStream stream(data);
    (void)stream.ReadUInt32();
    ReadICNS(stream);
  } else if (data.starts_with(std::string_view("\0\0\1\0", 4))) {
    FileFormat = kICO;
    processICO(data);
  } else {
    Fail(kUnknownFormat.Text());
  }
}

void iconObject::ReadICNS(BinaryStream& stream) {
  const std::size_t end = std::min<std::size_t>(stream.ReadUInt32(), stream.Length());
  while (stream.Position() < end && stream.Remaining() >= 8) {
    const std::size_t start = stream.Position();
    const std::string_view type = stream.Read(4);
    const std::uint32_t length = stream.ReadUInt32();
    if (length < 8) return;
    const std::string_view data = stream.ReadUpTo(length - 8);
    const auto* known = std::find_if(kEntryTypes.begin(), kEntryTypes.end(),
                                     [&](const EntryType& entry) { return entry.type == type; });
    if (known != kEntryTypes.end()) {
      StoreData(known->size, kICNS, known->depth, known->record, data);
    }
    if (length > stream.Length() - start) return;
    stream.Position(start + length);
  }
}

void iconObject::StoreData(int size, int format, int depth, int type, std::string_view data) {
  std::string record;
  record += static_cast<char>(format);
  record += static_cast<char>(depth);
  record += static_cast<char>(type);
  for (int shift = 24; shift >= 0; shift -= 8) {
    record += static_cast<char>(data.size() >> static_cast<unsigned>(shift));
  }
  record += data;
  const auto held = DataStorage.find(size);
  if (held == DataStorage.end()) {
    DataStorage[size] = std::move(record);
    return;
  }
  auto* block = std::get_if<std::string>(&held->second);
  const std::string head = "Error Adding " + std::to_string(size) + " of depth " +
                           std::to_string(depth) + " of type " + std::to_string(type);
  if (block != nullptr && block->empty()) {
    log_->Write(head + " because the memory space is empty.");
  } else if (block == nullptr || (*block)[2] == kWholeImage) {
    log_->Write(head + " because there is something in memory that shouldn't be!");
  } else {
    *block += record;
  }
}

void iconObject::StoreData(int size, const Picture& picture) {
  DataStorage[size] = picture;
}

Picture iconObject::RetrieveData(int size) {
  const auto held = DataStorage.find(size);
  if (held == DataStorage.end()) return {};
  if (const auto* records = std::get_if<std::string>(&held->second)) {
    const Picture picture = DecodeRecords(size, *records);
    held->second = picture;
  }
  return std::get<Picture>(held->second);
}

Picture iconObject::DecodeRecords(int size, std::string_view records) {
  Picture picture = NewPicture(size, size, 32);
  if (picture.IsNil()) return picture;
  BinaryStream stream(records);
  constexpr std::size_t kHead = 7;
  while (stream.Remaining() >= kHead) {
    (void)stream.ReadUInt8();
    (void)stream.ReadUInt8();
    const int type = stream.ReadUInt8();
    const std::string_view data = stream.ReadUpTo(stream.ReadUInt32());
    const std::size_t pixels = static_cast<std::size_t>(size) * static_cast<std::size_t>(size);
    if (type == kMask) {
      ReadMask(picture, data);
    } else if (WholeFile(data)) {
      const Picture decoded = DecodeImageBytes(data, kLargestSide);
      if (decoded.IsNil()) {
        Fail(kUnknownFormat.Text());
        log_->Write(ErrorMessage);
        return {};
      }
      picture = decoded;
    } else if (data.size() / pixels == 4) {
      ReadRaw(picture, data);
    } else {
      ReadRuns(picture, data);
    }
  }
  return picture;
}

void iconObject::processICO(std::string_view bytes) {
  BinaryStream stream(bytes);
  stream.LittleEndian = true;
  (void)stream.ReadUInt32();
  const int count = stream.ReadUInt16();
  for (int i = 0; i < count && !stream.Failed(); ++i) {
    (void)stream.Read(8);
    const std::uint32_t length = stream.ReadUInt32();
    const std::uint32_t offset = stream.ReadUInt32();
    if (stream.Failed() || offset >= bytes.size()) continue;
    const std::string_view data = bytes.substr(offset, length);
    const Picture picture =
        WholeFile(data) ? DecodeImageBytes(data, kLargestSide) : DecodeBitmap(data);
    if (picture.IsNil() || picture.Width() == 12 || picture.Width() == 512) continue;
    if (std::find(kSizes.begin(), kSizes.end(), picture.Width()) != kSizes.end()) {
      StoreData(picture.Width(), picture);
    }
  }
}

Picture iconObject::BestIcon(int size) {
  for (const int known : kSizes) {
    if (known < size) continue;
    Picture icon = RetrieveData(known);
    if (!icon.IsNil()) return icon;
  }
  for (auto known = kSizes.rbegin(); known != kSizes.rend(); ++known) {
    Picture icon = RetrieveData(*known);
    if (!icon.IsNil()) return icon;
  }
  return {};
}

Picture iconObject::AsPicture() {
  for (const int size : {512, 256, 128, 32, 24, 16}) {
    Picture icon = RetrieveData(size);
    if (!icon.IsNil()) return icon;
  }
  return {};
}

void iconObject::SetImageFromNames(const std::vector<std::string>& names, IconSource& icons) {
  Reset();
  for (const int size : {16, 24, 32, 48, 128, 256}) {
    const Picture icon = icons.Icon(names, size);
    if (!icon.IsNil()) StoreData(size, icon);
  }
}

void iconObject::SetImageFromFile(const FolderItem& file, IconSource& icons) {
  SetImageFromNames(FolderitemExtensions::IconNames(file), icons);
}

void iconObject::SetImageFromIcon(const std::string& type, IconSource& icons) {
  SetImageFromNames(FolderitemExtensions::IconNamesOfType(type), icons);
}

}  // namespace brivolant
