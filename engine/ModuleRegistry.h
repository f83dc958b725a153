// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "engine/effectModule.h"

namespace brivolant {

/// Number of a stack.
enum Stack { kForeground = 0, kBackground = 1 };

/// One entry of both stacks, in their first order.
struct ModuleEntry {
  /// Class of the entry in each stack.
  std::string_view foregroundClass;
  std::string_view backgroundClass;
  /// Makes a new instance for a stack.
  std::unique_ptr<effectModule> (*create)(Stack stack);
};

using ModuleRegistry = std::span<const ModuleEntry>;

}  // namespace brivolant
