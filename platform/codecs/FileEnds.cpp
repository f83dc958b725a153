// SPDX-License-Identifier: MIT
#include <algorithm>

#include "platform/codecs/CodecDetail.h"
#include "platform/files/BinaryStream.h"

namespace brivolant::codecs {

bool SgiEndsEarly(const FolderItem& file) {
  constexpr std::uint64_t kMostBytes = std::uint64_t{1} << 30U;
  constexpr std::uint64_t kHeader = 512;
  constexpr std::uint16_t kMark = 474;
  const std::optional<std::string> bytes = ReadFile(file, kMostBytes);
  if (!bytes) return false;
  BinaryStream stream(*bytes);
  if (stream.ReadUInt16() != kMark) return false;
  const bool packed = stream.ReadUInt8() != 0;
  const std::uint64_t depth = stream.ReadUInt8();
  const int dimensions = stream.ReadUInt16();
  const std::uint64_t width = stream.ReadUInt16();
  const std::uint64_t height = dimensions >= 2 ? stream.ReadUInt16() : 1;
  const std::uint64_t channels = dimensions >= 3 ? stream.ReadUInt16() : 1;
  if (stream.Failed()) return true;
  if (!packed) return bytes->size() < kHeader + width * height * channels * depth;
  // Where each row of each channel begins, then how long each is.
  const std::uint64_t rows = height * channels;
  if (bytes->size() < kHeader + 8 * rows) return true;
  std::uint64_t end = 0;
  BinaryStream lengths(*bytes);
  stream.Position(kHeader);
  lengths.Position(kHeader + 4 * rows);
  for (std::uint64_t row = 0; row < rows; ++row) {
    end = std::max(end, std::uint64_t{stream.ReadUInt32()} + lengths.ReadUInt32());
  }
  return bytes->size() < end;
}

}  // namespace brivolant::codecs
