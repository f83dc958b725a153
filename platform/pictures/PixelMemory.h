// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <future>
#include <memory>

namespace brivolant {

/// A block of bytes aligned to a cache line, shared by reference count. The last large block given
/// back is kept for the next request of about its size: touching fresh memory costs more than most
/// operations on a picture. Blocks use plain pages: huge ones make a blur faster by a fifth, but on
/// virtual machines that hand free memory back to their host, each first touch of one can cost ten
/// times as much.
class PixelMemory {
 public:
  /// Null if there is not enough memory. The content is undefined.
  static std::shared_ptr<std::uint8_t> Allocate(std::size_t bytes);
  /// Touches the pages of a fresh block from another thread while this one begins to fill it. The
  /// content does not change. The future waits when it goes out of scope.
  [[nodiscard]] static std::future<void> TouchAhead(std::uint8_t* address, std::size_t bytes);
  /// Gives the kept block back to the system.
  static void ReleaseKept();
};

}  // namespace brivolant
