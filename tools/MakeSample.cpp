// SPDX-License-Identifier: MIT
// Paints a portrait, a street at night, or a landscape that is photographic enough to judge an
// effect by: a sky with clouds and a low sun, hazy ridges, a lake with reflections, a red cabin, a
// meadow with flowers, and the noise of a sensor. Every point is computed in fractions of the
// picture, so that any size shows the same scene.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "platform/codecs/ImageCodecs.h"
#include "platform/pictures/Parallel.h"

namespace {

using brivolant::FolderItem;
using brivolant::Picture;
using brivolant::Pixels;

struct Rgb {
  float r;
  float g;
  float b;
};

Rgb Mix(const Rgb& a, const Rgb& b, float t) {
  return {a.r + (b.r - a.r) * t, a.g + (b.g - a.g) * t, a.b + (b.b - a.b) * t};
}
Rgb Times(const Rgb& a, float t) {
  return {a.r * t, a.g * t, a.b * t};
}

std::uint32_t Hash(std::uint32_t x, std::uint32_t y, std::uint32_t seed) {
  std::uint32_t h = x * 0x8DA6B343U ^ y * 0xD8163841U ^ seed * 0xCB1AB31FU;
  h ^= h >> 13;
  h *= 0x5BD1E995U;
  return h ^ h >> 15;
}

float Random(int x, int y, std::uint32_t seed) {
  return static_cast<float>(
             Hash(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y), seed) & 0xFFFFFFU) /
         16777216.0F;
}

float Smooth(float t) {
  return t * t * (3 - 2 * t);
}
float Step(float low, float high, float x) {
  return Smooth(std::clamp((x - low) / (high - low), 0.0F, 1.0F));
}

/// Value noise, 0 to 1.
float Noise(float x, float y, std::uint32_t seed) {
  const int ix = static_cast<int>(std::floor(x));
  const int iy = static_cast<int>(std::floor(y));
  const float tx = Smooth(x - static_cast<float>(ix));
  const float ty = Smooth(y - static_cast<float>(iy));
  const float top = std::lerp(Random(ix, iy, seed), Random(ix + 1, iy, seed), tx);
  const float bottom = std::lerp(Random(ix, iy + 1, seed), Random(ix + 1, iy + 1, seed), tx);
  return std::lerp(top, bottom, ty);
}

/// Noise on several scales, 0 to 1 (B. Mandelbrot's fractional Brownian motion).
float Fractal(float x, float y, int octaves, std::uint32_t seed) {
  float sum = 0;
  float weight = 0.5F;
  float total = 0;
  for (int i = 0; i < octaves; ++i) {
    sum += weight * Noise(x, y, seed + static_cast<std::uint32_t>(i));
    total += weight;
    weight *= 0.5F;
    x *= 2.03F;
    y *= 2.03F;
  }
  return sum / total;
}

constexpr float kHorizon = 0.52F;
constexpr float kShore = 0.78F;
constexpr float kSunX = 0.72F;
constexpr float kSunY = 0.33F;

Rgb Sky(float x, float y) {
  const Rgb zenith{0.16F, 0.33F, 0.62F};
  const Rgb low{0.95F, 0.76F, 0.56F};
  Rgb color = Mix(zenith, low, std::pow(std::clamp(y / kHorizon, 0.0F, 1.0F), 1.6F));
  const float distance = std::hypot((x - kSunX) * 1.5F, y - kSunY);
  color = Mix(color, {1.0F, 0.93F, 0.75F}, 0.8F * std::exp(-distance * 6));
  const float cloud = Fractal(x * 5 + 3, y * 11, 6, 11);
  const float cover = Step(0.52F, 0.72F, cloud) * Step(0.0F, 0.12F, y + 0.05F);
  const float shade = Fractal(x * 5 + 3.06F, y * 11 - 0.12F, 5, 11);
  const Rgb cloudColor = Mix({1.0F, 0.95F, 0.9F}, {0.55F, 0.53F, 0.6F}, Step(0.45F, 0.8F, shade));
  color = Mix(color, cloudColor, cover * 0.85F);
  const float sun = Step(0.034F, 0.026F, std::hypot((x - kSunX) * 1.5F, y - kSunY));
  return Mix(color, {1.0F, 0.98F, 0.9F}, sun);
}

