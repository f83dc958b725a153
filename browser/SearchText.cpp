// SPDX-License-Identifier: MIT
#include "browser/SearchText.h"

#include <algorithm>

namespace brivolant {
namespace {

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80U; });
}

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

QString SearchText::Folded(const QString& text) {
  return text.normalized(QString::NormalizationForm_C).toCaseFolded();
}

SearchText::SearchText(const std::string& text)
    : folded_(Folded(QString::fromStdString(text).trimmed())) {
  const std::string bytes = folded_.toStdString();
  if (IsAscii(bytes)) plain_ = bytes;
}

bool SearchText::In(std::string_view name) const {
  if (folded_.isEmpty()) return false;
  // Most names of a disk are ASCII: no conversion for them.
  if (IsAscii(name)) {
    if (plain_.empty()) return false;
    return std::search(name.begin(), name.end(), plain_.begin(), plain_.end(),
                       [](char a, char b) { return Lower(a) == b; }) != name.end();
  }
  return Folded(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())))
      .contains(folded_);
}

}  // namespace brivolant
