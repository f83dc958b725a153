// SPDX-License-Identifier: MIT
#include "platform/values/Numbers.h"

#include <QLocale>
#include <algorithm>
#include <array>
#include <charconv>
#include <clocale>
#include <cmath>
#include <limits>

namespace brivolant {

std::optional<double> NumberFromText(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) {
    return std::nullopt;
  }
  return value;
}

namespace {

/// A decimal number that no double holds: infinite, or too close to 0 to be told from it.
double BeyondDoubles(std::string_view number) {
  const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
  const std::string_view digits = number.substr(0, mark);
  const std::size_t first = digits.find_first_of("123456789");
  if (first == std::string_view::npos) return 0;
  const std::size_t point = std::min(digits.find('.'), digits.size());
  std::string_view exponent = number.substr(std::min(mark + 1, number.size()));
  const bool falls = exponent.starts_with('-');
  if (exponent.starts_with('+')) exponent.remove_prefix(1);
  std::int64_t power = 0;
  const auto error = std::from_chars(exponent.data(), exponent.data() + exponent.size(), power).ec;
  const double place = static_cast<double>(point) - static_cast<double>(first);
  const bool large =
      error == std::errc::result_out_of_range ? !falls : place + static_cast<double>(power) > 0;
  if (!large) return 0;
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  return number.starts_with('-') ? -kInfinite : kInfinite;
}

}  // namespace

double LeadingNumber(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t\r\n+");
  if (start == std::string_view::npos) return 0;
  text.remove_prefix(start);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc::result_out_of_range) return value;
  return BeyondDoubles(text.substr(0, static_cast<std::size_t>(end - text.data())));
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

void KeepLibraryWordsPlain() {
  (void)std::setlocale(LC_MESSAGES, "C");
}

}  // namespace brivolant