/// Height of a ridge at x, as a fraction from the top.
float Ridge(float x, int layer) {
  constexpr std::array<float, 3> kBase{0.30F, 0.37F, 0.44F};
  constexpr std::array<float, 3> kRise{0.22F, 0.16F, 0.10F};
  constexpr std::array<float, 3> kWidth{2.2F, 3.5F, 6.0F};
  const auto i = static_cast<std::size_t>(layer);
  return kBase[i] +
         kRise[i] * (0.5F - Fractal(x * kWidth[i] + 7.0F * static_cast<float>(layer), 0.5F, 8,
                                    31 + static_cast<std::uint32_t>(layer))) +
         0.05F;
}

Rgb Land(float x, float y) {
  Rgb color = Sky(x, y);
  constexpr std::array<Rgb, 3> kColor{
      {{0.52F, 0.55F, 0.66F}, {0.30F, 0.36F, 0.42F}, {0.10F, 0.17F, 0.13F}}};
  for (int layer = 0; layer < 3; ++layer) {
    const float top = Ridge(x, layer);
    if (y < top) continue;
    const float depth = (y - top) * 9;
    const auto i = static_cast<std::size_t>(layer);
    const float scale = 40.0F + 60.0F * static_cast<float>(layer);
    const float rock =
        Fractal(x * scale, y * scale * 1.4F, 5, 51 + static_cast<std::uint32_t>(layer));
    Rgb ground = Times(kColor[i], 0.65F + 0.7F * rock);
    if (layer == 0)
      ground = Mix(ground, {0.95F, 0.95F, 1.0F}, Step(0.45F, 0.6F, rock - depth * 0.6F + 0.2F));
    const float haze = (layer == 0   ? 0.35F
                        : layer == 1 ? 0.22F
                                     : 0.05F) +
                       0.12F * std::min(depth, 1.0F);
    color = Mix(ground, {0.86F, 0.76F, 0.68F}, haze);
  }
  return color;
}

/// The cabin on the shore; `inside` tells whether the point lies on it.
Rgb Cabin(float x, float y, bool& inside) {
  const float u = (x - 0.16F) / 0.13F;
  const float v = (y - 0.62F) / 0.17F;
  inside = false;
  if (v > -0.55F && v < 0.02F && std::abs(u - 0.5F) < 0.62F + v * 0.55F) {
    inside = true;
    const float tile = Noise(u * 60, v * 40, 71);
    return Times({0.24F, 0.21F, 0.22F}, 0.7F + 0.6F * tile);
  }
  if (u < 0 || u > 1 || v < 0 || v > 1) return {};
  inside = true;
  const float board = std::abs(std::fmod(u * 22, 1.0F) - 0.5F) < 0.46F ? 1.0F : 0.55F;
  Rgb color = Times({0.62F, 0.13F, 0.10F}, board * (0.75F + 0.4F * Noise(u * 90, v * 9, 72)));
  const bool window =
      v > 0.3F && v < 0.65F && (std::abs(u - 0.25F) < 0.11F || std::abs(u - 0.75F) < 0.11F);
  if (window) {
    const float wu = std::fmod(u + 0.36F, 0.5F) / 0.22F;
    const bool bar =
        std::abs(wu - 0.5F) < 0.06F || std::abs(v - 0.475F) < 0.02F || wu < 0.1F || wu > 0.9F;
    color = bar ? Rgb{0.93F, 0.92F, 0.88F} : Mix({0.98F, 0.78F, 0.38F}, {0.6F, 0.4F, 0.2F}, v);
  }
  if (std::abs(u - 0.5F) < 0.07F && v > 0.45F) color = {0.88F, 0.86F, 0.80F};
  return color;
}

