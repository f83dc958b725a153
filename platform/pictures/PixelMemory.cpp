// SPDX-License-Identifier: MIT
#include "platform/pictures/PixelMemory.h"

#include <sys/mman.h>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace brivolant {
namespace {

constexpr std::size_t kPage = 4096;
constexpr std::size_t kLarge = std::size_t{4} << 20;
constexpr std::size_t kPhoto = std::size_t{128} << 20;

struct Block {
  std::uint8_t* address = nullptr;
  std::size_t size = 0;
};

/// Gives blocks back to the system on a thread of its own: it takes milliseconds, and longer while
/// other threads touch fresh pages.
class Returns {
 public:
  void Take(const Block& block) {
    if (block.address == nullptr) return;
    const std::lock_guard lock(mutex_);
    if (!running_) {
      running_ = true;
      std::thread([this] { Run(); }).detach();
    }
    waiting_.push_back(block);
    changed_.notify_all();
  }
  /// Waits until all is given back.
  void Finish() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return waiting_.empty(); });
  }

 private:
  void Run() {
    std::unique_lock lock(mutex_);
    while (true) {
      changed_.wait(lock, [this] { return !waiting_.empty(); });
      const Block block = waiting_.front();
      lock.unlock();
      munmap(block.address, block.size);
      lock.lock();
      waiting_.pop_front();
      changed_.notify_all();
    }
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Block> waiting_;
  bool running_ = false;
};

/// Never destroyed: its thread waits for blocks until the process ends.
Returns& Returned() {
  static auto* const returns = new Returns;
  return *returns;
}

void Unmap(const Block& block) {
  Returned().Take(block);
}

/// One block at most is kept, so the memory in use never exceeds its own peak by more than it.
class KeptBlock {
 public:
  ~KeptBlock() { Unmap(std::exchange(block_, {})); }

  Block Take(std::size_t size) {
    Block useless;
    {
      const std::lock_guard lock(mutex_);
      // Up to a quarter larger will do.
      if (block_.size >= size && block_.size <= size + size / 4) return std::exchange(block_, {});
      // Beside the pictures of a large photo nothing is kept that they cannot use.
      if (size >= kPhoto) std::swap(useless, block_);
    }
    Unmap(useless);
    if (size >= kPhoto) Returned().Finish();
    return {};
  }

  void Keep(Block block) {
    {
      const std::lock_guard lock(mutex_);
      std::swap(block, block_);
    }
    Unmap(block);
  }

 private:
  std::mutex mutex_;
  Block block_;
};

KeptBlock& Kept() {
  static KeptBlock kept;
  return kept;
}

Block Map(std::size_t size) {
  void* address = mmap(nullptr, size, PROT_READ | PROT_WRITE,
                       MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (address == MAP_FAILED) return {};
  return {static_cast<std::uint8_t*>(address), size};
}

}  // namespace

std::shared_ptr<std::uint8_t> PixelMemory::Allocate(std::size_t bytes) {
  constexpr std::size_t kAlignment = 64;
  if (bytes < kLarge) {
    const std::size_t rounded = (bytes + kAlignment) / kAlignment * kAlignment;
    auto* address = static_cast<std::uint8_t*>(
        ::operator new (rounded, std::align_val_t{kAlignment}, std::nothrow));
    if (address == nullptr) return nullptr;
    return {address, [](std::uint8_t* p) { ::operator delete (p, std::align_val_t{kAlignment}); }};
  }
  const std::size_t size = (bytes + kPage - 1) / kPage * kPage;
  Block block = Kept().Take(size);
  if (block.address == nullptr) block = Map(size);
  if (block.address == nullptr) {
    ReleaseKept();
    Returned().Finish();
    block = Map(size);
  }
  if (block.address == nullptr) return nullptr;
  return {block.address, [block](std::uint8_t*) { Kept().Keep(block); }};
}

std::future<void> PixelMemory::TouchAhead(std::uint8_t* address, std::size_t bytes) {
  return std::async(std::launch::async, [=] {
    // Pages are whole; the first and last may be shared with a neighbour and are left out.
    const std::size_t before = (kPage - reinterpret_cast<std::uintptr_t>(address) % kPage) % kPage;
    if (before >= bytes) return;
    // A kernel that does not know the advice refuses it, and pages come when they are touched.
    (void)madvise(address + before, (bytes - before) / kPage * kPage, MADV_POPULATE_WRITE);
  });
}

void PixelMemory::ReleaseKept() {
  Kept().Keep({});
}

}  // namespace brivolant
