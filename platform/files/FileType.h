// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "platform/values/Text.h"

namespace brivolant {

/// A kind of file: its name, its extensions separated by semicolons, and its codes on the older
/// desktop (four letters, or empty).
struct FileType {
  LocalizedText Name;
  std::string_view Extensions;
  std::string_view MacType;
  std::string_view MacCreator;
  /// Uniform type identifier, for the formats that can be written.
  std::string_view Identifier;
};

}  // namespace brivolant
