// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

#include "platform/pictures/Picture.h"
#include "platform/pictures/kernels/BlendKernels.h"

namespace brivolant {

/// Takes `changed`, of the same size, into `picture`: wholly, or where the mask lets it.
inline void Take(Picture& picture, Picture changed, const Plane* mask) {
  if (mask == nullptr || mask->IsNil()) {
    picture = std::move(changed);
    return;
  }
  constexpr int kNormal = 0;
  constexpr int kFull = 256;
  kernels::Blend(picture.Edit(), changed.View(), kNormal, kFull, mask->View());
}

/// Changes `picture` by `effect(pixels)`, wholly or where the mask lets it: none where it is 255.
template <class Effect>
void Change(Picture& picture, const Plane* mask, Effect effect) {
  if (picture.IsNil()) return;
  if (mask == nullptr || mask->IsNil()) {
    effect(picture.Edit());
    return;
  }
  Picture changed = picture;
  effect(changed.Edit());
  Take(picture, std::move(changed), mask);
}

/// The same for an effect of the kind `effect(from, to)`, which makes every pixel from the one at
/// its place.
template <class Effect>
void Rewrite(Picture& picture, const Plane* mask, Effect effect) {
  if (picture.IsNil()) return;
  Picture changed = picture;
  if (mask == nullptr || mask->IsNil()) picture = {};
  const Picture::Rewriting pixels = changed.Rewrite();
  effect(pixels.from, pixels.to);
  Take(picture, std::move(changed), mask);
}

/// Change on a copy.
template <class Effect>
Picture Changed(Picture picture, const Plane* mask, Effect effect) {
  Change(picture, mask, effect);
  return picture;
}

}  // namespace brivolant
