// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>

namespace brivolant {

/// While one lives, decoders of this thread end soon after the flag is set, with an error. Scopes
/// nest; the innermost counts.
class DecodeCancellation {
 public:
  explicit DecodeCancellation(const std::atomic<bool>& flag);
  ~DecodeCancellation();
  DecodeCancellation(const DecodeCancellation&) = delete;
  DecodeCancellation& operator=(const DecodeCancellation&) = delete;

  /// The flag of the innermost scope of this thread, or null.
  static const std::atomic<bool>* Flag();
  static bool Requested() { return Flag() != nullptr && Flag()->load(std::memory_order_relaxed); }

 private:
  const std::atomic<bool>* before_;
};

}  // namespace brivolant
