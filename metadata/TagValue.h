// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace brivolant {

/// A fraction as TIFF keeps it. A denominator of 0 is no error: cameras write it for "unknown" and
/// for infinity.
class Rational {
 public:
  Rational() = default;
  Rational(double numerator, double denominator, bool isSigned = false)
      : numerator(numerator), denominator(denominator), isSigned(isSigned) {}

  double numerator = 0;
  double denominator = 0;
  /// Kept as two signed numbers.
  bool isSigned = false;

  /// Infinite or not a number where the denominator is 0.
  double Value() const { return numerator / denominator; }
  /// The value truncated and limited to 32 bits; 0 if it is no number.
  std::int32_t ToInt() const;
  /// At most two decimals, without what says nothing: "72", "2.5", ".33".
  std::string StringValue() const;

  friend bool operator==(const Rational&, const Rational&) = default;
};

/// One value of a tag. SHORT and LONG are unsigned numbers, SSHORT and SLONG signed ones; BYTE,
/// ASCII, SBYTE and UNDEFINED are texts of bytes, a whole list of them in one.
using TagValue =
    std::variant<std::monostate, std::uint32_t, std::int32_t, float, double, Rational, std::string>;

/// The types of TIFF 6.0.
enum TagType : int {
  kByteType = 1,
  kAsciiType = 2,
  kShortType = 3,
  kLongType = 4,
  kRationalType = 5,
  kSByteType = 6,
  kUndefinedType = 7,
  kSShortType = 8,
  kSLongType = 9,
  kSRationalType = 10,
  kFloatType = 11,
  kDoubleType = 12,
  /// A LONG that is an offset of a directory.
  kDirectoryType = 13
};

/// Bytes of one value of a type; 0 for a type that no standard names.
int SizeOfType(int type);

/// The value as a number; 0 for what is none.
double NumberOf(const TagValue& value);
/// The same truncated toward zero and limited to 32 bits.
int WholeNumberOf(const TagValue& value);
/// The value as plain text: numbers in the shortest form, texts as UTF-8.
std::string TextOf(const TagValue& value);
/// The bytes of a text; empty for anything else.
std::string_view BytesOf(const TagValue& value);
/// Each byte as two upper-case hexadecimal digits.
std::string AsHex(std::string_view bytes);
/// A number with at most so many decimals, rounded; no zero before the point, none at the end, and
/// no point without decimals. 0 is "0".
std::string Decimals(double value, int decimals);
/// Bytes that say nothing of their encoding: UTF-8 if they can be that, else Windows-1252. What
/// follows a zero byte at the end is not part of a text.
std::string PlainText(std::string_view bytes);
/// The same of a JPEG's comment, which is else in the Roman encoding of older Macs.
std::string JpegCommentText(std::string_view bytes);
/// The same of a comment that says to be Japanese: Shift JIS.
std::string JapaneseText(std::string_view bytes);
/// As UTF-8; halves of pairs that stand alone become replacement characters.
std::string TextOfUTF16(std::u16string_view text);

}  // namespace brivolant
