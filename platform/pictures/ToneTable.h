// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>

namespace brivolant {

/// A tone curve: what each of the 256 levels of a channel becomes.
using ToneTable = std::array<std::uint8_t, 256>;

/// The curve that changes nothing.
ToneTable IdentityTable();

/// One tone curve a channel.
struct ToneTables {
  ToneTable Red;
  ToneTable Green;
  ToneTable Blue;

  /// The same curve for all channels.
  static ToneTables All(const ToneTable& table) { return {table, table, table}; }
  /// First `first`, then this.
  ToneTables After(const ToneTables& first) const;
  bool OneForAll() const { return Red == Green && Green == Blue; }

  friend bool operator==(const ToneTables&, const ToneTables&) = default;
};

/// `value` limited to 0 to 255.
constexpr int ClampValue(int value) {
  return value < 0 ? 0 : value > 255 ? 255 : value;
}

/// The integer part of `value` limited to 0 to 255; what is not a number gives 0.
constexpr std::uint8_t ClampedLevel(double value) {
  if (!(value > 0)) return 0;
  return value >= 255 ? 255 : static_cast<std::uint8_t>(value);
}

/// A curve from its formula: `formula(level)` gives the result as a number that is truncated and
/// limited to 0 to 255.
template <class Formula>
ToneTable MakeTable(Formula formula) {
  ToneTable table{};
  for (int i = 0; i < 256; ++i) table[static_cast<std::size_t>(i)] = ClampedLevel(formula(i));
  return table;
}

}  // namespace brivolant
