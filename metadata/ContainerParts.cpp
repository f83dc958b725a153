// SPDX-License-Identifier: MIT
#include "metadata/ContainerParts.h"

#include <zlib.h>

#include <algorithm>

#include "metadata/BigEndian.h"
#include "metadata/ImageMetaData.h"
#include "platform/codecs/EmbeddedData.h"

namespace brivolant {
namespace {

constexpr std::string_view kPngMark("\x89PNG\r\n\x1A\n", 8);
constexpr std::string_view kJpeg2000Mark("\0\0\0\x0CjP  \r\n\x87\n", 12);
constexpr std::string_view kXmpKeyword("XML:com.adobe.xmp\0", 18);
/// A chunk's length has 31 bits.
constexpr std::uint64_t kMostChunk = 0x7FFFFFFF;
/// Length, type and sum of a chunk.
constexpr std::uint64_t kChunkFrame = 12;

std::string Chunk(const std::string& type, const std::string& data) {
  const std::string summed = type + data;
  const auto sum =
      crc32(0, reinterpret_cast<const Bytef*>(summed.data()), static_cast<uInt>(summed.size()));
  return BigEndian(data.size(), 4) + summed + BigEndian(sum, 4);
}

std::string Box(std::string_view identifier, const std::string& data) {
  return BigEndian(8 + identifier.size() + data.size(), 4) + "uuid" + std::string(identifier) +
         data;
}

}  // namespace

ContainerParts::ContainerParts(MetadataStream& stream) : MetadataParts(stream) {
  stream.Position(0);
  const std::string mark = stream.Read(kJpeg2000Mark.size());
  png_ = mark.starts_with(kPngMark);
  if (png_) ReadPng();
  if (mark == kJpeg2000Mark) ReadJpeg2000();
}

void ContainerParts::Keep(Run::Kind kind, std::uint64_t at, std::uint64_t end) {
  if (!before_.empty() && before_.back().Is == kind) {
    before_.back().End = end;
  } else {
    before_.push_back({kind, at, end});
  }
}

void ContainerParts::ReadPng() {
  Keep(Run::Kind::kOther, 0, kPngMark.size());
  stream_.Position(kPngMark.size());
  while (stream_.Remaining() >= kChunkFrame) {
    const std::uint64_t at = stream_.Position();
    const std::uint64_t length = stream_.ReadUInt32();
    const std::string type = stream_.Read(4);
    if (length + 4 > stream_.Remaining()) return;
    if (type == "IDAT") {
      behind_.push_back({Run::Kind::kOther, at, stream_.Length()});
      good_ = true;
      return;
    }
    const std::uint64_t data = stream_.Position();
    const std::string head = stream_.Read(std::min<std::uint64_t>(length, kXmpKeyword.size()));
    constexpr std::size_t kResolution = 9;
    if (type == "pHYs" && length == kResolution && head.back() == 1) {
      stream_.Position(data);
      perMetre_ = {stream_.ReadUInt32(), stream_.ReadUInt32()};
    }
    const std::uint64_t end = at + length + kChunkFrame;
    Keep(type == "eXIf"                          ? Run::Kind::kExif
         : type == "iTXt" && head == kXmpKeyword ? Run::Kind::kXmp
                                                 : Run::Kind::kOther,
         at, end);
    stream_.Position(end);
  }
}

void ContainerParts::ReadJpeg2000() {
  constexpr std::size_t kIdentifier = 16;
  stream_.Position(0);
  while (stream_.Remaining() >= 8) {
    const std::uint64_t at = stream_.Position();
    const std::uint64_t length = stream_.ReadUInt32();
    const std::string type = stream_.Read(4);
    // Of the longest, and of a last one without a length, no copy of ours is made.
    if (length < 8 || at + length > stream_.Length()) return;
    const std::string head = stream_.Read(std::min<std::uint64_t>(length - 8, kIdentifier));
    Keep(type != "uuid"          ? Run::Kind::kOther
         : head == kJpeg2000Exif ? Run::Kind::kExif
         : head == kJpeg2000XMP  ? Run::Kind::kXmp
                                 : Run::Kind::kOther,
         at, at + length);
    good_ = good_ || type == "jp2c";
    stream_.Position(at + length);
  }
  good_ = good_ && stream_.EndOfFile();
}

bool ContainerParts::Take(CarriedData data) {
  // One says what the other says.
  if (data.Tiff && !perMetre_.empty()) {
    constexpr std::uint32_t kInches = 10000;
    constexpr std::uint32_t kPerMetre = 254;
    constexpr std::uint32_t kMost = 0xFFFFFFFF / kPerMetre;
    const bool little = data.Tiff->LittleEndian();
    const auto set = [&](int tag, int type, const TagValue& value) {
      return data.Tiff->Set(DirectoryEditor::kFirst, tag, type,
                            DirectoryEditor::Encoded(type, {value}, little));
    };
    int tag = 0x011A;
    for (const std::uint32_t dots : perMetre_) {
      const Rational inch{static_cast<double>(std::min(dots, kMost) * kPerMetre), kInches};
      if (!set(tag++, kRationalType, TagValue(inch))) return false;
    }
    if (!set(0x0128, kShortType, TagValue(std::uint32_t{2}))) return false;
  }
  if (!data.IPTC.empty()) {
    IPTCDataObject records;
    records.ReadRawData(data.IPTC);
    data.XMP = WithRecords(data.XMP, records);
  }
  data.IPTC.clear();
  return TakeStructure(std::move(data.Tiff)) && TakeTexts(data);
}

std::optional<FilePlan> ContainerParts::Plan() {
  FilePlan plan;
  for (const Run& run : before_) {
    const bool replaced =
        (run.Is == Run::Kind::kExif && tiff_) || (run.Is == Run::Kind::kXmp && !xmp_.empty());
    if (!replaced) plan.Take(run.At, run.End - run.At);
  }
  const std::string structure = tiff_ ? Structure({}) : std::string();
  if (structure.size() > kMostChunk || xmp_.size() + kXmpKeyword.size() + 4 > kMostChunk) return {};
  if (!structure.empty()) {
    plan.Take(png_ ? Chunk("eXIf", structure) : Box(kJpeg2000Exif, structure));
  }
  if (!xmp_.empty()) {
    // Not compressed, in no language.
    plan.Take(png_ ? Chunk("iTXt", std::string(kXmpKeyword) + std::string(4, '\0') + xmp_)
                   : Box(kJpeg2000XMP, xmp_));
  }
  for (const Run& run : behind_) plan.Take(run.At, run.End - run.At);
  return plan;
}

}  // namespace brivolant
