// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brivolant::DirectoryLayout {

/// Bytes of an entry of a directory, and of what a structure begins with.
inline constexpr std::uint64_t kEntry = 12;
inline constexpr std::uint64_t kHeader = 8;
/// Tags that lead to directories, and the one whose offsets nobody can follow.
inline constexpr int kExifLink = 0x8769;
inline constexpr int kGpsLink = 0x8825;
inline constexpr int kInteropLink = 0xA005;
inline constexpr int kSubLink = 0x014A;
inline constexpr int kMakerNote = 0x927C;

/// Of a directory with so many entries.
constexpr std::uint64_t RoomOf(std::size_t entries) {
  return 2 + kEntry * entries + 4;
}

/// A number as bytes of an order.
inline std::string NumberIn(std::uint64_t value, int size, bool little) {
  std::string bytes;
  for (int i = 0; i < size; ++i) {
    bytes += static_cast<char>(value >> 8 * (little ? i : size - 1 - i));
  }
  return bytes;
}

/// A number of four bytes.
inline std::uint32_t Offset(std::string_view bytes, bool little) {
  std::uint32_t value = 0;
  for (int i = 0; const char c : bytes.substr(0, 4)) {
    value |= std::uint32_t{static_cast<unsigned char>(c)} << 8 * (little ? i : 3 - i);
    ++i;
  }
  return value;
}

}  // namespace brivolant::DirectoryLayout
