// SPDX-License-Identifier: MIT
#pragma once

#include "engine/ModuleRegistry.h"

namespace brivolant {

/// Every module and heading of a stack, in their first order. The one list of them.
ModuleRegistry EffectRegistry();

}  // namespace brivolant
