// SPDX-License-Identifier: MIT
#include "platform/pictures/kernels/ComposeKernels.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "platform/pictures/Parallel.h"
#include "platform/pictures/kernels/MaskKernels.h"

namespace brivolant::kernels {
namespace {

constexpr int kGrain = 64;

/// Where of `size` positions, moved by `offset`, those begin and end that lie in 0 to `room`. The
/// offset may be any number: it comes from files.
struct Span {
  Span(int size, int room, std::int64_t offset)
      : first(static_cast<int>(std::clamp<std::int64_t>(-offset, 0, size))),
        last(static_cast<int>(std::clamp<std::int64_t>(room - offset, 0, size))) {}
  int first;
  int last;
};

/// The part of a source drawn at an offset that falls on the target.
struct Overlap {
  template <class Target, class Source>
  Overlap(const Target& target, const Source& source, std::int64_t x, std::int64_t y)
      : Overlap(Span(source.width, target.width, x), Span(source.height, target.height, y)) {}
  Overlap(const Span& across, const Span& down)
      : left(across.first), top(down.first), right(across.last), bottom(down.last) {}

  bool Empty() const { return left >= right || top >= bottom; }
  int left;
  int top;
  int right;
  int bottom;
};

}  // namespace

void Compose(Pixels target, ConstPixels source, ConstGrey mask, int x, int y) {
  const Overlap part(target, source, x, y);
  if (part.Empty()) return;
  const auto count = static_cast<std::size_t>(part.right - part.left);
  ParallelRows(part.bottom - part.top, kGrain, [&](int from, int to) {
    for (int row = part.top + from; row < part.top + to; ++row) {
      const std::uint8_t* s = source.Row(row) + std::ptrdiff_t{4} * part.left;
      std::uint8_t* t = target.Row(row + y) + std::ptrdiff_t{4} * (part.left + x);
      if (mask.data == nullptr) {
        std::memcpy(t, s, count * 4);
        continue;
      }
      MixRow(s, mask.Row(row) + part.left, t, count);
    }
  });
}

void Compose(Grey target, ConstGrey source, int x, int y) {
  const Overlap part(target, source, x, y);
  if (part.Empty()) return;
  for (int row = part.top; row < part.bottom; ++row) {
    std::memcpy(target.Row(row + y) + part.left + x, source.Row(row) + part.left,
                static_cast<std::size_t>(part.right - part.left));
  }
}

void CopyArea(ConstPixels source, int x, int y, Pixels target) {
  const Overlap part(target, source, -std::int64_t{x}, -std::int64_t{y});
  if (part.Empty()) return;
  ParallelRows(part.bottom - part.top, kGrain, [&](int from, int to) {
    for (int row = part.top + from; row < part.top + to; ++row) {
      std::memcpy(target.Row(row - y) + std::ptrdiff_t{4} * (part.left - x),
                  source.Row(row) + std::ptrdiff_t{4} * part.left,
                  static_cast<std::size_t>(part.right - part.left) * 4);
    }
  });
}

void CopyArea(ConstGrey source, int x, int y, Grey target) {
  const Overlap part(target, source, -std::int64_t{x}, -std::int64_t{y});
  if (part.Empty()) return;
  for (int row = part.top; row < part.bottom; ++row) {
    std::memcpy(target.Row(row - y) + part.left - x, source.Row(row) + part.left,
                static_cast<std::size_t>(part.right - part.left));
  }
}

void ReduceToBlackAndWhite(Pixels pixels) {
  ParallelRows(pixels.height, kGrain, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      std::uint8_t* p = pixels.Row(y);
      for (int x = 0; x < pixels.width; ++x, p += 4) {
        const int sum = 77 * p[2] + 150 * p[1] + 29 * p[0];
        p[0] = p[1] = p[2] = sum >= 32640 ? 255 : 0;
      }
    }
  });
}

}  // namespace brivolant::kernels
