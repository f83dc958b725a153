// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "platform/pictures/Picture.h"

namespace brivolant::codecs {

/// A JPEG at an eighth of its size: each pixel is the mean of a block of 8 x 8, which a JPEG stores
/// as such. The rest of a block is stepped over, several codes at a time, which is most of the time
/// that a thumbnail takes. Baseline and extended files of 8 bits in one scan, grey or YCbCr with
/// chroma whole or halved (ITU-T T.81). Nil for any other file and for one with an error: a full
/// decoder knows more of those.
Picture DecodeJpegEighth(std::string_view bytes);

}  // namespace brivolant::codecs
