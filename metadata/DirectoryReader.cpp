// SPDX-License-Identifier: MIT
// TIFF structures: the walk through directories and what they link to.
#include <bit>
#include <limits>

#include "metadata/ImageMetaData.h"
#include "metadata/MetadataStream.h"

namespace brivolant {
namespace {

constexpr std::uint64_t kEntry = 12;
/// No photo has more directories; each is read once all the same.
constexpr std::size_t kMostDirectories = 64;

std::vector<TagValue> Values(int type, std::string bytes, bool littleEndian) {
  std::vector<TagValue> values;
  if (type == kByteType || type == kSByteType || type == kUndefinedType || type == kAsciiType) {
    if (type == kAsciiType && !bytes.empty() && bytes.back() == '\0') bytes.pop_back();
    values.emplace_back(std::move(bytes));
    return values;
  }
  const auto size = static_cast<std::size_t>(SizeOfType(type));
  values.reserve(bytes.size() / size);
  const auto number = [&](std::size_t at, std::size_t count) {
    std::uint64_t result = 0;
    for (std::size_t i = 0; i < count; ++i) {
      const std::uint64_t byte = static_cast<unsigned char>(bytes[at + i]);
      result |= byte << 8 * (littleEndian ? i : count - 1 - i);
    }
    return result;
  };
  for (std::size_t at = 0; at + size <= bytes.size(); at += size) {
    const std::uint64_t first = number(at, size == 8 && type != kDoubleType ? 4 : size);
    const auto whole = static_cast<std::uint32_t>(first);
    switch (type) {
      case kSShortType:
        values.emplace_back(static_cast<std::int32_t>(static_cast<std::int16_t>(whole)));
        break;
      case kSLongType:
        values.emplace_back(static_cast<std::int32_t>(whole));
        break;
      case kRationalType:
        values.emplace_back(Rational(whole, static_cast<std::uint32_t>(number(at + 4, 4)), false));
        break;
      case kSRationalType:
        values.emplace_back(Rational(
            static_cast<std::int32_t>(whole),
            static_cast<std::int32_t>(static_cast<std::uint32_t>(number(at + 4, 4))), true));
        break;
      case kFloatType:
        values.emplace_back(std::bit_cast<float>(whole));
        break;
      case kDoubleType:
        values.emplace_back(std::bit_cast<double>(first));
        break;
      default:
        values.emplace_back(whole);
        break;
    }
  }
  return values;
}

}  // namespace

bool ImageMetaData::ReadTIFF(MetadataStream& stream) {
  TIFFHeaderOffSet = stream.Position();
  const std::uint16_t order = stream.ReadUInt16();
  if (order != 0x4949 && order != 0x4D4D) {
    ErrorOccured(2, kNotUnderstood);
    return false;
  }
  LittleEndian = stream.LittleEndian = order == 0x4949;
  const std::uint16_t mark = stream.ReadUInt16();
  // TIFF's own, and those of two makers' raw files.
  constexpr std::uint16_t kTiff = 0x002A;
  constexpr std::uint16_t kPanasonic = 0x0055;
  constexpr std::uint16_t kOlympus = 0x4F52;
  constexpr std::uint16_t kOlympusOther = 0x5352;
  if (mark != kTiff && mark != kPanasonic && mark != kOlympus && mark != kOlympusOther) {
    ErrorOccured(2, kNotUnderstood);
    return false;
  }
  stream.Position(TIFFHeaderOffSet + stream.ReadUInt32());
  (void)ReadBlock(stream, kTiffBlock);
  stream.LittleEndian = false;
  return true;
}

TiffDataCoreClass& ImageMetaData::BlockOf(Block block) {
  const auto made = [this](auto& held) -> TiffDataCoreClass& {
    if (!held) held = std::make_unique<typename std::decay_t<decltype(held)>::element_type>();
    held->parent = this;
    return *held;
  };
  switch (block) {
    case kThumbnailBlock:
      if (!Thumbnail) Thumbnail = std::make_unique<ThumbnailHolder>();
      return made(Thumbnail->TIFFData);
    case kExifBlock:
      return made(ExifData);
    case kGpsBlock:
      return made(GPSData);
    case kInteropBlock:
      return made(Interoperability);
    case kSubBlock:
      return made(SubIFD);
    default:
      return made(TIFFData);
  }
}

bool ImageMetaData::ReadBlock(MetadataStream& stream, Block block) {
  if (visited_.size() >= kMostDirectories || !visited_.insert(stream.Position()).second) {
    AppendToStringResult("A directory leads back to one that was read.");
    return false;
  }
  const int count = stream.ReadUInt16();
  if (static_cast<std::uint64_t>(count) * kEntry > stream.Remaining()) {
    AppendToStringResult("A directory claims more tags than the file can hold.");
    return true;
  }
  const std::uint64_t end = stream.Position() + static_cast<std::uint64_t>(count) * kEntry;
  std::vector<std::pair<Block, std::uint64_t>> links;
  if (!ReadEntries(stream, block, count, BlockOf(block), links)) return true;
  stream.Position(end);
  if (block == kTiffBlock) {
    const std::uint64_t next = stream.ReadUInt32();
    if (next != 0) links.insert(links.begin(), {kThumbnailBlock, next});
  }
  for (const auto& [linked, offset] : links) {
    if (offset == 0 || TIFFHeaderOffSet + offset >= stream.Length()) continue;
    // A thumbnail may lead to data of its own; the picture's came first.
    if (BlockOf(linked).Count() > 0) continue;
    stream.Position(TIFFHeaderOffSet + offset);
    if (ReadBlock(stream, linked)) return true;
  }
  return false;
}

bool ImageMetaData::ReadEntries(MetadataStream& stream, Block block, int count,
                                TiffDataCoreClass& data,
                                std::vector<std::pair<Block, std::uint64_t>>& links) {
  for (int i = 0; i < count; ++i) {
    const std::uint64_t begin = stream.Position();
    const std::string tag = Hexadecimal(stream.ReadUInt16(), 4);
    const int type = stream.ReadUInt16();
    const std::uint64_t number = stream.ReadUInt32();
    const int size = SizeOfType(type);
    if (type == 0) {
      // Some cameras leave an entry empty.
      stream.Position(begin + kEntry);
      continue;
    }
    if (size == 0) {
      AppendToStringResult("Tag " + tag +
                           " has a type that no standard names: " + std::to_string(type) + ".");
      return false;
    }
    const std::uint64_t bytes = number * static_cast<std::uint64_t>(size);
    std::uint64_t at = stream.Position();
    if (bytes > 4) at = TIFFHeaderOffSet + stream.ReadUInt32();
    stream.Position(at);
    constexpr std::uint64_t kFree = std::uint64_t{1} << 20;
    if (at > stream.Length() || bytes > stream.Remaining()) {
      AppendToStringResult("Tag " + tag + " lies beyond the end of the file.");
    } else if (taken_ + bytes > 2 * stream.Length() + kFree) {
      AppendToStringResult("Tag " + tag + " is more than a file of this length can tell.");
    } else {
      taken_ += bytes;
      std::vector<TagValue> values = Values(type, stream.Read(bytes), stream.LittleEndian);
      if (!TakeLink(stream, block, tag, values, at, bytes, links)) {
        data.AddData(tag, type, std::move(values));
      }
    }
    stream.Position(begin + kEntry);
  }
  return true;
}

bool ImageMetaData::TakeLink(MetadataStream& stream, Block block, const std::string& tag,
                             const std::vector<TagValue>& values, std::uint64_t at,
                             std::uint64_t bytes,
                             std::vector<std::pair<Block, std::uint64_t>>& links) {
  const auto link = [&](Block to) {
    constexpr double kMost = 4294967295.0;
    const double place = values.empty() ? 0 : NumberOf(values.front());
    if (to == block || !(place > 0 && place <= kMost)) {
      AppendToStringResult("A directory leads to itself.");
    } else if (block != kThumbnailBlock) {
      // What a thumbnail leads to is not the picture's.
      links.emplace_back(to, static_cast<std::uint64_t>(place));
    }
    return true;
  };
  if (tag == "8769") return link(kExifBlock);
  if (tag == "8825") return link(kGpsBlock);
  if (tag == "A005") return link(kInteropBlock);
  if (tag == "014A") return link(kSubBlock);
  const auto raw = [&] {
    stream.Position(at);
    return stream.Read(bytes);
  };
  // Only the first directory's are the picture's own.
  if (block != kTiffBlock) return false;
  if (tag == "83BB") {
    TakeIPTC(raw());
    return true;
  }
  if (tag == "8649") {
    resources_ += raw();
    return true;
  }
  if (tag == "8773") {
    TakeProfile("In TIFF Header", raw());
    return true;
  }
  return false;
}

}  // namespace brivolant
