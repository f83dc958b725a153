// SPDX-License-Identifier: MIT
#pragma once

#include <QCollator>
#include <string_view>
#include <vector>

namespace brivolant {

/// The order in which people expect names: by the user's language, without regard to case, numbers
/// by their value. An object belongs to one thread; keys of all objects compare with each other.
class NaturalOrder {
 public:
  NaturalOrder();
  /// Comparing two keys costs a few bytes, comparing two names anew a thousand times that.
  QCollatorSortKey Key(std::string_view name) const;

 private:
  QCollator collator_;
};

}  // namespace brivolant
