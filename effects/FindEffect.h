// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "effects/EffectRegistry.h"
#include "engine/brivolantProcessorLite.h"

// For programs and tests that want one effect: by what it is called, since the list may grow
// anywhere.

namespace brivolant {

/// The entry of a class in either stack. Throws if there is none.
inline const ModuleEntry& EntryOf(std::string_view className) {
  for (const ModuleEntry& entry : EffectRegistry()) {
    if (entry.foregroundClass == className || entry.backgroundClass == className) return entry;
  }
  throw std::out_of_range("no effect of the class " + std::string(className));
}

/// The module of the current stack by its display name. Throws if there is none.
inline effectModule& ModuleNamed(brivolantProcessorLite& processor, std::string_view name) {
  for (int i = 0; i <= processor.Count(); ++i) {
    if (processor.item(i)->Name() == name) return *processor.item(i);
  }
  throw std::out_of_range("no effect named " + std::string(name));
}

}  // namespace brivolant
