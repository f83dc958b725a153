// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>

namespace brivolant {

/// A 24-bit colour; each component 0 to 255.
struct Color {
  std::uint8_t Red = 0;
  std::uint8_t Green = 0;
  std::uint8_t Blue = 0;

  /// From 0xRRGGBB.
  static constexpr Color FromRGB(std::uint32_t rgb) {
    return {static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8),
            static_cast<std::uint8_t>(rgb)};
  }
  /// As 0xRRGGBB.
  constexpr std::uint32_t RGB() const {
    return std::uint32_t{Red} << 16 | std::uint32_t{Green} << 8 | Blue;
  }
  /// The value of the HSV model, 0.0 to 1.0.
  constexpr double Value() const { return std::max({Red, Green, Blue}) / 255.0; }

  friend constexpr bool operator==(const Color&, const Color&) = default;
};

/// A colour of four floats, each 0.0 to 1.0, as colour panels hand it over.
struct RGBAColor {
  float Red = 0;
  float Green = 0;
  float Blue = 0;
  float Alpha = 1;
};

inline constexpr Color kWhite{255, 255, 255};
inline constexpr Color kBlack{0, 0, 0};

}  // namespace brivolant
