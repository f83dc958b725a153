// SPDX-License-Identifier: MIT
// Whether a file is shorter than its own headers say, told by its first bytes and not by its name.
#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "platform/codecs/CodecDetail.h"
#include "platform/files/BinaryStream.h"

namespace brivolant::codecs {
namespace {

/// A file of which parts are looked at.
class Parts {
 public:
  explicit Parts(const FolderItem& file)
      : stream_(file.Path(), std::ios::binary), length_(file.Length()) {}

  std::uint64_t Length() const { return length_; }
  /// As many of `count` bytes from `at` on as there are.
  std::string Read(std::uint64_t at, std::size_t count) {
    std::string bytes(at < length_ ? std::min<std::uint64_t>(count, length_ - at) : 0, '\0');
    stream_.clear();
    stream_.seekg(static_cast<std::streamoff>(at));
    stream_.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(stream_.gcount(), 0)));
    return bytes;
  }
  std::uint32_t Number(std::uint64_t at) {
    const std::string bytes = Read(at, 4);
    return BinaryStream(bytes).ReadUInt32();
  }

 private:
  std::ifstream stream_;
  std::uint64_t length_;
};

bool SgiEnds(Parts& file, const std::string& head) {
  constexpr std::uint64_t kHeader = 512;
  BinaryStream stream(head);
  stream.Position(2);
  const bool packed = stream.ReadUInt8() != 0;
  const std::uint64_t depth = stream.ReadUInt8();
  const int dimensions = stream.ReadUInt16();
  const std::uint64_t width = stream.ReadUInt16();
  const std::uint64_t height = dimensions >= 2 ? stream.ReadUInt16() : 1;
  const std::uint64_t channels = dimensions >= 3 ? stream.ReadUInt16() : 1;
  if (stream.Failed()) return true;
  if (!packed) return file.Length() < kHeader + width * height * channels * depth;
  // Where each row of each channel begins, then how long each is.
  const std::uint64_t rows = height * channels;
  if (file.Length() < kHeader + 8 * rows) return true;
  const std::string table = file.Read(kHeader, static_cast<std::size_t>(8 * rows));
  BinaryStream starts(table);
  BinaryStream lengths(table);
  lengths.Position(static_cast<std::size_t>(4 * rows));
  std::uint64_t end = 0;
  for (std::uint64_t row = 0; row < rows; ++row) {
    end = std::max(end, std::uint64_t{starts.ReadUInt32()} + lengths.ReadUInt32());
  }
  return file.Length() < end;
}

bool BmpEnds(Parts& file, const std::string& head) {
  BinaryStream stream(head);
  stream.LittleEndian = true;
  // The length of the file is no more than a claim, which some programs leave wrong.
  stream.Position(10);
  const std::uint64_t begin = stream.ReadUInt32();
  const bool old = stream.ReadUInt32() == 12;
  const auto side = [&] {
    return old ? std::int64_t{stream.ReadUInt16()}
               : std::int64_t{static_cast<std::int32_t>(stream.ReadUInt32())};
  };
  const std::int64_t width = side();
  const std::int64_t height = std::abs(side());
  stream.ReadUInt16();
  const std::int64_t bits = stream.ReadUInt16();
  const std::uint32_t packing = old ? 0 : stream.ReadUInt32();
  if (stream.Failed() || width <= 0 || bits > 32) return stream.Failed();
  if (packing == 1 || packing == 2) return file.Length() <= begin;
  return file.Length() < begin + static_cast<std::uint64_t>((width * bits + 31) / 32 * 4) *
                                     static_cast<std::uint64_t>(height);
}

bool PhotoshopEnds(Parts& file, const std::string& head) {
  BinaryStream stream(head);
  stream.Position(4);
  const bool large = stream.ReadUInt16() == 2;
  stream.Position(12);
  const std::uint64_t channels = stream.ReadUInt16();
  const std::uint64_t height = stream.ReadUInt32();
  const std::uint64_t width = stream.ReadUInt32();
  const std::uint64_t depth = stream.ReadUInt16();
  // Colours, resources and layers, each behind its length.
  std::uint64_t at = 26;
  for (int section = 0; section < 3; ++section) {
    const bool wide = large && section == 2;
    const std::uint64_t upper = wide ? file.Number(at) : 0;
    at += wide ? 4 : 0;
    at += 4 + (upper << 32U) + file.Number(at);
    if (at < 26 || at + 2 > file.Length()) return true;
  }
  const std::string packing = file.Read(at, 2);
  at += 2;
  if (packing == std::string(2, '\0')) {
    return file.Length() < at + channels * height * ((width * depth + 7) / 8);
  }
  if (packing != std::string("\0\1", 2)) return false;
  // The length of each row stands before all rows.
  const std::uint64_t rows = channels * height;
  const std::size_t field = large ? 4 : 2;
  if (file.Length() < at + field * rows) return true;
  const std::string table = file.Read(at, static_cast<std::size_t>(field * rows));
  BinaryStream lengths(table);
  std::uint64_t end = at + table.size();
  for (std::uint64_t row = 0; row < rows; ++row) {
    end += large ? lengths.ReadUInt32() : lengths.ReadUInt16();
  }
  return file.Length() < end;
}

