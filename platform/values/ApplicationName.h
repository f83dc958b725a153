// SPDX-License-Identifier: MIT
#pragma once

#include "platform/values/Text.h"

namespace brivolant {

/// The program's name, as every message shows it.
inline constexpr LocalizedText kApplicationName{
    "GlobalApplicationSpecificProperties.ApplicationName", "Brivolant Photos"};

}  // namespace brivolant