Rgb Lake(float x, float y) {
  const float down = (y - kHorizon) / (kShore - kHorizon);
  const float wave = Fractal(x * 30 + 10 * y, std::pow(down, 0.6F) * 90, 4, 81) - 0.5F;
  const float mirrored = kHorizon - (y - kHorizon) * 1.1F + wave * 0.05F * (0.3F + down);
  Rgb color = Land(x + wave * 0.012F, std::max(0.0F, mirrored));
  color = Mix(color, {0.08F, 0.16F, 0.22F}, 0.25F + 0.35F * down);
  const float glint = Step(0.16F, 0.3F, wave) * std::exp(-std::abs(x - kSunX) * 9);
  return Mix(color, {1.0F, 0.94F, 0.8F}, glint);
}

Rgb Meadow(float x, float y) {
  const float near = (y - kShore) / (1 - kShore);
  // Distance on the ground, so that everything grows towards the viewer.
  const float far = 1 / (0.35F + near);
  const float groundX = (x - 0.5F) * far;
  const float blade = Fractal(groundX * 420, far * 60, 4, 91);
  const float patch = Fractal(x * 6, y * 9, 4, 92);
  Rgb color = Mix({0.09F, 0.17F, 0.04F}, {0.52F, 0.56F, 0.16F}, Step(0.2F, 0.85F, blade));
  color = Mix(color, {0.55F, 0.45F, 0.20F}, 0.5F * Step(0.45F, 0.7F, patch));
  // Flowers: one in some cells, larger towards the viewer.
  const float cx = groundX * 60;
  const float cy = far * 14;
  const int ix = static_cast<int>(std::floor(cx));
  const int iy = static_cast<int>(std::floor(cy));
  if (Random(ix, iy, 93) < 0.33F) {
    const float fx = cx - static_cast<float>(ix) - 0.3F - 0.4F * Random(ix, iy, 94);
    const float fy = cy - static_cast<float>(iy) - 0.3F - 0.4F * Random(ix, iy, 95);
    const float radius = std::hypot(fx, fy * 1.3F);
    const float petals = 0.17F + 0.05F * std::cos(std::atan2(fy, fx) * 5);
    constexpr std::array<Rgb, 4> kPetal{{{0.92F, 0.20F, 0.28F},
                                         {0.97F, 0.93F, 0.90F},
                                         {0.62F, 0.38F, 0.82F},
                                         {0.98F, 0.78F, 0.15F}}};
    const auto kind = static_cast<std::size_t>(Random(ix, iy, 96) * 3.999F);
    color = Mix(color, Times(kPetal[kind], 1.1F - radius * 1.6F),
                Step(petals + 0.03F, petals - 0.03F, radius));
    color = Mix(color, {0.95F, 0.75F, 0.15F}, Step(0.07F, 0.04F, radius));
  }
  return Times(color, 0.75F + 0.35F * near);
}

Rgb Scene(float x, float y) {
  const float shore = kShore + 0.03F * (Fractal(x * 7, 3, 5, 99) - 0.5F);
  bool cabin = false;
  const Rgb house = Cabin(x, y, cabin);
  if (cabin) return house;
  if (y < kHorizon) return Land(x, y);
  return y < shore ? Lake(x, y) : Meadow(x, y);
}

