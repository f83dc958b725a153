// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "platform/pictures/Picture.h"

namespace brivolant {

/// Procedural textures over a picture. A texture t, 0 to 1, gives
/// OriginalLevel * source + TextureLevel * t * (source, or TextureColor), limited to 0 to 255.
/// Source of the patterns: K. Perlin, "An Image Synthesizer", 1985, on gradient noise.
/// A mask that may be null limits the effect, none where it is 255; the source's mask stays.
class TextureRenderer {
 public:
  /// Shares, 0 to 1 and more.
  double OriginalLevel = 0.5;
  double TextureLevel = 0.5;
  /// The texture is drawn in this colour instead of the source's.
  Color TextureColor = kWhite;
  bool UseTextureColor = false;
  /// Another number is another texture of the kind.
  std::uint32_t Seed = 1;
  /// Told what is done, 0 to 1, before and after.
  std::function<void(double)> ProgressHandler;

  Picture RenderClouds(Picture source, const Plane* mask = nullptr) const;
  /// The end grain: `rings` of them round the middle.
  Picture RenderWood(Picture source, const Plane* mask = nullptr, double rings = 12) const;
  Picture RenderMarble(Picture source, const Plane* mask = nullptr) const;
  Picture RenderTextile(Picture source, const Plane* mask = nullptr) const;
  Picture RenderLabyrinth(Picture source, const Plane* mask = nullptr) const;

 private:
  template <class Texture>
  Picture Render(Picture source, const Plane* mask, const Texture& texture) const;
  double Noise(double x, double y, double cell, int octaves) const;
};

}  // namespace brivolant
