// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace brivolant {

/// A kind of file: its name, its extensions separated by semicolons, and its codes on the older
/// desktop (four letters, or empty).
struct FileType {
  std::string_view Name;
  std::string_view Extensions;
  std::string_view MacType;
  std::string_view MacCreator;
  /// Uniform type identifier, for the formats that can be written.
  std::string_view Identifier;
};

}  // namespace brivolant
