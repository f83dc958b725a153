// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

#include "platform/pictures/kernels/BlendKernels.h"

// The plain form of the blend kernels: each mode's formula, one pixel at a time. Quotients, roots
// and the four modes of hue and luminosity are computed in single precision, in the order of
// operations that the fast form uses, so both round alike.
namespace brivolant::kernels::reference {
namespace {

int Div255(int x) {
  const int rounded = x + 128;
  return (rounded + (rounded >> 8)) >> 8;
}

int Rounded(float level) {
  return static_cast<int>(std::nearbyint(std::clamp(level, 0.0F, 255.0F)));
}

int HardLight(int b, int s) {
  if (2 * s <= 255) return Div255(b * 2 * s);
  const int s2 = 2 * s - 255;
  return b + s2 - Div255(b * s2);
}

int ColorDodge(int b, int s) {
  if (b == 0) return 0;
  if (s == 255) return 255;
  return Rounded(static_cast<float>(b * 255) / static_cast<float>(255 - s));
}

int ColorBurn(int b, int s) {
  if (b == 255) return 255;
  if (s == 0) return 0;
  return Rounded(255.0F - static_cast<float>((255 - b) * 255) / static_cast<float>(s));
}

int SoftLight(int b, int s) {
  const float cb = static_cast<float>(b) * (1.0F / 255.0F);
  const float cs = static_cast<float>(s) * (1.0F / 255.0F);
  const float k = cs + cs - 1.0F;
  if (2 * s <= 255) return Rounded((cb + k * (cb * (1.0F - cb))) * 255.0F);
  const float d = cb <= 0.25F ? ((16.0F * cb - 12.0F) * cb + 4.0F) * cb : std::sqrt(cb);
  return Rounded((cb + k * (d - cb)) * 255.0F);
}

int Separable(int mode, int b, int s) {
  switch (mode) {
    case 1:
      return Div255(b * s);
    case 2:
      return b + s - Div255(b * s);
    case 3:
      return HardLight(s, b);
    case 4:
      return std::min(b, s);
    case 5:
      return std::max(b, s);
    case 6:
      return ColorDodge(b, s);
    case 7:
      return ColorBurn(b, s);
    case 8:
      return SoftLight(b, s);
    case 9:
      return HardLight(b, s);
    case 10:
      return std::abs(b - s);
    case 11:
      return Div255(b * (255 - s) + s * (255 - b));
    default:
      return s;
  }
}

struct Rgb {
  float r;
  float g;
  float b;
};

float Lum(Rgb c) {
  return c.r * 0.3F + c.g * 0.59F + c.b * 0.11F;
}
float Largest(Rgb c) {
  return std::max(std::max(c.r, c.g), c.b);
}
float Smallest(Rgb c) {
  return std::min(std::min(c.r, c.g), c.b);
}
float Sat(Rgb c) {
  return Largest(c) - Smallest(c);
}

template <class F>
Rgb Each(Rgb c, F f) {
  return {f(c.r), f(c.g), f(c.b)};
}

Rgb ClipColor(Rgb c) {
  const float l = Lum(c);
  const float n = Smallest(c);
  const float x = Largest(c);
  if (n < 0.0F) {
    const float k = l / (l - n);
    c = Each(c, [&](float v) { return l + (v - l) * k; });
  }
  if (x > 255.0F) {
    const float k = (255.0F - l) / (x - l);
    c = Each(c, [&](float v) { return l + (v - l) * k; });
  }
  return c;
}

Rgb SetLum(Rgb c, float l) {
  const float d = l - Lum(c);
  return ClipColor(Each(c, [d](float v) { return v + d; }));
}

Rgb SetSat(Rgb c, float s) {
  const float n = Smallest(c);
  const float range = Largest(c) - n;
  const float k = range > 0.0F ? s / range : 0.0F;
  return Each(c, [&](float v) { return (v - n) * k; });
}

Rgb NonSeparable(int mode, Rgb b, Rgb s) {
  switch (mode) {
    case 12:
      return SetLum(SetSat(s, Sat(b)), Lum(b));
    case 13:
      return SetLum(SetSat(b, Sat(s)), Lum(b));
    case 14:
      return SetLum(s, Lum(b));
    default:
      return SetLum(b, Lum(s));
  }
}

}  // namespace

void Blend(Pixels base, ConstPixels fill, int mode, int opacity, ConstGrey mask) {
  for (int y = 0; y < base.height; ++y) {
    std::uint8_t* b = base.Row(y);
    const std::uint8_t* s = fill.Row(y);
    for (int x = 0; x < base.width; ++x, b += 4, s += 4) {
      const int weight = mask.data == nullptr ? opacity : Div255(opacity * (255 - mask.Row(y)[x]));
      int blended[3];
      if (mode >= 12 && mode <= 15) {
        const Rgb c = NonSeparable(
            mode, {static_cast<float>(b[2]), static_cast<float>(b[1]), static_cast<float>(b[0])},
            {static_cast<float>(s[2]), static_cast<float>(s[1]), static_cast<float>(s[0])});
        blended[0] = Rounded(c.b);
        blended[1] = Rounded(c.g);
        blended[2] = Rounded(c.r);
      } else {
        for (int c = 0; c < 3; ++c) blended[c] = Separable(mode, b[c], s[c]);
      }
      for (int c = 0; c < 3; ++c) {
        b[c] = static_cast<std::uint8_t>((b[c] * (256 - weight) + blended[c] * weight + 128) >> 8);
      }
    }
  }
}

void BlendTableByDarkness(Pixels pixels, const ToneTable& table) {
  for (int y = 0; y < pixels.height; ++y) {
    std::uint8_t* p = pixels.Row(y);
    for (int x = 0; x < pixels.width; ++x, p += 4) {
      const int luma = (77 * p[2] + 150 * p[1] + 29 * p[0]) / 256;
      for (int c = 0; c < 3; ++c) {
        p[c] = static_cast<std::uint8_t>(Div255(table[p[c]] * (255 - luma) + p[c] * luma));
      }
    }
  }
}

void LiftAndLower(Pixels pixels, ConstGrey mask, int lift, int lower) {
  for (int y = 0; y < pixels.height; ++y) {
    std::uint8_t* p = pixels.Row(y);
    for (int x = 0; x < pixels.width; ++x, p += 4) {
      const int m = mask.Row(y)[x];
      for (int c = 0; c < 3; ++c) {
        const int lifted = Div255(p[c] * m + std::min(255, p[c] + lift) * (255 - m));
        const int lowered = std::max(0, p[c] - lower);
        p[c] = static_cast<std::uint8_t>(Div255(lifted * (255 - m) + lowered * m));
      }
    }
  }
}

}  // namespace brivolant::kernels::reference
