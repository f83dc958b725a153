// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pictures/Picture.h"

namespace brivolant {

/// The picture turned upright from a TIFF orientation of 1 to 8; other numbers change nothing.
Picture UprightPicture(const Picture& picture, int orientation);

}  // namespace brivolant
