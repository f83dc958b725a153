// SPDX-License-Identifier: MIT
#include "engine/pictures/TextureRenderer.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "engine/pictures/MaskedChange.h"
#include "platform/pictures/Noise.h"
#include "platform/pictures/Parallel.h"

namespace brivolant {

double TextureRenderer::Noise(double x, double y, double cell, int octaves) const {
  // No picture is large enough to see it repeat.
  constexpr int kPeriod = 1 << 20;
  double sum = 0;
  double strength = 1;
  for (int i = 0; i < octaves; ++i) {
    const double scale = (1 << i) / cell;
    sum += strength * GradientNoise(x * scale, y * scale, kPeriod, kPeriod,
                                    Seed + static_cast<std::uint32_t>(i));
    strength /= 2;
  }
  return sum;
}

/// `texture` gives t at a pixel. A template, since it is asked for every one.
template <class Texture>
Picture TextureRenderer::Render(Picture source, const Plane* mask, const Texture& texture) const {
  constexpr int kGrain = 16;
  if (ProgressHandler) ProgressHandler(0);
  Rewrite(source, mask, [&](ConstPixels from, Pixels to) {
    const double color[3] = {1.0 * TextureColor.Blue, 1.0 * TextureColor.Green,
                             1.0 * TextureColor.Red};
    ParallelRows(to.height, kGrain, [&](int first, int last) {
      for (int y = first; y < last; ++y) {
        const std::uint8_t* in = from.Row(y);
        std::uint8_t* out = to.Row(y);
        for (int x = 0; x < to.width; ++x, in += 4, out += 4) {
          const double t = TextureLevel * std::clamp(texture(x, y), 0.0, 1.0);
          for (int k = 0; k < 3; ++k) {
            const double level = OriginalLevel * in[k] + t * (UseTextureColor ? color[k] : in[k]);
            out[k] = static_cast<std::uint8_t>(std::lround(std::clamp(level, 0.0, 255.0)));
          }
          out[3] = 255;
        }
      }
    });
  });
  if (ProgressHandler) ProgressHandler(1);
  return source;
}

Picture TextureRenderer::RenderClouds(Picture source, const Plane* mask) const {
  return Render(std::move(source), mask,
                [this](int x, int y) { return 0.5 + 0.5 * Noise(x, y, 32, 5); });
}

Picture TextureRenderer::RenderWood(Picture source, const Plane* mask, double rings) const {
  if (source.IsNil()) return source;
  const double cx = source.Width() / 2.0;
  const double cy = source.Height() / 2.0;
  const double reach = std::max(std::hypot(cx, cy), 1.0);
  return Render(std::move(source), mask, [=, this](int x, int y) {
    const double distance = std::hypot(x - cx, y - cy) / reach + 0.05 * Noise(x, y, reach / 4, 4);
    return std::abs(std::sin(distance * rings * std::numbers::pi));
  });
}

Picture TextureRenderer::RenderMarble(Picture source, const Plane* mask) const {
  return Render(std::move(source), mask, [this](int x, int y) {
    return std::abs(std::sin((x / 64.0 + y / 96.0) * std::numbers::pi + 2 * Noise(x, y, 64, 5)));
  });
}

Picture TextureRenderer::RenderTextile(Picture source, const Plane* mask) const {
  return Render(std::move(source), mask, [this](int x, int y) {
    const double bend = Noise(x, y, 24, 3);
    return 0.5 + 0.25 * (std::sin(x * 1.25 + bend) + std::sin(y * 1.25 + bend));
  });
}

Picture TextureRenderer::RenderLabyrinth(Picture source, const Plane* mask) const {
  return Render(std::move(source), mask,
                [this](int x, int y) { return std::abs(Noise(x, y, 16, 1)); });
}

}  // namespace brivolant
