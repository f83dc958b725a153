// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/pictures/Views.h"
#include "platform/values/Color.h"

/// Point operations that mix the channels of a pixel.
namespace brivolant::kernels {

/// Each channel as a sum of the three: rows for red, green and blue, weights of red, green and
/// blue. Rounded, limited to 0 to 255. Source and target may be the same.
using ChannelMix = std::array<std::array<float, 3>, 3>;
ChannelMix MakeChannelMix(const std::array<std::array<double, 3>, 3>& weights);
void MixChannels(ConstPixels source, Pixels target, const ChannelMix& mix);

/// The mean of the largest and the smallest channel: lightness of the HSL model.
void Desaturate(Pixels pixels);

/// The HSV value becomes one less the value; hue and saturation stay.
void InvertValue(Pixels pixels);

/// Pixels whose HSV value (the largest channel) is at least `level` become `light`, the others
/// `dark`.
void SplitByValue(Pixels pixels, int level, Color dark, Color light);

/// A palette and for each colour of 5 bits a channel its nearest entry, by the weighted distance
/// of T. Riemersma ("redmean").
class PaletteLookup {
 public:
  explicit PaletteLookup(std::span<const Color> palette);
  std::uint32_t Nearest(int red, int green, int blue) const {
    return nearest_[static_cast<std::size_t>((red >> 3) << 10 | (green >> 3) << 5 | blue >> 3)];
  }

 private:
  std::vector<std::uint32_t> nearest_;
};
/// Every pixel takes the nearest colour of the palette.
void ReduceToPalette(Pixels pixels, const PaletteLookup& palette);

/// Every pixel takes one colour.
void FillPixels(Pixels pixels, Color color);
/// Lays a colour over the pixels as far as `mask` lets it: wholly where it is 0, not where it is
/// 255.
void LayColor(Pixels pixels, Color color, ConstGrey mask);

/// A shape in any colour: of each pixel `share` of 255 takes the colour and `keep` of 255 stays,
/// together at most 255. So one pass lays a shape with its shadow.
struct Stamp {
  ConstGrey keep;
  ConstGrey share;
};
/// Lays the stamp with its corner at (x, y), on the target's rows `from` to `to` alone.
void LayStamp(Pixels target, const Stamp& stamp, Color color, int x, int y, int from, int to);

/// Fills the target with the source's pixels as blocks, each as large as the sizes say.
void Enlarge(ConstPixels source, Pixels target);

/// Paints a half-size copy of `source`, every second pixel of it, with its corner at (left, top) of
/// `target`: pixels whose HSV value is at most 84 take the first colour, at most 168 the second,
/// all others the third. What lies outside either picture is left out; `left` and `top` are not
/// negative.
void PaintByValue(ConstPixels source, Pixels target, int left, int top,
                  const std::array<Color, 3>& colors);

/// A plane that is 255 within `inner` pixels of (x, y) and falls to 0 over `fade` pixels, along a
/// straight line.
void FillFadingDisc(Grey plane, double x, double y, double inner, double fade);

}  // namespace brivolant::kernels