/// A head and shoulders before lights out of focus, lit from the left.
Rgb Portrait(float x, float y) {
  const float aspect = 1.5F;
  Rgb color =
      Mix({0.16F, 0.22F, 0.20F}, {0.30F, 0.24F, 0.16F}, x + 0.2F * Fractal(x * 3, y * 3, 3, 301));
  for (int i = 0; i < 46; ++i) {
    const float cx = Random(i, 1, 302);
    const float cy = Random(i, 2, 302) * 0.8F;
    const float radius = 0.02F + 0.05F * Random(i, 3, 302);
    const float distance = std::hypot((x - cx) * aspect, y - cy);
    const Rgb light = Mix({1.0F, 0.75F, 0.35F}, {0.5F, 0.75F, 0.85F}, Random(i, 4, 302));
    color = Mix(color, light, 0.4F * Random(i, 5, 302) * Step(radius, radius * 0.9F, distance));
  }
  // Shoulders in a knitted pullover.
  const float u = (x - 0.5F) * aspect;
  const float shoulder = 0.80F + 0.9F * u * u;
  const float weave = 0.85F + 0.3F * Noise(u * 160, y * 120, 311);
  if (y > shoulder) color = Times({0.20F, 0.28F, 0.46F}, weave * (1.05F - 0.5F * (u + 0.4F)));
  const bool neck = std::abs(u) < 0.085F && y > 0.6F && y < shoulder + 0.05F;
  const float face = std::hypot(u / 0.20F, (y - 0.44F) / 0.27F);
  const float skin = Fractal(u * 60, y * 60, 4, 312);
  if (neck || face < 1) {
    const float light = std::clamp(0.78F - 1.4F * u + 0.25F * (0.44F - y), 0.25F, 1.05F);
    const Rgb tone = Mix({0.90F, 0.66F, 0.52F}, {0.78F, 0.48F, 0.38F}, 0.5F * skin);
    color = Times(tone, light * (neck && face >= 1 ? 0.7F : 1.0F));
    const float cheek =
        std::exp(-40 * (std::pow(std::abs(u) - 0.11F, 2.0F) + std::pow(y - 0.51F, 2.0F)));
    color = Mix(color, Times({0.92F, 0.45F, 0.40F}, light), 0.3F * cheek);
  }
  for (const float side : {-0.075F, 0.075F}) {
    const float eye = std::hypot((u - side) / 0.034F, (y - 0.42F) / 0.017F);
    if (eye < 1)
      color = Mix({0.93F, 0.91F, 0.88F}, {0.16F, 0.26F, 0.30F},
                  Step(0.62F, 0.45F, std::hypot(u - side, y - 0.42F) / 0.025F));
    const float brow = std::abs(y - 0.362F - 6 * (u - side) * (u - side));
    if (std::abs(u - side) < 0.05F)
      color = Mix(color, {0.22F, 0.13F, 0.08F}, Step(0.012F, 0.006F, brow));
  }
  const float mouth = std::hypot(u / 0.062F, (y - 0.575F + 3 * u * u) / 0.018F);
  color = Mix(color, {0.62F, 0.22F, 0.22F}, 0.85F * Step(1.0F, 0.8F, mouth));
  const float nose = std::hypot((u - 0.012F) / 0.02F, (y - 0.50F) / 0.03F);
  color = Mix(color, Times(color, 0.75F), Step(1.0F, 0.4F, nose) * 0.7F);
  // Hair: round the face, with strands.
  const float hair = std::hypot(u / 0.25F, (y - 0.40F) / 0.33F);
  const float parting = 0.30F + 0.10F * std::abs(u + 0.06F);
  if (hair < 1 && (face >= 1 || y < parting) && y < 0.62F) {
    const float strand = Fractal(u * 90 + 5 * y, y * 6, 4, 313);
    color = Mix({0.12F, 0.07F, 0.04F}, {0.46F, 0.28F, 0.14F}, strand * (0.9F - u));
  }
  return color;
}

