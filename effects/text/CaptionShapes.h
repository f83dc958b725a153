// SPDX-License-Identifier: MIT
#pragma once

namespace brivolant {

class AdvancedGraphics;

/// Draws the shape of a caption, 0 Speech to 6 Rounded Square, white with a black outline, round
/// the rectangle. Tails and bubbles reach below it.
void DrawCaption(AdvancedGraphics& g, int x, int y, int w, int h, int kind);

}  // namespace brivolant
