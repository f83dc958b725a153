// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

namespace brivolant::kernels {

/// Composes `count` pixels over others through a mask: 0 takes the upper pixel, 255 leaves the
/// lower one, rounded between.
void MixRow(const std::uint8_t* over, const std::uint8_t* mask, std::uint8_t* under,
            std::size_t count);

}  // namespace brivolant::kernels
