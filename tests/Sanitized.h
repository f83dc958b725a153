// SPDX-License-Identifier: MIT
#pragma once

namespace brivolant::test {

/// Whether this is a build with sanitizers: slower by far, and keeping memory that was given back.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool kSanitized = true;
#else
inline constexpr bool kSanitized = false;
#endif

}  // namespace brivolant::test
