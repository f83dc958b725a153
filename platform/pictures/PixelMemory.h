// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace brivolant {

/// A block of bytes aligned to a cache line, shared by reference count. Large blocks use huge
/// pages, and the last large block given back is kept for the next request of about its size:
/// touching fresh memory costs more than most operations on a picture.
class PixelMemory {
 public:
  /// Null if there is not enough memory. The content is undefined.
  static std::shared_ptr<std::uint8_t> Allocate(std::size_t bytes);
  /// Gives the kept block back to the system.
  static void ReleaseKept();
};

}  // namespace brivolant
