// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

namespace brivolant {

/// The extensions of the camera raw files that can be read, in lower case.
inline constexpr std::array<std::string_view, 22> kRawExtensions{
    "dng", "cr2", "cr3", "crw", "orf", "nef", "nrw", "srf", "sr2", "arw", "mrw",
    "raf", "dcr", "kdc", "rw2", "rwl", "pef", "srw", "x3f", "erf", "mef", "3fr"};

}  // namespace brivolant
