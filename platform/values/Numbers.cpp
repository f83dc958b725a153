// SPDX-License-Identifier: MIT
#include "platform/values/Numbers.h"

#include <QLocale>
#include <algorithm>
#include <array>
#include <charconv>
#include <clocale>
#include <cmath>

namespace brivolant {

std::optional<double> NumberFromText(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) {
    return std::nullopt;
  }
  return value;
}

double LeadingNumber(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t\r\n+");
  if (start == std::string_view::npos) return 0;
  text.remove_prefix(start);
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

std::string FixedNumber(double value, int decimals) {
  // The longest double has 309 digits before the point.
  std::array<char, 400> text{};
  const double shown = std::isfinite(value) ? value : 0;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), shown,
                                 std::chars_format::fixed, std::clamp(decimals, 0, 64))
                       .ptr;
  return {text.data(), end};
}

std::string PaddedNumber(std::int64_t value, int digits) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  std::string number(text.data(), end);
  const std::size_t sign = value < 0 ? 1 : 0;
  const auto wanted = static_cast<std::size_t>(std::max(digits, 0));
  if (number.size() < wanted) number.insert(sign, wanted - number.size(), '0');
  return number;
}

std::string ReadableNumber(double value, int decimals) {
  return QLocale()
      .toString(std::isfinite(value) ? value : 0, 'f', std::max(decimals, 0))
      .toStdString();
}

void KeepLibraryNumbersPlain() {
  (void)std::setlocale(LC_NUMERIC, "C");
}

void KeepLibraryLettersPlain() {
  (void)std::setlocale(LC_CTYPE, "C.UTF-8");
}

}  // namespace brivolant
