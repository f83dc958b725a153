// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pictures/Picture.h"

namespace brivolant {

/// A picture as effects see it that draw every detail: with no detail finer than a pixel of the
/// reference size, the one of scale 1, whatever the picture's own size. So a full-size render draws
/// the lines that the preview shows, and not the grain between them.
struct ReferenceDetail {
  /// `scale` is that of the picture; `softness`, in pixels of scale 1, is the variance of what the
  /// effect looks at in a picture of that scale, which grows with the scale.
  ReferenceDetail(const Picture& picture, double scale, double softness = 0);

  /// The picture without its mask; smaller than the source where nothing is lost by that.
  Picture Soft;
  /// By which lengths of scale 1 are multiplied in it.
  double Scale;
};

/// Gives `picture` the pixels of `drawn`, enlarged to its size. Mask and resolution stay.
void TakeEnlarged(Picture& picture, const Picture& drawn);

/// A pencil drawing, dark lines on white: the picture, divided by itself blurred with a radius of
/// seven pixels at scale 1.
Picture PencilDrawing(const ReferenceDetail& detail);

}  // namespace brivolant
