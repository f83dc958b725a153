// SPDX-License-Identifier: MIT
#include "platform/values/Text.h"

#include <QByteArray>
#include <QString>
#include <QStringDecoder>
#include <algorithm>

namespace brivolant {
namespace {

// Written once at start, before any thread exists.
TranslationLookup translations = nullptr;

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

void InstallTranslations(TranslationLookup lookup) {
  translations = lookup;
}

std::string LocalizedText::Text() const {
  if (translations != nullptr) {
    if (std::string text = translations(Key); !text.empty()) return text;
  }
  return English;
}

std::string WithPlaceholders(
    std::string text, std::initializer_list<std::pair<std::string_view, std::string_view>> values) {
  for (const auto& [placeholder, value] : values) {
    for (std::size_t at = FindIgnoringCase(text, placeholder); at != std::string::npos;
         at = FindIgnoringCase(text, placeholder, at + value.size())) {
      text.replace(at, placeholder.size(), value);
    }
  }
  return text;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Lower(x) == Lower(y); });
}

std::size_t FindIgnoringCase(std::string_view text, std::string_view part, std::size_t from) {
  if (from > text.size()) return std::string_view::npos;
  const auto found =
      std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), part.begin(),
                  part.end(), [](char x, char y) { return Lower(x) == Lower(y); });
  if (found == text.end() && !part.empty()) return std::string_view::npos;
  return static_cast<std::size_t>(found - text.begin());
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), Lower);
  return lower;
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> fields;
  for (;;) {
    const std::size_t at = text.find(separator);
    fields.push_back(text.substr(0, at));
    if (at == std::string_view::npos) return fields;
    text.remove_prefix(at + 1);
  }
}

std::string_view Trim(std::string_view text) {
  constexpr std::string_view kBlank = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlank);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlank) - first + 1);
}

std::string Hexadecimal(std::uint64_t value, int digits) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (; value != 0; value >>= 4U) text.insert(text.begin(), kDigits[value & 15U]);
  const auto wanted = static_cast<std::size_t>(std::max(digits, 1));
  if (text.size() < wanted) text.insert(0, wanted - text.size(), '0');
  return text;
}

bool IsUTF8(std::string_view text) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString decoded = decoder(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
  return !decoder.hasError();
}

std::string EnsureUTF8(std::string_view text) {
  if (IsUTF8(text)) return std::string(text);
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())).toStdString();
}

std::string Base64Encode(std::string_view bytes, int lineLength) {
  std::string text = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()))
                         .toBase64()
                         .toStdString();
  if (lineLength <= 0) return text;
  std::string lines;
  for (std::size_t at = 0; at < text.size(); at += static_cast<std::size_t>(lineLength)) {
    if (at > 0) lines += "\r\n";
    lines += text.substr(at, static_cast<std::size_t>(lineLength));
  }
  return lines;
}

std::string Base64Decode(std::string_view text) {
  return QByteArray::fromBase64(QByteArray(text.data(), static_cast<qsizetype>(text.size())))
      .toStdString();
}

}  // namespace brivolant
