// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pictures/Picture.h"

namespace brivolant {

/// Four black lines each way, a fifth of the picture apart: what is straight can be held against
/// them.
void DrawGuide(Picture& picture);

}  // namespace brivolant
