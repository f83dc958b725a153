// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/pictures/Picture.h"
#include "platform/pictures/ToneTable.h"
#include "platform/values/Menu.h"
#include "platform/values/Pair.h"

namespace brivolant::SharedPictureEffects {

/// How Scale fits a picture into a size.
enum ScaleMode {
  kScaleExactly = 0,  ///< To exactly the size.
  kScaleToFit = 1,    ///< Inside the size, in proportion.
  kScaleToFill = 2,   ///< Exactly the size, in proportion, cut where it stands over.
};

// These keep the source's mask, changed as the colours are where the operation moves pixels.

/// A radius of exactly 0 gives the source itself; otherwise the integer part counts.
Picture GaussianBlur(const Picture& source, double radius);
Picture Invert(const Picture& source);
/// `mode` 0 to 15, `opacity` 0 to 1.
Picture Blend(const Picture& base, const Picture& fill, int mode, float opacity);
/// Clockwise; corners take `backColor`.
Picture Rotate(const Picture& source, int degrees, Color backColor, int method);
/// 0 horizontally, 1 vertically, 2 both; any other number gives the source.
Picture Flip(const Picture& source, int direction);
/// See ScaleMode. `offset`, for filling, moves the picture by percent of its scaled size as far as
/// it still covers the frame. Nil in, nil out.
Picture Scale(const Picture& source, int width, int height, int mode, const Pair* offset = nullptr);
/// A copy of that depth. Ignoring its mask means drawn on white. Nil in, nil out.
Picture Clone(const Picture& source, int depth, bool ignoreMask);
/// Turned by 270 degrees if the picture is portrait and the target landscape, or the reverse.
Picture RotateForBestFit(const Picture& source, int targetWidth, int targetHeight);

/// The curve of Exposure: raises the midtones by `amount` tenths of sqrt(x) (1 - x); black and
/// white stay.
ToneTable ExposureTable(double amount);
void Exposure(Picture& picture, double amount);

using brivolant::ClampValue;
double Radians(int degrees);
/// 1 for portrait, else 0.
int Orientation(const Picture& picture);

/// Width to height as small numbers, such as 4 : 3.
Pair AspectRatioAsPair(int width, int height);
Pair AspectRatioAsPair(const Pair& size);
std::string AspectRatio(int width, int height);
/// "12.0 Megapixel".
std::string Megapixel(int width, int height);
/// The paper size nearest to the print of that many pixels, and the one that was nearest before
/// it. `unit`, `single` and `custom` are kept for callers; inches and both names are always given.
std::string PrintSize(int width, int height, int unit, bool single, int dpi, bool custom);
/// Appends the usual sizes, each with a Pair of width and height as the tag.
void PopulateWithDefaultImageSizes(PopupMenu& menu);

}  // namespace brivolant::SharedPictureEffects