/// A street of houses at night: lit windows, lamps, and their light on a wet road.
Rgb Night(float x, float y) {
  constexpr float kStreet = 0.72F;
  if (y > kStreet) {
    const float down = (y - kStreet) / (1 - kStreet);
    const float wave = Fractal(x * 40, down * 60, 3, 401) - 0.5F;
    const Rgb mirrored =
        Night(std::clamp(x + 0.02F * wave, 0.0F, 1.0F),
              std::max(kStreet - 0.002F - (y - kStreet) * (1 + 0.8F * wave), 0.0F));
    return Mix(Times(mirrored, 0.55F), {0.02F, 0.02F, 0.03F}, 0.3F + 0.4F * down);
  }
  Rgb color = Mix({0.01F, 0.02F, 0.06F}, {0.12F, 0.08F, 0.12F}, y / kStreet);
  if (Random(static_cast<int>(x * 900), static_cast<int>(y * 600), 402) > 0.9985F)
    color = {0.7F, 0.7F, 0.8F};
  const int house = static_cast<int>(x * 9);
  const float roof = 0.18F + 0.34F * Random(house, 0, 403);
  if (y > roof) {
    color = Times({0.10F, 0.08F, 0.09F}, 0.6F + 0.6F * Noise(x * 200, y * 140, 404));
    const int column = static_cast<int>(x * 63);
    const int row = static_cast<int>(y * 30);
    const float wu = x * 63 - static_cast<float>(column);
    const float wv = y * 30 - static_cast<float>(row);
    const bool window = wu > 0.25F && wu < 0.75F && wv > 0.2F && wv < 0.8F && y > roof + 0.03F;
    if (window) {
      const bool lit = Random(column, row, 405) < 0.42F;
      const Rgb warm = Mix({1.0F, 0.72F, 0.30F}, {0.85F, 0.85F, 0.70F}, Random(column, row, 406));
      color = lit ? Times(warm, 0.6F + 0.4F * Random(column, row, 407)) : Rgb{0.03F, 0.04F, 0.07F};
    }
  }
  for (int i = 0; i < 5; ++i) {
    const float distance = std::hypot((x - 0.1F - 0.2F * static_cast<float>(i)) * 1.5F, y - 0.5F);
    color = Mix(color, {1.0F, 0.86F, 0.55F},
                std::min(0.95F * std::exp(-distance * 26) + Step(0.012F, 0.008F, distance), 1.0F));
  }
  return color;
}

using View = Rgb (*)(float x, float y);

std::uint8_t Level(float value, float noise) {
  // Film-like shoulder, then the sRGB curve's power, then the sensor's noise.
  const float tone = std::pow(std::clamp(value, 0.0F, 1.2F) / 1.05F, 0.9F);
  return static_cast<std::uint8_t>(std::clamp(tone * 255 + noise, 0.0F, 255.0F));
}

Picture Paint(int width, int height, View view) {
  Picture picture = Picture::Uninitialized(width, height);
  const Pixels pixels = picture.Edit();
  brivolant::ParallelRows(height, 8, [&](int from, int to) {
    for (int y = from; y < to; ++y) {
      std::uint8_t* p = pixels.Row(y);
      for (int x = 0; x < width; ++x, p += 4) {
        const Rgb color = view((static_cast<float>(x) + 0.5F) / static_cast<float>(width),
                               (static_cast<float>(y) + 0.5F) / static_cast<float>(height));
        const auto noise = [&](std::uint32_t channel) {
          return (Random(x, y, 200 + channel) + Random(x, y, 210 + channel) - 1) * 10.0F;
        };
        p[0] = Level(color.b, noise(0));
        p[1] = Level(color.g, noise(1));
        p[2] = Level(color.r, noise(2));
        p[3] = 255;
      }
    }
  });
  return picture;
}

}  // namespace

int main(int argc, char** argv) {
  const int width = argc > 2 ? std::atoi(argv[2]) : 1800;
  const int height = argc > 3 ? std::atoi(argv[3]) : width * 2 / 3;
  if (argc < 2 || width < 1 || height < 1 || width > 30000 || height > 30000) {
    std::fprintf(stderr,
                 "usage: make-sample FILE.jpg [WIDTH [HEIGHT [landscape|portrait|night]]]\n");
    return 2;
  }
  const std::string_view name = argc > 4 ? argv[4] : "landscape";
  const View view = name == "portrait" ? Portrait : name == "night" ? Night : Scene;
  const std::array<brivolant::EncodeImage, 1> image{{{Paint(width, height, view), 0.92}}};
  const std::string error = brivolant::EncodeImageFile(FolderItem(argv[1]), "public.jpeg", image);
  if (error.empty()) return 0;
  std::fprintf(stderr, "make-sample: %s\n", error.c_str());
  return 1;
}
