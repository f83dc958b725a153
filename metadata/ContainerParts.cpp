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

void ContainerParts::Keep(bool tells, std::uint64_t at, std::uint64_t end) {
  if (!runs_.empty() && runs_.size() != place_ && runs_.back().Tells == tells) {
    runs_.back().End = end;
  } else {
    runs_.push_back({tells, at, end});
  }
}

bool ContainerParts::Tells(const std::string& type, const std::string& head) {
  if (type == "eXIf") return true;
  if (type != "iTXt" && type != "zTXt" && type != "tEXt") return false;
  if (head.starts_with(kXmpKeyword)) return true;
  // As older programs put them into texts.
  constexpr std::string_view kRaw = "Raw profile type ";
  if (!head.starts_with(kRaw)) return false;
  const std::string_view profile = std::string_view(head).substr(kRaw.size());
  return profile.starts_with("exif") || profile.starts_with("APP1") || profile.starts_with("xmp");
}

void ContainerParts::ReadPng() {
  constexpr std::size_t kHead = 32;
  constexpr std::size_t kResolution = 9;
  Keep(false, 0, kPngMark.size());
  stream_.Position(kPngMark.size());
  while (stream_.Remaining() >= kChunkFrame) {
    const std::uint64_t at = stream_.Position();
    const std::uint64_t length = stream_.ReadUInt32();
    const std::string type = stream_.Read(4);
    if (length + 4 > stream_.Remaining()) {
      good_ = false;
      return;
    }
    if (type == "IDAT" && !good_) {
      good_ = true;
      place_ = runs_.size();
    }
    const std::uint64_t data = stream_.Position();
    const std::string head = stream_.Read(std::min<std::uint64_t>(length, kHead));
    if (type == "pHYs" && length == kResolution && head.back() == 1) {
      stream_.Position(data);
      perMetre_ = {stream_.ReadUInt32(), stream_.ReadUInt32()};
    }
    const std::uint64_t end = at + length + kChunkFrame;
    Keep(Tells(type, head), at, end);
    stream_.Position(end);
  }
  // Whatever stands behind the last chunk stays.
  if (stream_.Remaining() > 0) Keep(false, stream_.Position(), stream_.Length());
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
    const bool tells = head == kJpeg2000Exif || head == kJpeg2000XMP;
    Keep(type == "uuid" && tells, at, at + length);
    good_ = good_ || type == "jp2c";
    stream_.Position(at + length);
  }
  good_ = good_ && stream_.EndOfFile();
  place_ = runs_.size();
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
  data.Resources.clear();
  return TakeStructure(std::move(data.Tiff)) && TakeTexts(data);
}

std::optional<FilePlan> ContainerParts::Plan() {
  FilePlan plan;
  const std::string structure = tiff_ ? Structure({}) : std::string();
  const std::string& packet = xmp_;
  if (structure.size() > kMostChunk || packet.size() + kXmpKeyword.size() + 4 > kMostChunk) {
    return {};
  }
  for (std::size_t i = 0; i <= runs_.size(); ++i) {
    if (i == place_ && !structure.empty()) {
      plan.Take(png_ ? Chunk("eXIf", structure) : Box(kJpeg2000Exif, structure));
    }
    if (i == place_ && !packet.empty()) {
      // Not compressed, in no language.
      plan.Take(png_ ? Chunk("iTXt", std::string(kXmpKeyword) + std::string(4, '\0') + packet)
                     : Box(kJpeg2000XMP, packet));
    }
    if (i == runs_.size()) break;
    const Run& run = runs_[i];
    // What the file said before is said no more.
    if (!run.Tells) plan.Take(run.At, run.End - run.At);
  }
  return plan;
}

}  // namespace brivolant
