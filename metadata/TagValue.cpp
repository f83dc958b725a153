// SPDX-License-Identifier: MIT
#include "metadata/TagValue.h"

#include <iconv.h>

#include <array>
#include <cmath>
#include <limits>

#include "platform/values/Numbers.h"
#include "platform/values/Text.h"
#include "platform/values/Variant.h"

namespace brivolant {
namespace {

void AppendUTF8(std::string& text, char32_t code) {
  constexpr char32_t kContinued = 0x80;
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0 | (code >> 6));
    text += static_cast<char>(kContinued | (code & 0x3F));
  } else if (code < 0x10000) {
    text += static_cast<char>(0xE0 | (code >> 12));
    text += static_cast<char>(kContinued | ((code >> 6) & 0x3F));
    text += static_cast<char>(kContinued | (code & 0x3F));
  } else {
    text += static_cast<char>(0xF0 | (code >> 18));
    text += static_cast<char>(kContinued | ((code >> 12) & 0x3F));
    text += static_cast<char>(kContinued | ((code >> 6) & 0x3F));
    text += static_cast<char>(kContinued | (code & 0x3F));
  }
}

std::int32_t Truncated(double value) {
  if (std::isnan(value)) return 0;
  using Limits = std::numeric_limits<std::int32_t>;
  if (value >= Limits::max()) return Limits::max();
  if (value <= Limits::min()) return Limits::min();
  return static_cast<std::int32_t>(value);
}

}  // namespace

std::int32_t Rational::ToInt() const {
  return Truncated(Value());
}

std::string Rational::StringValue() const {
  return Decimals(Value(), 2);
}

int SizeOfType(int type) {
  constexpr std::array kSizes{0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};
  return type < 0 || type >= static_cast<int>(kSizes.size())
             ? 0
             : kSizes.at(static_cast<std::size_t>(type));
}

double NumberOf(const TagValue& value) {
  if (const auto* number = std::get_if<std::uint32_t>(&value)) return *number;
  if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
  if (const auto* number = std::get_if<float>(&value)) return *number;
  if (const auto* number = std::get_if<double>(&value)) return *number;
  if (const auto* number = std::get_if<Rational>(&value)) return number->Value();
  return 0;
}

int WholeNumberOf(const TagValue& value) {
  return Truncated(NumberOf(value));
}

std::string TextOf(const TagValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return PlainText(*text);
  if (const auto* number = std::get_if<std::uint32_t>(&value)) return std::to_string(*number);
  if (const auto* number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
  if (const auto* number = std::get_if<Rational>(&value)) return number->StringValue();
  if (const auto* number = std::get_if<float>(&value)) return Variant(*number).ToText();
  if (const auto* number = std::get_if<double>(&value)) return Variant(*number).ToText();
  return {};
}

std::string_view BytesOf(const TagValue& value) {
  const auto* text = std::get_if<std::string>(&value);
  return text == nullptr ? std::string_view() : *text;
}

std::string AsHex(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  text.reserve(2 * bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

std::string Decimals(double value, int decimals) {
  if (std::isnan(value)) return "?";
  if (std::isinf(value)) return value < 0 ? "-\u221e" : "\u221e";
  std::string text = FixedNumber(value, decimals);
  if (text.find('.') != std::string::npos) {
    while (text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
  }
  const std::size_t first = text.starts_with('-') ? 1 : 0;
  if (text.compare(first, 2, "0.") == 0) text.erase(first, 1);
  return text == "-0" || text == "-" ? "0" : text;
}

std::string PlainText(std::string_view bytes) {
  while (!bytes.empty() && bytes.back() == '\0') bytes.remove_suffix(1);
  if (IsUTF8(bytes)) return std::string(bytes);
  // What Windows-1252 has between 0x80 and 0x9F; 0 where it has nothing.
  constexpr std::array<char16_t, 32> kWindows{
      0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
      0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
      0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    char32_t code = byte;
    if (byte >= 0x80 && byte < 0xA0) {
      const char16_t known = kWindows.at(byte - 0x80U);
      code = known == 0 ? byte : known;
    }
    AppendUTF8(text, code);
  }
  return text;
}

namespace {

/// UTF-8 as it is; else from an encoding of the C library, or as PlainText has it.
std::string TextOfEncoding(std::string_view bytes, const char* encoding) {
  while (!bytes.empty() && bytes.back() == '\0') bytes.remove_suffix(1);
  if (IsUTF8(bytes)) return std::string(bytes);
  const iconv_t converter = iconv_open("UTF-8", encoding);
  // The C library may have come without its tables.
  if (converter == iconv_t(-1)) return PlainText(bytes);  // NOLINT: what it gives for none.
  std::string from(bytes);
  // No character has more bytes.
  std::string to(3 * from.size(), '\0');
  char* in = from.data();
  char* out = to.data();
  std::size_t left = from.size();
  std::size_t room = to.size();
  const bool done = iconv(converter, &in, &left, &out, &room) != std::size_t(-1);
  iconv_close(converter);
  to.resize(to.size() - room);
  return done ? to : PlainText(bytes);
}

}  // namespace

std::string JpegCommentText(std::string_view bytes) {
  return TextOfEncoding(bytes, "MACINTOSH");
}

std::string JapaneseText(std::string_view bytes) {
  return TextOfEncoding(bytes, "SHIFT_JIS");
}

std::string TextOfUTF16(std::u16string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t code = text[i];
    const bool high = code >= 0xD800 && code < 0xDC00;
    if (high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
      code = 0x10000 + ((code - 0xD800) << 10) + (text[++i] - 0xDC00U);
    } else if (code >= 0xD800 && code < 0xE000) {
      code = 0xFFFD;
    }
    AppendUTF8(result, code);
  }
  return result;
}

}  // namespace brivolant
