// SPDX-License-Identifier: MIT
#pragma once

#include "engine/MarkCanvas.h"

namespace brivolant {

/// Four black lines each way, a fifth of the photo apart: what is straight can be held against
/// them.
void DrawGuide(MarkCanvas& canvas);

}  // namespace brivolant
