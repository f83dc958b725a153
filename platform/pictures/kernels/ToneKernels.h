// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

#include "platform/pictures/ToneTable.h"
#include "platform/pictures/Views.h"

/// Point operations on pixels. Every kernel named Foo has a plain form in `reference`, which is
/// its definition; both give the same bytes.
namespace brivolant::kernels {

/// Replaces every level of every channel by what the tables say.
void ApplyToneTables(Pixels pixels, const ToneTables& tables);
/// The same into pixels of the same size, which may be the source's own.
void ApplyToneTables(ConstPixels source, Pixels target, const ToneTables& tables);

/// 255 minus each level.
void Invert(Pixels pixels);
void Invert(Grey plane);

/// Adds `amount`, -255 to 255, to every channel, limited to 0 to 255.
void AddBrightness(Pixels pixels, int amount);

/// Luma by ITU-R BT.601 weights in 1/256: (77 R + 150 G + 29 B) / 256, truncated.
void Luma(ConstPixels pixels, Grey plane);

/// 255 where 77 R + 150 G + 29 B is at least half of its range, 0 elsewhere: a one-bit copy.
void BlackAndWhite(ConstPixels pixels, Grey plane);

/// Counts of each level.
struct Histograms {
  std::array<std::uint32_t, 256> Red{};
  std::array<std::uint32_t, 256> Green{};
  std::array<std::uint32_t, 256> Blue{};
  /// Of the largest of the three: the value of the HSV model.
  std::array<std::uint32_t, 256> Value{};
};
Histograms CountLevels(ConstPixels pixels);

namespace reference {
void ApplyToneTables(Pixels pixels, const ToneTables& tables);
void AddBrightness(Pixels pixels, int amount);
void Luma(ConstPixels pixels, Grey plane);
void BlackAndWhite(ConstPixels pixels, Grey plane);
}  // namespace reference

}  // namespace brivolant::kernels
