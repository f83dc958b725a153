// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace brivolant {

/// A text that names are searched for, without regard to case and to how accents are composed.
class SearchText {
 public:
  explicit SearchText(const std::string& text);
  /// True if the name contains the text. Names that are not UTF-8 are read as well as may be.
  bool In(std::string_view name) const;
  bool Empty() const { return folded_.isEmpty(); }

 private:
  static QString Folded(const QString& text);
  QString folded_;
  /// In lower case, if it is plain ASCII.
  std::string plain_;
};

}  // namespace brivolant