bool PcxEnds(Parts& file, const std::string& head) {
  constexpr std::uint64_t kHeader = 128;
  constexpr std::size_t kMost = std::size_t{256} << 20U;
  BinaryStream stream(head);
  stream.LittleEndian = true;
  stream.Position(6);
  const int top = stream.ReadUInt16();
  stream.Position(10);
  const int bottom = stream.ReadUInt16();
  stream.Position(65);
  const std::uint64_t planes = stream.ReadUInt8();
  const std::uint64_t line = stream.ReadUInt16();
  if (stream.Failed() || bottom < top) return stream.Failed();
  const std::string runs = file.Read(kHeader, kMost);
  const std::uint64_t wanted = planes * line * static_cast<std::uint64_t>(bottom - top + 1);
  std::uint64_t got = 0;
  for (std::size_t i = 0; i < runs.size() && got < wanted; ++i) {
    // Two set bits make a byte the length of a run; the next says of what.
    const auto byte = static_cast<std::uint8_t>(runs[i]);
    const bool run = byte >> 6U == 3;
    if (run) ++i;
    got += !run ? 1 : i < runs.size() ? byte & 0x3FU : 0;
  }
  return got < wanted && runs.size() < kMost;
}

/// Boxes with their lengths follow each other.
bool HeifEnds(Parts& file) {
  constexpr int kMostBoxes = 10000;
  std::uint64_t at = 0;
  for (int box = 0; box < kMostBoxes && at < file.Length(); ++box) {
    std::uint64_t size = file.Number(at);
    // To the end of the file.
    if (size == 0) return false;
    if (size == 1) size = std::uint64_t{file.Number(at + 8)} << 32U | file.Number(at + 12);
    if (size < 8 || at + size < at) return false;
    at += size;
  }
  return at > file.Length();
}

/// Has no mark at its begin: only for what is named so.
bool TgaEnds(Parts& file, const std::string& head) {
  BinaryStream stream(head);
  stream.LittleEndian = true;
  const std::uint64_t identifier = stream.ReadUInt8();
  stream.ReadUInt8();
  const int kind = stream.ReadUInt8();
  stream.ReadUInt16();
  const std::uint64_t colors = stream.ReadUInt16();
  const std::uint64_t bits = stream.ReadUInt8();
  stream.Position(12);
  const std::uint64_t width = stream.ReadUInt16();
  const std::uint64_t height = stream.ReadUInt16();
  const std::uint64_t pixel = (stream.ReadUInt8() + 7U) / 8U;
  std::uint64_t at = 18 + identifier + colors * ((bits + 7) / 8);
  if (stream.Failed() || at > file.Length()) return true;
  if (kind >= 1 && kind <= 3) return file.Length() < at + width * height * pixel;
  if (kind < 9 || kind > 11) return false;
  constexpr std::size_t kMost = std::size_t{256} << 20U;
  const std::string packets = file.Read(at, kMost);
  std::uint64_t got = 0;
  std::uint64_t next = 0;
  for (; next < packets.size() && got < width * height; ++next) {
    const auto byte = static_cast<std::uint8_t>(packets[static_cast<std::size_t>(next)]);
    const std::uint64_t count = (byte & 0x7FU) + 1U;
    got += count;
    next += byte < 0x80 ? count * pixel : pixel;
  }
  return (got < width * height || next > packets.size()) && packets.size() < kMost;
}

}  // namespace

bool IsSgi(const FolderItem& file) {
  const std::string head = Parts(file).Read(0, 4);
  return head.size() == 4 && head.starts_with("\x01\xDA") && (head[2] == 0 || head[2] == 1) &&
         (head[3] == 1 || head[3] == 2);
}

bool EndsEarly(const FolderItem& file) {
  constexpr std::size_t kHead = 512;
  Parts parts(file);
  const std::string head = parts.Read(0, kHead);
  const std::string_view bytes = head;
  if (bytes.starts_with("BM")) return BmpEnds(parts, head);
  if (bytes.starts_with("8BPS")) return PhotoshopEnds(parts, head);
  if (bytes.size() > 3 && bytes[0] == '\n' && static_cast<unsigned char>(bytes[1]) <= 5 &&
      bytes[2] == 1) {
    return PcxEnds(parts, head);
  }
  if (bytes.size() > 12 && bytes.substr(4, 4) == "ftyp") return HeifEnds(parts);
  if (IsSgi(file)) return SgiEnds(parts, head);
  const std::string extension = LowerCase(file.Path().extension().string());
  return (extension == ".tga" || extension == ".targa") && TgaEnds(parts, head);
}

}  // namespace brivolant::codecs
