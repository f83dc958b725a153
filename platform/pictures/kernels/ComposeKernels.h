// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pictures/Views.h"

namespace brivolant::kernels {

/// Draws `source` with its top left corner at (x, y) of `target`, cut at the target's borders; the
/// corner may lie anywhere.
/// With a mask (255 transparent, 0 opaque) the source is composed over the target.
void Compose(Pixels target, ConstPixels source, ConstGrey mask, int x, int y);
/// The same for planes, without a mask.
void Compose(Grey target, ConstGrey source, int x, int y);
/// Copies as many pixels as the target has from (x, y) of the source. What lies outside the source
/// is left as it is in the target.
void CopyArea(ConstPixels source, int x, int y, Pixels target);
void CopyArea(ConstGrey source, int x, int y, Grey target);
/// Every pixel becomes black or white by its luma.
void ReduceToBlackAndWhite(Pixels pixels);

}  // namespace brivolant::kernels
