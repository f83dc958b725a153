// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pictures/ToneTable.h"
#include "platform/pictures/Views.h"

namespace brivolant::kernels {

/// Blends `fill` over `base` in place, both of the same size, by the formulas of the W3C
/// Compositing and Blending specification on 8-bit levels, rounded.
/// `mode` is 0 to 15 (see BlendMode; anything else is Normal); `opacity` 0 to 256.
/// `mask` may be empty (null data); else the opacity of a pixel is scaled by (255 - mask) / 255.
void Blend(Pixels base, ConstPixels fill, int mode, int opacity, ConstGrey mask = {});

/// In place: each pixel becomes the mean of itself and what `table` makes of it, weighted by the
/// pixel's own luma: dark pixels take the table's level, bright ones keep their own.
void BlendTableByDarkness(Pixels pixels, const ToneTable& table);

/// In place: lays the picture brightened by `lift` (0 to 255) over itself where `mask` is dark,
/// then the picture darkened by `lower` over that where `mask` is bright. Both layers are made
/// from the picture as it came.
void LiftAndLower(Pixels pixels, ConstGrey mask, int lift, int lower);

namespace reference {
void Blend(Pixels base, ConstPixels fill, int mode, int opacity, ConstGrey mask = {});
void BlendTableByDarkness(Pixels pixels, const ToneTable& table);
void LiftAndLower(Pixels pixels, ConstGrey mask, int lift, int lower);
}  // namespace reference

}  // namespace brivolant::kernels
