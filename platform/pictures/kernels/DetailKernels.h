// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "platform/pictures/Views.h"
#include "platform/values/Color.h"

/// Kernels that look at the edges in a picture, or draw what has edges.
namespace brivolant::kernels {

/// Of a pixel's four differences from its neighbours this share, in 1/32768, is what the 3 x 3
/// convolution 0 -2 0, -2 11 -2, 0 -2 0 by 3 adds to it.
inline constexpr int kSharpenShare = 21845;

/// Adds to every channel `share` / 32768, at most 32767, of four times its own level less the four
/// nearest of `soft`: the source itself or the source blurred, for details that are larger. Beyond
/// the border the outermost pixels go on. Soft is not the target; the source may be. Row `softTop`
/// of soft belongs to the first of the source, which may be a band of it.
void SharpenAgainst(ConstPixels source, ConstPixels soft, Pixels target, int share,
                    int softTop = 0);

/// Edges of all directions as dark lines on white: 255 less the length of the gradient (I. Sobel, a
/// pixel's neighbours weighted 1 2 1) times `gain`, of the channel that changes most. Source and
/// target are not the same.
void DrawEdges(ConstPixels source, Pixels target, float gain);

/// Of every row of pixels `keep` of 255 stays, the rest becomes black. One number a row.
void DarkenRows(Pixels pixels, std::span<const std::uint8_t> keep);

/// How much of a pixel lies where `plane` is at least `level`, 0 to 256: what a straight edge
/// through the levels round it leaves.
int CoverageAbove(ConstGrey plane, int x, int y, double level);

/// Colours of dark, middle and bright parts.
using Panel = std::array<Color, 3>;
/// Paints a picture at half its size in four flat versions, with their corners at (0, 0), (left,
/// 0), (0, top) and (left, top): by `values`, dark up to a third and bright from two thirds of 255,
/// and black where `lines` is below half of it. Edges are smooth.
void PaintPanels(ConstGrey values, ConstGrey lines, Pixels target, int left, int top,
                 const std::array<Panel, 4>& panels);
/// The largest channel of every pixel: the value of the HSV model.
void Values(ConstPixels pixels, Grey plane);

namespace reference {
void SharpenAgainst(ConstPixels source, ConstPixels soft, Pixels target, int share);
void DrawEdges(ConstPixels source, Pixels target, float gain);
}  // namespace reference

}  // namespace brivolant::kernels
