// SPDX-License-Identifier: MIT
#include "platform/files/BinaryStream.h"

#include <algorithm>
#include <bit>

namespace brivolant {

void BinaryStream::Position(std::size_t position) {
  if (position > bytes_.size()) failed_ = true;
  position_ = std::min(position, bytes_.size());
}

std::uint64_t BinaryStream::ReadInteger(int size) {
  const std::string_view bytes = Read(static_cast<std::size_t>(size));
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const std::size_t at = LittleEndian ? bytes.size() - 1 - i : i;
    value = value << 8 | static_cast<std::uint8_t>(bytes[at]);
  }
  return value;
}

float BinaryStream::ReadSingle() {
  return std::bit_cast<float>(ReadUInt32());
}

double BinaryStream::ReadDouble() {
  return std::bit_cast<double>(ReadUInt64());
}

std::string_view BinaryStream::Read(std::size_t length) {
  if (length > Remaining()) {
    failed_ = true;
    position_ = bytes_.size();
    return {};
  }
  return ReadUpTo(length);
}

std::string_view BinaryStream::ReadUpTo(std::size_t length) {
  const std::string_view bytes = bytes_.substr(position_, length);
  position_ += bytes.size();
  return bytes;
}

void ByteWriter::Integer(std::uint64_t value, int size) {
  for (int i = 0; i < size; ++i) bytes_ += static_cast<char>(value >> (8 * i));
}

void ByteWriter::Single(float value) {
  UInt32(std::bit_cast<std::uint32_t>(value));
}

void ByteWriter::Double(double value) {
  UInt64(std::bit_cast<std::uint64_t>(value));
}

void ByteWriter::PatchUInt32(std::size_t position, std::uint32_t value) {
  for (std::size_t i = 0; i < 4; ++i) bytes_.at(position + i) = static_cast<char>(value >> (8 * i));
}

}  // namespace brivolant
