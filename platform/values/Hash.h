// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace brivolant {

/// Fowler, Noll and Vo's hash FNV-1a of 32 bits: the same on every machine. `salt` gives others.
constexpr std::uint32_t StableHash(std::string_view text, std::uint32_t salt = 0) {
  std::uint32_t hash = 2166136261U ^ salt;
  for (const char c : text) hash = (hash ^ static_cast<std::uint8_t>(c)) * 16777619U;
  return hash;
}

}  // namespace brivolant
