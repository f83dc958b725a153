// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/values/Variant.h"

namespace brivolant {

/// A small tagged container: an ordered list of numbered values, stored as one byte string. An id
/// may stand more than once.
class IFFData {
 public:
  void Add(int id, Variant value) { item_.emplace_back(id, std::move(value)); }
  int Count() const { return static_cast<int>(item_.size()); }
  int ID(int index) const { return item_.at(static_cast<std::size_t>(index)).first; }
  const Variant& Value(int index) const { return item_.at(static_cast<std::size_t>(index)).second; }

  /// Size, format, count and records. Values are written in their text form, ids in 16 bits.
  std::string Data() const;
  /// Appends the items of `bytes`, which begin behind the size field; bytes behind the last record
  /// are ignored. False if the counts or lengths do not fit; the items before that are kept.
  [[nodiscard]] bool Data(std::string_view bytes);

 private:
  std::vector<std::pair<int, Variant>> item_;
};

}  // namespace brivolant
