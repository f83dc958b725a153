// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

namespace brivolant {

/// The extensions of the camera raw files that can be read, in lower case.
std::span<const std::string_view> RawExtensions();

}  // namespace brivolant
