// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "platform/pictures/Picture.h"

namespace brivolant {

/// The icons of the desktop.
class IconSource {
 public:
  virtual ~IconSource() = default;
  /// The first of the names that the icon theme knows, no larger than `size` pixels, with its
  /// transparency as the mask; nil if it knows none.
  virtual Picture Icon(const std::vector<std::string>& names, int size) = 0;
};

}  // namespace brivolant
