// SPDX-License-Identifier: MIT
#include "metadata/MetadataChange.h"

#include <QByteArray>
#include <QString>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "metadata/DirectoryEditor.h"
#include "metadata/PhotoFacts.h"
#include "metadata/TagValue.h"
#include "platform/values/Numbers.h"
#include "platform/values/Text.h"

namespace brivolant {
namespace {

std::vector<std::string> Words(std::string_view text) {
  std::vector<std::string> words;
  std::string word;
  for (const char c : text) {
    if (c != ' ' && c != ',' && c != '\t') {
      word += c;
    } else if (!word.empty()) {
      words.push_back(std::exchange(word, {}));
    }
  }
  if (!word.empty()) words.push_back(std::move(word));
  return words;
}

std::optional<std::string> BytesFromHex(std::string_view text) {
  const QByteArray written = QByteArray::fromRawData(text.data(), std::ssize(text));
  QByteArray bytes = QByteArray::fromHex(written);
  // What is no digit is passed over there.
  if (bytes.toHex() != written.toLower()) return {};
  return bytes.toStdString();
}

/// The nearest fraction with a denominator that decimals have.
std::optional<Rational> Fraction(std::string_view text, bool isSigned) {
  const std::size_t slash = text.find('/');
  const double most = isSigned ? std::numeric_limits<std::int32_t>::max()
                               : std::numeric_limits<std::uint32_t>::max();
  const auto fits = [&](double value) {
    return std::abs(value) <= most && (isSigned || value >= 0);
  };
  if (slash != std::string_view::npos) {
    const auto over = NumberFromText(std::string(text.substr(0, slash)));
    const auto under = NumberFromText(std::string(text.substr(slash + 1)));
    if (!over || !under || !fits(*over) || !fits(*under) || *under == 0) return {};
    if (std::floor(*over) != *over || std::floor(*under) != *under) return {};
    return Rational(*over, *under, isSigned);
  }
  const auto value = NumberFromText(std::string(text));
  if (!value || !std::isfinite(*value) || !fits(*value)) return {};
  double scale = 1;
  constexpr double kFinest = 1000000;
  while (scale < kFinest && std::abs(*value * scale - std::round(*value * scale)) > 1e-9 &&
         fits(*value * scale * 10)) {
    scale *= 10;
  }
  return Rational(std::round(*value * scale), scale, isSigned);
}

std::optional<TagValue> NumberOfType(int type, const std::string& word) {
  if (type == kRationalType || type == kSRationalType) {
    const auto fraction = Fraction(word, type == kSRationalType);
    if (!fraction) return {};
    return TagValue(*fraction);
  }
  const auto number = NumberFromText(word);
  if (!number || !std::isfinite(*number)) return {};
  if (type == kFloatType) return TagValue(static_cast<float>(*number));
  if (type == kDoubleType) return TagValue(*number);
  const bool isSigned = type == kSShortType || type == kSLongType;
  const int bits = 8 * SizeOfType(type);
  const double most = std::ldexp(1.0, isSigned ? bits - 1 : bits) - 1;
  const double least = isSigned ? -most - 1 : 0;
  if (std::floor(*number) != *number || *number > most || *number < least) return {};
  if (isSigned) return TagValue(static_cast<std::int32_t>(*number));
  return TagValue(static_cast<std::uint32_t>(*number));
}

std::string UTF16Bytes(const std::string& text, bool little) {
  std::string bytes;
  for (const QChar unit : QString::fromStdString(text)) {
    const char low = static_cast<char>(unit.unicode());
    const char high = static_cast<char>(unit.unicode() >> 8);
    bytes += little ? low : high;
    bytes += little ? high : low;
  }
  return bytes;
}

/// A comment, which says in its first eight bytes what it is written in.
std::string CommentBytes(const std::string& text, bool little) {
  const bool plain = std::ranges::all_of(text, [](char c) { return c > 0; });
  if (plain) return std::string("ASCII\0\0\0", 8) + text;
  return std::string("UNICODE\0", 8) + UTF16Bytes(text, little);
}

bool IsDate(int tag) {
  return tag == 0x0132 || tag == 0x9003 || tag == 0x9004 || tag == 0x001D;
}

/// "2024-03-01 10:30:00", with whatever between the numbers, as the standard wants it.
std::optional<std::string> DateText(std::string_view text, bool withTime) {
  const std::string_view form = withTime ? "0000:00:00 00:00:00" : "0000:00:00";
  if (text.size() != form.size()) return {};
  std::string date(form);
  for (std::size_t i = 0; i < form.size(); ++i) {
    const bool digit = text[i] >= '0' && text[i] <= '9';
    // Blanks are the standard's "unknown".
    const bool unknown = form[i] == '0' && text[i] == ' ';
    if (form[i] == '0' ? !digit && !unknown : digit) return {};
    if (form[i] == '0') date[i] = text[i];
  }
  // Zeros and blanks say that it is not known; a month 13 is none.
  const bool known = std::ranges::count(date, ' ') == std::ranges::count(form, ' ') &&
                     date.find_first_of("123456789") != std::string::npos;
  if (known && !DateFromExif(date)) return {};
  return date;
}

}  // namespace

std::optional<MetadataBlock> MetadataBlockNamed(std::string_view name) {
  static constexpr std::array<std::pair<std::string_view, MetadataBlock>, 8> kNames{
      {{"TIFF", MetadataBlock::kTiff},
       {"EXIF", MetadataBlock::kExif},
       {"GPS", MetadataBlock::kGps},
       {"Interoperability", MetadataBlock::kInterop},
       {"Thumbnail", MetadataBlock::kThumbnail},
       {"IPTC", MetadataBlock::kIptc},
       {"XMP", MetadataBlock::kXmp},
       {"Comment", MetadataBlock::kComment}}};
  for (const auto& [known, block] : kNames) {
    if (EqualIgnoringCase(known, name)) return block;
  }
  return {};
}

void AppendChanges(std::vector<MetadataChange>& changes, MetadataBlock block,
                   const std::string& tag, const std::vector<std::string>& texts) {
  using Act = MetadataChange::Act;
  // A list is emptied first, and then filled in order.
  if (texts.size() != 1) changes.push_back({Act::kRemove, block, tag});
  for (const std::string& text : texts) {
    changes.push_back({texts.size() == 1 ? Act::kSet : Act::kAdd, block, tag, text});
  }
}

std::optional<std::string> TagBytesFromText(int tag, int type, std::string_view text,
                                            bool littleEndian) {
  constexpr int kUserComment = 0x9286;
  constexpr int kGpsMethod = 0x001B;
  constexpr int kGpsArea = 0x001C;
  constexpr int kExifVersion = 0x9000;
  constexpr int kFlashpixVersion = 0xA000;
  const std::string plain = EnsureUTF8(std::string(text.substr(0, text.find('\0'))));
  if (tag == kUserComment || (type == kUndefinedType && (tag == kGpsMethod || tag == kGpsArea))) {
    return CommentBytes(plain, littleEndian);
  }
  // Titles and such as Windows keeps them, with a zero at the end.
  if (tag >= 0x9C9B && tag <= 0x9C9F) return UTF16Bytes(plain, true) + std::string(2, '\0');
  if (tag == kExifVersion || tag == kFlashpixVersion) {
    if (plain.size() != 4) return {};
    return plain;
  }
  if (type == kAsciiType) {
    if (!IsDate(tag)) return plain + '\0';
    const auto date = DateText(plain, tag != 0x001D);
    if (!date) return {};
    return *date + '\0';
  }
  if (type == kByteType || type == kSByteType || type == kUndefinedType) return BytesFromHex(text);
  std::vector<TagValue> values;
  for (const std::string& word : Words(text)) {
    auto value = NumberOfType(type, word);
    if (!value) return {};
    values.push_back(std::move(*value));
  }
  if (values.empty() || SizeOfType(type) == 0) return {};
  return DirectoryEditor::Encoded(type, values, littleEndian);
}

}  // namespace brivolant
