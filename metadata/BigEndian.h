// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace brivolant {

/// A number as bytes, the highest first.
inline std::string BigEndian(std::uint64_t value, int size) {
  std::string bytes;
  for (int i = size - 1; i >= 0; --i) bytes += static_cast<char>(value >> 8 * i);
  return bytes;
}

}  // namespace brivolant
